#include "ui/backgroundjob.h"

#include <QMetaObject>

namespace kestrin::ui {

BackgroundJob::BackgroundJob(QObject* parent) : QObject(parent) {}

BackgroundJob::~BackgroundJob() { cancelAndWait(); }

bool BackgroundJob::start(const Dialog& d, QWidget* dialogParent, Work work, std::function<void()> done) {
    if (running()) return false;
    cancel_ = false;
    donePending_ = false;
    done_ = std::move(done);

    auto* dialog = new QProgressDialog(d.label, "Cancel", 0, 0, dialogParent);
    dialog->setObjectName(d.objectName);
    dialog->setWindowTitle(d.title);
    dialog->setWindowModality(Qt::NonModal);
    dialog->setMinimumDuration(300);
    dialog->setAutoClose(false);
    dialog->setAutoReset(false);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QProgressDialog::canceled, this, [this] { cancel_ = true; });
    dialog_ = dialog;

    worker_ = std::thread([this, work = std::move(work)] {
        work(cancel_);
        donePending_ = true;
        QMetaObject::invokeMethod(this, &BackgroundJob::workerDone, Qt::QueuedConnection);
    });
    return true;
}

void BackgroundJob::post(std::function<void()> update) {
    QMetaObject::invokeMethod(this, std::move(update), Qt::QueuedConnection);
}

void BackgroundJob::showProgress(int done, int total, const QString& label) {
    if (!dialog_) return;
    dialog_->setMaximum(total);
    dialog_->setValue(done);
    dialog_->setLabelText(label);
}

void BackgroundJob::workerDone() {
    // Once: by the queued call, or by wait() when it came first.
    if (!donePending_.exchange(false)) return;
    if (worker_.joinable()) worker_.join();
    if (dialog_) dialog_->close();
    if (done_) {
        // `done` may start the next job, which sets done_ anew.
        auto done = std::move(done_);
        done_ = nullptr;
        done();
    }
}

void BackgroundJob::wait() {
    if (worker_.joinable()) worker_.join();
    workerDone();
}

void BackgroundJob::cancelAndWait() {
    cancel_ = true;
    if (worker_.joinable()) worker_.join();
    donePending_ = false;  // nothing is told of a job the program stopped
    done_ = nullptr;
    if (dialog_) dialog_->close();
}

}  // namespace kestrin::ui
