#pragma once
// The two readers of each Squadsheet in the refresh: the skills of every
// player, and the short match summaries that complete the rows the match
// report parser wrote (possession, set pieces, support, the worth of goals).
#include <string>
#include <string_view>
#include <vector>

#include "stats/store.h"

namespace kestrin::stats {

// The club's file key: the name's text before "SQUA" ("SQU" when there is
// no "SQUA"), upper-cased.
std::string squadFileKey(std::string_view fileName);

// The player table below the line holding " SU ": two lines after it, one
// line a player up to the first blank line. Columns 1 to 20 hold the name;
// in the text from column 21 the fields begin at its column 15 when the
// character there starts a position code (A, D, M, S), else at its column
// 18: position, age and the eleven skills PA to CR, parted by blanks.
void loadSquadSkills(StatsStore& store, std::string_view fileName, const std::vector<std::string>& lines);

// Each summary of the report section, from the line that begins with a
// competition's name and holds the venue (" H ", " A " or " N "), the
// opponent and the score, to the closing line of set pieces. Its figures
// are read in home, away order. Returns the number of MatchTeam rows
// completed.
int loadMatchSummaries(StatsStore& store, std::string_view fileName, const std::vector<std::string>& lines);

}  // namespace kestrin::stats
