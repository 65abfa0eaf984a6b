#pragma once
// The portrait feature codes of the game's files: which picture part a code
// stands for, and what that part shows. The pictures themselves are drawn in
// match/pictures/faces.h; the demo league reads the same table so that its
// players get faces that hang together.
#include <array>
#include <cstdint>
#include <vector>

#include "core/records.h"

namespace kestrin {

// A player's eight codes, Portrait(0..7).
using PortraitCodes = std::array<int32_t, 8>;

// What each block of codes draws (parts in brackets):
//   10003..10009  (1-5)     complexion: freckles, cheeks, stubble, lines, scar
//   11002..11089  (6-26)    hair in front: crown and fringe
//   2056..2058    (27-29)   glasses
//   3006..3016    (30-40)   head: skin, ears, neck, shoulders, shirt
//   5001..5051    (41-50)   mouths; parts 103-105 are three more moods without a code
//   6023..6036    (51-63)   eyes and brows
//   7062..7076    (64-71)   noses
//   8001..8027    (72-80)   beards and moustaches
//   88015..88071  (81-85)   headbands
//   99002..99085  (86-102)  hair behind: sides, length, volume; 99NNN goes with 11NNN
enum class FaceFeature { None, Complexion, HairFront, Glasses, Head, Mouth, Eyes, Nose, Beard, Headband, HairBack };

enum class HairShade { None, Black, DarkBrown, Brown, Ginger, Blond, Grey };

struct PortraitPart {
    FaceFeature Feature = FaceFeature::None;
    int Style = 0;  // the shape within its feature
    // HairShade for hair, brows and beards; the skin tone 0 (fair) to 6
    // (dark) of a head; a colour of its own for the rest.
    int Shade = 0;
    bool operator==(const PortraitPart&) const = default;
};

inline constexpr int kPortraitCodes = 102;
inline constexpr int kFaceParts = 105;

// The part 1..102 of a feature code; 0 for any other code.
int PortraitIndex(int32_t code);
// The code of a part 1..102; 0 for any other part.
int32_t portraitCode(int part);
// The mood part of a signing figure: 0 gives 47, 1 gives 42, 2 gives 44,
// 3 gives 41, 4 gives 103, 5 gives 104, any other figure 105.
int moodPart(int signing);
// What a part 1..105 shows; feature None for any other number.
PortraitPart portraitPart(int part);
// The codes whose parts show `feature`, in part order.
std::vector<int32_t> portraitCodesOf(FaceFeature feature);

// An export player has seven codes, his Portrait(1..7); Portrait(0) is 0.
PortraitCodes exportPortraitCodes(const ExportPlayer& player);

}  // namespace kestrin
