// The Stats database from the main menu: a refresh that runs while the
// window keeps answering, its cancel, and the club's honours.
#include <QProgressDialog>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>
#include <chrono>
#include <thread>

#include "demo/league.h"
#include "stats/refresh.h"
#include "ui/honours.h"
#include "ui/qtext.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

// Every file of the refresh takes a while, so a test can act while it runs.
struct SlowRefresh {
    explicit SlowRefresh(int ms) {
        stats::refreshFaultHook = [ms](std::string_view) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); };
    }
    ~SlowRefresh() { stats::refreshFaultHook = nullptr; }
};

fs::path statsFile(UiGame& g) { return fs::path(g.session().Prefs.StatsFile); }

}  // namespace

class StatsTest : public QObject {
    Q_OBJECT
private slots:
    void refreshRunsWhileTheWindowAnswers();
    void cancelLeavesNoDatabase();
    void honoursNeedTheDatabase();
    void honoursAtTheSeasonsEnd();
};

void StatsTest::refreshRunsWhileTheWindowAnswers() {
    UiGame g;
    g.session().Prefs.StatsFile.clear();  // a new manager: the database is made where it belongs
    QSignalSpy done(g.controller.get(), &ui::SessionController::statsRefreshed);
    SlowRefresh slow(40);
    g.button("MainMenu", "btnLoadStats")->click();
    QVERIFY(g.controller->refreshingStats());

    // The progress names the file being read, and the club can change meanwhile.
    QTRY_VERIFY(g.window->findChild<QProgressDialog*>("StatsProgress") &&
                g.window->findChild<QProgressDialog*>("StatsProgress")->labelText().contains(".TXT"));
    g.teamList("MainMenu")->setCurrentIndex(1);
    QCOMPARE(g.session().CurrentClub, 1);
    QVERIFY(g.controller->refreshingStats());

    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, 20000);
    QCOMPARE(done.at(0).at(0).toBool(), true);
    QCOMPARE(ui::qs(g.messages.entries.back().title), QString("Stats load complete"));
    QCOMPARE(ui::qs(g.messages.entries.back().text), QString("Stats Database refreshed"));
    QCOMPARE(statsFile(g), g.dir.path() / "stats.db");
    QVERIFY(fs::file_size(statsFile(g)) > 0);
    QCOMPARE(readSettings(g.dir.path()).StatsFile, (g.dir.path() / "stats.db").string());
}

void StatsTest::cancelLeavesNoDatabase() {
    UiGame g;
    g.session().Prefs.StatsFile = (g.dir.path() / "week.db").string();
    QSignalSpy done(g.controller.get(), &ui::SessionController::statsRefreshed);
    SlowRefresh slow(100);
    QVERIFY(g.controller->refreshStats(true));
    QVERIFY(!g.controller->refreshStats(true));  // one at a time
    QTRY_VERIFY(g.window->findChild<QProgressDialog*>("StatsProgress"));
    // The manager's press of Cancel.
    QPushButton* cancel = g.window->findChild<QProgressDialog*>("StatsProgress")->findChild<QPushButton*>();
    QVERIFY(cancel);
    cancel->click();
    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, 20000);
    QCOMPARE(done.at(0).at(0).toBool(), false);
    QVERIFY(!fs::exists(g.dir.path() / "week.db"));
}

void StatsTest::honoursNeedTheDatabase() {
    UiGame g;
    g.session().Prefs.StatsFile = (g.dir.path() / "none.db").string();
    g.button("MainMenu", "BtnHonours")->click();
    onlyMessage(g, RecordingMessages::Kind::Refuse, "Can't find the stats database");
    QVERIFY(!g.window->findChild<ui::HonoursDialog*>());

    // One week in the database: the club has no finished season yet.
    g.messages.entries.clear();
    QSignalSpy done(g.controller.get(), &ui::SessionController::statsRefreshed);
    QVERIFY(g.controller->refreshStats(false));
    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, 20000);
    QVERIFY(g.messages.entries.empty());
    std::unique_ptr<ui::HonoursDialog> d(ui::HonoursDialog::create(g.window.get(), *g.controller));
    QVERIFY(d);
    QCOMPARE(d->list()->topLevelItemCount(), 0);
    QCOMPARE(d->list()->headerItem()->text(1), QString("Date"));
    QVERIFY(d->windowTitle().contains(ui::qs(g.session().current()->Name)));
}

void StatsTest::honoursAtTheSeasonsEnd() {
    // The demo league up to the week its tables reach 38 games.
    DemoOptions o = smallDemo(7, 40);
    o.clubs = 3;
    demo::League league(o);
    league.playToSeasonEnd();
    o.weeks = league.week();
    UiGame g{UiGame::Empty{}};
    makeDemoLeague(g.dir.path(), o);
    g.open();

    // The last week loaded as the manager would: the refresh follows by itself.
    QSignalSpy done(g.controller.get(), &ui::SessionController::statsRefreshed);
    const fs::path week = g.dir.path() / "Archives" / ("week" + std::to_string(o.weeks));
    QVERIFY(g.controller->loadNewTurn((week / "squad.zip").string(), (week / "weekly.zip").string()));
    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, 30000);
    QCOMPARE(done.at(0).at(0).toBool(), true);

    const Club& club = *g.session().current();
    const demo::DemoClub* model = nullptr;
    for (const demo::DemoClub* c : league.managedClubs())
        if (c->Name == club.Name) model = c;
    QVERIFY(model);
    const size_t self = size_t(model - league.clubs().data());
    const std::vector<size_t> order = league.table(model->League);
    const size_t place = size_t(std::find(order.begin(), order.end(), self) - order.begin());

    g.button("MainMenu", "BtnHonours")->click();
    auto* d = g.window->findChild<ui::HonoursDialog*>();
    QVERIFY(d);
    QVERIFY(d->list()->topLevelItemCount() >= 1);
    const QTreeWidgetItem* season = d->list()->topLevelItem(0);
    QCOMPARE(season->text(2), ui::qs(demo::League::competitionName(model->League)));
    QCOMPARE(season->text(3), QString::number(place + 1));
    QCOMPARE(season->text(5), ui::qs(league.clubs()[order[0]].Name));
    QCOMPARE(season->text(6), QString::number(league.standing(order[0]).points()));
    d->close();
}

QTEST_MAIN(StatsTest)
#include "stats_test.moc"
