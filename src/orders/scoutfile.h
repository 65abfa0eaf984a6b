#pragma once
// SCOUT.TXT: one file of fixed 109-byte records of every scout report the
// manager's clubs received, growing week by week.
#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin {

inline constexpr size_t kScoutRecordLength = 109;

struct ScoutRecord {
    std::string Date;      // YYYYMMDD
    std::string Name;      // 30
    std::string Position;  // 4
    std::string Club;      // 20; may begin with a blank, as the report gives it
    std::array<int16_t, 11> Skills{};  // PA CO TA RU SH DR DH OH FL ST CR
    int16_t TotalSkill = 0;
    int16_t TLFigure = 0;
    int16_t Goals = 0;
    int16_t Age = 0;
    int16_t Potential = 0;
    int16_t Perf = 0;
    int16_t Sign = 0;
    double Value = 0;
    std::string International;  // one character each
    std::string Retiring;
    std::string Flinging;
    bool operator==(const ScoutRecord&) const = default;
};

// Every whole record; text fields keep their padding. A missing file gives none.
std::vector<ScoutRecord> parseScoutRecords(std::string_view bytes);
std::vector<ScoutRecord> readScoutFile(const std::filesystem::path& path);
std::string scoutRecordBytes(const ScoutRecord& record);

}  // namespace kestrin
