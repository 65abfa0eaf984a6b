#pragma once
// Helpers shared by the tests: a scratch folder that cleans up after itself.
#include <filesystem>
#include <string>
#include <string_view>

namespace kestrin::test {

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
