#include "ui/squadscreen.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/errors.h"
#include "core/text.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

QButtonGroup* filterButtons(QWidget* parent, QHBoxLayout* row, const QString& name, const auto& captions) {
    auto* group = new QButtonGroup(parent);
    group->setObjectName(name);
    group->setExclusive(true);
    int id = 0;
    for (std::string_view caption : captions) {
        auto* b = makeButton(name + QString::number(id), qs(caption), parent);
        b->setCheckable(true);
        b->setChecked(id == 0);
        group->addButton(b, id);
        row->addWidget(b);
        ++id;
    }
    return group;
}

}  // namespace

SquadScreen::SquadScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "SquadScr", "Squad Screen", parent),
      grdSquad_(new QTableWidget(this)),
      coachText_(new QLabel(this)),
      colourKey_(new QLabel(this)),
      upDownPhysio_(new QSpinBox(this)),
      orderButtons_(new QHBoxLayout) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 14, 18, 14);
    root->setSpacing(10);

    auto* header = new QHBoxLayout;
    auto* heading = new QLabel("Squad", this);
    heading->setObjectName("screenHeading");
    header->addWidget(heading);
    header->addSpacing(16);
    header->addWidget(new QLabel("Club:", this));
    header->addWidget(teamList());
    header->addStretch(1);
    root->addLayout(header);

    auto* filters = new QHBoxLayout;
    filters->setSpacing(4);
    filters->addWidget(new QLabel("Ages:", this));
    btnTeam_ = filterButtons(this, filters, "btnTeam", kAgeFilterCaptions);
    filters->addSpacing(20);
    filters->addWidget(new QLabel("Positions:", this));
    btnPos_ = filterButtons(this, filters, "btnPos", kPositionFilterCaptions);
    filters->addStretch(1);
    root->addLayout(filters);
    // A filter refills through Select club, as every change of view does.
    for (QButtonGroup* g : {btnTeam_, btnPos_})
        connect(g, &QButtonGroup::idClicked, this, [this] { controller_.selectClub(controller_.session().CurrentClub); });

    grdSquad_->setObjectName("grdSquad");
    grdSquad_->setColumnCount(kSquadGridColumnCount);
    QStringList heads;
    for (std::string_view h : kSquadGridColumns) heads << qs(h);
    grdSquad_->setHorizontalHeaderLabels(heads);
    grdSquad_->verticalHeader()->setVisible(false);
    grdSquad_->verticalHeader()->setDefaultSectionSize(24);
    grdSquad_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdSquad_->setSelectionBehavior(QAbstractItemView::SelectRows);
    grdSquad_->setSelectionMode(QAbstractItemView::SingleSelection);
    grdSquad_->setAlternatingRowColors(true);
    grdSquad_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    grdSquad_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    root->addWidget(grdSquad_, 1);

    auto* lower = new QHBoxLayout;
    lower->setSpacing(12);
    auto* coaches = new QGroupBox("Coaches", this);
    auto* cl = new QVBoxLayout(coaches);
    coachText_->setObjectName("CoachText");
    coachText_->setFont(fixedFont());
    cl->addWidget(coachText_);
    lower->addWidget(coaches);

    auto* key = new QGroupBox("Colours of the skills", this);
    auto* kl = new QVBoxLayout(key);
    colourKey_->setObjectName("lblColourKey");
    colourKey_->setText(qs(kColourKeyText));
    colourKey_->setWordWrap(true);
    kl->addWidget(colourKey_);
    auto* swatches = new QHBoxLayout;
    struct Swatch {
        const char* word;
        QColor colour;
    };
    for (const Swatch& s : {Swatch{"Reached potential", QColor(255, 0, 0)}, Swatch{"Failure", QColor(255, 255, 0)},
                            Swatch{"Success", QColor(0, 255, 0)}}) {
        auto* chip = new QLabel(s.word, key);
        chip->setStyleSheet(QString("background: %1; color: black; padding: 2px 8px; border: 1px solid #777;")
                                .arg(s.colour.name()));
        swatches->addWidget(chip);
    }
    swatches->addStretch(1);
    kl->addLayout(swatches);
    kl->addStretch(1);
    lower->addWidget(key, 1);

    auto* physio = new QGroupBox("Physio", this);
    auto* pl = new QVBoxLayout(physio);
    upDownPhysio_->setObjectName("UpDownPhysio");
    // The box's text is the physio figure the game calls txtPhysio.
    upDownPhysio_->findChild<QLineEdit*>()->setObjectName("txtPhysio");
    upDownPhysio_->setFont(fixedFont(2));
    upDownPhysio_->setAlignment(Qt::AlignRight);
    upDownPhysio_->setMinimumWidth(90);
    pl->addWidget(new QLabel("Points this week", physio));
    pl->addWidget(upDownPhysio_);
    pl->addStretch(1);
    lower->addWidget(physio);
    root->addLayout(lower);

    auto* footer = new QHBoxLayout;
    auto* save = makeButton("Command2", "Save Turnsheet", this);
    auto* send = makeButton("Command3", "Send Turnsheet", this);
    auto* back = makeButton("btnReturn", "Main Menu", this);
    connect(save, &QPushButton::clicked, this, [this] { controller_.saveTurnsheet(); });
    connect(send, &QPushButton::clicked, this, [this] { controller_.sendTurnsheet(); });
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    footer->addLayout(orderButtons_);
    footer->addStretch(1);
    footer->addWidget(save);
    footer->addWidget(send);
    footer->addSpacing(24);
    footer->addWidget(back);
    root->addLayout(footer);
    needClub_ = {save, send, upDownPhysio_, grdSquad_};
    for (QAbstractButton* b : btnTeam_->buttons()) needClub_.push_back(b);
    for (QAbstractButton* b : btnPos_->buttons()) needClub_.push_back(b);
    enableForClubs(false);
}

void SquadScreen::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
    if (!hasClubs) {
        grdSquad_->setRowCount(0);
        coachText_->clear();
        upDownPhysio_->setRange(0, 0);
    }
}

void SquadScreen::fillClub() {
    const Club* club = controller_.session().current();
    if (!club) return;
    fillGrid(*club);
    QStringList lines;
    for (const std::string& l : coachTextLines(*club)) lines << qs(l);
    coachText_->setText(lines.join('\n'));
    upDownPhysio_->setRange(0, club->Physio);
    upDownPhysio_->setValue(club->Physio);
}

void SquadScreen::fillGrid(const Club& club) {
    std::vector<HistoryRecord> history;
    try {
        history = readHistoryFile(historyPath(controller_.session(), club));
    } catch (const GameFileError&) {
        // Without its history file the grid is simply uncoloured.
    }
    const auto rows = squadGridRows(club, ageFilter(), positionFilter(), history);
    grdSquad_->clearContents();
    grdSquad_->setRowCount(int(rows.size()));
    const QFont figures = fixedFont();
    for (int r = 0; r < int(rows.size()); ++r) {
        const SquadRow& row = rows[size_t(r)];
        for (int c = 0; c < kSquadGridColumnCount; ++c) {
            auto* item = new QTableWidgetItem(qs(row.cells[size_t(c)]));
            if (c >= 2) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
                item->setFont(figures);
            }
            if (const int colour = row.colour[size_t(c)]; colour >= 0) {
                item->setBackground(QColor::fromRgb(QRgb(colour)));
                item->setForeground(Qt::black);
            }
            grdSquad_->setItem(r, c, item);
        }
    }
}

}  // namespace kestrin::ui
