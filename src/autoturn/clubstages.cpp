#include "autoturn/clubstages.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/text.h"
#include "orders/coaching.h"
#include "orders/market.h"
#include "orders/onetoone.h"
#include "orders/playeractions.h"

namespace kestrin {

namespace {

// ---- Physio -----------------------------------------------------------------

bool holdsPhysioOrder(const Club& club, const std::string& name) {
    return std::find(club.PhysioPlayer.begin(), club.PhysioPlayer.end(), name) != club.PhysioPlayer.end();
}

// One physio order for `player` through the squad screen's rule: min(Injury,
// points left) points. Returns whether it was placed.
bool orderPhysio(Club& club, const Player& player, int& pointsLeft, int& ordersUsed) {
    const int points = std::min<int>(player.Injury, pointsLeft);
    if (!treatWithPhysio(club, player.Name, std::to_string(points))) return false;
    pointsLeft -= points;
    ++ordersUsed;
    return true;
}

// ---- Warnings ---------------------------------------------------------------

constexpr std::string_view kContractWarningTitle = "Contract Renewal Warning";
constexpr int32_t kWarningBalance = 300000;
// The values the game writes into a renewal's movement slot (incentive and
// contract as the game has them, though the screen's own check would refuse them).
constexpr int32_t kRenewalIncentive = 12;
constexpr int32_t kRenewalContract = 300000;

// Whether a Windows-1252 byte is an upper-case letter, one that LCase changes.
bool upperCaseLetter(unsigned char c) {
    if (c >= 'A' && c <= 'Z') return true;
    if (c == 0x8A || c == 0x8C || c == 0x8E || c == 0x9F) return true;  // Š Œ Ž Ÿ
    return c >= 0xC0 && c <= 0xDE && c != 0xD7;                          // À to Þ but ×
}

// Mid(Name, 2) <> LCase(Mid(Name, 2)).
bool upperCaseAfterFirst(std::string_view name) {
    if (name.size() < 2) return false;
    return std::any_of(name.begin() + 1, name.end(), [](char c) { return upperCaseLetter(static_cast<unsigned char>(c)); });
}

// ---- Scouting ---------------------------------------------------------------

constexpr int kScoutDrawsPerOrder = 20000;
constexpr size_t kScoutOrders = 4;

bool goodScoutTarget(const ExportPlayer& p) { return p.Managed == "Y" && val(p.TotalSkill) + val(p.Perf) > 120; }

// Int(r * n) for a 0-based index below n; a source straying out of [0, 1) is
// held inside it.
size_t drawIndex(double r, size_t n) {
    if (!(r > 0)) return 0;  // also NaN
    const double x = std::floor(r * double(n));
    return x >= double(n) ? n - 1 : size_t(x);
}

// ---- Coaching ---------------------------------------------------------------

// Coaching skill number 1 to 9 of a 0-based kSkillNames index; 0 for Flair,
// Creativity and anything else.
int coachingNumberOfSkillIndex(int index) {
    if (index < 0 || index >= int(kSkillNames.size())) return 0;
    return coachingSkillCode(kSkillNames[size_t(index)]);
}

// The player's value of a coaching skill number 1 to 9.
int16_t coachingSkillValue(const Player& p, int number) {
    for (size_t i = 0; i < kSkillNames.size(); ++i)
        if (kSkillNames[i] == kCoachingSkillNames[size_t(number - 1)]) return p.skill(int(i));
    return 0;
}

// By coaching department: the core skills in the order they are tried, and
// the coach whose level they must stay below.
struct Department {
    std::vector<int> core;
    int16_t Club::*coach;
};

const std::array<Department, 4>& departments() {
    static const std::array<Department, 4> d = {{
        {{5, 7, 8, 3, 1, 9}, &Club::GoalkeeperCoach},
        {{3, 7, 9, 4, 2, 1}, &Club::DefenceCoach},
        {{1, 2, 4, 9, 6}, &Club::MidfieldCoach},
        {{5, 8, 9, 4, 2}, &Club::AttackCoach},
    }};
    return d;
}

constexpr std::array<int, 9> kAllCoachingSkills = {1, 2, 3, 4, 5, 6, 7, 8, 9};

}  // namespace

void autoPhysio(Club& club, const ShirtPlayers& shirts) {
    for (size_t k = 0; k < club.PhysioPlayer.size(); ++k) {
        club.PhysioPlayer[k].clear();
        club.PhysioPoints[k] = 0;
    }
    club.PhysioPointsLeft = club.Physio;
    int pointsLeft = club.Physio;
    int ordersUsed = 0;

    for (int number : shirts) {
        const Player* p = club.player(number);
        if (!p || p->Injury <= 0 || pointsLeft <= 0 || ordersUsed >= kPhysioSlots) continue;
        orderPhysio(club, *p, pointsLeft, ordersUsed);
    }

    // The rest of the squad, one walk per order still free; an order for
    // which the walk finds nobody stays empty. No order is written without
    // points to give.
    const int firstFree = ordersUsed;
    for (int k = firstFree; k < kPhysioSlots && pointsLeft > 0; ++k) {
        for (const Player& p : club.Players) {
            if (p.Injury <= 0 || holdsPhysioOrder(club, p.Name)) continue;
            if (orderPhysio(club, p, pointsLeft, ordersUsed)) break;
        }
    }
}

void autoWarnings(Club& club, Messages& messages) {
    if (!upperCaseAfterFirst(club.Name)) return;
    club.Movements.fill(Movement{});
    const std::string title(kContractWarningTitle);
    for (const Player& p : club.Players) {
        // The balance isn't lowered by the orders: the test is the same for the whole walk.
        if (club.Balance <= kWarningBalance || firstFreeMovementSlot(club) == 0) break;
        if (p.Contract < 6 && p.TLFigure < 1) {
            const std::string text = p.Name + " for " + club.Name + " has " + std::to_string(p.Contract) +
                                     " months left on his contract.\r\n\r\nDo you want to renew his contract ?";
            if (messages.askQuestion(title, text)) {
                Movement& m = club.Movements[size_t(firstFreeMovementSlot(club) - 1)];
                m.Move = kMoveContract;
                m.Player = p.Name;
                m.Club.clear();
                m.Fee = 0;
                m.Incentive = kRenewalIncentive;
                m.Contract = kRenewalContract;
            }
        }
        if (p.Sign > 3) {
            const std::string text = p.Name + " for " + club.Name +
                                     " is unhappy, and other managers may be able to sign him.\r\n\r\n"
                                     "Do you want to try a money talks action for this player ?\n\r\n\r"
                                     "Money talks gives a player money to try and bring his signing figure down\r\n"
                                     "It can only be used for one player per week";
            if (messages.askQuestion(title, text)) setOneToOne(club, 0, p.Name);
        }
    }
}

void autoScouting(Club& club, const ClubExport& exportClubs, const RandomSource& rnd) {
    for (size_t k = 0; k < kScoutOrders; ++k) {
        club.ScoutPlayer[k].clear();
        club.ScoutClub[k].clear();
        club.ScoutAggressive[k] = false;
    }
    const size_t orders = std::min<size_t>(kScoutOrders, club.Scout > 0 ? size_t(club.Scout / 3) : 0);
    if (orders == 0 || !rnd) return;

    const std::span<const ExportClub> clubs = exportClubs.clubs();
    const bool anyGood = std::any_of(clubs.begin(), clubs.end(), [](const ExportClub& c) {
        return std::any_of(c.Players.begin(), c.Players.end(), goodScoutTarget);
    });
    if (!anyGood) return;

    RecordingMessages discarded;
    const std::vector<ScoutRecord> noRecords;
    for (size_t k = 0; k < orders; ++k) {
        bool found = false;
        for (int draw = 0; draw < kScoutDrawsPerOrder && !found; ++draw) {
            // Two draws each time, as the game: the club, then one of its players.
            const ExportClub& c = clubs[drawIndex(rnd(), clubs.size())];
            const double r = rnd();
            if (c.Players.empty()) continue;
            const ExportPlayer& p = c.Players[drawIndex(r, c.Players.size())];
            if (!goodScoutTarget(p)) continue;
            found = true;
            MarketPick pick;
            pick.Screen = MarketScreen::Scout;
            pick.ClubSelected = true;
            MarketSelection row;
            row.Name = std::string(p.Name);
            row.Club = std::string(c.Name);
            pick.Row = std::move(row);
            cmdScout(club, pick, false, noRecords, discarded);
        }
        if (!found) return;  // the search gave up: the remaining orders stay empty
    }
}

void autoCoaching(Club& club, const ShirtPlayers& shirts, const std::vector<HistoryRecord>& history) {
    // coachedBefore[player][skill number - 1]
    std::vector<std::array<bool, 9>> coachedBefore(club.Players.size());
    for (const HistoryRecord& h : history) {
        if (h.Result != "P") continue;
        const int number = coachingNumberOfSkillIndex(historySkillIndex(h.Skill));
        if (number == 0) continue;
        const std::string_view name = trimView(h.Name);
        for (size_t i = 0; i < club.Players.size(); ++i) {
            if (trimView(club.Players[i].Name) != name) continue;
            coachedBefore[i][size_t(number - 1)] = true;
            break;
        }
    }

    for (int i = 0; i < 8; ++i) club.coachOrder(i) = CoachOrder{};

    for (int pass = 1; pass <= 4; ++pass) {
        const bool coreSkills = pass == 1 || pass == 3;
        const bool shirtsOnly = pass <= 2;
        for (int distance = 1; distance <= 11; ++distance) {
            for (size_t i = 0; i < club.Players.size(); ++i) {
                const Player& p = club.Players[i];
                if (p.Age >= 33) continue;
                const int department = coachingDepartment(p.Position);
                if (department < 0) continue;
                const Department* d = &departments()[size_t(department)];
                const bool senior = p.Age >= 18;
                if (!club.coachOrder(department + (senior ? 0 : 4)).Player.empty()) continue;
                if (shirtsOnly && std::find(shirts.begin(), shirts.end(), int(i) + 1) == shirts.end()) continue;
                if (skillPointsToNextLevel(p) != distance) continue;
                const int16_t level = club.*(d->coach);
                const std::span<const int> skills =
                    coreSkills ? std::span<const int>(d->core) : std::span<const int>(kAllCoachingSkills);
                for (int s : skills) {
                    if (coachingSkillValue(p, s) >= level || coachedBefore[i][size_t(s - 1)]) continue;
                    // A refusal (an injured player, say) leaves the order to the next candidate.
                    coachPlayer(club, senior ? CoachLevel::Senior : CoachLevel::Youth, p.Name,
                                kCoachingSkillNames[size_t(s - 1)]);
                    break;
                }
            }
        }
    }
}

}  // namespace kestrin
