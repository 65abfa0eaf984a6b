#pragma once
// The session loader: turns the game folder into a live session. Runs at
// start, after Load New Turn and after clearing turns.
#include <functional>
#include <string_view>

#include "core/messages.h"
#include "core/session.h"

namespace kestrin {

// Status texts the loader reports as it goes ("Loading Squadsheets", ...).
using StatusFn = std::function<void(std::string_view)>;

// Builds a whole new session. Never throws for a bad game file: each bad
// file is told through `messages` in plain words and the load carries on
// without it. When game.ini is missing, GameIniMissing is set, the message is
// shown and the session is otherwise empty.
Session loadSession(const fs::path& gameFolder, Messages& messages, const StatusFn& status = {});

// The first-run welcome text, shown when no Squadsheet was found.
std::string firstRunWelcomeText(const GameIni& game);

// Texts of the loader's own messages.
inline constexpr const char* kMissingGameIniTitle = "Missing game.ini file";
inline constexpr const char* kMissingGameIniText =
    "The game.ini file is missing !   Please contact your game administrator to obtain this file.";

// The text that tells the manager a game file could not be read.
std::string unreadableFileText(const std::string& kind, const struct GameFileError& e, const std::string& consequence);

}  // namespace kestrin
