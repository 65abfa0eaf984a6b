#pragma once
// Club history: where the club on screen finished in each full league season
// and every cup final it played, from the Stats database.
#include <QDialog>
#include <QTreeWidget>

namespace kestrin::ui {

class SessionController;

class HonoursDialog : public QDialog {
    Q_OBJECT
public:
    // Nothing opens when there is no usable database (the manager has been
    // told why). The dialog is modal to `parent` and deleted once closed.
    static HonoursDialog* openOver(QWidget* parent, SessionController& controller);
    // The same, filled but not shown; the caller owns it. Null as above.
    static HonoursDialog* create(QWidget* parent, SessionController& controller);

    QTreeWidget* list() const { return list_; }

private:
    explicit HonoursDialog(QWidget* parent);

    QTreeWidget* list_;
};

}  // namespace kestrin::ui
