// The demo league's season: a fixture list per league, results drawn from
// the clubs' strength, tables that add up, and a cup per league that ends
// in a final on neutral ground. Every weekly file tells these same matches.
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "core/text.h"
#include "demo/league.h"

namespace kestrin::demo {

namespace {

constexpr int kSeasonRounds = 38;
constexpr int kCupGap = 6;  // weeks between two rounds of a cup

// The goal types the reports name, as the game spells them; the second "low
// shot" of the game's list is never told apart from the first.
constexpr int kGoalTypes[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16, 17, 18, 19, 20};

int poisson(Random& r, double mean) {
    // Knuth's product of uniforms: few draws for the small means of football.
    const double limit = std::exp(-mean);
    double product = 1.0;
    int k = 0;
    for (;;) {
        product *= double(r.next() >> 11) / double(uint64_t(1) << 53);
        if (product <= limit || k >= 9) return k;
        ++k;
    }
}

int stagesFor(size_t clubs) {
    int stages = 0;
    while ((size_t(1) << stages) < clubs) ++stages;
    return clubs < 2 ? 0 : stages;
}

std::string cupRoundName(int left) {
    switch (left) {
        case 2: return "Final";
        case 4: return "SF";
        case 8: return "QF";
        default: return "Last " + std::to_string(left);
    }
}

}  // namespace

std::string League::competitionName(int league) {
    static const char* const names[9] = {"",
                                         "English Premier",
                                         "English 1st Division",
                                         "English 2nd Division",
                                         "English 3rd Division",
                                         "French Premier",
                                         "German Premier",
                                         "Italian Premier",
                                         "Scottish Premier"};
    return names[std::clamp(league, 1, 8)];
}

std::string League::fileCode(int league) {
    static const char* const codes[9] = {"", "ENG", "ENG1", "ENG2", "ENG3", "FRA", "GER", "ITA", "SCO"};
    return codes[std::clamp(league, 1, 8)];
}

void League::makeSeason() {
    seasonRng_ = Random(options_.seed * 0x2545F4914F6CDD1Dull + 17);
    standings_.assign(clubs_.size(), Standing{});
    members_.assign(size_t(leagueCount_) + 1, {});
    cups_.assign(size_t(leagueCount_) + 1, Cup{});
    for (size_t i = 0; i < clubs_.size(); ++i)
        if (clubs_[i].InLeague) members_[size_t(clubs_[i].League)].push_back(i);
    // The fixture list's order, the same every season.
    for (auto& m : members_)
        for (size_t i = m.size(); i > 1; --i) std::swap(m[i - 1], m[size_t(seasonRng_.range(0, int(i) - 1))]);
    // The weeks of this season before the first are played unseen.
    for (int round = 0; round < seasonWeek_; ++round) playRound(round, false);
}

int League::strength(size_t club) const {
    // The mean skill of the best thirteen who can play.
    std::vector<int> skills;
    for (const DemoPlayer& p : clubs_[club].Players)
        if (p.rec.Injury == 0 && p.rec.SuspPoints == 0) skills.push_back(p.rec.Skill);
    std::sort(skills.begin(), skills.end(), std::greater<>());
    const size_t n = std::min<size_t>(13, skills.size());
    int sum = 0;
    for (size_t i = 0; i < n; ++i) sum += skills[i];
    return n ? sum / int(n) : 1;
}

std::vector<std::pair<size_t, size_t>> League::leaguePairs(int league, int round) const {
    const std::vector<size_t>& m = members_[size_t(league)];
    std::vector<std::pair<size_t, size_t>> out;
    if (m.size() < 2) return out;
    // The circle method; an odd league has a club at rest each week. Small
    // leagues go round their list again until the season's weeks are filled.
    const size_t n = m.size() + m.size() % 2;
    const int half = int(n) - 1;
    const int r = round % (2 * half);
    const int rr = r % half;
    for (size_t i = 0; i < n / 2; ++i) {
        size_t a = (size_t(rr) + i) % (n - 1);
        size_t b = i == 0 ? n - 1 : (size_t(rr) + n - 1 - i) % (n - 1);
        if (a >= m.size() || b >= m.size()) continue;
        if ((i == 0 && rr % 2 == 1) || (i > 0 && i % 2 == 1)) std::swap(a, b);
        if (r >= half) std::swap(a, b);  // the return matches
        out.emplace_back(m[a], m[b]);
    }
    return out;
}

bool League::cupRoundAt(int league, int round, int& stage) const {
    const int stages = cups_[size_t(league)].stages;
    for (int s = 0; s < stages; ++s)
        if (round == kSeasonRounds - 1 - kCupGap * (stages - 1 - s)) {
            stage = s;
            return true;
        }
    return false;
}

void League::drawCup(int league, std::vector<size_t> clubs, bool first) {
    Cup& cup = cups_[size_t(league)];
    for (size_t i = clubs.size(); i > 1; --i) std::swap(clubs[i - 1], clubs[size_t(seasonRng_.range(0, int(i) - 1))]);
    cup.ties.clear();
    cup.byes.clear();
    // The first round brings the field down to a power of two; the rest get a bye.
    const size_t ties = first ? clubs.size() - (size_t(1) << (cup.stages - 1)) : clubs.size() / 2;
    for (size_t i = 0; i < clubs.size(); ++i) {
        if (i < 2 * ties && i % 2 == 1) cup.ties.emplace_back(clubs[i - 1], clubs[i]);
        if (i >= 2 * ties) cup.byes.push_back(clubs[i]);
    }
}

Match League::playMatch(int league, size_t home, size_t away, bool told) {
    Match m;
    m.league = league;
    m.side[0].club = home;
    m.side[1].club = away;
    const int edge = strength(home) - strength(away);
    m.side[0].goals = poisson(seasonRng_, std::clamp(1.4 + 0.12 * edge, 0.25, 4.0));
    m.side[1].goals = poisson(seasonRng_, std::clamp(1.1 - 0.12 * edge, 0.2, 3.5));
    m.attendance = seasonRng_.range(40, 420) * 100 + seasonRng_.range(0, 99);
    if (told) {
        // The details come from a stream of their own, so telling a week
        // leaves the results of the weeks after it as they were.
        Random r(options_.seed ^ (uint64_t(week_) << 40) ^ (uint64_t(home) << 20) ^ uint64_t(away) ^
                 0xD1B54A32D192ED03ull);
        fillSide(m, 0, r);
        fillSide(m, 1, r);
        m.side[0].possession = r.range(35, 65);
        m.side[1].possession = 100 - m.side[0].possession;
        // Goal minutes differ across the match: a summary's goal is found by its minute.
        std::vector<int> minutes;
        for (int g = m.side[0].goals + m.side[1].goals; g > 0;) {
            const int minute = r.range(2, 90);
            if (std::find(minutes.begin(), minutes.end(), minute) != minutes.end()) continue;
            minutes.push_back(minute);
            --g;
        }
        size_t next = 0;
        for (MatchSide& s : m.side)
            for (MatchGoal& g : s.scored) g.minute = minutes[next++];
        for (MatchSide& s : m.side)
            std::sort(s.scored.begin(), s.scored.end(),
                      [](const MatchGoal& a, const MatchGoal& b) { return a.minute < b.minute; });
    }
    return m;
}

void League::fillSide(Match& m, int s, Random& r) const {
    MatchSide& side = m.side[size_t(s)];
    const DemoClub& club = clubs_[side.club];
    // The thirteen: the best keeper who can play, the ten best others, two
    // more on the bench; the unfit only when no one else is left.
    std::vector<const DemoPlayer*> order;
    for (const DemoPlayer& p : club.Players) order.push_back(&p);
    auto fit = [](const DemoPlayer* p) { return p->rec.Injury == 0 && p->rec.SuspPoints == 0; };
    std::stable_sort(order.begin(), order.end(), [&](const DemoPlayer* a, const DemoPlayer* b) {
        if (fit(a) != fit(b)) return fit(a);
        return a->rec.Skill > b->rec.Skill;
    });
    std::vector<const DemoPlayer*> team;
    for (const DemoPlayer* p : order)
        if (startsWith(p->rec.Position, "AGK")) {
            team.push_back(p);
            break;
        }
    for (const DemoPlayer* p : order)
        if (team.size() < 13 && std::find(team.begin(), team.end(), p) == team.end() &&
            (team.size() >= 11 || !startsWith(p->rec.Position, "AGK")))
            team.push_back(p);
    for (const DemoPlayer* p : order)
        if (team.size() < 13 && std::find(team.begin(), team.end(), p) == team.end()) team.push_back(p);

    for (size_t i = 0; i < 13; ++i) {
        SheetRow& row = side.rows[i];
        row.name = team[i]->rec.Name;
        row.position = team[i]->rec.Position;
        row.skill = std::clamp<int>(team[i]->rec.Skill, 1, 99);
        row.perf = i < 11 ? r.range(3, 10) : 0;
        for (auto& w : row.work) {
            w[0] = i < 11 ? r.range(0, 30) : 0;
            w[1] = w[0] ? r.range(0, w[0]) : 0;
        }
    }
    // The bench: one or both come on.
    for (size_t i = 11; i < 13; ++i)
        if (r.chance(70)) {
            SheetRow& row = side.rows[i];
            row.sub = r.range(46, 85);
            row.perf = r.range(3, 9);
            row.work[0] = {r.range(2, 12), 1};
        }

    // Strikers score most, then midfield; the keeper never.
    for (int g = 0; g < side.goals; ++g) {
        std::vector<int> weighted;
        for (int row = 2; row <= 13; ++row) {
            const SheetRow& sr = side.rows[size_t(row - 1)];
            if (row > 11 && sr.sub == 0) continue;
            const int w = startsWith(sr.position, "STR") ? 5 : startsWith(sr.position, "MID") ? 2 : 1;
            weighted.insert(weighted.end(), size_t(w), row);
        }
        MatchGoal goal;
        goal.row = weighted[size_t(r.range(0, int(weighted.size()) - 1))];
        goal.type = kGoalTypes[r.range(0, int(std::size(kGoalTypes)) - 1)];
        if (r.chance(65))
            do goal.assist = r.range(2, 11);
            while (goal.assist == goal.row);
        goal.worth = r.range(1, 10);
        side.scored.push_back(goal);
        auto& shot = side.rows[size_t(goal.row - 1)].work[4];
        shot[0] = std::max(shot[0], shot[1] + 1) + 1;
        ++shot[1];
    }
    side.shotsOn = side.goals + r.range(1, 6);
    side.shotsOff = r.range(0, 8);
    side.performance = r.range(30, 95);
    side.style = r.range(3, 15);
    side.movement = r.range(3, 15);
    side.cap = r.range(1, 9);
    side.pens = r.range(0, 2);
    side.corners = r.range(0, 12);
    side.freeKicks = r.range(2, 16);
    side.support = r.range(10, 90);
    side.formation = r.range(1, 15);
    side.endFormation = r.chance(30) ? r.range(1, 15) : 0;
    side.tactic = r.range(1, 22);
    side.endTactic = r.chance(15) ? 0 : r.range(1, 22);
    for (size_t b = 0; b < 3; ++b) {
        // The game rates a line's blend from 0 to 10.
        side.blends[b] = r.range(1, 9);
        side.blends[b + 3] = std::clamp(side.blends[b] + r.range(-2, 2), 0, 10);
    }
    int best = 1;
    for (int row = 1; row <= 13; ++row)
        if (side.rows[size_t(row - 1)].perf > side.rows[size_t(best - 1)].perf) best = row;
    side.mom = best;
    for (int b = r.range(0, 2); b > 0; --b) side.booked.emplace_back(r.range(2, 11), r.range(5, 88));
    std::sort(side.booked.begin(), side.booked.end(), [](auto& a, auto& b) { return a.second < b.second; });
    // Now and then a booked man goes on to be sent off.
    if (!side.booked.empty() && side.booked[0].second < 80 && r.chance(20))
        side.sentOff.emplace_back(side.booked[0].first, r.range(side.booked[0].second + 1, 89));
}

void League::playRound(int round, bool told) {
    if (told) matches_.clear();
    if (round == 0) {
        // A new season: tables start again and every cup is drawn.
        std::fill(standings_.begin(), standings_.end(), Standing{});
        for (int league = 1; league <= leagueCount_; ++league) {
            Cup& cup = cups_[size_t(league)];
            cup = Cup{};
            cup.stages = stagesFor(members_[size_t(league)].size());
            if (cup.stages > 0) drawCup(league, members_[size_t(league)], true);
        }
    }
    auto record = [this](size_t club, int scored, int conceded) {
        Standing& s = standings_[club];
        ++s.played;
        s.goalsFor += scored;
        s.goalsAgainst += conceded;
        const char result = scored > conceded ? 'W' : scored == conceded ? 'D' : 'L';
        (result == 'W' ? s.won : result == 'D' ? s.drawn : s.lost) += 1;
        s.form = (std::string(1, result) + s.form).substr(0, 5);
    };
    for (int league = 1; league <= leagueCount_; ++league) {
        for (const auto& [home, away] : leaguePairs(league, round)) {
            Match m = playMatch(league, home, away, told);
            m.leagueRound = round + 1;
            record(home, m.side[0].goals, m.side[1].goals);
            record(away, m.side[1].goals, m.side[0].goals);
            if (told) matches_.push_back(std::move(m));
        }
        int stage = 0;
        if (!cupRoundAt(league, round, stage)) continue;
        Cup& cup = cups_[size_t(league)];
        std::vector<size_t> through = cup.byes;
        const int left = 1 << (cup.stages - stage);
        for (const auto& [home, away] : cup.ties) {
            Match m = playMatch(league, home, away, told);
            m.cup = true;
            m.cupRound = cupRoundName(left);
            m.homeThrough = m.side[0].goals != m.side[1].goals ? m.side[0].goals > m.side[1].goals
                                                               : seasonRng_.chance(50);
            through.push_back(m.homeThrough ? home : away);
            if (told) matches_.push_back(std::move(m));
        }
        if (stage + 1 < cup.stages)
            drawCup(league, through, false);
        else {
            cup.ties.clear();
            cup.winner = through.empty() ? -1 : long(through[0]);
        }
    }
}

std::vector<size_t> League::table(int league) const {
    std::vector<size_t> clubs = members_[size_t(league)];
    std::stable_sort(clubs.begin(), clubs.end(), [&](size_t a, size_t b) {
        const Standing &x = standings_[a], &y = standings_[b];
        if (x.points() != y.points()) return x.points() > y.points();
        const int gx = x.goalsFor - x.goalsAgainst, gy = y.goalsFor - y.goalsAgainst;
        if (gx != gy) return gx > gy;
        if (x.goalsFor != y.goalsFor) return x.goalsFor > y.goalsFor;
        return clubs_[a].Name < clubs_[b].Name;
    });
    return clubs;
}

}  // namespace kestrin::demo

namespace kestrin::demo {

void League::weekTrades() {
    // Deals between clubs no manager of ours runs, so the Squadsheets are
    // untouched: each deal is an exchange of two players, and squads keep
    // their size. The trade lines know a club by its first 15 characters,
    // so only clubs whose short name is their own take part.
    transfers_.clear();
    loans_.clear();
    squadMoves_.clear();
    std::map<std::string, int> shortNames;
    for (const DemoClub& c : clubs_) ++shortNames[c.Name.substr(0, 15)];
    std::vector<size_t> open;
    for (size_t i = 0; i < clubs_.size(); ++i)
        if (!clubs_[i].managed() && shortNames[clubs_[i].Name.substr(0, 15)] == 1) open.push_back(i);
    if (open.size() < 2) return;
    auto nameTaken = [](const DemoClub& c, const std::string& name) {
        return std::any_of(c.Players.begin(), c.Players.end(), [&](const DemoPlayer& p) { return p.rec.Name == name; });
    };
    for (int kind = 0; kind < 3; ++kind)
        for (int deal = seasonRng_.range(1, kind == 0 ? 6 : 3); deal > 0; --deal) {
            const size_t a = open[size_t(seasonRng_.range(0, int(open.size()) - 1))];
            const size_t b = open[size_t(seasonRng_.range(0, int(open.size()) - 1))];
            if (a == b) continue;
            DemoClub &from = clubs_[a], &to = clubs_[b];
            const size_t i = size_t(seasonRng_.range(0, int(from.Players.size()) - 1));
            const size_t j = size_t(seasonRng_.range(0, int(to.Players.size()) - 1));
            DemoPlayer &p = from.Players[i], &q = to.Players[j];
            if (p.rec.LoanLength > 0 || q.rec.LoanLength > 0 || nameTaken(to, p.rec.Name) ||
                nameTaken(from, q.rec.Name))
                continue;
            const int contract = seasonRng_.range(12, 99);
            std::swap(p, q);  // p now plays for `from`, q for `to`
            for (const auto& [player, seller, buyer] :
                 {std::tuple<const DemoPlayer&, const DemoClub&, const DemoClub&>{q, from, to}, {p, to, from}}) {
                const std::string name = player.rec.Name;
                const std::string head = fixedWidth(fixedWidth(name, 15) + " (" + player.rec.Position + ")", 50) +
                                         fixedWidth(seller.Name.substr(0, 15), 16) +
                                         fixedWidth(buyer.Name.substr(0, 15), 17) + padLeft(std::to_string(contract), 2);
                if (kind == 0)
                    transfers_.push_back(head + std::to_string(player.rec.Value) + " + " +
                                         std::to_string(seasonRng_.range(0, 20) * 500));
                else if (kind == 1)
                    loans_.push_back(head + std::to_string(seasonRng_.range(0, 8) * 1000) + " + 0");
                else
                    squadMoves_.push_back(fixedWidth(name, 15) + " (" + player.rec.Position + ") joins " + buyer.Name +
                                          " from " + seller.Name + " because he wanted first team football");
            }
            if (kind == 1)
                // Lent, not sold: each goes back to his club when the loan runs out.
                for (auto [player, lender] : {std::pair<DemoPlayer*, const DemoClub*>{&q, &from}, {&p, &to}}) {
                    player->loanFrom = lender->Name;
                    player->rec.LoanLength = int16_t(seasonRng_.range(2, 12));
                    player->rec.LoaningClub = Tokens(lender->Name)[1];
                    player->rec.WeeksInReserves = 0;
                }
        }
}

}  // namespace kestrin::demo
