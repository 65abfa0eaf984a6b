#pragma once
// Every message box of the program goes through this interface. The UI shows
// QMessageBoxes; tests and the command line use RecordingMessages.
#include <string>
#include <vector>

namespace kestrin {

class Messages {
public:
    virtual ~Messages() = default;
    virtual void refuse(const std::string& title, const std::string& text) = 0;  // critical sign
    virtual void warn(const std::string& title, const std::string& text) = 0;    // exclamation, OK
    virtual void inform(const std::string& title, const std::string& text) = 0;  // no sign / information
    virtual bool ask(const std::string& title, const std::string& text) = 0;     // Yes/No, exclamation
    // Yes/No with a question mark, for questions that warn of nothing.
    virtual bool askQuestion(const std::string& title, const std::string& text) { return ask(title, text); }
};

// Keeps every message; answers questions from a script (then a default).
class RecordingMessages : public Messages {
public:
    enum class Kind { Refuse, Warn, Inform, Ask };
    struct Entry {
        Kind kind;
        std::string title;
        std::string text;
    };
    std::vector<Entry> entries;
    std::vector<bool> answers;  // consumed front to back
    bool defaultAnswer = true;

    void refuse(const std::string& title, const std::string& text) override;
    void warn(const std::string& title, const std::string& text) override;
    void inform(const std::string& title, const std::string& text) override;
    bool ask(const std::string& title, const std::string& text) override;
};

}  // namespace kestrin
