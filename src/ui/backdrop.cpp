#include "ui/backdrop.h"

#include <QImageReader>
#include <QLinearGradient>
#include <QPainter>
#include <QPalette>
#include <QRadialGradient>

#include "ui/look.h"
#include "ui/qtext.h"

namespace kestrin::ui {

namespace {

struct Tint {
    const char* screen;
    QColor from, middle, to;
};

// Soft enough that the panels over them stay easy to read.
const Tint kTints[] = {
    {"SquadScr", QColor(0xea, 0xf1, 0xea), QColor(0xf5, 0xf7, 0xf1), QColor(0xd9, 0xe6, 0xd6)},
    {"Fixt", QColor(0xe6, 0xee, 0xf6), QColor(0xf3, 0xf6, 0xf9), QColor(0xd6, 0xe2, 0xee)},
    {"PitchGrid", QColor(0xe2, 0xee, 0xe0), QColor(0xef, 0xf5, 0xec), QColor(0xcf, 0xe2, 0xcc)},
    {"Scout", QColor(0xf1, 0xee, 0xe6), QColor(0xf7, 0xf5, 0xf0), QColor(0xe5, 0xdf, 0xd0)},
    {"ScoutHistory", QColor(0xf1, 0xee, 0xe6), QColor(0xf7, 0xf5, 0xf0), QColor(0xe5, 0xdf, 0xd0)},
    {"LastWk", QColor(0xee, 0xea, 0xf2), QColor(0xf6, 0xf4, 0xf8), QColor(0xe0, 0xda, 0xea)},
    {"News", QColor(0xf3, 0xef, 0xe9), QColor(0xf9, 0xf7, 0xf3), QColor(0xe8, 0xe0, 0xd4)},
    {"Preferences", QColor(0xec, 0xef, 0xf3), QColor(0xf6, 0xf7, 0xf9), QColor(0xdd, 0xe3, 0xea)},
    {"AutoTurn", QColor(0xe8, 0xf0, 0xf1), QColor(0xf4, 0xf7, 0xf7), QColor(0xd5, 0xe5, 0xe7)},
};

void paintBuiltIn(QPainter& p, const QRect& r, const QString& screenName) {
    for (const Tint& t : kTints) {
        if (screenName != QLatin1String(t.screen)) continue;
        QLinearGradient g(r.topLeft(), r.bottomRight());
        g.setColorAt(0.0, t.from);
        g.setColorAt(0.55, t.middle);
        g.setColorAt(1.0, t.to);
        p.fillRect(r, g);
        // A faint light from the top left, so the screen isn't flat.
        QRadialGradient glow(r.topLeft() + QPointF(r.width() * 0.2, r.height() * 0.1), r.width() * 0.6);
        glow.setColorAt(0.0, QColor(255, 255, 255, 70));
        glow.setColorAt(1.0, QColor(255, 255, 255, 0));
        p.fillRect(r, glow);
        return;
    }
    paintBackdrop(p, r);  // the main menu's, and that of any screen without a tint
}

}  // namespace

bool isReadablePicture(const QString& file) {
    if (file.isEmpty()) return false;
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    return reader.canRead();
}

Backdrop backdropFor(const PictureChoice& choice) {
    Backdrop b;
    if (choice.Option == 1) {
        b.kind = Backdrop::Kind::None;
    } else if (choice.Option == 2) {
        b.file = qpath(choice.File);
        if (!choice.File.empty() && b.picture.load(b.file)) b.kind = Backdrop::Kind::Picture;
    }
    return b;
}

void paintScreenBackdrop(QPainter& p, const QRect& r, const Backdrop& b, const QString& screenName) {
    switch (b.kind) {
    case Backdrop::Kind::None:
        p.fillRect(r, QPalette().color(QPalette::Window));
        return;
    case Backdrop::Kind::Picture: {
        if (b.picture.isNull() || r.isEmpty()) break;
        // Cover the screen: scale to the larger ratio and cut the overhang evenly.
        const QSizeF pic = b.picture.size();
        const qreal scale = std::max(r.width() / pic.width(), r.height() / pic.height());
        const QSizeF shown(r.width() / scale, r.height() / scale);
        const QRectF source(QPointF((pic.width() - shown.width()) / 2, (pic.height() - shown.height()) / 2), shown);
        p.save();
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawPixmap(QRectF(r), b.picture, source);
        p.restore();
        return;
    }
    case Backdrop::Kind::BuiltIn:
        break;
    }
    paintBuiltIn(p, r, screenName);
}

}  // namespace kestrin::ui
