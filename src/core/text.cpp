#include "core/text.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "core/errors.h"

namespace kestrin {

namespace {
inline char lowerAscii(char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; }
inline char upperAscii(char c) { return (c >= 'a' && c <= 'z') ? char(c - 'a' + 'A') : c; }
inline bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Up to `maxDigits` plain digits, the usual number field, read without the
// decimal rules; false for anything else, which takes the long way.
inline bool plainDigits(std::string_view s, size_t maxDigits, int32_t& out) {
    if (s.empty() || s.size() > maxDigits) return false;
    int32_t v = 0;
    for (char c : s) {
        if (!isDigit(c)) return false;
        v = v * 10 + (c - '0');
    }
    out = v;
    return true;
}
}  // namespace

std::string_view trimView(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && isBlank(s[b])) ++b;
    while (e > b && isBlank(s[e - 1])) --e;
    return s.substr(b, e - b);
}

std::string trim(std::string_view s) { return std::string(trimView(s)); }

std::string upper(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = upperAscii(c);
    return r;
}

std::string lower(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = lowerAscii(c);
    return r;
}

bool equalsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (lowerAscii(a[i]) != lowerAscii(b[i])) return false;
    return true;
}

bool startsWith(std::string_view s, std::string_view prefix) {
    return s.size() >= prefix.size() && s.substr(0, prefix.size()) == prefix;
}

bool startsWithNoCase(std::string_view s, std::string_view prefix) {
    return s.size() >= prefix.size() && equalsNoCase(s.substr(0, prefix.size()), prefix);
}

size_t findNoCase(std::string_view hay, std::string_view needle, size_t from) {
    if (from > hay.size()) return std::string::npos;
    if (needle.empty()) return from;
    if (needle.size() > hay.size()) return std::string::npos;
    const char first = lowerAscii(needle[0]);
    // A first character without case, as in " (" or ", ", is looked for by memchr.
    const bool caseless = first == upperAscii(first);
    const size_t last = hay.size() - needle.size();  // the last place a match can begin
    for (size_t i = from; i <= last; ++i) {
        if (caseless) {
            const void* at = std::memchr(hay.data() + i, first, last - i + 1);
            if (!at) return std::string::npos;
            i = size_t(static_cast<const char*>(at) - hay.data());
        } else if (lowerAscii(hay[i]) != first) {
            continue;
        }
        size_t k = 1;
        while (k < needle.size() && lowerAscii(hay[i + k]) == lowerAscii(needle[k])) ++k;
        if (k == needle.size()) return i;
    }
    return std::string::npos;
}

std::string markerText(std::string_view line, std::string_view startMarker, std::string_view endMarker) {
    return std::string(markerView(line, startMarker, endMarker));
}

std::string_view markerView(std::string_view line, std::string_view startMarker, std::string_view endMarker) {
    // Positions are 1-based, as the game's own routine counts them.
    size_t start;
    if (startMarker.empty()) {
        start = 1;
    } else {
        size_t at = findNoCase(line, startMarker);
        size_t place = (at == std::string::npos) ? 0 : at + 1;
        start = place + startMarker.size();
    }
    if (start < 1) start = 1;
    size_t end;
    if (endMarker.empty()) {
        end = line.size() + 1;
    } else {
        size_t at = findNoCase(line, endMarker, start - 1);
        end = (at == std::string::npos) ? 0 : at + 1;
    }
    if (line == kNoScheduledMatches) return {};
    if (end < start) end = line.size() + 1;
    if (start > line.size()) return {};
    return line.substr(start - 1, end - start);
}

std::string fromColumn(std::string_view line, size_t column1) {
    if (column1 < 1) column1 = 1;
    if (column1 > line.size()) return {};
    return std::string(line.substr(column1 - 1));
}

std::string columns(std::string_view line, size_t column1, size_t width) {
    if (column1 < 1) column1 = 1;
    if (column1 > line.size()) return {};
    return std::string(line.substr(column1 - 1, width));
}

namespace {

// Bit k set where byte k of the 64 at `p` is `delimiter`; only `size` bytes
// are read and the bits past them are set. The bytes are compared eight at a
// time, since the readers split long lines of many short fields.
uint64_t delimiterMask(const char* p, size_t size, char delimiter) {
    char last[64] = {};
    if (size < 64) p = static_cast<const char*>(std::memcpy(last, p, size));
    constexpr uint64_t low7 = 0x7F7F7F7F7F7F7F7FULL;
    const uint64_t pattern = 0x0101010101010101ULL * static_cast<unsigned char>(delimiter);
    uint64_t mask = 0;
    for (size_t w = 0; w < 8; ++w) {
        uint64_t word;
        std::memcpy(&word, p + w * 8, 8);
        const uint64_t x = word ^ pattern;                        // a zero byte where the delimiter is
        const uint64_t zero = ~(((x & low7) + low7) | x | low7);  // 0x80 in each zero byte, exactly
        mask |= (((zero >> 7) * 0x0102040810204080ULL) >> 56) << (w * 8);  // one bit per byte
    }
    return size < 64 ? mask | ~uint64_t(0) << size : mask;
}

}  // namespace

void splitTokens(std::string_view line, std::vector<std::string_view>& out, char delimiter) {
    out.clear();
    const size_t n = line.size();
    if constexpr (std::endian::native != std::endian::little) {
        size_t i = 0;
        while (i < n) {
            while (i < n && line[i] == delimiter) ++i;
            if (i >= n) break;
            size_t j = i;
            while (j < n && line[j] != delimiter) ++j;
            out.push_back(line.substr(i, j - i));
            i = j;
        }
        return;
    }
    // Tokens start where a delimiter is followed by another byte and end at
    // the next delimiter, so starts and ends take turns; the line is taken 64
    // bytes at a time, and a token may run on from one to the next.
    size_t start = 0;
    bool open = false;
    uint64_t before = 1;  // the line starts as if behind a delimiter
    for (size_t base = 0; base < n; base += 64) {
        const uint64_t delim = delimiterMask(line.data() + base, std::min<size_t>(64, n - base), delimiter);
        const uint64_t behind = (delim << 1) | before;
        uint64_t starts = ~delim & behind;
        uint64_t ends = delim & ~behind;
        before = delim >> 63;
        if (open && ends) {
            out.push_back(line.substr(start, base + size_t(std::countr_zero(ends)) - start));
            ends &= ends - 1;
            open = false;
        }
        while (starts) {
            start = base + size_t(std::countr_zero(starts));
            starts &= starts - 1;
            if (!ends) {
                open = true;
                break;
            }
            out.push_back(line.substr(start, base + size_t(std::countr_zero(ends)) - start));
            ends &= ends - 1;
        }
    }
    if (open) out.push_back(line.substr(start));
}

Tokens::Tokens(std::string_view line, char delimiter) {
    std::vector<std::string_view> views;
    splitTokens(line, views, delimiter);
    items_.assign(views.begin(), views.end());
}

const std::string& Tokens::operator[](size_t index1) const {
    if (!has(index1))
        throw FieldError("at least " + std::to_string(index1) + " fields", std::to_string(items_.size()) + " fields");
    return items_[index1 - 1];
}

double val(std::string_view s) {
    size_t i = 0;
    while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
    size_t b = i;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) ++i;
    size_t digitsStart = i;
    while (i < s.size() && isDigit(s[i])) ++i;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && isDigit(s[i])) ++i;
    }
    std::string num(s.substr(b, i - b));
    if (i == digitsStart || num == "-" || num == "+" || num == "." || num == "-." || num == "+.") return 0.0;
    return std::strtod(num.c_str(), nullptr);
}

int64_t roundHalfEven(double x) {
    double r = std::nearbyint(x);  // default rounding mode: to nearest, ties to even
    return static_cast<int64_t>(r);
}

namespace {
// A plain decimal: optional sign, digits, optional fraction. Returns false otherwise.
bool plainDecimal(const std::string& t, double& out) {
    size_t i = 0;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) ++i;
    size_t digits = 0;
    while (i < t.size() && isDigit(t[i])) ++i, ++digits;
    if (i < t.size() && t[i] == '.') {
        ++i;
        while (i < t.size() && isDigit(t[i])) ++i, ++digits;
    }
    if (digits == 0 || i != t.size()) return false;
    out = std::strtod(t.c_str(), nullptr);
    return std::isfinite(out);
}
}  // namespace

double parseDecimal(std::string_view field, bool nullIsZero) {
    size_t b = 0, e = field.size();
    while (b < e && isBlank(field[b])) ++b;
    while (e > b && isBlank(field[e - 1])) --e;
    const std::string_view t = field.substr(b, e - b);
    if (nullIsZero && t == "#NULL#") return 0.0;
    // Whole numbers of up to 15 digits are exact in a double, and they are
    // most of what the files hold, so they are spared strtod.
    const size_t digits = (!t.empty() && (t[0] == '-' || t[0] == '+')) ? 1 : 0;
    if (t.size() > digits && t.size() - digits <= 15) {
        int64_t v = 0;
        size_t i = digits;
        while (i < t.size() && isDigit(t[i])) v = v * 10 + (t[i++] - '0');
        if (i == t.size()) return t[0] == '-' ? -double(v) : double(v);
    }
    double d = 0;
    if (!plainDecimal(std::string(t), d)) throw FieldError("a number", std::string(field));
    return d;
}

int16_t parseInt16(std::string_view field, bool nullIsZero) {
    if (int32_t v; plainDigits(field, 4, v)) return static_cast<int16_t>(v);
    double d = parseDecimal(field, nullIsZero);
    // Rounding to 64 bits is only defined for numbers that fit, so the size
    // is told first.
    if (std::fabs(d) > 1e12) throw FieldError("a number from -32768 to 32767", std::string(field));
    int64_t r = roundHalfEven(d);
    if (r < std::numeric_limits<int16_t>::min() || r > std::numeric_limits<int16_t>::max())
        throw FieldError("a number from -32768 to 32767", std::string(field));
    return static_cast<int16_t>(r);
}

int32_t parseInt32(std::string_view field, bool nullIsZero) {
    if (int32_t v; plainDigits(field, 9, v)) return v;
    double d = parseDecimal(field, nullIsZero);
    if (std::fabs(d) > 1e12) throw FieldError("a number from -2147483648 to 2147483647", std::string(field));
    int64_t r = roundHalfEven(d);
    if (r < std::numeric_limits<int32_t>::min() || r > std::numeric_limits<int32_t>::max())
        throw FieldError("a number from -2147483648 to 2147483647", std::string(field));
    return static_cast<int32_t>(r);
}

std::string gameNumber(int64_t n) {
    return (n < 0) ? std::to_string(n) : " " + std::to_string(n);
}

std::string turnsheetNumber(int64_t n) { return gameNumber(n) + " "; }

std::string fixedWidth(std::string_view s, size_t width) {
    std::string r(s.substr(0, width));
    r.resize(width, ' ');
    return r;
}

std::string padLeft(std::string_view s, size_t width) {
    if (s.size() >= width) return std::string(s);
    return std::string(width - s.size(), ' ') + std::string(s);
}

namespace {
// Code points of 0x80..0x9F in Windows-1252; 0 marks the five unused bytes.
constexpr char32_t kCp1252High[32] = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void appendUtf8(std::string& out, char32_t cp) {
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}
}  // namespace

std::string cp1252ToUtf8(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    for (unsigned char c : s) {
        if (c < 0x80) {
            out += char(c);
        } else if (c < 0xA0) {
            char32_t cp = kCp1252High[c - 0x80];
            appendUtf8(out, cp ? cp : char32_t(c));  // unused bytes pass as C1 controls
        } else {
            appendUtf8(out, c);
        }
    }
    return out;
}

std::string utf8ToCp1252(std::string_view s) {
    std::string out;
    out.reserve(s.size());
    size_t i = 0;
    while (i < s.size()) {
        unsigned char c = s[i];
        char32_t cp;
        size_t len;
        if (c < 0x80) { cp = c; len = 1; }
        else if ((c & 0xE0) == 0xC0) { cp = c & 0x1F; len = 2; }
        else if ((c & 0xF0) == 0xE0) { cp = c & 0x0F; len = 3; }
        else if ((c & 0xF8) == 0xF0) { cp = c & 0x07; len = 4; }
        else { out += '?'; ++i; continue; }
        if (i + len > s.size()) { out += '?'; break; }
        bool ok = true;
        for (size_t k = 1; k < len; ++k) {
            unsigned char cc = s[i + k];
            if ((cc & 0xC0) != 0x80) { ok = false; break; }
            cp = (cp << 6) | (cc & 0x3F);
        }
        if (!ok) { out += '?'; ++i; continue; }
        i += len;
        if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) { out += char(cp); continue; }
        char mapped = '?';
        for (int k = 0; k < 32; ++k)
            if (kCp1252High[k] == cp && cp != 0) { mapped = char(0x80 + k); break; }
        if (mapped == '?' && cp >= 0x80 && cp < 0xA0) mapped = char(cp);
        out += mapped;
    }
    return out;
}

}  // namespace kestrin
