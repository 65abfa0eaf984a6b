#include "files/squadsheet.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "core/errors.h"
#include "core/text.h"

namespace kestrin {

std::string clubFileFromName(const std::string& fileName) {
    size_t at = findNoCase(fileName, "squ");
    return at == std::string::npos ? fileName : fileName.substr(0, at);
}

namespace {

constexpr size_t kDetailLines = 20;     // the club's details
constexpr size_t kFirstSquadLine = 30;  // nine unread lines follow the details
constexpr std::string_view kScheduled = "SCHEDULED MATCHES FOR NEXT WEEK";

// How a squad table ends: its title line (trimmed) equals `title`, or, with
// `prefixOnly`, begins with it. Then `skip` heading lines follow.
struct TableEnd {
    std::string_view title;
    bool prefixOnly;
    size_t skip;
    const char* what;  // the table, as the manager would call it
};

constexpr TableEnd kSquadEnd{"OTHER SQUAD DETAILS", false, 7, "the squad table"};
constexpr TableEnd kOtherEnd{"CONTRACT AND STATUS DETAILS", false, 2, "the other squad details"};
constexpr TableEnd kContractEnd{"PERFORMANCES FOR THE LAST FIVE MATCHES (#NULL# denotes did not play)", false, 3,
                                "the contract and status details"};
constexpr TableEnd kPerformanceEnd{"CAREER RECORDS", false, 2, "the performances"};
constexpr TableEnd kCareerEnd{"PORTRAIT FEATURES", true, 2, "the career records"};
constexpr TableEnd kPortraitEnd{"*****", true, 0, "the portrait features"};

std::string titleText(const TableEnd& end) {
    return (end.prefixOnly ? "a line beginning \"" : "the line \"") + std::string(end.title) + "\"";
}

class SheetReader {
public:
    SheetReader(const std::vector<std::string>& lines, const std::string& fileName) : lines_(lines), file_(fileName) {}

    Club read(const std::string& clubFile, std::string& turnStamp);

private:
    [[noreturn]] void fail(size_t line1, std::string expected, std::string found) const {
        throw GameFileError(file_, int(std::min<size_t>(line1, size_t(std::numeric_limits<int>::max()))),
                            std::move(expected), std::move(found));
    }

    const std::string& line(size_t line1) const { return lines_[line1 - 1]; }

    // A number field of the club's details, found between two markers.
    template <class Int>
    Int detail(size_t line1, std::string_view text, std::string_view start, std::string_view end, const char* name,
               bool nullIsZero = false) const {
        std::string field = markerText(text, start, end);
        try {
            if constexpr (sizeof(Int) == 2)
                return parseInt16(field, nullIsZero);
            else
                return parseInt32(field, nullIsZero);
        } catch (const FieldError& e) {
            fail(line1, e.expected + " for " + name, trim(field));
        }
    }

    void readDetails(Club& club) const;

    // Calls each(line1, text, count) for every non-blank line of a table, with
    // its 1-based running count, and returns the line number of its title.
    template <class Each>
    size_t readTable(size_t line1, const TableEnd& end, Each&& each) const;

    // The player that the `count`th line of a later table belongs to.
    Player& playerFor(Club& club, size_t count, size_t line1, const std::string& text, const TableEnd& end) const {
        if (count > club.Players.size())
            fail(line1,
                 titleText(end) + " closing " + end.what + " after " + std::to_string(club.Players.size()) +
                     " player lines",
                 text);
        return club.Players[count - 1];
    }

    const std::vector<std::string>& lines_;
    const std::string& file_;
};

// The blank-separated fields of one table line, converted with errors that
// name the line, the field and the table.
class TableFields {
public:
    TableFields(std::string_view text, size_t line1, const char* table, const std::string& file)
        : line_(line1), table_(table), file_(file) {
        splitTokens(text, tokens_);
    }

    size_t count() const { return tokens_.size(); }

    std::string_view text(size_t index1, const char* name) const {
        if (index1 < 1 || index1 > tokens_.size())
            throw GameFileError(
                file_, int(line_),
                "a value for " + std::string(name) + " (field " + std::to_string(index1) + " of " + table_ + ")",
                std::to_string(tokens_.size()) + " fields");
        return tokens_[index1 - 1];
    }

    int16_t int16(size_t index1, const char* name, bool nullIsZero = false) const {
        const std::string_view t = text(index1, name);
        try {
            return parseInt16(t, nullIsZero);
        } catch (const FieldError& e) {
            throw GameFileError(file_, int(line_), e.expected + " for " + name, std::string(t));
        }
    }

    int32_t int32(size_t index1, const char* name, bool nullIsZero = false) const {
        const std::string_view t = text(index1, name);
        try {
            return parseInt32(t, nullIsZero);
        } catch (const FieldError& e) {
            throw GameFileError(file_, int(line_), e.expected + " for " + name, std::string(t));
        }
    }

private:
    std::vector<std::string_view> tokens_;  // views into the line, which outlives them
    size_t line_;
    const char* table_;
    const std::string& file_;
};

std::string_view tail(std::string_view s, size_t column1) {
    return column1 > s.size() ? std::string_view() : s.substr(column1 - 1);
}

void SheetReader::readDetails(Club& club) const {
    club.Name = fromColumn(line(1), 33);
    club.LeagueNumber = line(2);

    const std::string& l3 = line(3);
    club.Colours = trim(markerText(l3, "CLUB COLOURS ", "/"));
    club.Credits = detail<int16_t>(3, l3, "Number of credits = ", "/", "Credits");
    club.StampCredits = detail<int16_t>(3, l3, "Stamp credits = ", "", "StampCredits");

    const std::string& l4 = line(4);
    club.Stadium = trim(markerText(l4, "Stadium - ", " Capacity"));
    club.Capacity = detail<int32_t>(4, l4, " Capacity - ", "Facilities", "Capacity");
    club.Facilities = detail<int16_t>(4, l4, "Facilities - ", "", "Facilities");

    const std::string& l5 = line(5);
    club.TicketPrice = detail<int16_t>(5, l5, "Ticket price - ", " Season", "TicketPrice");
    club.SeasonTicketHolders =
        detail<int32_t>(5, l5, "Season ticket holders - ", " Potential crowd", "SeasonTicketHolders");
    club.PotentialCrowd = detail<int32_t>(5, l5, "Potential crowd - ", " Crowd rating", "PotentialCrowd");
    club.CrowdRating = detail<int16_t>(5, l5, "Crowd rating - ", "", "CrowdRating");

    const std::string& l6 = line(6);
    club.GamesPlayed = detail<int16_t>(6, l6, "Games played - ", " Average gate", "GamesPlayed");
    // The game prints the gate's label without its blank when there is no gate.
    if (trim(markerText(l6, " Average gate -", "Recent Performance average")) == "#NULL#")
        club.AverageGate = 0;
    else
        club.AverageGate = detail<int32_t>(6, l6, " Average gate - ", "Recent Performance average", "AverageGate");
    club.RecentPerformance = detail<int16_t>(6, l6, "Recent Performance average - ", "", "RecentPerformance");

    club.MainSponsor = markerText(line(7), "Main club sponsor - ", "");

    const std::string& l8 = line(8);
    auto upgrade = [](std::string text, const char* none, const char* action) {
        if (text.empty() || text[0] == 'N') return std::string(none);
        if (text[0] == 'Y') return std::string(action);
        return text;
    };
    club.CapacityUpgrade = upgrade(markerText(l8, "Capacity upgrade pending? - ", " Facility upgrade pending?"),
                                   "No capacity increase this week", "Action capacity increase");
    club.FacilityUpgrade = upgrade(markerText(l8, "Facility upgrade pending? - ", ""), "No facility increase this week",
                                   "Action facility increase");

    const std::string& l9 = line(9);
    if (findNoCase(l9, "NO DEPARTMENT") != std::string::npos)
        club.DepartmentUpgrade = "No current department upgrade";
    else
        club.DepartmentUpgrade =
            trim(markerText(l9, " - ", "")) + " wks until " + markerText(l9, "until ", " coach") + " dept upgrade";

    const std::string& l12 = line(12);
    club.GoalkeeperCoach = detail<int16_t>(12, l12, "Goalkeeper coach - ", " Defence coach", "GoalkeeperCoach");
    club.DefenceCoach = detail<int16_t>(12, l12, "Defence coach - ", " Midfield coach", "DefenceCoach");
    club.MidfieldCoach = detail<int16_t>(12, l12, "Midfield coach - ", " Attack coach", "MidfieldCoach");
    club.AttackCoach = detail<int16_t>(12, l12, "Attack coach - ", "", "AttackCoach");

    const std::string& l13 = line(13);
    club.Groundsman = detail<int16_t>(13, l13, "Groundsman - ", " Physio", "Groundsman");
    club.Physio = detail<int16_t>(13, l13, "Physio - ", " Scout", "Physio");
    club.Scout = detail<int16_t>(13, l13, "Scout - ", " Marketing", "Scout");
    club.Marketing = detail<int16_t>(13, l13, "Marketing - ", "", "Marketing");
    club.PhysioPointsLeft = club.Physio;

    const std::string& l14 = line(14);
    club.BlendAverages = trim(markerText(l14, "Blend averages - ", " Passing"));
    club.BlendPassing = detail<int16_t>(14, l14, " Passing - ", "Crossing", "BlendPassing");
    club.BlendCrossing = detail<int16_t>(14, l14, "Crossing - ", "", "BlendCrossing");

    const std::string& l17 = line(17);
    club.WageBill = detail<int32_t>(17, l17, "Wage bill - ", " Costs", "WageBill");
    club.Costs = detail<int32_t>(17, l17, "Costs - ", " Gate Money", "Costs");
    club.GateMoney = detail<int32_t>(17, l17, "Gate Money - ", " Merchandise", "GateMoney");
    club.Merchandise = detail<int32_t>(17, l17, "Merchandise - ", "", "Merchandise");

    // A negative figure comes out as " --": the game's own reading drops its
    // sign, and any other doubled minus is a line it cannot read at all.
    std::string l18 = line(18);
    if (size_t at = l18.find(" --"); at != std::string::npos) l18.replace(at, 3, " - ");
    if (l18.find("--") != std::string::npos)
        fail(18, "single minus signs after Sponsorship, Sundries In and Sundries Out, not \"--\"", line(18));
    club.Sponsorship = detail<int32_t>(18, l18, "Sponsorship - ", " Sundries In", "Sponsorship");
    club.SundriesIn = detail<int32_t>(18, l18, " Sundries In - ", "Sundries Out", "SundriesIn");
    club.SundriesOut = detail<int32_t>(18, l18, "Sundries Out - ", "", "SundriesOut");

    const std::string& l19 = line(19);
    club.MoneyBet = detail<int32_t>(19, l19, "Money bet - ", " Betting winnings", "MoneyBet");
    club.BettingWinnings = detail<int32_t>(19, l19, "Betting winnings - ", " Transfers recouped", "BettingWinnings");
    club.TransfersRecouped = detail<int32_t>(19, l19, "Transfers recouped - ", " Transfers spent", "TransfersRecouped");
    club.TransfersSpent = detail<int32_t>(19, l19, "Transfers spent - ", "", "TransfersSpent");

    club.Balance = detail<int32_t>(20, line(20), "BALANCE - ", " PLEASE NOTE", "Balance");
}

template <class Each>
size_t SheetReader::readTable(size_t line1, const TableEnd& end, Each&& each) const {
    size_t count = 0;
    for (;; ++line1) {
        if (line1 > lines_.size()) fail(line1, titleText(end) + " closing " + end.what, "");
        const std::string& text = line(line1);
        std::string trimmed = trim(text);
        if (end.prefixOnly ? startsWith(trimmed, end.title) : trimmed == end.title) break;
        if (trimmed.empty()) continue;
        each(line1, text, ++count);
    }
    if (line1 + end.skip > lines_.size())
        fail(lines_.size() + 1,
             "the " + std::to_string(end.skip) + " heading lines after the line \"" + trim(line(line1)) + "\"", "");
    return line1;
}

// One reading of each table's line; the player is the one its line position names.
void readSquadLine(Player& p, const TableFields& f) {
    p.Position = f.text(1, "Position");
    p.Age = f.int16(2, "Age");
    for (size_t k = 0; k < kSkillNames.size(); ++k) p.skill(int(k)) = f.int16(3 + k, kSkillNames[k].data());
    p.Skill = f.int16(14, "Skill");
    p.RealSkill = f.int16(15, "RealSkill");
    p.TotalSkill = f.int16(16, "TotalSkill");
    p.SuspPoints = f.int16(17, "SuspPoints");
    p.Injury = f.int16(18, "Injury");
}

void readOtherLine(Player& p, const TableFields& f) {
    p.Bookings = f.int16(1, "Bookings");
    p.SendingsOff = f.int16(2, "SendingsOff");
    p.BookTally = f.int16(3, "BookTally");
    p.Listed = f.text(4, "Listed");
    p.CurrentInternational = f.text(5, "CurrentInternational");
    p.LastIntShirt = f.int16(6, "LastIntShirt");
    p.Sign = f.int16(7, "Sign");
    p.TLFigure = f.int16(8, "TLFigure");
    p.Agg = f.int16(9, "Agg");
    p.AverageSeasonPerf = f.int16(10, "AverageSeasonPerf", true);
    p.Goals = f.int16(11, "Goals");
    p.Value = f.int32(12, "Value");
}

void readContractLine(Player& p, const TableFields& f) {
    p.Contract = f.int16(1, "Contract");
    p.Wages = f.int32(2, "Wages", true);
    p.LoanLength = f.int16(3, "LoanLength");
    // With exactly four fields there is no loaning club and the fourth is the
    // weeks in reserves; otherwise the fourth is the club and the weeks are 0.
    if (f.count() == 4) {
        p.LoaningClub.clear();
        p.WeeksInReserves = f.int16(4, "WeeksInReserves");
    } else {
        p.LoaningClub = f.text(4, "LoaningClub");
    }
}

void readPerformanceLine(Player& p, const TableFields& f) {
    // The table's own title says "#NULL#" marks a match not played.
    for (size_t k = 0; k < 5; ++k) p.LastFivePerf[k] = f.int16(k + 1, "LastFivePerf", true);
    p.Potential = f.int32(6, "Potential");
    p.SpecialSkill = f.text(7, "SpecialSkill");
}

void readCareerLine(Player& p, const TableFields& f) {
    p.CareerApps = f.int16(1, "CareerApps", true);
    p.CareerGoals = f.int16(2, "CareerGoals", true);
    // Three figures go into one field in turn, so only the last one stays.
    for (size_t k = 3; k <= 5; ++k) p.CareerPerf = f.int16(k, "CareerPerf", true);
    p.LastShirt = f.int16(6, "LastShirt");
    p.CareerExtraA = f.int32(7, "CareerExtraA");
    p.CareerExtraB = f.int32(8, "CareerExtraB");
}

void readPortraitLine(Player& p, const TableFields& f) {
    for (size_t k = 0; k < p.Portrait.size(); ++k) p.Portrait[k] = f.int32(k + 1, "Portrait");
}

Club SheetReader::read(const std::string& clubFile, std::string& turnStamp) {
    if (lines_.size() < kDetailLines) fail(lines_.size() + 1, "the 20 lines of the club's details", "");
    if (lines_.size() < kFirstSquadLine - 1)
        fail(lines_.size() + 1, "the lines between the club's details and the squad table", "");

    Club club;
    club.ClubFile = clubFile;
    readDetails(club);

    size_t title = readTable(kFirstSquadLine, kSquadEnd, [&](size_t line1, const std::string& text, size_t) {
        Player& p = club.Players.emplace_back();
        p.Name = trim(columns(text, 1, 20));
        std::string rest = trim(tail(text, 29));
        p.Nationality = trim(columns(rest, 1, 13));
        readSquadLine(p, TableFields(tail(rest, 15), line1, kSquadEnd.what, file_));
    });

    // The later tables are joined to the squad by line position alone.
    struct Later {
        const TableEnd& opens;  // the table before, whose title and headings precede it
        const TableEnd& end;
        size_t column;
        void (*read)(Player&, const TableFields&);
    };
    const Later later[] = {
        {kSquadEnd, kOtherEnd, 27, readOtherLine},
        {kOtherEnd, kContractEnd, 27, readContractLine},
        {kContractEnd, kPerformanceEnd, 30, readPerformanceLine},
        {kPerformanceEnd, kCareerEnd, 47, readCareerLine},
        {kCareerEnd, kPortraitEnd, 47, readPortraitLine},
    };
    for (const Later& t : later) {
        title = readTable(title + t.opens.skip + 1, t.end, [&](size_t line1, const std::string& text, size_t count) {
            Player& p = playerFor(club, count, line1, text, t.end);
            t.read(p, TableFields(tail(text, t.column), line1, t.end.what, file_));
        });
    }

    // The portraits end on the first line of stars, whose tail names the turn.
    const size_t starLine = title;
    if (turnStamp.empty()) {
        std::string_view stars = line(starLine);
        turnStamp = std::string(stars.size() > 22 ? stars.substr(stars.size() - 22) : stars);
    }

    auto first = lines_.begin() + std::ptrdiff_t(starLine);
    auto scheduled = std::find(first, lines_.end(), kScheduled);
    if (scheduled == lines_.end()) fail(lines_.size() + 1, "the line \"" + std::string(kScheduled) + "\"", "");
    club.ReportLines.assign(first, scheduled);

    for (auto it = scheduled + 1; it != lines_.end(); ++it) {
        std::string_view m = *it;
        if (m.empty() || startsWith(m, "SCHEDULED")) continue;
        std::string_view ten = m.substr(0, 10);
        if (ten == "This team'" || ten == "If a club " || ten == "Resurrecti" || ten == "Capacity a") continue;
        if (club.Fixtures.size() == size_t(std::numeric_limits<int16_t>::max()))
            fail(size_t(it - lines_.begin()) + 1, "no more than 32767 scheduled matches", std::string(m));
        Fixture& f = club.Fixtures.emplace_back();
        f.Venue = upper(m.substr(0, 1));
        f.Opponent = markerText(m, " versus ", " in the ");
        f.Competition = markerText(m, " in the ", "");
    }
    club.FixtureCount = int16_t(club.Fixtures.size());
    return club;
}

}  // namespace

Club readSquadsheet(const std::vector<std::string>& lines, const std::string& fileName, const std::string& clubFile,
                    std::string& turnStamp) {
    return SheetReader(lines, fileName).read(clubFile, turnStamp);
}

}  // namespace kestrin
