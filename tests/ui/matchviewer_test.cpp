// The Match viewer on a demo report: a whole replay through its timer, the
// buttons that steer it, the search and a report it can't read.
#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTableWidget>
#include <QtTest>

#include "results/matchviewer.h"
#include "ui/matchviewer.h"
#include "ui/qtext.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;
using Kind = ui::EventPicture::Kind;

namespace {

struct Viewer : UiGame {
    ui::Matchviewer* screen;
    Viewer() : UiGame(1) {
        window->showScreen("Matchviewer");
        screen = qobject_cast<ui::Matchviewer*>(window->screen("Matchviewer"));
    }
    template <typename T = QWidget>
    T* control(const char* name) { return screen->findChild<T*>(name); }
    QTableWidget* grid() { return control<QTableWidget>("msfGrid"); }
    // The shortest of the demo's match reports, chosen through the file picker.
    fs::path chooseReport() {
        const GameFolder& folder = session().Folder;
        fs::path best;
        size_t fewest = SIZE_MAX;
        for (const std::string& name : folder.list("Squadsheets", "*#*")) {
            const fs::path p = folder.resolve("Squadsheets/" + name);
            if (const size_t n = readLines(p).size(); n < fewest) std::tie(best, fewest) = std::pair(p, n);
        }
        QString openedOn;
        screen->setFilePicker([&](const QString&, const QString& dir, const QString&) {
            openedOn = dir;
            return ui::qpath(best);
        });
        control<QPushButton>("cmdB")->click();
        [&] { QCOMPARE(fs::path(ui::nativePath(openedOn)), folder.resolve("Squadsheets")); }();
        return best;
    }
    QStringList rows() {
        QStringList out;
        for (int r = 0; r < grid()->rowCount(); ++r) out << grid()->item(r, 0)->text();
        return out;
    }
};

}  // namespace

class MatchviewerTest : public QObject {
    Q_OBJECT
private slots:
    void aReportReplaysToItsEnd();
    void stopAndPause();
    void messagesAndSearch();
};

void MatchviewerTest::aReportReplaysToItsEnd() {
    Viewer g;
    const fs::path report = g.chooseReport();
    QSignalSpy whistle(g.screen->picture(Kind::Whistle), &ui::EventPicture::shown);
    QSignalSpy goals(g.screen->picture(Kind::Goal), &ui::EventPicture::shown);
    auto* search = g.control<QLineEdit>("txtSearch");
    search->setFocus();
    g.control<QSlider>("sldSpeed")->setValue(ui::Matchviewer::kFastest);
    g.control<QPushButton>("cmdView")->click();

    onlyMessage(g, RecordingMessages::Kind::Inform, "", "Press to start the game");
    ui::EventPicture* refBlows = g.screen->picture(Kind::Statistics);
    QVERIFY(refBlows->isVisible());
    QVERIFY(refBlows->findChild<QPlainTextEdit*>("txtMsg")->toPlainText().startsWith("Style"));
    QVERIFY(!g.control<QPushButton>("cmdView")->isEnabled());
    QCOMPARE(g.screen->timer()->interval(), 1100 - ui::Matchviewer::kFastest);

    QTRY_VERIFY_WITH_TIMEOUT(!g.screen->replaying(), 60000);
    QVERIFY(g.control<QPushButton>("cmdView")->isEnabled());
    QVERIFY(!g.control<QPushButton>("cmdStop")->isEnabled());
    QVERIFY(!g.screen->timer()->isActive());

    // The grid holds the report's rows in their colours, the last in view.
    results::MatchReplay logic = results::MatchReplay::fromFile(report, "x");
    std::vector<results::ViewerRow> want;
    int goalLines = 0;
    for (auto t = logic.tick(0); t.kind == results::ViewerTick::Kind::Line; t = logic.tick(0)) {
        want.insert(want.end(), t.rows.begin(), t.rows.end());
        goalLines += int(std::count(t.events.begin(), t.events.end(), results::ViewerEvent::Goal));
    }
    QCOMPARE(g.grid()->rowCount(), int(want.size()));
    for (int r = 0; r < g.grid()->rowCount(); ++r) {
        const QTableWidgetItem* item = g.grid()->item(r, 0);
        QCOMPARE(item->text(), ui::qs(want[size_t(r)].text));
        const results::ReportColour back = want[size_t(r)].back;
        QCOMPARE(item->background().color(), QColor(int(back & 0xFF), int(back >> 8 & 0xFF), int(back >> 16 & 0xFF)));
    }
    const int last = g.grid()->rowCount() - 1;
    QVERIFY(g.grid()->viewport()->rect().intersects(g.grid()->visualItemRect(g.grid()->item(last, 0))));

    // Half time once, then full time; a goal picture for each goal line.
    QCOMPARE(whistle.count(), 2);
    QCOMPARE(whistle.at(0).at(0).toString(), QString("HALF TIME"));
    QCOMPARE(whistle.at(1).at(0).toString(), QString("FULL TIME"));
    QCOMPARE(goals.count(), goalLines);
    QCOMPARE(QApplication::focusWidget(), search);  // no picture took the keyboard
    // The pictures leave by their own timers.
    QTRY_VERIFY_WITH_TIMEOUT(!g.screen->picture(Kind::Whistle)->isVisible(), 6000);
}

void MatchviewerTest::stopAndPause() {
    Viewer g;
    g.chooseReport();
    g.control<QPushButton>("cmdView")->click();
    g.screen->timer()->stop();  // the test ticks by hand
    for (int i = 0; i < 5; ++i) g.screen->tick();
    const int shown = g.grid()->rowCount();
    QVERIFY(shown > 0);
    auto* pause = g.control<QCheckBox>("chkPause");
    pause->click();
    g.screen->tick();
    QCOMPARE(g.grid()->rowCount(), shown);
    g.control<QPushButton>("cmdStop")->click();
    g.screen->tick();
    QVERIFY(!g.screen->replaying());
    QVERIFY(!pause->isChecked() && !pause->isEnabled());
    QVERIFY(g.control<QPushButton>("cmdView")->isEnabled());

    // Leaving the screen ends a replay and its pictures.
    g.control<QPushButton>("cmdView")->click();
    QVERIFY(g.screen->replaying());
    g.control<QPushButton>("btnReturn")->click();
    QVERIFY(!g.screen->replaying());
    QVERIFY(!g.screen->picture(Kind::Statistics)->isVisible());
}

void MatchviewerTest::messagesAndSearch() {
    Viewer g;
    g.control<QPushButton>("cmdView")->click();
    g.control<QPushButton>("cmdSearch")->click();
    QCOMPARE(shown(g.messages), (std::vector<std::string>{"Warn|Stop !!!|Please select match file.",
                                                          "Warn|Stop !!!|Please select match file."}));
    g.messages.entries.clear();

    g.chooseReport();
    auto* words = g.control<QLineEdit>("txtSearch");
    words->setText(" , ");
    g.control<QPushButton>("cmdSearch")->click();
    QCOMPARE(shown(g.messages), std::vector<std::string>{"Warn|Stop !!!|Please enter search fields."});
    words->setText("has been BOOKED, injury TIME");
    g.control<QPushButton>("cmdSearch")->click();
    const QStringList found = g.rows();
    QVERIFY(!found.isEmpty());
    for (const QString& row : found)
        QVERIFY2(row.contains("has been booked") || row.contains("Injury time"), qPrintable(row));

    // A report broken off in a colour pair is told by file and line.
    g.messages.entries.clear();
    g.dir.write("Squadsheets/BAD#REP.TXT", "Kestrel v PORT\r\nA line\r\n&H00FFFFFF&\r\n");
    g.control<QLineEdit>("txtF")->setText(ui::qpath(g.dir.path() / "Squadsheets/BAD#REP.TXT"));
    g.control<QPushButton>("cmdView")->click();
    QCOMPARE(int(g.messages.entries.size()), 1);
    QCOMPARE(ui::qs(g.messages.entries[0].title), QString("Match report could not be read"));
    QVERIFY(ui::qs(g.messages.entries[0].text).contains("Squadsheets/BAD#REP.TXT could not be read: line 3"));
    QVERIFY(!g.screen->replaying());
}

QTEST_MAIN(MatchviewerTest)
#include "matchviewer_test.moc"
