#include "stats/reading.h"

#include <filesystem>

namespace kestrin::stats {

bool statsFileExists(const Settings& settings) {
    std::error_code ec;
    return !settings.StatsFile.empty() && std::filesystem::is_regular_file(settings.StatsFile, ec);
}

std::optional<ReadableStats> openStatsForReading(const Settings& settings, Messages& messages,
                                                 const std::string& missingTitle, MissingSign sign) {
    if (!statsFileExists(settings)) {
        if (sign == MissingSign::Stop) messages.refuse(missingTitle, kNeedDatabaseText);
        else messages.inform(missingTitle, kNeedDatabaseText);
        return std::nullopt;
    }
    try {
        SQLite::Database db(settings.StatsFile, SQLite::OPEN_READONLY);
        const SchemaState state = inspectSchema(db);
        if (state != SchemaState::Foreign) return ReadableStats{std::move(db), state};
    } catch (const SQLite::Exception&) {
    }
    messages.refuse(kUnusableTitle, unusableText(settings.StatsFile));
    return std::nullopt;
}

}  // namespace kestrin::stats
