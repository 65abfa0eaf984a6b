#include "orders/admin.h"

#include <algorithm>

#include "core/binrecord.h"
#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

const std::array<AdminOption, 14> kAdminOptions = {{
    {"Special Scout Report", ": Special Scout Report"},
    {"Scout a clubs matches", ": Scout a clubs matches ("},
    {"Special Skill Spot", ": Special Skill Spot"},
    {"Trade Request", ": Trade Request"},
    {"Special Physio", ": Special Physio"},
    {"Loaning Players out", ": Loan Player out"},
    {"Fast track departments", ": Fast Track Department : "},
    {"Force skill change", ": Force Skill Change for "},
    {"Force position change", ": Force Position change for "},
    {"Department Swap", ": Department swap : "},
    {"Create Player", ": Create Player"},
    {"Away Game Screening", ": Away Game Screening"},
    {"Home Pitch and Fan Suiting", ": Home Pitch and Fan Suiting"},
    {"Instant Cash Chance", ": Instant Cash"},
}};

namespace {

constexpr size_t kText = 80;
constexpr size_t kSssMode = 1762;

// Where each text field starts; rows of a field follow one another.
size_t offsetOf(AdminField f, size_t row) {
    static constexpr size_t starts[] = {2,    82,   162,  242,  722,  1202, 1682, 1764, 1844, 1924,
                                        2004, 2084, 2164, 2244, 2324, 2404, 2484, 2564, 2644,
                                        2724, 2804, 3044, 3124, 3204, 3284, 3364, 3444};
    return starts[size_t(f)] + row * kText;
}

std::string cp(std::string_view s, size_t n) { return std::string(s.substr(0, std::min(n, s.size()))); }
bool holds(std::string_view s, std::string_view what) { return s.find(what) != std::string_view::npos; }

constexpr const char* kNotEnoughTitle = "Not enough money to do this";
constexpr const char* kNotSaved = "This clubs admin will not be saved / sent until this is corrected.";

OrderResult notEnough(const std::string& cost, const Club& club) {
    return OrderResult::refuse(kNotEnoughTitle, "Your club cannot afford to do this.  It would cost " + cost +
                                                    "\r\nCurrent bank balance is " + std::to_string(club.Balance));
}

}  // namespace

AdminRecord::AdminRecord(std::string bytes) : bytes_(std::move(bytes)) { bytes_.resize(kAdminRecordLength, '\0'); }

int16_t AdminRecord::option() const { return RecordReader(bytes_).int16(0); }

void AdminRecord::setOption(int16_t option) {
    RecordWriter w(2);
    w.int16(0, option);
    bytes_.replace(0, 2, w.bytes());
}

bool AdminRecord::sssMode() const { return RecordReader(bytes_).int16(kSssMode) != 0; }

void AdminRecord::setSssMode(bool scoreOf) {
    RecordWriter w(2);
    w.int16(0, scoreOf ? -1 : 0);  // the game's true
    bytes_.replace(kSssMode, 2, w.bytes());
}

bool AdminRecord::written(AdminField field, size_t row) const {
    const std::string_view raw = std::string_view(bytes_).substr(offsetOf(field, row), kText);
    return raw.find_first_not_of('\0') != std::string_view::npos;
}

std::string AdminRecord::text(AdminField field, size_t row) const {
    if (!written(field, row)) return {};
    std::string t = RecordReader(bytes_).text(offsetOf(field, row), kText);
    while (!t.empty() && (t.back() == ' ' || t.back() == '\0')) t.pop_back();
    return t;
}

void AdminRecord::clearText(AdminField field, size_t row) {
    bytes_.replace(offsetOf(field, row), kText, std::string(kText, '\0'));
}

void AdminRecord::setText(AdminField field, std::string_view value, size_t row) {
    RecordWriter w(kText);
    w.text(0, kText, value);
    bytes_.replace(offsetOf(field, row), kText, w.bytes());
}

AdminRecord readAdminRecord(const GameFolder& folder, int clubIndex) {
    if (clubIndex < 0 || !folder.exists(kAdminFile)) return {};
    const std::string bytes = readFileBytes(folder.resolve(kAdminFile));
    const size_t at = size_t(clubIndex) * kAdminRecordLength;
    return AdminRecord(at < bytes.size() ? bytes.substr(at, kAdminRecordLength) : std::string());
}

void writeAdminRecord(const GameFolder& folder, int clubIndex, const AdminRecord& record) {
    if (clubIndex < 0) return;
    std::string bytes;
    if (folder.exists(kAdminFile)) {
        try {
            bytes = readFileBytes(folder.resolve(kAdminFile));
        } catch (const GameFileError& e) {
            throw WriteError(displayName(folder, folder.resolve(kAdminFile)), e.detail());
        }
    }
    const size_t at = size_t(clubIndex) * kAdminRecordLength;
    if (bytes.size() < at + kAdminRecordLength) bytes.resize(at + kAdminRecordLength, '\0');
    bytes.replace(at, kAdminRecordLength, record.bytes());
    writeFileAtomic(folder.resolve(kAdminFile), bytes);
}

std::string scoutPointsText(int scoutLevel, const AdminRecord& r) {
    if (scoutLevel < 0) return {};
    int left = scoutLevel;
    const std::string international = trim(r.text(AdminField::SSR_Int));
    if (!international.empty() && international != "Any") --left;
    if (r.text(AdminField::SSR_Sign) != "Any") --left;
    for (size_t row = 0; row < 6; ++row)
        if (r.text(AdminField::SSR_Skill, row) != "None") --left;
    if (left >= 0) return "You have " + std::to_string(left) + " scout points remaining";
    return "You have used too many Scout Points. Please remove a selection to correct this.";
}

std::string forcedSkillCheck(std::string_view inc, const std::array<std::string, 3>& decrease, int sign,
                             bool secondForm) {
    std::array<std::string, 3> dec;
    for (size_t i = 0; i < 3; ++i) dec[i] = trim(decrease[i]);
    auto used = [&](size_t i) { return !dec[i].empty() && dec[i] != "None"; };
    for (size_t i = 0; i < 3; ++i) {
        if (dec[i] == "None") continue;
        bool twice = cp(dec[i], 4) == cp(inc, 4);
        for (size_t j = 0; j < 3 && !twice; ++j) twice = j != i && used(j) && cp(dec[i], 4) == cp(dec[j], 4);
        if (twice) return "This is not valid.  The same skill has been used twice.";
    }
    int n = 0;
    bool shooting = false, creativity = false;
    for (size_t i = 0; i < 3; ++i) {
        if (!used(i)) continue;
        ++n;
        shooting = shooting || holds(dec[i], "Shooting");
        creativity = creativity || holds(dec[i], "Creativity");
    }
    if (shooting && n > 1)
        return "This is not valid.  If you decrease shooting, you can't decrease another skill in the same week.";

    int need = 0;
    bool special = false;
    if (holds(inc, "Creativity")) {
        need = 2, special = true;
    } else if (holds(inc, "Shooting")) {
        need = 3, special = true;
    } else if (inc != "None") {
        need = 1;
    }
    int rise = holds(inc, "Flair") || holds(inc, "Creativity") ? 1 : 0;
    for (const std::string& d : dec) {
        if (holds(d, "Creativity"))
            need -= 2;
        else if (holds(d, "Shooting"))
            need -= 3;
        else if (d != "None")
            need -= 1;
        if (holds(d, "Creativity") || holds(d, "Flair")) ++rise;
    }

    std::string result;
    if (need > 0)
        result = "This is not valid.  You need to decrease skills by " + std::to_string(need) + " more point(s).";
    else if (inc != "None" && !special && need < 0 && !shooting && !creativity)
        result = "This is not valid.  You can only decrease one skill when you increase a core skill.";
    else
        result = "This is a valid change.";
    if (holds(result, "not valid")) return result;
    if (rise > 0)
        return result + (secondForm ? std::string(" His signing will be raised")
                                    : " His signing will be raised to " + std::to_string(sign + rise)) +
               ". Other managers can bid for him when his signing goes above 3.";
    return result + " There is no signing penalty.";
}

ForcedSkillLists forcedSkillLists(const Player& p) {
    static const char* const names[11] = {"Passing",   "Control",     "Tackling",    "Running",
                                          "Shooting",  "Dribbling",   "Def Heading", "Off Heading",
                                          "Flair",     "Strength",    "Creativity"};
    ForcedSkillLists out{{"None"}, {"None"}};
    for (int i = 0; i < 11; ++i) {
        const int v = p.skill(i);
        const bool flairOrCreativity = i == 8 || i == 10;
        if (v < (flairOrCreativity ? 8 : 7)) out.increase.push_back(std::string(names[i]) + " to " + std::to_string(v + 1));
        if (v > 6) out.decrease.push_back(std::string(names[i]) + " to " + std::to_string(v - 1));
    }
    return out;
}

std::vector<std::string> forcedPositions(std::string_view own) {
    std::vector<std::string> out;
    for (std::string_view code : kPositionCodes)
        if (code != "AGKP" && code != own) out.emplace_back(code);
    return out;
}

int signingRise(std::string_view from, std::string_view to) {
    auto part = [](char a, char b, std::string_view order, const int (&steps)[3][3]) {
        const size_t i = order.find(a), j = order.find(b);
        return i == std::string_view::npos || j == std::string_view::npos ? 0 : steps[i][j];
    };
    static const int side[3][3] = {{0, 1, 2}, {1, 0, 1}, {2, 1, 0}};
    static const int line[3][3] = {{0, 2, 4}, {2, 0, 2}, {4, 2, 0}};
    if (from.empty() || to.empty()) return 0;
    return part(from.back(), to.back(), "LCR", side) + part(from.front(), to.front(), "DMS", line);
}

std::string forcedPositionHelp(const Player& p, std::string_view to) {
    return "His signing will become " + std::to_string(p.Sign + signingRise(p.Position, to));
}

OrderResult checkCreatePlayer(const Club& club) {
    if (club.Balance < 10000000) return notEnough("10 million", club);
    return OrderResult::accept();
}

OrderResult checkFastTrack(const Club& club, std::string_view department) {
    static const std::pair<const char*, int16_t Club::*> levels[] = {
        {"Goalkeeper Coach", &Club::GoalkeeperCoach}, {"Defence Coach", &Club::DefenceCoach},
        {"Midfield Coach", &Club::MidfieldCoach},     {"Attack Coach", &Club::AttackCoach},
        {"Physio", &Club::Physio},                    {"Groundsman", &Club::Groundsman},
        {"Scout", &Club::Scout}};
    int level = 0;
    for (const auto& [name, field] : levels)
        if (department == name) level = club.*field;
    const int64_t cost = int64_t(level + 1) * 750000;  // (level + 1) * 500000 * 1.5
    if (cost > club.Balance) return notEnough(std::to_string(cost), club);
    return OrderResult::accept("Increase to " + std::to_string(level + 1) + " for a cost of " + std::to_string(cost));
}

OrderResult checkSpecialPhysio(const Club& club, std::string_view points) {
    const int64_t cost = int64_t(val(points)) * 500000;
    if (cost > club.Balance) return notEnough(std::to_string(cost), club);
    return OrderResult::accept("Cost of " + std::to_string(cost));
}

namespace {

// One club's part of the text; false (after telling) when its order is invalid.
bool clubText(const Club& club, const AdminRecord& r, std::string& out, Messages& messages) {
    using F = AdminField;
    const std::string& c = club.Name;
    auto t = [&](F f, size_t row = 0) { return trim(r.text(f, row)); };
    const int option = r.option();
    const std::string title = option >= 0 && option < 14 ? kAdminOptions[size_t(option)].title : "";
    switch (option) {
        case 0: {
            if (!r.written(F::SSR_Pos)) {
                messages.refuse("No Admin for a club", "No admin has been done for " + c + "\r\n" + kNotSaved);
                return false;
            }
            if (holds(scoutPointsText(club.Scout, r), "too many")) {
                messages.refuse("Invalid Special Scout",
                                c + " has too many selections for the Special Scout report\r\nYou can increase this "
                                    "by improving your scout department\r\n" + kNotSaved);
                return false;
            }
            out += c + title + "\r\nPosition: " + t(F::SSR_Pos) + "\r\n";
            if (t(F::SSR_Int) != "Any") out += "International: " + t(F::SSR_Int) + "\r\n";
            if (t(F::SSR_Sign) != "Any") out += "Minimum COS: " + t(F::SSR_Sign) + "\r\n";
            for (size_t row = 0; row < 6; ++row) {
                if (t(F::SSR_Skill, row) == "None") continue;
                out += "Skill: " + cp(t(F::SSR_Skill, row), 20) + "    " +
                       (t(F::SSR_Min, row) == "Any" ? "Less than " + cp(t(F::SSR_Max, row), 3)
                                                    : "Greater than " + cp(t(F::SSR_Min, row), 3)) +
                       "\r\n";
            }
            return true;
        }
        case 1: out += c + title + t(F::SCM_Team) + ")\r\n"; return true;
        case 2:
            out += c + title + "\r\n";
            out += r.sssMode() ? "What is the score in " + t(F::SSS_Score) + " for " + t(F::SSS_Player) + " ?\r\n"
                               : "Which player has the highest " + t(F::SSS_Best) + "?\r\n";
            return true;
        case 3: out += c + title + "\r\nTeam: " + t(F::TR_Team) + "    Player:" + t(F::TR_Player) + "\r\n"; return true;
        case 4:
            out += c + title + "\r\nPlayer: " + t(F::SP_Player) + "    Points: " + t(F::SP_Points) + "\r\n";
            return true;
        case 5:
            out += c + title + "\r\nPlayer: " + t(F::LPO_Player) + "    To: " + t(F::LPO_Club) + "    for " +
                   t(F::LPO_Weeks) + " weeks\r\n";
            return true;
        case 6: out += c + title + t(F::FTD_Dept) + "\r\n"; return true;
        case 7: {
            const std::array<std::string, 3> dec{t(F::FSC_Decrease, 0), t(F::FSC_Decrease, 1), t(F::FSC_Decrease, 2)};
            if (holds(forcedSkillCheck(t(F::FSC_Increase), dec, 0, true), "not valid")) {
                messages.refuse("Invalid Forced Skill change",
                                c + " has an invalid forced skill actioned\r\n" + kNotSaved);
                return false;
            }
            out += c + title + t(F::FSC_Player) + "\r\nIncrease " + t(F::FSC_Increase) + "\r\n";
            for (const std::string& d : dec)
                if (d != "None") out += "Decrease " + d + "\r\n";
            return true;
        }
        case 8: out += c + title + t(F::FPC_Player) + " to " + t(F::FPC_To); return true;
        case 9: out += c + title + t(F::DS_Swap); return true;
        case 10:
            out += c + title + "\r\nPosition: " + t(F::CP_Position) + "\r\nName: " + t(F::CP_Name) +
                   "\r\nNationality: " + t(F::CP_Nation);
            return true;
        case 11:
        case 12:
        case 13: out += c + title; return true;
        default: return true;
    }
}

}  // namespace

std::string adminText(const Session& session, Messages& messages) {
    std::string out = "Weekly Administration\r\n\r\n";
    for (int i = 0; i < session.ClubCount(); ++i) {
        const Club& club = session.Clubs[size_t(i)];
        // Only a name in capitals at its second and third places is sent.
        const std::string pair = cp(std::string_view(club.Name).substr(std::min<size_t>(1, club.Name.size())), 2);
        if (lower(pair) == pair) continue;
        AdminRecord record;
        try {
            record = readAdminRecord(session.Folder, i);
        } catch (const GameFileError& e) {
            messages.refuse("Weekly Administration file unreadable",
                            "The file " + e.file + " could not be read: " + e.detail() +
                                ".\r\n\r\nNo Weekly Administration order can be sent until it is put right; "
                                "deleting it clears this week's orders.");
            return out;
        }
        out += "\r\n\r\n";
        clubText(club, record, out, messages);
    }
    return out;
}

namespace {

// AdminFile.txt written; its path, or empty after telling the manager.
std::string writeAdminText(const Session& session, Messages& messages) {
    const std::string text = adminText(session, messages);
    const fs::path path = session.Folder.resolve(kAdminTextFile);
    try {
        writeFileAtomic(path, text);
    } catch (const WriteError& e) {
        messages.refuse("Admin file not saved", "The file " + e.path + " could not be written: " + e.reason +
                                                    ".\r\n\r\nCheck that the game folder can be written to.");
        return {};
    }
    return path.string();
}

}  // namespace

bool saveAdminText(const Session& session, Messages& messages) {
    const std::string path = writeAdminText(session, messages);
    if (path.empty()) return false;
    messages.inform("Manual Admin E-mail File Saved",
                    "The admin has been saved into the file " + path +
                        "\r\nPlease email that file to your game administrator");
    return true;
}

// ---- The form ------------------------------------------------------------------

namespace {

std::vector<std::string> numbers(int from, int to, const char* first = nullptr) {
    std::vector<std::string> out;
    if (first) out.emplace_back(first);
    for (int i = from; i <= to; ++i) out.push_back(std::to_string(i));
    return out;
}

std::string withPosition(const std::string& name, const std::string& position) {
    return name + " (" + position + ")";
}

}  // namespace

const std::vector<std::string> kAdminDepartments = {"Goalkeeper Coach", "Defence Coach", "Midfield Coach",
                                                    "Attack Coach",     "Physio",        "Groundsman",
                                                    "Scout"};
const std::vector<std::string> kAdminHiddenSkills = {
    "Intelligence",  "Vision",      "Captaincy",   "Coolness",    "Free kicks", "Penalties",    "Dead ball passing",
    "Anticipation",  "Acceleration", "Dirty tactics", "Popularity", "Temperament", "Resilience", "Injury proneness",
    "Timing",        "Kestrin",     "Stamina",     "Flexibility", "Ambition",   "Balance",      "Bravery",
    "Communication", "Consistency", "Attitude",    "Lunacy",      "Occasion"};
const std::vector<std::string> kAdminScoutSkills = {"None",     "Passing",   "Control",  "Tackling",
                                                    "Running",  "Shooting",  "Dribbling", "Def Head",
                                                    "Off Head", "Strength",  "Creativity"};
const std::vector<std::string> kAdminCreatePositions = {
    "Goalkeeper",           "Left Sided Defender",   "Central Defender",   "Right Sided Defender",
    "Left Sided Midfielder", "Central Midfielder",   "Right Sided Midfielder", "Left Sided Striker",
    "Central Striker",      "Right Sided Striker"};
const std::vector<std::string> kAdminScoutPositions = [] {
    std::vector<std::string> out = kAdminCreatePositions;
    for (const char* any : {"Any Defender", "Any Midfielder", "Any Striker"}) out.emplace_back(any);
    return out;
}();
const std::vector<std::string> kAdminInternational = {"Any", "Yes", "No"};
const std::vector<std::string> kAdminSigning = numbers(1, 20, "Any");
const std::vector<std::string> kAdminSkillValues = numbers(1, 20, "Any");
const std::vector<std::string> kAdminPhysioPoints = numbers(1, 10);
const std::vector<std::string> kAdminLoanWeeks = numbers(1, 16);

const std::vector<AdminSlot>& adminSlots() {
    static const std::vector<AdminSlot> slots = [] {
        std::vector<AdminSlot> out;
        for (int f = 0; f <= int(AdminField::CP_Nation); ++f) {
            const auto field = AdminField(f);
            const size_t rows = field == AdminField::SSR_Skill || field == AdminField::SSR_Min ||
                                        field == AdminField::SSR_Max
                                    ? 6
                                : field == AdminField::FSC_Decrease ? 3
                                                                    : 1;
            for (size_t row = 0; row < rows; ++row) out.push_back({field, row});
        }
        return out;
    }();
    return slots;
}

int adminOptionOf(AdminField f) {
    using F = AdminField;
    switch (f) {
        case F::SSR_Pos: case F::SSR_Int: case F::SSR_Sign: case F::SSR_Skill: case F::SSR_Min: case F::SSR_Max:
            return 0;
        case F::SCM_Team: return 1;
        case F::SSS_Best: case F::SSS_Score: case F::SSS_Player: return 2;
        case F::TR_Team: case F::TR_Player: return 3;
        case F::SP_Player: case F::SP_Points: return 4;
        case F::LPO_Player: case F::LPO_Club: case F::LPO_Weeks: return 5;
        case F::FTD_Dept: return 6;
        case F::FSC_Player: case F::FSC_Increase: case F::FSC_Decrease: return 7;
        case F::FPC_Player: case F::FPC_To: return 8;
        case F::DS_Swap: return 9;
        case F::CP_Position: case F::CP_Name: case F::CP_Nation: return 10;
    }
    return 0;
}

std::string AdminForm::text(AdminField field, size_t row) const {
    const auto it = texts.find({field, row});
    return it == texts.end() ? std::string() : it->second;
}

AdminForm emptyAdminForm() {
    using F = AdminField;
    AdminForm form;
    for (const AdminSlot& s : adminSlots()) form.texts[s] = "";
    form.set(F::SSR_Int, "Any");
    form.set(F::SSR_Sign, "Any");
    for (size_t row = 0; row < 6; ++row) {
        form.set(F::SSR_Skill, "None", row);
        form.set(F::SSR_Min, "Any", row);
        form.set(F::SSR_Max, "Any", row);
    }
    form.set(F::LPO_Weeks, kAdminLoanWeeksDefault);
    return form;
}

AdminForm adminFormOf(const AdminRecord& record) {
    AdminForm form = emptyAdminForm();
    const int option = record.option();
    form.option = option >= 0 && option < int(kAdminOptions.size()) ? option : 0;
    if (form.option == 2) form.sssMode = record.sssMode();
    for (const AdminSlot& s : adminSlots())
        if (adminOptionOf(s.field) == form.option && record.written(s.field, s.row))
            form.texts[s] = record.text(s.field, s.row);
    return form;
}

AdminRecord adminRecordOf(AdminRecord working, const AdminForm& form) {
    working.setOption(int16_t(form.option));
    if (form.option == 2) working.setSssMode(form.sssMode);
    for (const AdminSlot& s : adminSlots()) {
        if (adminOptionOf(s.field) != form.option) continue;
        const std::string value = form.text(s.field, s.row);
        if (value.empty())
            working.clearText(s.field, s.row);
        else
            working.setText(s.field, value, s.row);
    }
    return working;
}

namespace {

void tellUnreadable(Messages& messages, const GameFileError& e) {
    messages.refuse("Weekly Administration file unreadable",
                    "The file " + e.file + " could not be read: " + e.detail() +
                        ".\r\n\r\nThis week's Weekly Administration orders can't be kept until it is put right; "
                        "deleting it clears them.");
}

}  // namespace

bool createAdminLine(const Session& session, const AdminForm& form, Messages& messages) {
    if (session.FillingScreen || !session.current()) return true;
    try {
        const AdminRecord working = readAdminRecord(session.Folder, session.CurrentClub);
        writeAdminRecord(session.Folder, session.CurrentClub, adminRecordOf(working, form));
    } catch (const GameFileError& e) {
        tellUnreadable(messages, e);
        return false;
    } catch (const WriteError& e) {
        messages.refuse("Weekly Administration not saved",
                        "The file " + e.path + " could not be written: " + e.reason +
                            ".\r\n\r\nCheck that the game folder can be written to.");
        return false;
    }
    return true;
}

AdminForm adminFormOfClub(const Session& session, Messages& messages) {
    if (!session.current()) return emptyAdminForm();
    try {
        return adminFormOf(readAdminRecord(session.Folder, session.CurrentClub));
    } catch (const GameFileError& e) {
        tellUnreadable(messages, e);
        return emptyAdminForm();
    }
}

AdminPlayerLists adminPlayerLists(const Club& club) {
    AdminPlayerLists out;
    for (const Player& p : club.Players) {
        if (p.Name.empty()) continue;
        const std::string line = withPosition(p.Name, p.Position);
        out.all.push_back(line);
        if (p.Injury >= 10 && p.Injury <= 12) out.injured.push_back(line);
        if (p.TLFigure < 1) out.loanable.push_back(line);
        if (p.Position != "AGKP") out.outfield.push_back(line);
    }
    return out;
}

std::vector<std::string> exportPlayerLines(const ExportClub& club) {
    std::vector<std::string> out;
    for (const ExportPlayer& p : club.Players) out.push_back(std::string("(").append(p.Position).append(") ").append(p.Name));
    return out;
}

}  // namespace kestrin
