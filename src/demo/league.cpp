#include "demo/league.h"

#include <algorithm>
#include <numeric>

#include "core/text.h"
#include "demo/names.h"
#include "demo/portraits.h"

namespace kestrin::demo {

uint64_t Random::next() {
    uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return z ^ (z >> 31);
}

int Random::range(int lo, int hi) {
    if (hi <= lo) return lo;
    return lo + int(next() % uint64_t(hi - lo + 1));
}

bool Random::chance(int percent) { return range(1, 100) <= percent; }

namespace {

// Days since 1970-01-01 of a civil date, and back.
int64_t daysFromCivil(int y, int m, int d) {
    y -= m <= 2;
    const int64_t era = (y >= 0 ? y : y - 399) / 400;
    const int64_t yoe = y - era * 400;
    const int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

Date civilFromDays(int64_t z) {
    z += 719468;
    const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const int64_t doe = z - era * 146097;
    const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const int64_t mp = (5 * doy + 2) / 153;
    Date d;
    d.day = int(doy - (153 * mp + 2) / 5 + 1);
    d.month = int(mp < 10 ? mp + 3 : mp - 9);
    d.year = int(yoe + era * 400 + (d.month <= 2));
    return d;
}

std::string padCode(size_t n) {
    std::string s = std::to_string(n);
    return std::string(4 - std::min<size_t>(4, s.size()), '0') + s;
}

std::string two(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

constexpr int kSeasonWeeks = 38;
constexpr int kLeagueSize = 20;

// The position groups' weights for the eleven skills, in the order of the skills.
const int* skillWeights(const std::string& position) {
    static const int keeper[11] = {3, 4, 1, 2, 1, 1, 4, 1, 2, 4, 2};
    static const int defender[11] = {3, 3, 5, 3, 1, 2, 5, 2, 1, 4, 2};
    static const int midfielder[11] = {5, 4, 3, 4, 3, 3, 2, 2, 3, 3, 4};
    static const int striker[11] = {3, 4, 1, 4, 5, 4, 1, 5, 4, 3, 3};
    if (startsWith(position, "AGK")) return keeper;
    if (startsWith(position, "DEF")) return defender;
    if (startsWith(position, "MID")) return midfielder;
    return striker;
}

// Index in the skills of each coachable skill's history code.
struct CoachSkill {
    const char* code;
    int index;
};
constexpr CoachSkill kCoachSkills[9] = {{"PA", 0}, {"CO", 1}, {"TA", 2}, {"RU", 3}, {"SH", 4},
                                        {"DR", 5}, {"DE", 6}, {"OF", 7}, {"ST", 9}};

std::string firstWord(const std::string& s) {
    Tokens t(s);
    return t.count() ? t[1] : std::string();
}

}  // namespace

Date addDays(Date d, int days) { return civilFromDays(daysFromCivil(d.year, d.month, d.day) + days); }
std::string ddmmyyyy(const Date& d) { return two(d.day) + "/" + two(d.month) + "/" + std::to_string(d.year); }
std::string yyyymmdd(const Date& d) { return std::to_string(d.year) + two(d.month) + two(d.day); }

League::League(const DemoOptions& options) : options_(options), rng_(options.seed) {
    options_.clubs = std::max(1, options_.clubs);
    options_.exportClubs = std::max(options_.exportClubs, options_.clubs);
    options_.playersPerExportClub = std::clamp(options_.playersPerExportClub, 14, 40);

    ini_.GameName = "Kestrin Football League";
    ini_.Charset = 0;
    ini_.Currency = "\xA3";
    ini_.ShortName = "KFL";
    ini_.AdminAddress = "turns@kestrin-league.example";
    // The leagues carry the names the game's reports and tables give them.
    for (size_t k = 1; k <= 8; ++k) {
        ini_.LeagueNames[k] = competitionName(int(k));
        ini_.LeagueCodes[k] = fileCode(int(k));
    }

    // A Saturday in the autumn of 2025, somewhere in the season.
    firstDate_ = addDays(Date{2025, 8, 9}, 7 * rng_.range(0, 20));
    seasonWeek_ = rng_.range(0, 20);
    makeClubs();
    makeSeason();
    week_ = 0;
    nextWeek();
}

Date League::turnDate() const { return addDays(firstDate_, 7 * (week_ - 1)); }

std::vector<const DemoClub*> League::managedClubs() const {
    std::vector<const DemoClub*> out;
    for (const DemoClub& c : clubs_)
        if (c.managed()) out.push_back(&c);
    std::sort(out.begin(), out.end(), [](const DemoClub* a, const DemoClub* b) { return a->Key < b->Key; });
    return out;
}

void League::setSkills(Player& p, int skill) {
    // The eleven skills add up to TotalSkill, which stays in the band of Skill.
    const int total = skill * 11 + rng_.range(0, 10);
    const int* w = skillWeights(p.Position);
    const int weightSum = std::accumulate(w, w + 11, 0);
    int given = 0;
    for (int i = 0; i < 11; ++i) {
        p.skill(i) = int16_t(1 + (total - 11) * w[i] / weightSum);
        given += p.skill(i);
    }
    while (given < total) {
        ++p.skill(rng_.range(0, 10));
        ++given;
    }
    p.TotalSkill = int16_t(total);
    p.Skill = int16_t(total / 11);
}

DemoPlayer League::makePlayer(const std::string& position, int clubLevel, bool youth,
                              const std::vector<DemoPlayer>& squad) {
    DemoPlayer d;
    Player& p = d.rec;
    p.Position = position;
    // Names are unique within a club: orders find a player by his name.
    const names::Surname* surname = nullptr;
    for (bool taken = true; taken;) {
        surname = &names::kSurnames[size_t(rng_.range(0, int(names::kSurnames.size()) - 1))];
        p.Name = rng_.pick(names::kInitials) + ". " + surname->name;
        taken = false;
        for (const DemoPlayer& q : squad) taken = taken || q.rec.Name == p.Name;
    }
    p.Nationality =
        surname->nationalities.empty() ? rng_.pick(names::kHomeNations) : rng_.pick(surname->nationalities);
    p.Age = int16_t(youth ? rng_.range(16, 17) : rng_.chance(85) ? rng_.range(18, 32) : rng_.range(33, 36));
    const bool keeper = startsWith(position, "AGK");

    const int skill = youth ? std::max(1, clubLevel - rng_.range(3, 7)) : std::max(2, clubLevel + rng_.range(-3, 3));
    setSkills(p, skill);
    p.RealSkill = int16_t(std::max(1, skill + rng_.range(-1, 1)));

    p.Injury = int16_t(rng_.chance(82) ? 0 : rng_.chance(75) ? rng_.range(1, 9) : rng_.range(10, 16));
    p.SuspPoints = int16_t(rng_.chance(88) ? 0 : rng_.range(1, 3));
    p.Bookings = int16_t(rng_.range(0, keeper ? 2 : 8));
    p.SendingsOff = int16_t(rng_.chance(88) ? 0 : rng_.range(1, 2));
    p.BookTally = int16_t(p.Bookings + 3 * p.SendingsOff);
    p.Listed = rng_.chance(10) ? "Y" : "N";
    p.CurrentInternational = (skill >= 13 && rng_.chance(35)) ? "Y" : "N";
    p.LastIntShirt = int16_t(p.CurrentInternational == "Y" ? rng_.range(1, 23) : 0);
    p.Sign = int16_t(rng_.range(1, 20));
    p.TLFigure = int16_t(rng_.range(1, 20));
    p.Agg = int16_t(rng_.range(1, 10));

    d.played = int16_t(youth ? rng_.range(0, 3) : rng_.range(0, seasonWeek_));
    d.seasonPerf = int16_t(d.played ? rng_.range(35, 85) : 0);
    d.nullSeasonPerf = d.played == 0;
    p.AverageSeasonPerf = d.seasonPerf;
    const int scoring = keeper ? 0 : startsWith(position, "DEF") ? 1 : startsWith(position, "MID") ? 3 : 6;
    p.Goals = int16_t(d.played ? rng_.range(0, scoring * d.played / 6 + (scoring ? 1 : 0)) : 0);
    d.seasonGoals = p.Goals;

    // Whole units of 250, now and then printed with decimals.
    const int base = (skill * skill * 16 + rng_.range(0, 40) + (youth ? 40 : 0)) * 250;
    switch (rng_.range(0, 4)) {
    case 0:
        d.valueText = std::to_string(base) + ".50";  // half to even: stays on the even base
        p.Value = base;
        break;
    case 1:
        d.valueText = std::to_string(base) + ".75";
        p.Value = base + 1;
        break;
    default:
        d.valueText = std::to_string(base);
        p.Value = base;
    }

    p.Contract = int16_t(rng_.range(4, 156));
    d.nullWages = youth && rng_.chance(40);
    p.Wages = d.nullWages ? 0 : (skill * skill * 5 + rng_.range(0, 20)) * 10;
    p.LoanLength = 0;
    p.WeeksInReserves = int16_t(rng_.chance(12) ? rng_.range(1, 6) : 0);

    for (size_t i = 0; i < 5; ++i) {
        d.nullLastFive[i] = d.played == 0 || rng_.chance(20);
        p.LastFivePerf[i] = int16_t(d.nullLastFive[i] ? 0 : rng_.range(30, 95));
    }
    // Potentials over every grade band, youth leaning high.
    static const int bands[8][2] = {{0, 0}, {1, 5}, {6, 10}, {11, 15}, {16, 20}, {21, 30}, {31, 40}, {41, 99}};
    const int band = youth ? rng_.range(3, 7) : rng_.range(0, 7);
    p.Potential = rng_.range(bands[band][0], bands[band][1]);
    p.SpecialSkill = keeper && rng_.chance(50) ? "Reflexes" : rng_.pick(names::kSpecialSkills);

    const int seasons = std::max(0, p.Age - 17);
    p.CareerApps = int16_t(seasons * rng_.range(8, 38) + d.played);
    p.CareerGoals = int16_t(scoring ? rng_.range(0, p.CareerApps * scoring / 12) : 0);
    d.caps = int16_t(p.CurrentInternational == "Y" ? rng_.range(1, 40) : 0);
    d.capGoals = int16_t(d.caps && scoring ? rng_.range(0, d.caps / 3) : 0);
    const bool neverPlayed = p.CareerApps == 0;
    d.nullCareer = {neverPlayed, neverPlayed, neverPlayed && rng_.chance(50), neverPlayed && rng_.chance(50),
                    neverPlayed};
    if (neverPlayed) p.CareerApps = p.CareerGoals = 0;
    p.CareerPerf = int16_t(neverPlayed ? 0 : rng_.range(40, 80));
    p.InterCaps = p.InterGoals = 0;  // the reader never fills them
    p.LastShirt = int16_t(keeper ? rng_.chance(70) ? 1 : 13 : rng_.range(2, 30));
    p.CareerExtraA = rng_.range(0, seasons);
    p.CareerExtraB = rng_.range(0, 250);
    // The face has a generator of its own, seeded by one draw per code, so
    // that the rest of the league does not hang on how a face is chosen.
    uint64_t faceSeed = 0;
    for (int i = 0; i < 8; ++i) faceSeed = faceSeed * 31 + rng_.next();
    p.Portrait = demoPortrait(faceSeed);

    d.nullMinValue = rng_.chance(6);
    d.nullMaxValue = rng_.chance(6);
    return d;
}

void League::placeOnLoan(DemoPlayer& p, const DemoClub& at) {
    const DemoClub* from = &at;
    while (from == &at) from = &clubs_[size_t(rng_.range(0, int(clubs_.size()) - 1))];
    p.loanFrom = from->Name;
    p.rec.LoanLength = int16_t(rng_.range(1, 12));
    // The contract line carries the lender's whole name, of which the
    // reader keeps the first word.
    p.rec.LoaningClub = firstWord(p.loanFrom);
    p.rec.WeeksInReserves = 0;
}

void League::makeClubs() {
    // Every pairing of a town and a club word once, in a shuffled order.
    std::vector<std::string> pool;
    // Names of up to 20 characters, as the game's files hold them.
    for (const std::string& town : names::kTowns)
        for (const std::string& word : names::kClubWords)
            if (town.size() + 1 + word.size() <= 20) pool.push_back(town + " " + word);
    for (size_t i = pool.size(); i > 1; --i) std::swap(pool[i - 1], pool[size_t(rng_.range(0, int(i) - 1))]);
    const size_t plain = pool.size();
    for (size_t i = 0; pool.size() < size_t(options_.exportClubs); ++i)
        pool.push_back(names::kTownPrefixes[(i / plain) % names::kTownPrefixes.size()] + " " + pool[i % plain]);

    clubs_.resize(size_t(options_.exportClubs));
    // Leagues of up to twenty clubs, an even number where there are enough;
    // a league's other clubs play no fixtures of it.
    leagueCount_ = std::clamp((int(clubs_.size()) + kLeagueSize - 1) / kLeagueSize, 1, 8);
    int leagueSize = std::min(kLeagueSize, int(clubs_.size()) / leagueCount_);
    if (leagueSize % 2 == 1 && leagueSize > 3 && (leagueSize - 1) * leagueCount_ >= options_.clubs) --leagueSize;
    std::array<int, 9> placed{};
    for (size_t i = 0; i < clubs_.size(); ++i) {
        DemoClub& c = clubs_[i];
        c.Name = pool[i];
        c.Colours = rng_.pick(names::kColours);
        c.League = int(i % size_t(leagueCount_)) + 1;
        c.InLeague = placed[size_t(c.League)]++ < leagueSize;
        c.Code = i < 9999 ? padCode(i + 1) : std::to_string(i + 1);
    }

    // Which clubs a manager runs: spread over the file.
    std::vector<size_t> order(clubs_.size());
    std::iota(order.begin(), order.end(), 0);
    for (size_t i = order.size(); i > 1; --i) std::swap(order[i - 1], order[size_t(rng_.range(0, int(i) - 1))]);
    // The manager's clubs play in the leagues, so their matches are reported.
    std::stable_partition(order.begin(), order.end(), [this](size_t i) { return clubs_[i].InLeague; });
    for (int m = 0; m < options_.clubs; ++m) {
        DemoClub& c = clubs_[order[size_t(m)]];
        // The game's club code: four figures, so file names keep eight characters.
        c.Key = c.Code;
        c.HumanManager = kDemoManager;
    }
    // Other managers of the game run a club here and there.
    for (size_t i = size_t(options_.clubs); i < order.size(); ++i)
        if (rng_.chance(12)) {
            const names::Surname& s = names::kSurnames[size_t(rng_.range(0, int(names::kSurnames.size()) - 1))];
            clubs_[order[i]].HumanManager = rng_.pick(names::kFirstNames) + " " + s.name;
        }

    for (DemoClub& c : clubs_) {
        const int level = std::clamp(17 - c.League + rng_.range(-2, 2), 4, 18);
        const int size = c.managed() ? rng_.range(20, 28) : options_.playersPerExportClub;
        const int keepers = size >= 24 ? 3 : rng_.range(2, 3);
        const int rest = size - keepers;
        const int defenders = rest * 35 / 100 + rng_.range(0, 1);
        const int midfielders = rest * 35 / 100 + rng_.range(0, 1);
        const int youths = c.managed() ? rng_.range(2, 4) : rng_.range(0, 2);
        auto side = [&](const char* group) {
            const int r = rng_.range(1, 4);
            return std::string(group) + (r == 1 ? "L" : r == 2 ? "R" : "C");
        };
        for (int i = 0; i < size; ++i) {
            std::string position = i < keepers                                ? "AGKP"
                                   : i < keepers + defenders                  ? side("DEF")
                                   : i < keepers + defenders + midfielders ? side("MID")
                                                                              : side("STR");
            c.Players.push_back(makePlayer(position, level, i % 7 == 3 && i / 7 < youths, c.Players));
        }
    }

    // Loans between clubs; every managed club has at least one, one injured
    // for weeks, one banned and one youth, so every rule has a case.
    for (DemoClub& c : clubs_) {
        const size_t n = c.Players.size();
        if (c.managed()) {
            std::vector<size_t> outfield;
            for (size_t i = 0; i < n; ++i)
                if (!startsWith(c.Players[i].rec.Position, "AGK") && c.Players[i].rec.Age >= 18) outfield.push_back(i);
            for (size_t i = outfield.size(); i > 1; --i)
                std::swap(outfield[i - 1], outfield[size_t(rng_.range(0, int(i) - 1))]);
            placeOnLoan(c.Players[outfield[0]], c);
            c.Players[outfield[1]].rec.Injury = int16_t(rng_.range(12, 16));
            c.Players[outfield[2]].rec.SuspPoints = int16_t(rng_.range(1, 2));
            c.Players[outfield[2]].rec.Injury = 0;
            if (rng_.chance(50)) placeOnLoan(c.Players[outfield[3]], c);
        } else {
            for (DemoPlayer& p : c.Players)
                if (rng_.chance(5)) placeOnLoan(p, c);
        }
    }

    std::vector<DemoClub*> managed;
    for (DemoClub& c : clubs_)
        if (c.managed()) managed.push_back(&c);
    std::sort(managed.begin(), managed.end(), [](const DemoClub* a, const DemoClub* b) { return a->Key < b->Key; });
    for (size_t m = 0; m < managed.size(); ++m) {
        makeManagedHeader(*managed[m], m);
        makeHistory(*managed[m]);
    }
}

void League::makeManagedHeader(DemoClub& club, size_t managedIndex) {
    Club& h = club.Header;
    h.Name = club.Name;
    h.ClubFile = club.Key;
    h.Colours = club.Colours;
    h.LeagueNumber = ini_.LeagueNames[size_t(club.League)] + " - club number " + std::to_string(rng_.range(1, 24));
    h.Credits = int16_t(rng_.range(4, 30));
    h.StampCredits = int16_t(rng_.range(0, 6));
    h.Stadium = rng_.pick(names::kStadiums);
    h.Capacity = rng_.range(6, 58) * 1000 + rng_.range(0, 9) * 100;
    h.Facilities = int16_t(rng_.range(1, 10));
    h.TicketPrice = int16_t(rng_.range(8, 32));
    h.SeasonTicketHolders = h.Capacity * rng_.range(20, 55) / 100;
    h.PotentialCrowd = h.Capacity * rng_.range(60, 110) / 100;
    h.CrowdRating = int16_t(rng_.range(30, 95));
    h.GamesPlayed = int16_t(seasonWeek_);
    h.RecentPerformance = int16_t(rng_.range(35, 80));
    h.MainSponsor = rng_.pick(names::kSponsors);

    // A third of the clubs are enlarging the ground, another third are
    // upgrading a department, so the main menu's rules all show.
    club.CapacityPending = managedIndex % 3 == 0 ? "Y - " + std::to_string(rng_.range(2, 8) * 500) + " seats" : "N";
    club.FacilityPending = rng_.chance(30) ? "Y - new stand roof" : "N";
    if (managedIndex % 3 == 1) {
        static const char* departments[] = {"Goalkeeper", "Defence", "Midfield", "Attack"};
        const std::string dept = departments[rng_.range(0, 3)];
        const int weeks = rng_.range(2, 6);
        club.DepartmentLine = "Weeks until " + dept + " coach upgrade is complete - " + std::to_string(weeks);
        h.DepartmentUpgrade = std::to_string(weeks) + " wks until " + dept + " dept upgrade";
    } else {
        club.DepartmentLine = "No department upgrade under way";
        h.DepartmentUpgrade = "No current department upgrade";
    }

    h.GoalkeeperCoach = int16_t(rng_.range(1, 10));
    h.DefenceCoach = int16_t(rng_.range(1, 10));
    h.MidfieldCoach = int16_t(rng_.range(1, 10));
    h.AttackCoach = int16_t(rng_.range(1, 10));
    h.Groundsman = int16_t(rng_.range(1, 10));
    h.Physio = int16_t(rng_.range(3, 10));
    h.Scout = int16_t(rng_.range(1, 10));
    h.Marketing = int16_t(rng_.range(1, 10));
    h.Balance = rng_.range(-40, 400) * 5000;
}

void League::makeHistory(DemoClub& club) {
    // Coaching of the weeks before the first, oldest first, as the history
    // file grows week by week.
    for (int back = rng_.range(3, 6); back >= 1; --back) {
        const std::string date = yyyymmdd(addDays(firstDate_, -7 * back));
        for (int k = rng_.range(1, 3); k > 0; --k) {
            const DemoPlayer& p = club.Players[size_t(rng_.range(0, int(club.Players.size()) - 1))];
            const CoachSkill& s = kCoachSkills[rng_.range(0, 8)];
            HistoryRecord h;
            h.Date = date;
            h.Name = p.rec.Name;
            h.Position = p.rec.Position;
            h.Skill = s.code;
            const int r = rng_.range(1, 100);
            h.Result = r <= 50 ? "Y" : r <= 82 ? "N" : "P";
            h.NewValue = int16_t(h.Result == "Y" ? std::max(1, p.rec.skill(s.index) - rng_.range(0, 1)) : 0);
            club.History.push_back(h);
        }
    }
}

const DemoClub& League::otherClub(const DemoClub& club, bool sameLeague) {
    for (;;) {
        const DemoClub& o = clubs_[size_t(rng_.range(0, int(clubs_.size()) - 1))];
        if (&o != &club && (!sameLeague || o.League == club.League || clubs_.size() < 16)) return o;
    }
}

void League::scheduleMatches(DemoClub& club, size_t) {
    club.Fixtures.clear();
    club.MatchLines.clear();
    // Next week's round of the fixture list, and a cup tie when the cup is due.
    const size_t self = size_t(&club - clubs_.data());
    const int round = (seasonWeek_ + 1) % kSeasonWeeks;
    auto add = [&](const std::string& venue, size_t other, const std::string& competition) {
        Fixture f;
        f.Venue = venue.substr(0, 1);
        f.Opponent = clubs_[other].Name;
        f.Competition = competition;
        club.MatchLines.push_back(venue + " versus " + f.Opponent + " in the " + f.Competition);
        club.Fixtures.push_back(f);
    };
    for (const auto& [home, away] : leaguePairs(club.League, round))
        if (home == self || away == self) add(home == self ? "Home" : "Away", home == self ? away : home,
                                              competitionName(club.League));
    int stage = 0;
    if (round > 0 && cupRoundAt(club.League, round, stage)) {
        const Cup& cup = cups_[size_t(club.League)];
        const bool final = stage + 1 == cup.stages;
        for (const auto& [home, away] : cup.ties)
            if (home == self || away == self)
                add(final ? "Neutral" : home == self ? "Home" : "Away", home == self ? away : home, kCupName);
    }
    if (club.Fixtures.empty()) {
        // Marker extraction turns this line into an empty match.
        club.MatchLines.emplace_back(kNoScheduledMatches);
        Fixture f;
        f.Venue = "N";
        club.Fixtures.push_back(f);
        return;
    }
    // Notes of the administrator that the reader passes over.
    if (rng_.chance(30)) club.MatchLines.push_back("This team's matches are played on Saturday afternoon");
    if (rng_.chance(20))
        club.MatchLines.push_back("Capacity at " + club.Header.Stadium + " is reduced for cup matches");
}

void League::weekForPlayer(DemoPlayer& d, bool seasonTurn) {
    Player& p = d.rec;
    if (p.Injury >= 10)
        --p.Injury;  // a long injury mends slowly, so a club keeps one for weeks
    else if (p.Injury > 0)
        p.Injury = int16_t(std::max(0, p.Injury - rng_.range(1, 4)));
    else if (rng_.chance(4))
        p.Injury = int16_t(rng_.chance(70) ? rng_.range(1, 9) : rng_.range(10, 16));
    if (p.SuspPoints > 0)
        --p.SuspPoints;
    else if (rng_.chance(3))
        p.SuspPoints = int16_t(rng_.range(1, 2));
    if (rng_.chance(8)) {
        ++p.Bookings;
        ++p.BookTally;
    }
    if (p.LoanLength > 0 && --p.LoanLength == 0) {
        d.loanFrom.clear();
        p.LoaningClub.clear();
    }
    p.Contract = int16_t(p.Contract > 1 ? p.Contract - 1 : rng_.range(26, 104));
    if (p.WeeksInReserves > 0) --p.WeeksInReserves;

    const bool plays = p.Injury == 0 && p.SuspPoints == 0 && rng_.chance(p.Age < 18 ? 20 : 65);
    for (size_t i = 4; i > 0; --i) {
        p.LastFivePerf[i] = p.LastFivePerf[i - 1];
        d.nullLastFive[i] = d.nullLastFive[i - 1];
    }
    d.nullLastFive[0] = !plays;
    p.LastFivePerf[0] = int16_t(plays ? rng_.range(30, 95) : 0);
    if (plays) {
        d.seasonPerf = int16_t((d.seasonPerf * d.played + p.LastFivePerf[0]) / (d.played + 1));
        ++d.played;
        d.nullSeasonPerf = false;
        p.AverageSeasonPerf = d.seasonPerf;
        if (!startsWith(p.Position, "AGK") && rng_.chance(startsWith(p.Position, "STR") ? 35 : 10)) {
            ++p.Goals;
            ++d.seasonGoals;
            if (!d.nullCareer[1]) ++p.CareerGoals;
        }
        if (d.nullCareer[0]) {
            d.nullCareer = {};
            p.CareerPerf = p.LastFivePerf[0];
        }
        ++p.CareerApps;
    }
    if (seasonTurn) {
        ++p.Age;
        d.played = d.seasonGoals = d.seasonPerf = 0;
        d.nullSeasonPerf = true;
        p.AverageSeasonPerf = p.Goals = 0;
    }
    // Values drift with form, in whole units of 250.
    const int32_t step = std::max(250, p.Value / 40 / 250 * 250);
    const int32_t moved = p.Value / 250 * 250 + step * rng_.range(-1, 1);
    p.Value = std::max(250, moved);
    d.valueText = std::to_string(p.Value);
}

std::vector<std::string> League::reportLines(const DemoClub& club, size_t managedIndex) {
    const Club& h = club.Header;
    std::vector<std::string> out;
    auto pickPlayer = [&](auto&& wanted) -> const DemoPlayer* {
        std::vector<const DemoPlayer*> fit;
        for (const DemoPlayer& p : club.Players)
            if (wanted(p)) fit.push_back(&p);
        return fit.empty() ? nullptr : fit[size_t(rng_.range(0, int(fit.size()) - 1))];
    };
    auto named = [](const DemoPlayer& p) { return p.rec.Name + " (" + p.rec.Position + ")"; };

    out.push_back("REPORT ON THE TURN OF " + ddmmyyyy(addDays(turnDate(), -7)));
    out.push_back("");
    out.push_back("Turnsheet processed for " + club.Name + " - " + std::to_string(h.Credits) + " credits remain");
    out.push_back("The club paid " + std::to_string(h.WageBill) + " in wages this week");
    out.push_back("");
    out.push_back("TRAINING GROUND");
    for (int k = rng_.range(1, 3); k > 0; --k) {
        const DemoPlayer* p = pickPlayer([](const DemoPlayer& q) { return q.rec.Injury < 10; });
        if (!p) break;
        const CoachSkill& s = kCoachSkills[rng_.range(0, 8)];
        const int r = rng_.range(1, 10);
        if (r <= 5)
            out.push_back(named(*p) + " increases his " + s.code + " skill to " +
                          std::to_string(p->rec.skill(s.index)));
        else if (r <= 8)
            out.push_back("Attempt to coach " + named(*p) + " in " + s.code + " was unsuccessful");
        else
            out.push_back("Attempt to coach " + named(*p) + " in " + s.code + " failed - potential reached");
    }
    if (const DemoPlayer* p = pickPlayer([](const DemoPlayer& q) { return q.rec.Injury > 0 && q.rec.Injury < 10; }))
        out.push_back(p->rec.Name + " was treated with " + std::to_string(rng_.range(1, h.Physio)) +
                      " physio points and is recovering well");
    if (const DemoPlayer* p = pickPlayer([](const DemoPlayer& q) { return q.rec.Injury >= 10; }))
        out.push_back(p->rec.Name + " was hurt in training and will be unable to play for " +
                      std::to_string(p->rec.Injury / 2) + " weeks");
    if (const DemoPlayer* p = pickPlayer([](const DemoPlayer& q) { return q.rec.SuspPoints > 0; }))
        out.push_back(p->rec.Name + " must serve a suspension and misses the next match");

    if (rng_.chance(40))
        out.push_back("Your player " + club.Players[size_t(rng_.range(0, int(club.Players.size()) - 1))].rec.Name +
                      " was scouted this week by " + otherClub(club, false).Name);
    if (rng_.chance(60)) {
        // A scout report on a player of another club, three lines.
        const DemoClub& o = otherClub(club, false);
        const DemoPlayer& p = o.Players[size_t(rng_.range(0, int(o.Players.size()) - 1))];
        std::string skills;
        for (int i = 0; i < 11; ++i) skills += " " + std::to_string(p.rec.skill(i));
        out.push_back(named(p) + " " + o.Name + " was scouted by your scout this week");
        out.push_back("AGE " + std::to_string(p.rec.Age) + " TS " + std::to_string(p.rec.TotalSkill) +
                      " ELEVEN MAIN SKILLS :" + skills);
        out.push_back("POTENTIAL " + std::to_string(p.rec.Potential) + " PERF " + std::to_string(p.seasonPerf) +
                      " GLS " + std::to_string(p.seasonGoals) + " TL FIGURE " + std::to_string(p.rec.TLFigure) +
                      " SIGNING FIGURE " + std::to_string(p.rec.Sign) + " VALUE " + std::to_string(p.rec.Value) +
                      " International? " + p.rec.CurrentInternational + " Retiring? " +
                      (p.rec.Age >= 34 ? "Y" : "N") + " Flinging? N");
    }
    out.push_back("");
    out.push_back("The blend figure of the first team now stands at " + std::to_string(club.BlendPassingTenths / 10) +
                  "." + std::to_string(club.BlendPassingTenths % 10));
    if (const DemoPlayer* p = pickPlayer([](const DemoPlayer& q) { return q.nullLastFive[0] && q.rec.Age >= 18; }))
        out.push_back(p->rec.Name + " is unhappy at being left out of the side");
    if (const DemoPlayer* p = pickPlayer([](const DemoPlayer& q) { return startsWith(q.rec.Position, "STR"); }))
        out.push_back(p->rec.Name + " would rather play in the STRC position than on the wing");
    if (rng_.chance(50)) {
        const DemoPlayer& p = club.Players[size_t(rng_.range(0, int(club.Players.size()) - 1))];
        out.push_back(p.rec.Name + " was BOOKED in the reserve match and collects a point");
    }
    if (managedIndex % 2 == 0) out.push_back("Bonus money of " + std::to_string(rng_.range(2, 20) * 250) + " was paid to the squad");
    out.push_back("Gate receipts were shared with the visitors as the rules of the league ask");
    // The short reports of last week's matches.
    const size_t self = size_t(&club - clubs_.data());
    for (const Match& m : matches_)
        if (m.side[0].club == self || m.side[1].club == self) {
            const std::vector<std::string> lines = matchSummary(m, club);
            out.insert(out.end(), lines.begin(), lines.end());
        }
    out.push_back("");
    return out;
}

void League::weekForManaged(DemoClub& club, size_t managedIndex) {
    Club& h = club.Header;
    // Last week's money.
    int32_t wages = 0;
    for (const DemoPlayer& p : club.Players) wages += p.rec.Wages;
    h.WageBill = wages;
    h.Costs = rng_.range(4, 30) * 500;
    const bool homeGame = rng_.chance(50);
    const int32_t gate = std::min(h.Capacity, h.PotentialCrowd * rng_.range(50, 100) / 100);
    h.GateMoney = homeGame ? gate * h.TicketPrice : 0;
    h.Merchandise = rng_.range(5, 60) * 100;
    h.Sponsorship = rng_.range(10, 50) * 500;
    h.SundriesIn = rng_.range(0, 20) * 50;
    h.SundriesOut = rng_.range(0, 20) * 50;
    h.MoneyBet = rng_.chance(20) ? rng_.range(1, 10) * 1000 : 0;
    h.BettingWinnings = h.MoneyBet && rng_.chance(40) ? h.MoneyBet * rng_.range(2, 5) : 0;
    h.TransfersRecouped = rng_.chance(10) ? rng_.range(1, 40) * 5000 : 0;
    h.TransfersSpent = rng_.chance(10) ? rng_.range(1, 40) * 5000 : 0;
    h.Balance += h.GateMoney + h.Merchandise + h.Sponsorship + h.SundriesIn + h.BettingWinnings +
                 h.TransfersRecouped - h.WageBill - h.Costs - h.SundriesOut - h.MoneyBet - h.TransfersSpent;

    if (week_ > 1) {
        h.Credits = int16_t(std::max(0, h.Credits + rng_.range(-2, 1)));
        if (rng_.chance(20)) ++h.StampCredits;
        h.GamesPlayed = int16_t(seasonWeek_ == 0 ? 0 : h.GamesPlayed + 1);
        h.RecentPerformance = int16_t(std::clamp(h.RecentPerformance + rng_.range(-6, 6), 20, 95));
        h.CrowdRating = int16_t(std::clamp(h.CrowdRating + rng_.range(-3, 3), 10, 99));
        // Works in hand move on.
        if (startsWith(club.CapacityPending, "Y") && rng_.chance(40)) club.CapacityPending = "N";
        if (startsWith(club.FacilityPending, "Y") && rng_.chance(50)) club.FacilityPending = "N";
        if (startsWith(club.DepartmentLine, "Weeks until ")) {
            const int weeks = int(val(markerText(club.DepartmentLine, " - ", ""))) - 1;
            if (weeks <= 0) {
                club.DepartmentLine = "No department upgrade under way";
                h.DepartmentUpgrade = "No current department upgrade";
            } else {
                const std::string dept = markerText(club.DepartmentLine, "until ", " coach");
                club.DepartmentLine = "Weeks until " + dept + " coach upgrade is complete - " + std::to_string(weeks);
                h.DepartmentUpgrade = std::to_string(weeks) + " wks until " + dept + " dept upgrade";
            }
        }
    }
    club.NullGate = h.GamesPlayed == 0;
    h.AverageGate = club.NullGate ? 0 : gate;
    h.CapacityUpgrade = startsWith(club.CapacityPending, "Y") ? "Action capacity increase" : "No capacity increase this week";
    h.FacilityUpgrade = startsWith(club.FacilityPending, "Y") ? "Action facility increase" : "No facility increase this week";

    club.BlendPassingTenths = rng_.range(300, 800);
    club.BlendCrossingTenths = rng_.range(300, 800);
    // Half of the whole tenths go to the even number, so x.5 is a case too.
    if (rng_.chance(25)) club.BlendPassingTenths = club.BlendPassingTenths / 10 * 10 + 5;
    h.BlendPassing = int16_t(roundHalfEven(club.BlendPassingTenths / 10.0));
    h.BlendCrossing = int16_t(roundHalfEven(club.BlendCrossingTenths / 10.0));
    h.BlendAverages = std::to_string((club.BlendPassingTenths + club.BlendCrossingTenths) / 20) + "." +
                      std::to_string((club.BlendPassingTenths + club.BlendCrossingTenths) / 2 % 10);

    club.ReportLines = reportLines(club, managedIndex);
    scheduleMatches(club, managedIndex);
}

void League::nextWeek() {
    ++week_;
    bool seasonTurn = false;
    if (week_ > 1) {
        seasonWeek_ = (seasonWeek_ + 1) % kSeasonWeeks;
        seasonTurn = seasonWeek_ == 0;
        for (DemoClub& c : clubs_)
            for (DemoPlayer& p : c.Players) weekForPlayer(p, seasonTurn);
    }
    stamp_ = ddmmyyyy(turnDate()) + " at " + two(rng_.range(18, 23)) + ":" + two(rng_.range(0, 59)) + ":" +
             two(rng_.range(0, 59));
    // Last week's matches, which every file of this week tells.
    playRound(seasonWeek_, true);

    std::vector<DemoClub*> managed;
    for (DemoClub& c : clubs_)
        if (c.managed()) managed.push_back(&c);
    std::sort(managed.begin(), managed.end(), [](const DemoClub* a, const DemoClub* b) { return a->Key < b->Key; });
    for (size_t m = 0; m < managed.size(); ++m) {
        DemoClub& c = *managed[m];
        // Coaching lands before the squad is printed: a success shows in the figures.
        for (int k = rng_.range(0, 2); k > 0 && week_ > 1; --k) {
            Player& p = c.Players[size_t(rng_.range(0, int(c.Players.size()) - 1))].rec;
            const CoachSkill& s = kCoachSkills[rng_.range(0, 8)];
            ++p.skill(s.index);
            ++p.TotalSkill;
            p.Skill = int16_t(p.TotalSkill / 11);
        }
        weekForManaged(c, m);
    }
    weekNews();
    weekTrades();
}

}  // namespace kestrin::demo

namespace kestrin::demo {

void League::weekNews() {
    // How the news names the skills: the first two letters are the code.
    static const char* const words[11] = {"Passing",  "Control",           "Tackling",          "Running",
                                          "Shooting", "Dribbling",         "Defensive heading", "Offensive heading",
                                          "Flair",    "Strength",          "Creativity"};
    static const char* const how[3] = {"improved in training", "lost ground with age", "came back from his country"};
    for (size_t kind = 0; kind < 3; ++kind) {
        news_[kind].clear();
        for (int n = rng_.range(kind == 0 ? 4 : 1, kind == 0 ? 12 : 5); n > 0; --n) {
            const DemoClub& c = clubs_[size_t(rng_.range(0, int(clubs_.size()) - 1))];
            const DemoPlayer& p = c.Players[size_t(rng_.range(0, int(c.Players.size()) - 1))];
            const int skill = rng_.range(0, 10);
            news_[kind].push_back(c.Name + " - " + p.rec.Name + " (" + p.rec.Position + ") " + how[kind] +
                                  " and moved by one point in " + words[skill] + ", his new value is " +
                                  std::to_string(p.rec.skill(skill)));
        }
    }
    // Coaching that worked at clubs all over the game: the truncated name in
    // fifteen columns, then the club, the skill and its new value.
    coaching_.clear();
    for (int n = rng_.range(8, 20); n > 0; --n) {
        const DemoClub& c = clubs_[size_t(rng_.range(0, int(clubs_.size()) - 1))];
        const DemoPlayer& p = c.Players[size_t(rng_.range(0, int(c.Players.size()) - 1))];
        const CoachSkill& s = kCoachSkills[rng_.range(0, 8)];
        coaching_.push_back(fixedWidth(p.rec.Name, 15) + c.Name + " " + s.code + " " +
                            std::to_string(p.rec.skill(s.index)));
    }
}

}  // namespace kestrin::demo

namespace kestrin::demo {

void League::playToSeasonEnd() {
    while (standing(table(1)[0]).played < 38) nextWeek();
}

}  // namespace kestrin::demo
