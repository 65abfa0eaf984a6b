#include "orders/compare.h"

#include "core/text.h"

namespace kestrin {

const std::array<CompareColumn, 13> kCompareColumns = {{{"Name", 2400},
                                                        {"Pos", 650},
                                                        {"Pa", 550},
                                                        {"Co", 550},
                                                        {"Ta", 550},
                                                        {"Ru", 550},
                                                        {"Sh", 550},
                                                        {"Dr", 550},
                                                        {"DH", 550},
                                                        {"OH", 550},
                                                        {"Fl", 550},
                                                        {"St", 550},
                                                        {"Cr", 550}}};

namespace {

constexpr std::string_view kScoutTag = "(Scout)";

std::array<int16_t, 11> skillsOf(const Player& p) {
    std::array<int16_t, 11> s{};
    for (int i = 0; i < 11; ++i) s[size_t(i)] = p.skill(i);
    return s;
}

CompareRow row(std::string name, std::string pos, const std::array<int16_t, 11>& skills,
               const std::array<int16_t, 11>& base) {
    CompareRow r{std::move(name), std::move(pos), {}};
    for (size_t i = 0; i < skills.size(); ++i) {
        const int d = skills[i] - base[i];
        r.Cells[i] = d > 0 ? "+" + std::to_string(d) : d < 0 ? std::to_string(d) : std::string();
    }
    return r;
}

}  // namespace

CompareStart startComparison(const Club& club, std::string_view rowText, const std::vector<ScoutRecord>& scoutTable) {
    CompareStart s;
    s.baseName = rowPlayerName(club, rowText);
    if (s.baseName.empty()) {
        s.check = OrderResult::refuse("No player selected", "Please select a player to compare before clicking this button");
        return s;
    }
    s.check = OrderResult::accept();
    s.prompt = "Compare " + s.baseName;
    for (const ScoutRecord& r : scoutTable)
        if (!trimView(r.Name).empty()) s.candidates.push_back(r.Position + " " + r.Name + " " + std::string(kScoutTag));
    for (const Player& p : club.Players)
        if (p.Name != s.baseName) s.candidates.push_back(p.Position + " " + p.Name);
    return s;
}

OrderResult addComparison(const std::optional<std::string>& selected) {
    if (!selected)
        return OrderResult::refuse("No Player Selected",
                                   "Please select a player from the player list to add to the compare list");
    return OrderResult::accept(*selected);
}

std::vector<CompareRow> compareRows(const Club& club, std::string_view baseName,
                                    const std::vector<std::string>& compLines,
                                    const std::vector<ScoutRecord>& scoutTable) {
    static const Player nobody{};
    const Player* found = club.player(club.findPlayer(baseName));
    const Player& basePlayer = found ? *found : nobody;
    const std::array<int16_t, 11> base = skillsOf(basePlayer);

    std::vector<CompareRow> rows;
    CompareRow first{basePlayer.Name, basePlayer.Position, {}};
    for (size_t i = 0; i < base.size(); ++i) first.Cells[i] = std::to_string(base[i]);
    rows.push_back(std::move(first));

    for (const std::string& line : compLines) {
        if (line.find(kScoutTag) != std::string::npos) {
            // The name stands from place 6 up to the blank before its "(":
            // four letters of position and a blank ahead of it.
            const size_t paren = line.find('(');
            const std::string name = paren > 5 ? trim(std::string_view(line).substr(5, paren - 6)) : std::string();
            if (name.empty()) continue;
            for (const ScoutRecord& r : scoutTable)
                if (findNoCase(r.Name, name) != std::string::npos)
                    rows.push_back(row(trim(r.Name) + " (Scouted)", r.Position, r.Skills, base));
            continue;
        }
        const Player* p = club.player(club.findPlayer(trim(fromColumn(line, 6))));
        if (p) rows.push_back(row(p->Name, p->Position, skillsOf(*p), base));
    }
    return rows;
}

}  // namespace kestrin
