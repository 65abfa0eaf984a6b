#pragma once
// The value tables of a fixture's match orders and the converters between the
// texts the manager picks and the codes the Turnsheet carries. The converters
// look alike but differ in what they do with input they do not know; callers
// must pick the one their caller in the game would use.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin {

// ---- Formations ---------------------------------------------------------

struct FormationEntry {
    int16_t Code;
    std::string_view Text;
    int16_t Defence, Midfield, Attack;
};

// The twelve formations that can be ordered, in list order: codes 1 to 11,
// then "0 - 0 - 0" (code 0), which means "no change" in a change rule.
inline constexpr std::array<FormationEntry, 12> kFormations = {{
    {1, "4 - 3 - 3", 4, 3, 3},
    {2, "4 - 4 - 2", 4, 4, 2},
    {3, "4 - 2 - 4", 4, 2, 4},
    {4, "4 - 5 - 1", 4, 5, 1},
    {5, "5 - 4 - 1", 5, 4, 1},
    {6, "5 - 3 - 2", 5, 3, 2},
    {7, "5 - 2 - 3", 5, 2, 3},
    {8, "3 - 4 - 3", 3, 4, 3},
    {9, "3 - 3 - 4", 3, 3, 4},
    {10, "3 - 2 - 5", 3, 2, 5},
    {11, "3 - 5 - 2", 3, 5, 2},
    {0, "0 - 0 - 0", 0, 0, 0},
}};

// Formations that only match reports and the Stats database know; they can
// never be ordered.
inline constexpr std::array<FormationEntry, 4> kReportOnlyFormations = {{
    {12, "2 - 3 - 5", 2, 3, 5},
    {13, "3 - 6 - 1", 3, 6, 1},
    {14, "3 - 3 - 3", 3, 3, 3},
    {15, "2 - 4 - 4", 2, 4, 4},
}};

inline constexpr std::string_view kNoFormationText = "0 - 0 - 0";
// The formation caption of the pitch screen after the formation was changed
// and before the team has been checked again.
inline constexpr std::string_view kUncheckedFormationCaption = "? - ? - ?";
// What ReportFormationCode gives for a text it does not know.
inline constexpr int16_t kUnknownReportFormation = 16;

// Text of the formation combo box to its code, as text ("1" to "11");
// "0" for "0 - 0 - 0" and for anything else.
std::string FormationCodeText(std::string_view comboText);
// The same conversion, used outside the fixture screen (Auto Turn, profiles).
std::string FormationCode(std::string_view text);
// Code 1 to 11 to its text; "0 - 0 - 0" for anything else.
std::string FormationText(int code);
// A formation code of the Stats database to text: 1 to 15; "" for 0 and for
// anything else.
std::string StatsFormationText(int code);
// A match report's formation ("4  3  3", two blanks between the digits) to
// code 1 to 15; 16 when unknown.
int16_t ReportFormationCode(std::string_view reportText);
// The three numbers of a fixture joined as the combo box shows them.
std::string formationNumbersText(int16_t defence, int16_t midfield, int16_t attack);

// ---- Tactics ------------------------------------------------------------

// The tactic list, in order. `Tactics` stores the 0-based position in this
// list; the tactic of a change rule stores the 1-based position.
inline constexpr std::array<std::string_view, 23> kTacticListTexts = {
    "No Specific Tactic Employed",
    "Pressure",
    "Blanket",
    "Offside",
    "Bite Back",
    "Stop Cross",
    "Diamond",
    "The Wall",
    "Snappy (Fill Snappy Shirt Number)",
    "Revolver (Fill Revolver Shirt Number)",
    "Pass It",
    "Waiting Game",
    "Standard",
    "Centre Stage",
    "Tram Lines",
    "Route One",
    "Rainy Day",
    "Support",
    "Pot Shot",
    "Chameleon",
    "Flanker",
    "Trickery",
    "Sardines",
};

// The names a match report gives the tactics, counted from 1; the 24th,
// "No Tactic", is not in the list. The spellings are the game's own.
inline constexpr std::array<std::string_view, 24> kTacticReportNames = {
    "No Specific Tactic Employed",
    "Pressure",
    "Blanket",
    "Offside",
    "Bite Back",
    "Stopcross",
    "Diamond",
    "The Wall",
    "Snappy",
    "Revolver",
    "Pass It",
    "Waiting Game",
    "Standard",
    "Centre Stage",
    "Tram Lines",
    "Route One",
    "Rainy Day",
    "Support",
    "Pot Shot",
    "Chameleon",
    "Flanker",
    "Trickery",
    "Sardines",
    "No Tactic",
};

// List text of a 0-based tactic position; "" outside the list.
std::string tacticListText(int fromZero);
// 0-based position of a list text; -1 when it is not in the list.
int tacticListIndex(std::string_view text);
// Report name of a 1-based tactic number; "" outside 1 to 24.
std::string tacticReportName(int fromOne);
// 1-based tactic number of a report name (exact spelling); 0 when unknown.
int tacticReportNumber(std::string_view name);

// ---- Substitutions ------------------------------------------------------

struct SubstitutionEntry {
    std::string_view Text;
    int16_t Code;
};

inline constexpr std::string_view kNoChange = "No Change";

// Every substitution order in list order: "No Change", substitute 12 for
// shirts 1 to 11 and for the worst of each line, then the same for 13.
inline constexpr std::array<SubstitutionEntry, 29> kSubstitutions = {{
    {"No Change", 0},
    {"12 for 1", 1111},   {"12 for 2", 1112},   {"12 for 3", 1113},   {"12 for 4", 1114},
    {"12 for 5", 1115},   {"12 for 6", 1116},   {"12 for 7", 1117},   {"12 for 8", 1118},
    {"12 for 9", 1119},   {"12 for 10", 11110}, {"12 for 11", 11111},
    {"12 for worst defender", 3111},  {"12 for worst midfielder", 3112},  {"12 for worst attacker", 3113},
    {"13 for 1", 2111},   {"13 for 2", 2112},   {"13 for 3", 2113},   {"13 for 4", 2114},
    {"13 for 5", 2115},   {"13 for 6", 2116},   {"13 for 7", 2117},   {"13 for 8", 2118},
    {"13 for 9", 2119},   {"13 for 10", 21110}, {"13 for 11", 21111},
    {"13 for worst defender", 4111},  {"13 for worst midfielder", 4112},  {"13 for worst attacker", 4113},
}};

// Text of a substitution combo box to its code, as text; "" for "No Change"
// and for any text that is not an order.
std::string SubstitutionCode(std::string_view comboText);
// The same conversion for a plain string.
std::string SubstitutionCodeOfText(std::string_view text);
// Code to text; "No Change" for anything unknown.
std::string SubstitutionText(int code);
// The profile writer's conversion of a stored code (blanks around it are
// trimmed). It looks for "211111" where the others have "21111", so a stored
// 21111 comes out as "No Change" and a profile loses "13 for 11". That loss is
// how profiles have always behaved and must stay.
std::string SubstitutionLabel(std::string_view storedCode);

// ---- Minutes, aggression, style, set pieces -----------------------------

inline constexpr std::string_view kNoneEntry = "None";

// "None", then "10" to "90" in steps of ten.
const std::vector<std::string>& minuteListTexts();
// What a time combo box shows for a stored minute: "None" for 0, else the number.
std::string minuteText(int16_t minute);

// Aggression "0" to "5".
const std::vector<std::string>& aggressionListTexts();
// Set-piece takers by shirt: "1" to "11".
const std::vector<std::string>& shirtListTexts();
// "None", then "1" to "11": corner aiming, Revolver and Snappy.
const std::vector<std::string>& shirtOrNoneListTexts();

inline constexpr std::array<std::string_view, 6> kPaceTexts = {"Very Slow",   "Slow", "Medium Slow",
                                                               "Medium",      "Medium Fast", "Fast"};
inline constexpr std::array<std::string_view, 3> kPassLengthTexts = {"Short", "Medium", "Long"};
inline constexpr std::array<std::string_view, 3> kPassHeightTexts = {"Low", "Medium", "High"};

}  // namespace kestrin
