#include "stats/matchreport.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "core/text.h"

namespace kestrin::stats {

namespace {

// memmem, since lines are tested for some forty phrases each and most
// phrases begin with a blank, which defeats a search for the first character.
bool holds(std::string_view line, std::string_view what) {
    return ::memmem(line.data(), line.size(), what.data(), what.size()) != nullptr;
}
bool holdsNoCase(std::string_view line, std::string_view what) { return findNoCase(line, what) != std::string::npos; }
std::string before(std::string_view line, std::string_view marker) { return markerText(line, "", marker); }
int64_t number(std::string_view text) { return wholeNumber(text); }
bool blank(std::string_view line) { return trim(line).empty(); }

// Every phrase a report line is tested for, found in one pass over the line:
// phrases are indexed by their first three characters, so each place of the
// line is compared only with the few phrases that could begin there. The key
// is the low five bits of each character, which tell letters apart but not
// their case; other characters may share a key, as every match is checked in
// full. Most places can't begin any phrase, which their first character tells.
class PhraseSet {
public:
    struct Phrase {
        std::string text;  // three characters or more
        bool ignoreCase;
    };
    explicit PhraseSet(std::vector<Phrase> phrases) : phrases_(std::move(phrases)), first_(size_t(1) << 15, -1) {
        for (size_t i = 0; i < phrases_.size(); ++i) {
            Phrase& p = phrases_[i];
            if (p.ignoreCase)
                for (char& c : p.text) c = lowerCase(c);
            const size_t key = keyAt(p.text, 0);
            next_.push_back(first_[key]);
            first_[key] = int(i);
            starts_[static_cast<unsigned char>(p.text[0])] = true;
            if (p.ignoreCase) starts_[static_cast<unsigned char>(upperCase(p.text[0]))] = true;
        }
    }
    // Bit i is set when phrase i occurs in the text.
    uint64_t scan(std::string_view text) const {
        uint64_t found = 0;
        for (size_t at = 0; at + 2 < text.size(); ++at) {
            if (!starts_[static_cast<unsigned char>(text[at])]) continue;
            for (int i = first_[keyAt(text, at)]; i >= 0; i = next_[size_t(i)])
                if (occursAt(phrases_[size_t(i)], text, at)) found |= uint64_t(1) << i;
        }
        return found;
    }

private:
    static size_t low(char c) { return static_cast<unsigned char>(c) & 31; }
    static size_t keyAt(std::string_view s, size_t at) { return low(s[at]) << 10 | low(s[at + 1]) << 5 | low(s[at + 2]); }
    static char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; }
    static char upperCase(char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; }
    static bool occursAt(const Phrase& p, std::string_view text, size_t at) {
        if (p.text.size() > text.size() - at) return false;
        for (size_t k = 0; k < p.text.size(); ++k) {
            const char c = text[at + k];
            if ((p.ignoreCase ? lowerCase(c) : c) != p.text[k]) return false;
        }
        return true;
    }
    std::vector<Phrase> phrases_;  // those that ignore case are held in lower case
    std::vector<int> first_, next_;  // chains of phrases sharing a key
    std::array<bool, 256> starts_{};  // the characters a phrase may begin with
};

// The fixed phrases of the event tests, in the order of the Marker numbers,
// then the ball-work phrases.
enum Marker {
    kVersus, kMinute, kSaves, kHomeSide, kDeflected, kWideOf, kOverTheBar, kChargedDown, kBooked, kSent, kScored, kHitThe, kIsFouledBy, kFouls, kFoulBy, kSetUpBy, kFormationAnd, kCurrentBlends, kAdjusted, kSubstitution, kFullTime, kFinishing, kLastTen, kBrokenDown, kAway, kAnalysis, kSubstitutionWord,
    kFirstBallWork
};
constexpr size_t kBallWorkPhrases = kBallWinPhrases.size() + kBallLossPhrases.size();
static_assert(kFirstBallWork + kBallWorkPhrases <= 64, "one bit per phrase");

// The markers match as written; the ball-work phrases, wins first then
// losses, match in any case.
const PhraseSet& linePhrases() {
    static const PhraseSet set = [] {
        std::vector<PhraseSet::Phrase> all;
        for (const char* m :
             {" v ", " mins - ", " saves ", " (H", " deflected off ", " wide of ", " over the bar", " charged down ",
              " has been booked", " has been SENT", " SCORED ", " HIT THE ", "is fouled by ", " fouls ", " foul by ",
              "And set up by ", " formation and the ", "current blends are", "adjusted themselves", " SUBSTITUTION.",
              "REFEREE BLOWS FOR FULL TIME", "Finishing Club statistics for", "Last ten minutes", "Broken down as",
              " - away ", "ANALYSIS FOR SUBSTITUTION DID TAKE PLACE", "SUBSTITUTION."})
            all.push_back({m, false});
        for (std::string_view p : kBallWinPhrases) all.push_back({std::string(p), true});
        for (std::string_view p : kBallLossPhrases) all.push_back({std::string(p), true});
        return PhraseSet(std::move(all));
    }();
    return set;
}

constexpr size_t kMaxComments = 100;
constexpr size_t kMaxBookings = 13;
constexpr size_t kMaxGoals = 20;
constexpr size_t kMaxBallWork = 13;
constexpr int kRows = 13;

// Three figures parted by two blanks: defence, midfield, attack. Each next
// one is found after the previous one, as the game's reports are read.
std::array<int64_t, 3> readBlends(std::string_view piece) {
    const std::string a = markerText(piece, "", " ");
    const std::string b = midBetween(piece, a + "  ", " ");
    const std::string c = midBetween(piece, b + "  ", " ");
    return {number(a), number(b), number(c)};
}

struct Booking {
    std::string name;
    int64_t minute = 0;
};
struct Goal {
    std::string scorer;
    int type = 0;
    int64_t time = 0;
    std::string assist;
};
struct BallWork {
    std::string name;
    int attempts = 0, success = 0;
};

struct Side {
    std::string name, code, venue;
    int startFormation = 0, endFormation = 0, startTactic = 0, endTactic = 0;
    int64_t style = 0, movement = 0, shotsOn = 0, shotsOff = 0, performance = 0;
    std::string mom;
    std::array<int64_t, 6> blends{};  // start def, mid, att, end def, mid, att
    int nearMisses = 0, saved = 0, otherShots = 0, bookingCount = 0, sentOffCount = 0, goalCount = 0;
    std::array<std::array<std::string, 12>, kRows + 1> cells{};  // [row 1..13][column 1..11]
    std::vector<Booking> bookings, sendingsOff;
    std::vector<Goal> goals;
    std::vector<BallWork> ballWork;

    // The row of the player table whose name is this one, 0 when none.
    int rowOf(std::string_view player) const {
        const std::string wanted = trim(player);
        for (int r = 1; r <= kRows; ++r)
            if (trim(cells[size_t(r)][1]) == wanted) return r;
        return 0;
    }
};

class Parser {
public:
    Parser(StatsStore& store, const std::vector<std::string>& lines) : store_(store), lines_(lines) {}
    std::vector<std::string> run();

private:
    enum class End { Written, Duplicate, NewHeading, EndOfFile };

    // The next line, or null at the end of the file.
    const std::string* next() { return pos_ < lines_.size() ? &lines_[pos_++] : nullptr; }
    const std::string* nextHolding(std::string_view what) {
        const std::string* line;
        while ((line = next()) && !holds(*line, what)) {
        }
        return line;
    }
    void reset();
    End parseMatch(const std::string& heading, const std::string*& newHeading);
    bool headingLine(int number, const std::string& line);
    enum class Event { Next, NewHeading, Complete, EndOfFile };
    Event event(const std::string& line);
    bool closingStatistics(int s);  // false at end of file
    void cutPlayerRow(int s, int row, const std::string& line);
    End write();

    bool commentary(std::string_view line, uint64_t markers) const;
    void addComment(std::string_view line) {
        if (comments_.size() >= kMaxComments) comments_.clear();
        comments_.push_back(line);
    }
    void addSummary(std::string_view text) { (summary_ += text) += "\r\n"; }
    void addHeader(std::string_view text) { (header_ += text) += "\r\n"; }
    std::string momentHeading(std::string_view word, const std::string& club) const;
    void closeMoment(std::string_view word, const std::string& club);
    void ballWork(std::string_view line, uint64_t phrases);
    void foulSide(std::string_view piece, bool setClub, std::string_view line);

    StatsStore& store_;
    const std::vector<std::string>& lines_;
    size_t pos_ = 0;
    std::vector<std::string> written_;
    std::vector<std::string_view> comments_;  // lines of the file

    // One match.
    std::array<Side, 3> side_;  // 1 home, 2 away; 0 is where a booking with no foul before it goes
    std::string homeComma_;     // the home side's name and a comma, which no commentary line holds
    int64_t attendance_ = 0;
    int gameType_ = 0, roundType_ = 0;
    int64_t minute_ = 0;
    std::string momentTime_;
    int homeGoals_ = 0, awayGoals_ = 0;
    int lastFoulSide_ = 0;
    std::string lastFoulClub_;
    int goalSide_ = 0;
    std::string header_, summary_;
};

void Parser::reset() {
    side_ = {};
    homeComma_.clear();
    attendance_ = 0;
    gameType_ = roundType_ = 0;
    minute_ = 0;
    momentTime_.clear();
    homeGoals_ = awayGoals_ = 0;
    lastFoulSide_ = 0;
    lastFoulClub_.clear();
    goalSide_ = 0;
    header_.clear();
    summary_.clear();
}

std::vector<std::string> Parser::run() {
    if (lines_.empty()) return {};
    // A file that holds its report twice is read from the second copy.
    size_t again = 0;
    if (lines_.size() >= 2)
        for (size_t i = 2; i < lines_.size(); ++i)
            if (lines_[i] == lines_[1]) again = i;
    pos_ = again ? again - 1 : 0;
    const std::string* heading = next();
    while (heading) {
        const std::string* newHeading = nullptr;
        const End end = parseMatch(*heading, newHeading);
        if (end == End::Duplicate || end == End::EndOfFile) break;
        if (end == End::NewHeading) {
            heading = newHeading;
            continue;
        }
        do heading = next();
        while (heading && !holds(*heading, " v "));
    }
    return written_;
}

Parser::End Parser::parseMatch(const std::string& heading, const std::string*& newHeading) {
    reset();
    addHeader(heading);
    headingLine(1, heading);
    for (int n = 2; n <= 6; ++n) {
        const std::string* line = next();
        if (!line) return End::EndOfFile;  // not even a whole heading: nothing to write
        addHeader(*line);
        headingLine(n, *line);
    }
    addHeader("");
    addHeader("");
    while (const std::string* line = next()) {
        const Event e = event(*line);
        if (e == Event::NewHeading) {
            newHeading = line;
            return End::NewHeading;
        }
        if (e == Event::Complete) return write();
        if (e == Event::EndOfFile) break;
    }
    // The file ended inside the match: what was gathered is written.
    const End end = write();
    return end == End::Duplicate ? end : End::EndOfFile;
}

bool Parser::headingLine(int n, const std::string& line) {
    switch (n) {
        case 1: {
            side_[1].name = before(line, " v ");
            side_[2].name = midBetween(line, " v ", "");
            homeComma_ = side_[1].name + ",";
            for (int s = 1; s <= 2; ++s) side_[size_t(s)].code = store_.clubs.codeFromName(side_[size_t(s)].name);
            side_[1].venue = "H";
            side_[2].venue = "A";
            break;
        }
        case 2: {
            gameType_ = competitionInLine(line);
            roundType_ = roundFromText(midBetween(line, std::string(competitionName(gameType_)) + " ", " played "));
            if (roundType_ == 27) side_[1].venue = side_[2].venue = "N";  // a final is played on neutral ground
            break;
        }
        case 3: attendance_ = number(midBetween(line, "The attendance was ", " with")); break;
        case 4:
            for (int s = 1; s <= 2; ++s) {
                Side& d = side_[size_t(s)];
                const std::string started = d.name + " started with a formation of ";
                const std::string piece = holdsNoCase(line, started)
                                              ? midBetween(line, started, " and ")
                                              : midBetween(line, d.name + " with a formation of ", " and ");
                d.startFormation = formationNumber(piece);
            }
            break;
        case 5:
            for (int s = 1; s <= 2; ++s)
                side_[size_t(s)].startTactic =
                    tacticNumber(midBetween(line, side_[size_t(s)].name + " used the tactic ", " and "));
            break;
        case 6:
            for (int s = 1; s <= 2; ++s) {
                const auto b =
                    readBlends(midBetween(line, side_[size_t(s)].name + " started the game with a blend of ", " and "));
                std::copy(b.begin(), b.end(), side_[size_t(s)].blends.begin());
            }
            break;
        default: break;
    }
    return true;
}

bool Parser::commentary(std::string_view line, uint64_t markers) const {
    constexpr uint64_t kNotCommentary = uint64_t(1) << kLastTen | uint64_t(1) << kBrokenDown | uint64_t(1) << kAway |
                                        uint64_t(1) << kMinute | uint64_t(1) << kAnalysis |
                                        uint64_t(1) << kCurrentBlends | uint64_t(1) << kSubstitutionWord |
                                        uint64_t(1) << kAdjusted;
    if (line.size() <= 3 || line[0] == '&' || line[0] == '-') return false;
    if (markers & kNotCommentary) return false;
    // Most lines have no comma at all, which rules the name out at once.
    return line.find(',') == std::string_view::npos || !holdsNoCase(line, homeComma_);
}

std::string Parser::momentHeading(std::string_view word, const std::string& club) const {
    return momentTime_ + std::string(word) + " (" + club + ")     " + side_[1].name + " " + std::to_string(homeGoals_) +
           "  " + side_[2].name + " " + std::to_string(awayGoals_);
}

void Parser::closeMoment(std::string_view word, const std::string& club) {
    const std::string heading = momentHeading(word, club);
    addSummary(heading);
    addSummary(std::string(heading.size(), '-'));
    addSummary("");
    for (std::string_view c : comments_) addSummary(c);
    for (int i = 0; i < 3; ++i) addSummary("");
    comments_.clear();
}

// Bit i of `phrases` is ball-work phrase i; each counts once. The player is
// named before " (" and his side's letter follows the bracket, up to a blank.
// The markers hold no letters, so plain searches find what the marker rule
// would find (and no line holding a ball-work phrase is the rule's one
// exception).
void Parser::ballWork(std::string_view line, uint64_t phrases) {
    constexpr size_t kNone = std::string_view::npos;
    const size_t bracket = line.find('(');
    size_t open = bracket;  // the first bracket with a blank before it
    while (open != kNone && (open == 0 || line[open - 1] != ' ')) open = line.find('(', open + 1);
    const std::string_view name = trimView(line.substr(0, open == kNone ? line.size() : open - 1));
    const size_t from = bracket == kNone ? 0 : bracket + 1;
    const size_t blank = line.find(' ', from);
    const std::string_view letter =
        trimView(line.substr(from, blank == kNone ? kNone : blank - from));
    const int s = letter == "H" ? 1 : letter == "A" ? 2 : holds(line, "(H") ? 1 : 2;
    std::vector<BallWork>& list = side_[size_t(s)].ballWork;
    for (; phrases != 0; phrases &= phrases - 1) {  // each set bit, lowest first
        const bool won = size_t(std::countr_zero(phrases)) < kBallWinPhrases.size();
        auto it = std::find_if(list.begin(), list.end(), [&](const BallWork& w) { return w.name == name; });
        if (it == list.end()) {
            if (list.size() >= kMaxBallWork) return;
            list.push_back({std::string(name), 0, 0});
            it = list.end() - 1;
        }
        it->attempts = std::min(255, it->attempts + 1);  // byte counters
        if (won) it->success = std::min(255, it->success + 1);
    }
}

// The side of the player who fouled, from "(H" or "(A" behind his name.
void Parser::foulSide(std::string_view piece, bool setClub, std::string_view line) {
    const std::string letter = midBetween(piece, "(", " ");
    int s;
    if (letter == "H") s = 1;
    else if (letter == "A") s = 2;
    else if (!setClub || line.empty()) s = 1;
    else {
        const size_t a = line.find("(A"), h = line.find("(H");
        s = (a != std::string_view::npos && (h == std::string_view::npos || a < h)) ? 2 : 1;
    }
    lastFoulSide_ = s;
    if (setClub) lastFoulClub_ = side_[size_t(s)].name;
}

Parser::Event Parser::event(const std::string& line) {
    Side& home = side_[1];
    Side& away = side_[2];
    const uint64_t found = linePhrases().scan(line);
    auto has = [found](Marker m) { return (found >> m) & 1; };
    // A. A new heading in mid-report: its right half is in capitals.
    if (has(kVersus) && !holds(line, "(")) {
        const std::string_view after = std::string_view(line).substr(line.find(" v ") + 3);
        if (after == upper(after)) return Event::NewHeading;
    }
    // B. A minute line.
    if (has(kMinute)) {
        minute_ = number(before(line, " mins "));
        momentTime_ = minute_ > 0 ? std::to_string(minute_) + " Minutes" : "Injury time";
        comments_.clear();
    }
    // C. Commentary, kept for the next moment.
    if (commentary(line, found)) addComment(line);
    // D. A shot saved: " (H" names the home keeper, so the moment is the away side's.
    if (has(kSaves)) {
        Side& by = has(kHomeSide) ? away : home;
        ++by.saved;
        closeMoment(": SHOT SAVED", by.name);
    }
    // E. Any other shot; the side is told by the first 25 characters.
    if ((has(kDeflected) || has(kWideOf) || has(kOverTheBar) || has(kChargedDown)) && !has(kSaves)) {
        Side& by = holds(std::string_view(line).substr(0, 25), " (H") ? home : away;
        ++by.otherShots;
        closeMoment(": SHOT", by.name);
    }
    // F, G. Bookings and sendings off go to the side of the latest foul.
    for (int kind = 0; kind < 2; ++kind) {
        const std::string_view marker = kind == 0 ? " has been booked" : " has been SENT";
        if (!has(kind == 0 ? kBooked : kSent)) continue;
        Side& counted = lastFoulClub_ == home.name ? home : away;
        ++(kind == 0 ? counted.bookingCount : counted.sentOffCount);
        auto& list = kind == 0 ? side_[size_t(lastFoulSide_)].bookings : side_[size_t(lastFoulSide_)].sendingsOff;
        if (list.size() < kMaxBookings) list.push_back({before(line, marker), minute_});
        if (const std::string* said = next()) addComment(*said);
        closeMoment(kind == 0 ? ": BOOKING" : ": SENDING OFF", lastFoulClub_);
    }
    // H. A goal, for the running score.
    if (has(kScored)) {
        const bool isHome = holdsNoCase(line, home.name);
        ++(isHome ? homeGoals_ : awayGoals_);
        closeMoment(": GOAL", (isHome ? home : away).name);
    }
    // I. A near miss.
    if (has(kHitThe)) {
        Side& by = has(kHomeSide) ? home : away;
        ++by.nearMisses;
        closeMoment(": NEAR MISS", by.name);
    }
    // J. Who fouled last, for the bookings that follow.
    if (has(kIsFouledBy)) {
        size_t at = line.find(" is fouled by ");
        if (at == std::string::npos) at = line.find("is fouled by ");
        foulSide(std::string_view(line).substr(at), true, {});
    }
    if (has(kFouls)) foulSide(before(line, " fouls "), true, line);
    if (has(kFoulBy)) {
        // Only the side: the club stays as the last foul left it.
        const std::string club = lastFoulClub_;
        foulSide(before(line, " foul by "), true, line);
        lastFoulClub_ = club;
    }
    // K. A goal, for the goal tables.
    if (has(kScored)) {
        const std::string club = trim(midBetween(line, " for ", " with"));
        if (equalsNoCase(club, trim(home.name))) goalSide_ = 1;
        else if (equalsNoCase(club, trim(away.name))) goalSide_ = 2;
        Side& by = side_[size_t(goalSide_)];
        ++by.goalCount;
        if (by.goals.size() < kMaxGoals)
            by.goals.push_back({trim(before(line, " (")), goalTypeInLine(line),
                                number(midBetween(line, " after ", " minutes")), {}});
    }
    // L. The assist of that side's latest goal.
    if (has(kSetUpBy)) {
        Side& by = side_[size_t(goalSide_)];
        if (!by.goals.empty()) by.goals.back().assist = midBetween(line, "And set up by ", " which ");
    }
    // M, N. Ball work; a line with two phrases counts twice.
    if (const uint64_t work = found >> kFirstBallWork) ballWork(line, work);
    // O. A change of shape.
    if (has(kFormationAnd)) {
        const std::string who = before(line, " adjusted themselves");
        Side& by = !holdsNoCase(who, home.name) && holdsNoCase(who, away.name) ? away : home;
        by.endFormation = formationNumber(midBetween(line, "now playing a ", " formation and"));
        by.endTactic = tacticNumber(midBetween(line, "and the tactic ", ""));
    }
    // P. Blends during the match.
    if (has(kCurrentBlends)) {
        for (int s = 1; s <= 2; ++s) {
            const std::string marker = side_[size_t(s)].name + "'s current blends are ";
            if (!holdsNoCase(line, marker)) continue;
            const auto b = readBlends(midBetween(line, marker, " and "));
            std::copy(b.begin(), b.end(), side_[size_t(s)].blends.begin() + 3);
        }
        addSummary(line);
        for (int i = 0; i < 3; ++i) addSummary("");
    }
    // Q, R. Tactic changes and substitutions go to the summary with their next line.
    for (int kind = 0; kind < 2; ++kind) {
        if (!has(kind == 0 ? kAdjusted : kSubstitution)) continue;
        const std::string& club = holdsNoCase(line, home.name) ? home.name : away.name;
        const std::string heading = momentHeading(kind == 0 ? ": TACTIC CHANGE" : ": SUBSTITUTION", club);
        addSummary(heading);
        addSummary(std::string(heading.size(), '-'));
        addSummary(line);
        if (const std::string* said = next()) addSummary(*said);
    }
    // S. After the final whistle everything goes to the summary up to the statistics.
    const std::string* finishing = has(kFinishing) ? &line : nullptr;
    if (has(kFullTime)) {
        finishing = nullptr;
        while (const std::string* more = next()) {
            if (holds(*more, "Finishing Club statistics for")) {
                finishing = more;
                break;
            }
            addSummary(*more);
        }
        if (!finishing) return Event::EndOfFile;
    }
    // T. A club's closing statistics.
    if (finishing) {
        const std::string club = trim(midBetween(*finishing, "Finishing Club statistics for ", ""));
        const int s = !equalsNoCase(club, trim(home.name)) && equalsNoCase(club, trim(away.name)) ? 2 : 1;
        if (!closingStatistics(s)) return Event::EndOfFile;
        if (s == 2) return Event::Complete;
    }
    return Event::Next;
}

bool Parser::closingStatistics(int s) {
    Side& d = side_[size_t(s)];
    const std::string* line = nextHolding("Start Blends");
    if (!line || !(line = next())) return false;
    // Cells are parted by runs of three blanks or more.
    std::string rest = trim(*line);
    auto cell = [&rest]() {
        const size_t at = rest.find("   ");
        std::string c = rest.substr(0, at);
        rest = at == std::string::npos ? std::string() : trim(rest.substr(at));
        return c;
    };
    d.style = number(cell());
    d.movement = number(cell());
    cell();
    cell();
    cell();  // start blends, known from the heading
    const auto b = readBlends(cell());
    std::copy(b.begin(), b.end(), d.blends.begin() + 3);
    const std::string tactic = cell();
    if (number(tactic) > 0) {
        // No tactic name: the cell is already the shots on target.
        d.endTactic = 23;
        d.shotsOn = number(tactic);
    } else {
        d.endTactic = tacticNumber(trim(tactic));
        d.shotsOn = number(cell());
    }
    d.shotsOff = number(cell());
    d.performance = number(cell());

    if (!(line = nextHolding("Player statistics for"))) return false;
    d.mom = midBetween(*line, "MAN OF THE MATCH - ", "(");

    for (int row = 1; row <= kRows; ++row) {
        do {
            if (!(line = next())) return false;
        } while (blank(*line) || holds(*line, "Pos/Skill"));
        if (holds(*line, "Finishing player strength")) continue;  // the row stays empty
        cutPlayerRow(s, row, *line);
    }
    return true;
}

void Parser::cutPlayerRow(int s, int row, const std::string& line) {
    auto& cells = side_[size_t(s)].cells[size_t(row)];
    const size_t slash = line.find("/ ");
    const std::string kept = slash == std::string::npos ? line : line.substr(0, slash);
    cells[10] = kept.substr(kept.size() >= 4 ? kept.size() - 4 : 0);
    cells[11] = slash == std::string::npos ? std::string() : line.substr(slash + 2, 2);
    std::string rest = trim(fromColumn(line, kept.size() + 6));
    cells[1] = trim(kept.substr(0, kept.size() >= 5 ? kept.size() - 5 : 0));
    const int lastColumn = row == 1 ? 6 : 9;  // the goalkeeper's row is shorter
    for (int c = 2; c <= lastColumn; ++c) {
        const size_t at = rest.find("  ");
        cells[size_t(c)] = rest.substr(0, at);
        rest = at == std::string::npos ? std::string() : trim(rest.substr(at));
    }
}

Parser::End Parser::write() {
    Side& home = side_[1];
    Side& away = side_[2];
    addHeader("");
    addHeader("");
    auto total = [&](std::string_view label, int h, int a) {
        addHeader(std::string(label) + home.name + " " + std::to_string(h) + "    " + away.name + " " +
                  std::to_string(a));
    };
    total("Score           : ", homeGoals_, awayGoals_);
    total("Near Misses     : ", home.nearMisses, away.nearMisses);
    total("Shots Saved     : ", home.saved, away.saved);
    total("Other Shots     : ", home.otherShots, away.otherShots);
    total("Bookings        : ", home.bookingCount, away.bookingCount);
    total("Sent Off        : ", home.sentOffCount, away.sentOffCount);
    addHeader("");
    addHeader("");

    const std::optional<int64_t> code =
        store_.addMatchMain(attendance_, gameType_, roundType_, trim(home.code), trim(away.code));
    if (!code) return End::Duplicate;

    for (int s = 1; s <= 2; ++s) {
        const Side& d = side_[size_t(s)];
        StatsStore::TeamRow t;
        t.club = trim(d.code);
        t.venue = d.venue;
        t.startTactic = d.startTactic;
        t.endTactic = d.endTactic;
        t.performance = d.performance;
        t.shotsOn = d.shotsOn;
        t.shotsOff = d.shotsOff;
        t.movement = d.movement;
        t.style = d.style;
        t.startFormation = d.startFormation;
        t.endFormation = d.endFormation ? d.endFormation : d.startFormation;
        std::copy(d.blends.begin(), d.blends.end(), t.blends);
        const int mom = d.rowOf(d.mom);
        t.mom = mom ? mom : 1;
        t.score = d.goalCount;
        store_.addMatchTeam(*code, t);
    }
    for (int s = 1; s <= 2; ++s) {
        const Side& d = side_[size_t(s)];
        for (int row = 1; row <= kRows; ++row) {
            const auto& c = d.cells[size_t(row)];
            std::string name = trim(c[1].substr(0, std::min<size_t>(19, c[1].size())));
            if (name.empty()) name = "Unknown";
            auto attempts = [&](int col) -> Opt { return number(before(c[size_t(col)], " /")); };
            auto success = [&](int col) -> Opt { return number(midBetween(c[size_t(col)], "/ ", "")); };
            const bool keeper = row == 1;
            Opt booked, sentOff, controlSuccess, controlAttempts;
            const std::string full = trim(c[1]);
            for (const Booking& b : d.bookings)
                if (trim(b.name) == full) booked = b.minute;
            for (const Booking& b : d.sendingsOff)
                if (trim(b.name) == full) sentOff = b.minute;
            for (const BallWork& w : d.ballWork)
                if (w.name == full) {
                    controlSuccess = w.success;
                    controlAttempts = w.attempts;
                    break;
                }
            // Position .. ControlAttempts
            std::vector<Opt> f = {positionNumber(c[10]),
                                  row,
                                  number(c[11]),
                                  number(c[keeper ? 6 : 8]),
                                  attempts(2),
                                  success(2),
                                  attempts(3),
                                  success(3),
                                  attempts(4),
                                  success(4),
                                  attempts(keeper ? 5 : 6),
                                  success(keeper ? 5 : 6),
                                  keeper ? Opt() : attempts(5),
                                  keeper ? Opt() : success(5),
                                  keeper ? Opt() : attempts(7),
                                  keeper ? Opt() : success(7),
                                  keeper ? Opt() : Opt(number(c[9])),
                                  booked,
                                  sentOff,
                                  controlSuccess,
                                  controlAttempts};
            store_.addMatchPlayer(*code, trim(d.code), name, f);
        }
    }
    for (int s = 1; s <= 2; ++s) {
        const Side& d = side_[size_t(s)];
        for (const Goal& g : d.goals) {
            const int scorer = d.rowOf(g.scorer);
            const int assist = trim(g.assist).empty() ? 0 : d.rowOf(g.assist);
            store_.addMatchGoal(*code, trim(d.code), g.time, g.type, scorer ? Opt(scorer) : Opt(),
                                assist ? Opt(assist) : Opt());
        }
    }
    const std::string text = header_ + summary_;
    store_.addSummary(*code, compressString(text));
    written_.push_back(text);
    return End::Written;
}

}  // namespace

std::vector<std::string> loadMatchReports(StatsStore& store, const std::vector<std::string>& lines) {
    return Parser(store, lines).run();
}

}  // namespace kestrin::stats
