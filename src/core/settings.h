#pragma once
// kestrin.ini: the manager's own settings, one value a line, by position.
#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

namespace kestrin {

struct PictureChoice {
    int16_t Option = 0;  // 0 built-in, 1 none, 2 from file
    std::string File;
    bool operator==(const PictureChoice&) const = default;
};

struct Settings {
    PictureChoice MainPic, SquadPic, FixPic, PitchPic, ScoutPic, LastPic, NewsPic, PrefPic;
    int16_t InjuryLimitSetting = 10;
    int16_t Warnings = 0;
    int16_t WarnInc = 1;
    std::string SquadPath;
    std::string WeeklyPath;
    int16_t SquadBackup = 1;
    int16_t WeeklyBackup = 1;
    std::string MatchViewerPath;
    std::string StoredTurnStamp;
    int16_t WarnNot = 0;
    std::array<int16_t, 12> VidiOpt{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};  // chkVidiOpt 0..11
    std::array<std::string, 5> VidiAlert{"No Club Selected", "No Club Selected", "No Club Selected",
                                         "No Club Selected", "No Club Selected"};
    int16_t RetTurn = 0;
    std::string ScoutFile;
    std::string StatsFile;
    int16_t SaveProf = 1;
    PictureChoice AutoPic;
    bool operator==(const Settings&) const = default;
};

// Every default; the three paths point into the game folder.
Settings defaultSettings(const std::filesystem::path& gameFolder);

// Reads kestrin.ini leniently: comma and line end both separate values, a
// file that ends early (or a value that won't read) keeps the remaining
// defaults, and an InjuryLimitSetting outside 1..10 becomes 10.
Settings parseSettings(std::string_view bytes, const std::filesystem::path& gameFolder);
Settings readSettings(const std::filesystem::path& gameFolder);  // no file: defaults
std::string settingsBytes(const Settings& s);
void writeSettings(const std::filesystem::path& gameFolder, const Settings& s);  // atomic; throws WriteError

inline constexpr const char* kSettingsFileName = "kestrin.ini";

}  // namespace kestrin
