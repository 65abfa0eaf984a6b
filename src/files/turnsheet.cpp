#include "files/turnsheet.h"

#include "core/errors.h"

namespace kestrin {
// PLACEHOLDER until the Turnsheet lands.
std::string turnsheetText(const Club&) { return {}; }
void readTurnsheet(Club&, const std::vector<std::string>&, int, int, const std::string&) {}
fs::path turnsheetPath(const Session& s, const Club& c) { return s.Folder.resolve("Turnsheet") / (c.ClubFile + ".txt"); }
std::vector<fs::path> saveTurnsheets(Session&, Messages&) { return {}; }
bool checkIncomplete(Session& s, Messages&) { return s.TurnsheetComplete; }
void savePrompt(Session&, Messages&) {}
}  // namespace kestrin
