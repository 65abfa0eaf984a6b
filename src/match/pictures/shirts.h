#pragma once
// Shirt pictures of the pitch screen: two masters drawn in the marker
// colours, and an exact colour swap that turns a master into a club's kit.
#include <QImage>

#include "match/pictures/kitcolours.h"

namespace kestrin {

// A shirt picture is one grid cell square: 600 drawing units, 40 pixels.
inline constexpr int kShirtPixels = 40;

// Every pixel of exactly the colour `from` becomes `to`; all others keep
// their colour, however close. Nothing is blended or resampled. Transparent
// pixels are not a colour and never match.
void ReplaceColour(QImage& picture, KitColour from, KitColour to);

// The outfield shirt: body and sleeves in the first marker, collar, cuffs and
// hem in the second, a black outline, transparent around it.
const QImage& playerShirtMaster();
// The keeper's jersey: long sleeves and gloves, the same two markers.
const QImage& keeperShirtMaster();

// The picture of a shirt (1 to 13) in the kit: the keeper's master for shirt
// 1, with his own first colour; the outfield master for the others.
QImage shirtPicture(int shirt, const KitColours& kit);

}  // namespace kestrin
