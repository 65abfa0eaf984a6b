#include "core/loader.h"

#include <chrono>
#include <ctime>
#include <future>

#include "core/errors.h"
#include "core/text.h"
#include "files/clubexport.h"
#include "files/news.h"
#include "files/squadsheet.h"
#include "files/turnsheet.h"
#include "match/pitch.h"
#include "orders/harvest.h"
#include "orders/scouthistory.h"

namespace kestrin {

std::string firstRunWelcomeText(const GameIni& game) {
    return "Welcome to " + game.GameName + "!\r\n\r\nUpon pressing 'OK', you will be directed to the " +
           game.ShortName +
           " Main Menu.\r\n\r\nPlease select the 'Load New Turn' option, where you will be asked to select the "
           "\r\nsquad and weekly zip files that have been sent to you.\r\n\r\nYou will recieve new zip files at the "
           "start of each turn, where you can press the 'Load New Turn' button to load them.";
}

std::string unreadableFileText(const std::string& kind, const GameFileError& e, const std::string& consequence) {
    std::string s = "The " + kind + " " + e.file + " could not be read: " + e.detail() + ".";
    if (!consequence.empty()) s += "\r\n\r\n" + consequence;
    return s;
}

namespace {

std::string todayText() {
    std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    char buf[16];
    std::strftime(buf, sizeof buf, "%d/%m/%Y", &tm);
    return buf;
}

void placeDefaultShirts(Club& club) {
    for (Fixture& f : club.Fixtures)
        for (int shirt = 1; shirt <= 11; ++shirt) {
            CellPos p = defaultSlotPosition(shirt);
            f.Slots[size_t(shirt - 1)].Left = p.Left;
            f.Slots[size_t(shirt - 1)].Top = p.Top;
        }
}

void report(Session& s, Messages& messages, const std::string& title, const std::string& text) {
    s.LoadProblems.push_back(text);
    messages.warn(title, text);
}

// Reads one club; its saved orders are taken up before the next club's file.
void loadClub(Session& s, Messages& messages, const fs::path& squadsheets, const std::string& fileName) {
    Club club;
    std::vector<std::string> lines;
    std::string stamp = s.TurnStamp;
    try {
        lines = readLines(squadsheets / fileName);
        club = readSquadsheet(lines, "Squadsheets/" + fileName, clubFileFromName(fileName), stamp);
        s.TurnStamp = stamp;
    } catch (const GameFileError& e) {
        report(s, messages, "Squadsheet could not be read",
               unreadableFileText("Squadsheet", e,
                                  "This club is left out of the session. Ask your game administrator for a "
                                  "correct copy of the file, or load the turn's archives again."));
        return;
    }
    const fs::path ts = turnsheetPath(s, club);
    std::error_code ec;
    if (fs::exists(ts, ec)) {
        try {
            readTurnsheet(club, readLines(ts), s.InjuryLimit, s.SuspensionLimit, displayName(s.Folder, ts));
        } catch (const GameFileError& e) {
            // The club goes on as its Squadsheet gave it. The reader may have
            // taken up some orders, and a failure is rare, so the Squadsheet
            // is read again rather than the club copied beforehand each time.
            club = readSquadsheet(lines, "Squadsheets/" + fileName, clubFileFromName(fileName), stamp);
            placeDefaultShirts(club);
            report(s, messages, "Turnsheet could not be read",
                   unreadableFileText("Turnsheet", e,
                                      "The orders of " + club.Name +
                                          " start empty. The file itself is left as it is until you save "
                                          "the turnsheet again."));
        }
    } else {
        placeDefaultShirts(club);
    }
    s.Clubs.push_back(std::move(club));
}

}  // namespace

Session loadSession(const fs::path& gameFolder, Messages& messages, const StatusFn& status) {
    Session s;
    s.Folder = GameFolder(gameFolder);
    s.TodayText = todayText();
    auto say = [&](std::string_view text) {
        if (status) status(text);
    };

    const fs::path iniPath = s.Folder.resolve("game.ini");
    std::error_code ec;
    if (!fs::exists(iniPath, ec)) {
        s.GameIniMissing = true;
        messages.refuse(kMissingGameIniTitle, kMissingGameIniText);
        return s;
    }
    try {
        s.Game = readGameIni(iniPath);
    } catch (const GameFileError& e) {
        report(s, messages, "game.ini could not be read",
               unreadableFileText("file", e, "Please contact your game administrator to obtain a correct copy."));
    }

    s.TurnStamp.clear();
    s.InjuryLimit = 10;
    s.SuspensionLimit = 1;

    say("Loading Squadsheets");
    const std::vector<std::string> sheets = s.Folder.list("Squadsheets", "*sq*.txt");
    // The club export is the largest file of the game and needs nothing else
    // of the load, so a second thread reads it while the rest is loaded. Only
    // reading the file can fail, and that is told in its step; the export
    // itself goes into the session, on this thread, at the end. Without a
    // thread to be had, it is all done in its step instead.
    std::promise<void> exportBytesRead;
    std::future<void> exportFileRead = exportBytesRead.get_future();
    auto readExport = [folder = s.Folder, read = std::move(exportBytesRead)]() mutable {
        const fs::path path = folder.resolve("Weekly/clubsqua.txt");
        std::string bytes;
        try {
            bytes = readFileBytes(path);
            read.set_value();
        } catch (...) {
            read.set_exception(std::current_exception());
            return ClubExport();
        }
        return readClubExport(std::move(bytes), displayName(folder, path));
    };
    std::future<ClubExport> exportRead;
    if (!sheets.empty()) exportRead = std::async(std::launch::async | std::launch::deferred, std::move(readExport));
    const fs::path squadsheets = s.Folder.resolve("Squadsheets");
    for (const std::string& name : sheets) loadClub(s, messages, squadsheets, name);

    s.Prefs = readSettings(gameFolder);

    if (s.Clubs.empty()) {
        s.FirstRun = true;
        for (const char* dir : {"Squadsheets", "Weekly", "Turnsheet", "Profiles"}) {
            try {
                s.Folder.ensureFolder(dir);
            } catch (const WriteError& e) {
                report(s, messages, "Folder could not be made",
                       "The folder " + e.path + " could not be made: " + e.reason +
                           ". Check that the game folder may be written to.");
            }
        }
        s.Prefs.WarnInc = 1;
        s.Prefs.SaveProf = 1;
        messages.inform("Welcome to " + s.Game.GameName + " !", firstRunWelcomeText(s.Game));
        return s;
    }

    say("Setting Portraits");  // the portrait pictures are prepared by the screens that show them

    say("Loading Club Squad Details");
    if (exportRead.wait_for(std::chrono::seconds(0)) == std::future_status::deferred) exportRead.wait();
    try {
        exportFileRead.get();
    } catch (const GameFileError& e) {
        report(s, messages, "Club export could not be read",
               unreadableFileText("club export", e,
                                  "Scouting and searching show no clubs until the week's archives are loaded "
                                  "again with Load New Turn."));
    }

    say("Loading News");
    s.News = fillNewsList(s.Folder);
    say("Loading Profiles");  // order profiles: filled by the profile screens when they land

    s.InjuryLimit = s.Prefs.InjuryLimitSetting;

    s.TurnChanged = false;
    s.SameTurn = true;
    if (s.TurnStamp != s.Prefs.StoredTurnStamp) {
        s.Prefs.StoredTurnStamp = s.TurnStamp;
        try {
            writeSettings(gameFolder, s.Prefs);
        } catch (const WriteError& e) {
            report(s, messages, "Settings could not be saved",
                   "The settings file " + e.path + " could not be written: " + e.reason +
                       ". Your settings are kept for this session only.");
        }
        s.SameTurn = false;
    }
    s.NewTurn = !s.SameTurn;

    say("Loading Team Information");
    try {
        s.ManagerList = readManagers(s.Folder);
    } catch (const GameFileError& e) {
        report(s, messages, "Managers list could not be read",
               unreadableFileText("managers list", e,
                                  "No managers are offered for e-mail this week. Load the week's archives again "
                                  "with Load New Turn to get a correct copy."));
    }
    harvestReports(s, messages);
    try {
        s.ScoutTable = loadScoutTable(s);
    } catch (const GameFileError& e) {
        report(s, messages, "Scout history could not be read",
               unreadableFileText("scout history", e,
                                  "The scout history and the skill comparison show no scouted players this session."));
    }

    // No step since its own looks at the club export.
    s.ExportClubs = exportRead.get();
    s.CurrentClub = 0;

    if (s.Prefs.WarnNot == 0 && notepadHasNotes(s.Folder))
        messages.inform("Reminder of manager notes",
                        "You have notes within the manager notepad.\r\n\r\nThis reminder can be switched off in "
                        "the preferences screen if preferred");
    s.TurnChanged = false;
    s.FillingScreen = false;
    return s;
}

}  // namespace kestrin
