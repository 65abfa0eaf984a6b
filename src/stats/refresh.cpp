#include "stats/refresh.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Transaction.h>
#include <sys/stat.h>

#include <ctime>
#include <filesystem>
#include <memory>

#include "core/errors.h"
#include "core/text.h"
#include "stats/matchreport.h"
#include "stats/squad.h"
#include "stats/weekly.h"

namespace kestrin::stats {

std::function<void(std::string_view file)> refreshFaultHook;

namespace {

std::string isoDay(std::time_t t) {
    std::tm tm{};
    localtime_r(&t, &tm);
    char buf[16];
    std::strftime(buf, sizeof buf, "%Y-%m-%d", &tm);
    return buf;
}

struct Cancelled {};

// The lines of a file as readLines gives them, into strings kept from the
// file before, so a refresh of many files doesn't allocate every line anew.
void readLinesInto(const fs::path& path, std::vector<std::string>& lines) {
    const std::string bytes = readFileBytes(path);
    size_t count = 0;
    for (size_t i = 0; i < bytes.size();) {
        const size_t nl = bytes.find('\n', i);
        size_t stop = nl == std::string::npos ? bytes.size() : nl;
        if (stop > i && bytes[stop - 1] == '\r') --stop;
        if (count == lines.size()) lines.emplace_back();
        lines[count++].assign(bytes, i, stop - i);
        if (nl == std::string::npos) break;
        i = nl + 1;
    }
    lines.resize(count);
}

// One file of the refresh: where it is and what reads it.
struct Job {
    fs::path path;
    std::string name;  // bare name
    enum Kind { Clubs, Managers, Weekly, MatchReport, Squad } kind;
};

}  // namespace

std::string statsDate(const GameFolder& folder) {
    struct stat st {};
    const fs::path codes = folder.resolve("Weekly/CODES.TXT");
    if (::stat(codes.c_str(), &st) == 0) return isoDay(st.st_mtime);
    return isoDay(std::time(nullptr));
}

RefreshResult refreshStats(const GameFolder& folder, Settings& settings, Messages& messages,
                           const RefreshOptions& options) {
    RefreshResult result;
    const std::string date = statsDate(folder);
    if (settings.StatsFile.empty()) {
        settings.StatsFile = (folder.root() / "stats.db").string();
        try {
            writeSettings(folder.root(), settings);
            result.settingsSaved = true;
        } catch (const WriteError& e) {
            messages.warn("Settings not saved", std::string(e.what()) +
                                                    "\r\n\r\nThe Stats database is refreshed all the same.");
        }
    }
    const fs::path file = settings.StatsFile;
    result.statsFile = settings.StatsFile;
    std::error_code ec;
    const fs::path where = file.has_parent_path() ? file.parent_path() : fs::current_path(ec);
    if (!fs::is_directory(where, ec)) {
        result.status = RefreshStatus::NotFound;
        messages.refuse("Stats database not found",
                        "The stats database was not updated with this weeks data\r\n\r\n"
                        "This program is expecting the stats database (" +
                            file.filename().string() + ") to be located in " + where.string() +
                            "\r\nThis folder can be changed in the preferences screen\r\n\r\n"
                            "Please use the 'Refresh Stats Database' Option on the main menu to load this week "
                            "into the database");
        return result;
    }
    const bool existed = fs::exists(file, ec);
    if (existed) {
        // Looked at read-only first, so a file of another program is never touched.
        SchemaState state = SchemaState::Foreign;
        try {
            SQLite::Database probe(file.string(), SQLite::OPEN_READONLY);
            state = inspectSchema(probe);
        } catch (const SQLite::Exception&) {
        }
        if (state == SchemaState::Foreign) {
            result.status = RefreshStatus::Unusable;
            messages.refuse(kUnusableTitle, unusableText(file.string()));
            return result;
        }
    }

    // The files of the week, in the order they are read.
    std::vector<Job> jobs;
    if (folder.exists("Weekly/CODES.TXT")) jobs.push_back({folder.resolve("Weekly/CODES.TXT"), "CODES.TXT", Job::Clubs});
    if (folder.exists("Weekly/EMAILS.TXT"))
        jobs.push_back({folder.resolve("Weekly/EMAILS.TXT"), "EMAILS.TXT", Job::Managers});
    const fs::path weekly = folder.resolve("Weekly");
    for (const std::string& n : folder.list("Weekly", "*"))
        if (weeklyKind(n) != WeeklyKind::None) jobs.push_back({weekly / n, n, Job::Weekly});
    const fs::path squads = folder.resolve("Squadsheets");
    for (const std::string& n : folder.list("Squadsheets", "*#*")) jobs.push_back({squads / n, n, Job::MatchReport});
    for (const std::string& n : folder.list("Squadsheets", "*SQU*")) jobs.push_back({squads / n, n, Job::Squad});

    std::unique_ptr<SQLite::Database> db;
    const Job* current = nullptr;  // named only when shown: the name costs a walk of the path
    try {
        // One thread uses this connection, so SQLite need not lock it at every call.
        db = std::make_unique<SQLite::Database>(file.string(),
                                                SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE | SQLite::OPEN_NOMUTEX);
        db->setBusyTimeout(5000);
        SQLite::Transaction transaction(*db);
        if (inspectSchema(*db) == SchemaState::Empty) createSchema(*db);
        StatsStore store(*db, date);
        if (jobs.empty() || jobs.front().kind != Job::Clubs) fillLookupFromTable(store);
        const int total = int(jobs.size());
        std::vector<std::string> lines;
        for (int i = 0; i < total; ++i) {
            const Job& job = jobs[size_t(i)];
            if (options.cancel && options.cancel->load()) throw Cancelled{};
            current = &job;
            if (options.progress) options.progress(displayName(folder, job.path), i, total);
            if (refreshFaultHook) refreshFaultHook(job.name);
            readLinesInto(job.path, lines);
            switch (job.kind) {
                case Job::Clubs: loadClubs(store, lines); break;
                case Job::Managers: loadManagers(store, lines); break;
                case Job::Weekly: loadWeeklyFile(store, job.name, lines); break;
                case Job::MatchReport: loadMatchReports(store, lines); break;
                case Job::Squad:
                    loadSquadSkills(store, job.name, lines);
                    loadMatchSummaries(store, job.name, lines);
                    break;
            }
        }
        if (options.cancel && options.cancel->load()) throw Cancelled{};
        transaction.commit();
        if (options.progress) options.progress({}, total, total);
        result.added = store.added;
        result.status = RefreshStatus::Done;
    } catch (const Cancelled&) {
        result.status = RefreshStatus::Cancelled;
    } catch (const GameFileError& e) {
        result.status = RefreshStatus::Failed;
        result.problem = e.what();
    } catch (const std::exception& e) {
        result.status = RefreshStatus::Failed;
        result.problem = current ? "While reading " + displayName(folder, current->path) + ": " + e.what()
                                 : std::string(e.what());
    }
    db.reset();
    if (result.status != RefreshStatus::Done && !existed) fs::remove(file, ec);  // made by this refresh

    switch (result.status) {
        case RefreshStatus::Done:
            if (options.showDone) messages.inform("Stats load complete", "Stats Database refreshed");
            break;
        case RefreshStatus::Cancelled:
            messages.inform("Stats load cancelled",
                            "The refresh was stopped. The Stats database " + file.string() + " is as it was before.");
            break;
        case RefreshStatus::Failed:
            messages.refuse("Stats database not updated",
                            result.problem + "\r\n\r\nThe Stats database " + file.string() +
                                " is as it was before this refresh. Put the file right, or load the turn again, "
                                "then use the 'Refresh Stats Database' option on the main menu.");
            break;
        default: break;
    }
    return result;
}

}  // namespace kestrin::stats
