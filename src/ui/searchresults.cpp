#include "ui/searchresults.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/text.h"
#include "ui/faceview.h"
#include "ui/marketorders.h"
#include "ui/qtext.h"
#include "ui/rowstable.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

template <class Items>
QComboBox* filterBox(const QString& name, const Items& items, QWidget* parent) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    for (std::string_view item : items) box->addItem(qs(item));
    // Empty until the Scout screen seeds it on the first opening.
    box->setCurrentIndex(-1);
    return box;
}

void choose(QComboBox* box, const std::string& item) { box->setCurrentIndex(box->findText(qs(item))); }

}  // namespace

SearchResults::SearchResults(SessionController& controller, QWidget* parent)
    : Screen(controller, "SearchResults", "Detailed player search", parent),
      txtPlayerSearch_(new QLineEdit(this)),
      comboPos_(filterBox("ComboPos", kSearchPositionItems, this)),
      comboPerf_(filterBox("ComboPerf", kSearchPerfItems, this)),
      comboValue_(filterBox("ComboValue", kSearchValueItems, this)),
      comboAge_(filterBox("ComboAge", kSearchAgeItems, this)),
      comboSkill_(filterBox("ComboSkill", kSearchSkillItems, this)),
      comboSign_(filterBox("ComboSign", kSearchSignItems, this)),
      comboMgd_(filterBox("ComboMgd", kSearchManagedItems, this)),
      lvwScoutPlayers_(new RowsTable("lvwScoutPlayers", marketColumns(kSearchPlayerColumns), this)),
      face_(new FaceView(this)),
      orders_(new MarketOrders(controller, MarketScreen::Search, nullptr, this)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);
    auto* header = headerRow("Detailed player search");
    header->addStretch(1);
    root->addLayout(header);

    auto* filters = new QGroupBox("Find players", this);
    auto* grid = new QGridLayout(filters);
    grid->setContentsMargins(8, 4, 8, 8);
    grid->setHorizontalSpacing(10);
    txtPlayerSearch_->setObjectName("txtPlayerSearch");
    txtPlayerSearch_->setPlaceholderText("Part of a name: the bands are then not used");
    txtPlayerSearch_->setMinimumWidth(200);
    struct Labelled {
        const char* label;
        QWidget* box;
    };
    const Labelled boxes[] = {{"Player Search", txtPlayerSearch_}, {"Position", comboPos_},
                              {"Minimum Perf.", comboPerf_},       {"Value", comboValue_},
                              {"Age", comboAge_},                  {"Total Skill", comboSkill_},
                              {"Minimum Sign", comboSign_},        {"Include Mgd", comboMgd_}};
    int column = 0;
    for (const Labelled& b : boxes) {
        grid->addWidget(new QLabel(b.label, this), 0, column);
        grid->addWidget(b.box, 1, column);
        ++column;
    }
    auto* searchButton = makeButton("btnSearch", "Search", this);
    searchButton->setDefault(true);
    grid->addWidget(searchButton, 1, column);
    grid->setColumnStretch(0, 2);
    root->addWidget(filters);

    auto* middle = new QHBoxLayout;
    middle->addWidget(lvwScoutPlayers_, 1);
    auto* side = new QVBoxLayout;
    face_->setObjectName("ScoutPic");
    side->addWidget(face_, 0, Qt::AlignHCenter);
    side->addStretch(1);
    auto* back = makeButton("BtnReturnToMain", "Return to Scout", this);
    side->addWidget(back);
    middle->addLayout(side);
    root->addLayout(middle, 1);
    root->addWidget(orders_);

    connect(searchButton, &QPushButton::clicked, this, &SearchResults::search);
    connect(txtPlayerSearch_, &QLineEdit::returnPressed, this, &SearchResults::search);
    connect(lvwScoutPlayers_, &RowsTable::rowChosen, this, &SearchResults::rowClicked);
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("Scout"); });
    needClub_ = {filters, lvwScoutPlayers_, orders_};
    enableForClubs(false);
}

void SearchResults::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
}

void SearchResults::sessionLoaded() {
    Screen::sessionLoaded();
    lvwScoutPlayers_->setRows({});
    orders_->chooseRow(std::nullopt);
    face_->clear();
}

void SearchResults::fillClub() { rebuildOrderLists(); }

void SearchResults::rebuildOrderLists() { orders_->rebuildLists(); }

void SearchResults::seedIfEmpty() {
    if (!trim(gameText(comboPos_->currentText())).empty()) return;
    const SearchFilter defaults;
    txtPlayerSearch_->setText(qs(defaults.Name));
    choose(comboPos_, defaults.Pos);
    choose(comboPerf_, defaults.Perf);
    choose(comboValue_, defaults.Value);
    choose(comboAge_, defaults.Age);
    choose(comboSkill_, defaults.Skill);
    choose(comboSign_, defaults.Sign);
    choose(comboMgd_, defaults.Managed);
}

SearchFilter SearchResults::filter() const {
    SearchFilter f;
    f.Name = gameText(txtPlayerSearch_->text());
    f.Pos = gameText(comboPos_->currentText());
    f.Perf = gameText(comboPerf_->currentText());
    f.Value = gameText(comboValue_->currentText());
    f.Age = gameText(comboAge_->currentText());
    f.Skill = gameText(comboSkill_->currentText());
    f.Sign = gameText(comboSign_->currentText());
    f.Managed = gameText(comboMgd_->currentText());
    return f;
}

void SearchResults::search() {
    const Session& s = controller_.session();
    const Club* club = s.current();
    const std::vector<SearchHit> hits = searchExport(s.ExportClubs, filter(), club ? club->Balance : 0);
    lvwScoutPlayers_->setRows(searchRows(s.ExportClubs, hits));
    orders_->chooseRow(std::nullopt);
    face_->clear();
}

void SearchResults::rowClicked() {
    const std::vector<std::string> cells = lvwScoutPlayers_->currentCells();
    if (cells.empty()) {
        orders_->chooseRow(std::nullopt);
        face_->clear();
        return;
    }
    orders_->chooseRow(selectRow(MarketScreen::Search, cells));
    showRowFace(face_, cells, 1);
}

}  // namespace kestrin::ui
