#pragma once
// What the Load Turn dialog shows and stores: its title, the words of its
// file dialogs, the backup options and the paths it remembers. The work of
// the OK button is loadNewTurn (files/loadturn.h).
#include <array>
#include <string>
#include <string_view>

#include "core/messages.h"
#include "core/session.h"

namespace kestrin {

inline constexpr std::string_view kSquadZipDialogTitle = "Please select the squad zip file";
inline constexpr std::string_view kSquadZipFilter = "Squadsheet zip File|*.zip";
inline constexpr std::string_view kWeeklyZipDialogTitle = "Please select the weekly zip file";
inline constexpr std::string_view kWeeklyZipFilter = "Weekly zip File|weekly.zip";

// btnSqBackup and btnWkBackup: 0 keeps last week's files in a dated folder,
// 1 deletes them.
inline constexpr std::array<std::string_view, 2> kBackupCaptions = {"Backup", "Overwrite"};

// "Load new " + ShortName + " turn".
std::string loadTurnTitle(const GameIni& game);

enum class TurnArchive { Squad, Weekly };

// A click on a backup option, written to kestrin.ini at once.
bool chooseBackup(Session& session, TurnArchive which, int16_t option, Messages& messages);

// The paths in the dialog when OK is pressed become the last ones chosen,
// offered again next week.
bool rememberArchivePaths(Session& session, const std::string& squadZip, const std::string& weeklyZip,
                          Messages& messages);

}  // namespace kestrin
