#include "core/binrecord.h"

#include <cstring>

namespace kestrin {

std::string RecordReader::text(size_t offset, size_t length) const {
    std::string r(length, ' ');
    for (size_t i = 0; i < length && offset + i < bytes_.size(); ++i) r[i] = bytes_[offset + i];
    return r;
}

namespace {
uint64_t readLE(std::string_view b, size_t offset, size_t n) {
    uint64_t v = 0;
    for (size_t i = 0; i < n; ++i) {
        uint64_t byte = (offset + i < b.size()) ? static_cast<unsigned char>(b[offset + i]) : 0;
        v |= byte << (8 * i);
    }
    return v;
}
}  // namespace

int16_t RecordReader::int16(size_t offset) const { return static_cast<int16_t>(readLE(bytes_, offset, 2)); }
int32_t RecordReader::int32(size_t offset) const { return static_cast<int32_t>(readLE(bytes_, offset, 4)); }
double RecordReader::real(size_t offset) const {
    uint64_t v = readLE(bytes_, offset, 8);
    double d;
    std::memcpy(&d, &v, 8);
    return d;
}

void RecordWriter::text(size_t offset, size_t length, std::string_view value) {
    for (size_t i = 0; i < length && offset + i < bytes_.size(); ++i)
        bytes_[offset + i] = i < value.size() ? value[i] : ' ';
}

namespace {
void writeLE(std::string& b, size_t offset, uint64_t v, size_t n) {
    for (size_t i = 0; i < n && offset + i < b.size(); ++i) b[offset + i] = char((v >> (8 * i)) & 0xFF);
}
}  // namespace

void RecordWriter::int16(size_t offset, int16_t v) { writeLE(bytes_, offset, uint16_t(v), 2); }
void RecordWriter::int32(size_t offset, int32_t v) { writeLE(bytes_, offset, uint32_t(v), 4); }
void RecordWriter::real(size_t offset, double v) {
    uint64_t u;
    std::memcpy(&u, &v, 8);
    writeLE(bytes_, offset, u, 8);
}

}  // namespace kestrin
