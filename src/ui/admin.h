#pragma once
// Admin: the week's one special order per club, chosen from the fourteen
// options, each with its controls beside its button. The controls are the
// club's record in adm.kst: written when the screen is left, the club
// changes or the text is built, and put back whenever the club is shown.
#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>
#include <array>
#include <map>

#include "orders/admin.h"
#include "ui/screen.h"

class QComboBox;
class QGridLayout;
class QVBoxLayout;

namespace kestrin::ui {

class AdminScreen : public Screen {
    Q_OBJECT
public:
    explicit AdminScreen(SessionController& controller, QWidget* parent = nullptr);

    void sessionLoaded() override;
    void fillClub() override;
    // The record of the club is put back.
    void rebuildOrderLists() override;

    int option() const { return optAdmin_->checkedId(); }
    // What the controls hold, as game text.
    AdminForm form() const;
    // CreateLine: the selected option's fields into the club's record.
    void createLine();
    // Chooses an option as a click on its button does.
    void chooseOption(int option);

protected:
    void enableForClubs(bool hasClubs) override;
    // Leaving the screen by any way, closing the program too, keeps the order.
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* card(int option, QVBoxLayout* column);
    QComboBox* combo(AdminField field, size_t row, QWidget* parent);
    QWidget* control(AdminField field, size_t row = 0) const { return controls_.at({field, row}); }
    QComboBox* comboOf(AdminField field, size_t row = 0) const;
    std::string textOf(AdminField field, size_t row = 0) const;
    void setText(AdminField field, const std::string& text, size_t row = 0);

    bool filling() const;
    void selectOption(int option);
    void changed(AdminSlot slot);
    void refuse(const OrderResult& result);
    void showForm(const AdminForm& form);
    void refillTradePlayers();
    void refillForcedSkills();
    void refillForcedPositions();
    void showScoutPoints();
    void showForcedSkillCheck();
    void showForcedPositionHelp();

    QButtonGroup* optAdmin_;
    std::array<QRadioButton*, 14> options_{};
    std::array<QRadioButton*, 2> sssOpt_{};
    std::map<AdminSlot, QWidget*> controls_;
    QLabel* pointsLeft_;
    QLabel* ftdCaption_;
    QLabel* physioValue_;
    QLabel* fpcHelp_;
    QLabel* fscHelp_;
    std::vector<QWidget*> needClub_;
};

}  // namespace kestrin::ui
