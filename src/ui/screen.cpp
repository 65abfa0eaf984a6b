#include "ui/screen.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QSignalBlocker>

#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"

namespace kestrin::ui {

Screen::Screen(SessionController& controller, const QString& name, const QString& title, QWidget* parent)
    : QWidget(parent), controller_(controller), title_(title), teamList_(new QComboBox(this)) {
    setObjectName(name);
    teamList_->setObjectName("TeamList");
    teamList_->setMinimumWidth(240);
    connect(teamList_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0) controller_.selectClub(index);
    });
}

void Screen::sessionLoaded() {
    const QSignalBlocker block(teamList_);
    teamList_->clear();
    for (const Club& club : controller_.session().Clubs) teamList_->addItem(qs(club.Name));
    enableForClubs(controller_.hasClubs());
}

void Screen::showClubIndex(int index) {
    const QSignalBlocker block(teamList_);
    teamList_->setCurrentIndex(index);
}

void Screen::enableForClubs(bool hasClubs) { teamList_->setEnabled(hasClubs); }

void Screen::setBackdrop(Backdrop backdrop) {
    backdrop_ = std::move(backdrop);
    update();
}

void Screen::paintEvent(QPaintEvent*) {
    QPainter p(this);
    paintScreenBackdrop(p, rect(), backdrop_, objectName());
}

QHBoxLayout* Screen::headerRow(const QString& heading) {
    auto* header = new QHBoxLayout;
    auto* label = new QLabel(heading, this);
    label->setObjectName("screenHeading");
    header->addWidget(label);
    header->addSpacing(16);
    header->addWidget(new QLabel("Club:", this));
    header->addWidget(teamList());
    return header;
}

}  // namespace kestrin::ui
