#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "match/ordertables.h"

using namespace kestrin;

TEST(Formations, EveryOrderableFormationConvertsBothWaysAndFromReports) {
    struct Case {
        const char* text;
        int code;
        const char* report;
    } cases[] = {
        {"4 - 3 - 3", 1, "4  3  3"},  {"4 - 4 - 2", 2, "4  4  2"},  {"4 - 2 - 4", 3, "4  2  4"},
        {"4 - 5 - 1", 4, "4  5  1"},  {"5 - 4 - 1", 5, "5  4  1"},  {"5 - 3 - 2", 6, "5  3  2"},
        {"5 - 2 - 3", 7, "5  2  3"},  {"3 - 4 - 3", 8, "3  4  3"},  {"3 - 3 - 4", 9, "3  3  4"},
        {"3 - 2 - 5", 10, "3  2  5"}, {"3 - 5 - 2", 11, "3  5  2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(FormationCodeText(c.text), std::to_string(c.code));
        EXPECT_EQ(FormationCode(c.text), std::to_string(c.code));
        EXPECT_EQ(FormationText(c.code), c.text);
        EXPECT_EQ(StatsFormationText(c.code), c.text);
        EXPECT_EQ(ReportFormationCode(c.report), c.code);
    }
}

TEST(Formations, UnknownInputGivesEachConvertersOwnAnswer) {
    // Text to code: "0" for "0 - 0 - 0" and anything outside the table.
    for (const char* text : {"0 - 0 - 0", "4-4-2", " 4 - 4 - 2", "2 - 3 - 5", "3 - 6 - 1", "", "4 - 4 - 2 "}) {
        EXPECT_EQ(FormationCodeText(text), "0") << text;
        EXPECT_EQ(FormationCode(text), "0") << text;
        // ... and back again: a round trip of an unknown text lands on "0 - 0 - 0".
        EXPECT_EQ(FormationText(std::stoi(FormationCode(text))), "0 - 0 - 0") << text;
    }
    struct Code {
        int code;
        const char* formationText;
        const char* statsText;
    } codes[] = {
        {0, "0 - 0 - 0", ""},           {12, "0 - 0 - 0", "2 - 3 - 5"}, {13, "0 - 0 - 0", "3 - 6 - 1"},
        {14, "0 - 0 - 0", "3 - 3 - 3"}, {15, "0 - 0 - 0", "2 - 4 - 4"}, {16, "0 - 0 - 0", ""},
        {-1, "0 - 0 - 0", ""},          {100, "0 - 0 - 0", ""},
    };
    for (const Code& c : codes) {
        EXPECT_EQ(FormationText(c.code), c.formationText) << c.code;
        EXPECT_EQ(StatsFormationText(c.code), c.statsText) << c.code;
    }
    struct Report {
        const char* text;
        int code;
    } reports[] = {
        {"2  3  5", 12}, {"3  6  1", 13}, {"3  3  3", 14}, {"2  4  4", 15}, {"  4  4  2 ", 2},
        {"4 - 4 - 2", 16}, {"4 4 2", 16}, {"4   4   2", 16}, {"0  0  0", 16}, {"", 16}, {"6  2  2", 16},
    };
    for (const Report& r : reports) EXPECT_EQ(ReportFormationCode(r.text), r.code) << r.text;
}

TEST(Tactics, ListCountsFromZeroReportNamesFromOne) {
    const std::vector<std::string> list = {
        "No Specific Tactic Employed", "Pressure", "Blanket", "Offside", "Bite Back", "Stop Cross", "Diamond",
        "The Wall", "Snappy (Fill Snappy Shirt Number)", "Revolver (Fill Revolver Shirt Number)", "Pass It",
        "Waiting Game", "Standard", "Centre Stage", "Tram Lines", "Route One", "Rainy Day", "Support", "Pot Shot",
        "Chameleon", "Flanker", "Trickery", "Sardines"};
    for (size_t i = 0; i < list.size(); ++i) {
        EXPECT_EQ(tacticListText(int(i)), list[i]);
        EXPECT_EQ(tacticListIndex(list[i]), int(i));
    }
    EXPECT_EQ(tacticListText(-1), "");
    EXPECT_EQ(tacticListText(23), "");
    EXPECT_EQ(tacticListIndex("No Tactic"), -1);

    struct Case {
        int fromOne;
        const char* report;
    } cases[] = {
        {1, "No Specific Tactic Employed"}, {5, "Bite Back"}, {6, "Stopcross"}, {9, "Snappy"}, {10, "Revolver"},
        {11, "Pass It"}, {23, "Sardines"}, {24, "No Tactic"}, {0, ""}, {25, ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(tacticReportName(c.fromOne), c.report) << c.fromOne;
        if (*c.report) {
            EXPECT_EQ(tacticReportNumber(c.report), c.fromOne) << c.report;
        }
    }
    // The list's spellings are not report names.
    for (const char* text : {"Stop Cross", "Snappy (Fill Snappy Shirt Number)", "stopcross", ""})
        EXPECT_EQ(tacticReportNumber(text), 0) << text;
}

namespace {

struct SubCase {
    const char* text;
    int code;
};
const SubCase kSubs[] = {
    {"12 for 1", 1111},  {"12 for 2", 1112},   {"12 for 3", 1113},   {"12 for 4", 1114},
    {"12 for 5", 1115},  {"12 for 6", 1116},   {"12 for 7", 1117},   {"12 for 8", 1118},
    {"12 for 9", 1119},  {"12 for 10", 11110}, {"12 for 11", 11111}, {"12 for worst defender", 3111},
    {"12 for worst midfielder", 3112},         {"12 for worst attacker", 3113},
    {"13 for 1", 2111},  {"13 for 2", 2112},   {"13 for 3", 2113},   {"13 for 4", 2114},
    {"13 for 5", 2115},  {"13 for 6", 2116},   {"13 for 7", 2117},   {"13 for 8", 2118},
    {"13 for 9", 2119},  {"13 for 10", 21110}, {"13 for 11", 21111}, {"13 for worst defender", 4111},
    {"13 for worst midfielder", 4112},         {"13 for worst attacker", 4113},
};

}  // namespace

TEST(Substitutions, FourConvertersOverTheWholeTable) {
    for (const SubCase& c : kSubs) {
        SCOPED_TRACE(c.text);
        const std::string code = std::to_string(c.code);
        EXPECT_EQ(SubstitutionCode(c.text), code);
        EXPECT_EQ(SubstitutionCodeOfText(c.text), code);
        EXPECT_EQ(SubstitutionText(c.code), c.text);
        // The profile writer's converter trims the stored value first, and
        // loses exactly one order.
        EXPECT_EQ(SubstitutionLabel(" " + code + " "), c.code == 21111 ? "No Change" : c.text);
    }
}

TEST(Substitutions, NoChangeAndUnknownInput) {
    for (const char* text : {"No Change", "12 for 12", "13 for 0", "14 for 1", "12 For 1", "", "1111"}) {
        EXPECT_EQ(SubstitutionCode(text), "") << text;
        EXPECT_EQ(SubstitutionCodeOfText(text), "") << text;
    }
    for (int code : {0, 1110, 1120, 11112, 2110, 3110, 3114, 4114, 5111, 211111, -1111})
        EXPECT_EQ(SubstitutionText(code), "No Change") << code;
    struct Label {
        const char* stored;
        const char* text;
    } labels[] = {
        {"21111", "No Change"},  {" 21111 ", "No Change"}, {"211111", "13 for 11"}, {"0", "No Change"},
        {"", "No Change"},       {"4113", "13 for worst attacker"}, {"  1111", "12 for 1"}, {"21110", "13 for 10"},
        {"11111", "12 for 11"},  {"1111x", "No Change"},
    };
    for (const Label& l : labels) EXPECT_EQ(SubstitutionLabel(l.stored), l.text) << '"' << l.stored << '"';
    // The screen's converter keeps the order the profile loses.
    EXPECT_EQ(SubstitutionText(21111), "13 for 11");
}

TEST(MinutesAndLists, EntriesInOrder) {
    EXPECT_EQ(minuteListTexts(), (std::vector<std::string>{"None", "10", "20", "30", "40", "50", "60", "70", "80", "90"}));
    EXPECT_EQ(aggressionListTexts(), (std::vector<std::string>{"0", "1", "2", "3", "4", "5"}));
    const std::vector<std::string> shirts = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"};
    EXPECT_EQ(shirtListTexts(), shirts);
    std::vector<std::string> orNone = {"None"};
    orNone.insert(orNone.end(), shirts.begin(), shirts.end());
    EXPECT_EQ(shirtOrNoneListTexts(), orNone);
    struct Case {
        int minute;
        const char* text;
    } cases[] = {{0, "None"}, {10, "10"}, {90, "90"}, {45, "45"}};
    for (const Case& c : cases) EXPECT_EQ(minuteText(int16_t(c.minute)), c.text);
}
