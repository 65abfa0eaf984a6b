#include <gtest/gtest.h>

#include "core/gamefolder.h"
#include "orders/admin.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;
using V = std::vector<std::string>;

TEST(AdminForcedSkill, TheCheckAndItsSentence) {
    const char* valid = "This is a valid change. There is no signing penalty.";
    const char* twice = "This is not valid.  The same skill has been used twice.";
    struct Case {
        const char* inc;
        std::array<std::string, 3> dec;
        const char* first;   // with the signing figure 2
        const char* second;  // the form that names no figure; nullptr: the same
    } cases[] = {
        {"None", {"None", "None", "None"}, valid, nullptr},
        {"Passing to 7", {"Shooting to 8", "None", "None"}, valid, nullptr},
        {"Passing to 7", {"Running to 8", "Tackling to 9", "None"},
         "This is not valid.  You can only decrease one skill when you increase a core skill.", nullptr},
        {"Shooting to 5", {"Running to 8", "Tackling to 9", "None"},
         "This is not valid.  You need to decrease skills by 1 more point(s).", nullptr},
        {"Creativity to 6", {"Passing to 8", "Tackling to 9", "None"},
         "This is a valid change. His signing will be raised to 3. Other managers can bid for him when his signing "
         "goes above 3.",
         "This is a valid change. His signing will be raised. Other managers can bid for him when his signing goes "
         "above 3."},
        {"None", {"Shooting to 8", "Running to 8", "None"},
         "This is not valid.  If you decrease shooting, you can't decrease another skill in the same week.", nullptr},
        {"Passing to 7", {"Passing to 8", "None", "None"}, twice, nullptr},
        {"Flair to 7", {"Running to 8", "Flair to 9", "None"}, twice, nullptr},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(forcedSkillCheck(c.inc, c.dec, 2), c.first) << c.inc << " / " << c.dec[0];
        EXPECT_EQ(forcedSkillCheck(c.inc, c.dec, 2, true), c.second ? c.second : c.first) << c.inc << " / " << c.dec[0];
    }

    Player p;
    for (int i = 0; i < 11; ++i) p.skill(i) = int16_t(i == 8 ? 7 : i == 10 ? 8 : i < 3 ? 6 : 7);
    const ForcedSkillLists lists = forcedSkillLists(p);
    EXPECT_EQ(lists.increase, (V{"None", "Passing to 7", "Control to 7", "Tackling to 7", "Flair to 8"}));
    EXPECT_EQ(lists.decrease.front(), "None");
    EXPECT_EQ(lists.decrease.back(), "Creativity to 7");
    EXPECT_EQ(lists.decrease.size(), 9u);
}

TEST(AdminChecks, ScoutPointsPositionsAndMoney) {
    AdminRecord r;
    r.setText(AdminField::SSR_Int, "Yes");
    r.setText(AdminField::SSR_Sign, "Any");
    for (size_t row = 0; row < 6; ++row) r.setText(AdminField::SSR_Skill, row < 2 ? "Passing" : "None", row);
    EXPECT_EQ(scoutPointsText(3, r), "You have 0 scout points remaining");
    r.setText(AdminField::SSR_Skill, "Running", 2);
    EXPECT_EQ(scoutPointsText(3, r), "You have used too many Scout Points. Please remove a selection to correct this.");
    EXPECT_EQ(scoutPointsText(-1, r), "");

    EXPECT_EQ(signingRise("STRL", "DEFR"), 6);
    EXPECT_EQ(signingRise("MIDC", "MIDL"), 1);
    EXPECT_EQ(signingRise("AGKP", "DEFC"), 0);
    EXPECT_EQ(forcedPositions("MIDC"), (V{"DEFL", "DEFC", "DEFR", "MIDL", "MIDR", "STRL", "STRC", "STRR"}));

    const std::string cannot = "Your club cannot afford to do this.  It would cost ";
    Club club;
    club.Balance = 2000000;
    club.Scout = 2;
    const OrderResult create = checkCreatePlayer(club);
    EXPECT_FALSE(create);
    EXPECT_EQ(create.title, "Not enough money to do this");
    EXPECT_EQ(create.text, cannot + "10 million\r\nCurrent bank balance is 2000000");
    EXPECT_EQ(checkFastTrack(club, "Scout").text, cannot + "2250000\r\nCurrent bank balance is 2000000");
    club.Balance = 3000000;
    EXPECT_EQ(checkFastTrack(club, "Scout").line, "Increase to 3 for a cost of 2250000");
    EXPECT_EQ(checkSpecialPhysio(club, "6").line, "Cost of 3000000");
    EXPECT_EQ(checkSpecialPhysio(club, "7").text, cannot + "3500000\r\nCurrent bank balance is 3000000");
}

// adm.kst by club, the text for the administrator, and CreateLine on the club on screen.
TEST(AdminFile, RecordsByClubAndTheTextForTheAdministrator) {
    TempDir t;
    Session s;
    s.Folder = GameFolder(t.path());
    for (const char* name : {"KESTREL ROVERS", "Ashby Town", "PORT VALE", "DENHOLM CITY"}) {
        Club c;
        c.Name = name;
        c.Scout = 2;
        s.Clubs.push_back(c);
    }
    AdminRecord physio;
    physio.setOption(4);
    physio.setText(AdminField::SP_Player, "J. Smith");
    physio.setText(AdminField::SP_Points, "3");
    writeAdminRecord(s.Folder, 0, physio);
    AdminRecord skill;
    skill.setOption(7);
    skill.setText(AdminField::FSC_Player, "Al Fry");
    skill.setText(AdminField::FSC_Increase, "Shooting to 5");
    for (size_t i = 0; i < 3; ++i) skill.setText(AdminField::FSC_Decrease, i == 0 ? "Running to 8" : "None", i);
    writeAdminRecord(s.Folder, 2, skill);

    // Whole records, blank-padded where written and zero where never written.
    const std::string bytes = t.read("adm.kst");
    ASSERT_EQ(bytes.size(), 3 * kAdminRecordLength);
    EXPECT_EQ(bytes.substr(0, 2), std::string("\x04\x00", 2));
    EXPECT_EQ(bytes.substr(2164, 80), "J. Smith" + std::string(72, ' '));
    EXPECT_EQ(bytes.substr(2, 80), std::string(80, '\0'));
    EXPECT_EQ(bytes.substr(kAdminRecordLength, kAdminRecordLength), std::string(kAdminRecordLength, '\0'));
    EXPECT_EQ(readAdminRecord(s.Folder, 2).bytes(), skill.bytes());
    EXPECT_EQ(readAdminRecord(s.Folder, 3).bytes(), AdminRecord().bytes());

    RecordingMessages m;
    EXPECT_EQ(adminText(s, m), "Weekly Administration\r\n\r\n\r\n\r\nKESTREL ROVERS: Special Physio\r\n"
                               "Player: J. Smith    Points: 3\r\n\r\n\r\n\r\n\r\n");
    EXPECT_EQ(test::shown(m),
              (V{"Refuse|Invalid Forced Skill change|PORT VALE has an invalid forced skill actioned\r\nThis clubs "
                 "admin will not be saved / sent until this is corrected.",
                 "Refuse|No Admin for a club|No admin has been done for DENHOLM CITY\r\nThis clubs admin will not "
                 "be saved / sent until this is corrected."}));

    // A valid forced change goes out with its decreases; the last club places its order from the screen.
    skill.setText(AdminField::FSC_Decrease, "Tackling to 9", 1);
    skill.setText(AdminField::FSC_Decrease, "Dribbling to 7", 2);
    writeAdminRecord(s.Folder, 2, skill);
    AdminForm f = emptyAdminForm();
    f.option = 13;
    RecordingMessages again;
    s.CurrentClub = 3;
    s.FillingScreen = true;
    EXPECT_TRUE(createAdminLine(s, f, again));
    EXPECT_EQ(t.read("adm.kst").size(), 3 * kAdminRecordLength) << "nothing while the screen is filled";
    s.FillingScreen = false;
    EXPECT_TRUE(createAdminLine(s, f, again));
    EXPECT_EQ(readAdminRecord(s.Folder, 3).option(), 13);
    EXPECT_EQ(adminFormOfClub(s, again).option, 13);
    EXPECT_TRUE(saveAdminText(s, again));
    EXPECT_EQ(again.entries.size(), 1u);
    EXPECT_EQ(again.entries.back().title, "Manual Admin E-mail File Saved");
    EXPECT_NE(t.read("AdminFile.txt").find("PORT VALE: Force Skill Change for Al Fry\r\nIncrease Shooting to 5\r\n"
                                            "Decrease Running to 8\r\nDecrease Tackling to 9\r\nDecrease Dribbling "
                                            "to 7\r\n\r\n\r\nDENHOLM CITY: Instant Cash"),
              std::string::npos);

    // A game folder that is a file: told, not thrown.
    t.write("plain", "x");
    s.Folder = GameFolder(t.path() / "plain");
    RecordingMessages bad;
    EXPECT_FALSE(createAdminLine(s, f, bad));
    ASSERT_EQ(bad.entries.size(), 1u);
    EXPECT_EQ(bad.entries[0].title, "Weekly Administration not saved");
}

TEST(AdminForm, CreateLineKeepsTheChosenOptionAndPutsItBack) {
    using F = AdminField;
    AdminForm typed = emptyAdminForm();
    typed.set(F::SP_Player, "J. Smith (DEFC)");
    typed.set(F::SP_Points, "4");
    typed.set(F::FTD_Dept, "Scout");  // another option's control: not stored
    AdminRecord working;
    working.setText(F::CP_Name, "Kept");
    working.setText(F::SP_Points, "9");

    struct Case {
        int option;
        bool sssMode;
        std::vector<std::pair<AdminSlot, std::string>> stored;  // what the record then holds
    } cases[] = {
        {4,
         false,
         {{{F::SP_Player}, "J. Smith (DEFC)"}, {{F::SP_Points}, "4"}, {{F::FTD_Dept}, ""}, {{F::CP_Name}, "Kept"}}},
        {6, false, {{{F::FTD_Dept}, "Scout"}, {{F::SP_Points}, "9"}, {{F::SP_Player}, ""}}},
        {2, true, {{{F::SSS_Player}, ""}, {{F::SP_Points}, "9"}}},
        {0, false, {{{F::SSR_Int}, "Any"}, {{F::SSR_Skill, 5}, "None"}, {{F::SSR_Max, 3}, "Any"}, {{F::SSR_Pos}, ""}}},
    };
    const AdminForm empty = emptyAdminForm();
    for (const Case& c : cases) {
        typed.option = c.option;
        typed.sssMode = c.sssMode;
        const AdminRecord r = adminRecordOf(working, typed);
        EXPECT_EQ(r.option(), c.option);
        EXPECT_EQ(r.sssMode(), c.sssMode);
        for (const auto& [slot, text] : c.stored) {
            EXPECT_EQ(r.text(slot.field, slot.row), text) << c.option << " field " << int(slot.field);
            // An empty control leaves its field never written, so the text says "No admin".
            if (text.empty()) {
                EXPECT_FALSE(r.written(slot.field, slot.row)) << c.option;
            }
        }
        // Put back: the option's own fields as typed, every other control empty.
        const AdminForm back = adminFormOf(r);
        EXPECT_EQ(back.option, c.option);
        EXPECT_EQ(back.sssMode, c.sssMode);
        for (const AdminSlot& s : adminSlots()) {
            const AdminForm& from = adminOptionOf(s.field) == c.option ? typed : empty;
            EXPECT_EQ(back.text(s.field, s.row), from.text(s.field, s.row))
                << c.option << " field " << int(s.field) << " row " << s.row;
        }
    }
    EXPECT_EQ(emptyAdminForm().text(F::LPO_Weeks), "6");
    EXPECT_EQ(adminSlots().size(), 27u + 3 * 5 + 2);
}

TEST(AdminForm, ListsOfTheClubAndTheExportClubs) {
    Club club;
    for (const auto& [name, position, injury, tl] : {std::tuple{"Al Fry", "AGKP", 11, 0}, {"Bo Dee", "DEFC", 9, 2},
                                                      {"Cy Ng", "STRL", 12, 5}, {"Di Oak", "MIDR", 13, -1}}) {
        club.Players.push_back(test::squadPlayer(name, position, 20, 5, injury));
        club.Players.back().TLFigure = int16_t(tl);
    }
    const AdminPlayerLists l = adminPlayerLists(club);
    EXPECT_EQ(l.all, (V{"Al Fry (AGKP)", "Bo Dee (DEFC)", "Cy Ng (STRL)", "Di Oak (MIDR)"}));
    EXPECT_EQ(l.injured, (V{"Al Fry (AGKP)", "Cy Ng (STRL)"}));
    EXPECT_EQ(l.loanable, (V{"Al Fry (AGKP)", "Di Oak (MIDR)"}));
    EXPECT_EQ(l.outfield, (V{"Bo Dee (DEFC)", "Cy Ng (STRL)", "Di Oak (MIDR)"}));

    std::vector<ExportPlayer> players(2);
    players[0].Name = "Ed Roe", players[0].Position = "MIDL";
    players[1].Name = "Fi Lu", players[1].Position = "DEFR";
    EXPECT_EQ(exportPlayerLines(ExportClub{"Port Elm", players}), (V{"(MIDL) Ed Roe", "(DEFR) Fi Lu"}));
    EXPECT_EQ(kAdminScoutPositions.size(), kAdminCreatePositions.size() + 3);
    EXPECT_EQ(kAdminScoutPositions.back(), "Any Striker");
}
