#pragma once
// AutoTurn: what the computer is to do for all clubs or one of them, and a
// whole turn's orders filled by those rules in one press of Run Auto Turn.
#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <array>
#include <vector>

#include "autoturn/autoturn.h"
#include "ui/backgroundjob.h"
#include "ui/screen.h"

namespace kestrin::ui {

class AutoTurnScreen : public Screen {
    Q_OBJECT
public:
    explicit AutoTurnScreen(SessionController& controller, QWidget* parent = nullptr);

    // TeamList is the screen's own: "All Teams" and every club.
    void sessionLoaded() override;
    // The choices belong to no one club shown elsewhere.
    void fillClub() override {}

    // What a run would be given now.
    AutoTurnOptions options() const;
    const std::vector<PickChoice>& choices() const { return choices_; }
    bool running() const { return job_.running(); }

protected:
    void enableForClubs(bool hasClubs) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* buildSelection();
    QWidget* buildYesNo();
    bool filling() const;
    void showBestBlend();
    void showEntry(int row);
    void pickClicked(int method);
    void formationChosen(const QString& formation);
    void enableSelection();
    void run();
    void finish(Session& worked, bool stopped, const std::string& failure);

    std::vector<PickChoice> choices_;  // one per TeamList entry, kept for the program's life
    QListWidget* teams_;
    QButtonGroup* optPick_;
    QComboBox* pickForm_;
    QLabel* selHelp_;
    std::vector<QWidget*> selection_;  // what optPickTeam No switches off
    // optPickTeam, optAutoPhysio, optAutoWarn, optAutoScout, optAutoCoach
    std::array<QButtonGroup*, 5> yesNo_{};
    QPushButton* go_;
    std::vector<QWidget*> lockedInRun_;  // off while a run is on
    std::vector<QWidget*> needClub_;
    bool filling_ = false;
    BackgroundJob job_;
};

}  // namespace kestrin::ui
