#include "ui/welcome.h"

#include <QPainter>
#include <QVBoxLayout>

#include "ui/look.h"

namespace kestrin::ui {

Welcome::Welcome(QWidget* parent) : QWidget(parent, Qt::Window), status_(new QLabel(this)) {
    setObjectName("Welcome");
    setFixedSize(460, 260);
    auto* lay = new QVBoxLayout(this);
    lay->setContentsMargins(24, 20, 24, 20);
    auto* badge = new QLabel(this);
    badge->setPixmap(builtinBadge(120));
    badge->setAlignment(Qt::AlignCenter);
    lay->addWidget(badge, 1);
    status_->setObjectName("lblStatus");
    status_->setAlignment(Qt::AlignCenter);
    QFont f = status_->font();
    f.setPointSize(f.pointSize() + 2);
    status_->setFont(f);
    lay->addWidget(status_);
}

void Welcome::setStatus(const QString& text) {
    status_->setText(text);
    status_->repaint();
}

void Welcome::paintEvent(QPaintEvent*) {
    QPainter p(this);
    paintBackdrop(p, rect());
}

}  // namespace kestrin::ui
