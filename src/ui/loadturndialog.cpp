#include "ui/loadturndialog.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "files/loadturn.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

LoadTurnDialog::LoadTurnDialog(SessionController& controller, QWidget* parent)
    : QDialog(parent),
      controller_(controller),
      txtSquadFile_(new QLineEdit(this)),
      txtWeekFile_(new QLineEdit(this)),
      btnSqBackup_(new QButtonGroup(this)),
      btnWkBackup_(new QButtonGroup(this)) {
    setObjectName("LoadTurn");
    setWindowTitle(qs(loadTurnTitle(controller_.session().Game)));
    setModal(true);
    pickFile_ = [this](const QString& title, const QString& dir, const QString& filter) {
        return QFileDialog::getOpenFileName(this, title, dir, filter);
    };

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(16, 14, 16, 12);
    root->setSpacing(10);
    auto* intro = new QLabel(
        "Choose the squad zip file and the weekly zip file sent to you for the new turn, then press OK.", this);
    intro->setWordWrap(true);
    root->addWidget(intro);
    root->addWidget(buildArchiveRow(TurnArchive::Squad));
    root->addWidget(buildArchiveRow(TurnArchive::Weekly));
    auto* note = new QLabel("Backup keeps last week's files in a dated folder; Overwrite deletes them.", this);
    note->setObjectName("lblBackupNote");
    note->setWordWrap(true);
    note->setStyleSheet("color: #4a5a6c;");
    root->addWidget(note);

    const OkCancel buttons = makeOkCancel(this);
    buttons.ok->setMinimumWidth(90);
    buttons.cancel->setMinimumWidth(90);
    connect(buttons.ok, &QPushButton::clicked, this, &LoadTurnDialog::okClicked);
    root->addLayout(buttons.row);

    // The loader runs with this dialog out of the way, as at start-up.
    connect(&controller_, &SessionController::loadStarted, this, &QWidget::hide);
    setMinimumWidth(700);
}

QWidget* LoadTurnDialog::buildArchiveRow(TurnArchive which) {
    const bool squad = which == TurnArchive::Squad;
    const Settings& prefs = controller_.session().Prefs;
    auto* g = new QGroupBox(squad ? "Squad zip file" : "Weekly zip file", this);
    auto* grid = new QGridLayout(g);
    grid->setHorizontalSpacing(8);

    QLineEdit* edit = squad ? txtSquadFile_ : txtWeekFile_;
    edit->setObjectName(squad ? "txtSquadFile" : "txtWeekFile");
    edit->setText(qpath(squad ? prefs.SquadPath : prefs.WeeklyPath));
    edit->setMinimumWidth(420);
    grid->addWidget(edit, 0, 0, 1, 3);
    auto* browse = makeButton(squad ? "btnSquad" : "btnWeek", "Browse...", g);
    connect(browse, &QPushButton::clicked, this, [this, which] { this->browse(which); });
    grid->addWidget(browse, 0, 3);

    QButtonGroup* group = squad ? btnSqBackup_ : btnWkBackup_;
    const QString name = squad ? "btnSqBackup" : "btnWkBackup";
    group->setObjectName(name);
    grid->addWidget(new QLabel("Last week's files:", g), 1, 0);
    for (int option = 0; option < 2; ++option) {
        auto* b = new QRadioButton(qs(kBackupCaptions[size_t(option)]), g);
        b->setObjectName(name + QString::number(option));
        group->addButton(b, option);
        grid->addWidget(b, 1, option + 1);
    }
    if (QAbstractButton* b = group->button(squad ? prefs.SquadBackup : prefs.WeeklyBackup)) b->setChecked(true);
    connect(group, &QButtonGroup::idClicked, this, [this, which](int option) {
        chooseBackup(controller_.session(), which, int16_t(option), controller_.messages());
    });
    grid->setColumnStretch(2, 1);
    return g;
}

LoadTurnDialog* LoadTurnDialog::openOver(QWidget* parent, SessionController& controller) {
    auto* dialog = new LoadTurnDialog(controller, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    return dialog;
}

void LoadTurnDialog::browse(TurnArchive which) {
    const bool squad = which == TurnArchive::Squad;
    QLineEdit* edit = squad ? txtSquadFile_ : txtWeekFile_;
    QString dir = qpath(controller_.session().Folder.root());
    if (const QFileInfo current(edit->text()); !edit->text().isEmpty() && current.dir().exists())
        dir = current.absolutePath();
    const QString file = pickFile_(qs(squad ? kSquadZipDialogTitle : kWeeklyZipDialogTitle), dir,
                                   dialogFilter(squad ? kSquadZipFilter : kWeeklyZipFilter));
    if (file.isEmpty()) return;
    const bool good = squad ? checkSquadArchive(nativePath(file), controller_.messages())
                            : checkWeeklyArchive(nativePath(file), controller_.session().Game, controller_.messages());
    if (good) edit->setText(file);
}

void LoadTurnDialog::okClicked() {
    const std::string squad = nativePath(txtSquadFile_->text());
    const std::string weekly = nativePath(txtWeekFile_->text());
    rememberArchivePaths(controller_.session(), squad, weekly, controller_.messages());
    if (controller_.loadNewTurn(squad, weekly))
        accept();
    else
        show();  // a refusal: the manager chooses again
}

}  // namespace kestrin::ui
