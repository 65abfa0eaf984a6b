#pragma once
// The per-club coaching history file, <ClubFile>HST.TXT: fixed records of
// 47 bytes that grow week by week.
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin {

inline constexpr size_t kHistoryRecordLength = 47;

struct HistoryRecord {
    std::string Date;      // YYYYMMDD
    std::string Name;      // trimmed
    std::string Position;  // trimmed
    std::string Result;    // "Y" success, "N" failure, "P" potential reached
    std::string Skill;     // two-letter code: PA CO TA RU SH DR DE OF ST
    int16_t NewValue = 0;
    bool operator==(const HistoryRecord&) const = default;
};

// Every whole record of the file; a missing file gives none.
std::vector<HistoryRecord> readHistoryFile(const std::filesystem::path& path);
std::vector<HistoryRecord> parseHistory(std::string_view bytes);
std::string historyBytes(const std::vector<HistoryRecord>& records);

// 0-based index in kSkillNames of a history skill code, -1 when unknown.
int historySkillIndex(const std::string& code);

// The cell colour of a record's result as 0xRRGGBB: P red, Y green, N yellow;
// -1 for any other result.
int historyResultColour(const std::string& result);

// ---- The small date and place routines that the club honours list uses ----

// A league place in words: "1" "Champions", "2" "Runners up", 11 to 19 with
// "th", any other number with the ending of its last digit ("21st", "3rd").
std::string makePosition(std::string_view place);
// DD/MM/YY with day and month swapped: characters 4 to 6, 1 to 3, the last two.
std::string convDate(std::string_view date);
// DD/MM/YYYY as YYYYMMDD, which sorts as text.
std::string sortDate(std::string_view date);

}  // namespace kestrin
