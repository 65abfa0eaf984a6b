#pragma once
// PitchGrid: the thirteen shirts of the current fixture on a drawn pitch.
// Players are dragged from lstAvailable on to a shirt, shirts are dragged
// between each other, back to the list or across the grid, and each shirt
// may carry an arrow to a second cell. Every rule of it (snapping, occupied
// cells, captions, the lists) is in match/; this screen draws and drags.
#include <QButtonGroup>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <array>
#include <optional>
#include <string>

#include "match/pictures/kitcolours.h"
#include "match/pitch.h"
#include "match/pitchlists.h"
#include "ui/fixt.h"

namespace kestrin::ui {

class PitchGridScreen;

// ---- What a drag carries ---------------------------------------------------------

// A line of lstAvailable, as game text ("DEFL Name").
inline constexpr char kPlayerEntryMime[] = "application/x-kestrin-player-entry";
// A shirt, and where in drawing units the manager took hold of it, measured
// from the shirt's top left corner: "7 300 300".
inline constexpr char kShirtMime[] = "application/x-kestrin-shirt";

QMimeData* playerEntryMimeData(const std::string& entry);
QMimeData* shirtMimeData(int shirt, QPoint grabUnits);
std::optional<std::string> playerEntryOf(const QMimeData* data);
struct ShirtGrab {
    int shirt = 0;
    QPoint grab;
};
std::optional<ShirtGrab> shirtOf(const QMimeData* data);

// ---- The pitch -----------------------------------------------------------------

// PicPitch: the pitch and the bench in drawing units, scaled to the widget.
// Arrows are painted here, under the shirts.
class PitchView : public QWidget {
    Q_OBJECT
public:
    // The pitch runs 0..9000 across and 0..6120 down, so the five columns and
    // rows of shirts stand in its middle; the bench lies to its right.
    static constexpr int kPitchWidth = 9000;
    static constexpr int kPitchHeight = 6120;
    static constexpr int kWidth = 10700;

    PitchView(PitchGridScreen& screen, QWidget* parent);

    // The picture keeps its shape; what is left below goes to the information box.
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

    QPointF toUnits(QPointF pixels) const;
    QPointF toPixels(QPointF units) const;
    double scale() const { return scale_; }
    bool onPitch(QPointF units) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void paintGrass(QPainter& p);
    void paintLines(QPainter& p);
    void paintBench(QPainter& p);
    void paintArrows(QPainter& p);

    PitchGridScreen& screen_;
    double scale_ = 0.05;
    QPointF origin_;
};

// PlayerPic (the picture) or lblname (the caption) of one shirt. Both take a
// player or another shirt dropped on them, and both can be dragged.
class ShirtPart : public QLabel {
    Q_OBJECT
public:
    ShirtPart(PitchGridScreen& screen, int shirt, bool picture, QWidget* parent);
    int shirt() const { return shirt_; }

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    PitchGridScreen& screen_;
    int shirt_;
    bool picture_;
    QPoint pressAt_;
    bool pressed_ = false;
};

// lstAvailable: its lines are dragged on to the shirts, and a shirt dropped
// on it sends its player back.
class AvailableList : public QListWidget {
    Q_OBJECT
public:
    AvailableList(PitchGridScreen& screen, QWidget* parent);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    PitchGridScreen& screen_;
    QPoint pressAt_;
    QListWidgetItem* pressed_ = nullptr;
};

// ---- The screen -----------------------------------------------------------------

class PitchGridScreen : public FixtureScreen {
    Q_OBJECT
public:
    explicit PitchGridScreen(SessionController& controller, QWidget* parent = nullptr);

    void fillClub() override;
    void showFixture() override;
    void fixtureOrderChanged(FixtureControl c) override;

    // RefreshPitch: every shirt drawn again, its caption and marks with it.
    void refreshPitch();

    // What the drags and clicks do. Shirts are 1 to 13.
    void dropPlayer(int shirt, const std::string& entry, bool onPicture);
    void swapShirtPlayers(int from, int to);
    void returnShirtToList(int shirt);
    void dropShirtOnPitch(int shirt, QPointF topLeftUnits);
    void openArrowMenu(int shirt, QPoint globalPos);
    bool waitingForArrow() const { return arrowShirt_ != 0 && waitingArrow_; }
    // The release that ends an arrow, in drawing units; false when not
    // waiting for one or off the pitch.
    bool finishArrow(QPointF units);
    // ShowInfo of a player by his name; nothing when he isn't in the squad.
    void showInfo(const std::string& name);

    // Where a shirt stands in drawing units: its cell, or its place on the
    // bench for a substitute who has none.
    QPoint shirtTopLeft(int shirt) const;
    // The arrows to draw, centre to centre.
    std::vector<ArrowLine> arrows() const;
    const KitColours& kit() const { return kit_; }

    PitchView* pitch() const { return pitch_; }
    ShirtPart* shirtPicture(int shirt) const { return pictures_[size_t(shirt - 1)]; }
    ShirtPart* shirtCaption(int shirt) const { return captions_[size_t(shirt - 1)]; }
    QListWidget* availableList() const { return lstAvailable_; }
    QListWidget* unavailableList() const { return lstUnavailable_; }
    QPlainTextEdit* infoBox() const { return txtInfo_; }
    QMenu* arrowMenu() const { return arrowMenu_; }
    QLineEdit* blendBox() const { return txtBlend_; }

    // Lays the shirts out again for the pitch's present size.
    void placeShirts();

protected:
    void enableForClubs(bool hasClubs) override;

private:
    void fillLists(const PitchLists& lists);
    void addAvailable(const std::string& entry);
    void removeAvailable(const std::string& entry);
    void drawShirt(int shirt);
    void afterChange();
    void addArrowChosen();
    void removeArrowChosen();
    void blendClicked();
    TeamFilter teamFilter() const { return TeamFilter(btnTeam_->checkedId()); }
    PositionFilter positionFilter() const { return PositionFilter(btnPos_->checkedId()); }

    PitchView* pitch_;
    std::array<ShirtPart*, 13> pictures_{};
    std::array<ShirtPart*, 13> captions_{};
    AvailableList* lstAvailable_;
    QListWidget* lstUnavailable_;
    QPlainTextEdit* txtInfo_;
    QLabel* lblFormation_;
    QLineEdit* txtBlend_;
    QButtonGroup* btnTeam_;
    QButtonGroup* btnPos_;
    QMenu* arrowMenu_;
    std::vector<QWidget*> needClub_;
    KitColours kit_;
    int arrowShirt_ = 0;
    bool waitingArrow_ = false;
};

}  // namespace kestrin::ui
