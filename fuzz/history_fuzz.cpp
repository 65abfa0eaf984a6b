// Arbitrary bytes as a club's coaching history: the history screen's rows and
// Auto Turn's coaching, which skips what the history says reached its
// potential, take any file without reading past a record.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "autoturn/clubstages.h"
#include "orders/coaching.h"
#include "orders/history.h"

namespace {

kestrin::Club squad() {
    kestrin::Club c;
    c.GoalkeeperCoach = c.DefenceCoach = c.MidfieldCoach = c.AttackCoach = 20;
    const char* positions[] = {"AGKP", "DEFC", "MIDL", "STRR", "XXXX"};
    for (int i = 0; i < 10; ++i) {
        kestrin::Player p;
        p.Name = "Player " + std::to_string(i);
        p.Position = positions[i % 5];
        p.Age = int16_t(15 + 2 * i);
        p.Skill = int16_t(i % 4);
        p.TotalSkill = int16_t(11 * (p.Skill + 1) - 1 - i % 3);
        for (int s = 0; s < 11; ++s) p.skill(s) = int16_t((i * 7 + s * 3) % 25);
        c.Players.push_back(p);
    }
    return c;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<kestrin::HistoryRecord> records =
        kestrin::parseHistory(std::string_view(reinterpret_cast<const char*>(data), size));
    if (records.size() != size / kestrin::kHistoryRecordLength) std::abort();
    const std::vector<kestrin::CoachingHistoryRow> rows = kestrin::coachingHistoryRows(records);
    if (rows.size() != records.size()) std::abort();

    static const kestrin::Club fresh = squad();
    kestrin::Club club = fresh;
    kestrin::autoCoaching(club, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0, 0, 0}, records);
    for (int k = 0; k < 8; ++k) {
        const kestrin::CoachOrder& o = club.coachOrder(k);
        if (!o.Player.empty() && (o.Skill < 1 || o.Skill > 9)) std::abort();
    }
    return 0;
}
