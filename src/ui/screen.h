#pragma once
// The base of every screen: a page of the main window with its own TeamList,
// talking to the one SessionController. A new screen derives from Screen,
// fills itself in fillClub(), refills its order lists in rebuildOrderLists(),
// and is added to the controller and the main window.
#include <QComboBox>
#include <QString>
#include <QWidget>

#include "ui/backdrop.h"

class QHBoxLayout;

namespace kestrin::ui {

class SessionController;

class Screen : public QWidget {
    Q_OBJECT
public:
    // `name` is the control name of the screen ("MainMenu", "SquadScr");
    // `title` ends the window title ("Main Menu").
    Screen(SessionController& controller, const QString& name, const QString& title, QWidget* parent = nullptr);

    QString title() const { return title_; }
    QComboBox* teamList() const { return teamList_; }

    // A whole new session: the club list is refilled and the controls that
    // need a club follow whether there is one.
    virtual void sessionLoaded();
    // Select club made a club current: show it.
    virtual void fillClub() = 0;
    // An order was taken or removed: refill every list of orders.
    virtual void rebuildOrderLists() {}

    // Select club sets every TeamList without starting a selection of its own.
    void showClubIndex(int index);

    // What the screen is painted on (the manager's background option).
    void setBackdrop(Backdrop backdrop);
    const Backdrop& backdrop() const { return backdrop_; }

signals:
    // Asks the main window to show another screen, by its control name.
    void navigate(const QString& screenName);

protected:
    void paintEvent(QPaintEvent* event) override;
    // The row every screen opens with: its heading, then "Club:" and TeamList.
    QHBoxLayout* headerRow(const QString& heading);
    // Switches the controls that need a club on or off; the base does TeamList.
    virtual void enableForClubs(bool hasClubs);

    SessionController& controller_;

private:
    QString title_;
    QComboBox* teamList_;
    Backdrop backdrop_;
};

}  // namespace kestrin::ui
