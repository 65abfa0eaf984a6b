#pragma once
// The records of the session: one Club per managed club with its Players,
// Fixtures and the week's orders, and the league-wide ExportClubs.
//
// Field names are the game's own words. Containers are 0-based C++ vectors
// and arrays: Players[0] is player 1, Slots[0] is shirt 1, Movements[0] is
// movement slot 1, and so on. Only Clubs is 0-based in the game's own terms.
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin {

// Position codes, the whole of them.
inline constexpr std::array<std::string_view, 10> kPositionCodes = {
    "AGKP", "DEFL", "DEFC", "DEFR", "MIDL", "MIDC", "MIDR", "STRL", "STRC", "STRR"};

// Skill abbreviations in the order of the skills.
inline constexpr std::array<std::string_view, 11> kSkillAbbreviations = {
    "PA", "CO", "TA", "RU", "SH", "DR", "DF", "OF", "FL", "ST", "CR"};
inline constexpr std::array<std::string_view, 11> kSkillNames = {
    "Pass", "Control", "Tackle", "Run", "Shoot", "Dribble", "DefHd", "OffHd", "Flair", "Strength", "Creativity"};

// Head texts of the squad grid's 19 data columns.
inline constexpr std::array<std::string_view, 19> kSquadGridColumns = {
    "Name   (Last No)", "Position", "Age", "Sign", "Contract", "Injury", "Pass", "Control", "Tackle", "Run",
    "Shoot", "Dribble", "DefHd", "OffHd", "Flair", "Strength", "Creativity", "Agg", "TS"};

struct CoachOrder {
    std::string Player;  // empty for none
    int16_t Skill = 0;
    bool operator==(const CoachOrder&) const = default;
};

struct Movement {
    int16_t Move = 0;  // 0 for an unused slot
    std::string Player;
    std::string Club;
    int32_t Fee = 0;
    int32_t Contract = 0;
    int32_t Incentive = 0;
    bool operator==(const Movement&) const = default;
};

struct TeamSlot {
    std::string Player;  // empty for nobody
    int32_t Left = 0;    // Field Area 1, drawing units
    int32_t Top = 0;
    int32_t Left2 = 0;   // Field Area 2; Top2 <= 0 means none
    int32_t Top2 = 0;
    bool operator==(const TeamSlot&) const = default;
};

struct Player {
    std::string Name;
    std::string Position;
    std::string Nationality;
    int16_t Age = 0;
    int16_t Pass = 0, Control = 0, Tackle = 0, Run = 0, Shoot = 0, Dribble = 0, DefHd = 0, OffHd = 0,
            Flair = 0, Strength = 0, Creativity = 0;
    int16_t TotalSkill = 0;
    int16_t RealSkill = 0;
    int16_t Injury = 0;
    int16_t SuspPoints = 0;
    int16_t Bookings = 0;
    int16_t SendingsOff = 0;
    int16_t Skill = 0;
    int16_t BookTally = 0;
    std::string CurrentInternational;
    std::string Listed;
    int16_t LastIntShirt = 0;
    int16_t Sign = 0;
    int16_t TLFigure = 0;
    int16_t Agg = 0;
    int16_t AverageSeasonPerf = 0;
    int16_t Goals = 0;
    int32_t Value = 0;
    int16_t Contract = 0;
    int16_t LoanLength = 0;
    int16_t WeeksInReserves = 0;
    std::string LoaningClub;
    int32_t Wages = 0;
    int16_t CareerApps = 0;
    int16_t CareerGoals = 0;
    int16_t InterCaps = 0;
    int16_t InterGoals = 0;
    int16_t CareerPerf = 0;
    std::array<int16_t, 5> LastFivePerf{};
    int32_t Potential = 0;
    std::string SpecialSkill;
    int32_t CareerExtraA = 0;
    int32_t CareerExtraB = 0;
    int16_t LastShirt = 0;
    std::array<int32_t, 8> Portrait{};

    // The skill of 0-based index i in the order of kSkillNames.
    int16_t skill(int i) const;
    int16_t& skill(int i);
    bool operator==(const Player&) const = default;
};

struct Fixture {
    std::string Venue;  // one letter: "H", "A", anything else is neutral
    std::string Competition;
    std::string Opponent;
    int16_t Tactics = 0;
    int16_t Penalties = 0;
    int16_t Corners = 0;
    int16_t Captain = 0;
    int16_t FreeKicks = 0;
    int16_t CornersAiming = 0;
    int16_t Defence = 0, Midfield = 0, Attack = 0;
    int16_t DefAgg = 0, MidAgg = 0, AttAgg = 0;
    int16_t Revolver = 0, Snappy = 0, Pace = 0, PassLength = 0, PassHeight = 0;
    int16_t ChangeOneTime = 0;
    std::array<int16_t, 3> ChangeOneFormation{};  // losing, drawing, winning
    std::array<int16_t, 3> ChangeOneTactic{};
    int16_t ChangeTwoTime = 0;
    std::array<int16_t, 3> ChangeTwoFormation{};
    std::array<int16_t, 3> ChangeTwoTactic{};
    int16_t SubOneTime = 0;
    std::array<int16_t, 3> SubOneAction{};
    int16_t SubTwoTime = 0;
    std::array<int16_t, 3> SubTwoAction{};
    std::array<TeamSlot, 13> Slots{};  // Slots[0] is the goalkeeper, [11] and [12] the substitutes

    // "Home", "Away" or "Neutral" by Venue.
    std::string venueWord() const;
    bool operator==(const Fixture&) const = default;
};

struct Club {
    std::string Name;
    std::string ClubFile;
    std::string Colours;
    std::string LeagueNumber;
    int16_t Credits = 0;
    int16_t StampCredits = 0;
    std::string Stadium;
    int32_t Capacity = 0;
    int16_t Facilities = 0;
    int16_t TicketPrice = 0;
    int32_t SeasonTicketHolders = 0;
    int32_t PotentialCrowd = 0;
    int16_t CrowdRating = 0;
    int16_t GamesPlayed = 0;
    int32_t AverageGate = 0;
    int16_t RecentPerformance = 0;
    std::string MainSponsor;
    std::string CapacityUpgrade;
    std::string FacilityUpgrade;
    std::string DepartmentUpgrade;
    std::string CapacityOrder;
    std::string FacilityOrder;
    std::string BettingOrder;
    std::string DepartmentOrder;
    int16_t GoalkeeperCoach = 0;
    CoachOrder GoalkeeperSenior, GoalkeeperYouth;
    int16_t DefenceCoach = 0;
    CoachOrder DefenceSenior, DefenceYouth;
    int16_t MidfieldCoach = 0;
    CoachOrder MidfieldSenior, MidfieldYouth;
    int16_t AttackCoach = 0;
    CoachOrder AttackSenior, AttackYouth;
    int16_t Groundsman = 0;
    int16_t Physio = 0;
    std::array<std::string, 3> PhysioPlayer{};
    std::array<int16_t, 3> PhysioPoints{};
    int16_t PhysioPointsLeft = 0;
    int16_t Scout = 0;
    int16_t Marketing = 0;
    std::string BlendAverages;
    int16_t BlendPassing = 0, BlendCrossing = 0;
    int32_t WageBill = 0, Costs = 0, GateMoney = 0, Merchandise = 0, Sponsorship = 0, SundriesIn = 0,
            SundriesOut = 0, MoneyBet = 0, BettingWinnings = 0, TransfersRecouped = 0, TransfersSpent = 0,
            Balance = 0;
    std::string OneToOnePlayer;
    int16_t OneToOneInstruction = 0;
    std::string Messages, PrivateMessages, Private;
    int16_t FixtureCount = 0;
    std::vector<Player> Players;
    std::vector<Fixture> Fixtures;
    std::array<std::string, 4> ScoutPlayer{};
    std::array<bool, 4> ScoutAggressive{};
    std::array<std::string, 4> ScoutClub{};
    std::vector<std::string> ReportLines;
    std::array<Movement, 6> Movements{};

    // The eight coach orders in their fixed Turnsheet order: senior goalkeeping,
    // defence, midfield, attack, then youth goalkeeping, defence, midfield, attack.
    CoachOrder& coachOrder(int i);
    const CoachOrder& coachOrder(int i) const;

    // Player lookup: a displayed text is cut at the first "(" and trimmed
    // (the cut text is handed back through `bareName` when given). Returns the
    // 1-based index of the first player of that exact Name, 0 when none.
    int findPlayer(std::string_view displayed, std::string* bareName = nullptr) const;
    // The player of a 1-based index, nullptr for 0 or out of range.
    const Player* player(int index1) const;
    Player* player(int index1);
    bool operator==(const Club&) const = default;
};

// One player line of the club export. Its texts are views into the
// ClubExport that holds it and are valid as long as some copy of it lives.
struct ExportPlayer {
    std::string_view Name;
    std::string_view Age;
    std::string_view Position;
    std::string_view TotalSkill;
    std::string_view Sign;
    std::string_view Played;
    std::string_view Perf;
    std::string_view Goals;
    int32_t MinValue = 0;
    std::string_view MaxValue;
    std::array<int32_t, 7> Portrait{};
    std::string_view Colours;
    int16_t Loan = 0;
    std::string_view LoanClub;
    std::string_view Managed;  // "Y" or "N"
    bool operator==(const ExportPlayer&) const = default;
};

struct ExportClub {
    std::string_view Name;
    std::span<const ExportPlayer> Players;
};

// The club export as read: the file's bytes, the few texts the reader had to
// join itself, and every player in one array, club after club, so a search
// walks one block of memory. Immutable once read; copies share it, so a copy
// of the session costs nothing and keeps every view valid.
class ClubExport {
public:
    struct Storage {
        std::string text;  // the file's bytes
        std::vector<std::unique_ptr<char[]>> joined;
        std::vector<ExportPlayer> players;
        std::vector<ExportClub> clubs;
    };

    ClubExport() = default;
    explicit ClubExport(std::shared_ptr<const Storage> storage) : storage_(std::move(storage)) {}

    std::span<const ExportClub> clubs() const {
        return storage_ ? std::span<const ExportClub>(storage_->clubs) : std::span<const ExportClub>();
    }
    operator std::span<const ExportClub>() const { return clubs(); }
    size_t size() const { return clubs().size(); }
    bool empty() const { return clubs().empty(); }
    const ExportClub& operator[](size_t i) const { return clubs()[i]; }
    const ExportClub& back() const { return clubs().back(); }
    auto begin() const { return clubs().begin(); }
    auto end() const { return clubs().end(); }

private:
    std::shared_ptr<const Storage> storage_;
};

// One message of last week's report, as the harvest addressed it.
struct Memo {
    std::string To;    // the club's manager name and " manager"
    std::string From;  // "Coaching department", "Physio department", "Club Scout", "First team coach"
    std::string Text;  // the report line
    bool operator==(const Memo&) const = default;
};

// One manager of the game, from Weekly/EMAILS.TXT.
struct ManagerEntry {
    std::string Manager;  // trimmed, at most 20 characters
    std::string Address;  // trimmed, at most 40 characters
    bool operator==(const ManagerEntry&) const = default;
};

// One item of the week's news: a file of Weekly/ and its first line.
struct NewsItem {
    std::string Title;
    std::string File;  // the name in Weekly/
    bool operator==(const NewsItem&) const = default;
};

// "None", "Very Poor", ... "World Class" for a Potential.
std::string potentialGrade(int32_t potential);
// The grade word, "  (", the number, ")", as the squad screen shows it.
std::string potentialText(int32_t potential);
// (Skill + 1) * 11 - TotalSkill.
int skillPointsToNextLevel(const Player& p);
// "Goalkeeper", "Central Defender", ... for a position code; "" when unknown.
std::string positionWord(std::string_view code);

}  // namespace kestrin
