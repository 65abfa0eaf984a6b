#include "autoturn/clubstages.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "orders/coaching.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::shown;
using kestrin::test::slot;
using kestrin::test::squadPlayer;

namespace {

ShirtPlayers shirtsOf(std::initializer_list<int> numbers) {
    ShirtPlayers s{};
    size_t k = 0;
    for (int n : numbers) s[k++] = n;
    return s;
}

Player injured(std::string name, int injury, std::string position = "MIDC", int age = 25) {
    return squadPlayer(std::move(name), std::move(position), age, 5, injury);
}

// ---- Physio -----------------------------------------------------------------

struct PhysioOrder {
    std::string Player;
    int Points;
    bool operator==(const PhysioOrder&) const = default;
};

std::vector<PhysioOrder> physioOrders(const Club& c) {
    std::vector<PhysioOrder> out;
    for (size_t k = 0; k < 3; ++k) out.push_back({c.PhysioPlayer[k], c.PhysioPoints[k]});
    return out;
}

}  // namespace

TEST(AutoPhysio, AnInjuredFirstTeamPlayerTakesEveryPointThereIs) {
    Club c;
    c.Physio = 3;
    c.Players = {injured("Al First", 5), injured("Bo Bench", 2)};
    autoPhysio(c, shirtsOf({1}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"Al First", 3}, {"", 0}, {"", 0}}));
    EXPECT_EQ(c.PhysioPointsLeft, 0);
}

TEST(AutoPhysio, ShirtsInShirtOrderThenTheSquadInSquadOrder) {
    Club c;
    c.Physio = 10;
    c.Players = {injured("P1 Fit", 0), injured("P2 Out", 2), injured("P3 Shirt", 4), injured("P4 Out", 1),
                 injured("P5 Late", 7), injured("P6 Shirt", 1)};
    // Shirt 1 is P6, shirt 2 is P1 (fit), shirt 3 is P3.
    autoPhysio(c, shirtsOf({6, 1, 3}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"P6 Shirt", 1}, {"P3 Shirt", 4}, {"P2 Out", 2}}));
    EXPECT_EQ(c.PhysioPointsLeft, 3);
}

TEST(AutoPhysio, TheSquadWalkFillsEachFreeOrder) {
    Club c;
    c.Physio = 10;
    c.Players = {injured("P1 Fit", 0), injured("P2 Out", 2), injured("P3 Shirt", 4), injured("P4 Out", 1),
                 injured("P5 Late", 7)};
    autoPhysio(c, shirtsOf({1, 3}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"P3 Shirt", 4}, {"P2 Out", 2}, {"P4 Out", 1}}));
    EXPECT_EQ(c.PhysioPointsLeft, 3);
}

TEST(AutoPhysio, AtMostThreeOrdersAndNoneWithoutPoints) {
    Club c;
    c.Physio = 20;
    c.Players = {injured("A", 3), injured("B", 3), injured("C", 3), injured("D", 3)};
    autoPhysio(c, shirtsOf({1, 2, 3, 4}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"A", 3}, {"B", 3}, {"C", 3}}));
    EXPECT_EQ(c.PhysioPointsLeft, 11);

    c.Physio = 5;
    autoPhysio(c, shirtsOf({1, 2, 3, 4}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"A", 3}, {"B", 2}, {"", 0}}));
    EXPECT_EQ(c.PhysioPointsLeft, 0);

    // The squad walk as well gives no order once the points are gone.
    c.Physio = 4;
    autoPhysio(c, shirtsOf({}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"A", 3}, {"B", 1}, {"", 0}}));
    EXPECT_EQ(c.PhysioPointsLeft, 0);
}

TEST(AutoPhysio, ClearsLastOrdersAndMendsAStalePointsFigure) {
    Club c;
    c.Physio = 6;
    c.PhysioPointsLeft = 0;
    c.PhysioPlayer = {"Old One", "Old Two", "Old Three"};
    c.PhysioPoints = {2, 2, 2};
    c.Players = {injured("Fit", 0), injured("Mended", -1)};
    autoPhysio(c, shirtsOf({1, 2}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"", 0}, {"", 0}, {"", 0}}));
    EXPECT_EQ(c.PhysioPointsLeft, 6);
}

TEST(AutoPhysio, NoPhysioNoOrders) {
    Club c;
    c.Physio = 0;
    c.Players = {injured("A", 3), injured("B", 3)};
    autoPhysio(c, shirtsOf({1}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"", 0}, {"", 0}, {"", 0}}));
    EXPECT_EQ(c.PhysioPointsLeft, 0);
}

TEST(AutoPhysio, APlayerInTwoShirtsOrAnEmptyOrStrayShirtIsTreatedOnce) {
    Club c;
    c.Physio = 10;
    c.Players = {injured("A", 3), injured("B", 2)};
    // The second order for A is refused by the squad screen's rule and costs nothing.
    autoPhysio(c, shirtsOf({0, 1, 99, 1}));
    EXPECT_EQ(physioOrders(c), (std::vector<PhysioOrder>{{"A", 3}, {"B", 2}, {"", 0}}));
    EXPECT_EQ(c.PhysioPointsLeft, 5);
}

// ---- Contracts and unhappy players --------------------------------------------

namespace {

Player contracted(std::string name, int months, int tl = 0, int sign = 0) {
    Player p = squadPlayer(std::move(name), "DEFC", 25);
    p.Contract = int16_t(months);
    p.TLFigure = int16_t(tl);
    p.Sign = int16_t(sign);
    return p;
}

std::string renewalQuestion(const std::string& player, const std::string& club, int months) {
    return "Ask|Contract Renewal Warning|" + player + " for " + club + " has " + std::to_string(months) +
           " months left on his contract.\r\n\r\nDo you want to renew his contract ?";
}

std::string unhappyQuestion(const std::string& player, const std::string& club) {
    return "Ask|Contract Renewal Warning|" + player + " for " + club +
           " is unhappy, and other managers may be able to sign him.\r\n\r\n"
           "Do you want to try a money talks action for this player ?\n\r\n\r"
           "Money talks gives a player money to try and bring his signing figure down\r\n"
           "It can only be used for one player per week";
}

Club warningClub() {
    Club c;
    c.Name = "Harbour Town";
    c.Balance = 300001;
    c.Players = {contracted("Al Short", 5), contracted("Bo Six", 6), contracted("Cy Listed", 2, 1),
                 contracted("Di Moody", 12, 0, 4), contracted("Ed Both", 3, 0, 5), contracted("Fi Calm", 24, 0, 3)};
    c.Movements[0] = slot(1, "Someone", "Elsewhere", 1000, 24, 50);
    c.Movements[4] = slot(4, "Listed Man");
    return c;
}

}  // namespace

TEST(AutoWarnings, TheQuestionsTheirTextsAndTheOrdersOfAYes) {
    Club c = warningClub();
    RecordingMessages m;
    m.answers = {true, true, false, true};
    autoWarnings(c, m);
    EXPECT_EQ(shown(m), (std::vector<std::string>{
                            renewalQuestion("Al Short", "Harbour Town", 5),
                            unhappyQuestion("Di Moody", "Harbour Town"),
                            renewalQuestion("Ed Both", "Harbour Town", 3),
                            unhappyQuestion("Ed Both", "Harbour Town"),
                        }));
    // Every slot was cleared first; the renewal takes the game's values.
    std::array<Movement, 6> want{};
    want[0] = slot(3, "Al Short", "", 0, 300000, 12);
    EXPECT_EQ(c.Movements, want);
    EXPECT_EQ(c.Movements[0].Incentive, 12);
    EXPECT_EQ(c.Movements[0].Contract, 300000);
    // The later Yes overwrites the earlier money talks.
    EXPECT_EQ(c.OneToOneInstruction, 1);
    EXPECT_EQ(c.OneToOnePlayer, "Ed Both");
}

TEST(AutoWarnings, RenewalsTakeTheSlotsInOrder) {
    Club c = warningClub();
    RecordingMessages m;  // Yes to everything
    autoWarnings(c, m);
    std::array<Movement, 6> want{};
    want[0] = slot(3, "Al Short", "", 0, 300000, 12);
    want[1] = slot(3, "Ed Both", "", 0, 300000, 12);
    EXPECT_EQ(c.Movements, want);
    EXPECT_EQ(c.OneToOnePlayer, "Ed Both");
}

TEST(AutoWarnings, NoAnswersNoOrdersAndAnEarlierInstructionStays) {
    Club c = warningClub();
    c.OneToOneInstruction = 11;
    RecordingMessages m;
    m.defaultAnswer = false;
    autoWarnings(c, m);
    EXPECT_EQ(m.entries.size(), 4u);
    EXPECT_EQ(c.Movements, (std::array<Movement, 6>{}));
    EXPECT_EQ(c.OneToOneInstruction, 11);
    EXPECT_EQ(c.OneToOnePlayer, "");
}

TEST(AutoWarnings, ABalanceOf300000AsksNothingButTheSlotsAreCleared) {
    Club c = warningClub();
    c.Balance = 300000;
    RecordingMessages m;
    autoWarnings(c, m);
    EXPECT_TRUE(m.entries.empty());
    EXPECT_EQ(c.Movements, (std::array<Movement, 6>{}));
    EXPECT_EQ(c.OneToOneInstruction, 0);
}

TEST(AutoWarnings, AClubNameInLowerCasePastItsFirstLetterIsPassedOver) {
    for (const char* name : {"Harbour town", "H", "", "Hfc 1899 - the club"}) {
        Club c = warningClub();
        c.Name = name;
        const Club before = c;
        RecordingMessages m;
        autoWarnings(c, m);
        EXPECT_TRUE(m.entries.empty()) << name;
        EXPECT_EQ(c, before) << name;
    }
    // Any upper-case letter from the second on does, a Windows-1252 one as well.
    for (const char* name : {"hARBOUR", "harbour \xC9lan", "xY"}) {
        Club c = warningClub();
        c.Name = name;
        RecordingMessages m;
        autoWarnings(c, m);
        EXPECT_EQ(m.entries.size(), 4u) << name;
    }
}

TEST(AutoWarnings, TheWalkEndsWhenTheSixSlotsAreUsed) {
    Club c;
    c.Name = "Harbour Town";
    c.Balance = 5000000;
    for (int i = 1; i <= 8; ++i) c.Players.push_back(contracted("Man " + std::to_string(i), 1));
    c.Players[5].Sign = 4;  // the sixth: his own question about money talks still comes
    c.Players[6].Sign = 4;  // the seventh is never reached
    RecordingMessages m;
    autoWarnings(c, m);
    ASSERT_EQ(m.entries.size(), 7u);
    EXPECT_EQ(shown(m)[5], renewalQuestion("Man 6", "Harbour Town", 1));
    EXPECT_EQ(shown(m)[6], unhappyQuestion("Man 6", "Harbour Town"));
    for (size_t k = 0; k < 6; ++k)
        EXPECT_EQ(c.Movements[k], slot(3, "Man " + std::to_string(k + 1), "", 0, 300000, 12));
    EXPECT_EQ(c.OneToOnePlayer, "Man 6");
}

TEST(AutoWarnings, ANoDoesNotUseASlot) {
    Club c;
    c.Name = "Harbour Town";
    c.Balance = 5000000;
    for (int i = 1; i <= 8; ++i) c.Players.push_back(contracted("Man " + std::to_string(i), 0));
    RecordingMessages m;
    m.answers = {false, false};
    autoWarnings(c, m);
    EXPECT_EQ(m.entries.size(), 8u);
    EXPECT_EQ(c.Movements[0].Player, "Man 3");
    EXPECT_EQ(c.Movements[5].Player, "Man 8");
}

// ---- Scouting -----------------------------------------------------------------

namespace {

ExportPlayer exported(std::string_view name, std::string_view managed, std::string_view ts, std::string_view perf) {
    ExportPlayer p;
    p.Name = name;
    p.Managed = managed;
    p.TotalSkill = ts;
    p.Perf = perf;
    return p;
}

// The texts are literals, so the views stay valid.
ClubExport makeExport(std::vector<std::pair<std::string_view, std::vector<ExportPlayer>>> clubs) {
    auto st = std::make_shared<ClubExport::Storage>();
    for (auto& c : clubs) st->players.insert(st->players.end(), c.second.begin(), c.second.end());
    size_t at = 0;
    for (auto& c : clubs) {
        st->clubs.push_back({c.first, std::span<const ExportPlayer>(st->players).subspan(at, c.second.size())});
        at += c.second.size();
    }
    return ClubExport(std::move(st));
}

ClubExport scoutExport() {
    return makeExport({
        {"Alpha",
         {exported("A One", "Y", "100", "21"), exported("A Two", "N", "200", "0"), exported("A Three", "Y", "100", "20")}},
        {"Empty", {}},
        {"Beta", {exported("B One", "Y", " 90", "40"), exported("B Two", "Y", "60", "60")}},
    });
}

// Plays back the numbers, then `after` for ever; counts the draws.
struct Script {
    std::vector<double> numbers;
    double after = 0;
    size_t draws = 0;
    RandomSource source() {
        return [this] {
            const double r = draws < numbers.size() ? numbers[draws] : after;
            ++draws;
            return r;
        };
    }
};

RandomSource mustNotDraw() {
    return [] () -> double { throw std::logic_error("no draw expected"); };
}

Club scoutingClub(int scout) {
    Club c;
    c.Name = "Harbour Town";
    c.Scout = int16_t(scout);
    c.ScoutPlayer = {"Old 1", "Old 2", "Old 3", "Old 4"};
    c.ScoutClub = {"X", "X", "X", "X"};
    c.ScoutAggressive = {true, true, true, true};
    return c;
}

}  // namespace

TEST(AutoScouting, DrawsAClubThenOneOfItsPlayersUntilAGoodOne) {
    Club c = scoutingClub(12);
    Script s;
    s.numbers = {
        0.0, 0.0,                          // Alpha, A One: good
        0.5, 0.9, 0.99, 0.6, 0.7, 0.4,     // Empty (a miss), Beta's B Two (120), Beta's B One
        0.2, 0.5, 0.3, 0.9, 0.1, 0.1,      // A Two (managed flag "N"), A Three (120), A One again
        0.95, 0.1,                         // B One again
    };
    s.after = -1;  // nothing more is drawn
    autoScouting(c, scoutExport(), s.source());
    EXPECT_EQ(s.draws, 16u);
    EXPECT_EQ(c.ScoutPlayer, (std::array<std::string, 4>{"A One", "B One", "A One", "B One"}));
    EXPECT_EQ(c.ScoutClub, (std::array<std::string, 4>{"Alpha", "Beta", "Alpha", "Beta"}));
    EXPECT_EQ(c.ScoutAggressive, (std::array<bool, 4>{}));
}

TEST(AutoScouting, OneOrderForEachThreeLevelsAtMostFour) {
    struct Case {
        int scout;
        size_t orders;
    } cases[] = {{0, 0}, {1, 0}, {2, 0}, {3, 1}, {5, 1}, {6, 2}, {11, 3}, {12, 4}, {20, 4}, {-3, 0}};
    for (const Case& k : cases) {
        Club c = scoutingClub(k.scout);
        Script s;
        s.after = 0;  // A One every time
        autoScouting(c, scoutExport(), s.source());
        EXPECT_EQ(s.draws, 2 * k.orders) << k.scout;
        for (size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(c.ScoutPlayer[i], i < k.orders ? "A One" : "") << k.scout;
            EXPECT_EQ(c.ScoutClub[i], i < k.orders ? "Alpha" : "") << k.scout;
            EXPECT_FALSE(c.ScoutAggressive[i]) << k.scout;
        }
    }
}

TEST(AutoScouting, AnEmptyOrPoorExportReturnsAtOnce) {
    Club c = scoutingClub(12);
    autoScouting(c, ClubExport(), mustNotDraw());
    EXPECT_EQ(c.ScoutPlayer, (std::array<std::string, 4>{}));
    EXPECT_EQ(c.ScoutClub, (std::array<std::string, 4>{}));
    EXPECT_EQ(c.ScoutAggressive, (std::array<bool, 4>{}));

    c = scoutingClub(12);
    const ClubExport poor = makeExport({
        {"Alpha", {exported("A Two", "N", "200", "0"), exported("A Three", "Y", "100", "20")}},
        {"Empty", {}},
        {"Beta", {exported("B Two", "Y", "60", "60"), exported("B Odd", "y", "100", "100"),
                  exported("B Blank", "", "100", "100")}},
    });
    autoScouting(c, poor, mustNotDraw());
    EXPECT_EQ(c.ScoutPlayer, (std::array<std::string, 4>{}));
}

TEST(AutoScouting, ASearchThatFindsNobodyGivesUpAndLeavesTheRestEmpty) {
    // Only Beta has a good player, and the draws always fall on Alpha.
    const ClubExport ex = makeExport({
        {"Alpha", {exported("A Two", "N", "200", "0")}},
        {"Beta", {exported("B One", "Y", "90", "40")}},
    });
    Club c = scoutingClub(12);
    Script s;
    s.after = 0.1;
    autoScouting(c, ex, s.source());
    EXPECT_EQ(s.draws, 2u * 20000u);
    EXPECT_EQ(c.ScoutPlayer, (std::array<std::string, 4>{}));

    c = scoutingClub(12);
    s = Script{};
    s.numbers = {0.9, 0.0};
    s.after = 0.1;
    autoScouting(c, ex, s.source());
    EXPECT_EQ(s.draws, 2u + 2u * 20000u);
    EXPECT_EQ(c.ScoutPlayer, (std::array<std::string, 4>{"B One", "", "", ""}));
    EXPECT_EQ(c.ScoutClub, (std::array<std::string, 4>{"Beta", "", "", ""}));
}

TEST(AutoScouting, ANumberOutsideTheRangeStaysInside) {
    Club c = scoutingClub(3);
    Script s;
    s.numbers = {1.0, 1.0};
    autoScouting(c, scoutExport(), s.source());
    EXPECT_EQ(s.draws, 4u);  // Beta's B Two first, then Alpha's A One
    EXPECT_EQ(c.ScoutPlayer[0], "A One");
}

// ---- Coaching -----------------------------------------------------------------

namespace {

// Every skill at `value`, Skill 5, and the TotalSkill that leaves `distance`
// points to the next level.
Player trainee(std::string name, std::string position, int age, int distance, int value = 5) {
    Player p = squadPlayer(std::move(name), std::move(position), age, 5);
    for (int i = 0; i < 11; ++i) p.skill(i) = int16_t(value);
    p.TotalSkill = int16_t(66 - distance);
    return p;
}

Club coachingClub() {
    Club c;
    c.Name = "Harbour Town";
    c.GoalkeeperCoach = c.DefenceCoach = c.MidfieldCoach = c.AttackCoach = 10;
    return c;
}

std::vector<CoachOrder> coachOrders(const Club& c) {
    std::vector<CoachOrder> out;
    for (int i = 0; i < 8; ++i) out.push_back(c.coachOrder(i));
    return out;
}

HistoryRecord reached(std::string name, std::string skill, std::string result = "P") {
    HistoryRecord h;
    h.Date = "20260101";
    h.Name = std::move(name);
    h.Position = "DEFC";
    h.Result = std::move(result);
    h.Skill = std::move(skill);
    return h;
}

}  // namespace

TEST(AutoCoaching, EachLineTakesItsFirstCoreSkillBelowTheCoach) {
    Club c = coachingClub();
    c.Players = {trainee("Gk Senior", "AGKP", 25, 3), trainee("Df Senior", "DEFC", 25, 3),
                 trainee("Md Senior", "MIDL", 25, 3), trainee("St Senior", "STRR", 25, 3),
                 trainee("Gk Youth", "AGKP", 16, 3),  trainee("Df Youth", "DEFR", 17, 3),
                 trainee("Md Youth", "MIDC", 15, 3),  trainee("St Youth", "STRC", 17, 3)};
    c.Players[0].Shoot = 10;   // the goalkeeper's list: 5, 7, ...
    c.Players[1].Tackle = 11;  // the defender's: 3, 7, ...
    c.Players[2].Pass = 12;    // the midfielder's: 1, 2, ...
    c.Players[3].Shoot = 10;   // the striker's: 5, 8, 9, ...
    c.Players[3].OffHd = 10;
    autoCoaching(c, shirtsOf({1, 2, 3, 4, 5, 6, 7, 8}), {});
    EXPECT_EQ(coachOrders(c), (std::vector<CoachOrder>{{"Gk Senior", 7}, {"Df Senior", 7}, {"Md Senior", 2},
                                                        {"St Senior", 9}, {"Gk Youth", 5}, {"Df Youth", 3},
                                                        {"Md Youth", 1}, {"St Youth", 5}}));
}

TEST(AutoCoaching, TheClosestToHisNextLevelFirstThenSquadOrder) {
    Club c = coachingClub();
    c.Players = {trainee("Far", "MIDL", 25, 4), trainee("Near", "MIDC", 25, 2), trainee("Also Near", "MIDR", 25, 2)};
    autoCoaching(c, shirtsOf({1, 2, 3}), {});
    EXPECT_EQ(c.MidfieldSenior, (CoachOrder{"Near", 1}));
}

TEST(AutoCoaching, TheSelectedPlayersCoreSkillsFirst) {
    Club c = coachingClub();
    // Closer to his level but not selected.
    c.Players = {trainee("Bench", "DEFL", 25, 1), trainee("Picked", "DEFC", 25, 9)};
    autoCoaching(c, shirtsOf({2}), {});
    EXPECT_EQ(c.DefenceSenior, (CoachOrder{"Picked", 3}));
}

TEST(AutoCoaching, TheSelectedPlayersOtherSkillsBeforeAnybodysCoreSkills) {
    Club c = coachingClub();
    c.Players = {trainee("Bench", "STRL", 25, 1), trainee("Picked", "STRC", 25, 9, 10)};
    c.Players[1].Tackle = 9;  // his one skill below the coach, no core skill of a striker
    autoCoaching(c, shirtsOf({2}), {});
    EXPECT_EQ(c.AttackSenior, (CoachOrder{"Picked", 3}));
}

TEST(AutoCoaching, AnybodysCoreSkillsBeforeAnybodysOtherSkills) {
    Club c = coachingClub();
    c.Players = {trainee("Other Skill", "MIDL", 25, 1, 10), trainee("Core Skill", "MIDC", 25, 8, 10),
                 trainee("Picked Done", "MIDR", 25, 1, 10)};
    c.Players[0].Shoot = 3;  // no core skill of a midfielder
    c.Players[1].Run = 3;
    autoCoaching(c, shirtsOf({3}), {});
    EXPECT_EQ(c.MidfieldSenior, (CoachOrder{"Core Skill", 4}));

    c.Players.erase(c.Players.begin() + 1);
    autoCoaching(c, shirtsOf({2}), {});
    EXPECT_EQ(c.MidfieldSenior, (CoachOrder{"Other Skill", 5}));
}

TEST(AutoCoaching, ThePassesOfEveryOtherSkillWalkThemInNumberOrder) {
    Club c = coachingClub();
    c.Players = {trainee("Keeper", "AGKP", 25, 1, 10)};
    c.Players[0].Strength = 2;
    c.Players[0].Control = 2;
    autoCoaching(c, shirtsOf({1}), {});
    // Strength (9) is a core skill of a goalkeeper, and comes first.
    EXPECT_EQ(c.GoalkeeperSenior, (CoachOrder{"Keeper", 9}));

    c.Players[0].Strength = 10;
    c.Players[0].Run = 1;
    autoCoaching(c, shirtsOf({1}), {});
    EXPECT_EQ(c.GoalkeeperSenior, (CoachOrder{"Keeper", 2}));
}

TEST(AutoCoaching, FlairAndCreativityAreNeverCoached) {
    Club c = coachingClub();
    c.Players = {trainee("Artist", "MIDC", 25, 1, 10)};
    c.Players[0].Flair = 1;
    c.Players[0].Creativity = 1;
    autoCoaching(c, shirtsOf({1}), {});
    EXPECT_EQ(coachOrders(c), std::vector<CoachOrder>(8));
}

TEST(AutoCoaching, AgeDistanceAndPositionRules) {
    Club c = coachingClub();
    c.Players = {trainee("Old", "DEFC", 33, 1),        trainee("Older", "MIDC", 36, 1),
                 trainee("At Level", "STRC", 25, 0),   trainee("Far Off", "AGKP", 25, 12),
                 trainee("Past Level", "STRL", 25, -3), trainee("Nowhere", "XXXX", 25, 1)};
    autoCoaching(c, shirtsOf({1, 2, 3, 4, 5, 6}), {});
    EXPECT_EQ(coachOrders(c), std::vector<CoachOrder>(8));

    c.Players.push_back(trainee("Just Young Enough", "DEFC", 32, 11));
    c.Players.push_back(trainee("Eighteen", "MIDC", 18, 11));
    c.Players.push_back(trainee("Seventeen", "MIDC", 17, 11));
    autoCoaching(c, shirtsOf({}), {});
    EXPECT_EQ(coachOrders(c), (std::vector<CoachOrder>{{}, {"Just Young Enough", 3}, {"Eighteen", 1}, {},
                                                        {}, {}, {"Seventeen", 1}, {}}));
}

TEST(AutoCoaching, LastWeeksOrdersAreCleared) {
    Club c = coachingClub();
    for (int i = 0; i < 8; ++i) c.coachOrder(i) = CoachOrder{"Somebody", int16_t(i + 1)};
    c.Players = {trainee("Only", "DEFC", 25, 2)};
    autoCoaching(c, shirtsOf({}), {});
    EXPECT_EQ(coachOrders(c), (std::vector<CoachOrder>{{}, {"Only", 3}, {}, {}, {}, {}, {}, {}}));
}

TEST(AutoCoaching, NothingBelowTheCoachNoOrder) {
    Club c = coachingClub();
    c.DefenceCoach = 5;  // every skill is 5: not below
    c.Players = {trainee("Good Enough", "DEFC", 25, 2)};
    autoCoaching(c, shirtsOf({1}), {});
    EXPECT_EQ(coachOrders(c), std::vector<CoachOrder>(8));
}

TEST(AutoCoaching, ASkillThatReachedItsPotentialIsNotCoachedAgain) {
    Club c = coachingClub();
    c.Players = {trainee("Ann Lee", "DEFC", 25, 2)};
    // The defender's list is 3, 7, 9, 4: Tackle, DefHd ("DE"), Strength ("ST") are done.
    const std::vector<HistoryRecord> history = {
        reached("Ann Lee", "TA"),       reached("Ann Lee ", "DE"), reached("  Ann Lee", "ST"),
        reached("Ann Lee", "RU", "Y"),  reached("Ann Lee", "RU", "N"), reached("Ann Lee", "FL"),
        reached("Nobody", "RU"),        reached("Ann Lee", "XX"), reached("Ann Lee", "DF"),
    };
    autoCoaching(c, shirtsOf({1}), history);
    EXPECT_EQ(c.DefenceSenior, (CoachOrder{"Ann Lee", 4}));

    // In the other skills' pass the same holds.
    c.Players[0].Run = c.Players[0].Control = c.Players[0].Pass = 10;
    autoCoaching(c, shirtsOf({1}), history);
    EXPECT_EQ(c.DefenceSenior, (CoachOrder{"Ann Lee", 5}));

    // Every skill below the coach reached: no order.
    std::vector<HistoryRecord> all = history;
    for (const char* code : {"PA", "CO", "RU", "SH", "DR", "OF"}) all.push_back(reached("Ann Lee", code));
    autoCoaching(c, shirtsOf({1}), all);
    EXPECT_EQ(c.DefenceSenior, CoachOrder{});
}

TEST(AutoCoaching, AnInjuredPlayerRefusedByTheCoachLeavesTheOrderToTheNext) {
    Club c = coachingClub();
    c.Players = {trainee("Hurt", "DEFC", 25, 1), trainee("Nearly Hurt", "DEFL", 25, 2), trainee("Bench", "DEFR", 25, 1)};
    c.Players[0].Injury = 10;
    c.Players[1].Injury = 9;
    autoCoaching(c, shirtsOf({1, 2}), {});
    EXPECT_EQ(c.DefenceSenior, (CoachOrder{"Nearly Hurt", 3}));

    c.Players[1].Injury = 12;
    autoCoaching(c, shirtsOf({1, 2}), {});
    EXPECT_EQ(c.DefenceSenior, (CoachOrder{"Bench", 3}));
}
