// The menu bar: switching game folders, the recent list, and what the File
// menu's actions reach.
#include <QMenu>
#include <QSettings>
#include <QtTest>

#include "files/turnsheet.h"
#include "ui/loadturndialog.h"
#include "ui/qtext.h"
#include "ui/recentfolders.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

QString folderName(const fs::path& p) { return QDir::cleanPath(ui::qpath(p)); }

// The recent list as the manager sees it on opening the menu: each folder
// with whether it can be chosen.
QList<QPair<QString, bool>> recentEntries(UiGame& g) {
    auto* menu = g.window->findChild<QMenu*>("menuRecent");
    emit menu->aboutToShow();
    QList<QPair<QString, bool>> out;
    for (QAction* a : menu->actions())
        if (a->data().isValid()) out << qMakePair(a->data().toString(), a->isEnabled());
    return out;
}

QAction* recentAction(UiGame& g, const fs::path& folder) {
    auto* menu = g.window->findChild<QMenu*>("menuRecent");
    emit menu->aboutToShow();
    for (QAction* a : menu->actions())
        if (a->data().toString() == folderName(folder)) return a;
    return nullptr;
}

QAction* action(UiGame& g, const char* name) { return g.window->findChild<QAction*>(name); }

// Two demo games, the first started as the program starts.
struct TwoGames {
    UiGame g{UiGame::Empty{}};
    TempDir second;
    TwoGames() {
        ui::clearRecentGameFolders();
        UiGame::makeDemo(g.dir.path(), 1, 3);
        UiGame::makeDemo(second.path(), 1, 2);
        g.controller = std::make_unique<ui::SessionController>(g.messages);
        g.window = std::make_unique<ui::MainWindow>(*g.controller);
        g.window->start(g.dir.path());
    }
};

}  // namespace

class MenusTest : public QObject {
    Q_OBJECT
    TempDir config_;

private slots:
    void initTestCase() {
        // Never the real user's settings, however the test is run.
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ui::qpath(config_.path()));
    }
    void switchingGameSavesFirstAndListsIt();
    void aFolderWithoutAGameIsRefused_data();
    void aFolderWithoutAGameIsRefused();
    void recentListKeepsEightAndShowsGoneOnesOff();
    void fileMenuReachesTheTurnOperations();
};

void MenusTest::switchingGameSavesFirstAndListsIt() {
    TwoGames t;
    UiGame& g = t.g;
    QCOMPARE(g.session().ClubCount(), 3);
    QComboBox* bet = g.on<QComboBox>("MainMenu", "ComboBet");
    bet->setCurrentIndex(bet->findText(bet->currentIndex() == 0 ? "Bet this week" : "No betting this week"));
    const Club changed = g.session().Clubs[0];
    g.messages.answers = {true};

    QVERIFY(g.window->openGameFolder(ui::qpath(t.second.path())));

    QCOMPARE(int(g.questions().size()), 1);
    QCOMPARE(q(g.questions()[0].title), QString("Save Changes ?"));
    QCOMPARE(q(g.dir.read("Turnsheet/" + changed.ClubFile + ".txt")), q(turnsheetText(changed)));
    QCOMPARE(folderName(g.session().Folder.root()), folderName(t.second.path()));
    QCOMPARE(g.session().ClubCount(), 2);
    QCOMPARE(g.teamList("MainMenu")->count(), 2);
    QCOMPARE(recentEntries(g), (QList<QPair<QString, bool>>{{folderName(t.second.path()), true},
                                                            {folderName(g.dir.path()), true}}));

    // Back to the first from the list; nothing changed here, so nothing asked.
    QAction* first = recentAction(g, g.dir.path());
    QVERIFY(first);
    first->trigger();
    QCOMPARE(int(g.questions().size()), 1);
    QCOMPARE(folderName(g.session().Folder.root()), folderName(g.dir.path()));
    QCOMPARE(g.session().ClubCount(), 3);
    QCOMPARE(q(g.session().Clubs[0].BettingOrder), q(changed.BettingOrder));
    QCOMPARE(ui::recentGameFolders(), (QStringList{folderName(g.dir.path()), folderName(t.second.path())}));
}

void MenusTest::aFolderWithoutAGameIsRefused_data() {
    QTest::addColumn<bool>("exists");
    QTest::newRow("a folder with no game.ini") << true;
    QTest::newRow("a folder that is gone") << false;
}

void MenusTest::aFolderWithoutAGameIsRefused() {
    QFETCH(bool, exists);
    TwoGames t;
    UiGame& g = t.g;
    TempDir other;
    other.write("Squadsheets/clubsq.txt", "not a game without its game.ini");
    const fs::path folder = exists ? other.path() : other.path() / "gone";
    QComboBox* bet = g.on<QComboBox>("MainMenu", "ComboBet");
    bet->setCurrentIndex(bet->findText(bet->currentIndex() == 0 ? "Bet this week" : "No betting this week"));
    const std::string chosen = g.session().Clubs[0].BettingOrder;
    const QStringList recent = ui::recentGameFolders();

    QVERIFY(!g.window->openGameFolder(ui::qpath(folder)));

    onlyMessage(g, RecordingMessages::Kind::Refuse, "Missing game.ini file",
                "The game.ini file is missing !   Please contact your game administrator to obtain this file.");
    // The game on screen stays, its unsaved orders with it.
    QCOMPARE(folderName(g.session().Folder.root()), folderName(g.dir.path()));
    QCOMPARE(g.session().ClubCount(), 3);
    QVERIFY(g.session().TurnChanged);
    QCOMPARE(q(g.session().Clubs[0].BettingOrder), q(chosen));
    QCOMPARE(ui::recentGameFolders(), recent);
}

void MenusTest::recentListKeepsEightAndShowsGoneOnesOff() {
    TwoGames t;
    UiGame& g = t.g;
    TempDir root;
    std::vector<fs::path> f;
    for (int i = 0; i < 10; ++i) {
        f.push_back(root.path() / ("game" + std::to_string(i)));
        root.write("game" + std::to_string(i) + "/GAME.INI", "");  // any case counts, as for the loader
        ui::noteRecentGameFolder(f.back());
    }
    ui::noteRecentGameFolder(f[5] / "");  // the same folder again, written with a slash
    fs::remove(f[5] / "GAME.INI");
    fs::remove_all(f[9]);

    QList<QPair<QString, bool>> want;
    for (int i : {5, 9, 8, 7, 6, 4, 3, 2}) want << qMakePair(folderName(f[size_t(i)]), i != 5 && i != 9);
    QCOMPARE(recentEntries(g), want);
    QCOMPARE(folderName(ui::lastGameFolder().value_or("")), folderName(f[8]));

    action(g, "actClearRecent")->trigger();
    QVERIFY(recentEntries(g).isEmpty());
    QVERIFY(!action(g, "actClearRecent")->isEnabled());
    QVERIFY(!ui::lastGameFolder());
}

void MenusTest::fileMenuReachesTheTurnOperations() {
    TwoGames t;
    UiGame& g = t.g;
    fs::remove_all(g.dir.path() / "Turnsheet");
    fs::create_directories(g.dir.path() / "Turnsheet");

    action(g, "actSaveTurnsheet")->trigger();
    for (const Club& c : g.session().Clubs)
        QCOMPARE(q(g.dir.read("Turnsheet/" + c.ClubFile + ".txt")), q(turnsheetText(c)));

    action(g, "actLoadTurn")->trigger();
    QVERIFY(g.window->findChild<ui::LoadTurnDialog*>("LoadTurn"));

    // A game still waiting for its first turn has no turnsheet to save or send.
    TempDir empty;
    GameIni ini;
    ini.GameName = "Empty League";
    writeFileAtomic(empty.path() / "game.ini", gameIniBytes(ini));
    QVERIFY(g.window->openGameFolder(ui::qpath(empty.path())));
    QVERIFY(!action(g, "actSaveTurnsheet")->isEnabled());
    QVERIFY(!action(g, "actSendTurnsheet")->isEnabled());
}

QTEST_MAIN(MenusTest)
#include "menus_test.moc"
