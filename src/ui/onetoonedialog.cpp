#include "ui/onetoonedialog.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "orders/onetoone.h"
#include "ui/ordersettle.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

OneToOneDialog::OneToOneDialog(SessionController& controller, std::string rowText, QWidget* parent)
    : QDialog(parent),
      controller_(controller),
      rowText_(std::move(rowText)),
      txtOnePlayer_(new QLabel(this)),
      options_(new QButtonGroup(this)) {
    setObjectName("OneToOne");
    setWindowTitle(qs(kOneToOneDialogTitle));
    setModal(true);

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(16, 14, 16, 12);
    root->setSpacing(10);
    txtOnePlayer_->setObjectName("txtOnePlayer");
    if (const Club* club = controller_.session().current()) txtOnePlayer_->setText(qs(oneToOnePrompt(*club, rowText_)));
    QFont f = txtOnePlayer_->font();
    f.setBold(true);
    txtOnePlayer_->setFont(f);
    root->addWidget(txtOnePlayer_);

    // Two columns: the talks with one player, then the team talk on its own.
    auto* box = new QGroupBox("Instruction", this);
    auto* grid = new QGridLayout(box);
    grid->setHorizontalSpacing(24);
    options_->setExclusive(true);
    const int perColumn = kTeamTalkOption / 2;
    for (int i = 0; i < kOneToOneOptions; ++i) {
        auto* option = new QRadioButton(qs(kOneToOneCaptions[size_t(i)]), box);
        option->setObjectName("OneToOneOption" + QString::number(i));
        options_->addButton(option, i);
        if (i == kTeamTalkOption)
            grid->addWidget(option, perColumn, 0, 1, 2);
        else
            grid->addWidget(option, i % perColumn, i / perColumn);
    }
    root->addWidget(box);

    auto* note = new QLabel("The team talk goes to the whole squad; every other instruction needs a player "
                            "chosen in the squad grid.",
                            this);
    note->setWordWrap(true);
    root->addWidget(note);

    const OkCancel buttons = makeOkCancel(this);
    root->addLayout(buttons.row);
    connect(buttons.ok, &QPushButton::clicked, this, &OneToOneDialog::okClicked);
    setMinimumWidth(460);
    adjustSize();
}

OneToOneDialog* OneToOneDialog::openOver(QWidget* parent, SessionController& controller, std::string rowText) {
    auto* dialog = new OneToOneDialog(controller, std::move(rowText), parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    return dialog;
}

void OneToOneDialog::okClicked() {
    Club* club = controller_.session().current();
    if (!club) return;
    // A refusal leaves the dialog open for another choice.
    if (settle(controller_, setOneToOne(*club, options_->checkedId(), rowText_))) accept();
}

}  // namespace kestrin::ui
