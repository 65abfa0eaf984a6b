#include <gtest/gtest.h>

#include "core/gamefolder.h"
#include "orders/admin.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;

TEST(AdminForcedSkill, TheCheckAndItsSentence) {
    struct Case {
        const char* inc;
        std::array<std::string, 3> dec;
        const char* first;   // with the signing figure 2
        const char* second;  // the form that names no figure
    } cases[] = {
        {"None", {"None", "None", "None"}, "This is a valid change. There is no signing penalty.",
         "This is a valid change. There is no signing penalty."},
        {"Passing to 7", {"Shooting to 8", "None", "None"}, "This is a valid change. There is no signing penalty.",
         "This is a valid change. There is no signing penalty."},
        {"Passing to 7", {"Running to 8", "Tackling to 9", "None"},
         "This is not valid.  You can only decrease one skill when you increase a core skill.",
         "This is not valid.  You can only decrease one skill when you increase a core skill."},
        {"Shooting to 5", {"Running to 8", "Tackling to 9", "None"},
         "This is not valid.  You need to decrease skills by 1 more point(s).",
         "This is not valid.  You need to decrease skills by 1 more point(s)."},
        {"Creativity to 6", {"Passing to 8", "Tackling to 9", "None"},
         "This is a valid change. His signing will be raised to 3. Other managers can bid for him when his signing "
         "goes above 3.",
         "This is a valid change. His signing will be raised. Other managers can bid for him when his signing goes "
         "above 3."},
        {"None", {"Shooting to 8", "Running to 8", "None"},
         "This is not valid.  If you decrease shooting, you can't decrease another skill in the same week.",
         "This is not valid.  If you decrease shooting, you can't decrease another skill in the same week."},
        {"Passing to 7", {"Passing to 8", "None", "None"}, "This is not valid.  The same skill has been used twice.",
         "This is not valid.  The same skill has been used twice."},
        {"Flair to 7", {"Running to 8", "Flair to 9", "None"}, "This is not valid.  The same skill has been used twice.",
         "This is not valid.  The same skill has been used twice."},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(forcedSkillCheck(c.inc, c.dec, 2), c.first) << c.inc << " / " << c.dec[0];
        EXPECT_EQ(forcedSkillCheck(c.inc, c.dec, 2, true), c.second) << c.inc << " / " << c.dec[0];
    }

    Player p;
    for (int i = 0; i < 11; ++i) p.skill(i) = int16_t(i == 8 ? 7 : i == 10 ? 8 : i < 3 ? 6 : 7);
    const ForcedSkillLists lists = forcedSkillLists(p);
    EXPECT_EQ(lists.increase, (std::vector<std::string>{"None", "Passing to 7", "Control to 7", "Tackling to 7",
                                                         "Flair to 8"}));
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
    EXPECT_EQ(forcedPositions("MIDC"),
              (std::vector<std::string>{"DEFL", "DEFC", "DEFR", "MIDL", "MIDR", "STRL", "STRC", "STRR"}));

    Club club;
    club.Balance = 2000000;
    club.Scout = 2;
    const OrderResult create = checkCreatePlayer(club);
    EXPECT_FALSE(create);
    EXPECT_EQ(create.title, "Not enough money to do this");
    EXPECT_EQ(create.text, "Your club cannot afford to do this.  It would cost 10 million\r\nCurrent bank balance is 2000000");
    EXPECT_EQ(checkFastTrack(club, "Scout").text,
              "Your club cannot afford to do this.  It would cost 2250000\r\nCurrent bank balance is 2000000");
    club.Balance = 3000000;
    EXPECT_EQ(checkFastTrack(club, "Scout").line, "Increase to 3 for a cost of 2250000");
    EXPECT_EQ(checkSpecialPhysio(club, "6").line, "Cost of 3000000");
    EXPECT_EQ(checkSpecialPhysio(club, "7").text,
              "Your club cannot afford to do this.  It would cost 3500000\r\nCurrent bank balance is 3000000");
}

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
    EXPECT_EQ(adminText(s, m),
              "Weekly Administration\r\n\r\n"
              "\r\n\r\nKESTREL ROVERS: Special Physio\r\nPlayer: J. Smith    Points: 3\r\n"
              "\r\n\r\n"
              "\r\n\r\n");
    EXPECT_EQ(test::shown(m),
              (std::vector<std::string>{
                  "Refuse|Invalid Forced Skill change|PORT VALE has an invalid forced skill actioned\r\nThis clubs "
                  "admin will not be saved / sent until this is corrected.",
                  "Refuse|No Admin for a club|No admin has been done for DENHOLM CITY\r\nThis clubs admin will not "
                  "be saved / sent until this is corrected."}));

    // A valid forced change of the same club goes out with its decreases.
    skill.setText(AdminField::FSC_Decrease, "Tackling to 9", 1);
    skill.setText(AdminField::FSC_Decrease, "Dribbling to 7", 2);
    writeAdminRecord(s.Folder, 2, skill);
    RecordingMessages again;
    EXPECT_NE(adminText(s, again).find("PORT VALE: Force Skill Change for Al Fry\r\nIncrease Shooting to 5\r\n"
                                       "Decrease Running to 8\r\nDecrease Tackling to 9\r\nDecrease Dribbling to 7\r\n"),
              std::string::npos);
    EXPECT_TRUE(saveAdminText(s, again));
    EXPECT_EQ(again.entries.back().title, "Manual Admin E-mail File Saved");
    EXPECT_NE(t.read("AdminFile.txt").find("PORT VALE: Force Skill Change"), std::string::npos);
}
