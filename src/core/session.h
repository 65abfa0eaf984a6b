#pragma once
// The session: everything the game calls program-wide. Built whole by the
// session loader; passed by reference, never global.
#include <string>
#include <vector>

#include "core/gamefolder.h"
#include "core/gameini.h"
#include "core/records.h"
#include "core/settings.h"
#include "orders/scoutfile.h"

namespace kestrin {

struct Session {
    GameFolder Folder{fs::path()};
    GameIni Game;
    bool GameIniMissing = false;
    Settings Prefs;

    std::vector<Club> Clubs;  // zero-based
    int CurrentClub = 0;
    ClubExport ExportClubs;

    std::string TurnStamp;
    std::string TodayText;
    int InjuryLimit = 10;
    int SuspensionLimit = 1;

    bool TurnChanged = false;
    bool SameTurn = true;
    bool NewTurn = false;
    bool SavePromptDone = false;
    bool TurnsheetComplete = false;
    bool FillingScreen = false;
    bool FirstRun = false;  // no Squadsheet was found

    // Last week's report, rebuilt at every load (the harvest).
    std::vector<Memo> Memos;
    int MemoShown = 0;  // 1-based; 0 when none is on show
    std::string TickerText;
    std::vector<ManagerEntry> ManagerList;
    std::vector<NewsItem> News;
    // SCOUT.TXT as it stood after the harvest, with deletions made since;
    // at most kMaxScoutTable records, a blank name marking a deleted one.
    std::vector<ScoutRecord> ScoutTable;
    // A new turn was harvested: the Stats database is to be refreshed with it.
    bool StatsRefreshDue = false;

    // Plain-words reports of files that could not be read during the load;
    // they were also told through Messages.
    std::vector<std::string> LoadProblems;

    int ClubCount() const { return int(Clubs.size()); }
    Club* current() { return Clubs.empty() ? nullptr : &Clubs[size_t(CurrentClub)]; }
    const Club* current() const { return Clubs.empty() ? nullptr : &Clubs[size_t(CurrentClub)]; }
};

}  // namespace kestrin
