// The squad screen driven through its real widgets.
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTableWidget>
#include <QtTest>

#include "core/gamefolder.h"
#include "core/records.h"
#include "files/turnsheet.h"
#include "orders/history.h"
#include "ui/snapshot.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

QString figure(long v) { return (v < 0 ? QString() : QString(" ")) + QString::number(v); }

// The row a player should have, worked out here from the record alone.
QStringList expectedRow(const Player& p) {
    QStringList r;
    r << q(p.Name) + (p.LastShirt != 0 ? "  (" + figure(p.LastShirt) + ")" : QString());
    r << q(p.Position) << figure(p.Age) << figure(p.Sign) << figure(p.Contract) << figure(p.Injury);
    for (long v : {p.Pass, p.Control, p.Tackle, p.Run, p.Shoot, p.Dribble, p.DefHd, p.OffHd, p.Flair, p.Strength,
                   p.Creativity})
        r << figure(v);
    r << figure(p.Agg) << figure(p.TotalSkill);
    return r;
}

QStringList rowOf(QTableWidget* t, int row) {
    QStringList r;
    for (int c = 0; c < t->columnCount(); ++c) r << t->item(row, c)->text();
    return r;
}

}  // namespace

class SquadScrTest : public QObject {
    Q_OBJECT
private slots:
    void gridShowsEveryPlayer();
    void coachingHistoryColoursCells();
    void filtersKeepTheirPlayers_data();
    void filtersKeepTheirPlayers();
    void youthFilterWithoutYouthShowsOnlyTheHead();
    void coachesAndPhysio();
    void saveAndSendFromTheSquadScreen();
    void aFailedSaveIsToldAndTheFileKept();
    void snapshotsOfEveryScreen();
};

void SquadScrTest::gridShowsEveryPlayer() {
    const int club = 2;
    UiGame g;
    g.teamList("SquadScr")->setCurrentIndex(club);
    auto* grid = g.on<QTableWidget>("SquadScr", "grdSquad");
    const Club& c = g.session().Clubs[size_t(club)];
    QVERIFY(c.Players.size() > 10);
    QStringList heads;
    for (int col = 0; col < grid->columnCount(); ++col) heads << grid->horizontalHeaderItem(col)->text();
    QCOMPARE(heads, QStringList({"Name   (Last No)", "Position", "Age", "Sign", "Contract", "Injury", "Pass",
                                 "Control", "Tackle", "Run", "Shoot", "Dribble", "DefHd", "OffHd", "Flair",
                                 "Strength", "Creativity", "Agg", "TS"}));
    QCOMPARE(grid->rowCount(), int(c.Players.size()));
    bool someShirt = false;
    for (int r = 0; r < grid->rowCount(); ++r) {
        QCOMPARE(rowOf(grid, r), expectedRow(c.Players[size_t(r)]));
        someShirt |= c.Players[size_t(r)].LastShirt != 0;
        for (int col = 2; col < 19; ++col)
            QVERIFY(grid->item(r, col)->textAlignment() & Qt::AlignRight);
    }
    QVERIFY2(someShirt, "the demo squad should show a last shirt number somewhere");
}

void SquadScrTest::coachingHistoryColoursCells() {
    UiGame g;
    const Club& c = g.session().Clubs[0];
    auto rec = [](const Player& p, const char* result, const char* skill) {
        HistoryRecord h;
        h.Date = "20250801";
        h.Name = p.Name;
        h.Position = p.Position;
        h.Result = result;
        h.Skill = skill;
        h.NewValue = 9;
        return h;
    };
    const Player& a = c.Players[0];
    const Player& b = c.Players[3];
    writeFileAtomic(g.dir.path() / (c.ClubFile + "HST.TXT"),
                    historyBytes({rec(a, "P", "PA"), rec(b, "Y", "DE"), rec(b, "N", "ST"), rec(b, "Y", "FL")}));
    g.controller->selectClub(0);

    auto* grid = g.on<QTableWidget>("SquadScr", "grdSquad");
    struct Want {
        int row, col;
        QColor colour;
    };
    const Want wants[] = {{0, 6, QColor(255, 0, 0)}, {3, 12, QColor(0, 255, 0)}, {3, 15, QColor(255, 255, 0)}};
    int coloured = 0;
    for (int r = 0; r < grid->rowCount(); ++r)
        for (int col = 0; col < 19; ++col)
            coloured += grid->item(r, col)->background().style() != Qt::NoBrush;
    QCOMPARE(coloured, 3);
    for (const Want& w : wants) QCOMPARE(grid->item(w.row, w.col)->background().color(), w.colour);

    // Without the file the grid is plain again.
    fs::remove(g.dir.path() / (c.ClubFile + "HST.TXT"));
    g.controller->selectClub(0);
    for (int col = 0; col < 19; ++col) QCOMPARE(grid->item(0, col)->background().style(), Qt::NoBrush);
}

void SquadScrTest::filtersKeepTheirPlayers_data() {
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("pos");
    QTest::newRow("seniors") << 1 << 0;
    QTest::newRow("youth") << 2 << 0;
    QTest::newRow("senior midfielders") << 1 << 3;
    QTest::newRow("youth strikers") << 2 << 4;
}

void SquadScrTest::filtersKeepTheirPlayers() {
    QFETCH(int, team);
    QFETCH(int, pos);
    UiGame g;
    g.teamList("SquadScr")->setCurrentIndex(1);
    g.button("SquadScr", ("btnTeam" + std::to_string(team)).c_str())->click();
    g.button("SquadScr", ("btnPos" + std::to_string(pos)).c_str())->click();

    const char* groups[] = {"", "AGK", "DEF", "MID", "STR"};
    QStringList want;
    for (const Player& p : g.session().Clubs[1].Players) {
        if (team == 1 && p.Age < 18) continue;
        if (team == 2 && p.Age > 17) continue;
        if (pos && p.Position.rfind(groups[pos], 0) != 0) continue;
        want << expectedRow(p).join('|');
    }
    auto* grid = g.on<QTableWidget>("SquadScr", "grdSquad");
    QStringList got;
    for (int r = 0; r < grid->rowCount(); ++r) got << rowOf(grid, r).join('|');
    QCOMPARE(got, want);
    QCOMPARE(g.session().CurrentClub, 1);
    QVERIFY(!g.session().TurnChanged);
}

void SquadScrTest::youthFilterWithoutYouthShowsOnlyTheHead() {
    UiGame g;
    for (Player& p : g.session().Clubs[0].Players) p.Age = int16_t(std::max<int>(p.Age, 18));
    g.button("SquadScr", "btnTeam2")->click();
    auto* grid = g.on<QTableWidget>("SquadScr", "grdSquad");
    QCOMPARE(grid->rowCount(), 0);
    QCOMPARE(grid->columnCount(), 19);
    QCOMPARE(grid->horizontalHeaderItem(0)->text(), QString("Name   (Last No)"));
    g.button("SquadScr", "btnTeam0")->click();
    QCOMPARE(grid->rowCount(), int(g.session().Clubs[0].Players.size()));
}

void SquadScrTest::coachesAndPhysio() {
    UiGame g;
    g.teamList("SquadScr")->setCurrentIndex(2);
    const Club& c = g.session().Clubs[2];
    QCOMPARE(g.on<QLabel>("SquadScr", "CoachText")->text(),
             "Goalkeeper Coach : " + figure(c.GoalkeeperCoach) + "\nDefence Coach : " + figure(c.DefenceCoach) +
                 "\nMidfield Coach : " + figure(c.MidfieldCoach) + "\nAttack Coach : " + figure(c.AttackCoach) +
                 "\nPhysio : " + figure(c.Physio));
    auto* physio = g.on<QSpinBox>("SquadScr", "UpDownPhysio");
    QCOMPARE(physio->maximum(), int(c.Physio));
    QCOMPARE(g.on<QLineEdit>("SquadScr", "txtPhysio")->text(), QString::number(c.Physio));
}

void SquadScrTest::saveAndSendFromTheSquadScreen() {
    UiGame g;
    const Club& c = g.session().Clubs[0];
    g.session().Clubs[0].Messages = "Hello from the squad screen";
    g.session().TurnChanged = true;
    g.session().Prefs.WarnInc = 0;  // no incomplete question on sending
    g.button("SquadScr", "Command2")->click();
    const std::string saved = g.dir.read("Turnsheet/" + c.ClubFile + ".txt");
    QCOMPARE(q(saved), q(turnsheetText(c)));
    QVERIFY(saved.find("Messages:\r\nHello from the squad screen\r\n") != std::string::npos);
    QVERIFY(!g.session().TurnChanged);

    g.messages.entries.clear();
    g.button("SquadScr", "Command3")->click();
    const auto informs = g.of(RecordingMessages::Kind::Inform);
    QCOMPARE(int(informs.size()), 1);
    QCOMPARE(q(informs[0].title), QString("Turnsheet not sent"));
    QVERIFY(q(informs[0].text).contains(q((g.dir.path() / "Turnsheet").string())));
}

void SquadScrTest::aFailedSaveIsToldAndTheFileKept() {
    UiGame g;
    const std::string file = "Turnsheet/" + g.session().Clubs[1].ClubFile + ".txt";
    const std::string before = g.dir.read(file);
    g.session().Clubs[1].Private = "changed";
    g.session().TurnChanged = true;
    g.session().Prefs.WarnInc = 1;
    atomicWriteFaultHook = [](const fs::path& tmp) { throw WriteError(tmp.string(), "Read-only file system"); };
    g.button("SquadScr", "Command2")->click();
    atomicWriteFaultHook = nullptr;

    QCOMPARE(q(g.dir.read(file)), q(before));
    QVERIFY(g.session().TurnChanged);
    onlyMessage(g, RecordingMessages::Kind::Refuse, "Turnsheet not saved");
    if (QTest::currentTestFailed()) return;
    QVERIFY(q(g.messages.entries[0].text).contains("could not be written: Read-only file system."));
    QVERIFY(q(g.messages.entries[0].text).contains("The previous copy of that file is left as it was"));
}

void SquadScrTest::snapshotsOfEveryScreen() {
    UiGame g;
    const std::string file = "Turnsheet/" + g.session().Clubs[0].ClubFile + ".txt";
    const std::string before = g.dir.read(file);
    TempDir out;
    QCOMPARE(ui::renderSnapshots(g.dir.path(), out.path() / "shots"), 0);
    for (const char* name : {"MainMenu.png", "SquadScr.png", "PlayerAct.png", "PlayerActContract.png", "OneToOne.png",
                             "EmailPlayer.png", "CoachScr.png"}) {
        QImage img(q((out.path() / "shots" / name).string()));
        QVERIFY2(!img.isNull(), name);
        if (name[0] == 'M' || name[0] == 'S') QCOMPARE(img.size(), QSize(1280, 800));
    }
    // Looking changes nothing of the game's, and saves no player's details.
    QCOMPARE(q(g.dir.read(file)), q(before));
    QVERIFY(!fs::exists(g.dir.path() / "PlayerDetails.txt"));
    // No game there: nothing is drawn and the exit code says so.
    TempDir nowhere;
    QCOMPARE(ui::renderSnapshots(nowhere.path(), out.path() / "none"), 1);
    QVERIFY(!fs::exists(out.path() / "none" / "MainMenu.png"));
}

QTEST_MAIN(SquadScrTest)
#include "squadscr_test.moc"
