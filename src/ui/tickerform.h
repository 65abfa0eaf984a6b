#pragma once
// TickerForm: last week's report as a tape that moves one character a tick.
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

namespace kestrin::ui {

class SessionController;

class TickerForm : public QDialog {
    Q_OBJECT
public:
    static constexpr int kTickMs = 100;

    TickerForm(SessionController& controller, QWidget* parent = nullptr);

    // The tape from its start, running.
    void startTape();
    // One step of the tape, as Timer1 gives it.
    void tick();

protected:
    // A closed ticker stops ticking.
    void hideEvent(QHideEvent* event) override;

private:
    SessionController& controller_;
    QLineEdit* txtTicker_;
    QTimer* timer_;
    int pos_ = 0;  // TickerPos: from 1; 0 starts the tape again
};

}  // namespace kestrin::ui
