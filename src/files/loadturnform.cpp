#include "files/loadturnform.h"

#include "core/preferences.h"

namespace kestrin {

std::string loadTurnTitle(const GameIni& game) { return "Load new " + game.ShortName + " turn"; }

bool chooseBackup(Session& session, TurnArchive which, int16_t option, Messages& messages) {
    if (option != 0 && option != 1) return false;
    return changeSettings(session, messages, [&](Settings& s) {
        (which == TurnArchive::Squad ? s.SquadBackup : s.WeeklyBackup) = option;
    });
}

bool rememberArchivePaths(Session& session, const std::string& squadZip, const std::string& weeklyZip,
                          Messages& messages) {
    return changeSettings(session, messages, [&](Settings& s) {
        s.SquadPath = squadZip;
        s.WeeklyPath = weeklyZip;
    });
}

}  // namespace kestrin
