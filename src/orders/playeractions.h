#pragma once
// Player actions: the six movement slots of a club, shared with bids and
// loans, the btnAction buttons of the squad screen and the PlayerAct dialog.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "orders/orderresult.h"

namespace kestrin {

// Move codes of a movement slot; 0 is a free slot.
inline constexpr int16_t kMoveBid = 1;
inline constexpr int16_t kMoveSellToCrap = 2;
inline constexpr int16_t kMoveContract = 3;
inline constexpr int16_t kMoveTransferList = 4;
inline constexpr int16_t kMoveSecretlyList = 5;
inline constexpr int16_t kMoveSellToClub = 6;
inline constexpr int16_t kMoveLoan = 7;

inline constexpr int kMaxActions = 6;

// The btnAction buttons, by index.
enum class PlayerAction { TransferList = 0, SellToCrap = 1, SellToClub = 2, SecretlyList = 3, OfferContract = 4,
                          EmailDetails = 5 };
inline constexpr std::array<std::string_view, 6> kPlayerActionCaptions = {
    "Put on Transfer List", "Sell to CRAP", "Sell To another club", "Secretly List", "Offer Contract",
    "Email Player Details"};

inline constexpr std::string_view kPlayerActTitle = "Player Actions";

// Slots in use, bids and loans among them.
int usedMovementSlots(const Club& club);
// 1-based number of the first free slot, 0 when all six are taken.
int firstFreeMovementSlot(const Club& club);

// What CRAP pays: by Skill, and nothing for a player under 18 or over 34.
int32_t crapFee(const Player& player);

// Whether a contract text is one of the four lengths by its numeric value:
// "12.0" is, "7" and "" are not.
bool validContractLength(std::string_view text);

// The checks a click of btnAction makes before anything else: a player
// chosen, a free slot, and no order of the same kind for him. The two kinds
// of sale count as one. Email Player Details passes always.
OrderResult checkPlayerAction(const Club& club, PlayerAction action, std::string_view rowText);

// The two buttons that order at once. Each runs the checks first.
OrderResult transferList(Club& club, std::string_view rowText);
OrderResult sellToCrap(Club& club, std::string_view rowText);

// How PlayerAct is laid out for one of the buttons that open it.
struct PlayerActForm {
    std::string prompt;  // txtPlayerAct
    bool amount = true;  // lblAmount, txtAmount, UpAmount; the incentive for a contract
    bool contract = false;
    bool club = false;   // lblClub, lvwActionTeams
    int height = 0;      // twips
};
PlayerActForm playerActForm(PlayerAction action, std::string_view playerName);

// The clubs PlayerAct offers to sell to: every club of the game, in the order
// of the club export; the index is the club's in ExportClubs.
std::vector<std::string> actionClubNames(const Session& session);

// OKButton of PlayerAct. The checks of the button click ran before the
// dialog opened and are not repeated; a refusal leaves the dialog open.
// `buyingClub` empty means no club is selected. Amounts are read by their
// leading number, as typed.
OrderResult sellToClub(Club& club, std::string_view rowText, std::string_view buyingClub,
                       std::string_view amountText);
OrderResult secretlyList(Club& club, std::string_view rowText, std::string_view amountText);
OrderResult offerContract(Club& club, std::string_view rowText, std::string_view contractText,
                          std::string_view incentiveText);

// The lstActions line of a slot of codes 2 to 6; "" for any other code.
std::string movementLine(const Movement& movement);

// Removal of a lstActions line of tag 2 to 6: the first slot of the player
// (the line up to its first " - ") with that code is freed. Returns whether
// one was.
bool removeMovement(Club& club, std::string_view line, int tag);

}  // namespace kestrin
