#pragma once
// The managers a player's details can go to, as EmailTo lists them.
#include <QStringList>

#include "core/session.h"

namespace kestrin::ui {

// "(All Managers)" and then every manager of the game, in file order.
QStringList emailToChoices(const Session& session);

}  // namespace kestrin::ui
