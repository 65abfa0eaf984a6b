#pragma once
// One small week of the game's files, written as the game writes them, for
// the Stats tests: three clubs, an Elite Cup final and a league table.
#include <string>
#include <vector>

#include "core/text.h"

namespace kestrin::test::week {

inline std::vector<std::string> codes() {
    return {"CLUB CODES", "Kestrel Rovers - KEST", "Port Elm Athletic - PORT", "King's Lynn Town - KING",
            "#NULL# - NULL", "Nowhere United - #NULL#", "a line without the separator"};
}

inline std::vector<std::string> emails() {
    return {"MANAGERS AND THEIR ADDRESSES", "==============================", "",
            "Kestrel Rovers - kest@example.org (Tom Hale)", "King's Lynn Town - lynn@example.org (Ann O'Neil)",
            "Atlantis FC - who@example.org (Nobody)"};
}

// "Pos  Club ... PYD ... MGD  GD  PTS", and rows placed under those words.
inline std::vector<std::string> leagueTable(int played, int kestPoints) {
    const std::string heading = "Pos  Club                  PYD   W   D   L  GF  GA  MGD   GD   PTS";
    auto row = [&](int pos, const std::string& name, int gd, int pts) {
        std::string r = padLeft(std::to_string(pos), 4) + " " + fixedWidth(name, 20);
        r = fixedWidth(r, heading.size() + 4);
        r.replace(heading.find("PYD "), 2, padLeft(std::to_string(played), 2));
        r.replace(heading.find(" GD ") + 1, 4, padLeft(std::to_string(gd), 4));
        r.replace(heading.find(" PTS"), r.size() - heading.find(" PTS"), " " + std::to_string(pts));
        return r;
    };
    return {"ENGLISH PREMIER - TABLE", "", heading, row(1, "Port Elm Athletic", 30, 80),
            row(2, "Kestrel Rovers", 12, kestPoints), row(3, "King's Lynn Town", -42, -3), "",
            "Tables are final after 38 games"};
}

inline std::string tradeLine(const std::string& player, const std::string& from, const std::string& to,
                             int contract, const std::string& fee) {
    return fixedWidth(player, 50) + fixedWidth(from, 16) + fixedWidth(to, 17) + padLeft(std::to_string(contract), 2) +
           fee;
}

// A whole match report: the Elite Cup final, Kestrel Rovers 1 Port Elm
// Athletic 0, with a booking then a sending off, ball work, a shape change,
// 101 lines of commentary before one moment, and an empty tactic cell.
inline std::vector<std::string> finalReport(int attendance = 45210) {
    std::vector<std::string> r = {
        "Kestrel Rovers v PORT ELM ATHLETIC",
        "Elite Cup Final played at the National Stadium",
        "The attendance was " + std::to_string(attendance) + " with the gates closed early",
        "Kestrel Rovers started with a formation of 4  4  2 and PORT ELM ATHLETIC with a formation of 4  3  3",
        "Kestrel Rovers used the tactic Pressure and PORT ELM ATHLETIC used the tactic Offside",
        "Kestrel Rovers started the game with a blend of 60  55  70 and PORT ELM ATHLETIC started the game with a "
        "blend of 52  48  66",
        "",
        " 1 mins - The game is under way",
        "T Baxter (H 9) dummies L Cole (A 4)",
        "T Baxter (H 9) double nutmegs L Cole (A 4)",
        "I Hale (H 7) loses control under pressure",
        "12 mins - Play is stopped",
        "L Cole (A 4) fouls T Baxter (H 9)",
        "L Cole has been booked",
        "The referee had no choice there.",
        "30 mins - A goal",
        "T Baxter (H 9) SCORED for Kestrel Rovers with a half volley after 30 minutes",
        "And set up by I Hale which was a fine ball",
        "PORT ELM ATHLETIC adjusted themselves, now playing a 3  5  2 formation and the tactic Blanket",
        "Three at the back now.",
        "41 mins - Trouble",
        "L Cole (A 4) fouls I Hale (H 7)",
        "L Cole has been SENT off",
        "He walks slowly to the tunnel.",
        "60 mins - Long spell of pressure",
    };
    for (int i = 1; i <= 101; ++i) r.push_back("Comment line " + std::to_string(i));
    r.push_back("Z Moor (A 9) HIT THE bar from twenty yards");
    r.push_back(" 0 mins - Injury time is played");
    r.push_back("REFEREE BLOWS FOR FULL TIME");
    r.push_back("Kestrel Rovers lift the Elite Cup.");
    const char* homeNames[13] = {"A Keeper", "B Back", "C Back", "D Back", "E Back", "F Mid", "I Hale",
                                 "H Mid", "T Baxter", "J Fwd", "K Sub", "L Sub", "M Sub"};
    const char* awayNames[13] = {"Z Keeper", "Y Back", "X Back", "L Cole", "W Back", "V Mid", "U Mid",
                                 "S Mid", "Z Moor", "R Fwd", "Q Sub", "P Sub", "O Sub"};
    const char* positions[13] = {"AGKP", "DEFL", "DEFC", "DEFC", "DEFR", "MIDL", "MIDC",
                                 "MIDR", "STRC", "STRL", "MIDC", "DEFC", "STRR"};
    auto side = [&](const std::string& name, const std::string& values, const char* const* players,
                    bool shortList) {
        r.push_back("Finishing Club statistics for " + name);
        r.push_back("Style   Movement   Pos   Chances   Start Blends   End Blends   Tactic   On   Off   Perf");
        r.push_back(values);
        r.push_back("");
        r.push_back("Player statistics for " + name + "   MAN OF THE MATCH - " + players[8] + " (9)");
        r.push_back("Name      Pos/Skill   Pass   Cross   Tackle   Dribble   Shot   Header   Perf   Sub");
        r.push_back(std::string(players[0]) + " AGKP/ 40 12 / 10  0 / 0  3 / 2  0 / 0  7");
        for (int i = 1; i < 13; ++i) {
            if (shortList && i == 12) {
                r.push_back("Finishing player strength 11");
                continue;
            }
            const std::string n = std::to_string(i);
            r.push_back(std::string(players[i]) + " " + positions[i] + "/ " + std::to_string(30 + i) + " " + n +
                        " / " + n + "  1 / 0  5 / 4  2 / 1  " + (i == 8 ? "4 / 2" : "0 / 0") + "  3 / 2  " +
                        std::to_string(5 + i % 4) + "  " + (i >= 10 ? "70" : "0"));
        }
    };
    side("Kestrel Rovers", "12   9   54   6   60  55  70   61  57  72   Pressure   7   4   68", homeNames, false);
    side("PORT ELM ATHLETIC", "10   8   46   2   52  48  66   50  47  65      3   5   55", awayNames, true);
    return r;
}

// Kestrel Rovers' Squadsheet: the skills table and the short summary of the final.
inline std::vector<std::string> kestrelSquadsheet() {
    return {
        "Club and player information for Kestrel Rovers",
        "League 1",
        "",
        "PLAYER SKILLS",
        "Name                        Nationality   Pos  Age  PA  CO  TA  RU  SH  DR  DF  OF  FL  ST  CR SU ",
        "=================================================================================",
        "",
        "T Baxter                    English       STRC  24  10  12   8  14  18  15   4  16  12  13  11",
        "O'Hara                      Irish            DEFC  29  11   9  17  12   5   6  18   7  14  15   8",
        "",
        "Elite Cup Final N PORT ELM ATHLETIC 1 - 0",
        " Performance  68 - 55  Possesion % 58 Home 42",
        "Home shots On/Off target 7 / 4",
        "Away shots On/Off target 3 / 5",
        "Movement  9 - 8   Style  12 - 10",
        "Attendance - 45210   Home support was 70 away support was 30",
        "( 1) A Keeper SK 40 PF 7",
        "( 9) T Baxter SK 50 PF 9",
        "( 1) Z Keeper SK 38 PF 6",
        "SCORERS FOR KESTREL ROVERS",
        "  T Baxter 30 ( 4 )",
        "MAN OF THE MATCH - T Baxter",
        " CAP  6  PENS  1  CORN  7  FK  12   CAP  2  PENS  0  CORN  3  FK  9",
        "",
        "SCHEDULED MATCHES FOR NEXT WEEK",
    };
}

}  // namespace kestrin::test::week
