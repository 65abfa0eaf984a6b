// The Auto Turn screen driven through its widgets on the demo league.
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalSpy>
#include <QtTest>

#include "autoturn/autoturn.h"
#include "files/turnsheet.h"
#include "ui/autoturn.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

struct AutoTurnGame : UiGame {
    AutoTurnGame() {
        button("MainMenu", "btnAuto")->click();
        QCOMPARE(window->currentScreen()->objectName(), QString("AutoTurn"));
    }
    ui::AutoTurnScreen* screen() { return static_cast<ui::AutoTurnScreen*>(window->screen("AutoTurn")); }
    QListWidget* teams() { return on<QListWidget>("AutoTurn", "TeamList"); }
    QRadioButton* radio(const QString& name) { return on<QRadioButton>("AutoTurn", name.toLatin1().constData()); }
    QComboBox* pickForm() { return on<QComboBox>("AutoTurn", "PickForm"); }
    std::vector<std::string> sheets() {
        std::vector<std::string> out;
        for (const Club& c : session().Clubs) out.push_back(turnsheetText(c));
        return out;
    }
};

}  // namespace

class AutoTurnTest : public QObject {
    Q_OBJECT
private slots:
    void bestBlendFollowsTheDatabase();
    void choiceReachesItsEntries_data();
    void choiceReachesItsEntries();
    void noPickTeamSwitchesSelectionOff();
    void goFillsTheTurn_data();
    void goFillsTheTurn();
};

void AutoTurnTest::bestBlendFollowsTheDatabase() {
    AutoTurnGame g;
    QStringList entries{"All Teams"};
    for (const Club& c : g.session().Clubs) entries << q(c.Name);
    QCOMPARE(itemsOf(g.teams()), entries);
    QCOMPARE(g.teams()->currentRow(), 0);
    QCOMPARE(g.pickForm()->currentText(), QString("Auto Pick"));

    QVERIFY(!statsDatabaseExists(g.session()));
    QCOMPARE(g.radio("optPick3")->text(), QString("By Best Blend (Stats DB needed)"));
    QVERIFY(!g.radio("optPick3")->isEnabled());

    QSignalSpy done(g.controller.get(), &ui::SessionController::statsRefreshed);
    QVERIFY(g.controller->refreshStats(false));
    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, 20000);
    QCOMPARE(g.radio("optPick3")->text(), QString("By Best Blend"));
    QVERIFY(g.radio("optPick3")->isEnabled());

    g.button("AutoTurn", "BtnReturnToMain")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("MainMenu"));
}

void AutoTurnTest::choiceReachesItsEntries_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("method");  // optPick2, or the 4-4-2 formation
    QTest::newRow("method for all teams") << 0 << true;
    QTest::newRow("method for the second club") << 2 << true;
    QTest::newRow("formation for all teams") << 0 << false;
    QTest::newRow("formation for the first club") << 1 << false;
}

void AutoTurnTest::choiceReachesItsEntries() {
    QFETCH(int, row);
    QFETCH(bool, method);
    AutoTurnGame g;
    g.teams()->setCurrentRow(row);
    if (method) g.radio("optPick2")->click();
    else g.pickForm()->setCurrentText("4 - 4 - 2");

    const PickChoice chosen = method ? PickChoice{PickMethod::CoreSkills, std::string(kAutoPick)}
                                     : PickChoice{PickMethod::TotalSkill, "4 - 4 - 2"};
    const auto& choices = g.screen()->choices();
    QCOMPARE(int(choices.size()), g.session().ClubCount() + 1);
    for (int i = 0; i < int(choices.size()); ++i)
        QVERIFY2(choices[size_t(i)] == (row == 0 || i == row ? chosen : PickChoice{}), qPrintable(QString::number(i)));

    // Another entry shows its own choices; coming back shows these.
    g.teams()->setCurrentRow(row == 0 ? 3 : 3 - row);
    QCOMPARE(g.radio("optPick2")->isChecked(), row == 0 && method);
    g.teams()->setCurrentRow(row);
    QVERIFY(g.radio("optPick2")->isChecked() == method);
    QCOMPARE(g.pickForm()->currentText(), q(chosen.Formation));
}

void AutoTurnTest::noPickTeamSwitchesSelectionOff() {
    AutoTurnGame g;
    const char* selection[] = {"fraTeams", "fraPick", "TeamList", "optPick0", "optPick1",
                               "optPick2", "PickForm", "lblSelHelp"};
    for (int answer : {1, 0}) {
        g.radio(QString("optPickTeam%1").arg(answer))->click();
        for (const char* name : selection) QVERIFY2(g.on("AutoTurn", name)->isEnabled() == (answer == 0), name);
        QVERIFY(!g.radio("optPick3")->isEnabled());  // no database either way
        QVERIFY(g.button("AutoTurn", "Go")->isEnabled());
    }
}

void AutoTurnTest::goFillsTheTurn_data() {
    QTest::addColumn<bool>("everything");
    QTest::newRow("every option on") << true;
    QTest::newRow("every option off") << false;
}

void AutoTurnTest::goFillsTheTurn() {
    QFETCH(bool, everything);
    AutoTurnGame g;
    const int club = 2;  // the demo gave it no orders of its own
    g.teams()->setCurrentRow(club + 1);
    if (!everything)
        for (const char* name : {"optPickTeam1", "optAutoPhysio1", "optAutoWarn1", "optAutoScout1", "optAutoCoach1"})
            g.radio(name)->click();
    g.controller->selectClub(club);  // a club once shown has its weekly choices filled in
    const std::vector<std::string> before = g.sheets();
    for (const Club& c : g.session().Clubs) fs::remove(g.dir.path() / "Turnsheet" / (c.ClubFile + ".txt"));

    g.button("AutoTurn", "Go")->click();
    for (const char* name : {"BtnReturnToMain", "Command2", "Command3"})
        QVERIFY2(!g.button("AutoTurn", name)->isEnabled(), name);
    QTRY_VERIFY_WITH_TIMEOUT(!g.screen()->running(), 30000);

    for (const char* name : {"BtnReturnToMain", "Command2", "Command3"})
        QVERIFY2(g.button("AutoTurn", name)->isEnabled(), name);
    QVERIFY(!g.messages.entries.empty());
    const auto& last = g.messages.entries.back();
    QCOMPARE(last.kind, RecordingMessages::Kind::Inform);
    QCOMPARE(q(last.title), QString("Complete"));
    QCOMPARE(q(last.text), QString("Auto Turn has Completed !"));
    QCOMPARE(g.session().CurrentClub, club);

    const std::vector<std::string> after = g.sheets();
    for (int i = 0; i < g.session().ClubCount(); ++i) {
        const Club& c = g.session().Clubs[size_t(i)];
        QCOMPARE(after[size_t(i)] != before[size_t(i)], everything && i == club);
        QCOMPARE(q(g.dir.read("Turnsheet/" + c.ClubFile + ".txt")), q(after[size_t(i)]));
    }
}

QTEST_MAIN(AutoTurnTest)
#include "autoturn_test.moc"
