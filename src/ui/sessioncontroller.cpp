#include "ui/sessioncontroller.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGuiApplication>
#include <memory>

#include "core/errors.h"
#include "core/gameini.h"
#include "core/loader.h"
#include "files/loadturn.h"
#include "orders/admin.h"
#include "ui/qtext.h"
#include "ui/screen.h"
#include "ui/secrets.h"

namespace kestrin::ui {

namespace {

// The busy pointer while files are written.
struct BusyPointer {
    BusyPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QGuiApplication::restoreOverrideCursor(); }
};

// Message boxes shown with the busy pointer gone, so the manager sees that
// the program waits for him.
class CursorFreeMessages : public Messages {
public:
    explicit CursorFreeMessages(Messages& inner) : inner_(inner) {}
    void refuse(const std::string& title, const std::string& text) override {
        Plain p;
        inner_.refuse(title, text);
    }
    void warn(const std::string& title, const std::string& text) override {
        Plain p;
        inner_.warn(title, text);
    }
    void inform(const std::string& title, const std::string& text) override {
        Plain p;
        inner_.inform(title, text);
    }
    bool ask(const std::string& title, const std::string& text) override {
        Plain p;
        return inner_.ask(title, text);
    }
    bool askQuestion(const std::string& title, const std::string& text) override {
        Plain p;
        return inner_.askQuestion(title, text);
    }

private:
    struct Plain {
        bool busy = QGuiApplication::overrideCursor() != nullptr;
        Plain() {
            if (busy) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        }
        ~Plain() {
            if (busy) QGuiApplication::restoreOverrideCursor();
        }
    };
    Messages& inner_;
};

QString welcomeTitle(const std::filesystem::path& folder) {
    const GameFolder f(folder);
    GameIni game;
    try {
        if (f.exists("game.ini")) game = readGameIni(f.resolve("game.ini"));
    } catch (const GameFileError&) {
        // The loader tells the manager about a bad game.ini.
    }
    return qs("Welcome to " + game.GameName + " !");
}

}  // namespace

SessionController::SessionController(Messages& messages, QObject* parent) : QObject(parent), messages_(messages) {
    connect(&statsRefresh_, &StatsRefresh::finished, this,
            [this](const stats::RefreshResult& result, const RecordingMessages& recorded) {
                for (const auto& e : recorded.entries) {
                    switch (e.kind) {
                        case RecordingMessages::Kind::Refuse: messages_.refuse(e.title, e.text); break;
                        case RecordingMessages::Kind::Warn: messages_.warn(e.title, e.text); break;
                        case RecordingMessages::Kind::Inform: messages_.inform(e.title, e.text); break;
                        case RecordingMessages::Kind::Ask: break;  // a refresh asks nothing
                    }
                }
                // The settings file already holds it; the session follows.
                if (result.settingsSaved) session_.Prefs.StatsFile = result.statsFile;
                const bool done = result.status == stats::RefreshStatus::Done;
                if (done) emit notice("Stats Database refreshed");
                emit statsRefreshed(done);
            });
    auto store = std::make_shared<MailPasswordSource>();
    password_.get = [this, store](const MailSettings& settings) { return store->get(settings, dialogParent_); };
    password_.sent = [store](const MailSettings& settings, const std::string& password, bool sent) {
        store->sent(settings, password, sent);
    };
}

void SessionController::setMailTimeouts(long connectSeconds, long messageSeconds) {
    mailOptions_.ConnectTimeoutSeconds = connectSeconds;
    mailOptions_.TimeoutSeconds = messageSeconds;
}

bool SessionController::refreshStats(bool showDone) {
    if (session_.GameIniMissing || session_.Folder.root().empty()) return false;
    return statsRefresh_.start(session_, showDone, dialogParent_);
}

void SessionController::addScreen(Screen* screen) { screens_.push_back(screen); }

bool SessionController::load(const std::filesystem::path& gameFolder) {
    statsRefresh_.wait();
    emit loadStarted(welcomeTitle(gameFolder));
    session_ = loadSession(gameFolder, messages_, [this](std::string_view status) {
        emit loadStatus(qs(status));
        QCoreApplication::processEvents();
    });
    if (session_.GameIniMissing) {
        view_ = ClubView{};
        emit loadFinished();
        return false;
    }
    showLoadedSession();
    return true;
}

void SessionController::showLoadedSession() {
    view_ = ClubView{};
    for (Screen* s : screens_) s->sessionLoaded();
    if (hasClubs()) selectClub(0);
    emit loadFinished();
    if (hasClubs() && !session_.SameTurn) emit newWeekLoaded();
    // A new week goes into the Stats database quietly, as the manager reads
    // last week's reports.
    if (session_.StatsRefreshDue) refreshStats(false);
}

bool SessionController::loadNewTurn(const std::string& squadZip, const std::string& weeklyZip) {
    statsRefresh_.wait();
    // Welcome shows only once the archives are in and the loader runs.
    bool started = false;
    const std::filesystem::path folder = session_.Folder.root();
    auto status = [&](std::string_view text) {
        if (!started) {
            started = true;
            emit loadStarted(welcomeTitle(folder));
        }
        emit loadStatus(qs(text));
        QCoreApplication::processEvents();
    };
    CursorFreeMessages messages(messages_);
    bool loaded;
    {
        BusyPointer busy;
        loaded = kestrin::loadNewTurn(session_, squadZip, weeklyZip, messages, status);
    }
    if (!loaded) {
        if (started) emit loadFinished();
        return false;
    }
    showLoadedSession();
    return true;
}

bool SessionController::reload() { return load(session_.Folder.root()); }

void SessionController::selectClub(int index) {
    if (!hasClubs() || index < 0 || index >= session_.ClubCount()) return;
    session_.FillingScreen = true;
    if (view_.ClubSelecting) return;
    noteClubChoice(session_, view_, index);

    view_.ClubSelecting = true;
    for (Screen* s : screens_) s->showClubIndex(index);
    view_.ClubSelecting = false;

    for (Screen* s : screens_) s->fillClub();
    rebuildOrderLists();

    try {
        readClubPictures(session_, *session_.current(), view_);
    } catch (const GameFileError& e) {
        messages_.warn("Club pictures could not be read",
                       unreadableFileText("pictures file", e,
                                          "The built-in badge and shirt are shown. Choosing a badge or a "
                                          "shirt writes the file anew."));
    }
    emit picturesChanged();
    session_.FillingScreen = false;
}

void SessionController::rebuildOrderLists() {
    for (Screen* s : screens_) s->rebuildOrderLists();
}

void SessionController::chooseWeekly(WeeklyChoice which, const std::string& line) {
    kestrin::chooseWeekly(session_, which, line);
}

void SessionController::changePicture(Picture which, const std::string& nativePath) {
    if (nativePath.empty() || !hasClubs()) return;
    (which == Picture::Badge ? view_.BadgeFile : view_.ShirtFile) = nativePath;
    emit picturesChanged();
    try {
        writeClubPictures(session_, *session_.current(), view_);
    } catch (const WriteError& e) {
        messages_.refuse("Pictures not saved", "The file " + utf8ToCp1252(e.path) + " could not be written: " +
                                                   e.reason +
                                                   ".\r\n\r\nThe picture is shown for now; the previous choice "
                                                   "comes back at the next start.");
    }
}

void SessionController::saveTurnsheet() {
    if (!hasClubs()) return;
    bool saved;
    {
        BusyPointer busy;
        saved = saveTurnsheetsTelling(session_, messages_);
    }
    if (saved) emit notice("Turnsheets saved");
}

void SessionController::sendTurnsheet() {
    if (!hasClubs() || sendingMail()) return;
    const MailSettings settings = readMailSettings(session_.Folder);
    std::optional<std::vector<MailMessage>> mail;
    {
        BusyPointer busy;
        CursorFreeMessages messages(messages_);
        mail = prepareTurnsheetMail(session_, messages);
    }
    if (!mail) return;
    emit notice("Turnsheets saved");
    if (!mail->empty() && !settings.configured()) {
        tellMailNotSetUp(session_, messages_);
        emit mailFinished(false);
        return;
    }
    auto sent = *mail;
    startMail("Sending turnsheets", settings, std::move(*mail), [this, sent](const MailOutcome& outcome) {
        return tellTurnsheetOutcome(session_, sent, outcome, messages_);
    });
}

void SessionController::sendAdmin() {
    if (!hasClubs() || sendingMail()) return;
    const std::string text = adminText(session_, messages_);
    const MailSettings settings = readMailSettings(session_.Folder);
    if (!settings.configured()) {
        tellAdminMailNotSetUp(messages_);
        emit mailFinished(false);
        return;
    }
    startMail("Sending Weekly Administration", settings, {adminMailMessage(session_, text)},
              [this](const MailOutcome& outcome) { return tellAdminOutcome(outcome, messages_); });
}

void SessionController::sendPlayerDetails(const Club& club, const Player& player, const std::string& choice,
                                          const std::string& detailsText) {
    if (sendingMail()) return;
    const DetailsMail mail = playerDetailsMessage(session_, club, player, choice, detailsText);
    if (!mail.message) {
        messages_.refuse(mail.title, mail.text);
        return;
    }
    const MailSettings settings = readMailSettings(session_.Folder);
    if (!settings.configured()) {
        tellDetailsMailNotSetUp(messages_);
        emit mailFinished(false);
        return;
    }
    startMail("Sending player details", settings, {*mail.message}, [this, choice](const MailOutcome& outcome) {
        return tellDetailsOutcome(choice, outcome, messages_);
    });
}

bool SessionController::startMail(const QString& title, const MailSettings& settings, std::vector<MailMessage> mail,
                                  std::function<bool(const MailOutcome&)> tell) {
    MailOptions options = mailOptions_;
    if (!settings.User.empty() && !mail.empty()) {
        const std::optional<std::string> password = password_.get ? password_.get(settings) : std::nullopt;
        if (!password) {
            emit mailFinished(false);
            return false;  // the manager cancelled: nothing to tell
        }
        options.Password = *password;
    }
    const std::string password = options.Password;
    auto work = [this, settings, mail, options, title](const std::atomic<bool>& cancel) mutable {
        options.Cancel = &cancel;
        options.Progress = [this, &mail, title](size_t done, size_t total) {
            if (done >= total) return;
            const QString label = title + "\n" + qs(mail[done].Subject) + "\n(" + QString::number(done + 1) +
                                  " of " + QString::number(total) + ")";
            mailJob_.post([this, label, done, total] { mailJob_.showProgress(int(done), int(total), label); });
        };
        mailOutcome_ = sendMail(settings, mail, options);
    };
    auto done = [this, settings, password, tell = std::move(tell)] {
        const bool sent = tell(mailOutcome_);
        if (!settings.User.empty() && password_.sent) password_.sent(settings, password, sent);
        emit mailFinished(sent);
    };
    return mailJob_.start({"MailProgress", title, title}, dialogParent_, std::move(work), std::move(done));
}

void SessionController::clearTurns(bool allClubs) {
    if (!hasClubs()) return;
    if (!messages_.askQuestion(std::string(kClearTurnTitle), clearTurnQuestion(session_, allClubs))) return;
    try {
        deleteTurnsheets(session_, allClubs);
    } catch (const WriteError& e) {
        messages_.refuse("Turnsheet not cleared",
                         "The turnsheet " + utf8ToCp1252(e.path) + " could not be deleted: " + e.reason +
                             ".\r\n\r\nNothing has been reloaded. Check that the Turnsheet folder can be written "
                             "to and try again.");
        return;
    }
    reload();
}

void SessionController::closing() {
    statsRefresh_.cancelAndWait();
    mailJob_.cancelAndWait();
    closingSavePrompt(session_, messages_);
}

}  // namespace kestrin::ui
