#include "stats/reading.h"

#include <filesystem>

namespace kestrin::stats {

std::optional<ReadableStats> openStatsForReading(const Settings& settings, Messages& messages,
                                                 const std::string& missingTitle, MissingSign sign) {
    std::error_code ec;
    if (settings.StatsFile.empty() || !std::filesystem::is_regular_file(settings.StatsFile, ec)) {
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
