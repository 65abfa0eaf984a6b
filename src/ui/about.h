#pragma once
// About Kestrin: the program's version and the open-source libraries it
// links, each with its version and licence.
#include <QDialog>

namespace kestrin::ui {

class AboutDialog : public QDialog {
    Q_OBJECT
public:
    explicit AboutDialog(QWidget* parent = nullptr);
};

}  // namespace kestrin::ui
