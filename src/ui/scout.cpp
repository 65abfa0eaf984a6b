#include "ui/scout.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/text.h"
#include "orders/market.h"
#include "ui/faceview.h"
#include "ui/marketorders.h"
#include "ui/qtext.h"
#include "ui/rowstable.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

ScoutScreen::ScoutScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "Scout", "Scouting", parent),
      lvwScoutTeams_(new QListWidget(this)),
      lvwScoutPlayers_(new RowsTable("lvwScoutPlayers", marketColumns(kScoutPlayerColumns), this)),
      face_(new FaceView(this)),
      orders_(new MarketOrders(controller, MarketScreen::Scout,
                               [this] { return lvwScoutTeams_->currentItem() && lvwScoutTeams_->currentItem()->isSelected(); },
                               this)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);
    auto* header = headerRow("Scouting");
    header->addStretch(1);
    root->addLayout(header);

    auto* middle = new QHBoxLayout;
    middle->setSpacing(10);
    auto* clubsBox = new QGroupBox("Clubs", this);
    auto* cl = new QVBoxLayout(clubsBox);
    cl->setContentsMargins(6, 4, 6, 6);
    lvwScoutTeams_->setObjectName("lvwScoutTeams");
    lvwScoutTeams_->setSelectionMode(QAbstractItemView::SingleSelection);
    cl->addWidget(lvwScoutTeams_);
    clubsBox->setFixedWidth(230);
    middle->addWidget(clubsBox);

    auto* playersBox = new QGroupBox("Players", this);
    auto* pl = new QVBoxLayout(playersBox);
    pl->setContentsMargins(6, 4, 6, 6);
    pl->addWidget(lvwScoutPlayers_);
    middle->addWidget(playersBox, 1);

    auto* side = new QVBoxLayout;
    side->setSpacing(6);
    face_->setObjectName("ScoutPic");
    side->addWidget(face_, 0, Qt::AlignHCenter);
    side->addStretch(1);
    auto* history = makeButton("btnScoutHist", "Scout History", this);
    auto* search = makeButton("Command1", "Player Search", this);
    auto* save = makeButton("Command2", "Save Turnsheet", this);
    auto* send = makeButton("Command3", "Send Turnsheet", this);
    auto* back = makeButton("BtnReturnToMain", "Main Menu", this);
    for (QPushButton* b : {history, search, save, send, back}) side->addWidget(b);
    middle->addLayout(side);
    root->addLayout(middle, 1);
    root->addWidget(orders_);

    connect(lvwScoutTeams_, &QListWidget::itemSelectionChanged, this, &ScoutScreen::showExportClub);
    connect(lvwScoutPlayers_, &RowsTable::rowChosen, this, &ScoutScreen::rowClicked);
    connect(history, &QPushButton::clicked, this, [this] { emit navigate("ScoutHistory"); });
    connect(search, &QPushButton::clicked, this, [this] { emit searchWanted(); });
    connect(save, &QPushButton::clicked, this, [this] { controller_.saveTurnsheet(); });
    connect(send, &QPushButton::clicked, this, [this] { controller_.sendTurnsheet(); });
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    needClub_ = {lvwScoutTeams_, lvwScoutPlayers_, orders_, history, search, save, send};
    enableForClubs(false);
}

void ScoutScreen::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
}

void ScoutScreen::sessionLoaded() {
    Screen::sessionLoaded();
    const QSignalBlocker block(lvwScoutTeams_);
    lvwScoutTeams_->clear();
    const auto& clubs = controller_.session().ExportClubs;
    for (size_t i = 0; i < clubs.size(); ++i) {
        auto* item = new QListWidgetItem(qs(clubs[i].Name), lvwScoutTeams_);
        item->setData(Qt::UserRole, int(i));
    }
    lvwScoutTeams_->setCurrentItem(nullptr);
    lvwScoutPlayers_->setRows({});
    orders_->chooseRow(std::nullopt);
    face_->clear();
}

void ScoutScreen::fillClub() { rebuildOrderLists(); }

void ScoutScreen::rebuildOrderLists() { orders_->rebuildLists(); }

void ScoutScreen::showExportClub() {
    face_->clear();
    orders_->chooseRow(std::nullopt);
    const QListWidgetItem* item = lvwScoutTeams_->currentItem();
    const auto& clubs = controller_.session().ExportClubs;
    std::vector<std::vector<std::string>> rows;
    if (item && item->isSelected()) {
        const size_t index = size_t(item->data(Qt::UserRole).toInt());
        if (index < clubs.size()) {
            rows.reserve(clubs[index].Players.size());
            for (const auto& p : clubs[index].Players) rows.push_back(scoutRowCells(p));
        }
    }
    lvwScoutPlayers_->setRows(std::move(rows));
    lvwScoutPlayers_->sortByColumnAscending(1);
}

void ScoutScreen::rowClicked() {
    const std::vector<std::string> cells = lvwScoutPlayers_->currentCells();
    const QListWidgetItem* club = lvwScoutTeams_->currentItem();
    if (cells.empty() || !club) {
        orders_->chooseRow(std::nullopt);
        face_->clear();
        return;
    }
    orders_->chooseRow(selectRow(MarketScreen::Scout, cells, gameText(club->text())));
    showRowFace(face_, cells, 0);
}

}  // namespace kestrin::ui
