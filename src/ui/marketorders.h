#pragma once
// The orders of the transfer market as both the Scout and the search screen
// take them: scout actions with their list, and bids and loan approaches
// with their boxes and list. The screen says which row is chosen; the panel
// does the rest through the market's rules.
#include <QCheckBox>
#include <QListWidget>
#include <QSpinBox>
#include <functional>
#include <optional>

#include "orders/market.h"
#include "ui/rowstable.h"

namespace kestrin::ui {

class FaceView;
class SessionController;

// The player list's columns as the grid takes them.
std::vector<RowsColumn> marketColumns(std::span<const MarketColumn> columns);

// ShowScoutPic: the face of a player row, from its hidden cells; the cells
// of the Scout screen's row start at `firstCell` (1 on the search screen,
// behind its Team). A row without a name clears the face.
void showRowFace(FaceView* face, const std::vector<std::string>& cells, size_t firstCell);

// A figure box with the game's up-down buddy: the arrows stay within their
// own limits, while the manager may type any figure, which the order's
// checks then judge.
class UpDownBox : public QSpinBox {
    Q_OBJECT
public:
    UpDownBox(const QString& upDownName, const QString& textName, QWidget* parent = nullptr);
    void setUpDownLimits(int lowest, int highest);
    QString text() const;
    void setText(const QString& text);
    void stepBy(int steps) override;

protected:
    StepEnabled stepEnabled() const override;

private:
    int lowest_ = 0;
    int highest_ = 0;
};

class MarketOrders : public QWidget {
    Q_OBJECT
public:
    // `clubSelected` tells whether the screen's club list has a selection
    // (the Scout screen's first check); the search screen has none to ask.
    MarketOrders(SessionController& controller, MarketScreen screen, std::function<bool()> clubSelected,
                 QWidget* parent = nullptr);

    // A row was clicked (or the rows were refilled and none is chosen):
    // the bid boxes take its limits.
    void chooseRow(std::optional<MarketSelection> row);
    // Refills both lists from the club on screen.
    void rebuildLists();

private:
    MarketPick pick() const;
    BidBoxes boxes() const;
    void bid();
    void loan();
    void removeBid();
    void scout();
    void unScout();

    SessionController& controller_;
    MarketScreen screen_;
    std::function<bool()> clubSelected_;
    std::optional<MarketSelection> row_;
    QCheckBox* chkScoutAgg_;
    QListWidget* lstScoutedPlayers_;
    QListWidget* lstBidPlayers_;
    UpDownBox* amount_;
    UpDownBox* contract_;
    UpDownBox* incentive_;
};

}  // namespace kestrin::ui
