#include "ui/tickerform.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "files/news.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

TickerForm::TickerForm(SessionController& controller, QWidget* parent)
    : QDialog(parent), controller_(controller), txtTicker_(new QLineEdit(this)), timer_(new QTimer(this)) {
    setObjectName("TickerForm");
    setWindowTitle("Last week's reports");

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 10);
    root->setSpacing(8);
    txtTicker_->setObjectName("txtTicker");
    txtTicker_->setReadOnly(true);
    txtTicker_->setFocusPolicy(Qt::NoFocus);
    QFont tape = fixedFont(1);
    tape.setBold(true);
    txtTicker_->setFont(tape);
    txtTicker_->setStyleSheet("QLineEdit { background: #10202f; color: #f2e9a0; padding: 6px; }");
    // Exactly the tape's width of characters, and no more.
    const QFontMetrics fm(tape);
    txtTicker_->setFixedWidth(fm.horizontalAdvance(QString(int(kTickerWidth), QLatin1Char('M'))) + 24);
    root->addWidget(txtTicker_);

    addCloseRow(this, root);

    timer_->setObjectName("Timer1");
    timer_->setInterval(kTickMs);
    connect(timer_, &QTimer::timeout, this, &TickerForm::tick);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void TickerForm::startTape() {
    pos_ = 0;
    tick();
    timer_->start();
}

void TickerForm::tick() {
    txtTicker_->setText(qs(tickerStep(controller_.session().TickerText, pos_)));
    txtTicker_->setCursorPosition(0);
}

void TickerForm::hideEvent(QHideEvent* event) {
    timer_->stop();
    QDialog::hideEvent(event);
}

}  // namespace kestrin::ui
