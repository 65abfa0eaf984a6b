#pragma once
// News: the week's news items, the files of Weekly/, each shown on a click.
#include <QLabel>
#include <QPlainTextEdit>
#include <QTreeWidget>

#include "ui/screen.h"

namespace kestrin::ui {

class NewsScreen : public Screen {
    Q_OBJECT
public:
    explicit NewsScreen(SessionController& controller, QWidget* parent = nullptr);

    // The news belongs to the league, not to one club.
    void fillClub() override {}
    void sessionLoaded() override;

    QTreeWidget* list() const { return lvwNewsFiles_; }
    // Shows the item at `row` of the list, as a click does.
    void showItem(int row);

private:
    QTreeWidget* lvwNewsFiles_;
    QPlainTextEdit* newsText_;
    QLabel* txtReading_;
};

}  // namespace kestrin::ui
