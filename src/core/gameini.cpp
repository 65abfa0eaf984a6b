#include "core/gameini.h"

#include "core/binrecord.h"
#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

std::string unscrambleField(std::string_view field) {
    std::string out(field);
    for (size_t i = 0; i < out.size(); ++i) {
        if (out[i] == ' ') continue;
        int code = static_cast<unsigned char>(out[i]) - 10 - int(i + 1);
        if (code < 0) throw FieldError("a scrambled character", std::string(1, out[i]));
        out[i] = char(code);
    }
    return out;
}

std::string scrambleField(std::string_view plain) {
    std::string out(plain);
    for (size_t i = 0; i < out.size(); ++i) {
        if (out[i] == ' ') continue;
        out[i] = char(static_cast<unsigned char>(out[i]) + 10 + int(i + 1));
    }
    return out;
}

namespace {
struct Field {
    size_t offset, length;
};
}  // namespace

GameIni parseGameIni(std::string_view bytes, const std::string& fileName) {
    RecordReader r(bytes);
    GameIni ini;
    auto field = [&](size_t offset, size_t length, const char* what) {
        try {
            return trim(unscrambleField(r.text(offset, length)));
        } catch (const FieldError& e) {
            throw GameFileError(fileName, 0, std::string("a scrambled ") + what + " at byte " + std::to_string(offset),
                                e.found);
        }
    };
    ini.GameName = field(0, 40, "game name");
    ini.Charset = static_cast<int16_t>(val(field(40, 3, "character set")));
    ini.Currency = field(43, 1, "currency sign");
    ini.ShortName = field(44, 10, "short name");
    ini.AdminAddress = field(54, 40, "administrator's address");
    for (size_t k = 1; k <= 8; ++k) {
        ini.LeagueNames[k] = field(94 + 30 * k, 30, "league name");
        ini.LeagueCodes[k] = field(364 + 8 * k, 8, "league code");
    }
    return ini;
}

GameIni readGameIni(const std::filesystem::path& path) {
    return parseGameIni(readFileBytes(path), path.filename().string());
}

std::string gameIniBytes(const GameIni& ini) {
    RecordWriter w(kGameIniLength);
    auto put = [&](size_t offset, size_t length, const std::string& value) {
        w.text(offset, length, scrambleField(fixedWidth(value, length)));
    };
    put(0, 40, ini.GameName);
    put(40, 3, std::to_string(ini.Charset));
    put(43, 1, ini.Currency);
    put(44, 10, ini.ShortName);
    put(54, 40, ini.AdminAddress);
    for (size_t k = 0; k <= 8; ++k) {
        put(94 + 30 * k, 30, ini.LeagueNames[k]);
        put(364 + 8 * k, 8, ini.LeagueCodes[k]);
    }
    return w.bytes();
}

}  // namespace kestrin
