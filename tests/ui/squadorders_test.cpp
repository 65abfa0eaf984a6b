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
    std::string sheetPath() { return "Turnsheet/" + club().ClubFile + ".txt"; }
    std::string sheet() { return g.dir.read(sheetPath()); }

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
    void chooseLine(const std::string& text) {
        const QList<QListWidgetItem*> found = list()->findItems(qs(text), Qt::MatchExactly);
        QVERIFY2(found.size() == 1, text.c_str());
        clickItem(list(), list()->indexFromItem(found.front()));
    }
    std::vector<RecordingMessages::Entry> refusals() { return g.of(RecordingMessages::Kind::Refuse); }
};

QStringList qlist(const std::vector<std::string>& v) {
    QStringList l;
    for (const std::string& s : v) l << qs(s);
    return l;
}

// What an order case expects: the order list, and the Turnsheet values.
struct Expect {
    std::vector<std::string> lines;
    std::vector<Field> fields;
};

struct OrderCase {
    const char* name;
    std::function<Expect(Squad&)> give;
};

const OrderCase kOrderCases[] = {
    {"sell to CRAP, skill 7 at 25",
     [](Squad& s) {
         Player& p = const_cast<Player&>(s.senior());
         p.Skill = 7;
         p.Age = 25;
         s.choose(p.Name, "Pass");
         s.click("btnAction1");
         return Expect{{p.Name + " - Sell To CRAP for 1500000"}, slotFields(1, 2, p.Name, "", 1500000, 0, 0)};
     }},
    {"sell to another club",
     [](Squad& s) {
         const Player& p = s.senior();
         const std::string buyer(s.g.session().ExportClubs[4].Name);
         s.choose(p.Name);
         s.playerAct(2, "750000", {}, 4);
         return Expect{{p.Name + " - Sell Player To " + buyer + "  - For 750000"},
                       slotFields(1, 6, p.Name, buyer, 750000, 0, 0)};
     }},
    {"offer a contract with an incentive",
     [](Squad& s) {
         const Player& p = s.senior();
         s.choose(p.Name);
         s.playerAct(4, "2500", "18");
         return Expect{{p.Name + " - Contract 18 Months  - Incentive 2500"},
                       slotFields(1, 3, p.Name, "", 0, 2500, 18)};
     }},
    {"senior coach on Tackle",
     [](Squad& s) {
         Player& p = const_cast<Player&>(s.senior());
         p.Injury = 9;
         s.choose(p.Name, "Tackle");
         s.click("btnCoach");
         const int n = coachSlot(p, false);
         return Expect{{p.Name + " (" + listDepartment(p) + ") - Senior Coaching Tackle"},
                       {{"Coach Player:", n, p.Name}, {"CoachSkill:", n, " 3 "}}};
     }},
    {"team talk with a player chosen names nobody",
     [](Squad& s) {
         s.choose(s.senior().Name);
         s.oneToOne(10);
         return Expect{{"1 To 1 - Rousing Team Talk!"}, {{"OneToOnePlayer:", 1, ""}, {"One to One Instruction:", 1, " 11 "}}};
     }},
    {"a week of orders lists coaching, physio, actions, one to one",
     [](Squad& s) {
         const Player& a = s.senior();
         const Player& y = s.youth();
         s.choose(a.Name);
         s.oneToOne(6);
         s.click("btnAction0");
         s.playerAct(3, "99000");
         s.physio(1);
         s.choose(y.Name, "Dribble");
         s.click("btnYouth");
         Expect e{{y.Name + " (" + listDepartment(y) + ") - Youth Coaching Dribble", a.Name + " - Physio to treat with 1 points",
                   a.Name + " - Transfer List", a.Name + " - Secretly List For 99000", "1 To 1 - Why Unhappy? - " + a.Name},
                  {{"PhysioName:", 1, a.Name}, {"PhysioPts:", 1, " 1 "}, {"OneToOnePlayer:", 1, a.Name},
                   {"One to One Instruction:", 1, " 7 "}, {"Coach Player:", coachSlot(y, true), y.Name},
                   {"CoachSkill:", coachSlot(y, true), " 6 "}}};
         for (const Field& f : slotFields(1, 4, a.Name, "", 0, 0, 0)) e.fields.push_back(f);
         for (const Field& f : slotFields(2, 5, a.Name, "", 99000, 0, 0)) e.fields.push_back(f);
         return e;
     }},
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

const RefusalCase kRefusals[] = {
    {"an action with no player chosen", [](Squad&) {}, [](Squad& s) { s.click("btnAction0"); },
     words("No player selected"), words("Please select a player to action"), ""},
    {"a seventh action after six bids",
     [](Squad& s) {
         for (Movement& m : s.club().Movements) {
             m.Move = 1;
             m.Player = "Someone Else";
         }
         s.choose(s.senior().Name);
     },
     [](Squad& s) { s.click("btnAction1"); }, words("Action limit reached"),
     words("You are limited to a maximum of 6 actions per week"), ""},
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
    {"a contract of 7 months", [](Squad& s) { s.choose(s.senior().Name); },
     [](Squad& s) { s.playerAct(4, "0", "7"); }, words("Incorrect contract value"),
     words("Contracts must be either 6, 12, 18 or 24 months"), "PlayerAct"},
    {"an injured player for the coach",
     [](Squad& s) {
         Player& p = const_cast<Player&>(s.senior());
         p.Injury = 10;
         s.choose(p.Name, "Run");
     },
     [](Squad& s) { s.click("btnCoach"); }, words("Injured player selected"),
     [](Squad& s) {
         return s.find([](const Player& p) { return p.Injury == 10; }).Name + " is injured and cannot be coached this week";
     },
     ""},
    {"a youth for the senior coach", [](Squad& s) { s.choose(s.youth().Name, "Pass"); },
     [](Squad& s) { s.click("btnCoach"); }, words("Youth player selected for senior coach"),
     words("The senior coach is for players aged over 17 only"), ""},
    {"a senior for the youth coach", [](Squad& s) { s.choose(s.senior().Name, "Pass"); },
     [](Squad& s) { s.click("btnYouth"); }, words("Senior player selected for youth coach"),
     words("The youth coach is for players aged under 18 only"), ""},
    {"Flair can't be coached", [](Squad& s) { s.choose(s.senior().Name, "Flair"); },
     [](Squad& s) { s.click("btnCoach"); }, words("No skill selected"),
     words("Please select a skill to coach before clicking this button"), ""},
    {"a second senior order in one department",
     [](Squad& s) {
         s.choose(s.senior().Name, "Tackle");
         s.click("btnCoach");
         const Player& first = s.senior();
         const Player& second = s.find(
             [&](const Player& p) { return p.Age >= 18 && p.Injury <= 9 && department(p) == department(first); }, &first);
         s.choose(second.Name, "Pass");
     },
     [](Squad& s) { s.click("btnCoach"); }, words("Only one departmental coach action allowed per week"),
     [](Squad& s) {
         const std::string d = department(s.senior());
         const std::string which = d == "AGK" ? "goalkeeping" : d == "DEF" ? "defensive" : d == "MID" ? "midfield" : "attacking";
         return "The senior " + which + " coach has already been used";
     },
     ""},
    {"physio points beyond what is left",
     [](Squad& s) {
         s.choose(s.senior().Name);
         s.physio(s.club().Physio - 1);
         s.choose(s.senior(&s.senior()).Name);
     },
     [](Squad& s) { s.physio(2); }, words("Not enough physio points"),
     words("The Physio cannot perform this action. You only have a total of 1 physio points remaining"), ""},
    {"the physio twice for one player",
     [](Squad& s) {
         s.choose(s.senior().Name);
         s.physio(1);
     },
     [](Squad& s) { s.physio(1); }, words("Player already receiving treatment"),
     [](Squad& s) { return "The physio is already treating " + s.senior().Name; }, ""},
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
    void ordersReachTheTurnsheetAndComeBack_data();
    void ordersReachTheTurnsheetAndComeBack();
    void refusalsChangeNothing_data();
    void refusalsChangeNothing();
    void removalByTheChosenLine_data();
    void removalByTheChosenLine();
    void playerActFormsAndClubs_data();
    void playerActFormsAndClubs();
    void cancelledDialogsChangeNothing();
    void detailsFollowTheGrid();
    void playerDetailsAreSaved_data();
    void playerDetailsAreSaved();
    void coachingHistoryInItsOrder();
    void fillingTheScreenTakesNoOrder();
};

void SquadOrdersTest::ordersReachTheTurnsheetAndComeBack_data() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(kOrderCases)); ++i) QTest::newRow(kOrderCases[i].name) << i;
}

void SquadOrdersTest::ordersReachTheTurnsheetAndComeBack() {
    QFETCH(int, index);
    Squad s;
    s.save();
    const std::string before = s.sheet();
    QVERIFY(s.lines().isEmpty());

    const Expect want = kOrderCases[index].give(s);
    QVERIFY(s.refusals().empty());
    QCOMPARE(s.lines(), qlist(want.lines));
    QVERIFY(s.g.session().TurnChanged);
    QVERIFY(!s.dialog("PlayerAct") && !s.dialog("OneToOne"));

    s.save();
    QVERIFY(!s.g.session().TurnChanged);
    const std::string expected = withFields(before, want.fields);
    QVERIFY(!expected.empty());
    QCOMPARE(q(s.sheet()), q(expected));

    s.restart();
    QCOMPARE(s.lines(), qlist(want.lines));
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

void SquadOrdersTest::removalByTheChosenLine_data() {
    QTest::addColumn<int>("line");
    QTest::newRow("the coaching line") << 0;
    QTest::newRow("the physio line gives its points back") << 1;
    QTest::newRow("one of two actions of one player") << 2;
    QTest::newRow("the one to one") << 4;
}

void SquadOrdersTest::removalByTheChosenLine() {
    QFETCH(int, line);
    Squad s;
    s.save();
    const std::string before = s.sheet();
    const Player& a = s.senior();
    s.choose(a.Name, "Shoot");
    s.click("btnCoach");
    s.physio(3);
    s.click("btnAction0");
    s.playerAct(4, "0", "24");
    s.oneToOne(0);
    const int coach = coachSlot(a, false);
    const std::vector<std::string> all = {a.Name + " (" + listDepartment(a) + ") - Senior Coaching Shoot",
                                          a.Name + " - Physio to treat with 3 points", a.Name + " - Transfer List",
                                          a.Name + " - Contract 24 Months  - Incentive 0",
                                          "1 To 1 - Money talks - " + a.Name};
    QCOMPARE(s.lines(), qlist(all));
    const int physio = s.club().Physio;
    QCOMPARE(s.g.on<QLabel>("SquadScr", "lblPhysioLeft")->text(),
             QString("%1 of %2 points left").arg(physio - 3).arg(physio));

    s.save();
    s.chooseLine(all[size_t(line)]);
    s.click("BtnRemove");
    QVERIFY(s.refusals().empty());
    std::vector<std::string> rest = all;
    rest.erase(rest.begin() + line);
    QCOMPARE(s.lines(), qlist(rest));
    QVERIFY(s.g.session().TurnChanged);
    QCOMPARE(s.g.on<QLabel>("SquadScr", "lblPhysioLeft")->text(),
             QString("%1 of %2 points left").arg(line == 1 ? physio : physio - 3).arg(physio));

    // Removal clears the key of the order; the figures beside it stay as they were.
    std::vector<Field> fields = {{"Coach Player:", coach, line == 0 ? "" : a.Name},
                                 {"CoachSkill:", coach, " 5 "},
                                 {"PhysioName:", 1, line == 1 ? "" : a.Name},
                                 {"PhysioPts:", 1, " 3 "},
                                 {"OneToOnePlayer:", 1, line == 4 ? "" : a.Name},
                                 {"One to One Instruction:", 1, line == 4 ? " 0 " : " 1 "}};
    for (const Field& f : slotFields(1, line == 2 ? 0 : 4, a.Name, "", 0, 0, 0)) fields.push_back(f);
    for (const Field& f : slotFields(2, line == 3 ? 0 : 3, a.Name, "", 0, 0, 24)) fields.push_back(f);
    s.save();
    QCOMPARE(q(s.sheet()), q(withFields(before, fields)));

    s.restart();
    QCOMPARE(s.lines(), qlist(rest));
}

void SquadOrdersTest::playerActFormsAndClubs_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<bool>("contract");
    QTest::addColumn<bool>("clubs");
    QTest::newRow("sell to another club") << 2 << "Sell %1 to another club. Enter amount and club name" << false << true;
    QTest::newRow("secretly list") << 3 << "Secretly list %1. Enter the amount agreed with the other club" << false
                                   << false;
    QTest::newRow("offer contract") << 4 << "Offer contract to %1. Enter contract length and optional incentive"
                                    << true << false;
}

void SquadOrdersTest::playerActFormsAndClubs() {
    QFETCH(int, button);
    QFETCH(QString, prompt);
    QFETCH(bool, contract);
    QFETCH(bool, clubs);
    Squad s;
    const Player& p = s.senior();
    s.choose(p.Name);
    s.click(("btnAction" + std::to_string(button)).c_str());
    QDialog* d = s.dialog("PlayerAct");
    QVERIFY(d);
    QCOMPARE(d->windowTitle(), QString("Player Actions"));
    QCOMPARE(d->findChild<QLabel*>("txtPlayerAct")->text(), prompt.arg(qs(p.Name)));
    QVERIFY(d->findChild<QLineEdit*>("txtAmount")->isVisible());
    QCOMPARE(d->findChild<QLineEdit*>("txtContract")->isVisible(), contract);
    auto* list = d->findChild<QListWidget*>("lvwActionTeams");
    QCOMPARE(list->isVisible(), clubs);
    // Every club of the game, in the order of the club export.
    QStringList names;
    for (const ExportClub& c : s.g.session().ExportClubs) names << qs(c.Name);
    QCOMPARE(itemsOf(list), names);
    QVERIFY(s.refusals().empty());
    QVERIFY(!s.g.session().TurnChanged);
}

void SquadOrdersTest::cancelledDialogsChangeNothing() {
    Squad s;
    s.choose(s.senior().Name);
    const std::string orders = turnsheetText(s.club());
    for (const char* button : {"btnAction2", "btnAction3", "btnAction4", "btnOneToOne"}) {
        s.click(button);
        QDialog* d = s.dialog(button == std::string("btnOneToOne") ? "OneToOne" : "PlayerAct");
        QVERIFY2(d, button);
        if (d->findChild<QLineEdit*>("txtAmount")) s.type(d, "txtAmount", "123456");
        if (QRadioButton* option = d->findChild<QRadioButton*>("OneToOneOption3")) option->click();
        s.press(d, "CancelButton");
        QVERIFY2(!s.dialog("PlayerAct") && !s.dialog("OneToOne"), button);
    }
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

    auto rec = [](const char* date, const char* name, const char* pos, const char* result, const char* skill, int v) {
        HistoryRecord h;
        h.Date = date;
        h.Name = name;
        h.Position = pos;
        h.Result = result;
        h.Skill = skill;
        h.NewValue = int16_t(v);
        return h;
    };
    writeFileAtomic(file, historyBytes({rec("20250816", "Zed Ward", "MIDC", "Y", "PA", 14),
                                        rec("20250802", "Zed Ward", "MIDC", "N", "PA", 0),
                                        rec("20250809", "Abe Ash", "AGKP", "P", "TA", 0),
                                        rec("20250801", "Zed Ward", "MIDC", "Y", "CO", 9)}));
    s.click("BtnHist");
    auto* d = s.dialog("CoachScr");
    QVERIFY(d);
    QCOMPARE(d->windowTitle(), qs(s.g.session().Game.GameName + " turnsheet entry : Coaching History"));
    auto* list = d->findChild<QTreeWidget*>("lvwCoachRes");
    const QStringList heads = {"Name", "Pos", "Date", "Skill Coached", "Result", "New Value"};
    for (int c = 0; c < 8; ++c) QCOMPARE(list->isColumnHidden(c), c >= 6);
    for (int c = 0; c < 6; ++c) QCOMPARE(list->headerItem()->text(c), heads[c]);
    const QStringList want = {"Abe Ash|AGKP|09/08/2025|TA|Potential Reached|",
                              "Zed Ward|MIDC|01/08/2025|CO|Success|9",
                              "Zed Ward|MIDC|02/08/2025|PA|Failure|",
                              "Zed Ward|MIDC|16/08/2025|PA|Success|14"};
    QCOMPARE(list->topLevelItemCount(), int(want.size()));
    for (int r = 0; r < list->topLevelItemCount(); ++r) {
        QStringList cells;
        for (int c = 0; c < 6; ++c) cells << list->topLevelItem(r)->text(c);
        QCOMPARE(cells.join('|'), want[r]);
    }
    QVERIFY(s.g.messages.entries.empty());
}

void SquadOrdersTest::fillingTheScreenTakesNoOrder() {
    Squad s;
    s.choose(s.senior().Name, "Pass");
    s.g.session().FillingScreen = true;
    for (const char* button : {"btnAction0", "btnAction1", "btnAction2", "btnCoach", "btnPhysio", "btnOneToOne"})
        s.click(button);
    s.g.session().FillingScreen = false;
    QVERIFY(s.lines().isEmpty());
    QVERIFY(s.g.messages.entries.empty());
    QVERIFY(!s.dialog("PlayerAct") && !s.dialog("OneToOne"));
    QVERIFY(!s.g.session().TurnChanged);
}

QTEST_MAIN(SquadOrdersTest)
#include "squadorders_test.moc"
