#pragma once
// What an order operation hands back to the screen: the change it made, or
// the refusal with the exact title and text of its message box. A refused
// order has changed nothing.
#include <string>
#include <string_view>

#include "core/messages.h"
#include "core/records.h"
#include "core/session.h"

namespace kestrin {

struct OrderResult {
    bool accepted = false;
    std::string title;  // of the refusal
    std::string text;
    // The order list line of the order placed or removed; empty when the
    // operation placed or removed nothing (a check that passed, say).
    std::string line;

    static OrderResult accept(std::string line = {});
    static OrderResult refuse(std::string title, std::string text);
    // The manager answered No to a question on the way: nothing changed and
    // nothing more is shown (an empty title and text).
    static OrderResult declined();
    bool isDeclined() const { return !accepted && title.empty() && text.empty(); }
    explicit operator bool() const { return accepted; }
};

// How every order handler of a screen ends: a refusal is shown with the
// critical sign (a declined order shows nothing), anything accepted sets
// TurnChanged. The screen then rebuilds its order lists. Returns whether the
// order was accepted.
bool settleOrder(Session& session, const OrderResult& result, Messages& messages);

// The name a grid row stands for: its text cut at the first "(" and trimmed,
// as the player lookup does; a bare name stays as it is.
std::string rowPlayerName(const Club& club, std::string_view rowText);

// The player a grid row stands for. A row that names nobody of the squad
// gives an empty record (age 0, no injury), as the game's unused player 0.
const Player& rowPlayer(const Club& club, std::string_view rowText);

// The player of an order list line: its text up to the first " - ", the
// whole text when it has none.
std::string linePlayer(std::string_view line);

}  // namespace kestrin
