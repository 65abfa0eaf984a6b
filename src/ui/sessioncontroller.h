#pragma once
// The one owner of the Session. Every screen reads the session from here and
// asks the controller to change it, so all screens stay on the same club and
// the same orders. The controller does no game rule itself: it calls the
// logic and then tells the screens to refill.
#include <QObject>
#include <QString>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/clubview.h"
#include "core/messages.h"
#include "core/session.h"
#include "files/mail.h"
#include "ui/backgroundjob.h"
#include "ui/statsrefresh.h"

namespace kestrin::ui {

class Screen;

class SessionController : public QObject {
    Q_OBJECT
public:
    explicit SessionController(Messages& messages, QObject* parent = nullptr);

    Session& session() { return session_; }
    const Session& session() const { return session_; }
    ClubView& view() { return view_; }
    const ClubView& view() const { return view_; }
    Messages& messages() { return messages_; }
    bool hasClubs() const { return !session_.Clubs.empty(); }

    // Screens in the order in which Select club sets their TeamList.
    void addScreen(Screen* screen);
    const std::vector<Screen*>& screens() const { return screens_; }

    // Runs the session loader on the folder and shows the first club.
    // Returns false when game.ini is missing (the manager has been told).
    bool load(const std::filesystem::path& gameFolder);
    // Runs the loader again on the same folder.
    bool reload();
    // Load New Turn with the two archives; the new week is then shown as
    // after start-up (every screen refilled, the first club selected).
    // Returns false when nothing was loaded; the manager has been told why.
    bool loadNewTurn(const std::string& squadZip, const std::string& weeklyZip);

    // The one way to change the club on screen; also refills all screens.
    void selectClub(int index);
    // After any order taken or removed.
    void rebuildOrderLists();

    void chooseWeekly(WeeklyChoice which, const std::string& line);
    enum class Picture { Badge, Shirt };
    // A picture file chosen by the manager; an empty path changes nothing.
    void changePicture(Picture which, const std::string& nativePath);

    void saveTurnsheet();
    // Saves, then mails every Turnsheet off the interface thread; a second
    // send while one runs is refused quietly.
    void sendTurnsheet();
    // One player's details to the manager chosen (or "(All Managers)").
    // btnEmailAdmin: the Weekly Administration text of every club to the administrator.
    void sendAdmin();
    void sendPlayerDetails(const Club& club, const Player& player, const std::string& choice,
                           const std::string& detailsText);
    bool sendingMail() const { return mailJob_.running(); }

    // Where the password of a login comes from, and what is told of it after
    // the send. The secret store and a password dialog unless replaced.
    struct PasswordProvider {
        std::function<std::optional<std::string>(const MailSettings&)> get;  // nothing: the manager cancelled
        std::function<void(const MailSettings&, const std::string& password, bool sent)> sent;
    };
    void setPasswordProvider(PasswordProvider provider) { password_ = std::move(provider); }
    // Time limits of each send; the defaults unless replaced.
    void setMailTimeouts(long connectSeconds, long messageSeconds);
    // Asks, deletes the Turnsheets and reloads.
    void clearTurns(bool allClubs);
    // The program is closing: the save prompt, once.
    void closing();

    // The week's files into the Stats database, off the interface thread with
    // a progress dialog over `dialogParent`. False when a refresh is running.
    bool refreshStats(bool showDone);
    bool refreshingStats() const { return statsRefresh_.running(); }
    void setDialogParent(QWidget* parent) { dialogParent_ = parent; }

signals:
    void loadStarted(const QString& welcomeTitle);
    void loadStatus(const QString& text);
    void loadFinished();
    // The session just shown is a new week's (SameTurn is false): last week's
    // reports are due on screen.
    void newWeekLoaded();
    void picturesChanged();
    // A short note for the status bar ("Turnsheets saved").
    void notice(const QString& text);
    // A Stats refresh ended, its messages shown; `done` when rows were stored.
    void statsRefreshed(bool done);
    // A send ended and its outcome was told.
    void mailFinished(bool sent);

private:
    // A whole new session is in session_: every screen shows it.
    void showLoadedSession();

    Messages& messages_;
    Session session_;
    ClubView view_;
    std::vector<Screen*> screens_;
    // Sends off the interface thread with a progress dialog, then `tell`
    // shows the outcome; false when a send is running.
    bool startMail(const QString& title, const MailSettings& settings, std::vector<MailMessage> mail,
                   std::function<bool(const MailOutcome&)> tell);

    StatsRefresh statsRefresh_;
    BackgroundJob mailJob_;
    MailOutcome mailOutcome_;  // written by the send's worker, read once it is done
    MailOptions mailOptions_;
    PasswordProvider password_;
    QWidget* dialogParent_ = nullptr;
};

}  // namespace kestrin::ui
