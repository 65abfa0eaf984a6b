#include "demo/demo.h"

#include <stdexcept>

namespace kestrin {
// PLACEHOLDER until the demo league lands.
void makeDemoLeague(const std::filesystem::path&, const DemoOptions&) { throw std::runtime_error("demo league not built yet"); }
DemoOptions largeDemoOptions() {
    DemoOptions o;
    o.clubs = 30;
    o.exportClubs = 2000;
    o.playersPerExportClub = 25;
    return o;
}
}  // namespace kestrin
