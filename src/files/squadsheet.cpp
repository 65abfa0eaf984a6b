#include "files/squadsheet.h"

#include "core/errors.h"
#include "core/text.h"

namespace kestrin {

std::string clubFileFromName(const std::string& fileName) {
    size_t at = findNoCase(fileName, "squ");
    return at == std::string::npos ? fileName : fileName.substr(0, at);
}

Club readSquadsheet(const std::vector<std::string>&, const std::string& fileName, const std::string&, std::string&) {
    throw GameFileError(fileName, 0, "a Squadsheet", "a reader still being written");  // PLACEHOLDER
}

}  // namespace kestrin
