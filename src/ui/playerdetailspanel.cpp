#include "ui/playerdetailspanel.h"

#include <QFontMetricsF>
#include <QScrollBar>

#include "orders/playerdetails.h"
#include "ui/look.h"
#include "ui/qtext.h"

namespace kestrin::ui {

PlayerDetailsPanel::PlayerDetailsPanel(QWidget* parent) : QPlainTextEdit(parent) {
    setObjectName("txtOtherDet");
    setReadOnly(true);
    setFont(fixedFont(-2));
    // The rows are long; they scroll sideways rather than fold into each other.
    setLineWrapMode(QPlainTextEdit::NoWrap);
    // The items of a row are tab-separated: stops of eight characters keep the
    // figures of the fixed-pitch text in step.
    setTabStopDistance(QFontMetricsF(font()).horizontalAdvance(QLatin1Char(' ')) * 8);
    setPlaceholderText("Click a player in the grid to see his details here.");
    // At least its ten rows and the sideways scroll bar; any more height is
    // the grid's.
    const QFontMetricsF metrics(font());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    setMinimumHeight(int(metrics.lineSpacing() * 10 + document()->documentMargin() * 2 + frameWidth() * 2 +
                       horizontalScrollBar()->sizeHint().height() + 2));
}

void PlayerDetailsPanel::showPlayer(const Player& player, const std::string& currency) {
    setPlainText(qs(otherDetailsText(player, currency)));
}

void PlayerDetailsPanel::showNone() { clear(); }

}  // namespace kestrin::ui
