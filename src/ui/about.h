#pragma once
// About Kestrin: the program's version and the open-source libraries it
// links, each with its version and licence.
#include <QDialog>
#include <QIcon>

namespace kestrin::ui {

// The program's icon: the desktop theme's when installed, else the built-in one.
QIcon programIcon();

class AboutDialog : public QDialog {
    Q_OBJECT
public:
    explicit AboutDialog(QWidget* parent = nullptr);
};

}  // namespace kestrin::ui
