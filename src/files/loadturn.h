#pragma once
// Load New Turn: check the two archives the administrator mailed, put last
// week's files aside, unpack the new ones and rebuild the session.
//
// Unlike a plain unzip over the folders, both archives are first unpacked
// into a staging folder and checked; last week's files are moved only when
// both are complete, and a failure on the way puts them back as they were.
#include <string>
#include <vector>

#include "core/loader.h"
#include "core/messages.h"
#include "core/session.h"

namespace kestrin {

// The archive checks on entry names.
bool isSquadArchive(const std::vector<std::string>& entryNames);
bool isWeeklyArchive(const std::vector<std::string>& entryNames);

// The checks made when an archive is chosen: false after telling the manager.
bool checkSquadArchive(const fs::path& zip, Messages& messages);
bool checkWeeklyArchive(const fs::path& zip, const GameIni& game, Messages& messages);

// The dated backup folder name from TodayText (DD/MM/YYYY): DDMMYYYY, then
// DDMMYYYY_1, _2 ... for the first that doesn't exist in `parent`.
std::string backupFolderName(const fs::path& parent, const std::string& todayText);

// What the OK button does. `session` is replaced by the new session on
// success. Returns false, with last week's folders untouched, when a path is
// missing, an archive fails its check or can't be unpacked, or the files
// can't be moved. `log` receives a line per thing done.
bool loadNewTurn(Session& session, const std::string& squadZip, const std::string& weeklyZip, Messages& messages,
                 const StatusFn& status = {}, std::vector<std::string>* log = nullptr);

}  // namespace kestrin
