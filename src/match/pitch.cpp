#include "match/pitch.h"

#include "core/text.h"

namespace kestrin {

CellPos defaultSlotPosition(int shirt) {
    // A flat 4-4-2: keeper on his line, a back four, a flat four in midfield
    // and two strikers through the inside columns.
    static constexpr CellPos table[11] = {
        {4200, 4920},                                              // 1 goalkeeper
        {600, 3840},  {2400, 3840}, {6000, 3840}, {7800, 3840},   // 2-5 defence
        {600, 2760},  {2400, 2760}, {6000, 2760}, {7800, 2760},   // 6-9 midfield
        {2400, 1680}, {6000, 1680},                               // 10-11 attack
    };
    if (shirt < 1 || shirt > 11) return {};
    return table[shirt - 1];
}

std::string areaText(int32_t left, int32_t top) {
    int64_t row = roundHalfEven((top - 600) / 1080.0);
    int64_t col = roundHalfEven((left - 600) / 1800.0) + 1;
    std::string s(1, char(69 - row));
    s += std::to_string(col);
    return s;
}

bool areaCell(const std::string& area, CellPos& out) {
    if (area.empty() || static_cast<unsigned char>(area[0]) <= 64) return false;
    int letter = static_cast<unsigned char>(area[0]);
    out.Top = (69 - letter) * 1080 + 600;
    out.Left = static_cast<int32_t>((val(area.substr(1)) - 1) * 1800 + 600);
    return true;
}

}  // namespace kestrin
