#pragma once
// The program's look: fonts, the style sheet, the quiet backdrop of every
// screen, and the built-in badge and shirt pictures (our own drawings).
#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <QPixmap>
#include <QRect>

class QApplication;
class QPainter;

namespace kestrin::ui {

void applyLook(QApplication& app);

// Fixed-pitch font for figures and for the game's own column text.
QFont fixedFont(int pointSizeDelta = 0);

// A football: white, outlined and with its middle patch in `ink`. Returns
// the patch's corners, for the seams a bigger ball wants.
QPolygonF paintBall(QPainter& p, QPointF centre, qreal radius, const QColor& ink, qreal outline);

void paintBackdrop(QPainter& painter, const QRect& rect);

QPixmap builtinBadge(int size);
QPixmap builtinShirt(int size);

}  // namespace kestrin::ui
