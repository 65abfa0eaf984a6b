#include "ui/emailplayer.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/errors.h"
#include "files/news.h"
#include "orders/playerdetails.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

EmailPlayerDialog::EmailPlayerDialog(SessionController& controller, const Club& club, const Player& player,
                                     QWidget* parent)
    : QDialog(parent), controller_(controller), club_(club), player_(player), text_(createDetails(club, player)) {
    setObjectName("EmailPlayer");
    setWindowTitle("Email Player Details");
    setModal(true);

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(14, 12, 14, 12);
    root->setSpacing(8);
    root->addWidget(new QLabel("The details of " + qs(player.Name) + " as another manager will read them:", this));
    auto* text = new QPlainTextEdit(this);
    text->setObjectName("EmailText");
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    text->setFont(fixedFont(-1));
    text->setPlainText(qs(text_));
    root->addWidget(text, 1);

    auto* buttons = new QHBoxLayout;
    auto* save = makeButton("btnSaveDetails", "Save to PlayerDetails.txt", this);
    auto* email = makeButton("btnEmailDetails", "Send by e-mail", this);
    auto* close = makeButton("CancelButton", "Close", this);
    auto* emailTo = new QComboBox(this);
    emailTo->setObjectName("EmailTo");
    for (const std::string& name : emailToList(controller_.session().ManagerList)) emailTo->addItem(qs(name));
    emailTo->setPlaceholderText("Choose a manager");
    emailTo->setCurrentIndex(-1);
    emailTo->setMinimumContentsLength(18);
    buttons->addWidget(save);
    buttons->addSpacing(12);
    buttons->addWidget(new QLabel("Send to:", this));
    buttons->addWidget(emailTo);
    buttons->addWidget(email);
    buttons->addStretch(1);
    buttons->addWidget(close);
    root->addLayout(buttons);
    connect(save, &QPushButton::clicked, this, &EmailPlayerDialog::saveClicked);
    connect(email, &QPushButton::clicked, this, [this, emailTo] {
        controller_.sendPlayerDetails(club_, player_, gameText(emailTo->currentText()), text_);
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);

    // Wide enough for the figures line without scrolling.
    const int textWidth = QFontMetrics(text->font()).horizontalAdvance(QString(100, QLatin1Char('0')));
    resize(textWidth + 60, 420);
}

EmailPlayerDialog* EmailPlayerDialog::openOver(QWidget* parent, SessionController& controller, const Club& club,
                                               const Player& player) {
    auto* dialog = new EmailPlayerDialog(controller, club, player, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    return dialog;
}

void EmailPlayerDialog::saveClicked() {
    Messages& messages = controller_.messages();
    try {
        const fs::path path = savePlayerDetails(controller_.session(), text_);
        messages.inform(std::string(kDetailsExportedTitle), detailsExportedText(path));
    } catch (const WriteError& e) {
        messages.refuse("Player Details not saved",
                        "The file " + utf8ToCp1252(e.path) + " could not be written: " + e.reason +
                            ".\r\n\r\nAny PlayerDetails.txt saved before is left as it was. Check that the game "
                            "folder can be written to and try again.");
    }
}

}  // namespace kestrin::ui
