#pragma once
// The portrait codes of a demo player: a face whose parts hang together.
#include <cstdint>

#include "match/portraits.h"

namespace kestrin::demo {

// The same seed gives the same face.
PortraitCodes demoPortrait(uint64_t seed);

}  // namespace kestrin::demo
