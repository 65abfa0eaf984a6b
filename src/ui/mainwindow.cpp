#include "ui/mainwindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QStatusBar>

#include "core/clubview.h"
#include "files/news.h"
#include "ui/admin.h"
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
#include "ui/squadscreen.h"
#include "ui/tickerform.h"

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
    addScreen(new Matchviewer(controller_, stack_));
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
    return controller_.load(gameFolder);
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

}  // namespace kestrin::ui
