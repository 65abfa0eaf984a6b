#pragma once
// Runs the Stats refresh on a thread of its own, so the window keeps
// answering, with a progress dialog that names the file being read and can
// cancel. Only the interface thread touches the session: the worker gets a
// copy of what it needs and its messages are shown once it is done.
#include <QObject>

#include "core/messages.h"
#include "core/session.h"
#include "stats/refresh.h"
#include "ui/backgroundjob.h"

namespace kestrin::ui {

class StatsRefresh : public QObject {
    Q_OBJECT
public:
    explicit StatsRefresh(QObject* parent = nullptr);
    ~StatsRefresh() override;

    // Starts a refresh of the session's week; false when one is running.
    // `showDone` asks for the closing message. `dialogParent` may be null.
    bool start(const Session& session, bool showDone, QWidget* dialogParent);
    bool running() const { return job_.running(); }
    // Lets a running refresh finish before its files change under it.
    void wait();
    // Asks the running refresh to stop and waits for it; the database is left
    // as it was.
    void cancelAndWait();

signals:
    void progress(const QString& file, int done, int total);
    // On the interface thread, after the messages of the refresh.
    void finished(const kestrin::stats::RefreshResult& result, const kestrin::RecordingMessages& messages);

private:
    BackgroundJob job_;
    stats::RefreshResult result_;  // written by the worker, read once it is done
    RecordingMessages messages_;
};

}  // namespace kestrin::ui
