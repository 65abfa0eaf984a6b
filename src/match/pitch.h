#pragma once
// Geometry of the pitch grid: five columns and five rows, in drawing units.
// Left runs 600, 2400, 4200, 6000, 7800; Top runs 600 (the attacking end),
// 1680, 2760, 3840, 4920 (in front of the team's own goal).
#include <cstdint>
#include <string>

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

}  // namespace kestrin
