#include "ui/look.h"

#include <cmath>

#include <QApplication>
#include <QFontDatabase>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace kestrin::ui {

namespace {

constexpr const char* kStyleSheet = R"(
QGroupBox {
    background: rgba(255, 255, 255, 215);
    border: 1px solid #c3ccd6;
    border-radius: 6px;
    margin-top: 1.3em;
    padding: 6px 8px 8px 8px;
    font-weight: bold;
    color: #243447;
}
QGroupBox::title {
    subcontrol-origin: margin;
    left: 10px;
    padding: 0 4px;
}
QGroupBox QLabel { font-weight: normal; color: #1d2733; }
QLabel#screenHeading { font-size: 18pt; font-weight: bold; color: #1f3550; }
QLabel#clubHeading { font-size: 13pt; color: #2c4a6b; }
QPushButton {
    background: #f7f9fb;
    border: 1px solid #a9b6c4;
    border-radius: 4px;
    padding: 5px 12px;
    min-height: 1.5em;
}
QPushButton:hover { background: #e8f0f8; }
QPushButton:pressed, QPushButton:checked { background: #cfe0f1; border-color: #6f8fb0; }
QPushButton:disabled { color: #9aa5b1; background: #eef1f4; border-color: #cfd6de; }
QPushButton#Command2, QPushButton#Command3 { font-weight: bold; }
QComboBox, QLineEdit, QSpinBox { background: white; padding: 2px 4px; }
QTableWidget { background: white; alternate-background-color: #f1f5f9; gridline-color: #d5dde5; }
QHeaderView::section { background: #e3eaf1; border: 0; border-right: 1px solid #c7d1db; padding: 4px; font-weight: bold; }
)";

}  // namespace

void applyLook(QApplication& app) {
    // The game names a font character set in game.ini (Charset); with Unicode
    // fonts every text shows as it is, so the setting is moot here.
    QFont base = QApplication::font();
    base.setPointSize(10);
    app.setFont(base);
    app.setStyleSheet(kStyleSheet);
}

QPolygonF paintBall(QPainter& p, QPointF centre, qreal radius, const QColor& ink, qreal outline) {
    p.setBrush(Qt::white);
    p.setPen(QPen(ink, outline));
    p.drawEllipse(centre, radius, radius);
    QPolygonF patch;
    for (int i = 0; i < 5; ++i) {
        const qreal a = -M_PI / 2 + i * 2 * M_PI / 5;
        patch << centre + QPointF(std::cos(a), std::sin(a)) * radius * 0.44;
    }
    p.setBrush(ink);
    p.drawPolygon(patch);
    return patch;
}

QFont fixedFont(int pointSizeDelta) {
    QFont f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    f.setPointSize(10 + pointSizeDelta);
    return f;
}

void paintBackdrop(QPainter& p, const QRect& r) {
    QLinearGradient g(r.topLeft(), r.bottomRight());
    g.setColorAt(0.0, QColor(0xe9, 0xef, 0xf5));
    g.setColorAt(0.55, QColor(0xf4, 0xf6, 0xf2));
    g.setColorAt(1.0, QColor(0xdd, 0xe8, 0xdf));
    p.fillRect(r, g);
}

QPixmap builtinBadge(int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal s = size;
    QPainterPath shield;
    shield.moveTo(s * 0.12, s * 0.10);
    shield.lineTo(s * 0.88, s * 0.10);
    shield.lineTo(s * 0.88, s * 0.50);
    shield.cubicTo(s * 0.88, s * 0.75, s * 0.65, s * 0.88, s * 0.50, s * 0.95);
    shield.cubicTo(s * 0.35, s * 0.88, s * 0.12, s * 0.75, s * 0.12, s * 0.50);
    shield.closeSubpath();
    p.fillPath(shield, QColor(0x1f, 0x4e, 0x79));
    p.save();
    p.setClipPath(shield);
    p.fillRect(QRectF(s * 0.5, 0, s * 0.5, s), QColor(0xc8, 0x3a, 0x32));
    p.fillRect(QRectF(0, s * 0.10, s, s * 0.16), QColor(0xf2, 0xc1, 0x4e));
    p.restore();
    p.setPen(QPen(QColor(0x18, 0x24, 0x33), s * 0.035));
    p.drawPath(shield);
    // A ball in the middle.
    paintBall(p, QPointF(s * 0.5, s * 0.55), s * 0.16, QColor(0x18, 0x24, 0x33), s * 0.02);
    return pm;
}

QPixmap builtinShirt(int size) {
    QPixmap pm(size, size);
    pm.fill(Qt::transparent);
    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal s = size;
    QPainterPath shirt;
    shirt.moveTo(s * 0.38, s * 0.12);
    shirt.quadTo(s * 0.50, s * 0.22, s * 0.62, s * 0.12);  // collar
    shirt.lineTo(s * 0.90, s * 0.24);
    shirt.lineTo(s * 0.80, s * 0.44);
    shirt.lineTo(s * 0.72, s * 0.40);
    shirt.lineTo(s * 0.72, s * 0.90);
    shirt.lineTo(s * 0.28, s * 0.90);
    shirt.lineTo(s * 0.28, s * 0.40);
    shirt.lineTo(s * 0.20, s * 0.44);
    shirt.lineTo(s * 0.10, s * 0.24);
    shirt.closeSubpath();
    p.fillPath(shirt, QColor(0xc8, 0x3a, 0x32));
    p.save();
    p.setClipPath(shirt);
    p.fillRect(QRectF(s * 0.44, 0, s * 0.12, s), QColor(255, 255, 255, 220));
    p.restore();
    p.setPen(QPen(QColor(0x3a, 0x18, 0x16), s * 0.025));
    p.drawPath(shirt);
    return pm;
}

}  // namespace kestrin::ui
