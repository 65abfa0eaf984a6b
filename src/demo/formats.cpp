// The demo league's files in the game's own layouts. Columns and labels are
// where the readers look for them; the words of lines no reader reads are
// our own.
#include "core/gamefolder.h"
#include "core/text.h"
#include "demo/league.h"

namespace kestrin::demo {

namespace {

std::string num(int64_t n) { return std::to_string(n); }
std::string orNull(int64_t n, bool null) { return null ? std::string("#NULL#") : num(n); }
std::string tenths(int t) { return num(t / 10) + "." + num(t % 10); }

// Columns of the tables, 1-based, where the reader starts taking tokens.
constexpr size_t kNationalityColumn = 29;
constexpr size_t kDetailsColumn = 27;
constexpr size_t kPerformanceColumn = 30;
constexpr size_t kCareerColumn = 47;

std::string lead(const std::string& name, size_t tokenColumn) { return fixedWidth(name, tokenColumn - 1); }

}  // namespace

std::string League::squadsheetFileName(const DemoClub& club) const { return club.Key + "SQUA.TXT"; }
std::string League::historyFileName(const DemoClub& club) const { return club.Key + "HST.TXT"; }

std::string League::squadsheetText(const DemoClub& club) const {
    const Club& h = club.Header;
    std::vector<std::string> out;
    const std::string pound = ini_.Currency;

    // The header block: twenty lines of labelled fields.
    out.push_back("Club and player information for " + club.Name);
    out.push_back(h.LeagueNumber);
    out.push_back("CLUB COLOURS " + club.Colours + "/Number of credits = " + num(h.Credits) +
                  "/Stamp credits = " + num(h.StampCredits));
    out.push_back("Stadium - " + h.Stadium + " Capacity - " + num(h.Capacity) + " Facilities - " + num(h.Facilities));
    out.push_back("Ticket price - " + num(h.TicketPrice) + " Season ticket holders - " + num(h.SeasonTicketHolders) +
                  " Potential crowd - " + num(h.PotentialCrowd) + " Crowd rating - " + num(h.CrowdRating));
    out.push_back("Games played - " + num(h.GamesPlayed) + " Average gate - " + orNull(h.AverageGate, club.NullGate) +
                  " Recent Performance average - " + num(h.RecentPerformance));
    out.push_back("Main club sponsor - " + h.MainSponsor);
    out.push_back("Capacity upgrade pending? - " + club.CapacityPending +
                  " Facility upgrade pending? - " + club.FacilityPending);
    out.push_back(club.DepartmentLine);
    out.push_back("");
    out.push_back("COACHING STAFF AND DEPARTMENT LEVELS");
    out.push_back("Goalkeeper coach - " + num(h.GoalkeeperCoach) + " Defence coach - " + num(h.DefenceCoach) +
                  " Midfield coach - " + num(h.MidfieldCoach) + " Attack coach - " + num(h.AttackCoach));
    out.push_back("Groundsman - " + num(h.Groundsman) + " Physio - " + num(h.Physio) + " Scout - " + num(h.Scout) +
                  " Marketing - " + num(h.Marketing));
    out.push_back("Blend averages - " + h.BlendAverages + " Passing - " + tenths(club.BlendPassingTenths) +
                  " Crossing - " + tenths(club.BlendCrossingTenths));
    out.push_back("");
    out.push_back("LAST WEEK'S FINANCES (all figures in " + pound + ")");
    out.push_back("Wage bill - " + num(h.WageBill) + " Costs - " + num(h.Costs) + " Gate Money - " + num(h.GateMoney) +
                  " Merchandise - " + num(h.Merchandise));
    out.push_back("Sponsorship - " + num(h.Sponsorship) + " Sundries In - " + num(h.SundriesIn) +
                  " Sundries Out - " + num(h.SundriesOut));
    out.push_back("Money bet - " + num(h.MoneyBet) + " Betting winnings - " + num(h.BettingWinnings) +
                  " Transfers recouped - " + num(h.TransfersRecouped) + " Transfers spent - " + num(h.TransfersSpent));
    out.push_back("BALANCE - " + num(h.Balance) + " PLEASE NOTE - a club more than " + pound +
                  "250000 overdrawn for four weeks may be made to sell players");

    // Lines 21 to 29, passed over by the reader.
    out.push_back("");
    out.push_back("SQUAD DETAILS");
    out.push_back("=============");
    out.push_back("");
    out.push_back(fixedWidth("Name", 28) + fixedWidth("Nationality", 14) +
                  "Pos  Age ------------------ skills -------------------  core  total  susp inj");
    out.push_back("");
    // The column titles stand two lines above the first player.
    out.push_back(fixedWidth("", 46) + "PA  CO  TA  RU  SH  DR  DF  OF  FL  ST  CR  SK  RS   TS  SU  IN");
    out.push_back(std::string(110, '-'));
    out.push_back("");

    const std::vector<DemoPlayer>& squad = club.Players;
    for (const DemoPlayer& d : squad) {
        const Player& p = d.rec;
        std::string line = fixedWidth(p.Name, kNationalityColumn - 1) + fixedWidth(p.Nationality, 14) +
                           fixedWidth(p.Position, 4) + padLeft(num(p.Age), 4);
        for (int i = 0; i < 11; ++i) line += padLeft(num(p.skill(i)), 4);
        line += padLeft(num(p.Skill), 4) + padLeft(num(p.RealSkill), 4) + padLeft(num(p.TotalSkill), 5) +
                padLeft(num(p.SuspPoints), 4) + padLeft(num(p.Injury), 4);
        out.push_back(line);
    }
    out.push_back("");

    out.push_back("OTHER SQUAD DETAILS");
    out.push_back("===================");
    out.push_back("");
    out.push_back("Discipline, international record and transfer figures of each player");
    out.push_back("");
    out.push_back(fixedWidth("", 26) + " Bk SO  BT Lst Int Shirt Sign  TL Agg  Avg  Gls        Value");
    out.push_back(fixedWidth("Name", 26) + "                                      Perf");
    out.push_back(std::string(90, '-'));
    for (const DemoPlayer& d : squad) {
        const Player& p = d.rec;
        out.push_back(lead(p.Name, kDetailsColumn) + padLeft(num(p.Bookings), 3) + padLeft(num(p.SendingsOff), 3) +
                      padLeft(num(p.BookTally), 4) + padLeft(p.Listed, 4) + padLeft(p.CurrentInternational, 4) +
                      padLeft(num(p.LastIntShirt), 6) + padLeft(num(p.Sign), 5) + padLeft(num(p.TLFigure), 4) +
                      padLeft(num(p.Agg), 4) + padLeft(orNull(p.AverageSeasonPerf, d.nullSeasonPerf), 7) +
                      padLeft(num(p.Goals), 5) + padLeft(d.valueText, 13));
    }
    out.push_back("");

    out.push_back("CONTRACT AND STATUS DETAILS");
    out.push_back("===========================");
    out.push_back(fixedWidth("Name", 26) + "Wks   Wages Loan  Loaning club / weeks left in reserves");
    for (const DemoPlayer& d : squad) {
        const Player& p = d.rec;
        std::string line = lead(p.Name, kDetailsColumn) + padLeft(num(p.Contract), 4) +
                           padLeft(orNull(p.Wages, d.nullWages), 8) + padLeft(num(p.LoanLength), 5);
        // A loaned player's line names the lender; the reserves figure then
        // stands behind the name and the line has more than four tokens.
        if (!d.loanFrom.empty())
            line += "  " + d.loanFrom + "  " + num(p.WeeksInReserves);
        else
            line += padLeft(num(p.WeeksInReserves), 4);
        out.push_back(line);
    }
    out.push_back("");

    out.push_back("PERFORMANCES FOR THE LAST FIVE MATCHES (#NULL# denotes did not play)");
    out.push_back("====================================================================");
    out.push_back("");
    out.push_back(fixedWidth("Name", 29) + " Last  2nd    3rd    4th    5th   Pot  Special skill");
    for (const DemoPlayer& d : squad) {
        const Player& p = d.rec;
        std::string line = lead(p.Name, kPerformanceColumn);
        for (size_t i = 0; i < 5; ++i) line += padLeft(orNull(p.LastFivePerf[i], d.nullLastFive[i]), 7);
        line += padLeft(num(p.Potential), 5) + "  " + p.SpecialSkill;
        out.push_back(line);
    }
    out.push_back("");

    out.push_back("CAREER RECORDS");
    out.push_back("==============");
    out.push_back(fixedWidth("Name", 22) + fixedWidth("Pos", 24) + "   Apps  Goals   Caps IntGls   Perf  Shirt");
    for (const DemoPlayer& d : squad) {
        const Player& p = d.rec;
        const int64_t figures[5] = {p.CareerApps, p.CareerGoals, d.caps, d.capGoals, p.CareerPerf};
        std::string line = fixedWidth(p.Name, 22) + fixedWidth(p.Position, kCareerColumn - 1 - 22);
        for (size_t i = 0; i < 5; ++i) line += padLeft(orNull(figures[i], d.nullCareer[i]), 7);
        line += padLeft(num(p.LastShirt), 7) + padLeft(num(p.CareerExtraA), 5) + padLeft(num(p.CareerExtraB), 5);
        out.push_back(line);
    }
    out.push_back("");

    out.push_back("PORTRAIT FEATURES - the figures from which each face is drawn");
    out.push_back("=================");
    out.push_back(fixedWidth("Name", kCareerColumn - 1) + "  Hair  Skin  Back  Eyes  Nose Mouth Extra  Head");
    for (const DemoPlayer& d : squad) {
        std::string line = lead(d.rec.Name, kCareerColumn);
        for (int32_t f : d.rec.Portrait) line += padLeft(num(f), 6);
        out.push_back(line);
    }
    out.push_back("");

    // The turn stamp is the last 22 characters of the first line of stars.
    out.push_back(std::string(60, '*') + " " + stamp_);
    for (const std::string& l : club.ReportLines) out.push_back(l);
    out.push_back("SCHEDULED MATCHES FOR NEXT WEEK");
    for (const std::string& l : club.MatchLines) out.push_back(l);
    return joinCrLf(out);
}

std::string League::clubExportText() const {
    std::vector<std::string> out;
    out.reserve(clubs_.size() * (size_t(options_.playersPerExportClub) + 2) + 1);
    out.push_back("SQUADS OF EVERY CLUB OF THE " + upper(ini_.GameName) + " - TURN OF " + ddmmyyyy(turnDate()));
    for (const DemoClub& c : clubs_) {
        out.push_back("EXPORT FOR " + c.Name);
        out.push_back(fixedWidth("Player", 20) +
                      " - Age Pos     TS Sgn Pld Prf Gls   MinValue   MaxValue  Portrait" + std::string(34, ' ') +
                      "Loan  Managed Colours");
        for (const DemoPlayer& d : c.Players) {
            const Player& p = d.rec;
            std::string line = fixedWidth(p.Name, 20) + " - " + padLeft(num(p.Age), 3) + " " + p.Position +
                               padLeft(num(p.TotalSkill), 5) + padLeft(num(p.Sign), 4) + padLeft(num(d.played), 4) +
                               padLeft(num(d.seasonPerf), 4) + padLeft(num(d.seasonGoals), 4) +
                               padLeft(orNull(p.Value * 8 / 10, d.nullMinValue), 11) +
                               padLeft(orNull(p.Value * 13 / 10, d.nullMaxValue), 11) + " ";
            // The export carries Portrait(1..7), not Portrait(0).
            for (size_t i = 1; i <= 7; ++i) line += padLeft(num(p.Portrait[i]), 6);
            line += padLeft(num(p.LoanLength), 5);
            if (!d.loanFrom.empty()) line += " " + d.loanFrom;
            line += std::string(" ") + (c.human() ? "Y" : "N") + " " + c.Colours;
            out.push_back(line);
        }
    }
    return joinCrLf(out);
}

std::vector<std::pair<std::string, std::string>> League::weeklyFiles() const {
    const std::string game = upper(ini_.GameName);
    const std::string week = " - TURN OF " + ddmmyyyy(turnDate());
    std::vector<std::pair<std::string, std::string>> files;

    // No " - " in the title: a line holding it is a club.
    std::vector<std::string> codes{"CLUB CODES OF THE " + game + " FOR THE TURN OF " + ddmmyyyy(turnDate()), ""};
    for (const DemoClub& c : clubs_) codes.push_back(c.Name + " - " + c.Code);
    files.emplace_back("CODES.TXT", joinCrLf(codes));

    std::vector<std::string> emails{"MANAGERS OF THE " + game + week, "Club - address (manager)", ""};
    for (const DemoClub& c : clubs_) {
        if (!c.human()) continue;
        const std::string address = c.managed() ? std::string(kDemoManagerAddress)
                                                : lower(Tokens(c.HumanManager)[1]) + "." + c.Code + "@example.net";
        emails.push_back(c.Name + " - " + address + " (" + c.HumanManager + ")");
    }
    files.emplace_back("EMAILS.TXT", joinCrLf(emails));

    const char* titles[3] = {"News - skills that rose this week", "News - skills that fell this week",
                             "News - international duty this week"};
    const char* names[3] = {"NEWSINC.TXT", "NEWSDEC.TXT", "NEWSINT.TXT"};
    for (size_t k = 0; k < 3; ++k) {
        std::vector<std::string> lines{titles[k] + week, ""};
        lines.insert(lines.end(), news_[k].begin(), news_[k].end());
        files.emplace_back(names[k], joinCrLf(lines));
    }
    for (auto& file : leagueFiles()) files.push_back(std::move(file));
    return files;
}

Club League::expectedClub(const DemoClub& club) const {
    Club c = club.Header;
    c.PhysioPointsLeft = c.Physio;
    for (const DemoPlayer& d : club.Players) c.Players.push_back(d.rec);
    c.Fixtures = club.Fixtures;
    c.FixtureCount = int16_t(club.Fixtures.size());
    c.ReportLines = club.ReportLines;
    return c;
}

ExportPlayer League::expectedExportPlayer(const DemoClub& club, const DemoPlayer& d,
                                          std::deque<std::string>& texts) const {
    const Player& p = d.rec;
    auto keep = [&](std::string s) -> std::string_view { return texts.emplace_back(std::move(s)); };
    ExportPlayer e;
    e.Name = p.Name;
    e.Age = keep(num(p.Age));
    e.Position = p.Position;
    e.TotalSkill = keep(num(p.TotalSkill));
    e.Sign = keep(num(p.Sign));
    e.Played = keep(num(d.played));
    e.Perf = keep(num(d.seasonPerf));
    e.Goals = keep(num(d.seasonGoals));
    e.MinValue = d.nullMinValue ? 0 : p.Value * 8 / 10;
    e.MaxValue = d.nullMaxValue ? "0" : keep(num(p.Value * 13 / 10));
    for (size_t i = 0; i < 7; ++i) e.Portrait[i] = p.Portrait[i + 1];
    // The tail rule puts a blank behind every word of the colours.
    const Tokens words(club.Colours);
    std::string colours;
    for (const std::string& word : words.all()) colours += word + " ";
    e.Colours = keep(std::move(colours));
    e.Loan = p.LoanLength;
    e.LoanClub = d.loanFrom;
    e.Managed = club.human() ? "Y" : "N";
    return e;
}

}  // namespace kestrin::demo
