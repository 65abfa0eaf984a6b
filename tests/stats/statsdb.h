#pragma once
// An in-memory Stats database for loader tests, and rows read back as text.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "stats/store.h"

namespace kestrin::test {

// Each row as its columns joined by "|", NULL shown as "-".
inline std::vector<std::string> rows(SQLite::Database& db, const std::string& sql) {
    std::vector<std::string> out;
    SQLite::Statement q(db, sql);
    while (q.executeStep()) {
        std::string r;
        for (int i = 0; i < q.getColumnCount(); ++i) {
            if (i) r += "|";
            r += q.getColumn(i).isNull() ? "-" : q.getColumn(i).getString();
        }
        out.push_back(r);
    }
    return out;
}

struct MemoryStats {
    SQLite::Database db{":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE};
    stats::StatsStore store;
    explicit MemoryStats(const std::string& date = "2026-05-16") : store((stats::createSchema(db), db), date) {}
};

// One club's side of a stored match: its formations and six blends (start
// then end: defence, midfield, attack), and a MatchPlayer row for each shirt
// as the report leaves it, with its TimeSub.
inline void addSide(stats::StatsStore& s, int64_t code, const std::string& club, int start, int end,
                    const std::array<int64_t, 6>& blends, const std::vector<std::string>& names,
                    const std::vector<int>& timeSubs = {}) {
    stats::StatsStore::TeamRow t;
    t.club = club;
    t.venue = "H";
    t.startFormation = start;
    t.endFormation = end;
    std::copy(blends.begin(), blends.end(), t.blends);
    s.addMatchTeam(code, t);
    for (size_t i = 0; i < names.size(); ++i) {
        std::vector<stats::Opt> figures(21);
        figures[1] = int64_t(i + 1);                                  // Number
        figures[16] = i < timeSubs.size() ? timeSubs[i] : int64_t(0);  // TimeSub
        s.addMatchPlayer(code, club, names[i], figures);
    }
}

}  // namespace kestrin::test
