#include "ui/statsrefresh.h"

#include <QMetaObject>

#include "ui/qtext.h"

namespace kestrin::ui {

StatsRefresh::StatsRefresh(QObject* parent) : QObject(parent) {}

StatsRefresh::~StatsRefresh() { cancelAndWait(); }

bool StatsRefresh::start(const Session& session, bool showDone, QWidget* dialogParent) {
    if (running()) return false;
    cancel_ = false;
    messages_ = RecordingMessages{};

    auto* dialog = new QProgressDialog("Populating Stats Database", "Cancel", 0, 0, dialogParent);
    dialog->setObjectName("StatsProgress");
    dialog->setWindowTitle("Refresh Stats Database");
    dialog->setWindowModality(Qt::NonModal);
    dialog->setMinimumDuration(300);
    dialog->setAutoClose(false);
    dialog->setAutoReset(false);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QProgressDialog::canceled, this, [this] { cancel_ = true; });
    dialog_ = dialog;

    const GameFolder folder = session.Folder;
    Settings settings = session.Prefs;
    worker_ = std::thread([this, folder, settings, showDone]() mutable {
        stats::RefreshOptions options;
        options.cancel = &cancel_;
        options.showDone = showDone;
        options.progress = [this](std::string_view file, int done, int total) {
            const QString name = qs(file);
            QMetaObject::invokeMethod(this, [this, name, done, total] {
                if (dialog_) {
                    dialog_->setMaximum(total);
                    dialog_->setValue(done);
                    dialog_->setLabelText("Populating Stats Database\n" + name);
                }
                emit progress(name, done, total);
            }, Qt::QueuedConnection);
        };
        RecordingMessages recorded;
        stats::RefreshResult result;
        try {
            result = stats::refreshStats(folder, settings, recorded, options);
        } catch (const std::exception& e) {
            result.status = stats::RefreshStatus::Failed;
            result.problem = e.what();
        }
        result_ = std::move(result);
        messages_ = std::move(recorded);
        donePending_ = true;
        QMetaObject::invokeMethod(this, &StatsRefresh::workerDone, Qt::QueuedConnection);
    });
    return true;
}

void StatsRefresh::workerDone() {
    // Told once: by the queued call, or by wait() when it came first.
    if (!donePending_.exchange(false)) return;
    if (worker_.joinable()) worker_.join();
    if (dialog_) dialog_->close();
    emit finished(result_, messages_);
}

void StatsRefresh::wait() {
    if (worker_.joinable()) worker_.join();
    workerDone();
}

void StatsRefresh::cancelAndWait() {
    cancel_ = true;
    if (worker_.joinable()) worker_.join();
    donePending_ = false;  // nothing is told of a refresh the program stopped
    if (dialog_) dialog_->close();
}

}  // namespace kestrin::ui
