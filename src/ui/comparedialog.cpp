#include "ui/comparedialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/clubview.h"
#include "orders/compare.h"
#include "ui/look.h"
#include "ui/ordersettle.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

constexpr int kTwipsPerPixel = 15;

QListWidget* playerList(const QString& name, QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    return list;
}

}  // namespace

CompareDialog::CompareDialog(QWidget* parent, SessionController& controller)
    : QDialog(parent),
      controller_(controller),
      txtPlayer_(new QLabel(this)),
      lvwPlayerList_(playerList("lvwPlayerList", this)),
      lvwCompList_(playerList("lvwCompList", this)),
      result_(new QTableWidget(this)) {
    setObjectName("Compare");
    setWindowTitle(qs(screenTitle(controller.session().Game, "Skill Comparison")));
    resize(900, 600);
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 12);
    txtPlayer_->setObjectName("txtPlayer");
    txtPlayer_->setProperty("heading", true);
    QFont big = txtPlayer_->font();
    big.setPointSize(big.pointSize() + 3);
    big.setBold(true);
    txtPlayer_->setFont(big);
    root->addWidget(txtPlayer_);

    auto* lists = new QHBoxLayout;
    lists->addWidget(lvwPlayerList_, 1);
    auto* middle = new QVBoxLayout;
    middle->addStretch(1);
    auto* addButton = makeButton("btnAdd", "Add >>", this);
    auto* removeButton = makeButton("BtnRemove", "<< Remove", this);
    middle->addWidget(addButton);
    middle->addWidget(removeButton);
    middle->addStretch(1);
    lists->addLayout(middle);
    lists->addWidget(lvwCompList_, 1);
    root->addLayout(lists, 2);

    result_->setObjectName("grdCompare");
    result_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    result_->verticalHeader()->setVisible(false);
    result_->verticalHeader()->setDefaultSectionSize(20);
    result_->setColumnCount(int(kCompareColumns.size()));
    QStringList heads;
    for (const CompareColumn& c : kCompareColumns) heads << qs(c.head);
    result_->setHorizontalHeaderLabels(heads);
    for (int c = 0; c < int(kCompareColumns.size()); ++c)
        result_->setColumnWidth(c, kCompareColumns[size_t(c)].width / kTwipsPerPixel + 12);
    result_->setFont(fixedFont());
    root->addWidget(result_, 3);

    auto [row, ok, cancel] = makeOkCancel(this);
    ok->setObjectName("OKButton");
    ok->setText("Compare");
    cancel->setObjectName("CancelButton");
    cancel->setText("Close");
    root->addLayout(row);

    connect(addButton, &QPushButton::clicked, this, &CompareDialog::add);
    connect(removeButton, &QPushButton::clicked, this, &CompareDialog::removeChosen);
    connect(lvwPlayerList_, &QListWidget::itemDoubleClicked, this, &CompareDialog::add);
    connect(ok, &QPushButton::clicked, this, &CompareDialog::compare);
}

CompareDialog* CompareDialog::create(QWidget* parent, SessionController& controller, std::string_view rowText) {
    const Club* club = controller.session().current();
    if (!club) return nullptr;
    const CompareStart start = startComparison(*club, rowText, controller.session().ScoutTable);
    if (!passes(controller, start.check)) return nullptr;
    auto* d = new CompareDialog(parent, controller);
    d->baseName_ = start.baseName;
    d->txtPlayer_->setText(qs(start.prompt));
    for (const std::string& line : start.candidates) d->lvwPlayerList_->addItem(qs(line));
    return d;
}

CompareDialog* CompareDialog::openOver(QWidget* parent, SessionController& controller, std::string_view rowText) {
    return openModal(create(parent, controller, rowText));
}

void CompareDialog::add() {
    const QListWidgetItem* item = lvwPlayerList_->currentItem();
    std::optional<std::string> line;
    if (item && item->isSelected()) line = gameText(item->text());
    const OrderResult r = addComparison(line);
    if (!passes(controller_, r)) return;
    lvwCompList_->addItem(qs(r.line));
}

void CompareDialog::removeChosen() {
    if (QListWidgetItem* item = lvwCompList_->currentItem(); item && item->isSelected()) delete item;
}

void CompareDialog::compare() {
    const Club* club = controller_.session().current();
    if (!club) return;
    std::vector<std::string> lines;
    for (int i = 0; i < lvwCompList_->count(); ++i) lines.push_back(gameText(lvwCompList_->item(i)->text()));
    const std::vector<CompareRow> rows = compareRows(*club, baseName_, lines, controller_.session().ScoutTable);
    result_->clearContents();
    result_->setRowCount(int(rows.size()));
    for (int r = 0; r < int(rows.size()); ++r) {
        const CompareRow& row = rows[size_t(r)];
        result_->setItem(r, 0, new QTableWidgetItem(qs(row.Name)));
        result_->setItem(r, 1, new QTableWidgetItem(qs(row.Pos)));
        for (size_t c = 0; c < row.Cells.size(); ++c) {
            auto* item = new QTableWidgetItem(qs(row.Cells[c]));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            // Better in green, worse in red, the base player as he is.
            if (r > 0 && !row.Cells[c].empty())
                item->setForeground(row.Cells[c][0] == '+' ? QColor(0, 128, 0) : QColor(192, 0, 0));
            result_->setItem(r, int(c) + 2, item);
        }
    }
}

}  // namespace kestrin::ui
