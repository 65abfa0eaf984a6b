#include "ui/emailto.h"

#include "files/news.h"
#include "ui/qtext.h"

namespace kestrin::ui {

QStringList emailToChoices(const Session& session) {
    QStringList choices;
    for (const std::string& name : emailToList(session.ManagerList)) choices << qs(name);
    return choices;
}

}  // namespace kestrin::ui
