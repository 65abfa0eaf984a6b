#include "match/pictures/shirts.h"

#include <QColor>
#include <QPainter>
#include <QPolygon>

namespace kestrin {

namespace {

QRgb opaque(KitColour c) { return qRgb(kitRed(c), kitGreen(c), kitBlue(c)); }

QColor colourOf(KitColour c) { return QColor(kitRed(c), kitGreen(c), kitBlue(c)); }

// Masters are drawn without antialiasing: a blended edge pixel would be
// neither marker and would keep the master's grey after recolouring.
QImage blankCanvas() {
    QImage img(kShirtPixels, kShirtPixels, QImage::Format_ARGB32);
    img.fill(Qt::transparent);
    return img;
}

void fill(QPainter& p, const QPolygon& shape, KitColour c, bool outline) {
    p.setBrush(colourOf(c));
    if (outline)
        p.setPen(QPen(Qt::black, 1));
    else
        p.setPen(Qt::NoPen);
    p.drawPolygon(shape);
}

QImage drawPlayerShirt() {
    QImage img = blankCanvas();
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing, false);
    const QPolygon body({{13, 3}, {26, 3}, {37, 11}, {33, 19}, {29, 16}, {29, 37}, {10, 37}, {10, 16}, {6, 19}, {2, 11}});
    fill(p, body, kShirtMarker1, true);
    fill(p, QPolygon({{15, 4}, {25, 4}, {20, 9}}), kShirtMarker2, false);   // collar
    fill(p, QPolygon({{35, 10}, {37, 12}, {34, 18}, {32, 16}}), kShirtMarker2, false);  // right cuff
    fill(p, QPolygon({{4, 10}, {2, 12}, {5, 18}, {7, 16}}), kShirtMarker2, false);      // left cuff
    fill(p, QPolygon({{11, 33}, {28, 33}, {28, 36}, {11, 36}}), kShirtMarker2, false);  // hem
    p.end();
    return img;
}

QImage drawKeeperShirt() {
    QImage img = blankCanvas();
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing, false);
    const QPolygon body({{13, 3}, {26, 3}, {36, 9}, {37, 30}, {32, 30}, {29, 15}, {29, 37}, {10, 37}, {10, 15},
                         {7, 30}, {2, 30}, {3, 9}});
    fill(p, body, kShirtMarker1, true);
    fill(p, QPolygon({{15, 4}, {25, 4}, {20, 9}}), kShirtMarker2, false);               // collar
    fill(p, QPolygon({{11, 33}, {28, 33}, {28, 36}, {11, 36}}), kShirtMarker2, false);  // hem
    // Gloves below the cuffs, in a colour that no kit replaces.
    p.setPen(QPen(Qt::black, 1));
    p.setBrush(QColor(240, 240, 240));
    p.drawRect(2, 31, 5, 5);
    p.drawRect(32, 31, 5, 5);
    p.end();
    return img;
}

}  // namespace

void ReplaceColour(QImage& picture, KitColour from, KitColour to) {
    if (picture.isNull()) return;
    const QRgb f = opaque(from);
    const QRgb t = opaque(to);
    switch (picture.format()) {
        case QImage::Format_Indexed8:
        case QImage::Format_Mono:
        case QImage::Format_MonoLSB: {
            QList<QRgb> table = picture.colorTable();
            for (QRgb& entry : table)
                if (entry == f) entry = t;
            picture.setColorTable(table);
            return;
        }
        case QImage::Format_RGB32:
        case QImage::Format_ARGB32:
        case QImage::Format_ARGB32_Premultiplied: {
            // An opaque pixel reads the same in all three forms.
            const bool noAlpha = picture.format() == QImage::Format_RGB32;
            for (int y = 0; y < picture.height(); ++y) {
                QRgb* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
                for (int x = 0; x < picture.width(); ++x) {
                    QRgb px = noAlpha ? (line[x] | 0xFF000000u) : line[x];
                    if (px == f) line[x] = t;
                }
            }
            return;
        }
        default:
            for (int y = 0; y < picture.height(); ++y)
                for (int x = 0; x < picture.width(); ++x)
                    if (picture.pixel(x, y) == f) picture.setPixel(x, y, t);
            return;
    }
}

const QImage& playerShirtMaster() {
    static const QImage master = drawPlayerShirt();
    return master;
}

const QImage& keeperShirtMaster() {
    static const QImage master = drawKeeperShirt();
    return master;
}

QImage shirtPicture(int shirt, const KitColours& kit) {
    const bool keeper = shirt == 1;
    QImage img = (keeper ? keeperShirtMaster() : playerShirtMaster()).copy();
    ReplaceColour(img, kShirtMarker1, keeper ? keeperKitColour(kit.KitColour1) : kit.KitColour1);
    ReplaceColour(img, kShirtMarker2, kit.KitColour2);
    return img;
}

}  // namespace kestrin
