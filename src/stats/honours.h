#pragma once
// Club honours: where a club finished in each full league season, and every
// cup final it played, read from the Stats database.
#include <optional>
#include <string>
#include <vector>

#include "core/messages.h"
#include "core/settings.h"

namespace kestrin::stats {

struct HonoursRow {
    std::string Date;  // DD/MM/YYYY
    std::string Competition, Finish, Points, Champions, ChampionsPoints;
    bool operator==(const HonoursRow&) const = default;
};

struct Honours {
    std::string Title;
    std::vector<HonoursRow> Rows;
};

// The list's column headings, with their widths.
struct HonoursColumn {
    const char* heading;
    int width;
};
const std::vector<HonoursColumn>& honoursColumns();

// `club` is a club code or a club name as CODES.TXT gives it. Nothing, after
// a message, when there is no usable database.
std::optional<Honours> clubHonours(const Settings& settings, const std::string& club, Messages& messages);

}  // namespace kestrin::stats
