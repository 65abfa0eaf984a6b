#pragma once
// The mail password: kept in the desktop's secret store, asked for when the
// store has none or there is no store, and never written to a file by us.
#include <QString>
#include <optional>
#include <string>

#include "files/mail.h"

class QWidget;

namespace kestrin::ui {

// The store's name for the password of this user on this server.
QString mailSecretKey(const MailSettings& settings);

enum class StoreAnswer { Found, Missing, NoStore };
struct StoredSecret {
    StoreAnswer answer = StoreAnswer::NoStore;
    std::string password;
};

// Each waits for the store at most `timeoutMs`, the window answering
// meanwhile; a store that doesn't answer in time counts as none.
StoredSecret readMailPassword(const MailSettings& settings, int timeoutMs = 4000);
bool storeMailPassword(const MailSettings& settings, const std::string& password, int timeoutMs = 4000);
void forgetMailPassword(const MailSettings& settings, int timeoutMs = 4000);

// The password dialog, naming the server and user; nothing when cancelled.
std::optional<std::string> askMailPassword(const MailSettings& settings, QWidget* parent);

// The password of one send: from the store, else from the manager; after the
// send a password typed is kept when the send went through, and a stored one
// that failed is forgotten so that the next send asks.
class MailPasswordSource {
public:
    std::optional<std::string> get(const MailSettings& settings, QWidget* dialogParent);
    void sent(const MailSettings& settings, const std::string& password, bool ok);

private:
    StoreAnswer lastAnswer_ = StoreAnswer::NoStore;
};

}  // namespace kestrin::ui
