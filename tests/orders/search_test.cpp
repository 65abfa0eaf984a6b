#include <gtest/gtest.h>

#include "orders/market.h"
#include "orders/search.h"

using namespace kestrin;

namespace {

ExportPlayer player(const char* name, const char* pos, const char* age, const char* skill, const char* sign,
                    const char* perf, int32_t min, const char* managed) {
    ExportPlayer p;
    p.Name = name;
    p.Position = pos;
    p.Age = age;
    p.TotalSkill = skill;
    p.Sign = sign;
    p.Played = "10";
    p.Perf = perf;
    p.Goals = "1";
    p.MinValue = min;
    p.MaxValue = "9000000";
    p.Managed = managed;
    return p;
}

// The clubs view the players kept beside them, so it is never copied.
struct SmallExport {
    SmallExport() = default;
    SmallExport(const SmallExport&) = delete;
    const std::vector<ExportPlayer> dale = {player("Al Keeper", "AGKP", "17", "65", "3", "50", 500000, "N"),
                                            player("Bo Back", "DEFL", "20", "66", "10", "70", 7500000, "Y"),
                                            player("Cy Mid", "MIDC", "35", "99", "2", "80", 8000000, "N")};
    const std::vector<ExportPlayer> vale = {player("Di Striker", "STRR", "29", "88", "5", "40", 3000000, "N"),
                                            player("Ed Stone", "DEFC", "19", "77", "4", "60", 1000000, "Y")};
    const std::vector<ExportClub> clubs = {{"Dale Rovers", dale}, {"Port Vale", vale}};
};

std::string names(const std::vector<ExportClub>& clubs, const std::vector<SearchHit>& hits) {
    std::string s;
    for (const SearchHit& h : hits) s += (s.empty() ? "" : ", ") + std::string(std::string_view(clubs[h.club].Players[h.player].Name));
    return s;
}

}  // namespace

TEST(Search, BandsNameAndDefaults) {
    struct Case {
        SearchFilter filter;
        int64_t bank;
        const char* found;
    } cases[] = {
        {{}, 0, "Al Keeper, Di Striker, Ed Stone"},  // the defaults: Sign "10" and "2" sort before "3"
        {{.Sign = "Any"}, 0, "Al Keeper, Bo Back, Cy Mid, Di Striker, Ed Stone"},
        {{.Value = "Less than 1 million", .Sign = "Any"}, 0, "Al Keeper, Ed Stone"},
        {{.Value = "1 million to 3 million", .Sign = "Any"}, 0, "Di Striker, Ed Stone"},
        {{.Value = "3 million to 5 million", .Sign = "Any"}, 0, "Di Striker"},
        {{.Value = "5 million to 7 million", .Sign = "Any"}, 0, ""},  // 7.5 million is in no band
        {{.Value = "8 million and above", .Sign = "Any"}, 0, "Cy Mid"},
        {{.Value = "Within my bank balance", .Sign = "Any"}, 1000000, "Al Keeper, Ed Stone"},
        {{.Value = "Within my bank balance", .Sign = "Any"}, 499999, ""},
        {{.Pos = "Any Defender", .Sign = "Any"}, 0, "Bo Back, Ed Stone"},
        {{.Pos = "Left sided Defender", .Sign = "Any"}, 0, "Bo Back"},
        {{.Pos = "Goalkeeper", .Sign = "Any"}, 0, "Al Keeper"},
        {{.Pos = "Right sided Striker", .Sign = "Any"}, 0, "Di Striker"},
        {{.Perf = "60", .Sign = "Any"}, 0, "Bo Back, Cy Mid, Ed Stone"},
        {{.Age = "Youth Players", .Sign = "Any"}, 0, "Al Keeper"},
        {{.Age = "Younger than 20", .Sign = "Any"}, 0, "Al Keeper, Ed Stone"},
        {{.Age = "20 to 29", .Sign = "Any"}, 0, "Bo Back, Di Striker"},
        {{.Age = "35 and older", .Sign = "Any"}, 0, "Cy Mid"},
        {{.Skill = "Less than 66", .Sign = "Any"}, 0, "Al Keeper"},
        {{.Skill = "66 to 76", .Sign = "Any"}, 0, "Bo Back"},
        {{.Skill = "99 and above", .Sign = "Any"}, 0, "Cy Mid"},
        {{.Sign = "Any", .Managed = "No"}, 0, "Al Keeper, Cy Mid, Di Striker"},
        {{.Sign = "5"}, 0, "Di Striker"},
        // A name ignores every band and any case.
        {{.Name = " sT ", .Value = "5 million to 7 million", .Managed = "No"}, 0, "Di Striker, Ed Stone"},
        {{.Name = "zz"}, 0, ""},
        // A box holding no item finds nothing rather than everything.
        {{.Age = "Old"}, 0, ""},
    };
    const SmallExport small;
    const std::vector<ExportClub>& clubs = small.clubs;
    for (const Case& c : cases)
        EXPECT_EQ(names(clubs, searchExport(clubs, c.filter, c.bank)), c.found)
            << c.filter.Name << "|" << c.filter.Pos << "|" << c.filter.Value << "|" << c.filter.Age << "|" << c.filter.Sign;
}

TEST(Search, RowsCarryTheTeamInFrontOrSayNoResults) {
    const SmallExport small;
    const std::vector<ExportClub>& clubs = small.clubs;
    const auto rows = searchRows(clubs, searchExport(clubs, {.Name = "stone"}, 0));
    ASSERT_EQ(rows.size(), 1u);
    ASSERT_EQ(rows[0].size(), kSearchRowCells);
    EXPECT_EQ(std::vector<std::string>(rows[0].begin(), rows[0].begin() + 6),
              (std::vector<std::string>{"Port Vale", "Ed Stone", "DEFC", "  1000000", "  9000000", "       19"}));
    const auto none = searchRows(clubs, {});
    std::vector<std::string> noResults(kSearchRowCells);
    noResults[0] = "No Results";
    EXPECT_EQ(none, std::vector<std::vector<std::string>>{noResults});
}
