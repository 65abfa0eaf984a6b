#include "core/preferences.h"

#include <algorithm>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

const PictureChoice* backgroundFor(const Settings& settings, std::string_view screenName) {
    if (screenName == "ScoutHistory") screenName = "Scout";
    for (const BackgroundOption& o : kBackgroundOptions)
        if (o.screen == screenName) return &(settings.*o.choice);
    return nullptr;
}

std::string fromFileCaption(const PictureChoice& choice) {
    if (choice.Option == 2 && !choice.File.empty()) return "From " + choice.File;
    return std::string(kPictureOptionCaptions[2]);
}

std::optional<int16_t> injuryLimitFromText(std::string_view text) {
    if (text.empty()) return std::nullopt;
    const double figure = val(text);
    if (figure > 10) return int16_t(10);
    if (figure < 1) return int16_t(1);
    return int16_t(figure);
}

std::array<std::string, kWatchOptionCount> watchCaptions(const GameIni& game) {
    std::array<std::string, kWatchOptionCount> captions;
    for (size_t i = 0; i < kWatchOptionCount; ++i) captions[i] = std::string(kWatchDefaultCaptions[i]);
    for (size_t league = 1; league <= 8; ++league) {
        const std::string name = trim(game.LeagueNames[league]);
        if (name.empty()) continue;
        std::string caption = "Watch ";
        for (char c : name) {
            caption += c;
            if (c == '&') caption += '&';
        }
        captions[league - 1] = caption + " / Cups";
    }
    return captions;
}

std::vector<std::string> alertClubLines(std::span<const ExportClub> clubs) {
    std::vector<std::string> lines{std::string(kNoClubSelected)};
    lines.reserve(clubs.size() + 1);
    for (const ExportClub& c : clubs) lines.emplace_back(c.Name);
    return lines;
}

int alertClubIndex(std::vector<std::string>& lines, const std::string& stored) {
    const auto at = std::find(lines.begin(), lines.end(), stored);
    if (at != lines.end()) return int(at - lines.begin());
    lines.push_back(stored);
    return int(lines.size()) - 1;
}

bool changeSettings(Session& session, Messages& messages, const std::function<void(Settings&)>& change) {
    if (session.FillingScreen) return false;
    Settings changed = session.Prefs;
    change(changed);
    if (changed == session.Prefs) return false;
    session.Prefs = std::move(changed);
    try {
        writeSettings(session.Folder.root(), session.Prefs);
    } catch (const WriteError& e) {
        messages.refuse(std::string(kSettingsNotSavedTitle),
                        "The settings file " + displayName(session.Folder, e.path) + " could not be written: " +
                            e.reason +
                            ".\r\n\r\nThe change holds until the program closes. Check that the game folder may "
                            "be written to, then make the change again to keep it.");
    }
    return true;
}

void applySettings(Session& session) { session.InjuryLimit = session.Prefs.InjuryLimitSetting; }

}  // namespace kestrin
