#pragma once
// Geometry of the pitch grid: five columns and five rows, in drawing units.
// Left runs 600, 2400, 4200, 6000, 7800; Top runs 600 (the attacking end),
// 1680, 2760, 3840, 4920 (in front of the team's own goal).
#include <cstdint>
#include <string>
#include <string_view>

#include "core/records.h"

namespace kestrin {

struct CellPos {
    int32_t Left = 0;
    int32_t Top = 0;
    bool operator==(const CellPos&) const = default;
};

inline constexpr int32_t kGridLeft0 = 600, kGridColumnStep = 1800, kGridLeftMax = 7800;
inline constexpr int32_t kGridTop0 = 600, kGridRowStep = 1080, kGridTopMax = 4920;

// The default place of shirts 1 to 11 on the pitch picture (a 4-4-2); shirts
// 12 and 13 are the substitutes and have none ({0, 0}).
CellPos defaultSlotPosition(int shirt);

// "C3": the letter of the row (E at the top to A at the bottom) and the
// column's number, both rounded half to even.
std::string areaText(int32_t left, int32_t top);
// The cell of an area text; false when its first character is not a letter
// above code 64.
bool areaCell(const std::string& area, CellPos& out);

// ---- Snapping and the shirts on the grid ----------------------------------
// Shirts are numbered 1 to 13 as on the Turnsheet (Slots[shirt - 1]); 12 and
// 13 are the substitutes. Every operation returns whether the fixture
// changed, so the screen knows to mark the turn changed.

// The grid line nearest to a drop point, rounding a half to the even line,
// kept between the first and the last line.
int32_t snapLeft(double x);
int32_t snapTop(double y);
CellPos snapToCell(double x, double y);

// Whether one of the outfield shirts 2 to 11, other than `exceptShirt`,
// stands exactly on the cell. The keeper and the substitutes never count, so
// they may share a cell with an outfield shirt.
bool outfieldShirtOnCell(const Fixture& fixture, CellPos cell, int exceptShirt = 0);

// A shirt's arrow (Field Area 2) is shown when either end value is non-zero.
bool hasArrow(const TeamSlot& slot);
struct ArrowLine {
    int32_t FromX = 0, FromY = 0, ToX = 0, ToY = 0;
    bool operator==(const ArrowLine&) const = default;
};
// From the centre of the shirt's cell to the centre of the arrow's cell.
ArrowLine arrowLine(const TeamSlot& slot);

struct ShirtDrop {
    bool Changed = false;
    std::string Previous;       // the shirt's holder before the drop, "" for none
    std::string PreviousEntry;  // his line for the list of available players, "" when he is not in the squad
};

// A list entry ("DEFL Name": the name from column 6) dropped on a shirt. The
// shirt keeps its cell; `shirtAt`, when given, is where the shirt's picture
// stood and becomes the slot's cell (a drop on the picture rather than its
// caption).
ShirtDrop dropPlayerOnShirt(const Club& club, Fixture& fixture, int shirt, std::string_view listEntry,
                            const CellPos* shirtAt = nullptr);
// A shirt dropped back on the list: the slot is emptied and its player's
// list line returned.
ShirtDrop returnShirtToList(const Club& club, Fixture& fixture, int shirt);
// A shirt dropped on another: the players change shirts; cells and arrows
// stay with the shirts.
bool swapShirts(Fixture& fixture, int shirtA, int shirtB);
// A shirt dropped on the pitch: it moves to the snapped cell unless another
// outfield shirt stands there (then nothing happens). Its arrow keeps its end.
bool moveShirt(Fixture& fixture, int shirt, double x, double y);
// The arrow of a shirt ends on the snapped cell of the point.
bool addArrow(Fixture& fixture, int shirt, double x, double y);
// No arrow: both end values become 0.
bool removeArrow(Fixture& fixture, int shirt);

}  // namespace kestrin
