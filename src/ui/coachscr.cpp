#include "ui/coachscr.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/errors.h"
#include "core/loader.h"
#include "orders/coaching.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

enum Column { Name, Pos, Date, Skill, Result, NewValue, Item, Record, ColumnCount };

// The result in the colours of the squad grid's skill cells.
QColor resultColour(const std::string& result) {
    for (const char* code : {"Y", "N", "P"})
        if (result == historyResultText(code)) return QColor::fromRgb(QRgb(historyResultColour(code)));
    return {};
}

}  // namespace

CoachScr::CoachScr(SessionController& controller, QWidget* parent)
    : QDialog(parent), lvwCoachRes_(new QTreeWidget(this)) {
    setObjectName("CoachScr");
    setWindowTitle(qs(coachingHistoryTitle(controller.session().Game)));
    setModal(true);

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 12);
    const Club* club = controller.session().current();
    auto* heading = new QLabel(club ? "Coaching history of " + qs(club->Name) : QString(), this);
    heading->setObjectName("screenHeading");
    root->addWidget(heading);

    lvwCoachRes_->setObjectName("lvwCoachRes");
    lvwCoachRes_->setColumnCount(ColumnCount);
    QStringList heads;
    for (std::string_view h : kCoachingHistoryColumns) heads << qs(h);
    heads << "Item" << "Record";
    lvwCoachRes_->setHeaderLabels(heads);
    lvwCoachRes_->setRootIsDecorated(false);
    lvwCoachRes_->setUniformRowHeights(true);
    lvwCoachRes_->setAlternatingRowColors(true);
    lvwCoachRes_->setSelectionMode(QAbstractItemView::SingleSelection);
    // The sort columns serve the order only.
    lvwCoachRes_->setColumnHidden(Item, true);
    lvwCoachRes_->setColumnHidden(Record, true);
    lvwCoachRes_->header()->setStretchLastSection(false);
    lvwCoachRes_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lvwCoachRes_->header()->setSectionResizeMode(Name, QHeaderView::Stretch);
    root->addWidget(lvwCoachRes_, 1);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* close = makeButton("btnClose", "Close", this);
    close->setDefault(true);
    buttons->addWidget(close);
    root->addLayout(buttons);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    resize(760, 560);
}

CoachScr* CoachScr::openOver(QWidget* parent, SessionController& controller) {
    return openModal(create(parent, controller));
}

CoachScr* CoachScr::create(QWidget* parent, SessionController& controller) {
    const Club* club = controller.session().current();
    if (!club) return nullptr;
    std::optional<std::vector<CoachingHistoryRow>> rows;
    try {
        rows = coachingHistory(controller.session(), *club);
    } catch (const GameFileError& e) {
        controller.messages().warn("Coaching history not shown",
                                   unreadableFileText("coaching history", e,
                                                      "Check that the file can be read. The orders of "
                                                      "the week are not affected."));
        return nullptr;
    }
    if (!rows) return nullptr;

    auto* dialog = new CoachScr(controller, parent);
    const QFont figures = fixedFont();
    for (const CoachingHistoryRow& r : *rows) {
        auto* item = new QTreeWidgetItem(dialog->lvwCoachRes_);
        const std::string cells[ColumnCount] = {r.Name, r.Pos, r.Date, r.SkillCoached, r.Result, r.NewValue, r.Item,
                                                r.Record};
        for (int c = 0; c < ColumnCount; ++c) item->setText(c, qs(cells[c]));
        for (int c : {Date, NewValue}) item->setFont(c, figures);
        item->setTextAlignment(NewValue, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(Skill, Qt::AlignCenter);
        if (const QColor colour = resultColour(r.Result); colour.isValid()) {
            item->setBackground(Result, colour);
            item->setForeground(Result, Qt::black);
        }
    }
    return dialog;
}

}  // namespace kestrin::ui
