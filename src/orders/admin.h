#pragma once
// Weekly Administration: one special order per club and week, kept in
// adm.kst (one fixed record per club) and sent to the administrator as one
// plain text for all clubs.
#include <array>
#include <compare>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "core/session.h"
#include "orders/orderresult.h"

namespace kestrin {

inline constexpr size_t kAdminRecordLength = 3524;
inline constexpr const char* kAdminFile = "adm.kst";
inline constexpr const char* kAdminTextFile = "AdminFile.txt";

// The fourteen options by index of optAdmin: caption and the title of its text.
struct AdminOption {
    const char* caption;
    const char* title;
};
extern const std::array<AdminOption, 14> kAdminOptions;

// The text fields of a record, each 80 bytes.
enum class AdminField {
    SSR_Pos, SSR_Int, SSR_Sign, SSR_Skill, SSR_Min, SSR_Max, SCM_Team, SSS_Best, SSS_Score, SSS_Player,
    TR_Team, TR_Player, SP_Player, SP_Points, LPO_Player, LPO_Club, LPO_Weeks, FTD_Dept, FSC_Player,
    FSC_Increase, FSC_Decrease, FPC_Player, FPC_To, DS_Swap, CP_Position, CP_Name, CP_Nation
};

// One club's record as the file holds it. A field never written is all
// zero bytes and reads as "".
class AdminRecord {
public:
    AdminRecord() : bytes_(kAdminRecordLength, '\0') {}
    explicit AdminRecord(std::string bytes);

    int16_t option() const;
    void setOption(int16_t option);
    bool sssMode() const;  // "Give me the score in" chosen
    void setSssMode(bool scoreOf);
    // `row` counts the rows of SSR_Skill, SSR_Min, SSR_Max (0..5) and FSC_Decrease (0..2).
    std::string text(AdminField field, size_t row = 0) const;  // right blanks cut
    bool written(AdminField field, size_t row = 0) const;      // not all zero
    void setText(AdminField field, std::string_view value, size_t row = 0);
    // Back to never written: all zero.
    void clearText(AdminField field, size_t row = 0);
    const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

// Record of a 0-based club index; past the file's end, or no file, a record
// of zeros. Throws GameFileError when the file can't be read.
AdminRecord readAdminRecord(const GameFolder& folder, int clubIndex);
// Writes the record of a club, the file replaced whole. Throws WriteError.
void writeAdminRecord(const GameFolder& folder, int clubIndex, const AdminRecord& record);

// The scout points left for a Special Scout Report, as SSR_PointsLeft shows them.
std::string scoutPointsText(int scoutLevel, const AdminRecord& record);

// The forced skill change check with its sentence. `sign` is the player's
// signing figure; `secondForm` gives the sentence that names no figure.
std::string forcedSkillCheck(std::string_view increase, const std::array<std::string, 3>& decrease, int sign,
                             bool secondForm = false);
// The lists of a forced skill change for a player: increases, then decreases.
struct ForcedSkillLists {
    std::vector<std::string> increase, decrease;  // "None" first
};
ForcedSkillLists forcedSkillLists(const Player& player);
inline constexpr const char* kForcedSkillHelp =
    "Remember Creativity changes are worth 2 points, Shooting Changes are worth 3 points,  Changes to creativity "
    "and flair will increase the players signing figure";

// The positions a player may be forced to (never AGKP, never his own), and
// the rise of his signing figure from one position to another.
std::vector<std::string> forcedPositions(std::string_view own);
int signingRise(std::string_view from, std::string_view to);
// "His signing will become " and the new figure.
std::string forcedPositionHelp(const Player& player, std::string_view to);

// The money checks made when a choice is made. Accepted with the caption to
// show ("Increase to ...", "Cost of ..."), or refused: the selection then
// falls back to option 0.
OrderResult checkCreatePlayer(const Club& club);
OrderResult checkFastTrack(const Club& club, std::string_view department);
OrderResult checkSpecialPhysio(const Club& club, std::string_view points);

// The text for the administrator of every club's record, with a critical
// message for each club whose order is invalid (its text is left out).
std::string adminText(const Session& session, Messages& messages);
// btnSaveAdmin: the text into AdminFile.txt, and the message that says so.
// Returns false after telling the manager when the file can't be written.
bool saveAdminText(const Session& session, Messages& messages);

// ---- The form of the Admin screen -------------------------------------------

// The fixed lists of the screen's controls.
extern const std::vector<std::string> kAdminDepartments;     // FTD_Dept, DS_Swap
extern const std::vector<std::string> kAdminHiddenSkills;    // SSS_Best, SSS_Score
extern const std::vector<std::string> kAdminScoutSkills;     // SSR_Skill, "None" first
extern const std::vector<std::string> kAdminScoutPositions;  // SSR_Pos: the ten, then "Any Defender"...
extern const std::vector<std::string> kAdminCreatePositions; // CP_Position
extern const std::vector<std::string> kAdminInternational;   // SSR_Int, "Any" first
extern const std::vector<std::string> kAdminSigning;         // SSR_Sign, "Any" first
extern const std::vector<std::string> kAdminSkillValues;     // SSR_Min, SSR_Max, "Any" first
extern const std::vector<std::string> kAdminPhysioPoints;    // SP_Points
extern const std::vector<std::string> kAdminLoanWeeks;       // LPO_Weeks
inline constexpr const char* kAdminLoanWeeksDefault = "6";

// One control of the form: a field and its row.
struct AdminSlot {
    AdminField field;
    size_t row = 0;
    auto operator<=>(const AdminSlot&) const = default;
};
// Every control of the form, in the order of the record.
const std::vector<AdminSlot>& adminSlots();
// The option whose controls hold the field.
int adminOptionOf(AdminField field);

// What the screen's controls hold: the option chosen and each control's text.
struct AdminForm {
    int option = 0;
    bool sssMode = false;  // SSS_Opt(0), "Give me the score in ", chosen
    std::map<AdminSlot, std::string> texts;
    std::string text(AdminField field, size_t row = 0) const;
    void set(AdminField field, std::string value, size_t row = 0) { texts[{field, row}] = std::move(value); }
    bool operator==(const AdminForm&) const = default;
};
// The controls emptied: nothing chosen, but no scout item, "None" skills,
// "Any" limits and a loan of six weeks.
AdminForm emptyAdminForm();
// The record put back: its option and that option's fields over an empty form.
AdminForm adminFormOf(const AdminRecord& record);
// CreateLine: `working` with the option and the selected option's fields
// only; an empty control leaves its field never written.
AdminRecord adminRecordOf(AdminRecord working, const AdminForm& form);
// CreateLine on the club on screen: nothing while the screen is being filled
// or with no club. Tells the manager and returns false when adm.kst can't be
// read or written.
bool createAdminLine(const Session& session, const AdminForm& form, Messages& messages);
// The record of the club on screen as the form shows it; an unreadable
// adm.kst is told and gives the empty form.
AdminForm adminFormOfClub(const Session& session, Messages& messages);

// The player lists of the form, each line "Name (Position)".
struct AdminPlayerLists {
    std::vector<std::string> all;      // SSS_Player, FSC_Player
    std::vector<std::string> injured;  // SP_Player: injury 10 to 12
    std::vector<std::string> loanable; // LPO_Player: TLFigure below 1
    std::vector<std::string> outfield; // FPC_Player: all but AGKP
};
AdminPlayerLists adminPlayerLists(const Club& club);
// TR_Player for an export club: "(" Position ") " Name.
std::vector<std::string> exportPlayerLines(const ExportClub& club);


}  // namespace kestrin
