#include "ui/marketorders.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <climits>

#include "core/text.h"
#include "match/portraits.h"
#include "ui/faceview.h"
#include "ui/look.h"
#include "ui/ordersettle.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

constexpr int kTagRole = Qt::UserRole;

std::optional<std::string> selectedLine(const QListWidget* list) {
    const QListWidgetItem* item = list->currentItem();
    if (!item || !item->isSelected()) return std::nullopt;
    return gameText(item->text());
}

QListWidget* orderList(const QString& name, QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    // Room for the four scout actions or the six movements, no more: the
    // player grid above takes the height.
    list->setFixedHeight(QFontMetrics(list->font()).lineSpacing() * 6 + 10);
    return list;
}

}  // namespace

std::vector<RowsColumn> marketColumns(std::span<const MarketColumn> columns) {
    std::vector<RowsColumn> out;
    for (const MarketColumn& c : columns) out.push_back({c.head, c.width, c.right});
    return out;
}

void showRowFace(FaceView* face, const std::vector<std::string>& cells, size_t firstCell) {
    // The hidden cells behind the twelve shown: Portrait 1 to 7, then Colours.
    constexpr size_t kPortraitCell = 12, kColoursCell = 19, kSignCell = 6;
    if (cells.size() < firstCell + kColoursCell + 1 || trim(cells[firstCell]).empty()) {
        face->clear();
        return;
    }
    PortraitCodes codes{};
    for (size_t k = 1; k < codes.size(); ++k) codes[k] = int32_t(val(cells[firstCell + kPortraitCell + k - 1]));
    // The colour words from column 3, as on the Squadsheet; the export leaves
    // a blank behind them, which would keep any club from its own shirt.
    const std::string& colours = cells[firstCell + kColoursCell];
    face->showFace(codes, int(val(cells[firstCell + kSignCell])), trim(colours.size() > 2 ? colours.substr(2) : ""));
}

UpDownBox::UpDownBox(const QString& upDownName, const QString& textName, QWidget* parent) : QSpinBox(parent) {
    setObjectName(upDownName);
    lineEdit()->setObjectName(textName);
    setRange(0, INT_MAX);
    setAlignment(Qt::AlignRight);
    setFont(fixedFont());
    setMinimumWidth(110);
}

void UpDownBox::setUpDownLimits(int lowest, int highest) {
    lowest_ = lowest;
    highest_ = std::max(lowest, highest);
}

QString UpDownBox::text() const { return lineEdit()->text(); }

void UpDownBox::setText(const QString& text) { lineEdit()->setText(text); }

void UpDownBox::stepBy(int steps) {
    const long long next = (long long)(QSpinBox::text().toLongLong()) + (long long)(steps) * singleStep();
    setValue(int(std::clamp<long long>(next, lowest_, highest_)));
    selectAll();
}

QAbstractSpinBox::StepEnabled UpDownBox::stepEnabled() const {
    const long long v = QSpinBox::text().toLongLong();
    StepEnabled e = StepNone;
    if (v < highest_) e |= StepUpEnabled;
    if (v > lowest_) e |= StepDownEnabled;
    return e;
}

MarketOrders::MarketOrders(SessionController& controller, MarketScreen screen, std::function<bool()> clubSelected,
                           QWidget* parent)
    : QWidget(parent),
      controller_(controller),
      screen_(screen),
      clubSelected_(std::move(clubSelected)),
      chkScoutAgg_(new QCheckBox("Aggressive scouting", this)),
      lstScoutedPlayers_(orderList("lstScoutedPlayers", this)),
      lstBidPlayers_(orderList("lstBidPlayers", this)),
      amount_(new UpDownBox("UpAmount", "txtBidAmount", this)),
      contract_(new UpDownBox("UpDown6", "txtBidContract", this)),
      incentive_(new UpDownBox("UpIncentive", "txtBidIncentive", this)) {
    auto* root = new QHBoxLayout(this);
    root->setContentsMargins(0, 0, 0, 0);
    root->setSpacing(10);

    auto* scouting = new QGroupBox("Scouting", this);
    auto* sl = new QVBoxLayout(scouting);
    sl->setContentsMargins(6, 4, 6, 6);
    auto* scoutRow = new QHBoxLayout;
    chkScoutAgg_->setObjectName("chkScoutAgg");
    chkScoutAgg_->setToolTip("An aggressive scout finds out more, and the player's club may hear of it");
    auto* scoutButton = makeButton("cmdScout", "Scout Player", this);
    auto* unScout = makeButton("cmdUnScout", "Remove Scout", this);
    scoutRow->addWidget(chkScoutAgg_);
    scoutRow->addStretch(1);
    scoutRow->addWidget(scoutButton);
    scoutRow->addWidget(unScout);
    sl->addLayout(scoutRow);
    sl->addWidget(lstScoutedPlayers_, 1);
    root->addWidget(scouting, 1);

    auto* bids = new QGroupBox("Bids and loans", this);
    auto* bl = new QVBoxLayout(bids);
    bl->setContentsMargins(6, 4, 6, 6);
    auto* boxes = new QGridLayout;
    boxes->setHorizontalSpacing(6);
    boxes->addWidget(new QLabel("Amount", this), 0, 0);
    boxes->addWidget(amount_, 1, 0);
    boxes->addWidget(new QLabel("Contract (months, or loan weeks)", this), 0, 1);
    boxes->addWidget(contract_, 1, 1);
    boxes->addWidget(new QLabel("Incentive", this), 0, 2);
    boxes->addWidget(incentive_, 1, 2);
    amount_->setSingleStep(10000);
    incentive_->setSingleStep(5000);
    // Either kind of order: 6 to 24 months for a bid, 4 to 12 weeks for a loan.
    contract_->setUpDownLimits(4, 24);
    contract_->setValue(12);
    contract_->setMinimumWidth(70);
    bl->addLayout(boxes);
    auto* bidRow = new QHBoxLayout;
    auto* bidButton = makeButton("cmdBid", "Make Bid", this);
    auto* loanButton = makeButton("cmdLoan", "Loan Approach", this);
    auto* removeBidButton = makeButton("cmdRemoveBid", "Remove Bid", this);
    bidRow->addWidget(bidButton);
    bidRow->addWidget(loanButton);
    bidRow->addStretch(1);
    bidRow->addWidget(removeBidButton);
    bl->addLayout(bidRow);
    bl->addWidget(lstBidPlayers_, 1);
    root->addWidget(bids, 1);

    connect(scoutButton, &QPushButton::clicked, this, &MarketOrders::scout);
    connect(unScout, &QPushButton::clicked, this, &MarketOrders::unScout);
    connect(bidButton, &QPushButton::clicked, this, &MarketOrders::bid);
    connect(loanButton, &QPushButton::clicked, this, &MarketOrders::loan);
    connect(removeBidButton, &QPushButton::clicked, this, &MarketOrders::removeBid);
    chooseRow(std::nullopt);
}

void MarketOrders::chooseRow(std::optional<MarketSelection> row) {
    row_ = std::move(row);
    const BidBoxLimits limits = row_ ? bidBoxLimits(*row_) : BidBoxLimits{};
    amount_->setUpDownLimits(limits.AmountMin, limits.AmountMax);
    amount_->setText(qs(limits.Amount));
    incentive_->setUpDownLimits(0, limits.IncentiveMax);
}

void MarketOrders::rebuildLists() {
    lstBidPlayers_->clear();
    lstScoutedPlayers_->clear();
    const Club* club = controller_.session().current();
    if (!club) return;
    for (const OrderLine& line : bidLines(*club)) {
        auto* item = new QListWidgetItem(qs(line.text), lstBidPlayers_);
        item->setData(kTagRole, line.tag);
    }
    for (const std::string& line : scoutLines(*club)) lstScoutedPlayers_->addItem(qs(line));
}

MarketPick MarketOrders::pick() const {
    MarketPick p;
    p.Screen = screen_;
    p.ClubSelected = clubSelected_ && clubSelected_();
    p.Row = row_;
    return p;
}

BidBoxes MarketOrders::boxes() const {
    return BidBoxes{gameText(amount_->text()), gameText(contract_->text()), gameText(incentive_->text())};
}

void MarketOrders::bid() {
    Club* club = controller_.session().current();
    if (!club) return;
    settle(controller_, cmdBid(*club, pick(), boxes(), controller_.messages()));
}

void MarketOrders::loan() {
    Club* club = controller_.session().current();
    if (!club) return;
    BidBoxes b = boxes();
    const std::string before = b.Amount;
    const OrderResult result = cmdLoan(*club, pick(), b, controller_.messages());
    if (b.Amount != before) amount_->setText(qs(b.Amount));
    settle(controller_, result);
}

void MarketOrders::removeBid() {
    Club* club = controller_.session().current();
    if (!club) return;
    settle(controller_, cmdRemoveBid(*club, selectedLine(lstBidPlayers_)));
}

void MarketOrders::scout() {
    Club* club = controller_.session().current();
    if (!club) return;
    settle(controller_, cmdScout(*club, pick(), chkScoutAgg_->isChecked(), controller_.session().ScoutTable,
                                 controller_.messages()));
}

void MarketOrders::unScout() {
    Club* club = controller_.session().current();
    if (!club) return;
    settle(controller_, cmdUnScout(*club, selectedLine(lstScoutedPlayers_)));
}

}  // namespace kestrin::ui
