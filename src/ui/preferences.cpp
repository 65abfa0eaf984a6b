#include "ui/preferences.h"

#include <QFileDialog>
#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRegularExpressionValidator>
#include <QEvent>
#include <QStyle>
#include <QVBoxLayout>

#include "core/clubview.h"
#include "core/errors.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

// Sets the session's busy flag while controls are set, so their handlers
// store nothing; the flag goes back to what it was.
class Filling {
public:
    explicit Filling(Session& s) : session_(s), before_(s.FillingScreen) { s.FillingScreen = true; }
    ~Filling() { session_.FillingScreen = before_; }

private:
    Session& session_;
    bool before_;
};

// The folder a file dialog starts in: that of the current file when it has
// one, else the game folder.
QString startFolder(const std::string& current, const fs::path& gameFolder) {
    if (!current.empty()) {
        const QFileInfo info(qpath(current));
        if (info.dir().exists()) return info.absolutePath();
    }
    return qpath(gameFolder);
}

// A long path would stretch the screen: the middle goes, the whole path is
// in the tooltip.
QString fitted(const QString& caption, const QFontMetrics& metrics, int width) {
    return metrics.elidedText(caption, Qt::ElideMiddle, width);
}

// Room the radio button takes before its caption.
int fromFileIndent(const QRadioButton* b) {
    return b->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, b) +
           b->style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, b) + 4;
}

}  // namespace

Preferences::Preferences(SessionController& controller, QWidget* parent)
    : Screen(controller, "Preferences", "Preferences", parent),
      txtPhysio_(new QLineEdit(this)),
      txtScoutFile_(new QLineEdit(this)),
      txtStatsFile_(new QLineEdit(this)),
      txtMailServer_(new QLineEdit(this)),
      txtMailPort_(new QLineEdit(this)),
      cboMailSecurity_(new QComboBox(this)),
      txtMailUser_(new QLineEdit(this)),
      txtMailSender_(new QLineEdit(this)) {
    // A refresh gives an empty StatsFile its place.
    connect(&controller_, &SessionController::statsRefreshed, this, [this] { showFiles(); });
    pickFile_ = [this](const QString& title, const QString& dir, const QString& filter) {
        return QFileDialog::getOpenFileName(this, title, dir, filter);
    };
    teamList()->hide();  // the settings are the manager's, not a club's

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 14, 18, 14);
    root->setSpacing(10);

    auto* heading = new QLabel("Preferences", this);
    heading->setObjectName("screenHeading");
    root->addWidget(heading);

    // Backgrounds across the top, where a picture's path has room; the
    // Vidiprinter's long list down the right.
    auto* columns = new QHBoxLayout;
    columns->setSpacing(12);
    auto* main = new QVBoxLayout;
    main->setSpacing(12);
    main->addWidget(buildBackgrounds());
    auto* lower = new QHBoxLayout;
    lower->setSpacing(12);
    auto* lowerLeft = new QVBoxLayout;
    lowerLeft->setSpacing(12);
    lowerLeft->addWidget(buildGeneral());
    lowerLeft->addStretch(1);

    lower->addLayout(lowerLeft, 1);
    auto* lowerRight = new QVBoxLayout;
    lowerRight->setSpacing(12);
    lowerRight->addWidget(buildTurnsheets());
    lowerRight->addWidget(buildFiles());
    lowerRight->addStretch(1);
    lower->addLayout(lowerRight, 1);
    main->addLayout(lower, 1);
    columns->addLayout(main, 1);

    auto* right = new QVBoxLayout;
    right->setSpacing(12);
    right->addWidget(buildVidiprinter());
    right->addWidget(buildMail());
    right->addStretch(1);
    columns->addLayout(right, 0);
    root->addLayout(columns, 1);

    auto* footer = new QHBoxLayout;
    footer->addStretch(1);
    auto* back = makeButton("btnReturn", "Main Menu", this);
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    footer->addWidget(back);
    root->addLayout(footer);
}

QWidget* Preferences::buildBackgrounds() {
    auto* g = new QGroupBox("Backgrounds", this);
    auto* v = new QVBoxLayout(g);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);
    for (size_t i = 0; i < kBackgroundOptions.size(); ++i) {
        const BackgroundOption& o = kBackgroundOptions[i];
        const int row = int(i);
        grid->addWidget(new QLabel(qs(o.caption), g), row, 0);
        auto* group = new QButtonGroup(g);
        group->setObjectName(qs(o.setting));
        for (int option = 0; option < 3; ++option) {
            auto* b = new QRadioButton(qs(kPictureOptionCaptions[size_t(option)]), g);
            b->setObjectName(qs(o.setting) + "opt" + QString::number(option));
            group->addButton(b, option);
            grid->addWidget(b, row, option + 1);
        }
        fromFile_[i] = static_cast<QRadioButton*>(group->button(2));
        // The caption follows the room there is, not the other way round.
        fromFile_[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        fromFile_[i]->setMinimumWidth(fromFile_[i]->sizeHint().width());
        fromFile_[i]->installEventFilter(this);
        pictureGroups_[i] = group;
        connect(group, &QButtonGroup::idClicked, this, [this, i](int option) { pictureClicked(i, option); });
    }
    grid->setColumnStretch(3, 1);
    v->addLayout(grid);
    auto* advice = new QLabel(qs(kBackgroundAdvice), g);
    advice->setObjectName("lblAdvice");
    advice->setStyleSheet("color: #4a5a6c; font-style: italic; margin-top: 8px;");
    v->addWidget(advice);
    return g;
}

QWidget* Preferences::buildGeneral() {
    auto* box = new QWidget(this);
    auto* v = new QVBoxLayout(box);
    v->setContentsMargins(0, 0, 0, 0);
    v->setSpacing(12);

    auto* injuries = new QGroupBox("Injuries", box);
    auto* il = new QHBoxLayout(injuries);
    il->addWidget(new QLabel(qs(kInjuryTextBefore), injuries));
    txtPhysio_->setObjectName("txtPhysio");
    txtPhysio_->setMaxLength(2);
    txtPhysio_->setFixedWidth(44);
    txtPhysio_->setAlignment(Qt::AlignRight);
    txtPhysio_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]*"), txtPhysio_));
    connect(txtPhysio_, &QLineEdit::textEdited, this, &Preferences::injuryEdited);
    il->addWidget(txtPhysio_);
    il->addWidget(new QLabel(qs(kInjuryTextAfter), injuries));
    il->addStretch(1);
    v->addWidget(injuries);

    for (size_t i = 0; i < kOptionPairs.size(); ++i) {
        const OptionPair& o = kOptionPairs[i];
        auto* g = new QGroupBox(qs(o.caption), box);
        auto* row = new QHBoxLayout(g);
        auto* group = new QButtonGroup(g);
        group->setObjectName(qs(o.control));
        for (int option = 0; option < 2; ++option) {
            auto* b = new QRadioButton(qs(o.options[size_t(option)]), g);
            b->setObjectName(qs(o.control) + QString::number(option));
            group->addButton(b, option);
            row->addWidget(b);
        }
        row->addStretch(1);
        pairs_[i] = group;
        connect(group, &QButtonGroup::idClicked, this, [this, i](int option) {
            change([&](Settings& s) { s.*(kOptionPairs[i].value) = int16_t(option); }, false);
        });
        v->addWidget(g);
    }

    return box;
}

QWidget* Preferences::buildTurnsheets() {
    auto* other = new QGroupBox("Turnsheets and notes", this);
    auto* ol = new QVBoxLayout(other);
    for (size_t i = 0; i < kYesNoOptions.size(); ++i) {
        auto* check = new QCheckBox(qs(kYesNoOptions[i].caption), other);
        check->setObjectName(qs(kYesNoOptions[i].control));
        yesNo_[i] = check;
        connect(check, &QCheckBox::clicked, this, [this, i](bool checked) {
            change([&](Settings& s) { s.*(kYesNoOptions[i].value) = yesNoValue(checked); }, false);
        });
        ol->addWidget(check);
    }
    return other;
}

QWidget* Preferences::buildFiles() {
    auto* g = new QGroupBox("Files", this);
    auto* grid = new QGridLayout(g);
    grid->setVerticalSpacing(4);
    auto row = [&](int at, QLineEdit* edit, const char* editName, std::string_view caption, const char* buttonName,
                   bool stats) {
        grid->addWidget(new QLabel(qs(caption), g), at * 2, 0, 1, 2);
        edit->setObjectName(editName);
        edit->setReadOnly(true);
        edit->setFocusPolicy(Qt::NoFocus);
        grid->addWidget(edit, at * 2 + 1, 0);
        auto* browse = makeButton(buttonName, "Browse...", g);
        connect(browse, &QPushButton::clicked, this, [this, stats] { browseFile(stats); });
        grid->addWidget(browse, at * 2 + 1, 1);
    };
    row(0, txtScoutFile_, "txtScoutFile", kScoutFileCaption, "btnBrowse", false);
    row(1, txtStatsFile_, "txtStatsFile", kStatsFileCaption, "btnBrowseStats", true);
    grid->setColumnStretch(0, 1);
    return g;
}

QWidget* Preferences::buildMail() {
    auto* g = new QGroupBox("Mail", this);
    auto* grid = new QGridLayout(g);
    grid->setVerticalSpacing(4);
    grid->setHorizontalSpacing(8);
    auto edit = [&](QLineEdit* e, const char* name, const char* placeholder,
                    std::function<void(MailSettings&, const std::string&)> store) {
        e->setObjectName(name);
        e->setPlaceholderText(placeholder);
        connect(e, &QLineEdit::textEdited, this, [this, store](const QString& text) {
            changeMail([&](MailSettings& m) { store(m, text.trimmed().toStdString()); });
        });
    };
    edit(txtMailServer_, "txtMailServer", "smtp.example.org",
         [](MailSettings& m, const std::string& v) { m.Server = v; });
    edit(txtMailUser_, "txtMailUser", "empty: no login", [](MailSettings& m, const std::string& v) { m.User = v; });
    edit(txtMailSender_, "txtMailSender", "you@example.org",
         [](MailSettings& m, const std::string& v) { m.Sender = v; });
    edit(txtMailPort_, "txtMailPort", "", [](MailSettings& m, const std::string& v) {
        m.Port = v.empty() ? 0 : std::stoi(v);
    });
    txtMailPort_->setMaxLength(5);
    txtMailPort_->setFixedWidth(56);
    txtMailPort_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,5}"), txtMailPort_));
    cboMailSecurity_->setObjectName("cboMailSecurity");
    for (MailSecurity sec : {MailSecurity::StartTls, MailSecurity::Tls, MailSecurity::None})
        cboMailSecurity_->addItem(qs(securityName(sec)), int(sec));
    connect(cboMailSecurity_, &QComboBox::activated, this, &Preferences::securityChosen);

    grid->addWidget(new QLabel("Server", g), 0, 0);
    grid->addWidget(txtMailServer_, 0, 1, 1, 3);
    grid->addWidget(new QLabel("Security", g), 1, 0);
    grid->addWidget(cboMailSecurity_, 1, 1);
    grid->addWidget(new QLabel("Port", g), 1, 2, Qt::AlignRight);
    grid->addWidget(txtMailPort_, 1, 3);
    grid->addWidget(new QLabel("User name", g), 2, 0);
    grid->addWidget(txtMailUser_, 2, 1, 1, 3);
    grid->addWidget(new QLabel("Your address", g), 3, 0);
    grid->addWidget(txtMailSender_, 3, 1, 1, 3);
    grid->setColumnStretch(1, 1);
    return g;
}

void Preferences::showMail() {
    mail_ = readMailSettings(controller_.session().Folder);
    txtMailServer_->setText(QString::fromStdString(mail_.Server));
    txtMailPort_->setText(QString::number(mail_.Port));
    cboMailSecurity_->setCurrentIndex(cboMailSecurity_->findData(int(mail_.Security)));
    txtMailUser_->setText(QString::fromStdString(mail_.User));
    txtMailSender_->setText(QString::fromStdString(mail_.Sender));
}

void Preferences::changeMail(const std::function<void(MailSettings&)>& edit) {
    MailSettings changed = mail_;
    edit(changed);
    mail_ = changed;
    try {
        writeMailSettings(controller_.session().Folder, mail_);
        mailWriteTold_ = false;
    } catch (const WriteError& e) {
        if (mailWriteTold_) return;
        mailWriteTold_ = true;
        controller_.messages().refuse("Mail settings not saved",
                                      "The file " + utf8ToCp1252(e.path) + " could not be written: " + e.reason +
                                          ".\r\n\r\nThe settings are used until the program closes. Check "
                                          "that the game folder can be written to.");
    }
}

void Preferences::securityChosen(int index) {
    const auto security = MailSecurity(cboMailSecurity_->itemData(index).toInt());
    const SecurityChoice choice = chooseMailSecurity(mail_, security);
    if (!choice.refusal.empty()) {
        cboMailSecurity_->setCurrentIndex(cboMailSecurity_->findData(int(mail_.Security)));
        controller_.messages().refuse("Mail security", choice.refusal);
        return;
    }
    changeMail([&](MailSettings& m) { m = choice.settings; });
    txtMailPort_->setText(QString::number(mail_.Port));
}

QWidget* Preferences::buildVidiprinter() {
    auto* g = new QGroupBox("Vidiprinter", this);
    auto* v = new QVBoxLayout(g);
    v->setSpacing(3);
    for (size_t i = 0; i < kWatchOptionCount; ++i) {
        auto* check = new QCheckBox(qs(kWatchDefaultCaptions[i]), g);
        check->setObjectName("chkVidiOpt" + QString::number(i));
        watch_[i] = check;
        connect(check, &QCheckBox::clicked, this, [this, i](bool checked) {
            change([&](Settings& s) { s.VidiOpt[i] = checked ? 1 : 0; }, true);
        });
        v->addWidget(check);
    }
    auto* alertHead = new QLabel(qs(kAlertCaption), g);
    alertHead->setStyleSheet("margin-top: 10px;");
    v->addWidget(alertHead);
    for (size_t i = 0; i < alerts_.size(); ++i) {
        auto* combo = new QComboBox(g);
        combo->setObjectName("VidiAlert" + QString::number(i));
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(20);
        combo->setMaxVisibleItems(20);
        alerts_[i] = combo;
        connect(combo, &QComboBox::activated, this, [this, i](int index) {
            const auto& lines = alertLines_[i];
            if (index < 0 || size_t(index) >= lines.size()) return;
            change([&](Settings& s) { s.VidiAlert[i] = lines[size_t(index)]; }, false);
        });
        v->addWidget(combo);
    }
    return g;
}

bool Preferences::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        for (size_t i = 0; i < fromFile_.size(); ++i)
            if (watched == fromFile_[i]) fitFromFile(i);
    return Screen::eventFilter(watched, event);
}

void Preferences::sessionLoaded() {
    Screen::sessionLoaded();
    fillControls();
    showMail();
    applyToScreens(false);  // Select club fills the screens next
}

void Preferences::enableForClubs(bool) {
    // Every preference makes sense before the first week is loaded.
}

void Preferences::fillControls() {
    Session& session = controller_.session();
    const Filling filling(session);
    const Settings& s = session.Prefs;
    for (size_t i = 0; i < kBackgroundOptions.size(); ++i) showPictureOption(i);
    txtPhysio_->setText(QString::number(s.InjuryLimitSetting));
    for (size_t i = 0; i < kOptionPairs.size(); ++i)
        if (QAbstractButton* b = pairs_[i]->button(s.*(kOptionPairs[i].value))) b->setChecked(true);
    for (size_t i = 0; i < kYesNoOptions.size(); ++i) yesNo_[i]->setChecked(isYes(s.*(kYesNoOptions[i].value)));

    const auto captions = watchCaptions(session.Game);
    for (size_t i = 0; i < kWatchOptionCount; ++i) {
        watch_[i]->setText(qs(captions[i]));
        watch_[i]->setChecked(s.VidiOpt[i] != 0);
    }
    const std::vector<std::string> lines = alertClubLines(session.ExportClubs);
    QStringList shown;
    shown.reserve(int(lines.size()));
    for (const std::string& l : lines) shown << qs(l);
    for (size_t i = 0; i < alerts_.size(); ++i) {
        alertLines_[i] = lines;
        const int at = alertClubIndex(alertLines_[i], s.VidiAlert[i]);
        QComboBox* combo = alerts_[i];
        combo->clear();
        combo->addItems(shown);
        for (size_t extra = lines.size(); extra < alertLines_[i].size(); ++extra) combo->addItem(qs(alertLines_[i][extra]));
        combo->setCurrentIndex(at);
    }
    showFiles();
}

void Preferences::showPictureOption(size_t which) {
    const PictureChoice& choice = controller_.session().Prefs.*(kBackgroundOptions[which].choice);
    QButtonGroup* group = pictureGroups_[which];
    // Unchecked first, so an option outside 0..2 shows none chosen.
    group->setExclusive(false);
    for (QAbstractButton* b : group->buttons()) b->setChecked(false);
    group->setExclusive(true);
    if (QAbstractButton* b = group->button(choice.Option)) b->setChecked(true);
    fitFromFile(which);
}

void Preferences::fitFromFile(size_t which) {
    const PictureChoice& choice = controller_.session().Prefs.*(kBackgroundOptions[which].choice);
    const QString caption = qs(fromFileCaption(choice));
    QRadioButton* from = fromFile_[which];
    // Only a file is cut; before the first layout there is no width to cut to.
    const int room = from->width() - fromFileIndent(from);
    from->setText(choice.Option == 2 && room > 40 ? fitted(caption, from->fontMetrics(), room) : caption);
    from->setAccessibleName(caption);  // whole, where the screen shows it cut
    from->setToolTip(choice.Option == 2 ? qpath(choice.File) : QString());
}

void Preferences::showFiles() {
    const Settings& s = controller_.session().Prefs;
    txtScoutFile_->setText(qpath(s.ScoutFile));
    txtScoutFile_->setCursorPosition(0);
    txtScoutFile_->setToolTip(txtScoutFile_->text());
    txtStatsFile_->setText(qpath(s.StatsFile));
    txtStatsFile_->setCursorPosition(0);
    txtStatsFile_->setToolTip(txtStatsFile_->text());
}

void Preferences::change(const std::function<void(Settings&)>& edit, bool apply) {
    Session& session = controller_.session();
    if (session.FillingScreen) return;
    if (!changeSettings(session, controller_.messages(), edit)) return;
    showFiles();
    if (apply) applyToScreens(true);
}

void Preferences::applyToScreens(bool refill) {
    Session& session = controller_.session();
    applySettings(session);
    for (Screen* s : controller_.screens()) {
        if (const PictureChoice* choice = backgroundFor(session.Prefs, s->objectName().toStdString()))
            s->setBackdrop(backdropFor(*choice));
    }
    // The injury figure decides who may be picked: the lists show it.
    if (refill && controller_.hasClubs()) controller_.rebuildOrderLists();
}

void Preferences::pictureClicked(size_t which, int option) {
    Session& session = controller_.session();
    if (session.FillingScreen) return;
    const BackgroundOption& o = kBackgroundOptions[which];
    const PictureChoice current = session.Prefs.*(o.choice);
    if (option != 2) {
        change([&](Settings& s) { (s.*(o.choice)).Option = int16_t(option); }, true);
        showPictureOption(which);
        return;
    }
    const QString file = pickFile_(qs(o.dialogTitle), startFolder(current.File, session.Folder.root()),
                                   dialogFilter(kPictureFilter));
    if (file.isEmpty()) {
        showPictureOption(which);  // cancelled: the old choice stands
        return;
    }
    if (!isReadablePicture(file)) {
        controller_.messages().refuse("Picture not used",
                                      "The file " + nativePath(file) +
                                          " could not be read as a picture.\r\n\r\nThe background stays as it "
                                          "was. Choose a .bmp, .gif or .jpg picture.");
        showPictureOption(which);
        return;
    }
    change(
        [&](Settings& s) {
            s.*(o.choice) = PictureChoice{2, nativePath(file)};
        },
        true);
    showPictureOption(which);
}

void Preferences::injuryEdited(const QString& text) {
    const std::optional<int16_t> figure = injuryLimitFromText(gameText(text));
    if (!figure) return;
    const QString shown = QString::number(*figure);
    if (text != shown) txtPhysio_->setText(shown);
    change([&](Settings& s) { s.InjuryLimitSetting = *figure; }, true);
}

void Preferences::browseFile(bool stats) {
    Session& session = controller_.session();
    const std::string& current = stats ? session.Prefs.StatsFile : session.Prefs.ScoutFile;
    const QString file = pickFile_(qs(stats ? kStatsFileDialogTitle : kScoutFileDialogTitle),
                                   startFolder(current, session.Folder.root()),
                                   dialogFilter(stats ? kStatsFileFilter : kScoutFileFilter));
    if (file.isEmpty()) return;
    change([&](Settings& s) { (stats ? s.StatsFile : s.ScoutFile) = nativePath(file); }, false);
}

}  // namespace kestrin::ui
