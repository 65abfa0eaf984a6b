#pragma once
// lstActions of the squad screen: one line per order of the week, and
// BtnRemove, which reads a line back to find the order it stands for.
#include <optional>
#include <string>
#include <vector>

#include "orders/orderresult.h"

namespace kestrin {

// Item tags: the Move code (2 to 6) for a player action, and these.
inline constexpr int kTagPhysio = 10;
inline constexpr int kTagCoaching = 11;
inline constexpr int kTagOneToOne = 12;

struct OrderLine {
    std::string text;
    int tag = 0;
    bool operator==(const OrderLine&) const = default;
};

// The lines in their fixed order: the eight coach orders, the physio slots,
// the player actions of the movement slots (bids and loans are not here),
// then the one to one.
std::vector<OrderLine> orderLines(const Club& club);

// BtnRemove with the selected line, or nothing selected. The line is the
// key: a line whose player can't be found again (a name holding " - ") is
// accepted and removes nothing; `line` of the result is empty then.
OrderResult removeOrder(Club& club, const std::optional<OrderLine>& selected);

}  // namespace kestrin
