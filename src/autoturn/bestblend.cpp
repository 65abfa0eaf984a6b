#include "autoturn/bestblend.h"

#include <algorithm>
#include <set>
#include <unordered_map>

#include "match/blend.h"
#include "match/ordertables.h"

namespace kestrin {

namespace {

constexpr size_t kLineKinds = 3;
constexpr int64_t kBlendValues = 11;  // 0 to 10
constexpr size_t kMaxEntries = 500;
constexpr size_t kLastOnPitch = 11;
// No formation has a line longer than this.
constexpr size_t kMaxLineSize = 10;

// The stored lines the search visits, by kind, blend and size. A line with a
// player twice can never be part of a candidate, and a later line with the
// players of an earlier one can never come before it, so neither is kept.
struct SearchIndex {
    std::array<std::array<std::array<std::vector<const StoredLine*>, kMaxLineSize + 1>, kBlendValues>, kLineKinds>
        Lines;

    explicit SearchIndex(const LineStore& store) {
        for (size_t kind = 0; kind < kLineKinds; ++kind) {
            std::set<std::vector<int>> seen;
            for (size_t blend = 0; blend < size_t(kBlendValues); ++blend)
                for (const StoredLine& line : store.Lines[kind][blend]) {
                    if (line.Players.empty() || line.Players.size() > kMaxLineSize) continue;
                    std::vector<int> players = line.Players;
                    std::sort(players.begin(), players.end());
                    if (std::adjacent_find(players.begin(), players.end()) != players.end()) continue;
                    if (!seen.insert(std::move(players)).second) continue;
                    Lines[kind][blend][line.Players.size()].push_back(&line);
                }
        }
    }
    const std::vector<const StoredLine*>& of(size_t kind, size_t blend, size_t size) const {
        return Lines[kind][blend][size];
    }
};

bool disjoint(const StoredLine& a, const StoredLine& b) {
    for (int p : a.Players)
        if (std::find(b.Players.begin(), b.Players.end(), p) != b.Players.end()) return false;
    return true;
}

struct Candidate {
    std::vector<int> Players;  // places 2 to 11
    std::array<int, 3> Blends{};
};

// The first ten distinct players in the order defence blend, defence line,
// midfield blend, midfield line, attack blend, attack line: the lowest
// blends win, the defence's first.
std::optional<Candidate> bestCandidate(const SearchIndex& index, const FormationEntry& f) {
    const std::array<size_t, 3> sizes{size_t(f.Defence), size_t(f.Midfield), size_t(f.Attack)};
    for (size_t bd = 0; bd < size_t(kBlendValues); ++bd)
        for (const StoredLine* d : index.of(0, bd, sizes[0]))
            for (size_t bm = 0; bm < size_t(kBlendValues); ++bm)
                for (const StoredLine* m : index.of(1, bm, sizes[1])) {
                    // Every attack would repeat a player of this pair.
                    if (!disjoint(*d, *m)) continue;
                    for (size_t ba = 0; ba < size_t(kBlendValues); ++ba)
                        for (const StoredLine* a : index.of(2, ba, sizes[2])) {
                            if (!disjoint(*d, *a) || !disjoint(*m, *a)) continue;
                            Candidate c;
                            c.Players = d->Players;
                            c.Players.insert(c.Players.end(), m->Players.begin(), m->Players.end());
                            c.Players.insert(c.Players.end(), a->Players.begin(), a->Players.end());
                            c.Blends = {int(bd), int(bm), int(ba)};
                            return c;
                        }
                }
    return std::nullopt;
}

}  // namespace

std::optional<LineStore> readLineStore(SQLite::Database& db, const Club& club, const std::vector<int>& available) {
    std::unordered_map<std::string, int> byReportName;
    for (int n : available) {
        if (n < 1 || size_t(n) > club.Players.size()) continue;
        std::string name = reportName(club.Players[size_t(n - 1)].Name);
        if (!name.empty()) byReportName.emplace(std::move(name), n);
    }

    ClubMatches matches(db);
    matches.start(club.ClubFile);
    LineStore store;
    bool anyMatch = false;
    while (const std::optional<int64_t> code = matches.next()) {
        anyMatch = true;
        const MatchShirts shirts = matches.shirts(*code);
        const std::optional<MatchTeamRow> team = matches.team(*code);
        if (!team) continue;
        // Substitutes who came on at different minutes can be put back in the
        // shirts they took, which gives the kick-off; otherwise the end of
        // the match is taken as the report leaves it.
        const bool apart = shirts.TimeSub[11] != shirts.TimeSub[12];
        const ShirtNames names = apart ? kickOffNames(shirts, true) : shirts.Names;
        const std::optional<LineSizes>& sizes = apart ? team->Start : team->End;
        const std::array<int64_t, 3>& blends = apart ? team->StartBlends : team->EndBlends;
        if (!sizes) continue;

        size_t first = 1;  // shirt 2
        for (size_t kind = 0; kind < kLineKinds; ++kind) {
            const size_t count = size_t(std::max((*sizes)[kind], 0));
            const size_t from = first;
            first += count;
            const int64_t blend = blends[kind];
            if (count == 0 || from + count > kLastOnPitch || blend < 0 || blend >= kBlendValues) continue;
            std::vector<StoredLine>& entries = store.Lines[kind][size_t(blend)];
            if (entries.size() >= kMaxEntries) continue;
            StoredLine line;
            for (size_t s = from; s < from + count; ++s) {
                const auto found = byReportName.find(names[s]);
                if (found == byReportName.end()) break;
                line.Players.push_back(found->second);
            }
            if (line.Players.size() == count) entries.push_back(std::move(line));
        }
    }
    matches.finish();
    if (!anyMatch) return std::nullopt;
    return store;
}

BlendLines chooseBlendLines(const LineStore& store, const std::array<int, 3>& quotas, bool fixedFormation) {
    const SearchIndex index(store);
    constexpr size_t kOrderable = 11;
    std::array<std::optional<Candidate>, kOrderable> candidates;
    for (size_t f = 0; f < kOrderable; ++f) candidates[f] = bestCandidate(index, kFormations[f]);

    BlendLines out;
    auto allSet = [&] { return out.Lines[0] && out.Lines[1] && out.Lines[2]; };
    // A blend of 10 never passes: the threshold stops below it.
    for (int t = 1; t <= 10 && !allSet(); ++t)
        for (size_t f = 0; f < kOrderable && !allSet(); ++f) {
            const std::optional<Candidate>& c = candidates[f];
            if (!c || std::any_of(c->Blends.begin(), c->Blends.end(), [t](int b) { return b >= t; })) continue;
            const std::array<int, 3> sizes{kFormations[f].Defence, kFormations[f].Midfield, kFormations[f].Attack};
            auto from = c->Players.begin();
            for (size_t kind = 0; kind < kLineKinds; ++kind) {
                const auto to = from + sizes[kind];
                if (!out.Lines[kind] && (!fixedFormation || quotas[kind] == sizes[kind]))
                    out.Lines[kind] = std::vector<int>(from, to);
                from = to;
            }
        }
    return out;
}

}  // namespace kestrin
