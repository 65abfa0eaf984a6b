#pragma once
// Mail over SMTP: the settings of mail.ini, a sender that keeps one
// connection for every message of a send, and the messages the game sends:
// Turnsheets to the administrator and player details to other managers.
// No Qt: the screens run sendMail off their thread and show what it returns.
#include <atomic>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/gamefolder.h"
#include "core/messages.h"
#include "core/records.h"
#include "core/session.h"

namespace kestrin {

// ---- Settings ---------------------------------------------------------------

enum class MailSecurity { StartTls, Tls, None };

std::string_view securityName(MailSecurity security);  // "STARTTLS", "TLS", "none"
// The usual port of each: 587, 465, 25.
int defaultMailPort(MailSecurity security);

struct MailSettings {
    std::string Server;
    int Port = 587;
    MailSecurity Security = MailSecurity::StartTls;
    std::string User;    // empty: no login
    std::string Sender;  // the From address
    // A certificate file to trust besides the system's (a private server);
    // empty for the system's store alone.
    std::string CaFile;
    bool configured() const { return !Server.empty() && !Sender.empty(); }
    bool operator==(const MailSettings&) const = default;
};

inline constexpr std::string_view kMailIniFile = "mail.ini";

// A missing file gives the defaults, with nothing configured. Unknown keys
// and values that can't be read leave their defaults.
MailSettings readMailSettings(const GameFolder& folder);
// Written whole or not at all. Never holds a password. Throws WriteError.
void writeMailSettings(const GameFolder& folder, const MailSettings& settings);

// Whether a server name stands for this machine; only those may be reached
// without encryption.
bool isLocalServer(std::string_view server);

// The security picked on the Preferences screen. The port follows the usual
// port of the new security unless the manager typed another. No encryption
// to another machine is refused: `refusal` then says why, and the settings
// are those given.
struct SecurityChoice {
    MailSettings settings;
    std::string refusal;
};
SecurityChoice chooseMailSecurity(const MailSettings& current, MailSecurity security);

// ---- Messages and sending ---------------------------------------------------

// One message as the game builds it: Windows-1252 text, lines ending CR LF.
// To may hold several addresses separated by ";" or ",".
struct MailMessage {
    std::string To;
    std::string Subject;
    std::string Body;
    bool operator==(const MailMessage&) const = default;
};

struct MailOptions {
    std::string Password;  // never stored by us: the caller brings it
    long ConnectTimeoutSeconds = 20;
    long TimeoutSeconds = 60;  // for each message, from connecting to the server's last reply
    const std::atomic<bool>* Cancel = nullptr;
    // Called before each message (done = messages sent so far) and once at the end.
    std::function<void(size_t done, size_t total)> Progress;
};

enum class MailStatus { Sent, Refused, Failed, Cancelled };

struct MailOutcome {
    MailStatus Status = MailStatus::Sent;
    size_t SentCount = 0;     // messages accepted by the server, from the first
    size_t FailedIndex = 0;   // 0-based; meaningful unless Sent
    std::string Reason;       // plain words, Windows-1252
    bool ok() const { return Status == MailStatus::Sent; }
};

// The whole message with its headers, CR LF throughout, as the server gets it.
// Text goes out as UTF-8; a subject that isn't ASCII is encoded as RFC 2047 asks.
std::string mailMessageBytes(const MailSettings& settings, const MailMessage& message,
                             std::string_view date, std::string_view messageId);
// "Tue, 05 Mar 2024 14:03:09 +0100" for now, local time.
std::string mailDateNow();

// Sends every message over one connection, stopping at the first failure.
// Refused (nothing sent) when the settings are incomplete or ask for no
// encryption to another machine. Never throws for a failure of the network.
MailOutcome sendMail(const MailSettings& settings, const std::vector<MailMessage>& messages,
                     const MailOptions& options);

// ---- Send turnsheets --------------------------------------------------------

inline constexpr std::string_view kTurnsheetSentTitle = "Turnsheet sent";
inline constexpr std::string_view kTurnsheetSentText = "Turnsheet Sent OK";

// One message per file of Turnsheet/*.txt, in listing order, to AdminAddress.
std::vector<MailMessage> turnsheetMessages(const Session& session);

// What comes before sending, on the interface thread: the incomplete check
// when WarnInc asks for it on sending, then Save turnsheet. The messages to
// send, or nothing when the manager stopped or the files could not be saved
// (already told).
std::optional<std::vector<MailMessage>> prepareTurnsheetMail(Session& session, Messages& messages);
// Tells how the send went: "Turnsheet Sent OK", or which message failed and
// why, and where the saved Turnsheets are. Returns whether all were sent.
bool tellTurnsheetOutcome(const Session& session, const std::vector<MailMessage>& sent, const MailOutcome& outcome,
                          Messages& messages);
// Tells that the Turnsheets were saved, where, and not sent because no mail
// server is set up yet, and where the program takes the mail settings.
void tellMailNotSetUp(const Session& session, Messages& messages);
// The three in a row.
bool sendTurnsheets(Session& session, const MailSettings& settings, const MailOptions& options, Messages& messages);

// ---- Player details ---------------------------------------------------------

// The message of btnEmailDetails to the manager chosen in EmailTo (a name of
// the manager list, or "(All Managers)"). A refusal carries the title and
// text to show: no manager chosen, or no address to send to.
struct DetailsMail {
    std::optional<MailMessage> message;
    std::string title;
    std::string text;
};
DetailsMail playerDetailsMessage(const Session& session, const Club& club, const Player& player,
                                 std::string_view choice, std::string_view detailsText);
// Tells "Problem in emailing file": no mail server is set up yet, and where to.
void tellDetailsMailNotSetUp(Messages& messages);
// Tells "Email sent" or "Problem in emailing file". Returns whether it was sent.
bool tellDetailsOutcome(std::string_view choice, const MailOutcome& outcome, Messages& messages);

// The Weekly Administration text to the administrator, "Weekly administration".
MailMessage adminMailMessage(const Session& session, const std::string& text);
inline constexpr std::string_view kAdminSentTitle = "Admin sent";
inline constexpr std::string_view kAdminSentText = "Weekly Administation e-mail Sent OK";
// The outcome, or mail not set up, told with the manual way: the saved file.
void tellAdminMailNotSetUp(Messages& messages);
bool tellAdminOutcome(const MailOutcome& outcome, Messages& messages);
// Builds, sends and tells.
bool sendPlayerDetails(const Session& session, const Club& club, const Player& player, std::string_view choice,
                       std::string_view detailsText, const MailSettings& settings, const MailOptions& options,
                       Messages& messages);

}  // namespace kestrin
