#pragma once
// Mail servers for the tests, all on 127.0.0.1: aiosmtpd started as a child
// program, one that never answers, and a port where nothing listens.
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "files/mail.h"
#include "support/testsupport.h"

namespace kestrin::test {

// A certificate for 127.0.0.1 and localhost, made once for every test.
struct Certificate {
    TempDir dir;
    std::filesystem::path cert = dir.path() / "cert.pem";
    std::filesystem::path key = dir.path() / "key.pem";
    Certificate();
};
const Certificate& certificate();

struct Received {
    std::string from;
    std::vector<std::string> to;
    std::string headers;  // as sent, CR LF between them
    std::string body;
    // The value with its folded lines, CR LF kept; "(none)" when missing.
    std::string header(const std::string& name) const;
};

struct ServerOptions {
    std::string mode = "plain";  // plain, starttls, tls
    std::string user, password;
    std::vector<std::string> reject;
};

// Saves each message's bytes and envelope and counts connections.
class SmtpServer {
public:
    explicit SmtpServer(const ServerOptions& o = {});
    ~SmtpServer();
    SmtpServer(const SmtpServer&) = delete;
    SmtpServer& operator=(const SmtpServer&) = delete;
    int port() const { return port_; }
    int connections() const;
    std::vector<Received> messages() const;
    MailSettings settings(MailSecurity security = MailSecurity::None) const;

private:
    TempDir dir_;
    pid_t pid_ = 0;
    int port_ = 0;
};

// Accepts connections into its backlog and never says a word.
class SilentServer {
public:
    SilentServer();
    ~SilentServer();
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;
    int port() const { return port_; }

private:
    int fd_ = -1;
    int port_ = 0;
};

// A port on which nothing listens: one the system gave and took back.
int closedPort();

}  // namespace kestrin::test
