#pragma once
// An in-memory Stats database for loader tests, and rows read back as text.
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

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

}  // namespace kestrin::test
