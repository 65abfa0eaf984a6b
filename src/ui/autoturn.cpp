#include "ui/autoturn.h"

#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QProgressDialog>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <functional>
#include <future>
#include <memory>

#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

struct YesNo {
    const char* control;
    const char* caption;
};
constexpr std::array<YesNo, 5> kYesNo = {{{"optPickTeam", "Automatically Pick Team"},
                                          {"optAutoPhysio", "Automatically Apply Physio Points"},
                                          {"optAutoWarn", "Warn me of Contracts / Unhappy Players"},
                                          {"optAutoScout", "Automatically Scout Players"},
                                          {"optAutoCoach", "Automatically Coach Players"}}};

QLabel* helpLabel(const char* name, const std::string& text, QWidget* parent) {
    auto* label = new QLabel(qs(text), parent);
    label->setObjectName(name);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    label->setStyleSheet("color: #2c3e50;");
    return label;
}

// The run's messages, from its worker: each is shown on the interface thread
// by the program's own Messages while the worker waits for the answer.
class PostedMessages : public Messages {
public:
    PostedMessages(BackgroundJob& job, Messages& shown, const std::atomic<bool>& cancel)
        : job_(job), shown_(shown), cancel_(cancel) {}

    void refuse(const std::string& title, const std::string& text) override {
        call([=](Messages& m) {
            m.refuse(title, text);
            return true;
        });
    }
    void warn(const std::string& title, const std::string& text) override {
        call([=](Messages& m) {
            m.warn(title, text);
            return true;
        });
    }
    void inform(const std::string& title, const std::string& text) override {
        call([=](Messages& m) {
            m.inform(title, text);
            return true;
        });
    }
    bool ask(const std::string& title, const std::string& text) override {
        return call([=](Messages& m) { return m.ask(title, text); });
    }
    bool askQuestion(const std::string& title, const std::string& text) override {
        return call([=](Messages& m) { return m.askQuestion(title, text); });
    }

private:
    bool call(std::function<bool(Messages&)> show) {
        auto answer = std::make_shared<std::promise<bool>>();
        std::future<bool> told = answer->get_future();
        job_.post([&shown = shown_, &cancel = cancel_, show = std::move(show), answer] {
            // A cancelled run asks nothing more.
            if (cancel) return answer->set_value(false);
            // The manager is to see that the program waits for him.
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
            const bool yes = show(shown);
            QGuiApplication::restoreOverrideCursor();
            answer->set_value(yes);
        });
        // A run the program stops while a box is due has no one to answer it.
        while (told.wait_for(std::chrono::milliseconds(50)) != std::future_status::ready)
            if (cancel_) return false;
        return told.get();
    }

    BackgroundJob& job_;
    Messages& shown_;
    const std::atomic<bool>& cancel_;
};

}  // namespace

AutoTurnScreen::AutoTurnScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "AutoTurn", "Auto Turn", parent),
      teams_(new QListWidget(this)),
      optPick_(new QButtonGroup(this)),
      pickForm_(new QComboBox(this)),
      selHelp_(helpLabel("lblSelHelp", kAutoTurnSelectHelp, this)),
      go_(makeButton("Go", "Run Auto Turn", this)) {
    // This screen's TeamList holds "All Teams" too and selects no club.
    teamList()->hide();
    teamList()->setObjectName("ClubList");
    teams_->setObjectName("TeamList");

    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(10);
    auto* heading = new QLabel("Auto Turn", this);
    heading->setObjectName("screenHeading");
    root->addWidget(heading);
    root->addWidget(helpLabel("lblHelp", kAutoTurnHelp, this));

    auto* body = new QHBoxLayout;
    body->setSpacing(12);
    body->addWidget(buildSelection(), 5);
    body->addWidget(buildYesNo(), 4);
    root->addLayout(body, 1);

    auto* footer = new QHBoxLayout;
    auto* save = makeButton("Command2", "Save Turnsheet", this);
    auto* send = makeButton("Command3", "Send Turnsheet", this);
    auto* back = makeButton("BtnReturnToMain", "Main Menu", this);
    go_->setStyleSheet("font-weight: bold;");
    connect(go_, &QPushButton::clicked, this, [this] { run(); });
    connect(save, &QPushButton::clicked, this, [this] { controller_.saveTurnsheet(); });
    connect(send, &QPushButton::clicked, this, [this] { controller_.sendTurnsheet(); });
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    footer->addWidget(go_);
    footer->addSpacing(24);
    footer->addWidget(save);
    footer->addWidget(send);
    footer->addStretch(1);
    footer->addWidget(back);
    root->addLayout(footer);
    lockedInRun_ = {back, save, send};
    needClub_ = {go_, save, send};

    // A refresh after a new week's load may make the database appear.
    connect(&controller_, &SessionController::statsRefreshed, this, [this] { showBestBlend(); });
    enableForClubs(false);
}

QWidget* AutoTurnScreen::buildSelection() {
    auto* box = new QWidget(this);
    auto* lay = new QHBoxLayout(box);
    lay->setContentsMargins(0, 0, 0, 0);
    lay->setSpacing(12);

    auto* teams = new QGroupBox("Teams", box);
    teams->setObjectName("fraTeams");
    auto* tl = new QVBoxLayout(teams);
    teams_->setMinimumWidth(240);
    connect(teams_, &QListWidget::currentRowChanged, this, [this](int row) { showEntry(row); });
    tl->addWidget(teams_);
    lay->addWidget(teams, 4);

    auto* pick = new QGroupBox("Team Selection", box);
    pick->setObjectName("fraPick");
    auto* pl = new QVBoxLayout(pick);
    pl->setSpacing(6);
    optPick_->setExclusive(true);
    for (int i = 0; i < int(kPickCaptions.size()); ++i) {
        auto* b = new QRadioButton(qs(kPickCaptions[size_t(i)]), pick);
        b->setObjectName(QString("optPick%1").arg(i));
        b->setChecked(i == 0);
        optPick_->addButton(b, i);
        pl->addWidget(b);
        selection_.push_back(b);
    }
    connect(optPick_, &QButtonGroup::idClicked, this, [this](int id) { pickClicked(id); });
    pl->addSpacing(8);
    pl->addWidget(new QLabel("Formation:", pick));
    pickForm_->setObjectName("PickForm");
    for (const std::string& f : pickFormations()) pickForm_->addItem(qs(f));
    // A choice of the entry already shown counts too (activated), as does a change by keys.
    connect(pickForm_, &QComboBox::activated, this, [this] { formationChosen(pickForm_->currentText()); });
    connect(pickForm_, &QComboBox::currentIndexChanged, this, [this] { formationChosen(pickForm_->currentText()); });
    pl->addWidget(pickForm_);
    pl->addSpacing(8);
    pl->addWidget(selHelp_);
    pl->addStretch(1);
    lay->addWidget(pick, 5);

    for (QWidget* w : {static_cast<QWidget*>(teams), static_cast<QWidget*>(pick), static_cast<QWidget*>(teams_),
                       static_cast<QWidget*>(pickForm_), static_cast<QWidget*>(selHelp_)})
        selection_.push_back(w);
    return box;
}

QWidget* AutoTurnScreen::buildYesNo() {
    auto* box = new QWidget(this);
    auto* lay = new QVBoxLayout(box);
    lay->setContentsMargins(0, 0, 0, 0);
    lay->setSpacing(8);
    for (size_t i = 0; i < kYesNo.size(); ++i) {
        auto* g = new QGroupBox(kYesNo[i].caption, box);
        g->setObjectName(kYesNo[i].control);
        auto* row = new QHBoxLayout(g);
        row->setContentsMargins(8, 0, 8, 0);
        auto* group = new QButtonGroup(this);
        group->setExclusive(true);
        for (int answer = 0; answer < 2; ++answer) {
            auto* b = new QRadioButton(answer == 0 ? "Yes" : "No", g);
            b->setObjectName(kYesNo[i].control + QString::number(answer));
            b->setChecked(answer == 0);
            group->addButton(b, answer);
            row->addWidget(b);
        }
        row->addStretch(1);
        yesNo_[i] = group;
        lay->addWidget(g);
    }
    connect(yesNo_[0], &QButtonGroup::idClicked, this, [this] { enableSelection(); });
    lay->addWidget(helpLabel("LblAdminHelp", kAutoTurnAdminHelp, box));
    lay->addStretch(1);
    return box;
}

bool AutoTurnScreen::filling() const { return filling_ || controller_.session().FillingScreen; }

void AutoTurnScreen::sessionLoaded() {
    Screen::sessionLoaded();
    const Session& s = controller_.session();
    filling_ = true;
    if (choices_.size() != size_t(s.ClubCount()) + 1) choices_.assign(size_t(s.ClubCount()) + 1, PickChoice{});
    teams_->clear();
    for (const std::string& entry : teamListEntries(s)) teams_->addItem(qs(entry));
    teams_->setCurrentRow(0);
    if (QAbstractButton* b = optPick_->button(int(choices_[0].Method))) b->setChecked(true);
    pickForm_->setCurrentText(qs(kAutoPick));
    filling_ = false;
    showBestBlend();
}

void AutoTurnScreen::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    for (QButtonGroup* g : yesNo_)
        for (QAbstractButton* b : g->buttons()) b->setEnabled(hasClubs);
    for (QWidget* w : needClub_) w->setEnabled(hasClubs);
    if (hasClubs) {
        enableSelection();
    } else {
        for (QWidget* w : selection_) w->setEnabled(false);
    }
}

void AutoTurnScreen::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    showBestBlend();
}

void AutoTurnScreen::showBestBlend() {
    const bool there = statsDatabaseExists(controller_.session());
    QAbstractButton* best = optPick_->button(int(PickMethod::BestBlend));
    best->setText(qs(there ? kPickCaptions[size_t(PickMethod::BestBlend)] : kBestBlendNoDatabaseCaption));
    best->setEnabled(there && controller_.hasClubs() && yesNo_[0]->checkedId() == 0);
}

void AutoTurnScreen::showEntry(int row) {
    if (row < 0 || size_t(row) >= choices_.size() || choices_[size_t(row)].Formation.empty()) return;
    const bool was = filling_;
    filling_ = true;
    const PickChoice& c = choices_[size_t(row)];
    if (QAbstractButton* b = optPick_->button(int(c.Method))) b->setChecked(true);
    pickForm_->setCurrentText(qs(c.Formation));
    filling_ = was;
}

void AutoTurnScreen::pickClicked(int method) {
    if (filling()) return;
    const int row = teams_->currentRow();
    if (row < 0 || size_t(row) >= choices_.size()) return;
    if (row == 0)
        for (PickChoice& c : choices_) c.Method = PickMethod(method);
    else
        choices_[size_t(row)].Method = PickMethod(method);
}

void AutoTurnScreen::formationChosen(const QString& formation) {
    if (filling()) return;
    const int row = teams_->currentRow();
    if (row < 0 || size_t(row) >= choices_.size()) return;
    const std::string f = gameText(formation);
    if (row == 0)
        for (PickChoice& c : choices_) c.Formation = f;
    else
        choices_[size_t(row)].Formation = f;
}

void AutoTurnScreen::enableSelection() {
    const bool on = yesNo_[0]->checkedId() == 0;
    for (QWidget* w : selection_) w->setEnabled(on);
    showBestBlend();
}

AutoTurnOptions AutoTurnScreen::options() const {
    AutoTurnOptions o;
    o.Team = std::max(0, teams_->currentRow());
    o.Choices = choices_;
    auto yes = [this](size_t i) { return yesNo_[i]->checkedId() == 0; };
    o.PickTeam = yes(0);
    o.Physio = yes(1);
    o.Warn = yes(2);
    o.Scout = yes(3);
    o.Coach = yes(4);
    return o;
}

void AutoTurnScreen::run() {
    if (job_.running() || !controller_.hasClubs()) return;
    for (QWidget* w : lockedInRun_) w->setEnabled(false);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);

    // The run works on a copy: the screens keep showing whole orders meanwhile.
    auto worked = std::make_shared<Session>(controller_.session());
    auto stopped = std::make_shared<bool>(false);
    auto failure = std::make_shared<std::string>();
    const AutoTurnOptions options = this->options();
    const auto seed = unsigned(std::chrono::system_clock::now().time_since_epoch().count());
    Messages& shown = controller_.messages();
    auto work = [this, worked, stopped, failure, options, seed, &shown](const std::atomic<bool>& cancel) {
        PostedMessages messages(job_, shown, cancel);
        AutoTurnProgress progress;
        progress.cancel = &cancel;
        progress.step = [this](int done, int total, const std::string& club) {
            const QString name = qs(club);
            job_.post([this, done, total, name] { job_.showProgress(done, total, name); });
        };
        try {
            runAutoTurn(*worked, options, messages, defaultRandomSource(seed), progress);
        } catch (const std::exception& e) {
            *failure = e.what();
        }
        *stopped = cancel;
    };
    QWidget* over = window();
    job_.start({"AutoTurnProgress", "Auto Turn", "Running Auto Turn"}, over, std::move(work),
               [this, worked, stopped, failure] { finish(*worked, *stopped, *failure); });
    // Nothing else may change the orders until the run's are put in.
    for (auto* dialog : over->findChildren<QProgressDialog*>("AutoTurnProgress", Qt::FindDirectChildrenOnly))
        if (!dialog->isVisible()) dialog->setWindowModality(Qt::ApplicationModal);
}

void AutoTurnScreen::finish(Session& worked, bool stopped, const std::string& failure) {
    QGuiApplication::restoreOverrideCursor();
    for (QWidget* w : lockedInRun_) w->setEnabled(true);
    Session& s = controller_.session();
    if (!failure.empty()) {
        // A club may be half done: none of the run's orders are kept.
        controller_.messages().refuse("Auto Turn", "Auto Turn stopped: " + failure);
        return;
    }
    // After a cancel the clubs finished keep their orders.
    s.Clubs = std::move(worked.Clubs);
    s.TurnChanged = true;
    controller_.selectClub(std::max(0, teams_->currentRow() - 1));
    controller_.saveTurnsheet();
    if (!stopped)
        controller_.messages().inform(std::string(kAutoTurnCompleteTitle), std::string(kAutoTurnCompleteText));
}

}  // namespace kestrin::ui
