#pragma once
// Scout: every club of the game with its players, and the week's scout
// actions, bids and loan approaches against them.
#include <QListWidget>
#include <filesystem>

#include "ui/screen.h"

namespace kestrin::ui {

class FaceView;
class MainWindow;
class MarketOrders;
class RowsTable;

class ScoutScreen : public Screen {
    Q_OBJECT
public:
    explicit ScoutScreen(SessionController& controller, QWidget* parent = nullptr);

    void sessionLoaded() override;
    void fillClub() override;
    void rebuildOrderLists() override;

    RowsTable* players() const { return lvwScoutPlayers_; }
    QListWidget* clubs() const { return lvwScoutTeams_; }
    FaceView* face() const { return face_; }

signals:
    // Command1: the search screen is to seed its boxes if empty and show.
    void searchWanted();

protected:
    void enableForClubs(bool hasClubs) override;

private:
    void showExportClub();
    void rowClicked();

    QListWidget* lvwScoutTeams_;
    RowsTable* lvwScoutPlayers_;
    FaceView* face_;
    MarketOrders* orders_;
    std::vector<QWidget*> needClub_;
};

// Scout with a club and player chosen, SearchResults with midfielders found,
// ScoutHistory and a skill comparison, drawn into `outDir`. Returns the
// number of pictures that could not be written.
int renderMarketSnapshots(MainWindow& window, SessionController& controller, const std::filesystem::path& outDir);

}  // namespace kestrin::ui
