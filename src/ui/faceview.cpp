#include "ui/faceview.h"

#include <QPainter>
#include <QPixmap>

namespace kestrin::ui {

FaceView::FaceView(QWidget* parent) : QLabel(parent) {
    setObjectName("picFace");
    setFixedSize(kFaceWidth, kFaceHeight);
    setAlignment(Qt::AlignCenter);
    hide();
}

void FaceView::showFace(const PortraitCodes& codes, int signing, const std::string& colourWords) {
    face_ = playerFace(kit_, codes, signing, colourWords);
    setPixmap(QPixmap::fromImage(face_));
    show();
}

void FaceView::clear() {
    face_ = QImage();
    QLabel::clear();
    hide();
}

QImage faceSheet(const Session& session, int count) {
    struct Shown {
        const Player* player;
        const Club* club;
    };
    std::vector<Shown> shown;
    for (size_t row = 0; int(shown.size()) < count; ++row) {
        bool any = false;
        for (const Club& club : session.Clubs) {
            if (row >= club.Players.size() || int(shown.size()) >= count) continue;
            shown.push_back({&club.Players[row], &club});
            any = true;
        }
        if (!any) break;
    }
    constexpr int kColumns = 10, kCellWidth = 150, kTextHeight = 40;
    const int rows = (int(shown.size()) + kColumns - 1) / kColumns;
    QImage sheet(kColumns * kCellWidth, std::max(1, rows) * (kFaceHeight + kTextHeight), QImage::Format_ARGB32);
    sheet.fill(QColor(236, 234, 228));
    QPainter p(&sheet);
    QFont font("Monospace");
    font.setStyleHint(QFont::TypeWriter);
    font.setPixelSize(10);
    p.setFont(font);
    p.setPen(QColor(40, 40, 40));
    KitColours kit;
    for (int i = 0; i < int(shown.size()); ++i) {
        const Player& player = *shown[size_t(i)].player;
        const int x = i % kColumns * kCellWidth, y = i / kColumns * (kFaceHeight + kTextHeight);
        p.drawImage(x + (kCellWidth - kFaceWidth) / 2, y, playerFace(kit, player.Portrait, player.Sign,
                                                                    kitColourName(*shown[size_t(i)].club)));
        QStringList lines{QString(), QString(), QString("sign %1").arg(player.Sign)};
        for (size_t k = 0; k < player.Portrait.size(); ++k)
            lines[k / 4] += QString::number(player.Portrait[k]).rightJustified(k % 4 == 0 ? 5 : 6);
        p.drawText(QRect(x, y + kFaceHeight, kCellWidth, kTextHeight), Qt::AlignHCenter | Qt::AlignTop,
                   lines.join('\n'));
    }
    p.end();
    return sheet;
}

}  // namespace kestrin::ui
