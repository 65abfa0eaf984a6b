#include <gtest/gtest.h>

#include "core/errors.h"
#include "files/news.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;

TEST(Managers, OneEntryPerManagerInFileOrder) {
    const std::vector<std::string> lines{
        "MANAGERS OF THE LEAGUE",
        "Club - address (manager)",
        "",
        "Ashby Town - ann@example.org (Ann Lee)",
        "No address here (Bob Ray)",
        "Kestrel Rovers - pat@example.org (Pat Quinn)",
        "Ashby United - ann.other@example.org (Ann Lee)",
        "Deep Dale - long@example.org (Maximilian Featherstonehaugh)",
        "Deep Dale Res - longer@example.org (Maximilian Featherstonehaugh-Smythe)",
    };
    const std::vector<ManagerEntry> want{{"Ann Lee", "ann@example.org"},
                                         {"Pat Quinn", "pat@example.org"},
                                         {"Maximilian Featherst", "long@example.org"}};
    EXPECT_EQ(parseManagers(lines), want);
    EXPECT_EQ(emailToList(want), (std::vector<std::string>{"(All Managers)", "Ann Lee", "Pat Quinn",
                                                            "Maximilian Featherst"}));
}

TEST(News, EveryWeeklyFileButTheClubExportWithItsFirstLine) {
    TempDir t;
    t.write("Weekly/clubsqua.txt", "SQUADS\r\n");
    t.write("Weekly/NEWSINC.TXT", "News - skills that rose\r\nAshby Town - Al Fry (MIDC) ...\r\n");
    t.write("Weekly/codes.txt", "CLUB CODES\nAshby Town - 0001\n");
    t.write("Weekly/EMPTY.TXT", "");
    const GameFolder folder(t.path());
    EXPECT_EQ(fillNewsList(folder), (std::vector<NewsItem>{{"CLUB CODES", "codes.txt"},
                                                           {"EMPTY.TXT", "EMPTY.TXT"},
                                                           {"News - skills that rose", "NEWSINC.TXT"}}));
    EXPECT_EQ(newsText(folder, "codes.txt"), "CLUB CODES\r\nAshby Town - 0001\r\n");
    EXPECT_THROW(newsText(folder, "GONE.TXT"), GameFileError);
}

TEST(Notepad, WrittenWholeAndReadBack) {
    TempDir t;
    const GameFolder folder(t.path());
    EXPECT_EQ(readNotepad(folder), "");
    EXPECT_FALSE(notepadHasNotes(folder));
    writeNotepad(folder, "  \r\n");
    EXPECT_FALSE(notepadHasNotes(folder));
    writeNotepad(folder, "Sell the keeper\r\nWatch the wingers");
    EXPECT_TRUE(notepadHasNotes(folder));
    EXPECT_EQ(readNotepad(folder), "Sell the keeper\r\nWatch the wingers\r\n");
    // A write that fails leaves the notes as they were.
    atomicWriteFaultHook = [](const fs::path& tmp) { throw WriteError(tmp.string(), "No space left on device"); };
    EXPECT_THROW(writeNotepad(folder, ""), WriteError);
    atomicWriteFaultHook = nullptr;
    EXPECT_EQ(t.read("notepad.kst"), "Sell the keeper\r\nWatch the wingers");
}

TEST(Memos, WindowAndReplay) {
    const std::vector<Memo> memos{{"Pat manager", "Club Scout", "one"}, {"Pat manager", "Physio department", "two"}};
    const MemoView first = memoView(memos, 1), last = memoView(memos, 2);
    EXPECT_EQ(first.To, "To: Pat manager");
    EXPECT_EQ(first.From, "From: Club Scout");
    EXPECT_EQ(first.Counter, "1 of 2");
    EXPECT_FALSE(first.PreviousOn);
    EXPECT_TRUE(first.NextOn);
    EXPECT_EQ(last.Text, "two");
    EXPECT_TRUE(last.PreviousOn);
    EXPECT_FALSE(last.NextOn);
    const MemoView only = memoView({memos[0]}, 1);
    EXPECT_FALSE(only.PreviousOn || only.NextOn);

    EXPECT_EQ(replayKind(1, 0), ReplayKind::Ticker);
    EXPECT_EQ(replayKind(0, 2), ReplayKind::Memos);
    EXPECT_EQ(replayKind(0, 0), ReplayKind::Nothing);
}

TEST(Ticker, MovesOneCharacterATickAndStartsAgain) {
    const std::string text = "ABC";
    int pos = 0;
    EXPECT_EQ(tickerStep(text, pos), "ABC" + std::string(97, ' '));
    EXPECT_EQ(tickerStep(text, pos), "BC" + std::string(98, ' '));
    EXPECT_EQ(tickerStep(text, pos), "C" + std::string(99, ' '));
    EXPECT_EQ(pos, 4);
    EXPECT_EQ(tickerStep(text, pos), "ABC" + std::string(97, ' '));
    const std::string longText(150, 'x');
    pos = 51;
    EXPECT_EQ(tickerStep(longText, pos), std::string(100, 'x'));
    EXPECT_EQ(tickerStep(longText, pos), std::string(99, 'x') + " ");
}
