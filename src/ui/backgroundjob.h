#pragma once
// One piece of work on a thread of its own, so the window keeps answering,
// with a progress dialog that can cancel it. What the work produced is handed
// back on the interface thread exactly once, by a queued call or by wait().
#include <QObject>
#include <QPointer>
#include <QProgressDialog>
#include <QString>
#include <atomic>
#include <functional>
#include <thread>

namespace kestrin::ui {

class BackgroundJob : public QObject {
    Q_OBJECT
public:
    struct Dialog {
        QString objectName;
        QString title;
        QString label;
    };
    using Work = std::function<void(const std::atomic<bool>& cancel)>;

    explicit BackgroundJob(QObject* parent = nullptr);
    ~BackgroundJob() override;

    // Runs `work` off the interface thread, then `done` on it. False, and
    // nothing started, when a job is running. `dialogParent` may be null.
    bool start(const Dialog& dialog, QWidget* dialogParent, Work work, std::function<void()> done);
    bool running() const { return worker_.joinable(); }
    // Lets a running job finish; its `done` runs before this returns.
    void wait();
    // Asks the running job to stop and waits for it; its `done` never runs.
    void cancelAndWait();

    // From any thread: `update` runs later on the interface thread.
    void post(std::function<void()> update);
    // On the interface thread: the dialog's bar and label.
    void showProgress(int done, int total, const QString& label);

private:
    void workerDone();

    std::thread worker_;
    std::atomic<bool> cancel_{false};
    std::atomic<bool> donePending_{false};  // the worker ended; `done` has not run yet
    std::function<void()> done_;
    QPointer<QProgressDialog> dialog_;
};

}  // namespace kestrin::ui
