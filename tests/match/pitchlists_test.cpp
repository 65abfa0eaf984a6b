#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "match/pitchlists.h"

using namespace kestrin;
using Lines = std::vector<std::string>;

namespace {

constexpr int kInjuryLimit = 10, kSuspensionLimit = 3;

Player player(const char* name, const char* position, int age, int injury = 0, int susp = 0) {
    Player p;
    p.Name = name;
    p.Position = position;
    p.Age = int16_t(age);
    p.Injury = int16_t(injury);
    p.SuspPoints = int16_t(susp);
    return p;
}

Club squad() {
    Club c;
    c.Players = {
        player("Cy Oak", "AGKP", 29),
        player("Ned Voss", "AGKP", 17),
        player("Bob Hart", "DEFL", 24),
        player("Lee Marsh", "DEFC", 16, 9, 2),   // just below both limits
        player("Tom Reed", "DEFR", 31, 10),      // injured: at the limit
        player("Al Fry", "MIDC", 18),
        player("Ian Moss", "MIDR", 22, 0, 3),    // suspended
        player("Sam Pike", "STRC", 17),
        player("Jo Wren", "STRL", 27),
    };
    return c;
}

}  // namespace

TEST(PitchLists, TeamAndPositionFilters) {
    struct Case {
        TeamFilter team;
        PositionFilter position;
        Lines available;
        Lines unavailable;
    } cases[] = {
        {TeamFilter::AllAges, PositionFilter::All,
         {"AGKP Cy Oak", "AGKP Ned Voss", "DEFL Bob Hart", "DEFC Lee Marsh", "MIDC Al Fry", "STRC Sam Pike",
          "STRL Jo Wren"},
         {"DEFR Tom Reed", "MIDR Ian Moss"}},
        {TeamFilter::Seniors, PositionFilter::All,
         {"AGKP Cy Oak", "DEFL Bob Hart", "MIDC Al Fry", "STRL Jo Wren"},
         {"DEFR Tom Reed", "MIDR Ian Moss"}},
        {TeamFilter::Youth, PositionFilter::All, {"AGKP Ned Voss", "DEFC Lee Marsh", "STRC Sam Pike"}, {}},
        {TeamFilter::AllAges, PositionFilter::Def, {"DEFL Bob Hart", "DEFC Lee Marsh"}, {"DEFR Tom Reed"}},
        {TeamFilter::Seniors, PositionFilter::Mid, {"MIDC Al Fry"}, {"MIDR Ian Moss"}},
        {TeamFilter::Youth, PositionFilter::Str, {"STRC Sam Pike"}, {}},
    };
    Club club = squad();
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(kAgeFilterCaptions[size_t(c.team)]) + "/" +
                     std::string(kPositionFilterCaptions[size_t(c.position)]));
        Fixture f;
        PitchLists l = buildPitchLists(club, f, kInjuryLimit, kSuspensionLimit, c.team, c.position);
        EXPECT_EQ(l.Available, c.available);
        EXPECT_EQ(l.Unavailable, c.unavailable);
        EXPECT_FALSE(l.SlotsChanged);
    }
}

TEST(PitchLists, PlayersWhoCannotPlayLeaveTheirShirtsAndPickedOnesLeaveTheList) {
    Club club = squad();
    Fixture f;
    f.Slots[0].Player = "Cy Oak";
    f.Slots[4].Player = "Tom Reed";   // injured
    f.Slots[5].Player = "Al Fry";
    f.Slots[12].Player = "Ian Moss";  // suspended, on the bench
    f.Slots[4].Left = 7800, f.Slots[4].Top = 3840, f.Slots[4].Top2 = 600;
    Fixture want = f;
    want.Slots[4].Player.clear();  // the cell and arrow stay with the shirt
    want.Slots[12].Player.clear();

    // Even a filter that hides them from the lists takes them out of the team.
    PitchLists l = buildPitchLists(club, f, kInjuryLimit, kSuspensionLimit, TeamFilter::Youth, PositionFilter::Gkp);
    EXPECT_TRUE(l.SlotsChanged);
    EXPECT_TRUE(f == want);
    EXPECT_EQ(l.Available, (Lines{"AGKP Ned Voss"}));
    EXPECT_TRUE(l.Unavailable.empty());

    l = buildPitchLists(club, f, kInjuryLimit, kSuspensionLimit, TeamFilter::AllAges, PositionFilter::All);
    EXPECT_FALSE(l.SlotsChanged);
    EXPECT_EQ(l.Available, (Lines{"AGKP Ned Voss", "DEFL Bob Hart", "DEFC Lee Marsh", "STRC Sam Pike", "STRL Jo Wren"}));

    struct Case {
        const char* name;
        bool onPitch;
    } cases[] = {{"Cy Oak", true}, {"Al Fry", true}, {"Tom Reed", true}, {"Ian Moss", true},
                 {"Bob Hart", false}, {"Lee Marsh", false}};
    for (const Case& c : cases) {
        const Player* p = club.player(club.findPlayer(c.name));
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(IsOnPitch(*p, f, kInjuryLimit, kSuspensionLimit), c.onPitch) << c.name;
    }
    // A name is on the pitch when it stands anywhere in a caption.
    Player al = player("Al", "MIDL", 20);
    EXPECT_TRUE(IsOnPitch(al, f, kInjuryLimit, kSuspensionLimit));
    EXPECT_EQ(listEntryName("DEFL Bob Hart"), "Bob Hart");
}

TEST(PitchLists, ShirtCaptionsWithSetPieceMarks) {
    struct Case {
        int shirt;
        const char* player;
        int captain, penalties, corners, freeKicks;
        const char* caption;
    } cases[] = {
        {7, "", 7, 7, 7, 7, "Player 7"},
        {12, "", 0, 0, 0, 0, "Player 12 (Substitute 1)"},
        {13, "", 0, 0, 0, 0, "Player 13 (Substitute 2)"},
        {7, "Al Fry", 1, 2, 3, 4, "7. Al Fry"},
        {7, "Al Fry", 7, 7, 3, 4, "7. Al Fry (Cap, Pen)"},
        {7, "Al Fry", 7, 7, 7, 7, "7. Al Fry (Cap, Pen, Cor, FK)"},
        {10, "Jo Wren", 1, 2, 10, 10, "10. Jo Wren (Cor, FK)"},
        {12, "Sam Pike", 12, 1, 1, 1, "12. Sam Pike (Cap)"},
        {0, "", 0, 0, 0, 0, ""},
    };
    for (const Case& c : cases) {
        Fixture f;
        if (c.shirt >= 1) f.Slots[size_t(c.shirt - 1)].Player = c.player;
        f.Captain = int16_t(c.captain), f.Penalties = int16_t(c.penalties), f.Corners = int16_t(c.corners);
        f.FreeKicks = int16_t(c.freeKicks);
        EXPECT_EQ(shirtCaption(f, c.shirt), c.caption);
    }
}

TEST(PitchLists, InformationText) {
    Player p = player("Al Fry", "MIDC", 24, 2);
    p.Skill = 5, p.RealSkill = 57, p.TotalSkill = 60;
    p.Pass = 9, p.Control = 8, p.Tackle = 4, p.Run = 6, p.Shoot = 3, p.Dribble = 7, p.DefHd = 2, p.OffHd = 5;
    p.Flair = 11, p.Strength = 1, p.Creativity = 10, p.CareerApps = 120, p.AverageSeasonPerf = 6, p.Goals = 14;
    p.SpecialSkill = "Long throw";
    const std::string indent(18, ' ');  // under "Skill", after "Al Fry (MIDC)" and five blanks
    EXPECT_EQ(ShowInfo(p),
              "Al Fry (MIDC)     Skill 5    Real Skill 57    Total Skill 60    Age 24\r\n" + indent +
                  "Pass 9    Control 8    Tackle 4    Run 6\r\n" + indent +
                  "Shoot 3    Dribble 7    DefHd 2    OffHd 5\r\n" + indent +
                  "Flair 11    Strength 1    Creativity 10    Games Played 120    Injury pts 2    "
                  "Season Performance 6    Goals 14    Special Skill: Long throw");
}
