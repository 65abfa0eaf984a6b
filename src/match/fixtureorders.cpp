#include "match/fixtureorders.h"

#include "core/text.h"
#include "match/ordertables.h"

namespace kestrin {

namespace {

using C = FixtureControl;
using M = EntryMapping;

constexpr std::array<FixtureControlInfo, kFixtureControlCount> kControls = {{
    {C::DefAgg, "cboDefAgg", "DefAgg", M::NumberOfText},
    {C::MidAgg, "cboMidAgg", "MidAgg", M::NumberOfText},
    {C::AttAgg, "cboAttAgg", "AttAgg", M::NumberOfText},
    {C::Formation, "cboFormation", "Defence, Midfield, Attack", M::FormationNumbers},
    {C::Tactics, "cboTactics", "Tactics", M::TacticFromZero},
    {C::Captain, "lstCaptain", "Captain", M::NumberOfText},
    {C::Penalty, "lstPenalty", "Penalties", M::NumberOfText},
    {C::Corners, "lstCorners", "Corners", M::NumberOfText},
    {C::FreeKicks, "lstFreeKicks", "FreeKicks", M::NumberOfText},
    {C::Aiming, "lstAiming", "CornersAiming", M::ListIndex},
    {C::Revolver, "lstRevolver", "Revolver", M::ListIndex},
    {C::Snappy, "lstSnappy", "Snappy", M::ListIndex},
    {C::Pace, "lstPace", "Pace", M::ListIndex},
    {C::Length, "lstLength", "PassLength", M::ListIndex},
    {C::Height, "lstHeight", "PassHeight", M::ListIndex},
    {C::ChangeOneTime, "cboTTCO", "ChangeOneTime", M::NumberOfText},
    {C::ChangeOneFormationLosing, "cboTTCOFIL", "ChangeOneFormation(losing)", M::FormationCode},
    {C::ChangeOneFormationDrawing, "cboTTCOFID", "ChangeOneFormation(drawing)", M::FormationCode},
    {C::ChangeOneFormationWinning, "cboTTCOFIW", "ChangeOneFormation(winning)", M::FormationCode},
    {C::ChangeOneTacticLosing, "cboTTCOTIL", "ChangeOneTactic(losing)", M::TacticFromOne},
    {C::ChangeOneTacticDrawing, "cboTTCOTID", "ChangeOneTactic(drawing)", M::TacticFromOne},
    {C::ChangeOneTacticWinning, "cboTTCOTIW", "ChangeOneTactic(winning)", M::TacticFromOne},
    {C::ChangeTwoTime, "cboTTCT", "ChangeTwoTime", M::NumberOfText},
    {C::ChangeTwoFormationLosing, "cboTTCTFIL", "ChangeTwoFormation(losing)", M::FormationCode},
    {C::ChangeTwoFormationDrawing, "cboTTCTFID", "ChangeTwoFormation(drawing)", M::FormationCode},
    {C::ChangeTwoFormationWinning, "cboTTCTFIW", "ChangeTwoFormation(winning)", M::FormationCode},
    {C::ChangeTwoTacticLosing, "cboTTCTTIL", "ChangeTwoTactic(losing)", M::TacticFromOne},
    {C::ChangeTwoTacticDrawing, "cboTTCTTID", "ChangeTwoTactic(drawing)", M::TacticFromOne},
    {C::ChangeTwoTacticWinning, "cboTTCTTIW", "ChangeTwoTactic(winning)", M::TacticFromOne},
    {C::SubOneTime, "cboTFSO", "SubOneTime", M::NumberOfText},
    {C::SubOneActionLosing, "cboWTDILO", "SubOneAction(losing)", M::Substitution},
    {C::SubOneActionDrawing, "cboWTDIDO", "SubOneAction(drawing)", M::Substitution},
    {C::SubOneActionWinning, "cboWTDIWO", "SubOneAction(winning)", M::Substitution},
    {C::SubTwoTime, "cboTFST", "SubTwoTime", M::NumberOfText},
    {C::SubTwoActionLosing, "cboWTDILT", "SubTwoAction(losing)", M::Substitution},
    {C::SubTwoActionDrawing, "cboWTDIDT", "SubTwoAction(drawing)", M::Substitution},
    {C::SubTwoActionWinning, "cboWTDIWT", "SubTwoAction(winning)", M::Substitution},
}};

bool isTime(C c) { return c == C::ChangeOneTime || c == C::ChangeTwoTime || c == C::SubOneTime || c == C::SubTwoTime; }

std::vector<std::string> textsOf(auto const& table) {
    std::vector<std::string> out;
    for (const auto& t : table) out.emplace_back(t);
    return out;
}

const std::vector<std::string>& formationEntries() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> t;
        for (const FormationEntry& f : kFormations) t.emplace_back(f.Text);
        return t;
    }();
    return texts;
}

const std::vector<std::string>& substitutionEntries() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> t;
        for (const SubstitutionEntry& s : kSubstitutions) t.emplace_back(s.Text);
        return t;
    }();
    return texts;
}

int indexOf(const std::vector<std::string>& entries, std::string_view text) {
    for (size_t i = 0; i < entries.size(); ++i)
        if (entries[i] == text) return int(i);
    return -1;
}

int16_t clamp16(double v) {
    if (v > 32767) return 32767;
    if (v < -32768) return -32768;
    return int16_t(v);
}

// The three controls of each kind that a time's "None" resets.
struct RuleReset {
    C time;
    std::array<C, 3> formations;  // unused for a substitution
    std::array<C, 3> others;      // tactics, or the substitution's actions
    bool isChange;
};
constexpr std::array<RuleReset, 4> kResets = {{
    {C::ChangeOneTime,
     {C::ChangeOneFormationLosing, C::ChangeOneFormationDrawing, C::ChangeOneFormationWinning},
     {C::ChangeOneTacticLosing, C::ChangeOneTacticDrawing, C::ChangeOneTacticWinning},
     true},
    {C::ChangeTwoTime,
     {C::ChangeTwoFormationLosing, C::ChangeTwoFormationDrawing, C::ChangeTwoFormationWinning},
     {C::ChangeTwoTacticLosing, C::ChangeTwoTacticDrawing, C::ChangeTwoTacticWinning},
     true},
    {C::SubOneTime, {}, {C::SubOneActionLosing, C::SubOneActionDrawing, C::SubOneActionWinning}, false},
    {C::SubTwoTime, {}, {C::SubTwoActionLosing, C::SubTwoActionDrawing, C::SubTwoActionWinning}, false},
}};

}  // namespace

const std::array<FixtureControlInfo, kFixtureControlCount>& fixtureControls() { return kControls; }

const FixtureControlInfo& fixtureControlInfo(FixtureControl control) { return kControls[size_t(control)]; }

const std::vector<std::string>& controlEntries(FixtureControl control) {
    static const std::vector<std::string> tactics = textsOf(kTacticListTexts);
    static const std::vector<std::string> pace = textsOf(kPaceTexts);
    static const std::vector<std::string> length = textsOf(kPassLengthTexts);
    static const std::vector<std::string> height = textsOf(kPassHeightTexts);
    switch (control) {
        case C::DefAgg: case C::MidAgg: case C::AttAgg: return aggressionListTexts();
        case C::Captain: case C::Penalty: case C::Corners: case C::FreeKicks: return shirtListTexts();
        case C::Aiming: case C::Revolver: case C::Snappy: return shirtOrNoneListTexts();
        case C::Pace: return pace;
        case C::Length: return length;
        case C::Height: return height;
        default: break;
    }
    if (isTime(control)) return minuteListTexts();
    switch (fixtureControlInfo(control).Mapping) {
        case M::FormationNumbers: case M::FormationCode: return formationEntries();
        case M::TacticFromZero: case M::TacticFromOne: return tactics;
        case M::Substitution: return substitutionEntries();
        default: break;
    }
    static const std::vector<std::string> none;
    return none;
}

int16_t* fixtureField(Fixture& f, FixtureControl control) {
    switch (control) {
        case C::DefAgg: return &f.DefAgg;
        case C::MidAgg: return &f.MidAgg;
        case C::AttAgg: return &f.AttAgg;
        case C::Formation: return nullptr;
        case C::Tactics: return &f.Tactics;
        case C::Captain: return &f.Captain;
        case C::Penalty: return &f.Penalties;
        case C::Corners: return &f.Corners;
        case C::FreeKicks: return &f.FreeKicks;
        case C::Aiming: return &f.CornersAiming;
        case C::Revolver: return &f.Revolver;
        case C::Snappy: return &f.Snappy;
        case C::Pace: return &f.Pace;
        case C::Length: return &f.PassLength;
        case C::Height: return &f.PassHeight;
        case C::ChangeOneTime: return &f.ChangeOneTime;
        case C::ChangeOneFormationLosing: return &f.ChangeOneFormation[0];
        case C::ChangeOneFormationDrawing: return &f.ChangeOneFormation[1];
        case C::ChangeOneFormationWinning: return &f.ChangeOneFormation[2];
        case C::ChangeOneTacticLosing: return &f.ChangeOneTactic[0];
        case C::ChangeOneTacticDrawing: return &f.ChangeOneTactic[1];
        case C::ChangeOneTacticWinning: return &f.ChangeOneTactic[2];
        case C::ChangeTwoTime: return &f.ChangeTwoTime;
        case C::ChangeTwoFormationLosing: return &f.ChangeTwoFormation[0];
        case C::ChangeTwoFormationDrawing: return &f.ChangeTwoFormation[1];
        case C::ChangeTwoFormationWinning: return &f.ChangeTwoFormation[2];
        case C::ChangeTwoTacticLosing: return &f.ChangeTwoTactic[0];
        case C::ChangeTwoTacticDrawing: return &f.ChangeTwoTactic[1];
        case C::ChangeTwoTacticWinning: return &f.ChangeTwoTactic[2];
        case C::SubOneTime: return &f.SubOneTime;
        case C::SubOneActionLosing: return &f.SubOneAction[0];
        case C::SubOneActionDrawing: return &f.SubOneAction[1];
        case C::SubOneActionWinning: return &f.SubOneAction[2];
        case C::SubTwoTime: return &f.SubTwoTime;
        case C::SubTwoActionLosing: return &f.SubTwoAction[0];
        case C::SubTwoActionDrawing: return &f.SubTwoAction[1];
        case C::SubTwoActionWinning: return &f.SubTwoAction[2];
    }
    return nullptr;
}

int16_t fixtureFieldValue(const Fixture& fixture, FixtureControl control) {
    const int16_t* p = fixtureField(const_cast<Fixture&>(fixture), control);
    return p ? *p : 0;
}

namespace {

// The entry text that stands for the stored value, whether or not the list
// holds it.
std::string candidateText(const Fixture& f, FixtureControl control) {
    int16_t v = fixtureFieldValue(f, control);
    if (isTime(control)) return minuteText(v);
    switch (fixtureControlInfo(control).Mapping) {
        case M::NumberOfText: return std::to_string(v);
        case M::FormationNumbers: return formationNumbersText(f.Defence, f.Midfield, f.Attack);
        case M::FormationCode: return FormationText(v);
        case M::Substitution: return SubstitutionText(v);
        case M::ListIndex:
        case M::TacticFromZero: {
            const auto& e = controlEntries(control);
            return v >= 0 && v < int(e.size()) ? e[size_t(v)] : std::string();
        }
        case M::TacticFromOne: {
            // A stored 0 shows the first tactic.
            const auto& e = controlEntries(control);
            int i = v == 0 ? 0 : v - 1;
            return i >= 0 && i < int(e.size()) ? e[size_t(i)] : std::string();
        }
    }
    return "";
}

}  // namespace

int shownEntry(const Fixture& f, FixtureControl control) {
    return indexOf(controlEntries(control), candidateText(f, control));
}

std::string shownText(const Fixture& f, FixtureControl control) {
    std::string t = candidateText(f, control);
    if (control == C::Formation || indexOf(controlEntries(control), t) >= 0) return t;
    return "";
}

bool chooseEntry(Fixture& f, FixtureControl control, int entry) {
    const std::vector<std::string>& entries = controlEntries(control);
    if (entry < 0 || entry >= int(entries.size())) return false;
    const std::string& text = entries[size_t(entry)];
    const Fixture before = f;

    switch (fixtureControlInfo(control).Mapping) {
        case M::NumberOfText: *fixtureField(f, control) = clamp16(val(text)); break;
        case M::ListIndex:
        case M::TacticFromZero: *fixtureField(f, control) = int16_t(entry); break;
        case M::TacticFromOne: *fixtureField(f, control) = int16_t(entry + 1); break;
        case M::FormationCode: *fixtureField(f, control) = clamp16(val(FormationCodeText(text))); break;
        case M::Substitution: *fixtureField(f, control) = clamp16(val(SubstitutionCode(text))); break;
        case M::FormationNumbers: {
            std::array<int16_t, 3> n{};
            size_t start = 0;
            for (size_t k = 0; k < 3; ++k) {
                size_t dash = text.find('-', start);
                std::string piece = text.substr(start, dash == std::string::npos ? std::string::npos : dash - start);
                n[k] = clamp16(val(trim(piece)));
                if (dash == std::string::npos) break;
                start = dash + 1;
            }
            f.Defence = n[0];
            f.Midfield = n[1];
            f.Attack = n[2];
            break;
        }
    }

    if (isTime(control) && *fixtureField(f, control) == 0) {
        // The reset goes through the rule's own controls, so each stores what
        // its reset entry stands for: a tactic of 1, not 0.
        for (const RuleReset& r : kResets) {
            if (r.time != control) continue;
            if (r.isChange) {
                for (C c : r.formations) chooseText(f, c, kNoFormationText);
                for (C c : r.others) chooseText(f, c, kTacticListTexts[0]);
            } else {
                for (C c : r.others) chooseText(f, c, kNoChange);
            }
        }
    }
    return !(f == before);
}

bool chooseText(Fixture& f, FixtureControl control, std::string_view text) {
    int i = indexOf(controlEntries(control), text);
    if (i < 0) return false;
    return chooseEntry(f, control, i);
}

bool normaliseSetPieces(Fixture& f) {
    bool changed = false;
    for (int16_t* p : {&f.Captain, &f.Penalties, &f.Corners}) {
        if (*p == 0) {
            *p = 1;
            changed = true;
        }
    }
    return changed;
}

FixtureView showFixture(Fixture& fixture) {
    FixtureView v;
    v.SetPiecesChanged = normaliseSetPieces(fixture);
    for (const FixtureControlInfo& info : kControls) {
        v.Entry[size_t(info.Control)] = shownEntry(fixture, info.Control);
        v.Text[size_t(info.Control)] = shownText(fixture, info.Control);
    }
    return v;
}

std::string fixtureListText(const Fixture& fixture) {
    std::string s;
    if (fixture.Venue == "H")
        s = "Home vs ";
    else if (fixture.Venue == "A")
        s = "Away vs ";
    return s + fixture.Opponent + " - " + fixture.Competition;
}

std::vector<std::string> fixtureListTexts(const Club& club) {
    std::vector<std::string> out;
    for (const Fixture& f : club.Fixtures) out.push_back(fixtureListText(f));
    return out;
}

}  // namespace kestrin
