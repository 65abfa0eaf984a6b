#pragma once
// The club export reader: clubsqua.txt, every club of the game.
#include <string>

#include "core/records.h"

namespace kestrin {

// Builds the club export from the file's bytes, which it keeps: every text of
// the result is a view into them.
ClubExport readClubExport(std::string bytes, const std::string& fileName);

}  // namespace kestrin
