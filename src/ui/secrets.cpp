#include "ui/secrets.h"

#include <QEventLoop>
#include <QInputDialog>
#include <QLineEdit>
#include <QTimer>
#include <qt6keychain/keychain.h>

namespace kestrin::ui {

namespace {

const QString kService = QStringLiteral("Kestrin");

// Runs a store job, letting the window answer, for at most `timeoutMs`.
// False when the store gave no answer in time; the job then ends on its own.
bool runJob(QKeychain::Job* job, int timeoutMs) {
    job->setAutoDelete(false);
    QEventLoop loop;
    bool finished = false;
    QObject::connect(job, &QKeychain::Job::finished, &loop, [&] {
        finished = true;
        loop.quit();
    });
    QTimer::singleShot(timeoutMs, &loop, &QEventLoop::quit);
    job->start();
    if (!finished) loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!finished) {
        QObject::disconnect(job, nullptr, &loop, nullptr);
        QObject::connect(job, &QKeychain::Job::finished, job, &QObject::deleteLater);
    }
    return finished;
}

}  // namespace

QString mailSecretKey(const MailSettings& settings) {
    return QString::fromStdString(settings.User + "@" + settings.Server);
}

StoredSecret readMailPassword(const MailSettings& settings, int timeoutMs) {
    auto* job = new QKeychain::ReadPasswordJob(kService);
    job->setKey(mailSecretKey(settings));
    StoredSecret out;
    if (!runJob(job, timeoutMs)) return out;
    if (job->error() == QKeychain::NoError) {
        out.answer = StoreAnswer::Found;
        out.password = job->textData().toStdString();
    } else if (job->error() == QKeychain::EntryNotFound) {
        out.answer = StoreAnswer::Missing;
    }
    delete job;
    return out;
}

bool storeMailPassword(const MailSettings& settings, const std::string& password, int timeoutMs) {
    auto* job = new QKeychain::WritePasswordJob(kService);
    job->setKey(mailSecretKey(settings));
    job->setTextData(QString::fromStdString(password));
    if (!runJob(job, timeoutMs)) return false;
    const bool ok = job->error() == QKeychain::NoError;
    delete job;
    return ok;
}

void forgetMailPassword(const MailSettings& settings, int timeoutMs) {
    auto* job = new QKeychain::DeletePasswordJob(kService);
    job->setKey(mailSecretKey(settings));
    if (runJob(job, timeoutMs)) delete job;
}

std::optional<std::string> askMailPassword(const MailSettings& settings, QWidget* parent) {
    bool ok = false;
    const QString text = QInputDialog::getText(
        parent, "Mail password",
        "The password of " + QString::fromStdString(settings.User) + " on the mail server " +
            QString::fromStdString(settings.Server) + ":",
        QLineEdit::Password, QString(), &ok);
    if (!ok) return std::nullopt;
    return text.toStdString();
}

std::optional<std::string> MailPasswordSource::get(const MailSettings& settings, QWidget* dialogParent) {
    const StoredSecret stored = readMailPassword(settings);
    lastAnswer_ = stored.answer;
    if (stored.answer == StoreAnswer::Found) return stored.password;
    return askMailPassword(settings, dialogParent);
}

void MailPasswordSource::sent(const MailSettings& settings, const std::string& password, bool ok) {
    if (lastAnswer_ == StoreAnswer::NoStore) return;
    if (ok && lastAnswer_ == StoreAnswer::Missing) storeMailPassword(settings, password);
    // A password that no longer works would be tried at every send.
    if (!ok && lastAnswer_ == StoreAnswer::Found) forgetMailPassword(settings);
}

}  // namespace kestrin::ui
