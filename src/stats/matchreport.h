#pragma once
// The match report parser: a report file of the Squadsheets folder (a name
// holding "#") gives, per complete match, a MatchMain row, two MatchTeam
// rows, the players, the goals and a compressed time line of the moments.
#include <string>
#include <vector>

#include "stats/store.h"

namespace kestrin::stats {

// Parses every match of the file. A match already in the database ends the
// file there: the rest of it was loaded along with that match. Returns the
// text of each match written, as it went (before compression) into Summary.
std::vector<std::string> loadMatchReports(StatsStore& store, const std::vector<std::string>& lines);

}  // namespace kestrin::stats
