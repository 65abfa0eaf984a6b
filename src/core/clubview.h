#pragma once
// The club on screen: what the main menu and the squad grid show for one club,
// the four weekly choices of the main menu, the club's pictures file, and the
// clearing of turns. The screens only lay out what these functions return.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/errors.h"
#include "core/messages.h"
#include "core/session.h"
#include "orders/history.h"

namespace kestrin {

// ---- Screens and their titles ------------------------------------------------

// GameName + " turnsheet entry : " + the screen's name.
std::string screenTitle(const GameIni& game, std::string_view screenName);

// ---- Select club ------------------------------------------------------------

// What Select club remembers besides CurrentClub.
struct ClubView {
    int LastSelectedClub = -1;  // none yet, so the first selection is a change
    int CurrentFixture = 1;     // 1-based
    bool SameClubSelected = false;
    bool ClubSelecting = false;
    std::string BadgeFile;  // empty: the built-in picture
    std::string ShirtFile;
};

// Notes a selection of `index`: a different club than last time forgets the
// chosen fixture; the same club keeps it. Also makes `index` the CurrentClub.
void noteClubChoice(Session& session, ClubView& view, int index);

// ---- The main menu ----------------------------------------------------------

// One label of the main menu: its caption in the game's words and the figure
// or text behind it. The label reads caption + value.
struct MenuLabel {
    std::string control;
    std::string caption;
    std::string value;
    std::string text() const { return caption + value; }
};

// A choice box: its lines, whether the manager may change it, and the line
// showing (always one of `lines`).
struct ChoiceBox {
    std::vector<std::string> lines;
    bool enabled = true;
    int chosen = 0;  // 0-based index into lines
};

enum class WeeklyChoice { Betting, Capacity, Facility, Department };

inline constexpr std::array<std::string_view, 2> kBettingLines = {"No betting this week", "Bet this week"};
inline constexpr std::array<std::string_view, 2> kCapacityLines = {"No capacity increase this week",
                                                                   "Action capacity increase"};
inline constexpr std::array<std::string_view, 2> kFacilityLines = {"No facility increase this week",
                                                                   "Action facility increase"};
inline constexpr std::array<std::string_view, 9> kDepartmentFixedLines = {
    "No department increase this week", "GK Coach Department increase",   "Def Coach Department increase",
    "Mid Coach Department increase",    "Att Coach Department increase",  "Physio Department increase",
    "Groundsman Department increase",   "Marketing Department increase",  "Scout Department increase"};

// Every line of ComboDept: the fixed lines, then one line for each pair of a
// department that may rise (below 10) and a different one that may fall
// (above 6), raise first.
std::vector<std::string> departmentLines(const Club& club);

// The labels in the order the main menu fills them, the pending works boxes
// (txtCapInc, txtFacInc, txtDeptUp) among them. Figures carry the blank in
// front that the game prints; money carries the Currency and a blank.
std::vector<MenuLabel> mainMenuLabels(const Club& club, const GameIni& game);

struct PendingWorks {
    bool capacity = false;
    bool facility = false;
    bool department = false;
};
PendingWorks pendingWorks(const Club& club);

// The four choice boxes of the main menu, after the pending works and the
// default orders have been applied to the club's orders. An order that is no
// line of its box (a department pair of an older week) is added at the end,
// so the box shows what the Turnsheet will carry.
struct WeeklyChoices {
    ChoiceBox betting, capacity, facility, department;
    const ChoiceBox& box(WeeklyChoice which) const;
};
WeeklyChoices fillWeeklyChoices(Club& club);

// A choice made in one of the four boxes: stored, and TurnChanged set, unless
// the screen is being filled. Returns whether anything was stored.
bool chooseWeekly(Session& session, WeeklyChoice which, const std::string& line);

// "Goalkeeper Coach : " and the level, and so on: five lines.
std::vector<std::string> coachTextLines(const Club& club);

// What the colours of the squad grid mean.
inline constexpr std::string_view kColourKeyText =
    "     Red - Reached Potential or coach not good enough,      Yellow - Coaching failure,    Green - "
    "Coaching Success";

// ---- The squad grid ---------------------------------------------------------

enum class AgeFilter { All = 0, Seniors = 1, Youth = 2 };             // btnTeam
enum class PositionFilter { All = 0, Gkp = 1, Def = 2, Mid = 3, Str = 4 };  // btnPos

inline constexpr std::array<std::string_view, 3> kAgeFilterCaptions = {"All Ages", "Seniors", "Youth"};
inline constexpr std::array<std::string_view, 5> kPositionFilterCaptions = {"All", "Gkp", "Def", "Mid", "Str"};

inline constexpr int kSquadGridColumnCount = 19;
inline constexpr int kFirstSkillColumn = 6;  // Pass; the eleven skills follow in order

struct SquadRow {
    int player = 0;  // 1-based index in Players
    std::array<std::string, kSquadGridColumnCount> cells;
    std::array<int, kSquadGridColumnCount> colour;  // 0xRRGGBB, -1 for none
};

// The rows the filters keep, in squad order, coloured by the coaching history
// (the last record of a player and skill wins).
std::vector<SquadRow> squadGridRows(const Club& club, AgeFilter age, PositionFilter position,
                                    const std::vector<HistoryRecord>& history);

// The club's coaching history file: <game>/<ClubFile>HST.TXT.
fs::path historyPath(const Session& session, const Club& club);

// ---- Badge and shirt --------------------------------------------------------

inline constexpr std::string_view kBadgeDialogTitle = "Please select your badge picture";
inline constexpr std::string_view kShirtDialogTitle = "Please select your shirt picture";
inline constexpr std::string_view kPictureFilter = "Picture Files|*.bmp;*.dib;*.gif;*.jpg";

// <game>/<ClubFile>pref.ini: the badge's path on line 1, the shirt's on line 2.
fs::path clubPicturesPath(const Session& session, const Club& club);
// Fills BadgeFile and ShirtFile; both empty when the file is absent. Throws
// GameFileError when the file holds fewer than two lines; then both stay empty.
void readClubPictures(const Session& session, const Club& club, ClubView& view);
// Writes both lines, CR LF, atomically. Throws WriteError.
void writeClubPictures(const Session& session, const Club& club, const ClubView& view);

// ---- Clear turn -------------------------------------------------------------

inline constexpr std::string_view kClearTurnTitle = "Clear turn";
inline constexpr std::array<std::string_view, 2> kClearTurnCaptions = {"Clear This Turn", "Clear All Turns"};

std::string clearTurnQuestion(const Session& session, bool allClubs);
// Deletes the Turnsheet of the current club, or of every club, where it
// exists. Returns the files deleted. Throws WriteError when one can't be.
std::vector<fs::path> deleteTurnsheets(const Session& session, bool allClubs);

// ---- Saving and sending -----------------------------------------------------

// Save turnsheet, telling the manager in plain words when a file can't be
// written (TurnChanged then keeps its value, so closing still offers to
// save). Returns whether every file was written.
bool saveTurnsheetsTelling(Session& session, Messages& messages);

// Send turnsheets while there is no mail: the incomplete check of sending,
// the save, then a note of where the files are. Returns whether they were saved.
bool sendTurnsheetsWithoutMail(Session& session, Messages& messages);
inline constexpr std::string_view kNotSentTitle = "Turnsheet not sent";
std::string notSentText(const Session& session);

// The save prompt of closing: asks when orders changed, once a session.
void closingSavePrompt(Session& session, Messages& messages);

// The words for a Turnsheet that could not be written.
inline constexpr std::string_view kSaveFailedTitle = "Turnsheet not saved";
std::string saveFailedText(const Session& session, const WriteError& e);

}  // namespace kestrin
