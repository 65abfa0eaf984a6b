#pragma once
// game.ini: the game's description, one scrambled record of 436 bytes.
#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

namespace kestrin {

inline constexpr size_t kGameIniLength = 436;

struct GameIni {
    std::string GameName;
    int16_t Charset = 0;
    std::string Currency;
    std::string ShortName;
    std::string AdminAddress;
    std::array<std::string, 9> LeagueNames{};  // entry 0 is never read
    std::array<std::string, 9> LeagueCodes{};
    bool operator==(const GameIni&) const = default;
};

// The field transform and its inverse: a blank stays a blank, any other
// character moves by 10 plus its 1-based position in the field. Unscrambling
// a character below code 0 throws FieldError.
std::string unscrambleField(std::string_view field);
std::string scrambleField(std::string_view plain);

// Reads the record; a short file fills what it can. Throws GameFileError when
// a field can't be unscrambled. The caller checks that the file exists.
GameIni readGameIni(const std::filesystem::path& path);
GameIni parseGameIni(std::string_view bytes, const std::string& fileName = "game.ini");
std::string gameIniBytes(const GameIni& ini);

}  // namespace kestrin
