#pragma once
// Vidi: the week's results coming in a game minute at a time, the latest
// goal on top, the chosen competition's scores and table beside it.
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <optional>

#include "results/vidiprinter.h"
#include "ui/screen.h"

namespace kestrin::ui {

// frmSplash2: the flash of a goal that involves a club the manager follows.
class GoalAlert : public QWidget {
    Q_OBJECT
public:
    static constexpr int kShowMs = 6000;
    explicit GoalAlert(QWidget* parent);
    // "INVOLVING " and the club, for six seconds.
    void flash(const QString& involving);
    QString text() const { return lblInvolve_->text(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* lblInvolve_;
    QTimer* timer_;
};

class VidiScreen : public Screen {
    Q_OBJECT
public:
    static constexpr int kMinuteMs = 1700;

    explicit VidiScreen(SessionController& controller, QWidget* parent = nullptr);

    void fillClub() override {}
    // A new week: whatever was running belongs to the old one.
    void sessionLoaded() override;

    // btnStart and the vidiTimer's tick, for the snapshots.
    void start();
    void tick();
    // The length of a game minute, in milliseconds.
    void setMinuteInterval(int ms);
    GoalAlert* alert() const { return frmSplash2_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void showSet();
    void stop();

    std::optional<results::Vidiprinter> vidi_;
    QPushButton* btnStart_;
    QPushButton* btnPause_;
    QComboBox* cboSpeed_;
    QComboBox* cboCountry_;
    QLabel* lblTime_;
    QPlainTextEdit* txtResult_;
    QPlainTextEdit* scores_;
    QPlainTextEdit* txtTable_;
    QLabel* lblCompetition_;
    QTimer* vidiTimer_;
    GoalAlert* frmSplash2_;
};

}  // namespace kestrin::ui
