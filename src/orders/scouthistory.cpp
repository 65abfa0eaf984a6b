#include "orders/scouthistory.h"

#include <cmath>
#include <cstdio>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"
#include "orders/search.h"

namespace kestrin {

namespace {

constexpr size_t kNameOffset = 8;
constexpr size_t kNameWidth = 30;

// The scout's figures in the order of the Minimum boxes: Sign, then the skills.
int16_t minimumField(const ScoutRecord& r, size_t box) { return box == 0 ? r.Sign : r.Skills[box - 1]; }

// YYYYMMDD as DD-MM-YYYY.
std::string shownDate(std::string_view d) {
    auto part = [&](size_t from, size_t n) { return from < d.size() ? d.substr(from, n) : std::string_view(); };
    return std::string(part(6, 2)) + "-" + std::string(part(4, 2)) + "-" + std::string(part(0, 4));
}

// A value as a number prints: whole numbers without a point.
std::string shownValue(double v) {
    if (std::isfinite(v) && v == std::floor(v) && std::fabs(v) < 1e15) return std::to_string(int64_t(v));
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.15g", v);
    return buf;
}

bool sameName(std::string_view recordName, std::string_view name) { return trimView(recordName) == name; }

}  // namespace

std::filesystem::path scoutFilePath(const Session& session) {
    if (!session.Prefs.ScoutFile.empty()) return std::filesystem::path(session.Prefs.ScoutFile);
    return session.Folder.resolve("SCOUT.TXT");
}

std::vector<ScoutRecord> loadScoutTable(const Session& session) {
    const std::filesystem::path path = scoutFilePath(session);
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) return {};
    const std::string bytes = readFileBytes(path);
    return parseScoutRecords(std::string_view(bytes).substr(0, kMaxScoutTable * kScoutRecordLength));
}

bool scoutRecordDeleted(const ScoutRecord& record) { return trimView(record.Name).empty(); }

std::vector<std::string> historyMinimumItems() {
    std::vector<std::string> items{"Any"};
    for (int i = 1; i <= 20; ++i) items.push_back(std::to_string(i));
    return items;
}

std::vector<std::vector<std::string>> scoutHistoryRows(const std::vector<ScoutRecord>& table,
                                                       const HistoryFilter& filter) {
    std::array<int, 12> minimum{};
    std::array<bool, 12> asked{};
    for (size_t b = 0; b < minimum.size(); ++b) {
        asked[b] = filter.Minimum[b] != "Any";
        minimum[b] = int(val(filter.Minimum[b]));
    }
    std::vector<std::vector<std::string>> rows;
    for (const ScoutRecord& r : table) {
        if (scoutRecordDeleted(r)) continue;
        if (!positionPasses(filter.Pos, trimView(r.Position))) continue;
        bool passes = true;
        for (size_t b = 0; b < minimum.size() && passes; ++b)
            passes = !asked[b] || minimumField(r, b) >= minimum[b];
        if (!passes) continue;
        std::vector<std::string> row;
        row.reserve(kScoutGridColumns.size());
        row.push_back(trim(r.Name));
        row.push_back(trim(r.Position));
        row.push_back(trim(r.Club));
        row.push_back(std::to_string(r.Age));
        row.push_back(std::to_string(r.Sign));
        row.push_back(std::to_string(r.TLFigure));
        for (int16_t s : r.Skills) row.push_back(std::to_string(s));
        row.push_back(std::to_string(r.TotalSkill));
        row.push_back(std::to_string(r.Potential));
        row.push_back(std::to_string(r.Perf));
        row.push_back(std::to_string(r.Goals));
        row.push_back(shownValue(r.Value));
        row.push_back(shownDate(r.Date));
        rows.push_back(std::move(row));
    }
    if (rows.empty()) {
        rows.emplace_back(kScoutGridColumns.size());
        rows.back()[0] = kNoResults;
    }
    return rows;
}

bool removeFromScoutHistory(Session& session, std::string_view rowName, Messages& messages) {
    const std::string name = trim(rowName);
    if (name.empty()) {
        messages.refuse("No Player Selected", "Please Select a player you would like to remove from the scout history");
        return false;
    }
    if (!messages.ask("Remove player from history",
                      "Are you sure you would like to remove " + name + " from the Scout History ?"))
        return false;

    // The file first: when it can't be written, the table stays as the file is.
    const std::filesystem::path path = scoutFilePath(session);
    std::error_code ec;
    if (std::filesystem::exists(path, ec)) {
        try {
            std::string bytes = readFileBytes(path);
            bool changed = false;
            for (size_t off = 0; off + kScoutRecordLength <= bytes.size(); off += kScoutRecordLength) {
                if (!sameName(std::string_view(bytes).substr(off + kNameOffset, kNameWidth), name)) continue;
                bytes.replace(off + kNameOffset, kNameWidth, kNameWidth, ' ');
                changed = true;
            }
            if (changed) writeFileAtomic(path, bytes);
        } catch (const GameFileError& e) {
            messages.refuse("Scout history not changed", "The scout history file " + e.file +
                                                             " could not be read: " + e.detail() + ". " + name +
                                                             " is still in the scout history.");
            return false;
        } catch (const WriteError& e) {
            messages.refuse("Scout history not changed", "The scout history file " + e.path +
                                                             " could not be written: " + e.reason + ". " + name +
                                                             " is still in the scout history, and the file is left "
                                                             "as it was.");
            return false;
        }
    }
    for (ScoutRecord& r : session.ScoutTable)
        if (sameName(r.Name, name)) r.Name.assign(kNameWidth, ' ');
    return true;
}

}  // namespace kestrin
