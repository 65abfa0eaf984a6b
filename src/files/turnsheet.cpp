#include "files/turnsheet.h"

#include <algorithm>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"
#include "match/pitch.h"
#include "match/profiles.h"

namespace kestrin {

namespace {

// The number fields of a match group after "Tactics:", in the order the file
// has them. Tactics itself is apart: it is stored one lower than written.
struct MatchField {
    std::string_view label;
    int16_t& (*field)(Fixture&);
};

#define KESTRIN_FIELD(label, expr) {label, [](Fixture& f) -> int16_t& { return expr; }}
const MatchField kMatchFields[] = {
    KESTRIN_FIELD("Captain:", f.Captain),
    KESTRIN_FIELD("Penalties:", f.Penalties),
    KESTRIN_FIELD("Corners:", f.Corners),
    KESTRIN_FIELD("FreeKicks:", f.FreeKicks),
    KESTRIN_FIELD("Corners Aiming:", f.CornersAiming),
    KESTRIN_FIELD("Defence:", f.Defence),
    KESTRIN_FIELD("Midfield:", f.Midfield),
    KESTRIN_FIELD("Attack:", f.Attack),
    KESTRIN_FIELD("DefAgg:", f.DefAgg),
    KESTRIN_FIELD("MidAgg:", f.MidAgg),
    KESTRIN_FIELD("AttAgg:", f.AttAgg),
    KESTRIN_FIELD("Revolver:", f.Revolver),
    KESTRIN_FIELD("Snappy:", f.Snappy),
    KESTRIN_FIELD("Pace:", f.Pace),
    KESTRIN_FIELD("PassLength:", f.PassLength),
    KESTRIN_FIELD("PassHeight:", f.PassHeight),
    KESTRIN_FIELD("Time To Change One:", f.ChangeOneTime),
    KESTRIN_FIELD("Time To Change One Formation If Losing:", f.ChangeOneFormation[0]),
    KESTRIN_FIELD("Time To Change One Formation If Drawing:", f.ChangeOneFormation[1]),
    KESTRIN_FIELD("Time To Change One Formation If Winning:", f.ChangeOneFormation[2]),
    KESTRIN_FIELD("Time To Change One Tactic If Losing:", f.ChangeOneTactic[0]),
    KESTRIN_FIELD("Time To Change One Tactic If Drawing:", f.ChangeOneTactic[1]),
    KESTRIN_FIELD("Time To Change One Tactic If Winning:", f.ChangeOneTactic[2]),
    KESTRIN_FIELD("Time To Change Two:", f.ChangeTwoTime),
    KESTRIN_FIELD("Time To Change Two Formation If Losing:", f.ChangeTwoFormation[0]),
    KESTRIN_FIELD("Time To Change Two Formation If Drawing:", f.ChangeTwoFormation[1]),
    KESTRIN_FIELD("Time To Change Two Formation If Winning:", f.ChangeTwoFormation[2]),
    KESTRIN_FIELD("Time To Change Two Tactic If Losing:", f.ChangeTwoTactic[0]),
    KESTRIN_FIELD("Time To Change Two Tactic If Drawing:", f.ChangeTwoTactic[1]),
    KESTRIN_FIELD("Time To Change Two Tactic If Winning:", f.ChangeTwoTactic[2]),
    KESTRIN_FIELD("Time For Substitution One:", f.SubOneTime),
    KESTRIN_FIELD("What To Do If Losing:", f.SubOneAction[0]),
    KESTRIN_FIELD("What To Do If Drawing:", f.SubOneAction[1]),
    KESTRIN_FIELD("What To Do If Winning:", f.SubOneAction[2]),
    KESTRIN_FIELD("Time For Substitution Two:", f.SubTwoTime),
    KESTRIN_FIELD("What To Do If Losing2:", f.SubTwoAction[0]),
    KESTRIN_FIELD("What To Do If Drawing2:", f.SubTwoAction[1]),
    KESTRIN_FIELD("What To Do If Winning2:", f.SubTwoAction[2]),
};
#undef KESTRIN_FIELD

// The last line of a match group; a dropped group is skipped up to it.
constexpr const char* kLastMatchLabel = "What To Do If Winning2:";

const MatchField* matchField(std::string_view label) {
    for (const MatchField& m : kMatchFields)
        if (label == m.label) return &m;
    return nullptr;
}

constexpr int kShirts = 13;

// What leaves the system after "Player:" is the bare name, whichever form
// the slot holds: a pitch label carries the name between ") " and " TS ".
std::string slotPlayerText(const std::string& player) {
    if (player.empty() || upper(player) == "LBLNAME") return {};
    if (player.find(')') != std::string::npos) return markerText(player, ") ", " TS ");
    return player;
}

bool outfield(int shirt) { return shirt >= 2 && shirt <= 11; }

}  // namespace

std::string turnsheetText(const Club& club) {
    std::vector<std::string> out;
    auto text = [&](std::string_view label, const std::string& value) {
        out.emplace_back(label);
        out.push_back(value);
    };
    auto number = [&](std::string_view label, int64_t value) {
        out.emplace_back(label);
        out.push_back(turnsheetNumber(value));
    };

    text("League Number", club.LeagueNumber);
    text("Betting:", club.BettingOrder);
    text("Facility:", club.FacilityOrder);
    text("Capacity:", club.CapacityOrder);
    text("Departments:", club.DepartmentOrder);

    const int matches = std::min<int>(club.FixtureCount, int(club.Fixtures.size()));
    for (int m = 0; m < matches; ++m) {
        Fixture f = club.Fixtures[size_t(m)];  // a copy: the field table hands out references
        number("Match Number:", m + 1);
        text("Club Name:", club.Name);
        text("Password:", "");
        out.push_back("Fixture - " + f.Competition + ":");
        for (int shirt = 1; shirt <= kShirts; ++shirt) {
            const TeamSlot& s = f.Slots[size_t(shirt - 1)];
            text("Player:", slotPlayerText(s.Player));
            text("Field Area 1:", outfield(shirt) ? areaText(s.Left, s.Top) : std::string());
            text("Field Area 2:", outfield(shirt) && s.Top2 > 0 ? areaText(s.Left2, s.Top2) : std::string());
        }
        number("Tactics:", int64_t(f.Tactics) + 1);
        for (const MatchField& mf : kMatchFields) number(mf.label, mf.field(f));
    }

    for (int i = 0; i < 8; ++i) {
        const CoachOrder& c = club.coachOrder(i);
        text("Coach Player:", c.Player);
        number("CoachSkill:", c.Skill);
    }
    for (size_t i = 0; i < 3; ++i) {
        text("PhysioName:", club.PhysioPlayer[i]);
        number("PhysioPts:", club.PhysioPoints[i]);
    }
    text("OneToOnePlayer:", club.OneToOnePlayer);
    number("One to One Instruction:", club.OneToOneInstruction);
    for (size_t i = 0; i < 4; ++i) {
        const bool empty = club.ScoutPlayer[i].empty();
        text("PlayerScout:", club.ScoutPlayer[i]);
        text("ClubScout:", empty ? std::string() : club.ScoutClub[i]);
        text("ScoutAgg:", empty ? std::string() : club.ScoutAggressive[i] ? "Aggressive" : "Non Aggressive");
    }
    for (const Movement& mv : club.Movements) {
        number("PlayerMove:", mv.Move);
        text("PlayerMovement:", mv.Player);
        text("PlayerClubMovement:", mv.Club);
        number("PlayerFeeMovement:", mv.Fee);
        number("PlayerIncentiveMovement:", mv.Incentive);
        number("PlayerContractsMovement:", mv.Contract);
    }
    text("Messages:", club.Messages);
    text("Private:", club.Private);
    text("Private Messages:", club.PrivateMessages);
    return joinCrLf(out);
}

namespace {

// Walks the lines of one Turnsheet, each error naming the 1-based line.
class SheetReader {
public:
    SheetReader(const std::vector<std::string>& lines, const std::string& fileName)
        : lines_(lines), file_(fileName) {}

    bool atEnd() const { return next_ >= lines_.size(); }
    int lineNo() const { return int(next_); }  // of the line taken last
    const std::string& last() const { return lines_[next_ - 1]; }

    // The next line; running out in the middle of a group is an error.
    const std::string& take(std::string_view wanted) {
        if (atEnd()) throw GameFileError(file_, int(lines_.size()) + 1, std::string(wanted), "");
        return lines_[next_++];
    }
    // The same for a label's or a shirt's line: what was wanted is only put
    // into words when the file ends, since most of the file is such lines.
    const std::string& takeFor(const char* wanted, const std::string& label) {
        if (atEnd()) throw GameFileError(file_, int(lines_.size()) + 1, wanted + label + "\"", "");
        return lines_[next_++];
    }
    const std::string& takeOfShirt(const char* wanted, int shirt) {
        if (atEnd())
            throw GameFileError(file_, int(lines_.size()) + 1, wanted + (" of shirt " + std::to_string(shirt)), "");
        return lines_[next_++];
    }
    std::string value(const std::string& label) { return takeFor("the value of \"", label); }

    template <typename Int>
    Int number(const std::string& label, Int (*parse)(std::string_view, bool)) {
        const std::string& line = takeFor("a number for \"", label);
        try {
            return parse(line, false);
        } catch (const FieldError& e) {
            throw GameFileError(file_, lineNo(), e.expected + " for \"" + label + "\"", line);
        }
    }
    int16_t number16(const std::string& label) { return number<int16_t>(label, &parseInt16); }
    int32_t number32(const std::string& label) { return number<int32_t>(label, &parseInt32); }

    [[noreturn]] void fail(const std::string& expected, const std::string& found) const {
        throw GameFileError(file_, lineNo(), expected, found);
    }

private:
    const std::vector<std::string>& lines_;
    const std::string& file_;
    size_t next_ = 0;
};

const Player* findByName(const Club& club, const std::string& name) {
    for (const Player& p : club.Players)
        if (p.Name == name) return &p;
    return nullptr;
}

// The three filters by which an order for a player who has left, been hurt
// or been banned since the file was saved drops out silently.
std::string memberRule(const Club& club, const std::string& name) {
    return findByName(club, name) ? name : std::string();
}

std::string coachRule(const Club& club, const std::string& name, int injuryLimit) {
    for (const Player& p : club.Players)
        if (p.Name == name && p.Injury < injuryLimit) return name;
    return {};
}

std::string teamRule(const Club& club, const std::string& name, int injuryLimit, int suspensionLimit) {
    for (const Player& p : club.Players)
        if (p.Name == name && p.Injury < injuryLimit && p.SuspPoints < suspensionLimit) return name;
    return {};
}

void readSlotGroups(SheetReader& in, Fixture& f, const Club& club, int injuryLimit, int suspensionLimit) {
    for (int shirt = 1; shirt <= kShirts; ++shirt) {
        TeamSlot& s = f.Slots[size_t(shirt - 1)];
        in.takeOfShirt("\"Player:\"", shirt);
        const std::string& name = in.takeOfShirt("the player", shirt);
        s.Player = trimView(name).empty() ? std::string() : teamRule(club, name, injuryLimit, suspensionLimit);

        in.takeOfShirt("\"Field Area 1:\"", shirt);
        const std::string& area1 = in.takeOfShirt("the field area", shirt);
        if (outfield(shirt)) {
            if (area1.empty()) in.fail("a field area such as C3 for shirt " + std::to_string(shirt), area1);
            CellPos p;
            if (!areaCell(area1, p)) p = defaultSlotPosition(shirt);
            s.Left = p.Left;
            s.Top = p.Top;
        }

        in.takeOfShirt("\"Field Area 2:\"", shirt);
        const std::string& area2 = in.takeOfShirt("the second field area", shirt);
        if (outfield(shirt)) {
            CellPos p;
            if (area2.empty() || !areaCell(area2, p)) p = {};
            s.Left2 = p.Left;
            s.Top2 = p.Top;
        }
    }
}

}  // namespace

void readTurnsheet(Club& club, const std::vector<std::string>& lines, int injuryLimit, int suspensionLimit,
                   const std::string& fileName) {
    SheetReader in(lines, fileName);
    const int matches = std::min<int>(club.FixtureCount, int(club.Fixtures.size()));

    // A shirt with no place yet stands where the pitch picture puts it, so a
    // match the file doesn't carry still shows a team shape.
    for (Fixture& f : club.Fixtures)
        for (int shirt = 1; shirt <= 11; ++shirt) {
            TeamSlot& s = f.Slots[size_t(shirt - 1)];
            if (s.Left == 0 && s.Top == 0) {
                CellPos p = defaultSlotPosition(shirt);
                s.Left = p.Left;
                s.Top = p.Top;
            }
        }

    // Labels whose group has not begun (or whose match was dropped) are read
    // into this scratch record and forgotten.
    Fixture noMatch;
    Fixture* match = nullptr;
    CoachOrder noCoach;
    int coachGroups = 0, physioGroups = 0;
    int physioSlot = 0, scoutSlot = 0, moveSlot = 0;  // 1-based, 0 before the first group

    while (!in.atEnd()) {
        const std::string& line = in.take("");
        if (line == "League Number") {
            club.LeagueNumber = in.value(line);
        } else if (line == "Betting:") {
            club.BettingOrder = in.value(line);
        } else if (line == "Facility:") {
            club.FacilityOrder = in.value(line);
        } else if (line == "Capacity:") {
            club.CapacityOrder = in.value(line);
        } else if (line == "Departments:") {
            club.DepartmentOrder = in.value(line);
        } else if (line == "Match Number:") {
            const int16_t number = in.number16(line);
            if (number < 1) in.fail("a match number of 1 or more", in.last());
            if (number > matches) {
                // A match no longer in the Squadsheet: its group is dropped whole.
                const std::string wanted = "\"" + std::string(kLastMatchLabel) + "\" closing the dropped match " +
                                           std::to_string(number);
                while (in.take(wanted) != kLastMatchLabel) {
                }
                in.take("the value of \"" + std::string(kLastMatchLabel) + "\"");
                match = nullptr;
            } else {
                match = &club.Fixtures[size_t(number - 1)];
            }
        } else if (line == "Club Name:") {
            in.value(line);
        } else if (line == "Password:") {
            in.value(line);
            in.take("the \"Fixture - \" line");
            readSlotGroups(in, match ? *match : noMatch, club, injuryLimit, suspensionLimit);
        } else if (line == "Tactics:") {
            const int16_t t = in.number16(line);
            (match ? *match : noMatch).Tactics = t > 0 ? int16_t(t - 1) : int16_t(0);
        } else if (const MatchField* mf = matchField(line)) {
            mf->field(match ? *match : noMatch) = in.number16(line);
        } else if (line == "Coach Player:") {
            // The eight groups carry the same labels; their order says which coach.
            CoachOrder& c = coachGroups < 8 ? club.coachOrder(coachGroups) : noCoach;
            ++coachGroups;
            c.Player = coachRule(club, in.value(line), injuryLimit);
            in.take("\"CoachSkill:\"");
            c.Skill = in.number16("CoachSkill:");
            if (c.Player.empty()) c.Skill = 0;
        } else if (line == "PhysioName:") {
            if (++physioGroups > 3) in.fail("at most three physio groups", line);
            ++physioSlot;
            club.PhysioPlayer[size_t(physioSlot - 1)] = memberRule(club, in.value(line));
        } else if (line == "PhysioPts:") {
            const int16_t points = in.number16(line);
            if (physioSlot == 0) continue;
            const size_t i = size_t(physioSlot - 1);
            club.PhysioPoints[i] = points;
            if (club.PhysioPlayer[i].empty()) {
                // An empty group doesn't use up a slot.
                club.PhysioPoints[i] = 0;
                physioSlot = std::max(1, physioSlot - 1);
            }
        } else if (line == "OneToOnePlayer:") {
            club.OneToOnePlayer = memberRule(club, in.value(line));
        } else if (line == "One to One Instruction:") {
            const int16_t instruction = in.number16(line);
            // Instruction 11 is the one that needs no player.
            club.OneToOneInstruction = (club.OneToOnePlayer.empty() && instruction != 11) ? int16_t(0) : instruction;
        } else if (line == "PlayerScout:") {
            scoutSlot = std::min(scoutSlot + 1, 4);
            // Not filtered: a scouted player belongs to another club.
            club.ScoutPlayer[size_t(scoutSlot - 1)] = in.value(line);
        } else if (line == "ClubScout:") {
            std::string v = in.value(line);
            if (scoutSlot > 0) club.ScoutClub[size_t(scoutSlot - 1)] = v;
        } else if (line == "ScoutAgg:") {
            std::string v = in.value(line);
            if (scoutSlot > 0) club.ScoutAggressive[size_t(scoutSlot - 1)] = v.find("Non") == std::string::npos;
        } else if (line == "PlayerMove:") {
            moveSlot = std::min(moveSlot + 1, 6);
            club.Movements[size_t(moveSlot - 1)].Move = in.number16(line);
        } else if (line == "PlayerMovement:") {
            std::string name = in.value(line);
            if (moveSlot == 0) continue;
            Movement& mv = club.Movements[size_t(moveSlot - 1)];
            // Codes 1 and 7 upward may name another club's player.
            mv.Player = (mv.Move >= 2 && mv.Move <= 6) ? memberRule(club, name) : name;
        } else if (line == "PlayerClubMovement:") {
            std::string v = in.value(line);
            if (moveSlot > 0) club.Movements[size_t(moveSlot - 1)].Club = v;
        } else if (line == "PlayerFeeMovement:") {
            const int32_t v = in.number32(line);
            if (moveSlot > 0) club.Movements[size_t(moveSlot - 1)].Fee = v;
        } else if (line == "PlayerIncentiveMovement:") {
            const int32_t v = in.number32(line);
            if (moveSlot > 0) club.Movements[size_t(moveSlot - 1)].Incentive = v;
        } else if (line == "PlayerContractsMovement:") {
            const int32_t v = in.number32(line);
            if (moveSlot == 0) continue;
            Movement& mv = club.Movements[size_t(moveSlot - 1)];
            mv.Contract = v;
            if (mv.Player.empty()) {
                mv = Movement{};
                moveSlot = std::max(1, moveSlot - 1);
            }
        } else if (line == "Messages:") {
            club.Messages = in.value(line);
        } else if (line == "Private:") {
            club.Private = in.value(line);
        } else if (line == "Private Messages:") {
            club.PrivateMessages = in.value(line);
        }
        // Any other line is not a label and is passed over.
    }
}

fs::path turnsheetPath(const Session& s, const Club& c) {
    return s.Folder.resolve("Turnsheet/" + c.ClubFile + ".txt");
}

namespace {

// Automatic saving of match profiles (the SaveProf preference): one per
// match, under the match's own name; a profile that can't be written is told
// and does not stop the Turnsheets.
void saveMatchProfiles(const Session& session, const Club& club, Messages& messages) {
    saveAutomaticProfiles(session, club, messages);
}

}  // namespace

std::vector<fs::path> saveTurnsheets(Session& session, Messages& messages) {
    if (session.Prefs.WarnInc == 0) checkIncomplete(session, messages);
    const bool changed = session.TurnChanged;
    session.TurnChanged = false;
    std::vector<fs::path> written;
    try {
        session.Folder.ensureFolder("Turnsheet");
        for (const Club& club : session.Clubs) {
            if (session.Prefs.SaveProf == 0) saveMatchProfiles(session, club, messages);
            const fs::path path = turnsheetPath(session, club);
            writeFileAtomic(path, turnsheetText(club));
            written.push_back(path);
        }
    } catch (...) {
        // Some orders are not on disk, so closing must still offer to save.
        session.TurnChanged = changed;
        throw;
    }
    return written;
}

bool checkIncomplete(Session& session, Messages& messages) {
    std::string warning;
    for (const Club& club : session.Clubs) {
        const int matches = std::min<int>(club.FixtureCount, int(club.Fixtures.size()));
        for (int m = 0; m < matches; ++m) {
            const Fixture& f = club.Fixtures[size_t(m)];
            if (f.Opponent.empty()) continue;  // "No scheduled matches for next week"
            const bool shortOfPlayers =
                std::any_of(f.Slots.begin(), f.Slots.end(), [](const TeamSlot& s) { return s.Player.empty(); });
            if (shortOfPlayers)
                warning += club.Name + " do not have all players selected for game against " + f.Opponent + "\r\n";
        }
    }
    const std::string title = "Warning of incomplete turnsheet";
    if (warning.empty()) {
        session.TurnsheetComplete = true;
    } else if (session.Prefs.WarnInc != 0) {
        session.TurnsheetComplete = messages.ask(title, warning + "\r\nDo you still want to send this turnsheet ?");
    } else {
        // Told before the files are written: saving goes on regardless.
        session.TurnsheetComplete = false;
        messages.warn(title, warning + "\r\nYour turnsheet has been saved.");
    }
    return session.TurnsheetComplete;
}

void savePrompt(Session& session, Messages& messages) {
    if (session.SavePromptDone) return;
    session.SavePromptDone = true;
    session.TurnChanged = false;
    if (messages.ask("Save Changes ?",
                     "Changes have been made to the turnsheet\r\n\r\nDo you want to save the turnsheet ?"))
        saveTurnsheets(session, messages);
}

}  // namespace kestrin
