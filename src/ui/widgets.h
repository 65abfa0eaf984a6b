#pragma once
// Small widgets that several screens share.
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <string_view>
#include <QWidget>

class QButtonGroup;
class QDialog;
class QBoxLayout;
class QHBoxLayout;

namespace kestrin::ui {

// One label of the game: its caption on the left, its figure right-aligned in
// a fixed-pitch font. fullText() is the label as the game words it.
class FigureRow : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString fullText READ fullText)
public:
    explicit FigureRow(const QString& objectName, QWidget* parent = nullptr);
    void setTexts(const QString& caption, const QString& value);
    // Words rather than a figure: the screen's own font.
    void setPlainValue();
    QString fullText() const { return caption_->text() + value_->text(); }

private:
    QLabel* caption_;
    QLabel* value_;
};

// A push button with its control name.
QPushButton* makeButton(const QString& objectName, const QString& caption, QWidget* parent = nullptr);

// The OK and Cancel row that ends a dialog; OK is the default button and
// Cancel rejects the dialog. The caller connects OK.
struct OkCancel {
    QHBoxLayout* row;
    QPushButton* ok;
    QPushButton* cancel;
};
OkCancel makeOkCancel(QDialog* dialog);

// The row that ends a dialog with one button that closes it, added to `root`.
QPushButton* addCloseRow(QDialog* dialog, QBoxLayout* root, const QString& objectName = "btnClose");

// Opens a dialog made by its create() modal over its parent, deleted once
// closed; a null dialog (nothing to show) stays null.
template <class Dialog>
Dialog* openModal(Dialog* dialog) {
    if (dialog) {
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    }
    return dialog;
}

// A row of exclusive filter buttons named name0, name1, ... with the first
// one checked; the group's ids are the buttons' positions.
QButtonGroup* filterButtons(QWidget* parent, QHBoxLayout* row, const QString& name, const QStringList& captions);
template <class Captions>
QButtonGroup* filterButtons(QWidget* parent, QHBoxLayout* row, const QString& name, const Captions& captions) {
    QStringList list;
    for (std::string_view caption : captions) list << QString::fromLatin1(caption.data(), qsizetype(caption.size()));
    return filterButtons(parent, row, name, list);
}

// A button of a screen that is not built yet: present, switched off, and
// saying what is coming.
void markComingSoon(QPushButton* button, const QString& what);

}  // namespace kestrin::ui
