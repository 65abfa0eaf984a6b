#include "match/profiles.h"

#include <algorithm>
#include <system_error>

#include "core/errors.h"
#include "core/loader.h"
#include "core/text.h"
#include "match/ordertables.h"
#include "match/pitch.h"

namespace kestrin {

namespace {

// How a line of the orders is written and read back.
enum class Form {
    Number,         // the field as a printed number
    Tactic,         // Tactics (from 0) by its report name
    RuleTactic,     // a change rule's tactic (from 1) by report name; 0 writes the first
    RuleFormation,  // a formation code as the Stats database names it; "" for none
    Substitution,   // a substitution code by its text
};

struct OrderLine {
    const char* what;  // for the manager, when the line is wrong
    Form form;
    int16_t& (*field)(Fixture&);
};

#define KESTRIN_LINE(what, form, expr) {what, Form::form, [](Fixture& f) -> int16_t& { return expr; }}
// Lines 2 to 37; line 1 is the formation.
const OrderLine kOrderLines[] = {
    KESTRIN_LINE("the defence's aggression", Number, f.DefAgg),
    KESTRIN_LINE("the midfield's aggression", Number, f.MidAgg),
    KESTRIN_LINE("the attack's aggression", Number, f.AttAgg),
    KESTRIN_LINE("the tactic", Tactic, f.Tactics),
    KESTRIN_LINE("the captain's shirt", Number, f.Captain),
    KESTRIN_LINE("the penalty taker's shirt", Number, f.Penalties),
    KESTRIN_LINE("the corner taker's shirt", Number, f.Corners),
    KESTRIN_LINE("the free kick taker's shirt", Number, f.FreeKicks),
    KESTRIN_LINE("the pace", Number, f.Pace),
    KESTRIN_LINE("the pass height", Number, f.PassHeight),
    KESTRIN_LINE("the pass length", Number, f.PassLength),
    KESTRIN_LINE("the shirt corners aim at", Number, f.CornersAiming),
    KESTRIN_LINE("the Revolver shirt", Number, f.Revolver),
    KESTRIN_LINE("the Snappy shirt", Number, f.Snappy),
    KESTRIN_LINE("the minute of change one", Number, f.ChangeOneTime),
    KESTRIN_LINE("change one's formation if losing", RuleFormation, f.ChangeOneFormation[0]),
    KESTRIN_LINE("change one's formation if drawing", RuleFormation, f.ChangeOneFormation[1]),
    KESTRIN_LINE("change one's formation if winning", RuleFormation, f.ChangeOneFormation[2]),
    KESTRIN_LINE("change one's tactic if losing", RuleTactic, f.ChangeOneTactic[0]),
    KESTRIN_LINE("change one's tactic if drawing", RuleTactic, f.ChangeOneTactic[1]),
    KESTRIN_LINE("change one's tactic if winning", RuleTactic, f.ChangeOneTactic[2]),
    KESTRIN_LINE("the minute of change two", Number, f.ChangeTwoTime),
    KESTRIN_LINE("change two's formation if losing", RuleFormation, f.ChangeTwoFormation[0]),
    KESTRIN_LINE("change two's formation if drawing", RuleFormation, f.ChangeTwoFormation[1]),
    KESTRIN_LINE("change two's formation if winning", RuleFormation, f.ChangeTwoFormation[2]),
    KESTRIN_LINE("change two's tactic if losing", RuleTactic, f.ChangeTwoTactic[0]),
    KESTRIN_LINE("change two's tactic if drawing", RuleTactic, f.ChangeTwoTactic[1]),
    KESTRIN_LINE("change two's tactic if winning", RuleTactic, f.ChangeTwoTactic[2]),
    KESTRIN_LINE("the minute of substitution one", Number, f.SubOneTime),
    KESTRIN_LINE("substitution one if losing", Substitution, f.SubOneAction[0]),
    KESTRIN_LINE("substitution one if drawing", Substitution, f.SubOneAction[1]),
    KESTRIN_LINE("substitution one if winning", Substitution, f.SubOneAction[2]),
    KESTRIN_LINE("the minute of substitution two", Number, f.SubTwoTime),
    KESTRIN_LINE("substitution two if losing", Substitution, f.SubTwoAction[0]),
    KESTRIN_LINE("substitution two if drawing", Substitution, f.SubTwoAction[1]),
    KESTRIN_LINE("substitution two if winning", Substitution, f.SubTwoAction[2]),
};
#undef KESTRIN_LINE
static_assert(std::size(kOrderLines) + 1 == kProfileOrderLines);

std::string orderText(Form form, int16_t v) {
    switch (form) {
        case Form::Number: return turnsheetNumber(v);
        case Form::Tactic: return tacticReportName(v + 1);
        case Form::RuleTactic: return tacticReportName(v == 0 ? 1 : v);
        case Form::RuleFormation: return StatsFormationText(v);
        case Form::Substitution: return SubstitutionLabel(std::to_string(v));
    }
    return "";
}

bool isFormationText(std::string_view t) {
    for (const FormationEntry& f : kFormations)
        if (f.Text == t) return true;
    for (const FormationEntry& f : kReportOnlyFormations)
        if (f.Text == t) return true;
    return false;
}

// The stored value of a line; false when the line is not of its form. An
// empty tactic or formation is what the writer gives for a code outside its
// table, so it reads back as 0 rather than being refused.
bool orderValue(Form form, const std::string& line, int16_t& out) {
    switch (form) {
        case Form::Number:
            try {
                out = parseInt16(line);
                return true;
            } catch (const FieldError&) {
                return false;
            }
        case Form::Tactic:
        case Form::RuleTactic: {
            const int n = tacticReportNumber(line);
            if (n == 0 && !line.empty()) return false;
            out = int16_t(form == Form::Tactic ? std::max(0, n - 1) : n);
            return true;
        }
        case Form::RuleFormation:
            // Formations only reports know can't be ordered: they come back as none.
            if (!line.empty() && !isFormationText(line)) return false;
            out = int16_t(val(FormationCode(line)));
            return true;
        case Form::Substitution:
            if (line != kNoChange && SubstitutionCodeOfText(line).empty()) return false;
            out = int16_t(val(SubstitutionCodeOfText(line)));
            return true;
    }
    return false;
}

const char* expectedForm(Form form) {
    switch (form) {
        case Form::Number: return "a whole number";
        case Form::Tactic:
        case Form::RuleTactic: return "the name of a tactic such as \"Pressure\"";
        case Form::RuleFormation: return "a formation such as \"4 - 4 - 2\", or nothing";
        case Form::Substitution: return "a substitution such as \"12 for 3\" or \"No Change\"";
    }
    return "";
}

// A cell as the writer gives it: a letter (any character above "@") and a
// column number.
bool readCell(const std::string& line, int32_t& left, int32_t& top) {
    if (line.size() < 2 || static_cast<unsigned char>(line[0]) <= 64) return false;
    try {
        parseInt16(std::string_view(line).substr(1));
    } catch (const FieldError&) {
        return false;
    }
    CellPos p;
    if (!areaCell(line, p)) return false;
    left = p.Left;
    top = p.Top;
    return true;
}

bool readFormation(const std::string& line, Fixture& f) {
    std::array<int16_t, 3> n{};
    size_t start = 0;
    for (size_t k = 0; k < 3; ++k) {
        const size_t dash = k < 2 ? line.find(" - ", start) : std::string::npos;
        if (k < 2 && dash == std::string::npos) return false;
        try {
            n[k] = parseInt16(std::string_view(line).substr(start, dash == std::string::npos ? dash : dash - start));
        } catch (const FieldError&) {
            return false;
        }
        start = dash + 3;
    }
    f.Defence = n[0];
    f.Midfield = n[1];
    f.Attack = n[2];
    return true;
}

std::string shirtWhat(const char* what, int shirt) { return std::string(what) + " of shirt " + std::to_string(shirt); }

class ProfileLines {
public:
    ProfileLines(const std::vector<std::string>& lines, const std::string& file) : lines_(lines), file_(file) {}
    bool atEnd() const { return next_ >= lines_.size(); }
    int lineNumber() const { return int(next_) + 1; }
    const std::string& take(const std::string& what) {
        if (atEnd()) throw GameFileError(file_, lineNumber(), what + " (the file ends before it)", "");
        return lines_[next_++];
    }
    [[noreturn]] void bad(const std::string& what, const std::string& expected, const std::string& found) const {
        throw GameFileError(file_, int(next_), what + ", " + expected, found);
    }

private:
    const std::vector<std::string>& lines_;
    const std::string& file_;
    size_t next_ = 0;
};

std::string tellTitle(const Session& session) {
    return session.Game.GameName.empty() ? std::string("Kestrin") : session.Game.GameName;
}

std::string shownName(const GameFolder& folder, const fs::path& path) {
    return utf8ToCp1252(displayName(folder, path));
}

}  // namespace

std::string profileText(const Fixture& fixture) {
    Fixture f = fixture;  // the field accessors take a mutable record
    std::vector<std::string> lines;
    lines.reserve(kProfileLines);
    lines.push_back(formationNumbersText(f.Defence, f.Midfield, f.Attack));
    for (const OrderLine& l : kOrderLines) lines.push_back(orderText(l.form, l.field(f)));
    for (size_t k = 0; k < f.Slots.size(); ++k) {
        const TeamSlot& s = f.Slots[k];
        lines.push_back(s.Player);
        if (k == 0) lines.emplace_back();  // the keeper's place is not his to choose
        else if (k < 11) lines.push_back(areaText(s.Left, s.Top));
    }
    for (size_t k = 1; k < 11; ++k) {
        const TeamSlot& s = f.Slots[k];
        lines.push_back(s.Top2 == 0 ? std::string() : areaText(s.Left2, s.Top2));
    }
    return joinCrLf(lines);
}

bool readProfile(Fixture& fixture, const std::vector<std::string>& lines, const std::string& fileName) {
    ProfileLines in(lines, fileName);
    Fixture f = fixture;
    // Shirt 11 keeps its arrow unless the profile gives it one: profiles
    // have always behaved so.
    for (size_t k = 0; k < 10; ++k) f.Slots[k].Left2 = f.Slots[k].Top2 = 0;

    const std::string& formation = in.take("the formation");
    if (!readFormation(formation, f)) in.bad("the formation", "three numbers such as \"4 - 4 - 2\"", formation);
    for (const OrderLine& l : kOrderLines) {
        const std::string& line = in.take(l.what);
        if (!orderValue(l.form, line, l.field(f))) in.bad(l.what, expectedForm(l.form), line);
    }

    bool old = false;
    for (size_t k = 0; k < f.Slots.size() && !old; ++k) {
        const int shirt = int(k) + 1;
        const std::string& name = in.take(shirtWhat("the player", shirt));
        f.Slots[k].Player = trimView(name).empty() ? std::string() : name;
        if (k >= 11) continue;
        const std::string& cell = in.take(shirtWhat("the cell", shirt));
        if (k == 0) continue;  // the keeper's cell is read and ignored
        if (val(cell) > 0) {
            old = true;  // a number where the cell belongs: from before cells
        } else if (!readCell(cell, f.Slots[k].Left, f.Slots[k].Top)) {
            in.bad(shirtWhat("the cell", shirt), "a cell of the pitch such as \"C3\"", cell);
        }
    }
    if (!old && !in.atEnd()) {
        for (size_t k = 1; k < 11; ++k) {
            const std::string what = shirtWhat("the arrow", int(k) + 1);
            const std::string& cell = in.take(what);
            if (cell.empty()) continue;
            if (!readCell(cell, f.Slots[k].Left2, f.Slots[k].Top2))
                in.bad(what, "a cell of the pitch such as \"C3\", or nothing", cell);
        }
    }
    fixture = std::move(f);
    return old;
}

bool validProfileName(std::string_view name) {
    if (name.empty() || name == "." || name == "..") return false;
    return std::none_of(name.begin(), name.end(), [](char c) {
        return c == '/' || c == '\\' || static_cast<unsigned char>(c) < 32 || c == 127;
    });
}

fs::path profilePath(const GameFolder& folder, std::string_view name) {
    return folder.resolve(std::string(kProfilesFolder) + "/" + cp1252ToUtf8(name) + ".txt");
}

std::vector<std::string> profileNames(const GameFolder& folder) {
    std::vector<std::string> names;
    for (const std::string& file : folder.list(kProfilesFolder, "*.txt"))
        names.push_back(utf8ToCp1252(file.substr(0, file.size() - 4)));
    return names;
}

void saveProfile(const GameFolder& folder, std::string_view name, const Fixture& fixture) {
    folder.ensureFolder(kProfilesFolder);
    writeFileAtomic(profilePath(folder, name), profileText(fixture));
}

std::string automaticProfileName(const Club& club, const Fixture& fixture) {
    std::string name = club.Name + " " + fixture.Competition + " " + fixture.Opponent + " " + fixture.venueWord();
    for (char& c : name)
        if (c == '/' || c == '\\' || static_cast<unsigned char>(c) < 32 || c == 127) c = '-';
    return name;
}

void saveAutomaticProfiles(const Session& session, const Club& club, Messages& messages) {
    const size_t matches = std::min<size_t>(size_t(std::max<int>(0, club.FixtureCount)), club.Fixtures.size());
    for (size_t m = 0; m < matches; ++m) {
        const Fixture& f = club.Fixtures[m];
        if (f.Competition.empty() || trimView(f.Slots[0].Player).empty()) continue;
        const std::string name = automaticProfileName(club, f);
        try {
            saveProfile(session.Folder, name, f);
        } catch (const WriteError& e) {
            messages.warn(std::string(kProfileNotSavedTitle),
                          "The profile " + name + " could not be written: " + e.reason +
                              ".\r\n\r\nYour turnsheets are saved all the same; only this copy of the match's "
                              "orders is missing.");
        }
    }
}

bool addProfile(const Session& session, const Fixture& fixture, const std::string& name, Messages& messages) {
    if (name.empty()) return false;
    if (!validProfileName(name)) {
        messages.refuse(std::string(kProfileNotSavedTitle),
                        "A profile's name is the name of its file, so it can't hold \"/\" or \"\\\" and can't be "
                        "\".\" or \"..\".\r\n\r\nPlease save it under another name.");
        return false;
    }
    // A name saved before is simply written again, as a later turn's
    // automatic profile of the same match is.
    const GameFolder& folder = session.Folder;
    try {
        saveProfile(folder, name, fixture);
    } catch (const WriteError& e) {
        messages.refuse(std::string(kProfileNotSavedTitle),
                        "The profile " + shownName(folder, fs::path(e.path)) + " could not be written: " + e.reason +
                            ".\r\n\r\nCheck that the game folder can be written to and that the disk has room, "
                            "then save it again.");
        return false;
    }
    messages.inform(tellTitle(session), std::string(kProfileSavedText));
    return true;
}

ProfileLoad loadProfile(Session& session, Fixture& fixture, const std::string& name, Messages& messages) {
    if (!messages.askQuestion(std::string(kQuestionTitle), std::string(kLoadProfileQuestion)))
        return ProfileLoad::Declined;
    const fs::path path = profilePath(session.Folder, name);
    bool old = false;
    try {
        old = readProfile(fixture, readLines(path), shownName(session.Folder, path));
    } catch (const GameFileError& e) {
        messages.refuse(std::string(kProfileNotLoadedTitle),
                        unreadableFileText("profile", e,
                                           "The fixture's orders are as they were. Save the profile again from a "
                                           "fixture set up the way you want, or delete it."));
        return ProfileLoad::Refused;
    }
    session.TurnChanged = true;
    if (!old) return ProfileLoad::Loaded;
    messages.warn(std::string(kOldProfileTitle), std::string(kOldProfileText));
    return ProfileLoad::OldProfile;
}

bool deleteProfile(const GameFolder& folder, const std::string& name, Messages& messages) {
    if (name.empty()) return false;
    if (!messages.askQuestion(std::string(kQuestionTitle), std::string(kDeleteProfileQuestion))) return false;
    const fs::path path = profilePath(folder, name);
    std::error_code ec;
    if (fs::remove(path, ec)) return true;
    messages.warn(std::string(kProfileNotDeletedTitle),
                  "The profile " + shownName(folder, path) + " could not be deleted: " +
                      (ec ? ec.message() : std::string("there is no such file")) + ".");
    return false;
}

}  // namespace kestrin
