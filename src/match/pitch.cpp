#include "match/pitch.h"

#include "core/text.h"
#include "match/pitchlists.h"

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

// ---- Snapping and the shirts on the grid ----------------------------------

namespace kestrin {

namespace {

int32_t snapAxis(double v, int32_t first, int32_t step, int32_t last) {
    int64_t k = roundHalfEven((v - first) / step);
    int64_t at = k * step + first;
    if (at > last) at = last;
    // A point above or left of the first line would give a cell off the grid
    // that no area letter stands for.
    if (at < first) at = first;
    return int32_t(at);
}

bool validShirt(int shirt) { return shirt >= 1 && shirt <= 13; }

}  // namespace

int32_t snapLeft(double x) { return snapAxis(x, kGridLeft0, kGridColumnStep, kGridLeftMax); }
int32_t snapTop(double y) { return snapAxis(y, kGridTop0, kGridRowStep, kGridTopMax); }
CellPos snapToCell(double x, double y) { return {snapLeft(x), snapTop(y)}; }

bool outfieldShirtOnCell(const Fixture& fixture, CellPos cell, int exceptShirt) {
    for (int shirt = 2; shirt <= 11; ++shirt) {
        if (shirt == exceptShirt) continue;
        const TeamSlot& s = fixture.Slots[size_t(shirt - 1)];
        if (s.Left == cell.Left && s.Top == cell.Top) return true;
    }
    return false;
}

bool hasArrow(const TeamSlot& slot) { return slot.Left2 != 0 || slot.Top2 != 0; }

ArrowLine arrowLine(const TeamSlot& slot) {
    return {slot.Left + 300, slot.Top + 300, slot.Left2 + 300, slot.Top2 + 300};
}

ShirtDrop dropPlayerOnShirt(const Club& club, Fixture& fixture, int shirt, std::string_view listEntry,
                            const CellPos* shirtAt) {
    ShirtDrop out;
    if (!validShirt(shirt)) return out;
    TeamSlot& slot = fixture.Slots[size_t(shirt - 1)];
    const TeamSlot before = slot;
    out.Previous = slot.Player;
    if (!trim(out.Previous).empty()) {
        if (const Player* p = club.player(club.findPlayer(out.Previous))) out.PreviousEntry = playerListEntry(*p);
    }
    slot.Player = listEntryName(listEntry);
    if (shirtAt) {
        slot.Left = shirtAt->Left;
        slot.Top = shirtAt->Top;
    }
    out.Changed = !(slot == before);
    return out;
}

ShirtDrop returnShirtToList(const Club& club, Fixture& fixture, int shirt) {
    ShirtDrop out;
    if (!validShirt(shirt)) return out;
    TeamSlot& slot = fixture.Slots[size_t(shirt - 1)];
    if (trim(slot.Player).empty()) return out;
    out.Previous = slot.Player;
    if (const Player* p = club.player(club.findPlayer(slot.Player))) out.PreviousEntry = playerListEntry(*p);
    slot.Player.clear();
    out.Changed = true;
    return out;
}

bool swapShirts(Fixture& fixture, int shirtA, int shirtB) {
    if (!validShirt(shirtA) || !validShirt(shirtB) || shirtA == shirtB) return false;
    std::string& a = fixture.Slots[size_t(shirtA - 1)].Player;
    std::string& b = fixture.Slots[size_t(shirtB - 1)].Player;
    if (a == b) return false;
    std::swap(a, b);
    return true;
}

bool moveShirt(Fixture& fixture, int shirt, double x, double y) {
    if (!validShirt(shirt)) return false;
    CellPos cell = snapToCell(x, y);
    if (outfieldShirtOnCell(fixture, cell, shirt)) return false;
    TeamSlot& slot = fixture.Slots[size_t(shirt - 1)];
    if (slot.Left == cell.Left && slot.Top == cell.Top) return false;
    slot.Left = cell.Left;
    slot.Top = cell.Top;
    return true;
}

bool addArrow(Fixture& fixture, int shirt, double x, double y) {
    if (!validShirt(shirt)) return false;
    CellPos cell = snapToCell(x, y);
    TeamSlot& slot = fixture.Slots[size_t(shirt - 1)];
    if (slot.Left2 == cell.Left && slot.Top2 == cell.Top) return false;
    slot.Left2 = cell.Left;
    slot.Top2 = cell.Top;
    return true;
}

bool removeArrow(Fixture& fixture, int shirt) {
    if (!validShirt(shirt)) return false;
    TeamSlot& slot = fixture.Slots[size_t(shirt - 1)];
    if (slot.Left2 == 0 && slot.Top2 == 0) return false;
    slot.Left2 = 0;
    slot.Top2 = 0;
    return true;
}

}  // namespace kestrin
