#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "match/fixtureorders.h"

using namespace kestrin;
using C = FixtureControl;

namespace {

// A fixture with every rule filled, so that a pick that writes the wrong
// field, or resets too much, shows up against a copy.
Fixture filledFixture() {
    Fixture f;
    f.Venue = "H", f.Opponent = "Rovers", f.Competition = "League", f.Tactics = 3;
    f.Captain = 4, f.Penalties = 9, f.Corners = 7, f.FreeKicks = 8, f.CornersAiming = 10;
    f.Defence = 4, f.Midfield = 4, f.Attack = 2, f.DefAgg = 1, f.MidAgg = 2, f.AttAgg = 3;
    f.Revolver = 5, f.Snappy = 6, f.Pace = 2, f.PassLength = 1, f.PassHeight = 2;
    f.ChangeOneTime = 60, f.ChangeOneFormation = {3, 4, 5}, f.ChangeOneTactic = {2, 7, 12};
    f.ChangeTwoTime = 75, f.ChangeTwoFormation = {6, 7, 8}, f.ChangeTwoTactic = {3, 9, 20};
    f.SubOneTime = 55, f.SubOneAction = {1115, 3112, 21111};
    f.SubTwoTime = 80, f.SubTwoAction = {2119, 4113, 11110};
    f.Slots[0].Player = "Keeper";
    return f;
}

}  // namespace

TEST(FixtureControls, APickWritesItsOneFieldAndNothingElse) {
    struct Case {
        C control;
        const char* entry;
        std::function<void(Fixture&)> expect;
    } cases[] = {
        {C::DefAgg, "5", [](Fixture& f) { f.DefAgg = 5; }},
        {C::Formation, "5 - 3 - 2", [](Fixture& f) { f.Defence = 5, f.Midfield = 3, f.Attack = 2; }},
        {C::Formation, "0 - 0 - 0", [](Fixture& f) { f.Defence = 0, f.Midfield = 0, f.Attack = 0; }},
        {C::Tactics, "Sardines", [](Fixture& f) { f.Tactics = 22; }},
        {C::Captain, "11", [](Fixture& f) { f.Captain = 11; }},
        {C::FreeKicks, "2", [](Fixture& f) { f.FreeKicks = 2; }},
        {C::Aiming, "None", [](Fixture& f) { f.CornersAiming = 0; }},
        {C::Revolver, "11", [](Fixture& f) { f.Revolver = 11; }},
        {C::Pace, "Medium Fast", [](Fixture& f) { f.Pace = 4; }},
        {C::Length, "Long", [](Fixture& f) { f.PassLength = 2; }},
        {C::Height, "Low", [](Fixture& f) { f.PassHeight = 0; }},
        {C::ChangeOneTime, "30", [](Fixture& f) { f.ChangeOneTime = 30; }},
        {C::ChangeOneFormationWinning, "3 - 5 - 2", [](Fixture& f) { f.ChangeOneFormation[2] = 11; }},
        {C::ChangeOneFormationLosing, "0 - 0 - 0", [](Fixture& f) { f.ChangeOneFormation[0] = 0; }},
        {C::ChangeOneTacticDrawing, "No Specific Tactic Employed", [](Fixture& f) { f.ChangeOneTactic[1] = 1; }},
        {C::ChangeTwoTacticLosing, "Pressure", [](Fixture& f) { f.ChangeTwoTactic[0] = 2; }},
        {C::SubOneTime, "90", [](Fixture& f) { f.SubOneTime = 90; }},
        {C::SubOneActionLosing, "13 for 11", [](Fixture& f) { f.SubOneAction[0] = 21111; }},
        {C::SubTwoActionDrawing, "13 for worst attacker", [](Fixture& f) { f.SubTwoAction[1] = 4113; }},
        {C::SubTwoActionWinning, "No Change", [](Fixture& f) { f.SubTwoAction[2] = 0; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(fixtureControlInfo(c.control).Name) + " " + c.entry);
        Fixture f = filledFixture();
        Fixture want = filledFixture();
        c.expect(want);
        EXPECT_EQ(chooseText(f, c.control, c.entry), !(want == filledFixture()));
        EXPECT_TRUE(f == want);
    }
}

TEST(FixtureControls, EveryEntryOfEveryControlShowsAgainAfterItIsPicked) {
    for (const FixtureControlInfo& info : fixtureControls()) {
        const std::vector<std::string>& entries = controlEntries(info.Control);
        ASSERT_FALSE(entries.empty()) << info.Name;
        for (int i = 0; i < int(entries.size()); ++i) {
            Fixture f = filledFixture();
            chooseEntry(f, info.Control, i);
            EXPECT_EQ(shownEntry(f, info.Control), i) << info.Name << " " << entries[size_t(i)];
            EXPECT_EQ(shownText(f, info.Control), entries[size_t(i)]) << info.Name;
        }
        Fixture f = filledFixture();
        EXPECT_FALSE(chooseEntry(f, info.Control, int(entries.size()))) << info.Name;
        EXPECT_FALSE(chooseEntry(f, info.Control, -1)) << info.Name;
        EXPECT_TRUE(f == filledFixture()) << info.Name;
    }
}

TEST(FixtureControls, StoredValuesShowAsTheGameShowsThem) {
    struct Case {
        C control;
        std::function<void(Fixture&)> set;
        int entry;
        const char* text;
    } cases[] = {
        // A change rule's tactic counts from 1, but a stored 0 shows the first tactic.
        {C::ChangeOneTacticLosing, [](Fixture& f) { f.ChangeOneTactic[0] = 0; }, 0, "No Specific Tactic Employed"},
        {C::ChangeTwoTacticWinning, [](Fixture& f) { f.ChangeTwoTactic[2] = 23; }, 22, "Sardines"},
        {C::ChangeTwoTacticWinning, [](Fixture& f) { f.ChangeTwoTactic[2] = 24; }, -1, ""},
        {C::Tactics, [](Fixture& f) { f.Tactics = 0; }, 0, "No Specific Tactic Employed"},
        {C::Tactics, [](Fixture& f) { f.Tactics = 23; }, -1, ""},
        {C::ChangeOneTime, [](Fixture& f) { f.ChangeOneTime = 0; }, 0, "None"},
        {C::SubTwoTime, [](Fixture& f) { f.SubTwoTime = 45; }, -1, ""},
        {C::ChangeOneFormationDrawing, [](Fixture& f) { f.ChangeOneFormation[1] = 0; }, 11, "0 - 0 - 0"},
        // The formation combo box shows the fixture's own numbers, listed or not.
        {C::Formation, [](Fixture& f) { f.Defence = 6, f.Midfield = 2, f.Attack = 2; }, -1, "6 - 2 - 2"},
        {C::Formation, [](Fixture& f) { f.Defence = 3, f.Midfield = 4, f.Attack = 3; }, 7, "3 - 4 - 3"},
        {C::SubOneActionWinning, [](Fixture& f) { f.SubOneAction[2] = 21111; }, 25, "13 for 11"},
        {C::SubOneActionWinning, [](Fixture& f) { f.SubOneAction[2] = 1120; }, 0, "No Change"},
        {C::FreeKicks, [](Fixture& f) { f.FreeKicks = 0; }, -1, ""},
        {C::Revolver, [](Fixture& f) { f.Revolver = 12; }, -1, ""},
        {C::Pace, [](Fixture& f) { f.Pace = 5; }, 5, "Fast"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(fixtureControlInfo(c.control).Name);
        Fixture f = filledFixture();
        c.set(f);
        EXPECT_EQ(shownEntry(f, c.control), c.entry);
        EXPECT_EQ(shownText(f, c.control), c.text);
    }
}

TEST(FixtureControls, NoneAsATimeResetsOnlyItsOwnRule) {
    struct Case {
        C time;
        std::function<void(Fixture&)> expect;
    } cases[] = {
        {C::ChangeOneTime,
         [](Fixture& f) {
             f.ChangeOneTime = 0;
             f.ChangeOneFormation = {0, 0, 0};
             f.ChangeOneTactic = {1, 1, 1};  // the first tactic, counted from 1
         }},
        {C::ChangeTwoTime,
         [](Fixture& f) {
             f.ChangeTwoTime = 0;
             f.ChangeTwoFormation = {0, 0, 0};
             f.ChangeTwoTactic = {1, 1, 1};
         }},
        {C::SubOneTime,
         [](Fixture& f) {
             f.SubOneTime = 0;
             f.SubOneAction = {0, 0, 0};
         }},
        {C::SubTwoTime,
         [](Fixture& f) {
             f.SubTwoTime = 0;
             f.SubTwoAction = {0, 0, 0};
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(fixtureControlInfo(c.time).Name);
        Fixture f = filledFixture();
        Fixture want = filledFixture();
        c.expect(want);
        EXPECT_TRUE(chooseText(f, c.time, "None"));
        EXPECT_TRUE(f == want);
        // A real minute resets nothing.
        Fixture g = filledFixture();
        chooseText(g, c.time, "20");
        *fixtureField(g, c.time) = fixtureFieldValue(filledFixture(), c.time);
        EXPECT_TRUE(g == filledFixture());
    }
}

TEST(FixtureControls, ShowingTurnsCaptainPenaltiesAndCornersOnButNotFreeKicks) {
    struct Case {
        int captain, penalties, corners, freeKicks;
        int wantCaptain, wantPenalties, wantCorners, wantFreeKicks;
        bool changed;
    } cases[] = {
        {0, 0, 0, 0, 1, 1, 1, 0, true},
        {0, 5, 6, 0, 1, 5, 6, 0, true},
        {3, 0, 6, 7, 3, 1, 6, 7, true},
        {3, 4, 5, 6, 3, 4, 5, 6, false},
    };
    for (const Case& c : cases) {
        Fixture f = filledFixture();
        f.Captain = int16_t(c.captain), f.Penalties = int16_t(c.penalties), f.Corners = int16_t(c.corners);
        f.FreeKicks = int16_t(c.freeKicks);
        FixtureView v = showFixture(f);
        EXPECT_EQ(v.SetPiecesChanged, c.changed);
        EXPECT_EQ(f.Captain, c.wantCaptain);
        EXPECT_EQ(f.Penalties, c.wantPenalties);
        EXPECT_EQ(f.Corners, c.wantCorners);
        EXPECT_EQ(f.FreeKicks, c.wantFreeKicks);
        EXPECT_EQ(v.entry(C::Captain), c.wantCaptain - 1);
        EXPECT_EQ(v.entry(C::FreeKicks), c.wantFreeKicks - 1);
    }
}

TEST(FixtureList, VenueOpponentAndCompetition) {
    struct Case {
        const char* venue;
        const char* text;
    } cases[] = {
        {"H", "Home vs Rovers - League"}, {"A", "Away vs Rovers - League"}, {"N", "Rovers - League"}, {"", "Rovers - League"},
    };
    Club club;
    for (const Case& c : cases) {
        Fixture f = filledFixture();
        f.Venue = c.venue;
        EXPECT_EQ(fixtureListText(f), c.text) << c.venue;
        club.Fixtures.push_back(f);
    }
    ASSERT_EQ(fixtureListTexts(club).size(), 4u);
    EXPECT_EQ(fixtureListTexts(club)[1], "Away vs Rovers - League");
    EXPECT_TRUE(fixtureListTexts(Club{}).empty());
}
