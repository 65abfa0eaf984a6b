#pragma once
// CoachScr: the club's coaching history, every attempt of one player on one
// skill together in date order.
#include <QDialog>
#include <QTreeWidget>

namespace kestrin::ui {

class SessionController;

class CoachScr : public QDialog {
    Q_OBJECT
public:
    // The history of the club on screen. Nothing opens when the club has no
    // history file yet; a file that can't be read is told in plain words.
    // Returns the dialog, modal to `parent` and deleted once closed.
    static CoachScr* openOver(QWidget* parent, SessionController& controller);
    // The same, filled but not yet shown; the caller owns it.
    static CoachScr* create(QWidget* parent, SessionController& controller);

    QTreeWidget* list() const { return lvwCoachRes_; }

private:
    CoachScr(SessionController& controller, QWidget* parent);

    QTreeWidget* lvwCoachRes_;
};

}  // namespace kestrin::ui
