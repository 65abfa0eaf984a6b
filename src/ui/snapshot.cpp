#include "ui/snapshot.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QRadioButton>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <tuple>

#include "core/messages.h"
#include "match/profiles.h"
#include "ui/admin.h"
#include "ui/autoturn.h"
#include "ui/faceview.h"
#include "ui/fixt.h"
#include "ui/lastweek.h"
#include "ui/honours.h"
#include "ui/loadturndialog.h"
#include "ui/mainwindow.h"
#include "ui/matchviewer.h"
#include "ui/memoform.h"
#include "ui/newsscreen.h"
#include "ui/notepad.h"
#include "ui/pitchgrid.h"
#include "ui/qtext.h"
#include "ui/scout.h"
#include "ui/squadscreen.h"
#include "ui/tickerform.h"
#include "ui/vidi.h"

namespace kestrin::ui {

bool savePicture(QWidget& widget, const std::filesystem::path& file) {
    QCoreApplication::processEvents();
    if (widget.grab().save(qpath(file))) return true;
    std::fprintf(stderr, "kestrin: cannot write %s\n", qpath(file).toLocal8Bit().constData());
    return false;
}

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
    auto save = [&](QWidget& w, const std::string& name) { failures += !savePicture(w, outDir / name); };
    // The news screen as the manager reads it: its first item open.
    if (auto* news = qobject_cast<NewsScreen*>(window.screen("News"))) news->showItem(0);
    for (Screen* s : window.screens()) {
        window.showScreen(s->objectName());
        save(window, s->objectName().toStdString() + ".png");
    }
    // Last week again at its fullest: the club whose report fills most boxes.
    if (auto* last = qobject_cast<LastWeekScreen*>(window.screen("LastWk"))) {
        int best = 0, most = -1;
        for (int i = 0; i < controller.session().ClubCount(); ++i) {
            controller.selectClub(i);
            int filled = 0;
            for (size_t b = 0; b < kLastWeekBoxes.size(); ++b) filled += !last->box(b)->toPlainText().isEmpty();
            if (filled > most) std::tie(best, most) = std::pair(i, filled);
        }
        controller.selectClub(best);
        window.showScreen("LastWk");
        save(window, "LastWk.png");
        controller.selectClub(0);
    }
    // The fixture screen with profiles saved for the first club's matches and
    // one of them chosen in the list; the profiles made for the picture go again.
    if (auto* fixt = qobject_cast<FixtScreen*>(window.screen("Fixt")); fixt && controller.hasClubs()) {
        controller.selectClub(0);
        const Session& s = controller.session();
        std::vector<std::filesystem::path> made;
        if (profileNames(s.Folder).empty()) {
            for (const Fixture& f : s.Clubs[0].Fixtures) {
                const std::string name = automaticProfileName(s.Clubs[0], f);
                try {
                    saveProfile(s.Folder, name, f);
                    made.push_back(profilePath(s.Folder, name));
                } catch (const WriteError&) {
                }
            }
        }
        window.showScreen("Fixt");
        fixt->refreshProfiles();
        if (auto* box = fixt->findChild<QComboBox*>("cboProfiles"); box && box->count() > 0) box->setCurrentIndex(0);
        save(window, "Profile.png");
        for (const std::filesystem::path& p : made) std::filesystem::remove(p, ec);
        fixt->refreshProfiles();
        window.showScreen("MainMenu");
    }
    // Weekly Administration with an option of each kind of control chosen.
    // Nothing is stored: only the screen's own buttons write adm.kst.
    if (auto* admin = qobject_cast<AdminScreen*>(window.screen("Admin"))) {
        // The richest club, so that the costs show rather than a refusal.
        int richest = 0;
        for (int i = 0; i < controller.session().ClubCount(); ++i)
            if (controller.session().Clubs[size_t(i)].Balance > controller.session().Clubs[size_t(richest)].Balance)
                richest = i;
        controller.selectClub(richest);
        window.showScreen("Admin");
        auto pick = [&](const char* name, int index) {
            auto* box = admin->findChild<QComboBox*>(name);
            if (box && box->count() > 0) box->setCurrentIndex(std::min(index, box->count() - 1));
        };
        auto pickText = [&](const char* name, const char* text) {
            if (auto* box = admin->findChild<QComboBox*>(name)) box->setCurrentIndex(box->findText(text));
        };
        const std::pair<const char*, std::function<void()>> shots[] = {
            {"Admin-SpecialScout.png",
             [&] {
                 pickText("SSR_Pos", "Central Midfielder");
                 pickText("SSR_Int", "Yes");
                 pickText("SSR_Skill0", "Passing");
                 pickText("SSR_Min0", "5");
                 pickText("SSR_Skill1", "Tackling");
                 pickText("SSR_Max1", "8");
             }},
            {"Admin-SkillSpot.png",
             [&] {
                 admin->findChild<QRadioButton*>("SSS_Opt0")->click();
                 pickText("SSS_Score", "Vision");
                 pick("SSS_Player", 2);
             }},
            {"Admin-Trade.png",
             [&] {
                 pick("TR_Team", 1);
                 pick("TR_Player", 3);
             }},
            {"Admin-Physio.png",
             [&] {
                 pick("SP_Player", 0);
                 pickText("SP_Points", "2");
             }},
            {"Admin-ForceSkill.png",
             [&] {
                 pick("FSC_Player", 4);
                 pick("FSC_Increase", 1);
                 pick("FSC_Decrease0", 1);
             }},
            {"Admin-ForcePosition.png",
             [&] {
                 pick("FPC_Player", 3);
                 pick("FPC_To", 4);
             }},
            {"Admin-CreatePlayer.png",
             [&] {
                 admin->chooseOption(10);
                 pickText("CP_Position", "Left Sided Midfielder");
                 admin->findChild<QLineEdit*>("CP_Name")->setText("Tomas Eriksen");
                 admin->findChild<QLineEdit*>("CP_Nation")->setText("Danish");
             }},
        };
        for (const auto& [file, set] : shots) {
            admin->rebuildOrderLists();  // the club's own record again
            set();
            save(window, file);
        }
        controller.selectClub(0);
    }
    // The Match viewer part-way through a report, the picture of a goal up;
    // then the closing statistics it opens with.
    if (auto* viewer = qobject_cast<Matchviewer*>(window.screen("Matchviewer"))) {
        const GameFolder& folder = controller.session().Folder;
        const std::vector<std::string> reports = folder.list("Squadsheets", "*#*");
        if (!reports.empty()) {
            window.showScreen("Matchviewer");
            viewer->findChild<QLineEdit*>("txtF")->setText(qpath(folder.resolve("Squadsheets/" + reports[0])));
            viewer->start();
            viewer->timer()->stop();
            EventPicture* statistics = viewer->picture(EventPicture::Kind::Statistics);
            if (statistics->isVisible()) save(window, "Matchviewer-Statistics.png");
            statistics->hide();
            EventPicture* goal = viewer->picture(EventPicture::Kind::Goal);
            for (int i = 0; i < 400 && viewer->replaying() && !(i > 60 && goal->isVisible()); ++i) viewer->tick();
            save(window, "Matchviewer.png");
            window.showScreen("MainMenu");
        }
    }
    // The Vidiprinter an hour into the afternoon, then at the next goal of a
    // club the manager follows, its alert up.
    if (auto* vidi = qobject_cast<VidiScreen*>(window.screen("Vidi"))) {
        window.showScreen("Vidi");
        vidi->setMinuteInterval(24 * 3600 * 1000);  // the ticks are ours
        vidi->start();
        for (int minute = 0; minute < 60; ++minute) vidi->tick();
        vidi->alert()->hide();
        save(window, "Vidi.png");
        for (int minute = 60; minute < 100 && !vidi->alert()->isVisible(); ++minute) vidi->tick();
        if (vidi->alert()->isVisible()) save(window, "Vidi-Alert.png");
        vidi->alert()->hide();
        window.showScreen("MainMenu");
    }
    {
        LoadTurnDialog dialog(controller, &window);
        dialog.setAttribute(Qt::WA_DontShowOnScreen);
        dialog.show();
        save(dialog, "LoadTurn.png");
    }
    failures += renderSquadSnapshots(window, outDir);
    failures += renderMarketSnapshots(window, controller, outDir);
    if (const QString faces = qpath(outDir / "Faces.png"); !faceSheet(controller.session()).save(faces)) {
        std::fprintf(stderr, "kestrin: cannot write %s\n", faces.toLocal8Bit().constData());
        ++failures;
    }

    // Last week's reports and the notepad, shown only here, never popped up.
    auto shoot = [&](QDialog* dialog, const std::string& name) {
        dialog->setAttribute(Qt::WA_DontShowOnScreen);
        dialog->show();
        save(*dialog, name);
        dialog->hide();
    };
    const Session& session = controller.session();
    if (!session.Memos.empty()) {
        window.memoForm()->showMemo(1);
        shoot(window.memoForm(), "MemoForm.png");
    } else {
        std::fprintf(stderr, "kestrin: no memos this week: MemoForm.png not drawn\n");
    }
    TickerForm* ticker = window.tickerForm();
    ticker->setAttribute(Qt::WA_DontShowOnScreen);
    ticker->show();
    ticker->startTape();
    // Far enough along that the first club's name and lines are on the tape.
    for (int i = 0; i < 120; ++i) ticker->tick();
    save(*ticker, "TickerForm.png");
    ticker->hide();
    Notepad* notepad = window.notepad();
    notepad->reload();
    if (notepad->findChild<QPlainTextEdit*>("txtNotes")->toPlainText().isEmpty())
        notepad->fill("Sell the reserve keeper before the window shuts.\nTry 4-3-3 away from home.\n"
                      "Ask the league about the cup draw date.");
    shoot(notepad, "Notepad.png");
    // The club's honours, when the game folder has a Stats database.
    if (std::unique_ptr<HonoursDialog> honours(HonoursDialog::create(&window, controller)); honours)
        shoot(honours.get(), "Honours.png");
    // The pitch grid after an Auto Turn for every club, By Best Blend when
    // there is a Stats database, its blend read; the clubs' orders are put
    // back afterwards and nothing is saved.
    auto* autoTurn = qobject_cast<AutoTurnScreen*>(window.screen("AutoTurn"));
    auto* grid = qobject_cast<PitchGridScreen*>(window.screen("PitchGrid"));
    if (autoTurn && grid && controller.hasClubs()) {
        const std::vector<Club> before = controller.session().Clubs;
        window.showScreen("AutoTurn");
        const char* method = statsDatabaseExists(controller.session()) ? "optPick3" : "optPick0";
        autoTurn->findChild<QRadioButton*>(method)->click();
        runAutoTurn(controller.session(), autoTurn->options(), messages, defaultRandomSource(7));
        controller.selectClub(0);
        window.showScreen("PitchGrid");
        grid->findChild<QPushButton*>("btnBlend")->click();
        save(window, "PitchGrid-AutoTurn.png");
        controller.session().Clubs = before;
        controller.selectClub(0);
    }
    window.hide();
    return failures == 0 ? 0 : 1;
}

}  // namespace kestrin::ui
