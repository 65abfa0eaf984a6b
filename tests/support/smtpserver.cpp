#include "support/smtpserver.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <chrono>
#include <functional>
#include <thread>

#include "core/text.h"

extern char** environ;

namespace kestrin::test {

namespace fs = std::filesystem;

namespace {

// The server of the tests: aiosmtpd on 127.0.0.1, on a port the system picks.
// It saves each message's bytes (msgNNN.eml) and envelope (msgNNN.env: sender,
// then recipients, a line each) and counts connections.
constexpr const char* kServerScript = R"PY(
import argparse, asyncio, os, socket, ssl, warnings
warnings.simplefilter('ignore')
from aiosmtpd.smtp import SMTP, AuthResult, LoginPassword

ap = argparse.ArgumentParser()
ap.add_argument('--dir'); ap.add_argument('--mode', default='plain')
ap.add_argument('--user'); ap.add_argument('--password')
ap.add_argument('--cert'); ap.add_argument('--key')
ap.add_argument('--reject', action='append', default=[])
a = ap.parse_args()
count = 0
connections = 0

class Saver:
    async def handle_RCPT(self, server, session, envelope, address, rcpt_options):
        if address in a.reject:
            return '550 5.1.1 No such user here'
        envelope.rcpt_tos.append(address)
        return '250 OK'
    async def handle_DATA(self, server, session, envelope):
        global count
        count += 1
        base = os.path.join(a.dir, 'msg%03d' % count)
        with open(base + '.env', 'w') as f:
            f.write('\n'.join([envelope.mail_from] + envelope.rcpt_tos))
        with open(base + '.eml', 'wb') as f:
            f.write(envelope.original_content)
        return '250 Message accepted for delivery'

def check(server, session, envelope, mechanism, data):
    ok = isinstance(data, LoginPassword) and data.login == a.user.encode() and data.password == a.password.encode()
    return AuthResult(success=ok, handled=False)

ctx = None
if a.cert:
    ctx = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
    ctx.load_cert_chain(a.cert, a.key)

def factory():
    global connections
    connections += 1
    with open(os.path.join(a.dir, 'connections'), 'w') as f:
        f.write(str(connections))
    kw = {}
    if a.user:
        kw.update(authenticator=check, auth_required=True, auth_require_tls=(a.mode == 'starttls'))
    if a.mode == 'starttls':
        kw.update(tls_context=ctx, require_starttls=True)
    return SMTP(Saver(), hostname='localhost', **kw)

loop = asyncio.new_event_loop()
asyncio.set_event_loop(loop)
sock = socket.socket()
sock.bind(('127.0.0.1', 0))
sock.listen(8)
loop.run_until_complete(loop.create_server(factory, sock=sock, ssl=ctx if a.mode == 'tls' else None))
with open(os.path.join(a.dir, 'port.tmp'), 'w') as f:
    f.write(str(sock.getsockname()[1]))
os.rename(os.path.join(a.dir, 'port.tmp'), os.path.join(a.dir, 'port'))
loop.run_forever()
)PY";

std::string python() { return fs::exists("/usr/bin/python3") ? "/usr/bin/python3" : "python3"; }

// Starts a program with its output going to a log file, not the test's.
pid_t spawn(const std::vector<std::string>& args, const fs::path& log) {
    std::vector<char*> argv;
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    posix_spawn_file_actions_adddup2(&actions, 1, 2);
    pid_t pid = 0;
    if (posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) pid = 0;
    posix_spawn_file_actions_destroy(&actions);
    return pid;
}

bool waitFor(const std::function<bool()>& ready, std::chrono::milliseconds limit) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (std::chrono::steady_clock::now() < end) {
        if (ready()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return ready();
}

}  // namespace

Certificate::Certificate() {
    const pid_t pid = spawn({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                             "-nodes", "-days", "2", "-subj", "/CN=localhost", "-addext",
                             "subjectAltName=DNS:localhost,IP:127.0.0.1", "-keyout", key.string(), "-out",
                             cert.string()},
                            dir.path() / "openssl.log");
    int status = 0;
    if (pid) waitpid(pid, &status, 0);
}

const Certificate& certificate() {
    static Certificate c;
    return c;
}

std::string Received::header(const std::string& name) const {
    const std::vector<std::string> lines = splitLines(headers);
    for (size_t i = 0; i < lines.size(); ++i) {
        if (!startsWithNoCase(lines[i], name + ": ")) continue;
        std::string value = lines[i].substr(name.size() + 2);
        while (i + 1 < lines.size() && startsWith(lines[i + 1], " ")) value += "\r\n" + lines[++i];
        return value;
    }
    return "(none)";
}

SmtpServer::SmtpServer(const ServerOptions& o) {
    dir_.write("server.py", kServerScript);
    std::vector<std::string> args = {python(), (dir_.path() / "server.py").string(), "--dir", dir_.path().string(),
                                     "--mode", o.mode};
    if (!o.user.empty()) args.insert(args.end(), {"--user", o.user, "--password", o.password});
    if (o.mode != "plain")
        args.insert(args.end(), {"--cert", certificate().cert.string(), "--key", certificate().key.string()});
    for (const std::string& r : o.reject) args.insert(args.end(), {"--reject", r});
    pid_ = spawn(args, dir_.path() / "server.log");
    if (pid_ && waitFor([&] { return fs::exists(dir_.path() / "port"); }, std::chrono::seconds(10)))
        port_ = std::stoi(dir_.read("port"));
}

SmtpServer::~SmtpServer() {
    if (!pid_) return;
    kill(pid_, SIGTERM);
    int status = 0;
    waitpid(pid_, &status, 0);
}

int SmtpServer::connections() const {
    const std::string n = dir_.read("connections");
    return n.empty() ? 0 : std::stoi(n);
}

std::vector<Received> SmtpServer::messages() const {
    std::vector<Received> out;
    for (int i = 1;; ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "msg%03d", i);
        if (!fs::exists(dir_.path() / (std::string(name) + ".eml"))) break;
        Received r;
        const std::vector<std::string> env = splitLines(dir_.read(std::string(name) + ".env"));
        if (!env.empty()) r.from = env[0], r.to.assign(env.begin() + 1, env.end());
        const std::string raw = dir_.read(std::string(name) + ".eml");
        const size_t split = raw.find("\r\n\r\n");
        r.headers = raw.substr(0, split);
        r.body = split == std::string::npos ? std::string() : raw.substr(split + 4);
        out.push_back(std::move(r));
    }
    return out;
}

MailSettings SmtpServer::settings(MailSecurity security) const {
    MailSettings s;
    s.Server = "127.0.0.1";
    s.Port = port_;
    s.Security = security;
    s.Sender = "manager@club.example";
    return s;
}

SilentServer::SilentServer() {
    fd_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t len = sizeof a;
    if (bind(fd_, reinterpret_cast<sockaddr*>(&a), len) == 0 && listen(fd_, 4) == 0 &&
        getsockname(fd_, reinterpret_cast<sockaddr*>(&a), &len) == 0)
        port_ = ntohs(a.sin_port);
}

SilentServer::~SilentServer() { close(fd_); }

int closedPort() {
    SilentServer s;
    return s.port();
}

}  // namespace kestrin::test
