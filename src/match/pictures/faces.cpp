#include "match/pictures/faces.h"

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPolygon>
#include <algorithm>
#include <cmath>

#include "match/pictures/shirts.h"

namespace kestrin {

namespace {

// Every part shares one frame: the head's centre line at x 48, eyes at y 50,
// nose from 48 to 60, mouth at 67, chin near 77, shoulders from 84.
constexpr double kCx = 48;
constexpr double kEyeY = 50, kEyeDx = 8.5, kBrowY = 43, kMouthY = 67;

QColor skinTone(int tone) {
    static const QColor tones[] = {{255, 226, 204}, {246, 206, 175}, {234, 184, 146}, {214, 160, 116},
                                   {184, 128, 88},  {141, 93, 60},   {98, 63, 42}};
    return tones[std::clamp(tone, 0, 6)];
}

QColor hairColour(int shade) {
    switch (HairShade(shade)) {
        case HairShade::Black: return {38, 32, 32};
        case HairShade::DarkBrown: return {78, 50, 32};
        case HairShade::Brown: return {128, 84, 46};
        case HairShade::Ginger: return {196, 98, 40};
        case HairShade::Blond: return {230, 196, 112};
        case HairShade::Grey: return {178, 178, 176};
        case HairShade::None: break;
    }
    return {90, 70, 60};
}

// Lines and shadows of the features are a translucent brown that reads on
// every skin tone.
QColor ink(int alpha = 200) { return {70, 35, 20, alpha}; }

QImage canvas() {
    QImage img(kFaceWidth, kFaceHeight, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    return img;
}

QPen pen(const QColor& c, double width) {
    QPen p(c, width);
    p.setCapStyle(Qt::RoundCap);
    p.setJoinStyle(Qt::RoundJoin);
    return p;
}

void shape(QPainter& p, const QPainterPath& path, const QColor& fill, const QColor& line, double width = 1.0) {
    p.setBrush(fill);
    p.setPen(line.alpha() == 0 ? QPen(Qt::NoPen) : pen(line, width));
    p.drawPath(path);
}

// Both eyes, ears and brows are drawn once for the left side and mirrored.
template <class Draw>
void bothSides(QPainter& p, Draw draw) {
    draw();
    p.save();
    p.translate(2 * kCx, 0);
    p.scale(-1, 1);
    draw();
    p.restore();
}

// ---- Heads ------------------------------------------------------------------

QPainterPath headOutline(int style) {
    QPainterPath path;
    switch (style) {
        case 1: {  // square: a wide jaw
            path.moveTo(kCx, 22);
            path.cubicTo(62, 22, 70, 32, 69.5, 50);
            path.cubicTo(69, 64, 64, 74, 56, 77);
            path.lineTo(40, 77);
            path.cubicTo(32, 74, 27, 64, 26.5, 50);
            path.cubicTo(26, 32, 34, 22, kCx, 22);
            break;
        }
        case 2:  // round
            path.addEllipse(QPointF(kCx, 51), 23, 25.5);
            break;
        case 3: {  // long, with a narrow chin
            path.moveTo(kCx, 21);
            path.cubicTo(61, 21, 67.5, 32, 67.5, 48);
            path.cubicTo(67.5, 64, 60, 78, kCx, 79.5);
            path.cubicTo(36, 78, 28.5, 64, 28.5, 48);
            path.cubicTo(28.5, 32, 35, 21, kCx, 21);
            break;
        }
        default:  // oval
            path.moveTo(kCx, 22);
            path.cubicTo(62, 22, 69, 33, 69, 49);
            path.cubicTo(69, 65, 60, 77.5, kCx, 78);
            path.cubicTo(36, 77.5, 27, 65, 27, 49);
            path.cubicTo(27, 33, 34, 22, kCx, 22);
            break;
    }
    return path;
}

double headHalfWidth(int style) { return style == 2 ? 23 : style == 3 ? 19.5 : 21.5; }

// The shirt is drawn without antialiasing, in the marker and a trim colour
// that no kit replaces, so that every shirt pixel is exactly one of them.
void drawShirt(QPainter& p, int collar) {
    p.setRenderHint(QPainter::Antialiasing, false);
    const QColor marker(kitRed(kFaceShirtMarker), kitGreen(kFaceShirtMarker), kitBlue(kFaceShirtMarker));
    const QColor trim(245, 245, 245);
    const QColor outline(40, 40, 46);
    QPolygon body;
    body << QPoint(1, 112) << QPoint(3, 99) << QPoint(9, 91) << QPoint(22, 86) << QPoint(37, 83);
    if (collar == 1)  // V neck
        body << QPoint(48, 97);
    else
        body << QPoint(41, 89) << QPoint(48, 91) << QPoint(55, 89);
    body << QPoint(59, 83) << QPoint(74, 86) << QPoint(87, 91) << QPoint(93, 99) << QPoint(95, 112);
    p.setPen(QPen(outline, 1));
    p.setBrush(marker);
    p.drawPolygon(body);
    p.setPen(Qt::NoPen);
    p.setBrush(trim);
    if (collar == 1) {
        p.drawPolygon(QPolygon({{37, 84}, {39, 84}, {48, 94}, {57, 84}, {59, 84}, {48, 97}}));
    } else if (collar == 2) {  // a polo collar with two flaps
        p.drawPolygon(QPolygon({{36, 84}, {41, 89}, {48, 91}, {45, 99}, {33, 93}}));
        p.drawPolygon(QPolygon({{60, 84}, {55, 89}, {48, 91}, {51, 99}, {63, 93}}));
        p.setPen(QPen(outline, 1));
        p.drawLine(48, 91, 48, 104);
    } else {
        p.drawPolygon(QPolygon({{37, 84}, {41, 88}, {48, 90}, {55, 88}, {59, 84}, {55, 91}, {48, 93}, {41, 91}}));
    }
    // Seams of the sleeves, in the outline colour.
    p.setPen(QPen(outline, 1));
    p.drawLine(20, 88, 17, 112);
    p.drawLine(76, 88, 79, 112);
}

void drawHead(QPainter& p, int style, int tone, int collar) {
    const QColor skin = skinTone(tone);
    const QColor edge = skin.darker(135);
    const double hw = headHalfWidth(style);
    // Neck first, so the head and the shirt both sit over it.
    QPainterPath neck;
    neck.addRoundedRect(QRectF(kCx - 9.5, 64, 19, 30), 4, 4);
    shape(p, neck, skin, edge);
    QPainterPath throat;
    throat.addEllipse(QPointF(kCx, 77), 9, 5);
    shape(p, throat, QColor(0, 0, 0, 40), QColor(0, 0, 0, 0));
    // Ears.
    bothSides(p, [&] {
        QPainterPath ear;
        ear.addEllipse(QPointF(kCx - hw - 1, 53), 4.5, 7.5);
        shape(p, ear, skin, edge);
        p.setPen(pen(edge, 1.1));
        p.drawArc(QRectF(kCx - hw - 4, 48, 5, 10), 90 * 16, 150 * 16);
    });
    const QPainterPath head = headOutline(style);
    shape(p, head, skin, edge, 1.2);
    // A little shade under the cheekbones and on the chin gives the head form.
    p.setPen(Qt::NoPen);
    QRadialGradient light(QPointF(kCx - 6, 42), 34);
    light.setColorAt(0, QColor(255, 255, 255, 40));
    light.setColorAt(0.6, QColor(255, 255, 255, 0));
    light.setColorAt(1, QColor(0, 0, 0, 45));
    p.setBrush(light);
    p.drawPath(head);
    drawShirt(p, collar);
}

// ---- Hair -------------------------------------------------------------------

// The crown: the top of the head down to a hairline.
QPainterPath crown(double top, double hairline, double sideDown, double width = 24.5) {
    QPainterPath path;
    path.moveTo(kCx - width, sideDown);
    path.cubicTo(kCx - width - 1, top + 4, kCx - 12, top, kCx, top);
    path.cubicTo(kCx + 12, top, kCx + width + 1, top + 4, kCx + width, sideDown);
    path.lineTo(kCx + width - 4, sideDown);
    path.cubicTo(kCx + width - 5, hairline + 2, kCx + 10, hairline, kCx, hairline);
    path.cubicTo(kCx - 10, hairline, kCx - width + 5, hairline + 2, kCx - width + 4, sideDown);
    path.closeSubpath();
    return path;
}

void strands(QPainter& p, const QColor& c, std::initializer_list<std::array<double, 4>> lines, double width = 1.0) {
    p.setPen(pen(c, width));
    for (const auto& l : lines) p.drawLine(QPointF(l[0], l[1]), QPointF(l[2], l[3]));
}

void drawHairFront(QPainter& p, int style, int shade) {
    const QColor hair = hairColour(shade);
    const QColor dark = hair.darker(150);
    const QColor light = hair.lighter(135);
    switch (style) {
        case 0: {  // crop
            shape(p, crown(19, 33, 44), hair, dark);
            strands(p, dark, {{40, 24, 38, 31}, {48, 23, 47, 31}, {56, 24, 57, 31}});
            break;
        }
        case 1: {  // side parting, the sweep to the right
            QPainterPath path = crown(18, 33, 45);
            QPainterPath sweep;
            sweep.moveTo(38, 24);
            sweep.cubicTo(48, 25, 62, 28, 70, 42);
            sweep.cubicTo(62, 36, 52, 36, 40, 34);
            sweep.closeSubpath();
            shape(p, path.united(sweep), hair, dark);
            strands(p, light, {{36, 22, 37, 31}}, 1.3);  // the parting
            strands(p, dark, {{44, 27, 60, 34}, {48, 25, 64, 33}});
            break;
        }
        case 2: {  // spikes
            QPainterPath path = crown(20, 32, 44);
            QPolygonF spikes;
            spikes << QPointF(25, 34);
            const double tips[][2] = {{26, 14}, {33, 18}, {36, 8}, {42, 16}, {47, 5},  {52, 15},
                                      {58, 7},  {62, 17}, {69, 12}, {66, 22}, {72, 32}};
            double x = 29;
            for (const auto& t : tips) {
                spikes << QPointF(x, 24) << QPointF(t[0], t[1]);
                x = t[0] + 3;
            }
            spikes << QPointF(71, 34);
            QPainterPath sp;
            sp.setFillRule(Qt::WindingFill);
            sp.addPolygon(spikes);
            shape(p, path.united(sp.simplified()), hair, dark);
            break;
        }
        case 3: {  // curls
            QPainterPath path = crown(19, 32, 44);
            path.setFillRule(Qt::WindingFill);
            for (int i = 0; i <= 10; ++i) {
                const double a = M_PI * (0.95 + 1.1 * i / 10.0);
                path.addEllipse(QPointF(kCx + 23 * std::cos(a), 38 + 20 * std::sin(a)), 5.5, 5.5);
            }
            for (double x : {34.0, 40.0, 46.0, 52.0, 58.0, 64.0}) path.addEllipse(QPointF(x, 32), 4, 3.5);
            path = path.simplified();
            shape(p, path, hair, dark);
            p.setPen(pen(dark, 0.9));
            p.setBrush(Qt::NoBrush);
            for (double x : {36.0, 44.0, 52.0, 60.0}) p.drawArc(QRectF(x - 3, 22, 6, 6), 0, 270 * 16);
            break;
        }
        case 4: {  // mop, a thick fringe down to the brows
            QPainterPath path;
            path.moveTo(23, 52);
            path.cubicTo(20, 28, 32, 17, kCx, 17);
            path.cubicTo(64, 17, 76, 28, 73, 52);
            path.lineTo(68, 48);
            const double fringe[][2] = {{64, 40}, {60, 36}, {56, 41}, {51, 37}, {47, 41}, {42, 36},
                                        {38, 41}, {34, 37}, {30, 42}, {28, 48}};
            for (const auto& f : fringe) path.lineTo(f[0], f[1]);
            path.closeSubpath();
            shape(p, path, hair, dark);
            strands(p, dark,
                    {{40, 22, 38, 36}, {48, 21, 47, 37}, {56, 22, 58, 36}, {33, 26, 30, 40}, {63, 26, 66, 40}});
            break;
        }
        case 5: {  // quiff
            QPainterPath path = crown(20, 31, 44);
            QPainterPath wave;
            wave.moveTo(30, 30);
            wave.cubicTo(26, 14, 44, 4, 60, 9);
            wave.cubicTo(68, 11, 70, 18, 64, 22);
            wave.cubicTo(58, 18, 48, 20, 44, 30);
            wave.closeSubpath();
            shape(p, path.united(wave), hair, dark);
            p.setPen(pen(light, 1.2));
            p.setBrush(Qt::NoBrush);
            QPainterPath gloss;
            gloss.moveTo(36, 20);
            gloss.cubicTo(40, 12, 50, 10, 58, 12);
            p.drawPath(gloss);
            break;
        }
        case 6: {  // slicked back
            shape(p, crown(19, 30, 42, 23.5), hair, dark);
            strands(p, light, {{38, 29, 36, 21}, {44, 29, 43, 20}, {50, 29, 50, 20}, {56, 29, 58, 21}}, 0.9);
            break;
        }
        case 7: {  // a crest on shaved sides
            QColor shaved = hair;
            shaved.setAlpha(120);
            shape(p, crown(21, 31, 46), shaved, QColor(0, 0, 0, 0));
            QPainterPath crest;
            crest.moveTo(41, 32);
            crest.cubicTo(38, 20, 42, 10, 49, 6);
            crest.cubicTo(56, 10, 58, 20, 55, 32);
            crest.closeSubpath();
            shape(p, crest, hair, dark);
            strands(p, dark, {{45, 12, 45, 30}, {50, 10, 51, 30}});
            break;
        }
        case 8: {  // receding: high temples, a tuft in the middle
            QPainterPath path;
            path.moveTo(24, 47);
            path.cubicTo(22, 28, 34, 19, kCx, 19);
            path.cubicTo(62, 19, 74, 28, 72, 47);
            path.lineTo(68, 46);
            path.cubicTo(68, 36, 64, 28, 58, 27);
            path.cubicTo(54, 27, 52, 30, kCx, 31);
            path.cubicTo(44, 30, 42, 27, 38, 27);
            path.cubicTo(32, 28, 28, 36, 28, 46);
            path.closeSubpath();
            shape(p, path, hair, dark);
            break;
        }
        case 9: {  // bald: just the shine on the dome
            QPainterPath shine;
            shine.addEllipse(QPointF(40, 29), 7, 3.5);
            shape(p, shine, QColor(255, 255, 255, 90), QColor(0, 0, 0, 0));
            break;
        }
        case 10: {  // buzz cut: the skin shows through
            QColor buzz = hair;
            buzz.setAlpha(170);
            shape(p, crown(20, 32, 44, 23.5), buzz, QColor(0, 0, 0, 0));
            break;
        }
        case 11: {  // curtains: a middle parting falling to the sides
            QPainterPath path = crown(18, 30, 48);
            QPainterPath left, right;
            left.moveTo(kCx - 1, 24);
            left.cubicTo(40, 28, 30, 34, 28, 46);
            left.lineTo(24, 48);
            left.cubicTo(24, 30, 38, 24, kCx - 1, 24);
            right.moveTo(kCx + 1, 24);
            right.cubicTo(56, 28, 66, 34, 68, 46);
            right.lineTo(72, 48);
            right.cubicTo(72, 30, 58, 24, kCx + 1, 24);
            QPainterPath all = path.united(left).united(right);
            // The curtains open in the middle of the forehead.
            QPainterPath gap;
            gap.moveTo(kCx, 27);
            gap.cubicTo(44, 31, 38, 36, 35, 45);
            gap.lineTo(61, 45);
            gap.cubicTo(58, 36, 52, 31, kCx, 27);
            all = all.subtracted(gap);
            shape(p, all, hair, dark);
            strands(p, light, {{44, 24, 36, 36}, {52, 24, 60, 36}}, 0.9);
            break;
        }
        case 12: {  // locks
            shape(p, crown(19, 30, 44), hair, dark);
            p.setPen(pen(hair, 4.2));
            for (double x = 29; x <= 67; x += 5.5) {
                const double y = 31 + std::abs(x - kCx) * 0.25;
                p.drawLine(QPointF(x, y - 8), QPointF(x + (x - kCx) * 0.08, y + 3));
            }
            p.setPen(pen(dark, 0.8));
            for (double x = 29; x <= 67; x += 5.5) {
                const double y = 31 + std::abs(x - kCx) * 0.25;
                for (double t = -6; t < 3; t += 3) p.drawLine(QPointF(x - 1.5, y + t), QPointF(x + 1.5, y + t + 1));
            }
            break;
        }
        default: break;
    }
}

// What lies over the face is cleared from hair behind, so the features show.
// The hair that hugs the head between two heights.
QPainterPath rim(double outerRx, double outerRy, double top, double bottom) {
    QPainterPath outer, inner, band;
    outer.addEllipse(QPointF(kCx, 47), outerRx, outerRy);
    inner.addEllipse(QPointF(kCx, 50), 20.5, 27);
    band.addRect(QRectF(0, top, kFaceWidth, bottom - top));
    return outer.subtracted(inner).intersected(band);
}

QPainterPath faceWindow() {
    QPainterPath oval;
    oval.addEllipse(QPointF(kCx, 55), 19.5, 26);
    QPainterPath below;
    below.addRect(QRectF(0, 33, kFaceWidth, kFaceHeight));
    return oval.intersected(below);
}

void drawHairBack(QPainter& p, int style, int shade) {
    const QColor hair = hairColour(shade);
    const QColor dark = hair.darker(150);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);  // overlapping curls and locks make one shape
    switch (style) {
        case 0:  // short: a rim over the crown and down the sides
            path = rim(25.5, 28.5, 0, 51);
            break;
        case 1:  // down to the shoulders
            path.moveTo(kCx, 17);
            path.cubicTo(70, 17, 76, 34, 75, 56);
            path.cubicTo(75, 70, 77, 80, 74, 87);
            path.lineTo(63, 83);
            path.lineTo(64, 60);
            path.lineTo(32, 60);
            path.lineTo(33, 83);
            path.lineTo(22, 87);
            path.cubicTo(19, 80, 21, 70, 21, 56);
            path.cubicTo(20, 34, 26, 17, kCx, 17);
            break;
        case 2:  // round volume
            for (int i = 0; i < 14; ++i) {
                const double a = 2 * M_PI * i / 14;
                path.addEllipse(QPointF(kCx + 27 * std::cos(a), 40 + 24 * std::sin(a)), 8, 8);
            }
            path.addEllipse(QPointF(kCx, 40), 28, 24);
            path = path.simplified();
            break;
        case 3:  // to the collar
            path.moveTo(kCx, 17);
            path.cubicTo(70, 17, 75, 32, 74, 50);
            path.cubicTo(74, 62, 72, 72, 66, 78);
            path.lineTo(30, 78);
            path.cubicTo(24, 72, 22, 62, 22, 50);
            path.cubicTo(21, 32, 26, 17, kCx, 17);
            break;
        case 4:  // long locks
            path.addEllipse(QPointF(kCx, 38), 27, 22);
            for (double x : {21.0, 26.0, 31.0, 65.0, 70.0, 75.0})
                path.addRoundedRect(QRectF(x - 2.5, 40, 5, 52 - std::abs(x - kCx) * 0.4), 2.5, 2.5);
            path = path.simplified();
            break;
        case 5:  // a bun on top, short at the sides
            path.addEllipse(QPointF(kCx, 13), 8.5, 7.5);
            path = path.united(rim(25.5, 28.5, 0, 51));
            break;
        case 7: {  // short, with sideburns down the cheeks
            path = rim(25.5, 28.5, 0, 51);
            QPainterPath burns;
            burns.addRoundedRect(QRectF(25.5, 44, 4, 16), 2, 2);
            burns.addRoundedRect(QRectF(66.5, 44, 4, 16), 2, 2);
            path = path.united(burns);
            break;
        }
        case 8:  // faded sides, the skin showing through
            path = rim(24.5, 27.5, 20, 50);
            break;
        case 6:  // a ring of hair around a bald crown
            path = rim(26.5, 29, 35, 54);
            break;
        default: return;
    }
    const QPainterPath hairShape = path.subtracted(faceWindow());
    if (style == 8) {
        QColor faded = hair;
        faded.setAlpha(130);
        shape(p, hairShape, faded, QColor(0, 0, 0, 0));
        return;
    }
    shape(p, hairShape, hair, dark);
    if (style == 4) {
        p.setPen(pen(dark, 0.8));
        for (double x : {21.0, 26.0, 31.0, 65.0, 70.0, 75.0})
            for (double y = 62; y < 88; y += 5) p.drawLine(QPointF(x - 2, y), QPointF(x + 2, y + 1.5));
    }
}

// ---- Features ---------------------------------------------------------------

void drawComplexion(QPainter& p, int style) {
    p.setPen(Qt::NoPen);
    switch (style) {
        case 0:  // clear: a touch of colour on the cheeks
            p.setBrush(QColor(220, 90, 90, 22));
            for (double x : {36.0, 60.0}) p.drawEllipse(QPointF(x, 61), 5, 3.5);
            break;
        case 1: {  // freckles
            p.setBrush(QColor(150, 80, 40, 130));
            const double dots[][2] = {{34, 58}, {37, 60}, {40, 57}, {36, 62}, {41, 61}, {33, 61}, {44, 56},
                                      {52, 56}, {55, 61}, {60, 62}, {56, 57}, {59, 59}, {62, 57}, {63, 61}};
            for (const auto& d : dots) p.drawEllipse(QPointF(d[0], d[1]), 0.9, 0.9);
            break;
        }
        case 2:  // rosy cheeks
            p.setBrush(QColor(230, 70, 80, 70));
            for (double x : {35.0, 61.0}) p.drawEllipse(QPointF(x, 61), 5.5, 4);
            break;
        case 3:  // lines of a hard life
            p.setPen(pen(ink(110), 0.9));
            p.setBrush(Qt::NoBrush);
            bothSides(p, [&] {
                p.drawLine(QPointF(30, 49), QPointF(27.5, 48));
                p.drawLine(QPointF(30, 51.5), QPointF(27.5, 52.5));
                QPainterPath fold;
                fold.moveTo(42, 60);
                fold.cubicTo(39, 63, 39, 67, 40, 70);
                p.drawPath(fold);
                p.drawArc(QRectF(kCx - kEyeDx - 4, 54, 8, 3), 200 * 16, 140 * 16);
            });
            break;
        case 4:  // a scar through the left brow
            p.setPen(pen(QColor(150, 60, 60, 170), 1.3));
            p.drawLine(QPointF(35, 39), QPointF(41, 47));
            p.setPen(pen(QColor(150, 60, 60, 120), 0.8));
            p.drawLine(QPointF(35, 42), QPointF(38, 40.5));
            p.drawLine(QPointF(37, 44.5), QPointF(40, 43));
            break;
        default: break;
    }
}

void drawEyes(QPainter& p, int part, int style, int shade) {
    // Brown, blue, green, dark: under dark brows the eyes are brown or dark.
    static const QColor irises[] = {{96, 58, 30}, {62, 116, 186}, {74, 126, 68}, {52, 36, 26}};
    const bool darkBrows = shade == int(HairShade::Black) || shade == int(HairShade::DarkBrown);
    const QColor iris = irises[darkBrows ? (part % 2) * 3 : part % 4];
    const QColor brow = shade == int(HairShade::None) ? QColor(60, 45, 35) : hairColour(shade).darker(115);
    const int browStyle = part % 4;
    bothSides(p, [&] {
        const QPointF c(kCx - kEyeDx, kEyeY);
        // Brow.
        QPainterPath b;
        switch (browStyle) {
            case 0:  // straight and thick
                b.moveTo(c.x() - 6, kBrowY + 1);
                b.quadTo(c.x(), kBrowY - 2, c.x() + 5.5, kBrowY + 0.5);
                p.setPen(pen(brow, 2.6));
                break;
            case 1:  // arched and thin
                b.moveTo(c.x() - 6, kBrowY + 1.5);
                b.quadTo(c.x() - 1, kBrowY - 4, c.x() + 5.5, kBrowY);
                p.setPen(pen(brow, 1.5));
                break;
            case 2:  // stern, low at the nose
                b.moveTo(c.x() - 6, kBrowY - 1);
                b.lineTo(c.x() + 5.5, kBrowY + 2.5);
                p.setPen(pen(brow, 2.3));
                break;
            default:  // bushy
                b.moveTo(c.x() - 6.5, kBrowY + 1.5);
                b.quadTo(c.x(), kBrowY - 2.5, c.x() + 6, kBrowY + 1);
                p.setPen(pen(brow, 3.4));
                break;
        }
        p.setBrush(Qt::NoBrush);
        p.drawPath(b);

        // Eye.
        double rx = 5, ry = 4.2, ir = 2.8;
        switch (style) {
            case 1: ry = 2.6; ir = 2.5; break;
            case 2: rx = 5.8; ry = 5.2; ir = 3.2; break;
            case 4: rx = 5.6; ry = 3.4; break;
            case 5: {  // small dark eyes
                p.setPen(Qt::NoPen);
                p.setBrush(QColor(30, 22, 18));
                p.drawEllipse(c, 2.3, 2.6);
                p.setBrush(Qt::white);
                p.drawEllipse(c + QPointF(0.8, -0.9), 0.7, 0.7);
                return;
            }
            default: break;
        }
        QPainterPath white;
        if (style == 4) {  // almond: pointed at both ends
            white.moveTo(c.x() - rx, c.y());
            white.quadTo(c.x(), c.y() - 2 * ry, c.x() + rx, c.y() - 0.5);
            white.quadTo(c.x(), c.y() + 1.6 * ry, c.x() - rx, c.y());
        } else {
            white.addEllipse(c, rx, ry);
        }
        shape(p, white, QColor(252, 252, 250), QColor(0, 0, 0, 0));
        p.save();
        p.setClipPath(white);
        p.setPen(Qt::NoPen);
        p.setBrush(iris);
        p.drawEllipse(c + QPointF(0.6, 0.2), ir, ir);
        p.setBrush(QColor(18, 14, 12));
        p.drawEllipse(c + QPointF(0.6, 0.2), ir * 0.45, ir * 0.45);
        p.setBrush(QColor(255, 255, 255, 220));
        p.drawEllipse(c + QPointF(1.4, -0.8), 0.8, 0.8);
        if (style == 3) {  // heavy lids over the upper half
            p.setBrush(ink(120));
            p.drawRect(QRectF(c.x() - rx, c.y() - ry, 2 * rx, ry * 0.9));
        }
        p.restore();
        // Upper lid line and lashes.
        p.setPen(pen(QColor(40, 25, 20), style == 3 ? 1.4 : 1.2));
        p.setBrush(Qt::NoBrush);
        if (style == 4) {
            QPainterPath lid;
            lid.moveTo(c.x() - rx, c.y());
            lid.quadTo(c.x(), c.y() - 2 * ry, c.x() + rx, c.y() - 0.5);
            p.drawPath(lid);
        } else {
            const double lidY = style == 3 ? c.y() - ry * 0.1 : c.y() - ry;
            QPainterPath lid;
            lid.moveTo(c.x() - rx, c.y() - (style == 3 ? 0 : 0.5));
            lid.quadTo(c.x(), lidY - (style == 3 ? 0.5 : ry * 0.35), c.x() + rx, c.y() - (style == 3 ? 0 : 0.5));
            p.drawPath(lid);
        }
        p.setPen(pen(ink(90), 0.8));
        p.drawArc(QRectF(c.x() - rx + 1, c.y() + ry - 2, 2 * rx - 2, 3), 200 * 16, 140 * 16);
    });
}

void drawNose(QPainter& p, int style) {
    p.setBrush(Qt::NoBrush);
    const QColor line = ink(170);
    const QColor shade = ink(45);
    auto nostrils = [&](double dx, double y, double r) {
        p.setPen(Qt::NoPen);
        p.setBrush(ink(150));
        p.drawEllipse(QPointF(kCx - dx, y), r, r * 0.7);
        p.drawEllipse(QPointF(kCx + dx, y), r, r * 0.7);
        p.setBrush(Qt::NoBrush);
    };
    QPainterPath path;
    switch (style) {
        case 0:  // button
            p.setPen(pen(line, 1.2));
            p.drawArc(QRectF(kCx - 4, 54, 8, 5), 200 * 16, 140 * 16);
            nostrils(1.8, 58, 0.9);
            break;
        case 1:  // straight
            p.setPen(Qt::NoPen);
            p.setBrush(shade);
            p.drawRect(QRectF(kCx + 1, 49, 2.5, 9));
            p.setPen(pen(line, 1.1));
            path.moveTo(kCx + 2.5, 48);
            path.lineTo(kCx + 3.5, 58);
            path.quadTo(kCx, 61, kCx - 3.5, 58.5);
            p.drawPath(path);
            nostrils(2, 58.5, 0.9);
            break;
        case 2:  // broad
            p.setPen(pen(line, 1.2));
            path.moveTo(kCx - 6, 57);
            path.quadTo(kCx - 7, 60.5, kCx - 3, 60);
            path.quadTo(kCx, 61.5, kCx + 3, 60);
            path.quadTo(kCx + 7, 60.5, kCx + 6, 57);
            p.drawPath(path);
            nostrils(3, 59, 1.3);
            p.setPen(Qt::NoPen);
            p.setBrush(shade);
            p.drawEllipse(QPointF(kCx, 56), 4, 3);
            break;
        case 3:  // hooked
            p.setPen(pen(line, 1.2));
            path.moveTo(kCx - 1, 47);
            path.cubicTo(kCx + 1, 51, kCx + 6, 55, kCx + 4, 59);
            path.quadTo(kCx + 1, 61, kCx - 3, 59);
            p.drawPath(path);
            nostrils(1.8, 59, 0.8);
            break;
        case 4:  // pointed
            p.setPen(pen(line, 1.1));
            path.moveTo(kCx + 1, 48);
            path.lineTo(kCx + 5, 58);
            path.lineTo(kCx - 1, 59);
            p.drawPath(path);
            break;
        case 5:  // wide nostrils
            p.setPen(pen(line, 1.1));
            p.drawArc(QRectF(kCx - 7, 55, 6, 5), 90 * 16, 180 * 16);
            p.drawArc(QRectF(kCx + 1, 55, 6, 5), 270 * 16, 180 * 16);
            nostrils(2.6, 59, 1.4);
            break;
        case 6:  // broken: the bridge bends
            p.setPen(pen(line, 1.2));
            path.moveTo(kCx - 1, 47);
            path.lineTo(kCx + 1.5, 51);
            path.lineTo(kCx - 0.5, 54);
            path.lineTo(kCx + 3.5, 58);
            path.quadTo(kCx, 60.5, kCx - 3.5, 58.5);
            p.drawPath(path);
            nostrils(1.8, 58.5, 0.9);
            break;
        case 7:  // turned up
            p.setPen(pen(line, 1.1));
            path.moveTo(kCx + 1, 50);
            path.quadTo(kCx + 4, 55, kCx + 4, 56.5);
            path.quadTo(kCx, 58.5, kCx - 4, 56.5);
            p.drawPath(path);
            nostrils(1.8, 57, 1.1);
            break;
        default: break;
    }
}

void drawMouth(QPainter& p, int style) {
    const QColor lip(156, 72, 62, 230);
    const QColor line(86, 34, 28, 230);
    const QColor inside(70, 20, 20);
    const double y = kMouthY;
    p.setBrush(Qt::NoBrush);
    QPainterPath path;
    auto teeth = [&](const QPainterPath& mouth, double top, double height) {
        shape(p, mouth, inside, line, 1.0);
        p.save();
        p.setClipPath(mouth);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(250, 250, 244));
        p.drawRect(QRectF(kCx - 12, top, 24, height));
        p.restore();
        p.setBrush(Qt::NoBrush);
        p.setPen(pen(line, 1.0));
        p.drawPath(mouth);
    };
    switch (style) {
        case 0:  // flat
            p.setPen(pen(line, 1.4));
            p.drawLine(QPointF(kCx - 6, y), QPointF(kCx + 6, y));
            p.setPen(pen(QColor(156, 72, 62, 90), 2));
            p.drawLine(QPointF(kCx - 3, y + 2), QPointF(kCx + 3, y + 2));
            break;
        case 1:  // smile
            p.setPen(pen(line, 1.5));
            path.moveTo(kCx - 8, y - 2);
            path.quadTo(kCx, y + 5, kCx + 8, y - 2);
            p.drawPath(path);
            break;
        case 2:  // smirk
            p.setPen(pen(line, 1.4));
            path.moveTo(kCx - 6, y + 0.5);
            path.quadTo(kCx + 2, y + 2, kCx + 7, y - 3);
            p.drawPath(path);
            break;
        case 3:  // slight smile
            p.setPen(pen(line, 1.4));
            path.moveTo(kCx - 6.5, y - 0.5);
            path.quadTo(kCx, y + 2.5, kCx + 6.5, y - 0.5);
            p.drawPath(path);
            break;
        case 4:  // open
            path.addEllipse(QPointF(kCx, y + 0.5), 3.2, 3.8);
            shape(p, path, inside, lip, 1.6);
            break;
        case 5: {  // gap-toothed grin
            path.moveTo(kCx - 9, y - 2.5);
            path.quadTo(kCx, y - 0.5, kCx + 9, y - 2.5);
            path.quadTo(kCx, y + 8, kCx - 9, y - 2.5);
            teeth(path, y - 3, 4);
            p.setPen(pen(inside, 1.2));
            p.drawLine(QPointF(kCx, y - 1.5), QPointF(kCx, y + 1));
            break;
        }
        case 6: {  // broad grin
            path.moveTo(kCx - 10, y - 3);
            path.quadTo(kCx, y - 1, kCx + 10, y - 3);
            path.quadTo(kCx, y + 11, kCx - 10, y - 3);
            teeth(path, y - 3, 4.2);
            break;
        }
        case 7: {  // wide smile, teeth showing
            path.moveTo(kCx - 9, y - 1.5);
            path.quadTo(kCx, y, kCx + 9, y - 1.5);
            path.quadTo(kCx, y + 5, kCx - 9, y - 1.5);
            teeth(path, y - 2, 6);
            break;
        }
        case 8:  // pout
            path.addEllipse(QPointF(kCx, y + 0.5), 4, 2.6);
            shape(p, path, lip, line, 1.0);
            p.setPen(pen(line, 1.0));
            p.drawLine(QPointF(kCx - 3, y + 0.5), QPointF(kCx + 3, y + 0.5));
            break;
        case 9: {  // tongue out
            p.setPen(pen(line, 1.5));
            path.moveTo(kCx - 7, y - 1);
            path.quadTo(kCx, y + 3, kCx + 7, y - 1);
            QPainterPath tongue;
            tongue.moveTo(kCx - 2, y + 1);
            tongue.quadTo(kCx - 3, y + 6.5, kCx + 1.5, y + 6);
            tongue.quadTo(kCx + 4, y + 5, kCx + 3, y + 1);
            shape(p, tongue, QColor(226, 98, 110), line, 0.9);
            p.setPen(pen(line, 1.5));
            p.setBrush(Qt::NoBrush);
            p.drawPath(path);
            break;
        }
        case 10:  // doubtful: a short line, one corner down
            p.setPen(pen(line, 1.4));
            path.moveTo(kCx - 6, y + 0.5);
            path.quadTo(kCx, y - 1, kCx + 6, y + 1.5);
            p.drawPath(path);
            p.setPen(pen(QColor(156, 72, 62, 90), 2));
            p.drawLine(QPointF(kCx - 2.5, y + 2.5), QPointF(kCx + 2.5, y + 2.5));
            break;
        case 11:  // frown
            p.setPen(pen(line, 1.5));
            path.moveTo(kCx - 7, y + 2.5);
            path.quadTo(kCx, y - 3.5, kCx + 7, y + 2.5);
            p.drawPath(path);
            break;
        case 12:  // unimpressed: lips pressed, the corners turned down
            p.setPen(pen(line, 1.4));
            path.moveTo(kCx - 6.5, y + 1.5);
            path.quadTo(kCx - 5, y - 0.5, kCx - 3, y);
            path.lineTo(kCx + 3, y);
            path.quadTo(kCx + 5, y - 0.5, kCx + 6.5, y + 1.5);
            p.drawPath(path);
            p.setPen(pen(QColor(156, 72, 62, 80), 2.2));
            p.drawLine(QPointF(kCx - 2.5, y + 2.6), QPointF(kCx + 2.5, y + 2.6));
            break;
        default: break;
    }
}

void drawBeard(QPainter& p, int style, int shade) {
    const QColor hair = hairColour(shade);
    const QColor dark = hair.darker(140);
    // The moustache sits between nose and mouth.
    auto moustache = [&](double droop) {
        QPainterPath m;
        m.moveTo(kCx, 61.5);
        m.cubicTo(kCx + 4, 60, kCx + 8, 61, kCx + 9, 65 + droop);
        m.cubicTo(kCx + 6, 64, kCx + 3, 64.5, kCx, 64);
        m.cubicTo(kCx - 3, 64.5, kCx - 6, 64, kCx - 9, 65 + droop);
        m.cubicTo(kCx - 8, 61, kCx - 4, 60, kCx, 61.5);
        shape(p, m, hair, dark, 0.8);
    };
    QPainterPath mouthHole;
    mouthHole.addEllipse(QPointF(kCx, kMouthY + 1), 8.5, 4.5);
    switch (style) {
        case 0:  // clean-shaven: a cleft in the chin
            p.setPen(pen(ink(90), 1.0));
            p.drawArc(QRectF(kCx - 2, 72, 4, 3), 200 * 16, 140 * 16);
            break;
        case 1: {  // stubble: a shadow of dots on jaw and lip
            QPainterPath area;
            area.moveTo(27, 60);
            area.cubicTo(29, 72, 38, 79, kCx, 79);
            area.cubicTo(58, 79, 67, 72, 69, 60);
            area.cubicTo(62, 68, 56, 62, kCx, 61);
            area.cubicTo(40, 62, 34, 68, 27, 60);
            area = area.subtracted(mouthHole);
            QColor s = hair;
            s.setAlpha(60);
            shape(p, area, s, QColor(0, 0, 0, 0));
            p.setPen(Qt::NoPen);
            QColor dot = hair;
            dot.setAlpha(150);
            p.setBrush(dot);
            for (int i = 0; i < 140; ++i) {
                // A fixed scatter: the same picture every time.
                const QPointF pt(27 + (i * 37 % 43), 60 + (i * 53 % 20));
                if (area.contains(pt)) p.drawEllipse(pt, 0.45, 0.45);
            }
            break;
        }
        case 2:  // moustache
            moustache(1);
            break;
        case 3: {  // goatee
            moustache(0);
            QPainterPath g;
            g.moveTo(kCx - 5, 71);
            g.quadTo(kCx, 69.5, kCx + 5, 71);
            g.quadTo(kCx + 4, 79, kCx, 80);
            g.quadTo(kCx - 4, 79, kCx - 5, 71);
            shape(p, g, hair, dark, 0.8);
            p.setPen(pen(dark, 0.8));
            for (double x : {-3.0, 3.0}) p.drawLine(QPointF(kCx + x, 66), QPointF(kCx + x * 1.3, 70));
            break;
        }
        case 4: {  // full beard
            QPainterPath b;
            b.moveTo(26, 52);
            b.lineTo(31, 52);
            b.cubicTo(32, 60, 38, 62, kCx, 62);
            b.cubicTo(58, 62, 64, 60, 65, 52);
            b.lineTo(70, 52);
            b.cubicTo(71, 70, 64, 84, kCx, 85);
            b.cubicTo(32, 84, 25, 70, 26, 52);
            b = b.subtracted(mouthHole);
            shape(p, b, hair, dark, 0.9);
            p.setPen(pen(dark, 0.8));
            for (double x = 32; x <= 64; x += 4) {
                const double y = 74 - std::abs(x - kCx) * 0.2;
                p.drawLine(QPointF(x, y), QPointF(x + (x - kCx) * 0.05, y + 4));
            }
            moustache(2);
            break;
        }
        case 5: {  // chinstrap: a narrow band along the jaw
            QPainterPath b;
            b.moveTo(26, 50);
            b.lineTo(29.5, 50);
            b.cubicTo(31, 66, 38, 76, kCx, 76.5);
            b.cubicTo(58, 76, 65, 66, 66.5, 50);
            b.lineTo(70, 50);
            b.cubicTo(70, 70, 62, 80.5, kCx, 80.5);
            b.cubicTo(34, 80.5, 26, 70, 26, 50);
            shape(p, b, hair, dark, 0.8);
            break;
        }
        default: break;
    }
}

void drawGlasses(QPainter& p, int style) {
    p.setBrush(Qt::NoBrush);
    switch (style) {
        case 0: {  // round wire
            const QColor gold(176, 140, 50);
            p.setPen(pen(gold, 1.1));
            for (double dx : {-kEyeDx, kEyeDx}) p.drawEllipse(QPointF(kCx + dx, kEyeY), 6.5, 6.5);
            p.drawArc(QRectF(kCx - 2.5, kEyeY - 3, 5, 4), 20 * 16, 140 * 16);
            p.drawLine(QPointF(kCx - kEyeDx - 6.5, kEyeY - 1), QPointF(26, kEyeY - 2));
            p.drawLine(QPointF(kCx + kEyeDx + 6.5, kEyeY - 1), QPointF(70, kEyeY - 2));
            break;
        }
        case 1: {  // square black frames
            p.setPen(pen(QColor(20, 20, 24), 2.2));
            for (double dx : {-kEyeDx, kEyeDx})
                p.drawRoundedRect(QRectF(kCx + dx - 7, kEyeY - 5.5, 14, 11), 2, 2);
            p.drawLine(QPointF(kCx - 1.5, kEyeY - 2), QPointF(kCx + 1.5, kEyeY - 2));
            p.drawLine(QPointF(kCx - kEyeDx - 7, kEyeY - 3), QPointF(26, kEyeY - 3));
            p.drawLine(QPointF(kCx + kEyeDx + 7, kEyeY - 3), QPointF(70, kEyeY - 3));
            break;
        }
        default: {  // tinted sports glasses in one wrap
            QPainterPath lens;
            lens.moveTo(27, kEyeY - 5);
            lens.quadTo(kCx, kEyeY - 8, 69, kEyeY - 5);
            lens.quadTo(69, kEyeY + 5, 60, kEyeY + 5);
            lens.quadTo(52, kEyeY + 5, kCx, kEyeY + 1);
            lens.quadTo(44, kEyeY + 5, 36, kEyeY + 5);
            lens.quadTo(27, kEyeY + 5, 27, kEyeY - 5);
            QLinearGradient tint(0, kEyeY - 6, 0, kEyeY + 5);
            tint.setColorAt(0, QColor(30, 40, 70, 230));
            tint.setColorAt(1, QColor(80, 140, 190, 200));
            p.setBrush(tint);
            p.setPen(pen(QColor(20, 20, 30), 1.2));
            p.drawPath(lens);
            p.setPen(pen(QColor(255, 255, 255, 150), 1.2));
            p.drawLine(QPointF(33, kEyeY - 3), QPointF(37, kEyeY - 4));
            p.drawLine(QPointF(55, kEyeY - 3), QPointF(59, kEyeY - 4));
            break;
        }
    }
}

void drawHeadband(QPainter& p, int style, int colour) {
    static const QColor colours[] = {{248, 248, 248}, {210, 30, 40}, {30, 30, 34}, {30, 80, 190}, {250, 210, 30}};
    const QColor c = colours[std::clamp(colour, 0, 4)];
    const double top = style == 1 ? 25 : 28, bottom = style == 1 ? 34 : 32;
    QPainterPath band;
    band.moveTo(23.5, top + 6);
    band.quadTo(kCx, top - 5, 72.5, top + 6);
    band.lineTo(72.5, bottom + 7);
    band.quadTo(kCx, bottom - 4, 23.5, bottom + 7);
    band.closeSubpath();
    shape(p, band, c, c.darker(160), 0.9);
    if (style == 1) {  // a sweatband's stripe
        p.setPen(pen(c.darker(130), 1.0));
        QPainterPath stripe;
        stripe.moveTo(24, top + 10.5);
        stripe.quadTo(kCx, top, 72, top + 10.5);
        p.drawPath(stripe);
    }
}

QImage drawPart(int part) {
    const PortraitPart what = portraitPart(part);
    if (what.Feature == FaceFeature::None) return {};
    QImage img = canvas();
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing, true);
    switch (what.Feature) {
        case FaceFeature::Head: drawHead(p, what.Style, what.Shade, part % 3); break;
        case FaceFeature::HairBack: drawHairBack(p, what.Style, what.Shade); break;
        case FaceFeature::HairFront: drawHairFront(p, what.Style, what.Shade); break;
        case FaceFeature::Complexion: drawComplexion(p, what.Style); break;
        case FaceFeature::Eyes: drawEyes(p, part, what.Style, what.Shade); break;
        case FaceFeature::Nose: drawNose(p, what.Style); break;
        case FaceFeature::Mouth: drawMouth(p, what.Style); break;
        case FaceFeature::Beard: drawBeard(p, what.Style, what.Shade); break;
        case FaceFeature::Glasses: drawGlasses(p, what.Style); break;
        case FaceFeature::Headband: drawHeadband(p, what.Style, what.Shade); break;
        case FaceFeature::None: break;
    }
    p.end();
    return img;
}

}  // namespace

const QImage& facePart(int part) {
    static const std::array<QImage, kFaceParts + 1> parts = [] {
        std::array<QImage, kFaceParts + 1> all;
        for (int i = 1; i <= kFaceParts; ++i) all[size_t(i)] = drawPart(i);
        return all;
    }();
    static const QImage none;
    return part >= 1 && part <= kFaceParts ? parts[size_t(part)] : none;
}

std::array<int, 8> faceLayers(const PortraitCodes& codes, int signing) {
    auto part = [&](size_t i) { return PortraitIndex(codes[i]); };
    return {part(7), part(2), part(1), part(0), part(3), part(4), moodPart(signing), part(6)};
}

QImage paintFace(QImage base, std::span<const int> overlayParts, KitColour shirt) {
    if (base.isNull()) base = canvas();
    base = base.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    ReplaceColour(base, kFaceShirtMarker, shirt);
    QPainter p(&base);
    for (int part : overlayParts) {
        const QImage& overlay = facePart(part);
        if (!overlay.isNull()) p.drawImage(0, 0, overlay);
    }
    p.end();
    return base;
}

QImage playerFace(KitColours& kit, const PortraitCodes& codes, int signing, std::string_view colourWords) {
    SetKitColours(kit, colourWords);
    const std::array<int, 8> layers = faceLayers(codes, signing);
    return paintFace(facePart(layers[0]), std::span(layers).subspan(1), kit.KitColour1);
}

}  // namespace kestrin
