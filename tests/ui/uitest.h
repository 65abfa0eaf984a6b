#pragma once
// What the screen tests share: a demo game in a scratch folder, and the main
// window on it with a scripted Messages, so questions never block.
#include <QComboBox>
#include <QPushButton>
#include <QtTest>
#include <memory>
#include <stdexcept>
#include <string>

#include "core/messages.h"
#include "demo/demo.h"
#include "support/testsupport.h"
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
        DemoOptions o;
        o.clubs = clubs;
        o.exportClubs = 12;
        o.seed = 7;
        makeDemoLeague(dir.path(), o);
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

    void open() {
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

    std::vector<RecordingMessages::Entry> questions() const {
        std::vector<RecordingMessages::Entry> q;
        for (const auto& e : messages.entries)
            if (e.kind == RecordingMessages::Kind::Ask) q.push_back(e);
        return q;
    }
};

inline QString q(const std::string& s) { return QString::fromStdString(s); }

}  // namespace kestrin::test
