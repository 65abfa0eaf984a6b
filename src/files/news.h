#pragma once
// The small text services: the week's news, the managers of the game, the
// manager's notepad, the memo window and the ticker tape.
#include <string>
#include <vector>

#include "core/gamefolder.h"
#include "core/records.h"

namespace kestrin {

// Every file of Weekly/ but CLUBSQUA.TXT, in listing order, with its first
// line as the title (the file's name when it is empty).
std::vector<NewsItem> fillNewsList(const GameFolder& folder);
// The lines of Weekly/<file>, each followed by CR LF. Throws GameFileError.
std::string newsText(const GameFolder& folder, const std::string& file);

// Weekly/EMAILS.TXT: one entry per manager, in file order; a manager of
// several clubs stands once, with the address of his first line. No file
// gives no managers.
std::vector<ManagerEntry> readManagers(const GameFolder& folder);
std::vector<ManagerEntry> parseManagers(const std::vector<std::string>& lines);
// EmailTo: "(All Managers)" and then the managers' names.
std::vector<std::string> emailToList(const std::vector<ManagerEntry>& managers);
// The manager of a club by its name in the lines of EMAILS.TXT ("" when not
// there).
std::string managerOfClub(const std::vector<std::string>& emailLines, const std::string& clubName);

// notepad.kst: the notes as one text, each line followed by CR LF ("" when
// there is no file). Writing replaces the file atomically; throws WriteError.
inline constexpr const char* kNotepadFile = "notepad.kst";
std::string readNotepad(const GameFolder& folder);
void writeNotepad(const GameFolder& folder, std::string_view text);
// At least one non-empty line.
bool notepadHasNotes(const GameFolder& folder);

// The memo window for memo n (1-based) of `memos`.
struct MemoView {
    std::string To;       // "To: " + To
    std::string From;     // "From: " + From
    std::string Text;
    std::string Counter;  // "n of M"
    bool PreviousOn = false;
    bool NextOn = false;
};
MemoView memoView(const std::vector<Memo>& memos, int n);

// What the main menu's replay of the weekly reports does, by the preference
// Warnings: 1 the ticker, 0 the memos when there are any, else nothing.
enum class ReplayKind { Nothing, Ticker, Memos };
ReplayKind replayKind(int warnings, size_t memoCount);

// One step of the ticker tape: 100 characters of the text from `pos`
// (1-based; 0 or past the end starts again at 1), padded with blanks; `pos`
// then moves on by one.
inline constexpr size_t kTickerWidth = 100;
std::string tickerStep(const std::string& text, int& pos);

}  // namespace kestrin
