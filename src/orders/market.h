#pragma once
// The transfer market: scout actions, bids and loan approaches against the
// players of the club export, taken on the Scout screen and, with the same
// rules, on the search screen. Bids and loans share the six movement slots
// with the player actions; scout actions have four slots of their own.
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "core/records.h"
#include "orders/orderlist.h"
#include "orders/orderresult.h"
#include "orders/scoutfile.h"

namespace kestrin {

// Which screen takes the order. The search screen's rows carry their club in
// a "Team" column in front, and it has no club list to leave unselected.
enum class MarketScreen { Scout, Search };

inline constexpr int kMaxBidsPerWeek = 2;

// ---- The player list (lvwScoutPlayers) ----

struct MarketColumn {
    std::string_view head;
    int width;  // twips; 0 for a hidden column
    bool right = false;
};
// The Scout screen's 21 columns: Name, the eleven shown after it, then the
// hidden Portrait 1 to 7, Colours and LoanClub.
inline constexpr size_t kScoutRowCells = 21;
extern const std::array<MarketColumn, kScoutRowCells> kScoutPlayerColumns;
// The search screen's 22: "Team" in front of the same, with its own heads.
inline constexpr size_t kSearchRowCells = 22;
extern const std::array<MarketColumn, kSearchRowCells> kSearchPlayerColumns;

// A row's cells in the Scout screen's column order: numbers padded on the
// left to nine characters, the hidden columns as plain text.
std::vector<std::string> scoutRowCells(const ExportPlayer& player);

// ---- The selected row ----

// What a click on a row keeps, read back from the row's cells as shown. The
// numbers stay as the cells hold them, trimmed; the checks read them by their
// leading number. An empty MinValue or MaxValue (the "No Results" row) makes
// every bid fail the limits.
struct MarketSelection {
    std::string Name;
    std::string Club;  // the club of the order: the selected club on Scout, the row's Team on the search
    std::string MinValue;
    std::string MaxValue;
    std::string Sign;
    std::string LoanWeeks;
    std::string LoanClub;
    std::string Managed;  // "Y" for a player of a managed club
    bool operator==(const MarketSelection&) const = default;
};

// The clicked row. `cells` are the row's texts in its screen's column order
// (the 21 of scoutRowCells, or the 22 of the search with Team in front);
// missing cells read as empty. `scoutClub` is the text of the selected club
// of lvwScoutTeams, used on Scout only.
MarketSelection selectRow(MarketScreen screen, std::span<const std::string> cells, std::string_view scoutClub = {});

// The bid boxes as a row click sets them.
struct BidBoxLimits {
    std::string Amount;        // txtBidAmount: the minimum
    int32_t AmountMin = 0;     // UpAmount
    int32_t AmountMax = 0;
    int32_t IncentiveMax = 0;  // UpIncentive: 20 percent of the maximum, at most 500000
    bool operator==(const BidBoxLimits&) const = default;
};
BidBoxLimits bidBoxLimits(const MarketSelection& row);
inline constexpr int32_t kMaxIncentive = 500000;

// The upper limit of UpIncentive for a row; the loan fee is taken from it.
int32_t incentiveLimit(const MarketSelection& row);

// The loan fee for a typed length in weeks and an incentive limit: the whole
// part of ((weeks - 4) * 9.375 + 25) / 100 * limit, a quarter of the limit
// for 4 weeks and all of it for 12.
int32_t loanFee(std::string_view weeksText, int32_t incentiveLimit);

// ---- The orders ----

// What the screen has selected when a button is clicked.
struct MarketPick {
    MarketScreen Screen = MarketScreen::Scout;
    bool ClubSelected = false;               // lvwScoutTeams has a selection; not asked on the search
    std::optional<MarketSelection> Row;      // the clicked row; none when no player row is selected
};

// The texts of the bid boxes as typed.
struct BidBoxes {
    std::string Amount;     // txtBidAmount
    std::string Contract;   // txtBidContract: months for a bid, weeks for a loan
    std::string Incentive;  // txtBidIncentive
};

// cmdBid. The checks run in the game's order; the two warnings (a managed
// club's player, a player on loan elsewhere) go through `messages.warn` and
// never block. Accepted: the order's lstBidPlayers line.
OrderResult cmdBid(Club& club, const MarketPick& pick, const BidBoxes& boxes, Messages& messages);

// cmdLoan. Once the checks and warnings have passed, the loan fee replaces
// boxes.Amount, whatever stood there, even when no slot turns out free.
OrderResult cmdLoan(Club& club, const MarketPick& pick, BidBoxes& boxes, Messages& messages);

// cmdRemoveBid with the selected lstBidPlayers line, or nothing selected.
// Every bid or loan of the player read back from the line is freed.
OrderResult cmdRemoveBid(Club& club, const std::optional<std::string>& selectedLine);

// cmdScout. `scoutRecords` is the scout table: a record of the same trimmed
// name asks "Player already scouted" through `messages.ask`; No gives
// OrderResult::declined(), which settleOrder shows as nothing.
OrderResult cmdScout(Club& club, const MarketPick& pick, bool aggressive, const std::vector<ScoutRecord>& scoutRecords,
                     Messages& messages);

// cmdUnScout with the selected lstScoutedPlayers line, or nothing selected.
OrderResult cmdUnScout(Club& club, const std::optional<std::string>& selectedLine);

// ---- The order lists, the same on both screens ----

// lstBidPlayers: the bids (tag 1) and loans (tag 7) of the movement slots.
std::vector<OrderLine> bidLines(const Club& club);
// lstScoutedPlayers: the scout slots in use, no tag.
std::vector<std::string> scoutLines(const Club& club);

}  // namespace kestrin
