#include "core/settings.h"

#include <vector>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

Settings defaultSettings(const std::filesystem::path& gameFolder) {
    Settings s;
    s.MatchViewerPath = (gameFolder / "MatchViewer.exe").string();
    s.ScoutFile = (gameFolder / "SCOUT.TXT").string();
    s.StatsFile = (gameFolder / "main.mdb").string();
    return s;
}

namespace {
// The values in file order, each as a reference to its setting.
struct Slot {
    int16_t* number = nullptr;
    std::string* text = nullptr;
};

std::vector<Slot> slots(Settings& s) {
    std::vector<Slot> v;
    auto num = [&](int16_t& n) { v.push_back({&n, nullptr}); };
    auto txt = [&](std::string& t) { v.push_back({nullptr, &t}); };
    for (PictureChoice* p : {&s.MainPic, &s.SquadPic, &s.FixPic, &s.PitchPic, &s.ScoutPic, &s.LastPic, &s.NewsPic,
                             &s.PrefPic}) {
        num(p->Option);
        txt(p->File);
    }
    num(s.InjuryLimitSetting);
    num(s.Warnings);
    num(s.WarnInc);
    txt(s.SquadPath);
    txt(s.WeeklyPath);
    num(s.SquadBackup);
    num(s.WeeklyBackup);
    txt(s.MatchViewerPath);
    txt(s.StoredTurnStamp);
    num(s.WarnNot);
    for (int i = 0; i <= 8; ++i) num(s.VidiOpt[size_t(i)]);
    for (auto& a : s.VidiAlert) txt(a);
    for (int i = 9; i <= 11; ++i) num(s.VidiOpt[size_t(i)]);
    num(s.RetTurn);
    txt(s.ScoutFile);
    txt(s.StatsFile);
    num(s.SaveProf);
    num(s.AutoPic.Option);
    txt(s.AutoPic.File);
    return v;
}
}  // namespace

Settings parseSettings(std::string_view bytes, const std::filesystem::path& gameFolder) {
    Settings s = defaultSettings(gameFolder);
    // Comma and line end both end a value, so a path holding a comma splits.
    std::vector<std::string> values;
    std::string cur;
    bool any = false;
    for (char c : bytes) {
        if (c == '\r') continue;
        if (c == '\n' || c == ',') {
            values.push_back(cur);
            cur.clear();
            any = false;
            continue;
        }
        cur += c;
        any = true;
    }
    if (any) values.push_back(cur);
    auto v = slots(s);
    try {
        for (size_t i = 0; i < v.size() && i < values.size(); ++i) {
            if (v[i].number)
                *v[i].number = parseInt16(values[i]);
            else
                *v[i].text = values[i];
        }
    } catch (const FieldError&) {
        // A value that won't read ends the reading; the rest keep defaults.
    }
    if (s.InjuryLimitSetting < 1 || s.InjuryLimitSetting > 10) s.InjuryLimitSetting = 10;
    return s;
}

Settings readSettings(const std::filesystem::path& gameFolder) {
    GameFolder folder(gameFolder);
    std::filesystem::path p = folder.resolve(kSettingsFileName);
    std::error_code ec;
    if (!std::filesystem::exists(p, ec)) return defaultSettings(gameFolder);
    try {
        return parseSettings(readFileBytes(p), gameFolder);
    } catch (const GameFileError&) {
        return defaultSettings(gameFolder);
    }
}

std::string settingsBytes(const Settings& in) {
    Settings s = in;
    std::vector<std::string> lines;
    for (const Slot& sl : slots(s)) lines.push_back(sl.number ? turnsheetNumber(*sl.number) : *sl.text);  // a printed number: blank ahead and behind
    return joinCrLf(lines);
}

void writeSettings(const std::filesystem::path& gameFolder, const Settings& s) {
    GameFolder folder(gameFolder);
    writeFileAtomic(folder.resolve(kSettingsFileName), settingsBytes(s));
}

}  // namespace kestrin
