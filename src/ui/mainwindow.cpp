#include "ui/mainwindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QStatusBar>

#include "core/clubview.h"
#include "core/loader.h"
#include "files/news.h"
#include "ui/about.h"
#include "ui/admin.h"
#include "ui/autoturn.h"
#include "ui/fixt.h"
#include "ui/honours.h"
#include "ui/lastweek.h"
#include "ui/loadturndialog.h"
#include "ui/mainmenu.h"
#include "ui/matchviewer.h"
#include "ui/memoform.h"
#include "ui/newsscreen.h"
#include "ui/notepad.h"
#include "ui/pitchgrid.h"
#include "ui/preferences.h"
#include "ui/qtext.h"
#include "ui/recentfolders.h"
#include "ui/scout.h"
#include "ui/scouthistoryscreen.h"
#include "ui/searchresults.h"
#include "ui/squadscreen.h"
#include "ui/tickerform.h"
#include "ui/vidi.h"
#include "ui/widgets.h"

namespace kestrin::ui {

MainWindow::MainWindow(SessionController& controller, QWidget* parent)
    : QMainWindow(parent), controller_(controller), stack_(new QStackedWidget(this)) {
    setObjectName("MainWindow");
    setCentralWidget(stack_);
    resize(1280, 800);
    setMinimumSize(1100, 720);

    // Select club sets the TeamLists in this order.
    addScreen(new MainMenu(controller_, stack_));
    addScreen(new FixtScreen(controller_, stack_));
    addScreen(new PitchGridScreen(controller_, stack_));
    addScreen(new SquadScreen(controller_, stack_));
    addScreen(new LastWeekScreen(controller_, stack_));
    addScreen(new NewsScreen(controller_, stack_));
    addScreen(new Preferences(controller_, stack_));
    addScreen(new AdminScreen(controller_, stack_));
    auto* scout = new ScoutScreen(controller_, stack_);
    auto* search = new SearchResults(controller_, stack_);
    addScreen(scout);
    addScreen(search);
    addScreen(new ScoutHistoryScreen(controller_, stack_));
    connect(scout, &ScoutScreen::searchWanted, this, [this, search] {
        search->seedIfEmpty();
        showScreen("SearchResults");
    });
    addScreen(new VidiScreen(controller_, stack_));
    addScreen(new Matchviewer(controller_, stack_));
    addScreen(new AutoTurnScreen(controller_, stack_));
    addDialog("LoadTurn", [this] { LoadTurnDialog::openOver(this, controller_); });
    addDialog("Honours", [this] { HonoursDialog::openOver(this, controller_); });
    addDialog("RefreshStats", [this] { controller_.refreshStats(true); });
    controller_.setDialogParent(this);
    addDialog("Notepad", [this] {
        Notepad* n = notepad();
        if (!n->isVisible()) n->reload();
        n->show();
        n->raise();
        n->activateWindow();
    });
    addDialog("WeeklyReports", [this] { replayReports(); });

    connect(&controller_, &SessionController::loadStarted, this, [this](const QString& title) {
        welcome_.setWindowTitle(title);
        welcome_.setStatus("");
        if (!interactive_) return;
        hide();
        welcome_.show();
        QCoreApplication::processEvents();
    });
    connect(&controller_, &SessionController::loadStatus, &welcome_, &Welcome::setStatus);
    connect(&controller_, &SessionController::loadFinished, this, [this] {
        // Memos and tape belong to the session they came from.
        for (QDialog* d : {static_cast<QDialog*>(memoForm_), static_cast<QDialog*>(tickerForm_)})
            if (d) d->close();
        showScreen("MainMenu");
        if (!interactive_) return;
        welcome_.hide();
        if (!controller_.session().GameIniMissing) show();
    });
    // Popped up only over a window the manager sees; a snapshot draws them itself.
    connect(&controller_, &SessionController::newWeekLoaded, this, [this] {
        if (interactive_ || isVisible()) replayReports();
    });
    connect(&controller_, &SessionController::notice, this,
            [this](const QString& text) { statusBar()->showMessage(text, 5000); });
    makeMenus();
    showScreen("MainMenu");
}

void MainWindow::addScreen(Screen* screen) {
    screens_.push_back(screen);
    stack_->addWidget(screen);
    controller_.addScreen(screen);
    connect(screen, &Screen::navigate, this, &MainWindow::showScreen);
}

bool MainWindow::start(const std::filesystem::path& gameFolder) {
    interactive_ = true;
    if (!controller_.load(gameFolder)) return false;
    noteRecentGameFolder(gameFolder);
    return true;
}

void MainWindow::replayReports() {
    const Session& s = controller_.session();
    switch (replayKind(s.Prefs.Warnings, s.Memos.size())) {
        case ReplayKind::Ticker:
            tickerForm()->show();
            tickerForm_->raise();
            tickerForm_->startTape();
            break;
        case ReplayKind::Memos:
            memoForm()->showMemo(1);
            memoForm_->show();
            memoForm_->raise();
            break;
        case ReplayKind::Nothing: break;
    }
}

MemoForm* MainWindow::memoForm() {
    if (!memoForm_) memoForm_ = new MemoForm(controller_, this);
    return memoForm_;
}

TickerForm* MainWindow::tickerForm() {
    if (!tickerForm_) tickerForm_ = new TickerForm(controller_, this);
    return tickerForm_;
}

Notepad* MainWindow::notepad() {
    if (!notepad_) notepad_ = new Notepad(controller_, this);
    return notepad_;
}

void MainWindow::addDialog(const QString& name, std::function<void()> open) { dialogs_[name] = std::move(open); }

void MainWindow::showScreen(const QString& name) {
    if (auto d = dialogs_.find(name); d != dialogs_.end()) {
        d->second();
        return;
    }
    if (Screen* s = screen(name)) stack_->setCurrentWidget(s);
    updateTitle();
}

Screen* MainWindow::screen(const QString& name) const {
    for (Screen* s : screens_)
        if (s->objectName() == name) return s;
    return nullptr;
}

Screen* MainWindow::currentScreen() const { return static_cast<Screen*>(stack_->currentWidget()); }

void MainWindow::updateTitle() {
    if (Screen* s = currentScreen())
        setWindowTitle(qs(screenTitle(controller_.session().Game, gameText(s->title()))));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!exitStarted_) {
        exitStarted_ = true;
        controller_.closing();
    }
    event->accept();
}

bool MainWindow::openGameFolder(const QString& folder) {
    const std::filesystem::path path = nativePath(folder);
    if (!holdsGame(path)) {
        controller_.messages().refuse(kMissingGameIniTitle, kMissingGameIniText);
        return false;
    }
    controller_.closing();  // leaving a game asks what closing asks
    if (!controller_.load(path)) {
        show();  // game.ini went away meanwhile: stay reachable for another folder
        return false;
    }
    noteRecentGameFolder(path);
    if (notepad_ && notepad_->isVisible()) notepad_->reload();
    return true;
}

void MainWindow::makeMenus() {
    auto add = [this](QMenu* menu, const char* name, const QString& text, auto slot) {
        QAction* a = menu->addAction(text);
        a->setObjectName(name);
        connect(a, &QAction::triggered, this, slot);
        return a;
    };
    QMenu* file = menuBar()->addMenu("&File");
    file->setObjectName("menuFile");
    add(file, "actOpenGameFolder", "&Open Game Folder...", [this] {
        const QString folder =
            QFileDialog::getExistingDirectory(this, "Open Game Folder", qpath(controller_.session().Folder.root()));
        if (!folder.isEmpty()) openGameFolder(folder);
    })->setShortcut(QKeySequence::Open);
    recentMenu_ = file->addMenu("&Recent Game Folders");
    recentMenu_->setObjectName("menuRecent");
    // Filled as it opens, so a folder gone meanwhile shows disabled.
    connect(recentMenu_, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    fillRecentMenu();
    file->addSeparator();
    add(file, "actLoadTurn", "&Load New Turn...", [this] { showScreen("LoadTurn"); });
    saveAction_ = add(file, "actSaveTurnsheet", "&Save Turnsheet", [this] { controller_.saveTurnsheet(); });
    saveAction_->setShortcut(QKeySequence::Save);
    sendAction_ = add(file, "actSendTurnsheet", "Sen&d Turnsheet", [this] { controller_.sendTurnsheet(); });
    file->addSeparator();
    QAction* quit = add(file, "actQuit", "&Quit", [this] { close(); });
    quit->setShortcut(QKeySequence::Quit);
    quit->setMenuRole(QAction::QuitRole);

    QMenu* help = menuBar()->addMenu("&Help");
    help->setObjectName("menuHelp");
    add(help, "actAbout", "&About Kestrin", [this] { openModal(new AboutDialog(this)); })
        ->setMenuRole(QAction::AboutRole);

    auto enable = [this] {
        saveAction_->setEnabled(controller_.hasClubs());
        sendAction_->setEnabled(controller_.hasClubs());
    };
    connect(&controller_, &SessionController::loadFinished, this, enable);
    enable();
    // The screens' least size is below the menu bar, not under it.
    setMinimumHeight(minimumHeight() + menuBar()->sizeHint().height());
}

void MainWindow::fillRecentMenu() {
    recentMenu_->clear();
    const QStringList folders = recentGameFolders();
    for (const QString& folder : folders) {
        QAction* a = recentMenu_->addAction(QString(folder).replace('&', "&&"));
        a->setData(folder);
        a->setEnabled(holdsGame(nativePath(folder)));
        connect(a, &QAction::triggered, this, [this, folder] { openGameFolder(folder); });
    }
    if (!folders.isEmpty()) recentMenu_->addSeparator();
    QAction* clear = recentMenu_->addAction("&Clear");
    clear->setObjectName("actClearRecent");
    clear->setEnabled(!folders.isEmpty());
    connect(clear, &QAction::triggered, this, [] { clearRecentGameFolders(); });
}

}  // namespace kestrin::ui
