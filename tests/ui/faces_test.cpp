// Faces: layers put together from portrait codes, the shirt in the club's
// colour, and the face the squad screen shows.
#include <QTableWidget>
#include <QtTest>

#include "match/pictures/faces.h"
#include "match/pictures/kitcolours.h"
#include "ui/faceview.h"
#include "uitest.h"

using namespace kestrin;

namespace {

// A face with something on every layer.
constexpr PortraitCodes kCodes{11004, 10007, 99004, 6025, 7069, 5020, 8020, 3014};
constexpr int32_t kUnknown = 4242;

QRgb rgbOf(KitColour c) { return qRgb(kitRed(c), kitGreen(c), kitBlue(c)); }

std::vector<QPoint> pixelsOf(const QImage& img, KitColour colour) {
    std::vector<QPoint> at;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (img.pixel(x, y) == rgbOf(colour)) at.emplace_back(x, y);
    return at;
}

}  // namespace

class FacesTest : public QObject {
    Q_OBJECT
private slots:
    void layersInDrawingOrder() {
        const std::array<int, 8> want{PortraitIndex(3014), PortraitIndex(99004), PortraitIndex(10007),
                                      PortraitIndex(11004), PortraitIndex(6025), PortraitIndex(7069), 44,
                                      PortraitIndex(8020)};
        QCOMPARE(faceLayers(kCodes, 2), want);
    }

    // A code outside the table leaves just its layer out; the layer drew
    // something, so the face without it differs from the whole one.
    void unknownCodeLeavesItsLayerOut_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<int>("layer");
        const std::pair<int, int> rows[] = {{7, 0}, {2, 1}, {1, 2}, {0, 3}, {3, 4}, {4, 5}, {6, 7}};
        for (const auto& [code, layer] : rows)
            QTest::addRow("Portrait(%d)", code) << code << layer;
    }
    void unknownCodeLeavesItsLayerOut() {
        QFETCH(int, code);
        QFETCH(int, layer);
        KitColours kit;
        const QImage whole = playerFace(kit, kCodes, 2, "all red");
        PortraitCodes codes = kCodes;
        codes[size_t(code)] = kUnknown;
        const QImage without = playerFace(kit, codes, 2, "all red");
        std::array<int, 8> parts = faceLayers(kCodes, 2);
        parts[size_t(layer)] = 0;
        const QImage expected = paintFace(facePart(parts[0]), std::span(parts).subspan(1), kit.KitColour1);
        QCOMPARE(without, expected);
        QVERIFY(without != whole);
    }

    // Every part is a picture of its own: two codes of one block never draw alike.
    void everyPartDiffers() {
        for (int a = 1; a <= kFaceParts; ++a) {
            QVERIFY2(!facePart(a).isNull(), qPrintable(QString::number(a)));
            for (int b = a + 1; b <= kFaceParts; ++b)
                QVERIFY2(facePart(a) != facePart(b), qPrintable(QString("%1 and %2").arg(a).arg(b)));
        }
        QVERIFY(facePart(0).isNull());
        QVERIFY(facePart(kFaceParts + 1).isNull());
    }

    void shirtTakesTheFirstKitColourExactly() {
        QImage base = facePart(PortraitIndex(3006));
        const std::vector<QPoint> shirt = pixelsOf(base, kFaceShirtMarker);
        QVERIFY(shirt.size() > 400);
        const QPoint near = shirt[shirt.size() / 2];
        const QRgb oneStep = qRgb(189, 134, 214);
        base.setPixel(near, oneStep);
        const QImage face = paintFace(base, {}, 0x0000FF);
        for (const QPoint& at : shirt)
            QCOMPARE(face.pixel(at), at == near ? oneStep : qRgb(255, 0, 0));
        QVERIFY(pixelsOf(face, kFaceShirtMarker).empty());
    }

    // Colour words the table lacks keep the shirt of the call before.
    void unknownColourWordsKeepThePreviousShirt() {
        KitColours kit;
        const QImage blue = playerFace(kit, kCodes, 3, "all blue");
        QCOMPARE(kit, (KitColours{0xFF8080, 0xFF8080}));
        QCOMPARE(playerFace(kit, kCodes, 3, "racing Green"), blue);
        QCOMPARE(kit, (KitColours{0xFF8080, 0xFF8080}));
        QVERIFY(playerFace(kit, kCodes, 3, "all green") != blue);
    }

    void squadScreenShowsTheChosenPlayersFace() {
        test::UiGame g;
        auto* grid = g.on<QTableWidget>("SquadScr", "grdSquad");
        auto* view = g.on<ui::FaceView>("SquadScr", "picFace");
        QVERIFY(grid && view);
        QVERIFY(view->isHidden());
        const Club& club = g.session().Clubs[0];
        for (int row : {0, 3}) {
            grid->setCurrentCell(row, 2);
            const Player& p = club.Players[size_t(row)];
            KitColours kit;
            QVERIFY(!view->isHidden());
            QCOMPARE(view->face(), playerFace(kit, p.Portrait, p.Sign, kitColourName(club)));
        }
        grid->setCurrentCell(-1, -1);
        QVERIFY(view->isHidden());
        QVERIFY(view->face().isNull());
    }
};

QTEST_MAIN(FacesTest)
#include "faces_test.moc"
