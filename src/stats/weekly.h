#pragma once
// Loaders of the weekly league files (the Weekly folder). Each takes the
// file's lines; a row its table refuses is passed over and the next line read.
#include <string>
#include <string_view>
#include <vector>

#include "stats/store.h"

namespace kestrin::stats {

using Lines = std::vector<std::string>;

void loadClubs(StatsStore& store, const Lines& lines);                  // CODES.TXT
void loadManagers(StatsStore& store, const Lines& lines);               // EMAILS.TXT
void loadCoaching(StatsStore& store, const Lines& lines);               // COACHING.TXT
void loadTables(StatsStore& store, std::string_view fileName, const Lines& lines);  // *TABS.TXT
void loadTrades(StatsStore& store, std::string_view fileName, const Lines& lines);  // TRANSFER.TXT, LOANS.TXT
void loadCoachingNews(StatsStore& store, std::string_view fileName, const Lines& lines);  // NEWS*.TXT
void loadSquadReportTrades(StatsStore& store, const Lines& lines);      // SQUADREP.TXT

// Which loader a file of the Weekly folder goes to, by its name.
enum class WeeklyKind { None, Coaching, Tables, Trades, CoachingNews, SquadReport };
WeeklyKind weeklyKind(std::string_view fileName);
// Runs the loader of that kind.
void loadWeeklyFile(StatsStore& store, std::string_view fileName, const Lines& lines);

// The club lookup filled from the Clubs table, for a week without CODES.TXT.
void fillLookupFromTable(StatsStore& store);

}  // namespace kestrin::stats
