#pragma once
// Matchviewer: one match report replayed at reading speed into a grid of
// coloured rows, with a picture for each kind of event; or searched for words.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTimer>
#include <functional>
#include <optional>

#include "results/matchviewer.h"
#include "ui/screen.h"

namespace kestrin::ui {

// One of the viewer's pictures: a drawing of ours with its caption, shown
// over the grid until its own timer takes it away. It never takes the focus.
class EventPicture : public QWidget {
    Q_OBJECT
public:
    enum class Kind { Booking, SendingOff, Goal, Corner, Substitution, Tactics, Whistle, Statistics };
    EventPicture(Kind kind, const QString& objectName, int showMs, QWidget* parent);

    Kind kind() const { return kind_; }
    QString caption() const { return caption_->text(); }
    // Shown (again) with this caption, its timer started afresh.
    void popUp(const QString& caption);
    // The closing statistics' text, below the drawing.
    void setMessage(const QString& text);
    // Later pictures have larger numbers.
    int shownAt() const { return shownAt_; }

signals:
    void shown(const QString& caption);
    void gone();  // taken away by its timer

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int drawingHeight() const;

    Kind kind_;
    int shownAt_ = 0;
    static inline int shownCount_ = 0;
    QLabel* caption_;
    QPlainTextEdit* txtMsg_ = nullptr;
    QTimer* timer_;
};

class Matchviewer : public Screen {
    Q_OBJECT
public:
    // The slider's top: 1100 less this is the quickest interval.
    static constexpr int kFastest = 1080;

    explicit Matchviewer(SessionController& controller, QWidget* parent = nullptr);

    // The viewer belongs to no one club.
    void fillClub() override {}
    void sessionLoaded() override;

    using FilePicker = std::function<QString(const QString& title, const QString& dir, const QString& filter)>;
    void setFilePicker(FilePicker picker) { pickFile_ = std::move(picker); }

    void browse();  // cmdB
    void start();   // cmdView
    void search();  // cmdSearch
    void tick();    // MatchTime

    bool replaying() const { return replay_.has_value(); }
    QTimer* timer() const { return matchTime_; }
    EventPicture* picture(EventPicture::Kind kind) const;

protected:
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addRows(const std::vector<results::ViewerRow>& rows);
    void popUpFor(results::ViewerEvent event);
    // Back to idle: the timer stopped, the buttons as before a replay.
    void finish();
    void placePictures();
    // The chosen report's path, or nothing (and the message) when none is chosen.
    std::optional<std::filesystem::path> chosenReport();

    QLineEdit* txtF_;
    QPushButton* cmdB_;
    QPushButton* cmdView_;
    QPushButton* cmdStop_;
    QCheckBox* chkPause_;
    QSlider* sldSpeed_;
    QLineEdit* txtSearch_;
    QPushButton* cmdSearch_;
    QTableWidget* msfGrid_;
    QTimer* matchTime_;
    std::vector<EventPicture*> pictures_;  // by Kind
    std::optional<results::MatchReplay> replay_;
    FilePicker pickFile_;
};

}  // namespace kestrin::ui
