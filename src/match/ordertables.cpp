#include "match/ordertables.h"

#include "core/text.h"

namespace kestrin {

namespace {

// Codes 1 to 11 only: "0 - 0 - 0" and unknown texts both fall through to "0".
std::string orderableFormationCode(std::string_view text) {
    for (const FormationEntry& f : kFormations)
        if (f.Code != 0 && f.Text == text) return std::to_string(f.Code);
    return "0";
}

std::vector<std::string> numberTexts(int from, int to, int step) {
    std::vector<std::string> out;
    for (int n = from; n <= to; n += step) out.push_back(std::to_string(n));
    return out;
}

std::string substitutionCodeOf(std::string_view text) {
    for (const SubstitutionEntry& s : kSubstitutions)
        if (s.Code != 0 && s.Text == text) return std::to_string(s.Code);
    return "";
}

}  // namespace

std::string FormationCodeText(std::string_view comboText) { return orderableFormationCode(comboText); }

std::string FormationCode(std::string_view text) { return orderableFormationCode(text); }

std::string FormationText(int code) {
    for (const FormationEntry& f : kFormations)
        if (f.Code != 0 && f.Code == code) return std::string(f.Text);
    return std::string(kNoFormationText);
}

std::string StatsFormationText(int code) {
    for (const FormationEntry& f : kFormations)
        if (f.Code != 0 && f.Code == code) return std::string(f.Text);
    for (const FormationEntry& f : kReportOnlyFormations)
        if (f.Code == code) return std::string(f.Text);
    return "";
}

int16_t ReportFormationCode(std::string_view reportText) {
    std::string t = trim(reportText);
    auto reportForm = [](const FormationEntry& f) {
        return std::to_string(f.Defence) + "  " + std::to_string(f.Midfield) + "  " + std::to_string(f.Attack);
    };
    for (const FormationEntry& f : kFormations)
        if (f.Code != 0 && reportForm(f) == t) return f.Code;
    for (const FormationEntry& f : kReportOnlyFormations)
        if (reportForm(f) == t) return f.Code;
    return kUnknownReportFormation;
}

std::string formationNumbersText(int16_t defence, int16_t midfield, int16_t attack) {
    return std::to_string(defence) + " - " + std::to_string(midfield) + " - " + std::to_string(attack);
}

std::string tacticListText(int fromZero) {
    if (fromZero < 0 || fromZero >= int(kTacticListTexts.size())) return "";
    return std::string(kTacticListTexts[size_t(fromZero)]);
}

int tacticListIndex(std::string_view text) {
    for (size_t i = 0; i < kTacticListTexts.size(); ++i)
        if (kTacticListTexts[i] == text) return int(i);
    return -1;
}

std::string tacticReportName(int fromOne) {
    if (fromOne < 1 || fromOne > int(kTacticReportNames.size())) return "";
    return std::string(kTacticReportNames[size_t(fromOne) - 1]);
}

int tacticReportNumber(std::string_view name) {
    for (size_t i = 0; i < kTacticReportNames.size(); ++i)
        if (kTacticReportNames[i] == name) return int(i) + 1;
    return 0;
}

std::string SubstitutionCode(std::string_view comboText) { return substitutionCodeOf(comboText); }

std::string SubstitutionCodeOfText(std::string_view text) { return substitutionCodeOf(text); }

std::string SubstitutionText(int code) {
    for (const SubstitutionEntry& s : kSubstitutions)
        if (s.Code == code) return std::string(s.Text);
    return std::string(kNoChange);
}

std::string SubstitutionLabel(std::string_view storedCode) {
    std::string stored = trim(storedCode);
    for (const SubstitutionEntry& s : kSubstitutions) {
        if (s.Code == 0) continue;
        std::string code = s.Code == 21111 ? std::string("211111") : std::to_string(s.Code);
        if (stored == code) return std::string(s.Text);
    }
    return std::string(kNoChange);
}

const std::vector<std::string>& minuteListTexts() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> t{std::string(kNoneEntry)};
        for (const std::string& m : numberTexts(10, 90, 10)) t.push_back(m);
        return t;
    }();
    return texts;
}

std::string minuteText(int16_t minute) { return minute == 0 ? std::string(kNoneEntry) : std::to_string(minute); }

const std::vector<std::string>& aggressionListTexts() {
    static const std::vector<std::string> texts = numberTexts(0, 5, 1);
    return texts;
}

const std::vector<std::string>& shirtListTexts() {
    static const std::vector<std::string> texts = numberTexts(1, 11, 1);
    return texts;
}

const std::vector<std::string>& shirtOrNoneListTexts() {
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> t{std::string(kNoneEntry)};
        for (const std::string& s : numberTexts(1, 11, 1)) t.push_back(s);
        return t;
    }();
    return texts;
}

}  // namespace kestrin
