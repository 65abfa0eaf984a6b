#include "ui/lastweek.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/errors.h"
#include "core/loader.h"
#include "ui/look.h"
#include "ui/qtext.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

namespace {

// Where each box of kLastWeekBoxes stands. The scouting and results lines are
// columns of figures, so they keep a fixed-pitch font and their line breaks.
struct BoxPlace {
    const char* caption;
    bool columns;
    int row, column, rowSpan, columnSpan;
};
constexpr std::array<BoxPlace, kLastWeekBoxes.size()> kPlaces = {{
    {"Coaching", false, 0, 0, 1, 1},
    {"Physio", false, 0, 1, 1, 1},
    {"Injuries", false, 0, 2, 1, 1},
    {"Scouting", true, 1, 0, 1, 3},
    {"Results", true, 2, 0, 2, 1},
    {"First team coach", false, 2, 1, 1, 2},
    {"Other", false, 3, 1, 1, 2},
}};
// The results column is as wide as a report line; the others share the rest.
constexpr int kColumnStretch[] = {4, 3, 3};
constexpr int kRowStretch[] = {2, 3, 2, 4};

}  // namespace

LastWeekScreen::LastWeekScreen(SessionController& controller, QWidget* parent)
    : Screen(controller, "LastWk", "Last Week", parent) {
    auto* root = new QVBoxLayout(this);
    root->setContentsMargins(18, 12, 18, 12);
    root->setSpacing(8);

    auto* header = headerRow("Last week");
    header->addStretch(1);
    auto* back = makeButton("btnReturn", "Main Menu", this);
    connect(back, &QPushButton::clicked, this, [this] { emit navigate("MainMenu"); });
    header->addWidget(back);
    root->addLayout(header);

    auto* grid = new QGridLayout;
    grid->setSpacing(10);
    for (size_t i = 0; i < kPlaces.size(); ++i) {
        const BoxPlace& p = kPlaces[i];
        auto* group = new QGroupBox(p.caption, this);
        auto* lay = new QVBoxLayout(group);
        lay->setContentsMargins(6, 4, 6, 6);
        auto* box = new QPlainTextEdit(group);
        box->setObjectName(kLastWeekBoxes[i]);
        box->setReadOnly(true);
        box->setPlaceholderText("Nothing in last week's report");
        if (p.columns) {
            box->setFont(fixedFont(-1));
            box->setLineWrapMode(QPlainTextEdit::NoWrap);
        } else {
            box->setLineWrapMode(QPlainTextEdit::WidgetWidth);
        }
        lay->addWidget(box);
        boxes_[i] = box;
        grid->addWidget(group, p.row, p.column, p.rowSpan, p.columnSpan);
    }
    for (int c = 0; c < 3; ++c) grid->setColumnStretch(c, kColumnStretch[c]);
    for (int r = 0; r < 4; ++r) grid->setRowStretch(r, kRowStretch[r]);
    root->addLayout(grid, 1);

    problem_ = new QLabel(this);
    problem_->setObjectName("lblReportProblem");
    problem_->setWordWrap(true);
    problem_->hide();
    root->addWidget(problem_);
    enableForClubs(false);
}

void LastWeekScreen::enableForClubs(bool hasClubs) {
    Screen::enableForClubs(hasClubs);
    if (!hasClubs) {
        for (QPlainTextEdit* b : boxes_) b->clear();
        problem_->hide();
    }
}

void LastWeekScreen::fill() {
    const Session& session = controller_.session();
    const Club* club = session.current();
    LastWeekBoxes texts;
    problem_->hide();
    if (club) {
        try {
            texts = lastWeekBoxes(session, *club);
        } catch (const GameFileError& e) {
            problem_->setText(qs(unreadableFileText("Squadsheet", e,
                                                    "Last week's report can't be shown. Load the turn's archives "
                                                    "again to restore the file.")));
            problem_->show();
        }
    }
    for (size_t i = 0; i < boxes_.size(); ++i) {
        QString text = qs(texts[i]);
        if (text.endsWith('\n')) text.chop(1);
        // Refilled after every order: an unchanged box keeps its scroll place.
        if (boxes_[i]->toPlainText() != text) boxes_[i]->setPlainText(text);
    }
}

}  // namespace kestrin::ui
