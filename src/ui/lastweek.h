#pragma once
// LastWk: what last week's report says of the club on screen, sorted into
// seven boxes by the kind of line.
#include <QLabel>
#include <QPlainTextEdit>
#include <array>

#include "orders/harvest.h"
#include "ui/screen.h"

namespace kestrin::ui {

class LastWeekScreen : public Screen {
    Q_OBJECT
public:
    explicit LastWeekScreen(SessionController& controller, QWidget* parent = nullptr);

    void fillClub() override { fill(); }
    // The boxes follow every change of orders too, as the order lists do.
    void rebuildOrderLists() override { fill(); }

    QPlainTextEdit* box(size_t i) const { return boxes_[i]; }

protected:
    void enableForClubs(bool hasClubs) override;

private:
    void fill();

    std::array<QPlainTextEdit*, kLastWeekBoxes.size()> boxes_{};
    QLabel* problem_ = nullptr;  // a Squadsheet that can't be read, in plain words
};

}  // namespace kestrin::ui
