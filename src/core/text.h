#pragma once
// The text and number rules of the game's files. Every reader uses these and
// no reader rolls its own. Text is kept as Windows-1252 bytes in std::string.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin {

// The one line that marker extraction always turns into nothing.
inline constexpr std::string_view kNoScheduledMatches = "No scheduled matches for next week";

std::string trim(std::string_view s);
// The same without a copy: a view into `s`.
std::string_view trimView(std::string_view s);
std::string upper(std::string_view s);
std::string lower(std::string_view s);
bool equalsNoCase(std::string_view a, std::string_view b);
bool startsWith(std::string_view s, std::string_view prefix);
bool startsWithNoCase(std::string_view s, std::string_view prefix);

// 0-based position of needle in hay at or after `from`, ignoring ASCII case;
// std::string::npos when absent. An empty needle is found at `from`.
size_t findNoCase(std::string_view hay, std::string_view needle, size_t from = 0);

// Text between two markers, matched without regard to case. Either marker may
// be empty. An absent start marker starts the text at the column equal to the
// marker's length (1-based), an absent end marker runs to the end of the line,
// and the line "No scheduled matches for next week" always gives "".
std::string markerText(std::string_view line, std::string_view startMarker, std::string_view endMarker);
// The same text as a view into `line`, for readers that only look at it.
std::string_view markerView(std::string_view line, std::string_view startMarker, std::string_view endMarker);
// The stats loaders' name for the same rule.
inline std::string midBetween(std::string_view text, std::string_view start, std::string_view end) {
    return markerText(text, start, end);
}

// Text from a 1-based column to the end ("" when the column is past the end).
std::string fromColumn(std::string_view line, size_t column1);
// `width` characters from a 1-based column, fewer at the end of the line.
std::string columns(std::string_view line, size_t column1, size_t width);

// Blank-separated tokens: runs of the delimiter count as one and leading ones
// are dropped. Counted from 1; asking past the end throws FieldError.
class Tokens {
public:
    explicit Tokens(std::string_view line, char delimiter = ' ');
    size_t count() const { return items_.size(); }
    bool has(size_t index1) const { return index1 >= 1 && index1 <= items_.size(); }
    const std::string& operator[](size_t index1) const;  // throws FieldError when absent
    const std::vector<std::string>& all() const { return items_; }

private:
    std::vector<std::string> items_;
};

// The same split as views into `line`, which must outlive them. `out` is
// cleared first and its room reused, so a reader of many lines can split
// them without allocating.
void splitTokens(std::string_view line, std::vector<std::string_view>& out, char delimiter = ' ');

// The lenient reading: the leading number of a text, 0 when there is none.
// Leading blanks are skipped; "12abc" gives 12, "-3.5x" gives -3.5.
double val(std::string_view s);

// Rounding of a half to the nearest even number, as the game's platform does.
int64_t roundHalfEven(double x);

// Strict conversions of a number field of a file. Blanks around the number are
// allowed, a decimal is rounded half to even, anything else throws FieldError.
// With nullIsZero, "#NULL#" gives 0; otherwise it is an error like any text.
double parseDecimal(std::string_view field, bool nullIsZero = false);
int16_t parseInt16(std::string_view field, bool nullIsZero = false);
int32_t parseInt32(std::string_view field, bool nullIsZero = false);

// A number as the game's files print it: a blank in front of a non-negative
// number, the minus sign in its place otherwise (" 5", "-5").
std::string gameNumber(int64_t n);
// Turnsheet numbers carry one blank behind as well (" 5 ", "-5 ").
std::string turnsheetNumber(int64_t n);

// Cut to `width` characters or pad with blanks on the right.
std::string fixedWidth(std::string_view s, size_t width);
// Pad with blanks on the left (never cut).
std::string padLeft(std::string_view s, size_t width);

// Windows-1252 bytes to UTF-8, and back (characters outside the code page
// become '?').
std::string cp1252ToUtf8(std::string_view s);
std::string utf8ToCp1252(std::string_view s);

}  // namespace kestrin
