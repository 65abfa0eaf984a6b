// kestrin-cli: the program's logic driven from the command line, JSON out.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

#include "autoturn/autoturn.h"
#include "core/errors.h"
#include "core/loader.h"
#include "core/text.h"
#include "files/loadturn.h"
#include "files/mail.h"
#include "files/news.h"
#include "files/turnsheet.h"
#include "match/blend.h"
#include "match/ordertables.h"
#include "orders/admin.h"
#include "orders/harvest.h"
#include "orders/market.h"
#include "orders/search.h"
#include "stats/honours.h"
#include "stats/reading.h"
#include "stats/refresh.h"

#include "demo/demo.h"
#include "kestrin_version.h"

using nlohmann::json;
using namespace kestrin;

namespace {

constexpr const char* kUsage =
    "usage: kestrin-cli --game-dir DIR session\n"
    "       kestrin-cli --game-dir DIR save-turnsheets\n"
    "       kestrin-cli --game-dir DIR load-turn SQUAD.zip WEEKLY.zip\n"
    "       kestrin-cli --game-dir DIR last-week CLUB\n"
    "       kestrin-cli --game-dir DIR refresh-stats\n"
    "       kestrin-cli --game-dir DIR honours CLUB\n"
    "       kestrin-cli --game-dir DIR blend CLUB [FIXTURE]\n"
    "       kestrin-cli --game-dir DIR autoturn [--club CLUB] [--pick total|performance|core|blend]\n"
    "                   [--formation auto|N] [--no-team] [--no-physio] [--no-warn] [--no-scout] [--no-coach]\n"
    "         (N is a formation such as 4-4-2; questions are answered No and listed with the club's messages)\n"
    "       kestrin-cli --game-dir DIR send-turnsheets [--dry-run]\n"
    "       kestrin-cli --game-dir DIR admin-text\n"
    "       kestrin-cli --game-dir DIR search [--name TEXT] [--pos ITEM] [--perf N] [--value ITEM] [--age ITEM]\n"
    "                   [--skill ITEM] [--sign ITEM] [--managed Yes|No] [--club CLUB]\n"
    "         (items as the search screen offers them; \"Within my bank balance\" is the balance of --club,\n"
    "          a club of the session by name or code, else of the session's first club)\n"
    "       kestrin-cli demo DIR [--clubs N] [--export-clubs N] [--seed S] [--weeks N] [--large]\n"
    "       kestrin-cli --version\n";

int usage(const std::string& why = {}) {
    if (!why.empty()) std::cerr << "kestrin-cli: " << why << "\n";
    std::cerr << kUsage;
    return 2;
}

// Game text is Windows-1252; JSON is UTF-8.
std::string u(std::string_view s) { return cp1252ToUtf8(s); }

template <typename T, size_t N>
json arr(const std::array<T, N>& a) {
    json j = json::array();
    for (const auto& v : a) j.push_back(v);
    return j;
}

template <size_t N>
json textArr(const std::array<std::string, N>& a) {
    json j = json::array();
    for (const auto& v : a) j.push_back(u(v));
    return j;
}

json toJson(const CoachOrder& c) { return {{"Player", u(c.Player)}, {"Skill", c.Skill}}; }

json toJson(const Player& p) {
    json j = json::object();
    j["Name"] = u(p.Name);
    j["Position"] = u(p.Position);
    j["Nationality"] = u(p.Nationality);
    j["Age"] = p.Age;
    for (int i = 0; i < 11; ++i) j[std::string(kSkillNames[size_t(i)])] = p.skill(i);
    j["TotalSkill"] = p.TotalSkill;
    j["RealSkill"] = p.RealSkill;
    j["Injury"] = p.Injury;
    j["SuspPoints"] = p.SuspPoints;
    j["Bookings"] = p.Bookings;
    j["SendingsOff"] = p.SendingsOff;
    j["Skill"] = p.Skill;
    j["BookTally"] = p.BookTally;
    j["CurrentInternational"] = u(p.CurrentInternational);
    j["Listed"] = u(p.Listed);
    j["LastIntShirt"] = p.LastIntShirt;
    j["Sign"] = p.Sign;
    j["TLFigure"] = p.TLFigure;
    j["Agg"] = p.Agg;
    j["AverageSeasonPerf"] = p.AverageSeasonPerf;
    j["Goals"] = p.Goals;
    j["Value"] = p.Value;
    j["Contract"] = p.Contract;
    j["LoanLength"] = p.LoanLength;
    j["WeeksInReserves"] = p.WeeksInReserves;
    j["LoaningClub"] = u(p.LoaningClub);
    j["Wages"] = p.Wages;
    j["CareerApps"] = p.CareerApps;
    j["CareerGoals"] = p.CareerGoals;
    j["InterCaps"] = p.InterCaps;
    j["InterGoals"] = p.InterGoals;
    j["CareerPerf"] = p.CareerPerf;
    j["LastFivePerf"] = arr(p.LastFivePerf);
    j["Potential"] = p.Potential;
    j["SpecialSkill"] = u(p.SpecialSkill);
    j["CareerExtraA"] = p.CareerExtraA;
    j["CareerExtraB"] = p.CareerExtraB;
    j["LastShirt"] = p.LastShirt;
    j["Portrait"] = arr(p.Portrait);
    return j;
}

json toJson(const Fixture& f) {
    json j = json::object();
    j["Venue"] = u(f.Venue);
    j["Competition"] = u(f.Competition);
    j["Opponent"] = u(f.Opponent);
    j["Tactics"] = f.Tactics;
    j["Penalties"] = f.Penalties;
    j["Corners"] = f.Corners;
    j["Captain"] = f.Captain;
    j["FreeKicks"] = f.FreeKicks;
    j["CornersAiming"] = f.CornersAiming;
    j["Defence"] = f.Defence;
    j["Midfield"] = f.Midfield;
    j["Attack"] = f.Attack;
    j["DefAgg"] = f.DefAgg;
    j["MidAgg"] = f.MidAgg;
    j["AttAgg"] = f.AttAgg;
    j["Revolver"] = f.Revolver;
    j["Snappy"] = f.Snappy;
    j["Pace"] = f.Pace;
    j["PassLength"] = f.PassLength;
    j["PassHeight"] = f.PassHeight;
    j["ChangeOneTime"] = f.ChangeOneTime;
    j["ChangeOneFormation"] = arr(f.ChangeOneFormation);
    j["ChangeOneTactic"] = arr(f.ChangeOneTactic);
    j["ChangeTwoTime"] = f.ChangeTwoTime;
    j["ChangeTwoFormation"] = arr(f.ChangeTwoFormation);
    j["ChangeTwoTactic"] = arr(f.ChangeTwoTactic);
    j["SubOneTime"] = f.SubOneTime;
    j["SubOneAction"] = arr(f.SubOneAction);
    j["SubTwoTime"] = f.SubTwoTime;
    j["SubTwoAction"] = arr(f.SubTwoAction);
    json slots = json::array();
    for (const TeamSlot& s : f.Slots)
        slots.push_back({{"Player", u(s.Player)}, {"Left", s.Left}, {"Top", s.Top}, {"Left2", s.Left2}, {"Top2", s.Top2}});
    j["Slots"] = slots;
    return j;
}

json toJson(const Club& c) {
    json j = json::object();
    j["Name"] = u(c.Name);
    j["ClubFile"] = u(c.ClubFile);
    j["Colours"] = u(c.Colours);
    j["LeagueNumber"] = u(c.LeagueNumber);
    j["Credits"] = c.Credits;
    j["StampCredits"] = c.StampCredits;
    j["Stadium"] = u(c.Stadium);
    j["Capacity"] = c.Capacity;
    j["Facilities"] = c.Facilities;
    j["TicketPrice"] = c.TicketPrice;
    j["SeasonTicketHolders"] = c.SeasonTicketHolders;
    j["PotentialCrowd"] = c.PotentialCrowd;
    j["CrowdRating"] = c.CrowdRating;
    j["GamesPlayed"] = c.GamesPlayed;
    j["AverageGate"] = c.AverageGate;
    j["RecentPerformance"] = c.RecentPerformance;
    j["MainSponsor"] = u(c.MainSponsor);
    j["CapacityUpgrade"] = u(c.CapacityUpgrade);
    j["FacilityUpgrade"] = u(c.FacilityUpgrade);
    j["DepartmentUpgrade"] = u(c.DepartmentUpgrade);
    j["CapacityOrder"] = u(c.CapacityOrder);
    j["FacilityOrder"] = u(c.FacilityOrder);
    j["BettingOrder"] = u(c.BettingOrder);
    j["DepartmentOrder"] = u(c.DepartmentOrder);
    j["GoalkeeperCoach"] = c.GoalkeeperCoach;
    j["GoalkeeperSenior"] = toJson(c.GoalkeeperSenior);
    j["GoalkeeperYouth"] = toJson(c.GoalkeeperYouth);
    j["DefenceCoach"] = c.DefenceCoach;
    j["DefenceSenior"] = toJson(c.DefenceSenior);
    j["DefenceYouth"] = toJson(c.DefenceYouth);
    j["MidfieldCoach"] = c.MidfieldCoach;
    j["MidfieldSenior"] = toJson(c.MidfieldSenior);
    j["MidfieldYouth"] = toJson(c.MidfieldYouth);
    j["AttackCoach"] = c.AttackCoach;
    j["AttackSenior"] = toJson(c.AttackSenior);
    j["AttackYouth"] = toJson(c.AttackYouth);
    j["Groundsman"] = c.Groundsman;
    j["Physio"] = c.Physio;
    j["PhysioPlayer"] = textArr(c.PhysioPlayer);
    j["PhysioPoints"] = arr(c.PhysioPoints);
    j["PhysioPointsLeft"] = c.PhysioPointsLeft;
    j["Scout"] = c.Scout;
    j["Marketing"] = c.Marketing;
    j["BlendAverages"] = u(c.BlendAverages);
    j["BlendPassing"] = c.BlendPassing;
    j["BlendCrossing"] = c.BlendCrossing;
    j["WageBill"] = c.WageBill;
    j["Costs"] = c.Costs;
    j["GateMoney"] = c.GateMoney;
    j["Merchandise"] = c.Merchandise;
    j["Sponsorship"] = c.Sponsorship;
    j["SundriesIn"] = c.SundriesIn;
    j["SundriesOut"] = c.SundriesOut;
    j["MoneyBet"] = c.MoneyBet;
    j["BettingWinnings"] = c.BettingWinnings;
    j["TransfersRecouped"] = c.TransfersRecouped;
    j["TransfersSpent"] = c.TransfersSpent;
    j["Balance"] = c.Balance;
    j["OneToOnePlayer"] = u(c.OneToOnePlayer);
    j["OneToOneInstruction"] = c.OneToOneInstruction;
    j["Messages"] = u(c.Messages);
    j["PrivateMessages"] = u(c.PrivateMessages);
    j["Private"] = u(c.Private);
    j["FixtureCount"] = c.FixtureCount;
    json players = json::array();
    for (const Player& p : c.Players) players.push_back(toJson(p));
    j["Players"] = players;
    json fixtures = json::array();
    for (const Fixture& f : c.Fixtures) fixtures.push_back(toJson(f));
    j["Fixtures"] = fixtures;
    j["ScoutPlayer"] = textArr(c.ScoutPlayer);
    j["ScoutAggressive"] = arr(c.ScoutAggressive);
    j["ScoutClub"] = textArr(c.ScoutClub);
    json report = json::array();
    for (const auto& l : c.ReportLines) report.push_back(u(l));
    j["ReportLines"] = report;
    json moves = json::array();
    for (const Movement& m : c.Movements)
        moves.push_back({{"Move", m.Move}, {"Player", u(m.Player)}, {"Club", u(m.Club)}, {"Fee", m.Fee},
                         {"Contract", m.Contract}, {"Incentive", m.Incentive}});
    j["Movements"] = moves;
    return j;
}

json sessionJson(const Session& s) {
    json j = json::object();
    j["GameName"] = u(s.Game.GameName);
    j["Charset"] = s.Game.Charset;
    j["Currency"] = u(s.Game.Currency);
    j["ShortName"] = u(s.Game.ShortName);
    j["AdminAddress"] = u(s.Game.AdminAddress);
    j["LeagueNames"] = textArr(s.Game.LeagueNames);
    j["LeagueCodes"] = textArr(s.Game.LeagueCodes);
    j["TurnStamp"] = u(s.TurnStamp);
    j["TodayText"] = s.TodayText;
    j["InjuryLimit"] = s.InjuryLimit;
    j["SuspensionLimit"] = s.SuspensionLimit;
    j["SameTurn"] = s.SameTurn;
    j["NewTurn"] = s.NewTurn;
    j["ClubCount"] = s.ClubCount();
    j["CurrentClub"] = s.CurrentClub;
    json clubs = json::array();
    for (const Club& c : s.Clubs) clubs.push_back(toJson(c));
    j["Clubs"] = clubs;
    json exportClubs = json::array();
    for (const ExportClub& e : s.ExportClubs) {
        json players = json::array();
        for (const ExportPlayer& p : e.Players)
            players.push_back({{"Name", u(p.Name)}, {"Age", u(p.Age)}, {"Position", u(p.Position)},
                               {"TotalSkill", u(p.TotalSkill)}, {"Sign", u(p.Sign)}, {"Played", u(p.Played)},
                               {"Perf", u(p.Perf)}, {"Goals", u(p.Goals)}, {"MinValue", p.MinValue},
                               {"MaxValue", u(p.MaxValue)}, {"Portrait", arr(p.Portrait)},
                               {"Colours", u(p.Colours)}, {"Loan", p.Loan}, {"LoanClub", u(p.LoanClub)},
                               {"Managed", u(p.Managed)}});
        exportClubs.push_back({{"Name", u(e.Name)}, {"Players", players}});
    }
    j["ExportClubs"] = exportClubs;
    json memos = json::array();
    for (const Memo& m : s.Memos) memos.push_back({{"To", u(m.To)}, {"From", u(m.From)}, {"Text", u(m.Text)}});
    j["Memos"] = memos;
    j["TickerText"] = u(s.TickerText);
    json managers = json::array();
    for (const ManagerEntry& m : s.ManagerList) managers.push_back({{"Manager", u(m.Manager)}, {"Address", u(m.Address)}});
    j["Managers"] = managers;
    json news = json::array();
    for (const NewsItem& n : s.News) news.push_back({{"Title", u(n.Title)}, {"File", u(n.File)}});
    j["News"] = news;
    json problems = json::array();
    for (const auto& p : s.LoadProblems) problems.push_back(u(p));
    j["LoadProblems"] = problems;
    return j;
}

// Messages on the command line: told on stderr, questions take their default.
class CliMessages : public Messages {
public:
    bool anyProblem = false;
    void refuse(const std::string& t, const std::string& x) override { say(t, x), anyProblem = true; }
    void warn(const std::string& t, const std::string& x) override { say(t, x), anyProblem = true; }
    void inform(const std::string& t, const std::string& x) override { say(t, x); }
    bool ask(const std::string& t, const std::string& x) override {
        say(t, x + " [answered Yes]");
        return true;
    }

private:
    static void say(const std::string& t, const std::string& x) {
        std::string text = cp1252ToUtf8(x);
        for (char& c : text)
            if (c == '\r') c = ' ';
        std::cerr << cp1252ToUtf8(t) << ": " << text << "\n";
    }
};

int runSession(const std::string& dir) {
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    std::cout << sessionJson(s).dump(1) << "\n";
    return (s.GameIniMissing || !s.LoadProblems.empty()) ? 1 : 0;
}

int runSaveTurnsheets(const std::string& dir) {
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    try {
        json out = json::array();
        for (const auto& p : saveTurnsheets(s, messages)) out.push_back(p.string());
        std::cout << out.dump(1) << "\n";
    } catch (const WriteError& e) {
        std::cerr << "The turnsheet " << e.path << " could not be written: " << e.reason
                  << ". The previous file is left as it was.\n";
        return 1;
    }
    return s.LoadProblems.empty() ? 0 : 1;
}

nlohmann::ordered_json addedJson(const stats::AddedRows& a);
void tellProblems(const RecordingMessages& messages);

int runLoadTurn(const std::string& dir, const std::string& squadZip, const std::string& weeklyZip) {
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    std::vector<std::string> log;
    bool ok = loadNewTurn(s, squadZip, weeklyZip, messages, {}, &log);
    json out = {{"Loaded", ok}, {"Done", log}, {"ClubCount", s.ClubCount()}, {"TurnStamp", u(s.TurnStamp)}};
    // A new week goes into the Stats database, as the program does after its load.
    if (ok && s.StatsRefreshDue) {
        RecordingMessages quiet;
        stats::RefreshOptions options;
        options.showDone = false;
        const stats::RefreshResult r = stats::refreshStats(s.Folder, s.Prefs, quiet, options);
        tellProblems(quiet);
        if (r.status == stats::RefreshStatus::Done) out["StatsAdded"] = addedJson(r.added);
    }
    std::cout << out.dump(1) << "\n";
    return ok ? 0 : 1;
}

// A box's text as its lines: blank lines kept, nothing after the last line end.
json boxLines(const std::string& text) {
    json lines = json::array();
    size_t from = 0;
    while (from < text.size()) {
        size_t end = text.find("\r\n", from);
        if (end == std::string::npos) end = text.size();
        lines.push_back(u(text.substr(from, end - from)));
        from = end + 2;
    }
    return lines;
}

// The club named on the command line (game text), by name or code in any
// case; none when the session has no such club, which is then told.
const Club* namedClub(const Session& s, const std::string& wanted, const std::string& dir) {
    for (const Club& c : s.Clubs)
        if (equalsNoCase(trim(c.Name), trim(wanted)) || equalsNoCase(c.ClubFile, wanted)) return &c;
    std::cerr << "kestrin-cli: no club " << cp1252ToUtf8(wanted) << " in " << dir << "\n";
    return nullptr;
}

int runLastWeek(const std::string& dir, const std::string& clubName) {
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    const Club* c = namedClub(s, utf8ToCp1252(clubName), dir);
    if (!c) return 1;
    const LastWeekBoxes boxes = lastWeekBoxes(s, *c);
    json out = json::object();
    for (size_t i = 0; i < boxes.size(); ++i) out[kLastWeekBoxes[i]] = boxLines(boxes[i]);
    std::cout << out.dump(1) << "\n";
    return 0;
}

// Messages kept until the outcome is known, so a failing command prints
// nothing on stdout and its message on stderr.
void tellProblems(const RecordingMessages& messages) {
    for (const auto& e : messages.entries) {
        if (e.kind != RecordingMessages::Kind::Refuse && e.kind != RecordingMessages::Kind::Warn) continue;
        std::string text = cp1252ToUtf8(e.text);
        for (char& c : text)
            if (c == '\r') c = ' ';
        std::cerr << cp1252ToUtf8(e.title) << ": " << text << "\n";
    }
}

nlohmann::ordered_json addedJson(const stats::AddedRows& a) {
    return {{"Clubs", a.Clubs},         {"Managers", a.Managers},       {"Coaching", a.Coaching},
            {"Tables", a.Tables},       {"Trades", a.Trades},           {"MatchMain", a.MatchMain},
            {"MatchTeam", a.MatchTeam}, {"MatchPlayer", a.MatchPlayer}, {"MatchGoal", a.MatchGoal},
            {"Summary", a.Summary},     {"Skills", a.Skills}};
}

int runRefreshStats(const std::string& dir) {
    Settings settings = readSettings(dir);
    RecordingMessages messages;
    stats::RefreshOptions options;
    options.showDone = false;
    const stats::RefreshResult r = stats::refreshStats(GameFolder(dir), settings, messages, options);
    tellProblems(messages);
    if (r.status != stats::RefreshStatus::Done) return 1;
    std::cout << nlohmann::ordered_json{{"StatsFile", r.statsFile}, {"Added", addedJson(r.added)}}.dump(1) << "\n";
    return 0;
}

int runHonours(const std::string& dir, const std::string& club) {
    Settings settings = readSettings(dir);
    RecordingMessages messages;
    const std::optional<stats::Honours> h = stats::clubHonours(settings, utf8ToCp1252(club), messages);
    tellProblems(messages);
    if (!h) return 1;
    json rows = json::array();
    for (const stats::HonoursRow& r : h->Rows)
        rows.push_back({u(r.Date), u(r.Competition), u(r.Finish), u(r.Points), u(r.Champions), u(r.ChampionsPoints)});
    std::cout << nlohmann::ordered_json{{"Title", u(h->Title)}, {"Rows", rows}}.dump(1) << "\n";
    return 0;
}

// The pitch grid's Blend for the club's line-up of one fixture (from 1).
int runBlend(const std::string& dir, const std::string& clubName, const std::string& fixture) {
    const long number = std::stol(fixture);
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    const Club* c = namedClub(s, utf8ToCp1252(clubName), dir);
    if (!c) return 1;
    if (number < 1 || size_t(number) > c->Fixtures.size()) {
        std::cerr << "kestrin-cli: " << clubName << " has " << c->Fixtures.size() << " fixtures, not " << fixture
                  << "\n";
        return 1;
    }
    const std::string title = s.Game.GameName.empty() ? std::string("Kestrin") : s.Game.GameName;
    const std::optional<Blend> b =
        blendAnalysis(s.Prefs, c->ClubFile, blendLineUp(c->Fixtures[size_t(number - 1)]), messages, title);
    if (!b) return 1;
    std::cout << json{{"TxtBlend", b->text()}}.dump(1) << "\n";
    return 0;
}

// Sends as the program does, with the password from the environment; a dry
// run only prints the messages, from the Turnsheets as they are on disk.
// The Weekly Administration text of every club's order; a club whose order
// is invalid is told on stderr and left out, the others still printed.
int runAdminText(const std::string& dir) {
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    RecordingMessages refusals;
    const std::string text = adminText(s, refusals);
    tellProblems(refusals);
    std::cout << cp1252ToUtf8(text);
    return refusals.entries.empty() ? 0 : 1;
}

// The detailed player search: the shown columns of each row, as the screen
// shows them, or the one "No Results" row.
int runSearch(const std::string& dir, const std::vector<std::string>& options) {
    SearchFilter filter;
    std::string clubName;
    for (size_t i = 0; i < options.size(); i += 2) {
        if (i + 1 >= options.size()) return usage(options[i] + " needs a value");
        const std::string& o = options[i];
        const std::string v = utf8ToCp1252(options[i + 1]);
        if (o == "--name") filter.Name = v;
        else if (o == "--pos") filter.Pos = v;
        else if (o == "--perf") filter.Perf = v;
        else if (o == "--value") filter.Value = v;
        else if (o == "--age") filter.Age = v;
        else if (o == "--skill") filter.Skill = v;
        else if (o == "--sign") filter.Sign = v;
        else if (o == "--managed") filter.Managed = v;
        else if (o == "--club") clubName = v;
        else return usage("unknown search option " + o);
    }
    if (const std::optional<std::string> problem = searchFilterProblem(filter)) {
        std::cerr << "kestrin-cli: " << u(*problem) << "\n";
        return 2;
    }
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    const Club* club = s.Clubs.empty() ? nullptr : &s.Clubs.front();
    if (!clubName.empty() && !(club = namedClub(s, clubName, dir))) return 1;
    const auto rows = searchRows(s.ExportClubs, searchExport(s.ExportClubs, filter, club ? club->Balance : 0));
    constexpr size_t kShown = 13;  // Team to Mgd; the rest are the screen's hidden columns
    json out = json::array();
    for (const auto& row : rows) {
        json cells = json::array();
        for (size_t i = 0; i < kShown && i < row.size(); ++i) cells.push_back(u(row[i]));
        out.push_back(std::move(cells));
    }
    std::cout << json{{"Rows", std::move(out)}}.dump(1) << "\n";
    return 0;
}

// Auto Turn over the session's clubs, or one, then the Turnsheets saved.
int runAutoTurnCommand(const std::string& dir, const std::vector<std::string>& options) {
    AutoTurnOptions run;
    PickChoice choice;
    std::string clubName;
    for (size_t i = 0; i < options.size(); ++i) {
        const std::string& o = options[i];
        auto value = [&]() -> std::string {
            if (i + 1 >= options.size()) throw std::invalid_argument(o + " needs a value");
            return options[++i];
        };
        if (o == "--club") clubName = utf8ToCp1252(value());
        else if (o == "--pick") {
            const std::string v = value();
            constexpr std::array<std::string_view, 4> kPicks = {"total", "performance", "core", "blend"};
            const auto at = std::find(kPicks.begin(), kPicks.end(), v);
            if (at == kPicks.end()) return usage("--pick takes total, performance, core or blend");
            choice.Method = PickMethod(at - kPicks.begin());
        } else if (o == "--formation") {
            std::string v = value();
            if (v == "auto") {
                choice.Formation = std::string(kAutoPick);
                continue;
            }
            std::string digits;
            for (char c : v)
                if (c >= '0' && c <= '9') digits += c;
            const std::string text = digits.size() == 3 ? formationNumbersText(int16_t(digits[0] - '0'),
                                                                                int16_t(digits[1] - '0'),
                                                                                int16_t(digits[2] - '0'))
                                                        : std::string();
            const std::vector<std::string> offered = pickFormations();
            if (std::find(offered.begin() + 1, offered.end(), text) == offered.end())
                return usage("--formation takes auto or one of the eleven formations, such as 4-4-2");
            choice.Formation = text;
        } else if (o == "--no-team") run.PickTeam = false;
        else if (o == "--no-physio") run.Physio = false;
        else if (o == "--no-warn") run.Warn = false;
        else if (o == "--no-scout") run.Scout = false;
        else if (o == "--no-coach") run.Coach = false;
        else return usage("unknown autoturn option " + o);
    }
    CliMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) return 1;
    if (choice.Method == PickMethod::BestBlend && !statsDatabaseExists(s)) {
        std::cerr << "kestrin-cli: " << u(stats::kNeedDatabaseText) << "\n";
        return 1;
    }
    if (!clubName.empty()) {
        const Club* c = namedClub(s, clubName, dir);
        if (!c) return 1;
        run.Team = int(c - s.Clubs.data()) + 1;
    }
    run.Choices.assign(size_t(s.ClubCount()) + 1, choice);
    RecordingMessages told;
    told.defaultAnswer = false;
    const std::vector<ClubRun> runs = runAutoTurn(s, run, told, defaultRandomSource(std::random_device{}()));
    try {
        saveTurnsheets(s, messages);
    } catch (const WriteError& e) {
        std::cerr << "The turnsheet " << e.path << " could not be written: " << e.reason
                  << ". The previous file is left as it was.\n";
        return 1;
    }
    nlohmann::ordered_json clubs = nlohmann::ordered_json::array();
    for (const ClubRun& r : runs) {
        json lines = json::array();
        for (const std::string& m : r.Messages) lines.push_back(u(m));
        clubs.push_back({{"Name", u(r.Name)}, {"Messages", std::move(lines)}});
    }
    std::cout << nlohmann::ordered_json{{"Clubs", std::move(clubs)}}.dump(1) << "\n";
    return 0;
}

int runSendTurnsheets(const std::string& dir, bool dryRun) {
    RecordingMessages messages;
    Session s = loadSession(dir, messages);
    if (s.GameIniMissing) {
        tellProblems(messages);
        return 1;
    }
    if (dryRun) {
        std::vector<MailMessage> mail;
        try {
            mail = turnsheetMessages(s);
        } catch (const GameFileError& e) {
            std::cerr << e.what() << "\n";
            return 1;
        }
        nlohmann::ordered_json out = nlohmann::ordered_json::array();
        for (const MailMessage& m : mail) out.push_back({{"To", u(m.To)}, {"Subject", u(m.Subject)}, {"Body", u(m.Body)}});
        std::cout << out.dump(1) << "\n";
        return 0;
    }
    MailOptions options;
    if (const char* password = std::getenv("KESTRIN_SMTP_PASSWORD")) options.Password = password;
    const std::optional<std::vector<MailMessage>> mail = prepareTurnsheetMail(s, messages);
    const bool sent = mail && tellTurnsheetOutcome(s, *mail, sendMail(readMailSettings(s.Folder), *mail, options), messages);
    if (!sent) {
        tellProblems(messages);
        return 1;
    }
    json subjects = json::array();
    for (const MailMessage& m : *mail) subjects.push_back(u(m.Subject));
    std::cout << json{{"Sent", subjects}, {"To", u(s.Game.AdminAddress)}}.dump(1) << "\n";
    return 0;
}

int runDemo(const std::vector<std::string>& args) {
    if (args.size() < 2) return usage("demo needs a folder");
    DemoOptions o;
    for (size_t i = 2; i < args.size(); ++i) {
        auto number = [&](const char* flag) -> long long {
            if (i + 1 >= args.size()) throw std::invalid_argument(std::string(flag) + " needs a number");
            return std::stoll(args[++i]);
        };
        if (args[i] == "--clubs") o.clubs = int(number("--clubs"));
        else if (args[i] == "--export-clubs") o.exportClubs = int(number("--export-clubs"));
        else if (args[i] == "--seed") o.seed = uint64_t(number("--seed"));
        else if (args[i] == "--weeks") o.weeks = int(number("--weeks"));
        else if (args[i] == "--large") o = largeDemoOptions();
        else throw std::invalid_argument("unknown option " + args[i]);
    }
    if (o.clubs < 1 || o.exportClubs < o.clubs || o.weeks < 1) throw std::invalid_argument("sizes out of range");
    makeDemoLeague(args[1], o);
    CliMessages messages;
    Session s = loadSession(args[1], messages);
    if (s.GameIniMissing) return 1;
    json out = {{"GameFolder", args[1]}, {"GameName", u(s.Game.GameName)}, {"ClubCount", s.ClubCount()},
                {"ExportClubs", s.ExportClubs.size()}, {"TurnStamp", u(s.TurnStamp)}};
    std::cout << out.dump(1) << "\n";
    return s.LoadProblems.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) return usage();
    if (args.size() == 1 && args[0] == "--version") {
        std::cout << "kestrin-cli " << kVersion << "\n";
        return 0;
    }
    try {
        if (args[0] == "--game-dir") {
            if (args.size() < 3) return usage("--game-dir needs a folder and a command");
            const std::string& dir = args[1];
            const std::string& cmd = args[2];
            if (cmd == "session" && args.size() == 3) return runSession(dir);
            if (cmd == "save-turnsheets" && args.size() == 3) return runSaveTurnsheets(dir);
            if (cmd == "last-week" && args.size() == 4) return runLastWeek(dir, args[3]);
            if (cmd == "load-turn" && args.size() == 5) return runLoadTurn(dir, args[3], args[4]);
            if (cmd == "refresh-stats" && args.size() == 3) return runRefreshStats(dir);
            if (cmd == "honours" && args.size() == 4) return runHonours(dir, args[3]);
            if (cmd == "blend" && (args.size() == 4 || args.size() == 5))
                return runBlend(dir, args[3], args.size() == 5 ? args[4] : "1");
            if (cmd == "admin-text" && args.size() == 3) return runAdminText(dir);
            if (cmd == "autoturn")
                return runAutoTurnCommand(dir, std::vector<std::string>(args.begin() + 3, args.end()));
            if (cmd == "search") return runSearch(dir, std::vector<std::string>(args.begin() + 3, args.end()));
            if (cmd == "send-turnsheets" && (args.size() == 3 || (args.size() == 4 && args[3] == "--dry-run")))
                return runSendTurnsheets(dir, args.size() == 4);
            return usage("unknown command: " + cmd);
        }
        if (args[0] == "demo") {
            return runDemo(args);
        }
        return usage("unknown command: " + args[0]);
    } catch (const GameFileError& e) {
        std::cerr << e.what() << "\n";
        return 1;
    } catch (const WriteError& e) {
        std::cerr << e.what() << "\n";
        return 1;
    } catch (const std::invalid_argument& e) {
        return usage(e.what());
    } catch (const std::out_of_range& e) {
        return usage("a number is out of range");
    }
}
