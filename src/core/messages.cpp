#include "core/messages.h"

namespace kestrin {

void RecordingMessages::refuse(const std::string& title, const std::string& text) {
    entries.push_back({Kind::Refuse, title, text});
}
void RecordingMessages::warn(const std::string& title, const std::string& text) {
    entries.push_back({Kind::Warn, title, text});
}
void RecordingMessages::inform(const std::string& title, const std::string& text) {
    entries.push_back({Kind::Inform, title, text});
}
bool RecordingMessages::ask(const std::string& title, const std::string& text) {
    entries.push_back({Kind::Ask, title, text});
    if (answers.empty()) return defaultAnswer;
    bool a = answers.front();
    answers.erase(answers.begin());
    return a;
}

}  // namespace kestrin
