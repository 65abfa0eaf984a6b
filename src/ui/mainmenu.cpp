#include "ui/mainmenu.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "core/text.h"
#include "match/pictures/kitcolours.h"
#include "ui/look.h"
#include "ui/qtext.h"

namespace kestrin::ui {

namespace {

const char* const kClubRows[] = {"lblCredits",     "lblStampCredits",   "lblStadium",       "lblCapacity",
                                 "lblFacilities",  "lblGamesPlayed",    "lblAverageGate",   "lblPotentialCrowd",
                                 "lblSeasonTickets", "lblCrowdRating"};
const char* const kStaffRows[] = {"lblGoalkeeperCoach", "lblDefenceCoach", "lblMidfieldCoach", "lblAttackCoach",
                                  "lblGroundsman",      "lblPhysio",       "lblScout",         "lblMarketing"};
const char* const kMoneyRows[] = {"lblWageBill",   "lblCosts",          "lblGateMoney",    "lblMerchandise",
                                  "lblSponsorship", "lblSundriesIn",    "lblSundriesOut",  "lblMoneyBet",
                                  "lblBetWinnings", "lblTransfersRecouped", "lblTransfersSpent", "lblBalance"};

struct WorksBox {
    const char* control;
    const char* caption;
};
const WorksBox kWorks[] = {{"txtCapInc", "Capacity"}, {"txtFacInc", "Facilities"}, {"txtDeptUp", "Departments"}};

struct ChoiceDef {
    WeeklyChoice which;
    const char* control;
    const char* caption;
};
const ChoiceDef kChoices[] = {{WeeklyChoice::Betting, "ComboBet", "Betting"},
                              {WeeklyChoice::Capacity, "ComboCap", "Capacity"},
                              {WeeklyChoice::Facility, "ComboFac", "Facilities"},
                              {WeeklyChoice::Department, "ComboDept", "Departments"}};

// The buttons that open screens. `opens` is empty while the screen is still
// to come; `needsClub` is false for what makes sense with no club loaded.
struct ScreenButton {
    const char* control;
    const char* caption;
    const char* opens;
    const char* coming;
    bool needsClub;
};
const ScreenButton kScreenButtons[] = {
    {"btnSquad", "Squad Actions", "SquadScr", "", true},
    {"BtnFixtures", "Fixtures", "Fixt", "the fixtures and match orders", true},
    {"BtnScouting", "Scouting", "Scout", "", true},
    {"BtnLastWeek", "Last week", "LastWk", "", true},
    {"BtnNews", "News", "News", "", true},
    {"BtnPreferences", "Preferences", "Preferences", "the preferences screen", false},
    {"btnAuto", "Auto Turn", "AutoTurn", "", true},
    {"btnAdmin", "Weekly Admin", "Admin", "", true},
    {"btnVidi", "Vidiprinter", "Vidi", "", true},
    {"btnViewer", "Match Viewer", "Matchviewer", "", true},
    {"BtnLoadTurn", "Load Turn", "LoadTurn", "loading the week's archives", false},
    {"btnNote", "Notepad", "Notepad", "", false},
    {"btnMemo", "Replay weekly Reports", "WeeklyReports", "", true},
    {"BtnHonours", "Show Club History", "Honours", "the club's honours", true},
    {"btnLoadStats", "Refresh Stats Database", "RefreshStats", "the stats database", true},
};

QGroupBox* panel(const QString& title, QWidget* parent) {
    auto* g = new QGroupBox(title, parent);
    return g;
}

}  // namespace

MainMenu::MainMenu(SessionController& controller, QWidget* parent)
    : Screen(controller, "MainMenu", "Main Menu", parent),
      badgeImage_(new QLabel(this)),
      shirtImage_(new QLabel(this)),
      clubHeading_(new QLabel(this)) {
    pickFile_ = [this](const QString& title, const QString& dir, const QString& filter) {
        return QFileDialog::getOpenFileName(this, title, dir, filter);
    };

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 14, 18, 14);
    root->setSpacing(12);
    root->addWidget(buildHeader());
    root->addWidget(buildFigures(), 1);

    auto* lower = new QHBoxLayout;
    lower->setSpacing(12);
    lower->addWidget(buildChoices(), 5);
    lower->addWidget(buildButtons(), 6);
    root->addLayout(lower);

    auto* footer = new QHBoxLayout;
    auto* save = makeButton("Command2", "Save Turnsheet", this);
    auto* send = makeButton("Command3", "Send Turnsheet", this);
    auto* clearOne = makeButton("btnClear0", qs(kClearTurnCaptions[0]), this);
    auto* clearAll = makeButton("btnClear1", qs(kClearTurnCaptions[1]), this);
    auto* quit = makeButton("btnQuit", "Exit Program", this);
    connect(save, &QPushButton::clicked, this, [this] { controller_.saveTurnsheet(); });
    connect(send, &QPushButton::clicked, this, [this] { controller_.sendTurnsheet(); });
    connect(clearOne, &QPushButton::clicked, this, [this] { controller_.clearTurns(false); });
    connect(clearAll, &QPushButton::clicked, this, [this] { controller_.clearTurns(true); });
    connect(quit, &QPushButton::clicked, this, [this] { window()->close(); });
    footer->addWidget(save);
    footer->addWidget(send);
    footer->addSpacing(24);
    footer->addWidget(clearOne);
    footer->addWidget(clearAll);
    footer->addStretch(1);
    footer->addWidget(quit);
    root->addLayout(footer);
    for (QWidget* w : {static_cast<QWidget*>(save), static_cast<QWidget*>(send), static_cast<QWidget*>(clearOne),
                       static_cast<QWidget*>(clearAll)})
        needClub_.push_back(w);

    connect(&controller_, &SessionController::picturesChanged, this, &MainMenu::showPictures);
    showPictures();
    enableForClubs(false);
}

QWidget* MainMenu::buildHeader() {
    auto* box = new QWidget(this);
    auto* lay = new QHBoxLayout(box);
    lay->setContentsMargins(0, 0, 0, 0);
    lay->setSpacing(16);

    auto picture = [&](QLabel* image, const char* imageName, const char* buttonName, const char* caption,
                       SessionController::Picture which) {
        auto* col = new QVBoxLayout;
        col->setSpacing(4);
        image->setObjectName(imageName);
        image->setFixedSize(96, 96);
        image->setAlignment(Qt::AlignCenter);
        col->addWidget(image, 0, Qt::AlignHCenter);
        auto* button = makeButton(buttonName, caption, box);
        connect(button, &QPushButton::clicked, this, [this, which] { pickPicture(which); });
        needClub_.push_back(button);
        col->addWidget(button);
        lay->addLayout(col);
    };
    picture(badgeImage_, "BadgeImage", "btnChangeBadge", "Change Badge", SessionController::Picture::Badge);

    auto* middle = new QVBoxLayout;
    middle->setSpacing(6);
    auto* heading = new QLabel("Main Menu", box);
    heading->setObjectName("screenHeading");
    middle->addWidget(heading);
    auto* clubRow = new QHBoxLayout;
    auto* clubCaption = new QLabel("Club:", box);
    clubRow->addWidget(clubCaption);
    clubRow->addWidget(teamList());
    clubRow->addStretch(1);
    middle->addLayout(clubRow);
    clubHeading_->setObjectName("clubHeading");
    middle->addWidget(clubHeading_);
    middle->addStretch(1);
    lay->addLayout(middle, 1);

    picture(shirtImage_, "ShirtImage", "BtnChangeShirt", "Change Shirt", SessionController::Picture::Shirt);
    return box;
}

QWidget* MainMenu::buildFigures() {
    auto* box = new QWidget(this);
    auto* lay = new QHBoxLayout(box);
    lay->setContentsMargins(0, 0, 0, 0);
    lay->setSpacing(12);

    auto rows = [this](QGroupBox* g, auto& names) {
        auto* v = new QVBoxLayout(g);
        v->setSpacing(2);
        for (const char* name : names) {
            auto* row = new FigureRow(name, g);
            figures_[name] = row;
            v->addWidget(row);
        }
        v->addStretch(1);
        return v;
    };

    auto* club = panel("Club", box);
    rows(club, kClubRows);
    figures_["lblStadium"]->setPlainValue();
    lay->addWidget(club, 1);

    auto* staff = panel("Staff", box);
    rows(staff, kStaffRows);
    lay->addWidget(staff, 1);

    auto* money = panel("Finances, last week", box);
    rows(money, kMoneyRows);
    lay->addWidget(money, 1);
    return box;
}

QWidget* MainMenu::buildChoices() {
    auto* g = panel("This week's choices", this);
    auto* form = new QFormLayout(g);
    form->setVerticalSpacing(8);
    for (const ChoiceDef& c : kChoices) {
        auto* combo = new QComboBox(g);
        combo->setObjectName(c.control);
        combo->setMinimumWidth(340);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        boxes_[c.which] = combo;
        needClub_.push_back(combo);
        const WeeklyChoice which = c.which;
        connect(combo, &QComboBox::currentIndexChanged, this, [this, which](int index) {
            const auto& lines = boxLines_[which];
            if (index >= 0 && size_t(index) < lines.size()) controller_.chooseWeekly(which, lines[size_t(index)]);
        });
        form->addRow(c.caption, combo);
    }
    // The works under way, which decide whether a box may change.
    auto* worksHead = new QLabel("Works under way", g);
    worksHead->setStyleSheet("font-weight: bold; margin-top: 6px;");
    form->addRow(worksHead);
    for (const WorksBox& w : kWorks) {
        auto* edit = new QLineEdit(g);
        edit->setObjectName(w.control);
        edit->setReadOnly(true);
        edit->setFocusPolicy(Qt::NoFocus);
        works_[w.control] = edit;
        form->addRow(w.caption, edit);
    }
    return g;
}

QWidget* MainMenu::buildButtons() {
    auto* g = panel("Screens", this);
    auto* grid = new QGridLayout(g);
    grid->setSpacing(6);
    int i = 0;
    for (const ScreenButton& b : kScreenButtons) {
        auto* button = makeButton(b.control, b.caption, g);
        const QString target = b.opens;
        if (target.isEmpty()) {
            markComingSoon(button, b.coming);
        } else {
            connect(button, &QPushButton::clicked, this, [this, target] { emit navigate(target); });
            if (b.needsClub) needClub_.push_back(button);
        }
        grid->addWidget(button, i / 3, i % 3);
        ++i;
    }
    return g;
}

void MainMenu::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
    if (!hasClubs) {
        // Captions alone, so the empty menu still reads as one.
        for (const MenuLabel& l : mainMenuLabels(Club{}, controller_.session().Game)) {
            if (auto f = figures_.find(l.control); f != figures_.end()) f->second->setTexts(qs(l.caption), "");
            if (auto w = works_.find(l.control); w != works_.end()) w->second->clear();
        }
        for (auto& [which, combo] : boxes_) {
            const QSignalBlocker block(combo);
            combo->clear();
            boxLines_[which].clear();
        }
        clubHeading_->clear();
    }
}

void MainMenu::fillClub() {
    Session& s = controller_.session();
    Club* club = s.current();
    if (!club) return;
    const WeeklyChoices choices = fillWeeklyChoices(*club);
    for (const MenuLabel& l : mainMenuLabels(*club, s.Game)) {
        if (auto f = figures_.find(l.control); f != figures_.end()) f->second->setTexts(qs(l.caption), qs(l.value));
        if (auto w = works_.find(l.control); w != works_.end()) w->second->setText(qs(l.value));
    }
    for (const ChoiceDef& c : kChoices) {
        QComboBox* combo = boxes_[c.which];
        const ChoiceBox& box = choices.box(c.which);
        const QSignalBlocker block(combo);
        combo->clear();
        for (const std::string& line : box.lines) combo->addItem(qs(line));
        combo->setCurrentIndex(box.chosen);
        combo->setEnabled(box.enabled);
        boxLines_[c.which] = box.lines;
    }
    // The colours without the "- " that opens them in the Squadsheet.
    QString heading = qs(trim(kitColourName(*club)));
    if (!club->LeagueNumber.empty()) heading = qs("League " + club->LeagueNumber) + (heading.isEmpty() ? "" : "   ·   " + heading);
    clubHeading_->setText(heading);
}

void MainMenu::showPictures() {
    const ClubView& v = controller_.view();
    auto show = [](QLabel* label, const std::string& file, QPixmap builtin) {
        QPixmap pm;
        if (!file.empty()) pm.load(qpath(file));
        if (pm.isNull()) pm = std::move(builtin);
        label->setPixmap(pm.scaled(label->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    };
    show(badgeImage_, v.BadgeFile, builtinBadge(96));
    show(shirtImage_, v.ShirtFile, builtinShirt(96));
}

void MainMenu::pickPicture(SessionController::Picture which) {
    const bool badge = which == SessionController::Picture::Badge;
    const QString file = pickFile_(qs(badge ? kBadgeDialogTitle : kShirtDialogTitle),
                                   qpath(controller_.session().Folder.root()), dialogFilter(kPictureFilter));
    if (file.isEmpty()) return;
    controller_.changePicture(which, nativePath(file));
}

}  // namespace kestrin::ui
