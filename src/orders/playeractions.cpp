#include "orders/playeractions.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/text.h"

namespace kestrin {

namespace {

constexpr std::string_view kAlreadyTitle = "Action already performed";

// The leading number of a typed amount as a whole number of 32 bits.
int32_t wholeAmount(std::string_view text) {
    double v = val(text);
    if (!std::isfinite(v)) return 0;
    v = std::clamp(v, double(std::numeric_limits<int32_t>::min()), double(std::numeric_limits<int32_t>::max()));
    return int32_t(roundHalfEven(v));
}

// Fills the first free slot. The button click has checked that there is one;
// a caller that skipped it gets the limit refusal rather than a lost order.
OrderResult place(Club& club, Movement m) {
    int slot = firstFreeMovementSlot(club);
    if (slot == 0)
        return OrderResult::refuse("Action limit reached", "You are limited to a maximum of " +
                                                               std::to_string(kMaxActions) + " actions per week");
    club.Movements[size_t(slot - 1)] = m;
    return OrderResult::accept(movementLine(m));
}

Movement movement(int16_t move, std::string player, std::string buyer = {}, int32_t fee = 0, int32_t contract = 0,
                  int32_t incentive = 0) {
    Movement m;
    m.Move = move;
    m.Player = std::move(player);
    m.Club = std::move(buyer);
    m.Fee = fee;
    m.Contract = contract;
    m.Incentive = incentive;
    return m;
}

}  // namespace

int usedMovementSlots(const Club& club) {
    return int(std::count_if(club.Movements.begin(), club.Movements.end(), [](const Movement& m) { return m.Move != 0; }));
}

int firstFreeMovementSlot(const Club& club) {
    for (size_t i = 0; i < club.Movements.size(); ++i)
        if (club.Movements[i].Move == 0) return int(i) + 1;
    return 0;
}

int32_t crapFee(const Player& player) {
    int32_t fee;
    if (player.Skill >= 0 && player.Skill <= 5)
        fee = 500000;
    else if (player.Skill == 6)
        fee = 1000000;
    else if (player.Skill == 7)
        fee = 1500000;
    else
        fee = 2000000;
    if (player.Age < 18 || player.Age > 34) fee = 0;
    return fee;
}

bool validContractLength(std::string_view text) {
    double v = val(text);
    return v == 6 || v == 12 || v == 18 || v == 24;
}

OrderResult checkPlayerAction(const Club& club, PlayerAction action, std::string_view rowText) {
    if (action == PlayerAction::EmailDetails) return OrderResult::accept();
    const std::string name = rowPlayerName(club, rowText);
    if (name.empty()) return OrderResult::refuse("No player selected", "Please select a player to action");
    if (usedMovementSlots(club) >= kMaxActions)
        return OrderResult::refuse("Action limit reached",
                                   "You are limited to a maximum of " + std::to_string(kMaxActions) + " actions per week");
    for (const Movement& m : club.Movements) {
        if (m.Player != name) continue;
        switch (action) {
            case PlayerAction::TransferList:
                if (m.Move == kMoveTransferList)
                    return OrderResult::refuse(std::string(kAlreadyTitle), name + " is already actioned to be transfer listed");
                break;
            case PlayerAction::SellToCrap:
            case PlayerAction::SellToClub:
                if (m.Move == kMoveSellToCrap || m.Move == kMoveSellToClub)
                    return OrderResult::refuse(std::string(kAlreadyTitle), name + " is already actioned to be sold");
                break;
            case PlayerAction::SecretlyList:
                if (m.Move == kMoveSecretlyList)
                    return OrderResult::refuse(std::string(kAlreadyTitle), name + " is already actioned to be secretly listed");
                break;
            case PlayerAction::OfferContract:
                if (m.Move == kMoveContract)
                    return OrderResult::refuse(std::string(kAlreadyTitle),
                                               name + " is already actioned to be offered a contract");
                break;
            case PlayerAction::EmailDetails:
                break;
        }
    }
    return OrderResult::accept();
}

OrderResult transferList(Club& club, std::string_view rowText) {
    OrderResult check = checkPlayerAction(club, PlayerAction::TransferList, rowText);
    if (!check) return check;
    return place(club, movement(kMoveTransferList, rowPlayerName(club, rowText)));
}

OrderResult sellToCrap(Club& club, std::string_view rowText) {
    OrderResult check = checkPlayerAction(club, PlayerAction::SellToCrap, rowText);
    if (!check) return check;
    return place(club, movement(kMoveSellToCrap, rowPlayerName(club, rowText), {}, crapFee(rowPlayer(club, rowText))));
}

PlayerActForm playerActForm(PlayerAction action, std::string_view playerName) {
    PlayerActForm f;
    const std::string name(playerName);
    switch (action) {
        case PlayerAction::SellToClub:
            f.prompt = "Sell " + name + " to another club. Enter amount and club name";
            f.club = true;
            f.height = 6555;
            break;
        case PlayerAction::SecretlyList:
            f.prompt = "Secretly list " + name + ". Enter the amount agreed with the other club";
            f.height = 2370;
            break;
        case PlayerAction::OfferContract:
            f.prompt = "Offer contract to " + name + ". Enter contract length and optional incentive";
            f.contract = true;
            f.height = 2370;
            break;
        default:
            f.amount = false;
            break;
    }
    return f;
}

std::vector<std::string> actionClubNames(const Session& session) {
    std::vector<std::string> names;
    names.reserve(session.ExportClubs.size());
    for (const ExportClub& c : session.ExportClubs) names.emplace_back(c.Name);
    return names;
}

OrderResult sellToClub(Club& club, std::string_view rowText, std::string_view buyingClub, std::string_view amountText) {
    if (buyingClub.empty()) return OrderResult::refuse("No Club selected", "Please select a club to sell this player to");
    return place(club, movement(kMoveSellToClub, rowPlayerName(club, rowText), std::string(buyingClub),
                                wholeAmount(amountText)));
}

OrderResult secretlyList(Club& club, std::string_view rowText, std::string_view amountText) {
    return place(club, movement(kMoveSecretlyList, rowPlayerName(club, rowText), {}, wholeAmount(amountText)));
}

OrderResult offerContract(Club& club, std::string_view rowText, std::string_view contractText,
                          std::string_view incentiveText) {
    if (!validContractLength(contractText))
        return OrderResult::refuse("Incorrect contract value", "Contracts must be either 6, 12, 18 or 24 months");
    return place(club, movement(kMoveContract, rowPlayerName(club, rowText), {}, 0, wholeAmount(contractText),
                                wholeAmount(incentiveText)));
}

std::string movementLine(const Movement& m) {
    switch (m.Move) {
        case kMoveSellToCrap: return m.Player + " - Sell To CRAP for " + std::to_string(m.Fee);
        case kMoveContract:
            return m.Player + " - Contract " + std::to_string(m.Contract) + " Months  - Incentive " +
                   std::to_string(m.Incentive);
        case kMoveTransferList: return m.Player + " - Transfer List";
        case kMoveSecretlyList: return m.Player + " - Secretly List For " + std::to_string(m.Fee);
        case kMoveSellToClub: return m.Player + " - Sell Player To " + m.Club + "  - For " + std::to_string(m.Fee);
        default: return {};
    }
}

bool removeMovement(Club& club, std::string_view line, int tag) {
    const std::string name = linePlayer(line);
    for (Movement& m : club.Movements) {
        if (m.Move != 0 && m.Player == name && m.Move == tag) {
            m.Move = 0;
            return true;
        }
    }
    return false;
}

}  // namespace kestrin
