// The pitch screen driven as the manager drives it: players dragged from the
// list on to shirts, shirts dragged across the pitch, on to each other and
// back to the list, arrows added and removed. Every change is checked in the
// fixture, on the screen and in the saved Turnsheet, line by line.
#include <QAction>
#include <QDrag>
#include <QDragEnterEvent>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QtTest>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <map>
#include <memory>

#include "core/gamefolder.h"
#include "core/text.h"
#include "match/pictures/kitcolours.h"
#include "stats/lookups.h"
#include "match/pitchlists.h"
#include "ui/pitchgrid.h"
#include "ui/qtext.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;
using ui::gameText;
using ui::PitchGridScreen;

namespace {

PitchGridScreen* pitchScreen(UiGame& g) {
    g.window->showScreen("PitchGrid");
    QCoreApplication::processEvents();
    return static_cast<PitchGridScreen*>(g.window->screen("PitchGrid"));
}

Fixture& firstFixture(UiGame& g) { return g.session().Clubs[0].Fixtures[0]; }

// A drag started on `source` as the pointer starts one: pressed at `at`,
// then moved further than the drag distance. The offscreen platform ends a
// drag at once, but the QDrag the source made is still there: what it
// carries is what a drop would deliver.
std::unique_ptr<QMimeData> dragFrom(QWidget* source, QPoint at) {
    auto carried = std::make_unique<QMimeData>();
    QTest::mousePress(source, Qt::LeftButton, Qt::NoModifier, at);
    const QPoint to = at + QPoint(QApplication::startDragDistance() + 3, 0);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), source->mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(source, &move);
    QDrag* drag = nullptr;
    for (QWidget* w = source; w && !drag; w = w->parentWidget())
        drag = w->findChild<QDrag*>(QString(), Qt::FindDirectChildrenOnly);
    if (drag) {
        for (const QString& format : drag->mimeData()->formats())
            carried->setData(format, drag->mimeData()->data(format));
        delete drag;
    }
    QTest::mouseRelease(source, Qt::LeftButton, Qt::NoModifier, to);
    return carried;
}

// The drop of a drag, delivered as the platform delivers it: enter, move
// and drop at one point of the widget under the pointer (Qt passes each on
// to the parents when a widget ignores it). Returns whether it was taken.
bool dropOn(QWidget* target, QPoint pos, const QMimeData* data) {
    QDragEnterEvent enter(pos, Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(target, &enter);
    if (!enter.isAccepted()) return false;
    QDragMoveEvent move(pos, Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
    move.ignore();
    QApplication::sendEvent(target, &move);
    if (!move.isAccepted()) return false;
    QDropEvent drop(QPointF(pos), Qt::MoveAction, data, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();
    QApplication::sendEvent(target, &drop);
    return drop.isAccepted();
}

bool dragAndDrop(QWidget* source, QPoint from, QWidget* target, QPoint to) {
    const std::unique_ptr<QMimeData> data = dragFrom(source, from);
    if (data->formats().isEmpty()) return false;
    return dropOn(target, to, data.get());
}

// The widget of the pitch under a point given in drawing units, as the
// pointer would find it, and the point in that widget's own pixels.
std::pair<QWidget*, QPoint> underPoint(PitchGridScreen* s, QPointF units) {
    ui::PitchView* pitch = s->pitch();
    const QPoint px = s->pitch()->toPixels(units).toPoint();
    QWidget* w = pitch->childAt(px);
    if (!w) return {pitch, px};
    return {w, w->mapFrom(pitch, px)};
}

QPoint centreOf(QWidget* w) { return w->rect().center(); }

QPoint itemCentre(QListWidget* list, int row) { return list->visualItemRect(list->item(row)).center(); }

QColor pixelOf(const QPixmap& pm, double fx, double fy) {
    const QImage img = pm.toImage();
    return img.pixelColor(int(fx * img.width()), int(fy * img.height()));
}

bool near(const QColor& a, const QColor& b, int tolerance = 6) {
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

QColor kitQColor(KitColour c) { return QColor(kitRed(c), kitGreen(c), kitBlue(c)); }

const QColor kArrowYellow(255, 214, 64);

}  // namespace

class PitchGridTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void playerDraggedOnToAShirt_data();
    void playerDraggedOnToAShirt();
    void shirtDraggedAcrossThePitch_data();
    void shirtDraggedAcrossThePitch();
    void shirtsSwapTheirPlayers();
    void shirtBackToTheList_data();
    void shirtBackToTheList();
    void arrowAddedAndRemoved();
    void filtersChooseTheAvailablePlayers_data();
    void filtersChooseTheAvailablePlayers();
    void anInjuredPlayerLeavesTheLineUp();
    void shirtsWearTheClubsColours();
    void blendButtons();
};

void PitchGridTest::initTestCase() {
    // A platform that runs real drags would wait here for a real pointer.
    if (QGuiApplication::platformName() != "offscreen") QSKIP("the pitch tests run on the offscreen platform");
}

void PitchGridTest::playerDraggedOnToAShirt_data() {
    QTest::addColumn<int>("shirt");
    QTest::addColumn<QString>("part");
    QTest::newRow("on the picture of shirt 7") << 7 << "PlayerPic";
    QTest::newRow("on the keeper's caption") << 1 << "lblname";
}

void PitchGridTest::playerDraggedOnToAShirt() {
    QFETCH(int, shirt);
    QFETCH(QString, part);
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    const TeamSlot slotBefore = f.Slots[size_t(shirt - 1)];
    const std::string previous = slotBefore.Player;
    QVERIFY2(!previous.empty(), "the demo team fills every shirt of the first club");
    const Lines before = g.savedSheet();
    QVERIFY(!g.session().TurnChanged);

    QListWidget* list = s->availableList();
    QVERIFY(list->count() > 2);
    const QStringList listBefore = itemsOf(list);
    const std::string entry = gameText(list->item(1)->text());
    const std::string name = entry.substr(5);
    const Player* prev = g.session().Clubs[0].player(g.session().Clubs[0].findPlayer(previous));
    QVERIFY(prev);

    QWidget* target = s->pitch()->findChild<QWidget*>(part + QString::number(shirt - 1));
    QVERIFY(target);
    const std::unique_ptr<QMimeData> carried = dragFrom(list->viewport(), itemCentre(list, 1));
    QCOMPARE(carried->data(ui::kPlayerEntryMime).toStdString(), entry);
    QVERIFY(dropOn(target, centreOf(target), carried.get()));

    QCOMPARE(q(f.Slots[size_t(shirt - 1)].Player), q(name));
    // The shirt keeps its cell and its arrow.
    const TeamSlot& now = f.Slots[size_t(shirt - 1)];
    QCOMPARE(QList<int>({now.Left, now.Top, now.Left2, now.Top2}),
             QList<int>({slotBefore.Left, slotBefore.Top, slotBefore.Left2, slotBefore.Top2}));
    QVERIFY(g.session().TurnChanged);
    QVERIFY(s->shirtCaption(shirt)->text().startsWith(QString::number(shirt) + ". " + q(name)));
    // The dragged line leaves the list and the man who wore the shirt goes to its end.
    QStringList listAfter = listBefore;
    listAfter.removeAt(1);
    listAfter << q(prev->Position + " " + prev->Name);
    QCOMPARE(itemsOf(list), listAfter);
    // The information box tells of the man who lost his shirt.
    QCOMPARE(s->infoBox()->toPlainText(), ui::qs(ShowInfo(*prev)));

    expectOnly(before, g.savedSheet(), {{{"Player:", shirt}, name}});
}

void PitchGridTest::shirtDraggedAcrossThePitch_data() {
    QTest::addColumn<int>("shirt");
    // Where on its picture the shirt is held (fractions), and where the
    // pointer lets go, in drawing units.
    QTest::addColumn<QPointF>("held");
    QTest::addColumn<QPointF>("dropAt");
    QTest::addColumn<QPoint>("cell");
    QTest::addColumn<QString>("area");
    QTest::addColumn<bool>("moves");
    const QPointF middle(0.5, 0.5);
    // The demo team stands in a flat 4-4-2: defenders on row B, midfield on
    // C, strikers on D at columns 2 and 4, the keeper on A3.
    QTest::newRow("striker to an empty cell up front")
        << 10 << middle << QPointF(4650, 950) << QPoint(4200, 600) << "E3" << true;
    QTest::newRow("let go past the middle of the next cell")
        << 10 << middle << QPointF(3800, 1900) << QPoint(4200, 1680) << "D3" << true;
    QTest::newRow("held by its left edge, beyond the last column")
        << 11 << QPointF(0.04, 0.5) << QPointF(8950, 2000) << QPoint(7800, 1680) << "D5" << true;
    QTest::newRow("beyond the last row, on the keeper's cell")
        << 7 << middle << QPointF(4300, 6080) << QPoint(4200, 4920) << "A3" << true;
    QTest::newRow("on the cell of another outfield shirt")
        << 10 << middle << QPointF(6900, 1550) << QPoint(6000, 1680) << "" << false;
    QTest::newRow("the keeper to an empty cell")
        << 1 << middle << QPointF(4650, 4000) << QPoint(4200, 3840) << "" << true;
    QTest::newRow("the keeper may not take a defender's cell")
        << 1 << middle << QPointF(3450, 3950) << QPoint(4200, 4920) << "" << false;
}

void PitchGridTest::shirtDraggedAcrossThePitch() {
    QFETCH(int, shirt);
    QFETCH(QPointF, held);
    QFETCH(QPointF, dropAt);
    QFETCH(QPoint, cell);
    QFETCH(QString, area);
    QFETCH(bool, moves);
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    const Lines before = g.savedSheet();
    const TeamSlot was = f.Slots[size_t(shirt - 1)];

    ui::ShirtPart* pic = s->shirtPicture(shirt);
    const QPoint heldAt(int(held.x() * pic->width()), int(held.y() * pic->height()));
    auto [target, at] = underPoint(s, dropAt);
    QCOMPARE(target, static_cast<QWidget*>(s->pitch()));  // grass, not another shirt
    QVERIFY(dragAndDrop(pic, heldAt, target, at));

    const TeamSlot& now = f.Slots[size_t(shirt - 1)];
    QCOMPARE(QPoint(now.Left, now.Top), moves ? cell : QPoint(was.Left, was.Top));
    QCOMPARE(now.Player, was.Player);
    QCOMPARE(g.session().TurnChanged, moves);
    // The picture stands where the slot says.
    const QPoint px = s->pitch()->toPixels(QPointF(now.Left, now.Top)).toPoint();
    QVERIFY2((pic->pos() - px).manhattanLength() <= 2, "the shirt is drawn on its cell");

    const Lines after = g.savedSheet();
    if (!moves || shirt == 1) {
        // Nothing moved, or the keeper, whose place the Turnsheet doesn't carry.
        expectOnly(before, after, {});
    } else {
        expectOnly(before, after, {{{"Field Area 1:", shirt}, gameText(area)}});
    }
}

void PitchGridTest::shirtsSwapTheirPlayers() {
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    const Lines before = g.savedSheet();
    const TeamSlot seven = f.Slots[6], eight = f.Slots[7];

    QWidget* from = s->shirtCaption(7);
    QWidget* onto = s->shirtPicture(8);
    QVERIFY(dragAndDrop(from, centreOf(from), onto, centreOf(onto)));
    QCOMPARE(f.Slots[6].Player, eight.Player);
    QCOMPARE(f.Slots[7].Player, seven.Player);
    // A formation is held by the cells: they stay with the shirts.
    QCOMPARE(QPoint(f.Slots[6].Left, f.Slots[6].Top), QPoint(seven.Left, seven.Top));
    QCOMPARE(QPoint(f.Slots[7].Left, f.Slots[7].Top), QPoint(eight.Left, eight.Top));
    QVERIFY(s->shirtCaption(7)->text().startsWith("7. " + q(eight.Player)));
    QVERIFY(s->shirtCaption(8)->text().startsWith("8. " + q(seven.Player)));
    // A shirt let go on itself is no swap; the pitch under it takes the
    // drop, and the shirt stays on its cell.
    const Fixture swapped = f;
    dragAndDrop(from, centreOf(from), from, centreOf(from) + QPoint(4, 0));
    QVERIFY(f == swapped);
    expectOnly(before, g.savedSheet(), {{{"Player:", 7}, eight.Player}, {{"Player:", 8}, seven.Player}});
}

void PitchGridTest::shirtBackToTheList_data() {
    QTest::addColumn<int>("shirt");
    QTest::addColumn<QString>("caption");
    QTest::newRow("an outfield shirt") << 7 << "Player 7";
    QTest::newRow("the second substitute") << 13 << "Player 13 (Substitute 2)";
}

void PitchGridTest::shirtBackToTheList() {
    QFETCH(int, shirt);
    QFETCH(QString, caption);
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    const Lines before = g.savedSheet();
    const std::string name = f.Slots[size_t(shirt - 1)].Player;
    const Club& club = g.session().Clubs[0];
    const Player* p = club.player(club.findPlayer(name));
    QVERIFY(p);
    QListWidget* list = s->availableList();
    const QStringList listBefore = itemsOf(list);

    QVERIFY(dragAndDrop(s->shirtPicture(shirt), centreOf(s->shirtPicture(shirt)), list->viewport(),
                        list->viewport()->rect().center()));
    QVERIFY(f.Slots[size_t(shirt - 1)].Player.empty());
    QCOMPARE(s->shirtCaption(shirt)->text(), caption);
    QCOMPARE(itemsOf(list), listBefore + QStringList{q(p->Position + " " + p->Name)});
    QVERIFY(g.session().TurnChanged);

    // An empty shirt has nobody to send back: nothing changes.
    g.session().TurnChanged = false;
    dragAndDrop(s->shirtCaption(shirt), centreOf(s->shirtCaption(shirt)), list->viewport(),
                list->viewport()->rect().center());
    QCOMPARE(list->count(), listBefore.size() + 1);
    QVERIFY(!g.session().TurnChanged);
    expectOnly(before, g.savedSheet(), {{{"Player:", shirt}, ""}});
}

void PitchGridTest::arrowAddedAndRemoved() {
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    QVERIFY2(f.Slots[6].Top2 == 0, "shirt 7 starts without an arrow");
    const Lines before = g.savedSheet();
    ui::PitchView* pitch = s->pitch();
    // On the way from the centre of shirt 7 (C2) to that of D3, clear of
    // every shirt and caption.
    const QPointF middle(2700 + 0.65 * 1800, 3060 - 0.65 * 1080);
    QVERIFY(!near(pitch->grab().toImage().pixelColor(pitch->toPixels(middle).toPoint()), kArrowYellow, 40));

    QTest::mousePress(s->shirtPicture(7), Qt::RightButton, Qt::NoModifier, centreOf(s->shirtPicture(7)));
    QMenu* menu = s->arrowMenu();
    QTRY_VERIFY(menu->isVisible());
    QStringList texts;
    for (QAction* a : menu->actions()) texts << a->objectName() + "=" + a->text();
    QCOMPARE(texts, QStringList({"AddArrow=Add Arrow", "RemoveArrow=Remove Arrow"}));
    menu->findChild<QAction*>("AddArrow")->trigger();
    menu->hide();
    QCOMPARE(pitch->cursor().shape(), Qt::CrossCursor);
    QVERIFY(!g.session().TurnChanged);

    // The end is chosen by a click on the pitch, near the middle of D3.
    auto [target, at] = underPoint(s, QPointF(4200 + 300 + 120, 1680 + 300 - 80));
    QTest::mouseClick(target, Qt::LeftButton, Qt::NoModifier, at);
    QCOMPARE(QPoint(f.Slots[6].Left2, f.Slots[6].Top2), QPoint(4200, 1680));
    QCOMPARE(pitch->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(g.session().TurnChanged);
    QVERIFY(near(pitch->grab().toImage().pixelColor(pitch->toPixels(middle).toPoint()), kArrowYellow, 40));
    const Lines withArrow = g.savedSheet();
    expectOnly(before, withArrow, {{{"Field Area 2:", 7}, "D3"}});

    // A later click on the pitch is no arrow's end.
    QTest::mouseClick(pitch, Qt::LeftButton, Qt::NoModifier, pitch->toPixels(QPointF(8000, 800)).toPoint());
    QCOMPARE(QPoint(f.Slots[6].Left2, f.Slots[6].Top2), QPoint(4200, 1680));

    QTest::mousePress(s->shirtPicture(7), Qt::RightButton, Qt::NoModifier, centreOf(s->shirtPicture(7)));
    QTRY_VERIFY(menu->isVisible());
    menu->findChild<QAction*>("RemoveArrow")->trigger();
    menu->hide();
    QCOMPARE(QPoint(f.Slots[6].Left2, f.Slots[6].Top2), QPoint(0, 0));
    QVERIFY(!near(pitch->grab().toImage().pixelColor(pitch->toPixels(middle).toPoint()), kArrowYellow, 40));
    expectOnly(withArrow, g.savedSheet(), {{{"Field Area 2:", 7}, ""}});
}

void PitchGridTest::filtersChooseTheAvailablePlayers_data() {
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("pos");
    QTest::newRow("everyone") << 0 << 0;
    QTest::newRow("seniors") << 1 << 0;
    QTest::newRow("youth") << 2 << 0;
    QTest::newRow("senior defenders") << 1 << 2;
    QTest::newRow("youth strikers") << 2 << 4;
}

void PitchGridTest::filtersChooseTheAvailablePlayers() {
    QFETCH(int, team);
    QFETCH(int, pos);
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    // A squad with nobody picked, so every fit man of the filter is listed.
    Fixture& f = firstFixture(g);
    for (TeamSlot& slot : f.Slots) slot.Player.clear();
    Player& hurt = g.session().Clubs[0].Players[2];
    hurt.Injury = int16_t(g.session().InjuryLimit);
    g.controller->selectClub(0);
    g.button("PitchGrid", ("btnTeam" + std::to_string(team)).c_str())->click();
    g.button("PitchGrid", ("btnPos" + std::to_string(pos)).c_str())->click();

    const char* groups[] = {"", "AGK", "DEF", "MID", "STR"};
    QStringList fit, unfit;
    for (const Player& p : g.session().Clubs[0].Players) {
        if ((team == 1 && p.Age < 18) || (team == 2 && p.Age > 17)) continue;
        if (pos > 0 && p.Position.rfind(groups[pos], 0) != 0) continue;
        const bool can = p.Injury < g.session().InjuryLimit && p.SuspPoints < g.session().SuspensionLimit;
        (can ? fit : unfit) << q(p.Position + " " + p.Name);
    }
    QCOMPARE(itemsOf(s->availableList()), fit);
    QCOMPARE(itemsOf(s->unavailableList()), unfit);
    if (team == 0 && pos == 0) QVERIFY(unfit.contains(q(hurt.Position + " " + hurt.Name)));
}

void PitchGridTest::anInjuredPlayerLeavesTheLineUp() {
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    const Lines before = g.savedSheet();
    Club& club = g.session().Clubs[0];
    Player* p = club.player(club.findPlayer(f.Slots[4].Player));
    QVERIFY(p);
    p->Injury = 99;
    // Showing the fixture again (the same club chosen again keeps it).
    g.controller->selectClub(0);
    QVERIFY(f.Slots[4].Player.empty());
    QCOMPARE(s->shirtCaption(5)->text(), QString("Player 5"));
    QVERIFY(itemsOf(s->unavailableList()).contains(q(p->Position + " " + p->Name)));
    QVERIFY(!itemsOf(s->availableList()).contains(q(p->Position + " " + p->Name)));
    expectOnly(before, g.savedSheet(), {{{"Player:", 5}, ""}});
}

void PitchGridTest::shirtsWearTheClubsColours() {
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    const Club& club = g.session().Clubs[0];
    KitColours kit;
    QVERIFY2(SetKitColours(kit, kitColourName(club)), club.Colours.c_str());
    // Low on the body, clear of the number and of the hem.
    QVERIFY(near(pixelOf(s->shirtPicture(7)->pixmap(), 0.32, 0.75), kitQColor(kit.KitColour1)));
    QVERIFY(near(pixelOf(s->shirtPicture(1)->pixmap(), 0.32, 0.75), kitQColor(keeperKitColour(kit.KitColour1))));
    QVERIFY(!near(kitQColor(kit.KitColour1), kitQColor(keeperKitColour(kit.KitColour1)), 20));
    // An empty shirt is the plain master again.
    QVERIFY(dragAndDrop(s->shirtPicture(7), centreOf(s->shirtPicture(7)), s->availableList()->viewport(), QPoint(5, 5)));
    QVERIFY(!near(pixelOf(s->shirtPicture(7)->pixmap(), 0.32, 0.75), kitQColor(kit.KitColour1)));
}

void PitchGridTest::blendButtons() {
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    const Fixture f = firstFixture(g);
    g.button("PitchGrid", "AutoBlend")->click();
    QVERIFY(g.messages.entries.empty());
    QVERIFY(firstFixture(g) == f);
    QVERIFY(!g.session().TurnChanged);

    g.button("PitchGrid", "btnBlend")->click();
    QCOMPARE(int(g.messages.entries.size()), 1);
    QCOMPARE(g.messages.entries[0].kind, RecordingMessages::Kind::Inform);
    QCOMPARE(q(g.messages.entries[0].title), q(g.session().Game.GameName));
    QCOMPARE(q(g.messages.entries[0].text),
             QString("You need the Stats database to be able to use this option.\r\n\r\nIf you have the database, but "
                     "this option still isn't working, then make sure you have set the location correctly in the "
                     "preferences screen"));

    // Once the week is in the database, the line-up the club started its
    // match with gets that match's start blends.
    QSignalSpy done(g.controller.get(), &ui::SessionController::statsRefreshed);
    QVERIFY(g.controller->refreshStats(false));
    QTRY_COMPARE_WITH_TIMEOUT(done.count(), 1, 20000);
    g.messages.entries.clear();
    const std::string club = g.session().Clubs[0].ClubFile;
    {
        SQLite::Database db(g.session().Prefs.StatsFile);
        SQLite::Statement team(db, "SELECT MatchCode, StartFormation, StartDefBlend || ' - ' || StartMidBlend || "
                                   "' - ' || StartAttBlend FROM MatchTeam WHERE Club = ? ORDER BY MatchCode DESC");
        team.bind(1, club);
        QVERIFY(team.executeStep());
        const std::string sizes = stats::formationText(team.getColumn(1).getInt());
        firstFixture(g).Defence = int16_t(val(sizes.substr(0, 1)));
        firstFixture(g).Midfield = int16_t(val(sizes.substr(4, 1)));
        firstFixture(g).Attack = int16_t(val(sizes.substr(8, 1)));
        SQLite::Statement players(db, "SELECT PlayerName FROM MatchPlayer WHERE MatchCode = ? AND Club = ? "
                                      "ORDER BY Number LIMIT 11");
        players.bind(1, team.getColumn(0).getInt64());
        players.bind(2, club);
        for (size_t shirt = 0; players.executeStep(); ++shirt)
            firstFixture(g).Slots[shirt].Player = players.getColumn(0).getString();
        g.button("PitchGrid", "btnBlend")->click();
        QCOMPARE(s->blendBox()->text(), q(team.getColumn(2).getString()));
    }
    QVERIFY(g.messages.entries.empty());

    // A new formation on Fixt leaves the blend to be worked out again.
    QComboBox* formation = g.on<QComboBox>("Fixt", "cboFormation");
    formation->setCurrentIndex(formation->findText("5 - 3 - 2"));
    QCOMPARE(s->blendBox()->text(), QString("? - ? - ?"));
    QCOMPARE(s->findChild<QLabel*>("lblFormation")->text(), QString("Formation  5 - 3 - 2"));
}

QTEST_MAIN(PitchGridTest)
#include "pitchgrid_test.moc"
