// The Vidiprinter on a demo week, driven through its widgets at a quick pace.
#include <QLabel>
#include <QPlainTextEdit>
#include <QtTest>

#include "core/gamefolder.h"
#include "ui/qtext.h"
#include "ui/vidi.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

// Seed 5 plays a round of the league cups in its first week.
struct DemoWeek : UiGame {
    DemoWeek() : UiGame(Empty{}) {
        makeDemoLeague(dir.path(), smallDemo(5));
        open();
    }
    ui::VidiScreen* vidi() { return static_cast<ui::VidiScreen*>(window->screen("Vidi")); }
    QString text(const char* control) {
        QWidget* w = vidi()->findChild<QWidget*>(control);
        if (auto* l = qobject_cast<QLabel*>(w)) return l->text();
        return qobject_cast<QPlainTextEdit*>(w)->toPlainText();
    }
};

// "Greystone Colliery 18 41" for each row of a league table file.
QStringList fileTable(const std::vector<std::string>& lines) {
    QStringList out;
    for (const std::string& l : lines)
        if (val(columns(l, 1, 4)) > 0) {
            const Tokens t(l);
            out << ui::qs(trim(columns(l, 6, 20)) + " " + t[t.count() - 1] + " " + t[t.count()]);
        }
    return out;
}

QStringList screenTable(const QString& text) {
    QStringList out;
    for (const QString& row : text.split('\n').mid(1)) {
        const QStringList words = row.mid(4).split(' ', Qt::SkipEmptyParts);
        out << words.mid(0, words.size() - 2).join(' ') + " " + words.mid(words.size() - 2).join(' ');
    }
    return out;
}

}  // namespace

class VidiTest : public QObject {
    Q_OBJECT
private slots:
    void anAfternoonToFullTime();
};

void VidiTest::anAfternoonToFullTime() {
    DemoWeek g;
    g.window->showScreen("Vidi");
    QCOMPARE(g.window->windowTitle(), QString("Kestrin Football League turnsheet entry : Vidiprinter"));
    auto* start = g.button("Vidi", "btnStart");
    auto* country = g.on<QComboBox>("Vidi", "CboCountry");
    g.vidi()->setMinuteInterval(1);
    start->click();
    QVERIFY(!start->isEnabled());
    QStringList offered;
    for (int i = 0; i < country->count(); ++i) offered << country->itemText(i);
    QCOMPARE(offered, QStringList({"ENG", "ENG L.C.", "ENG1", "ENG1 L.C."}));
    // Paused before the first minute, the clock stands until Resume.
    auto* pause = g.button("Vidi", "btnPause");
    pause->click();
    QTest::qWait(50);
    QCOMPARE(g.text("LblTime"), QString("0 minutes"));
    QCOMPARE(pause->text(), QString("Resume"));
    pause->click();

    QTRY_COMPARE_WITH_TIMEOUT(g.text("LblTime"), QString("All Games Completed"), 20000);
    QVERIFY(start->isEnabled());
    QVERIFY(g.messages.entries.empty());
    // The newest goal on top: the minutes run down the ticker.
    const QStringList ticker = g.text("txtResult").split('\n');
    QVERIFY(ticker.size() > 10);
    auto minute = [](const QString& line) { return line.section('(', -1).chopped(1).toInt(); };
    for (int i = 1; i < ticker.size(); ++i) QVERIFY2(minute(ticker[i - 1]) >= minute(ticker[i]), qPrintable(ticker[i]));
    // Wound back and played again, the league ends as the week's table file has it.
    QCOMPARE(screenTable(g.text("txtTable")), fileTable(readLines(g.session().Folder.resolve("Weekly/ENGTABS.TXT"))));

    country->setCurrentIndex(1);
    emit country->activated(1);
    QCOMPARE(g.text("txtTable"), QString("No Tables for English Premier League Cup"));
    QCOMPARE(g.text("lblCompetition"), QString("English Premier League Cup"));
    QVERIFY(g.text("Scores").startsWith("MILLBROOK RAILWAY"));

    g.button("Vidi", "Command1")->click();
    QCOMPARE(g.window->currentScreen()->objectName(), QString("MainMenu"));
}

QTEST_MAIN(VidiTest)
#include "vidi_test.moc"
