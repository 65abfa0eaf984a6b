#include "ui/vidi.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <array>
#include <cmath>

#include "core/loader.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

using namespace results;

namespace {

// How long the whole afternoon (101 minutes) takes, and the minute that gives.
struct Pace {
    const char* caption;
    int minuteMs;
};
constexpr std::array<Pace, 4> kPaces = {{
    {"Afternoon in 3 minutes", VidiScreen::kMinuteMs},
    {"Afternoon in 2 minutes", 1188},
    {"Afternoon in 1 minute", 594},
    {"Afternoon in 20 seconds", 198},
}};

const char* const kTickerLook =
    "QPlainTextEdit { background: #0c1b2b; color: #f2e9a0; border: 2px solid #24405c; border-radius: 4px; "
    "padding: 4px; }";
const char* const kClockLook =
    "QLabel { background: #0c1b2b; color: #7fe08a; border-radius: 4px; padding: 4px 14px; font-size: 15pt; "
    "font-weight: bold; }";

QPlainTextEdit* panel(const char* name, QWidget* parent) {
    auto* t = new QPlainTextEdit(parent);
    t->setObjectName(name);
    t->setReadOnly(true);
    t->setLineWrapMode(QPlainTextEdit::NoWrap);
    t->setFont(fixedFont());
    return t;
}

QLabel* caption(const QString& text, QWidget* parent, const char* name = nullptr) {
    auto* l = new QLabel(text, parent);
    if (name) l->setObjectName(name);
    l->setStyleSheet("color: #2c4a6b; font-weight: bold;");
    return l;
}

}  // namespace

// ---- The goal alert ---------------------------------------------------------

GoalAlert::GoalAlert(QWidget* parent) : QWidget(parent), lblInvolve_(new QLabel(this)), timer_(new QTimer(this)) {
    setObjectName("frmSplash2");
    setFixedSize(460, 170);
    lblInvolve_->setObjectName("lblInvolve");
    lblInvolve_->setAlignment(Qt::AlignCenter);
    lblInvolve_->setStyleSheet("color: white; font-size: 14pt; font-weight: bold; background: transparent;");
    // A long club name takes a second line rather than being cut.
    lblInvolve_->setWordWrap(true);
    lblInvolve_->setGeometry(146, 100, 304, 62);
    timer_->setSingleShot(true);
    connect(timer_, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

void GoalAlert::flash(const QString& involving) {
    lblInvolve_->setText(involving);
    timer_->start(kShowMs);
    show();
    raise();
}

void GoalAlert::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF card = QRectF(rect()).adjusted(2, 2, -2, -2);
    // A floodlit pitch: stripes of two greens under a dark sky.
    QPainterPath clip;
    clip.addRoundedRect(card, 14, 14);
    p.setClipPath(clip);
    p.fillRect(card, QColor(0x10, 0x1e, 0x33));
    for (int i = 0; i < 8; ++i)
        p.fillRect(QRectF(card.left() + i * card.width() / 8, card.top() + 70, card.width() / 8, card.height() - 70),
                   i % 2 ? QColor(0x2f, 0x7d, 0x3a) : QColor(0x38, 0x8e, 0x44));
    // The goal and its net.
    const QRectF goal(24, 34, 110, 70);
    p.setPen(QPen(QColor(230, 236, 240, 120), 1));
    for (qreal x = goal.left(); x <= goal.right(); x += 10) p.drawLine(QPointF(x, goal.top()), QPointF(x, goal.bottom()));
    for (qreal y = goal.top(); y <= goal.bottom(); y += 10) p.drawLine(QPointF(goal.left(), y), QPointF(goal.right(), y));
    p.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::SquareCap));
    p.drawLine(goal.bottomLeft(), goal.topLeft());
    p.drawLine(goal.topLeft(), goal.topRight());
    p.drawLine(goal.topRight(), goal.bottomRight());
    // The ball, in the back of the net.
    const QPointF c(98, 84);
    const qreal r = 17;
    const QPolygonF patch = paintBall(p, c, r, QColor(0x22, 0x22, 0x22), 1.5);
    for (const QPointF& corner : patch) p.drawLine(corner, c + (corner - c) * 2.3);
    p.setClipping(false);
    // The word itself.
    QFont big = font();
    big.setPointSize(34);
    big.setBold(true);
    big.setItalic(true);
    p.setFont(big);
    p.setPen(QColor(0xff, 0xd8, 0x3a));
    p.drawText(QRectF(150, 14, card.width() - 160, 80), Qt::AlignCenter, "GOAL!");
    p.setPen(QPen(QColor(0xff, 0xd8, 0x3a), 3));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(card, 14, 14);
}

// ---- The screen --------------------------------------------------------------

VidiScreen::VidiScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "Vidi", "Vidiprinter", parent),
      btnStart_(makeButton("btnStart", "Start", this)),
      btnPause_(makeButton("btnPause", "Pause", this)),
      cboSpeed_(new QComboBox(this)),
      cboCountry_(new QComboBox(this)),
      lblTime_(new QLabel(this)),
      txtResult_(panel("txtResult", this)),
      scores_(panel("Scores", this)),
      txtTable_(panel("txtTable", this)),
      lblCompetition_(caption("Results", this, "lblCompetition")),
      vidiTimer_(new QTimer(this)),
      frmSplash2_(new GoalAlert(this)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);

    auto* header = headerRow("Vidiprinter");
    header->addStretch(1);
    cboSpeed_->setObjectName("cboSpeed");
    for (const Pace& pace : kPaces) cboSpeed_->addItem(pace.caption, pace.minuteMs);
    header->addWidget(cboSpeed_);
    btnPause_->setCheckable(true);
    btnPause_->setEnabled(false);
    header->addWidget(btnStart_);
    header->addWidget(btnPause_);
    auto* back = makeButton("Command1", "Main Menu", this);
    header->addWidget(back);
    root->addLayout(header);

    auto* clockRow = new QHBoxLayout;
    lblTime_->setObjectName("LblTime");
    lblTime_->setStyleSheet(kClockLook);
    lblTime_->setMinimumWidth(250);
    lblTime_->setAlignment(Qt::AlignCenter);
    clockRow->addWidget(lblTime_);
    clockRow->addStretch(1);
    clockRow->addWidget(new QLabel("Competition:", this));
    cboCountry_->setObjectName("CboCountry");
    cboCountry_->setMinimumWidth(200);
    clockRow->addWidget(cboCountry_);
    root->addLayout(clockRow);

    root->addWidget(caption("Latest goals, the newest on top", this, "Label2"));
    txtResult_->setStyleSheet(kTickerLook);
    txtResult_->setFont(fixedFont(1));
    txtResult_->setPlaceholderText("Press Start to hear the week's results as they come in.");
    root->addWidget(txtResult_, 3);

    auto* below = new QHBoxLayout;
    below->setSpacing(12);
    auto* left = new QVBoxLayout;
    left->addWidget(lblCompetition_);
    left->addWidget(scores_, 1);
    below->addLayout(left, 5);
    auto* right = new QVBoxLayout;
    right->addWidget(caption("Table", this));
    right->addWidget(txtTable_, 1);
    below->addLayout(right, 4);
    root->addLayout(below, 4);

    vidiTimer_->setObjectName("vidiTimer");
    vidiTimer_->setInterval(kMinuteMs);
    connect(vidiTimer_, &QTimer::timeout, this, &VidiScreen::tick);
    connect(btnStart_, &QPushButton::clicked, this, &VidiScreen::start);
    connect(btnPause_, &QPushButton::clicked, this, [this] {
        if (!vidi_) return;
        vidi_->togglePause();
        const bool paused = vidi_->state() == Vidiprinter::State::Paused;
        paused ? vidiTimer_->stop() : vidiTimer_->start();
        btnPause_->setChecked(paused);
        btnPause_->setText(paused ? "Resume" : "Pause");
    });
    connect(cboSpeed_, &QComboBox::currentIndexChanged, this,
            [this](int index) { vidiTimer_->setInterval(cboSpeed_->itemData(index).toInt()); });
    connect(cboCountry_, &QComboBox::activated, this, [this](int index) {
        if (!vidi_ || index < 0) return;
        vidi_->chooseSet(cboCountry_->itemData(index).toInt());
        showSet();
    });
    connect(back, &QPushButton::clicked, this, [this] {
        stop();
        if (vidi_) vidi_->close();
        emit navigate("MainMenu");
    });
    lblTime_->setText("0 minutes");
}

void VidiScreen::sessionLoaded() {
    Screen::sessionLoaded();
    stop();
    vidi_.reset();
    cboCountry_->clear();
    txtResult_->clear();
    scores_->clear();
    txtTable_->clear();
    lblTime_->setText("0 minutes");
    lblCompetition_->setText("Results");
}

void VidiScreen::stop() {
    vidiTimer_->stop();
    btnStart_->setEnabled(true);
    btnPause_->setChecked(false);
    btnPause_->setText("Pause");
    btnPause_->setEnabled(false);
}

void VidiScreen::setMinuteInterval(int ms) { vidiTimer_->setInterval(ms); }

void VidiScreen::start() {
    const Session& s = controller_.session();
    vidi_.emplace(s.Game, vidiWatch(s));
    vidi_->start(s.Folder);
    cboCountry_->clear();
    for (const VidiSet& set : vidi_->offered()) {
        cboCountry_->addItem(qs(set.names.label), set.number);
        if (set.number == vidi_->currentSet()) cboCountry_->setCurrentIndex(cboCountry_->count() - 1);
    }
    btnStart_->setEnabled(false);
    btnPause_->setEnabled(true);
    txtResult_->clear();
    lblTime_->setText(qs(vidi_->clockText()));
    showSet();
    if (!vidi_->problems().empty()) {
        std::string text;
        for (const GameFileError& e : vidi_->problems())
            text += (text.empty() ? "" : "\r\n\r\n") + unreadableFileText("weekly file", e, "");
        text += "\r\n\r\nThe other results play on without it. Load the week's archives again (Load Turn) to "
                "restore the file.";
        controller_.messages().warn("Vidiprinter", text);
    }
    vidiTimer_->start();
}

void VidiScreen::tick() {
    if (!vidi_) return;
    const VidiTick t = vidi_->tick();
    lblTime_->setText(qs(vidi_->clockText()));
    if (!t.lines.empty()) txtResult_->setPlainText(qs(vidi_->tickerText()));
    if (t.alert) frmSplash2_->flash(qs(*t.alert));
    if (!t.lines.empty() || t.finished) showSet();
    if (t.finished) stop();
}

void VidiScreen::showSet() {
    if (!vidi_) return;
    const int set = vidi_->currentSet();
    for (const VidiSet& s : vidi_->offered())
        if (s.number == set) lblCompetition_->setText(qs(s.names.longName));
    scores_->setPlainText(qs(vidi_->scoresText(set)));
    txtTable_->setPlainText(qs(vidi_->tableText(set)));
}

void VidiScreen::resizeEvent(QResizeEvent* event) {
    Screen::resizeEvent(event);
    // The alert stands over the middle of the ticker.
    frmSplash2_->move((width() - frmSplash2_->width()) / 2, height() / 3 - frmSplash2_->height() / 2);
}

}  // namespace kestrin::ui
