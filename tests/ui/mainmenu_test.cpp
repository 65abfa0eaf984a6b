// The main menu driven through its real widgets.
#include <QLineEdit>
#include <QTableWidget>
#include <QtTest>

#include "core/clubview.h"
#include "core/gameini.h"
#include "core/gamefolder.h"
#include "files/turnsheet.h"
#include "ui/mainmenu.h"
#include "ui/widgets.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

class MainMenuTest : public QObject {
    Q_OBJECT
private slots:
    void clubListsMoveTogether_data();
    void clubListsMoveTogether();
    void labelsShowTheClub();
    void weeklyChoiceStoresTheLine_data();
    void weeklyChoiceStoresTheLine();
    void fillingTheScreenChangesNoOrder();
    void pendingWorksSwitchTheirBoxOff_data();
    void pendingWorksSwitchTheirBoxOff();
    void clearTurn_data();
    void clearTurn();
    void closingAsksToSave_data();
    void closingAsksToSave();
    void picturesAreRemembered();
    void titlesFollowTheScreen();
    void firstRunSwitchesClubControlsOff();
    void startUpShowsWelcomeThenTheMenu_data();
    void startUpShowsWelcomeThenTheMenu();
    void everyScreenButtonIsLive();
};

void MainMenuTest::clubListsMoveTogether_data() {
    QTest::addColumn<QString>("screen");
    QTest::addColumn<int>("index");
    QTest::newRow("squad screen to the last club") << "SquadScr" << 2;
    QTest::newRow("main menu to the second club") << "MainMenu" << 1;
}

void MainMenuTest::clubListsMoveTogether() {
    QFETCH(QString, screen);
    QFETCH(int, index);
    UiGame g;
    g.teamList(screen.toLatin1().constData())->setCurrentIndex(index);

    QCOMPARE(g.session().CurrentClub, index);
    for (const char* s : {"MainMenu", "SquadScr"}) QCOMPARE(g.teamList(s)->currentIndex(), index);
    const Club& club = g.session().Clubs[size_t(index)];
    QCOMPARE(g.teamList("MainMenu")->currentText(), q(club.Name));
    QCOMPARE(g.on<QTableWidget>("SquadScr", "grdSquad")->rowCount(), int(club.Players.size()));
    QCOMPARE(g.on<ui::FigureRow>("MainMenu", "lblBalance")->fullText(),
             QString(" Bank Balance: \u00A3 %1%2").arg(club.Balance < 0 ? "" : " ").arg(club.Balance));
    QVERIFY(!g.session().TurnChanged);
    QVERIFY(!g.session().FillingScreen);
}

void MainMenuTest::labelsShowTheClub() {
    UiGame g;
    g.teamList("MainMenu")->setCurrentIndex(1);
    const Club& c = g.session().Clubs[1];
    auto figure = [&](const char* name) { return g.on<ui::FigureRow>("MainMenu", name)->fullText(); };
    auto num = [](long v) { return (v < 0 ? QString() : QString(" ")) + QString::number(v); };
    QCOMPARE(figure("lblCredits"), " Number of credits: " + num(c.Credits));
    QCOMPARE(figure("lblStadium"), " Stadium: " + q(c.Stadium));
    QCOMPARE(figure("lblTransfersSpent"), QString(" Transfers spent: \u00A3 ") + num(c.TransfersSpent));
    QCOMPARE(g.on<QLineEdit>("MainMenu", "txtCapInc")->text(), q(c.CapacityUpgrade));
    // The department box holds the fixed lines first, then the pairs.
    QComboBox* dept = g.on<QComboBox>("MainMenu", "ComboDept");
    QCOMPARE(dept->itemText(0), QString("No department increase this week"));
    QCOMPARE(dept->itemText(8), QString("Scout Department increase"));
}

void MainMenuTest::weeklyChoiceStoresTheLine_data() {
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("line");
    QTest::newRow("betting") << "ComboBet" << "Bet this week";
    QTest::newRow("facilities") << "ComboFac" << "Action facility increase";
    QTest::newRow("department") << "ComboDept" << "Physio Department increase";
}

void MainMenuTest::weeklyChoiceStoresTheLine() {
    QFETCH(QString, box);
    QFETCH(QString, line);
    UiGame g;
    Club& club = g.session().Clubs[0];
    club.FacilityUpgrade.clear();  // no works under way, so every box is open
    club.DepartmentUpgrade.clear();
    club.BettingOrder.clear();  // each box starts on its first line
    club.FacilityOrder.clear();
    club.DepartmentOrder.clear();
    const Club other = g.session().Clubs[1];
    g.controller->selectClub(0);
    QVERIFY(!g.session().TurnChanged);

    QComboBox* combo = g.on<QComboBox>("MainMenu", box.toLatin1().constData());
    QVERIFY(combo->isEnabled());
    QCOMPARE(combo->currentIndex(), 0);
    const int at = combo->findText(line);
    QVERIFY(at > 0);
    combo->setCurrentIndex(at);

    const std::string& got = box == "ComboBet"   ? club.BettingOrder
                             : box == "ComboFac" ? club.FacilityOrder
                                                 : club.DepartmentOrder;
    QCOMPARE(q(got), line);
    QVERIFY(g.session().TurnChanged);
    QVERIFY(g.session().Clubs[1] == other);
}

void MainMenuTest::fillingTheScreenChangesNoOrder() {
    UiGame g;
    // A first visit gives empty orders their defaults; after that, going
    // round the clubs again, by any list, changes nothing.
    for (int i : {1, 2, 0}) g.teamList("MainMenu")->setCurrentIndex(i);
    const std::vector<Club> before = g.session().Clubs;
    for (const Club& c : before) QVERIFY(!c.BettingOrder.empty() && !c.DepartmentOrder.empty());
    for (int i : {1, 2, 0, 0}) g.teamList("SquadScr")->setCurrentIndex(i);
    g.controller->selectClub(0);
    QVERIFY(!g.session().TurnChanged);
    QVERIFY(g.session().Clubs == before);
}

void MainMenuTest::pendingWorksSwitchTheirBoxOff_data() {
    QTest::addColumn<QString>("capacityUpgrade");
    QTest::addColumn<QString>("orderBefore");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QString>("shown");
    QTest::newRow("works under way") << "Action capacity increase" << "Action capacity increase" << false
                                     << "No capacity increase this week";
    QTest::newRow("none under way") << "No capacity upgrade" << "Action capacity increase" << true
                                    << "Action capacity increase";
}

void MainMenuTest::pendingWorksSwitchTheirBoxOff() {
    QFETCH(QString, capacityUpgrade);
    QFETCH(QString, orderBefore);
    QFETCH(bool, enabled);
    QFETCH(QString, shown);
    UiGame g;
    Club& club = g.session().Clubs[1];
    club.CapacityUpgrade = capacityUpgrade.toStdString();
    club.CapacityOrder = orderBefore.toStdString();
    g.teamList("MainMenu")->setCurrentIndex(1);
    QComboBox* cap = g.on<QComboBox>("MainMenu", "ComboCap");
    QCOMPARE(cap->isEnabled(), enabled);
    QCOMPARE(cap->currentText(), shown);
    QCOMPARE(q(club.CapacityOrder), shown);
    QCOMPARE(g.on<QLineEdit>("MainMenu", "txtCapInc")->text(), capacityUpgrade);
    QVERIFY(!g.session().TurnChanged);
}

void MainMenuTest::clearTurn_data() {
    QTest::addColumn<bool>("all");
    QTest::addColumn<bool>("answer");
    QTest::newRow("this turn, No") << false << false;
    QTest::newRow("this turn, Yes") << false << true;
    QTest::newRow("all turns, No") << true << false;
    QTest::newRow("all turns, Yes") << true << true;
}

void MainMenuTest::clearTurn() {
    QFETCH(bool, all);
    QFETCH(bool, answer);
    UiGame g;
    g.teamList("MainMenu")->setCurrentIndex(1);
    std::vector<std::string> files, bytes;
    for (const Club& c : g.session().Clubs) {
        files.push_back(c.ClubFile);
        bytes.push_back(g.dir.read("Turnsheet/" + c.ClubFile + ".txt"));
        QVERIFY(!bytes.back().empty());
    }
    const std::string name = g.session().Clubs[1].Name;
    g.session().Clubs[1].Name = "Renamed in memory";  // a reload brings the name back
    g.messages.answers = {answer};

    g.button("MainMenu", all ? "btnClear1" : "btnClear0")->click();

    const auto asked = g.questions();
    QCOMPARE(int(asked.size()), 1);
    QCOMPARE(q(asked[0].title), QString("Clear turn"));
    QCOMPARE(q(asked[0].text),
             all ? QString("Are you sure that you want to clear all turns ?\r\n\r\nIf you choose to do this it will "
                           "restart the program.")
                 : QString("Are you sure that you want to clear Renamed in memory's turn ?\r\n\r\nIf you choose to "
                           "do this it will restart the program."));
    for (size_t i = 0; i < files.size(); ++i) {
        const bool gone = answer && (all || i == 1);
        const fs::path p = g.dir.path() / "Turnsheet" / (files[i] + ".txt");
        QCOMPARE(fs::exists(p), !gone);
        if (!gone) QCOMPARE(q(g.dir.read("Turnsheet/" + files[i] + ".txt")), q(bytes[i]));
    }
    if (answer) {
        QCOMPARE(q(g.session().Clubs[1].Name), q(name));
        QCOMPARE(g.session().CurrentClub, 0);
        QCOMPARE(g.teamList("SquadScr")->currentIndex(), 0);
        QCOMPARE(g.teamList("MainMenu")->itemText(1), q(name));
    } else {
        QCOMPARE(q(g.session().Clubs[1].Name), QString("Renamed in memory"));
        QCOMPARE(g.session().CurrentClub, 1);
    }
}

void MainMenuTest::closingAsksToSave_data() {
    QTest::addColumn<bool>("change");
    QTest::addColumn<bool>("answer");
    QTest::newRow("no change, no question") << false << true;
    QTest::newRow("changed, saved") << true << true;
    QTest::newRow("changed, not saved") << true << false;
}

void MainMenuTest::closingAsksToSave() {
    QFETCH(bool, change);
    QFETCH(bool, answer);
    UiGame g;
    const std::string file = "Turnsheet/" + g.session().Clubs[0].ClubFile + ".txt";
    const std::string before = g.dir.read(file);
    QComboBox* bet = g.on<QComboBox>("MainMenu", "ComboBet");
    if (change) bet->setCurrentIndex(bet->findText(bet->currentIndex() == 0 ? "Bet this week" : "No betting this week"));
    const std::string chosen = g.session().Clubs[0].BettingOrder;
    g.messages.answers = {answer};

    g.button("MainMenu", "btnQuit")->click();

    QVERIFY(!g.window->isVisible());
    const auto asked = g.questions();
    QCOMPARE(int(asked.size()), change ? 1 : 0);
    if (change) {
        QCOMPARE(q(asked[0].title), QString("Save Changes ?"));
        QCOMPARE(q(asked[0].text),
                 QString("Changes have been made to the turnsheet\r\n\r\nDo you want to save the turnsheet ?"));
    }
    const std::string after = g.dir.read(file);
    if (change && answer) {
        QCOMPARE(q(after), q(turnsheetText(g.session().Clubs[0])));
        QVERIFY(after.find("Betting:\r\n" + chosen + "\r\n") != std::string::npos);
    } else {
        QCOMPARE(q(after), q(before));
    }
}

void MainMenuTest::picturesAreRemembered() {
    UiGame g;
    auto* menu = static_cast<ui::MainMenu*>(g.window->screen("MainMenu"));
    QStringList titles;
    QString answer;
    menu->setFilePicker([&](const QString& title, const QString&, const QString& filter) {
        titles << title + " | " + filter;
        return answer;
    });
    const Club& club = g.session().Clubs[0];
    const fs::path pref = g.dir.path() / (club.ClubFile + "pref.ini");

    answer = "";  // cancelled
    g.button("MainMenu", "btnChangeBadge")->click();
    QVERIFY(!fs::exists(pref));
    answer = q((g.dir.path() / "my badge.gif").string());
    g.button("MainMenu", "btnChangeBadge")->click();
    QCOMPARE(q(g.dir.read(club.ClubFile + "pref.ini")), answer + "\r\n\r\n");

    answer = "/nowhere/shirt.jpg";
    g.button("MainMenu", "BtnChangeShirt")->click();
    QCOMPARE(q(g.dir.read(club.ClubFile + "pref.ini")), q((g.dir.path() / "my badge.gif").string()) +
                                                            "\r\n/nowhere/shirt.jpg\r\n");
    QCOMPARE(titles, QStringList({"Please select your badge picture | Picture Files (*.bmp *.dib *.gif *.jpg)",
                                  "Please select your badge picture | Picture Files (*.bmp *.dib *.gif *.jpg)",
                                  "Please select your shirt picture | Picture Files (*.bmp *.dib *.gif *.jpg)"}));

    // Another club has its own file; coming back reads this one again.
    g.teamList("MainMenu")->setCurrentIndex(1);
    QCOMPARE(q(g.controller->view().ShirtFile), QString());
    g.teamList("MainMenu")->setCurrentIndex(0);
    QCOMPARE(q(g.controller->view().ShirtFile), QString("/nowhere/shirt.jpg"));
    // A picture that can't be loaded falls back to the built-in one without a word.
    QVERIFY(!g.on<QLabel>("MainMenu", "ShirtImage")->pixmap().isNull());
    QVERIFY(g.messages.entries.empty());
}

void MainMenuTest::titlesFollowTheScreen() {
    UiGame g;
    const QString game = q(g.session().Game.GameName);
    QVERIFY(!game.isEmpty());
    QCOMPARE(g.window->windowTitle(), game + " turnsheet entry : Main Menu");
    g.button("MainMenu", "btnSquad")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("SquadScr"));
    QCOMPARE(g.window->windowTitle(), game + " turnsheet entry : Squad Screen");
    g.button("SquadScr", "btnReturn")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("MainMenu"));
    QCOMPARE(g.window->windowTitle(), game + " turnsheet entry : Main Menu");
}

void MainMenuTest::firstRunSwitchesClubControlsOff() {
    UiGame g{UiGame::Empty{}};
    g.writeFirstRun();
    g.open();

    QVERIFY(g.session().FirstRun);
    onlyMessage(g, RecordingMessages::Kind::Inform, "Welcome to Empty League !");
    for (const char* dir : {"Squadsheets", "Weekly", "Turnsheet", "Profiles"}) QVERIFY(fs::is_directory(g.dir.path() / dir));
    for (const char* b : {"btnSquad", "Command2", "Command3", "btnClear0", "btnClear1", "btnChangeBadge", "BtnChangeShirt"})
        QVERIFY2(!g.button("MainMenu", b)->isEnabled(), b);
    for (const char* c : {"ComboBet", "ComboCap", "ComboFac", "ComboDept", "TeamList"})
        QVERIFY2(!g.on<QComboBox>("MainMenu", c)->isEnabled(), c);
    QVERIFY(g.button("MainMenu", "btnQuit")->isEnabled());
    QCOMPARE(g.on<ui::FigureRow>("MainMenu", "lblCredits")->fullText(), QString(" Number of credits: "));
    // Nothing to save, so closing asks nothing and writes nothing.
    g.button("MainMenu", "Command2")->click();
    g.window->close();
    QCOMPARE(int(g.messages.entries.size()), 1);
    QVERIFY(fs::is_empty(g.dir.path() / "Turnsheet"));
}

void MainMenuTest::startUpShowsWelcomeThenTheMenu_data() {
    QTest::addColumn<bool>("game");
    QTest::newRow("a demo game") << true;
    QTest::newRow("no game.ini") << false;
}

void MainMenuTest::startUpShowsWelcomeThenTheMenu() {
    QFETCH(bool, game);
    UiGame g{UiGame::Empty{}};
    if (game) UiGame::makeDemo(g.dir.path());
    g.controller = std::make_unique<ui::SessionController>(g.messages);
    g.window = std::make_unique<ui::MainWindow>(*g.controller);
    QStringList statuses;
    bool welcomeShown = false;
    QObject::connect(g.controller.get(), &ui::SessionController::loadStatus, [&](const QString& s) {
        statuses << s;
        welcomeShown = welcomeShown || g.window->welcome().isVisible();
        QCOMPARE(g.window->welcome().status(), s);
    });

    QCOMPARE(g.window->start(g.dir.path()), game);

    QVERIFY(!g.window->welcome().isVisible());
    QCOMPARE(g.window->isVisible(), game);
    if (game) {
        QVERIFY(welcomeShown);
        QCOMPARE(g.window->welcome().windowTitle(), "Welcome to " + q(g.session().Game.GameName) + " !");
        QCOMPARE(statuses.first(), QString("Loading Squadsheets"));
        QVERIFY(statuses.contains("Loading Club Squad Details"));
        QCOMPARE(g.window->currentScreen()->objectName(), QString("MainMenu"));
    } else {
        QVERIFY(statuses.isEmpty());
        onlyMessage(g, RecordingMessages::Kind::Refuse, "Missing game.ini file",
                    "The game.ini file is missing !   Please contact your game administrator to obtain this file.");
    }
}

void MainMenuTest::everyScreenButtonIsLive() {
    UiGame g;
    for (QPushButton* b : g.window->screen("MainMenu")->findChildren<QPushButton*>()) {
        QVERIFY2(b->isEnabled(), qPrintable(b->objectName()));
        QVERIFY2(!b->property("comingSoon").toBool(), qPrintable(b->objectName()));
    }
}

QTEST_MAIN(MainMenuTest)
#include "mainmenu_test.moc"
