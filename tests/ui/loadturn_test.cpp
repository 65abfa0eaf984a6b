// Load Turn driven through the dialog the main menu opens.
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QtTest>
#include <map>

#include "core/clubview.h"
#include "core/gameini.h"
#include "core/gamefolder.h"
#include "core/loader.h"
#include "files/archive.h"
#include "ui/loadturndialog.h"
#include "ui/qtext.h"
#include "ui/widgets.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

using Files = std::map<std::string, std::string>;

using kestrin::test::gameFiles;

Files without(Files files, const std::string& name) {
    files.erase(name);
    return files;
}

// The demo league with a second week of archives waiting.
void makeTwoWeeks(const fs::path& folder) { UiGame::makeDemo(folder, 2); }

QString archive(const fs::path& game, int week, const char* name) {
    return q((game / "Archives" / ("week" + std::to_string(week)) / name).string());
}

// What a week's archives make of a game folder, worked out apart from the
// program: the archives unpacked by hand beside a copy of game.ini, then loaded.
Session expectedWeek(const fs::path& game, int week) {
    TempDir other;
    fs::copy_file(game / "game.ini", other.path() / "game.ini");
    extractZip(archive(game, week, "squad.zip").toStdString(), other.path() / "Squadsheets");
    extractZip(archive(game, week, "weekly.zip").toStdString(), other.path() / "Weekly");
    RecordingMessages quiet;
    return loadSession(other.path(), quiet);
}

// The dialog the main menu's button opened, with its file dialogs answered
// from a list.
struct OpenDialog {
    QPointer<ui::LoadTurnDialog> dialog;
    QStringList asked;  // title | filter of every file dialog
    QStringList answers;

    explicit OpenDialog(UiGame& g) {
        g.button("MainMenu", "BtnLoadTurn")->click();
        dialog = g.window->findChild<ui::LoadTurnDialog*>("LoadTurn");
        if (!dialog) return;
        dialog->setFilePicker([this](const QString& title, const QString&, const QString& filter) {
            asked << title + " | " + filter;
            return answers.isEmpty() ? QString() : answers.takeFirst();
        });
    }
    template <typename T = QWidget>
    T* at(const char* name) {
        return dialog ? dialog->findChild<T*>(name) : nullptr;
    }
    void click(const char* name) { at<QAbstractButton>(name)->click(); }
    void choose(const char* browse, const QString& answer) {
        answers << answer;
        click(browse);
    }
    // The dialog closed and, once deferred deletes have run, is gone.
    bool gone() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return dialog.isNull();
    }
};

}  // namespace

class LoadTurnTest : public QObject {
    Q_OBJECT
private slots:
    void opensWithTheSettings_data();
    void opensWithTheSettings();
    void loadsTheNextWeek_data();
    void loadsTheNextWeek();
    void cancelChangesNothing_data();
    void cancelChangesNothing();
    void refusals_data();
    void refusals();
    void aFirstRunLoadsItsFirstWeek();
};

void LoadTurnTest::opensWithTheSettings_data() {
    QTest::addColumn<bool>("stored");
    QTest::newRow("no kestrin.ini yet") << false;
    QTest::newRow("last week's choices") << true;
}

void LoadTurnTest::opensWithTheSettings() {
    QFETCH(bool, stored);
    UiGame g{UiGame::Empty{}};
    makeTwoWeeks(g.dir.path());
    fs::remove(g.dir.path() / "kestrin.ini");
    const std::string squad = "/mail/week 11/KFL squad.zip", weekly = "/mail/week 11/weekly.zip";
    if (stored) {
        Settings s = defaultSettings(g.dir.path());
        s.SquadPath = squad;
        s.WeeklyPath = weekly;
        s.WeeklyBackup = 0;
        writeSettings(g.dir.path(), s);
    }
    g.open();

    OpenDialog d(g);
    QVERIFY(d.dialog && d.dialog->isVisible() && d.dialog->isModal());
    QCOMPARE(d.dialog->windowTitle(), QString("Load new KFL turn"));
    QCOMPARE(d.at<QLineEdit>("txtSquadFile")->text(), stored ? q(squad) : QString());
    QCOMPARE(d.at<QLineEdit>("txtWeekFile")->text(), stored ? q(weekly) : QString());
    QVERIFY(d.at<QRadioButton>("btnSqBackup1")->isChecked());
    QCOMPARE(d.at<QRadioButton>("btnWkBackup0")->isChecked(), stored);
    QCOMPARE(d.at<QRadioButton>("btnWkBackup1")->isChecked(), !stored);
    d.click("CancelButton");
    QVERIFY(d.gone());
}

void LoadTurnTest::loadsTheNextWeek_data() {
    QTest::addColumn<bool>("backup");
    QTest::addColumn<bool>("retain");
    QTest::newRow("overwrite, orders kept") << false << true;
    QTest::newRow("backup chosen in the dialog") << true << true;
    QTest::newRow("orders dropped on the Preferences screen") << false << false;
}

void LoadTurnTest::loadsTheNextWeek() {
    QFETCH(bool, backup);
    QFETCH(bool, retain);
    UiGame g{UiGame::Empty{}};
    makeTwoWeeks(g.dir.path());
    g.open();
    const Session expected = expectedWeek(g.dir.path(), 2);
    const std::string stampBefore = g.session().TurnStamp;
    QVERIFY(!expected.TurnStamp.empty());
    QVERIFY(expected.TurnStamp != stampBefore);
    const Files week1 = gameFiles(g.dir.path());
    if (!retain) {
        g.button("MainMenu", "BtnPreferences")->click();
        g.on<QAbstractButton>("Preferences", "chkRetTurn")->click();
        QCOMPARE(g.iniLines()[43], std::string(" 1 "));
        g.button("Preferences", "btnReturn")->click();
    }
    g.teamList("MainMenu")->setCurrentIndex(2);  // the new week starts on the first club again

    OpenDialog d(g);
    QVERIFY(d.dialog);
    const QString squadZip = archive(g.dir.path(), 2, "squad.zip"), weeklyZip = archive(g.dir.path(), 2, "weekly.zip");
    d.choose("btnSquad", squadZip);
    d.choose("btnWeek", weeklyZip);
    QCOMPARE(d.at<QLineEdit>("txtSquadFile")->text(), squadZip);
    QCOMPARE(d.at<QLineEdit>("txtWeekFile")->text(), weeklyZip);
    QCOMPARE(d.asked, QStringList({"Please select the squad zip file | Squadsheet zip File (*.zip)",
                                   "Please select the weekly zip file | Weekly zip File (weekly.zip)"}));
    if (backup) {
        d.click("btnSqBackup0");
        d.click("btnWkBackup0");
        const auto lines = g.iniLines();
        QCOMPARE(lines[21], std::string(" 0 "));
        QCOMPARE(lines[22], std::string(" 0 "));
    }
    g.messages.entries.clear();
    d.click("OKButton");

    QVERIFY(d.gone());
    onlyMessage(g, RecordingMessages::Kind::Inform, "New turn loaded !", "New turn loaded OK");

    // The new week is what the archives hold, on every screen.
    const Session& now = g.session();
    QCOMPARE(q(now.TurnStamp), q(expected.TurnStamp));
    QCOMPARE(now.ClubCount(), expected.ClubCount());
    QCOMPARE(now.CurrentClub, 0);
    for (size_t i = 0; i < expected.Clubs.size(); ++i) {
        const Club &got = now.Clubs[i], &want = expected.Clubs[i];
        QCOMPARE(q(got.Name), q(want.Name));
        QCOMPARE(g.teamList("MainMenu")->itemText(int(i)), q(want.Name));
        QCOMPARE(got.Fixtures.size(), want.Fixtures.size());
        for (size_t f = 0; f < want.Fixtures.size(); ++f) {
            QCOMPARE(q(got.Fixtures[f].Opponent), q(want.Fixtures[f].Opponent));
            QCOMPARE(q(got.Fixtures[f].Competition), q(want.Fixtures[f].Competition));
            QCOMPARE(q(got.Fixtures[f].Venue), q(want.Fixtures[f].Venue));
        }
    }
    QCOMPARE(g.teamList("MainMenu")->currentIndex(), 0);
    for (const MenuLabel& l : mainMenuLabels(expected.Clubs[0], expected.Game)) {
        if (auto* row = g.on<ui::FigureRow>("MainMenu", l.control.c_str())) QCOMPARE(row->fullText(), ui::qs(l.text()));
    }
    QVERIFY(g.button("MainMenu", "btnSquad")->isEnabled());
    QCOMPARE(g.window->currentScreen()->objectName(), QString("MainMenu"));

    // Last week's Squadsheets are gone or kept in a dated folder.
    const Files after = gameFiles(g.dir.path());
    Files squadNow, kept;
    for (const auto& [name, bytes] : after) {
        if (name.rfind("Squadsheets/", 0) != 0) continue;
        const std::string rest = name.substr(12);
        (rest.find('/') == std::string::npos ? squadNow : kept)[fs::path(rest).filename().string()] = bytes;
    }
    Files squad2, squad1;
    for (const auto& [name, bytes] : week1)
        if (name.rfind("Squadsheets/", 0) == 0) squad1[name.substr(12)] = bytes;
    TempDir unpack;
    extractZip(squadZip.toStdString(), unpack.path());
    for (const auto& [name, bytes] : gameFiles(unpack.path())) squad2[name] = bytes;
    QVERIFY(squadNow == squad2);
    QVERIFY(kept == (backup ? squad1 : Files{}));

    // The paths named are offered again next week; orders carry over or not.
    const auto lines = g.iniLines();
    QCOMPARE(q(lines[19]), squadZip);
    QCOMPARE(q(lines[20]), weeklyZip);
    for (const Club& c : now.Clubs)
        QCOMPARE(fs::exists(g.dir.path() / "Turnsheet" / (c.ClubFile + ".txt")), retain);
}

void LoadTurnTest::cancelChangesNothing_data() {
    QTest::addColumn<bool>("chooseArchives");
    QTest::addColumn<bool>("clickBackup");
    QTest::newRow("both archives chosen") << true << false;
    QTest::newRow("a backup option clicked") << true << true;
}

void LoadTurnTest::cancelChangesNothing() {
    QFETCH(bool, chooseArchives);
    QFETCH(bool, clickBackup);
    UiGame g{UiGame::Empty{}};
    makeTwoWeeks(g.dir.path());
    g.open();
    g.teamList("MainMenu")->setCurrentIndex(1);
    const Files before = gameFiles(g.dir.path());
    const std::vector<Club> clubs = g.session().Clubs;
    const std::string stamp = g.session().TurnStamp;
    g.messages.entries.clear();

    OpenDialog d(g);
    QVERIFY(d.dialog);
    if (chooseArchives) {
        d.choose("btnSquad", archive(g.dir.path(), 2, "squad.zip"));
        d.choose("btnWeek", archive(g.dir.path(), 2, "weekly.zip"));
    }
    if (clickBackup) d.click("btnSqBackup0");
    d.click("CancelButton");

    QVERIFY(d.gone());
    QVERIFY(g.messages.entries.empty());
    const Files after = gameFiles(g.dir.path());
    QVERIFY(without(after, "kestrin.ini") == without(before, "kestrin.ini"));
    // A backup click is written at once and so outlives the cancel; nothing else does.
    std::vector<std::string> ini = splitLines(before.at("kestrin.ini"));
    if (clickBackup) ini[21] = " 0 ";
    QCOMPARE(q(after.at("kestrin.ini")), q(joinCrLf(ini)));
    QVERIFY(g.session().Clubs == clubs);
    QCOMPARE(q(g.session().TurnStamp), q(stamp));
    QCOMPARE(g.session().CurrentClub, 1);
}

void LoadTurnTest::refusals_data() {
    QTest::addColumn<QString>("squad");   // "<n>:file" chosen by browsing; "=path" typed; "" nothing
    QTest::addColumn<QString>("weekly");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::newRow("weekly archive as the squad") << "2:weekly.zip" << "" << "No squad found in that file"
                                                 << "That is not a valid squadsheet file. Please re-select";
    QTest::newRow("squad archive as the weekly") << "" << "2:squad.zip" << "No KFL weekly files found in that file"
                                                 << "That is not a valid weekly file. Please re-select";
    QTest::newRow("OK with nothing") << "" << "" << "No squad file selected" << "Please select the Squadsheet file.";
    QTest::newRow("OK without the weekly") << "2:squad.zip" << "" << "No weekly file selected"
                                           << "Please select the Squadsheet file.";
    QTest::newRow("squad file gone") << "=/nowhere/squad.zip" << "2:weekly.zip" << "Cannot find the squad zip file"
                                     << "Unable to find the Squadsheet file. Please re-select by clicking the browse "
                                        "button";
    QTest::newRow("weekly file gone") << "2:squad.zip" << "=/nowhere/weekly.zip" << "Cannot find the weekly zip file"
                                      << "Unable to find the Weekly file. Please re-select by clicking the browse "
                                         "button";
}

void LoadTurnTest::refusals() {
    QFETCH(QString, squad);
    QFETCH(QString, weekly);
    QFETCH(QString, title);
    QFETCH(QString, text);
    UiGame g{UiGame::Empty{}};
    makeTwoWeeks(g.dir.path());
    g.open();
    const Files before = gameFiles(g.dir.path());
    const std::vector<Club> clubs = g.session().Clubs;
    g.messages.entries.clear();

    OpenDialog d(g);
    QVERIFY(d.dialog);
    bool choiceRefused = false;
    auto fill = [&](const QString& how, const char* browse, const char* edit) {
        if (how.startsWith('=')) {
            d.at<QLineEdit>(edit)->setText(how.mid(1));
        } else if (!how.isEmpty()) {
            const QString before = d.at<QLineEdit>(edit)->text();
            d.choose(browse, archive(g.dir.path(), how.left(1).toInt(), how.mid(2).toLatin1().constData()));
            if (!g.messages.entries.empty()) {
                choiceRefused = true;
                QCOMPARE(d.at<QLineEdit>(edit)->text(), before);  // a refused archive isn't taken
            }
        }
    };
    fill(squad, "btnSquad", "txtSquadFile");
    fill(weekly, "btnWeek", "txtWeekFile");
    if (!choiceRefused) d.click("OKButton");

    onlyMessage(g, RecordingMessages::Kind::Refuse, title, text);
    QVERIFY(d.dialog && d.dialog->isVisible());  // the manager chooses again
    const Files after = gameFiles(g.dir.path());
    QVERIFY(without(after, "kestrin.ini") == without(before, "kestrin.ini"));
    // Only the paths named at OK are remembered.
    auto ini = splitLines(before.at("kestrin.ini"));
    if (!choiceRefused) {
        ini[19] = ui::nativePath(d.at<QLineEdit>("txtSquadFile")->text());
        ini[20] = ui::nativePath(d.at<QLineEdit>("txtWeekFile")->text());
    }
    QCOMPARE(q(after.at("kestrin.ini")), q(joinCrLf(ini)));
    QVERIFY(g.session().Clubs == clubs);
    d.click("CancelButton");
}

void LoadTurnTest::aFirstRunLoadsItsFirstWeek() {
    TempDir mailed;
    makeTwoWeeks(mailed.path());
    UiGame g{UiGame::Empty{}};
    g.writeFirstRun();
    g.open();
    QVERIFY(g.session().FirstRun);
    g.messages.entries.clear();

    OpenDialog d(g);
    QVERIFY(d.dialog);
    QCOMPARE(d.dialog->windowTitle(), QString("Load new EL turn"));
    d.choose("btnSquad", archive(mailed.path(), 1, "squad.zip"));
    d.choose("btnWeek", archive(mailed.path(), 1, "weekly.zip"));
    d.click("OKButton");

    QVERIFY(d.gone());
    onlyMessage(g, RecordingMessages::Kind::Inform, "New turn loaded !");
    const Session expected = expectedWeek(mailed.path(), 1);
    QVERIFY(expected.ClubCount() > 0);
    QVERIFY(!g.session().FirstRun);
    QCOMPARE(g.session().ClubCount(), expected.ClubCount());
    QCOMPARE(q(g.session().TurnStamp), q(expected.TurnStamp));
    QCOMPARE(q(g.session().Game.GameName), QString("Empty League"));
    QCOMPARE(g.teamList("MainMenu")->count(), expected.ClubCount());
    QCOMPARE(g.teamList("MainMenu")->itemText(0), q(expected.Clubs[0].Name));
    QCOMPARE(int(g.session().ExportClubs.size()), int(expected.ExportClubs.size()));
    for (const char* b : {"btnSquad", "Command2", "btnClear0"}) QVERIFY2(g.button("MainMenu", b)->isEnabled(), b);
    QCOMPARE(g.on<ui::FigureRow>("MainMenu", "lblStadium")->fullText(), " Stadium: " + q(expected.Clubs[0].Stadium));
}

QTEST_MAIN(LoadTurnTest)
#include "loadturn_test.moc"
