#pragma once
// The report harvest: the report at the end of each Squadsheet turned into
// memos and the ticker text, coaching lines into the club's history file and
// scout reports into SCOUT.TXT; and the Last Week screen's seven boxes.
#include <array>
#include <string>
#include <vector>

#include "core/messages.h"
#include "core/session.h"

namespace kestrin {

inline constexpr size_t kMaxMemos = 500;

// Runs over every club of the session at the end of the load. Memos and the
// ticker are rebuilt every time; records are appended only when
// session.NewTurn is set. On a new turn adm.kst is deleted and
// StatsRefreshDue is set. Problems (a report cut short, a file that can't be
// written) are told through `messages`, once each, and never stop the load.
void harvestReports(Session& session, Messages& messages);

// The Squadsheet of a club as the harvest finds it: Squadsheets/ and the
// first eight letters of ClubFile + "SQUAD", then ".TXT".
std::string harvestSquadsheetName(const Club& club);

// "YYYYMMDD" from the first DD/MM/YYYY in a turn stamp; "" when none.
std::string turnDateOf(std::string_view turnStamp);

// The Last Week screen's boxes, in the order of kLastWeekBoxes; each is the
// text of its lines, every line followed by CR LF.
inline constexpr std::array<const char*, 7> kLastWeekBoxes = {"txtCoach", "txtPhysio", "txtInj",  "txtScout",
                                                              "txtRes",   "txtOne",    "txtOther"};
using LastWeekBoxes = std::array<std::string, 7>;
// Empty boxes when the club has no Squadsheet; throws GameFileError when it
// can't be read.
LastWeekBoxes lastWeekBoxes(const Session& session, const Club& club);
// The same from the lines of a Squadsheet (for tests and fuzzing).
LastWeekBoxes lastWeekBoxesOf(const std::vector<std::string>& squadsheetLines);

}  // namespace kestrin
