#pragma once
// PlayerAct: the amount, contract length and buying club of the player
// actions that need more than a click (sell to another club, secretly list,
// offer a contract). The button's own checks ran before it opened.
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>
#include <string>
#include <vector>

#include "orders/playeractions.h"

namespace kestrin::ui {

class SessionController;

class PlayerActDialog : public QDialog {
    Q_OBJECT
public:
    // `rowText` is the squad grid's name cell of the chosen player, as game text.
    PlayerActDialog(SessionController& controller, PlayerAction action, std::string rowText,
                    QWidget* parent = nullptr);

    // Opens a dialog over `parent`, modal to it and deleted once closed.
    static PlayerActDialog* openOver(QWidget* parent, SessionController& controller, PlayerAction action,
                                     std::string rowText);

    PlayerAction action() const { return action_; }

private:
    void okClicked();
    void filterClubs(const QString& text);
    // The chosen club's name as game text; empty when none is chosen.
    std::string chosenClub() const;

    SessionController& controller_;
    PlayerAction action_;
    std::string rowText_;
    std::vector<std::string> clubs_;  // lvwActionTeams rows, as game text

    QLabel* txtPlayerAct_;
    QSpinBox* upAmount_;
    QSpinBox* upContract_;
    QLineEdit* txtAmount_;
    QLineEdit* txtContract_;
    QLineEdit* findClub_;
    QListWidget* lvwActionTeams_;
};

}  // namespace kestrin::ui
