#pragma once
// Zip archives: the squad archive and weekly.zip the administrator mails.
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestrin {

// An archive that can't be opened or read, or an entry refused for safety.
// The text is plain words for the manager.
struct ArchiveError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ZipEntry {
    std::string name;   // path inside the archive, '/' separated
    std::string bytes;
};

// Writes a new archive (atomically: temporary file, then rename).
void writeZip(const std::filesystem::path& zipPath, const std::vector<ZipEntry>& entries);
// The same with every entry dated `modified` (seconds since 1970) instead of
// now, so that the same entries always make the same bytes.
void writeZip(const std::filesystem::path& zipPath, const std::vector<ZipEntry>& entries, std::time_t modified);

// The entry names of an archive, in archive order.
std::vector<std::string> listZip(const std::filesystem::path& zipPath);

// Extracts every entry (or only `only`, matched without regard to case) into
// `targetDir`. An entry that would land outside the folder (absolute path,
// "..", a symbolic link) is refused before anything is written; a damaged
// archive is refused. Returns the paths written.
std::vector<std::filesystem::path> extractZip(const std::filesystem::path& zipPath,
                                              const std::filesystem::path& targetDir,
                                              const std::vector<std::string>& only = {});

}  // namespace kestrin
