#include "autoturn/clubstages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

std::vector<std::string_view> split(std::string_view s, char sep) {
    std::vector<std::string_view> out;
    for (size_t at = 0; !s.empty() && at <= s.size();) {
        const size_t end = std::min(s.find(sep, at), s.size());
        out.push_back(s.substr(at, end - at));
        at = end + 1;
    }
    return out;
}

// "A,1,2 B,3" is {{"A", "1", "2"}, {"B", "3"}}.
std::vector<std::vector<std::string_view>> tokens(std::string_view text, char sep = ' ') {
    std::vector<std::vector<std::string_view>> out;
    for (std::string_view word : split(text, sep)) out.push_back(split(word, ','));
    return out;
}

int num(const std::vector<std::string_view>& f, size_t i) { return i < f.size() ? std::stoi(std::string(f[i])) : 0; }

// The n orders of a stage as one line.
template <class Text>
std::string orders(size_t n, Text text) {
    std::string s;
    for (size_t i = 0; i < n; ++i) s += (i ? " " : "") + text(i);
    return s;
}

// "Name:value", "-" for an empty order.
std::string entry(const std::string& name, int value) {
    return name.empty() && value == 0 ? "-" : name + ":" + std::to_string(value);
}

// "Alpha:A1/Y/100/21,A2/N/200/0;Empty:" is clubs of Name/Managed/TotalSkill/Perf
// players. The views point into the literal, which outlives the export.
ClubExport exportOf(std::string_view text) {
    auto st = std::make_shared<ClubExport::Storage>();
    st->players.reserve(size_t(std::count(text.begin(), text.end(), '/')));  // never moved: the spans stay valid
    for (std::string_view club : split(text, ';')) {
        const auto head = split(club, ':');
        const size_t first = st->players.size();
        for (std::string_view player : split(head[1], ',')) {
            const auto f = split(player, '/');
            ExportPlayer& p = st->players.emplace_back();
            p.Name = f[0], p.Managed = f[1], p.TotalSkill = f[2], p.Perf = f[3];
        }
        st->clubs.push_back({head[0], std::span<const ExportPlayer>(st->players).subspan(first)});
    }
    return ClubExport(std::move(st));
}

// "Name,Position,Age,Distance[,every skill][,Skill=value|Injury=value...]": Skill 5, every
// skill 5 unless given, and Distance points to the next level.
Player trainee(const std::vector<std::string_view>& f) {
    Player p = squadPlayer(std::string(f[0]), std::string(f[1]), num(f, 2), 5);
    p.TotalSkill = int16_t(66 - num(f, 3));
    for (int s = 0; s < 11; ++s) p.skill(s) = 5;
    for (size_t i = 4; i < f.size(); ++i) {
        const auto kv = split(f[i], '=');
        const int16_t v = int16_t(num(kv, kv.size() - 1));
        const auto named = std::find(kSkillNames.begin(), kSkillNames.end(), kv[0]);
        EXPECT_TRUE(kv.size() == 1 || kv[0] == "Injury" || named != kSkillNames.end()) << kv[0];
        if (kv[0] == "Injury") p.Injury = v;
        for (int s = 0; s < 11; ++s)
            if (kv.size() == 1 || named - kSkillNames.begin() == s) p.skill(s) = v;
    }
    return p;
}

}  // namespace

TEST(AutoPhysio, OrdersByShirtThenSquad) {
    // Squad "Name,Injury"; orders "Name:points".
    const struct { int physio; const char* squad; ShirtPlayers shirts; const char* orders; int left; } cases[] = {
        {3, "A,5 B,2", {1}, "A:3 - -", 0},
        {10, "P1,0 P2,2 P3,4 P4,1 P5,7 P6,1", {6, 1, 3}, "P6:1 P3:4 P2:2", 3},
        {20, "A,3 B,3 C,3 D,3", {1, 2, 3, 4}, "A:3 B:3 C:3", 11},
        {5, "A,3 B,3 C,3 D,3", {1, 2, 3, 4}, "A:3 B:2 -", 0},
        {4, "A,3 B,3 C,3 D,3", {}, "A:3 B:1 -", 0},
        {6, "Fit,0 Mended,-1", {1, 2}, "- - -", 6},
        {0, "A,3 B,3", {1}, "- - -", 0},
        {10, "A,3 B,2", {0, 1, 99, 1}, "A:3 B:2 -", 5},  // two shirts, one player
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(testing::Message() << k.squad << " physio " << k.physio);
        Club c;
        c.Physio = int16_t(k.physio), c.PhysioPointsLeft = 99;  // last week's orders and a stale figure
        c.PhysioPlayer = {"Old", "Old", "Old"}, c.PhysioPoints = {2, 2, 2};
        for (const auto& f : tokens(k.squad))
            c.Players.push_back(squadPlayer(std::string(f[0]), "MIDC", 25, 5, num(f, 1)));
        autoPhysio(c, k.shirts);
        EXPECT_EQ(orders(3, [&](size_t i) { return entry(c.PhysioPlayer[i], c.PhysioPoints[i]); }), k.orders);
        EXPECT_EQ(c.PhysioPointsLeft, k.left);
    }
}

TEST(AutoWarnings, QuestionsAndOrders) {
    // Squad "Name,Contract,TLFigure,Sign". Questions "Al:5" for the renewal
    // of 5 months left, "Al:$" for money talks. A movement shows as the player
    // of an exact renewal, "?Player" for anything else. One to One as
    // "instruction:player", from an earlier 11.
    const char* base = "Al,5 Bo,6 Cy,2,1 Di,12,0,4 Ed,3,0,5 Fi,24,0,3";
    const char* asked = "Al:5 Di:$ Ed:3 Ed:$";
    const char* untouched = "?Someone - - - ?Listed -";
    const struct { const char* club; int32_t balance; const char* squad; std::vector<bool> answers;
                   const char* questions; const char* moves; const char* oneToOne; } cases[] = {
        {"Harbour Town", 300001, base, {true, true, false, true}, asked, "Al - - - - -", "1:Ed"},
        {"Harbour Town", 300001, base, {false, false, false, false}, asked, "- - - - - -", "11:"},
        {"Harbour Town", 300000, base, {}, "", "- - - - - -", "11:"},
        {"Harbour town", 300001, base, {}, "", untouched, "11:"},
        {"H", 300001, base, {}, "", untouched, "11:"},
        {"Hfc 1899 - the club", 300001, base, {}, "", untouched, "11:"},
        {"xY", 300001, base, {}, asked, "Al Ed - - - -", "1:Ed"},
        {"harbour \xC9lan", 300001, base, {}, asked, "Al Ed - - - -", "1:Ed"},
        {"Harbour Town", 5000000, "M1,1 M2,1 M3,1 M4,1 M5,1 M6,1,0,4 M7,1,0,4 M8,1", {},
         "M1:1 M2:1 M3:1 M4:1 M5:1 M6:1 M6:$", "M1 M2 M3 M4 M5 M6", "1:M6"},
        {"Harbour Town", 5000000, "M1,0 M2,0 M3,0 M4,0 M5,0 M6,0 M7,0 M8,0", {false, false},
         "M1:0 M2:0 M3:0 M4:0 M5:0 M6:0 M7:0 M8:0", "M3 M4 M5 M6 M7 M8", "11:"},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(testing::Message() << k.club << " " << k.balance << " " << k.squad);
        Club c;
        c.Name = k.club, c.Balance = k.balance, c.OneToOneInstruction = 11;
        c.Movements[0] = slot(1, "Someone", "Elsewhere", 1000, 24, 50), c.Movements[4] = slot(4, "Listed");
        for (const auto& f : tokens(k.squad)) {
            Player& p = c.Players.emplace_back(squadPlayer(std::string(f[0]), "DEFC", 25));
            p.Contract = int16_t(num(f, 1)), p.TLFigure = int16_t(num(f, 2)), p.Sign = int16_t(num(f, 3));
        }
        RecordingMessages m;
        m.answers = k.answers;
        autoWarnings(c, m);
        std::vector<std::string> want;
        for (const auto& q : split(k.questions, ' ')) {
            const auto f = split(q, ':');
            const std::string head = "Ask|Contract Renewal Warning|" + std::string(f[0]) + " for " + k.club;
            want.push_back(f[1] != "$" ? head + " has " + std::string(f[1]) +
                                             " months left on his contract.\r\n\r\nDo you want to renew his contract ?"
                                       : head + " is unhappy, and other managers may be able to sign him.\r\n\r\n"
                                                "Do you want to try a money talks action for this player ?\n\r\n\r"
                                                "Money talks gives a player money to try and bring his signing "
                                                "figure down\r\nIt can only be used for one player per week");
        }
        EXPECT_EQ(shown(m), want);
        EXPECT_EQ(orders(6, [&](size_t i) {
                      const Movement& v = c.Movements[i];
                      const bool renewal = v == slot(3, v.Player, "", 0, 300000, 12);
                      return v == Movement{} ? "-" : renewal ? v.Player : "?" + v.Player;
                  }), k.moves);
        EXPECT_EQ(std::to_string(c.OneToOneInstruction) + ":" + c.OneToOnePlayer, k.oneToOne);
    }
}

TEST(AutoScouting, DrawsAndOrders) {
    // A1 and B1 are the good ones: A3 and B2 have exactly 120, A2 is managed.
    // The numbers are played back, then `after` for ever. Orders "Club/Player".
    const char* mixed = "Alpha:A1/Y/100/21,A2/N/200/0,A3/Y/100/20;Empty:;Beta:B1/Y/ 90/40,B2/Y/60/60";
    const char* poor = "Alpha:A2/N/200/0,A3/Y/100/20;Beta:B2/Y/60/60,B3/y/100/100,B4//100/100";
    const char* onlyBeta = "Alpha:A2/N/200/0;Beta:B1/Y/90/40";
    const struct { int scout; const char* ex; std::vector<double> numbers; double after; size_t draws;
                   const char* orders; } cases[] = {
        {12, mixed, {0.0, 0.0, 0.5, 0.9, 0.99, 0.9, 0.7, 0.4, 0.2, 0.5, 0.3, 0.9, 0.1, 0.1, 0.95, 0.1}, -1, 16,
         "Alpha/A1 Beta/B1 Alpha/A1 Beta/B1"},
        {2, mixed, {}, 0, 0, "- - - -"},
        {5, mixed, {}, 0, 2, "Alpha/A1 - - -"},
        {11, mixed, {}, 0, 6, "Alpha/A1 Alpha/A1 Alpha/A1 -"},
        {20, mixed, {}, 0, 8, "Alpha/A1 Alpha/A1 Alpha/A1 Alpha/A1"},
        {-3, mixed, {}, 0, 0, "- - - -"},
        {12, "", {}, 0, 0, "- - - -"},
        {12, poor, {}, 0, 0, "- - - -"},
        {12, onlyBeta, {}, 0.1, 40000, "- - - -"},
        {12, onlyBeta, {0.9, 0.0}, 0.1, 40002, "Beta/B1 - - -"},
        {3, mixed, {1.0, 1.0}, 0, 4, "Alpha/A1 - - -"},  // Beta's B2 first: 1.0 is held inside
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(testing::Message() << "scout " << k.scout << " " << k.ex << " after " << k.after);
        Club c;
        c.Scout = int16_t(k.scout), c.ScoutPlayer = {"Old", "Old", "Old", "Old"};
        c.ScoutClub = {"X", "X", "X", "X"}, c.ScoutAggressive = {true, true, true, true};
        size_t draws = 0;
        autoScouting(c, exportOf(k.ex),
                     [&] { return draws < k.numbers.size() ? k.numbers[draws++] : (++draws, k.after); });
        EXPECT_EQ(draws, k.draws);
        EXPECT_EQ(orders(4, [&](size_t i) {
                      const bool none = (c.ScoutClub[i] + c.ScoutPlayer[i]).empty();
                      return none ? "-" : c.ScoutClub[i] + "/" + c.ScoutPlayer[i];
                  }), k.orders);
        EXPECT_EQ(c.ScoutAggressive, (std::array<bool, 4>{}));
    }
}

TEST(AutoCoaching, OrdersByPassDistanceAndSkill) {
    // Every coach at 10. History "Name,Skill,Result;...". Orders in Turnsheet
    // order (seniors GK DEF MID STR, then youths) as "Name:skill".
    const std::string done = "Ann,TA,P;Ann ,DE,P;  Ann,ST,P;Ann,RU,Y;Ann,RU,N;Ann,FL,P;Nobody,RU,P;Ann,XX,P;Ann,DF,P";
    const std::string all = done + ";Ann,PA,P;Ann,CO,P;Ann,RU,P;Ann,SH,P;Ann,DR,P;Ann,OF,P";
    const char* nobody = "- - - - - - - -";
    const struct { const char* squad; ShirtPlayers shirts; std::string history; const char* orders; } cases[] = {
        {"GkS,AGKP,25,3,Shoot=10,DefHd=10 DfS,DEFC,25,3,Tackle=11 MdS,MIDL,25,3,Pass=12,Control=10 "
         "StS,STRR,25,3,Shoot=10 GkY,AGKP,16,3 DfY,DEFR,17,3 MdY,MIDC,15,3 StY,STRC,17,3",
         {1, 2, 3, 4, 5, 6, 7, 8}, "", "GkS:8 DfS:7 MdS:4 StS:8 GkY:5 DfY:3 MdY:1 StY:5"},
        {"Far,MIDL,25,4 Near,MIDC,25,2 Also,MIDR,25,2", {1, 2, 3}, "", "- - Near:1 - - - - -"},
        {"Bench,DEFL,25,1 Picked,DEFC,25,9", {2}, "", "- Picked:3 - - - - - -"},
        {"Bench,STRL,25,1 Picked,STRC,25,9,10,Tackle=9", {2}, "", "- - - Picked:3 - - - -"},
        {"Other,MIDL,25,1,10,Shoot=3 Core,MIDC,25,8,10,Run=3 Done,MIDR,25,1,10", {3}, "", "- - Core:4 - - - - -"},
        {"Other,MIDL,25,1,10,Shoot=3 Done,MIDR,25,1,10", {2}, "", "- - Other:5 - - - - -"},
        {"Keeper,AGKP,25,1,10,Strength=2,Control=2", {1}, "", "Keeper:9 - - - - - - -"},
        {"Keeper,AGKP,25,1,10,Control=2,Run=1", {1}, "", "Keeper:2 - - - - - - -"},
        {"Artist,MIDC,25,1,10,Flair=1,Creativity=1", {1}, "", nobody},
        {"Old,DEFC,33,1 Older,MIDC,36,1 AtLevel,STRC,25,0 FarOff,AGKP,25,12 Past,STRL,25,-3 Nowhere,XXXX,25,1 "
         "Young,DEFC,32,11 Eighteen,MIDC,18,11 Seventeen,MIDC,17,11",
         {}, "", "- Young:3 Eighteen:1 - - - Seventeen:1 -"},
        {"Ann,DEFC,25,2", {1}, done, "- Ann:4 - - - - - -"},
        {"Ann,DEFC,25,2,Run=10,Control=10,Pass=10", {1}, done, "- Ann:5 - - - - - -"},
        {"Ann,DEFC,25,2,Run=10,Control=10,Pass=10", {1}, all, nobody},
        {"Hurt,DEFC,25,1,Injury=10 Nearly,DEFL,25,2,Injury=9 Bench,DEFR,25,1", {1, 2}, "", "- Nearly:3 - - - - - -"},
        {"Hurt,DEFC,25,1,Injury=10 Nearly,DEFL,25,2,Injury=12 Bench,DEFR,25,1", {1, 2}, "", "- Bench:3 - - - - - -"},
    };
    for (const auto& k : cases) {
        SCOPED_TRACE(k.squad);
        Club c;
        c.GoalkeeperCoach = c.DefenceCoach = c.MidfieldCoach = c.AttackCoach = 10;
        for (int i = 0; i < 8; ++i) c.coachOrder(i) = CoachOrder{"Old", int16_t(i + 1)};
        for (const auto& f : tokens(k.squad)) c.Players.push_back(trainee(f));
        std::vector<HistoryRecord> history;
        for (const auto& f : tokens(k.history, ';'))
            history.push_back({"", std::string(f[0]), "", std::string(f[2]), std::string(f[1]), 0});
        autoCoaching(c, k.shirts, history);
        EXPECT_EQ(orders(8, [&](size_t i) { return entry(c.coachOrder(int(i)).Player, c.coachOrder(int(i)).Skill); }),
                  k.orders);
    }
}
