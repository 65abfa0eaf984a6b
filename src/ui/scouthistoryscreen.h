#pragma once
// ScoutHistory: every scout report the manager's clubs have had, filtered
// by position and minimum figures, sorted by any column, and deleted by name.
#include <QComboBox>
#include <array>

#include "ui/screen.h"

namespace kestrin::ui {

class RowsTable;

class ScoutHistoryScreen : public Screen {
    Q_OBJECT
public:
    explicit ScoutHistoryScreen(SessionController& controller, QWidget* parent = nullptr);

    void sessionLoaded() override;
    void fillClub() override {}

    // btnRefresh: the grid filled again by the boxes.
    void refill();
    // BtnRemove.
    void removeCurrent();
    RowsTable* grid() const { return grdScout_; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    QComboBox* cboPos_;
    std::array<QComboBox*, 12> minimum_{};
    RowsTable* grdScout_;
};

}  // namespace kestrin::ui
