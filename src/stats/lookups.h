#pragma once
// The number tables of the Stats database and the look-ups the loaders use
// to turn the game's words into numbers. A number is its row's place.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kestrin::stats {

inline constexpr const char* kUnknownClub = "9999";

// Rows counted from 1 (index 0 holds row 1), except tactics, which start at 0.
extern const std::array<std::string_view, 10> kSkills;
extern const std::array<std::string_view, 50> kCompetitions;
extern const std::array<std::string_view, 29> kRounds;
extern const std::array<std::string_view, 24> kTactics;  // 0 .. 23
extern const std::array<std::string_view, 21> kGoalTypes;
extern const std::array<std::string_view, 9> kLeagueNames;
extern const std::array<std::string_view, 9> kLeagueFiles;
extern const std::array<std::string_view, 15> kFormationReportTexts;
extern const std::array<std::string_view, 10> kPositionCodes;
// Ball-work phrases of the match commentary: a win counts an attempt and a
// success, a loss an attempt only.
extern const std::array<std::string_view, 19> kBallWinPhrases;
extern const std::array<std::string_view, 4> kBallLossPhrases;

// The leading whole number of a text (0 when none), held within the range
// a column takes, however many figures the text has.
int64_t wholeNumber(std::string_view text);

int skillNumber(std::string_view text);                      // 11 when none
int competitionFromStart(std::string_view text);             // 50 when none
int competitionInLine(std::string_view text);                // 50 when none
std::string_view competitionName(int number);                // "" outside 1..50
int roundFromText(std::string_view text);
int roundFromLine(int competition, std::string_view text);
int tacticNumber(std::string_view text);                     // 23 when none
int goalTypeInLine(std::string_view text);                   // 21 when none
int leagueFromFileName(std::string_view name);               // 0 when none
std::string_view leagueName(int number);                     // "" outside 1..9
int formationNumber(std::string_view text);                  // 16 when none
std::string formationText(int number);                       // "" for 0, 16 and anything unknown
int positionNumber(std::string_view code);                   // 0 when none

// The text's length in decimal, ":", then zlib's compress output.
// Throws std::runtime_error with zlib's failure in words.
std::string compressString(std::string_view text);

// The clubs of CODES.TXT as the loaders look them up: by the trimmed name
// (cut to 20 characters) or the trimmed first 15 characters of it, without
// regard to case, since match headings give the away side in capitals. The
// last hit is tried first, since reports name the same clubs over and over.
class ClubLookup {
public:
    void clear();
    void add(std::string_view code, std::string_view name);
    size_t size() const { return entries_.size(); }
    std::string codeFromName(std::string_view name);       // "9999" when unknown
    std::string codeFromTruncated(std::string_view name);  // "9999" when unknown
    int lastClubFound() const { return last_; }

private:
    struct Entry {
        std::string code, name, truncated;  // trimmed
    };
    std::string find(std::string_view name, bool truncated);
    std::vector<Entry> entries_;
    std::unordered_map<std::string, int> byName_, byTruncated_;  // first entry of each
    int last_ = 0;  // 1-based; 0 before the first hit
};

inline constexpr size_t kMaxClubEntries = 20000;

}  // namespace kestrin::stats
