#pragma once
// Helpers shared by the tests: a scratch folder that cleans up after itself.
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace kestrin::test {

// Every file below a folder, by its path relative to the folder ('/'
// separated), with its bytes; nothing for a folder that isn't there.
std::map<std::string, std::string> filesBelow(const std::filesystem::path& root);

// The same for a game folder, leaving out the archives the manager was
// mailed (Archives/ of a demo league).
std::map<std::string, std::string> gameFiles(const std::filesystem::path& root);

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& path() const { return path_; }
    // Writes bytes to a file below the folder, making folders as needed.
    std::filesystem::path write(std::string_view relative, std::string_view bytes) const;
    std::string read(std::string_view relative) const;

private:
    std::filesystem::path path_;
};

}  // namespace kestrin::test
