#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "match/pitch.h"

using namespace kestrin;

namespace kestrin {
// Readable failures; internal so that no other test file can clash with it.
[[maybe_unused]] static void PrintTo(const TeamSlot& s, std::ostream* os) {
    *os << '"' << s.Player << "\" at " << s.Left << "," << s.Top << " arrow " << s.Left2 << "," << s.Top2;
}
}  // namespace kestrin

namespace {

// Shirts on cells of a 4-4-2, substitutes on the first cell of the grid.
Fixture placedFixture() {
    Fixture f;
    for (int shirt = 1; shirt <= 11; ++shirt) {
        CellPos p = defaultSlotPosition(shirt);
        f.Slots[size_t(shirt - 1)].Left = p.Left;
        f.Slots[size_t(shirt - 1)].Top = p.Top;
        f.Slots[size_t(shirt - 1)].Player = "P" + std::to_string(shirt);
    }
    f.Slots[11] = {"", 600, 600, 0, 0};
    f.Slots[12] = {"", 7800, 600, 0, 0};
    f.Slots[6].Left2 = 4200, f.Slots[6].Top2 = 600;  // shirt 7 runs forward
    return f;
}

Club squad() {
    Club c;
    for (auto [name, pos] : {std::pair{"Al Fry", "MIDC"}, {"Bob Hart", "DEFL"}, {"Cy Oak", "AGKP"}}) {
        Player p;
        p.Name = name;
        p.Position = pos;
        c.Players.push_back(p);
    }
    return c;
}

}  // namespace

TEST(Snapping, NearestLineHalfToEvenWithinTheGrid) {
    struct Case {
        double at;
        int32_t left, top;
    } cases[] = {
        {1500, 600, 1680},    // (1500-600)/1800 = 0.5 goes down to 0; rows: 0.83 goes up
        {4500, 4200, 4920},   // 2.17 -> 2 across; 3.6 -> 4 down
        {3300, 4200, 2760},   // 1.5 -> 2; 2.5 -> 2 (even)
        {6900, 7800, 4920},   // 3.5 -> 4
        {1140, 600, 600},     // rows: (1140-600)/1080 = 0.5 -> 0
        {9000, 7800, 4920},   // beyond the last column and row
        {-900, 600, 600},     // never above or left of the grid
    };
    for (const Case& c : cases) {
        EXPECT_EQ(snapLeft(c.at), c.left) << c.at;
        EXPECT_EQ(snapTop(c.at), c.top) << c.at;
        EXPECT_EQ(snapToCell(c.at, c.at), (CellPos{c.left, c.top})) << c.at;
    }
}

TEST(Pitch, OnlyOutfieldShirtsBlockACell) {
    struct Case {
        const char* what;
        int shirt;
        int onShirt;  // drop on this shirt's cell; 0 for a free cell
        bool moves;
    } cases[] = {
        {"outfield on outfield", 5, 7, false},
        {"outfield on the keeper", 5, 1, true},
        {"outfield on a substitute", 5, 12, true},
        {"substitute on outfield", 12, 3, false},
        {"keeper on outfield", 1, 11, false},
        {"keeper on a substitute", 1, 13, true},
        {"substitute on the keeper", 13, 1, true},
        {"outfield on a free cell", 5, 0, true},
        {"outfield on its own cell", 5, 5, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Fixture f = placedFixture();
        CellPos target = c.onShirt ? CellPos{f.Slots[size_t(c.onShirt - 1)].Left, f.Slots[size_t(c.onShirt - 1)].Top}
                                   : CellPos{4200, 2760};
        Fixture want = placedFixture();
        if (c.moves) want.Slots[size_t(c.shirt - 1)].Left = target.Left, want.Slots[size_t(c.shirt - 1)].Top = target.Top;
        // Drop a little off the cell's corner: it snaps back on.
        EXPECT_EQ(moveShirt(f, c.shirt, target.Left + 400, target.Top - 300), c.moves);
        EXPECT_TRUE(f == want);
    }
    Fixture f = placedFixture();
    EXPECT_TRUE(outfieldShirtOnCell(f, {600, 3840}));
    EXPECT_FALSE(outfieldShirtOnCell(f, {600, 3840}, 2));
    EXPECT_FALSE(outfieldShirtOnCell(f, {4200, 4920}));  // the keeper's cell
}

TEST(Pitch, AMovedShirtKeepsItsArrowEnd) {
    Fixture f = placedFixture();
    ASSERT_TRUE(moveShirt(f, 7, 4200, 2760));
    EXPECT_EQ(f.Slots[6], (TeamSlot{"P7", 4200, 2760, 4200, 600}));
    EXPECT_EQ(arrowLine(f.Slots[6]), (ArrowLine{4500, 3060, 4500, 900}));
}

TEST(Pitch, Arrows) {
    struct Case {
        const char* what;
        int shirt;
        bool add;
        double x, y;
        bool changed;
        int32_t left2, top2;
    } cases[] = {
        {"add snaps the end", 3, true, 5000, 1300, true, 4200, 1680},
        {"move an end", 7, true, 7000, 2000, true, 7800, 1680},
        {"remove", 7, false, 0, 0, true, 0, 0},
        {"remove where there is none", 3, false, 0, 0, false, 0, 0},
        {"no such shirt", 14, true, 600, 600, false, 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Fixture f = placedFixture();
        Fixture want = placedFixture();
        if (c.shirt <= 13) want.Slots[size_t(c.shirt - 1)].Left2 = c.left2, want.Slots[size_t(c.shirt - 1)].Top2 = c.top2;
        EXPECT_EQ(c.add ? addArrow(f, c.shirt, c.x, c.y) : removeArrow(f, c.shirt), c.changed);
        EXPECT_TRUE(f == want);
    }
}

TEST(Pitch, DroppingPlayersOnShirts) {
    struct Case {
        const char* what;
        int shirt;
        const char* holder;  // before the drop
        const char* entry;
        bool onPicture;
        const char* wantPlayer;
        const char* wantPrevious;
        const char* wantPreviousEntry;
        bool changed;
    } cases[] = {
        {"on an empty shirt", 4, "", "DEFL Bob Hart", false, "Bob Hart", "", "", true},
        {"on a held shirt", 4, "Al Fry", "DEFL Bob Hart", false, "Bob Hart", "Al Fry", "MIDC Al Fry", true},
        {"holder gone from the squad", 9, "Old Boy", "AGKP Cy Oak", false, "Cy Oak", "Old Boy", "", true},
        {"on the picture takes its place", 12, "", "MIDC Al Fry", true, "Al Fry", "", "", true},
        {"no such shirt", 0, "", "MIDC Al Fry", false, "", "", "", false},
    };
    Club club = squad();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Fixture f = placedFixture();
        if (c.shirt >= 1) f.Slots[size_t(c.shirt - 1)].Player = c.holder;
        Fixture want = f;
        CellPos at{2400, 4920};
        ShirtDrop d = dropPlayerOnShirt(club, f, c.shirt, c.entry, c.onPicture ? &at : nullptr);
        if (c.shirt >= 1) {
            TeamSlot& w = want.Slots[size_t(c.shirt - 1)];
            w.Player = c.wantPlayer;
            if (c.onPicture) w.Left = at.Left, w.Top = at.Top;
        }
        EXPECT_EQ(d.Changed, c.changed);
        EXPECT_EQ(d.Previous, c.wantPrevious);
        EXPECT_EQ(d.PreviousEntry, c.wantPreviousEntry);
        EXPECT_TRUE(f == want);
    }
}

TEST(Pitch, ShirtsBackToTheListAndSwapped) {
    Club club = squad();
    Fixture f = placedFixture();
    f.Slots[3].Player = "Bob Hart";
    ShirtDrop back = returnShirtToList(club, f, 4);
    EXPECT_TRUE(back.Changed);
    EXPECT_EQ(back.PreviousEntry, "DEFL Bob Hart");
    EXPECT_EQ(f.Slots[3], (TeamSlot{"", 6000, 3840, 0, 0}));
    EXPECT_FALSE(returnShirtToList(club, f, 4).Changed);  // already empty

    struct Case {
        int a, b;
        bool changed;
    } swaps[] = {{7, 2, true}, {2, 7, true}, {7, 7, false}, {12, 13, false}, {1, 14, false}};
    for (const Case& c : swaps) {
        Fixture g = placedFixture();
        Fixture want = placedFixture();
        if (c.changed) std::swap(want.Slots[size_t(c.a - 1)].Player, want.Slots[size_t(c.b - 1)].Player);
        EXPECT_EQ(swapShirts(g, c.a, c.b), c.changed) << c.a << "<->" << c.b;
        // Cells and arrows stay with the shirts: only the names moved.
        EXPECT_TRUE(g == want) << c.a << "<->" << c.b;
    }
}

TEST(Pitch, DefaultShirtsStandInAFlatFourFourTwo) {
    // Written out cell by cell: a wrong entry of the table must show here.
    const std::vector<std::pair<int32_t, int32_t>> cells{{4200, 4920}, {600, 3840},  {2400, 3840}, {6000, 3840},
                                                         {7800, 3840}, {600, 2760},  {2400, 2760}, {6000, 2760},
                                                         {7800, 2760}, {2400, 1680}, {6000, 1680}};
    const std::vector<std::string> areas{"A3", "B1", "B2", "B4", "B5", "C1", "C2", "C4", "C5", "D2", "D4"};
    for (int shirt = 1; shirt <= 11; ++shirt) {
        const CellPos p = defaultSlotPosition(shirt);
        EXPECT_EQ(std::make_pair(p.Left, p.Top), cells[size_t(shirt - 1)]) << shirt;
        EXPECT_EQ(areaText(p.Left, p.Top), areas[size_t(shirt - 1)]) << shirt;
    }
}

