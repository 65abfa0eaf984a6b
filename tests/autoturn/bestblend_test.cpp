#include "autoturn/bestblend.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "stats/statsdb.h"

using namespace kestrin;

namespace {

constexpr int kSquad = 24;
// The report keeps the first 19 characters of this name.
constexpr const char* kLongName = "Bartholomew Fitzwilliam";

struct Match {
    const char* date;
    int start, end;  // formation numbers: 2 is 4-4-2, 4 is 4-5-1, 8 is 3-4-3
    std::array<int64_t, 6> blends;  // start then end: defence, midfield, attack
    std::array<int, 13> shirts;     // squad numbers as the report leaves them, 0 for an empty row
    std::array<int, 13> timeSub{};
};

std::string reportedName(int n) {
    if (n == 0) return "";
    return n == kSquad ? std::string(kLongName).substr(0, 19) : "P" + std::to_string(n);
}

Club squad() {
    Club club;
    club.ClubFile = "KEST";
    club.Players.resize(kSquad);
    for (int n = 1; n <= kSquad; ++n) club.Players[size_t(n - 1)].Name = n == kSquad ? kLongName : "P" + std::to_string(n);
    return club;
}

void addSide(stats::StatsStore& s, int64_t code, const std::string& club, const Match& m) {
    std::vector<std::string> names;
    for (int n : m.shirts) names.push_back(reportedName(n));
    test::addSide(s, code, club, m.start, m.end, m.blends, names, {m.timeSub.begin(), m.timeSub.end()});
}

// The club's side, and an opponent fielding the same names in other shirts
// with other blends, which the club's reading must never see.
void store(SQLite::Database& db, const Match& m, int attendance, const std::string& club = "KEST") {
    stats::StatsStore s(db, m.date);
    const bool away = attendance % 2;
    const int64_t code = *s.addMatchMain(attendance, 2, 51, away ? "OPPO" : club, away ? club : "OPPO");
    addSide(s, code, club, m);
    Match other{m.date, 1, 1, {0, 0, 0, 0, 0, 0}, m.shirts};
    std::reverse(other.shirts.begin(), other.shirts.end());
    addSide(s, code, "OPPO", other);
}

// "d3 2,3,4,5 | m0 6,7 ..." in store order; "none" for no store.
std::string text(const std::optional<LineStore>& store) {
    if (!store) return "none";
    std::string out;
    for (size_t kind = 0; kind < 3; ++kind)
        for (size_t blend = 0; blend < 11; ++blend)
            for (const StoredLine& line : store->Lines[kind][blend]) {
                out += out.empty() ? "" : " | ";
                out += "dma"[kind] + std::to_string(blend) + " ";
                for (size_t i = 0; i < line.Players.size(); ++i) out += (i ? "," : "") + std::to_string(line.Players[i]);
            }
    return out;
}

// "2,3,4,5 / 6,7,8,9 / 10,11", "-" for a line left unset.
std::string text(const BlendLines& lines) {
    std::string out;
    for (size_t kind = 0; kind < 3; ++kind) {
        out += kind ? " / " : "";
        if (!lines.Lines[kind]) out += "-";
        else
            for (size_t i = 0; i < lines.Lines[kind]->size(); ++i)
                out += (i ? "," : "") + std::to_string((*lines.Lines[kind])[i]);
    }
    return out;
}

constexpr std::array<int, 13> kFirstEleven{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13};

}  // namespace

TEST(BestBlend, LinesReadAndChosen) {
    const std::array<int, 13> reserves{1, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23};
    // A 4-4-2 at blends 0 and a 4-5-1 whose defence is the same.
    const std::vector<Match> twoShapes{{"2026-03-07", 2, 2, {0, 0, 0, 0, 0, 0}, kFirstEleven},
                                       {"2026-03-14", 4, 4, {0, 0, 0, 6, 4, 4}, {1, 2, 3, 4, 5, 16, 17, 18, 19, 20, 21}}};
    const struct {
        const char* name;
        std::vector<Match> matches;
        std::vector<int> unavailable;
        std::array<int, 3> quotas;
        bool fixed;
        const char* store;
        const char* chosen;
    } cases[] = {
        {"a line met twice is stored under both blends, newest first, and the lowest blend wins",
         {{"2026-03-07", 2, 2, {0, 0, 0, 5, 1, 1}, kFirstEleven},
          {"2026-03-14", 2, 2, {0, 0, 0, 4, 2, 2}, reserves},
          {"2026-03-21", 2, 2, {0, 0, 0, 3, 9, 9}, kFirstEleven},
          {"2026-03-28", 2, 2, {0, 0, 0, 5, 8, 8}, {1, 13, 12, 14, 15, 6, 7, 8, 9, 10, 11}}},
         {}, {4, 4, 2}, false,
         "d3 2,3,4,5 | d4 12,13,14,15 | d5 13,12,14,15 | d5 2,3,4,5 | m1 6,7,8,9 | m2 16,17,18,19 | m8 6,7,8,9 | "
         "m9 6,7,8,9 | a1 10,11 | a2 20,21 | a8 10,11 | a9 10,11",
         "2,3,4,5 / 6,7,8,9 / 10,11"},
        {"substitutes at different minutes: the kick-off, its formation and blends",
         {{"2026-03-07", 2, 4, {1, 2, 3, 9, 9, 9}, {1, 2, 3, 4, 5, 6, 20, 8, 9, 21, 11, 7, 10},
           {0, 0, 0, 0, 0, 0, 60, 0, 0, 75, 0, 60, 75}}},
         {}, {4, 4, 2}, false, "d1 2,3,4,5 | m2 6,7,8,9 | a3 10,11", "2,3,4,5 / 6,7,8,9 / 10,11"},
        {"substitutes at the same minute: the end of the match, its formation and blends",
         {{"2026-03-07", 2, 4, {1, 1, 1, 2, 3, 4}, {1, 2, 3, 4, 5, 6, 20, 8, 9, 21, 11, 7, 10},
           {0, 0, 0, 0, 0, 0, 60, 0, 0, 60, 0, 60, 60}}},
         {}, {4, 4, 2}, false, "d2 2,3,4,5 | m3 6,20,8,9,21 | a4 11", "2,3,4,5 / 6,20,8,9,21 / 11"},
        {"a line with an unavailable player is not stored; a long name is met by its report name",
         {{"2026-03-07", 2, 2, {0, 0, 0, 1, 1, 1}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, kSquad}}},
         {7}, {4, 4, 2}, false, "d1 2,3,4,5 | a1 10,24", "- / - / -"},
        {"a candidate with a player twice gives way to the next",
         {{"2026-03-07", 2, 2, {0, 0, 0, 0, 0, 5}, kFirstEleven},
          {"2026-03-14", 2, 2, {0, 0, 0, 3, 3, 0}, {1, 12, 13, 14, 15, 16, 17, 18, 19, 6, 20}}},
         {}, {4, 4, 2}, false, "d0 2,3,4,5 | d3 12,13,14,15 | m0 6,7,8,9 | m3 16,17,18,19 | a0 6,20 | a5 10,11",
         "2,3,4,5 / 6,7,8,9 / 10,11"},
        {"no fixed formation: every line from the first candidate",
         twoShapes,
         {}, {4, 5, 1}, false, "d0 2,3,4,5 | d6 2,3,4,5 | m0 6,7,8,9 | m4 16,17,18,19,20 | a0 10,11 | a4 21",
         "2,3,4,5 / 6,7,8,9 / 10,11"},
        {"a fixed formation takes lines of the quota's sizes, from different formations",
         twoShapes,
         {}, {4, 5, 1}, true, "d0 2,3,4,5 | d6 2,3,4,5 | m0 6,7,8,9 | m4 16,17,18,19,20 | a0 10,11 | a4 21",
         "2,3,4,5 / 16,17,18,19,20 / 21"},
        {"a quota no stored line has is left unset",
         twoShapes,
         {}, {3, 5, 2}, true, "d0 2,3,4,5 | d6 2,3,4,5 | m0 6,7,8,9 | m4 16,17,18,19,20 | a0 10,11 | a4 21",
         "- / 16,17,18,19,20 / 10,11"},
        {"a blend of 10 is stored but never chosen; one out of range is not stored",
         {{"2026-03-07", 8, 8, {0, 0, 0, 10, 0, 0}, kFirstEleven},
          {"2026-03-14", 8, 8, {0, 0, 0, 11, -1, 0}, reserves}},
         {}, {3, 4, 3}, false, "d10 2,3,4 | m0 5,6,7,8 | a0 19,20,21 | a0 9,10,11", "- / - / -"},
        {"no match", {}, {}, {4, 4, 2}, false, "none", "- / - / -"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        test::MemoryStats db;
        int attendance = 1000;
        for (const Match& m : c.matches) store(db.db, m, ++attendance);
        // The newest match is another club's.
        store(db.db, {"2026-04-04", 2, 2, {0, 0, 0, 0, 0, 0}, kFirstEleven}, 2000, "OTHR");
        std::vector<int> available;
        for (int n = 1; n <= kSquad; ++n)
            if (std::find(c.unavailable.begin(), c.unavailable.end(), n) == c.unavailable.end()) available.push_back(n);
        const std::optional<LineStore> lines = readLineStore(db.db, squad(), available);
        EXPECT_EQ(text(lines), c.store);
        EXPECT_EQ(text(chooseBlendLines(lines.value_or(LineStore{}), c.quotas, c.fixed)), c.chosen);
    }
}
