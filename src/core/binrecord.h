#pragma once
// The fixed-record binary files of the game (game.ini, the history file,
// SCOUT.TXT, adm.kst) share this small reader and writer: little-endian
// integers, IEEE doubles, blank-padded single-byte text.
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrin {

class RecordReader {
public:
    explicit RecordReader(std::string_view bytes) : bytes_(bytes) {}
    // Fields past the end of a short record read as blanks or zeros, as a
    // record read of a short file fills what it can.
    std::string text(size_t offset, size_t length) const;
    int16_t int16(size_t offset) const;
    int32_t int32(size_t offset) const;
    double real(size_t offset) const;
    size_t size() const { return bytes_.size(); }

private:
    std::string_view bytes_;
};

class RecordWriter {
public:
    explicit RecordWriter(size_t length) : bytes_(length, '\0') {}
    void text(size_t offset, size_t length, std::string_view value);  // cut or padded with blanks
    void int16(size_t offset, int16_t v);
    void int32(size_t offset, int32_t v);
    void real(size_t offset, double v);
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

}  // namespace kestrin
