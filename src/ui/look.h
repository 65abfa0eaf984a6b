#pragma once
// The program's look: fonts, the style sheet, the quiet backdrop of every
// screen, and the built-in badge and shirt pictures (our own drawings).
#include <QFont>
#include <QPixmap>
#include <QRect>

class QApplication;
class QPainter;

namespace kestrin::ui {

void applyLook(QApplication& app);

// Fixed-pitch font for figures and for the game's own column text.
QFont fixedFont(int pointSizeDelta = 0);

void paintBackdrop(QPainter& painter, const QRect& rect);

QPixmap builtinBadge(int size);
QPixmap builtinShirt(int size);

}  // namespace kestrin::ui
