#pragma once
// A player's face: his portrait codes drawn in his club's shirt, or nothing.
#include <QLabel>
#include <string>

#include "core/session.h"
#include "match/pictures/faces.h"

namespace kestrin::ui {

class FaceView : public QLabel {
    Q_OBJECT
public:
    explicit FaceView(QWidget* parent = nullptr);

    // Shows the face of these codes, mood and colour words; words the colour
    // table does not know keep the shirt of the face shown before.
    void showFace(const PortraitCodes& codes, int signing, const std::string& colourWords);
    // No player: the view is hidden.
    void clear();

    // The picture shown; null when none.
    QImage face() const { return face_; }

private:
    KitColours kit_;
    QImage face_;
};

// Up to `count` players of the session, taken from club after club so the
// kits differ, side by side with their codes and signing figure under each
// face: the whole set of pictures judged at a glance.
QImage faceSheet(const Session& session, int count = 20);

}  // namespace kestrin::ui
