// The fixture screen driven through its real widgets: each pick lands in the
// Fixture and in the saved Turnsheet, the time rules reset their choices, and
// the fixture lists of both match screens follow the club.
#include <QComboBox>
#include <QListWidget>
#include <QtTest>
#include <map>

#include "core/gamefolder.h"
#include "core/text.h"
#include "match/ordertables.h"
#include "ui/fixt.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

// Picks an entry by its text, as a click on the control would.
void pick(UiGame& g, const QString& control, const QString& text) {
    QWidget* w = g.on<QWidget>("Fixt", control.toLatin1().constData());
    QVERIFY2(w, qPrintable(control));
    if (auto* combo = qobject_cast<QComboBox*>(w)) {
        const int i = combo->findText(text);
        QVERIFY2(i >= 0, qPrintable(control + ": " + text));
        combo->setCurrentIndex(i);
    } else if (auto* list = qobject_cast<QListWidget*>(w)) {
        const auto found = list->findItems(text, Qt::MatchExactly);
        QVERIFY2(found.size() == 1, qPrintable(control + ": " + text));
        list->setCurrentItem(found[0]);
    } else {
        QFAIL(qPrintable(control + " is neither a combo box nor a list"));
    }
}

QString shown(UiGame& g, const char* screen, const char* control) {
    QWidget* w = g.on<QWidget>(screen, control);
    if (auto* combo = qobject_cast<QComboBox*>(w)) return combo->currentIndex() < 0 ? combo->placeholderText() : combo->currentText();
    if (auto* list = qobject_cast<QListWidget*>(w)) return list->currentItem() && list->currentItem()->isSelected() ? list->currentItem()->text() : QString();
    return "?";
}

QString expectedLine(const Fixture& f) {
    const QString venue = f.Venue == "H" ? "Home vs " : f.Venue == "A" ? "Away vs " : "";
    return venue + q(f.Opponent) + " - " + q(f.Competition);
}

// A second match for the club, written here, so the lists have a choice.
void addMatch(UiGame& g, int club, const char* opponent) {
    Club& c = g.session().Clubs[size_t(club)];
    Fixture f = c.Fixtures[0];
    f.Venue = "A";
    f.Opponent = opponent;
    f.Competition = "Demo Cup";
    f.Tactics = 6;  // Diamond
    f.Captain = 9;
    c.Fixtures.push_back(f);
    c.FixtureCount = int16_t(c.Fixtures.size());
}

}  // namespace

class FixtTest : public QObject {
    Q_OBJECT
private slots:
    void bothScreensListTheFixtures();
    void aPickIsStoredAndWritten_data();
    void aPickIsStoredAndWritten();
    void noneClearsItsRule_data();
    void noneClearsItsRule();
    void setPieceTakersWhenShown();
    void choosingAFixtureShowsItOnBothScreens();
    void aNewClubStartsAtItsFirstFixture_data();
    void aNewClubStartsAtItsFirstFixture();
    void captainMarkMovesOnThePitch();
    void aClubWithoutFixturesHasNothingToOrder();
    void movingBetweenTheScreens();
};

void FixtTest::bothScreensListTheFixtures() {
    UiGame g;
    for (int club : {2, 0, 1}) {
        g.teamList("Fixt")->setCurrentIndex(club);
        QStringList want;
        for (const Fixture& f : g.session().Clubs[size_t(club)].Fixtures) want << expectedLine(f);
        QVERIFY(!want.isEmpty());
        for (const char* screen : {"Fixt", "PitchGrid"}) {
            auto* list = g.on<QListWidget>(screen, "lstFixtures");
            QCOMPARE(itemsOf(list), want);
            QCOMPARE(list->currentRow(), 0);
            QCOMPARE(g.teamList(screen)->currentIndex(), club);
        }
    }
}

void FixtTest::aPickIsStoredAndWritten_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("entry");
    // "Label=value" of the Turnsheet lines the pick writes.
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("formation") << "cboFormation" << "3 - 5 - 2"
                               << QStringList{"Defence:= 3 ", "Midfield:= 5 ", "Attack:= 2 "};
    QTest::newRow("tactic, written one higher") << "cboTactics" << "Pass It" << QStringList{"Tactics:= 11 "};
    QTest::newRow("attack aggression") << "cboAttAgg" << "5" << QStringList{"AttAgg:= 5 "};
    QTest::newRow("captain") << "lstCaptain" << "1" << QStringList{"Captain:= 1 "};
    QTest::newRow("no corner aiming") << "lstAiming" << "None" << QStringList{"Corners Aiming:= 0 "};
    QTest::newRow("revolver shirt") << "lstRevolver" << "11" << QStringList{"Revolver:= 11 "};
    QTest::newRow("pace by position") << "lstPace" << "Fast" << QStringList{"Pace:= 5 "};
    QTest::newRow("long passes") << "lstLength" << "Long" << QStringList{"PassLength:= 2 "};
    QTest::newRow("first change's minute") << "cboTTCO" << "60" << QStringList{"Time To Change One:= 60 "};
    QTest::newRow("formation code when drawing")
        << "cboTTCOFID" << "5 - 3 - 2" << QStringList{"Time To Change One Formation If Drawing:= 6 "};
    QTest::newRow("change tactic counts from one")
        << "cboTTCTTIW" << "Sardines" << QStringList{"Time To Change Two Tactic If Winning:= 23 "};
    QTest::newRow("13 for 11") << "cboWTDILT" << "13 for 11" << QStringList{"What To Do If Losing2:= 21111 "};
    QTest::newRow("worst attacker off")
        << "cboWTDIDO" << "12 for worst attacker" << QStringList{"What To Do If Drawing:= 3113 "};
}

void FixtTest::aPickIsStoredAndWritten() {
    QFETCH(QString, control);
    QFETCH(QString, entry);
    QFETCH(QStringList, lines);
    UiGame g;
    g.window->showScreen("Fixt");
    const Lines before = g.savedSheet();
    std::map<std::pair<std::string, int>, std::string> want;
    bool differs = false;
    for (const QString& l : lines) {
        const std::string label = l.section('=', 0, 0).toStdString(), value = l.section('=', 1).toStdString();
        want[{label, 1}] = value;
        const size_t i = valueLine(before, label);
        QVERIFY2(i != std::string::npos, label.c_str());
        differs |= before[i] != value;
    }
    QVERIFY2(differs, "the pick must change something for the test to tell");
    QVERIFY(!g.session().TurnChanged);

    pick(g, control, entry);
    QVERIFY(g.session().TurnChanged);
    QCOMPARE(shown(g, "Fixt", control.toLatin1().constData()), entry);
    expectOnly(before, g.savedSheet(), want);
}

void FixtTest::noneClearsItsRule_data() {
    QTest::addColumn<QString>("time");
    QTest::addColumn<QStringList>("cleared");  // control=shown text
    QTest::addColumn<QStringList>("kept");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("a change rule's six choices")
        << "cboTTCO"
        << QStringList{"cboTTCOFIL=0 - 0 - 0", "cboTTCOFID=0 - 0 - 0", "cboTTCOFIW=0 - 0 - 0",
                       "cboTTCOTIL=No Specific Tactic Employed", "cboTTCOTID=No Specific Tactic Employed",
                       "cboTTCOTIW=No Specific Tactic Employed"}
        << QStringList{"cboWTDILO=12 for 3", "cboTTCTFIL=4 - 4 - 2"}
        << QStringList{"Time To Change One:= 0 ", "Time To Change One Formation If Losing:= 0 ",
                       "Time To Change One Formation If Drawing:= 0 ", "Time To Change One Formation If Winning:= 0 ",
                       "Time To Change One Tactic If Losing:= 1 ", "Time To Change One Tactic If Drawing:= 1 ",
                       "Time To Change One Tactic If Winning:= 1 ", "Time To Change Two:= 30 ",
                       "Time To Change Two Formation If Losing:= 2 ", "Time For Substitution One:= 30 ",
                       "What To Do If Losing:= 1113 "};
    QTest::newRow("a substitution's three actions only")
        << "cboTFSO"
        << QStringList{"cboWTDILO=No Change", "cboWTDIDO=No Change", "cboWTDIWO=No Change"}
        << QStringList{"cboTTCOFIL=4 - 4 - 2", "cboTTCOTIW=Diamond"}
        << QStringList{"Time For Substitution One:= 0 ", "What To Do If Losing:= 0 ", "What To Do If Drawing:= 0 ",
                       "What To Do If Winning:= 0 ", "Time To Change One:= 30 ",
                       "Time To Change One Formation If Losing:= 2 ", "Time To Change One Tactic If Winning:= 7 ",
                       "Time To Change Two:= 30 ", "Time To Change Two Formation If Losing:= 2 "};
}

void FixtTest::noneClearsItsRule() {
    QFETCH(QString, time);
    QFETCH(QStringList, cleared);
    QFETCH(QStringList, kept);
    QFETCH(QStringList, lines);
    UiGame g;
    g.window->showScreen("Fixt");
    // Both rules of each kind set first, through their controls.
    const std::pair<const char*, const char*> setUp[] = {
        {"cboTTCO", "30"},        {"cboTTCOFIL", "4 - 4 - 2"}, {"cboTTCOFID", "4 - 4 - 2"},
        {"cboTTCOFIW", "4 - 4 - 2"}, {"cboTTCOTIL", "Diamond"}, {"cboTTCOTID", "Diamond"},
        {"cboTTCOTIW", "Diamond"}, {"cboTTCT", "30"},          {"cboTTCTFIL", "4 - 4 - 2"},
        {"cboTFSO", "30"},        {"cboWTDILO", "12 for 3"},   {"cboWTDIDO", "12 for 3"},
        {"cboWTDIWO", "12 for 3"}};
    for (const auto& [control, text] : setUp) pick(g, control, text);
    const Lines before = g.savedSheet();

    pick(g, time, "None");
    QCOMPARE(shown(g, "Fixt", time.toLatin1().constData()), QString("None"));
    for (const QString& c : cleared + kept)
        QCOMPARE(shown(g, "Fixt", c.section('=', 0, 0).toLatin1().constData()), c.section('=', 1));
    std::map<std::pair<std::string, int>, std::string> want;
    for (const QString& l : lines) want[{l.section('=', 0, 0).toStdString(), 1}] = l.section('=', 1).toStdString();
    expectOnly(before, g.savedSheet(), want);
}

void FixtTest::setPieceTakersWhenShown() {
    UiGame g;
    Fixture& f = g.session().Clubs[0].Fixtures[0];
    f.Captain = 0;
    f.Penalties = 0;
    f.FreeKicks = 0;
    f.Corners = 4;
    g.controller->selectClub(0);
    QCOMPARE(int(f.Captain), 1);
    QCOMPARE(int(f.Penalties), 1);
    QCOMPARE(int(f.FreeKicks), 0);
    QCOMPARE(int(f.Corners), 4);
    QCOMPARE(shown(g, "Fixt", "lstCaptain"), QString("1"));
    QCOMPARE(shown(g, "Fixt", "lstPenalty"), QString("1"));
    QCOMPARE(shown(g, "Fixt", "lstCorners"), QString("4"));
    // No shirt 0 in the list: nothing chosen, and nothing stored by showing.
    QCOMPARE(shown(g, "Fixt", "lstFreeKicks"), QString());
    const Lines sheet = g.savedSheet();
    QCOMPARE(q(sheet[valueLine(sheet, "Captain:")]), QString(" 1 "));
    QCOMPARE(q(sheet[valueLine(sheet, "FreeKicks:")]), QString(" 0 "));
}

void FixtTest::choosingAFixtureShowsItOnBothScreens() {
    UiGame g;
    addMatch(g, 0, "Second Opponents");
    g.controller->selectClub(0);
    g.window->showScreen("Fixt");
    auto* fixt = g.on<QListWidget>("Fixt", "lstFixtures");
    auto* pitch = g.on<QListWidget>("PitchGrid", "lstFixtures");
    const int last = fixt->count() - 1;
    QCOMPARE(fixt->item(last)->text(), QString("Away vs Second Opponents - Demo Cup"));

    fixt->setCurrentRow(last);
    QCOMPARE(g.controller->view().CurrentFixture, last + 1);
    QCOMPARE(pitch->currentRow(), last);
    QCOMPARE(shown(g, "Fixt", "cboTactics"), QString("Diamond"));
    QCOMPARE(shown(g, "Fixt", "lstCaptain"), QString("9"));
    QVERIFY(!g.session().TurnChanged);

    // A pick now goes to that fixture and to no other.
    const Fixture first = g.session().Clubs[0].Fixtures[0];
    pick(g, "cboTactics", "Route One");
    QCOMPARE(int(g.session().Clubs[0].Fixtures[size_t(last)].Tactics), 15);
    QVERIFY(g.session().Clubs[0].Fixtures[0] == first);

    // Back from the pitch screen's own list.
    pitch->setCurrentRow(0);
    QCOMPARE(fixt->currentRow(), 0);
    QCOMPARE(g.controller->view().CurrentFixture, 1);
    QCOMPARE(shown(g, "Fixt", "cboTactics"), q(tacticListText(first.Tactics)));
}

void FixtTest::aNewClubStartsAtItsFirstFixture_data() {
    QTest::addColumn<QString>("screen");
    QTest::newRow("club chosen on Fixt") << "Fixt";
    QTest::newRow("club chosen on the pitch") << "PitchGrid";
    QTest::newRow("club chosen on the main menu") << "MainMenu";
}

void FixtTest::aNewClubStartsAtItsFirstFixture() {
    QFETCH(QString, screen);
    UiGame g;
    addMatch(g, 0, "Second Opponents");
    addMatch(g, 1, "Other Opponents");
    g.controller->selectClub(0);
    auto* fixt = g.on<QListWidget>("Fixt", "lstFixtures");
    auto* pitch = g.on<QListWidget>("PitchGrid", "lstFixtures");
    fixt->setCurrentRow(fixt->count() - 1);
    QCOMPARE(g.controller->view().CurrentFixture, fixt->count());

    // The same club again keeps the fixture.
    g.controller->selectClub(0);
    QCOMPARE(g.controller->view().CurrentFixture, fixt->count());
    QCOMPARE(pitch->currentRow(), fixt->count() - 1);

    g.teamList(screen.toLatin1().constData())->setCurrentIndex(1);
    QCOMPARE(g.session().CurrentClub, 1);
    QCOMPARE(g.controller->view().CurrentFixture, 1);
    QCOMPARE(fixt->currentRow(), 0);
    QCOMPARE(pitch->currentRow(), 0);
    QCOMPARE(fixt->item(0)->text(), expectedLine(g.session().Clubs[1].Fixtures[0]));
    QCOMPARE(shown(g, "Fixt", "cboTactics"), q(tacticListText(g.session().Clubs[1].Fixtures[0].Tactics)));

    // And back: the first club's choice was forgotten.
    g.teamList(screen.toLatin1().constData())->setCurrentIndex(0);
    QCOMPARE(g.controller->view().CurrentFixture, 1);
    QCOMPARE(fixt->currentRow(), 0);
}

void FixtTest::captainMarkMovesOnThePitch() {
    UiGame g;
    const Fixture& f = g.session().Clubs[0].Fixtures[0];
    // A shirt that carries no mark yet.
    int shirt = 2;
    while (shirt <= 11 && (f.Captain == shirt || f.Penalties == shirt || f.Corners == shirt || f.FreeKicks == shirt))
        ++shirt;
    QVERIFY(shirt <= 11);
    const QString number = QString::number(shirt);
    auto* caption = g.window->screen("PitchGrid")->findChild<QLabel*>("lblname" + QString::number(shirt - 1));
    const QString name = q(f.Slots[size_t(shirt - 1)].Player);
    QCOMPARE(caption->text(), number + ". " + name);
    pick(g, "lstCaptain", number);
    QCOMPARE(caption->text(), number + ". " + name + " (Cap)");
    pick(g, "lstFreeKicks", number);
    QCOMPARE(caption->text(), number + ". " + name + " (Cap, FK)");
    pick(g, "lstCaptain", shirt == 2 ? "3" : "2");
    QCOMPARE(caption->text(), number + ". " + name + " (FK)");
}

void FixtTest::aClubWithoutFixturesHasNothingToOrder() {
    UiGame g;
    Club& c = g.session().Clubs[1];
    c.Fixtures.clear();
    c.FixtureCount = 0;
    g.teamList("Fixt")->setCurrentIndex(1);
    for (const char* screen : {"Fixt", "PitchGrid"}) QCOMPARE(g.on<QListWidget>(screen, "lstFixtures")->count(), 0);
    for (const char* control : {"cboFormation", "cboTactics", "lstCaptain", "lstPace", "cboTTCO", "cboWTDIWT"})
        QVERIFY2(!g.on<QWidget>("Fixt", control)->isEnabled(), control);
    ui::Screen* pitch = g.window->screen("PitchGrid");
    QCOMPARE(pitch->findChild<QListWidget*>("lstAvailable")->count(), 0);
    QCOMPARE(pitch->findChild<QLabel*>("lblname0")->text(), QString("Player 1"));
    QCOMPARE(pitch->findChild<QLabel*>("lblname11")->text(), QString("Player 12 (Substitute 1)"));
    QVERIFY(!g.session().TurnChanged);

    // The next club with matches has its controls back.
    g.teamList("Fixt")->setCurrentIndex(0);
    QVERIFY(g.on<QWidget>("Fixt", "cboFormation")->isEnabled());
    QVERIFY(pitch->findChild<QLabel*>("lblname0")->text().startsWith("1. "));
}

void FixtTest::movingBetweenTheScreens() {
    UiGame g;
    addMatch(g, 0, "Second Opponents");
    g.controller->selectClub(0);
    g.controller->view().CurrentFixture = 2;
    QPushButton* fixtures = g.button("MainMenu", "BtnFixtures");
    QVERIFY(fixtures->isEnabled());
    fixtures->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("Fixt"));
    QCOMPARE(g.window->windowTitle(), q(g.session().Game.GameName) + " turnsheet entry : Fixtures");
    // Opening sets both lists to the current fixture.
    QCOMPARE(g.on<QListWidget>("Fixt", "lstFixtures")->currentRow(), 1);
    QCOMPARE(g.on<QListWidget>("PitchGrid", "lstFixtures")->currentRow(), 1);
    QCOMPARE(shown(g, "Fixt", "cboTactics"), QString("Diamond"));

    g.button("Fixt", "btnPitchGrid")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("PitchGrid"));
    QCOMPARE(g.window->windowTitle(), q(g.session().Game.GameName) + " turnsheet entry : Pitch Grid");
    g.button("PitchGrid", "BtnReturnToFixt")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("Fixt"));
    g.button("Fixt", "btnReturn")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("MainMenu"));
    QVERIFY(!g.session().TurnChanged);
}

QTEST_MAIN(FixtTest)
#include "fixt_test.moc"
