#pragma once
// MainMenu: the club's figures, the four weekly choices, the club's pictures,
// and a button for every screen.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <map>
#include <vector>

#include "core/clubview.h"
#include "ui/screen.h"
#include "ui/sessioncontroller.h"
#include "ui/widgets.h"

namespace kestrin::ui {

class MainMenu : public Screen {
    Q_OBJECT
public:
    explicit MainMenu(SessionController& controller, QWidget* parent = nullptr);

    void fillClub() override;

    // Asks for a picture file: (title, starting folder, filter) -> path, empty
    // when cancelled. A file dialog unless replaced.
    using FilePicker = std::function<QString(const QString&, const QString&, const QString&)>;
    void setFilePicker(FilePicker picker) { pickFile_ = std::move(picker); }

    QComboBox* choiceBox(WeeklyChoice which) const { return boxes_.at(which); }

protected:
    void enableForClubs(bool hasClubs) override;

private:
    QWidget* buildHeader();
    QWidget* buildFigures();
    QWidget* buildChoices();
    QWidget* buildButtons();
    void showPictures();
    void pickPicture(SessionController::Picture which);

    QLabel* badgeImage_;
    QLabel* shirtImage_;
    QLabel* clubHeading_;
    std::map<std::string, FigureRow*> figures_;
    std::map<std::string, QLineEdit*> works_;
    std::map<WeeklyChoice, QComboBox*> boxes_;
    std::map<WeeklyChoice, std::vector<std::string>> boxLines_;  // the lines as the game words them
    std::vector<QWidget*> needClub_;
    FilePicker pickFile_;
};

}  // namespace kestrin::ui
