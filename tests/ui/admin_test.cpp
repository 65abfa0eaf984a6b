// The Weekly Administration screen driven through its own controls: the
// record kept per club, the money checks, the skill and scout helpers, and
// the text saved for the administrator.
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QtTest>

#include "core/gamefolder.h"
#include "orders/admin.h"
#include "orders/orderresult.h"
#include "ui/admin.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

struct Admin : UiGame {
    Admin() { enter(); }
    void enter() {
        button("MainMenu", "btnAdmin")->click();
        QCOMPARE(window->currentScreen()->objectName(), QString("Admin"));
    }
    void leave() {
        button("Admin", "BtnReturnToMain")->click();
        QCOMPARE(window->currentScreen()->objectName(), QString("MainMenu"));
    }
    ui::AdminScreen* screen() { return static_cast<ui::AdminScreen*>(window->screen("Admin")); }
    QComboBox* box(const char* name) { return on<QComboBox>("Admin", name); }
    QString label(const char* name) { return on<QLabel>("Admin", name)->text(); }
    void pick(const char* name, const QString& text) {
        QComboBox* b = box(name);
        QVERIFY2(b, name);
        const int at = b->findText(text);
        QVERIFY2(at >= 0, qPrintable(name + (": " + text)));
        b->setCurrentIndex(at);
    }
    Club& club(int i = 0) { return session().Clubs[size_t(i)]; }
    AdminRecord record(int i = 0) { return readAdminRecord(GameFolder(dir.path()), i); }
    // The option shown as chosen: checked, and the only caption in red and bold.
    int chosen() {
        int found = -1;
        for (int i = 0; i < 14; ++i) {
            auto* b = on<QRadioButton>("Admin", qPrintable("optAdmin" + QString::number(i)));
            if (b->styleSheet().contains("bold") != b->isChecked()) return -2;
            if (b->isChecked()) found = i;
        }
        return found;
    }
};

}  // namespace

class AdminTest : public QObject {
    Q_OBJECT
private slots:
    void specialPhysioKeptWhenLeaving();
    void fitsTheLeastWindow();
    void moneyChecks_data();
    void moneyChecks();
    void forcedSkillListsAndSentence();
    void scoutPointsFollowTheControls();
    void eachClubKeepsItsOwnRecord();
    void textSavedForTheAdministrator();
};

void AdminTest::specialPhysioKeptWhenLeaving() {
    Admin g;
    QVERIFY(g.window->windowTitle().endsWith(" turnsheet entry : Weekly Administration"));
    g.club().Players[3].Injury = 11;
    g.club().Balance = 5000000;
    g.controller->selectClub(0);
    const QString player = q(g.club().Players[3].Name + " (" + g.club().Players[3].Position + ")");
    QCOMPARE(g.chosen(), 0);
    g.pick("SP_Player", player);
    QCOMPARE(g.chosen(), 4);
    g.pick("SP_Points", "4");
    QCOMPARE(g.label("lblPhysioValue"), QString("Cost of 2000000"));
    g.leave();

    const AdminRecord r = g.record();
    QCOMPARE(int(r.option()), 4);
    QCOMPARE(q(r.text(AdminField::SP_Player)), player);
    QCOMPARE(q(r.text(AdminField::SP_Points)), QString("4"));
    QVERIFY(!r.written(AdminField::SSR_Pos));  // another option's field

    // Back after another club was shown, and after a restart.
    g.controller->selectClub(1);
    g.controller->selectClub(0);
    g.enter();
    for (int pass = 0; pass < 2; ++pass) {
        QCOMPARE(g.chosen(), 4);
        QCOMPARE(g.box("SP_Player")->currentText(), player);
        QCOMPARE(g.box("SP_Points")->currentText(), QString("4"));
        QCOMPARE(g.box("LPO_Weeks")->currentText(), QString("6"));
        if (pass == 0) {
            g.open();
            g.club().Players[3].Injury = 11;
            g.club().Balance = 5000000;
            g.controller->selectClub(0);
            g.enter();
        }
    }
    QVERIFY(g.messages.entries.empty());
}

void AdminTest::fitsTheLeastWindow() {
    Admin g;
    g.window->resize(g.window->minimumSize());
    QCoreApplication::processEvents();
    auto* page = g.screen()->findChild<QWidget*>("adminPage");
    auto* scroll = g.screen()->findChild<QScrollArea*>();
    QVERIFY(page && scroll);
    QVERIFY2(page->minimumSizeHint().width() <= scroll->viewport()->width(),
             qPrintable(QString("%1 > %2").arg(page->minimumSizeHint().width()).arg(scroll->viewport()->width())));
    for (QWidget* w : page->findChildren<QWidget*>())
        if (w->isVisible()) QVERIFY2(w->mapTo(page, QPoint(w->width(), 0)).x() <= page->width(), qPrintable(w->objectName()));
}

void AdminTest::moneyChecks_data() {
    QTest::addColumn<QString>("control");  // an option button, or a list and its entry
    QTest::addColumn<QString>("entry");
    QTest::addColumn<int>("balance");
    QTest::addColumn<int>("option");
    QTest::addColumn<QString>("text");  // of the refusal; none when accepted
    QTest::addColumn<QString>("caption");
    const QString current = "\r\nCurrent bank balance is ";
    QTest::newRow("create player, too little") << "optAdmin10" << "" << 9999999 << 0
                                               << "Your club cannot afford to do this.  It would cost 10 million" +
                                                      current + "9999999"
                                               << "";
    QTest::newRow("create player by its position") << "CP_Position" << "Goalkeeper" << 9999999 << 0
                                                   << "Your club cannot afford to do this.  It would cost 10 million" +
                                                          current + "9999999"
                                                   << "";
    QTest::newRow("create player, enough") << "optAdmin10" << "" << 10000000 << 10 << "" << "";
    QTest::newRow("fast track, too little") << "FTD_Dept" << "Scout" << 2000000 << 0
                                            << "Your club cannot afford to do this.  It would cost 2250000" + current +
                                                   "2000000"
                                            << "";
    QTest::newRow("fast track, enough") << "FTD_Dept" << "Scout" << 2250000 << 6 << ""
                                        << "Increase to 3 for a cost of 2250000";
    QTest::newRow("physio, too little") << "SP_Points" << "7" << 3000000 << 0
                                        << "Your club cannot afford to do this.  It would cost 3500000" + current +
                                               "3000000"
                                        << "";
}

void AdminTest::moneyChecks() {
    QFETCH(QString, control);
    QFETCH(QString, entry);
    QFETCH(int, balance);
    QFETCH(int, option);
    QFETCH(QString, text);
    QFETCH(QString, caption);
    Admin g;
    g.club().Balance = balance;
    g.club().Scout = 2;
    g.pick("DS_Swap", "Physio");  // some other option first
    QCOMPARE(g.chosen(), 9);
    if (entry.isEmpty())
        g.screen()->chooseOption(control.mid(8).toInt());
    else
        g.pick(qPrintable(control), entry);
    QCOMPARE(g.chosen(), option);
    if (text.isEmpty()) {
        QVERIFY(g.messages.entries.empty());
    } else {
        onlyMessage(g, RecordingMessages::Kind::Refuse, "Not enough money to do this", text);
        if (!entry.isEmpty()) QCOMPARE(g.box(qPrintable(control))->currentText(), entry);  // the entry is left
    }
    QCOMPARE(g.label("FTD_Caption"), caption);
    QCOMPARE(g.window->currentScreen()->objectName(), QString("Admin"));
}

void AdminTest::forcedSkillListsAndSentence() {
    Admin g;
    // A player with something to give: a decrease list beyond "None".
    const Player* player = nullptr;
    for (const Player& p : g.club().Players)
        if (!player && forcedSkillLists(p).decrease.size() > 1 && forcedSkillLists(p).increase.size() > 1) player = &p;
    QVERIFY(player);
    const ForcedSkillLists lists = forcedSkillLists(*player);
    g.pick("FSC_Player", q(player->Name + " (" + player->Position + ")"));
    QCOMPARE(g.chosen(), 7);
    QCOMPARE(g.label("FSC_Help"), q(kForcedSkillHelp));
    auto items = [&](const char* name) {
        QStringList out;
        for (int i = 0; i < g.box(name)->count(); ++i) out << g.box(name)->itemText(i);
        return out;
    };
    auto strings = [](const std::vector<std::string>& v) {
        QStringList out;
        for (const std::string& s : v) out << q(s);
        return out;
    };
    QCOMPARE(items("FSC_Increase"), strings(lists.increase));
    for (const char* d : {"FSC_Decrease0", "FSC_Decrease1", "FSC_Decrease2"}) {
        QCOMPARE(items(d), strings(lists.decrease));
        QCOMPARE(g.box(d)->currentText(), QString("None"));
    }
    QCOMPARE(g.box("FSC_Increase")->currentText(), QString("None"));

    // Every change of the four lists shows the check with the player's own signing figure.
    g.pick("FSC_Increase", q(lists.increase[1]));
    const std::array<std::string, 3> none{"None", "None", "None"};
    QCOMPARE(g.label("FSC_Help"), q(forcedSkillCheck(lists.increase[1], none, player->Sign)));
    QVERIFY(g.label("FSC_Help").startsWith("This is not valid.  You need to decrease skills by "));
    g.pick("FSC_Decrease1", q(lists.decrease[1]));
    QCOMPARE(g.label("FSC_Help"),
             q(forcedSkillCheck(lists.increase[1], {"None", lists.decrease[1], "None"}, player->Sign)));
    g.pick("FSC_Decrease2", q(lists.decrease[1]));
    QCOMPARE(g.label("FSC_Help"), QString("This is not valid.  The same skill has been used twice."));
}

void AdminTest::scoutPointsFollowTheControls() {
    Admin g;
    g.club().Scout = 3;
    g.controller->selectClub(0);
    QCOMPARE(g.label("SSR_PointsLeft"), QString("You have 3 scout points remaining"));
    g.pick("DS_Swap", "Scout");
    const struct {
        const char* control;
        const char* entry;
        const char* shown;
    } steps[] = {
        {"SSR_Int", "Yes", "You have 2 scout points remaining"},
        {"SSR_Skill0", "Passing", "You have 1 scout points remaining"},
        {"SSR_Min0", "5", "You have 1 scout points remaining"},
        {"SSR_Skill4", "Creativity", "You have 0 scout points remaining"},
        {"SSR_Sign", "12", "You have used too many Scout Points. Please remove a selection to correct this."},
        {"SSR_Skill0", "None", "You have 0 scout points remaining"},
    };
    for (const auto& s : steps) {
        g.pick(s.control, s.entry);
        QCOMPARE(g.label("SSR_PointsLeft"), QString(s.shown));
        QCOMPARE(g.chosen(), 0);
    }
}

void AdminTest::eachClubKeepsItsOwnRecord() {
    Admin g;
    g.club(1).Balance = 20000000;  // Create Player is affordable
    QComboBox* team = g.teamList("Admin");
    g.pick("DS_Swap", "Groundsman");
    team->setCurrentIndex(1);
    QCOMPARE(g.teamList("MainMenu")->currentIndex(), 1);
    // A club never ordered for: the controls emptied.
    QCOMPARE(g.chosen(), 0);
    QCOMPARE(g.box("DS_Swap")->currentIndex(), -1);
    const QString club2 = g.box("SCM_Team")->itemText(2);
    g.pick("SCM_Team", club2);
    g.pick("CP_Position", "Central Striker");  // the last choice counts
    g.on<QLineEdit>("Admin", "CP_Name")->setText("Ivo Brant");
    QCOMPARE(g.chosen(), 10);
    team->setCurrentIndex(0);
    QCOMPARE(g.chosen(), 9);
    QCOMPARE(g.box("DS_Swap")->currentText(), QString("Groundsman"));
    QCOMPARE(g.on<QLineEdit>("Admin", "CP_Name")->text(), QString());
    team->setCurrentIndex(1);
    QCOMPARE(g.chosen(), 10);
    QCOMPARE(g.box("CP_Position")->currentText(), QString("Central Striker"));
    QCOMPARE(g.on<QLineEdit>("Admin", "CP_Name")->text(), QString("Ivo Brant"));
    QCOMPARE(g.box("SCM_Team")->currentIndex(), -1);  // option 1's field was not kept
    QCOMPARE(int(g.record(0).option()), 9);
    QCOMPARE(int(g.record(1).option()), 10);
    QCOMPARE(int(g.record(2).option()), 0);
    QVERIFY(!g.record(2).written(AdminField::SSR_Int));  // never shown on this screen: never written
}

void AdminTest::textSavedForTheAdministrator() {
    const QString button = "btnSaveAdmin", title = "Manual Admin E-mail File Saved";
    Admin g;
    g.club(0).Name = "KESTREL ROVERS";  // only capitals go to the administrator
    g.club(2).Name = "PORT VALE";
    g.screen()->chooseOption(12);
    g.button("Admin", qPrintable(button))->click();  // the choice is stored before the text is made
    QCOMPARE(q(g.dir.read("AdminFile.txt")),
             QString("Weekly Administration\r\n\r\n\r\n\r\nKESTREL ROVERS: Home Pitch and Fan Suiting\r\n\r\n"));
    QCOMPARE(int(g.messages.entries.size()), 2);
    QCOMPARE(q(g.messages.entries[0].title), QString("No Admin for a club"));
    QVERIFY(q(g.messages.entries[0].text).startsWith("No admin has been done for PORT VALE"));
    QCOMPARE(q(g.messages.entries[1].title), title);
    QVERIFY(q(g.messages.entries[1].text).contains("AdminFile.txt"));
}

QTEST_MAIN(AdminTest)
#include "admin_test.moc"
