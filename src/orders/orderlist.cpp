#include "orders/orderlist.h"

#include "orders/coaching.h"
#include "orders/onetoone.h"
#include "orders/playeractions.h"

namespace kestrin {

std::vector<OrderLine> orderLines(const Club& club) {
    std::vector<OrderLine> lines;
    for (int i = 0; i < 8; ++i)
        if (std::string t = coachingLine(i, club.coachOrder(i)); !t.empty()) lines.push_back({t, kTagCoaching});
    for (size_t k = 0; k < club.PhysioPlayer.size(); ++k)
        if (std::string t = physioLine(club.PhysioPlayer[k], club.PhysioPoints[k]); !t.empty())
            lines.push_back({t, kTagPhysio});
    for (const Movement& m : club.Movements)
        if (m.Move >= kMoveSellToCrap && m.Move <= kMoveSellToClub) lines.push_back({movementLine(m), m.Move});
    if (std::string t = oneToOneLine(club); !t.empty()) lines.push_back({t, kTagOneToOne});
    return lines;
}

OrderResult removeOrder(Club& club, const std::optional<OrderLine>& selected) {
    if (!selected) return OrderResult::refuse("No action selected", "Please select an action to remove");
    const OrderLine& l = *selected;
    bool removed = false;
    if (l.tag >= kMoveSellToCrap && l.tag <= kMoveSellToClub)
        removed = removeMovement(club, l.text, l.tag);
    else if (l.tag == kTagPhysio)
        removed = removePhysio(club, l.text);
    else if (l.tag == kTagCoaching)
        removed = removeCoaching(club, l.text);
    else if (l.tag == kTagOneToOne)
        removed = removeOneToOne(club);
    return OrderResult::accept(removed ? l.text : std::string());
}

}  // namespace kestrin
