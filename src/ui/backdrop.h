#pragma once
// What a screen is painted on: its built-in picture, nothing, or a picture
// the manager chose on the Preferences screen.
#include <QPixmap>
#include <QRect>
#include <QString>

#include "core/settings.h"

class QPainter;

namespace kestrin::ui {

struct Backdrop {
    enum class Kind { BuiltIn, None, Picture };
    Kind kind = Kind::BuiltIn;
    QPixmap picture;
    QString file;  // the picture's path, for the record
};

// The backdrop of a background option. A picture that can't be read gives
// the built-in backdrop: the screen stays readable.
Backdrop backdropFor(const PictureChoice& choice);

// Whether the file is a picture the screens can show.
bool isReadablePicture(const QString& file);

// Paints `backdrop` over `rect`. The built-in pictures are quiet gradients,
// each screen with its own tint; a chosen picture covers the screen,
// keeping its proportions.
void paintScreenBackdrop(QPainter& painter, const QRect& rect, const Backdrop& backdrop, const QString& screenName);

}  // namespace kestrin::ui
