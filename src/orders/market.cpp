#include "orders/market.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/text.h"
#include "orders/playeractions.h"

namespace kestrin {

const std::array<MarketColumn, kScoutRowCells> kScoutPlayerColumns = {{
    {"Name", 1500},     {"Pos", 610},   {"Min Value", 950, true}, {"Max Value", 950, true}, {"Age", 500},
    {"Tot Sk", 700},    {"Sign", 500},  {"Pld", 400},             {"Perf", 500},            {"Goals", 620},
    {"Loan", 550},      {"Mgd", 490},   {"", 0},                  {"", 0},                  {"", 0},
    {"", 0},            {"", 0},        {"", 0},                  {"", 0},                  {"", 0},
    {"", 0},
}};

const std::array<MarketColumn, kSearchRowCells> kSearchPlayerColumns = {{
    {"Team", 1500},     {"Name", 1500}, {"Pos", 610},             {"Min Value", 950, true}, {"Max Value", 950, true},
    {"Age", 500},       {"Total Skill", 700}, {"Signing", 500},   {"Pld", 400},             {"Perf", 500},
    {"Goals", 620},     {"Loan", 550},  {"Mgd", 490},             {"", 0},                  {"", 0},
    {"", 0},            {"", 0},        {"", 0},                  {"", 0},                  {"", 0},
    {"", 0},            {"", 0},
}};

namespace {

constexpr size_t kPad = 9;

// Cells of the selected row, counted as on the Scout screen.
enum Cell : size_t { kName = 0, kMin = 2, kMax = 3, kSign = 6, kLoanWeeks = 10, kManaged = 11, kLoanClub = 20 };

int32_t whole(double v) {
    if (!std::isfinite(v)) return 0;
    v = std::clamp(v, double(std::numeric_limits<int32_t>::min()), double(std::numeric_limits<int32_t>::max()));
    return int32_t(roundHalfEven(v));
}

// A typed or shown number as a whole number of 32 bits, by its leading number.
int32_t whole(std::string_view text) { return whole(val(text)); }

OrderResult noClub(const MarketPick& pick, std::string_view text) {
    if (pick.Screen == MarketScreen::Scout && !pick.ClubSelected)
        return OrderResult::refuse("No club selected", std::string(text));
    return OrderResult::accept();
}

OrderResult bidLimit(const Club& club) {
    if (bidLines(club).size() >= size_t(kMaxBidsPerWeek))
        return OrderResult::refuse("Maximum bids reached", "You only have a limit of " +
                                                               std::to_string(kMaxBidsPerWeek) +
                                                               " bids or loans per week");
    return OrderResult::accept();
}

// The two warnings of a bid or a loan approach: shown at every attempt, never blocking.
void warnings(const MarketSelection& row, Messages& messages) {
    if (row.Managed == "Y") messages.warn("Warning", "Careful. This player is from a managed team");
    if (val(row.LoanWeeks) != 0)
        messages.warn("Warning", "Warning. This player is on loan for " + row.LoanWeeks + " more weeks from " +
                                     row.LoanClub);
}

std::string movementsFull() {
    return "You are only allowed " + std::to_string(kMaxActions) +
           " player movements per week.\r\n\r\nYou are attempting to buy and sell more than this number";
}

std::string bidLine(const Movement& m) {
    std::string s = m.Club + " - " + m.Player + " Fee " + std::to_string(m.Fee);
    if (m.Move == kMoveLoan) return s + ", " + std::to_string(m.Contract) + " week loan";
    return s + ", Contract " + std::to_string(m.Contract) + ", Incentive " + std::to_string(m.Incentive);
}

std::string scoutLine(const Club& club, size_t k) {
    return club.ScoutClub[k] + " - " + club.ScoutPlayer[k] + " (" +
           (club.ScoutAggressive[k] ? "Aggressive" : "Non Aggressive") + ")";
}

// The text between two markers of a list line: from behind the first `from`
// (the start when absent) to the first `to` behind it (the end when absent).
std::string_view between(std::string_view line, std::string_view from, std::string_view to) {
    size_t start = line.find(from);
    start = start == std::string_view::npos ? 0 : start + from.size();
    size_t end = line.find(to, start);
    if (end == std::string_view::npos) end = line.size();
    return line.substr(start, end - start);
}

}  // namespace

std::vector<std::string> scoutRowCells(const ExportPlayer& p) {
    std::vector<std::string> c;
    c.reserve(kScoutRowCells);
    c.emplace_back(std::string_view(p.Name));
    c.emplace_back(std::string_view(p.Position));
    c.push_back(padLeft(std::to_string(p.MinValue), kPad));
    c.push_back(padLeft(std::string_view(p.MaxValue), kPad));
    c.push_back(padLeft(std::string_view(p.Age), kPad));
    c.push_back(padLeft(std::string_view(p.TotalSkill), kPad));
    c.push_back(padLeft(std::string_view(p.Sign), kPad));
    c.push_back(padLeft(std::string_view(p.Played), kPad));
    c.push_back(padLeft(std::string_view(p.Perf), kPad));
    c.push_back(padLeft(std::string_view(p.Goals), kPad));
    c.push_back(padLeft(std::to_string(p.Loan), kPad));
    c.emplace_back(std::string_view(p.Managed));
    for (int32_t v : p.Portrait) c.push_back(std::to_string(v));
    c.emplace_back(std::string_view(p.Colours));
    c.emplace_back(std::string_view(p.LoanClub));
    return c;
}

MarketSelection selectRow(MarketScreen screen, std::span<const std::string> cells, std::string_view scoutClub) {
    const size_t shift = screen == MarketScreen::Search ? 1 : 0;
    auto cell = [&](size_t i) { return i + shift < cells.size() ? trim(cells[i + shift]) : std::string(); };
    MarketSelection s;
    s.Name = cell(kName);
    s.Club = screen == MarketScreen::Search ? (cells.empty() ? std::string() : trim(cells[0])) : std::string(scoutClub);
    s.MinValue = cell(kMin);
    s.MaxValue = cell(kMax);
    s.Sign = cell(kSign);
    s.LoanWeeks = cell(kLoanWeeks);
    s.LoanClub = cell(kLoanClub);
    s.Managed = cell(kManaged);
    return s;
}

int32_t incentiveLimit(const MarketSelection& row) {
    double limit = val(row.MaxValue) / 100 * 20;
    if (limit > kMaxIncentive) limit = kMaxIncentive;
    return whole(limit);
}

BidBoxLimits bidBoxLimits(const MarketSelection& row) {
    BidBoxLimits b;
    b.Amount = row.MinValue;
    b.AmountMin = whole(row.MinValue);
    b.AmountMax = whole(row.MaxValue);
    b.IncentiveMax = incentiveLimit(row);
    return b;
}

int32_t loanFee(std::string_view weeksText, int32_t limit) {
    const double fee = std::floor(((val(weeksText) - 4) * 9.375 + 25) / 100 * limit);
    return whole(fee);
}

OrderResult cmdBid(Club& club, const MarketPick& pick, const BidBoxes& boxes, Messages& messages) {
    if (OrderResult r = noClub(pick, "Please select a club and player before bidding"); !r) return r;
    if (!pick.Row) return OrderResult::refuse("No player selected", "Please select a player to bid for");
    const MarketSelection& row = *pick.Row;
    if (OrderResult r = bidLimit(club); !r) return r;
    const double amount = val(boxes.Amount);
    if (row.MinValue.empty() || row.MaxValue.empty() || amount < val(row.MinValue) || amount > val(row.MaxValue))
        return OrderResult::refuse("Amount is under or over the limits for this player",
                                   "The bid must be between " + row.MinValue + " and " + row.MaxValue +
                                       " for this player");
    if (!validContractLength(boxes.Contract))
        return OrderResult::refuse("Incorrect contract value", "Contracts must be either 6, 12, 18 or 24 months");
    warnings(row, messages);
    const int slot = firstFreeMovementSlot(club);
    if (slot == 0) return OrderResult::refuse("Invalid bid", movementsFull());
    Movement& m = club.Movements[size_t(slot - 1)];
    m.Move = kMoveBid;
    m.Player = row.Name;
    m.Club = row.Club;
    m.Contract = whole(boxes.Contract);
    m.Fee = whole(boxes.Amount);
    m.Incentive = whole(boxes.Incentive);
    return OrderResult::accept(bidLine(m));
}

OrderResult cmdLoan(Club& club, const MarketPick& pick, BidBoxes& boxes, Messages& messages) {
    if (OrderResult r = noClub(pick, "Please select a club and player before attempting to loan"); !r) return r;
    if (!pick.Row) return OrderResult::refuse("No player selected", "Please select a player to approach for loan");
    const MarketSelection& row = *pick.Row;
    if (OrderResult r = bidLimit(club); !r) return r;
    if (val(row.Sign) < 3)
        return OrderResult::refuse("Invalid loan approach",
                                   "You can only attempt to loan players with a Sign figure of 3 or more");
    const double weeks = val(boxes.Contract);
    if (weeks < 4 || weeks > 12)
        return OrderResult::refuse("Incorrect loan contract value", "Loan length must be between 4 and 12 weeks");
    warnings(row, messages);
    const int32_t fee = loanFee(boxes.Contract, incentiveLimit(row));
    boxes.Amount = std::to_string(fee);
    const int slot = firstFreeMovementSlot(club);
    if (slot == 0) return OrderResult::refuse("Invalid loan approach", movementsFull());
    Movement& m = club.Movements[size_t(slot - 1)];
    m.Move = kMoveLoan;
    m.Player = row.Name;
    m.Club = row.Club;
    m.Contract = whole(boxes.Contract);
    m.Fee = fee;
    return OrderResult::accept(bidLine(m));
}

OrderResult cmdRemoveBid(Club& club, const std::optional<std::string>& selectedLine) {
    if (!selectedLine) return OrderResult::refuse("No bid selected", "Please select a bid to remove from the list");
    const std::string_view player = between(*selectedLine, " - ", " Fee ");
    for (Movement& m : club.Movements)
        if (m.Player == player && (m.Move == kMoveBid || m.Move == kMoveLoan)) m.Move = 0;
    return OrderResult::accept(*selectedLine);
}

OrderResult cmdScout(Club& club, const MarketPick& pick, bool aggressive, const std::vector<ScoutRecord>& scoutRecords,
                     Messages& messages) {
    if (OrderResult r = noClub(pick, "Please select a club and player before scouting"); !r) return r;
    if (!pick.Row) return OrderResult::refuse("No player selected", "Please select player to scout");
    const MarketSelection& row = *pick.Row;
    const size_t used = scoutLines(club).size();
    // The four slots end it whatever the level; the manager is told so
    // before being asked anything.
    if (int(used + 1) * 3 > club.Scout || used >= club.ScoutPlayer.size())
        return OrderResult::refuse("Scout action limit reached",
                                   "You have reached the maximum number of scout actions that you can perform this "
                                   "week");
    for (const ScoutRecord& r : scoutRecords) {
        if (trimView(r.Name) != std::string_view(row.Name)) continue;
        if (!messages.ask("Player already scouted",
                          "You have scouted a player called " + row.Name + " before. Do you still want to scout ?"))
            return OrderResult::declined();
        break;
    }
    for (size_t k = 0; k < club.ScoutPlayer.size(); ++k) {
        if (!club.ScoutPlayer[k].empty()) continue;
        club.ScoutPlayer[k] = row.Name;
        club.ScoutClub[k] = row.Club;
        club.ScoutAggressive[k] = aggressive;
        return OrderResult::accept(scoutLine(club, k));
    }
    return OrderResult::declined();  // not reached: a free slot was counted above
}

OrderResult cmdUnScout(Club& club, const std::optional<std::string>& selectedLine) {
    if (!selectedLine)
        return OrderResult::refuse("No action selected", "Please select a scout action to remove");
    const std::string_view line = *selectedLine;
    const size_t dash = line.find(" - ");
    const std::string_view scoutClub = line.substr(0, dash);
    const std::string_view player = between(line, " - ", " (");
    for (size_t k = 0; k < club.ScoutPlayer.size(); ++k)
        if (club.ScoutPlayer[k] == player && club.ScoutClub[k] == scoutClub) club.ScoutPlayer[k].clear();
    return OrderResult::accept(*selectedLine);
}

std::vector<OrderLine> bidLines(const Club& club) {
    std::vector<OrderLine> out;
    for (const Movement& m : club.Movements)
        if (m.Move == kMoveBid || m.Move == kMoveLoan) out.push_back({bidLine(m), m.Move});
    return out;
}

std::vector<std::string> scoutLines(const Club& club) {
    std::vector<std::string> out;
    for (size_t k = 0; k < club.ScoutPlayer.size(); ++k)
        if (!club.ScoutPlayer[k].empty()) out.push_back(scoutLine(club, k));
    return out;
}

}  // namespace kestrin
