#pragma once
// Notepad: the manager's own notes, notepad.kst, saved at every change.
#include <QDialog>
#include <QPlainTextEdit>

namespace kestrin::ui {

class SessionController;

class Notepad : public QDialog {
    Q_OBJECT
public:
    Notepad(SessionController& controller, QWidget* parent = nullptr);

    // The notes as the file holds them now.
    void reload();
    // Puts `text` in the box without saving it.
    void fill(const QString& text);

private:
    void changed();

    SessionController& controller_;
    QPlainTextEdit* txtNotes_;
    bool failTold_ = false;  // a failed save is told once, not at every key
};

}  // namespace kestrin::ui
