#include "match/portraits.h"

#include <algorithm>

namespace kestrin {

namespace {

using F = FaceFeature;
constexpr int kBlack = int(HairShade::Black), kDark = int(HairShade::DarkBrown), kBrown = int(HairShade::Brown),
              kGinger = int(HairShade::Ginger), kBlond = int(HairShade::Blond), kGrey = int(HairShade::Grey),
              kNone = int(HairShade::None);

struct Entry {
    int32_t code;
    PortraitPart part;
};

// Parts 1..102 in order. Styles are numbered within their feature as the
// drawing code in faces.cpp knows them.
constexpr std::array<Entry, kPortraitCodes> kParts{{
    // Complexion: clear, freckles, rosy cheeks, lines, scar.
    {10003, {F::Complexion, 0, 0}}, {10004, {F::Complexion, 1, 0}}, {10007, {F::Complexion, 2, 0}},
    {10008, {F::Complexion, 3, 0}}, {10009, {F::Complexion, 4, 0}},
    // Hair in front: 0 crop, 1 side parting, 2 spikes, 3 curls, 4 mop, 5 quiff,
    // 6 slicked back, 7 crest, 8 receding, 9 bald, 10 buzz cut, 11 curtains, 12 locks.
    {11002, {F::HairFront, 0, kBlack}}, {11004, {F::HairFront, 1, kBrown}}, {11008, {F::HairFront, 2, kBlond}},
    {11015, {F::HairFront, 3, kBlack}}, {11044, {F::HairFront, 4, kGinger}}, {11046, {F::HairFront, 5, kDark}},
    {11047, {F::HairFront, 6, kBlack}}, {11052, {F::HairFront, 11, kBlond}}, {11054, {F::HairFront, 7, kBrown}},
    {11056, {F::HairFront, 8, kGrey}}, {11063, {F::HairFront, 12, kBlack}}, {11070, {F::HairFront, 1, kBlond}},
    {11071, {F::HairFront, 4, kDark}}, {11082, {F::HairFront, 3, kGinger}}, {11083, {F::HairFront, 2, kBlack}},
    {11084, {F::HairFront, 0, kGinger}}, {11085, {F::HairFront, 5, kBlond}}, {11086, {F::HairFront, 10, kBlack}},
    {11087, {F::HairFront, 10, kBrown}}, {11088, {F::HairFront, 9, kNone}}, {11089, {F::HairFront, 7, kBlack}},
    // Glasses: round wire, square frames, tinted sports glasses.
    {2056, {F::Glasses, 0, 0}}, {2057, {F::Glasses, 1, 0}}, {2058, {F::Glasses, 2, 0}},
    // Heads: 0 oval, 1 square, 2 round, 3 long; skin tone 0 to 6.
    {3006, {F::Head, 0, 1}}, {3007, {F::Head, 1, 0}}, {3008, {F::Head, 2, 2}}, {3009, {F::Head, 3, 3}},
    {3010, {F::Head, 0, 4}}, {3011, {F::Head, 1, 5}}, {3012, {F::Head, 2, 6}}, {3013, {F::Head, 3, 1}},
    {3014, {F::Head, 1, 3}}, {3015, {F::Head, 0, 6}}, {3016, {F::Head, 3, 5}},
    // Mouths: 0 flat, 1 smile, 2 smirk, 3 slight smile, 4 open, 5 gap-toothed
    // grin, 6 broad grin, 7 wide smile, 8 pout, 9 tongue out; 10 to 12 are the
    // moods without a code.
    {5001, {F::Mouth, 0, 0}}, {5016, {F::Mouth, 1, 0}}, {5020, {F::Mouth, 2, 0}}, {5021, {F::Mouth, 3, 0}},
    {5024, {F::Mouth, 4, 0}}, {5028, {F::Mouth, 5, 0}}, {5033, {F::Mouth, 6, 0}}, {5037, {F::Mouth, 7, 0}},
    {5049, {F::Mouth, 8, 0}}, {5051, {F::Mouth, 9, 0}},
    // Eyes: 0 round, 1 narrow, 2 wide, 3 heavy-lidded, 4 almond, 5 small;
    // the shade is the brows'.
    {6023, {F::Eyes, 0, kBlack}}, {6024, {F::Eyes, 1, kDark}}, {6025, {F::Eyes, 2, kBrown}},
    {6026, {F::Eyes, 3, kBlond}}, {6027, {F::Eyes, 4, kGinger}}, {6028, {F::Eyes, 5, kGrey}},
    {6030, {F::Eyes, 0, kBrown}}, {6031, {F::Eyes, 1, kBlack}}, {6032, {F::Eyes, 2, kBlond}},
    {6033, {F::Eyes, 3, kBlack}}, {6034, {F::Eyes, 4, kDark}}, {6035, {F::Eyes, 0, kGinger}},
    {6036, {F::Eyes, 4, kBrown}},
    // Noses: 0 button, 1 straight, 2 broad, 3 hooked, 4 pointed, 5 wide
    // nostrils, 6 broken, 7 turned up.
    {7062, {F::Nose, 0, 0}}, {7064, {F::Nose, 1, 0}}, {7066, {F::Nose, 2, 0}}, {7069, {F::Nose, 3, 0}},
    {7070, {F::Nose, 4, 0}}, {7074, {F::Nose, 5, 0}}, {7075, {F::Nose, 6, 0}}, {7076, {F::Nose, 7, 0}},
    // Beards: 0 clean-shaven, 1 stubble, 2 moustache, 3 goatee, 4 full beard, 5 chinstrap.
    {8001, {F::Beard, 0, kNone}}, {8018, {F::Beard, 1, kBlack}}, {8019, {F::Beard, 2, kBlack}},
    {8020, {F::Beard, 3, kBrown}}, {8022, {F::Beard, 4, kDark}}, {8024, {F::Beard, 4, kGinger}},
    {8025, {F::Beard, 5, kBlack}}, {8026, {F::Beard, 3, kBlond}}, {8027, {F::Beard, 4, kGrey}},
    // Headbands: 0 narrow, 1 wide; colour 0 white, 1 red, 2 black, 3 blue, 4 yellow.
    {88015, {F::Headband, 1, 0}}, {88044, {F::Headband, 0, 1}}, {88046, {F::Headband, 1, 2}},
    {88052, {F::Headband, 0, 3}}, {88071, {F::Headband, 1, 4}},
    // Hair behind: 0 short sides, 1 to the shoulders, 2 round volume, 3 to the
    // collar, 4 long locks, 5 bun, 6 a ring around a bald crown, 7 short with
    // long sideburns, 8 faded sides.
    {99002, {F::HairBack, 0, kBlack}}, {99004, {F::HairBack, 0, kBrown}}, {99008, {F::HairBack, 0, kBlond}},
    {99015, {F::HairBack, 2, kBlack}}, {99044, {F::HairBack, 1, kGinger}}, {99046, {F::HairBack, 0, kDark}},
    {99047, {F::HairBack, 3, kBlack}}, {99052, {F::HairBack, 1, kBlond}}, {99054, {F::HairBack, 8, kBrown}},
    {99056, {F::HairBack, 6, kGrey}}, {99063, {F::HairBack, 4, kBlack}}, {99070, {F::HairBack, 7, kBlond}},
    {99071, {F::HairBack, 5, kDark}}, {99082, {F::HairBack, 2, kGinger}}, {99083, {F::HairBack, 7, kBlack}},
    {99084, {F::HairBack, 3, kGinger}}, {99085, {F::HairBack, 3, kBlond}},
}};

// Parts 103 to 105: doubtful, frown, unimpressed.
constexpr std::array<PortraitPart, 3> kMoodsWithoutCode{{{F::Mouth, 10, 0}, {F::Mouth, 11, 0}, {F::Mouth, 12, 0}}};

}  // namespace

int PortraitIndex(int32_t code) {
    for (size_t i = 0; i < kParts.size(); ++i)
        if (kParts[i].code == code) return int(i) + 1;
    return 0;
}

int32_t portraitCode(int part) { return part >= 1 && part <= kPortraitCodes ? kParts[size_t(part - 1)].code : 0; }

int moodPart(int signing) {
    static constexpr int kMoods[] = {47, 42, 44, 41, 103, 104};
    return signing >= 0 && signing < int(std::size(kMoods)) ? kMoods[signing] : 105;
}

PortraitPart portraitPart(int part) {
    if (part >= 1 && part <= kPortraitCodes) return kParts[size_t(part - 1)].part;
    if (part > kPortraitCodes && part <= kFaceParts) return kMoodsWithoutCode[size_t(part - kPortraitCodes - 1)];
    return {};
}

std::vector<int32_t> portraitCodesOf(FaceFeature feature) {
    std::vector<int32_t> codes;
    for (const Entry& e : kParts)
        if (e.part.Feature == feature) codes.push_back(e.code);
    return codes;
}

PortraitCodes exportPortraitCodes(const ExportPlayer& player) {
    PortraitCodes codes{};
    std::copy(player.Portrait.begin(), player.Portrait.end(), codes.begin() + 1);
    return codes;
}

}  // namespace kestrin
