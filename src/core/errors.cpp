#include "core/errors.h"

namespace kestrin {

FieldError::FieldError(std::string expected_, std::string found_)
    : std::runtime_error("expected " + expected_ + ", found \"" + found_ + "\""),
      expected(std::move(expected_)), found(std::move(found_)) {}

static std::string describe(const std::string& file, int line, const std::string& expected,
                            const std::string& found) {
    std::string s = file;
    if (line > 0) s += ": line " + std::to_string(line);
    s += " should hold " + expected + " but holds ";
    s += found.empty() ? std::string("nothing") : "\"" + found + "\"";
    return s;
}

GameFileError::GameFileError(std::string file_, int line_, std::string expected_, std::string found_)
    : std::runtime_error(describe(file_, line_, expected_, found_)),
      file(std::move(file_)), line(line_), expected(std::move(expected_)), found(std::move(found_)) {}

std::string GameFileError::detail() const {
    std::string s;
    if (line > 0) s = "line " + std::to_string(line) + " ";
    s += "should hold " + expected + " but holds ";
    s += found.empty() ? std::string("nothing") : "\"" + found + "\"";
    return s;
}

}  // namespace kestrin
