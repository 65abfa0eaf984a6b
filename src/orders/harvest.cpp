#include "orders/harvest.h"

#include <cctype>
#include <optional>

#include "core/errors.h"
#include "core/text.h"
#include "files/news.h"
#include "orders/history.h"
#include "orders/scoutfile.h"

namespace kestrin {

namespace {

constexpr std::string_view kProcessed = "Turnsheet processed";
constexpr std::string_view kAwayShots = "Away shots On/Off";
constexpr std::string_view kManOfTheMatch = "MAN OF THE MATCH";
constexpr const char* kFirstTeamCoach = "First team coach";

bool holds(std::string_view line, std::string_view what) { return line.find(what) != std::string_view::npos; }

// The First team coach's words, found in the lower-cased line.
bool firstTeamCoachLine(std::string_view line) {
    static const char* const words[] = {"blend figure", "position", "best coaching", "dropped", "unhappy",
                                        "aggression",   "lowered",  "suspension",    "rousing"};
    const std::string low = lower(line);
    for (const char* w : words)
        if (holds(low, w)) return true;
    return false;
}

bool harvestIgnores(std::string_view line) {
    static const char* const words[] = {"Club's are exempt", "The club paid", "After calculation",
                                        "Turnsheet processed", "SCHEDULED MATCHES", "TRAINING GROUND",
                                        "SENT OFF", "Match to be played", "Bonus money", "versus"};
    for (const char* w : words)
        if (holds(line, w)) return true;
    return false;
}

bool blank(std::string_view line) { return trim(line).empty(); }

// 1-based place of `what` in `line`, 0 when absent, as the report's fields
// are counted.
size_t place(std::string_view line, std::string_view what) {
    const size_t p = line.find(what);
    return p == std::string_view::npos ? 0 : p + 1;
}

// `length` characters from the 1-based place `from`; a place before the line
// counts from its start, and a length that runs out gives what there is.
std::string mid(std::string_view line, long from, long length) {
    if (from < 1) from = 1;
    if (length <= 0 || size_t(from) > line.size()) return {};
    return std::string(line.substr(size_t(from - 1), size_t(length)));
}

int16_t wholeNumber(std::string_view text) {
    const double v = val(text);
    if (!(v > -32768.5 && v < 32767.5)) return 0;
    return int16_t(roundHalfEven(v));
}

// The number that stands behind a marker of the scout report's lines.
int16_t numberBehind(std::string_view line, std::string_view marker) {
    return wholeNumber(markerText(line, marker, ""));
}

// Reads one Squadsheet's report line by line from "Turnsheet processed" on.
class Report {
public:
    explicit Report(const std::vector<std::string>& lines) : lines_(lines) {
        while (at_ < lines_.size() && !holds(lines_[at_], kProcessed)) ++at_;
    }
    bool done() const { return at_ >= lines_.size(); }
    const std::string& next() { return lines_[at_++]; }
    // The line read last, 1-based.
    size_t lineNumber() const { return at_; }

    // After a match report's "Away shots" line: the lines up to and with the
    // first "MAN OF THE MATCH" go to `shown` (when given), then the lines up
    // to and with the next one and four more are passed over. False when the
    // file ends first.
    bool skipMatch(std::string* shown) {
        for (;;) {
            if (done()) return false;
            const std::string& l = next();
            if (shown) *shown += l + "\r\n";
            if (holds(l, kManOfTheMatch)) break;
        }
        for (;;) {
            if (done()) return false;
            if (holds(next(), kManOfTheMatch)) break;
        }
        for (int i = 0; i < 4; ++i) {
            if (done()) return false;
            next();
        }
        return true;
    }

private:
    const std::vector<std::string>& lines_;
    size_t at_ = 0;
};

// The harvest's working state over every club.
struct Harvest {
    Session& s;
    Messages& messages;
    std::string date;
    HistoryRecord working;  // a failure goes out with the NewValue of the last success
    bool memosCut = false;
    std::vector<std::string> cutShort;
    std::vector<std::string> unwritten;
    std::optional<std::vector<std::string>> emails;  // EMAILS.TXT, once asked for

    void memo(const std::string& to, const char* from, const std::string& line) {
        if (s.Memos.size() >= kMaxMemos) {
            memosCut = true;
        } else {
            s.Memos.push_back({to, from, line});
        }
        s.TickerText += line + "     ";
    }

    void attemptRecord(std::string_view line, std::vector<HistoryRecord>& out) {
        const size_t paren = place(line, "(");
        if (paren == 0) return;
        working.Date = date;
        working.Name = trim(mid(line, 18, long(paren) - 19));
        working.Position = trim(mid(line, long(paren) + 1, 4));
        working.Skill = mid(line, long(place(line, " in ")) + 4, 2);
        working.Result = holds(line, "potential reached") ? "P" : "N";
        out.push_back(working);
    }

    void increaseRecord(std::string_view line, std::vector<HistoryRecord>& out) {
        const size_t paren = place(line, "(");
        working.Date = date;
        working.Name = trim(mid(line, 1, long(paren) - 2));
        working.Position = trim(mid(line, long(paren) + 1, 4));
        working.Skill = mid(line, long(place(line, " his ")) + 5, 2);
        working.NewValue = wholeNumber(markerText(line, " to ", ""));
        working.Result = "Y";
        out.push_back(working);
    }

    ScoutRecord scoutRecord(std::string_view first, std::string_view second, std::string_view third) const {
        ScoutRecord r;
        r.Date = date;
        const size_t paren = place(first, "(");
        r.Name = trim(mid(first, 1, long(paren) - 2));
        r.Position = mid(first, long(paren) + 1, 4);
        const size_t close = place(first, ")");
        r.Club = mid(first, long(close) + 1, long(place(first, " was ")) - long(close) - 1);

        r.Age = wholeNumber(mid(second, 5, 2));
        r.TotalSkill = wholeNumber(trim(mid(second, long(place(second, " TS ")) + 4, 3)));
        const size_t eleven = place(second, "ELEVEN MAIN");
        if (eleven > 0) {
            const Tokens skills(mid(second, long(eleven) + 21, long(second.size())));
            for (size_t i = 0; i < 11 && skills.has(i + 1); ++i) r.Skills[i] = wholeNumber(skills[i + 1]);
        }

        const size_t potential = place(third, "POTENTIAL");
        if (potential > 0) r.Potential = wholeNumber(mid(third, long(potential) + 10, long(third.size())));
        r.Perf = numberBehind(third, " PERF ");
        r.Goals = numberBehind(third, " GLS ");
        r.TLFigure = numberBehind(third, " TL FIGURE ");
        r.Sign = numberBehind(third, " SIGNING FIGURE ");
        r.Value = val(markerText(third, " VALUE ", ""));
        r.International = markerText(third, " International? ", "").substr(0, 1);
        r.Retiring = markerText(third, " Retiring? ", "").substr(0, 1);
        r.Flinging = markerText(third, " Flinging? ", "").substr(0, 1);
        return r;
    }

    // Appends whole records to a file that may end in a part of one, which
    // the next record overwrites; the file is replaced whole, so a failure
    // leaves it as it was.
    void append(const fs::path& path, size_t recordLength, const std::string& records) {
        if (records.empty()) return;
        try {
            std::string bytes;
            std::error_code ec;
            if (fs::exists(path, ec)) bytes = readFileBytes(path);
            bytes.resize(bytes.size() / recordLength * recordLength);
            writeFileAtomic(path, bytes + records);
        } catch (const GameFileError& e) {
            unwritten.push_back(displayName(s.Folder, path) + " (" + e.detail() + ")");
        } catch (const WriteError& e) {
            unwritten.push_back(displayName(s.Folder, path) + " (" + e.reason + ")");
        }
    }

    void scoutFileInPlace() {
        std::error_code ec;
        if (!s.Prefs.ScoutFile.empty() && fs::exists(fs::path(s.Prefs.ScoutFile), ec)) return;
        const std::string fallback = (s.Folder.root() / "SCOUT.TXT").string();
        if (s.Prefs.ScoutFile == fallback) return;
        s.Prefs.ScoutFile = fallback;
        try {
            writeSettings(s.Folder.root(), s.Prefs);
        } catch (const WriteError& e) {
            messages.warn("Settings could not be saved", "The settings file " + e.path + " could not be written: " +
                                                             e.reason +
                                                             ". The scout history file is taken from the game "
                                                             "folder for this session only.");
        }
    }

    void club(const Club& club) {
        const fs::path sheet = s.Folder.resolve("Squadsheets/" + harvestSquadsheetName(club));
        std::error_code ec;
        if (!fs::exists(sheet, ec)) return;
        scoutFileInPlace();
        s.TickerText += club.Name + ":     ";

        std::vector<std::string> lines;
        try {
            lines = readLines(sheet);
        } catch (const GameFileError& e) {
            cutShort.push_back(displayName(s.Folder, sheet) + " could not be read (" + e.detail() + ")");
            return;
        }
        std::string manager = managerOfClubName(club);
        const std::string to = manager + " manager";
        std::vector<HistoryRecord> history;
        std::string scouts;

        Report report(lines);
        while (!report.done()) {
            const std::string& line = report.next();
            if (holds(line, "Attempt to coach") || holds(line, "increases his ")) {
                memo(to, "Coaching department", line);
                if (holds(line, "Attempt to coach")) attemptRecord(line, history);
                if (holds(line, "increases his ")) increaseRecord(line, history);
            } else if (holds(line, "treated with") || holds(line, "will be unable to play")) {
                memo(to, "Physio department", line);
            } else if (holds(line, "was scouted this week by")) {
                memo(to, "Club Scout", line);
            } else if (holds(line, "was scouted ")) {
                const size_t at = report.lineNumber();
                if (report.done()) {
                    cutShort.push_back(displayName(s.Folder, sheet) + " ends after line " + std::to_string(at) +
                                       ", inside a scout report");
                    break;
                }
                const std::string& second = report.next();
                if (report.done()) {
                    cutShort.push_back(displayName(s.Folder, sheet) + " ends after line " + std::to_string(at + 1) +
                                       ", inside a scout report");
                    break;
                }
                const std::string& third = report.next();
                scouts += scoutRecordBytes(scoutRecord(line, second, third));
            } else if (firstTeamCoachLine(line)) {
                memo(to, kFirstTeamCoach, line);
            } else if (harvestIgnores(line)) {
                continue;
            } else if (holds(line, kAwayShots)) {
                if (!report.skipMatch(nullptr)) {
                    cutShort.push_back(displayName(s.Folder, sheet) + " ends at line " +
                                       std::to_string(report.lineNumber()) + ", inside a match report");
                    break;
                }
            } else if (!blank(line) && !holds(line, "BOOKED")) {
                memo(to, kFirstTeamCoach, line);
            }
        }

        if (!s.NewTurn) return;
        std::string historyOut = historyBytes(history);
        append(s.Folder.resolve(club.ClubFile + "HST.TXT"), kHistoryRecordLength, historyOut);
        append(fs::path(s.Prefs.ScoutFile), kScoutRecordLength, scouts);
    }

    std::string managerOfClubName(const Club& club) {
        // Read once for every club: nothing of the harvest writes it.
        if (!emails) {
            emails.emplace();
            try {
                const fs::path path = s.Folder.resolve("Weekly/EMAILS.TXT");
                std::error_code ec;
                if (fs::exists(path, ec)) *emails = readLines(path);
            } catch (const GameFileError&) {
                // The managers list tells of an unreadable EMAILS.TXT.
            }
        }
        const std::string m = managerOfClub(*emails, club.Name);
        return m.empty() ? club.Name : m;
    }

    void tell() {
        if (memosCut)
            messages.warn("Too many weekly reports",
                          "Last week's reports hold more than " + std::to_string(kMaxMemos) +
                              " messages; the first " + std::to_string(kMaxMemos) +
                              " are kept as memos.\r\n\r\nThe Last Week screen shows every line of each club's "
                              "report.");
        auto list = [&](const std::vector<std::string>& items, const char* title, const char* opening,
                        const char* closing) {
            if (items.empty()) return;
            std::string text = opening;
            for (const std::string& item : items) text += "\r\n" + item;
            messages.warn(title, text + "\r\n\r\n" + closing);
        };
        list(cutShort, "Report cut short", "Last week's report could not be read to its end:",
             "What was read before that point is kept. Ask your game administrator for a complete copy if the "
             "report looks short.");
        list(unwritten, "History not saved", "Last week's coaching and scout reports could not be added to:",
             "The files are left as they were. Check that the game folder can be written to; the reports "
             "themselves are still on the Last Week screen.");
    }
};

}  // namespace

std::string harvestSquadsheetName(const Club& club) { return (club.ClubFile + "SQUAD").substr(0, 8) + ".TXT"; }

std::string turnDateOf(std::string_view stamp) {
    auto digit = [&](size_t i) { return std::isdigit(static_cast<unsigned char>(stamp[i])) != 0; };
    for (size_t i = 0; i + 10 <= stamp.size(); ++i) {
        if (digit(i) && digit(i + 1) && stamp[i + 2] == '/' && digit(i + 3) && digit(i + 4) && stamp[i + 5] == '/' &&
            digit(i + 6) && digit(i + 7) && digit(i + 8) && digit(i + 9))
            return std::string(stamp.substr(i + 6, 4)) + std::string(stamp.substr(i + 3, 2)) +
                   std::string(stamp.substr(i, 2));
    }
    return {};
}

void harvestReports(Session& session, Messages& messages) {
    session.Memos.clear();
    session.MemoShown = 0;
    session.TickerText.assign(90, ' ');
    Harvest h{session, messages, turnDateOf(session.TurnStamp), {}, false, {}, {}, {}};
    for (const Club& club : session.Clubs) h.club(club);
    if (session.NewTurn) {
        if (session.Folder.exists("adm.kst")) {
            std::error_code ec;
            fs::remove(session.Folder.resolve("adm.kst"), ec);
            if (ec)
                messages.warn("Weekly Administration order not cleared",
                              "The file " + displayName(session.Folder, session.Folder.resolve("adm.kst")) +
                                  " could not be deleted: " + ec.message() +
                                  ".\r\n\r\nLast week's Weekly Administration order still shows; delete the "
                                  "file by hand or place a new order.");
        }
        session.StatsRefreshDue = true;
    }
    if (!session.Memos.empty()) session.MemoShown = 1;
    h.tell();
}

LastWeekBoxes lastWeekBoxesOf(const std::vector<std::string>& lines) {
    LastWeekBoxes box;
    std::string& coach = box[0];
    std::string& physio = box[1];
    std::string& injuries = box[2];
    std::string& scout = box[3];
    std::string& results = box[4];
    std::string& one = box[5];
    std::string& other = box[6];
    Report report(lines);
    while (!report.done()) {
        const std::string& line = report.next();
        const std::string added = line + "\r\n";
        if (holds(line, "increases his ") || holds(line, "Attempt to coach")) {
            coach += added;
        } else if (holds(line, "treated with")) {
            physio += added;
        } else if (holds(line, "will be unable to play")) {
            injuries += added;
        } else if (holds(line, "was scouted this week by")) {
            continue;
        } else if (holds(line, "was scouted ")) {
            scout += added;
            for (int i = 0; i < 2 && !report.done(); ++i) scout += report.next() + "\r\n";
            scout += "\r\n";
        } else if (holds(line, kAwayShots)) {
            results += added;
            const bool whole = report.skipMatch(&results);
            results += "\r\n";
            if (!whole) break;
        } else if (firstTeamCoachLine(line)) {
            one += added;
        } else if (!blank(line) && !holds(line, "BOOKED") && !holds(line, "SENT OFF")) {
            other += added;
        }
    }
    return box;
}

LastWeekBoxes lastWeekBoxes(const Session& session, const Club& club) {
    const std::string name = "Squadsheets/" + harvestSquadsheetName(club);
    if (!session.Folder.exists(name)) return {};
    return lastWeekBoxesOf(readLines(session.Folder.resolve(name)));
}

}  // namespace kestrin
