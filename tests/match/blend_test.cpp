#include "match/blend.h"

#include <SQLiteCpp/Transaction.h>
#include <gtest/gtest.h>

#include "stats/reading.h"
#include "stats/statsdb.h"
#include "stats/store.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

struct Row {
    std::string name;
    int timeSub = 0;
};

struct StoredMatch {
    const char* club;
    const char* date;
    int start, end;  // formation numbers: 2 is 4-4-2, 4 is 4-5-1
    std::array<int64_t, 6> blends;
    std::vector<Row> rows;  // shirts 1 to 13 as the report leaves them
};

std::vector<Row> shirts(std::vector<std::string> names) {
    std::vector<Row> rows;
    for (auto& n : names) rows.push_back({n});
    return rows;
}

void store(SQLite::Database& db, const StoredMatch& m, int attendance) {
    stats::StatsStore s(db, m.date);
    const int64_t code = *s.addMatchMain(attendance, 2, 51, m.club, "OPPO");
    std::vector<std::string> names;
    std::vector<int> times;
    for (const Row& r : m.rows) names.push_back(r.name), times.push_back(r.timeSub);
    test::addSide(s, code, m.club, m.start, m.end, m.blends, names, times);
}

BlendLineUp lineUp(int d, int m, int a, std::vector<std::string> names) {
    BlendLineUp up{d, m, a, {}};
    for (size_t i = 0; i < names.size(); ++i) up.Shirts[i] = names[i];
    return up;
}

}  // namespace

TEST(BlendAnalysis, TheNewestMatchOfEachLineGivesItsBlend) {
    test::TempDir dir;
    Settings settings;
    settings.StatsFile = (dir.path() / "stats.db").string();
    {
        SQLite::Database db(settings.StatsFile, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        SQLite::Transaction t(db);
        stats::createSchema(db);
        const StoredMatch matches[] = {
            {"KE'S", "2026-05-02", 2, 2, {11, 12, 13, 21, 22, 23},
             shirts({"K", "D1", "D2", "D3", "D4", "M1", "M2", "M3", "M4", "S1", "Maximilian Oberhaus", "B1", "B2"})},
            {"KE'S", "2026-05-09", 2, 2, {31, 32, 33, 41, 42, 43},
             shirts({"K", "D4", "D3", "D2", "D1", "N1", "N2", "N3", "N4", "S1", "X", "B1", "B2"})},
            // Shirt 7 went off for shirt 12 at 60; the rows show the end of the match.
            {"SUBS", "2026-05-09", 2, 2, {51, 52, 53, 61, 62, 63},
             {{"K"}, {"D1"}, {"D2"}, {"D3"}, {"D4"}, {"M1"}, {"Came On", 60}, {"M3"}, {"M4"}, {"S1"}, {"S2"},
              {"Went Off", 60}, {"Bench"}}},
            // Both substitutes came on at 70 for shirt 8.
            {"SUBS", "2026-05-02", 4, 4, {71, 72, 73, 81, 82, 83},
             {{"K"}, {"D1"}, {"D2"}, {"D3"}, {"D4"}, {"P6"}, {"P7"}, {"Pair On", 70}, {"P9"}, {"P10"}, {"S1"},
              {"X12", 70}, {"Y13", 70}}},
        };
        int attendance = 1000;
        for (const StoredMatch& m : matches) store(db, m, ++attendance);
        t.commit();
    }
    const struct {
        const char* name;
        const char* club;
        BlendLineUp up;
        const char* want;
    } cases[] = {
        {"defence of both matches, midfield and a long name of the older", "KE'S",
         lineUp(4, 4, 2, {"K", "D1", "D2", "D3", "D4", "M4", "M3", "M2", "M1", "Maximilian Oberhausen", "S1"}),
         "31 - 12 - 13"},
        {"an empty shirt leaves its line unmatched", "KE'S",
         lineUp(4, 4, 2, {"K", "", "D2", "D3", "D4", "M1", "M2", "M3", "M4", "S1", "X"}), "? - 12 - 33"},
        {"a line of another size is not compared", "KE'S",
         lineUp(3, 5, 2, {"K", "D1", "D2", "D3", "M1", "M2", "M3", "M4", "D4", "A", "B"}), "? - ? - ?"},
        {"a single attacker", "KE'S", lineUp(4, 5, 1, {"K", "A", "B", "C", "E", "F", "G", "H", "I", "J", "L"}),
         "? - ? - 0"},
        {"no player met", "KE'S", lineUp(4, 4, 2, {"K", "A", "B", "C", "E", "F", "G", "H", "I", "J", "L"}),
         "? - ? - ?"},
        {"a club with no match", "NONE",
         lineUp(4, 5, 1, {"K", "D1", "D2", "D3", "D4", "M1", "M2", "M3", "M4", "S1", "X"}), "? - ? - ?"},
        {"the substitute stood in the shirt at kick-off", "SUBS",
         lineUp(4, 4, 2, {"K", "D1", "D2", "D3", "D4", "M1", "Went Off", "M3", "M4", "S1", "S2"}), "51 - 52 - 53"},
        {"the player who came on: the end of the match", "SUBS",
         lineUp(4, 4, 2, {"K", "D1", "D2", "D3", "D4", "M1", "Came On", "M3", "M4", "S1", "S2"}), "51 - 62 - 53"},
        {"two on together, shirt 13 first", "SUBS",
         lineUp(4, 5, 1, {"K", "D1", "D2", "D3", "D4", "P6", "P7", "X12", "P9", "P10", "S1"}), "51 - 72 - 0"},
        {"two on together, shirt 12 first", "SUBS",
         lineUp(4, 5, 1, {"K", "D1", "D2", "D3", "D4", "P6", "P7", "Y13", "P9", "P10", "S1"}), "51 - 72 - 0"},
        {"the one who came on for both: the end of the match", "SUBS",
         lineUp(4, 5, 1, {"K", "D1", "D2", "D3", "D4", "P6", "P7", "Pair On", "P9", "P10", "S1"}), "51 - 82 - 0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        RecordingMessages messages;
        const std::optional<Blend> b = blendAnalysis(settings, c.club, c.up, messages, "Kestrin");
        ASSERT_TRUE(b.has_value());
        EXPECT_EQ(b->text(), c.want);
        EXPECT_TRUE(messages.entries.empty());
    }
}

TEST(BlendAnalysis, NeedsTheStatsDatabase) {
    test::TempDir dir;
    Settings settings;
    settings.StatsFile = (dir.path() / "none.db").string();
    RecordingMessages messages;
    EXPECT_FALSE(blendAnalysis(settings, "KEST", BlendLineUp{}, messages, "Kestrin League").has_value());
    EXPECT_EQ(test::shown(messages),
              std::vector<std::string>{std::string("Inform|Kestrin League|") + stats::kNeedDatabaseText});
}
