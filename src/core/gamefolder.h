#pragma once
// The game folder: the root of every file of the game. The game's files come
// from a case-insensitive file system, so paths are resolved without regard
// to case and listings are sorted case-insensitively.
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin {

namespace fs = std::filesystem;

// '*' any run, '?' one character; ASCII case is ignored.
bool wildcardMatch(std::string_view pattern, std::string_view name);
// Case-insensitive ordering of names (ties broken by the bytes, so stable).
bool lessNoCase(std::string_view a, std::string_view b);

class GameFolder {
public:
    explicit GameFolder(fs::path root);
    const fs::path& root() const { return root_; }

    // A relative path such as "Weekly/clubsqua.txt" or "\weekly\Emails.txt",
    // resolved component by component without regard to case. Components that
    // don't exist are kept as written, so the result is also where to create.
    fs::path resolve(std::string_view relative) const;
    bool exists(std::string_view relative) const;

    // Names of the regular files in a folder below the root that match the
    // pattern, without regard to case, sorted case-insensitively.
    std::vector<std::string> list(std::string_view relativeDir, std::string_view pattern) const;

    // Makes a folder below the root when it isn't there (any case counts).
    void ensureFolder(std::string_view relative) const;

private:
    fs::path root_;
};

// Lines of a text file without their line ends (LF or CR LF). A file that
// can't be opened throws GameFileError with line 0.
std::vector<std::string> readLines(const fs::path& path);
// The same from bytes already in memory.
std::vector<std::string> splitLines(std::string_view bytes);

// The same lines as views into bytes that a reader keeps, one at a time.
class LineWalker {
public:
    explicit LineWalker(std::string_view bytes) : bytes_(bytes) {}
    // False at the end. Nothing after the last LF is no line.
    bool next(std::string_view& line) {
        if (at_ >= bytes_.size()) return false;
        const size_t nl = bytes_.find('\n', at_);
        const size_t end = nl == std::string_view::npos ? bytes_.size() : nl;
        const size_t stop = end > at_ && bytes_[end - 1] == '\r' ? end - 1 : end;
        line = bytes_.substr(at_, stop - at_);
        at_ = end + 1;
        return true;
    }

private:
    std::string_view bytes_;
    size_t at_ = 0;
};
std::string readFileBytes(const fs::path& path);  // throws GameFileError

// Each line followed by CR LF.
std::string joinCrLf(const std::vector<std::string>& lines);

// Writes a temporary file in the same folder and renames it over the target,
// so a crash or a full disk never leaves half a file nor loses the old one.
// Throws WriteError.
void writeFileAtomic(const fs::path& path, std::string_view bytes);

// Test hook: when set, called with the temporary file's path after its bytes
// are written and before the rename; throwing from it simulates a failed write.
extern std::function<void(const fs::path&)> atomicWriteFaultHook;

// The file name as the manager should see it in messages: relative to the
// game folder when inside it.
std::string displayName(const GameFolder& folder, const fs::path& path);

}  // namespace kestrin
