#pragma once
// SquadScr: the squad grid with its filters, the chosen player's details, and
// the week's orders for players, coaches and the physio, with their list.
#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSpinBox>
#include <QTableWidget>
#include <filesystem>
#include <optional>
#include <string>

#include "core/clubview.h"
#include "orders/orderlist.h"
#include "orders/playeractions.h"
#include "ui/screen.h"

namespace kestrin::ui {

class FaceView;
class MainWindow;
class PlayerDetailsPanel;

class SquadScreen : public Screen {
    Q_OBJECT
public:
    explicit SquadScreen(SessionController& controller, QWidget* parent = nullptr);

    void fillClub() override;
    void rebuildOrderLists() override;

    QTableWidget* grid() const { return grdSquad_; }
    AgeFilter ageFilter() const { return AgeFilter(btnTeam_->checkedId()); }
    PositionFilter positionFilter() const { return PositionFilter(btnPos_->checkedId()); }

    // The name cell of the grid's current row as game text; empty when no
    // player is chosen.
    std::string currentRowText() const;
    // The head of the grid's current column; empty when no cell is chosen.
    std::string currentColumnHead() const;

protected:
    void enableForClubs(bool hasClubs) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillGrid(const Club& club);
    void fitNameColumn();
    void showDetails();
    std::optional<OrderLine> selectedOrderLine() const;
    // The club on screen, or none while the screen is being filled, when
    // every order control does nothing.
    Club* orderClub();

    void actionClicked(PlayerAction action);
    void coachClicked(bool senior);
    void physioClicked();
    void oneToOneClicked();
    void removeClicked();
    void historyClicked();

    QTableWidget* grdSquad_;
    QButtonGroup* btnTeam_;
    QButtonGroup* btnPos_;
    QLabel* coachText_;
    QLabel* colourKey_;
    QSpinBox* upDownPhysio_;
    QLineEdit* txtPhysio_;
    QLabel* physioLeft_;
    QLabel* actionsUsed_;
    PlayerDetailsPanel* txtOtherDet_;
    FaceView* picFace_;
    QListWidget* lstActions_;
    std::vector<QWidget*> needClub_;

    friend int renderSquadSnapshots(MainWindow& window, const std::filesystem::path& outDir);
};

// The squad screen with a player chosen and its dialogs open, drawn into
// `outDir` as SquadScr.png, PlayerAct.png (a sale), PlayerActContract.png,
// OneToOne.png, EmailPlayer.png and, when the club has a coaching history,
// CoachScr.png. Returns the number of pictures that could not be written.
int renderSquadSnapshots(MainWindow& window, const std::filesystem::path& outDir);

}  // namespace kestrin::ui
