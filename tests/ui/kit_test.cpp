// Kits: colour names, the exact colour swap and the shirts it makes.
#include <QImage>
#include <QtTest>

#include "match/pictures/kitcolours.h"
#include "match/pictures/shirts.h"

using namespace kestrin;

namespace {

constexpr KitColours kBefore{0x123456, 0x654321};

QRgb rgbOf(KitColour c) { return qRgb(kitRed(c), kitGreen(c), kitBlue(c)); }

// Points of the masters: deep in the body, inside the collar, on the
// outline, and outside the shirt.
const QPoint kBody(20, 20), kCollar(20, 5), kOutline(20, 3), kOutside(0, 0);

}  // namespace

class KitTest : public QObject {
    Q_OBJECT

private slots:
    void colourNames_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("found");
        QTest::addColumn<uint>("colour1");
        QTest::addColumn<uint>("colour2");
        QTest::newRow("upper case is lowered") << "ALL RED" << true << 0x0000FFu << 0x000000u;
        QTest::newRow("mixed case") << "Red And White" << true << 0x0000FFu << 0xFFFFFFu;
        QTest::newRow("ampersand") << "royal blue & white" << true << 0x800000u << 0xFFFFFFu;
        QTest::newRow("table capital") << "racing Green" << false << 0x123456u << 0x654321u;
        QTest::newRow("table capital lowered") << "racing green" << false << 0x123456u << 0x654321u;
        // "Red and green" is spelt twice: only the lower-case entry can be found.
        QTest::newRow("twice spelt") << "Red and green" << true << 0x8080FFu << 0x008000u;
        QTest::newRow("blanks are not trimmed") << " all red" << false << 0x123456u << 0x654321u;
        QTest::newRow("unknown") << "tartan" << false << 0x123456u << 0x654321u;
    }
    void colourNames() {
        QFETCH(QString, text);
        QFETCH(bool, found);
        QFETCH(uint, colour1);
        QFETCH(uint, colour2);
        KitColours kit = kBefore;
        QCOMPARE(SetKitColours(kit, text.toStdString()), found);
        QCOMPARE(kit.KitColour1, colour1);
        QCOMPARE(kit.KitColour2, colour2);
    }

    void clubColourWordsStartAtColumnThree() {
        Club club;
        club.Colours = "- blue and white stripes";
        QCOMPARE(QString::fromStdString(kitColourName(club)), QString("blue and white stripes"));
        KitColours kit;
        QVERIFY(SetKitColours(kit, kitColourName(club)));
        QCOMPARE(kit, (KitColours{0xFF0000, 0xFFFFFF}));
    }

    void replaceColourIsExact_data() {
        QTest::addColumn<int>("format");
        QTest::newRow("RGB32") << int(QImage::Format_RGB32);
        QTest::newRow("ARGB32") << int(QImage::Format_ARGB32);
        QTest::newRow("ARGB32 premultiplied") << int(QImage::Format_ARGB32_Premultiplied);
        QTest::newRow("RGB888") << int(QImage::Format_RGB888);
        QTest::newRow("Indexed8") << int(QImage::Format_Indexed8);
    }
    void replaceColourIsExact() {
        QFETCH(int, format);
        // The marker, then one step away from it in each channel and direction.
        const QList<QRgb> pixels = {qRgb(160, 160, 164), qRgb(161, 160, 164), qRgb(159, 160, 164),
                                    qRgb(160, 161, 164), qRgb(160, 159, 164), qRgb(160, 160, 165),
                                    qRgb(160, 160, 163), qRgb(0, 0, 0),       qRgb(160, 160, 164)};
        QImage img(int(pixels.size()), 2, QImage::Format_ARGB32);
        // A see-through pixel of the marker's grey is no colour at all.
        if (format == QImage::Format_ARGB32) img.setPixel(0, 1, qRgba(160, 160, 164, 0));
        if (format == QImage::Format_Indexed8) {
            // Built by hand: converting would quantise the near colours.
            img = QImage(int(pixels.size()), 2, QImage::Format_Indexed8);
            img.setColorTable(pixels);
        }
        for (int x = 0; x < int(pixels.size()); ++x)
            for (int y = 0; y < 2; ++y)
                if (x || y == 0 || format != QImage::Format_ARGB32)
                    img.setPixel(x, y, format == QImage::Format_Indexed8 ? uint(x) : pixels[x]);
        img = img.convertToFormat(QImage::Format(format));
        ReplaceColour(img, kShirtMarker1, kitRgb(255, 0, 0));
        QCOMPARE(int(img.format()), format);
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < int(pixels.size()); ++x) {
                QRgb want = pixels[x] == qRgb(160, 160, 164) ? qRgb(255, 0, 0) : pixels[x];
                if (x == 0 && y == 1 && format == QImage::Format_ARGB32) want = qRgba(160, 160, 164, 0);
                QCOMPARE(img.pixel(x, y), want);
            }
    }

    void keeperColour_data() {
        QTest::addColumn<uint>("kitColour1");
        QTest::addColumn<uint>("keeper");
        QTest::newRow("light green 8454016") << 8454016u << 65535u;
        QTest::newRow("dark green 32768") << 32768u << 65535u;
        QTest::newRow("bright green is not one of them") << 0x00FF00u << uint(kitRgb(1, 225, 54));
        QTest::newRow("next to a green") << 8454017u << uint(kitRgb(1, 225, 54));
        QTest::newRow("yellow") << 65535u << uint(kitRgb(1, 225, 54));
    }
    void keeperColour() {
        QFETCH(uint, kitColour1);
        QFETCH(uint, keeper);
        QCOMPARE(keeperKitColour(kitColour1), keeper);
        // The picture of shirt 1 carries it; shirt 2 keeps the team's colour.
        const KitColours kit{kitColour1, 0xFFFFFF};
        QCOMPARE(shirtPicture(1, kit).pixel(kBody), rgbOf(keeper));
        QCOMPARE(shirtPicture(2, kit).pixel(kBody), rgbOf(kitColour1));
    }

    void shirtsInAKit_data() {
        QTest::addColumn<QString>("colours");
        QTest::addColumn<int>("shirt");
        QTest::addColumn<uint>("body");
        QTest::addColumn<uint>("collar");
        QTest::newRow("keeper red and white") << "red and white" << 1 << uint(kKeeperGreen) << 0xFFFFFFu;
        QTest::newRow("substitute") << "blue and yellow" << 13 << 0xC00000u << 0x00FFFFu;
        QTest::newRow("keeper in green kit") << "green and white" << 1 << 65535u << 0xFFFFFFu;
        // The first colour is the second marker's grey, so the second swap
        // takes the body along with the collar.
        QTest::newRow("first colour is a marker") << "blue/ black hoops" << 4 << 0x800000u << 0x800000u;
    }
    void shirtsInAKit() {
        QFETCH(QString, colours);
        QFETCH(int, shirt);
        QFETCH(uint, body);
        QFETCH(uint, collar);
        KitColours kit;
        QVERIFY(SetKitColours(kit, colours.toStdString()));
        const QImage img = shirtPicture(shirt, kit);
        QCOMPARE(img.pixel(kBody), rgbOf(body));
        QCOMPARE(img.pixel(kCollar), rgbOf(collar));
        QCOMPARE(img.pixel(kOutline), qRgb(0, 0, 0));
        QCOMPARE(qAlpha(img.pixel(kOutside)), 0);
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) {
                QVERIFY(img.pixel(x, y) != rgbOf(kShirtMarker1));
                if (kit.KitColour2 != kShirtMarker2) QVERIFY(img.pixel(x, y) != rgbOf(kShirtMarker2));
            }
        // The masters themselves are never recoloured.
        QCOMPARE(playerShirtMaster().pixel(kBody), rgbOf(kShirtMarker1));
        QCOMPARE(keeperShirtMaster().pixel(kCollar), rgbOf(kShirtMarker2));
    }
};

QTEST_MAIN(KitTest)
#include "kit_test.moc"
