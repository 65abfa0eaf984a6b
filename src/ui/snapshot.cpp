#include "ui/snapshot.h"

#include <QCoreApplication>
#include <QPixmap>
#include <cstdio>

#include "core/messages.h"
#include "ui/loadturndialog.h"
#include "ui/mainwindow.h"
#include "ui/qtext.h"
#include "ui/squadscreen.h"

namespace kestrin::ui {

namespace {

class LoggingMessages : public RecordingMessages {
public:
    LoggingMessages() { defaultAnswer = false; }
    void refuse(const std::string& title, const std::string& text) override { log("refused", title, text); }
    void warn(const std::string& title, const std::string& text) override { log("warning", title, text); }
    void inform(const std::string& title, const std::string& text) override { log("message", title, text); }
    bool ask(const std::string& title, const std::string& text) override {
        log("question (answered No)", title, text);
        return RecordingMessages::ask(title, text);
    }

private:
    static void log(const char* kind, const std::string& title, const std::string& text) {
        std::fprintf(stderr, "kestrin: %s: %s: %s\n", kind, cp1252ToUtf8(title).c_str(), cp1252ToUtf8(text).c_str());
    }
};

}  // namespace

int renderSnapshots(const std::filesystem::path& gameFolder, const std::filesystem::path& outDir) {
    std::error_code ec;
    std::filesystem::create_directories(outDir, ec);
    if (ec) {
        std::fprintf(stderr, "kestrin: cannot make %s: %s\n", outDir.c_str(), ec.message().c_str());
        return 1;
    }
    LoggingMessages messages;
    SessionController controller(messages);
    MainWindow window(controller);
    if (!controller.load(gameFolder)) return 1;

    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.resize(1280, 800);
    window.show();
    int failures = 0;
    for (Screen* s : window.screens()) {
        window.showScreen(s->objectName());
        QCoreApplication::processEvents();
        const QString file = qpath(outDir / (s->objectName().toStdString() + ".png"));
        if (!window.grab().save(file)) {
            std::fprintf(stderr, "kestrin: cannot write %s\n", file.toLocal8Bit().constData());
            ++failures;
        }
    }
    {
        LoadTurnDialog dialog(controller, &window);
        dialog.setAttribute(Qt::WA_DontShowOnScreen);
        dialog.show();
        QCoreApplication::processEvents();
        const QString file = qpath(outDir / "LoadTurn.png");
        if (!dialog.grab().save(file)) {
            std::fprintf(stderr, "kestrin: cannot write %s\n", file.toLocal8Bit().constData());
            ++failures;
        }
    }
    failures += renderSquadSnapshots(window, outDir);
    window.hide();
    return failures == 0 ? 0 : 1;
}

}  // namespace kestrin::ui
