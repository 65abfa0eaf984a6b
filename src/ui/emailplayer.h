#pragma once
// EmailPlayer: one player's figures as a text for another manager, saved to
// PlayerDetails.txt in the game folder.
#include <QDialog>
#include <string>

#include "core/records.h"

namespace kestrin::ui {

class SessionController;

class EmailPlayerDialog : public QDialog {
    Q_OBJECT
public:
    EmailPlayerDialog(SessionController& controller, const Club& club, const Player& player,
                      QWidget* parent = nullptr);

    // Opens a dialog over `parent`, modal to it and deleted once closed.
    static EmailPlayerDialog* openOver(QWidget* parent, SessionController& controller, const Club& club,
                                       const Player& player);

private:
    void saveClicked();

    SessionController& controller_;
    Club club_;      // as the dialog opened: the mail names this club and player
    Player player_;
    std::string text_;  // EmailText, as game text
};

}  // namespace kestrin::ui
