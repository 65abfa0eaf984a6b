#pragma once
// A club's colour words choose the two colours of its kit. Colours are held
// as the platform holds them: 0xBBGGRR, red in the low byte.
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/records.h"

namespace kestrin {

using KitColour = uint32_t;

constexpr KitColour kitRgb(int red, int green, int blue) {
    return KitColour(red & 0xFF) | KitColour(green & 0xFF) << 8 | KitColour(blue & 0xFF) << 16;
}
constexpr int kitRed(KitColour c) { return int(c & 0xFF); }
constexpr int kitGreen(KitColour c) { return int(c >> 8 & 0xFF); }
constexpr int kitBlue(KitColour c) { return int(c >> 16 & 0xFF); }

// The two marker colours of the shirt masters: the first becomes KitColour1,
// the second KitColour2.
inline constexpr KitColour kShirtMarker1 = kitRgb(160, 160, 164);
inline constexpr KitColour kShirtMarker2 = kitRgb(128, 128, 128);
// The marker of the shirt in a face picture; it becomes KitColour1.
inline constexpr KitColour kFaceShirtMarker = kitRgb(189, 134, 215);

// The keeper's shirt against a green kit, and against any other.
inline constexpr KitColour kKeeperYellow = 65535;
inline constexpr KitColour kKeeperGreen = kitRgb(1, 225, 54);

struct KitColourName {
    std::string_view Name;
    KitColour KitColour1;
    KitColour KitColour2;
};

// Every colour name the game knows, with its pair. A few names are spelt with
// a capital; since the looked-up text is lower-cased first, they never match.
std::span<const KitColourName> kitColourTable();

struct KitColours {
    KitColour KitColour1 = 0;
    KitColour KitColour2 = 0;
    bool operator==(const KitColours&) const = default;
};

// Lower-cases the text and looks it up; the first name of the table that
// equals it sets both colours. An unknown text leaves both as they were.
// Returns whether the name was found.
bool SetKitColours(KitColours& kit, std::string_view text);

// The colour words of a club: its Colours from column 3 (the first two
// characters come before the name).
std::string kitColourName(const Club& club);

// The keeper stands out from his team: yellow when the team's first colour
// is one of the three greens, else a green of his own.
KitColour keeperKitColour(KitColour kitColour1);

}  // namespace kestrin
