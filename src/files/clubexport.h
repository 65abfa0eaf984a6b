#pragma once
// The club export reader: clubsqua.txt, every club of the game.
#include <string>
#include <vector>

#include "core/records.h"

namespace kestrin {

// Builds ExportClubs from the file's lines (without line ends).
std::vector<ExportClub> readClubExport(const std::vector<std::string>& lines, const std::string& fileName);

}  // namespace kestrin
