#include "core/clubview.h"

#include <algorithm>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"
#include "files/turnsheet.h"

namespace kestrin {

std::string screenTitle(const GameIni& game, std::string_view screenName) {
    return game.GameName + " turnsheet entry : " + std::string(screenName);
}

void noteClubChoice(Session& session, ClubView& view, int index) {
    if (index != view.LastSelectedClub) {
        view.CurrentFixture = 1;
        view.LastSelectedClub = index;
        view.SameClubSelected = false;
    } else {
        view.SameClubSelected = true;
    }
    session.CurrentClub = index;
}

// ---- The main menu ----------------------------------------------------------

namespace {

struct Department {
    const char* name;
    int level;
};

std::array<Department, 7> departments(const Club& c) {
    return {{{"Goalkeeper Coach", c.GoalkeeperCoach},
             {"Defence Coach", c.DefenceCoach},
             {"Midfield Coach", c.MidfieldCoach},
             {"Attack Coach", c.AttackCoach},
             {"Physio", c.Physio},
             {"Groundsman", c.Groundsman},
             {"Scout", c.Scout}}};
}

ChoiceBox makeBox(std::vector<std::string> lines, const std::string& order, bool enabled) {
    ChoiceBox box;
    box.enabled = enabled;
    auto at = std::find(lines.begin(), lines.end(), order);
    if (at == lines.end()) {
        lines.push_back(order);
        at = lines.end() - 1;
    }
    box.chosen = int(at - lines.begin());
    box.lines = std::move(lines);
    return box;
}

template <size_t N>
std::vector<std::string> toLines(const std::array<std::string_view, N>& a) {
    return std::vector<std::string>(a.begin(), a.end());
}

}  // namespace

std::vector<std::string> departmentLines(const Club& club) {
    std::vector<std::string> lines = toLines(kDepartmentFixedLines);
    const auto all = departments(club);
    for (const Department& raise : all) {
        if (raise.level >= 10) continue;
        for (const Department& cut : all) {
            if (cut.level <= 6 || std::string_view(cut.name) == raise.name) continue;
            lines.push_back("Increase " + std::string(raise.name) + " to " + gameNumber(raise.level + 1) +
                            ", Decrease " + cut.name + " to " + gameNumber(cut.level - 1));
        }
    }
    return lines;
}

std::vector<MenuLabel> mainMenuLabels(const Club& c, const GameIni& game) {
    const std::string money = game.Currency + " ";
    return {
        {"lblCredits", " Number of credits: ", gameNumber(c.Credits)},
        {"lblStampCredits", " Number of stamp credits: ", gameNumber(c.StampCredits)},
        {"lblStadium", " Stadium: ", c.Stadium},
        {"lblCapacity", " Capacity: ", gameNumber(c.Capacity)},
        {"lblFacilities", " Facilities: ", gameNumber(c.Facilities)},
        {"txtCapInc", "", c.CapacityUpgrade},
        {"txtFacInc", "", c.FacilityUpgrade},
        {"txtDeptUp", "", c.DepartmentUpgrade},
        {"lblGamesPlayed", " Games played: ", gameNumber(c.GamesPlayed)},
        {"lblAverageGate", " Average gate: ", gameNumber(c.AverageGate)},
        {"lblPotentialCrowd", " Potential crowd: ", gameNumber(c.PotentialCrowd)},
        {"lblSeasonTickets", " Season ticket holders: ", gameNumber(c.SeasonTicketHolders)},
        {"lblCrowdRating", " Crowd rating: ", gameNumber(c.CrowdRating)},
        {"lblGoalkeeperCoach", " Goalkeeper coach: ", gameNumber(c.GoalkeeperCoach)},
        {"lblDefenceCoach", " Defence coach: ", gameNumber(c.DefenceCoach)},
        {"lblMidfieldCoach", " Midfield coach: ", gameNumber(c.MidfieldCoach)},
        {"lblAttackCoach", " Attack coach: ", gameNumber(c.AttackCoach)},
        {"lblGroundsman", " Groundsman: ", gameNumber(c.Groundsman)},
        {"lblPhysio", " Physio: ", gameNumber(c.Physio)},
        {"lblScout", " Scout: ", gameNumber(c.Scout)},
        {"lblMarketing", " Marketing: ", gameNumber(c.Marketing)},
        {"lblWageBill", " Wage bill: ", money + gameNumber(c.WageBill)},
        {"lblCosts", " Costs: ", money + gameNumber(c.Costs)},
        {"lblGateMoney", " Gate money: ", money + gameNumber(c.GateMoney)},
        {"lblMerchandise", " Merchandise: ", money + gameNumber(c.Merchandise)},
        {"lblSponsorship", " Sponsorship: ", money + gameNumber(c.Sponsorship)},
        {"lblSundriesIn", " Sundries in: ", money + gameNumber(c.SundriesIn)},
        {"lblSundriesOut", " Sundries out: ", money + gameNumber(c.SundriesOut)},
        {"lblMoneyBet", " Money bet: ", money + gameNumber(c.MoneyBet)},
        {"lblBetWinnings", " Bet winnings: ", money + gameNumber(c.BettingWinnings)},
        {"lblTransfersRecouped", " Transfers recouped: ", money + gameNumber(c.TransfersRecouped)},
        {"lblTransfersSpent", " Transfers spent: ", money + gameNumber(c.TransfersSpent)},
        {"lblBalance", " Bank Balance: ", money + gameNumber(c.Balance)},
    };
}

PendingWorks pendingWorks(const Club& club) {
    PendingWorks p;
    p.capacity = findNoCase(club.CapacityUpgrade, "ACTION") != std::string::npos;
    p.facility = findNoCase(club.FacilityUpgrade, "ACTION") != std::string::npos;
    p.department = val(club.DepartmentUpgrade) > 0;
    return p;
}

const ChoiceBox& WeeklyChoices::box(WeeklyChoice which) const {
    switch (which) {
        case WeeklyChoice::Betting: return betting;
        case WeeklyChoice::Capacity: return capacity;
        case WeeklyChoice::Facility: return facility;
        case WeeklyChoice::Department: break;
    }
    return department;
}

WeeklyChoices fillWeeklyChoices(Club& club) {
    const PendingWorks pending = pendingWorks(club);
    // Works already under way leave nothing to order this week.
    if (pending.capacity) club.CapacityOrder = kCapacityLines[0];
    if (pending.facility) club.FacilityOrder = kFacilityLines[0];
    if (pending.department) club.DepartmentOrder = kDepartmentFixedLines[0];

    if (club.BettingOrder.empty()) club.BettingOrder = kBettingLines[0];
    if (club.FacilityOrder.empty()) club.FacilityOrder = kFacilityLines[0];
    if (club.CapacityOrder.empty()) club.CapacityOrder = kCapacityLines[0];
    if (club.DepartmentOrder.empty()) club.DepartmentOrder = kDepartmentFixedLines[0];

    WeeklyChoices w;
    w.betting = makeBox(toLines(kBettingLines), club.BettingOrder, true);
    w.capacity = makeBox(toLines(kCapacityLines), club.CapacityOrder, !pending.capacity);
    w.facility = makeBox(toLines(kFacilityLines), club.FacilityOrder, !pending.facility);
    w.department = makeBox(departmentLines(club), club.DepartmentOrder, !pending.department);
    return w;
}

bool chooseWeekly(Session& session, WeeklyChoice which, const std::string& line) {
    Club* club = session.current();
    if (session.FillingScreen || !club) return false;
    session.TurnChanged = true;
    switch (which) {
        case WeeklyChoice::Betting: club->BettingOrder = line; break;
        case WeeklyChoice::Capacity: club->CapacityOrder = line; break;
        case WeeklyChoice::Facility: club->FacilityOrder = line; break;
        case WeeklyChoice::Department: club->DepartmentOrder = line; break;
    }
    return true;
}

std::vector<std::string> coachTextLines(const Club& c) {
    return {"Goalkeeper Coach : " + gameNumber(c.GoalkeeperCoach), "Defence Coach : " + gameNumber(c.DefenceCoach),
            "Midfield Coach : " + gameNumber(c.MidfieldCoach), "Attack Coach : " + gameNumber(c.AttackCoach),
            "Physio : " + gameNumber(c.Physio)};
}

// ---- The squad grid ---------------------------------------------------------

namespace {

bool keptByAge(const Player& p, AgeFilter age) {
    switch (age) {
        case AgeFilter::Seniors: return p.Age >= 18;
        case AgeFilter::Youth: return p.Age <= 17;
        case AgeFilter::All: break;
    }
    return true;
}

bool keptByPosition(const Player& p, PositionFilter position) {
    static constexpr std::array<std::string_view, 5> groups = {"", "AGK", "DEF", "MID", "STR"};
    return position == PositionFilter::All || startsWith(p.Position, groups[size_t(position)]);
}

}  // namespace

std::vector<SquadRow> squadGridRows(const Club& club, AgeFilter age, PositionFilter position,
                                    const std::vector<HistoryRecord>& history) {
    std::vector<SquadRow> rows;
    for (size_t i = 0; i < club.Players.size(); ++i) {
        const Player& p = club.Players[i];
        if (!keptByAge(p, age) || !keptByPosition(p, position)) continue;
        SquadRow row;
        row.player = int(i) + 1;
        row.colour.fill(-1);
        row.cells[0] = p.LastShirt != 0 ? p.Name + "  (" + gameNumber(p.LastShirt) + ")" : p.Name;
        row.cells[1] = p.Position;
        row.cells[2] = gameNumber(p.Age);
        row.cells[3] = gameNumber(p.Sign);
        row.cells[4] = gameNumber(p.Contract);
        row.cells[5] = gameNumber(p.Injury);
        for (int s = 0; s < 11; ++s) row.cells[size_t(kFirstSkillColumn + s)] = gameNumber(p.skill(s));
        row.cells[17] = gameNumber(p.Agg);
        row.cells[18] = gameNumber(p.TotalSkill);
        rows.push_back(std::move(row));
    }
    for (const HistoryRecord& h : history) {
        const int skill = historySkillIndex(h.Skill);
        const int colour = historyResultColour(h.Result);
        if (skill < 0 || colour < 0) continue;
        for (SquadRow& row : rows)
            if (club.Players[size_t(row.player - 1)].Name == h.Name)
                row.colour[size_t(kFirstSkillColumn + skill)] = colour;
    }
    return rows;
}

fs::path historyPath(const Session& session, const Club& club) {
    return session.Folder.resolve(club.ClubFile + "HST.TXT");
}

// ---- Badge and shirt --------------------------------------------------------

fs::path clubPicturesPath(const Session& session, const Club& club) {
    return session.Folder.resolve(club.ClubFile + "pref.ini");
}

void readClubPictures(const Session& session, const Club& club, ClubView& view) {
    view.BadgeFile.clear();
    view.ShirtFile.clear();
    const fs::path path = clubPicturesPath(session, club);
    std::error_code ec;
    if (!fs::exists(path, ec)) return;
    std::vector<std::string> lines = readLines(path);
    if (lines.size() < 2)
        throw GameFileError(displayName(session.Folder, path), int(lines.size()) + 1,
                            lines.empty() ? "the badge picture's path" : "the shirt picture's path",
                            "the end of the file");
    view.BadgeFile = lines[0];
    view.ShirtFile = lines[1];
}

void writeClubPictures(const Session& session, const Club& club, const ClubView& view) {
    writeFileAtomic(clubPicturesPath(session, club), joinCrLf({view.BadgeFile, view.ShirtFile}));
}

// ---- Clear turn -------------------------------------------------------------

std::string clearTurnQuestion(const Session& session, bool allClubs) {
    std::string q;
    if (allClubs) {
        q = "Are you sure that you want to clear all turns ?";
    } else {
        const Club* club = session.current();
        q = "Are you sure that you want to clear " + (club ? club->Name : std::string()) + "'s turn ?";
    }
    return q + "\r\n\r\nIf you choose to do this it will restart the program.";
}

std::vector<fs::path> deleteTurnsheets(const Session& session, bool allClubs) {
    std::vector<fs::path> deleted;
    for (int i = 0; i < session.ClubCount(); ++i) {
        if (!allClubs && i != session.CurrentClub) continue;
        const fs::path path = turnsheetPath(session, session.Clubs[size_t(i)]);
        std::error_code ec;
        if (!fs::exists(path, ec)) continue;
        if (!fs::remove(path, ec) || ec)
            throw WriteError(displayName(session.Folder, path),
                             ec ? ec.message() : std::string("the file could not be deleted"));
        deleted.push_back(path);
    }
    return deleted;
}

// ---- Saving and sending -----------------------------------------------------

std::string saveFailedText(const Session& session, const WriteError& e) {
    return "The turnsheet " + displayName(session.Folder, fs::path(e.path)) + " could not be written: " + e.reason +
           ".\r\n\r\nThe previous copy of that file is left as it was, and your orders are still on screen. "
           "Check that the game folder can be written to and that the disk has room, then save again.";
}

bool saveTurnsheetsTelling(Session& session, Messages& messages) {
    try {
        saveTurnsheets(session, messages);
        return true;
    } catch (const WriteError& e) {
        messages.refuse(std::string(kSaveFailedTitle), saveFailedText(session, e));
        return false;
    }
}

std::string notSentText(const Session& session) {
    std::string to = session.Game.AdminAddress.empty() ? std::string("your game administrator")
                                                       : session.Game.AdminAddress;
    return "Sending by e-mail is not yet available.\r\n\r\nYour turnsheets have been saved in the folder " +
           utf8ToCp1252(session.Folder.resolve("Turnsheet").string()) + ". Please send them to " + to + " yourself.";
}

bool sendTurnsheetsWithoutMail(Session& session, Messages& messages) {
    if (session.Prefs.WarnInc == 1 && !checkIncomplete(session, messages)) return false;
    if (!saveTurnsheetsTelling(session, messages)) return false;
    messages.inform(std::string(kNotSentTitle), notSentText(session));
    return true;
}

void closingSavePrompt(Session& session, Messages& messages) {
    if (!session.TurnChanged) return;
    try {
        savePrompt(session, messages);
    } catch (const WriteError& e) {
        messages.refuse(std::string(kSaveFailedTitle), saveFailedText(session, e));
    }
}

}  // namespace kestrin
