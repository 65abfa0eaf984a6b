#pragma once
// Fixt: the match orders of each of next week's fixtures. Every control is a
// line of the fixture control table in the logic; the screen shows the
// entries the logic offers and hands back the one the manager picks.
//
// Fixt and PitchGrid both show the current fixture and both hold a
// lstFixtures; FixtureScreen is what they share.
#include <QComboBox>
#include <QListWidget>
#include <array>
#include <functional>
#include <vector>

#include "match/fixtureorders.h"
#include "ui/screen.h"

namespace kestrin::ui {

class FixtureScreen : public Screen {
    Q_OBJECT
public:
    FixtureScreen(SessionController& controller, const QString& name, const QString& title, QWidget* parent);

    QListWidget* fixtureList() const { return lstFixtures_; }

    void fillClub() override {}
    // ShowFixtureList, then the current fixture.
    void rebuildOrderLists() override;
    // Brings every control of this screen up to date with the current fixture.
    virtual void showFixture() = 0;
    // The current fixture was given an order on another screen.
    virtual void fixtureOrderChanged(FixtureControl) {}

    // The fixture on show; nullptr when the club has none.
    Fixture* currentFixture() const;
    Club* currentClub() const;

protected:
    // Opening the screen shows the current fixture again, so both lists
    // stand on CurrentFixture whichever way the manager came.
    void showEvent(QShowEvent* event) override;
    void enableForClubs(bool hasClubs) override;
    // Every order taken on these screens marks the turn changed.
    void markTurnChanged();
    bool filling() const;
    // The other fixture screens of the window.
    std::vector<FixtureScreen*> fixtureScreens() const;

private:
    void showFixtureList();

    QListWidget* lstFixtures_;
};

// The manager picks fixture `number` (from 1) on either screen: it becomes
// CurrentFixture and both screens show it.
void chooseFixture(SessionController& controller, int number);

class FixtScreen : public FixtureScreen {
    Q_OBJECT
public:
    explicit FixtScreen(SessionController& controller, QWidget* parent = nullptr);

    void showFixture() override;
    // The fixtures, then the saved profiles.
    void rebuildOrderLists() override;
    // RefreshProfiles: cboProfiles lists the profiles of the game folder.
    void refreshProfiles();
    // Asks the manager for a profile's name; empty when he cancels. Tests
    // answer in his place.
    using NamePrompt = std::function<QString()>;
    void setNamePrompt(NamePrompt prompt) { namePrompt_ = std::move(prompt); }
    // The widget of a control: a QComboBox for "cbo…", a QListWidget for "lst…".
    QWidget* control(FixtureControl c) const { return controls_[size_t(c)]; }

protected:
    void enableForClubs(bool hasClubs) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeControl(FixtureControl c, QWidget* parent);
    QWidget* buildTeam();
    QWidget* buildSetPieces();
    QWidget* buildStyle();
    QWidget* buildChanges();
    void picked(FixtureControl c, int entry);
    void showControls(const FixtureView& view);
    QWidget* buildProfiles();
    void addProfileClicked();
    void profileChosen(int index);
    void deleteProfileClicked();

    std::array<QWidget*, kFixtureControlCount> controls_{};
    QComboBox* cboProfiles_ = nullptr;
    NamePrompt namePrompt_;
    std::vector<QWidget*> needClub_;
};

}  // namespace kestrin::ui
