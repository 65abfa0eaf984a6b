// Portrait codes: the part table, the moods, and the demo league's faces.
#include <gtest/gtest.h>

#include "match/portraits.h"
#include "support/testsupport.h"

using namespace kestrin;

TEST(Portraits, EveryBlocksEndsAndTheCodesJustOutside) {
    const std::pair<int32_t, int> cases[] = {
        {10003, 1},  {10009, 5},   {10002, 0},  {10010, 0},  {10005, 0},   // complexion, and a gap inside
        {11002, 6},  {11089, 26},  {11001, 0},  {11090, 0},  {11082, 19},  //
        {2056, 27},  {2058, 29},   {2055, 0},   {2059, 0},                 //
        {3006, 30},  {3016, 40},   {3005, 0},   {3017, 0},                 //
        {5001, 41},  {5051, 50},   {5000, 0},   {5052, 0},   {5002, 0},    //
        {6023, 51},  {6036, 63},   {6022, 0},   {6037, 0},   {6029, 0},   {6030, 57},
        {7062, 64},  {7076, 71},   {7061, 0},   {7077, 0},                 //
        {8001, 72},  {8027, 80},   {8000, 0},   {8028, 0},   {8024, 77},   //
        {88015, 81}, {88071, 85},  {88014, 0},  {88072, 0},                //
        {99002, 86}, {99085, 102}, {99001, 0},  {99086, 0},                //
        {0, 0},      {-1, 0},      {103, 0},    {12, 0},
    };
    for (const auto& [code, part] : cases) EXPECT_EQ(PortraitIndex(code), part) << code;
    // 102 codes, no two on one part.
    for (int part = 1; part <= kPortraitCodes; ++part) EXPECT_EQ(PortraitIndex(portraitCode(part)), part) << part;
}

TEST(Portraits, MoodBySigningFigure) {
    const std::pair<int, int> cases[] = {{0, 47}, {1, 42}, {2, 44}, {3, 41}, {4, 103}, {5, 104}, {6, 105}, {-1, 105}};
    for (const auto& [signing, part] : cases) {
        EXPECT_EQ(moodPart(signing), part) << signing;
        EXPECT_EQ(portraitPart(part).Feature, FaceFeature::Mouth) << part;
    }
}

// Each layer of a demo face holds a code of its own feature, hair behind
// matches the hair in front, and the club export carries Portrait(1..7) of
// the same player.
TEST(Portraits, DemoFacesAreMadeOfTheirFeatures) {
    using F = FaceFeature;
    const F layers[8] = {F::HairFront, F::Complexion, F::HairBack, F::Eyes, F::Nose, F::Mouth, F::Beard, F::Head};
    test::TempDir t;
    makeDemoLeague(t.path(), test::smallDemo(3, 10));
    const Session s = test::loadQuietly(t.path());
    int players = 0, extras = 0;
    for (const Club& club : s.Clubs) {
        const ExportClub* exported = nullptr;
        for (const ExportClub& e : s.ExportClubs)
            if (e.Name == club.Name) exported = &e;
        ASSERT_NE(exported, nullptr) << club.Name;
        for (const Player& p : club.Players) {
            ++players;
            for (size_t k = 0; k < 8; ++k) {
                const F got = portraitPart(PortraitIndex(p.Portrait[k])).Feature;
                const bool extra = k == 6 && (got == F::Glasses || got == F::Headband);
                extras += extra;
                EXPECT_TRUE(got == layers[k] || extra) << p.Name << " Portrait(" << k << ") " << p.Portrait[k];
            }
            if (PortraitIndex(p.Portrait[0] + 88000) != 0) {
                EXPECT_EQ(p.Portrait[2], p.Portrait[0] + 88000) << p.Name;
            }
            bool found = false;
            for (const ExportPlayer& e : exported->Players)
                if (e.Name == p.Name) {
                    found = true;
                    EXPECT_EQ(exportPortraitCodes(e), (PortraitCodes{0, p.Portrait[1], p.Portrait[2], p.Portrait[3],
                                                                     p.Portrait[4], p.Portrait[5], p.Portrait[6],
                                                                     p.Portrait[7]}))
                        << p.Name;
                }
            EXPECT_TRUE(found) << p.Name;
        }
    }
    EXPECT_GT(players, 20);
    EXPECT_GT(extras, 0);
}
