// Sending by e-mail from the screens, against a mail server on 127.0.0.1:
// the settings entered on Preferences, Send Turnsheet while the window keeps
// answering, and what the manager is told when it can't go.
#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>
#include <optional>

#include "files/mail.h"
#include "support/smtpserver.h"
#include "ui/admin.h"
#include "ui/qtext.h"
#include "uitest.h"

using namespace kestrin;
using namespace kestrin::test;

namespace {

void type(UiGame& g, const char* control, const QString& text) {
    auto* edit = g.on<QLineEdit>("Preferences", control);
    QVERIFY2(edit, control);
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

void chooseSecurity(UiGame& g, const QString& name) {
    auto* combo = g.on<QComboBox>("Preferences", "cboMailSecurity");
    QVERIFY(combo);
    const int index = combo->findText(name);
    QVERIFY2(index >= 0, qPrintable(name));
    combo->setCurrentIndex(index);
    emit combo->activated(index);
}

// What the manager types on Preferences for the server of the test.
void enterSettings(UiGame& g, const SmtpServer& server, const QString& user) {
    type(g, "txtMailServer", "127.0.0.1");
    chooseSecurity(g, "none");
    type(g, "txtMailPort", QString::number(server.port()));
    type(g, "txtMailUser", user);
    type(g, "txtMailSender", "manager@club.example");
}

}  // namespace

class MailTest : public QObject {
    Q_OBJECT
private slots:
    void preferencesKeepTheSettings_data();
    void preferencesKeepTheSettings();
    void sendTurnsheet_data();
    void sendTurnsheet();
    void sendAdmin_data();
    void sendAdmin();
};

void MailTest::preferencesKeepTheSettings_data() {
    QTest::addColumn<QString>("server");
    QTest::addColumn<QString>("security");
    QTest::addColumn<QString>("wantSecurity");
    QTest::addColumn<int>("wantPort");
    QTest::addColumn<bool>("refused");
    QTest::newRow("TLS takes its port") << "smtp.example.org" << "TLS" << "TLS" << 465 << false;
    QTest::newRow("none to this machine") << "localhost" << "none" << "none" << 25 << false;
    QTest::newRow("none to another machine") << "smtp.example.org" << "none" << "STARTTLS" << 587 << true;
}

void MailTest::preferencesKeepTheSettings() {
    QFETCH(QString, server);
    QFETCH(QString, security);
    QFETCH(QString, wantSecurity);
    QFETCH(int, wantPort);
    QFETCH(bool, refused);
    UiGame g;
    type(g, "txtMailServer", server);
    chooseSecurity(g, security);
    QCOMPARE(g.on<QComboBox>("Preferences", "cboMailSecurity")->currentText(), wantSecurity);
    QCOMPARE(g.on<QLineEdit>("Preferences", "txtMailPort")->text(), QString::number(wantPort));
    const MailSettings stored = readMailSettings(g.session().Folder);
    QCOMPARE(QString::fromStdString(stored.Server), server);
    QCOMPARE(ui::qs(securityName(stored.Security)), wantSecurity);
    QCOMPARE(stored.Port, wantPort);
    QCOMPARE(g.of(RecordingMessages::Kind::Refuse).size(), size_t(refused ? 1 : 0));
    if (refused) QVERIFY(ui::qs(g.messages.entries.back().text).contains("only to a mail server on this computer"));

    // A port typed stays when the security changes.
    type(g, "txtMailPort", "2525");
    chooseSecurity(g, "STARTTLS");
    QCOMPARE(readMailSettings(g.session().Folder).Port, 2525);
}

void MailTest::sendTurnsheet_data() {
    QTest::addColumn<bool>("configure");
    QTest::addColumn<QString>("typedPassword");
    QTest::addColumn<int>("wantReceived");
    QTest::addColumn<QString>("wantTitle");
    QTest::addColumn<QString>("wantText");
    QTest::newRow("sent") << true << "secret" << 3 << "Turnsheet sent" << "Turnsheet Sent OK";
    QTest::newRow("login refused") << true << "wrong" << 0 << "Turnsheet not sent" << "refused the login";
    QTest::newRow("not set up") << false << "" << 0 << "Turnsheet not sent" << "Preferences";
}

void MailTest::sendTurnsheet() {
    QFETCH(bool, configure);
    QFETCH(QString, typedPassword);
    QFETCH(int, wantReceived);
    QFETCH(QString, wantTitle);
    QFETCH(QString, wantText);
    SmtpServer server({"plain", "manager", "secret", {}});
    QVERIFY(server.port() > 0);
    UiGame g;
    g.session().Prefs.WarnInc = 0;
    if (configure) enterSettings(g, server, "manager");
    std::vector<std::pair<std::string, bool>> kept;
    g.controller->setPasswordProvider(
        {[&](const MailSettings&) { return std::optional<std::string>(typedPassword.toStdString()); },
         [&](const MailSettings&, const std::string& password, bool sent) { kept.emplace_back(password, sent); }});
    g.controller->setMailTimeouts(5, 10);
    QSignalSpy finished(g.controller.get(), &ui::SessionController::mailFinished);
    g.messages.entries.clear();

    g.button("MainMenu", "Command3")->click();
    if (configure) {
        // The window answers while the mail goes: the club changes, a second send is refused quietly.
        QVERIFY(g.controller->sendingMail());
        g.teamList("MainMenu")->setCurrentIndex(2);
        QCOMPARE(g.session().CurrentClub, 2);
        g.button("MainMenu", "Command3")->click();
    }
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 20000);
    QCOMPARE(finished.at(0).at(0).toBool(), wantReceived > 0);

    // The save's own warnings come first; the outcome of the send is told once, last.
    QVERIFY(!g.messages.entries.empty());
    const auto& told = g.messages.entries.back();
    QCOMPARE(ui::qs(told.title), wantTitle);
    QVERIFY2(ui::qs(told.text).contains(wantText), told.text.c_str());
    int outcomes = 0;
    for (const auto& e : g.messages.entries) outcomes += e.title.rfind("Turnsheet ", 0) == 0;
    QCOMPARE(outcomes, 1);
    // Whatever happened to the mail, every club's Turnsheet is saved.
    for (const Club& c : g.session().Clubs) QVERIFY(fs::exists(g.dir.path() / "Turnsheet" / (c.ClubFile + ".txt")));

    const std::vector<Received> got = server.messages();
    QCOMPARE(int(got.size()), wantReceived);
    QStringList subjects, want;
    for (const Received& r : got) subjects << QString::fromStdString(r.header("Subject"));
    for (int i = 0; i < wantReceived; ++i) {
        const Club& c = g.session().Clubs[size_t(i)];
        want << ui::qs(c.LeagueNumber + " - " + g.session().Game.GameName + " Turnsheet For " + c.Name);
    }
    subjects.sort();
    want.sort();
    QCOMPARE(subjects, want);
    for (const Received& r : got) QCOMPARE(QString::fromStdString(r.to.at(0)), ui::qs(g.session().Game.AdminAddress));
    if (configure) {
        QCOMPARE(int(kept.size()), 1);
        QCOMPARE(kept[0], std::make_pair(typedPassword.toStdString(), wantReceived > 0));
    }
}

void MailTest::sendAdmin_data() {
    QTest::addColumn<bool>("configure");
    QTest::addColumn<QString>("wantTitle");
    QTest::addColumn<QString>("wantText");
    QTest::newRow("sent") << true << "Admin sent" << "Weekly Administation e-mail Sent OK";
    QTest::newRow("not set up") << false << "Admin not sent" << "Save Admin to File";
}

void MailTest::sendAdmin() {
    QFETCH(bool, configure);
    QFETCH(QString, wantTitle);
    QFETCH(QString, wantText);
    SmtpServer server({"plain", "manager", "secret", {}});
    QVERIFY(server.port() > 0);
    UiGame g;
    g.session().Clubs[0].Name = "KESTREL ROVERS";  // only capitals go to the administrator
    if (configure) enterSettings(g, server, "manager");
    g.controller->setPasswordProvider(
        {[](const MailSettings&) { return std::optional<std::string>("secret"); },
         [](const MailSettings&, const std::string&, bool) {}});
    g.controller->setMailTimeouts(5, 10);
    QSignalSpy finished(g.controller.get(), &ui::SessionController::mailFinished);
    g.window->showScreen("Admin");
    g.controller->selectClub(0);
    g.window->findChild<ui::AdminScreen*>()->chooseOption(11);
    g.messages.entries.clear();
    g.button("Admin", "btnEmailAdmin")->click();
    QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 1, 20000);

    const auto& told = g.messages.entries.back();
    QCOMPARE(ui::qs(told.title), wantTitle);
    QVERIFY2(ui::qs(told.text).contains(wantText), told.text.c_str());
    const std::vector<Received> got = server.messages();
    QCOMPARE(int(got.size()), configure ? 1 : 0);
    if (configure) {
        QCOMPARE(QString::fromStdString(got[0].header("Subject")), QString("Weekly administration"));
        QCOMPARE(QString::fromStdString(got[0].to.at(0)), ui::qs(g.session().Game.AdminAddress));
        QVERIFY(QString::fromStdString(got[0].body).contains("KESTREL ROVERS: Away Game Screening"));
    }
}

QTEST_MAIN(MailTest)
#include "mail_test.moc"
