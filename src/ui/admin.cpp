#include "ui/admin.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "orders/orderresult.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

using F = AdminField;

constexpr const char* kFieldNames[] = {
    "SSR_Pos",   "SSR_Int",  "SSR_Sign",   "SSR_Skill",  "SSR_Min",   "SSR_Max",    "SCM_Team",
    "SSS_Best",  "SSS_Score", "SSS_Player", "TR_Team",   "TR_Player", "SP_Player",  "SP_Points",
    "LPO_Player", "LPO_Club", "LPO_Weeks",  "FTD_Dept",  "FSC_Player", "FSC_Increase", "FSC_Decrease",
    "FPC_Player", "FPC_To",   "DS_Swap",    "CP_Position", "CP_Name", "CP_Nation"};

// A control array's entries are named by their index, as the option buttons are.
QString controlName(AdminSlot s) {
    const QString name = kFieldNames[size_t(s.field)];
    const bool array = s.field == F::SSR_Skill || s.field == F::SSR_Min || s.field == F::SSR_Max ||
                       s.field == F::FSC_Decrease;
    return array ? name + QString::number(s.row) : name;
}

void fill(QComboBox* box, const std::vector<std::string>& items) {
    const QSignalBlocker block(box);
    box->clear();
    for (const std::string& i : items) box->addItem(qs(i));
    box->setCurrentIndex(-1);
}

// Room for the longest sentence of the checks, so none is cut.
QLabel* helpLabel(const char* name, int lines, QWidget* parent) {
    auto* l = new QLabel(parent);
    l->setObjectName(name);
    l->setWordWrap(true);
    l->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    l->setMinimumHeight(l->fontMetrics().lineSpacing() * lines + 4);
    l->setStyleSheet("color: #2c4a6b;");
    return l;
}

QLabel* caption(const char* text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setStyleSheet("color: #4a5a6b;");
    return l;
}

// The options in three columns; the scout report and the skill change are the tall ones.
constexpr std::array<std::array<int, 6>, 3> kColumns = {{
    {0, 1, 2, -1, -1, -1},
    {3, 4, 5, 6, 9, -1},
    {7, 8, 10, 11, 12, 13},
}};

constexpr const char* kCardLook =
    "QFrame#adminCard { background: rgba(255, 255, 255, 215); border: 1px solid #c3ccd6; border-radius: 6px; }";

// Filling the controls must not store anything: the busy flag is up meanwhile.
struct Busy {
    bool& flag;
    bool was;
    explicit Busy(bool& f) : flag(f), was(f) { flag = true; }
    ~Busy() { flag = was; }
};

}  // namespace

AdminScreen::AdminScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "Admin", "Weekly Administration", parent),
      optAdmin_(new QButtonGroup(this)),
      pointsLeft_(helpLabel("SSR_PointsLeft", 2, this)),
      ftdCaption_(helpLabel("FTD_Caption", 1, this)),
      physioValue_(helpLabel("lblPhysioValue", 1, this)),
      fpcHelp_(helpLabel("FPC_Help", 1, this)),
      fscHelp_(helpLabel("FSC_Help", 4, this)) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);

    auto* header = headerRow("Weekly Administration");
    header->addStretch(1);
    root->addLayout(header);
    // The club changes only once the controls are in the record of the club they show.
    disconnect(teamList(), SIGNAL(currentIndexChanged(int)), this, nullptr);
    connect(teamList(), &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        createLine();
        controller_.selectClub(index);
    });

    auto* page = new QWidget;
    page->setObjectName("adminPage");
    page->setStyleSheet(QString("QWidget#adminPage { background: transparent; } ") + kCardLook);
    auto* columns = new QHBoxLayout(page);
    columns->setContentsMargins(0, 0, 6, 0);
    columns->setSpacing(10);
    optAdmin_->setExclusive(true);
    for (const auto& column : kColumns) {
        auto* c = new QVBoxLayout;
        c->setSpacing(8);
        for (int option : column)
            if (option >= 0) card(option, c);
        c->addStretch(1);
        columns->addLayout(c, 1);
    }
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->viewport()->setAutoFillBackground(false);
    scroll->setStyleSheet("QScrollArea { background: transparent; }");
    root->addWidget(scroll, 1);

    connect(optAdmin_, &QButtonGroup::idClicked, this, [this](int id) {
        selectOption(id);
        if (filling()) return;
        if (id == 10) refuse(checkCreatePlayer(*controller_.session().current()));
    });
    for (int i = 0; i < 2; ++i)
        connect(sssOpt_[size_t(i)], &QRadioButton::toggled, this, [this](bool on) {
            if (on && !filling()) selectOption(2);
        });

    auto* footer = new QHBoxLayout;
    auto* save = makeButton("btnSaveAdmin", "Save Admin to File", this);
    auto* email = makeButton("btnEmailAdmin", "E-mail Admin", this);
    auto* back = makeButton("BtnReturnToMain", "Main Menu", this);
    connect(save, &QPushButton::clicked, this, [this] {
        createLine();
        saveAdminText(controller_.session(), controller_.messages());
    });
    connect(email, &QPushButton::clicked, this, [this] {
        createLine();
        controller_.sendAdmin();
    });
    connect(back, &QPushButton::clicked, this, [this] {
        createLine();
        emit navigate("MainMenu");
    });
    footer->addStretch(1);
    footer->addWidget(save);
    footer->addWidget(email);
    footer->addSpacing(24);
    footer->addWidget(back);
    root->addLayout(footer);
    needClub_.insert(needClub_.end(), {page, save, email});

    showForm(emptyAdminForm());
    enableForClubs(false);
}

QComboBox* AdminScreen::combo(AdminField field, size_t row, QWidget* parent) {
    auto* box = new QComboBox(parent);
    const AdminSlot slot{field, row};
    box->setObjectName(controlName(slot));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(6);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    controls_[slot] = box;
    connect(box, &QComboBox::currentIndexChanged, this, [this, slot] { changed(slot); });
    return box;
}

QWidget* AdminScreen::card(int option, QVBoxLayout* column) {
    auto* frame = new QFrame;
    frame->setObjectName("adminCard");
    auto* lay = new QVBoxLayout(frame);
    lay->setContentsMargins(10, 6, 10, 8);
    lay->setSpacing(4);
    auto* button = new QRadioButton(qs(kAdminOptions[size_t(option)].caption), frame);
    button->setObjectName("optAdmin" + QString::number(option));
    optAdmin_->addButton(button, option);
    options_[size_t(option)] = button;
    lay->addWidget(button);

    auto* grid = new QGridLayout;
    grid->setContentsMargins(20, 0, 0, 0);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(3);
    lay->addLayout(grid);
    int row = 0;
    auto add = [&](const char* text, QWidget* w) {
        grid->addWidget(caption(text, frame), row, 0);
        grid->addWidget(w, row++, 1, 1, 3);
    };
    auto list = [&](AdminField f, const std::vector<std::string>& items) {
        QComboBox* box = combo(f, 0, frame);
        fill(box, items);
        return box;
    };
    auto edit = [&](AdminField f) {
        auto* e = new QLineEdit(frame);
        const AdminSlot slot{f, 0};
        e->setObjectName(controlName(slot));
        e->setMaxLength(80);
        controls_[slot] = e;
        connect(e, &QLineEdit::textChanged, this, [this, slot] { changed(slot); });
        return e;
    };
    auto wide = [&](QWidget* w) { grid->addWidget(w, row++, 0, 1, 4); };

    switch (option) {
        case 0: {
            add("Position", list(F::SSR_Pos, kAdminScoutPositions));
            add("International", list(F::SSR_Int, kAdminInternational));
            add("Minimum signing", list(F::SSR_Sign, kAdminSigning));
            grid->addWidget(caption("Skill", frame), row, 1);
            grid->addWidget(caption("Min", frame), row, 2);
            grid->addWidget(caption("Max", frame), row++, 3);
            for (size_t r = 0; r < 6; ++r) {
                grid->addWidget(caption(qPrintable(QString::number(r + 1)), frame), row, 0, Qt::AlignRight);
                fill(combo(F::SSR_Skill, r, frame), kAdminScoutSkills);
                fill(combo(F::SSR_Min, r, frame), kAdminSkillValues);
                fill(combo(F::SSR_Max, r, frame), kAdminSkillValues);
                grid->addWidget(control(F::SSR_Skill, r), row, 1);
                grid->addWidget(control(F::SSR_Min, r), row, 2);
                grid->addWidget(control(F::SSR_Max, r), row++, 3);
            }
            grid->setColumnStretch(1, 3);
            grid->setColumnStretch(2, 1);
            grid->setColumnStretch(3, 1);
            wide(pointsLeft_);
            break;
        }
        case 1: add("Club", list(F::SCM_Team, {})); break;
        case 2: {
            sssOpt_[0] = new QRadioButton("Give me the score in ", frame);
            sssOpt_[1] = new QRadioButton("Which player in my team has the highest", frame);
            auto* modes = new QButtonGroup(frame);  // apart from optAdmin
            for (int i = 0; i < 2; ++i) {
                sssOpt_[size_t(i)]->setObjectName("SSS_Opt" + QString::number(i));
                modes->addButton(sssOpt_[size_t(i)], i);
            }
            wide(sssOpt_[0]);
            add("Skill", list(F::SSS_Score, kAdminHiddenSkills));
            add("Player", list(F::SSS_Player, {}));
            wide(sssOpt_[1]);
            add("Skill", list(F::SSS_Best, kAdminHiddenSkills));
            break;
        }
        case 3:
            add("Club", list(F::TR_Team, {}));
            add("Player", list(F::TR_Player, {}));
            break;
        case 4:
            add("Player", list(F::SP_Player, {}));
            add("Points", list(F::SP_Points, kAdminPhysioPoints));
            wide(physioValue_);
            break;
        case 5:
            add("Player", list(F::LPO_Player, {}));
            add("To club", list(F::LPO_Club, {}));
            add("Weeks", list(F::LPO_Weeks, kAdminLoanWeeks));
            break;
        case 6:
            add("Department", list(F::FTD_Dept, kAdminDepartments));
            wide(ftdCaption_);
            break;
        case 7:
            add("Player", list(F::FSC_Player, {}));
            add("Increase", list(F::FSC_Increase, {}));
            for (size_t r = 0; r < 3; ++r) {
                grid->addWidget(caption(r == 0 ? "Decrease" : "", frame), row, 0);
                grid->addWidget(combo(F::FSC_Decrease, r, frame), row++, 1, 1, 3);
            }
            wide(fscHelp_);
            break;
        case 8:
            add("Player", list(F::FPC_Player, {}));
            add("To", list(F::FPC_To, {}));
            wide(fpcHelp_);
            break;
        case 9: add("Department", list(F::DS_Swap, kAdminDepartments)); break;
        case 10:
            add("Position", list(F::CP_Position, kAdminCreatePositions));
            add("Name", edit(F::CP_Name));
            add("Nationality", edit(F::CP_Nation));
            break;
        default: break;  // asked for by the button alone
    }
    if (row == 0) grid->setContentsMargins(0, 0, 0, 0);
    column->addWidget(frame);
    return frame;
}

QComboBox* AdminScreen::comboOf(AdminField field, size_t row) const {
    return qobject_cast<QComboBox*>(control(field, row));
}

std::string AdminScreen::textOf(AdminField field, size_t row) const {
    QWidget* w = control(field, row);
    if (auto* box = qobject_cast<QComboBox*>(w)) return gameText(box->currentText());
    return gameText(static_cast<QLineEdit*>(w)->text());
}

void AdminScreen::setText(AdminField field, const std::string& text, size_t row) {
    QWidget* w = control(field, row);
    if (auto* e = qobject_cast<QLineEdit*>(w)) {
        e->setText(qs(text));
        return;
    }
    auto* box = static_cast<QComboBox*>(w);
    if (text.empty()) {
        box->setCurrentIndex(-1);
        return;
    }
    int at = box->findText(qs(text), Qt::MatchExactly);
    // A record's entry no longer offered stays as it was written.
    if (at < 0) {
        box->addItem(qs(text));
        at = box->count() - 1;
    }
    box->setCurrentIndex(at);
}

AdminForm AdminScreen::form() const {
    AdminForm f;
    f.option = std::max(0, option());
    f.sssMode = sssOpt_[0]->isChecked();
    for (const AdminSlot& s : adminSlots()) f.texts[s] = textOf(s.field, s.row);
    return f;
}

bool AdminScreen::filling() const {
    const Session& s = controller_.session();
    return s.FillingScreen || !s.current();
}

void AdminScreen::createLine() { createAdminLine(controller_.session(), form(), controller_.messages()); }

void AdminScreen::hideEvent(QHideEvent* event) {
    if (controller_.hasClubs()) createLine();
    Screen::hideEvent(event);
}

void AdminScreen::chooseOption(int option) { options_[size_t(option)]->click(); }

void AdminScreen::selectOption(int option) {
    options_[size_t(option)]->setChecked(true);
    for (QRadioButton* b : options_)
        b->setStyleSheet(b->isChecked() ? "QRadioButton { color: #d00000; font-weight: bold; }" : "");
}

void AdminScreen::refuse(const OrderResult& result) {
    if (result) return;
    controller_.messages().refuse(result.title, result.text);
    selectOption(0);
}

void AdminScreen::changed(AdminSlot slot) {
    if (filling()) return;
    const int before = option();
    selectOption(adminOptionOf(slot.field));
    const Club& club = *controller_.session().current();
    // Choosing Create Player through its controls is a choice of it too.
    if (option() == 10 && before != 10) refuse(checkCreatePlayer(club));
    switch (slot.field) {
        case F::SSR_Pos: case F::SSR_Int: case F::SSR_Sign: case F::SSR_Skill: case F::SSR_Min: case F::SSR_Max:
            showScoutPoints();
            break;
        case F::TR_Team: refillTradePlayers(); break;
        case F::FTD_Dept: {
            const OrderResult r = checkFastTrack(club, textOf(F::FTD_Dept));
            ftdCaption_->setText(qs(r.line));
            refuse(r);
            break;
        }
        case F::SP_Points: {
            const OrderResult r = checkSpecialPhysio(club, textOf(F::SP_Points));
            physioValue_->setText(qs(r.line));
            refuse(r);
            break;
        }
        case F::FSC_Player:
            refillForcedSkills();
            fscHelp_->setText(qs(kForcedSkillHelp));
            break;
        case F::FSC_Increase: case F::FSC_Decrease: showForcedSkillCheck(); break;
        case F::FPC_Player:
            refillForcedPositions();
            fpcHelp_->clear();
            break;
        case F::FPC_To: showForcedPositionHelp(); break;
        default: break;
    }
}

void AdminScreen::refillTradePlayers() {
    std::vector<std::string> lines;
    const std::string team = textOf(F::TR_Team);
    for (const ExportClub& c : controller_.session().ExportClubs)
        if (c.Name == team) lines = exportPlayerLines(c);
    fill(comboOf(F::TR_Player), lines);
}

void AdminScreen::refillForcedSkills() {
    const Club* club = controller_.session().current();
    const std::string player = textOf(F::FSC_Player);
    ForcedSkillLists lists;
    if (club && !player.empty()) lists = forcedSkillLists(rowPlayer(*club, player));
    fill(comboOf(F::FSC_Increase), lists.increase);
    for (size_t r = 0; r < 3; ++r) fill(comboOf(F::FSC_Decrease, r), lists.decrease);
    if (player.empty()) return;
    const QSignalBlocker block(comboOf(F::FSC_Increase));
    comboOf(F::FSC_Increase)->setCurrentIndex(0);
    for (size_t r = 0; r < 3; ++r) {
        const QSignalBlocker b(comboOf(F::FSC_Decrease, r));
        comboOf(F::FSC_Decrease, r)->setCurrentIndex(0);
    }
}

void AdminScreen::refillForcedPositions() {
    const Club* club = controller_.session().current();
    const std::string player = textOf(F::FPC_Player);
    std::vector<std::string> to;
    if (club && !player.empty()) to = forcedPositions(rowPlayer(*club, player).Position);
    fill(comboOf(F::FPC_To), to);
}

void AdminScreen::showScoutPoints() {
    const Club* club = controller_.session().current();
    AdminForm f = form();
    f.option = 0;
    pointsLeft_->setText(club ? qs(scoutPointsText(club->Scout, adminRecordOf(AdminRecord(), f))) : QString());
}

void AdminScreen::showForcedSkillCheck() {
    const Club* club = controller_.session().current();
    const std::string player = textOf(F::FSC_Player);
    if (!club || player.empty()) {
        fscHelp_->clear();
        return;
    }
    const std::array<std::string, 3> dec{textOf(F::FSC_Decrease, 0), textOf(F::FSC_Decrease, 1),
                                         textOf(F::FSC_Decrease, 2)};
    fscHelp_->setText(qs(forcedSkillCheck(textOf(F::FSC_Increase), dec, rowPlayer(*club, player).Sign)));
}

void AdminScreen::showForcedPositionHelp() {
    const Club* club = controller_.session().current();
    const std::string player = textOf(F::FPC_Player), to = textOf(F::FPC_To);
    fpcHelp_->setText(club && !player.empty() && !to.empty() ? qs(forcedPositionHelp(rowPlayer(*club, player), to))
                                                             : QString());
}

void AdminScreen::showForm(const AdminForm& f) {
    Busy busy(controller_.session().FillingScreen);
    for (const AdminSlot& s : adminSlots()) {
        setText(s.field, f.text(s.field, s.row), s.row);
        // A list that hangs on another is refilled once that one is set.
        if (s.field == F::TR_Team) refillTradePlayers();
        if (s.field == F::FSC_Player) refillForcedSkills();
        if (s.field == F::FPC_Player) refillForcedPositions();
    }
    sssOpt_[f.sssMode ? 0 : 1]->setChecked(true);
    selectOption(f.option);

    const Club* club = controller_.session().current();
    showScoutPoints();
    showForcedPositionHelp();
    if (f.text(F::FSC_Increase).empty())
        fscHelp_->setText(f.text(F::FSC_Player).empty() ? QString() : qs(kForcedSkillHelp));
    else
        showForcedSkillCheck();
    // The money captions of an entry the club can still afford.
    ftdCaption_->clear();
    physioValue_->clear();
    if (club && !f.text(F::FTD_Dept).empty()) ftdCaption_->setText(qs(checkFastTrack(*club, f.text(F::FTD_Dept)).line));
    if (club && !f.text(F::SP_Points).empty())
        physioValue_->setText(qs(checkSpecialPhysio(*club, f.text(F::SP_Points)).line));
}

void AdminScreen::sessionLoaded() {
    Screen::sessionLoaded();
    std::vector<std::string> clubs;
    for (const ExportClub& c : controller_.session().ExportClubs) clubs.emplace_back(c.Name);
    for (AdminField f : {F::SCM_Team, F::TR_Team, F::LPO_Club}) fill(comboOf(f), clubs);
}

void AdminScreen::fillClub() {
    const Club* club = controller_.session().current();
    const AdminPlayerLists lists = club ? adminPlayerLists(*club) : AdminPlayerLists{};
    fill(comboOf(F::SSS_Player), lists.all);
    fill(comboOf(F::FSC_Player), lists.all);
    fill(comboOf(F::SP_Player), lists.injured);
    fill(comboOf(F::LPO_Player), lists.loanable);
    fill(comboOf(F::FPC_Player), lists.outfield);
}

void AdminScreen::rebuildOrderLists() {
    showForm(adminFormOfClub(controller_.session(), controller_.messages()));
}

void AdminScreen::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
    if (!hasClubs) showForm(emptyAdminForm());
}

}  // namespace kestrin::ui
