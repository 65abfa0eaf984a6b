#pragma once
// One error type for every game file that cannot be read: it names the file,
// the line, what should have been there and what was found, so the manager
// can be told in plain words.
#include <stdexcept>
#include <string>

namespace kestrin {

// Thrown by the low-level field conversions, which know nothing of files.
// Readers catch it and rethrow a GameFileError with the file and line.
struct FieldError : std::runtime_error {
    std::string expected;
    std::string found;
    FieldError(std::string expected_, std::string found_);
};

struct GameFileError : std::runtime_error {
    std::string file;      // file name as the manager sees it
    int line = 0;          // 1-based; 0 when the file as a whole is wrong
    std::string expected;
    std::string found;
    GameFileError(std::string file_, int line_, std::string expected_, std::string found_);
    // "line 42 should hold a number but holds "abc"", without the file.
    std::string detail() const;
};

}  // namespace kestrin

namespace kestrin {

// A file the program writes could not be written; the old file is untouched.
struct WriteError : std::runtime_error {
    std::string path;
    std::string reason;
    WriteError(std::string path_, std::string reason_)
        : std::runtime_error("Could not write " + path_ + ": " + reason_),
          path(std::move(path_)), reason(std::move(reason_)) {}
};

}  // namespace kestrin
