#pragma once
// SearchResults, "Detailed player search": every player of the game by part
// of his name or by bands, and the market's orders on the players found.
#include <QComboBox>
#include <QLineEdit>

#include "orders/search.h"
#include "ui/screen.h"

namespace kestrin::ui {

class FaceView;
class MarketOrders;
class RowsTable;

class SearchResults : public Screen {
    Q_OBJECT
public:
    explicit SearchResults(SessionController& controller, QWidget* parent = nullptr);

    void sessionLoaded() override;
    void fillClub() override;
    void rebuildOrderLists() override;

    // Command1 of Scout: the boxes get their defaults when ComboPos is still
    // empty, and are kept as the manager left them otherwise.
    void seedIfEmpty();
    // btnSearch.
    void search();
    SearchFilter filter() const;
    RowsTable* results() const { return lvwScoutPlayers_; }

protected:
    void enableForClubs(bool hasClubs) override;

private:
    void rowClicked();

    QLineEdit* txtPlayerSearch_;
    QComboBox* comboPos_;
    QComboBox* comboPerf_;
    QComboBox* comboValue_;
    QComboBox* comboAge_;
    QComboBox* comboSkill_;
    QComboBox* comboSign_;
    QComboBox* comboMgd_;
    RowsTable* lvwScoutPlayers_;
    FaceView* face_;
    MarketOrders* orders_;
    std::vector<QWidget*> needClub_;
};

}  // namespace kestrin::ui
