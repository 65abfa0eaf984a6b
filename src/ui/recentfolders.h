#pragma once
// The game folders the manager opened last, most recent first. They are the
// user's, not a game's: kept with QSettings in his configuration folder.
#include <QStringList>
#include <filesystem>
#include <optional>

namespace kestrin::ui {

inline constexpr int kRecentGameFolderCount = 8;

QStringList recentGameFolders();
// Puts the folder first, once, and forgets all but the last eight.
void noteRecentGameFolder(const std::filesystem::path& folder);
void clearRecentGameFolders();

// A folder the session loader can open: it holds game.ini (any case).
bool holdsGame(const std::filesystem::path& folder);
// The most recent folder that still holds a game.
std::optional<std::filesystem::path> lastGameFolder();

}  // namespace kestrin::ui
