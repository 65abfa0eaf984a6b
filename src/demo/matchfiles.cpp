// The week's matches as the game writes them: the long match report of each
// managed club, the short reports of its Squadsheet, the result files and
// the league tables of weekly.zip. Phrases and columns are those the readers
// look for; the words around them are our own.
#include <algorithm>
#include <optional>

#include "core/text.h"
#include "demo/league.h"
#include "demo/names.h"
#include "stats/lookups.h"

namespace kestrin::demo {

namespace {

std::string num(int64_t n) { return std::to_string(n); }

// The report's words for formations, tactics, goals and ball work are the
// Stats tables' own, so the demo and the parser can't drift apart.
std::string formationWords(int number) {
    return number >= 1 && number <= int(stats::kFormationReportTexts.size())
               ? std::string(stats::kFormationReportTexts[size_t(number - 1)])
               : std::string();
}
std::string tacticWords(int number) { return std::string(stats::kTactics[size_t(number)]); }
std::string goalWords(int type) { return std::string(stats::kGoalTypes[size_t(type - 1)]); }
std::vector<std::string_view> ballWorkPhrases() {
    std::vector<std::string_view> all(stats::kBallWinPhrases.begin(), stats::kBallWinPhrases.end());
    all.insert(all.end(), stats::kBallLossPhrases.begin(), stats::kBallLossPhrases.end());
    return all;
}

std::string blends(const std::array<int, 6>& b, size_t from) {
    return num(b[from]) + "  " + num(b[from + 1]) + "  " + num(b[from + 2]);
}

std::string pair(const std::array<int, 2>& w) { return num(w[0]) + " / " + num(w[1]); }

// The colours a report gives its lines, as pairs of a background and a text
// colour, "&H00BBGGRR&"; and the line that parts its sections.
enum class Shade { Play, Goal, Booking, SendingOff, Change, FullTime };
std::array<std::string, 2> colourPair(Shade shade) {
    switch (shade) {
        case Shade::Play: return {"&H00E8F5E8&", "&H00005000&"};
        case Shade::Goal: return {"&H0000C8FF&", "&H00000000&"};
        case Shade::Booking: return {"&H0080FFFF&", "&H00000000&"};
        case Shade::SendingOff: return {"&H002020C0&", "&H00FFFFFF&"};
        case Shade::Change: return {"&H00F5E8E0&", "&H00602000&"};
        case Shade::FullTime: return {"&H00603010&", "&H00FFFFFF&"};
    }
    return {};
}
const std::string kSectionLine(43, '-');

}  // namespace

std::string League::matchReportFileName(const DemoClub& club) const { return club.Key + "#REP.TXT"; }

// The league's round, or the cup's, as the second line of a report names it.
static std::string roundText(const Match& m) { return m.cup ? m.cupRound : num(m.leagueRound); }

static std::string competitionOf(const Match& m) {
    return m.cup ? std::string(kCupName) : League::competitionName(m.league);
}

void League::matchReportLines(const Match& m, std::vector<std::string>& out) const {
    const std::string home = clubs_[m.side[0].club].Name;
    const std::string away = upper(clubs_[m.side[1].club].Name);  // the heading's right half is in capitals
    const std::array<std::string, 2> names{home, away};
    const std::array<char, 2> letter{'H', 'A'};
    const DemoClub& host = clubs_[m.side[0].club];
    const std::string ground = m.neutral()       ? std::string("the National Stadium")
                               : host.managed() ? host.Header.Stadium
                                                : names::kStadiums[m.side[0].club % names::kStadiums.size()];
    Random r(options_.seed ^ (uint64_t(week_) << 36) ^ (uint64_t(m.side[0].club) << 18) ^ m.side[1].club);
    auto who = [&](int s, int row) {
        return m.side[size_t(s)].rows[size_t(row - 1)].name + " (" + letter[size_t(s)] + " " + num(row) + ")";
    };
    auto plain = [&](int s, int row) { return m.side[size_t(s)].rows[size_t(row - 1)].name; };

    out.push_back(home + " v " + away);
    out.push_back(competitionOf(m) + " " + roundText(m) + " played at " + ground);
    out.push_back("The attendance was " + num(m.attendance) + " with " +
                  (r.chance(50) ? "a dry pitch and a light wind" : "rain falling all afternoon"));
    out.push_back(home + " started with a formation of " + formationWords(m.side[0].formation) + " and " + away +
                  " with a formation of " + formationWords(m.side[1].formation));
    out.push_back(home + " used the tactic " + tacticWords(m.side[0].tactic) + " and " + away + " used the tactic " +
                  tacticWords(m.side[1].tactic));
    out.push_back(home + " started the game with a blend of " + blends(m.side[0].blends, 0) + " and " + away +
                  " started the game with a blend of " + blends(m.side[1].blends, 0));
    out.push_back("");
    out.push_back(kSectionLine);

    // The moments of the match, by minute. A goal's moment ends with the
    // scoreboard, the home name and a comma, which a replay leaves out.
    struct Moment {
        int minute;
        std::vector<std::string> lines;
        Shade shade = Shade::Play;
        int goalSide = -1;
    };
    std::vector<Moment> moments;
    auto at = [&](int minute, std::vector<std::string> lines, Shade shade = Shade::Play, int goalSide = -1) {
        moments.push_back({minute, std::move(lines), shade, goalSide});
    };
    at(1, {" 1 mins - The game is under way", "The players line up to a loud welcome."});
    // Every ball-work phrase, spread over the match and both sides.
    const std::vector<std::string_view> ballWork = ballWorkPhrases();
    for (size_t k = 0; k < ballWork.size(); ++k) {
        const int s = int(k % 2);
        const int row = r.range(2, 11), rival = r.range(2, 11);
        const std::string phrase(ballWork[k]);
        // The pitch marker behind it: the side on the ball, or "M" for the middle.
        at(3 + int(k) * 4, {num(3 + int(k) * 4) + " mins - Play flows from end to end",
                            who(s, row) + phrase + (phrase.back() == ' ' ? who(1 - s, rival) : std::string()),
                            k % 4 == 3 ? std::string("M") : std::string(1, letter[size_t(s)])});
    }
    for (int s = 0; s < 2; ++s) {
        const MatchSide& side = m.side[size_t(s)];
        const std::string club = s == 0 ? home : clubs_[side.club].Name;
        for (const MatchGoal& g : side.scored) {
            std::vector<std::string> lines{num(g.minute) + " mins - The ball is in the net",
                                           who(s, g.row) + " SCORED for " + club + " with a " +
                                               goalWords(g.type) + " after " + num(g.minute) + " minutes"};
            if (g.assist) lines.push_back("And set up by " + plain(s, g.assist) + " which was a fine ball");
            lines.push_back(std::string(1, letter[size_t(s)]) + "G");
            at(g.minute, std::move(lines), Shade::Goal, s);
        }
        for (const auto& [row, minute] : side.booked)
            at(minute, {num(minute) + " mins - Play is stopped",
                        who(s, row) + " fouls " + who(1 - s, r.range(2, 11)),
                        plain(s, row) + " has been booked", "The referee had no choice there."},
               Shade::Booking);
        for (const auto& [row, minute] : side.sentOff)
            at(minute, {num(minute) + " mins - Trouble on the pitch", who(1 - s, r.range(2, 11)) + " is fouled by " +
                                                                          who(s, row),
                        plain(s, row) + " has been SENT off", "He walks slowly to the tunnel."},
               Shade::SendingOff);
        const int shotAt = 20 + 11 * s;
        at(shotAt, {num(shotAt) + " mins - A spell of pressure",
                    who(1 - s, 1) + " saves a shot from " + plain(s, r.range(2, 11)),
                    who(s, r.range(2, 11)) + " fires wide of the post",
                    who(s, r.range(2, 11)) + " drives the ball over the bar",
                    who(s, r.range(2, 11)) + " sees his shot charged down by a defender",
                    who(s, r.range(2, 11)) + " has his shot deflected off the wall",
                    who(s, r.range(2, 11)) + " HIT THE post with a header", std::string(1, letter[size_t(s)]) + "S"});
        if (side.corners > 0)
            at(15 + 11 * s, {num(15 + 11 * s) + " mins - Pressure down the flank",
                             who(s, 2 + side.corners % 10) + " forces a corner"});
        if (side.endFormation)
            at(55 + s, {num(55 + s) + " mins - A change of shape",
                        club + " adjusted themselves, now playing a " + formationWords(side.endFormation) +
                            " formation and the tactic " +
                            tacticWords(side.endTactic ? side.endTactic : side.tactic),
                        "The manager waves his arms from the touchline."},
               Shade::Change);
        for (int row = 12; row <= 13; ++row) {
            const SheetRow& sub = side.rows[size_t(row - 1)];
            if (!sub.sub) continue;
            at(sub.sub, {num(sub.sub) + " mins - A change", "ANALYSIS FOR SUBSTITUTION DID TAKE PLACE",
                         club + " SUBSTITUTION. " + sub.name + " replaces " + plain(s, row - 9),
                         plain(s, row - 9) + " is replaced by " + sub.name + "."},
               Shade::Change);
        }
    }
    at(60, {"60 mins - The hour mark", home + "'s current blends are " + blends(m.side[0].blends, 3) + " and " +
                                           away + "'s current blends are " + blends(m.side[1].blends, 3)});
    const int held = m.side[0].possession;
    at(80, {"80 mins - Last ten minutes", "Last ten minutes of the match, and the crowd is on its feet",
            "Possession breakdowns with 80 minutes gone",
            "Last ten minutes possession " + num(held) + " - " + num(100 - held), "Broken down as follows",
            "Home def - away att " + num(held - 3) + " - " + num(103 - held),
            "Home mid - away mid " + num(held) + " - " + num(100 - held),
            "Home att - away def " + num(held + 3) + " - " + num(97 - held)});
    std::stable_sort(moments.begin(), moments.end(), [](const Moment& a, const Moment& b) { return a.minute < b.minute; });
    std::array<int, 2> score{};
    std::optional<Shade> shade;
    auto colours = [&](Shade s) {
        if (shade == s) return;
        shade = s;
        for (const std::string& c : colourPair(s)) out.push_back(c);
    };
    for (const Moment& mo : moments) {
        colours(mo.shade);
        out.insert(out.end(), mo.lines.begin(), mo.lines.end());
        if (mo.goalSide < 0) continue;
        ++score[size_t(mo.goalSide)];
        out.push_back(home + ", " + num(score[0]) + "  " + away + " " + num(score[1]));
    }
    colours(Shade::Play);
    out.push_back(" 0 mins - Injury time is played");
    colours(Shade::FullTime);
    out.push_back(kSectionLine);
    out.push_back("REFEREE BLOWS FOR FULL TIME");
    out.push_back(home + " " + num(m.side[0].goals) + "  " + away + " " + num(m.side[1].goals) +
                  (m.cup && m.side[0].goals == m.side[1].goals
                       ? std::string(", and ") + (m.homeThrough ? home : away) + " go through on penalties"
                       : std::string(" is the final score")));

    for (int s = 0; s < 2; ++s) {
        const MatchSide& side = m.side[size_t(s)];
        out.push_back("Finishing Club statistics for " + names[size_t(s)]);
        out.push_back("Style   Movement   Poss   Chances   Start Blends   End Blends   Tactic   On   Off   Perf");
        // Without a tactic the cell is left out, and the shots stand in its place.
        out.push_back(num(side.style) + "   " + num(side.movement) + "   " + num(side.possession) + "   " +
                      num(side.shotsOn + side.shotsOff) + "   " + blends(side.blends, 0) + "   " +
                      blends(side.blends, 3) + "   " +
                      (side.endTactic ? tacticWords(side.endTactic) + "   " : std::string()) +
                      num(side.shotsOn) + "   " + num(side.shotsOff) + "   " + num(side.performance));
        out.push_back("");
        out.push_back("Player statistics for " + names[size_t(s)] + "   MAN OF THE MATCH - " + plain(s, side.mom) +
                      " (" + num(side.mom) + ")");
        out.push_back("Name               Pos/Skill  Pass   Cross   Tackle   Dribble   Shot   Header   Perf   Sub");
        for (int row = 1; row <= 13; ++row) {
            const SheetRow& p = side.rows[size_t(row - 1)];
            std::string line = p.name + " " + (row == 1 ? std::string("AGKP") : p.position) + "/ " +
                               padLeft(num(p.skill), 2) + " " + pair(p.work[0]) + "  " + pair(p.work[1]) + "  " +
                               pair(p.work[2]) + "  ";
            if (row == 1)
                line += pair(p.work[4]) + "  " + num(p.perf);
            else
                line += pair(p.work[3]) + "  " + pair(p.work[4]) + "  " + pair(p.work[5]) + "  " + num(p.perf) +
                        "  " + num(p.sub);
            out.push_back(line);
        }
        out.push_back("");
    }
}

std::string League::matchReportText(const DemoClub& club) const {
    const size_t self = size_t(&club - clubs_.data());
    std::vector<const Match*> mine;
    for (const Match& m : matches_)
        if (m.side[0].club == self || m.side[1].club == self) mine.push_back(&m);
    if (mine.empty()) return {};
    // A match against another of the manager's clubs is in both files, and
    // the second copy read ends its file: such matches come last.
    std::stable_partition(mine.begin(), mine.end(), [&](const Match* m) {
        return !clubs_[m->side[0].club].managed() || !clubs_[m->side[1].club].managed();
    });
    std::vector<std::string> out;
    for (const Match* m : mine) matchReportLines(*m, out);
    return joinCrLf(out);
}

std::vector<std::string> League::matchSummary(const Match& m, const DemoClub& club) const {
    const size_t self = size_t(&club - clubs_.data());
    const int own = m.side[0].club == self ? 0 : 1;
    const char venue = m.neutral() ? 'N' : own == 0 ? 'H' : 'A';
    // The "home" figures are the first club's: this club unless it played away.
    const int first = venue == 'A' ? 0 : own, second = 1 - first;
    const MatchSide &a = m.side[size_t(first)], &b = m.side[size_t(second)];
    const std::string opponent = clubs_[m.side[size_t(1 - own)].club].Name;
    std::vector<std::string> out;
    out.push_back("");
    out.push_back(competitionOf(m) + " " + roundText(m) + " versus " + venue + " " + opponent + " " + num(a.goals) +
                  " - " + num(b.goals));
    out.push_back("Home shots On/Off target " + num(a.shotsOn) + " / " + num(a.shotsOff) +
                  "   Away shots On/Off target " + num(b.shotsOn) + " / " + num(b.shotsOff));
    out.push_back(" Performance  " + num(a.performance) + " - " + num(b.performance) + "  Possession % " +
                  num(a.possession) + " Home " + num(b.possession));
    out.push_back("Movement  " + num(a.movement) + " - " + num(b.movement) + "   Style  " + num(a.style) + " - " +
                  num(b.style));
    out.push_back("Attendance - " + num(m.attendance) + "   Home support was " + num(a.support) +
                  " away support was " + num(b.support));
    for (const MatchSide* s : {&a, &b})
        for (int row = 1; row <= 13; ++row) {
            const SheetRow& p = s->rows[size_t(row - 1)];
            out.push_back("(" + padLeft(num(row), 2) + ") " + p.name + " SK " + num(p.skill) + " PF " + num(p.perf));
        }
    for (const MatchSide* s : {&a, &b}) {
        if (s->scored.empty()) continue;
        out.push_back("SCORERS FOR " + upper(clubs_[s->club].Name));
        for (const MatchGoal& g : s->scored)
            out.push_back("  " + s->rows[size_t(g.row - 1)].name + " " + num(g.minute) + " ( " + num(g.worth) + " )");
    }
    const MatchSide& best = a.rows[size_t(a.mom - 1)].perf >= b.rows[size_t(b.mom - 1)].perf ? a : b;
    out.push_back("MAN OF THE MATCH - " + best.rows[size_t(best.mom - 1)].name + " (" + clubs_[best.club].Name + ")");
    out.push_back("Referee : " + names::kReferees[(m.side[0].club + m.side[1].club) % names::kReferees.size()]);
    out.push_back("MAN OF THE MATCH award is presented after the final whistle");
    out.push_back(" CAP  " + num(a.cap) + "  PENS  " + num(a.pens) + "  CORN  " + num(a.corners) + "  FK  " +
                  num(a.freeKicks) + "   CAP  " + num(b.cap) + "  PENS  " + num(b.pens) + "  CORN  " +
                  num(b.corners) + "  FK  " + num(b.freeKicks));
    out.push_back("Gate receipts are shared as the rules of the league ask");
    out.push_back(m.attendance > 20000 ? "A big crowd saw the match" : "A small crowd saw the match");
    out.push_back("");
    return out;
}

}  // namespace kestrin::demo

namespace kestrin::demo {

namespace {

// A table's column titles; every figure ends under the end of its title.
const std::string kTableHeading =
    "Pos  Club                  PYD    W    D    L   GF   GA  Mgd  Frm        GD   PTS";

void under(std::string& row, const std::string& title, const std::string& text) {
    const size_t end = kTableHeading.find(title) + title.size();
    row.replace(end - text.size(), text.size(), text);
}

std::string tableRow(int place, const std::string& name, const Standing& s, bool managed) {
    std::string row = fixedWidth(padLeft(num(place), 4) + " " + fixedWidth(name, 20), kTableHeading.size());
    // Games played in the two columns under "PY", the goal difference in the
    // four from "G", the points in the four behind the blank before "PTS".
    row.replace(kTableHeading.find("PYD "), 2, padLeft(num(s.played), 2));
    under(row, " W", num(s.won));
    under(row, " D ", num(s.drawn) + " ");
    under(row, " L ", num(s.lost) + " ");
    under(row, "GF", num(s.goalsFor));
    under(row, "GA", num(s.goalsAgainst));
    under(row, "Mgd", managed ? "Y" : "N");
    row.replace(kTableHeading.find("Frm"), s.form.size(), s.form);
    row.replace(kTableHeading.find(" GD ") + 1, 4, padLeft(num(s.goalsFor - s.goalsAgainst), 4));
    row.replace(kTableHeading.find(" PTS") + 1, 3, padLeft(num(s.points()), 3));
    return row;
}

// A result line: "<home> (<half-time>) <h> - <a> (<half-time>)  <away>" and
// eight columns of attendance; then a line of goals for each side.
std::string goalLine(const MatchSide& side) {
    std::string line;
    for (const MatchGoal& g : side.scored) line += "\\" + side.rows[size_t(g.row - 1)].name + " " + padLeft(num(g.minute), 3);
    return line + " MOM " + side.rows[size_t(side.mom - 1)].name;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> League::leagueFiles() const {
    const std::string week = "TURN OF " + ddmmyyyy(turnDate());
    std::vector<std::pair<std::string, std::string>> files;

    std::vector<std::string> coaching{"Coaching results of every club - " + week,
                                      "Player name    Club, skill coached and its new value",
                                      "PA = Passing, CO = Control, TA = Tackling, RU = Running, SH = Shooting",
                                      "DR = Dribbling, DE = Defending, OF = Offensive heading, ST = Strength",
                                      ""};
    coaching.insert(coaching.end(), coaching_.begin(), coaching_.end());
    coaching.push_back("");
    coaching.push_back("Please note that failed attempts are not listed");
    files.emplace_back("COACHING.TXT", joinCrLf(coaching));

    for (int league = 1; league <= leagueCount_; ++league) {
        const std::vector<size_t> order = table(league);
        const int played = order.empty() ? 0 : standings_[order[0]].played;
        std::vector<std::string> lines{upper(competitionName(league)) + " - TABLE AFTER " + num(played) +
                                           " GAMES - " + week,
                                       "", kTableHeading, std::string(kTableHeading.size(), '-')};
        for (size_t i = 0; i < order.size(); ++i)
            lines.push_back(tableRow(int(i) + 1, clubs_[order[i]].Name, standings_[order[i]], clubs_[order[i]].human()));
        lines.push_back("");
        lines.push_back("Three points for a win and one for a draw");
        files.emplace_back(fileCode(league) + "TABS.TXT", joinCrLf(lines));

        // The week's results of the league and of its cup.
        for (int cup = 0; cup < 2; ++cup) {
            std::vector<std::string> results{upper(cup ? std::string(kCupName) : competitionName(league)) +
                                             " RESULTS - " + week};
            for (const Match& m : matches_) {
                if (m.league != league || m.cup != bool(cup)) continue;
                const std::string home = clubs_[m.side[0].club].Name, away = clubs_[m.side[1].club].Name;
                auto half = [](const MatchSide& s) {
                    return std::count_if(s.scored.begin(), s.scored.end(), [](const MatchGoal& g) { return g.minute <= 45; });
                };
                results.push_back(home + " (" + num(half(m.side[0])) + ") " + padLeft(num(m.side[0].goals), 2) + " - " +
                                  fixedWidth(num(m.side[1].goals), 2) + " (" + num(half(m.side[1])) + ")  " + away +
                                  padLeft(num(m.attendance), 8));
                results.push_back(goalLine(m.side[0]));
                results.push_back(goalLine(m.side[1]));
            }
            if (results.size() > 1) files.emplace_back(fileCode(league) + (cup ? "LC" : "") + ".TXT", joinCrLf(results));
        }
    }

    // Every line but the title is a deal: no column titles.
    std::vector<std::string> transfers{"Transfers - players transfered this week - " + week, ""};
    transfers.insert(transfers.end(), transfers_.begin(), transfers_.end());
    files.emplace_back("TRANSFER.TXT", joinCrLf(transfers));
    std::vector<std::string> loans{"Loan deals organised this week - " + week, ""};
    loans.insert(loans.end(), loans_.begin(), loans_.end());
    files.emplace_back("LOANS.TXT", joinCrLf(loans));
    std::vector<std::string> moves{"Transfers - squad reports of the week - " + week, ""};
    moves.insert(moves.end(), squadMoves_.begin(), squadMoves_.end());
    files.emplace_back("SQUADREP.TXT", joinCrLf(moves));

    // The group tables of the continental cup and of the qualifiers for the
    // world cup, drawn at the start of the season; no group match is played
    // in the demo's weeks, so every figure stands at nought.
    const std::string groupHeading = "Club                  Pld    W    D    L   GF   GA  Mgd  Frm        GD   PTS";
    auto groupRow = [&](const std::string& name) {
        std::string row = fixedWidth(name, groupHeading.size());
        row.replace(groupHeading.find(" GD") + 1, 4, padLeft("0", 4));
        row.replace(groupHeading.find(" PTS") + 1, 3, padLeft("0", 3));
        return row;
    };
    std::vector<size_t> strongest;
    for (int league = 1; league <= leagueCount_; ++league) {
        const std::vector<size_t>& m = members_[size_t(league)];
        strongest.insert(strongest.end(), m.begin(), m.begin() + long(std::min<size_t>(4, m.size())));
    }
    std::vector<std::string> cl{"CHAMPIONS LEAGUE GROUP TABLES - " + week, "", groupHeading};
    for (size_t g = 0; g < 8; ++g) {
        cl.push_back("");
        cl.push_back("Group " + num(int(g) + 1));
        cl.push_back(std::string(groupHeading.size(), '-'));
        for (size_t k = 0; k < 4; ++k)
            cl.push_back(groupRow(strongest.empty() ? std::string("To be drawn")
                                                    : clubs_[strongest[(g * 4 + k) % strongest.size()]].Name));
    }
    files.emplace_back("CL_TABLE.TXT", joinCrLf(cl));

    static const std::pair<const char*, int> zones[] = {{"AFR", 2}, {"ASCO", 4}, {"EURO", 8}, {"POOR", 3}, {"SAM", 2}};
    std::vector<std::string> internationals{"WORLD CUP QUALIFYING GROUPS - " + week, "", groupHeading};
    size_t nation = 0;
    for (const auto& [zone, groups] : zones)
        for (int g = 1; g <= groups; ++g) {
            internationals.push_back("");
            internationals.push_back(std::string(zone) + " " + num(g));
            internationals.push_back(std::string(groupHeading.size(), '-'));
            for (int k = 0; k < 4; ++k)
                internationals.push_back(groupRow(upper(names::kTowns[nation++ % names::kTowns.size()])));
        }
    internationals.push_back("");
    internationals.push_back("WORLD CUP TOP GOALSCORERS");
    internationals.push_back("None yet");
    files.emplace_back("INT_TABL.TXT", joinCrLf(internationals));
    return files;
}

}  // namespace kestrin::demo
