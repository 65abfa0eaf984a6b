#include "ui/squadscreen.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstdio>

#include "core/errors.h"
#include "core/text.h"
#include "orders/coaching.h"
#include "orders/onetoone.h"
#include "match/pictures/kitcolours.h"
#include "ui/coachscr.h"
#include "ui/comparedialog.h"
#include "ui/emailplayer.h"
#include "ui/faceview.h"
#include "ui/look.h"
#include "ui/mainwindow.h"
#include "ui/onetoonedialog.h"
#include "ui/ordersettle.h"
#include "ui/playeract.h"
#include "ui/playerdetailspanel.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/snapshot.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

// The game's own bytes behind a cell or a list line, so that a name read back
// is the name stored, whatever the screen makes of its characters.
constexpr int kGameTextRole = Qt::UserRole;
constexpr int kTagRole = Qt::UserRole + 1;

std::string rawText(const QVariant& v) { return v.toByteArray().toStdString(); }

}  // namespace

SquadScreen::SquadScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "SquadScr", "Squad Screen", parent),
      grdSquad_(new QTableWidget(this)),
      coachText_(new QLabel(this)),
      colourKey_(new QLabel(this)),
      upDownPhysio_(new QSpinBox(this)),
      txtPhysio_(upDownPhysio_->findChild<QLineEdit*>()),
      physioLeft_(new QLabel(this)),
      actionsUsed_(new QLabel(this)),
      txtOtherDet_(new PlayerDetailsPanel(this)),
      picFace_(new FaceView(this)),
      lstActions_(new QListWidget(this)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);

    auto* header = headerRow("Squad");
    header->addSpacing(28);
    header->addWidget(new QLabel("Ages:", this));
    header->setSpacing(4);
    btnTeam_ = filterButtons(this, header, "btnTeam", kAgeFilterCaptions);
    header->addSpacing(20);
    header->addWidget(new QLabel("Positions:", this));
    btnPos_ = filterButtons(this, header, "btnPos", kPositionFilterCaptions);
    header->addStretch(1);
    root->addLayout(header);
    // A filter refills through Select club, as every change of view does.
    for (QButtonGroup* g : {btnTeam_, btnPos_})
        connect(g, &QButtonGroup::idClicked, this, [this] { controller_.selectClub(controller_.session().CurrentClub); });

    grdSquad_->setObjectName("grdSquad");
    grdSquad_->setColumnCount(kSquadGridColumnCount);
    QStringList heads;
    for (std::string_view h : kSquadGridColumns) heads << qs(h);
    grdSquad_->setHorizontalHeaderLabels(heads);
    grdSquad_->verticalHeader()->setVisible(false);
    grdSquad_->verticalHeader()->setDefaultSectionSize(22);
    grdSquad_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A cell, not a row: its row is the player and its column the skill coached.
    grdSquad_->setSelectionBehavior(QAbstractItemView::SelectItems);
    grdSquad_->setSelectionMode(QAbstractItemView::SingleSelection);
    grdSquad_->setAlternatingRowColors(true);
    // Every column as wide as its figures; the names take the spare width but
    // are never cut, so a narrow window scrolls sideways instead.
    grdSquad_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    grdSquad_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Fixed);
    grdSquad_->viewport()->installEventFilter(this);
    grdSquad_->setMinimumHeight(220);
    connect(grdSquad_, &QTableWidget::currentCellChanged, this, [this] { showDetails(); });
    root->addWidget(grdSquad_, 1);

    auto* key = new QHBoxLayout;
    key->setSpacing(6);
    struct Swatch {
        const char* word;
        QColor colour;
    };
    for (const Swatch& s : {Swatch{"Reached potential", QColor(255, 0, 0)}, Swatch{"Failure", QColor(255, 255, 0)},
                            Swatch{"Success", QColor(0, 255, 0)}}) {
        auto* chip = new QLabel(s.word, this);
        chip->setStyleSheet(QString("background: %1; color: black; padding: 1px 8px; border: 1px solid #777;")
                                .arg(s.colour.name()));
        key->addWidget(chip);
    }
    colourKey_->setObjectName("lblColourKey");
    colourKey_->setText(qs(kColourKeyText));
    key->addWidget(colourKey_, 1);
    root->addLayout(key);

    // Below the grid: the chosen player, the week's orders, the coaches.
    auto* lower = new QHBoxLayout;
    lower->setSpacing(10);

    auto* details = new QGroupBox("Player details", this);
    auto* dl = new QHBoxLayout(details);
    dl->setContentsMargins(6, 4, 6, 6);
    dl->addWidget(txtOtherDet_, 1);
    dl->addWidget(picFace_, 0, Qt::AlignTop);
    lower->addWidget(details, 1);

    auto* orders = new QGroupBox("Orders this week", this);
    auto* ol = new QVBoxLayout(orders);
    ol->setContentsMargins(6, 4, 6, 6);
    ol->setSpacing(4);
    lstActions_->setObjectName("lstActions");
    lstActions_->setSelectionMode(QAbstractItemView::SingleSelection);
    // Room for a full week of orders; the grid takes the rest of the height.
    lstActions_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    QFont listFont = lstActions_->font();
    listFont.setPointSize(9);
    lstActions_->setFont(listFont);
    lstActions_->setMinimumHeight(QFontMetrics(lstActions_->font()).lineSpacing() * 9 + 8);
    ol->addWidget(lstActions_, 1);
    actionsUsed_->setObjectName("lblActionsUsed");
    actionsUsed_->setToolTip("Bids and loan approaches take these places too");
    ol->addWidget(actionsUsed_);
    auto* listButtons = new QHBoxLayout;
    auto* remove = makeButton("BtnRemove", "Remove Order", this);
    auto* hist = makeButton("BtnHist", "Show Coaching History", this);
    listButtons->addWidget(remove);
    listButtons->addWidget(hist);
    ol->addLayout(listButtons);
    orders->setFixedWidth(340);
    lower->addWidget(orders);
    connect(remove, &QPushButton::clicked, this, &SquadScreen::removeClicked);
    connect(hist, &QPushButton::clicked, this, &SquadScreen::historyClicked);

    // The coaches' levels, and under them saving, sending and the way back.
    auto* side = new QVBoxLayout;
    side->setSpacing(6);
    auto* staff = new QGroupBox("Coaches", this);
    auto* sl = new QVBoxLayout(staff);
    sl->setContentsMargins(6, 4, 6, 6);
    coachText_->setObjectName("CoachText");
    coachText_->setFont(fixedFont(-1));
    sl->addWidget(coachText_);
    side->addWidget(staff);
    side->addStretch(1);
    auto* skill = makeButton("btnSkill", "Skill comparison", this);
    skill->setToolTip("Set the chosen player against team-mates and scouted players, skill by skill");
    side->addWidget(skill);
    connect(skill, &QPushButton::clicked, this, [this] {
        if (orderClub()) CompareDialog::openOver(this, controller_, currentRowText());
    });
    needClub_.push_back(skill);
    auto* save = makeButton("Command2", "Save Turnsheet", this);
    auto* send = makeButton("Command3", "Send Turnsheet", this);
    auto* back = makeButton("btnReturn", "Main Menu", this);
    side->addWidget(save);
    side->addWidget(send);
    side->addWidget(back);
    lower->addLayout(side);
    root->addLayout(lower);

    // The order buttons: player actions, then coaching, physio and the one to one.
    auto* actionRow = new QHBoxLayout;
    actionRow->setSpacing(6);
    auto* actionsCaption = new QLabel("Player actions:", this);
    actionsCaption->setMinimumWidth(110);
    actionRow->addWidget(actionsCaption);
    for (int i = 0; i < int(kPlayerActionCaptions.size()); ++i) {
        auto* b = makeButton("btnAction" + QString::number(i), qs(kPlayerActionCaptions[size_t(i)]), this);
        actionRow->addWidget(b);
        needClub_.push_back(b);
        connect(b, &QPushButton::clicked, this, [this, i] { actionClicked(PlayerAction(i)); });
    }
    actionRow->addStretch(1);
    root->addLayout(actionRow);

    auto* staffRow = new QHBoxLayout;
    staffRow->setSpacing(6);
    auto* staffCaption = new QLabel("Coaching:", this);
    staffCaption->setMinimumWidth(110);
    staffRow->addWidget(staffCaption);
    auto* senior = makeButton("btnCoach", "Senior Coach", this);
    auto* youth = makeButton("btnYouth", "Youth Coach", this);
    auto* physio = makeButton("btnPhysio", "Physio", this);
    auto* oneToOne = makeButton("btnOneToOne", "One to One", this);
    connect(senior, &QPushButton::clicked, this, [this] { coachClicked(true); });
    connect(youth, &QPushButton::clicked, this, [this] { coachClicked(false); });
    connect(physio, &QPushButton::clicked, this, &SquadScreen::physioClicked);
    connect(oneToOne, &QPushButton::clicked, this, &SquadScreen::oneToOneClicked);
    senior->setToolTip("Coach the chosen player in the skill of the chosen column");
    youth->setToolTip("Coach the chosen young player in the skill of the chosen column");
    staffRow->addWidget(senior);
    staffRow->addWidget(youth);
    staffRow->addSpacing(18);
    upDownPhysio_->setObjectName("UpDownPhysio");
    // The box's text is the physio figure the game calls txtPhysio.
    txtPhysio_->setObjectName("txtPhysio");
    upDownPhysio_->setFont(fixedFont());
    upDownPhysio_->setAlignment(Qt::AlignRight);
    upDownPhysio_->setMinimumWidth(70);
    upDownPhysio_->setToolTip("Physio points for the chosen player");
    staffRow->addWidget(upDownPhysio_);
    staffRow->addWidget(physio);
    physioLeft_->setObjectName("lblPhysioLeft");
    staffRow->addWidget(physioLeft_);
    staffRow->addSpacing(18);
    staffRow->addWidget(oneToOne);
    staffRow->addStretch(1);
    root->addLayout(staffRow);
    connect(save, &QPushButton::clicked, this, [this] { controller_.saveTurnsheet(); });
    connect(send, &QPushButton::clicked, this, [this] { controller_.sendTurnsheet(); });
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });

    for (QWidget* w : std::initializer_list<QWidget*>{save, send, upDownPhysio_, grdSquad_, lstActions_, remove, hist,
                                                      senior, youth, physio, oneToOne})
        needClub_.push_back(w);
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
        lstActions_->clear();
        physioLeft_->clear();
        actionsUsed_->clear();
        txtOtherDet_->showNone();
        picFace_->clear();
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
    {
        // A refilled grid has no player chosen until the manager clicks one.
        const QSignalBlocker block(grdSquad_);
        grdSquad_->clearContents();
        grdSquad_->setRowCount(int(rows.size()));
        grdSquad_->setCurrentCell(-1, -1);
    }
    const QFont figures = fixedFont();
    for (int r = 0; r < int(rows.size()); ++r) {
        const SquadRow& row = rows[size_t(r)];
        for (int c = 0; c < kSquadGridColumnCount; ++c) {
            auto* item = new QTableWidgetItem(qs(row.cells[size_t(c)]));
            if (c == 0) item->setData(kGameTextRole, QByteArray::fromStdString(row.cells[0]));
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
    grdSquad_->resizeColumnsToContents();
    fitNameColumn();
    showDetails();
}

bool SquadScreen::eventFilter(QObject* watched, QEvent* event) {
    if (watched == grdSquad_->viewport() && event->type() == QEvent::Resize) fitNameColumn();
    return Screen::eventFilter(watched, event);
}

void SquadScreen::fitNameColumn() {
    QHeaderView* head = grdSquad_->horizontalHeader();
    int others = 0;
    for (int c = 1; c < head->count(); ++c) others += head->sectionSize(c);
    grdSquad_->resizeColumnToContents(0);
    const int names = head->sectionSize(0);
    head->resizeSection(0, std::max(names, grdSquad_->viewport()->width() - others));
}

std::string SquadScreen::currentRowText() const {
    const int r = grdSquad_->currentRow();
    if (r < 0 || grdSquad_->currentColumn() < 0) return {};
    const QTableWidgetItem* item = grdSquad_->item(r, 0);
    return item ? rawText(item->data(kGameTextRole)) : std::string();
}

std::string SquadScreen::currentColumnHead() const {
    const int c = grdSquad_->currentColumn();
    if (grdSquad_->currentRow() < 0 || c < 0 || c >= kSquadGridColumnCount) return {};
    return std::string(kSquadGridColumns[size_t(c)]);
}

void SquadScreen::showDetails() {
    const Club* club = controller_.session().current();
    const std::string row = currentRowText();
    const Player* player = club ? club->player(club->findPlayer(row)) : nullptr;
    if (!player || row.empty()) {
        txtOtherDet_->showNone();
        picFace_->clear();
        return;
    }
    txtOtherDet_->showPlayer(*player, controller_.session().Game.Currency);
    picFace_->showFace(player->Portrait, player->Sign, kitColourName(*club));
}

void SquadScreen::rebuildOrderLists() {
    const Club* club = controller_.session().current();
    lstActions_->clear();
    if (!club) return;
    for (const OrderLine& line : orderLines(*club)) {
        auto* item = new QListWidgetItem(qs(line.text), lstActions_);
        item->setData(kGameTextRole, QByteArray::fromStdString(line.text));
        item->setData(kTagRole, line.tag);
    }
    physioLeft_->setText(QString("%1 of %2 points left")
                             .arg(physioPointsLeft(*club))
                             .arg(club->Physio));
    actionsUsed_->setText(QString("Player actions: %1 of %2 used")
                              .arg(usedMovementSlots(*club))
                              .arg(kMaxActions));
}

std::optional<OrderLine> SquadScreen::selectedOrderLine() const {
    const QList<QListWidgetItem*> chosen = lstActions_->selectedItems();
    if (chosen.isEmpty()) return std::nullopt;
    const QListWidgetItem* item = chosen.front();
    return OrderLine{rawText(item->data(kGameTextRole)), item->data(kTagRole).toInt()};
}

Club* SquadScreen::orderClub() {
    Session& session = controller_.session();
    if (session.FillingScreen) return nullptr;
    return session.current();
}

void SquadScreen::actionClicked(PlayerAction action) {
    Club* club = orderClub();
    if (!club) return;
    const std::string row = currentRowText();
    switch (action) {
        case PlayerAction::EmailDetails:
            EmailPlayerDialog::openOver(this, controller_, *club, rowPlayer(*club, row));
            return;
        case PlayerAction::TransferList: settle(controller_, transferList(*club, row)); return;
        case PlayerAction::SellToCrap: settle(controller_, sellToCrap(*club, row)); return;
        default:
            if (passes(controller_, checkPlayerAction(*club, action, row)))
                PlayerActDialog::openOver(this, controller_, action, row);
            return;
    }
}

void SquadScreen::coachClicked(bool senior) {
    if (Club* club = orderClub())
        settle(controller_,
               coachPlayer(*club, senior ? CoachLevel::Senior : CoachLevel::Youth, currentRowText(), currentColumnHead()));
}

void SquadScreen::physioClicked() {
    if (Club* club = orderClub()) settle(controller_, treatWithPhysio(*club, currentRowText(), gameText(txtPhysio_->text())));
}

void SquadScreen::oneToOneClicked() {
    Club* club = orderClub();
    if (club && passes(controller_, checkOneToOne(*club)))
        OneToOneDialog::openOver(this, controller_, currentRowText());
}

void SquadScreen::removeClicked() {
    if (Club* club = orderClub()) settle(controller_, removeOrder(*club, selectedOrderLine()));
}

void SquadScreen::historyClicked() {
    if (orderClub()) CoachScr::openOver(this, controller_);
}

// ---- Pictures of the screen and its dialogs ---------------------------------

int renderSquadSnapshots(MainWindow& window, const std::filesystem::path& outDir) {
    auto* squad = qobject_cast<SquadScreen*>(window.screen("SquadScr"));
    if (!squad) return 0;
    SessionController& controller = squad->controller_;
    const Club* club = controller.session().current();
    if (!club || squad->grid()->rowCount() == 0) return 0;

    int failures = 0;
    auto save = [&](QWidget& w, const char* name) { failures += !savePicture(w, outDir / name); };
    auto shoot = [&](QDialog* dialog, const char* name) {
        if (!dialog) return;
        dialog->setAttribute(Qt::WA_DontShowOnScreen);
        dialog->show();
        save(*dialog, name);
        delete dialog;
    };

    // A player chosen on a skill, as the manager has him before an order.
    window.showScreen("SquadScr");
    squad->grid()->setCurrentCell(0, kFirstSkillColumn + 2);
    save(window, "SquadScr.png");

    const std::string row = squad->currentRowText();
    shoot(new PlayerActDialog(controller, PlayerAction::SellToClub, row, &window), "PlayerAct.png");
    shoot(new PlayerActDialog(controller, PlayerAction::OfferContract, row, &window), "PlayerActContract.png");
    shoot(new OneToOneDialog(controller, row, &window), "OneToOne.png");
    shoot(new EmailPlayerDialog(controller, *club, rowPlayer(*club, row), &window), "EmailPlayer.png");
    shoot(CoachScr::create(&window, controller), "CoachScr.png");
    return failures;
}

}  // namespace kestrin::ui
