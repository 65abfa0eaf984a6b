#pragma once
// OneToOne: the week's one personal instruction, to the chosen player or, for
// the team talk, to the whole squad.
#include <QButtonGroup>
#include <QDialog>
#include <QLabel>
#include <string>

namespace kestrin::ui {

class SessionController;

class OneToOneDialog : public QDialog {
    Q_OBJECT
public:
    // `rowText` is the squad grid's name cell of the chosen player, as game
    // text; empty when no player is chosen.
    OneToOneDialog(SessionController& controller, std::string rowText, QWidget* parent = nullptr);

    // Opens a dialog over `parent`, modal to it and deleted once closed.
    static OneToOneDialog* openOver(QWidget* parent, SessionController& controller, std::string rowText);

private:
    void okClicked();

    SessionController& controller_;
    std::string rowText_;
    QLabel* txtOnePlayer_;
    QButtonGroup* options_;
};

}  // namespace kestrin::ui
