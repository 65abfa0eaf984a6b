#include "orders/coaching.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "core/clubview.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

int coachingDepartment(std::string_view position) {
    std::string_view head = position.substr(0, 3);
    if (head == "AGK") return 0;
    if (head == "DEF") return 1;
    if (head == "MID") return 2;
    if (head == "STR") return 3;
    return -1;
}

namespace {

// The order lists write attack as "ATT" although the grid's positions say "STR".
constexpr std::array<std::string_view, 4> kLineDepartments = {"AGK", "DEF", "MID", "ATT"};

constexpr std::array<std::string_view, 4> kSeniorUsed = {
    "The senior goalkeeping coach has already been used", "The senior defensive coach has already been used",
    "The senior midfield coach has already been used", "The senior attacking coach has already been used"};
constexpr std::array<std::string_view, 4> kYouthUsed = {
    "The youth goalkeeping coach has already been used", "The youth defensive coach has already been used",
    "The youth midfield coach has already been used", "The youth attacking coach has already been used"};

int16_t toInt16(double v) {
    if (!std::isfinite(v)) return 0;
    v = std::clamp(v, double(std::numeric_limits<int16_t>::min()), double(std::numeric_limits<int16_t>::max()));
    return int16_t(roundHalfEven(v));
}

}  // namespace

int coachingSkillCode(std::string_view columnHead) {
    for (size_t i = 0; i < kCoachingSkillNames.size(); ++i)
        if (kCoachingSkillNames[i] == columnHead) return int(i) + 1;
    return 0;
}

std::string coachingSkillName(int code) {
    if (code < 1 || code > int(kCoachingSkillNames.size())) return {};
    return std::string(kCoachingSkillNames[size_t(code - 1)]);
}

OrderResult coachPlayer(Club& club, CoachLevel level, std::string_view rowText, std::string_view columnHead) {
    const bool senior = level == CoachLevel::Senior;
    const std::string name = rowPlayerName(club, rowText);
    const Player& player = rowPlayer(club, rowText);

    // The age comes first: with no row chosen the empty record's age of 0
    // sends the senior coach's refusal ahead of "No player selected".
    if (senior && player.Age < 18)
        return OrderResult::refuse("Youth player selected for senior coach",
                                   "The senior coach is for players aged over 17 only");
    if (!senior && player.Age >= 18)
        return OrderResult::refuse("Senior player selected for youth coach",
                                   "The youth coach is for players aged under 18 only");
    const int skill = coachingSkillCode(columnHead);
    if (name.empty())
        return OrderResult::refuse("No player selected", "Please select a player to coach before clicking this button");
    if (skill == 0)
        return OrderResult::refuse("No skill selected", "Please select a skill to coach before clicking this button");
    if (player.Injury > 9)
        return OrderResult::refuse("Injured player selected", name + " is injured and cannot be coached this week");

    const int dept = coachingDepartment(player.Position);
    if (dept < 0) return OrderResult::accept();  // no department: nothing to order, nothing to say
    const int index = dept + (senior ? 0 : 4);
    CoachOrder& order = club.coachOrder(index);
    if (!order.Player.empty())
        return OrderResult::refuse("Only one departmental coach action allowed per week",
                                   std::string(senior ? kSeniorUsed[size_t(dept)] : kYouthUsed[size_t(dept)]));
    order.Player = name;
    order.Skill = int16_t(skill);
    return OrderResult::accept(coachingLine(index, order));
}

int physioPointsLeft(const Club& club) {
    int left = club.Physio;
    for (int k = 0; k < kPhysioSlots; ++k)
        if (!club.PhysioPlayer[size_t(k)].empty()) left -= club.PhysioPoints[size_t(k)];
    return left;
}

OrderResult treatWithPhysio(Club& club, std::string_view rowText, std::string_view pointsText) {
    const std::string name = rowPlayerName(club, rowText);
    for (const std::string& treated : club.PhysioPlayer)
        if (treated == name)
            return OrderResult::refuse("Player already receiving treatment", "The physio is already treating " + name);
    int slot = -1;
    for (int k = 0; k < kPhysioSlots && slot < 0; ++k)
        if (club.PhysioPlayer[size_t(k)].empty()) slot = k;
    if (slot < 0)
        return OrderResult::refuse("Too many Physio actions", "The Physio can only treat " +
                                                                  std::to_string(kPhysioSlots) +
                                                                  " different players a week");

    club.PhysioPointsLeft = toInt16(physioPointsLeft(club));
    const double points = val(pointsText);
    if (points > club.PhysioPointsLeft)
        return OrderResult::refuse("Not enough physio points",
                                   "The Physio cannot perform this action. You only have a total of " +
                                       std::to_string(club.PhysioPointsLeft) + " physio points remaining");
    club.PhysioPointsLeft = toInt16(club.PhysioPointsLeft - points);
    club.PhysioPlayer[size_t(slot)] = name;
    club.PhysioPoints[size_t(slot)] = toInt16(points);
    return OrderResult::accept(physioLine(name, club.PhysioPoints[size_t(slot)]));
}

std::string coachingLine(int order, const CoachOrder& coach) {
    if (coach.Player.empty() || order < 0 || order > 7) return {};
    return coach.Player + " (" + std::string(kLineDepartments[size_t(order % 4)]) + ") - " +
           (order < 4 ? "Senior" : "Youth") + " Coaching " + coachingSkillName(coach.Skill);
}

std::string physioLine(const std::string& player, int points) {
    if (player.empty()) return {};
    return player + " - Physio to treat with " + std::to_string(points) + " points";
}

bool removeCoaching(Club& club, std::string_view line) {
    size_t paren = line.find('(');
    std::string_view letters = line.substr(paren == std::string_view::npos ? 0 : paren + 1, 3);
    auto at = std::find(kLineDepartments.begin(), kLineDepartments.end(), letters);
    if (at == kLineDepartments.end()) return false;
    const bool youth = line.find(" - Youth ") != std::string_view::npos;
    CoachOrder& order = club.coachOrder(int(at - kLineDepartments.begin()) + (youth ? 4 : 0));
    if (order.Player.empty()) return false;
    order.Player.clear();
    return true;
}

bool removePhysio(Club& club, std::string_view line) {
    const std::string name = linePlayer(line);
    for (int k = 0; k < kPhysioSlots; ++k) {
        if (club.PhysioPlayer[size_t(k)] != name) continue;
        club.PhysioPlayer[size_t(k)].clear();
        club.PhysioPointsLeft = toInt16(double(club.PhysioPointsLeft) + club.PhysioPoints[size_t(k)]);
        return true;
    }
    return false;
}

// ---- Coaching history -------------------------------------------------------

std::string historyResultText(std::string_view result) {
    if (result == "Y") return "Success";
    if (result == "N") return "Failure";
    if (result == "P") return "Potential Reached";
    return {};
}

std::string historyDisplayDate(std::string_view d) {
    return columns(d, 7, 2) + "/" + columns(d, 5, 2) + "/" + columns(d, 1, 4);
}

std::vector<CoachingHistoryRow> coachingHistoryRows(const std::vector<HistoryRecord>& records) {
    std::vector<CoachingHistoryRow> rows;
    rows.reserve(records.size());
    for (size_t i = 0; i < records.size(); ++i) {
        const HistoryRecord& h = records[i];
        CoachingHistoryRow r;
        r.Name = h.Name;
        r.Pos = h.Position;
        r.Date = historyDisplayDate(h.Date);
        r.SkillCoached = h.Skill;
        r.Result = historyResultText(h.Result);
        if (h.Result == "Y") r.NewValue = std::to_string(h.NewValue);
        // The fields at their record widths, so that a short name can't
        // interleave with a longer one that begins the same way.
        r.Item = fixedWidth(h.Position, 4) + fixedWidth(h.Name, 30) + fixedWidth(h.Skill, 2) + h.Date;
        r.Record = std::to_string(i + 1);
        rows.push_back(std::move(r));
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const CoachingHistoryRow& a, const CoachingHistoryRow& b) { return lessNoCase(a.Item, b.Item); });
    return rows;
}

std::optional<std::vector<CoachingHistoryRow>> coachingHistory(const Session& session, const Club& club) {
    const fs::path path = historyPath(session, club);
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) return std::nullopt;
    return coachingHistoryRows(parseHistory(readFileBytes(path)));
}

std::string coachingHistoryTitle(const GameIni& game) { return screenTitle(game, "Coaching History"); }

}  // namespace kestrin
