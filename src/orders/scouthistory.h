#pragma once
// The scout history: every scout report the manager's clubs received, held in
// memory from SCOUT.TXT, filtered into a grid, and deleted by name.
#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "core/session.h"
#include "orders/scoutfile.h"

namespace kestrin {

// The scout table keeps at most this many records of the file.
inline constexpr size_t kMaxScoutTable = 10000;

// Where SCOUT.TXT is: the settings' path, else SCOUT.TXT in the game folder.
std::filesystem::path scoutFilePath(const Session& session);

// The scout table as start-up loads it after the harvest, in file order.
// A missing file gives none; an unreadable one throws GameFileError.
std::vector<ScoutRecord> loadScoutTable(const Session& session);

// A record whose trimmed name is empty has been deleted.
bool scoutRecordDeleted(const ScoutRecord& record);

// The "Minimum" boxes in their order on the screen. Each offers "Any" and
// the numbers of kHistoryMinimumItems.
struct HistoryBox {
    std::string_view name;   // cboSign ...
    std::string_view label;  // "Minimum Sign" ...
};
inline constexpr std::array<HistoryBox, 12> kHistoryMinimumBoxes = {{
    {"cboSign", "Minimum Sign"},   {"cboPA", "Minimum Pass"},     {"cboCO", "Minimum Control"},
    {"cboTA", "Minimum Tackle"},   {"cboRU", "Minimum Run"},      {"cboSH", "Minimum Shoot"},
    {"cboDR", "Minimum Dribble"},  {"cboDH", "Minimum Def Head"}, {"cboOH", "Minimum Off Head"},
    {"cboFL", "Minimum Flair"},    {"cboST", "Minimum Strength"}, {"cboCR", "Minimum Creativity"}}};
// "Any", then "1" to "20".
std::vector<std::string> historyMinimumItems();
// cboPos ("Position") offers kSearchPositionItems of orders/search.h.

struct HistoryFilter {
    std::string Pos = "Any Player";
    std::array<std::string, 12> Minimum{"Any", "Any", "Any", "Any", "Any", "Any",
                                        "Any", "Any", "Any", "Any", "Any", "Any"};  // in kHistoryMinimumBoxes order
};

// grdScout's heads, in order; column 0 is the name.
inline constexpr std::array<std::string_view, 23> kScoutGridColumns = {
    "Name", "Pos", "Club", "Age", "Sign", "TL", "PA", "CO", "TA", "RU", "SH", "DR",
    "DH",   "OH",  "FL",   "ST",  "CR",   "TS", "Pot", "Perf", "Gls", "Value", "Date"};

// The fill: one row of 23 cells per record that is not deleted and passes
// every box, in table order, text trimmed and the date as DD-MM-YYYY; the one
// row "No Results" when none passes.
std::vector<std::vector<std::string>> scoutHistoryRows(const std::vector<ScoutRecord>& table,
                                                       const HistoryFilter& filter);

// BtnRemove with the name of the grid's current row ("" for none, and for
// the "No Results" row, which names nobody): refuses
// "No Player Selected", asks "Remove player from history", then blanks the
// name of every record of that trimmed name, first in SCOUT.TXT, in place,
// record by record (the file keeps its length), then in session.ScoutTable.
// A file that can't be written is told and changes nothing. Returns whether
// anything was removed; the screen then fills the grid again.
bool removeFromScoutHistory(Session& session, std::string_view name, Messages& messages);

}  // namespace kestrin
