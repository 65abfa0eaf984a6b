// Arbitrary bytes, split into lines, read as a profile into a fixture. The
// reader may refuse them with GameFileError, and then the fixture must be as
// it was; nothing worse may happen: no crash, no other exception, no read out
// of bounds. What it accepts must write out and read back to the same orders.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "match/profiles.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::vector<std::string> lines =
        kestrin::splitLines(std::string_view(reinterpret_cast<const char*>(data), size));
    kestrin::Fixture fixture;
    fixture.Opponent = "Rovers";
    for (kestrin::TeamSlot& s : fixture.Slots) s = {"Somebody", 2400, 4920, 6000, 1680};
    const kestrin::Fixture before = fixture;
    try {
        if (kestrin::readProfile(fixture, lines, "Profiles/fuzz.txt")) return 0;
    } catch (const kestrin::GameFileError&) {
        if (!(fixture == before)) std::abort();
        return 0;
    }
    // Written again and read back, an accepted profile gives the same file.
    const std::string text = kestrin::profileText(fixture);
    kestrin::Fixture again = fixture;
    kestrin::readProfile(again, kestrin::splitLines(text), "Profiles/fuzz.txt");
    if (kestrin::profileText(again) != text) std::abort();
    return 0;
}
