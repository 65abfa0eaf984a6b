#include "ui/matchviewer.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHideEvent>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <QtMath>
#include <algorithm>
#include <tuple>

#include "core/errors.h"
#include "core/loader.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

using results::ViewerEvent;
using Kind = EventPicture::Kind;

namespace {

constexpr int kPictureWidth = 240, kPictureHeight = 200, kDrawingHeight = 156;
constexpr int kStatisticsWidth = 780, kStatisticsHeight = 520, kStatisticsDrawingHeight = 112;

QColor reportColour(results::ReportColour c) { return QColor(int(c & 0xFF), int(c >> 8 & 0xFF), int(c >> 16 & 0xFF)); }

const QColor kGrass(46, 125, 50), kGrassDark(27, 94, 32), kChalk(245, 245, 240);

void grass(QPainter& p, const QRectF& r) {
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0, kGrass);
    g.setColorAt(1, kGrassDark);
    p.fillRect(r, g);
    // Mown stripes.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 14));
    for (qreal x = r.left(); x < r.right(); x += 40) p.drawRect(QRectF(x, r.top(), 20, r.height()));
}

// A card held up in a referee's hand.
void card(QPainter& p, const QRectF& r, const QColor& colour) {
    grass(p, r);
    const QPointF c = r.center();
    p.save();
    p.translate(c.x() + 6, c.y() - 6);
    p.rotate(-12);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 70));
    p.drawRoundedRect(QRectF(-30, -50, 64, 92), 6, 6);
    p.setBrush(colour);
    p.setPen(QPen(colour.darker(130), 1.5));
    p.drawRoundedRect(QRectF(-34, -56, 64, 92), 6, 6);
    p.setPen(QPen(QColor(255, 255, 255, 90), 2));
    p.drawLine(QPointF(-26, -48), QPointF(-26, 26));
    p.restore();
    // The arm from below, black sleeve and hand over the card's foot.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(25, 25, 25));
    QPainterPath sleeve;
    sleeve.moveTo(c.x() - 6, r.bottom());
    sleeve.lineTo(c.x() + 8, c.y() + 40);
    sleeve.lineTo(c.x() + 32, c.y() + 44);
    sleeve.lineTo(c.x() + 30, r.bottom());
    p.drawPath(sleeve);
    p.setBrush(QColor(224, 172, 128));
    p.drawEllipse(QPointF(c.x() + 18, c.y() + 34), 14, 11);
}

void ball(QPainter& p, const QPointF& c, qreal radius) {
    p.setPen(QPen(QColor(40, 40, 40), 1.2));
    p.setBrush(Qt::white);
    p.drawEllipse(c, radius, radius);
    p.setBrush(QColor(30, 30, 30));
    p.setPen(Qt::NoPen);
    auto patch = [&](QPointF at, qreal size) {
        QPolygonF pent;
        for (int k = 0; k < 5; ++k) {
            const qreal a = qDegreesToRadians(-90.0 + 72.0 * k);
            pent << at + QPointF(size * qCos(a), size * qSin(a));
        }
        p.drawPolygon(pent);
    };
    patch(c, radius * 0.38);
    for (int k = 0; k < 5; ++k) {
        const qreal a = qDegreesToRadians(-54.0 + 72.0 * k);
        patch(c + QPointF(radius * 0.86 * qCos(a), radius * 0.86 * qSin(a)), radius * 0.2);
    }
}

void goal(QPainter& p, const QRectF& r) {
    grass(p, r);
    const QRectF frame(r.left() + 30, r.top() + 24, r.width() - 60, r.height() - 44);
    p.setPen(QPen(QColor(255, 255, 255, 110), 1));
    for (qreal x = frame.left(); x <= frame.right(); x += 10) p.drawLine(QPointF(x, frame.top()), QPointF(x, frame.bottom()));
    for (qreal y = frame.top(); y <= frame.bottom(); y += 10) p.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
    p.setPen(QPen(kChalk, 6, Qt::SolidLine, Qt::SquareCap));
    p.drawLine(frame.bottomLeft(), frame.topLeft());
    p.drawLine(frame.topLeft(), frame.topRight());
    p.drawLine(frame.topRight(), frame.bottomRight());
    p.setPen(QPen(kChalk, 2));
    p.drawLine(QPointF(r.left() + 8, frame.bottom() + 2), QPointF(r.right() - 8, frame.bottom() + 2));
    // The net bulges where the ball went in.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 40));
    p.drawEllipse(QPointF(frame.center().x() + 36, frame.center().y() - 6), 30, 24);
    ball(p, QPointF(frame.center().x() + 36, frame.center().y() - 6), 16);
}

void corner(QPainter& p, const QRectF& r) {
    grass(p, r);
    const QPointF spot(r.left() + 30, r.bottom() - 22);
    p.setPen(QPen(kChalk, 3));
    p.drawLine(spot, QPointF(r.right(), spot.y()));
    p.drawLine(spot, QPointF(spot.x(), r.top()));
    p.setBrush(Qt::NoBrush);
    p.drawArc(QRectF(spot.x() - 34, spot.y() - 34, 68, 68), 0, 90 * 16);
    // The flag: its pole at the corner, its cloth in the wind.
    p.setPen(QPen(QColor(230, 230, 230), 3));
    p.drawLine(spot, spot + QPointF(0, -104));
    QPolygonF cloth;
    cloth << spot + QPointF(2, -104) << spot + QPointF(52, -92) << spot + QPointF(2, -76);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(230, 57, 53));
    p.drawPolygon(cloth);
    p.setBrush(QColor(255, 214, 0));
    QPolygonF stripe;
    stripe << spot + QPointF(2, -95) << spot + QPointF(28, -89) << spot + QPointF(2, -83);
    p.drawPolygon(stripe);
    ball(p, spot + QPointF(30, -12), 10);
}

void substitution(QPainter& p, const QRectF& r) {
    grass(p, r);
    const QRectF board(r.center().x() - 80, r.top() + 22, 160, 96);
    p.setPen(QPen(QColor(90, 90, 90), 3));
    p.setBrush(QColor(20, 20, 24));
    p.drawRoundedRect(board, 8, 8);
    p.setBrush(QColor(60, 60, 60));
    p.drawRect(QRectF(board.center().x() - 8, board.bottom(), 16, r.bottom() - board.bottom()));
    QFont digits = fixedFont(14);
    digits.setBold(true);
    p.setFont(digits);
    const QRectF left(board.left(), board.top(), board.width() / 2, board.height());
    const QRectF right(board.center().x(), board.top(), board.width() / 2, board.height());
    p.setPen(QColor(255, 82, 82));
    p.drawText(left.adjusted(0, 20, 0, 0), Qt::AlignHCenter | Qt::AlignVCenter, "7");
    p.setPen(QColor(105, 240, 174));
    p.drawText(right.adjusted(0, 20, 0, 0), Qt::AlignHCenter | Qt::AlignVCenter, "12");
    auto arrow = [&](const QRectF& half, bool up, const QColor& colour) {
        const qreal x = half.center().x(), y = half.top() + 22;
        QPolygonF a;
        if (up) a << QPointF(x, y - 12) << QPointF(x - 12, y + 6) << QPointF(x + 12, y + 6);
        else a << QPointF(x, y + 10) << QPointF(x - 12, y - 8) << QPointF(x + 12, y - 8);
        p.setPen(Qt::NoPen);
        p.setBrush(colour);
        p.drawPolygon(a);
    };
    arrow(left, false, QColor(255, 82, 82));
    arrow(right, true, QColor(105, 240, 174));
}

void tactics(QPainter& p, const QRectF& r) {
    p.fillRect(r, QColor(38, 50, 56));
    const QRectF pitch = r.adjusted(18, 14, -18, -14);
    p.setPen(QPen(QColor(255, 255, 255, 200), 2));
    p.setBrush(QColor(56, 142, 60));
    p.drawRect(pitch);
    p.drawLine(QPointF(pitch.center().x(), pitch.top()), QPointF(pitch.center().x(), pitch.bottom()));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(pitch.center(), 18, 18);
    // Noughts for ours, crosses for theirs, and the move the manager wants.
    p.setPen(QPen(QColor(255, 235, 59), 3));
    for (const QPointF& o : {QPointF(-70, -30), QPointF(-70, 30), QPointF(-36, 0), QPointF(-20, -44)})
        p.drawEllipse(pitch.center() + o, 7, 7);
    p.setPen(QPen(QColor(239, 83, 80), 3));
    for (const QPointF& x : {QPointF(40, -24), QPointF(52, 26), QPointF(78, 0)}) {
        const QPointF c = pitch.center() + x;
        p.drawLine(c + QPointF(-6, -6), c + QPointF(6, 6));
        p.drawLine(c + QPointF(-6, 6), c + QPointF(6, -6));
    }
    QPainterPath move(pitch.center() + QPointF(-36, 8));
    move.cubicTo(pitch.center() + QPointF(-10, 50), pitch.center() + QPointF(20, 44), pitch.center() + QPointF(30, 14));
    p.setPen(QPen(Qt::white, 2.5, Qt::DashLine));
    p.drawPath(move);
    const QPointF tip = pitch.center() + QPointF(30, 14);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawPolygon(QPolygonF{tip + QPointF(0, -8), tip + QPointF(-8, 6), tip + QPointF(7, 5)});
}

void whistle(QPainter& p, const QPointF& at, qreal scale) {
    p.save();
    p.translate(at);
    p.scale(scale, scale);
    p.setPen(QPen(QColor(120, 120, 120), 1.5));
    QLinearGradient metal(QPointF(0, -20), QPointF(0, 20));
    metal.setColorAt(0, QColor(250, 250, 250));
    metal.setColorAt(1, QColor(150, 150, 155));
    p.setBrush(metal);
    QPainterPath body;
    body.addEllipse(QPointF(0, 0), 20, 20);
    body.addRect(QRectF(0, -20, 44, 14));
    p.drawPath(body.simplified());
    p.setBrush(QColor(60, 60, 60));
    p.drawEllipse(QPointF(0, 0), 6, 6);
    p.setPen(QPen(QColor(255, 255, 255, 180), 2));
    for (int k = 0; k < 3; ++k) p.drawArc(QRectF(44 + 8 * k, -30 - 4 * k, 16, 24 + 8 * k), -60 * 16, 120 * 16);
    p.restore();
}

void clock(QPainter& p, const QRectF& r, bool fullTime) {
    p.fillRect(r, QColor(13, 71, 161));
    const QPointF c(r.center().x() - 46, r.center().y());
    p.setPen(QPen(kChalk, 4));
    p.setBrush(QColor(250, 250, 250));
    p.drawEllipse(c, 56, 56);
    p.setPen(QPen(QColor(60, 60, 60), 2));
    for (int k = 0; k < 12; ++k) {
        const qreal a = qDegreesToRadians(30.0 * k);
        p.drawLine(c + QPointF(48 * qSin(a), -48 * qCos(a)), c + QPointF(54 * qSin(a), -54 * qCos(a)));
    }
    // The played part of the match, and the minute hand where it stopped.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(46, 125, 50, 150));
    p.drawPie(QRectF(c.x() - 44, c.y() - 44, 88, 88), 90 * 16, -(fullTime ? 360 : 180) * 16);
    p.setPen(QPen(QColor(30, 30, 30), 4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(c, c + QPointF(0, fullTime ? -40 : 40));
    p.setBrush(QColor(30, 30, 30));
    p.drawEllipse(c, 5, 5);
    whistle(p, QPointF(r.right() - 82, r.center().y() + 8), 0.85);
}

void statistics(QPainter& p, const QRectF& r) {
    p.fillRect(r, QColor(16, 48, 96));
    // The whistle on its cord.
    p.setPen(QPen(QColor(229, 57, 53), 3));
    p.setBrush(Qt::NoBrush);
    QPainterPath cord(QPointF(r.left() + 40, r.top()));
    cord.cubicTo(QPointF(r.left() + 20, r.center().y()), QPointF(r.left() + 30, r.bottom() - 10),
                 QPointF(r.left() + 52, r.center().y() + 14));
    p.drawPath(cord);
    whistle(p, QPointF(r.left() + 66, r.center().y() + 10), 1.0);
    const qreal base = r.bottom() - 12;
    const int heights[] = {36, 58, 44, 70, 28, 52, 40, 64};
    for (int k = 0; k < 8; ++k) {
        const qreal x = r.left() + 170 + k * 34;
        p.setPen(Qt::NoPen);
        p.setBrush(k % 2 ? QColor(255, 202, 40) : QColor(129, 212, 250));
        p.drawRect(QRectF(x, base - heights[k], 22, heights[k]));
    }
    p.setPen(QPen(kChalk, 2));
    p.drawLine(QPointF(r.left() + 160, base), QPointF(r.left() + 460, base));
}

}  // namespace

EventPicture::EventPicture(Kind kind, const QString& objectName, int showMs, QWidget* parent)
    : QWidget(parent), kind_(kind), caption_(new QLabel(this)), timer_(new QTimer(this)) {
    setObjectName(objectName);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    hide();
    timer_->setObjectName("tmr");
    timer_->setSingleShot(true);
    timer_->setInterval(showMs);
    connect(timer_, &QTimer::timeout, this, [this] {
        hide();
        emit gone();
    });

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(8, drawingHeight() + 10, 8, 8);
    root->setSpacing(6);
    caption_->setObjectName(kind == Kind::Whistle ? "txtTime" : "lblCaption");
    caption_->setAlignment(Qt::AlignCenter);
    QFont big = font();
    big.setPointSize(big.pointSize() + 5);
    big.setBold(true);
    caption_->setFont(big);
    caption_->setStyleSheet("color: white; background: transparent;");
    root->addWidget(caption_);
    if (kind == Kind::Statistics) {
        txtMsg_ = new QPlainTextEdit(this);
        txtMsg_->setObjectName("txtMsg");
        txtMsg_->setReadOnly(true);
        txtMsg_->setFocusPolicy(Qt::NoFocus);
        txtMsg_->setLineWrapMode(QPlainTextEdit::NoWrap);
        txtMsg_->setFont(fixedFont(-2));
        root->addWidget(txtMsg_, 1);
        auto* exit = makeButton("cmdExit", "Close", this);
        exit->setFocusPolicy(Qt::NoFocus);
        connect(exit, &QPushButton::clicked, this, &QWidget::hide);
        auto* row = new QHBoxLayout;
        row->addStretch(1);
        row->addWidget(exit);
        root->addLayout(row);
        resize(kStatisticsWidth, kStatisticsHeight);
    } else {
        root->addStretch(1);
        resize(kPictureWidth, kPictureHeight);
    }
}

int EventPicture::drawingHeight() const { return kind_ == Kind::Statistics ? kStatisticsDrawingHeight : kDrawingHeight; }

void EventPicture::popUp(const QString& caption) {
    caption_->setText(caption);
    shownAt_ = ++shownCount_;
    show();
    raise();
    timer_->start();
    emit shown(caption);
}

void EventPicture::setMessage(const QString& text) {
    if (txtMsg_) txtMsg_->setPlainText(text);
}

void EventPicture::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath frame;
    frame.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 12, 12);
    p.fillPath(frame, QColor(20, 30, 40));
    p.setClipPath(frame);
    const QRectF drawing(0, 0, width(), drawingHeight());
    switch (kind_) {
        case Kind::Booking: card(p, drawing, QColor(255, 214, 0)); break;
        case Kind::SendingOff: card(p, drawing, QColor(211, 47, 47)); break;
        case Kind::Goal: goal(p, drawing); break;
        case Kind::Corner: corner(p, drawing); break;
        case Kind::Substitution: substitution(p, drawing); break;
        case Kind::Tactics: tactics(p, drawing); break;
        case Kind::Whistle: clock(p, drawing, caption() == "FULL TIME"); break;
        case Kind::Statistics: statistics(p, drawing); break;
    }
    p.setClipping(false);
    p.setPen(QPen(QColor(255, 255, 255, 200), 2));
    p.setBrush(Qt::NoBrush);
    p.drawPath(frame);
}

Matchviewer::Matchviewer(SessionController& controller, QWidget* parent)
    : Screen(controller, "Matchviewer", "Match Viewer", parent),
      txtF_(new QLineEdit(this)),
      cmdB_(makeButton("cmdB", "Browse...", this)),
      cmdView_(makeButton("cmdView", "View Match", this)),
      cmdStop_(makeButton("cmdStop", "Stop", this)),
      chkPause_(new QCheckBox("Pause", this)),
      sldSpeed_(new QSlider(Qt::Horizontal, this)),
      txtSearch_(new QLineEdit(this)),
      cmdSearch_(makeButton("cmdSearch", "Search", this)),
      msfGrid_(new QTableWidget(0, 1, this)),
      matchTime_(new QTimer(this)) {
    pickFile_ = [this](const QString& title, const QString& dir, const QString& filter) {
        return QFileDialog::getOpenFileName(this, title, dir, filter);
    };
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);

    auto* header = headerRow("Match Viewer");
    header->addStretch(1);
    auto* back = makeButton("btnReturn", "Main Menu", this);
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    header->addWidget(back);
    root->addLayout(header);

    auto* fileRow = new QHBoxLayout;
    fileRow->setSpacing(8);
    fileRow->addWidget(new QLabel("Match report:", this));
    txtF_->setObjectName("txtF");
    txtF_->setPlaceholderText("Choose a match report of the Squadsheets folder");
    fileRow->addWidget(txtF_, 1);
    fileRow->addWidget(cmdB_);
    fileRow->addSpacing(12);
    fileRow->addWidget(cmdView_);
    fileRow->addWidget(cmdStop_);
    chkPause_->setObjectName("chkPause");
    fileRow->addWidget(chkPause_);
    root->addLayout(fileRow);

    auto* speedRow = new QHBoxLayout;
    speedRow->setSpacing(8);
    speedRow->addWidget(new QLabel("Speed:  Slow", this));
    sldSpeed_->setObjectName("sldSpeed");
    sldSpeed_->setRange(0, kFastest);
    sldSpeed_->setSingleStep(20);
    sldSpeed_->setPageStep(100);
    sldSpeed_->setValue(500);
    sldSpeed_->setFixedWidth(260);
    speedRow->addWidget(sldSpeed_);
    speedRow->addWidget(new QLabel("Fast", this));
    speedRow->addStretch(1);
    speedRow->addWidget(new QLabel("Search for:", this));
    txtSearch_->setObjectName("txtSearch");
    txtSearch_->setPlaceholderText("words, parted by commas");
    txtSearch_->setMinimumWidth(280);
    speedRow->addWidget(txtSearch_);
    speedRow->addWidget(cmdSearch_);
    root->addLayout(speedRow);

    msfGrid_->setObjectName("msfGrid");
    msfGrid_->horizontalHeader()->hide();
    msfGrid_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    msfGrid_->verticalHeader()->hide();
    msfGrid_->setShowGrid(false);
    msfGrid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    msfGrid_->setSelectionMode(QAbstractItemView::NoSelection);
    msfGrid_->setWordWrap(false);
    msfGrid_->setFont(fixedFont(0));
    msfGrid_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    msfGrid_->verticalHeader()->setDefaultSectionSize(QFontMetrics(msfGrid_->font()).height() + 4);
    root->addWidget(msfGrid_, 1);

    matchTime_->setObjectName("MatchTime");
    connect(matchTime_, &QTimer::timeout, this, &Matchviewer::tick);
    connect(cmdB_, &QPushButton::clicked, this, &Matchviewer::browse);
    connect(cmdView_, &QPushButton::clicked, this, &Matchviewer::start);
    connect(cmdSearch_, &QPushButton::clicked, this, &Matchviewer::search);
    connect(txtSearch_, &QLineEdit::returnPressed, this, &Matchviewer::search);
    connect(cmdStop_, &QPushButton::clicked, this, [this] {
        if (replay_) replay_->askStop();
    });
    connect(chkPause_, &QCheckBox::toggled, this, [this](bool on) {
        if (replay_) replay_->setPaused(on);
    });
    connect(sldSpeed_, &QSlider::valueChanged, this,
            [this](int value) { matchTime_->setInterval(results::kSlowestIntervalMs - value); });

    // The pictures, in the order of EventPicture::Kind.
    const std::tuple<Kind, const char*, int> pictures[] = {
        {Kind::Booking, "frmSplash", 2500},      {Kind::SendingOff, "frmSplash1", 3000},
        {Kind::Goal, "frmSplash2", 3000},        {Kind::Corner, "frmSplash3", 2000},
        {Kind::Substitution, "frmSplash4", 2500}, {Kind::Tactics, "frmSplash5", 2500},
        {Kind::Whistle, "frmSplash6", 3500},     {Kind::Statistics, "frmRefBlows", 60000},
    };
    for (const auto& [kind, name, ms] : pictures) {
        pictures_.push_back(new EventPicture(kind, name, ms, this));
        connect(pictures_.back(), &EventPicture::gone, this, &Matchviewer::placePictures);
    }
    finish();
}

EventPicture* Matchviewer::picture(Kind kind) const { return pictures_[size_t(kind)]; }

void Matchviewer::sessionLoaded() {
    Screen::sessionLoaded();
    finish();
    txtF_->clear();
    msfGrid_->setRowCount(0);
}

void Matchviewer::browse() {
    const GameFolder& folder = controller_.session().Folder;
    const QString file = pickFile_("Select match file", qpath(folder.resolve("Squadsheets")), "Text files (*.txt *.TXT)");
    if (!file.isEmpty()) txtF_->setText(file);
}

std::optional<std::filesystem::path> Matchviewer::chosenReport() {
    if (txtF_->text().trimmed().isEmpty()) {
        controller_.messages().warn("Stop !!!", "Please select match file.");
        txtF_->setFocus();
        return std::nullopt;
    }
    return std::filesystem::path(nativePath(txtF_->text().trimmed()));
}

void Matchviewer::start() {
    if (replay_) return;
    const auto path = chosenReport();
    if (!path) return;
    const GameFolder& folder = controller_.session().Folder;
    try {
        replay_.emplace(results::MatchReplay::fromFile(*path, displayName(folder, *path)));
    } catch (const GameFileError& e) {
        controller_.messages().warn("Match report could not be read",
                                    unreadableFileText("match report", e,
                                                       "Choose another report, or load the week's archives again "
                                                       "(Load Turn) to restore this one."));
        return;
    }
    for (EventPicture* p : pictures_) p->hide();
    msfGrid_->setRowCount(0);
    chkPause_->setChecked(false);
    chkPause_->setEnabled(true);
    cmdStop_->setEnabled(true);
    cmdView_->setEnabled(false);
    cmdSearch_->setEnabled(false);
    if (replay_->finished()) {
        EventPicture* refBlows = picture(Kind::Statistics);
        refBlows->setMessage(qs(replay_->closingStatistics()));
        refBlows->popUp("Closing statistics");
        placePictures();
        controller_.messages().inform("", "Press to start the game");
    }
    matchTime_->setInterval(results::kSlowestIntervalMs - sldSpeed_->value());
    matchTime_->start();
}

void Matchviewer::tick() {
    if (!replay_) return;
    const results::ViewerTick t = replay_->tick(sldSpeed_->value());
    switch (t.kind) {
        case results::ViewerTick::Kind::Idle: return;
        case results::ViewerTick::Kind::Ended:
        case results::ViewerTick::Kind::Stopped: finish(); return;
        case results::ViewerTick::Kind::Line: break;
    }
    if (t.intervalMs) matchTime_->setInterval(*t.intervalMs);
    addRows(t.rows);
    for (ViewerEvent e : t.events) popUpFor(e);
}

void Matchviewer::search() {
    msfGrid_->setRowCount(0);
    const auto path = chosenReport();
    if (!path) return;
    const std::vector<std::string> terms = results::searchTerms(gameText(txtSearch_->text()));
    if (terms.empty()) {
        controller_.messages().warn("Stop !!!", "Please enter search fields.");
        txtSearch_->setFocus();
        return;
    }
    try {
        addRows(results::searchReport(readLines(*path), terms));
    } catch (const GameFileError& e) {
        controller_.messages().warn("Match report could not be read",
                                    unreadableFileText("match report",
                                                       GameFileError(displayName(controller_.session().Folder, *path),
                                                                     e.line, e.expected, e.found),
                                                       "Choose another report."));
    }
}

void Matchviewer::addRows(const std::vector<results::ViewerRow>& rows) {
    for (const results::ViewerRow& r : rows) {
        const int row = msfGrid_->rowCount();
        msfGrid_->insertRow(row);
        auto* item = new QTableWidgetItem(qs(r.text));
        item->setBackground(reportColour(r.back));
        item->setForeground(reportColour(r.fore));
        msfGrid_->setItem(row, 0, item);
    }
    if (!rows.empty()) msfGrid_->scrollToBottom();
}

void Matchviewer::popUpFor(ViewerEvent event) {
    switch (event) {
        case ViewerEvent::Booking: picture(Kind::Booking)->popUp("BOOKED"); break;
        case ViewerEvent::SendingOff: picture(Kind::SendingOff)->popUp("SENT OFF"); break;
        case ViewerEvent::Goal: picture(Kind::Goal)->popUp("GOAL!"); break;
        case ViewerEvent::Corner: picture(Kind::Corner)->popUp("CORNER"); break;
        case ViewerEvent::Substitution: picture(Kind::Substitution)->popUp("SUBSTITUTION"); break;
        case ViewerEvent::TacticalChange: picture(Kind::Tactics)->popUp("CHANGE OF PLAN"); break;
        case ViewerEvent::HalfTime: picture(Kind::Whistle)->popUp("HALF TIME"); break;
        case ViewerEvent::FullTime: picture(Kind::Whistle)->popUp("FULL TIME"); break;
    }
    placePictures();
}

void Matchviewer::finish() {
    matchTime_->stop();
    replay_.reset();
    chkPause_->setChecked(false);
    chkPause_->setEnabled(false);
    cmdStop_->setEnabled(false);
    cmdView_->setEnabled(true);
    cmdSearch_->setEnabled(true);
}

// The event pictures stand in a column at the grid's right, the newest at the
// top, clear of the newest rows at its foot; the statistics in its middle.
void Matchviewer::placePictures() {
    const QRect grid = msfGrid_->geometry();
    std::vector<EventPicture*> column;
    for (EventPicture* p : pictures_) {
        if (p->kind() == Kind::Statistics)
            p->move(grid.center() - QPoint(p->width() / 2, p->height() / 2));
        else if (p->isVisible())
            column.push_back(p);
    }
    std::sort(column.begin(), column.end(), [](auto* a, auto* b) { return a->shownAt() > b->shownAt(); });
    int y = grid.top() + 16;
    for (EventPicture* p : column) {
        p->move(grid.right() - p->width() - 28, y);
        y += p->height() + 12;
    }
}

void Matchviewer::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    placePictures();
}

// Leaving the screen ends the replay and takes its pictures away; a window
// merely minimised keeps both.
void Matchviewer::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) {
        finish();
        for (EventPicture* p : pictures_) p->hide();
    }
    Screen::hideEvent(event);
}

}  // namespace kestrin::ui
