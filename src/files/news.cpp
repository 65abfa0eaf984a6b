#include "files/news.h"

#include <algorithm>

#include "core/errors.h"
#include "core/text.h"
#include "orders/playerdetails.h"

namespace kestrin {

std::vector<NewsItem> fillNewsList(const GameFolder& folder) {
    std::vector<NewsItem> out;
    const fs::path weekly = folder.resolve("Weekly");
    for (const std::string& name : folder.list("Weekly", "*.*")) {
        if (equalsNoCase(name, "CLUBSQUA.TXT")) continue;  // the club export is no news
        std::string title;
        try {
            const std::string bytes = readFileBytes(weekly / name);
            std::string_view first;
            if (LineWalker(bytes).next(first)) title = first;
        } catch (const GameFileError&) {
            // Shown by its name; opening it tells the manager what is wrong.
        }
        if (trim(title).empty()) title = name;
        out.push_back({std::move(title), name});
    }
    return out;
}

std::string newsText(const GameFolder& folder, const std::string& file) {
    return joinCrLf(readLines(folder.resolve("Weekly") / file));
}

std::vector<ManagerEntry> parseManagers(const std::vector<std::string>& lines) {
    std::vector<ManagerEntry> out;
    for (const std::string& line : lines) {
        if (line.find('@') == std::string::npos) continue;
        const std::string name = fixedWidth(trim(markerText(line, " (", ")")), 20);
        const std::string key = trim(name);
        if (std::any_of(out.begin(), out.end(), [&](const ManagerEntry& m) { return trim(m.Manager) == key; }))
            continue;
        out.push_back({key, trim(fixedWidth(trim(markerText(line, " - ", " (")), 40))});
    }
    return out;
}

std::vector<ManagerEntry> readManagers(const GameFolder& folder) {
    if (!folder.exists("Weekly/EMAILS.TXT")) return {};
    return parseManagers(readLines(folder.resolve("Weekly/EMAILS.TXT")));
}

std::vector<std::string> emailToList(const std::vector<ManagerEntry>& managers) {
    std::vector<std::string> out{std::string(kAllManagers)};
    for (const ManagerEntry& m : managers) out.push_back(m.Manager);
    return out;
}

std::string managerOfClub(const std::vector<std::string>& emailLines, const std::string& clubName) {
    const std::string want = trim(clubName);
    for (const std::string& line : emailLines) {
        const size_t dash = line.find(" - ");
        if (line.find('@') == std::string::npos || dash == std::string::npos) continue;
        if (equalsNoCase(trim(std::string_view(line).substr(0, dash)), want)) return trim(markerText(line, " (", ")"));
    }
    return {};
}

std::string readNotepad(const GameFolder& folder) {
    if (!folder.exists(kNotepadFile)) return {};
    return joinCrLf(readLines(folder.resolve(kNotepadFile)));
}

void writeNotepad(const GameFolder& folder, std::string_view text) {
    writeFileAtomic(folder.resolve(kNotepadFile), text);
}

bool notepadHasNotes(const GameFolder& folder) {
    if (!folder.exists(kNotepadFile)) return false;
    try {
        for (const std::string& line : readLines(folder.resolve(kNotepadFile)))
            if (!trim(line).empty()) return true;
    } catch (const GameFileError&) {
        // An unreadable notepad only loses the reminder.
    }
    return false;
}

MemoView memoView(const std::vector<Memo>& memos, int n) {
    MemoView v;
    const int count = int(memos.size());
    if (n < 1 || n > count) return v;
    const Memo& m = memos[size_t(n - 1)];
    v.To = "To: " + m.To;
    v.From = "From: " + m.From;
    v.Text = m.Text;
    v.Counter = std::to_string(n) + " of " + std::to_string(count);
    v.PreviousOn = n != 1;
    v.NextOn = n != count;
    return v;
}

ReplayKind replayKind(int warnings, size_t memoCount) {
    if (warnings == 1) return ReplayKind::Ticker;
    if (warnings == 0 && memoCount > 0) return ReplayKind::Memos;
    return ReplayKind::Nothing;
}

std::string tickerStep(const std::string& text, int& pos) {
    if (pos <= 0 || size_t(pos) > text.size()) pos = 1;
    std::string window = text.substr(size_t(pos - 1), kTickerWidth);
    window.resize(kTickerWidth, ' ');
    ++pos;
    return window;
}

}  // namespace kestrin
