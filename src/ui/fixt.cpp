#include "ui/fixt.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "match/profiles.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

using C = FixtureControl;

// ---- What Fixt and PitchGrid share -------------------------------------------

FixtureScreen::FixtureScreen(SessionController& controller, const QString& name, const QString& title,
                             QWidget* parent)
    : Screen(controller, name, title, parent), lstFixtures_(new QListWidget(this)) {
    lstFixtures_->setObjectName("lstFixtures");
    lstFixtures_->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(lstFixtures_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && !controller_.view().ClubSelecting) chooseFixture(controller_, row + 1);
    });
}

Club* FixtureScreen::currentClub() const { return controller_.session().current(); }

Fixture* FixtureScreen::currentFixture() const {
    Club* club = currentClub();
    const int n = controller_.view().CurrentFixture;
    if (!club || n < 1 || n > int(club->Fixtures.size())) return nullptr;
    return &club->Fixtures[size_t(n - 1)];
}

bool FixtureScreen::filling() const { return controller_.session().FillingScreen; }

void FixtureScreen::markTurnChanged() { controller_.session().TurnChanged = true; }

std::vector<FixtureScreen*> FixtureScreen::fixtureScreens() const {
    std::vector<FixtureScreen*> out;
    for (Screen* s : controller_.screens())
        if (auto* f = dynamic_cast<FixtureScreen*>(s)) out.push_back(f);
    return out;
}

void FixtureScreen::showFixtureList() {
    const QSignalBlocker block(lstFixtures_);
    lstFixtures_->clear();
    Club* club = currentClub();
    if (!club) return;
    for (const std::string& line : fixtureListTexts(*club)) lstFixtures_->addItem(qs(line));
    int& current = controller_.view().CurrentFixture;
    if (lstFixtures_->count() == 0) return;
    if (current < 1 || current > lstFixtures_->count()) current = 1;
    lstFixtures_->setCurrentRow(current - 1);
}

void FixtureScreen::rebuildOrderLists() {
    showFixtureList();
    showFixture();
}

void FixtureScreen::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (currentFixture()) chooseFixture(controller_, controller_.view().CurrentFixture);
}

void FixtureScreen::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    lstFixtures_->setEnabled(hasClubs);
    if (!hasClubs) {
        const QSignalBlocker block(lstFixtures_);
        lstFixtures_->clear();
    }
}

void chooseFixture(SessionController& controller, int number) {
    controller.view().CurrentFixture = number;
    for (Screen* s : controller.screens()) {
        auto* f = dynamic_cast<FixtureScreen*>(s);
        if (!f) continue;
        {
            const QSignalBlocker block(f->fixtureList());
            f->fixtureList()->setCurrentRow(number - 1);
        }
        f->showFixture();
    }
}

// ---- Fixt ----------------------------------------------------------------------

namespace {

QString nameOf(C c) {
    const std::string_view n = fixtureControlInfo(c).Name;
    return QString::fromLatin1(n.data(), qsizetype(n.size()));
}

// The set-piece lists stand as one row of shirt numbers; the style lists as
// short columns side by side.
bool isStrip(C c) { return c >= C::Captain && c <= C::Snappy; }

constexpr int kStripCell = 26;
constexpr int kRowHeight = 22;

const char* const kListLook =
    "QListWidget { background: white; border: 1px solid #a9b6c4; border-radius: 3px; }"
    "QListWidget::item { color: #1d2733; }"
    "QListWidget::item:selected { background: #2c5d8f; color: white; }";

struct Caption {
    C control;
    const char* text;
};
const Caption kSetPieceCaptions[] = {{C::Captain, "Captain"},          {C::Penalty, "Penalties"},
                                     {C::Corners, "Corners"},          {C::FreeKicks, "Free Kicks"},
                                     {C::Aiming, "Corners Aiming"},    {C::Revolver, "Revolver"},
                                     {C::Snappy, "Snappy"}};
const Caption kStyleCaptions[] = {{C::Pace, "Pace"}, {C::Length, "Pass Length"}, {C::Height, "Pass Height"}};
const Caption kAggressionCaptions[] = {{C::DefAgg, "Defence"}, {C::MidAgg, "Midfield"}, {C::AttAgg, "Attack"}};

// One row of the changes during the match: a rule's time (only on its first
// row), what the row orders, and the three choices by the score.
struct ChangeRow {
    const char* rule;
    C time;
    bool showTime;
    const char* what;
    std::array<C, 3> choices;
};
const ChangeRow kChangeRows[] = {
    {"Time To Change One", C::ChangeOneTime, true, "Formation",
     {C::ChangeOneFormationLosing, C::ChangeOneFormationDrawing, C::ChangeOneFormationWinning}},
    {"", C::ChangeOneTime, false, "Tactic",
     {C::ChangeOneTacticLosing, C::ChangeOneTacticDrawing, C::ChangeOneTacticWinning}},
    {"Time To Change Two", C::ChangeTwoTime, true, "Formation",
     {C::ChangeTwoFormationLosing, C::ChangeTwoFormationDrawing, C::ChangeTwoFormationWinning}},
    {"", C::ChangeTwoTime, false, "Tactic",
     {C::ChangeTwoTacticLosing, C::ChangeTwoTacticDrawing, C::ChangeTwoTacticWinning}},
    {"Time For Substitution One", C::SubOneTime, true, "What To Do",
     {C::SubOneActionLosing, C::SubOneActionDrawing, C::SubOneActionWinning}},
    {"Time For Substitution Two", C::SubTwoTime, true, "What To Do",
     {C::SubTwoActionLosing, C::SubTwoActionDrawing, C::SubTwoActionWinning}},
};

QLabel* quiet(const QString& text, QWidget* parent) {
    auto* l = new QLabel(text, parent);
    l->setStyleSheet("color: #4a5a6b;");
    return l;
}

}  // namespace

FixtScreen::FixtScreen(SessionController& controller, QWidget* parent)
    : FixtureScreen(controller, "Fixt", "Fixtures", parent) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 14, 18, 14);
    root->setSpacing(10);

    auto* header = headerRow("Fixtures");
    header->addStretch(1);
    header->addWidget(buildProfiles());
    root->addLayout(header);

    auto* top = new QHBoxLayout;
    top->setSpacing(12);
    auto* left = new QVBoxLayout;
    left->setSpacing(10);
    auto* matches = new QGroupBox("Next week's matches", this);
    auto* ml = new QVBoxLayout(matches);
    fixtureList()->setFixedHeight(3 * 24 + 6);
    fixtureList()->setStyleSheet(kListLook);
    ml->addWidget(fixtureList());
    left->addWidget(matches);
    left->addWidget(buildTeam());
    left->addStretch(1);
    top->addLayout(left, 5);
    top->addWidget(buildSetPieces(), 0, Qt::AlignTop);
    top->addWidget(buildStyle(), 0, Qt::AlignTop);
    root->addLayout(top);
    root->addWidget(buildChanges());
    root->addStretch(1);

    auto* footer = new QHBoxLayout;
    auto* pitch = makeButton("btnPitchGrid", "View Pitch Grid", this);
    auto* save = makeButton("Command2", "Save Turnsheet", this);
    auto* send = makeButton("Command3", "Send Turnsheet", this);
    auto* back = makeButton("btnReturn", "Main Menu", this);
    connect(pitch, &QPushButton::clicked, this, [this] { emit navigate("PitchGrid"); });
    // Saving may have saved each match's own profile too.
    connect(save, &QPushButton::clicked, this, [this] {
        controller_.saveTurnsheet();
        refreshProfiles();
    });
    connect(send, &QPushButton::clicked, this, [this] {
        controller_.sendTurnsheet();
        refreshProfiles();
    });
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    footer->addWidget(pitch);
    footer->addStretch(1);
    footer->addWidget(save);
    footer->addWidget(send);
    footer->addSpacing(24);
    footer->addWidget(back);
    root->addLayout(footer);

    needClub_.insert(needClub_.end(), {pitch, save, send});
    enableForClubs(false);
}

QWidget* FixtScreen::buildProfiles() {
    // One row in the header, so the orders below keep their room.
    auto* w = new QWidget(this);
    auto* row = new QHBoxLayout(w);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    cboProfiles_ = new QComboBox(w);
    cboProfiles_->setObjectName("cboProfiles");
    // A match's own profile is named by club, competition and opponent.
    cboProfiles_->setMinimumWidth(440);
    cboProfiles_->setPlaceholderText("Choose a profile to load");
    cboProfiles_->setToolTip("Put the orders and team of a saved profile on the match on show");
    // Only the manager's own choice loads: refilling the list never does.
    connect(cboProfiles_, &QComboBox::activated, this, [this](int i) { profileChosen(i); });
    auto* add = makeButton("cmdAddProfile", "Save Profile...", w);
    add->setToolTip("Keep the orders and team of the match on show under a name");
    auto* del = makeButton("cmdDelProfiles", "Delete Profile", w);
    connect(add, &QPushButton::clicked, this, [this] { addProfileClicked(); });
    connect(del, &QPushButton::clicked, this, [this] { deleteProfileClicked(); });
    row->addWidget(new QLabel("Profile", w));
    row->addWidget(cboProfiles_);
    row->addWidget(add);
    row->addWidget(del);
    needClub_.insert(needClub_.end(), {cboProfiles_, add, del});
    return w;
}

void FixtScreen::rebuildOrderLists() {
    FixtureScreen::rebuildOrderLists();
    refreshProfiles();
}

void FixtScreen::showEvent(QShowEvent* event) {
    FixtureScreen::showEvent(event);
    refreshProfiles();  // the Turnsheets may have been saved on another screen
}

void FixtScreen::refreshProfiles() {
    const QSignalBlocker block(cboProfiles_);
    const QString shown = cboProfiles_->currentText();
    cboProfiles_->clear();
    for (const std::string& name : profileNames(controller_.session().Folder)) cboProfiles_->addItem(qs(name));
    cboProfiles_->setCurrentIndex(cboProfiles_->findText(shown));
}

void FixtScreen::addProfileClicked() {
    const Fixture* f = currentFixture();
    if (!f) return;
    const QString name = namePrompt_ ? namePrompt_() : QInputDialog::getText(this, qs(kProfileNameTitle),
                                                                             qs(kProfileNamePrompt));
    if (!addProfile(controller_.session(), *f, gameText(name), controller_.messages())) return;
    refreshProfiles();
    const QSignalBlocker block(cboProfiles_);
    cboProfiles_->setCurrentIndex(cboProfiles_->findText(name, Qt::MatchFixedString));
}

void FixtScreen::profileChosen(int index) {
    Fixture* f = currentFixture();
    if (filling() || !f || index < 0) return;
    Session& session = controller_.session();
    switch (loadProfile(session, *f, gameText(cboProfiles_->itemText(index)), controller_.messages())) {
        case ProfileLoad::Loaded: chooseFixture(controller_, controller_.view().CurrentFixture); break;
        // The whole club is shown again, as for any club chosen.
        case ProfileLoad::OldProfile: controller_.selectClub(session.CurrentClub); break;
        case ProfileLoad::Declined:
        case ProfileLoad::Refused: break;
    }
}

void FixtScreen::deleteProfileClicked() {
    const int i = cboProfiles_->currentIndex();
    if (i < 0) return;
    if (deleteProfile(controller_.session().Folder, gameText(cboProfiles_->itemText(i)), controller_.messages()))
        refreshProfiles();
}

QWidget* FixtScreen::makeControl(C c, QWidget* parent) {
    const std::vector<std::string>& entries = controlEntries(c);
    const QString name = nameOf(c);
    if (name.startsWith("cbo")) {
        auto* combo = new QComboBox(parent);
        combo->setObjectName(name);
        for (const std::string& e : entries) combo->addItem(qs(e));
        combo->setCurrentIndex(-1);
        combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        connect(combo, &QComboBox::currentIndexChanged, this, [this, c](int i) { picked(c, i); });
        controls_[size_t(c)] = combo;
        return combo;
    }
    auto* list = new QListWidget(parent);
    list->setObjectName(name);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setStyleSheet(kListLook);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (isStrip(c)) {
        list->setFlow(QListView::LeftToRight);
        list->setWrapping(false);
        for (const std::string& e : entries) {
            auto* item = new QListWidgetItem(qs(e), list);
            item->setTextAlignment(Qt::AlignCenter);
            // "None" needs more room than a shirt number.
            const int w = std::max(kStripCell, list->fontMetrics().horizontalAdvance(qs(e)) + 10);
            item->setSizeHint(QSize(w, kRowHeight));
        }
        int width = 4;
        for (int i = 0; i < list->count(); ++i) width += list->item(i)->sizeHint().width();
        list->setFixedSize(width, kRowHeight + 4);
    } else {
        int width = 0;
        for (const std::string& e : entries) {
            auto* item = new QListWidgetItem(qs(e), list);
            item->setSizeHint(QSize(0, kRowHeight - 2));
            width = std::max(width, list->fontMetrics().horizontalAdvance(qs(e)));
        }
        list->setFixedSize(width + 20, int(entries.size()) * (kRowHeight - 2) + 6);
    }
    connect(list, &QListWidget::currentRowChanged, this, [this, c](int i) { picked(c, i); });
    controls_[size_t(c)] = list;
    return list;
}

QWidget* FixtScreen::buildTeam() {
    auto* g = new QGroupBox("Team", this);
    auto* grid = new QGridLayout(g);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(8);
    grid->addWidget(new QLabel("Formation", g), 0, 0);
    grid->addWidget(makeControl(C::Formation, g), 0, 1, 1, 6, Qt::AlignLeft);
    grid->addWidget(new QLabel("Tactic", g), 1, 0);
    grid->addWidget(makeControl(C::Tactics, g), 1, 1, 1, 6, Qt::AlignLeft);
    grid->addWidget(new QLabel("Aggression", g), 2, 0);
    int col = 1;
    for (const Caption& a : kAggressionCaptions) {
        grid->addWidget(quiet(a.text, g), 2, col++, Qt::AlignRight);
        grid->addWidget(makeControl(a.control, g), 2, col++, Qt::AlignLeft);
    }
    grid->setColumnStretch(7, 1);
    return g;
}

QWidget* FixtScreen::buildSetPieces() {
    auto* g = new QGroupBox("Set pieces (shirt numbers)", this);
    auto* grid = new QGridLayout(g);
    grid->setVerticalSpacing(6);
    grid->setHorizontalSpacing(10);
    int row = 0;
    for (const Caption& s : kSetPieceCaptions) {
        grid->addWidget(new QLabel(s.text, g), row, 0);
        grid->addWidget(makeControl(s.control, g), row, 1, Qt::AlignLeft);
        ++row;
    }
    return g;
}

QWidget* FixtScreen::buildStyle() {
    auto* g = new QGroupBox("Style of play", this);
    auto* grid = new QGridLayout(g);
    grid->setHorizontalSpacing(10);
    int col = 0;
    for (const Caption& s : kStyleCaptions) {
        grid->addWidget(new QLabel(s.text, g), 0, col);
        grid->addWidget(makeControl(s.control, g), 1, col, Qt::AlignTop);
        ++col;
    }
    grid->setRowStretch(2, 1);
    return g;
}

QWidget* FixtScreen::buildChanges() {
    auto* g = new QGroupBox("During the match", this);
    auto* grid = new QGridLayout(g);
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(6);
    const char* heads[] = {"", "Minute", "", "If Losing", "If Drawing", "If Winning"};
    for (int c = 0; c < 6; ++c) {
        auto* h = quiet(heads[c], g);
        h->setStyleSheet("color: #4a5a6b; font-weight: bold;");
        grid->addWidget(h, 0, c);
    }
    int row = 1;
    for (const ChangeRow& r : kChangeRows) {
        if (r.showTime) {
            grid->addWidget(new QLabel(r.rule, g), row, 0);
            grid->addWidget(makeControl(r.time, g), row, 1);
        }
        grid->addWidget(quiet(r.what, g), row, 2);
        for (int k = 0; k < 3; ++k) {
            QWidget* w = makeControl(r.choices[size_t(k)], g);
            static_cast<QComboBox*>(w)->setSizeAdjustPolicy(QComboBox::AdjustToContentsOnFirstShow);
            w->setMinimumWidth(250);
            grid->addWidget(w, row, 3 + k);
        }
        ++row;
    }
    grid->setColumnStretch(3, 1);
    grid->setColumnStretch(4, 1);
    grid->setColumnStretch(5, 1);
    return g;
}

void FixtScreen::enableForClubs(bool hasClubs) {
    FixtureScreen::enableForClubs(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
    if (!hasClubs)
        for (QWidget* w : controls_) w->setEnabled(false);
}

void FixtScreen::showFixture() {
    Fixture* f = currentFixture();
    // A club without fixtures has nothing to order: the controls stay as they
    // stand and are switched off, so nothing can be written.
    for (QWidget* w : controls_) w->setEnabled(f != nullptr);
    if (!f) return;
    showControls(kestrin::showFixture(*f));
}

void FixtScreen::showControls(const FixtureView& view) {
    for (const FixtureControlInfo& info : fixtureControls()) {
        QWidget* w = controls_[size_t(info.Control)];
        const QSignalBlocker block(w);
        const int entry = view.entry(info.Control);
        if (auto* combo = qobject_cast<QComboBox*>(w)) {
            combo->setCurrentIndex(entry);
            // A formation that is no line of the list still shows its numbers.
            combo->setPlaceholderText(entry < 0 ? qs(view.text(info.Control)) : QString());
        } else if (auto* list = qobject_cast<QListWidget*>(w)) {
            list->setCurrentRow(entry);
            if (entry < 0) list->clearSelection();
        }
    }
}

void FixtScreen::picked(C c, int entry) {
    if (filling() || entry < 0) return;
    Fixture* f = currentFixture();
    if (!f) return;
    markTurnChanged();
    chooseEntry(*f, c, entry);
    // A time of "None" has reset its rule: show what the rule holds now.
    showControls(kestrin::showFixture(*f));
    for (FixtureScreen* s : fixtureScreens())
        if (s != this) s->fixtureOrderChanged(c);
}

}  // namespace kestrin::ui
