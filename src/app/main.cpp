// kestrin: the manager's program. `kestrin [GAME_DIR]` runs the game in
// GAME_DIR, else $KESTRIN_HOME, else the last game opened that is still
// there, else ~/Kestrin. `kestrin --snapshot OUTDIR [GAME_DIR]` writes a
// picture of every screen and exits; `kestrin --version` prints the version.
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

#include "kestrin_version.h"
#include "ui/about.h"
#include "ui/look.h"
#include "ui/mainwindow.h"
#include "ui/qtext.h"
#include "ui/qtmessages.h"
#include "ui/recentfolders.h"
#include "ui/sessioncontroller.h"
#include "ui/snapshot.h"

namespace fs = std::filesystem;

namespace {

fs::path defaultGameFolder() {
    if (const char* home = std::getenv("KESTRIN_HOME"); home && *home) return home;
    if (auto last = kestrin::ui::lastGameFolder()) return *last;
    const char* user = std::getenv("HOME");
    return fs::path(user && *user ? user : ".") / "Kestrin";
}

int usage() {
    std::fprintf(stderr,
                 "usage: kestrin [GAME_DIR]\n       kestrin --snapshot OUTDIR [GAME_DIR]\n       kestrin --version\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    bool snapshot = false;
    fs::path outDir;
    fs::path gameFolder;
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("kestrin %s\n", kestrin::kVersion);
        return 0;
    }
    int i = 1;
    if (i < argc && std::strcmp(argv[i], "--snapshot") == 0) {
        if (i + 1 >= argc) return usage();
        snapshot = true;
        outDir = argv[i + 1];
        i += 2;
    }
    if (i < argc) gameFolder = argv[i++];
    if (i < argc) return usage();
    if (gameFolder.empty()) gameFolder = defaultGameFolder();

    // Snapshots need no screen at all.
    if (snapshot && !std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);

    QApplication app(argc, argv);
    QApplication::setApplicationName("Kestrin");
    QApplication::setApplicationVersion(kestrin::kVersion);
    // The desktop matches the window to its menu entry and icon by this name.
    QGuiApplication::setDesktopFileName("org.kestrin.Kestrin");
    QApplication::setWindowIcon(kestrin::ui::programIcon());
    kestrin::ui::applyLook(app);

    if (snapshot) return kestrin::ui::renderSnapshots(gameFolder, outDir);

    kestrin::ui::QtMessages messages;
    kestrin::ui::SessionController controller(messages);
    kestrin::ui::MainWindow window(controller);
    if (!window.start(gameFolder)) {
        // Started from the desktop menu before any game was opened: the
        // manager may know where his game folder is.
        const QString chosen = QFileDialog::getExistingDirectory(nullptr, "Open Game Folder", QDir::homePath());
        if (chosen.isEmpty() || !window.start(kestrin::ui::nativePath(chosen))) return 1;
    }
    return app.exec();
}
