#include "support/testsupport.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

#include "core/loader.h"

namespace kestrin::test {

std::map<std::string, std::string> filesBelow(const std::filesystem::path& root) {
    std::map<std::string, std::string> out;
    std::error_code ec;
    if (!std::filesystem::exists(root, ec)) return out;
    for (const auto& e : std::filesystem::recursive_directory_iterator(root)) {
        if (!e.is_regular_file()) continue;
        std::ifstream in(e.path(), std::ios::binary);
        std::stringstream ss;
        ss << in.rdbuf();
        out[std::filesystem::relative(e.path(), root).generic_string()] = ss.str();
    }
    return out;
}

std::map<std::string, std::string> gameFiles(const std::filesystem::path& root) {
    auto files = filesBelow(root);
    std::erase_if(files, [](const auto& entry) { return entry.first.rfind("Archives/", 0) == 0; });
    return files;
}

std::vector<std::string> shown(const RecordingMessages& messages) {
    static const char* const kinds[] = {"Refuse", "Warn", "Inform", "Ask"};
    std::vector<std::string> out;
    for (const auto& e : messages.entries) out.push_back(std::string(kinds[int(e.kind)]) + "|" + e.title + "|" + e.text);
    return out;
}

DemoOptions smallDemo(uint64_t seed, int exportClubs) {
    DemoOptions o;
    o.seed = seed;
    o.exportClubs = exportClubs;
    return o;
}

Session loadQuietly(const std::filesystem::path& folder) {
    RecordingMessages messages;
    return loadSession(folder, messages);
}

TempDir::TempDir() {
    std::random_device rd;
    auto base = std::filesystem::temp_directory_path();
    for (int attempt = 0; attempt < 100; ++attempt) {
        auto p = base / ("kestrin-test-" + std::to_string(rd()));
        if (std::filesystem::create_directory(p)) {
            path_ = p;
            return;
        }
    }
    throw std::runtime_error("no scratch folder");
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(path_, ec);
}

std::filesystem::path TempDir::write(std::string_view relative, std::string_view bytes) const {
    auto p = path_ / std::filesystem::path(std::string(relative));
    std::filesystem::create_directories(p.parent_path());
    std::ofstream out(p, std::ios::binary);
    out.write(bytes.data(), std::streamsize(bytes.size()));
    return p;
}

std::string TempDir::read(std::string_view relative) const {
    std::ifstream in(path_ / std::filesystem::path(std::string(relative)), std::ios::binary);
    std::stringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

}  // namespace kestrin::test
