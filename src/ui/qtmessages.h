#pragma once
// Message boxes of the program, shown with QMessageBox over the active window.
#include "core/messages.h"

namespace kestrin::ui {

class QtMessages : public Messages {
public:
    void refuse(const std::string& title, const std::string& text) override;
    void warn(const std::string& title, const std::string& text) override;
    void inform(const std::string& title, const std::string& text) override;
    bool ask(const std::string& title, const std::string& text) override;
    bool askQuestion(const std::string& title, const std::string& text) override;
};

}  // namespace kestrin::ui
