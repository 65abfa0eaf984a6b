// A manager's week of orders for the demo league's first clubs, so that every
// screen and the Turnsheet have something to show.
#include <algorithm>

#include "core/clubview.h"

#include "core/text.h"
#include "demo/league.h"
#include "match/pitch.h"
#include "orders/market.h"
#include "orders/playeractions.h"

namespace kestrin::demo {

namespace {

std::string group(const Player& p) { return p.Position.substr(0, 3); }

// Shirts 2 to 11 of the flat 4-4-2 the pitch picture starts from.
const char* const kShirtGroups[11] = {"AGK", "DEF", "DEF", "DEF", "DEF", "MID", "MID", "MID", "MID", "STR", "STR"};

void pickTeam(Fixture& f, const Club& club, const Session& s, Random& rng, bool secondAreas) {
    std::vector<const Player*> fit;
    for (const Player& p : club.Players)
        if (p.Injury < s.InjuryLimit && p.SuspPoints < s.SuspensionLimit) fit.push_back(&p);
    // Best first; a few changes from week to week.
    std::stable_sort(fit.begin(), fit.end(), [](const Player* a, const Player* b) { return a->Skill > b->Skill; });
    std::vector<bool> used(fit.size(), false);
    // A man of the shirt's own position, now and then passing over the
    // best one; then anyone of the position; then anyone at all.
    auto take = [&](const std::string& wanted) -> std::string {
        for (int pass = 0; pass < 3; ++pass)
            for (size_t i = 0; i < fit.size(); ++i)
                if (!used[i] && (pass == 2 || group(*fit[i]) == wanted) && (pass > 0 || !rng.chance(10))) {
                    used[i] = true;
                    return fit[i]->Name;
                }
        return {};
    };
    for (int shirt = 1; shirt <= 11; ++shirt) {
        TeamSlot& slot = f.Slots[size_t(shirt - 1)];
        slot.Player = take(kShirtGroups[shirt - 1]);
        const CellPos at = defaultSlotPosition(shirt);
        slot.Left = at.Left;
        slot.Top = at.Top;
        slot.Left2 = slot.Top2 = 0;
    }
    f.Slots[11].Player = take("AGK");
    f.Slots[12].Player = take("MID");
    if (secondAreas) {
        // Wide midfielders who push on, and a striker who drops back.
        for (int shirt : {6, 9}) {
            TeamSlot& slot = f.Slots[size_t(shirt - 1)];
            slot.Left2 = slot.Left;
            slot.Top2 = slot.Top - 1080;
        }
        TeamSlot& striker = f.Slots[9];
        striker.Left2 = 4200;
        striker.Top2 = 2760;
    }
    f.Tactics = int16_t(rng.range(0, 5));
    f.Captain = int16_t(rng.range(2, 11));
    f.Penalties = int16_t(rng.range(9, 11));
    f.Corners = int16_t(rng.range(6, 9));
    f.FreeKicks = int16_t(rng.range(6, 11));
    f.CornersAiming = int16_t(rng.range(1, 3));
    // The shirts stand in a 4-4-2, so that is the formation ordered; the
    // draws are kept so the rest of the league stays as it was.
    (void)rng.range(1, 3), (void)rng.range(1, 3), (void)rng.range(1, 3);
    f.Defence = 4;
    f.Midfield = 4;
    f.Attack = 2;
    f.DefAgg = int16_t(rng.range(1, 5));
    f.MidAgg = int16_t(rng.range(1, 5));
    f.AttAgg = int16_t(rng.range(1, 5));
    f.Revolver = int16_t(rng.range(0, 1));
    f.Snappy = int16_t(rng.range(0, 1));
    f.Pace = int16_t(rng.range(1, 3));
    f.PassLength = int16_t(rng.range(1, 3));
    f.PassHeight = int16_t(rng.range(1, 3));
}

void coach(Club& club, const Session& s, Random& rng) {
    const char* departments[4] = {"AGK", "DEF", "MID", "STR"};
    for (int d = 0; d < 4; ++d)
        for (int youth = 0; youth < 2; ++youth) {
            std::vector<const Player*> fit;
            for (const Player& p : club.Players)
                if (group(p) == departments[d] && p.Injury < s.InjuryLimit && (youth ? p.Age < 18 : p.Age >= 18))
                    fit.push_back(&p);
            if (fit.empty()) continue;
            CoachOrder& order = club.coachOrder(d + 4 * youth);
            order.Player = fit[size_t(rng.range(0, int(fit.size()) - 1))]->Name;
            order.Skill = int16_t(rng.range(1, 9));
        }
}

void treat(Club& club) {
    std::vector<const Player*> hurt;
    for (const Player& p : club.Players)
        if (p.Injury > 0) hurt.push_back(&p);
    std::stable_sort(hurt.begin(), hurt.end(), [](const Player* a, const Player* b) { return a->Injury > b->Injury; });
    int left = club.Physio;
    for (size_t k = 0; k < 3 && k < hurt.size() && left > 0; ++k) {
        const int points = std::min<int>(left, std::max<int>(1, std::min<int>(hurt[k]->Injury, club.Physio / 2)));
        club.PhysioPlayer[k] = hurt[k]->Name;
        club.PhysioPoints[k] = int16_t(points);
        left -= points;
    }
    club.PhysioPointsLeft = int16_t(left);
}

}  // namespace

void giveOrders(Session& s, int clubs, uint64_t seed) {
    Random rng(seed ^ 0x5EEDF00Dull);
    for (int c = 0; c < std::min(clubs, s.ClubCount()); ++c) {
        Club& club = s.Clubs[size_t(c)];
        for (size_t m = 0; m < club.Fixtures.size(); ++m)
            if (!club.Fixtures[m].Opponent.empty()) pickTeam(club.Fixtures[m], club, s, rng, m == 0);
        coach(club, s, rng);
        treat(club);
        if (!club.Players.empty()) {
            club.OneToOnePlayer = club.Players[size_t(rng.range(0, int(club.Players.size()) - 1))].Name;
            club.OneToOneInstruction = int16_t(rng.range(1, 10));
        }

        // Scouting and a bid name players of clubs this manager doesn't run.
        std::vector<const ExportClub*> others;
        for (const ExportClub& e : s.ExportClubs)
            if (!e.Players.empty() && e.Players[0].Managed != "Y") others.push_back(&e);
        for (size_t k = 0; k < 3 && !others.empty(); ++k) {
            const ExportClub& e = *others[size_t(rng.range(0, int(others.size()) - 1))];
            club.ScoutPlayer[k] = e.Players[size_t(rng.range(0, int(e.Players.size()) - 1))].Name;
            club.ScoutClub[k] = e.Name;
            club.ScoutAggressive[k] = k != 1;
        }
        size_t move = 0;
        if (!others.empty()) {
            const ExportClub& e = *others[size_t(rng.range(0, int(others.size()) - 1))];
            Movement& bid = club.Movements[move++];
            bid.Move = kMoveBid;
            const ExportPlayer& target = e.Players.back();
            bid.Player = target.Name;
            bid.Club = e.Name;
            // A bid the market takes: within the player's values, a contract
            // of one of the four lengths, an incentive under the cap.
            const int32_t lowest = target.MinValue, highest = std::max(lowest, int32_t(val(target.MaxValue)));
            bid.Fee = lowest + (highest - lowest) / 100 * rng.range(0, 100);
            bid.Contract = int32_t(6 * rng.range(1, 4));
            MarketSelection row;
            row.MaxValue = std::string(target.MaxValue);
            bid.Incentive = std::min(incentiveLimit(row), int32_t(rng.range(0, 10) * 5000));
        }
        for (const Player& p : club.Players)
            if (p.Listed == "N" && p.Contract < 20 && move < 6) {
                Movement& renew = club.Movements[move++];
                renew.Move = 3;
                renew.Player = p.Name;
                renew.Contract = int32_t(6 * rng.range(1, 4));  // the lengths a contract offer allows
                break;
            }

        // Lines of the main menu's boxes; works under way leave nothing to order.
        club.BettingOrder = c == 0 ? "Bet this week" : "No betting this week";
        club.CapacityOrder = "Action capacity increase";
        club.FacilityOrder = "No facility increase this week";
        club.DepartmentOrder = c == 0 ? "Physio Department increase" : "No department increase this week";
        fillWeeklyChoices(club);
        club.Messages = "Good luck to every manager this week";
        club.Private = "";
        club.PrivateMessages = "";
    }
    if (clubs > 0) s.TurnChanged = true;
}

}  // namespace kestrin::demo
