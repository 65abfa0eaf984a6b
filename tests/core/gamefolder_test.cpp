#include <gtest/gtest.h>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "support/testsupport.h"

using namespace kestrin;

TEST(Wildcard, MatchesWithoutRegardToCase) {
    struct Case {
        const char* pattern;
        const char* name;
        bool want;
    } cases[] = {
        {"*sq*.txt", "ROVSQU.TXT", true}, {"*sq*.txt", "rovers.txt", false}, {"*sq*.txt", "rovsqu.txt.bak", false},
        {"*#*.*", "ab.txt", false},       {"?b*", "ab", true},               {"*", "", true},
        {"a*b*c", "aXbYbZc", true},       {"a*b*c", "aXbYbZ", false},
    };
    for (const Case& c : cases) EXPECT_EQ(wildcardMatch(c.pattern, c.name), c.want) << c.pattern << " " << c.name;
}

TEST(GameFolder, ResolvesAndListsWithoutRegardToCase) {
    test::TempDir dir;
    dir.write("Weekly/EMAILS.TXT", "x");
    dir.write("squadsheets/Zedsqu.txt", "z");
    dir.write("squadsheets/abcSQU.txt", "a");
    dir.write("squadsheets/Mid_sq.TXT", "m");
    dir.write("squadsheets/notes.txt", "n");
    GameFolder folder(dir.path());

    EXPECT_EQ(folder.resolve("\\weekly\\Emails.txt"), dir.path() / "Weekly" / "EMAILS.TXT");
    EXPECT_EQ(folder.resolve("Weekly/new.txt"), dir.path() / "Weekly" / "new.txt");
    EXPECT_EQ(folder.resolve("Turnsheet/x.txt"), dir.path() / "Turnsheet" / "x.txt");
    EXPECT_TRUE(folder.exists("WEEKLY/emails.txt"));

    std::vector<std::string> want = {"abcSQU.txt", "Mid_sq.TXT", "Zedsqu.txt"};
    EXPECT_EQ(folder.list("Squadsheets", "*sq*.txt"), want);
    EXPECT_TRUE(folder.list("Nowhere", "*").empty());
}

TEST(Lines, ReadLfAndCrLfAndWriteCrLf) {
    EXPECT_EQ(splitLines("a\r\nb\nc"), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(splitLines("a\r\n\r\n"), (std::vector<std::string>{"a", ""}));
    EXPECT_TRUE(splitLines("").empty());
    EXPECT_EQ(joinCrLf({"a", "", "b"}), "a\r\n\r\nb\r\n");
}

TEST(AtomicWrite, AFailedWriteKeepsTheOldFileAndLeavesNoTemporary) {
    test::TempDir dir;
    auto path = dir.write("Turnsheet/club.txt", "old orders\r\n");
    atomicWriteFaultHook = [](const fs::path&) { throw WriteError("x", "disk full"); };
    EXPECT_THROW(writeFileAtomic(path, "new orders\r\n"), WriteError);
    atomicWriteFaultHook = nullptr;
    EXPECT_EQ(dir.read("Turnsheet/club.txt"), "old orders\r\n");
    int files = 0;
    for (const auto& e : fs::directory_iterator(dir.path() / "Turnsheet")) (void)e, ++files;
    EXPECT_EQ(files, 1);

    writeFileAtomic(path, "new orders\r\n");
    EXPECT_EQ(dir.read("Turnsheet/club.txt"), "new orders\r\n");
    EXPECT_THROW(writeFileAtomic(dir.path() / "missing" / "x.txt", "y"), WriteError);
}

TEST(AtomicWrite, UnreadableFileIsAGameFileError) {
    test::TempDir dir;
    dir.write("folder.txt/inside", "x");  // a folder where a file is looked for
    for (const char* name : {"nothing.txt", "folder.txt"}) {
        try {
            readLines(dir.path() / name);
            FAIL() << "no error for " << name;
        } catch (const GameFileError& e) {
            EXPECT_EQ(e.file, name);
            EXPECT_EQ(e.line, 0);
        }
    }
}
