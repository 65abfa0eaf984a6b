#include "files/mail.h"

#include <curl/curl.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstring>
#include <ctime>
#include <mutex>
#include <random>

#include "core/clubview.h"
#include "core/errors.h"
#include "core/text.h"
#include "files/turnsheet.h"
#include "orders/playerdetails.h"

namespace kestrin {

// ---- Settings ---------------------------------------------------------------

std::string_view securityName(MailSecurity security) {
    switch (security) {
        case MailSecurity::StartTls: return "STARTTLS";
        case MailSecurity::Tls: return "TLS";
        case MailSecurity::None: return "none";
    }
    return "STARTTLS";
}

int defaultMailPort(MailSecurity security) {
    switch (security) {
        case MailSecurity::StartTls: return 587;
        case MailSecurity::Tls: return 465;
        case MailSecurity::None: return 25;
    }
    return 587;
}

MailSettings readMailSettings(const GameFolder& folder) {
    MailSettings s;
    const fs::path path = folder.resolve(kMailIniFile);
    std::error_code ec;
    if (!fs::is_regular_file(path, ec)) return s;
    std::vector<std::string> lines;
    try {
        lines = readLines(path);
    } catch (const GameFileError&) {
        return s;
    }
    bool portGiven = false;
    for (const std::string& line : lines) {
        const size_t eq = line.find('=');
        if (eq == std::string::npos) continue;
        const std::string key = lower(trim(std::string_view(line).substr(0, eq)));
        const std::string value = trim(std::string_view(line).substr(eq + 1));
        if (key == "server") s.Server = value;
        else if (key == "user") s.User = value;
        else if (key == "sender") s.Sender = value;
        else if (key == "cafile") s.CaFile = value;
        else if (key == "security") {
            if (equalsNoCase(value, "TLS")) s.Security = MailSecurity::Tls;
            else if (equalsNoCase(value, "none")) s.Security = MailSecurity::None;
            else s.Security = MailSecurity::StartTls;  // the safe choice for anything unknown
        } else if (key == "port") {
            try {
                const int port = parseInt32(value);
                if (port > 0 && port < 65536) s.Port = port, portGiven = true;
            } catch (const FieldError&) {
            }
        }
    }
    if (!portGiven) s.Port = defaultMailPort(s.Security);
    return s;
}

void writeMailSettings(const GameFolder& folder, const MailSettings& s) {
    auto clean = [](std::string v) {
        for (char& c : v)
            if (c == '\r' || c == '\n') c = ' ';
        return trim(v);
    };
    std::vector<std::string> lines = {
        "[Mail]",
        "Server=" + clean(s.Server),
        "Port=" + std::to_string(s.Port),
        "Security=" + std::string(securityName(s.Security)),
        "User=" + clean(s.User),
        "Sender=" + clean(s.Sender),
    };
    if (!s.CaFile.empty()) lines.push_back("CaFile=" + clean(s.CaFile));
    writeFileAtomic(folder.resolve(kMailIniFile), joinCrLf(lines));
}

bool isLocalServer(std::string_view server) {
    const std::string s = lower(trim(server));
    return s == "localhost" || s == "localhost." || s == "127.0.0.1" || s == "::1" || s == "[::1]";
}

// ---- Message bytes ----------------------------------------------------------

namespace {

constexpr const char* kCrLf = "\r\n";

std::string oneLine(std::string_view v) {
    std::string s(v);
    for (char& c : s)
        if (c == '\r' || c == '\n') c = ' ';
    return s;
}

bool isAscii(std::string_view s) {
    for (unsigned char c : s)
        if (c >= 0x80) return false;
    return true;
}

std::vector<std::string> splitAddresses(std::string_view to) {
    std::vector<std::string> out;
    std::string cur;
    auto flush = [&] {
        std::string a = trim(cur);
        if (!a.empty()) out.push_back(a);
        cur.clear();
    };
    for (char c : to) {
        if (c == ';' || c == ',') flush();
        else cur += c;
    }
    flush();
    return out;
}

std::string base64(std::string_view in) {
    static const char* t = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    size_t i = 0;
    for (; i + 2 < in.size(); i += 3) {
        const unsigned v = (unsigned char)in[i] << 16 | (unsigned char)in[i + 1] << 8 | (unsigned char)in[i + 2];
        out += t[v >> 18], out += t[(v >> 12) & 63], out += t[(v >> 6) & 63], out += t[v & 63];
    }
    if (i + 1 == in.size()) {
        const unsigned v = (unsigned char)in[i] << 16;
        out += t[v >> 18], out += t[(v >> 12) & 63], out += "==";
    } else if (i + 2 == in.size()) {
        const unsigned v = (unsigned char)in[i] << 16 | (unsigned char)in[i + 1] << 8;
        out += t[v >> 18], out += t[(v >> 12) & 63], out += t[(v >> 6) & 63], out += '=';
    }
    return out;
}

// Encoded words of at most 75 characters, never splitting a character.
std::string encodedSubject(const std::string& utf8) {
    std::string out;
    size_t from = 0;
    while (from < utf8.size()) {
        size_t end = std::min(utf8.size(), from + 45);
        while (end < utf8.size() && end > from && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80) --end;
        if (!out.empty()) out += "\r\n ";
        out += "=?UTF-8?B?" + base64(std::string_view(utf8).substr(from, end - from)) + "?=";
        from = end;
    }
    return out;
}

// Every line end as CR LF, and the text closed by one, as SMTP wants.
std::string crLfText(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 8);
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r') {
            out += kCrLf;
            if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else if (c == '\n') {
            out += kCrLf;
        } else {
            out += c;
        }
    }
    if (out.size() < 2 || out.compare(out.size() - 2, 2, kCrLf) != 0) out += kCrLf;
    return out;
}

bool linesWithin(std::string_view text, size_t limit) {
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(kCrLf, start);
        if (end == std::string_view::npos) end = text.size();
        if (end - start > limit) return false;
        start = end + 2;
    }
    return true;
}

std::string quotedPrintable(std::string_view text) {
    static const char* hex = "0123456789ABCDEF";
    std::string out;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(kCrLf, start);
        if (end == std::string_view::npos) end = text.size();
        size_t width = 0;
        for (size_t i = start; i < end; ++i) {
            const unsigned char c = static_cast<unsigned char>(text[i]);
            const bool last = i + 1 == end;
            std::string piece;
            if ((c >= 33 && c <= 126 && c != '=') || ((c == ' ' || c == '\t') && !last)) piece = char(c);
            else piece = std::string("=") + hex[c >> 4] + hex[c & 15];
            if (width + piece.size() > 75) out += "=\r\n", width = 0;
            out += piece;
            width += piece.size();
        }
        out += kCrLf;
        start = end + 2;
    }
    return out;
}

std::string senderDomain(std::string_view sender) {
    const size_t at = sender.rfind('@');
    std::string d = at == std::string_view::npos ? std::string() : trim(sender.substr(at + 1));
    for (char c : d)
        if (!(std::isalnum(static_cast<unsigned char>(c)) || c == '.' || c == '-')) return "kestrin.localhost";
    return d.empty() ? "kestrin.localhost" : d;
}

std::string newMessageId(std::string_view sender) {
    static std::mutex m;
    static std::mt19937_64 rng{std::random_device{}()};
    uint64_t r;
    {
        std::lock_guard lock(m);
        r = rng();
    }
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    char buf[64];
    std::snprintf(buf, sizeof buf, "%llx.%016llx",
                  static_cast<unsigned long long>(std::chrono::duration_cast<std::chrono::microseconds>(now).count()),
                  static_cast<unsigned long long>(r));
    return "<" + std::string(buf) + "@" + senderDomain(sender) + ">";
}

}  // namespace

std::string mailDateNow() {
    static const char* days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    const long offset = tm.tm_gmtoff / 60;
    const long absOffset = offset < 0 ? -offset : offset;
    char buf[64];
    std::snprintf(buf, sizeof buf, "%s, %02d %s %04d %02d:%02d:%02d %c%02ld%02ld", days[tm.tm_wday], tm.tm_mday,
                  months[tm.tm_mon], tm.tm_year + 1900, tm.tm_hour, tm.tm_min, tm.tm_sec, offset < 0 ? '-' : '+',
                  absOffset / 60, absOffset % 60);
    return buf;
}

std::string mailMessageBytes(const MailSettings& settings, const MailMessage& message, std::string_view date,
                             std::string_view messageId) {
    std::string to;
    for (const std::string& a : splitAddresses(message.To)) to += (to.empty() ? "" : ", ") + oneLine(a);
    const std::string subject = cp1252ToUtf8(oneLine(message.Subject));
    const std::string body = crLfText(cp1252ToUtf8(message.Body));

    std::string encoding = "7bit";
    std::string encodedBody = body;
    if (!linesWithin(body, 998)) encoding = "quoted-printable", encodedBody = quotedPrintable(body);
    else if (!isAscii(body)) encoding = "8bit";

    std::string m;
    m += "Date: " + std::string(date) + kCrLf;
    m += "From: " + oneLine(trim(settings.Sender)) + kCrLf;
    m += "To: " + to + kCrLf;
    m += "Subject: " + (isAscii(subject) ? subject : encodedSubject(subject)) + kCrLf;
    m += "Message-ID: " + std::string(messageId) + kCrLf;
    m += "MIME-Version: 1.0\r\n";
    m += "Content-Type: text/plain; charset=utf-8\r\n";
    m += "Content-Transfer-Encoding: " + encoding + kCrLf;
    m += kCrLf;
    m += encodedBody;
    return m;
}

// ---- Sending ----------------------------------------------------------------

namespace {

struct Upload {
    std::string bytes;
    size_t offset = 0;
};

size_t readUpload(char* buffer, size_t size, size_t count, void* user) {
    auto* u = static_cast<Upload*>(user);
    const size_t n = std::min(size * count, u->bytes.size() - u->offset);
    std::memcpy(buffer, u->bytes.data() + u->offset, n);
    u->offset += n;
    return n;
}

int cancelCheck(void* user, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    const auto* cancel = static_cast<const std::atomic<bool>*>(user);
    return cancel && cancel->load() ? 1 : 0;
}

void initCurlOnce() {
    static std::once_flag once;
    std::call_once(once, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
}

std::string serverWords(const MailSettings& s) { return s.Server + " (port " + std::to_string(s.Port) + ")"; }

std::string failureReason(CURLcode code, const char* detail, const MailSettings& s, const MailMessage& message) {
    const std::string d = detail && *detail ? std::string(detail) : std::string(curl_easy_strerror(code));
    const std::string server = serverWords(s);
    switch (code) {
        case CURLE_COULDNT_RESOLVE_HOST:
            return "the mail server " + s.Server + " could not be found (" + d + ")";
        case CURLE_COULDNT_CONNECT:
            return "no mail server answered at " + server + " (" + d + ")";
        case CURLE_OPERATION_TIMEDOUT:
            return "the mail server at " + server + " did not answer in time (" + d + ")";
        case CURLE_LOGIN_DENIED:
            return "the mail server refused the login of \"" + s.User +
                   "\"; check the user name and the password (" + d + ")";
        case CURLE_USE_SSL_FAILED:
            return "the mail server at " + server + " does not offer STARTTLS, so the connection can't be secured";
        case CURLE_PEER_FAILED_VERIFICATION:
            return "the certificate of the mail server at " + server + " could not be verified (" + d + ")";
        case CURLE_SSL_CONNECT_ERROR:
            return "a secure connection to the mail server at " + server + " could not be made (" + d + ")";
        case CURLE_SEND_ERROR:
            if (d.find("RCPT") != std::string::npos)
                return "the mail server refused the recipient " + message.To + " (" + d + ")";
            if (d.find("MAIL") != std::string::npos)
                return "the mail server refused the sender " + s.Sender + " (" + d + ")";
            return "the connection to the mail server was lost (" + d + ")";
        case CURLE_RECV_ERROR:
        case CURLE_GOT_NOTHING:
        case CURLE_WEIRD_SERVER_REPLY:
            return "the connection to the mail server was lost (" + d + ")";
        default:
            return "the mail server at " + server + " did not take the message (" + d + ")";
    }
}

}  // namespace

SecurityChoice chooseMailSecurity(const MailSettings& current, MailSecurity security) {
    SecurityChoice out{current, {}};
    if (security == MailSecurity::None && !isLocalServer(current.Server)) {
        out.refusal = "Sending without encryption is allowed only to a mail server on this computer, not to " +
                      (trim(current.Server).empty() ? std::string("a server not yet named") : current.Server) +
                      ": your password and your turnsheets would cross the network for anyone to read. "
                      "Choose STARTTLS or TLS.";
        return out;
    }
    if (current.Port == defaultMailPort(current.Security)) out.settings.Port = defaultMailPort(security);
    out.settings.Security = security;
    return out;
}

MailOutcome sendMail(const MailSettings& settings, const std::vector<MailMessage>& messages,
                     const MailOptions& options) {
    MailOutcome out;
    const size_t total = messages.size();
    auto progress = [&](size_t done) {
        if (options.Progress) options.Progress(done, total);
    };
    auto refuse = [&](std::string reason) {
        out.Status = MailStatus::Refused;
        out.Reason = std::move(reason);
        return out;
    };
    if (total == 0) {
        progress(0);
        return out;
    }
    if (trim(settings.Server).empty()) return refuse("no mail server is set up in mail.ini of the game folder");
    if (trim(settings.Sender).empty()) return refuse("no sender address is set up in mail.ini of the game folder");
    if (settings.Port <= 0 || settings.Port > 65535) return refuse("the port " + std::to_string(settings.Port) + " is not a port");
    if (settings.Security == MailSecurity::None && !isLocalServer(settings.Server))
        return refuse("the mail settings ask for no encryption, which is allowed only for a server on this machine, not for " +
                      settings.Server);
    for (size_t i = 0; i < total; ++i)
        if (splitAddresses(messages[i].To).empty()) {
            out.FailedIndex = i;
            return refuse("there is no address to send it to");
        }

    initCurlOnce();
    CURL* curl = curl_easy_init();
    if (!curl) return refuse("the mail library could not be started");

    std::string host = trim(settings.Server);
    if (host.find(':') != std::string::npos && host.front() != '[') host = "[" + host + "]";
    const std::string url = std::string(settings.Security == MailSecurity::Tls ? "smtps://" : "smtp://") + host + ":" +
                            std::to_string(settings.Port) + "/" + senderDomain(settings.Sender);
    char errors[CURL_ERROR_SIZE];

    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, errors);
    curl_easy_setopt(curl, CURLOPT_USE_SSL,
                     settings.Security == MailSecurity::None ? long(CURLUSESSL_NONE) : long(CURLUSESSL_ALL));
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, 1L);
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, 2L);
    if (!settings.CaFile.empty()) curl_easy_setopt(curl, CURLOPT_CAINFO, settings.CaFile.c_str());
    if (!settings.User.empty()) {
        curl_easy_setopt(curl, CURLOPT_USERNAME, settings.User.c_str());
        curl_easy_setopt(curl, CURLOPT_PASSWORD, options.Password.c_str());
    }
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT, options.ConnectTimeoutSeconds);
    curl_easy_setopt(curl, CURLOPT_TIMEOUT, options.TimeoutSeconds);
    curl_easy_setopt(curl, CURLOPT_SERVER_RESPONSE_TIMEOUT, options.TimeoutSeconds);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, cancelCheck);
    curl_easy_setopt(curl, CURLOPT_XFERINFODATA, options.Cancel);
    const std::string from = "<" + trim(settings.Sender) + ">";
    curl_easy_setopt(curl, CURLOPT_MAIL_FROM, from.c_str());
    curl_easy_setopt(curl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(curl, CURLOPT_READFUNCTION, readUpload);

    for (size_t i = 0; i < total; ++i) {
        progress(i);
        if (options.Cancel && options.Cancel->load()) {
            out.Status = MailStatus::Cancelled;
            out.FailedIndex = i;
            out.Reason = "sending was stopped";
            break;
        }
        const MailMessage& message = messages[i];
        Upload upload{mailMessageBytes(settings, message, mailDateNow(), newMessageId(settings.Sender)), 0};
        curl_slist* recipients = nullptr;
        for (const std::string& a : splitAddresses(message.To)) recipients = curl_slist_append(recipients, ("<" + a + ">").c_str());
        curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, recipients);
        curl_easy_setopt(curl, CURLOPT_READDATA, &upload);
        curl_easy_setopt(curl, CURLOPT_INFILESIZE_LARGE, curl_off_t(upload.bytes.size()));
        errors[0] = '\0';
        const CURLcode code = curl_easy_perform(curl);
        curl_easy_setopt(curl, CURLOPT_MAIL_RCPT, nullptr);
        curl_slist_free_all(recipients);
        if (code != CURLE_OK) {
            out.FailedIndex = i;
            if (code == CURLE_ABORTED_BY_CALLBACK) {
                out.Status = MailStatus::Cancelled;
                out.Reason = "sending was stopped";
            } else {
                out.Status = MailStatus::Failed;
                out.Reason = utf8ToCp1252(failureReason(code, errors, settings, message));
            }
            break;
        }
        ++out.SentCount;
    }
    curl_easy_cleanup(curl);
    if (out.ok()) progress(total);
    return out;
}

// ---- Send turnsheets --------------------------------------------------------

std::vector<MailMessage> turnsheetMessages(const Session& session) {
    std::vector<MailMessage> out;
    const std::string game = session.Game.GameName;
    for (const std::string& name : session.Folder.list("Turnsheet", "*.txt")) {
        const std::vector<std::string> lines = readLines(session.Folder.resolve("Turnsheet/" + name));
        MailMessage m;
        m.To = session.Game.AdminAddress;
        m.Subject = game + " Turnsheet";
        std::string leagueNumber;
        for (size_t i = 0; i < lines.size(); ++i) {
            if (lines[i] == "League Number") {
                if (i + 1 >= lines.size()) break;
                leagueNumber = lines[++i];
                m.Body += leagueNumber + kCrLf;
                continue;
            }
            m.Body += lines[i] + kCrLf;
            if (lines[i] == "Club Name:" && i + 1 < lines.size()) {
                const std::string& clubName = lines[++i];
                m.Subject = leagueNumber + " - " + game + " Turnsheet For " + clubName;
                m.Body += clubName + kCrLf;
            }
        }
        m.Body += " ";
        out.push_back(std::move(m));
    }
    return out;
}

std::optional<std::vector<MailMessage>> prepareTurnsheetMail(Session& session, Messages& messages) {
    if (session.Prefs.WarnInc == 1 && !checkIncomplete(session, messages)) return std::nullopt;
    if (!saveTurnsheetsTelling(session, messages)) return std::nullopt;
    try {
        return turnsheetMessages(session);
    } catch (const GameFileError& e) {
        messages.refuse(std::string(kNotSentTitle),
                        "The turnsheet " + e.file + " could not be read for sending (" + e.detail() +
                            "), so nothing was sent.\r\n\r\nYour turnsheets have been saved in the folder " +
                            utf8ToCp1252(fs::absolute(session.Folder.resolve("Turnsheet")).string()) + ".");
        return std::nullopt;
    }
}

bool tellTurnsheetOutcome(const Session& session, const std::vector<MailMessage>& sent, const MailOutcome& outcome,
                          Messages& messages) {
    if (outcome.ok()) {
        messages.inform(std::string(kTurnsheetSentTitle), std::string(kTurnsheetSentText));
        return true;
    }
    const std::string folder = utf8ToCp1252(fs::absolute(session.Folder.resolve("Turnsheet")).string());
    const size_t total = sent.size();
    std::string text;
    if (outcome.Status == MailStatus::Refused) {
        text = "The turnsheets were not sent: " + outcome.Reason + ".";
    } else {
        const MailMessage* failed = outcome.FailedIndex < total ? &sent[outcome.FailedIndex] : nullptr;
        if (outcome.Status == MailStatus::Cancelled) text = "Sending was stopped";
        else text = "The turnsheet";
        if (failed) {
            text += (outcome.Status == MailStatus::Cancelled ? " before the turnsheet \"" : " \"") + failed->Subject +
                    "\" (" + std::to_string(outcome.FailedIndex + 1) + " of " + std::to_string(total) + ", to " +
                    failed->To + ")";
        }
        if (outcome.Status == MailStatus::Cancelled) text += ".";
        else text += " could not be sent: " + outcome.Reason + ".";
        if (outcome.SentCount == 0) text += " None of the turnsheets went out.";
        else
            text += " The " + std::to_string(outcome.SentCount) + " before it went out; the rest did not.";
    }
    text += "\r\n\r\nYour turnsheets have been saved in the folder " + folder +
            ". Check the mail settings and send again, or send them to " +
            (session.Game.AdminAddress.empty() ? std::string("your game administrator") : session.Game.AdminAddress) +
            " yourself.";
    messages.refuse(std::string(kNotSentTitle), text);
    return false;
}

namespace {
constexpr std::string_view kMailSetUpAdvice =
    "To send by e-mail, open Preferences from the Main Menu and fill in the Mail settings: your mail server, "
    "its security and port, your user name and your own e-mail address.";
}  // namespace

void tellMailNotSetUp(const Session& session, Messages& messages) {
    messages.inform(std::string(kNotSentTitle),
                    "Your turnsheets have been saved in the folder " +
                        utf8ToCp1252(fs::absolute(session.Folder.resolve("Turnsheet")).string()) +
                        ", but they were not sent: no mail server is set up yet.\r\n\r\n" +
                        std::string(kMailSetUpAdvice));
}

bool sendTurnsheets(Session& session, const MailSettings& settings, const MailOptions& options, Messages& messages) {
    const std::optional<std::vector<MailMessage>> mail = prepareTurnsheetMail(session, messages);
    if (!mail) return false;
    return tellTurnsheetOutcome(session, *mail, sendMail(settings, *mail, options), messages);
}

// ---- Player details ---------------------------------------------------------

DetailsMail playerDetailsMessage(const Session& session, const Club& club, const Player& player,
                                 std::string_view choice, std::string_view detailsText) {
    DetailsMail out;
    const OrderResult check = checkDetailsRecipient(choice);
    if (!check) {
        out.title = check.title;
        out.text = check.text;
        return out;
    }
    std::string to;
    if (choice == kAllManagers) {
        std::vector<std::string> addresses;
        for (const ManagerEntry& m : session.ManagerList) addresses.push_back(m.Address);
        to = allManagersRecipients(addresses);
    } else {
        for (const ManagerEntry& m : session.ManagerList)
            if (m.Manager == choice && m.Address.find('@') != std::string::npos) {
                to = m.Address;
                break;
            }
    }
    if (to.empty()) {
        out.title = std::string(kDetailsNotSentTitle);
        out.text = std::string(kDetailsNotSentText) + "\r\n\r\nThe manager list holds no e-mail address for " +
                   std::string(choice) + ".";
        return out;
    }
    out.message = MailMessage{to, detailsSubject(club, player), std::string(detailsText)};
    return out;
}

void tellDetailsMailNotSetUp(Messages& messages) {
    messages.refuse(std::string(kDetailsNotSentTitle), std::string(kDetailsNotSentText) +
                                                           "\r\n\r\nNo mail server is set up yet. " +
                                                           std::string(kMailSetUpAdvice));
}

bool tellDetailsOutcome(std::string_view choice, const MailOutcome& outcome, Messages& messages) {
    if (outcome.ok()) {
        messages.inform(std::string(kDetailsSentTitle), detailsSentText(choice));
        return true;
    }
    messages.refuse(std::string(kDetailsNotSentTitle),
                    std::string(kDetailsNotSentText) + "\r\n\r\nThe reason: " + outcome.Reason + ".");
    return false;
}

bool sendPlayerDetails(const Session& session, const Club& club, const Player& player, std::string_view choice,
                       std::string_view detailsText, const MailSettings& settings, const MailOptions& options,
                       Messages& messages) {
    const DetailsMail mail = playerDetailsMessage(session, club, player, choice, detailsText);
    if (!mail.message) {
        messages.refuse(mail.title, mail.text);
        return false;
    }
    return tellDetailsOutcome(choice, sendMail(settings, {*mail.message}, options), messages);
}

MailMessage adminMailMessage(const Session& session, const std::string& text) {
    return {session.Game.AdminAddress, "Weekly administration", text};
}

namespace {
constexpr std::string_view kAdminManualWay =
    "Use \"Save Admin to File\" and e-mail the file AdminFile.txt to your game administrator yourself.";
}

void tellAdminMailNotSetUp(Messages& messages) {
    messages.refuse("Admin not sent",
                    "No mail server is set up yet. " + std::string(kMailSetUpAdvice) + "\r\n\r\n" +
                        std::string(kAdminManualWay));
}

bool tellAdminOutcome(const MailOutcome& outcome, Messages& messages) {
    if (outcome.ok()) {
        messages.inform(std::string(kAdminSentTitle), std::string(kAdminSentText));
        return true;
    }
    if (outcome.Status == MailStatus::Cancelled) return false;
    messages.refuse("Admin not sent", "The Weekly Administration could not be sent: " + outcome.Reason +
                                          ".\r\n\r\n" + std::string(kAdminManualWay));
    return false;
}

}  // namespace kestrin
