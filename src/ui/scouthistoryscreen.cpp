#include "ui/scouthistoryscreen.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "orders/scouthistory.h"
#include "orders/search.h"
#include "ui/qtext.h"
#include "ui/rowstable.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

std::vector<RowsColumn> historyColumns() {
    std::vector<RowsColumn> columns;
    for (size_t c = 0; c < kScoutGridColumns.size(); ++c) {
        // Names and clubs wide, the figures narrow and to the right.
        const int width = c == 0 ? 2400 : c == 2 ? 2200 : c == 21 ? 1100 : c == 22 ? 1350 : c == 1 ? 650 : 520;
        columns.push_back({kScoutGridColumns[c], width, c >= 3 && c <= 21});
    }
    return columns;
}

}  // namespace

ScoutHistoryScreen::ScoutHistoryScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "ScoutHistory", "Scout History", parent),
      cboPos_(new QComboBox(this)),
      grdScout_(new RowsTable("grdScout", historyColumns(), this)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);
    auto* header = headerRow("Scout History");
    header->addStretch(1);
    root->addLayout(header);

    auto* filters = new QGroupBox("Show reports of", this);
    auto* grid = new QGridLayout(filters);
    grid->setContentsMargins(8, 4, 8, 8);
    cboPos_->setObjectName("cboPos");
    for (std::string_view item : kSearchPositionItems) cboPos_->addItem(qs(item));
    grid->addWidget(new QLabel("Position", this), 0, 0);
    grid->addWidget(cboPos_, 1, 0);
    const std::vector<std::string> items = historyMinimumItems();
    for (size_t i = 0; i < kHistoryMinimumBoxes.size(); ++i) {
        auto* box = new QComboBox(this);
        box->setObjectName(qs(kHistoryMinimumBoxes[i].name));
        for (const std::string& item : items) box->addItem(qs(item));
        minimum_[i] = box;
        // Two rows of six boxes beside the position.
        const int row = int(i / 6) * 2, column = 1 + int(i % 6);
        grid->addWidget(new QLabel(qs(kHistoryMinimumBoxes[i].label), this), row, column);
        grid->addWidget(box, row + 1, column);
    }
    auto* refresh = makeButton("btnRefresh", "Refresh", this);
    grid->addWidget(refresh, 3, 0);
    root->addWidget(filters);
    root->addWidget(grdScout_, 1);

    auto* buttons = new QHBoxLayout;
    auto* remove = makeButton("BtnRemove", "Remove From History", this);
    auto* toScout = makeButton("BtnReturnToScout", "Scout Screen", this);
    auto* toMain = makeButton("BtnReturnToMain", "Main Menu", this);
    buttons->addWidget(remove);
    buttons->addStretch(1);
    buttons->addWidget(toScout);
    buttons->addWidget(toMain);
    root->addLayout(buttons);

    connect(refresh, &QPushButton::clicked, this, &ScoutHistoryScreen::refill);
    connect(remove, &QPushButton::clicked, this, &ScoutHistoryScreen::removeCurrent);
    connect(toScout, &QPushButton::clicked, this, [this] { emit navigate("Scout"); });
    connect(toMain, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
}

void ScoutHistoryScreen::sessionLoaded() {
    Screen::sessionLoaded();
    refill();
}

void ScoutHistoryScreen::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    refill();
}

void ScoutHistoryScreen::refill() {
    HistoryFilter filter;
    filter.Pos = gameText(cboPos_->currentText());
    for (size_t i = 0; i < minimum_.size(); ++i) filter.Minimum[i] = gameText(minimum_[i]->currentText());
    grdScout_->setRows(scoutHistoryRows(controller_.session().ScoutTable, filter));
}

void ScoutHistoryScreen::removeCurrent() {
    const std::vector<std::string> cells = grdScout_->currentCells();
    // The "No Results" row names nobody.
    const std::string name = cells.empty() || cells[0] == kNoResults ? std::string() : cells[0];
    if (removeFromScoutHistory(controller_.session(), name, controller_.messages())) refill();
}

}  // namespace kestrin::ui
