// Last week's reports on screen: memos, ticker, the Last Week screen, news
// and the notepad, driven through their widgets.
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTimer>
#include <QTreeWidget>
#include <QtTest>
#include <set>

#include "orders/harvest.h"
#include "ui/emailplayer.h"
#include "ui/memoform.h"
#include "ui/notepad.h"
#include "ui/qtext.h"
#include "ui/tickerform.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

// Two weeks of the demo league, the first one open.
struct TwoWeeks : UiGame {
    TwoWeeks() : UiGame(Empty{}) {
        makeDemo(dir.path(), 2);
        open();
    }
    template <typename T>
    T* form(const char* name) { return window->findChild<T*>(name); }
    QString text(QWidget* form, const char* control) {
        QWidget* w = form->findChild<QWidget*>(control);
        if (auto* l = qobject_cast<QLabel*>(w)) return l->text();
        if (auto* e = qobject_cast<QLineEdit*>(w)) return e->text();
        return qobject_cast<QPlainTextEdit*>(w)->toPlainText();
    }
};

// The lines of every Squadsheet of a club, as the game wrote them.
std::set<QString> squadsheetLines(UiGame& g, const Club& club) {
    std::set<QString> lines;
    for (const auto& [name, bytes] : gameFiles(g.dir.path()))
        if (name.rfind("Squadsheets/" + club.ClubFile, 0) == 0)
            for (const std::string& l : splitLines(bytes)) lines.insert(ui::qs(l));
    return lines;
}

}  // namespace

class LastWeekTest : public QObject {
    Q_OBJECT
private slots:
    void aNewWeekShowsItsMemos();
    void lastWeekFollowsTeamList();
    void replayButton_data();
    void replayButton();
    void notepadSavesEveryChange();
    void newsShowsTheWeeklyFiles_data();
    void newsShowsTheWeeklyFiles();
    void emailToListsTheManagers();
};

void LastWeekTest::aNewWeekShowsItsMemos() {
    TwoWeeks g;
    QVERIFY(!g.form<ui::MemoForm>("MemoForm"));  // nothing pops up before the window is shown
    loadWeek(g, 2);
    QVERIFY(!g.session().SameTurn);
    auto* memo = g.form<ui::MemoForm>("MemoForm");
    QVERIFY(memo && memo->isVisible());
    const auto& memos = g.session().Memos;
    const int count = int(memos.size());
    QVERIFY(count > 1);

    std::set<QString> report;
    for (const Club& c : g.session().Clubs) report.merge(squadsheetLines(g, c));
    auto* next = memo->findChild<QPushButton*>("BtnNext");
    auto* previous = memo->findChild<QPushButton*>("BtnPrevious");
    for (int n = 1; n <= count; ++n) {
        if (n > 1) next->click();
        const Memo& m = memos[size_t(n - 1)];
        QCOMPARE(g.text(memo, "MemoNum"), QString("%1 of %2").arg(n).arg(count));
        QCOMPARE(g.text(memo, "To"), "To: " + ui::qs(m.To));
        QCOMPARE(g.text(memo, "From"), "From: " + ui::qs(m.From));
        QCOMPARE(g.text(memo, "txtMemo"), ui::qs(m.Text));
        QVERIFY2(report.count(ui::qs(m.Text)), qPrintable(ui::qs(m.Text)));  // a line of the week's report
        QCOMPARE(previous->isEnabled(), n > 1);
        QCOMPARE(next->isEnabled(), n < count);
        QCOMPARE(g.session().MemoShown, n);
    }
    previous->click();
    QCOMPARE(g.text(memo, "MemoNum"), QString("%1 of %2").arg(count - 1).arg(count));

    // The same week again: nothing pops up.
    memo->close();
    QVERIFY(g.controller->reload());
    QVERIFY(g.session().SameTurn);
    QVERIFY(!memo->isVisible());
}

void LastWeekTest::lastWeekFollowsTeamList() {
    UiGame g;
    g.button("MainMenu", "BtnLastWeek")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("LastWk"));
    std::set<QString> seen;
    for (int i : {2, 0, 1}) {
        g.teamList("LastWk")->setCurrentIndex(i);
        const Club& club = g.session().Clubs[size_t(i)];
        QCOMPARE(g.teamList("MainMenu")->currentIndex(), i);
        const LastWeekBoxes want = lastWeekBoxes(g.session(), club);
        const std::set<QString> sheet = squadsheetLines(g, club);
        QString all;
        for (size_t b = 0; b < kLastWeekBoxes.size(); ++b) {
            const QString shown = g.on<QPlainTextEdit>("LastWk", kLastWeekBoxes[b])->toPlainText();
            QString expected = ui::qs(want[b]);
            expected.chop(expected.endsWith('\n') ? 1 : 0);
            QCOMPARE(shown, expected);
            for (const QString& line : shown.split('\n'))
                QVERIFY2(line.isEmpty() || sheet.count(line), qPrintable(line));  // this club's lines only
            all += shown;
        }
        QVERIFY(!g.on<QPlainTextEdit>("LastWk", "txtCoach")->toPlainText().isEmpty());
        QVERIFY(seen.insert(all).second);  // each club's report differs
    }
    g.button("LastWk", "btnReturn")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("MainMenu"));
}

void LastWeekTest::replayButton_data() {
    QTest::addColumn<int>("warnings");
    QTest::addColumn<bool>("withMemos");
    QTest::newRow("ticker tape") << 1 << true;
    QTest::newRow("memos from the first") << 0 << true;
    QTest::newRow("memos, but none this week") << 0 << false;
}

void LastWeekTest::replayButton() {
    QFETCH(int, warnings);
    QFETCH(bool, withMemos);
    TwoWeeks g;
    g.button("MainMenu", "BtnPreferences")->click();
    g.on<QAbstractButton>("Preferences", warnings ? "optWarnings1" : "optWarnings0")->click();
    QCOMPARE(int(g.session().Prefs.Warnings), warnings);
    if (!withMemos) g.session().Memos.clear();
    g.session().MemoShown = 3;
    g.button("Preferences", "btnReturn")->click();
    g.button("MainMenu", "btnMemo")->click();

    auto* memo = g.form<ui::MemoForm>("MemoForm");
    auto* ticker = g.form<ui::TickerForm>("TickerForm");
    QCOMPARE(memo && memo->isVisible(), warnings == 0 && withMemos);
    QCOMPARE(ticker && ticker->isVisible(), warnings == 1);
    if (memo && memo->isVisible()) {
        QCOMPARE(g.text(memo, "MemoNum"), QString("1 of %1").arg(g.session().Memos.size()));
        QVERIFY(!memo->findChild<QPushButton*>("BtnPrevious")->isEnabled());
    }
    if (!ticker) return;

    // The tape runs from its start, one character a tick.
    auto* timer = ticker->findChild<QTimer*>("Timer1");
    QVERIFY(timer && timer->isActive());
    const QString tape = ui::qs(g.session().TickerText) + QString(100, ' ');
    QVERIFY(tape.trimmed().size() > 0);
    QCOMPARE(g.text(ticker, "txtTicker"), tape.left(100));
    QSignalSpy ticks(timer, &QTimer::timeout);
    QTRY_VERIFY(ticks.count() >= 3);
    QCOMPARE(g.text(ticker, "txtTicker"), tape.mid(ticks.count(), 100));
    ticker->close();
    QVERIFY(!timer->isActive());
}

void LastWeekTest::notepadSavesEveryChange() {
    UiGame g;
    g.dir.write("notepad.kst", "Old note\n");
    g.button("MainMenu", "btnNote")->click();
    auto* pad = g.window->findChild<ui::Notepad*>("Notepad");
    QVERIFY(pad && pad->isVisible());
    auto* notes = pad->findChild<QPlainTextEdit*>("txtNotes");
    QCOMPARE(notes->toPlainText(), QString("Old note\n"));
    QCOMPARE(q(g.dir.read("notepad.kst")), QString("Old note\n"));  // filling saved nothing

    notes->moveCursor(QTextCursor::End);
    QTest::keyClicks(notes, "Sell Smith");
    QCOMPARE(q(g.dir.read("notepad.kst")), QString("Old note\r\nSell Smith"));
    QVERIFY(g.messages.entries.empty());

    // A notepad that can't be written is told once, however much is typed.
    fs::remove(g.dir.path() / "notepad.kst");
    fs::create_directory(g.dir.path() / "notepad.kst");
    QTest::keyClicks(notes, " now");
    QCOMPARE(int(g.messages.entries.size()), 1);
    QCOMPARE(q(g.messages.entries[0].title), QString("Notes not saved"));
    QVERIFY(q(g.messages.entries[0].text).contains("notepad.kst"));
}

void LastWeekTest::newsShowsTheWeeklyFiles_data() {
    QTest::addColumn<bool>("fileGone");
    QTest::newRow("a news item read") << false;
    QTest::newRow("its file gone since the start") << true;
}

void LastWeekTest::newsShowsTheWeeklyFiles() {
    QFETCH(bool, fileGone);
    UiGame g;
    g.button("MainMenu", "BtnNews")->click();
    auto* list = g.on<QTreeWidget>("News", "lvwNewsFiles");
    QCOMPARE(list->headerItem()->text(0), QString("Weekly News Item"));
    QVERIFY(list->isColumnHidden(1));

    std::map<QString, std::string> weekly;  // every file of Weekly/ but the club export
    for (const auto& [name, bytes] : gameFiles(g.dir.path()))
        if (name.rfind("Weekly/", 0) == 0 && q(name).toUpper() != "WEEKLY/CLUBSQUA.TXT") weekly[q(name.substr(7))] = bytes;
    QVERIFY(weekly.size() > 1);
    QCOMPARE(list->topLevelItemCount(), int(weekly.size()));
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = list->topLevelItem(i);
        QVERIFY2(weekly.count(item->text(1)), qPrintable(item->text(1)));
        QCOMPARE(item->text(0), ui::qs(splitLines(weekly[item->text(1)]).front()));
    }

    QTreeWidgetItem* item = list->topLevelItem(1);
    const QString file = item->text(1);
    if (fileGone) fs::remove(g.dir.path() / "Weekly" / file.toStdString());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
    const QString shown = g.on<QPlainTextEdit>("News", "NewsText")->toPlainText();
    QVERIFY(!g.on<QLabel>("News", "txtReading")->isVisible());
    QCOMPARE(g.window->currentScreen()->objectName(), QString("News"));
    if (!fileGone) {
        QVERIFY(g.messages.entries.empty());
        QString want = ui::qs(weekly[file]);
        want.chop(want.endsWith('\n') ? 1 : 0);
        QCOMPARE(shown, want);
        return;
    }
    QCOMPARE(shown, QString());
    QCOMPARE(int(g.messages.entries.size()), 1);
    QCOMPARE(q(g.messages.entries[0].title), QString("News item could not be read"));
    QVERIFY(q(g.messages.entries[0].text).contains(file));
}

void LastWeekTest::emailToListsTheManagers() {
    UiGame g;
    const Club& club = g.session().Clubs[0];
    ui::EmailPlayerDialog dialog(*g.controller, club, club.Players[1]);
    auto* to = dialog.findChild<QComboBox*>("EmailTo");
    QVERIFY(to);
    QCOMPARE(to->currentIndex(), -1);  // no manager chosen yet
    const QString emails = ui::qs(g.dir.read("Weekly/EMAILS.TXT"));
    QVERIFY(to->count() > 2);
    QCOMPARE(to->itemText(0), QString("(All Managers)"));
    QSet<QString> names;
    for (int i = 1; i < to->count(); ++i) {
        QVERIFY2(emails.contains(" (" + to->itemText(i) + ")"), qPrintable(to->itemText(i)));
        names.insert(to->itemText(i));
    }
    QCOMPARE(int(names.size()), to->count() - 1);  // a manager of several clubs stands once
}

QTEST_MAIN(LastWeekTest)
#include "lastweek_test.moc"
