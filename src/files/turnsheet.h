#pragma once
// The Turnsheet: one club's orders for one week, read by the administrator's
// own program and our only store of orders between runs.
#include <string>
#include <vector>

#include "core/messages.h"
#include "core/records.h"
#include "core/session.h"

namespace kestrin {

// Every line of the club's Turnsheet, CR LF after each.
std::string turnsheetText(const Club& club);

// Takes the saved orders of a Turnsheet (lines without line ends) into a
// club freshly read from its Squadsheet. Throws GameFileError naming the
// line when the file is not a Turnsheet; the caller then keeps the club as
// the Squadsheet gave it.
void readTurnsheet(Club& club, const std::vector<std::string>& lines, int injuryLimit, int suspensionLimit,
                   const std::string& fileName);

// Path of a club's Turnsheet: <game>/Turnsheet/<ClubFile>.txt, case-insensitively.
fs::path turnsheetPath(const Session& session, const Club& club);

// Save turnsheet: every club's file, atomically. Runs Check incomplete first
// when WarnInc is 0. Returns the paths written. Throws WriteError; files
// written before the failure stay, the failed one keeps its old contents.
std::vector<fs::path> saveTurnsheets(Session& session, Messages& messages);

// Check incomplete: sets and returns TurnsheetComplete.
bool checkIncomplete(Session& session, Messages& messages);

// Save prompt: asks "Save Changes ?" once a session.
void savePrompt(Session& session, Messages& messages);

}  // namespace kestrin
