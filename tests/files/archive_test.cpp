#include <gtest/gtest.h>
#include <zip.h>

#include <ctime>

#include "core/gamefolder.h"
#include "files/archive.h"
#include "support/testsupport.h"

using namespace kestrin;
using kestrin::test::TempDir;

namespace {

struct RawEntry {
    std::string name;
    std::string bytes;
    bool symlink = false;
};

// An archive written straight through the library, so that it may hold what
// our own writer would never write.
void rawZip(const fs::path& path, const std::vector<RawEntry>& entries) {
    int err = 0;
    zip_t* z = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
    ASSERT_NE(z, nullptr);
    for (const RawEntry& e : entries) {
        zip_source_t* src = zip_source_buffer(z, e.bytes.data(), e.bytes.size(), 0);
        const zip_int64_t i = zip_file_add(z, e.name.c_str(), src, ZIP_FL_ENC_RAW);
        ASSERT_GE(i, 0) << e.name;
        if (e.symlink) {
            ASSERT_EQ(zip_file_set_external_attributes(z, zip_uint64_t(i), 0, ZIP_OPSYS_UNIX, zip_uint32_t(0120777) << 16),
                      0);
        }
    }
    ASSERT_EQ(zip_close(z), 0);
}

std::string pseudoRandomBytes(size_t n) {
    std::string s(n, '\0');
    uint32_t x = 2463534242u;
    for (char& c : s) {
        x ^= x << 13;
        x ^= x >> 17;
        x ^= x << 5;
        c = char(x & 0xFF);
    }
    return s;
}

bool emptyFolder(const fs::path& p) { return !fs::exists(p) || fs::is_empty(p); }

const char* kOutsideText =
    "\", which would be written outside the game folder. Nothing was unpacked; ask your game administrator for a new "
    "archive.";

}  // namespace

TEST(Archive, WrittenEntriesListAndExtractByteForByte) {
    TempDir t;
    std::string every(256, '\0');
    for (int i = 0; i < 256; ++i) every[size_t(i)] = char(i);
    const std::vector<ZipEntry> entries = {
        {"abcSQUA.TXT", "Club and player information for Ashcombe Rovers\r\n"},
        {"Sub/bytes.bin", every},
        {"empty.txt", ""},
        {"big.txt", pseudoRandomBytes(200000)},  // more than one read buffer
    };
    const fs::path zip = t.path() / "squad.zip";
    writeZip(zip, entries);
    EXPECT_FALSE(fs::exists(t.path() / "squad.zip.part"));

    EXPECT_EQ(listZip(zip), (std::vector<std::string>{"abcSQUA.TXT", "Sub/bytes.bin", "empty.txt", "big.txt"}));

    const fs::path out = t.path() / "out";
    const std::vector<fs::path> written = extractZip(zip, out);
    ASSERT_EQ(written.size(), entries.size());
    for (const ZipEntry& e : entries) EXPECT_TRUE(t.read("out/" + e.name) == e.bytes) << e.name;

    // A chosen entry alone, named without regard to case.
    const fs::path one = t.path() / "one";
    EXPECT_EQ(extractZip(zip, one, {"SUB/BYTES.BIN"}).size(), 1u);
    EXPECT_TRUE(t.read("one/Sub/bytes.bin") == every);
    EXPECT_FALSE(fs::exists(one / "abcSQUA.TXT"));
}

TEST(Archive, DatedEntriesCarryTheirDateNotNow) {
    TempDir t;
    std::tm tm{};
    tm.tm_year = 2025 - 1900;
    tm.tm_mon = 7;
    tm.tm_mday = 23;
    tm.tm_hour = 12;
    tm.tm_isdst = -1;
    const std::time_t when = std::mktime(&tm);
    writeZip(t.path() / "a.zip", {{"clubsqua.txt", "x\r\n"}, {"b.txt", "y"}}, when);

    int err = 0;
    zip_t* z = zip_open((t.path() / "a.zip").c_str(), ZIP_RDONLY, &err);
    ASSERT_NE(z, nullptr);
    for (zip_uint64_t i = 0; i < 2; ++i) {
        zip_stat_t st;
        ASSERT_EQ(zip_stat_index(z, i, 0, &st), 0);
        EXPECT_EQ(st.mtime, when) << st.name;
    }
    zip_discard(z);
}

TEST(Archive, HostileEntriesAreRefusedBeforeAnythingIsWritten) {
    TempDir t;
    const fs::path outside = t.path() / "outside" / "evil.txt";
    fs::create_directories(outside.parent_path());
    struct Case {
        const char* what;
        std::vector<RawEntry> entries;
        std::string message;
    } cases[] = {
        {"a parent folder", {{"good.txt", "fine"}, {"../evil.txt", "owned"}},
         "The archive hostile.zip holds the entry \"../evil.txt" + std::string(kOutsideText)},
        {"a parent folder further in", {{"Sub/../../evil.txt", "owned"}},
         "The archive hostile.zip holds the entry \"Sub/../../evil.txt" + std::string(kOutsideText)},
        {"a parent folder the other way", {{"..\\evil.txt", "owned"}},
         "The archive hostile.zip holds the entry \"..\\evil.txt" + std::string(kOutsideText)},
        {"an absolute path", {{"good.txt", "fine"}, {outside.string(), "owned"}},
         "The archive hostile.zip holds the entry \"" + outside.string() + std::string(kOutsideText)},
        {"a drive letter", {{"C:evil.txt", "owned"}},
         "The archive hostile.zip holds the entry \"C:evil.txt" + std::string(kOutsideText)},
        {"a symbolic link", {{"good.txt", "fine"}, {"link", outside.string(), true}},
         "The archive hostile.zip holds the entry \"link\", a link to another place on the disk. Nothing was "
         "unpacked; ask your game administrator for a new archive."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const fs::path zip = t.path() / "hostile.zip";
        rawZip(zip, c.entries);
        const fs::path target = t.path() / "Squadsheets" / "Sub";
        fs::create_directories(target);
        try {
            extractZip(zip, target);
            ADD_FAILURE() << "extracted";
        } catch (const ArchiveError& e) {
            EXPECT_EQ(std::string(e.what()), c.message);
        }
        EXPECT_TRUE(emptyFolder(target)) << "something was written inside the target";
        EXPECT_FALSE(fs::exists(outside));
        EXPECT_FALSE(fs::exists(t.path() / "evil.txt"));
        EXPECT_FALSE(fs::exists(t.path() / "Squadsheets" / "evil.txt"));
        fs::remove_all(t.path() / "Squadsheets");
    }
}

TEST(Archive, DamagedArchivesAreRefusedAndNothingIsWritten) {
    TempDir t;
    const fs::path good = t.path() / "good.zip";
    writeZip(good, {{"a.txt", pseudoRandomBytes(5000)}, {"b.txt", std::string(50000, 'b') + pseudoRandomBytes(3000)}});
    const std::string bytes = readFileBytes(good);

    // Cut in half: the archive's directory is gone.
    t.write("half.zip", bytes.substr(0, bytes.size() / 2));
    // Whole directory, but the second entry's data spoilt.
    std::string spoilt = bytes;
    const size_t second = spoilt.find("PK\x03\x04", 4);
    ASSERT_NE(second, std::string::npos);
    for (size_t i = second + 60; i < second + 200; ++i) spoilt[i] = char(~spoilt[i]);
    t.write("spoilt.zip", spoilt);

    struct Case {
        const char* file;
        std::string starts;
        std::string ends;
    } cases[] = {
        {"half.zip", "The archive half.zip is damaged and can't be read (", "). Ask for the file to be sent again."},
        {"spoilt.zip", "The archive spoilt.zip is damaged: the entry \"b.txt\"", ". Ask for the file to be sent again."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        const fs::path target = t.path() / "Weekly";
        fs::create_directories(target);
        try {
            extractZip(t.path() / c.file, target);
            ADD_FAILURE() << "extracted";
        } catch (const ArchiveError& e) {
            const std::string text = e.what();
            EXPECT_EQ(text.substr(0, c.starts.size()), c.starts) << text;
            ASSERT_GE(text.size(), c.ends.size());
            EXPECT_EQ(text.substr(text.size() - c.ends.size()), c.ends) << text;
        }
        EXPECT_TRUE(emptyFolder(target)) << "a damaged archive left files behind";
        fs::remove_all(target);
    }
    EXPECT_THROW(listZip(t.path() / "half.zip"), ArchiveError);
    EXPECT_THROW(listZip(t.path() / "missing.zip"), ArchiveError);
}
