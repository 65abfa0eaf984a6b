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
#include <algorithm>
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
    void aPlayerOnToAShirtAndBack_data();
    void aPlayerOnToAShirtAndBack();
    void shirtDraggedAcrossThePitch_data();
    void shirtDraggedAcrossThePitch();
    void shirtsSwapTheirPlayers();
    void arrowAddedAndRemoved();
    void filtersAndAnInjuryRebuildTheLists_data();
    void filtersAndAnInjuryRebuildTheLists();
    void blendButtons();
};

void PitchGridTest::initTestCase() {
    // A platform that runs real drags would wait here for a real pointer.
    if (QGuiApplication::platformName() != "offscreen") QSKIP("the pitch tests run on the offscreen platform");
}

void PitchGridTest::aPlayerOnToAShirtAndBack_data() {
    QTest::addColumn<int>("shirt");
    QTest::addColumn<QString>("part");
    QTest::newRow("on the picture of shirt 7") << 7 << "PlayerPic";
    QTest::newRow("on the keeper's caption") << 1 << "lblname";
}

void PitchGridTest::aPlayerOnToAShirtAndBack() {
    QFETCH(int, shirt);
    QFETCH(QString, part);
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    const TeamSlot was = firstFixture(g).Slots[size_t(shirt - 1)];
    const Club& club = g.session().Clubs[0];
    const Player* prev = club.player(club.findPlayer(was.Player));
    QVERIFY2(prev, "the demo team fills every shirt of the first club");
    // The shirts wear the club's colours, the keeper his own: sampled low on
    // the body, clear of the number and of the hem.
    KitColours kit;
    QVERIFY2(SetKitColours(kit, kitColourName(club)), club.Colours.c_str());
    const QColor outfield = kitQColor(kit.KitColour1), keeper = kitQColor(keeperKitColour(kit.KitColour1));
    QVERIFY(!near(outfield, keeper, 20));
    auto worn = [&] {
        return near(pixelOf(s->shirtPicture(shirt)->pixmap(), 0.32, 0.75), shirt == 1 ? keeper : outfield);
    };
    QVERIFY(worn());
    const Lines before = g.savedSheet();
    QVERIFY(!g.session().TurnChanged);

    QListWidget* list = s->availableList();
    QVERIFY(list->count() > 2);
    QStringList listAfter = itemsOf(list);
    const QString entry = listAfter.takeAt(1);
    const std::string name = gameText(entry).substr(5);
    QWidget* target = s->pitch()->findChild<QWidget*>(part + QString::number(shirt - 1));
    QVERIFY(target);
    const std::unique_ptr<QMimeData> carried = dragFrom(list->viewport(), list->visualItemRect(list->item(1)).center());
    QCOMPARE(carried->data(ui::kPlayerEntryMime).toStdString(), gameText(entry));
    QVERIFY(dropOn(target, centreOf(target), carried.get()));

    // The shirt keeps its cell and its arrow.
    QVERIFY(firstFixture(g).Slots[size_t(shirt - 1)] == (TeamSlot{name, was.Left, was.Top, was.Left2, was.Top2}));
    QVERIFY(g.session().TurnChanged);
    QVERIFY(s->shirtCaption(shirt)->text().startsWith(QString::number(shirt) + ". " + q(name)));
    // The dragged line leaves the list and the man who wore the shirt goes to its end.
    listAfter << q(prev->Position + " " + prev->Name);
    QCOMPARE(itemsOf(list), listAfter);
    // The information box tells of the man who lost his shirt.
    QCOMPARE(s->infoBox()->toPlainText(), ui::qs(ShowInfo(*prev)));
    expectOnly(before, g.savedSheet(), {{{"Player:", shirt}, name}});

    // Back to the list: the shirt is empty and plain, its man at the list's end.
    QVERIFY(dragAndDrop(s->shirtPicture(shirt), centreOf(s->shirtPicture(shirt)), list->viewport(),
                        list->viewport()->rect().center()));
    QVERIFY(firstFixture(g).Slots[size_t(shirt - 1)].Player.empty());
    QCOMPARE(s->shirtCaption(shirt)->text(), QString("Player %1").arg(shirt));
    QVERIFY(!worn());
    listAfter << entry;
    QCOMPARE(itemsOf(list), listAfter);
    QVERIFY(g.session().TurnChanged);
    // An empty shirt has nobody to send back: nothing changes.
    g.session().TurnChanged = false;
    QWidget* caption = s->shirtCaption(shirt);
    dragAndDrop(caption, centreOf(caption), list->viewport(), list->viewport()->rect().center());
    QCOMPARE(itemsOf(list), listAfter);
    QVERIFY(!g.session().TurnChanged);
    expectOnly(before, g.savedSheet(), {{{"Player:", shirt}, ""}});
}

void PitchGridTest::shirtDraggedAcrossThePitch_data() {
    // Where on its picture the shirt is held (fractions), and where the
    // pointer lets go, in drawing units: the shirt's top left goes to the
    // nearest cell. The demo's strikers stand on D2 and D4.
    QTest::addColumn<QPointF>("held");
    QTest::addColumn<QPointF>("dropAt");
    QTest::addColumn<QString>("area");
    QTest::newRow("held by its middle, to an empty cell up front") << QPointF(0.5, 0.5) << QPointF(4650, 950) << "E3";
    // Held by its middle or let go at its corner, it would fall on D4.
    QTest::newRow("held near its corner") << QPointF(0.9, 0.9) << QPointF(5500, 1800) << "D3";
    QTest::newRow("on the cell of another outfield shirt") << QPointF(0.5, 0.5) << QPointF(6900, 1550) << "";
}

void PitchGridTest::shirtDraggedAcrossThePitch() {
    QFETCH(QPointF, held);
    QFETCH(QPointF, dropAt);
    QFETCH(QString, area);
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    const Lines before = g.savedSheet();
    const TeamSlot was = f.Slots[9];

    ui::ShirtPart* pic = s->shirtPicture(10);
    const QPoint heldAt(int(held.x() * pic->width()), int(held.y() * pic->height()));
    auto [target, at] = underPoint(s, dropAt);
    QCOMPARE(target, static_cast<QWidget*>(s->pitch()));  // grass, not another shirt
    QVERIFY(dragAndDrop(pic, heldAt, target, at));

    const QPoint cell = area.isEmpty() ? QPoint(was.Left, was.Top) : QPoint(4200, area == "E3" ? 600 : 1680);
    QCOMPARE(QPoint(f.Slots[9].Left, f.Slots[9].Top), cell);
    QCOMPARE(f.Slots[9].Player, was.Player);
    QCOMPARE(g.session().TurnChanged, !area.isEmpty());
    // The picture stands where the slot says.
    QVERIFY2((pic->pos() - s->pitch()->toPixels(QPointF(cell)).toPoint()).manhattanLength() <= 2,
             "the shirt is drawn on its cell");
    if (area.isEmpty())
        expectOnly(before, g.savedSheet(), {});
    else
        expectOnly(before, g.savedSheet(), {{{"Field Area 1:", 10}, gameText(area)}});
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
    // A formation is held by the cells: they stay with the shirts.
    QVERIFY(f.Slots[6] == (TeamSlot{eight.Player, seven.Left, seven.Top, seven.Left2, seven.Top2}));
    QVERIFY(f.Slots[7] == (TeamSlot{seven.Player, eight.Left, eight.Top, eight.Left2, eight.Top2}));
    QVERIFY(s->shirtCaption(7)->text().startsWith("7. " + q(eight.Player)));
    QVERIFY(s->shirtCaption(8)->text().startsWith("8. " + q(seven.Player)));
    // A shirt let go on itself is no swap; the pitch under it takes the
    // drop, and the shirt stays on its cell.
    const Fixture swapped = f;
    dragAndDrop(from, centreOf(from), from, centreOf(from) + QPoint(4, 0));
    QVERIFY(f == swapped);
    expectOnly(before, g.savedSheet(), {{{"Player:", 7}, eight.Player}, {{"Player:", 8}, seven.Player}});
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
    const QPoint middle = pitch->toPixels(QPointF(2700 + 0.65 * 1800, 3060 - 0.65 * 1080)).toPoint();
    auto arrowDrawn = [&] { return near(pitch->grab().toImage().pixelColor(middle), kArrowYellow, 40); };
    auto menuOfShirt7 = [&] {
        QTest::mousePress(s->shirtPicture(7), Qt::RightButton, Qt::NoModifier, centreOf(s->shirtPicture(7)));
        QTRY_VERIFY(s->arrowMenu()->isVisible());
    };
    QVERIFY(!arrowDrawn());

    menuOfShirt7();
    QMenu* menu = s->arrowMenu();
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
    QVERIFY(arrowDrawn());
    const Lines withArrow = g.savedSheet();
    expectOnly(before, withArrow, {{{"Field Area 2:", 7}, "D3"}});

    // A later click on the pitch is no arrow's end.
    QTest::mouseClick(pitch, Qt::LeftButton, Qt::NoModifier, pitch->toPixels(QPointF(8000, 800)).toPoint());
    QCOMPARE(QPoint(f.Slots[6].Left2, f.Slots[6].Top2), QPoint(4200, 1680));

    menuOfShirt7();
    menu->findChild<QAction*>("RemoveArrow")->trigger();
    menu->hide();
    QCOMPARE(QPoint(f.Slots[6].Left2, f.Slots[6].Top2), QPoint(0, 0));
    QVERIFY(!arrowDrawn());
    expectOnly(withArrow, g.savedSheet(), {{{"Field Area 2:", 7}, ""}});
}

void PitchGridTest::filtersAndAnInjuryRebuildTheLists_data() {
    QTest::addColumn<int>("team");
    QTest::addColumn<int>("pos");
    QTest::newRow("everyone") << 0 << 0;
    QTest::newRow("youth strikers") << 2 << 4;
}

// A filter button shows the fixture again: the lists are built anew, and a
// player hurt since the last showing leaves his shirt.
void PitchGridTest::filtersAndAnInjuryRebuildTheLists() {
    QFETCH(int, team);
    QFETCH(int, pos);
    UiGame g;
    PitchGridScreen* s = pitchScreen(g);
    Fixture& f = firstFixture(g);
    const Lines before = g.savedSheet();
    Club& club = g.session().Clubs[0];
    Player* hurt = club.player(club.findPlayer(f.Slots[4].Player));
    QVERIFY(hurt);
    hurt->Injury = int16_t(g.session().InjuryLimit);
    g.button("PitchGrid", ("btnTeam" + std::to_string(team)).c_str())->click();
    g.button("PitchGrid", ("btnPos" + std::to_string(pos)).c_str())->click();
    QVERIFY(f.Slots[4].Player.empty());
    QCOMPARE(s->shirtCaption(5)->text(), QString("Player 5"));

    const char* groups[] = {"", "AGK", "DEF", "MID", "STR"};
    QStringList fit, unfit;
    for (const Player& p : club.Players) {
        if ((team == 1 && p.Age < 18) || (team == 2 && p.Age > 17)) continue;
        if (pos > 0 && p.Position.rfind(groups[pos], 0) != 0) continue;
        const bool picked =
            std::any_of(f.Slots.begin(), f.Slots.end(), [&](const TeamSlot& t) { return t.Player == p.Name; });
        const bool can = p.Injury < g.session().InjuryLimit && p.SuspPoints < g.session().SuspensionLimit;
        if (!can || !picked) (can ? fit : unfit) << q(p.Position + " " + p.Name);
    }
    QVERIFY(!fit.isEmpty());
    QCOMPARE(itemsOf(s->availableList()), fit);
    QCOMPARE(itemsOf(s->unavailableList()), unfit);
    if (team == 0) QVERIFY(unfit.contains(q(hurt->Position + " " + hurt->Name)));
    expectOnly(before, g.savedSheet(), {{{"Player:", 5}, ""}});
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
    onlyMessage(g, RecordingMessages::Kind::Inform, q(g.session().Game.GameName),
                QString("You need the Stats database to be able to use this option.\r\n\r\nIf you have the database, "
                        "but this option still isn't working, then make sure you have set the location correctly in "
                        "the preferences screen"));

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
