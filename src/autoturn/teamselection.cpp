#include "autoturn/teamselection.h"

#include <algorithm>

#include "autoturn/bestblend.h"
#include "core/text.h"
#include "match/ordertables.h"

namespace kestrin {

namespace {

constexpr int kOutfield = 10;
constexpr int kMaxLine = 5;


// The core skills of a position summed; nothing for a position of no line.
std::optional<int> coreSkills(const Player& p) {
    const std::string_view pos = p.Position;
    if (pos == "AGKP") return p.Shoot + p.Pass + p.Tackle;
    if (pos == "DEFC" || pos == "DEFL" || pos == "DEFR") return p.DefHd + p.Tackle + p.Strength;
    if (pos == "MIDC") return p.Pass + p.Control + p.Creativity;
    if (pos == "MIDL" || pos == "MIDR") return p.Control + p.Dribble + p.Flair;
    if (pos == "STRC" || pos == "STRL" || pos == "STRR") return p.OffHd + p.Shoot + p.Flair;
    return std::nullopt;
}

constexpr std::array<std::string_view, 3> kLineHeads = {"DEF", "MID", "STR"};

// The lines as places: a place of 0 is still to be filled.
struct Lines {
    std::array<std::vector<int>, 3> places;
    int count(int line) const { return int(places[size_t(line)].size()); }
    int total() const { return count(0) + count(1) + count(2); }
    bool holds(int line, int player) const {
        const auto& l = places[size_t(line)];
        return std::find(l.begin(), l.end(), player) != l.end();
    }
    bool inAny(int player) const { return holds(0, player) || holds(1, player) || holds(2, player); }
    void resize(int line, int n) { places[size_t(line)].resize(size_t(std::clamp(n, 0, kMaxLine)), 0); }
};

// The left of each shirt of a line of `size`, from the left touchline over.
const std::vector<int32_t>* lineLefts(int line, int size) {
    static const std::vector<int32_t> one{4200}, two{2400, 6000}, three{2400, 4200, 6000},
        four{600, 2400, 6000, 7800}, five{600, 2400, 4200, 6000, 7800};
    switch (size) {
        case 1: return line == 2 ? &one : nullptr;
        case 2: return line == 0 ? nullptr : &two;
        case 3: return &three;
        case 4: return &four;
        case 5: return &five;
        default: return nullptr;
    }
}
constexpr std::array<int32_t, 3> kLineTops = {4920, 2760, 600};

// The substitution code of a bench player by his line: 3111 to 3113 for the
// first substitute, 4111 to 4113 for the second.
int16_t substitutionCode(const Player* p, int first) {
    if (!p) return 0;
    for (int l = 0; l < 3; ++l)
        if (startsWith(p->Position, kLineHeads[size_t(l)])) return int16_t(first + l);
    return 0;
}

// The tactics the first change rule may turn to when losing, in draw order.
constexpr std::array<int16_t, 7> kLosingTactics = {11, 14, 16, 17, 18, 19, 5};

}  // namespace

bool availableForSelection(const Player& p) { return p.SuspPoints == 0 && p.Injury < 10; }

std::vector<int> rankSquad(const Club& club, PickMethod method) {
    std::vector<std::pair<int64_t, int>> scored;
    int64_t score = 0;  // a position of no line keeps the score before it
    for (size_t i = 0; i < club.Players.size(); ++i) {
        const Player& p = club.Players[i];
        if (!availableForSelection(p)) continue;
        switch (method) {
            case PickMethod::TotalSkill: score = p.TotalSkill; break;
            case PickMethod::Performance: score = int64_t(std::min<int>(p.CareerApps, 500)) * p.CareerPerf; break;
            case PickMethod::CoreSkills:
                if (std::optional<int> s = coreSkills(p)) score = *s;
                break;
            case PickMethod::BestBlend: score = p.Value; break;
        }
        scored.emplace_back(score, int(i) + 1);
    }
    std::stable_sort(scored.begin(), scored.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<int> ranked;
    ranked.reserve(scored.size());
    for (const auto& s : scored) ranked.push_back(s.second);
    return ranked;
}

std::array<int, 3> lineQuotas(const std::string& formation) {
    if (val(formation) <= 0) return {5, 5, 3};
    return {int(val(columns(formation, 1, 1))), int(val(columns(formation, 5, 1))), int(val(columns(formation, 9, 1)))};
}

std::optional<TeamPick> selectTeam(const Club& club, const PickChoice& choice, SQLite::Database* stats) {
    const std::vector<int> ranked = rankSquad(club, choice.Method);
    const std::array<int, 3> quota = lineQuotas(choice.Formation);
    const bool fixed = val(choice.Formation) > 0;
    auto position = [&](int n) -> std::string_view { return club.Players[size_t(n - 1)].Position; };

    Lines lines;
    int keeper = 0;
    if (choice.Method == PickMethod::BestBlend) {
        if (!stats) return std::nullopt;
        std::vector<int> available;
        for (size_t i = 0; i < club.Players.size(); ++i)
            if (availableForSelection(club.Players[i])) available.push_back(int(i) + 1);
        std::optional<LineStore> store = readLineStore(*stats, club, available);
        if (!store) return std::nullopt;
        const BlendLines chosen = chooseBlendLines(*store, quota, fixed);
        for (size_t l = 0; l < 3; ++l)
            if (chosen.Lines[l]) lines.places[l] = *chosen.Lines[l];
    } else {
        size_t place = 0;
        for (; place < ranked.size(); ++place) {
            const int n = ranked[place];
            if (position(n) == "AGKP" && keeper == 0) keeper = n;
            if (lines.total() < kOutfield) {
                for (int l = 0; l < 3; ++l)
                    if (startsWith(position(n), kLineHeads[size_t(l)]) && lines.count(l) < quota[size_t(l)])
                        lines.places[size_t(l)].push_back(n);
            }
            if (lines.total() == kOutfield && keeper != 0) break;
        }
        // Too few defenders: one more from further down, and the weaker of
        // the last midfielder and the last attacker makes room. Once only.
        if (lines.count(0) < 3) {
            for (size_t next = place + 1; next < ranked.size(); ++next) {
                if (!startsWith(position(ranked[next]), "DEF")) continue;
                lines.places[0].push_back(ranked[next]);
                auto& mid = lines.places[1];
                auto& att = lines.places[2];
                auto skillOf = [&](const std::vector<int>& l) {
                    return l.empty() || l.back() == 0 ? 0 : club.Players[size_t(l.back() - 1)].TotalSkill;
                };
                // An empty line's "last player" is nobody, of skill 0.
                std::vector<int>& leaving = skillOf(mid) <= skillOf(att) ? mid : att;
                if (!leaving.empty()) leaving.back() = 0;
                break;
            }
        }
    }

    if (keeper == 0)
        for (int n : ranked)
            if (position(n) == "AGKP") {
                keeper = n;
                break;
            }

    // An empty line takes the room the others leave.
    for (int l = 0; l < 3; ++l) {
        if (lines.count(l) != 0) continue;
        int size = quota[size_t(l)];
        if (!fixed) size = kOutfield - lines.total();
        lines.resize(l, std::min(size, kMaxLine));
    }

    if (lines.total() < kOutfield) {
        for (size_t i = 0; i < club.Players.size() && lines.total() < kOutfield; ++i) {
            const int n = int(i) + 1;
            if (!availableForSelection(club.Players[i]) || position(n) == "AGKP" || lines.inAny(n)) continue;
            for (int l = 0; l < 3; ++l) {
                if (lines.count(l) < quota[size_t(l)]) {
                    lines.places[size_t(l)].push_back(n);
                    break;
                }
            }
        }
    }

    for (int l = 0; l < 3; ++l) {
        for (int& place : lines.places[size_t(l)]) {
            if (place != 0) continue;
            for (int n : ranked) {
                if (startsWith(position(n), kLineHeads[size_t(l)]) && !lines.holds(l, n)) {
                    place = n;
                    break;
                }
            }
        }
    }

    std::array<int, 2> bench{};
    for (int b = 0; b < 2; ++b)
        for (int n : ranked)
            if (position(n) != "AGKP" && !lines.inAny(n) && (b == 0 || n != bench[0])) {
                bench[size_t(b)] = n;
                break;
            }

    TeamPick pick;
    pick.Defence = lines.count(0);
    pick.Midfield = lines.count(1);
    pick.Attack = lines.count(2);
    pick.Shirts[0] = keeper;
    size_t shirt = 1;
    for (auto& line : lines.places) {
        // Left-sided players first, then central ones, then the rest.
        std::vector<int> ordered;
        for (char side : {'L', 'C', '\0'})
            for (int n : line) {
                const std::string_view pos = n ? position(n) : std::string_view();
                const char last = pos.empty() ? '\0' : pos.back();
                const bool taken = last == 'L' || last == 'C';
                if (side ? last == side : !taken) ordered.push_back(n);
            }
        line = ordered;
        for (int n : line)
            if (shirt < pick.Shirts.size()) pick.Shirts[shirt++] = n;
    }
    pick.Shirts[11] = bench[0];
    pick.Shirts[12] = bench[1];
    return pick;
}

void writeTeamOrders(Fixture& f, const Club& club, const TeamPick& pick, const RandomSource& rnd) {
    for (size_t s = 0; s < f.Slots.size(); ++s) {
        const Player* p = club.player(pick.Shirts[s]);
        f.Slots[s].Player = p ? p->Name : std::string();
    }
    const std::array<int, 3> sizes = {pick.Defence, pick.Midfield, pick.Attack};
    int first = 2;
    for (int l = 0; l < 3; ++l) {
        if (const std::vector<int32_t>* lefts = lineLefts(l, sizes[size_t(l)])) {
            for (size_t i = 0; i < lefts->size(); ++i) {
                const size_t s = size_t(first) - 1 + i;
                if (s >= f.Slots.size()) break;
                f.Slots[s].Left = (*lefts)[i];
                f.Slots[s].Top = kLineTops[size_t(l)];
            }
        }
        first += sizes[size_t(l)];
    }
    for (TeamSlot& slot : f.Slots) slot.Left2 = slot.Top2 = 0;

    f.Defence = int16_t(pick.Defence);
    f.Midfield = int16_t(pick.Midfield);
    f.Attack = int16_t(pick.Attack);
    f.Revolver = f.Snappy = 0;
    f.DefAgg = f.MidAgg = f.AttAgg = 3;
    f.Captain = 7;
    f.Penalties = 11;
    f.Corners = 7;
    f.FreeKicks = 11;
    f.CornersAiming = 0;
    for (int s = 1; s <= 11; ++s) {
        const Player* p = club.player(pick.Shirts[size_t(s - 1)]);
        if (!p) continue;
        const std::string special = trim(p->SpecialSkill);
        if (special == "CAP") f.Captain = int16_t(s);
        if (special == "PENS") f.Penalties = int16_t(s);
        if (special == "DBP") f.Corners = int16_t(s);
        if (special == "FK") f.FreeKicks = int16_t(s);
    }
    f.Pace = 3;
    f.PassHeight = 1;
    f.PassLength = 1;

    const int16_t one = substitutionCode(club.player(pick.Shirts[11]), 3111);
    f.SubOneTime = 50;
    f.SubOneAction = {one, one, 0};
    const int16_t two = substitutionCode(club.player(pick.Shirts[12]), 4111);
    f.SubTwoTime = 70;
    f.SubTwoAction = {two, two, 0};

    f.Tactics = 12;
    f.ChangeOneTime = 60;
    const int16_t formation =
        int16_t(val(FormationCode(formationNumbersText(f.Defence, f.Midfield, f.Attack))));
    f.ChangeOneFormation = {formation, formation, formation};
    const int draw = std::clamp(int(rnd() * 7), 0, 6);
    f.ChangeOneTactic = {kLosingTactics[size_t(draw)], 13, 13};
}

}  // namespace kestrin
