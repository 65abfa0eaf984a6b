#include "ui/statsrefresh.h"

#include "ui/qtext.h"

namespace kestrin::ui {

StatsRefresh::StatsRefresh(QObject* parent) : QObject(parent) {}

StatsRefresh::~StatsRefresh() { cancelAndWait(); }

bool StatsRefresh::start(const Session& session, bool showDone, QWidget* dialogParent) {
    if (running()) return false;
    messages_ = RecordingMessages{};

    const GameFolder folder = session.Folder;
    Settings settings = session.Prefs;
    auto work = [this, folder, settings, showDone](const std::atomic<bool>& cancel) mutable {
        stats::RefreshOptions options;
        options.cancel = &cancel;
        options.showDone = showDone;
        options.progress = [this](std::string_view file, int done, int total) {
            const QString name = qs(file);
            job_.post([this, name, done, total] {
                job_.showProgress(done, total, "Populating Stats Database\n" + name);
                emit progress(name, done, total);
            });
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
    };
    return job_.start({"StatsProgress", "Refresh Stats Database", "Populating Stats Database"}, dialogParent,
                      std::move(work), [this] { emit finished(result_, messages_); });
}

void StatsRefresh::wait() { job_.wait(); }

void StatsRefresh::cancelAndWait() { job_.cancelAndWait(); }

}  // namespace kestrin::ui
