// The Preferences screen driven through its real widgets.
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QtTest>

#include "core/errors.h"
#include "core/gameini.h"
#include "core/gamefolder.h"
#include "ui/preferences.h"
#include "ui/qtext.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

ui::Preferences* preferences(UiGame& g) { return static_cast<ui::Preferences*>(g.window->screen("Preferences")); }

// The screen's file dialogs answered from a list; what they asked is kept.
struct Picker {
    QStringList asked;  // title | filter
    QStringList answers;
    explicit Picker(UiGame& g) {
        preferences(g)->setFilePicker([this](const QString& title, const QString&, const QString& filter) {
            asked << title + " | " + filter;
            return answers.isEmpty() ? QString() : answers.takeFirst();
        });
    }
};

// Counts the files written, without stopping them.
struct WriteCounter {
    int writes = 0;
    WriteCounter() {
        atomicWriteFaultHook = [this](const fs::path&) { ++writes; };
    }
    ~WriteCounter() { atomicWriteFaultHook = nullptr; }
};

}  // namespace

class PreferencesTest : public QObject {
    Q_OBJECT
private slots:
    void everyFieldShowsInTheLeastWindow();
    void anOptionIsWrittenAtOnce_data();
    void anOptionIsWrittenAtOnce();
    void injuryFigureHeldToItsRange_data();
    void injuryFigureHeldToItsRange();
    void watchCaptionsComeFromTheLeagueNames_data();
    void watchCaptionsComeFromTheLeagueNames();
    void backgroundPictures_data();
    void backgroundPictures();
    void scoutAndStatsFiles_data();
    void scoutAndStatsFiles();
    void fillingWritesNothing();
    void aFileThatCannotBeWrittenIsTold();
};

void PreferencesTest::anOptionIsWrittenAtOnce_data() {
    QTest::addColumn<QString>("control");
    QTest::addColumn<int>("position");  // 1-based line of kestrin.ini
    QTest::addColumn<QString>("value");
    QTest::newRow("first league unwatched") << "chkVidiOpt0" << 27 << " 0 ";
    QTest::newRow("world cup unwatched") << "chkVidiOpt10" << 42 << " 0 ";
    QTest::newRow("ticker tape") << "optWarnings1" << 18 << " 1 ";
    QTest::newRow("warn on save") << "optWarnInc0" << 19 << " 0 ";
    QTest::newRow("turnsheet not retained") << "chkRetTurn" << 44 << " 1 ";
    QTest::newRow("profiles saved") << "chkSaveProf" << 47 << " 0 ";
    QTest::newRow("main menu plain") << "MainPicopt1" << 1 << " 1 ";
    QTest::newRow("third alert club") << "VidiAlert2" << 38 << "";  // the export's second club
}

void PreferencesTest::anOptionIsWrittenAtOnce() {
    QFETCH(QString, control);
    QFETCH(int, position);
    QFETCH(QString, value);
    UiGame g;
    g.button("MainMenu", "BtnPreferences")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("Preferences"));
    std::vector<std::string> expected = g.iniLines();
    QCOMPARE(int(expected.size()), 49);
    const QByteArray name = control.toLatin1();
    if (control.startsWith("VidiAlert")) {
        auto* combo = g.on<QComboBox>("Preferences", name.constData());
        QCOMPARE(combo->currentText(), QString("No Club Selected"));
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
        QTest::keyClick(combo, Qt::Key_Down);
        value = q(g.session().ExportClubs[1].Name);
        QCOMPARE(combo->currentText(), value);
    } else {
        g.on<QAbstractButton>("Preferences", name.constData())->click();
    }
    expected[size_t(position - 1)] = value.toStdString();
    QCOMPARE(q(g.dir.read("kestrin.ini")), q(joinCrLf(expected)));
    QVERIFY(readSettings(g.dir.path()) == g.session().Prefs);
    QVERIFY(g.messages.entries.empty());
    if (control == "MainPicopt1")
        QCOMPARE(int(g.window->screen("MainMenu")->backdrop().kind), int(ui::Backdrop::Kind::None));
}

void PreferencesTest::injuryFigureHeldToItsRange_data() {
    QTest::addColumn<QString>("typed");  // "" clears the box
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("stored");  // "" when the file keeps its figure
    QTest::addColumn<int>("limit");
    QTest::newRow("0 becomes 1") << "0" << "1" << " 1 " << 1;
    QTest::newRow("12 becomes 10") << "12" << "10" << " 10 " << 10;
    QTest::newRow("an empty box stores nothing") << "" << "" << "" << 5;
}

void PreferencesTest::injuryFigureHeldToItsRange() {
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QString, stored);
    QFETCH(int, limit);
    UiGame g{UiGame::Empty{}};
    UiGame::makeDemo(g.dir.path());
    Settings s = readSettings(g.dir.path());
    s.InjuryLimitSetting = 5;
    writeSettings(g.dir.path(), s);
    g.open();
    auto* box = g.on<QLineEdit>("Preferences", "txtPhysio");
    QCOMPARE(box->text(), QString("5"));
    std::vector<std::string> expected = g.iniLines();

    g.window->showScreen("Preferences");
    box->setFocus();
    box->selectAll();
    if (typed.isEmpty())
        QTest::keyClick(box, Qt::Key_Backspace);
    else
        QTest::keyClicks(box, typed);

    QCOMPARE(box->text(), shown);
    if (!stored.isEmpty()) expected[16] = stored.toStdString();
    QCOMPARE(q(g.dir.read("kestrin.ini")), q(joinCrLf(expected)));
    QCOMPARE(g.session().InjuryLimit, limit);
    QCOMPARE(int(g.session().Prefs.InjuryLimitSetting), limit);
}

void PreferencesTest::watchCaptionsComeFromTheLeagueNames_data() {
    QTest::addColumn<QStringList>("leagues");  // entries 1 to 8; empty: the demo's own
    QTest::addColumn<QStringList>("captions");
    const QStringList fixed = {"Watch European && Club cups", "Watch World cup", "Watch Friendlies"};
    QTest::newRow("three leagues, one with an ampersand")
        << QStringList({"Highland League", "Lowland & Borders", "Islands", "", "", "", "", ""})
        << QStringList({"Watch Highland League / Cups", "Watch Lowland && Borders / Cups", "Watch Islands / Cups",
                        "Watch English 3rd / Cups", "Watch French Premier / Cups", "Watch German Premier / Cups",
                        "Watch Italian Premier / Cups", "Watch Scottish Premier / Cups",
                        "Watch Spanish Premier / Cups"}) +
               fixed;
}

void PreferencesTest::watchCaptionsComeFromTheLeagueNames() {
    QFETCH(QStringList, leagues);
    QFETCH(QStringList, captions);
    UiGame g{UiGame::Empty{}};
    UiGame::makeDemo(g.dir.path());
    if (!leagues.isEmpty()) {
        GameIni ini = readGameIni(g.dir.path() / "game.ini");
        for (int i = 0; i < 8; ++i) ini.LeagueNames[size_t(i + 1)] = leagues[i].toStdString();
        writeFileAtomic(g.dir.path() / "game.ini", gameIniBytes(ini));
    }
    g.open();
    QCOMPARE(captions.size(), 12);
    for (int i = 0; i < 12; ++i) {
        auto* box = g.on<QCheckBox>("Preferences", ("chkVidiOpt" + std::to_string(i)).c_str());
        QVERIFY(box);
        QCOMPARE(box->text(), captions[i]);
        QVERIFY(box->isChecked());  // no choice stored yet: every league watched
    }
    // Each alert list: no club, then every club of the export.
    const auto& clubs = g.session().ExportClubs;
    auto* combo = g.on<QComboBox>("Preferences", "VidiAlert4");
    QCOMPARE(combo->count(), int(clubs.size()) + 1);
    QCOMPARE(combo->itemText(0), QString("No Club Selected"));
    QCOMPARE(combo->itemText(int(clubs.size())), q(clubs.back().Name));
}

void PreferencesTest::backgroundPictures_data() {
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("screen");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("answer");  // "picture", "broken" or "" (cancelled)
    QTest::newRow("squad screen, a picture") << "SquadPic" << "SquadScr" << 3
                                             << "Please select background picture for the Squad Screen"
                                             << "picture";
    QTest::newRow("main menu, cancelled") << "MainPic" << "MainMenu" << 1
                                          << "Please select background picture for the Main Menu" << "";
    QTest::newRow("main menu, not a picture") << "MainPic" << "MainMenu" << 1
                                              << "Please select background picture for the Main Menu" << "broken";
}

void PreferencesTest::backgroundPictures() {
    QFETCH(QString, setting);
    QFETCH(QString, screen);
    QFETCH(int, position);
    QFETCH(QString, title);
    QFETCH(QString, answer);
    UiGame g;
    Picker picker(g);
    const std::vector<std::string> before = g.iniLines();
    const fs::path file = g.dir.path() / (answer == "broken" ? "pitch.jpg" : "my pitch.bmp");
    if (answer == "picture") {
        QImage image(80, 67, QImage::Format_RGB32);
        image.fill(QColor(30, 120, 60));
        QVERIFY(image.save(q(file.string()), "BMP"));
    } else if (answer == "broken") {
        g.dir.write("pitch.jpg", "this is no picture");
    }
    if (!answer.isEmpty()) picker.answers << q(file.string());
    const QByteArray option = (setting + "opt").toLatin1();
    auto* fromFile = g.on<QRadioButton>("Preferences", (option + "2").constData());
    g.button("MainMenu", "BtnPreferences")->click();

    fromFile->click();

    QCOMPARE(picker.asked, QStringList({title + " | Picture Files (*.bmp *.dib *.gif *.jpg)"}));
    ui::Screen* dressed = g.window->screen(screen);
    if (answer == "picture") {
        std::vector<std::string> expected = before;
        expected[size_t(position - 1)] = " 2 ";
        expected[size_t(position)] = file.string();
        QCOMPARE(q(g.dir.read("kestrin.ini")), q(joinCrLf(expected)));
        QVERIFY(fromFile->isChecked());
        QCOMPARE(fromFile->accessibleName(), "From " + q(file.string()));
        // A path too long for the screen loses its middle there.
        const QString shown = fromFile->text();
        QVERIFY2(shown == fromFile->accessibleName() ||
                     (shown.startsWith("From /") && shown.contains(QChar(0x2026)) && shown.endsWith("bmp")),
                 qPrintable(shown));
        QCOMPARE(int(dressed->backdrop().kind), int(ui::Backdrop::Kind::Picture));
        QCOMPARE(dressed->backdrop().picture.size(), QSize(80, 67));
        QVERIFY(g.messages.entries.empty());
    } else {
        QCOMPARE(q(g.dir.read("kestrin.ini")), q(joinCrLf(before)));
        QVERIFY(g.on<QRadioButton>("Preferences", (option + "0").constData())->isChecked());
        QVERIFY(!fromFile->isChecked());
        QCOMPARE(fromFile->text(), QString("From File"));
        QCOMPARE(fromFile->accessibleName(), QString("From File"));
        QCOMPARE(int(dressed->backdrop().kind), int(ui::Backdrop::Kind::BuiltIn));
        if (answer == "broken") {
            onlyMessage(g, RecordingMessages::Kind::Refuse, "Picture not used",
                     "The file " + q(file.string()) +
                         " could not be read as a picture.\r\n\r\nThe background stays as it was. Choose a .bmp, "
                         ".gif or .jpg picture.");
        } else {
            QVERIFY(g.messages.entries.empty());
        }
    }
}

void PreferencesTest::scoutAndStatsFiles_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("box");
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("answer");
    QTest::newRow("scout history") << "btnBrowse" << "txtScoutFile" << 45
                                   << "Please select the scout history file | Scout File (SCOUT.TXT)"
                                   << "/league/old/SCOUT.TXT";
    QTest::newRow("stats database, cancelled")
        << "btnBrowseStats" << "txtStatsFile" << 46
        << "Please select the stats database file | Stats DB File (main.mdb) (MAIN.MDB)" << "";
}

void PreferencesTest::scoutAndStatsFiles() {
    QFETCH(QString, button);
    QFETCH(QString, box);
    QFETCH(int, position);
    QFETCH(QString, asked);
    QFETCH(QString, answer);
    UiGame g;
    Picker picker(g);
    std::vector<std::string> expected = g.iniLines();
    auto* edit = g.on<QLineEdit>("Preferences", box.toLatin1().constData());
    QCOMPARE(edit->text(), q(expected[size_t(position - 1)]));
    QCOMPARE(edit->text(), q((g.dir.path() / (position == 45 ? "SCOUT.TXT" : "main.mdb")).string()));
    picker.answers << answer;

    g.on<QAbstractButton>("Preferences", button.toLatin1().constData())->click();

    QCOMPARE(picker.asked, QStringList({asked}));
    if (!answer.isEmpty()) expected[size_t(position - 1)] = answer.toStdString();
    QCOMPARE(q(g.dir.read("kestrin.ini")), q(joinCrLf(expected)));
    QCOMPARE(edit->text(), q(expected[size_t(position - 1)]));
}

void PreferencesTest::fillingWritesNothing() {
    // A first run holds the incomplete warning and profile saving off for
    // the session only; filling the screen must not carry that to the file.
    UiGame g{UiGame::Empty{}};
    g.writeFirstRun();
    Settings s = defaultSettings(g.dir.path());
    s.WarnInc = 0;
    s.SaveProf = 0;
    s.VidiAlert[1] = "A Club Long Gone";
    s.VidiOpt[4] = 0;
    s.InjuryLimitSetting = 3;
    writeSettings(g.dir.path(), s);
    const std::string bytes = g.dir.read("kestrin.ini");
    {
        WriteCounter counter;
        g.open();
        QVERIFY(g.session().FirstRun);
        g.button("MainMenu", "BtnPreferences")->click();
        g.controller->reload();
        QCOMPARE(counter.writes, 0);
    }
    QCOMPARE(q(g.dir.read("kestrin.ini")), q(bytes));
    QVERIFY(!g.session().FillingScreen);
    // The screen shows the session as it stands.
    QVERIFY(g.on<QRadioButton>("Preferences", "optWarnInc1")->isChecked());
    QVERIFY(!g.on<QCheckBox>("Preferences", "chkSaveProf")->isChecked());
    QVERIFY(!g.on<QCheckBox>("Preferences", "chkVidiOpt4")->isChecked());
    QVERIFY(g.on<QCheckBox>("Preferences", "chkVidiOpt5")->isChecked());
    QCOMPARE(g.on<QLineEdit>("Preferences", "txtPhysio")->text(), QString("3"));
    auto* alert = g.on<QComboBox>("Preferences", "VidiAlert1");
    QCOMPARE(alert->count(), 2);
    QCOMPARE(alert->currentText(), QString("A Club Long Gone"));
    QCOMPARE(g.on<QComboBox>("Preferences", "VidiAlert0")->currentText(), QString("No Club Selected"));
    QVERIFY(g.button("MainMenu", "BtnPreferences")->isEnabled());
}

void PreferencesTest::aFileThatCannotBeWrittenIsTold() {
    UiGame g;
    const std::string before = g.dir.read("kestrin.ini");
    auto* retain = g.on<QCheckBox>("Preferences", "chkRetTurn");
    QVERIFY(retain->isChecked());
    const fs::path target = g.dir.path() / "kestrin.ini";
    atomicWriteFaultHook = [&](const fs::path&) { throw WriteError(target.string(), "Read-only file system"); };
    retain->click();
    atomicWriteFaultHook = nullptr;

    QCOMPARE(q(g.dir.read("kestrin.ini")), q(before));
    onlyMessage(g, RecordingMessages::Kind::Refuse, "Preferences not saved",
             QString("The settings file kestrin.ini could not be written: Read-only file system.\r\n\r\nThe change "
                     "holds until the program closes. Check that the game folder may be written to, then make the "
                     "change again to keep it."));
    QCOMPARE(int(g.session().Prefs.RetTurn), 1);
    QVERIFY(!retain->isChecked());
}

void PreferencesTest::everyFieldShowsInTheLeastWindow() {
    UiGame g;
    g.window->resize(g.window->minimumSize());
    g.window->showScreen("Preferences");
    QCoreApplication::processEvents();
    QWidget* screen = g.window->screen("Preferences");
    for (QWidget* w : screen->findChildren<QWidget*>()) {
        if (!w->isVisible() || !(qobject_cast<QLineEdit*>(w) || qobject_cast<QAbstractButton*>(w) ||
                                 qobject_cast<QComboBox*>(w)))
            continue;
        const QRect at(w->mapTo(screen, QPoint(0, 0)), w->size());
        QVERIFY2(screen->rect().contains(at), qPrintable(w->objectName() + " lies outside the screen"));
        QVERIFY2(w->height() >= w->minimumSizeHint().height(), qPrintable(w->objectName() + " is squashed"));
    }
}

QTEST_MAIN(PreferencesTest)
#include "preferences_test.moc"
