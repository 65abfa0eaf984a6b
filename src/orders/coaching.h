#pragma once
// Coaching and physio orders of the squad screen, and the coaching history
// list of CoachScr.
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orders/history.h"
#include "orders/orderresult.h"

namespace kestrin {

enum class CoachLevel { Senior, Youth };

// The coachable skills by code 1 to 9; the names are the squad grid's column
// heads and the words of the order lines. Flair and Creativity can't be coached.
inline constexpr std::array<std::string_view, 9> kCoachingSkillNames = {
    "Pass", "Control", "Tackle", "Run", "Shoot", "Dribble", "DefHd", "OffHd", "Strength"};

// The coaching department of a position by its first three letters: 0 to 3
// for goalkeeping, defence, midfield and attack (the senior coach order of
// that index, the youth order four on); -1 for any other position.
int coachingDepartment(std::string_view position);

// Code 1 to 9 of a grid column head, 0 when the column is no coachable skill.
int coachingSkillCode(std::string_view columnHead);
// The name of a code, "" for a code outside 1 to 9.
std::string coachingSkillName(int code);

inline constexpr int kPhysioSlots = 3;

// btnCoach and btnYouth: the player of the grid row is coached in the skill
// of the grid column, by the coach of his position's department.
OrderResult coachPlayer(Club& club, CoachLevel level, std::string_view rowText, std::string_view columnHead);

// The physio's points not yet given this week: his level less the points of
// every player under treatment.
int physioPointsLeft(const Club& club);

// btnPhysio: the points typed in txtPhysio go to the player of the grid row.
// PhysioPointsLeft is worked out afresh from the level first, so a stale
// figure mends itself even when the order is refused.
OrderResult treatWithPhysio(Club& club, std::string_view rowText, std::string_view pointsText);

// lstActions lines: coach order i in Turnsheet order (0 to 3 senior
// goalkeeping to attack, 4 to 7 youth), and a physio slot. "" for an empty one.
std::string coachingLine(int order, const CoachOrder& coach);
std::string physioLine(const std::string& player, int points);

// Removal of a coaching line: the department is the three letters behind the
// first "(", senior or youth by " - Youth ". The skill code stays. Returns
// whether an order was cleared.
bool removeCoaching(Club& club, std::string_view line);
// Removal of a physio line: the first slot of the player is emptied and its
// points go back to PhysioPointsLeft.
bool removePhysio(Club& club, std::string_view line);

// ---- Coaching history (CoachScr) --------------------------------------------

inline constexpr std::array<std::string_view, 6> kCoachingHistoryColumns = {
    "Name", "Pos", "Date", "Skill Coached", "Result", "New Value"};

struct CoachingHistoryRow {
    std::string Name;
    std::string Pos;
    std::string Date;          // DD/MM/YYYY
    std::string SkillCoached;  // two-letter code as stored
    std::string Result;        // "Success", "Failure", "Potential Reached"
    std::string NewValue;      // the stored value for a success, else ""
    std::string Item;          // the sort text: position, name, skill, date
    std::string Record;        // 1-based number of the record in the file
    bool operator==(const CoachingHistoryRow&) const = default;
};

// The rows, sorted so that all attempts of one player on one skill stand
// together in date order.
std::vector<CoachingHistoryRow> coachingHistoryRows(const std::vector<HistoryRecord>& records);

// The list for the club's history file; nothing when the file doesn't exist,
// and then CoachScr doesn't open. Throws GameFileError when it can't be read.
std::optional<std::vector<CoachingHistoryRow>> coachingHistory(const Session& session, const Club& club);

// "Success", "Failure", "Potential Reached"; "" for any other result.
std::string historyResultText(std::string_view result);
// YYYYMMDD as DD/MM/YYYY.
std::string historyDisplayDate(std::string_view yyyymmdd);

std::string coachingHistoryTitle(const GameIni& game);

}  // namespace kestrin
