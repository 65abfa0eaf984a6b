// The week's squad orders given through the squad screen's own widgets: the
// grid, the order buttons and their dialogs, the order list and its removal,
// the saved Turnsheet and what comes back after a restart.
#include <QDialog>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QTreeWidget>
#include <QtTest>
#include <functional>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "files/turnsheet.h"
#include "orders/history.h"
#include "orders/playerdetails.h"
#include "ui/qtext.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;
using ui::qs;

namespace {

constexpr int kClub = 2;  // the demo's third club has no orders of its own

// One value of the Turnsheet: the line after the n-th (1-based) line `label`.
struct Field {
    std::string label;
    int occurrence;
    std::string value;
};

// The Turnsheet `sheet` with those values put in; "" when a label is missing,
// so that the comparison fails.
std::string withFields(const std::string& sheet, const std::vector<Field>& fields) {
    std::vector<std::string> lines = splitLines(sheet);
    for (const Field& f : fields) {
        int seen = 0;
        size_t at = 0;
        for (size_t i = 0; i + 1 < lines.size() && !at; ++i)
            if (lines[i] == f.label && ++seen == f.occurrence) at = i + 1;
        if (!at) return {};
        lines[at] = f.value;
    }
    return joinCrLf(lines);
}

// The movement slot n (1-based) of a Turnsheet, whole.
std::vector<Field> slotFields(int n, int move, const std::string& player, const std::string& club, long fee,
                              long incentive, long contract) {
    auto num = [](long v) { return " " + std::to_string(v) + " "; };
    return {{"PlayerMove:", n, num(move)},          {"PlayerMovement:", n, player},
            {"PlayerClubMovement:", n, club},       {"PlayerFeeMovement:", n, num(fee)},
            {"PlayerIncentiveMovement:", n, num(incentive)}, {"PlayerContractsMovement:", n, num(contract)}};
}

std::string department(const Player& p) { return p.Position.substr(0, 3); }
// The department as the order list writes it.
std::string listDepartment(const Player& p) { return department(p) == "STR" ? "ATT" : department(p); }
// The coach order of a department in Turnsheet order, 1-based.
int coachSlot(const Player& p, bool youth) {
    const std::string d = department(p);
    const int i = d == "AGK" ? 1 : d == "DEF" ? 2 : d == "MID" ? 3 : 4;
    return youth ? i + 4 : i;
}

// The squad screen of the demo's third club, driven as the manager does.
struct Squad {
    UiGame g;

    Squad() { show(); }

    void show() {
        g.window->showScreen("SquadScr");
        g.teamList("SquadScr")->setCurrentIndex(kClub);
        QCoreApplication::processEvents();
    }
    void restart() {
        g.open();
        show();
    }

    Club& club() { return g.session().Clubs[kClub]; }
    QWidget* screen() { return g.window->screen("SquadScr"); }
    QTableWidget* grid() { return g.on<QTableWidget>("SquadScr", "grdSquad"); }
    QListWidget* list() { return g.on<QListWidget>("SquadScr", "lstActions"); }
    std::string sheet() { return g.dir.read("Turnsheet/" + club().ClubFile + ".txt"); }

    void click(const char* control) {
        QPushButton* b = g.button("SquadScr", control);
        QVERIFY2(b && b->isEnabled(), control);
        b->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void save() { click("Command2"); }

    // The first player of the club the test wants; the demo must have one.
    const Player& find(const std::function<bool(const Player&)>& wanted, const Player* besides = nullptr) {
        for (const Player& p : club().Players)
            if (wanted(p) && &p != besides) return p;
        throw std::runtime_error("the demo club has no player of the kind a test needs");
    }
    const Player& senior(const Player* besides = nullptr) {
        return find([](const Player& p) { return p.Age >= 18 && p.Age <= 34 && p.Injury <= 9 && p.Position != "AGKP"; },
                    besides);
    }
    const Player& youth() { return find([](const Player& p) { return p.Age < 18 && p.Injury <= 9; }); }

    // A click on the player's cell in the named column.
    void choose(const std::string& name, const std::string& column = "Name   (Last No)") {
        int col = -1;
        for (int c = 0; c < grid()->columnCount(); ++c)
            if (grid()->horizontalHeaderItem(c)->text() == qs(column)) col = c;
        for (int r = 0; r < grid()->rowCount(); ++r) {
            QTableWidgetItem* cell = grid()->item(r, col);
            if (grid()->item(r, 0)->text().section('(', 0, 0).trimmed() != qs(name)) continue;
            grid()->scrollToItem(cell);
            QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, grid()->visualItemRect(cell).center());
            return;
        }
        QFAIL(("no grid row for " + name).c_str());
    }

    // The dialog of that control name open over the screen, if any.
    QDialog* dialog(const char* name) {
        for (QDialog* d : screen()->findChildren<QDialog*>(name))
            if (d->isVisible()) return d;
        return nullptr;
    }
    void type(QDialog* d, const char* edit, const QString& text) {
        auto* e = d->findChild<QLineEdit*>(edit);
        QVERIFY2(e, edit);
        e->selectAll();
        QTest::keyClick(e, Qt::Key_Backspace);
        QTest::keyClicks(e, text);
    }
    void clickItem(QAbstractItemView* view, const QModelIndex& index) {
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    }
    void press(QDialog* d, const char* button) {
        auto* b = d->findChild<QAbstractButton*>(button);
        QVERIFY2(b, button);
        b->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // PlayerAct after its button: the amount, the contract, the club by its row.
    void playerAct(int button, const QString& amount, const QString& contract = {}, int clubRow = -1) {
        click(("btnAction" + std::to_string(button)).c_str());
        QDialog* d = dialog("PlayerAct");
        QVERIFY(d);
        if (!amount.isNull()) type(d, "txtAmount", amount);
        if (!contract.isNull()) type(d, "txtContract", contract);
        if (clubRow >= 0) {
            auto* clubs = d->findChild<QListWidget*>("lvwActionTeams");
            clickItem(clubs, clubs->model()->index(clubRow, 0));
        }
        press(d, "OKButton");
    }
    void oneToOne(int option) {
        click("btnOneToOne");
        QDialog* d = dialog("OneToOne");
        QVERIFY(d);
        if (option >= 0) d->findChild<QRadioButton*>("OneToOneOption" + QString::number(option))->click();
        press(d, "OKButton");
    }
    void physio(int points) {
        auto* e = g.on<QLineEdit>("SquadScr", "txtPhysio");
        e->selectAll();
        QTest::keyClicks(e, QString::number(points));
        click("btnPhysio");
    }

    QStringList lines() { return itemsOf(list()); }
    void chooseLine(const QString& text) {
        const QList<QListWidgetItem*> found = list()->findItems(text, Qt::MatchExactly);
        QVERIFY2(found.size() == 1, qPrintable(text));
        clickItem(list(), list()->indexFromItem(found.front()));
    }
    std::vector<RecordingMessages::Entry> refusals() { return g.of(RecordingMessages::Kind::Refuse); }
};

// A refusal: what sets the scene (orders may be given), what is refused, the
// words, and the dialog that stays open for correction ("" for none).
struct RefusalCase {
    const char* name;
    std::function<void(Squad&)> setUp;
    std::function<void(Squad&)> act;
    std::function<std::string(Squad&)> title;
    std::function<std::string(Squad&)> text;
    const char* staysOpen;
};

auto words(std::string w) {
    return [w](Squad&) { return w; };
}

// One refusal for each control that gives an order; the logic tests hold the rest.
const RefusalCase kRefusals[] = {
    {"an action with no player chosen", [](Squad&) {}, [](Squad& s) { s.click("btnAction0"); },
     words("No player selected"), words("Please select a player to action"), ""},
    {"a sale to another club after CRAP, before the dialog",
     [](Squad& s) {
         s.choose(s.senior().Name);
         s.click("btnAction1");
     },
     [](Squad& s) { s.click("btnAction2"); }, words("Action already performed"),
     [](Squad& s) { return s.senior().Name + " is already actioned to be sold"; }, ""},
    {"a sale to a club narrowed out of the list", [](Squad& s) { s.choose(s.senior().Name); },
     [](Squad& s) {
         s.click("btnAction2");
         QDialog* d = s.dialog("PlayerAct");
         auto* clubs = d->findChild<QListWidget*>("lvwActionTeams");
         s.clickItem(clubs, clubs->model()->index(3, 0));
         s.type(d, "txtFindClub", "no club is called this");
         s.press(d, "OKButton");
     },
     words("No Club selected"), words("Please select a club to sell this player to"), "PlayerAct"},
    {"a youth for the senior coach", [](Squad& s) { s.choose(s.youth().Name, "Pass"); },
     [](Squad& s) { s.click("btnCoach"); }, words("Youth player selected for senior coach"),
     words("The senior coach is for players aged over 17 only"), ""},
    {"physio points beyond what is left",
     [](Squad& s) {
         s.choose(s.senior().Name);
         s.physio(s.club().Physio - 1);
         s.choose(s.senior(&s.senior()).Name);
     },
     [](Squad& s) { s.physio(2); }, words("Not enough physio points"),
     words("The Physio cannot perform this action. You only have a total of 1 physio points remaining"), ""},
    {"a second one to one, before the dialog", [](Squad& s) { s.oneToOne(10); },
     [](Squad& s) { s.click("btnOneToOne"); }, words("One To One already selected"),
     words("You cannot perform more than a single One To One Option each week"), ""},
    {"a one to one with no option", [](Squad& s) { s.choose(s.senior().Name); },
     [](Squad& s) { s.oneToOne(-1); }, words("No option selected"), words("Please select a One to One option"),
     "OneToOne"},
    {"money talks with no player chosen", [](Squad&) {}, [](Squad& s) { s.oneToOne(0); }, words("No player selected"),
     words("That One to One option needs a player to be selected"), "OneToOne"},
    {"remove with no line chosen",
     [](Squad& s) {
         s.choose(s.senior().Name);
         s.click("btnAction0");
     },
     [](Squad& s) { s.click("BtnRemove"); }, words("No action selected"), words("Please select an action to remove"),
     ""},
};

}  // namespace

class SquadOrdersTest : public QObject {
    Q_OBJECT
private slots:
    void aWeekOfOrdersAndARemoval_data();
    void aWeekOfOrdersAndARemoval();
    void refusalsChangeNothing_data();
    void refusalsChangeNothing();
    void dialogsCancelledAndAFillingScreenOrderNothing();
    void detailsFollowTheGrid();
    void playerDetailsAreSaved_data();
    void playerDetailsAreSaved();
    void coachingHistoryInItsOrder();
};

void SquadOrdersTest::aWeekOfOrdersAndARemoval_data() {
    QTest::addColumn<int>("removed");
    QTest::newRow("the physio line gives its points back") << 2;
    QTest::newRow("one of three actions of one player") << 6;
}

// An order from every button, then one line removed: the list, the physio's
// points, the saved Turnsheet and the list after a restart.
void SquadOrdersTest::aWeekOfOrdersAndARemoval() {
    QFETCH(int, removed);
    Squad s;
    s.save();
    const std::string before = s.sheet();
    const Player& a = s.senior();
    Player& b = const_cast<Player&>(s.senior(&a));
    b.Skill = 7;  // CRAP pays 1500000 for skill 7 at 25
    b.Age = 25;
    const Player& c = s.find([&](const Player& p) { return &p != &a && &p != &b; });
    const Player& y = s.youth();
    const std::string buyer(s.g.session().ExportClubs[4].Name);

    s.choose(a.Name, "Tackle");
    s.click("btnCoach");
    s.physio(3);
    s.click("btnAction0");
    s.oneToOne(6);
    s.choose(b.Name);
    s.click("btnAction1");
    s.choose(c.Name);
    s.playerAct(2, "750000", {}, 4);
    s.choose(a.Name);
    s.playerAct(3, "99000");
    s.playerAct(4, "2500", "18");
    s.choose(y.Name, "Dribble");
    s.click("btnYouth");
    const QStringList all = {qs(a.Name + " (" + listDepartment(a) + ") - Senior Coaching Tackle"),
                             qs(y.Name + " (" + listDepartment(y) + ") - Youth Coaching Dribble"),
                             qs(a.Name + " - Physio to treat with 3 points"),
                             qs(a.Name + " - Transfer List"),
                             qs(b.Name + " - Sell To CRAP for 1500000"),
                             qs(c.Name + " - Sell Player To " + buyer + "  - For 750000"),
                             qs(a.Name + " - Secretly List For 99000"),
                             qs(a.Name + " - Contract 18 Months  - Incentive 2500"),
                             qs("1 To 1 - Why Unhappy? - " + a.Name)};
    QVERIFY(s.refusals().empty());
    QCOMPARE(s.lines(), all);
    QVERIFY(!s.dialog("PlayerAct") && !s.dialog("OneToOne"));
    QVERIFY(s.g.session().TurnChanged);
    const int physio = s.club().Physio;
    auto* left = s.g.on<QLabel>("SquadScr", "lblPhysioLeft");
    QCOMPARE(left->text(), QString("%1 of %2 points left").arg(physio - 3).arg(physio));

    s.save();
    QVERIFY(!s.g.session().TurnChanged);
    s.chooseLine(all[removed]);
    s.click("BtnRemove");
    QVERIFY(s.refusals().empty());
    QStringList rest = all;
    rest.removeAt(removed);
    QCOMPARE(s.lines(), rest);
    QVERIFY(s.g.session().TurnChanged);
    QCOMPARE(left->text(), QString("%1 of %2 points left").arg(removed == 2 ? physio : physio - 3).arg(physio));

    // Removal clears the key of the order; the figures beside it stay as they were.
    const int senior = coachSlot(a, false), youth = coachSlot(y, true);
    std::vector<Field> fields = {{"Coach Player:", senior, a.Name}, {"CoachSkill:", senior, " 3 "},
                                 {"Coach Player:", youth, y.Name}, {"CoachSkill:", youth, " 6 "},
                                 {"PhysioName:", 1, removed == 2 ? "" : a.Name}, {"PhysioPts:", 1, " 3 "},
                                 {"OneToOnePlayer:", 1, a.Name}, {"One to One Instruction:", 1, " 7 "}};
    for (const auto& slot :
         {slotFields(1, 4, a.Name, "", 0, 0, 0), slotFields(2, 2, b.Name, "", 1500000, 0, 0),
          slotFields(3, 6, c.Name, buyer, 750000, 0, 0), slotFields(4, removed == 6 ? 0 : 5, a.Name, "", 99000, 0, 0),
          slotFields(5, 3, a.Name, "", 0, 2500, 18)})
        fields.insert(fields.end(), slot.begin(), slot.end());
    s.save();
    const std::string expected = withFields(before, fields);
    QVERIFY(!expected.empty());
    QCOMPARE(q(s.sheet()), q(expected));

    s.restart();
    QCOMPARE(s.lines(), rest);
    QVERIFY(!s.g.session().TurnChanged);
}

void SquadOrdersTest::refusalsChangeNothing_data() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(kRefusals)); ++i) QTest::newRow(kRefusals[i].name) << i;
}

void SquadOrdersTest::refusalsChangeNothing() {
    QFETCH(int, index);
    const RefusalCase& c = kRefusals[index];
    Squad s;
    s.save();
    c.setUp(s);
    s.g.messages.entries.clear();
    const std::string orders = turnsheetText(s.club());
    const QStringList lines = s.lines();
    const bool changed = s.g.session().TurnChanged;
    const std::string onDisk = s.sheet();

    c.act(s);
    onlyMessage(s.g, RecordingMessages::Kind::Refuse, q(c.title(s)), q(c.text(s)));

    QCOMPARE(q(turnsheetText(s.club())), q(orders));
    QCOMPARE(s.lines(), lines);
    QCOMPARE(s.g.session().TurnChanged, changed);
    QCOMPARE(q(s.sheet()), q(onDisk));
    const std::string open = c.staysOpen;
    QCOMPARE(s.dialog("PlayerAct") != nullptr, open == "PlayerAct");
    QCOMPARE(s.dialog("OneToOne") != nullptr, open == "OneToOne");
}

// Each dialog opens on the chosen player and its Cancel orders nothing; nor
// does a click while the screen is being filled.
void SquadOrdersTest::dialogsCancelledAndAFillingScreenOrderNothing() {
    Squad s;
    const Player& p = s.senior();
    s.choose(p.Name, "Pass");
    const std::string orders = turnsheetText(s.club());
    QStringList clubs;  // every club of the game, in the order of the club export
    for (const ExportClub& c : s.g.session().ExportClubs) clubs << qs(c.Name);
    const struct {
        const char* button;
        const char* prompt;
        bool contract, clubs;
    } forms[] = {{"btnAction2", "Sell %1 to another club. Enter amount and club name", false, true},
                 {"btnAction3", "Secretly list %1. Enter the amount agreed with the other club", false, false},
                 {"btnAction4", "Offer contract to %1. Enter contract length and optional incentive", true, false}};
    for (const auto& f : forms) {
        s.click(f.button);
        QDialog* d = s.dialog("PlayerAct");
        QVERIFY2(d, f.button);
        QCOMPARE(d->windowTitle(), QString("Player Actions"));
        QCOMPARE(d->findChild<QLabel*>("txtPlayerAct")->text(), QString(f.prompt).arg(qs(p.Name)));
        QVERIFY(d->findChild<QLineEdit*>("txtAmount")->isVisible());
        QCOMPARE(d->findChild<QLineEdit*>("txtContract")->isVisible(), f.contract);
        auto* list = d->findChild<QListWidget*>("lvwActionTeams");
        QCOMPARE(list->isVisible(), f.clubs);
        QCOMPARE(itemsOf(list), clubs);
        s.type(d, "txtAmount", "123456");
        s.press(d, "CancelButton");
        QVERIFY2(!s.dialog("PlayerAct"), f.button);
    }
    s.click("btnOneToOne");
    QDialog* d = s.dialog("OneToOne");
    QVERIFY(d);
    d->findChild<QRadioButton*>("OneToOneOption3")->click();
    s.press(d, "CancelButton");
    QVERIFY(!s.dialog("OneToOne"));

    s.g.session().FillingScreen = true;
    for (const char* button : {"btnAction0", "btnAction1", "btnAction2", "btnCoach", "btnPhysio", "btnOneToOne"})
        s.click(button);
    s.g.session().FillingScreen = false;
    QVERIFY(!s.dialog("PlayerAct") && !s.dialog("OneToOne"));
    QCOMPARE(q(turnsheetText(s.club())), q(orders));
    QVERIFY(s.lines().isEmpty());
    QVERIFY(!s.g.session().TurnChanged);
    QVERIFY(s.g.messages.entries.empty());
}

void SquadOrdersTest::detailsFollowTheGrid() {
    Squad s;
    auto* panel = s.g.on<QPlainTextEdit>("SquadScr", "txtOtherDet");
    QVERIFY(panel->toPlainText().isEmpty());
    QVERIFY(QFontInfo(panel->font()).fixedPitch());
    const std::string currency = s.g.session().Game.Currency;
    QVERIFY(!currency.empty());
    for (const Player* p : {&s.youth(), &s.senior()}) {
        s.choose(p->Name, "Run");
        const QString text = panel->toPlainText();
        QVERIFY(text.startsWith(qs("Other details for " + p->Name + ".\n")));
        QVERIFY(text.contains(qs("\tValue: " + currency + " " + std::to_string(p->Value) + "\n")));
    }
    // Another club: nobody is chosen until the manager clicks again.
    s.g.teamList("SquadScr")->setCurrentIndex(0);
    QVERIFY(panel->toPlainText().isEmpty());
    QVERIFY(s.g.on<QTableWidget>("SquadScr", "grdSquad")->currentRow() < 0);
}

void SquadOrdersTest::playerDetailsAreSaved_data() {
    QTest::addColumn<bool>("diskFull");
    QTest::newRow("saved") << false;
    QTest::newRow("the disk is full: last week's file stays") << true;
}

void SquadOrdersTest::playerDetailsAreSaved() {
    QFETCH(bool, diskFull);
    Squad s;
    s.g.dir.write("PlayerDetails.txt", "last week's player\r\n");
    const Player& p = s.youth();
    s.choose(p.Name);
    s.click("btnAction5");
    QDialog* d = s.dialog("EmailPlayer");
    QVERIFY(d);
    const std::string text = createDetails(s.club(), p);
    QVERIFY(text.rfind("Player details, sent from " + s.club().Name + "\r\n\r\n", 0) == 0);
    QCOMPARE(d->findChild<QPlainTextEdit*>("EmailText")->toPlainText(), qs(text));
    auto* email = d->findChild<QPushButton*>("btnEmailDetails");
    QVERIFY(email && email->isEnabled());  // sending is the mail tests' part

    if (diskFull)
        atomicWriteFaultHook = [](const fs::path& tmp) { throw WriteError(tmp.string(), "No space left on device"); };
    s.press(d, "btnSaveDetails");
    atomicWriteFaultHook = nullptr;
    if (diskFull) {
        QCOMPARE(q(s.g.dir.read("PlayerDetails.txt")), QString("last week's player\r\n"));
        onlyMessage(s.g, RecordingMessages::Kind::Refuse, "Player Details not saved");
        if (QTest::currentTestFailed()) return;
        QVERIFY(q(s.refusals()[0].text).contains("could not be written: No space left on device."));
        QVERIFY(q(s.refusals()[0].text).contains("left as it was"));
    } else {
        QCOMPARE(q(s.g.dir.read("PlayerDetails.txt")), q(text));
        onlyMessage(s.g, RecordingMessages::Kind::Inform, "Player Details exported",
                    q((s.g.dir.path() / "PlayerDetails.txt").string() +
                      "\r\nYou can now email that file to the manager of your choice"));
    }
    QVERIFY(!s.g.session().TurnChanged);
    QVERIFY(s.lines().isEmpty());
}

void SquadOrdersTest::coachingHistoryInItsOrder() {
    Squad s;
    const fs::path file = s.g.dir.path() / (s.club().ClubFile + "HST.TXT");
    fs::remove(file);
    s.click("BtnHist");
    QVERIFY(!s.dialog("CoachScr"));
    QVERIFY(s.g.messages.entries.empty());

    // In the file's order the rows would be the other way round.
    writeFileAtomic(file, historyBytes({{"20250816", "Zed Ward", "MIDC", "Y", "PA", 14},
                                        {"20250809", "Abe Ash", "AGKP", "P", "TA", 0}}));
    s.click("BtnHist");
    auto* d = s.dialog("CoachScr");
    QVERIFY(d);
    QCOMPARE(d->windowTitle(), qs(s.g.session().Game.GameName + " turnsheet entry : Coaching History"));
    auto* list = d->findChild<QTreeWidget*>("lvwCoachRes");
    const QStringList heads = {"Name", "Pos", "Date", "Skill Coached", "Result", "New Value"};
    for (int c = 0; c < 8; ++c) QCOMPARE(list->isColumnHidden(c), c >= 6);
    for (int c = 0; c < 6; ++c) QCOMPARE(list->headerItem()->text(c), heads[c]);
    const QStringList want = {"Abe Ash|AGKP|09/08/2025|TA|Potential Reached|",
                              "Zed Ward|MIDC|16/08/2025|PA|Success|14"};
    QCOMPARE(list->topLevelItemCount(), int(want.size()));
    for (int r = 0; r < list->topLevelItemCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < 6; ++c) cells << list->topLevelItem(r)->text(c);
        QCOMPARE(cells.join('|'), want[r]);
    }
    QVERIFY(s.g.messages.entries.empty());
}

QTEST_MAIN(SquadOrdersTest)
#include "squadorders_test.moc"
