#include "orders/orderresult.h"

namespace kestrin {

OrderResult OrderResult::accept(std::string line) {
    OrderResult r;
    r.accepted = true;
    r.line = std::move(line);
    return r;
}

OrderResult OrderResult::refuse(std::string title, std::string text) {
    OrderResult r;
    r.title = std::move(title);
    r.text = std::move(text);
    return r;
}

OrderResult OrderResult::declined() { return OrderResult{}; }

bool settleOrder(Session& session, const OrderResult& result, Messages& messages) {
    if (!result.accepted) {
        if (!result.isDeclined()) messages.refuse(result.title, result.text);
        return false;
    }
    session.TurnChanged = true;
    return true;
}

std::string rowPlayerName(const Club& club, std::string_view rowText) {
    std::string name(rowText);
    club.findPlayer(rowText, &name);
    return name;
}

const Player& rowPlayer(const Club& club, std::string_view rowText) {
    static const Player nobody{};
    const Player* p = club.player(club.findPlayer(rowText));
    return p ? *p : nobody;
}

std::string linePlayer(std::string_view line) { return std::string(line.substr(0, line.find(" - "))); }

}  // namespace kestrin
