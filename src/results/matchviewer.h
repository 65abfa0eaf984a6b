#pragma once
// The Match viewer's reader: one match report replayed line by line, a line a
// tick, as rows with their colours and the events that bring up a picture.
// The timer lives in the screen; this only answers "what does the next tick
// show", so tests step it without a clock.
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrin::results {

// Colours as the report writes them, "&H00BBGGRR&": red in the low byte.
using ReportColour = uint32_t;
inline constexpr ReportColour kReportWhite = 0xFFFFFF;
inline constexpr ReportColour kReportBlue = 0xFF0000;

// A report line is cut into rows of this many characters.
inline constexpr size_t kViewerRowWidth = 106;
// The line between sections, which always holds the replay for kSectionPauseMs.
inline constexpr std::string_view kSectionLine = "-------------------------------------------";
inline constexpr int kSectionPauseMs = 1100;
// The timer's interval is this less the speed slider's value.
inline constexpr int kSlowestIntervalMs = 1100;

enum class ViewerEvent { Booking, SendingOff, Goal, Corner, Substitution, TacticalChange, HalfTime, FullTime };

struct ViewerRow {
    std::string text;
    ReportColour back = kReportWhite;
    ReportColour fore = kReportBlue;
    bool operator==(const ViewerRow&) const = default;
};

struct ViewerTick {
    enum class Kind {
        Idle,     // nothing: not running, or paused
        Line,     // a line was read (hidden lines too: `rows` is then empty)
        Ended,    // the report is read to its end
        Stopped,  // Stop was asked for
    };
    Kind kind = Kind::Idle;
    std::vector<ViewerRow> rows;
    std::vector<ViewerEvent> events;  // half time first, then the line's own
    std::optional<int> intervalMs;    // the timer's next interval, when it changes
};

// The event a shown line brings, by the first phrase it holds in this order.
std::optional<ViewerEvent> lineEvent(std::string_view line);

// The colour of a line of a colour pair ("&H00FFFF00&"), or nothing when the
// line holds no number. Throws FieldError when the number is too big for a colour.
std::optional<ReportColour> reportColour(std::string_view line);

class MatchReplay {
public:
    // Reads the whole report. `shownName` names it in a GameFileError, which
    // is thrown when it can't be read or a colour pair is broken.
    MatchReplay(std::vector<std::string> lines, std::string shownName);
    static MatchReplay fromFile(const std::filesystem::path& path, const std::string& shownName);

    // A finished match: the report holds the referee's final whistle.
    bool finished() const { return finished_; }
    // The closing statistics: the report from its first "Style" on.
    std::string closingStatistics() const;

    bool running() const { return running_; }
    bool paused() const { return paused_; }
    void setPaused(bool paused) { paused_ = paused; }
    // Asks the next tick to stop.
    void askStop() { stopAsked_ = true; }

    // One tick of the timer; `speed` is the speed slider's value.
    ViewerTick tick(int speed);

    const std::string& homeName() const { return homeName_; }

private:
    void showLine(const std::string& line, ViewerTick& t);

    std::vector<std::string> lines_;
    size_t next_ = 0;
    bool finished_ = false;
    bool running_ = true;
    bool paused_ = false;
    bool stopAsked_ = false;
    bool halfTimeShown_ = false;
    bool firstLineDone_ = false;
    std::string homeName_;
    ReportColour back_ = 0, fore_ = 0;
};

// The comma-separated words of the search box, trimmed; empty ones are dropped.
std::vector<std::string> searchTerms(std::string_view text);
// Every line of the report holding one of the terms, whatever their case, one
// row a line, trimmed, in the colours the report gives it. Colour pairs are
// not report text and are never found.
std::vector<ViewerRow> searchReport(const std::vector<std::string>& lines, const std::vector<std::string>& terms);

}  // namespace kestrin::results
