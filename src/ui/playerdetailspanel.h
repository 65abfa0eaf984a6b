#pragma once
// txtOtherDet: what the squad screen tells of the player chosen in the grid,
// in the game's own words, one row of items per line.
#include <QPlainTextEdit>

#include "core/records.h"

namespace kestrin::ui {

class PlayerDetailsPanel : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit PlayerDetailsPanel(QWidget* parent = nullptr);

    void showPlayer(const Player& player, const std::string& currency);
    // No player chosen: the panel is empty and says how to choose one.
    void showNone();
};

}  // namespace kestrin::ui
