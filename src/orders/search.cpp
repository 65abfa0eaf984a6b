#include "orders/search.h"

#include <algorithm>
#include <limits>

#include "core/text.h"
#include "orders/market.h"

namespace kestrin {

namespace {

template <size_t N>
bool isItem(const std::array<std::string_view, N>& items, std::string_view text) {
    return std::find(items.begin(), items.end(), text) != items.end();
}

template <size_t N>
int itemIndex(const std::array<std::string_view, N>& items, std::string_view text) {
    auto it = std::find(items.begin(), items.end(), text);
    return it == items.end() ? -1 : int(it - items.begin());
}

// How each ComboPos item tests a position: by its first three letters or the whole.
struct PositionTest {
    bool any = false;
    bool prefix = false;
    std::string_view code;
};
constexpr std::array<PositionTest, 14> kPositionTests = {{{true, false, ""},
                                                          {false, false, "AGKP"},
                                                          {false, true, "DEF"},
                                                          {false, false, "DEFC"},
                                                          {false, false, "DEFL"},
                                                          {false, false, "DEFR"},
                                                          {false, true, "MID"},
                                                          {false, false, "MIDC"},
                                                          {false, false, "MIDL"},
                                                          {false, false, "MIDR"},
                                                          {false, true, "STR"},
                                                          {false, false, "STRC"},
                                                          {false, false, "STRL"},
                                                          {false, false, "STRR"}}};

bool positionTest(const PositionTest& t, std::string_view position) {
    if (t.any) return true;
    return t.prefix ? startsWith(position, t.code) : position == t.code;
}

// The leading number of a text as val() reads it. Whole numbers, which is
// what the export holds, are read here without a copy; anything else goes
// the long way.
double number(std::string_view s) {
    size_t i = 0;
    while (i < s.size() && s[i] == ' ') ++i;
    const bool minus = i < s.size() && s[i] == '-';
    if (minus) ++i;
    const size_t digits = i;
    int64_t n = 0;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9' && i - digits < 15) n = n * 10 + (s[i++] - '0');
    if (i == digits || (i < s.size() && (s[i] == '.' || (s[i] >= '0' && s[i] <= '9')))) return val(s);
    return double(minus ? -n : n);
}

struct Band {
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
    bool passes(double v) const { return v >= low && v <= high; }
};
constexpr double kInf = std::numeric_limits<double>::infinity();

// The boxes made ready once per search.
struct Bands {
    const PositionTest* pos = nullptr;  // nullptr: "Any Player"
    bool perf = false;
    double perfMin = 0;
    bool value = false;
    Band valueBand;
    bool age = false;
    Band ageBand;
    bool skill = false;
    Band skillBand;
    bool noManaged = false;
    bool sign = false;
    std::string_view signMin;
    bool nothing = false;  // a box holds no item

    Bands(const SearchFilter& f, int64_t bankBalance) {
        const int p = itemIndex(kSearchPositionItems, f.Pos);
        if (p < 0) nothing = true;
        else if (p > 0) pos = &kPositionTests[size_t(p)];

        if (f.Perf != "Any") {
            if (!isItem(kSearchPerfItems, f.Perf)) nothing = true;
            perf = true;
            perfMin = val(f.Perf);
        }

        static constexpr std::array<Band, 7> kValueBands = {{{-kInf, kInf},
                                                             {-kInf, 0},  // the bank balance, below
                                                             {-kInf, 1000000},
                                                             {1000000, 3000000},
                                                             {3000000, 5000000},
                                                             {5000000, 7000000},
                                                             {8000000, kInf}}};
        const int v = itemIndex(kSearchValueItems, f.Value);
        if (v < 0) nothing = true;
        else if (v > 0) {
            value = true;
            valueBand = kValueBands[size_t(v)];
            if (v == 1) valueBand.high = double(bankBalance);
        }

        static constexpr std::array<Band, 6> kAgeBands = {
            {{-kInf, kInf}, {-kInf, 17}, {-kInf, 19}, {20, 29}, {30, 34}, {35, kInf}}};
        const int a = itemIndex(kSearchAgeItems, f.Age);
        if (a < 0) nothing = true;
        else if (a > 0) age = true, ageBand = kAgeBands[size_t(a)];

        static constexpr std::array<Band, 6> kSkillBands = {
            {{-kInf, kInf}, {-kInf, 65}, {66, 76}, {77, 87}, {88, 98}, {99, kInf}}};
        const int s = itemIndex(kSearchSkillItems, f.Skill);
        if (s < 0) nothing = true;
        else if (s > 0) skill = true, skillBand = kSkillBands[size_t(s)];

        if (!isItem(kSearchManagedItems, f.Managed)) nothing = true;
        noManaged = f.Managed == "No";

        if (!isItem(kSearchSignItems, f.Sign)) nothing = true;
        sign = f.Sign != "Any";
        signMin = f.Sign;
    }

    bool passes(const ExportPlayer& p) const {
        if (pos && !positionTest(*pos, std::string_view(p.Position))) return false;
        if (perf && !(perfMin <= number(std::string_view(p.Perf)))) return false;
        if (value && !valueBand.passes(double(p.MinValue))) return false;
        if (age && !ageBand.passes(number(std::string_view(p.Age)))) return false;
        if (skill && !skillBand.passes(number(std::string_view(p.TotalSkill)))) return false;
        if (noManaged && std::string_view(p.Managed) == "Y") return false;
        if (sign && std::string_view(p.Sign) < signMin) return false;
        return true;
    }
};

template <size_t N>
std::string itemsText(const std::array<std::string_view, N>& items) {
    std::string s;
    for (std::string_view i : items) s += (s.empty() ? "\"" : ", \"") + std::string(i) + "\"";
    return s;
}

}  // namespace

std::optional<std::string> searchFilterProblem(const SearchFilter& f) {
    auto check = [](std::string_view box, const std::string& text, auto const& items) -> std::optional<std::string> {
        if (isItem(items, text)) return std::nullopt;
        return std::string(box) + " \"" + text + "\" is not one of its choices: " + itemsText(items) + ".";
    };
    if (auto p = check("Position", f.Pos, kSearchPositionItems)) return p;
    if (auto p = check("Minimum Perf.", f.Perf, kSearchPerfItems)) return p;
    if (auto p = check("Value", f.Value, kSearchValueItems)) return p;
    if (auto p = check("Age", f.Age, kSearchAgeItems)) return p;
    if (auto p = check("Total Skill", f.Skill, kSearchSkillItems)) return p;
    if (auto p = check("Minimum Sign", f.Sign, kSearchSignItems)) return p;
    if (auto p = check("Include Mgd", f.Managed, kSearchManagedItems)) return p;
    return std::nullopt;
}

bool positionPasses(std::string_view item, std::string_view position) {
    const int i = itemIndex(kSearchPositionItems, item);
    return i >= 0 && positionTest(kPositionTests[size_t(i)], position);
}

std::vector<SearchHit> searchExport(std::span<const ExportClub> clubs, const SearchFilter& filter,
                                    int64_t bankBalance) {
    std::vector<SearchHit> hits;
    const std::string needle = upper(trimView(filter.Name));
    if (!needle.empty()) {
        for (uint32_t c = 0; c < clubs.size(); ++c) {
            const auto& players = clubs[c].Players;
            for (uint32_t i = 0; i < players.size(); ++i)
                if (findNoCase(std::string_view(players[i].Name), needle) != std::string_view::npos)
                    hits.push_back({c, i});
        }
        return hits;
    }
    const Bands bands(filter, bankBalance);
    if (bands.nothing) return hits;
    for (uint32_t c = 0; c < clubs.size(); ++c) {
        const auto& players = clubs[c].Players;
        for (uint32_t i = 0; i < players.size(); ++i)
            if (bands.passes(players[i])) hits.push_back({c, i});
    }
    return hits;
}

std::vector<std::vector<std::string>> searchRows(std::span<const ExportClub> clubs,
                                                 const std::vector<SearchHit>& hits) {
    std::vector<std::vector<std::string>> rows;
    if (hits.empty()) {
        rows.emplace_back(kSearchRowCells);
        rows.back()[0] = kNoResults;
        return rows;
    }
    rows.reserve(hits.size());
    for (const SearchHit& h : hits) {
        const ExportClub& club = clubs[h.club];
        std::vector<std::string> cells = scoutRowCells(club.Players[h.player]);
        cells.insert(cells.begin(), std::string(std::string_view(club.Name)));
        rows.push_back(std::move(cells));
    }
    return rows;
}

}  // namespace kestrin
