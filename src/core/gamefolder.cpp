#include "core/gamefolder.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <random>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/errors.h"
#include "core/text.h"

namespace kestrin {

std::function<void(const fs::path&)> atomicWriteFaultHook;

bool wildcardMatch(std::string_view pattern, std::string_view name) {
    // Iterative match with one backtrack point for the last '*'.
    size_t p = 0, n = 0, starP = std::string::npos, starN = 0;
    auto eq = [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
    };
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || (pattern[p] != '*' && eq(pattern[p], name[n])))) {
            ++p, ++n;
        } else if (p < pattern.size() && pattern[p] == '*') {
            starP = p++;
            starN = n;
        } else if (starP != std::string::npos) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

bool lessNoCase(std::string_view a, std::string_view b) {
    std::string la = lower(a), lb = lower(b);
    if (la != lb) return la < lb;
    return a < b;
}

GameFolder::GameFolder(fs::path root) : root_(std::move(root)) {}

namespace {
std::vector<std::string> components(std::string_view relative) {
    std::vector<std::string> parts;
    std::string cur;
    for (char c : relative) {
        if (c == '/' || c == '\\') {
            if (!cur.empty()) parts.push_back(cur);
            cur.clear();
        } else {
            cur += c;
        }
    }
    if (!cur.empty()) parts.push_back(cur);
    return parts;
}
}  // namespace

fs::path GameFolder::resolve(std::string_view relative) const {
    fs::path cur = root_;
    bool searching = true;
    for (const std::string& part : components(relative)) {
        if (part == ".") continue;
        if (searching) {
            std::error_code ec;
            if (fs::exists(cur / part, ec)) {
                cur /= part;
                continue;
            }
            std::string found;
            if (fs::is_directory(cur, ec)) {
                std::vector<std::string> matches;
                for (const auto& e : fs::directory_iterator(cur, ec)) {
                    std::string name = e.path().filename().string();
                    if (equalsNoCase(name, part)) matches.push_back(name);
                }
                if (!matches.empty()) {
                    std::sort(matches.begin(), matches.end());
                    found = matches.front();
                }
            }
            if (!found.empty()) {
                cur /= found;
                continue;
            }
            searching = false;
        }
        cur /= part;
    }
    return cur;
}

bool GameFolder::exists(std::string_view relative) const {
    std::error_code ec;
    return fs::exists(resolve(relative), ec);
}

std::vector<std::string> GameFolder::list(std::string_view relativeDir, std::string_view pattern) const {
    std::vector<std::string> names;
    fs::path dir = resolve(relativeDir);
    std::error_code ec;
    if (!fs::is_directory(dir, ec)) return names;
    for (const auto& e : fs::directory_iterator(dir, ec)) {
        if (!e.is_regular_file(ec)) continue;
        std::string name = e.path().filename().string();
        if (wildcardMatch(pattern, name)) names.push_back(name);
    }
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) { return lessNoCase(a, b); });
    return names;
}

void GameFolder::ensureFolder(std::string_view relative) const {
    fs::path p = resolve(relative);
    std::error_code ec;
    if (!fs::is_directory(p, ec)) fs::create_directories(p, ec);
    if (ec) throw WriteError(p.string(), ec.message());
}

std::string readFileBytes(const fs::path& path) {
    // The loader reads every file of the game through here, so it is one
    // open, one stat and one read. A folder opens on this system, and its
    // size is nonsense.
    struct Fd {
        int fd;
        ~Fd() {
            if (fd >= 0) ::close(fd);
        }
    } file{::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
    struct stat st {};
    if (file.fd >= 0 && ::fstat(file.fd, &st) != 0) st = {};
    std::error_code ec;
    if (file.fd >= 0 ? S_ISDIR(st.st_mode) : fs::is_directory(path, ec))
        throw GameFileError(path.filename().string(), 0, "a file", "a folder of that name");
    if (file.fd < 0)
        throw GameFileError(path.filename().string(), 0, "a readable file", "no such file or no permission");
    std::string bytes(size_t(std::max<off_t>(st.st_size, 0)), '\0');
    size_t got = 0;
    while (got < bytes.size()) {
        const ssize_t n = ::read(file.fd, bytes.data() + got, bytes.size() - got);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        got += size_t(n);
    }
    bytes.resize(got);
    return bytes;
}

std::vector<std::string> splitLines(std::string_view bytes) {
    std::vector<std::string> lines;
    LineWalker walker(bytes);
    for (std::string_view line; walker.next(line);) lines.emplace_back(line);
    return lines;
}

std::vector<std::string> readLines(const fs::path& path) { return splitLines(readFileBytes(path)); }

std::string joinCrLf(const std::vector<std::string>& lines) {
    size_t total = 0;
    for (const auto& l : lines) total += l.size() + 2;
    std::string out;
    out.reserve(total);
    for (const auto& l : lines) {
        out += l;
        out += "\r\n";
    }
    return out;
}

void writeFileAtomic(const fs::path& path, std::string_view bytes) {
    fs::path dir = path.parent_path();
    if (dir.empty()) dir = ".";
    static std::mt19937_64 rng{std::random_device{}()};
    fs::path tmp = dir / ("." + path.filename().string() + ".tmp" + std::to_string(rng() % 1000000));
    FILE* f = std::fopen(tmp.c_str(), "wb");
    if (!f) throw WriteError(path.string(), std::strerror(errno));
    bool ok = bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), f) == bytes.size();
    ok = (std::fflush(f) == 0) && ok;
    ok = (::fsync(::fileno(f)) == 0) && ok;
    int err = errno;
    ok = (std::fclose(f) == 0) && ok;
    if (!ok) {
        std::error_code ec;
        fs::remove(tmp, ec);
        throw WriteError(path.string(), std::strerror(err ? err : EIO));
    }
    try {
        if (atomicWriteFaultHook) atomicWriteFaultHook(tmp);
    } catch (...) {
        std::error_code ec;
        fs::remove(tmp, ec);
        throw;
    }
    std::error_code ec;
    fs::rename(tmp, path, ec);
    if (ec) {
        std::error_code ec2;
        fs::remove(tmp, ec2);
        throw WriteError(path.string(), ec.message());
    }
}

std::string displayName(const GameFolder& folder, const fs::path& path) {
    std::error_code ec;
    fs::path rel = fs::relative(path, folder.root(), ec);
    if (!ec && !rel.empty() && rel.native().rfind("..", 0) != 0) return rel.generic_string();
    return path.filename().string();
}

}  // namespace kestrin
