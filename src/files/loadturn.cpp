#include "files/loadturn.h"

#include <random>

#include "core/clubview.h"
#include "core/errors.h"
#include "core/text.h"
#include "files/archive.h"
#include "files/turnsheet.h"

namespace kestrin {

bool isSquadArchive(const std::vector<std::string>& entryNames) {
    // Case-sensitive on purpose: the administrator's archive names them in capitals.
    for (const std::string& name : entryNames) {
        bool holds = name.find("SQUAD.TXT") != std::string::npos || name.find("SQUA.TXT") != std::string::npos;
        if (holds && upper(name) != "CLUBSQUA.TXT") return true;
    }
    return false;
}

bool isWeeklyArchive(const std::vector<std::string>& entryNames) {
    for (const std::string& name : entryNames)
        if (upper(name) == "CLUBSQUA.TXT") return true;
    return false;
}

bool checkSquadArchive(const fs::path& zip, Messages& messages) {
    std::vector<std::string> names;
    try {
        names = listZip(zip);
    } catch (const ArchiveError& e) {
        messages.refuse("No squad found in that file", e.what());
        return false;
    }
    if (!isSquadArchive(names)) {
        messages.refuse("No squad found in that file", "That is not a valid squadsheet file. Please re-select");
        return false;
    }
    return true;
}

bool checkWeeklyArchive(const fs::path& zip, const GameIni& game, Messages& messages) {
    const std::string title = "No " + game.ShortName + " weekly files found in that file";
    std::vector<std::string> names;
    try {
        names = listZip(zip);
    } catch (const ArchiveError& e) {
        messages.refuse(title, e.what());
        return false;
    }
    if (!isWeeklyArchive(names)) {
        messages.refuse(title, "That is not a valid weekly file. Please re-select");
        return false;
    }
    return true;
}

std::string backupFolderName(const fs::path& parent, const std::string& todayText) {
    std::string base = todayText.substr(0, 2) + columns(todayText, 4, 2) +
                       (todayText.size() >= 4 ? todayText.substr(todayText.size() - 4) : todayText);
    std::error_code ec;
    if (!fs::exists(parent / base, ec)) return base;
    for (int n = 1;; ++n) {
        std::string name = base + "_" + std::to_string(n);
        if (!fs::exists(parent / name, ec)) return name;
    }
}

namespace {

struct Move {
    fs::path from, to;
};

// Renames in order; on a failure undoes the renames already made and throws.
class MoveBatch {
public:
    void add(fs::path from, fs::path to) { pending_.push_back({std::move(from), std::move(to)}); }
    void run() {
        for (const Move& m : pending_) {
            std::error_code ec;
            fs::create_directories(m.to.parent_path(), ec);
            fs::rename(m.from, m.to, ec);
            if (ec) {
                undo();
                throw WriteError(m.from.string(), ec.message());
            }
            done_.push_back(m);
        }
    }
    void undo() {
        for (auto it = done_.rbegin(); it != done_.rend(); ++it) {
            std::error_code ec;
            fs::rename(it->to, it->from, ec);
        }
        done_.clear();
    }

private:
    std::vector<Move> pending_, done_;
};

std::vector<fs::path> filesDirectlyIn(const fs::path& dir) {
    std::vector<fs::path> files;
    std::error_code ec;
    if (!fs::is_directory(dir, ec)) return files;
    for (const auto& e : fs::directory_iterator(dir, ec))
        if (e.is_regular_file(ec) || e.is_symlink(ec)) files.push_back(e.path());
    return files;
}

void removeAll(const fs::path& p) {
    std::error_code ec;
    fs::permissions(p, fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(p, ec);
}

void deleteFilesIn(const fs::path& dir) {
    for (const fs::path& f : filesDirectlyIn(dir)) {
        std::error_code ec;
        fs::permissions(f, fs::perms::owner_write, fs::perm_options::add, ec);  // read-only or not
        fs::remove(f, ec);
    }
}

}  // namespace

bool loadNewTurn(Session& session, const std::string& squadZip, const std::string& weeklyZip, Messages& messages,
                 const StatusFn& status, std::vector<std::string>* log) {
    auto note = [&](const std::string& line) {
        if (log) log->push_back(line);
    };
    if (trim(squadZip).empty()) {
        messages.refuse("No squad file selected", "Please select the Squadsheet file.");
        return false;
    }
    if (trim(weeklyZip).empty()) {
        messages.refuse("No weekly file selected", "Please select the Squadsheet file.");
        return false;
    }
    std::error_code ec;
    if (!fs::is_regular_file(squadZip, ec)) {
        messages.refuse("Cannot find the squad zip file",
                        "Unable to find the Squadsheet file. Please re-select by clicking the browse button");
        return false;
    }
    if (!fs::is_regular_file(weeklyZip, ec)) {
        messages.refuse("Cannot find the weekly zip file",
                        "Unable to find the Weekly file. Please re-select by clicking the browse button");
        return false;
    }
    if (!checkSquadArchive(squadZip, messages) || !checkWeeklyArchive(weeklyZip, session.Game, messages))
        return false;

    const GameFolder& folder = session.Folder;
    const fs::path root = folder.root();
    const fs::path squadDir = folder.resolve("Squadsheets");
    const fs::path weeklyDir = folder.resolve("Weekly");
    const fs::path turnDir = folder.resolve("Turnsheet");

    // Unpack both archives where last week's files can't be touched.
    static std::mt19937_64 rng{std::random_device{}()};
    const fs::path staging = root / (".newturn-" + std::to_string(rng() % 100000000));
    std::vector<fs::path> newSquad, newWeekly;
    try {
        fs::create_directories(staging / "squad");
        fs::create_directories(staging / "weekly");
        newSquad = extractZip(squadZip, staging / "squad");
        newWeekly = extractZip(weeklyZip, staging / "weekly");
    } catch (const ArchiveError& e) {
        removeAll(staging);
        messages.refuse("New turn not loaded", std::string(e.what()) + "\r\n\r\nLast week's files are unchanged.");
        return false;
    } catch (const std::exception& e) {
        removeAll(staging);
        messages.refuse("New turn not loaded", std::string("The archives could not be unpacked: ") + e.what() +
                                                   ".\r\n\r\nLast week's files are unchanged. Check that the disk "
                                                   "has room and the game folder may be written to.");
        return false;
    }
    note("unpacked " + std::to_string(newSquad.size()) + " squad files and " + std::to_string(newWeekly.size()) +
         " weekly files");

    // Last week's files go aside first; the new ones follow. Any failure
    // undoes every move, so the folders stay as they were.
    const fs::path aside = staging / "old";
    MoveBatch moves;
    auto planFolder = [&](const fs::path& dir, const std::string& key, const std::vector<fs::path>& fresh,
                          const fs::path& stagedDir) {
        for (const fs::path& f : filesDirectlyIn(dir)) moves.add(f, aside / key / f.filename());
        for (const fs::path& f : fresh) moves.add(f, dir / fs::relative(f, stagedDir));
    };
    planFolder(squadDir, "squad", newSquad, staging / "squad");
    planFolder(weeklyDir, "weekly", newWeekly, staging / "weekly");
    try {
        moves.run();
    } catch (const WriteError& e) {
        removeAll(staging);
        messages.refuse("New turn not loaded", "The new files could not be moved into place (" + e.path + ": " +
                                                   e.reason + ").\r\n\r\nLast week's files are unchanged.");
        return false;
    }

    // The old files are now either kept in a dated folder or deleted.
    auto settle = [&](const fs::path& dir, const std::string& key, int16_t backupOption, const char* what) {
        const fs::path old = aside / key;
        if (backupOption == 0 && !filesDirectlyIn(old).empty()) {
            const std::string name = backupFolderName(dir, session.TodayText);
            std::error_code e2;
            fs::rename(old, dir / name, e2);
            if (e2) {
                fs::create_directories(dir / name, e2);
                for (const fs::path& f : filesDirectlyIn(old)) fs::rename(f, dir / name / f.filename(), e2);
            }
            note(std::string("kept last week's ") + what + " in " + displayName(folder, dir / name));
        } else {
            note(std::string("deleted last week's ") + what);
        }
    };
    settle(squadDir, "squad", session.Prefs.SquadBackup, "Squadsheets");
    settle(weeklyDir, "weekly", session.Prefs.WeeklyBackup, "weekly files");
    removeAll(staging);

    const int16_t retTurn = session.Prefs.RetTurn;
    if (retTurn == 1) {
        deleteFilesIn(turnDir);
        note("dropped last week's Turnsheets");
    }
    messages.inform("New turn loaded !", "New turn loaded OK");

    Session fresh = loadSession(root, messages, status);
    deleteFilesIn(turnDir);

    if (!fresh.Clubs.empty()) {
        // Every club takes the four texts that the main menu's boxes now show.
        Club shown = fresh.Clubs[size_t(fresh.CurrentClub)];
        fillWeeklyChoices(shown);
        for (Club& c : fresh.Clubs) {
            c.ScoutPlayer = {};
            c.ScoutClub = {};
            c.ScoutAggressive = {};
            c.Movements = {};
            c.BettingOrder = shown.BettingOrder;
            c.FacilityOrder = shown.FacilityOrder;
            c.CapacityOrder = shown.CapacityOrder;
            c.DepartmentOrder = shown.DepartmentOrder;
        }
    }
    session = std::move(fresh);
    if (retTurn == 0 && !session.Clubs.empty()) {
        try {
            saveTurnsheets(session, messages);
            note("kept last week's orders in new Turnsheets");
        } catch (const WriteError& e) {
            messages.refuse("Turnsheet not saved", "The turnsheet " + e.path + " could not be written: " + e.reason +
                                                       ". Your orders are still on screen; save again once the "
                                                       "problem is put right.");
        }
    }
    note("loaded " + std::to_string(session.ClubCount()) + " clubs, turn " + trim(session.TurnStamp));
    return true;
}

}  // namespace kestrin
