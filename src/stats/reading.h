#pragma once
// Opening the Stats database for the options that only read it.
#include <SQLiteCpp/Database.h>

#include <optional>
#include <string>

#include "core/messages.h"
#include "core/settings.h"
#include "stats/store.h"

namespace kestrin::stats {

// The words of an option that needs the Stats database when its file isn't there.
inline constexpr const char* kNeedDatabaseText =
    "You need the Stats database to be able to use this option.\r\n\r\n"
    "If you have the database, but this option still isn't working, then make sure you have set the "
    "location correctly in the preferences screen";

struct ReadableStats {
    SQLite::Database db;
    SchemaState state;  // Ours, or Empty for a file with no table yet
};

// How a missing file is told: with a stop sign, or as a plain message.
enum class MissingSign { Stop, None };

// Whether settings.StatsFile names a file that is there.
bool statsFileExists(const Settings& settings);

// settings.StatsFile opened read-only. Nothing, after a message, when the file
// isn't there (under `missingTitle`) or isn't a Stats database of ours.
std::optional<ReadableStats> openStatsForReading(const Settings& settings, Messages& messages,
                                                 const std::string& missingTitle,
                                                 MissingSign sign = MissingSign::Stop);

}  // namespace kestrin::stats
