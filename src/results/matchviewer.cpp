#include "results/matchviewer.h"

#include <algorithm>
#include <array>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin::results {

namespace {

bool holds(std::string_view line, std::string_view what) { return line.find(what) != std::string_view::npos; }

// The game's markers of play on the pitch, each a line of its own.
constexpr std::array<std::string_view, 9> kPitchMarkers = {"M", "A", "H", "HG", "HS", "HH", "AS", "AG", "AH"};
// The possession figures, which the replay leaves out.
constexpr std::array<std::string_view, 7> kHiddenPhrases = {
    "Last ten minutes possession", "Broken down as follows", "Home def - away att", "Home mid - away mid",
    "Home att - away def",         "minutes gone",           "Possession breakdowns"};

bool hexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

}  // namespace

std::optional<ViewerEvent> lineEvent(std::string_view line) {
    const std::string l = lower(line);
    const bool thisSeason = holds(l, "this season");
    if (holds(l, "booked") && !thisSeason) return ViewerEvent::Booking;
    if (holds(l, "sent off") && !thisSeason) return ViewerEvent::SendingOff;
    if (holds(l, "scored")) return ViewerEvent::Goal;
    if (holds(l, "a corner")) return ViewerEvent::Corner;
    if (holds(l, "replaced")) return ViewerEvent::Substitution;
    if (holds(l, "analysis") || holds(l, "adjusted")) return ViewerEvent::TacticalChange;
    if (holds(l, "blows")) return ViewerEvent::FullTime;
    return std::nullopt;
}

// The number stands up to the line's last character, which closes it.
std::optional<ReportColour> reportColour(std::string_view line) {
    if (line.empty()) return std::nullopt;
    std::string_view n = trimView(line.substr(0, line.size() - 1));
    if (!n.empty() && n.back() == '&') n = trimView(n.substr(0, n.size() - 1));  // blanks behind the closing "&"
    if (n.size() < 3 || n[0] != '&' || (n[1] != 'H' && n[1] != 'h')) return std::nullopt;
    n.remove_prefix(2);
    if (!std::all_of(n.begin(), n.end(), hexDigit)) return std::nullopt;
    const size_t lead = std::min(n.find_first_not_of('0'), n.size());
    if (n.size() - lead > 8) throw FieldError("a colour of at most eight hexadecimal figures, such as &H00FFFF00&",
                                              std::string(line));
    return ReportColour(std::stoul(std::string(n), nullptr, 16));
}

MatchReplay::MatchReplay(std::vector<std::string> lines, std::string shownName) : lines_(std::move(lines)) {
    for (const std::string& l : lines_)
        if (holds(l, "REFEREE BLOWS")) {
            finished_ = true;
            break;
        }
    // A broken colour pair is told before the replay starts, never half-way.
    MatchReplay dry = *this;
    try {
        while (dry.running_) dry.tick(0);
    } catch (const FieldError& e) {
        throw GameFileError(shownName, int(dry.next_), e.expected, e.found);
    }
}

MatchReplay MatchReplay::fromFile(const std::filesystem::path& path, const std::string& shownName) {
    std::vector<std::string> lines;
    try {
        lines = readLines(path);
    } catch (const GameFileError& e) {
        throw GameFileError(shownName, e.line, e.expected, e.found);
    }
    return MatchReplay(std::move(lines), shownName);
}

std::string MatchReplay::closingStatistics() const {
    for (size_t i = 0; i < lines_.size(); ++i) {
        const size_t at = lines_[i].find("Style");
        if (at == std::string::npos) continue;
        std::vector<std::string> rest(lines_.begin() + long(i), lines_.end());
        rest.front().erase(0, at);
        return joinCrLf(rest);
    }
    return {};
}

ViewerTick MatchReplay::tick(int speed) {
    ViewerTick t;
    if (!running_) return t;
    if (next_ >= lines_.size()) {
        running_ = false;
        t.kind = ViewerTick::Kind::Ended;
        return t;
    }
    // Stop is heard while paused too: a paused replay must still be stoppable.
    if (stopAsked_) {
        running_ = stopAsked_ = paused_ = false;
        t.kind = ViewerTick::Kind::Stopped;
        return t;
    }
    if (paused_) return t;
    t.kind = ViewerTick::Kind::Line;
    const std::string& line = lines_[next_++];
    if (!firstLineDone_) {
        homeName_ = trim(markerText(line, "", " v "));
        firstLineDone_ = true;
    }
    t.intervalMs = line == kSectionLine ? kSectionPauseMs : kSlowestIntervalMs - speed;

    // The scoreboard line, the pitch markers and the possession figures are not shown.
    if (!homeName_.empty() && holds(line, homeName_ + ",")) return t;
    if (std::find(kPitchMarkers.begin(), kPitchMarkers.end(), line) != kPitchMarkers.end()) return t;
    for (std::string_view p : kHiddenPhrases)
        if (holds(line, p)) return t;

    if (!halfTimeShown_ && holds(line, "mins - ") && val(markerText(line, "", "mins - ")) > 45) {
        halfTimeShown_ = true;
        t.events.push_back(ViewerEvent::HalfTime);
    }
    if (startsWith(line, "&")) {
        // A colour pair: a line without a number keeps the colour it would set.
        if (const auto c = reportColour(line)) back_ = *c;
        if (next_ >= lines_.size())
            throw FieldError("a second colour line (the text's colour) after the background's", "");
        if (const auto c = reportColour(lines_[next_++])) fore_ = *c;
        return t;
    }
    showLine(line, t);
    return t;
}

void MatchReplay::showLine(const std::string& line, ViewerTick& t) {
    if (back_ == fore_) {  // no line is ever invisible
        back_ = kReportWhite;
        fore_ = kReportBlue;
    }
    if (line.empty()) {
        t.rows.push_back({" ", back_, fore_});
    } else if (line.size() <= kViewerRowWidth) {
        t.rows.push_back({line, back_, fore_});
    } else {
        for (size_t at = 0; at < line.size(); at += kViewerRowWidth)
            t.rows.push_back({trim(std::string_view(line).substr(at, kViewerRowWidth)), back_, fore_});
    }
    if (const auto e = lineEvent(line)) t.events.push_back(*e);
}

std::vector<std::string> searchTerms(std::string_view text) {
    std::vector<std::string> terms;
    size_t from = 0;
    while (from <= text.size()) {
        const size_t comma = std::min(text.find(',', from), text.size());
        std::string term = lower(trim(text.substr(from, comma - from)));
        if (!term.empty()) terms.push_back(std::move(term));
        from = comma + 1;
    }
    return terms;
}

std::vector<ViewerRow> searchReport(const std::vector<std::string>& lines, const std::vector<std::string>& terms) {
    std::vector<ViewerRow> rows;
    ReportColour back = kReportWhite, fore = kReportBlue;
    for (size_t i = 0; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        if (startsWith(line, "&")) {
            try {
                if (const auto c = reportColour(line)) back = *c;
                if (i + 1 < lines.size())
                    if (const auto c = reportColour(lines[++i])) fore = *c;
            } catch (const FieldError&) {  // a colour out of range is no text to find
            }
            if (back == fore) back = kReportWhite, fore = kReportBlue;
            continue;
        }
        const std::string l = lower(line);
        if (std::any_of(terms.begin(), terms.end(), [&](const std::string& t) { return holds(l, lower(t)); }))
            rows.push_back({trim(line), back, fore});
    }
    return rows;
}

}  // namespace kestrin::results
