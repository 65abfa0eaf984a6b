#include "ui/pitchgrid.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cmath>

#include "match/blend.h"
#include "match/ordertables.h"
#include "match/pictures/shirts.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

// ---- What a drag carries ---------------------------------------------------------

QMimeData* playerEntryMimeData(const std::string& entry) {
    auto* m = new QMimeData;
    m->setData(kPlayerEntryMime, QByteArray::fromStdString(entry));
    m->setText(qs(entry));
    return m;
}

QMimeData* shirtMimeData(int shirt, QPoint grabUnits) {
    auto* m = new QMimeData;
    m->setData(kShirtMime, QString("%1 %2 %3").arg(shirt).arg(grabUnits.x()).arg(grabUnits.y()).toLatin1());
    return m;
}

std::optional<std::string> playerEntryOf(const QMimeData* data) {
    if (!data || !data->hasFormat(kPlayerEntryMime)) return std::nullopt;
    return data->data(kPlayerEntryMime).toStdString();
}

std::optional<ShirtGrab> shirtOf(const QMimeData* data) {
    if (!data || !data->hasFormat(kShirtMime)) return std::nullopt;
    const QList<QByteArray> parts = data->data(kShirtMime).split(' ');
    if (parts.size() != 3) return std::nullopt;
    bool ok[3];
    ShirtGrab g{parts[0].toInt(&ok[0]), QPoint(parts[1].toInt(&ok[1]), parts[2].toInt(&ok[2]))};
    if (!ok[0] || !ok[1] || !ok[2] || g.shirt < 1 || g.shirt > 13) return std::nullopt;
    return g;
}

namespace {

constexpr int kShirtUnits = 600;
constexpr int kHalf = kShirtUnits / 2;
// The bench: the two substitutes who have no cell of their own stand here.
constexpr QRect kBench(9200, 600, 1400, 4920);
constexpr QPoint kBenchPlace[2] = {{9600, 1400}, {9600, 3300}};

bool filledSlot(const TeamSlot& s) { return !trim(s.Player).empty(); }

QColor colourOf(KitColour c) { return QColor(kitRed(c), kitGreen(c), kitBlue(c)); }

// Black or white, whichever reads better on the shirt.
QColor numberColour(const QColor& body) {
    const double light = 0.299 * body.red() + 0.587 * body.green() + 0.114 * body.blue();
    return light > 150 ? QColor(20, 20, 20) : QColor(250, 250, 250);
}

void acceptIf(QDropEvent* event, bool ok) {
    if (ok) {
        event->setDropAction(Qt::MoveAction);
        event->accept();
    } else {
        event->ignore();
    }
}

}  // namespace

// ---- The pitch -----------------------------------------------------------------

PitchView::PitchView(PitchGridScreen& screen, QWidget* parent) : QWidget(parent), screen_(screen) {
    setObjectName("PicPitch");
    setAcceptDrops(true);
    setMinimumSize(640, 366);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

int PitchView::heightForWidth(int width) const { return int(std::lround(double(width) * kPitchHeight / kWidth)); }

QPointF PitchView::toUnits(QPointF px) const { return (px - origin_) / scale_; }
QPointF PitchView::toPixels(QPointF units) const { return origin_ + units * scale_; }

bool PitchView::onPitch(QPointF u) const {
    return u.x() >= 0 && u.y() >= 0 && u.x() <= kPitchWidth && u.y() <= kPitchHeight;
}

void PitchView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    scale_ = std::min(double(width()) / kWidth, double(height()) / kPitchHeight);
    origin_ = QPointF((width() - kWidth * scale_) / 2, (height() - kPitchHeight * scale_) / 2);
    screen_.placeShirts();
}

void PitchView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(origin_);
    p.scale(scale_, scale_);
    paintGrass(p);
    paintLines(p);
    paintBench(p);
    paintArrows(p);
}

void PitchView::paintGrass(QPainter& p) {
    const QRectF all(0, 0, kPitchWidth, kPitchHeight);
    p.fillRect(all, QColor(0x4f, 0x8a, 0x4c));
    // One mown band per row of the grid, so the rows read at a glance.
    for (int row = 0; row < 5; ++row) {
        const double centre = kGridTop0 + kGridRowStep * row + kHalf;
        const double top = row == 0 ? 0 : centre - kGridRowStep / 2.0;
        const double bottom = row == 4 ? kPitchHeight : centre + kGridRowStep / 2.0;
        p.fillRect(QRectF(0, top, kPitchWidth, bottom - top),
                   row % 2 ? QColor(0x57, 0x93, 0x53) : QColor(0x4c, 0x86, 0x49));
    }
    // Faint column guides between the five columns.
    QPen guide(QColor(255, 255, 255, 34), 18, Qt::DashLine);
    p.setPen(guide);
    for (int col = 1; col < 5; ++col) {
        const double x = kGridLeft0 + kHalf + kGridColumnStep * (col - 0.5);
        p.drawLine(QPointF(x, 200), QPointF(x, kPitchHeight - 200));
    }
    // The area letters and numbers the Turnsheet uses ("C3").
    QFont f = font();
    f.setPixelSize(150);
    f.setBold(true);
    p.setFont(f);
    p.setPen(QColor(255, 255, 255, 120));
    for (int row = 0; row < 5; ++row) {
        const double centre = kGridTop0 + kGridRowStep * row + kHalf;
        p.drawText(QRectF(10, centre - 120, 150, 240), Qt::AlignCenter, QString(QChar('E' - row)));
    }
    // Column numbers stand at the left of their column, clear of the goal.
    for (int col = 0; col < 5; ++col) {
        const double left = kGridLeft0 + kGridColumnStep * col + kHalf - kGridColumnStep / 2.0;
        p.drawText(QRectF(std::max(170.0, left + 60), 5, 300, 160), Qt::AlignLeft | Qt::AlignVCenter,
                   QString::number(col + 1));
    }
}

void PitchView::paintLines(QPainter& p) {
    QPen line(QColor(255, 255, 255, 200), 26);
    p.setPen(line);
    p.setBrush(Qt::NoBrush);
    const double l = 170, t = 170, r = kPitchWidth - 170, b = kPitchHeight - 170;
    const double mid = kPitchHeight / 2.0, cx = kPitchWidth / 2.0;
    p.drawRect(QRectF(QPointF(l, t), QPointF(r, b)));
    p.drawLine(QPointF(l, mid), QPointF(r, mid));
    p.drawEllipse(QPointF(cx, mid), 720, 720);
    p.setBrush(QColor(255, 255, 255, 200));
    p.drawEllipse(QPointF(cx, mid), 45, 45);
    p.setBrush(Qt::NoBrush);
    for (int end = 0; end < 2; ++end) {
        const double line0 = end == 0 ? t : b;
        const double dir = end == 0 ? 1 : -1;
        auto box = [&](double halfWidth, double depth) {
            const double y1 = line0, y2 = line0 + dir * depth;
            p.drawRect(QRectF(QPointF(cx - halfWidth, std::min(y1, y2)), QPointF(cx + halfWidth, std::max(y1, y2))));
        };
        box(2000, 820);
        box(900, 300);
        // The arc of the penalty area, outside the box.
        const QRectF arc(cx - 560, line0 + dir * 560 - 560, 1120, 1120);
        p.drawArc(arc, end == 0 ? 214 * 16 : 34 * 16, 112 * 16);
        // The goal behind the line.
        p.drawRect(QRectF(QPointF(cx - 450, line0), QPointF(cx + 450, line0 - dir * 120)).normalized());
    }
}

void PitchView::paintBench(QPainter& p) {
    p.setPen(QPen(QColor(40, 56, 44), 20));
    p.setBrush(QColor(58, 78, 62, 230));
    p.drawRoundedRect(kBench, 160, 160);
    QFont f = font();
    f.setPixelSize(170);
    f.setBold(true);
    p.setFont(f);
    p.setPen(QColor(235, 240, 235));
    p.drawText(QRectF(kBench.left(), kBench.top() + 80, kBench.width(), 300), Qt::AlignCenter, "Substitutes");
}

void PitchView::paintArrows(QPainter& p) {
    for (const ArrowLine& a : screen_.arrows()) {
        const QPointF from(a.FromX, a.FromY), to(a.ToX, a.ToY);
        const QPointF d = to - from;
        const double len = std::hypot(d.x(), d.y());
        if (len < 1) {
            // An arrow to its own cell: a ring round the shirt.
            p.setPen(QPen(QColor(255, 214, 64), 40));
            p.setBrush(Qt::NoBrush);
            p.drawEllipse(from, 420, 420);
            continue;
        }
        const QPointF u = d / len, n(-u.y(), u.x());
        const QPointF tip = to;
        const QPointF base = tip - u * 260;
        QPainterPath head;
        head.moveTo(tip);
        head.lineTo(base + n * 150);
        head.lineTo(base - n * 150);
        head.closeSubpath();
        p.setPen(QPen(QColor(30, 30, 30, 170), 110, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(from, base);
        p.setPen(QPen(QColor(255, 214, 64), 60, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(from, base);
        p.setPen(QPen(QColor(30, 30, 30, 170), 24));
        p.setBrush(QColor(255, 214, 64));
        p.drawPath(head);
    }
}

void PitchView::dragEnterEvent(QDragEnterEvent* event) { acceptIf(event, shirtOf(event->mimeData()).has_value()); }

void PitchView::dragMoveEvent(QDragMoveEvent* event) {
    acceptIf(event, shirtOf(event->mimeData()).has_value() && onPitch(toUnits(event->position())));
}

void PitchView::dropEvent(QDropEvent* event) {
    const auto grab = shirtOf(event->mimeData());
    const QPointF at = toUnits(event->position());
    if (!grab || !onPitch(at)) {
        event->ignore();
        return;
    }
    acceptIf(event, true);
    screen_.dropShirtOnPitch(grab->shirt, at - QPointF(grab->grab));
}

void PitchView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && screen_.waitingForArrow()) {
        screen_.finishArrow(toUnits(event->position()));
        return;
    }
    QWidget::mouseReleaseEvent(event);
}

// ---- A shirt's picture and caption ------------------------------------------------

ShirtPart::ShirtPart(PitchGridScreen& screen, int shirt, bool picture, QWidget* parent)
    : QLabel(parent), screen_(screen), shirt_(shirt), picture_(picture) {
    // Control arrays count from 0: control i is shirt i + 1.
    setObjectName(QString(picture ? "PlayerPic%1" : "lblname%1").arg(shirt - 1));
    setAcceptDrops(true);
    setAlignment(Qt::AlignCenter);
    if (!picture) {
        setWordWrap(true);
        setMargin(0);
    }
}

void ShirtPart::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton && picture_) {
        screen_.openArrowMenu(shirt_, event->globalPosition().toPoint());
        return;
    }
    if (event->button() == Qt::LeftButton) {
        pressAt_ = event->position().toPoint();
        pressed_ = true;
    }
}

void ShirtPart::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed_ || !(event->buttons() & Qt::LeftButton) || screen_.waitingForArrow()) return;
    if ((event->position().toPoint() - pressAt_).manhattanLength() < QApplication::startDragDistance()) return;
    pressed_ = false;
    PitchView* pitch = screen_.pitch();
    const QPointF held = pitch->toUnits(QPointF(mapTo(pitch, pressAt_)));
    const QPoint grab = (held - QPointF(screen_.shirtTopLeft(shirt_))).toPoint();
    auto* drag = new QDrag(this);
    drag->setMimeData(shirtMimeData(shirt_, grab));
    const QPixmap pm = screen_.shirtPicture(shirt_)->pixmap();
    drag->setPixmap(pm);
    drag->setHotSpot(picture_ ? pressAt_ : QPoint(pm.width() / 2, pm.height() / 2));
    drag->exec(Qt::MoveAction);
}

void ShirtPart::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = pressed_;
    pressed_ = false;
    if (event->button() != Qt::LeftButton) return;
    if (screen_.waitingForArrow()) {
        // The arrow's end may lie on a cell where a shirt stands.
        PitchView* pitch = screen_.pitch();
        screen_.finishArrow(pitch->toUnits(QPointF(mapTo(pitch, event->position().toPoint()))));
        return;
    }
    if (click) {
        if (Fixture* f = screen_.currentFixture()) screen_.showInfo(f->Slots[size_t(shirt_ - 1)].Player);
    }
}

void ShirtPart::dragEnterEvent(QDragEnterEvent* event) {
    const auto other = shirtOf(event->mimeData());
    acceptIf(event, playerEntryOf(event->mimeData()).has_value() || (other && other->shirt != shirt_));
}

void ShirtPart::dragMoveEvent(QDragMoveEvent* event) {
    const auto other = shirtOf(event->mimeData());
    acceptIf(event, playerEntryOf(event->mimeData()).has_value() || (other && other->shirt != shirt_));
}

void ShirtPart::dropEvent(QDropEvent* event) {
    if (const auto entry = playerEntryOf(event->mimeData())) {
        acceptIf(event, true);
        screen_.dropPlayer(shirt_, *entry, picture_);
    } else if (const auto other = shirtOf(event->mimeData()); other && other->shirt != shirt_) {
        acceptIf(event, true);
        screen_.swapShirtPlayers(other->shirt, shirt_);
    } else {
        event->ignore();
    }
}

// ---- lstAvailable ------------------------------------------------------------------

AvailableList::AvailableList(PitchGridScreen& screen, QWidget* parent) : QListWidget(parent), screen_(screen) {
    setObjectName("lstAvailable");
    setSelectionMode(QAbstractItemView::SingleSelection);
    setDragEnabled(false);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
}

void AvailableList::mousePressEvent(QMouseEvent* event) {
    QListWidget::mousePressEvent(event);
    pressAt_ = event->position().toPoint();
    pressed_ = event->button() == Qt::LeftButton ? itemAt(pressAt_) : nullptr;
    if (pressed_) screen_.showInfo(listEntryName(pressed_->data(Qt::UserRole).toByteArray().toStdString()));
}

void AvailableList::mouseMoveEvent(QMouseEvent* event) {
    if (!pressed_ || !(event->buttons() & Qt::LeftButton)) return;
    if ((event->position().toPoint() - pressAt_).manhattanLength() < QApplication::startDragDistance()) return;
    const std::string entry = pressed_->data(Qt::UserRole).toByteArray().toStdString();
    pressed_ = nullptr;
    // The entry's text travels with the pointer, as a small label.
    QLabel tag(qs(entry));
    tag.setFont(font());
    tag.setStyleSheet("background: #fff8d6; border: 1px solid #8a7a3a; padding: 2px 6px;");
    tag.adjustSize();
    auto* drag = new QDrag(this);
    drag->setMimeData(playerEntryMimeData(entry));
    drag->setPixmap(tag.grab());
    drag->setHotSpot(QPoint(10, tag.height() / 2));
    // The drop may take the line out of this list: nothing of it is used after.
    drag->exec(Qt::MoveAction);
}

void AvailableList::dragEnterEvent(QDragEnterEvent* event) { acceptIf(event, shirtOf(event->mimeData()).has_value()); }

void AvailableList::dragMoveEvent(QDragMoveEvent* event) { acceptIf(event, shirtOf(event->mimeData()).has_value()); }

void AvailableList::dropEvent(QDropEvent* event) {
    const auto shirt = shirtOf(event->mimeData());
    if (!shirt) {
        event->ignore();
        return;
    }
    acceptIf(event, true);
    screen_.returnShirtToList(shirt->shirt);
}

// ---- The screen -----------------------------------------------------------------

namespace {

const char* const kListLook =
    "QListWidget { background: white; border: 1px solid #a9b6c4; border-radius: 3px; }"
    "QListWidget::item:selected { background: #2c5d8f; color: white; }";

}  // namespace

PitchGridScreen::PitchGridScreen(SessionController& controller, QWidget* parent)
    : FixtureScreen(controller, "PitchGrid", "Pitch Grid", parent),
      pitch_(new PitchView(*this, this)),
      lstAvailable_(new AvailableList(*this, this)),
      lstUnavailable_(new QListWidget(this)),
      txtInfo_(new QPlainTextEdit(this)),
      lblFormation_(new QLabel(this)),
      txtBlend_(new QLineEdit(this)),
      arrowMenu_(new QMenu(this)) {
    for (int shirt = 1; shirt <= 13; ++shirt) {
        pictures_[size_t(shirt - 1)] = new ShirtPart(*this, shirt, true, pitch_);
        captions_[size_t(shirt - 1)] = new ShirtPart(*this, shirt, false, pitch_);
    }

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 14, 18, 14);
    root->setSpacing(8);

    auto* header = headerRow("Pitch Grid");
    header->addStretch(1);
    lblFormation_->setObjectName("lblFormation");
    lblFormation_->setStyleSheet("font-size: 13pt; font-weight: bold; color: #1f3550;");
    header->addWidget(lblFormation_);
    root->addLayout(header);

    auto* body = new QHBoxLayout;
    body->setSpacing(12);
    auto* left = new QVBoxLayout;
    left->setSpacing(6);
    left->addWidget(pitch_);
    txtInfo_->setObjectName("txtInfo");
    txtInfo_->setReadOnly(true);
    txtInfo_->setFont(fixedFont(-1));
    // The last line runs long; wrapped, all of it shows without scrolling.
    txtInfo_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    txtInfo_->setMinimumHeight(QFontMetrics(txtInfo_->font()).lineSpacing() * 4 + 14);
    txtInfo_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    txtInfo_->setPlaceholderText("Click a player in the lists or on the pitch to see his figures here.");
    left->addWidget(txtInfo_);
    body->addLayout(left, 1);

    auto* side = new QVBoxLayout;
    side->setSpacing(8);
    auto* match = new QGroupBox("Match", this);
    auto* ml = new QVBoxLayout(match);
    // Long names of match and competition wrap rather than scroll.
    fixtureList()->setWordWrap(true);
    fixtureList()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fixtureList()->setResizeMode(QListView::Adjust);
    fixtureList()->setFixedHeight(4 * 20 + 6);
    fixtureList()->setStyleSheet(kListLook);
    ml->addWidget(fixtureList());
    side->addWidget(match);

    auto* players = new QGroupBox("Players", this);
    auto* pl = new QVBoxLayout(players);
    pl->setSpacing(4);
    auto* teamRow = new QHBoxLayout;
    teamRow->setSpacing(3);
    btnTeam_ = filterButtons(this, teamRow, "btnTeam", kAgeFilterCaptions);
    teamRow->addStretch(1);
    pl->addLayout(teamRow);
    auto* posRow = new QHBoxLayout;
    posRow->setSpacing(3);
    btnPos_ = filterButtons(this, posRow, "btnPos", kPositionFilterCaptions);
    posRow->addStretch(1);
    pl->addLayout(posRow);
    for (QButtonGroup* g : {btnTeam_, btnPos_}) {
        for (QAbstractButton* b : g->buttons()) b->setStyleSheet("padding: 3px 6px;");  // the panel is narrow
        connect(g, &QButtonGroup::idClicked, this, [this] { showFixture(); });
    }
    pl->addWidget(new QLabel("Available: drag a player on to a shirt", players));
    lstAvailable_->setFont(fixedFont());
    lstAvailable_->setStyleSheet(kListLook);
    pl->addWidget(lstAvailable_, 1);
    pl->addWidget(new QLabel("Injured or suspended", players));
    lstUnavailable_->setObjectName("lstUnavailable");
    lstUnavailable_->setFont(fixedFont());
    lstUnavailable_->setStyleSheet(kListLook);
    lstUnavailable_->setFixedHeight(5 * 20 + 6);
    connect(lstUnavailable_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        showInfo(listEntryName(item->data(Qt::UserRole).toByteArray().toStdString()));
    });
    pl->addWidget(lstUnavailable_);
    side->addWidget(players, 1);
    auto* sideBox = new QWidget(this);
    sideBox->setLayout(side);
    sideBox->setFixedWidth(330);
    side->setContentsMargins(0, 0, 0, 0);
    body->addWidget(sideBox);
    root->addLayout(body, 1);

    auto* footer = new QHBoxLayout;
    footer->addWidget(new QLabel("Blend:", this));
    txtBlend_->setObjectName("TxtBlend");
    txtBlend_->setReadOnly(true);
    txtBlend_->setFocusPolicy(Qt::NoFocus);
    txtBlend_->setFont(fixedFont());
    txtBlend_->setFixedWidth(130);
    txtBlend_->setAlignment(Qt::AlignCenter);
    footer->addWidget(txtBlend_);
    auto* blend = makeButton("btnBlend", "Blend", this);
    auto* autoBlend = makeButton("AutoBlend", "Auto Blend", this);
    connect(blend, &QPushButton::clicked, this, [this] { blendClicked(); });
    // AutoBlend has no behaviour of its own.
    footer->addWidget(blend);
    footer->addWidget(autoBlend);
    footer->addSpacing(16);
    auto* hint = new QLabel("Right-click a shirt for its arrow.", this);
    hint->setStyleSheet("color: #4a5a6b;");
    footer->addWidget(hint);
    footer->addStretch(1);
    auto* back = makeButton("BtnReturnToFixt", "Return to Fixtures", this);
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("Fixt"); });
    footer->addWidget(back);
    root->addLayout(footer);

    arrowMenu_->setObjectName("ArrowMenu");
    QAction* add = arrowMenu_->addAction("Add Arrow");
    add->setObjectName("AddArrow");
    QAction* remove = arrowMenu_->addAction("Remove Arrow");
    remove->setObjectName("RemoveArrow");
    connect(add, &QAction::triggered, this, [this] { addArrowChosen(); });
    connect(remove, &QAction::triggered, this, [this] { removeArrowChosen(); });

    needClub_ = {blend, autoBlend, lstAvailable_, lstUnavailable_, pitch_};
    for (QAbstractButton* b : btnTeam_->buttons()) needClub_.push_back(b);
    for (QAbstractButton* b : btnPos_->buttons()) needClub_.push_back(b);
    enableForClubs(false);
}

void PitchGridScreen::enableForClubs(bool hasClubs) {
    FixtureScreen::enableForClubs(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
    if (!hasClubs) {
        lstAvailable_->clear();
        lstUnavailable_->clear();
        txtInfo_->clear();
        refreshPitch();
    }
}

void PitchGridScreen::fillClub() {
    // An unknown colour name keeps the kit of the club before.
    if (const Club* club = currentClub()) SetKitColours(kit_, kitColourName(*club));
    txtInfo_->clear();
    txtBlend_->clear();
}

void PitchGridScreen::showFixture() {
    waitingArrow_ = false;
    pitch_->unsetCursor();
    Fixture* f = currentFixture();
    Club* club = currentClub();
    if (!f || !club) {
        fillLists({});
        lblFormation_->clear();
        refreshPitch();
        return;
    }
    normaliseSetPieces(*f);
    const Session& s = controller_.session();
    fillLists(buildPitchLists(*club, *f, s.InjuryLimit, s.SuspensionLimit, teamFilter(), positionFilter()));
    lblFormation_->setText(qs("Formation  " + formationNumbersText(f->Defence, f->Midfield, f->Attack)));
    refreshPitch();
}

void PitchGridScreen::fixtureOrderChanged(FixtureControl c) {
    if (c == FixtureControl::Formation) {
        txtBlend_->setText(qs(kUncheckedFormationCaption));
        if (const Fixture* f = currentFixture())
            lblFormation_->setText(qs("Formation  " + formationNumbersText(f->Defence, f->Midfield, f->Attack)));
    }
    refreshPitch();
}

void PitchGridScreen::fillLists(const PitchLists& lists) {
    lstAvailable_->clear();
    lstUnavailable_->clear();
    for (const std::string& e : lists.Available) addAvailable(e);
    for (const std::string& e : lists.Unavailable) {
        auto* item = new QListWidgetItem(qs(e), lstUnavailable_);
        item->setData(Qt::UserRole, QByteArray::fromStdString(e));
    }
}

void PitchGridScreen::addAvailable(const std::string& entry) {
    auto* item = new QListWidgetItem(qs(entry), lstAvailable_);
    item->setData(Qt::UserRole, QByteArray::fromStdString(entry));
}

void PitchGridScreen::removeAvailable(const std::string& entry) {
    const QByteArray key = QByteArray::fromStdString(entry);
    for (int i = 0; i < lstAvailable_->count(); ++i)
        if (lstAvailable_->item(i)->data(Qt::UserRole).toByteArray() == key) {
            delete lstAvailable_->takeItem(i);
            return;
        }
}

QPoint PitchGridScreen::shirtTopLeft(int shirt) const {
    Fixture* f = currentFixture();
    if (f) {
        const TeamSlot& s = f->Slots[size_t(shirt - 1)];
        if (shirt <= 11 || s.Left != 0 || s.Top != 0) return QPoint(s.Left, s.Top);
    } else if (shirt <= 11) {
        const CellPos c = defaultSlotPosition(shirt);
        return QPoint(c.Left, c.Top);
    }
    return kBenchPlace[shirt - 12];
}

std::vector<ArrowLine> PitchGridScreen::arrows() const {
    std::vector<ArrowLine> out;
    Fixture* f = currentFixture();
    if (!f) return out;
    for (int shirt = 1; shirt <= 13; ++shirt) {
        const TeamSlot& s = f->Slots[size_t(shirt - 1)];
        // An empty shirt's arrow is hidden.
        if (!filledSlot(s) || !hasArrow(s)) continue;
        ArrowLine a = arrowLine(s);
        const QPoint at = shirtTopLeft(shirt);
        a.FromX = at.x() + kHalf;
        a.FromY = at.y() + kHalf;
        out.push_back(a);
    }
    return out;
}

void PitchGridScreen::refreshPitch() {
    for (int shirt = 1; shirt <= 13; ++shirt) drawShirt(shirt);
    pitch_->update();
}

void PitchGridScreen::placeShirts() { refreshPitch(); }

void PitchGridScreen::drawShirt(int shirt) {
    ShirtPart* pic = pictures_[size_t(shirt - 1)];
    ShirtPart* cap = captions_[size_t(shirt - 1)];
    if (!pic || !cap) return;
    const Fixture* f = currentFixture();
    static const Fixture kNoFixture;
    const Fixture& fx = f ? *f : kNoFixture;
    const bool filled = filledSlot(fx.Slots[size_t(shirt - 1)]);

    const double s = pitch_->scale();
    const int size = std::max(12, int(std::lround(kShirtUnits * s)));
    // Recoloured at the master's own size, scaled only for the screen.
    const QImage master = filled ? kestrin::shirtPicture(shirt, kit_) : (shirt == 1 ? keeperShirtMaster() : playerShirtMaster());
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    {
        QPainter p(&pm);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.setRenderHint(QPainter::Antialiasing);
        if (!filled) p.setOpacity(0.55);
        p.drawImage(QRect(0, 0, size, size), master);
        const KitColour body = !filled ? kShirtMarker1 : shirt == 1 ? keeperKitColour(kit_.KitColour1) : kit_.KitColour1;
        QFont nf = font();
        nf.setBold(true);
        nf.setPixelSize(std::max(8, int(size * 0.30)));
        p.setFont(nf);
        p.setPen(numberColour(colourOf(body)));
        p.drawText(QRectF(size * 0.2, size * 0.28, size * 0.6, size * 0.5), Qt::AlignCenter, QString::number(shirt));
    }
    pic->setPixmap(pm);

    const QPoint tl = shirtTopLeft(shirt);
    const QPointF at = pitch_->toPixels(QPointF(tl));
    pic->setGeometry(int(std::lround(at.x())), int(std::lround(at.y())), size, size);

    cap->setText(qs(kestrin::shirtCaption(fx, shirt)));
    cap->setStyleSheet(filled ? "color: white; background: rgba(12, 28, 16, 165); border-radius: 3px;"
                                "font-weight: bold; padding: 0px 2px;"
                              : "color: rgba(255, 255, 255, 215); background: rgba(12, 28, 16, 70);"
                                "border-radius: 3px; padding: 0px 2px;");
    QFont cf = font();
    cf.setPixelSize(std::clamp(int(s * 165), 9, 13));
    cap->setFont(cf);
    const bool onBench = shirt >= 12 && tl.x() >= kBench.left();
    const int width = int(std::lround((onBench ? kBench.width() - 80 : kGridColumnStep - 100) * s));
    const int height = std::max(cap->heightForWidth(width), QFontMetrics(cf).height() + 2);
    cap->setGeometry(int(std::lround(at.x() + size / 2.0 - width / 2.0)), int(std::lround(at.y())) + size + 1, width,
                     height);
}

void PitchGridScreen::afterChange() {
    markTurnChanged();
    refreshPitch();
}

void PitchGridScreen::dropPlayer(int shirt, const std::string& entry, bool onPicture) {
    Fixture* f = currentFixture();
    Club* club = currentClub();
    if (!f || !club || filling()) return;
    CellPos at;
    const CellPos* shirtAt = nullptr;
    const TeamSlot& slot = f->Slots[size_t(shirt - 1)];
    // A substitute on the bench has no cell to give.
    if (onPicture && (shirt <= 11 || slot.Left != 0 || slot.Top != 0)) {
        const QPoint tl = shirtTopLeft(shirt);
        at = {tl.x(), tl.y()};
        shirtAt = &at;
    }
    const ShirtDrop d = dropPlayerOnShirt(*club, *f, shirt, entry, shirtAt);
    showInfo(trim(d.Previous).empty() ? listEntryName(entry) : d.Previous);
    removeAvailable(entry);
    if (!d.PreviousEntry.empty()) addAvailable(d.PreviousEntry);
    afterChange();
}

void PitchGridScreen::swapShirtPlayers(int from, int to) {
    Fixture* f = currentFixture();
    if (!f || filling()) return;
    swapShirts(*f, from, to);
    afterChange();
}

void PitchGridScreen::returnShirtToList(int shirt) {
    Fixture* f = currentFixture();
    Club* club = currentClub();
    if (!f || !club || filling()) return;
    const ShirtDrop d = kestrin::returnShirtToList(*club, *f, shirt);
    if (!d.Changed) return;
    if (!d.PreviousEntry.empty()) addAvailable(d.PreviousEntry);
    afterChange();
}

void PitchGridScreen::dropShirtOnPitch(int shirt, QPointF topLeft) {
    Fixture* f = currentFixture();
    if (!f || filling()) return;
    // A cell taken by another outfield shirt leaves everything as it was.
    if (moveShirt(*f, shirt, topLeft.x(), topLeft.y())) afterChange();
}

void PitchGridScreen::openArrowMenu(int shirt, QPoint globalPos) {
    if (!currentFixture()) return;
    arrowShirt_ = shirt;
    waitingArrow_ = false;
    pitch_->unsetCursor();
    arrowMenu_->popup(globalPos);
}

void PitchGridScreen::addArrowChosen() {
    if (arrowShirt_ == 0 || !currentFixture()) return;
    waitingArrow_ = true;
    pitch_->setCursor(Qt::CrossCursor);
}

bool PitchGridScreen::finishArrow(QPointF units) {
    if (!waitingForArrow() || !pitch_->onPitch(units)) return false;
    waitingArrow_ = false;
    pitch_->unsetCursor();
    Fixture* f = currentFixture();
    // The point is where the arrow should end: the cell whose centre is nearest.
    if (f && addArrow(*f, arrowShirt_, units.x() - kHalf, units.y() - kHalf)) afterChange();
    return true;
}

void PitchGridScreen::removeArrowChosen() {
    waitingArrow_ = false;
    pitch_->unsetCursor();
    Fixture* f = currentFixture();
    if (f && arrowShirt_ != 0 && removeArrow(*f, arrowShirt_)) afterChange();
}

void PitchGridScreen::showInfo(const std::string& name) {
    const Club* club = currentClub();
    if (!club || trim(name).empty()) return;
    if (const Player* p = club->player(club->findPlayer(name))) txtInfo_->setPlainText(qs(ShowInfo(*p)));
}

void PitchGridScreen::blendClicked() {
    const Session& s = controller_.session();
    const Club* club = currentClub();
    const Fixture* f = currentFixture();
    if (!club || !f) return;
    const std::string title = s.Game.GameName.empty() ? std::string("Kestrin") : s.Game.GameName;
    const QString before = txtBlend_->text();
    txtBlend_->setText("Reading Stats");
    txtBlend_->repaint();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    RecordingMessages told;  // shown once the wait cursor is gone
    const std::optional<Blend> b = blendAnalysis(s.Prefs, club->ClubFile, blendLineUp(*f), told, title);
    QApplication::restoreOverrideCursor();
    txtBlend_->setText(b ? qs(b->text()) : before);
    for (const RecordingMessages::Entry& e : told.entries) {
        if (e.kind == RecordingMessages::Kind::Inform) controller_.messages().inform(e.title, e.text);
        else controller_.messages().refuse(e.title, e.text);
    }
}

}  // namespace kestrin::ui
