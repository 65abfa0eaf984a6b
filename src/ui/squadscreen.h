#pragma once
// SquadScr: the squad grid with its filters, the coaches and the physio. The
// order buttons of the screen come with the order screens, in the row kept
// free for them beside Save and Send.
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>
#include <QTableWidget>

#include "core/clubview.h"
#include "ui/screen.h"

namespace kestrin::ui {

class SquadScreen : public Screen {
    Q_OBJECT
public:
    explicit SquadScreen(SessionController& controller, QWidget* parent = nullptr);

    void fillClub() override;

    QTableWidget* grid() const { return grdSquad_; }
    AgeFilter ageFilter() const { return AgeFilter(btnTeam_->checkedId()); }
    PositionFilter positionFilter() const { return PositionFilter(btnPos_->checkedId()); }

protected:
    void enableForClubs(bool hasClubs) override;

private:
    void fillGrid(const Club& club);

    QTableWidget* grdSquad_;
    QButtonGroup* btnTeam_;
    QButtonGroup* btnPos_;
    QLabel* coachText_;
    QLabel* colourKey_;
    QSpinBox* upDownPhysio_;
    QHBoxLayout* orderButtons_;  // the order buttons of this screen go here
    std::vector<QWidget*> needClub_;
};

}  // namespace kestrin::ui
