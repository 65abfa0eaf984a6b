#include "files/clubexport.h"

namespace kestrin {
// PLACEHOLDER until the club export reader lands.
std::vector<ExportClub> readClubExport(const std::vector<std::string>&, const std::string&) { return {}; }
}  // namespace kestrin
