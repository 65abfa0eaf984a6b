#pragma once
// The Squadsheet reader: one weekly text file of one managed club into a Club.
#include <string>
#include <vector>

#include "core/records.h"

namespace kestrin {

// Reads the lines of a Squadsheet (without line ends) into a new Club.
// `fileName` names the file in errors; `clubFile` becomes ClubFile.
// `turnStamp` is set from the first line of stars when it is still empty.
// Saved orders are not read here (see readTurnsheet). Throws GameFileError
// naming the 1-based line when the file is not a Squadsheet.
Club readSquadsheet(const std::vector<std::string>& lines, const std::string& fileName,
                    const std::string& clubFile, std::string& turnStamp);

// ClubFile from a Squadsheet's file name: the name up to "squ" (ignoring
// case), or the whole name when it holds no "squ".
std::string clubFileFromName(const std::string& fileName);

}  // namespace kestrin
