#include "ui/playeract.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <limits>

#include "ui/look.h"
#include "ui/ordersettle.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

// An amount box: the typed text is what the order reads, so no group
// separators that would stop the number at the first comma.
QSpinBox* amountBox(QWidget* parent, const char* textName, int min, int max, int step) {
    auto* box = new QSpinBox(parent);
    box->setRange(min, max);
    box->setSingleStep(step);
    box->setGroupSeparatorShown(false);
    box->setAlignment(Qt::AlignRight);
    box->setFont(fixedFont());
    box->setMinimumWidth(150);
    box->findChild<QLineEdit*>()->setObjectName(textName);
    return box;
}

}  // namespace

PlayerActDialog::PlayerActDialog(SessionController& controller, PlayerAction action, std::string rowText,
                                 QWidget* parent)
    : QDialog(parent),
      controller_(controller),
      action_(action),
      rowText_(std::move(rowText)),
      txtPlayerAct_(new QLabel(this)),
      upAmount_(amountBox(this, "txtAmount", 0, std::numeric_limits<int>::max(), 50000)),
      upContract_(amountBox(this, "txtContract", 6, 24, 6)),
      txtAmount_(upAmount_->findChild<QLineEdit*>()),
      txtContract_(upContract_->findChild<QLineEdit*>()),
      findClub_(new QLineEdit(this)),
      lvwActionTeams_(new QListWidget(this)) {
    setObjectName("PlayerAct");
    setWindowTitle(qs(kPlayerActTitle));
    setModal(true);

    const Session& session = controller_.session();
    const Club* club = session.current();
    const PlayerActForm form = playerActForm(action_, club ? rowPlayerName(*club, rowText_) : std::string());

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(16, 14, 16, 12);
    root->setSpacing(10);
    txtPlayerAct_->setObjectName("txtPlayerAct");
    txtPlayerAct_->setText(qs(form.prompt));
    txtPlayerAct_->setWordWrap(true);
    QFont promptFont = txtPlayerAct_->font();
    promptFont.setBold(true);
    txtPlayerAct_->setFont(promptFont);
    root->addWidget(txtPlayerAct_);

    auto* fields = new QFormLayout;
    fields->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    fields->setHorizontalSpacing(10);

    upAmount_->setObjectName("UpAmount");
    auto* amountRow = new QWidget(this);
    amountRow->setObjectName("amountGroup");
    auto* ar = new QHBoxLayout(amountRow);
    ar->setContentsMargins(0, 0, 0, 0);
    ar->addWidget(upAmount_);
    ar->addStretch(1);
    const QString currency = session.Game.Currency.empty() ? QString() : " (" + qs(session.Game.Currency) + ")";
    auto* lblAmount = new QLabel((form.contract ? "Incentive" : "Amount") + currency + ":", this);
    lblAmount->setObjectName("lblAmount");
    fields->addRow(lblAmount, amountRow);
    if (form.contract) upAmount_->setSingleStep(1000);

    upContract_->setObjectName("UpContract");
    upContract_->setValue(12);
    upContract_->setMinimumWidth(90);
    auto* contractRow = new QWidget(this);
    contractRow->setObjectName("contractGroup");
    auto* cr = new QHBoxLayout(contractRow);
    cr->setContentsMargins(0, 0, 0, 0);
    cr->addWidget(upContract_);
    cr->addWidget(new QLabel("months (6, 12, 18 or 24)", contractRow));
    cr->addStretch(1);
    auto* lblContract = new QLabel("Contract length:", this);
    lblContract->setObjectName("lblContract");
    fields->addRow(lblContract, contractRow);
    fields->setRowVisible(lblContract, form.contract);
    fields->setRowVisible(lblAmount, form.amount);
    root->addLayout(fields);

    auto* clubGroup = new QWidget(this);
    clubGroup->setObjectName("clubGroup");
    auto* cg = new QVBoxLayout(clubGroup);
    cg->setContentsMargins(0, 0, 0, 0);
    auto* lblClub = new QLabel("Club to sell to:", clubGroup);
    lblClub->setObjectName("lblClub");
    cg->addWidget(lblClub);
    findClub_->setObjectName("txtFindClub");
    findClub_->setPlaceholderText("Type part of a club's name to narrow the list");
    findClub_->setClearButtonEnabled(true);
    cg->addWidget(findClub_);
    lvwActionTeams_->setObjectName("lvwActionTeams");
    lvwActionTeams_->setSelectionMode(QAbstractItemView::SingleSelection);
    lvwActionTeams_->setMinimumHeight(260);
    clubs_ = actionClubNames(session);
    for (const std::string& name : clubs_) lvwActionTeams_->addItem(qs(name));
    cg->addWidget(lvwActionTeams_, 1);
    clubGroup->setVisible(form.club);
    root->addWidget(clubGroup, 1);
    connect(findClub_, &QLineEdit::textChanged, this, &PlayerActDialog::filterClubs);

    const OkCancel buttons = makeOkCancel(this);
    root->addLayout(buttons.row);
    connect(buttons.ok, &QPushButton::clicked, this, &PlayerActDialog::okClicked);

    setMinimumWidth(form.club ? 520 : 480);
    adjustSize();
    (form.contract ? upContract_ : upAmount_)->setFocus();
    (form.contract ? txtContract_ : txtAmount_)->selectAll();
}

PlayerActDialog* PlayerActDialog::openOver(QWidget* parent, SessionController& controller, PlayerAction action,
                                           std::string rowText) {
    auto* dialog = new PlayerActDialog(controller, action, std::move(rowText), parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    return dialog;
}

void PlayerActDialog::filterClubs(const QString& text) {
    const QString wanted = text.trimmed();
    for (int i = 0; i < lvwActionTeams_->count(); ++i) {
        QListWidgetItem* item = lvwActionTeams_->item(i);
        const bool hide = !wanted.isEmpty() && !item->text().contains(wanted, Qt::CaseInsensitive);
        item->setHidden(hide);
        // A club the manager can no longer see is no longer his choice.
        if (hide) item->setSelected(false);
    }
}

std::string PlayerActDialog::chosenClub() const {
    const QList<QListWidgetItem*> chosen = lvwActionTeams_->selectedItems();
    if (chosen.isEmpty()) return {};
    const int row = lvwActionTeams_->row(chosen.front());
    return row >= 0 && size_t(row) < clubs_.size() ? clubs_[size_t(row)] : std::string();
}

void PlayerActDialog::okClicked() {
    Club* club = controller_.session().current();
    if (!club) return;
    const std::string amount = gameText(txtAmount_->text());
    OrderResult result;
    switch (action_) {
        case PlayerAction::SellToClub: result = sellToClub(*club, rowText_, chosenClub(), amount); break;
        case PlayerAction::SecretlyList: result = secretlyList(*club, rowText_, amount); break;
        case PlayerAction::OfferContract:
            result = offerContract(*club, rowText_, gameText(txtContract_->text()), amount);
            break;
        default: reject(); return;
    }
    // A refusal leaves the dialog open so the field can be put right.
    if (settle(controller_, result)) accept();
}

}  // namespace kestrin::ui
