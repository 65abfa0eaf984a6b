#pragma once
// MemoForm: last week's report one memo at a time, as the departments
// addressed it to the manager.
#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace kestrin::ui {

class SessionController;

class MemoForm : public QDialog {
    Q_OBJECT
public:
    MemoForm(SessionController& controller, QWidget* parent = nullptr);

    // Memo n (from 1) of the session's memos becomes the one on show.
    void showMemo(int n);

private:
    SessionController& controller_;
    QLabel* to_;
    QLabel* from_;
    QPlainTextEdit* txtMemo_;
    QLabel* memoNum_;
    QPushButton* btnPrevious_;
    QPushButton* btnNext_;
};

}  // namespace kestrin::ui
