#pragma once
// What the screen tests share: a demo game in a scratch folder, and the main
// window on it with a scripted Messages, so questions never block.
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "core/gameini.h"
#include "core/gamefolder.h"
#include "core/messages.h"
#include "core/text.h"
#include "demo/demo.h"
#include "support/testsupport.h"
#include "ui/loadturndialog.h"
#include "ui/mainwindow.h"
#include "ui/sessioncontroller.h"

namespace kestrin::test {

struct UiGame {
    TempDir dir;
    RecordingMessages messages;
    std::unique_ptr<ui::SessionController> controller;
    std::unique_ptr<ui::MainWindow> window;

    // A demo league of `clubs` managed clubs, loaded and shown.
    explicit UiGame(int clubs = 3) {
        makeDemo(dir.path(), 1, clubs);
        open();
        // Every test below indexes the clubs: stop here if the demo didn't load.
        if (session().ClubCount() != clubs) {
            std::string why = "the demo league loaded " + std::to_string(session().ClubCount()) + " clubs";
            for (const auto& e : messages.entries) why += "; " + e.title + ": " + e.text;
            throw std::runtime_error(why);
        }
    }
    struct Empty {};
    explicit UiGame(Empty) {}

    // The demo league of `weeks` weeks, written but not opened.
    static void makeDemo(const fs::path& folder, int weeks = 1, int clubs = 3) {
        DemoOptions o;
        o.clubs = clubs;
        o.exportClubs = 12;
        o.weeks = weeks;
        o.seed = 7;
        makeDemoLeague(folder, o);
    }
    // A game.ini and nothing else: the first run of a new manager.
    void writeFirstRun() {
        GameIni ini;
        ini.GameName = "Empty League";
        ini.ShortName = "EL";
        writeFileAtomic(dir.path() / "game.ini", gameIniBytes(ini));
    }

    void open() {
        window.reset();  // its screens use the controller while it closes
        controller = std::make_unique<ui::SessionController>(messages);
        window = std::make_unique<ui::MainWindow>(*controller);
        QVERIFY(controller->load(dir.path()));
        window->show();
    }

    Session& session() { return controller->session(); }

    template <typename T = QWidget>
    T* on(const char* screen, const char* control) {
        ui::Screen* s = window->screen(screen);
        if (!s) return nullptr;
        return s->findChild<T*>(control);
    }
    QComboBox* teamList(const char* screen) { return on<QComboBox>(screen, "TeamList"); }
    QPushButton* button(const char* screen, const char* control) { return on<QPushButton>(screen, control); }

    std::vector<RecordingMessages::Entry> of(RecordingMessages::Kind kind) const {
        std::vector<RecordingMessages::Entry> q;
        for (const auto& e : messages.entries)
            if (e.kind == kind) q.push_back(e);
        return q;
    }
    std::vector<RecordingMessages::Entry> questions() const { return of(RecordingMessages::Kind::Ask); }
    std::vector<std::string> iniLines() const { return splitLines(dir.read("kestrin.ini")); }

    // Every club's Turnsheet is written by Save; this is the given club's.
    std::vector<std::string> savedSheet(int club = 0) {
        button("Fixt", "Command2")->click();
        return splitLines(dir.read("Turnsheet/" + session().Clubs[size_t(club)].ClubFile + ".txt"));
    }
};

// Game text as the screens show it: its bytes are Windows-1252.
inline QString q(std::string_view s) { return QString::fromStdString(cp1252ToUtf8(s)); }

// The demo's archives of `week` loaded through the Load Turn dialog, as the
// manager does it from the main menu.
inline void loadWeek(UiGame& g, int week) {
    g.button("MainMenu", "BtnLoadTurn")->click();
    auto* dialog = g.window->findChild<ui::LoadTurnDialog*>("LoadTurn");
    QVERIFY(dialog);
    QStringList answers;
    for (const char* name : {"squad.zip", "weekly.zip"})
        answers << q((g.dir.path() / "Archives" / ("week" + std::to_string(week)) / name).string());
    dialog->setFilePicker([answers](const QString&, const QString&, const QString&) mutable {
        return answers.isEmpty() ? QString() : answers.takeFirst();
    });
    for (const char* b : {"btnSquad", "btnWeek", "OKButton"}) dialog->findChild<QAbstractButton*>(b)->click();
}

// The one message given, of that kind, title and text (any text when none is
// given). A failure here is a failure of the test: check currentTestFailed()
// before reading the message.
inline void onlyMessage(const UiGame& g, RecordingMessages::Kind kind, const QString& title, const QString& text = {}) {
    QCOMPARE(int(g.messages.entries.size()), 1);
    QCOMPARE(g.messages.entries[0].kind, kind);
    QCOMPARE(q(g.messages.entries[0].title), title);
    if (!text.isNull()) QCOMPARE(q(g.messages.entries[0].text), text);
}

inline QStringList itemsOf(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i) out << list->item(i)->text();
    return out;
}

// Turnsheet lines of the first match: the value after the nth `label`.
using Lines = std::vector<std::string>;
inline size_t valueLine(const Lines& lines, const std::string& label, int nth = 1) {
    size_t i = 0;
    while (i + 1 < lines.size() && !(lines[i] == "Match Number:" && lines[i + 1] == turnsheetNumber(1))) ++i;
    for (; i + 1 < lines.size(); ++i) {
        if (lines[i] == "Coach Player:" || (lines[i] == "Match Number:" && lines[i + 1] != turnsheetNumber(1))) break;
        if (lines[i] == label && --nth == 0) return i + 1;
    }
    return std::string::npos;
}

// The Turnsheet after a change holds exactly the values given (by label and
// occurrence in the first match) and every other line as it was.
inline void expectOnly(const Lines& before, const Lines& after,
                       const std::map<std::pair<std::string, int>, std::string>& want) {
    QCOMPARE(after.size(), before.size());
    std::map<size_t, std::string> at;
    for (const auto& [key, value] : want) {
        const size_t i = valueLine(after, key.first, key.second);
        QVERIFY2(i != std::string::npos, key.first.c_str());
        at[i] = value;
    }
    for (size_t i = 0; i < after.size(); ++i) {
        const std::string& expected = at.count(i) ? at[i] : before[i];
        if (after[i] != expected)
            QFAIL(qPrintable(QString("line %1 (after \"%2\") is \"%3\", expected \"%4\"")
                                 .arg(i + 1)
                                 .arg(q(i ? after[i - 1] : ""), q(after[i]), q(expected))));
    }
}

}  // namespace kestrin::test
