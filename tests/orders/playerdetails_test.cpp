#include <gtest/gtest.h>

#include <functional>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "orders/playerdetails.h"
#include "orders/squad.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

Player annLee() {
    Player p = test::squadPlayer("Ann Lee", "DEFC", 24, 6);
    p.Nationality = "Wales";
    p.Pass = 12, p.Control = 9, p.Tackle = 15, p.Run = 8, p.Shoot = 3, p.Dribble = 7, p.DefHd = 14, p.OffHd = 6,
    p.Flair = 2, p.Strength = 11, p.Creativity = 4;
    p.RealSkill = 58, p.TotalSkill = 70, p.Injury = 2, p.Goals = 3, p.Value = 250000, p.Bookings = 2;
    p.SendingsOff = 1, p.BookTally = 4, p.Listed = "N", p.CareerApps = 120, p.TLFigure = 5, p.AverageSeasonPerf = 7;
    p.Wages = 1200, p.CareerPerf = 6, p.CareerGoals = 14, p.LastShirt = 5, p.SpecialSkill = "Long throw";
    p.LoanLength = 1, p.LoaningClub = "Rovers", p.WeeksInReserves = 2, p.CurrentInternational = "Y";
    p.LastIntShirt = 4, p.Potential = 25, p.Agg = 33, p.LastFivePerf = {1, 2, 3, 4, 5};
    return p;
}

struct FaultHookReset {
    ~FaultHookReset() { atomicWriteFaultHook = nullptr; }
};

// The line of figures of the e-mail text: its fourth line.
std::string figuresLine(const std::string& text) { return splitLines(text).at(3); }

}  // namespace

TEST(PlayerDetails, PanelRowsWithTheirLabels) {
    const std::string want =
        "Other details for Ann Lee.  (LAST WEEK OF LOAN - YOU MAY BID FOR HIM THIS WEEK)\r\n"
        "Skill: 6\tReal Skill: 58\tTotal Skill: 70\tGoals: 3\tValue: \xA3 250000\r\n"
        "Bookings: 2\tSendings Off: 1\tBook Tally: 4\tListed: N\tCareer Apps: 120\r\n"
        "TL figure: 5\tAverage season perf : 7\tWages : 1200\tCareer Perf: 6\r\n"
        "Susp. Points: 0\tCareer Goals: 14\tLast Shirt No: 5\tSpecial Skill: Long throw\r\n"
        "Loan Length: 1\tLoaning Club: Rovers\tWeeks left in reserves: 2\r\n"
        "Nationality: Wales\r\n"
        "Current International : Y\tLast Int. Shirt Number: 4\tInter Caps: 0\tInter Goals: 0\r\n"
        "Skill points needed for next level : 7\tPotential: Very Good  (25)\r\n"
        "Last five Performances : 5            4            3            2            1";
    EXPECT_EQ(otherDetailsText(annLee(), "\xA3"), want);
    Player notOnLoan = annLee();
    notOnLoan.LoanLength = 2;
    EXPECT_EQ(otherDetailsRows(notOnLoan, "$")[0], std::vector<std::string>{"Other details for Ann Lee."});
}

TEST(PlayerDetails, PotentialGradeAndPointsToTheNextLevel) {
    struct Case {
        int potential, skill, total;
        const char* row;
    } cases[] = {
        {100, 6, 70, "Skill points needed for next level : 7\tPotential: None  (100)"},
        {5, 6, 80, "Skill points needed for next level : -3\tPotential: Very Poor  (5)"},
        {6, 9, 100, "Skill points needed for next level : 10\tPotential: Poor  (6)"},
        {41, 0, 0, "Skill points needed for next level : 11\tPotential: World Class  (41)"},
    };
    for (const Case& c : cases) {
        Player p = annLee();
        p.Potential = c.potential;
        p.Skill = int16_t(c.skill);
        p.TotalSkill = int16_t(c.total);
        const std::string text = otherDetailsText(p, "$");
        EXPECT_NE(text.find(std::string("\r\n") + c.row + "\r\n"), std::string::npos) << c.potential;
    }
}

TEST(PlayerDetails, EmailTextExactly) {
    Club club;
    club.Name = "Harbour Town";
    const std::string want =
        "Player details, sent from Harbour Town\r\n"
        "\r\n"
        "                     Nationality    Pos  Age  PA CO TA RU SH DR DF OF FL ST CR SK  RS  TS  SU INJ\r\n"
        "Ann Lee             Wales         DEFC  24  12  9 15  8  3  7 14  6  2 11  4  6  58 70 0  2\r\n"
        "\r\n"
        "Current International  : Y\r\n"
        "Season Performance     : 7\r\n"
        "Career Performance     : 6\r\n"
        "Career Games Played    : 120\r\n"
        "Career Goals           : 14\r\n"
        "Potential              : 25\r\n"
        "Value                  : 250000\r\n"
        "Aggression             : 33\r\n"
        "Last five performances : 5, 4, 3, 2, 1\r\n"
        "Booked 2, Sent off 1, Book Tally 4\r\n";
    EXPECT_EQ(createDetails(club, annLee()), want);
}

TEST(PlayerDetails, EmailFiguresKeepTheirColumns) {
    struct Case {
        const char* what;
        std::function<void(Player&)> change;
        const char* line;
    } cases[] = {
        {"as it stands", [](Player&) {},
         "Ann Lee             Wales         DEFC  24  12  9 15  8  3  7 14  6  2 11  4  6  58 70 0  2"},
        {"a long name and nationality are cut",
         [](Player& p) {
             p.Name = "Bartholomew Fitzgerald";
             p.Nationality = "Northern Ireland";
         },
         "Bartholomew FitzgeraNorthern IrelaDEFC  24  12  9 15  8  3  7 14  6  2 11  4  6  58 70 0  2"},
        {"a three-digit total fills its place",
         [](Player& p) {
             p.RealSkill = 99;
             p.TotalSkill = 103;
         },
         "Ann Lee             Wales         DEFC  24  12  9 15  8  3  7 14  6  2 11  4  6  99103 0  2"},
        {"one-digit skills and age",
         [](Player& p) {
             for (int i = 0; i < 11; ++i) p.skill(i) = int16_t(i);
             p.Age = 9;
         },
         "Ann Lee             Wales         DEFC  9   0  1  2  3  4  5  6  7  8  9 10  6  58 70 0  2"},
    };
    Club club;
    club.Name = "Harbour Town";
    for (const Case& c : cases) {
        Player p = annLee();
        c.change(p);
        EXPECT_EQ(figuresLine(createDetails(club, p)), c.line) << c.what;
    }
}

TEST(PlayerDetails, SavedWholeOverTheOldFileOrNotAtAll) {
    test::TempDir dir;
    Session s;
    s.Folder = GameFolder(dir.path());
    Club club;
    club.Name = "Harbour Town";
    const std::string text = createDetails(club, annLee());

    // A file of another case is the same file on the game's file system.
    dir.write("PLAYERDETAILS.TXT", "old details\r\n");
    fs::path written = savePlayerDetails(s, text);
    EXPECT_EQ(written.filename(), "PLAYERDETAILS.TXT");
    EXPECT_EQ(dir.read("PLAYERDETAILS.TXT"), text);
    EXPECT_EQ(detailsExportedText(written),
              written.string() + "\r\nYou can now email that file to the manager of your choice");

    FaultHookReset reset;
    atomicWriteFaultHook = [](const fs::path& tmp) { throw WriteError(tmp.string(), "disk full"); };
    Player other = annLee();
    other.Name = "Other Man";
    EXPECT_THROW(savePlayerDetails(s, createDetails(club, other)), WriteError);
    EXPECT_EQ(dir.read("PLAYERDETAILS.TXT"), text) << "a failed save must leave the old file whole";
    size_t files = 0;
    for (const auto& e : fs::directory_iterator(dir.path())) files += e.is_regular_file() ? 1 : 0;
    EXPECT_EQ(files, 1u) << "no temporary file is left behind";
}
