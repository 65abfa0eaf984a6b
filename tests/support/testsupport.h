#pragma once
// Helpers shared by the tests: a scratch folder that cleans up after itself.
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "core/session.h"
#include "demo/demo.h"

namespace kestrin::test {

// Every file below a folder, by its path relative to the folder ('/'
// separated), with its bytes; nothing for a folder that isn't there.
std::map<std::string, std::string> filesBelow(const std::filesystem::path& root);

// The same for a game folder, leaving out the archives the manager was
// mailed (Archives/ of a demo league).
std::map<std::string, std::string> gameFiles(const std::filesystem::path& root);

// Each message shown, as "Refuse|title|text" (or Warn, Inform, Ask), so a
// test compares kind, title and text of all of them at once.
std::vector<std::string> shown(const RecordingMessages& messages);

// A demo league of the given seed with fewer exported clubs than the
// default, quick enough for a test.
DemoOptions smallDemo(uint64_t seed, int exportClubs = 30);

// The session a manager gets on opening the folder, messages discarded.
Session loadQuietly(const std::filesystem::path& folder);

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
