#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <thread>
#include <tuple>

#include "core/clubview.h"
#include "core/gamefolder.h"
#include "core/text.h"
#include "files/mail.h"
#include "files/turnsheet.h"
#include "orders/playerdetails.h"
#include "support/smtpserver.h"
#include "support/testsupport.h"

using namespace kestrin;
using namespace kestrin::test;
namespace fs = std::filesystem;

namespace {

MailOptions quick() {
    MailOptions o;
    o.ConnectTimeoutSeconds = 3;
    o.TimeoutSeconds = 3;
    return o;
}

// Unencrypted settings for a server, as only this machine may have them.
MailSettings plain(const std::string& server, int port) {
    MailSettings s;
    s.Server = server;
    s.Port = port;
    s.Security = MailSecurity::None;
    s.Sender = "manager@club.example";
    return s;
}

// A game folder with no club, then one of two clubs with nothing left incomplete.
Session noClubs(const fs::path& folder) {
    Session s;
    s.Folder = GameFolder(folder);
    s.Game.GameName = "Kestrin Cup";
    s.Game.AdminAddress = "admin@league.example";
    return s;
}

Session twoClubs(const fs::path& folder) {
    Session s = noClubs(folder);
    for (const char* name : {"Ashford Athletic", "Bramley Town"}) {
        Club c;
        c.Name = name;
        c.ClubFile = std::string(name).substr(0, 3);
        c.LeagueNumber = "Division 2";
        c.Fixtures.resize(1);  // "No scheduled matches for next week": nothing incomplete
        c.FixtureCount = 1;
        s.Clubs.push_back(c);
    }
    return s;
}

// What a saved Turnsheet file becomes in the mail body: its first line,
// "League Number", gone, and a blank added; the line end that closes every
// message follows.
std::string expectedBody(const std::string& fileBytes) {
    const std::string label = "League Number\r\n";
    EXPECT_EQ(fileBytes.substr(0, label.size()), label);
    return cp1252ToUtf8(fileBytes.substr(label.size())) + " \r\n";
}

std::string lastShown(const RecordingMessages& m) {
    const auto all = test::shown(m);
    return all.empty() ? std::string() : all.back();
}

// ---- The messages built ------------------------------------------------------

TEST(MailMessages, TurnsheetsBecomeMessagesOfTheirFiles) {
    TempDir dir;
    const Session s = noClubs(dir.path());
    // Listed without regard to case: a.txt before B.txt before c.txt.
    dir.write("Turnsheet/B.txt", "League Number\r\nDivision 3\r\nBetting:\r\n\r\nMatch Number:\r\n 1 \r\nClub Name:\r\n"
                                 "Bramley Town\r\nPassword:\r\n\r\nClub Name:\r\nBramley Town\r\n");
    dir.write("Turnsheet/a.txt", "Betting:\nHome win\n");  // a file of a club no longer managed
    dir.write("Turnsheet/c.txt", "Club Name:\r\nCaldwell\r\nLeague Number\r\n2\r\n");
    dir.write("Turnsheet/notes.doc", "not a Turnsheet");

    const std::vector<MailMessage> got = turnsheetMessages(s);
    const std::vector<MailMessage> want = {
        {"admin@league.example", "Kestrin Cup Turnsheet", "Betting:\r\nHome win\r\n "},
        {"admin@league.example", "Division 3 - Kestrin Cup Turnsheet For Bramley Town",
         "Division 3\r\nBetting:\r\n\r\nMatch Number:\r\n 1 \r\nClub Name:\r\nBramley Town\r\nPassword:\r\n\r\n"
         "Club Name:\r\nBramley Town\r\n "},
        // The subject takes the league number known when "Club Name:" is met.
        {"admin@league.example", " - Kestrin Cup Turnsheet For Caldwell", "Club Name:\r\nCaldwell\r\n2\r\n "},
    };
    EXPECT_EQ(got, want);
}

TEST(MailMessages, NoTurnsheetSendsNothingAndStillSaysSent) {
    TempDir dir;
    Session s = noClubs(dir.path());
    RecordingMessages m;
    // No mail server is set up, which doesn't matter when there is nothing to send.
    EXPECT_TRUE(sendTurnsheets(s, MailSettings{}, quick(), m));
    EXPECT_EQ(test::shown(m), std::vector<std::string>{"Inform|Turnsheet sent|Turnsheet Sent OK"});
}

TEST(MailMessages, BytesOfAMessage) {
    MailSettings settings;
    settings.Sender = "manager@club.example";
    const std::string date = "Tue, 05 Mar 2024 14:03:09 +0100";
    const std::string id = "<1.2@club.example>";
    auto head = [&](const std::string& to, const std::string& subject, const std::string& encoding) {
        return "Date: " + date + "\r\nFrom: manager@club.example\r\nTo: " + to + "\r\nSubject: " + subject +
               "\r\nMessage-ID: " + id +
               "\r\nMIME-Version: 1.0\r\nContent-Type: text/plain; charset=utf-8\r\nContent-Transfer-Encoding: " +
               encoding + "\r\n\r\n";
    };
    const std::string longLine(1000, 'x');
    std::string longLineEncoded;  // soft breaks after 75 characters
    for (int i = 0; i < 13; ++i) longLineEncoded += std::string(75, 'x') + "=\r\n";
    longLineEncoded += std::string(25, 'x') + "=3D\r\n";
    struct Case {
        const char* why;
        MailMessage message;
        std::string bytes;
    };
    const Case cases[] = {
        {"plain ASCII", {"a@x.example", "Turnsheet", "Line one\r\n "}, head("a@x.example", "Turnsheet", "7bit") + "Line one\r\n \r\n"},
        {"several recipients, loose line ends",
         {"a@x.example; b@y.example", "Hi", "one\ntwo\rthree"},
         head("a@x.example, b@y.example", "Hi", "7bit") + "one\r\ntwo\r\nthree\r\n"},
        {"Windows-1252 text goes out as UTF-8",
         {"a@x.example", "Caf\xE9", "Jos\xE9 \x80 5\r\n"},
         head("a@x.example", "=?UTF-8?B?Q2Fmw6k=?=", "8bit") + "Jos\xC3\xA9 \xE2\x82\xAC 5\r\n"},
        {"a line too long for SMTP", {"a@x.example", "Long", longLine + "=\r\n"},
         head("a@x.example", "Long", "quoted-printable") + longLineEncoded},
        {"a subject can't add headers", {"a@x.example", "Hi\r\nBcc: c@z.example", "x"},
         head("a@x.example", "Hi  Bcc: c@z.example", "7bit") + "x\r\n"},
    };
    for (const Case& c : cases) EXPECT_EQ(mailMessageBytes(settings, c.message, date, id), c.bytes) << c.why;
}

TEST(MailMessages, LongSubjectIsCutIntoEncodedWordsOnCharacterBoundaries) {
    MailSettings settings;
    settings.Sender = "m@x.example";
    const std::string subject(40, '\xE9');  // 80 bytes of UTF-8
    const std::string bytes = mailMessageBytes(settings, {"a@x.example", subject, ""}, "D", "<i@x>");
    const size_t from = bytes.find("Subject: ") + 9;
    const std::string header = bytes.substr(from, bytes.find("\r\nMessage-ID") - from);
    // 22 characters (44 bytes) fit the first word, the other 18 the second.
    EXPECT_EQ(header, "=?UTF-8?B?w6nDqcOpw6nDqcOpw6nDqcOpw6nDqcOpw6nDqcOpw6nDqcOpw6nDqcOpw6k=?=\r\n =?UTF-8?B?w6nDqcOpw6nDqcOpw6nDqcOpw6nDqcOpw6nDqcOpw6nDqcOp?=");
    for (const std::string& line : splitLines(header)) EXPECT_LE(line.size(), 76u);
}

// ---- mail.ini -------------------------------------------------------------

TEST(MailSettingsFile, WrittenAndReadBack) {
    TempDir dir;
    GameFolder folder(dir.path());
    const MailSettings none = readMailSettings(folder);
    EXPECT_FALSE(none.configured());
    EXPECT_EQ(none, MailSettings{});

    MailSettings s;
    s.Server = "smtp.club.example";
    s.Port = 465;
    s.Security = MailSecurity::Tls;
    s.User = "manager";
    s.Sender = "manager@club.example";
    writeMailSettings(folder, s);
    EXPECT_EQ(dir.read("mail.ini"), "[Mail]\r\nServer=smtp.club.example\r\nPort=465\r\nSecurity=TLS\r\nUser=manager\r\n"
                                    "Sender=manager@club.example\r\n");
    EXPECT_EQ(readMailSettings(folder), s);
    EXPECT_TRUE(readMailSettings(folder).configured());

    // A hand-edited file: no port takes the usual one of its security, an
    // unknown security the safe one.
    fs::remove(dir.path() / "mail.ini");
    dir.write("MAIL.INI", "Server = mx.local\nSecurity=none\nPort=abc\nColour=blue\n");
    const MailSettings edited = readMailSettings(folder);
    EXPECT_EQ(std::tie(edited.Server, edited.Security, edited.Port),
              std::make_tuple("mx.local", MailSecurity::None, 25));
    dir.write("MAIL.INI", "Security=sometimes\n");
    const MailSettings unknown = readMailSettings(folder);
    EXPECT_EQ(std::tie(unknown.Security, unknown.Port), std::make_tuple(MailSecurity::StartTls, 587));
}

// ---- Against a real server ---------------------------------------------------

TEST(MailServer, EveryTurnsheetOfTheDemoLeagueArrivesAsSaved) {
    TempDir game;
    makeDemoLeague(game.path(), test::smallDemo(5));
    Session s = test::loadQuietly(game.path());
    ASSERT_GE(s.ClubCount(), 2);
    game.write("Turnsheet/zz-gone.txt", "Betting:\r\n\r\n");  // left by a club no longer managed
    SmtpServer server;
    ASSERT_NE(server.port(), 0);

    RecordingMessages m;
    std::vector<std::pair<size_t, size_t>> steps;
    MailOptions o = quick();
    o.Progress = [&](size_t done, size_t total) { steps.emplace_back(done, total); };
    ASSERT_TRUE(sendTurnsheets(s, server.settings(), o, m)) << lastShown(m);
    EXPECT_EQ(lastShown(m), "Inform|Turnsheet sent|Turnsheet Sent OK");

    const std::vector<std::string> files = s.Folder.list("Turnsheet", "*.txt");
    ASSERT_EQ(files.size(), size_t(s.ClubCount()) + 1);
    const std::vector<Received> got = server.messages();
    ASSERT_EQ(got.size(), files.size());
    EXPECT_EQ(server.connections(), 1);
    EXPECT_EQ(steps.size(), files.size() + 1);
    EXPECT_EQ(steps.back(), std::make_pair(files.size(), files.size()));

    const std::regex date(R"((Mon|Tue|Wed|Thu|Fri|Sat|Sun), \d\d (Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) \d{4} \d\d:\d\d:\d\d [+-]\d{4})");
    std::set<std::string> ids;
    for (size_t i = 0; i < files.size(); ++i) {
        const std::string bytes = game.read("Turnsheet/" + files[i]);
        const Received& r = got[i];
        SCOPED_TRACE(files[i]);
        EXPECT_EQ(r.from, "manager@club.example");
        EXPECT_EQ(r.to, std::vector<std::string>{s.Game.AdminAddress});
        EXPECT_EQ(r.header("To"), s.Game.AdminAddress);
        EXPECT_EQ(r.header("From"), "manager@club.example");
        EXPECT_EQ(r.header("Content-Type"), "text/plain; charset=utf-8");
        EXPECT_TRUE(std::regex_match(r.header("Date"), date)) << r.header("Date");
        ids.insert(r.header("Message-ID"));
        if (files[i] == "zz-gone.txt") {
            EXPECT_EQ(r.header("Subject"), s.Game.GameName + " Turnsheet");
            EXPECT_EQ(r.body, "Betting:\r\n\r\n \r\n");
            continue;
        }
        const Club* club = nullptr;
        for (const Club& c : s.Clubs)
            if (turnsheetPath(s, c).filename() == files[i]) club = &c;
        ASSERT_NE(club, nullptr);
        EXPECT_EQ(bytes, turnsheetText(*club));  // saved before sending
        EXPECT_EQ(r.header("Subject"), club->LeagueNumber + " - " + s.Game.GameName + " Turnsheet For " + club->Name);
        EXPECT_EQ(r.body, expectedBody(bytes));
    }
    EXPECT_EQ(ids.size(), files.size());
}

// Login and encryption that work, and each way a send can fail: the failing
// message and the reason are told, and the Turnsheets stay saved.
TEST(MailServer, LoginEncryptionAndFailures) {
    struct Case {
        const char* why;
        ServerOptions server;
        MailSecurity security;
        std::string user, password;
        bool trustCertificate;
        bool serverUp;
        std::string told;  // "" when sent
    };
    const std::vector<Case> cases = {
        {"login", {"plain", "coach", "s3cret!", {}}, MailSecurity::None, "coach", "s3cret!", false, true, ""},
        {"STARTTLS and login", {"starttls", "coach", "s3cret!", {}}, MailSecurity::StartTls, "coach", "s3cret!", true, true, ""},
        {"TLS from the start", {"tls", "", "", {}}, MailSecurity::Tls, "", "", true, true, ""},
        {"wrong password", {"plain", "coach", "s3cret!", {}}, MailSecurity::None, "coach", "guess", false, true,
         "could not be sent: the mail server refused the login of \"coach\"; check the user name and the password"},
        {"refused recipient", {"plain", "", "", {"admin@league.example"}}, MailSecurity::None, "", "", false, true,
         "could not be sent: the mail server refused the recipient admin@league.example"},
        {"certificate not trusted", {"starttls", "", "", {}}, MailSecurity::StartTls, "", "", false, true,
         "could not be sent: the certificate of the mail server at 127.0.0.1"},
        {"no server", {}, MailSecurity::None, "", "", false, false, "could not be sent: no mail server answered at 127.0.0.1"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        TempDir game;
        Session s = twoClubs(game.path());
        std::unique_ptr<SmtpServer> server;
        MailSettings settings;
        if (c.serverUp) {
            server = std::make_unique<SmtpServer>(c.server);
            ASSERT_NE(server->port(), 0);
            settings = server->settings(c.security);
        } else {
            settings = SmtpServer(c.server).settings(c.security);
            settings.Port = closedPort();
        }
        settings.User = c.user;
        if (c.trustCertificate) settings.CaFile = certificate().cert.string();
        MailOptions o = quick();
        o.Password = c.password;
        RecordingMessages m;
        const bool sent = sendTurnsheets(s, settings, o, m);
        EXPECT_EQ(sent, c.told.empty());
        for (const Club& club : s.Clubs) EXPECT_EQ(readFileBytes(turnsheetPath(s, club)), turnsheetText(club));
        if (c.told.empty()) {
            EXPECT_EQ(lastShown(m), "Inform|Turnsheet sent|Turnsheet Sent OK");
            EXPECT_EQ(server->messages().size(), 2u);
            continue;
        }
        const std::string folder = (game.path() / "Turnsheet").string();
        EXPECT_EQ(lastShown(m).rfind(
                      "Refuse|Turnsheet not sent|The turnsheet \"Division 2 - Kestrin Cup Turnsheet For Ashford Athletic\" (1 of 2, ",
                      0),
                  0u);
        EXPECT_NE(lastShown(m).find("to admin@league.example) " + c.told), std::string::npos) << lastShown(m);
        EXPECT_NE(lastShown(m).find("None of the turnsheets went out.\r\n\r\nYour turnsheets have been saved in the folder " +
                                    folder + "."),
                  std::string::npos)
            << lastShown(m);
        if (server) {
            EXPECT_TRUE(server->messages().empty());
        }
    }
}

TEST(MailServer, SilentServerTimesOutAndCancelStops) {
    SilentServer silent;
    ASSERT_NE(silent.port(), 0);
    const MailSettings settings = plain("127.0.0.1", silent.port());
    const std::vector<MailMessage> mail = {{"admin@league.example", "S", "B"}};

    MailOptions o;
    o.ConnectTimeoutSeconds = 2;
    o.TimeoutSeconds = 2;
    auto start = std::chrono::steady_clock::now();
    MailOutcome out = sendMail(settings, mail, o);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(6));
    EXPECT_EQ(out.Status, MailStatus::Failed);
    EXPECT_EQ(out.Reason.rfind("the mail server at 127.0.0.1 (port " + std::to_string(silent.port()) +
                                   ") did not answer in time",
                               0),
              0u)
        << out.Reason;

    // The cancel flag of the screen's Cancel button, pressed while waiting.
    std::atomic<bool> cancel{false};
    o.ConnectTimeoutSeconds = o.TimeoutSeconds = 30;
    o.Cancel = &cancel;
    std::thread press([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        cancel = true;
    });
    start = std::chrono::steady_clock::now();
    out = sendMail(settings, mail, o);
    press.join();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    EXPECT_EQ(out.Status, MailStatus::Cancelled);
    EXPECT_EQ(out.SentCount, 0u);
}

TEST(MailServer, NoEncryptionOnlyOnThisMachine) {
    struct Case {
        const char* server;
        bool local;
    };
    const Case cases[] = {{"localhost", true},           {"127.0.0.1", true},  {"::1", true},
                          {"LocalHost", true},           {"127.0.0.2", false}, {"mail.example.org", false},
                          {"localhost.example.org", false}, {"10.0.0.1", false}};
    for (const Case& c : cases) {
        EXPECT_EQ(isLocalServer(c.server), c.local) << c.server;
        if (c.local) continue;
        const auto start = std::chrono::steady_clock::now();
        const MailOutcome out = sendMail(plain(c.server, 25), {{"admin@league.example", "S", "B"}}, quick());
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(200));
        EXPECT_EQ(out.Status, MailStatus::Refused) << c.server;
        EXPECT_EQ(out.Reason, "the mail settings ask for no encryption, which is allowed only for a server on this "
                              "machine, not for " + std::string(c.server));
    }

    TempDir game;
    Session s = twoClubs(game.path());
    RecordingMessages m;
    EXPECT_FALSE(sendTurnsheets(s, plain("mail.example.org", 587), quick(), m));
    EXPECT_EQ(lastShown(m),
              "Refuse|Turnsheet not sent|The turnsheets were not sent: the mail settings ask for no encryption, which is "
              "allowed only for a server on this machine, not for mail.example.org.\r\n\r\nYour turnsheets have been "
              "saved in the folder " + (game.path() / "Turnsheet").string() +
                  ". Check the mail settings and send again, or send them to admin@league.example yourself.");
    EXPECT_TRUE(fs::exists(turnsheetPath(s, s.Clubs[0])));
}

TEST(MailServer, PlayerDetailsToOneManagerOrAll) {
    SmtpServer server;
    ASSERT_NE(server.port(), 0);
    TempDir game;
    Session s = twoClubs(game.path());
    s.ManagerList = {{"Ann Boss", "ann@a.example"}, {"No Mail", "none"}, {"Bob Gaffer", "bob@b.example"}};
    Club club = s.Clubs[0];
    Player p;
    p.Name = "Jos\xE9 Cruz";
    const std::string text = createDetails(club, p);
    struct Case {
        std::string choice;
        std::vector<std::string> envelope;
        std::string told;
    };
    const Case cases[] = {
        {"Ann Boss", {"ann@a.example"}, "Inform|Email sent|Player Details e-mail Sent OK to Ann Boss"},
        {"(All Managers)", {"ann@a.example", "bob@b.example"}, "Inform|Email sent|Player Details e-mail Sent OK to (All Managers)"},
        {"", {}, "Refuse|No manager selected|Please choose who you want to email the details to"},
        {"No Mail", {}, "Refuse|Problem in emailing file|" + std::string(kDetailsNotSentText) +
                            "\r\n\r\nThe manager list holds no e-mail address for No Mail."},
    };
    size_t arrived = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.choice);
        RecordingMessages m;
        EXPECT_EQ(sendPlayerDetails(s, club, p, c.choice, text, server.settings(), quick(), m), !c.envelope.empty());
        EXPECT_EQ(test::shown(m), std::vector<std::string>{c.told});
        const std::vector<Received> got = server.messages();
        if (c.envelope.empty()) {
            EXPECT_EQ(got.size(), arrived);
            continue;
        }
        ASSERT_EQ(got.size(), ++arrived);
        EXPECT_EQ(got.back().to, c.envelope);
        EXPECT_EQ(got.back().header("Subject"),
                  "=?UTF-8?B?UGxheWVyIERldGFpbHMgZnJvbSBBc2hmb3JkIEF0aGxldGljIEpvc8OpIENy?=\r\n =?UTF-8?B?dXo=?=");
        EXPECT_EQ(got.back().body, cp1252ToUtf8(text));
    }

    // A server that refuses the address: the game's words, then the reason.
    SmtpServer refusing({"plain", "", "", {"ann@a.example"}});
    RecordingMessages m;
    EXPECT_FALSE(sendPlayerDetails(s, club, p, "Ann Boss", text, refusing.settings(), quick(), m));
    EXPECT_EQ(lastShown(m).rfind("Refuse|Problem in emailing file|" + std::string(kDetailsNotSentText) +
                                     "\r\n\r\nThe reason: the mail server refused the recipient ann@a.example",
                                 0),
              0u)
        << lastShown(m);
}

}  // namespace
