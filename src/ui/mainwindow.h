#pragma once
// The program's one window: a stack of screens, the main menu first. It shows
// Welcome while the session loads and asks to save on closing.
#include <QMainWindow>
#include <QStackedWidget>
#include <filesystem>
#include <functional>
#include <map>
#include <vector>

#include "ui/screen.h"
#include "ui/sessioncontroller.h"
#include "ui/welcome.h"

class QAction;
class QMenu;

namespace kestrin::ui {

class MemoForm;
class Notepad;
class TickerForm;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(SessionController& controller, QWidget* parent = nullptr);

    // Loads the game with Welcome showing, then shows the main menu. Returns
    // false when there is no game to show (game.ini missing).
    bool start(const std::filesystem::path& gameFolder);

    // Opens the game in `folder` as start-up does, once the save prompt of
    // closing has run. A folder without game.ini is refused and this game
    // stays. The File menu's folder dialog and recent list end here.
    bool openGameFolder(const QString& folder);

    void showScreen(const QString& name);
    Screen* screen(const QString& name) const;
    Screen* currentScreen() const;
    const std::vector<Screen*>& screens() const { return screens_; }
    Welcome& welcome() { return welcome_; }

    // Last week's reports as the manager's preference has them: the ticker
    // tape from its start, or the memos from the first.
    void replayReports();
    // The windows beside the screens, made at first use.
    MemoForm* memoForm();
    TickerForm* tickerForm();
    Notepad* notepad();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void addScreen(Screen* screen);
    // A dialog that a screen opens by name, as it would a screen.
    void addDialog(const QString& name, std::function<void()> open);
    void updateTitle();
    void makeMenus();
    void fillRecentMenu();

    SessionController& controller_;
    QStackedWidget* stack_;
    std::vector<Screen*> screens_;
    std::map<QString, std::function<void()>> dialogs_;
    Welcome welcome_;
    bool interactive_ = false;  // Welcome and hiding only when started for the manager
    bool exitStarted_ = false;
    MemoForm* memoForm_ = nullptr;
    TickerForm* tickerForm_ = nullptr;
    Notepad* notepad_ = nullptr;
    QMenu* recentMenu_ = nullptr;
    QAction* saveAction_ = nullptr;
    QAction* sendAction_ = nullptr;
};

}  // namespace kestrin::ui
