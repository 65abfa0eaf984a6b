#pragma once
// Compare ("Skill comparison"): one player of the squad against others of the
// squad and against scouted players, each skill as a difference.
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>
#include <string>
#include <string_view>

namespace kestrin::ui {

class SessionController;

class CompareDialog : public QDialog {
    Q_OBJECT
public:
    // btnSkill with the name cell of the squad grid's current row: refused
    // with its message when it names nobody, else opened modal over `parent`
    // and deleted once closed.
    static CompareDialog* openOver(QWidget* parent, SessionController& controller, std::string_view rowText);
    // The same, not shown; the caller owns it.
    static CompareDialog* create(QWidget* parent, SessionController& controller, std::string_view rowText);

    QListWidget* candidates() const { return lvwPlayerList_; }
    QListWidget* chosen() const { return lvwCompList_; }
    QTableWidget* result() const { return result_; }

    void add();
    void removeChosen();
    // OKButton: the result table built from the chosen lines.
    void compare();

private:
    CompareDialog(QWidget* parent, SessionController& controller);

    SessionController& controller_;
    std::string baseName_;
    QLabel* txtPlayer_;
    QListWidget* lvwPlayerList_;
    QListWidget* lvwCompList_;
    QTableWidget* result_;
};

}  // namespace kestrin::ui
