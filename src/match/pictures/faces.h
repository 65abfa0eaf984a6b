#pragma once
// Players' faces: 105 small parts drawn in code, put together in layers that
// a player's portrait codes and signing figure choose, in his club's shirt.
// Which code draws what is in match/portraits.h.
#include <QImage>
#include <array>
#include <span>
#include <string_view>

#include "match/pictures/kitcolours.h"
#include "match/portraits.h"

namespace kestrin {

inline constexpr int kFaceWidth = 96;
inline constexpr int kFaceHeight = 112;

// Part 1..105, kFaceWidth by kFaceHeight on a transparent ground; a null
// image for any other number.
const QImage& facePart(int part);

// The parts of a face in drawing order: the base of Portrait(7), then
// Portrait(2), (1), (0), (3), (4), the mood of the signing figure and
// Portrait(6). A code outside the table gives 0, which draws nothing.
std::array<int, 8> faceLayers(const PortraitCodes& codes, int signing);

// The base with every pixel of the face shirt marker turned into `shirt`,
// then the overlay parts on it in order.
QImage paintFace(QImage base, std::span<const int> overlayParts, KitColour shirt);

// A player's face. The club's colour words set `kit` first; words the table
// does not know leave it as the last call left it.
QImage playerFace(KitColours& kit, const PortraitCodes& codes, int signing, std::string_view colourWords);

}  // namespace kestrin
