#pragma once
// The Preferences screen: what each option is called, which screen each
// background dresses, the injury figure's limits, the alert club lists, and
// storing a change of the settings.
#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "core/session.h"

namespace kestrin {

// ---- Backgrounds ------------------------------------------------------------

inline constexpr std::array<std::string_view, 3> kPictureOptionCaptions = {"Default", "None", "From File"};
inline constexpr std::string_view kBackgroundAdvice = " For best results, use pictures with pixel size of 800 x 670";

struct BackgroundOption {
    std::string_view screen;   // control name of the screen it dresses
    std::string_view caption;  // the screen as the manager knows it
    std::string_view setting;  // "MainPic": names the option's controls
    std::string_view dialogTitle;
    PictureChoice Settings::*choice;
};

inline constexpr std::array<BackgroundOption, 9> kBackgroundOptions = {{
    {"MainMenu", "Main Menu", "MainPic", "Please select background picture for the Main Menu", &Settings::MainPic},
    {"SquadScr", "Squad Screen", "SquadPic", "Please select background picture for the Squad Screen",
     &Settings::SquadPic},
    {"Fixt", "Fixtures", "FixPic", "Please select background picture for the Fixtures screen", &Settings::FixPic},
    {"PitchGrid", "Pitch Grid", "PitchPic", "Please select background picture for the Pitch Grid Screen",
     &Settings::PitchPic},
    {"Scout", "Scouting", "ScoutPic", "Please select background picture for the Scout screen", &Settings::ScoutPic},
    {"LastWk", "Last Week", "LastPic", "Please select background picture for the Last Week screen",
     &Settings::LastPic},
    {"News", "News", "NewsPic", "Please select background picture for the News screen", &Settings::NewsPic},
    {"Preferences", "Preferences", "PrefPic", "Please select background picture for the Preferences screen",
     &Settings::PrefPic},
    {"AutoTurn", "Auto Turn", "AutoPic", "Please select background picture for the Auto Turn screen",
     &Settings::AutoPic},
}};

// The option a screen's background follows, or nullptr for a screen that
// has none of its own. The scout history is dressed like the Scout screen.
const PictureChoice* backgroundFor(const Settings& settings, std::string_view screenName);

// The third option's caption: "From " and the file while a file is the
// choice, else "From File".
std::string fromFileCaption(const PictureChoice& choice);

// ---- Injuries -------------------------------------------------------------

inline constexpr std::string_view kInjuryTextBefore = "Player is unavailable for selection with";
inline constexpr std::string_view kInjuryTextAfter = "or more injury points";

// txtPhysio as typed: nothing to store while the box is empty, otherwise the
// figure held to 1..10.
std::optional<int16_t> injuryLimitFromText(std::string_view text);

// ---- Vidiprinter --------------------------------------------------------------

inline constexpr size_t kWatchOptionCount = 12;
inline constexpr std::array<std::string_view, kWatchOptionCount> kWatchDefaultCaptions = {
    "Watch English Premier / Cups", "Watch English 1st / Cups",     "Watch English 2nd / Cups",
    "Watch English 3rd / Cups",     "Watch French Premier / Cups",  "Watch German Premier / Cups",
    "Watch Italian Premier / Cups", "Watch Scottish Premier / Cups", "Watch Spanish Premier / Cups",
    "Watch European && Club cups",  "Watch World cup",              "Watch Friendlies"};

// Captions of chkVidiOpt 0..11. The leagues of game.ini (entries 1 to 8)
// name the first eight, as "Watch " + name + " / Cups"; a league game.ini
// leaves blank, and the options beyond, keep their built-in captions.
// Captions are written as check boxes take them, "&&" standing for one "&",
// so an "&" in a league name is doubled.
std::array<std::string, kWatchOptionCount> watchCaptions(const GameIni& game);

inline constexpr std::string_view kNoClubSelected = "No Club Selected";
inline constexpr std::string_view kAlertCaption = "Vidiprinter alert on teams other than your own";

// The lines of each VidiAlert list: "No Club Selected", then every club of
// the club export in its order.
std::vector<std::string> alertClubLines(std::span<const ExportClub> clubs);
// The line that shows `stored`. A club that is no longer in the export is
// added at the end, so the list shows what kestrin.ini holds.
int alertClubIndex(std::vector<std::string>& lines, const std::string& stored);

// ---- The other options ----------------------------------------------------------

// Two options, the first stored as 0.
struct OptionPair {
    std::string_view control;  // "optWarnings": buttons optWarnings0 and optWarnings1
    std::string_view caption;
    std::array<std::string_view, 2> options;
    int16_t Settings::*value;
};
inline constexpr std::array<OptionPair, 2> kOptionPairs = {{
    {"optWarnings", " Weekly Reports", {"Memos", "Ticker Tape"}, &Settings::Warnings},
    {"optWarnInc", " Warn if incomplete turnsheet", {"On Save", "On Send"}, &Settings::WarnInc},
}};

// A yes or no: the game stores 0 for yes.
struct YesNoOption {
    std::string_view control;
    std::string_view caption;
    int16_t Settings::*value;
};
inline constexpr std::array<YesNoOption, 3> kYesNoOptions = {{
    {"chkWarnNot", "Warn on bootup if notes exist", &Settings::WarnNot},
    {"chkRetTurn", "Retain Turnsheet on Load New Turn", &Settings::RetTurn},
    {"chkSaveProf", "Automatically Save Profiles", &Settings::SaveProf},
}};
inline bool isYes(int16_t stored) { return stored == 0; }
inline int16_t yesNoValue(bool yes) { return yes ? 0 : 1; }

inline constexpr std::string_view kScoutFileCaption = "Scout History File";
inline constexpr std::string_view kScoutFileDialogTitle = "Please select the scout history file";
inline constexpr std::string_view kScoutFileFilter = "Scout File|SCOUT.TXT";
inline constexpr std::string_view kStatsFileCaption = "Stats Database File";
inline constexpr std::string_view kStatsFileDialogTitle = "Please select the stats database file";
inline constexpr std::string_view kStatsFileFilter = "Stats DB File (main.mdb)|MAIN.MDB";

// ---- Storing a change -----------------------------------------------------------

inline constexpr std::string_view kSettingsNotSavedTitle = "Preferences not saved";

// Makes a change to the settings and writes kestrin.ini at once. Does
// nothing while the screens are being filled, and writes nothing when the
// change leaves the settings as they were. When the file can't be written
// the manager is told and the change holds until the program closes.
// Returns whether the settings changed.
bool changeSettings(Session& session, Messages& messages, const std::function<void(Settings&)>& change);

// The settings take effect: the injury figure becomes the limit the team
// selection uses.
void applySettings(Session& session);

}  // namespace kestrin
