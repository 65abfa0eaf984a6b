#pragma once
// The skill comparison: one player of the squad set against others of the
// squad and against scouted players, skill by skill.
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"
#include "orders/orderresult.h"
#include "orders/scoutfile.h"

namespace kestrin {

// btnSkill with the text of the current row of grdSquad ("" for none).
struct CompareStart {
    OrderResult check;               // refused: "No player selected"
    std::string baseName;            // the bare name of the base player
    std::string prompt;              // txtPlayer: "Compare " name
    std::vector<std::string> candidates;  // lvwPlayerList: scout records "(Scout)" first, then the squad
};
CompareStart startComparison(const Club& club, std::string_view rowText, const std::vector<ScoutRecord>& scoutTable);

// btnAdd with the selected line of lvwPlayerList, or none. Accepted: the
// line to copy into lvwCompList.
OrderResult addComparison(const std::optional<std::string>& selected);

struct CompareColumn {
    std::string_view head;
    int width;  // twips
};
extern const std::array<CompareColumn, 13> kCompareColumns;  // "Name", "Pos", then the eleven skills

// One row of the result table: the name, the position, eleven skill cells.
struct CompareRow {
    std::string Name;
    std::string Pos;
    std::array<std::string, 11> Cells;
    bool operator==(const CompareRow&) const = default;
};

// OKButton: the base player's row with his skills as they stand, then for
// each line of lvwCompList its rows, each cell "+n", "-n" or "" against the
// base. A "(Scout)" line brings one row per scout record whose 30-character
// name holds the line's name in any case, each " (Scouted)".
std::vector<CompareRow> compareRows(const Club& club, std::string_view baseName,
                                    const std::vector<std::string>& compLines,
                                    const std::vector<ScoutRecord>& scoutTable);

}  // namespace kestrin
