// Arbitrary bytes as the report at the end of a Squadsheet, read by the
// harvest and by the Last Week screen, and as EMAILS.TXT. Nothing may crash,
// throw or read out of bounds; the harvest tells its problems and goes on.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/gamefolder.h"
#include "core/messages.h"
#include "core/session.h"
#include "core/settings.h"
#include "files/news.h"
#include "orders/harvest.h"

namespace {

// One game folder for the whole run; the week is never new, so nothing grows.
const kestrin::fs::path& folder() {
    static const kestrin::fs::path dir = [] {
        std::string tmpl = (kestrin::fs::temp_directory_path() / "kestrin-fuzz-XXXXXX").string();
        const char* made = mkdtemp(tmpl.data());
        if (!made) std::abort();
        kestrin::fs::create_directories(kestrin::fs::path(made) / "Squadsheets");
        return kestrin::fs::path(made);
    }();
    return dir;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> lines = kestrin::splitLines(bytes);
    kestrin::lastWeekBoxesOf(lines);
    kestrin::parseManagers(lines);

    // A plain write: the atomic one syncs the disk, which would slow the run tenfold.
    std::ofstream(folder() / "Squadsheets" / "FUZZSQUA.TXT", std::ios::binary | std::ios::trunc)
        .write(bytes.data(), std::streamsize(bytes.size()));
    kestrin::Session s;
    s.Folder = kestrin::GameFolder(folder());
    s.Prefs = kestrin::defaultSettings(folder());
    s.TurnStamp = lines.empty() ? std::string() : lines.front();
    s.NewTurn = false;
    kestrin::Club club;
    club.Name = "Fuzz Rovers";
    club.ClubFile = "FUZZ";
    s.Clubs.push_back(club);
    kestrin::RecordingMessages messages;
    kestrin::harvestReports(s, messages);
    kestrin::turnDateOf(s.TurnStamp);
    return 0;
}
