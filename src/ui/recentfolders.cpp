#include "ui/recentfolders.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include "core/gamefolder.h"
#include "ui/qtext.h"

namespace kestrin::ui {

namespace {

constexpr const char* kKey = "RecentGameFolders";

QSettings userSettings() { return QSettings(QSettings::NativeFormat, QSettings::UserScope, "kestrin", "kestrin"); }

// "/a/b/", "/a/./b" and "b" run from /a are one folder, and one entry.
QString normalFolder(const std::filesystem::path& folder) {
    return QDir::cleanPath(QFileInfo(qpath(folder)).absoluteFilePath());
}

}  // namespace

QStringList recentGameFolders() { return userSettings().value(kKey).toStringList(); }

void noteRecentGameFolder(const std::filesystem::path& folder) {
    const QString entry = normalFolder(folder);
    QStringList list = recentGameFolders();
    list.removeAll(entry);
    list.prepend(entry);
    while (list.size() > kRecentGameFolderCount) list.removeLast();
    userSettings().setValue(kKey, list);
}

void clearRecentGameFolders() { userSettings().remove(kKey); }

bool holdsGame(const std::filesystem::path& folder) { return GameFolder(folder).exists("game.ini"); }

std::optional<std::filesystem::path> lastGameFolder() {
    for (const QString& f : recentGameFolders())
        if (holdsGame(nativePath(f))) return std::filesystem::path(nativePath(f));
    return std::nullopt;
}

}  // namespace kestrin::ui
