#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "core/errors.h"
#include "core/text.h"

using namespace kestrin;

TEST(MarkerText, FollowsTheFiveSteps) {
    struct Case {
        const char* line;
        const char* start;
        const char* end;
        const char* want;
    } cases[] = {
        {"Stadium - Old Road Capacity - 12000Facilities - 3", "Stadium - ", " Capacity", "Old Road"},
        {"Stadium - Old Road Capacity - 12000Facilities - 3", " Capacity - ", "Facilities", "12000"},
        {"Stadium - Old Road Capacity - 12000Facilities - 3", "Facilities - ", "", "3"},
        // Case is ignored for both markers.
        {"stadium - Old Road capacity - 5", "STADIUM - ", " CAPACITY", "Old Road"},
        // A stadium holding "capacity" after a blank is cut short.
        {"Stadium - The capacity Dome Capacity - 5", "Stadium - ", " Capacity", "The"},
        // An absent start marker of length 7 starts at column 7.
        {"abcdefghijkl", "XXXXXXX", "", "ghijkl"},
        // An absent end marker runs to the end.
        {"Crowd rating - 45", "Crowd rating - ", " Nowhere", "45"},
        // The end marker is searched from the start position only.
        {"a - b - c", " - ", " - ", "b"},
        {"No scheduled matches for next week", "", "", ""},
        {"No scheduled matches for next week", "No", "week", ""},
        {"", "x", "y", ""},
        {"short", "", "", "short"},
    };
    for (const Case& c : cases) EXPECT_EQ(markerText(c.line, c.start, c.end), c.want) << c.line << " / " << c.start;
}

TEST(Tokens, RunsOfBlanksCountAsOneAndCountingStartsAtOne) {
    Tokens t("   DEFL  21 5   6 ");
    ASSERT_EQ(t.count(), 4u);
    EXPECT_EQ(t[1], "DEFL");
    EXPECT_EQ(t[4], "6");
    EXPECT_THROW(t[5], FieldError);
    EXPECT_THROW(t[0], FieldError);
    Tokens c("a,,b", ',');
    EXPECT_EQ(c.count(), 2u);
    EXPECT_EQ(Tokens("").count(), 0u);
}

// The split looks at 64 bytes at a time: tokens and runs of blanks that cross
// those borders, and lines that end on them, split as one byte at a time does.
TEST(Tokens, LongLinesSplitAcrossEveryBorder) {
    std::mt19937 rng(7);
    std::vector<std::string_view> got;
    for (int round = 0; round < 3000; ++round) {
        const char delimiter = round % 3 == 0 ? ',' : ' ';
        std::string line(size_t(rng() % 200), 'x');
        for (char& ch : line) ch = " ,\tab"[rng() % (round % 2 ? 2 : 5)];
        std::vector<std::string> want;
        for (size_t i = 0; i < line.size();) {
            if (line[i] == delimiter) {
                ++i;
                continue;
            }
            const size_t j = std::min(line.find(delimiter, i), line.size());
            want.push_back(line.substr(i, j - i));
            i = j;
        }
        splitTokens(line, got, delimiter);
        ASSERT_EQ(std::vector<std::string>(got.begin(), got.end()), want) << '"' << line << '"';
    }
}

TEST(Numbers, LenientStrictRoundingAndPrinting) {
    EXPECT_EQ(val("12abc"), 12);
    EXPECT_EQ(val("  -3.5x"), -3.5);
    EXPECT_EQ(val("abc"), 0);
    EXPECT_EQ(val(""), 0);
    EXPECT_EQ(val("-"), 0);

    EXPECT_EQ(roundHalfEven(0.5), 0);
    EXPECT_EQ(roundHalfEven(1.5), 2);
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(-0.5), 0);
    EXPECT_EQ(roundHalfEven(2.17), 2);

    EXPECT_EQ(parseInt16(" 42 "), 42);
    EXPECT_EQ(parseInt16("12.0"), 12);
    EXPECT_EQ(parseInt16("2.5"), 2);
    EXPECT_EQ(parseInt16("-7"), -7);
    EXPECT_EQ(parseInt16("#NULL#", true), 0);
    EXPECT_THROW(parseInt16("#NULL#"), FieldError);
    EXPECT_THROW(parseInt16("abc"), FieldError);
    EXPECT_THROW(parseInt16(""), FieldError);
    EXPECT_THROW(parseInt16("12x"), FieldError);
    EXPECT_THROW(parseInt16("40000"), FieldError);
    EXPECT_EQ(parseInt32("40000"), 40000);
    EXPECT_EQ(parseInt32("1234567.5"), 1234568);

    EXPECT_EQ(gameNumber(5), " 5");
    EXPECT_EQ(gameNumber(0), " 0");
    EXPECT_EQ(gameNumber(-5), "-5");
    EXPECT_EQ(turnsheetNumber(12), " 12 ");
    EXPECT_EQ(turnsheetNumber(-1), "-1 ");
}

TEST(TextHelpers, FindCutPadConvert) {
    EXPECT_EQ(findNoCase("Club SQUAD", "squ"), 5u);
    EXPECT_EQ(findNoCase("abc", "x"), std::string::npos);
    EXPECT_EQ(fixedWidth("abcdef", 3), "abc");
    EXPECT_EQ(fixedWidth("ab", 4), "ab  ");
    EXPECT_EQ(columns("abcdef", 3, 2), "cd");
    EXPECT_EQ(fromColumn("abcdef", 7), "");
    EXPECT_EQ(cp1252ToUtf8("\xA3" "5 \x80"), "\xC2\xA3" "5 \xE2\x82\xAC");
    EXPECT_EQ(utf8ToCp1252("\xC2\xA3" "5 \xE2\x82\xAC"), "\xA3" "5 \x80");
    EXPECT_EQ(trim("  x y \r"), "x y");
}
