#include "autoturn/teamselection.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace kestrin;

namespace {

// A squad from "POS/TS" words; a trailing "i" injures the player (10), a
// trailing "s" suspends him. Players are named P1, P2, ... in squad order.
Club squadOf(const std::string& words) {
    Club c;
    c.Name = "Test Town";
    c.ClubFile = "TEST";
    std::istringstream in(words);
    std::string w;
    while (in >> w) {
        Player p;
        p.Name = "P" + std::to_string(c.Players.size() + 1);
        p.Position = w.substr(0, 4);
        p.TotalSkill = int16_t(std::stoi(w.substr(5)));
        if (w.back() == 'i') p.Injury = 10;
        if (w.back() == 's') p.SuspPoints = 1;
        c.Players.push_back(p);
    }
    return c;
}

std::string shirtsText(const TeamPick& pick) {
    std::string out;
    for (int n : pick.Shirts) out += (out.empty() ? "" : " ") + std::to_string(n);
    return out + " / " + std::to_string(pick.Defence) + "-" + std::to_string(pick.Midfield) + "-" +
           std::to_string(pick.Attack);
}

}  // namespace

TEST(AutoTeamSelection, RanksTheAvailablePlayersByEachScore) {
    struct P {
        const char* pos;
        int ts, apps, perf, value, core, injury, susp;
    };
    // Core skills go into the first of the position's three core skills.
    const std::vector<P> squad = {
        {"AGKP", 40, 600, 5, 100, 30, 0, 0},  {"DEFC", 60, 100, 20, 300, 30, 0, 0},
        {"XXXX", 60, 500, 6, 200, 99, 0, 0},  {"MIDL", 70, 10, 90, 300, 40, 0, 0},
        {"STRC", 95, 500, 9, 900, 50, 10, 0}, {"DEFL", 99, 500, 9, 900, 50, 9, 1},
        {"STRR", 60, 550, 6, 50, 15, 9, 0},
    };
    Club c;
    for (const P& s : squad) {
        Player p;
        p.Position = s.pos;
        p.TotalSkill = int16_t(s.ts);
        p.CareerApps = int16_t(s.apps);
        p.CareerPerf = int16_t(s.perf);
        p.Value = s.value;
        p.Injury = int16_t(s.injury);
        p.SuspPoints = int16_t(s.susp);
        const std::string_view pos = s.pos;
        int16_t& core = pos == "AGKP" ? p.Shoot : pos.starts_with("DEF") ? p.DefHd : pos == "MIDC" ? p.Pass
                                                 : pos.starts_with("MID") ? p.Control : p.OffHd;
        core = int16_t(s.core);
        c.Players.push_back(p);
    }
    // Injury 10 and any suspension leave players 5 and 6 out; injury 9 plays.
    const std::vector<std::pair<PickMethod, std::vector<int>>> cases = {
        {PickMethod::TotalSkill, {4, 2, 3, 7, 1}},   // equal 60s keep squad order
        {PickMethod::Performance, {3, 7, 1, 2, 4}},  // 600 and 550 games count as 500
        {PickMethod::CoreSkills, {4, 1, 2, 3, 7}},   // the XXXX player keeps the 30 before him
        {PickMethod::BestBlend, {2, 4, 3, 1, 7}},    // by value
    };
    for (const auto& [method, ranked] : cases) EXPECT_EQ(rankSquad(c, method), ranked) << int(method);
}

TEST(AutoTeamSelection, FillsTheLinesOfTheFormation) {
    // Six defenders, four midfielders and three attackers, all better than the keeper.
    const std::string strong = "AGKP/50 DEFC/90 DEFC/89 DEFC/88 DEFC/87 DEFC/86 DEFC/85 MIDC/80 MIDC/79 MIDC/78 "
                               "MIDC/77 STRC/70 STRC/69 STRC/68";
    struct Case {
        const char* what;
        std::string squad;
        const char* formation;
        const char* shirts;
    };
    const std::vector<Case> cases = {
        {"auto pick stops the defence at five", strong, "Auto Pick", "1 2 3 4 5 6 8 9 10 11 12 7 13 / 5-4-1"},
        {"a fixed 3-4-3 passes over the fourth defender", strong, "3 - 4 - 3",
         "1 2 3 4 8 9 10 11 12 13 14 5 6 / 3-4-3"},
        {"left-sided, then central, then the rest",
         "AGKP/10 DEFR/90 DEFC/89 DEFL/88 DEFR/87 MIDR/80 MIDL/79 MIDC/78 MIDL/77 STRR/70 STRC/69 STRR/5",
         "4 - 4 - 2", "1 4 3 2 5 7 9 8 6 11 10 12 0 / 4-4-2"},
        {"a squad too small for eleven", "AGKP/50 DEFC/40 DEFC/40 DEFL/40 MIDC/30 MIDC/30 STRC/20", "Auto Pick",
         "1 4 2 3 5 6 7 0 0 0 0 0 0 / 3-2-1"},
        {"the only keeper injured leaves shirt 1 empty",
         "AGKP/50i DEFC/40 DEFC/40 DEFC/40 DEFC/40 MIDC/30 MIDC/30 MIDC/30 MIDC/30 STRC/20 STRC/20 STRC/19",
         "4 - 4 - 2", "0 2 3 4 5 6 7 8 9 10 11 12 0 / 4-4-2"},
        {"no defender: the line takes the room left, and the suspended stay off the bench",
         "AGKP/50 MIDC/40 MIDC/40 MIDC/40 MIDC/40 MIDC/39 STRC/30 STRC/30 STRC/30 MIDC/10s", "Auto Pick",
         "1 0 0 2 3 4 5 6 7 8 9 0 0 / 2-5-3"},
        // One defender short: another comes in from further down, and the
        // weaker last attacker's place is filled again by the first attacker
        // not in the line, who is he: eleven outfield players, the last shirt
        // then goes to the bench.
        {"too few defenders",
         "AGKP/99 DEFC/90 MIDC/80 MIDC/79 MIDC/78 MIDC/77 MIDC/76 STRC/70 STRC/69 STRC/68 DEFC/10 MIDC/5 DEFC/4",
         "Auto Pick", "1 2 11 13 3 4 5 6 7 8 9 12 0 / 3-5-3"},
    };
    for (const Case& k : cases) {
        const Club c = squadOf(k.squad);
        const std::optional<TeamPick> pick = selectTeam(c, {PickMethod::TotalSkill, k.formation}, nullptr);
        ASSERT_TRUE(pick) << k.what;
        EXPECT_EQ(shirtsText(*pick), k.shirts) << k.what;
    }
    EXPECT_FALSE(selectTeam(squadOf(strong), {PickMethod::BestBlend, "Auto Pick"}, nullptr))
        << "By Best Blend needs the database";
}

TEST(AutoTeamSelection, WritesTheStandardMatchOrders) {
    Club c = squadOf("AGKP/50 DEFR/90 DEFC/89 DEFC/88 DEFL/87 MIDC/80 MIDC/79 MIDC/78 MIDC/77 STRC/70 STRC/69 "
                     "MIDR/60 STRL/59");
    c.Players[3].SpecialSkill = "CAP";   // shirt 4
    c.Players[9].SpecialSkill = "PENS";  // shirt 10
    c.Players[1].SpecialSkill = "FK";    // shirt 5
    c.Players[5].SpecialSkill = "FK";    // shirt 6, later: he takes them
    c.Players[10].SpecialSkill = "DBP";  // shirt 11
    c.Fixtures.resize(1);
    Fixture& f = c.Fixtures[0];
    f.Slots[0].Left = 4200;
    f.Slots[0].Top = 9999;
    f.Slots[3].Left2 = 600;
    f.Slots[3].Top2 = 600;
    f.ChangeTwoTime = 80;

    const std::optional<TeamPick> pick = selectTeam(c, {PickMethod::TotalSkill, "4 - 4 - 2"}, nullptr);
    ASSERT_TRUE(pick);
    writeTeamOrders(f, c, *pick, [] { return 0.5; });

    std::vector<std::string> places;
    for (const TeamSlot& s : f.Slots)
        places.push_back(s.Player + "@" + std::to_string(s.Left) + "," + std::to_string(s.Top) + "," +
                         std::to_string(s.Left2) + "," + std::to_string(s.Top2));
    const std::vector<std::string> expected = {
        "P1@4200,9999,0,0",  // the keeper stays where he stood
        "P5@600,4920,0,0",   "P3@2400,4920,0,0", "P4@6000,4920,0,0", "P2@7800,4920,0,0",
        "P6@600,2760,0,0",   "P7@2400,2760,0,0", "P8@6000,2760,0,0", "P9@7800,2760,0,0",
        "P10@2400,600,0,0",  "P11@6000,600,0,0",
        "P12@0,0,0,0",       "P13@0,0,0,0",
    };
    EXPECT_EQ(places, expected);

    const std::vector<int> fields = {f.Defence, f.Midfield, f.Attack, f.Revolver, f.Snappy, f.DefAgg, f.MidAgg,
                                     f.AttAgg, f.Captain, f.Penalties, f.Corners, f.FreeKicks, f.CornersAiming,
                                     f.Pace, f.PassHeight, f.PassLength, f.Tactics, f.ChangeOneTime,
                                     f.ChangeTwoTime, f.SubOneTime, f.SubTwoTime};
    EXPECT_EQ(fields, (std::vector<int>{4, 4, 2, 0, 0, 3, 3, 3, 4, 10, 11, 6, 0, 3, 1, 1, 12, 60, 80, 50, 70}));
    EXPECT_EQ(f.ChangeOneFormation, (std::array<int16_t, 3>{2, 2, 2}));
    EXPECT_EQ(f.ChangeOneTactic, (std::array<int16_t, 3>{17, 13, 13}));  // the draw of 0.5 is "Rainy Day"
    EXPECT_EQ(f.SubOneAction, (std::array<int16_t, 3>{3112, 3112, 0}));   // a midfielder on the bench
    EXPECT_EQ(f.SubTwoAction, (std::array<int16_t, 3>{4113, 4113, 0}));   // then an attacker

    for (const auto& [draw, tactic] : std::vector<std::pair<double, int>>{{0.0, 11}, {0.9999, 5}}) {
        writeTeamOrders(f, c, *pick, [d = draw] { return d; });
        EXPECT_EQ(f.ChangeOneTactic[0], tactic) << draw;
    }
}
