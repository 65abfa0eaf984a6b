#include "core/gameini.h"

#include <gtest/gtest.h>

#include "core/errors.h"
#include "support/testsupport.h"

using namespace kestrin;

namespace {

GameIni sampleIni() {
    GameIni ini;
    ini.GameName = "Kestrin Football League";
    ini.Charset = 1;
    ini.Currency = "$";
    ini.ShortName = "KESTRIN";
    ini.AdminAddress = "turns@kestrin.example";
    for (size_t k = 1; k <= 8; ++k) {
        ini.LeagueNames[k] = "League Division " + std::to_string(k);
        ini.LeagueCodes[k] = "KFL" + std::to_string(k);
    }
    return ini;
}

}  // namespace

TEST(GameIni, FieldsMoveByTenAndTheirPlaceAndBlanksStay) {
    // 'A'+11, 'b'+12, blank, 'c'+14
    EXPECT_EQ(scrambleField("Ab c"), "Ln q");
    EXPECT_EQ(unscrambleField("Ln q"), "Ab c");
    EXPECT_EQ(scrambleField("   "), "   ");
    EXPECT_EQ(unscrambleField("   "), "   ");
    // The lowest code a place can hold unscrambles to 0; one lower fails.
    EXPECT_EQ(unscrambleField(std::string(1, char(11))), std::string(1, '\0'));
    EXPECT_EQ(unscrambleField(std::string("  ") + char(13)), std::string("  ") + '\0');
    EXPECT_THROW(unscrambleField(std::string(1, char(10))), FieldError);
    EXPECT_THROW(unscrambleField(std::string("  ") + char(12)), FieldError);
}

TEST(GameIni, WrittenRecordReadsBackTheSameFields) {
    GameIni ini = sampleIni();
    ini.LeagueNames[0] = "Entry nought is never read";
    std::string bytes = gameIniBytes(ini);
    ASSERT_EQ(bytes.size(), kGameIniLength);
    EXPECT_EQ(bytes.substr(0, 40), scrambleField("Kestrin Football League                 "));
    EXPECT_EQ(bytes.substr(43, 1), scrambleField("$"));

    GameIni back = parseGameIni(bytes);
    EXPECT_EQ(back.LeagueNames[0], "");
    ini.LeagueNames[0] = "";
    EXPECT_EQ(back, ini);

    test::TempDir dir;
    EXPECT_EQ(readGameIni(dir.write("game.ini", bytes)), ini);
}

TEST(GameIni, AShortFileFillsWhatItCan) {
    std::string bytes = gameIniBytes(sampleIni()).substr(0, 50);
    GameIni ini = parseGameIni(bytes);
    EXPECT_EQ(ini.GameName, "Kestrin Football League");
    EXPECT_EQ(ini.Charset, 1);
    EXPECT_EQ(ini.Currency, "$");
    EXPECT_EQ(ini.ShortName, "KESTRI");  // six of its ten bytes are there
    EXPECT_EQ(ini.AdminAddress, "");
    EXPECT_EQ(ini.LeagueNames[8], "");
    EXPECT_EQ(parseGameIni(""), GameIni{});
}

TEST(GameIni, ACharacterBelowZeroIsAnError) {
    std::string bytes = gameIniBytes(sampleIni());
    bytes[44] = char(10);  // first place of the short name
    try {
        parseGameIni(bytes, "game.ini");
        FAIL() << "read without complaint";
    } catch (const GameFileError& e) {
        EXPECT_EQ(e.file, "game.ini");
        EXPECT_EQ(e.line, 0);
        EXPECT_EQ(e.expected, "a scrambled short name at byte 44");
        EXPECT_EQ(e.found, std::string(1, char(10)));
    }
}
