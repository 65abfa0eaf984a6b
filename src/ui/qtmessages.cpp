#include "ui/qtmessages.h"

#include <QApplication>
#include <QMessageBox>

#include "ui/qtext.h"

namespace kestrin::ui {

namespace {

QMessageBox::StandardButton show(QMessageBox::Icon icon, const std::string& title, const std::string& text,
                                 QMessageBox::StandardButtons buttons) {
    QMessageBox box(icon, qs(title), qs(text), buttons, QApplication::activeWindow());
    if (buttons & QMessageBox::Yes) box.setDefaultButton(QMessageBox::Yes);
    return QMessageBox::StandardButton(box.exec());
}

}  // namespace

void QtMessages::refuse(const std::string& title, const std::string& text) {
    show(QMessageBox::Critical, title, text, QMessageBox::Ok);
}
void QtMessages::warn(const std::string& title, const std::string& text) {
    show(QMessageBox::Warning, title, text, QMessageBox::Ok);
}
void QtMessages::inform(const std::string& title, const std::string& text) {
    show(QMessageBox::Information, title, text, QMessageBox::Ok);
}
bool QtMessages::ask(const std::string& title, const std::string& text) {
    return show(QMessageBox::Warning, title, text, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}
bool QtMessages::askQuestion(const std::string& title, const std::string& text) {
    return show(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace kestrin::ui
