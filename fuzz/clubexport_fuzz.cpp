// Arbitrary bytes as the club export. The reader never refuses a file; what
// it gives must be whole: every text a view of live memory, for as long as
// some copy of the export lives, after the reader's own state is gone.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/records.h"
#include "files/clubexport.h"

namespace {

size_t touch(std::string_view s) {
    size_t sum = 0;
    for (char c : s) sum += static_cast<unsigned char>(c);
    return sum;
}

int readOnce(std::string bytes);

}  // namespace

// The bytes, and for a file with a club header the same tiled past the size
// at which the reader splits the file in two, so the split is fuzzed too.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    readOnce(bytes);
    if (size > 0 && bytes.find("EXPORT FOR") != std::string::npos) {
        constexpr size_t kPastTheSplit = 300 * 1024;
        std::string tiled;
        tiled.reserve(kPastTheSplit + size);
        while (tiled.size() < kPastTheSplit) tiled += bytes;
        readOnce(std::move(tiled));
    }
    return 0;
}

namespace {

int readOnce(std::string bytes) {
    const size_t size = bytes.size();
    kestrin::ClubExport copy;
    {
        const kestrin::ClubExport read = kestrin::readClubExport(std::move(bytes), "Weekly/clubsqua.txt");
        copy = read;
    }
    size_t sum = 0, players = 0;
    for (const kestrin::ExportClub& club : copy) {
        sum += touch(club.Name);
        players += club.Players.size();
        for (const kestrin::ExportPlayer& p : club.Players) {
            for (std::string_view s : {p.Name, p.Age, p.Position, p.TotalSkill, p.Sign, p.Played, p.Perf, p.Goals,
                                       p.MaxValue, p.Colours, p.LoanClub, p.Managed})
                sum += touch(s);
            // The managed flag is the one token that ends the loaning club.
            if (!p.Managed.empty() && p.Managed != "Y" && p.Managed != "N") std::abort();
        }
    }
    // Each player is a line of the file.
    if (players > size) std::abort();
    volatile size_t keep = sum;
    (void)keep;
    return 0;
}

}  // namespace
