#include "autoturn/autoturn.h"

#include <SQLiteCpp/Database.h>
#include <gtest/gtest.h>

#include "core/loader.h"
#include "files/turnsheet.h"
#include "match/fixtureorders.h"
#include "match/pitch.h"
#include "orders/coaching.h"
#include "orders/market.h"
#include "orders/onetoone.h"
#include "stats/refresh.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

// Money talks are accepted; a contract renewal is declined, since its
// figures are the game's own and no screen would take them.
class Answers : public RecordingMessages {
public:
    bool ask(const std::string& title, const std::string& text) override {
        RecordingMessages::ask(title, text);
        return text.find("money talks") != std::string::npos;
    }
};

AutoTurnOptions everyStage(const Session& s) {
    AutoTurnOptions o;
    for (int entry = 0; entry <= s.ClubCount(); ++entry)
        o.Choices.push_back({PickMethod(entry % 3), pickFormations()[size_t(entry * 4) % 12]});
    return o;
}

void clearOrders(Club& c) {
    for (int k = 0; k < 8; ++k) c.coachOrder(k) = {};
    c.PhysioPlayer = {};
    c.PhysioPoints = {};
    c.PhysioPointsLeft = c.Physio;
    c.ScoutPlayer = {};
    c.ScoutClub = {};
    c.ScoutAggressive = {};
    c.OneToOnePlayer.clear();
    c.OneToOneInstruction = 0;
}

// Every order of the club placed again, one by one, through the operations
// of the screens, on the club as the Squadsheet gave it: each must be taken
// and land where Auto Turn put it.
void expectTheScreensTake(const Club& auto_, const Club& fresh, const std::string& what) {
    Club c = fresh;
    clearOrders(c);
    for (int k = 0; k < 3; ++k) {
        if (auto_.PhysioPlayer[size_t(k)].empty()) continue;
        EXPECT_TRUE(treatWithPhysio(c, auto_.PhysioPlayer[size_t(k)], std::to_string(auto_.PhysioPoints[size_t(k)])))
            << what;
    }
    for (int k = 0; k < 8; ++k) {
        const CoachOrder& o = auto_.coachOrder(k);
        if (o.Player.empty()) continue;
        const OrderResult r = coachPlayer(c, k < 4 ? CoachLevel::Senior : CoachLevel::Youth, o.Player,
                                          coachingSkillName(o.Skill));
        EXPECT_TRUE(r) << what << ": " << r.title << " " << r.text;
    }
    for (size_t k = 0; k < 4; ++k) {
        if (auto_.ScoutPlayer[k].empty()) continue;
        MarketPick pick{MarketScreen::Scout, true, MarketSelection{}};
        pick.Row->Name = auto_.ScoutPlayer[k];
        pick.Row->Club = auto_.ScoutClub[k];
        RecordingMessages quiet;
        EXPECT_TRUE(cmdScout(c, pick, false, {}, quiet)) << what;
    }
    if (auto_.OneToOneInstruction != 0) {
        EXPECT_TRUE(setOneToOne(c, auto_.OneToOneInstruction - 1, auto_.OneToOnePlayer)) << what;
    }
    c.Fixtures = auto_.Fixtures;
    c.Movements = auto_.Movements;
    EXPECT_EQ(c, auto_) << what;

    for (const Fixture& f : auto_.Fixtures) {
        for (int control = 0; control < kFixtureControlCount; ++control)
            EXPECT_GE(shownEntry(f, FixtureControl(control)), 0) << what << " control " << control;
        for (int shirt = 2; shirt <= 11; ++shirt)
            EXPECT_FALSE(outfieldShirtOnCell(f, {f.Slots[size_t(shirt - 1)].Left, f.Slots[size_t(shirt - 1)].Top},
                                             shirt))
                << what << " shirt " << shirt;
    }
}

int ordersGiven(const Club& c) {
    int n = 0;
    for (int k = 0; k < 8; ++k) n += !c.coachOrder(k).Player.empty();
    for (const std::string& p : c.PhysioPlayer) n += !p.empty();
    for (const std::string& p : c.ScoutPlayer) n += !p.empty();
    return n;
}

}  // namespace

TEST(AutoTurn, EveryDemoClubsTurnLoadsBackAsTheScreensWouldHaveTakenIt) {
    test::TempDir dir;
    DemoOptions o = test::smallDemo(5);
    o.clubs = 4;
    makeDemoLeague(dir.path(), o);
    Session s = test::loadQuietly(dir.path());
    const Session before = s;
    Answers answers;
    const std::vector<ClubRun> runs = runAutoTurn(s, everyStage(s), nullptr, answers, defaultRandomSource(3));
    ASSERT_EQ(runs.size(), 4u);
    RecordingMessages quiet;
    saveTurnsheets(s, quiet);

    const Session back = test::loadQuietly(dir.path());
    int orders = 0;
    for (size_t i = 0; i < s.Clubs.size(); ++i) {
        const Club& c = s.Clubs[i];
        EXPECT_EQ(turnsheetText(back.Clubs[i]), turnsheetText(c)) << c.Name;
        EXPECT_EQ(back.Clubs[i].Fixtures, c.Fixtures) << c.Name;
        EXPECT_EQ(back.Clubs[i].Players, c.Players) << c.Name;
        EXPECT_EQ(back.Clubs[i].Movements, c.Movements) << c.Name;
        EXPECT_EQ(back.Clubs[i].PhysioPlayer, c.PhysioPlayer) << c.Name;
        EXPECT_EQ(back.Clubs[i].ScoutPlayer, c.ScoutPlayer) << c.Name;
        EXPECT_EQ(runs[i].Name, c.Name);
        for (const Fixture& f : c.Fixtures)
            for (int shirt = 1; shirt <= 13; ++shirt) EXPECT_FALSE(f.Slots[size_t(shirt - 1)].Player.empty()) << c.Name;
        expectTheScreensTake(c, before.Clubs[i], c.Name);
        orders += ordersGiven(c);
    }
    EXPECT_GT(orders, 8) << "the demo gives every stage something to do";
}

TEST(AutoTurn, TheOptionsSayWhatChanges) {
    test::TempDir dir;
    makeDemoLeague(dir.path(), test::smallDemo(2));
    const Session loaded = test::loadQuietly(dir.path());

    struct Case {
        const char* what;
        int team;
        bool pickTeam, physio, coach;
        PickMethod method;
        std::vector<bool> changed;  // per club
        std::vector<bool> fixturesChanged;
        std::vector<std::string> shown;
    };
    const std::string noData = "Refuse|No Stats DB data for this team|No stats db data can be found for ";
    const std::vector<Case> cases = {
        {"one club only", 2, true, true, true, PickMethod::TotalSkill, {false, true, false}, {false, true, false}, {}},
        {"no team written, still coached", 0, false, false, true, PickMethod::CoreSkills, {true, true, true},
         {false, false, false}, {}},
        {"by best blend with no database", 1, true, true, true, PickMethod::BestBlend, {false, false, false},
         {false, false, false},
         {noData + loaded.Clubs[0].Name + "\r\nAuto turn cannot find a best blend for this team"}},
    };
    for (const Case& k : cases) {
        Session s = loaded;
        AutoTurnOptions o;
        o.Team = k.team;
        o.PickTeam = k.pickTeam;
        o.Physio = k.physio;
        o.Coach = k.coach;
        o.Warn = o.Scout = false;
        o.Choices.assign(size_t(s.ClubCount()) + 1, PickChoice{k.method, "4 - 4 - 2"});
        RecordingMessages messages;
        runAutoTurn(s, o, nullptr, messages, defaultRandomSource(1));
        EXPECT_EQ(test::shown(messages), k.shown) << k.what;
        for (size_t i = 0; i < s.Clubs.size(); ++i) {
            EXPECT_EQ(s.Clubs[i] != loaded.Clubs[i], k.changed[i]) << k.what << " club " << i;
            EXPECT_EQ(s.Clubs[i].Fixtures != loaded.Clubs[i].Fixtures, k.fixturesChanged[i]) << k.what << " club " << i;
        }
    }
}

TEST(AutoTurn, ByBestBlendFieldsTheLinesOfPastMatches) {
    test::TempDir dir;
    makeDemoLeague(dir.path(), test::smallDemo(4));
    Session s = test::loadQuietly(dir.path());
    s.Prefs.StatsFile = (dir.path() / "stats.db").string();
    RecordingMessages messages;
    stats::RefreshOptions refresh;
    refresh.showDone = false;
    ASSERT_EQ(stats::refreshStats(s.Folder, s.Prefs, messages, refresh).status, stats::RefreshStatus::Done);
    ASSERT_TRUE(statsDatabaseExists(s));

    // Everybody fit again, so that every line of last week's match may be fielded.
    for (Club& c : s.Clubs)
        for (Player& p : c.Players) p.Injury = p.SuspPoints = 0;
    AutoTurnOptions o;
    o.Warn = o.Scout = o.Physio = o.Coach = false;
    o.Choices.assign(size_t(s.ClubCount()) + 1, PickChoice{PickMethod::BestBlend, std::string(kAutoPick)});
    const std::vector<ClubRun> runs = runAutoTurn(s, o, messages, defaultRandomSource(1));
    EXPECT_TRUE(messages.entries.empty()) << test::shown(messages).front();

    // A club whose one match was played in a formation that can be ordered
    // gets that match's defence back whole.
    SQLite::Database db(s.Prefs.StatsFile);
    int checked = 0;
    for (size_t i = 0; i < runs.size(); ++i) {
        ASSERT_FALSE(runs[i].Skipped);
        const Club& c = s.Clubs[i];
        SQLite::Statement team(db, "SELECT MAX(StartFormation, EndFormation) FROM MatchTeam WHERE Club = ?");
        team.bind(1, c.ClubFile);
        if (!team.executeStep() || team.getColumn(0).getInt() > 11) continue;
        ++checked;
        const Fixture& f = c.Fixtures.at(0);
        SQLite::Statement players(db, "SELECT PlayerName FROM MatchPlayer WHERE Club = ? ORDER BY Number");
        players.bind(1, c.ClubFile);
        std::vector<std::string> played;
        while (players.executeStep()) played.push_back(players.getColumn(0).getString());
        ASSERT_GE(played.size(), 11u) << c.Name;
        for (int shirt = 2; shirt <= f.Defence + 1; ++shirt)
            EXPECT_NE(std::find(played.begin(), played.end(), f.Slots[size_t(shirt - 1)].Player), played.end())
                << c.Name << " shirt " << shirt;
    }
    EXPECT_GT(checked, 0);
}
