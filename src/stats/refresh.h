#pragma once
// The Stats refresh: one pass over the week's files into the Stats database,
// in one transaction. It knows nothing of the interface: it reports progress
// through a callback and stops when asked, leaving the database as it was.
#include <atomic>
#include <functional>
#include <string>
#include <string_view>

#include "core/gamefolder.h"
#include "core/messages.h"
#include "core/settings.h"
#include "stats/store.h"

namespace kestrin::stats {

struct RefreshOptions {
    // Called before each file with its name as the manager sees it, the
    // files done so far and the files in all. Called on the refreshing thread.
    std::function<void(std::string_view file, int done, int total)> progress;
    const std::atomic<bool>* cancel = nullptr;  // set from any thread to stop
    bool showDone = true;  // "Stats Database refreshed" at the end
};

enum class RefreshStatus { Done, NotFound, Unusable, Cancelled, Failed };

struct RefreshResult {
    RefreshStatus status = RefreshStatus::Failed;
    std::string statsFile;         // the database used (or looked for)
    bool settingsSaved = false;    // an empty StatsFile was given its default and saved
    AddedRows added;               // all zero unless Done
    std::string problem;           // the failure in words, for Failed
};

// Reads Weekly/ and the match reports and Squadsheets of Squadsheets/ into
// the database of settings.StatsFile, making it when it isn't there. Every
// message goes through `messages`, at the end of the call and on the calling
// thread: a UI that runs this off its own thread passes a recorder and shows
// its entries afterwards, and copies settings.StatsFile back when
// settingsSaved is set.
RefreshResult refreshStats(const GameFolder& folder, Settings& settings, Messages& messages,
                           const RefreshOptions& options = {});

// Test hook: called with each file's name before it is loaded; throwing from
// it simulates a refresh that fails half-way.
extern std::function<void(std::string_view file)> refreshFaultHook;

// The week's date, ISO: the day Weekly/CODES.TXT was last changed, else today.
std::string statsDate(const GameFolder& folder);

}  // namespace kestrin::stats
