// Arbitrary bytes, split into lines, as a Squadsheet.
// A reader may refuse them with GameFileError and must do nothing worse:
// no crash, no other exception, no read out of bounds.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "files/squadsheet.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<std::string> lines =
        kestrin::splitLines(std::string_view(reinterpret_cast<const char*>(data), size));
    try {
        std::string stamp;
        kestrin::readSquadsheet(lines, "Squadsheets/FUZZsquad.txt", "FUZZ", stamp);
    } catch (const kestrin::GameFileError&) {
    }
    return 0;
}
