#include "match/pitchlists.h"

#include "core/text.h"

namespace kestrin {

bool canPlay(const Player& player, int injuryLimit, int suspensionLimit) {
    return player.Injury < injuryLimit && player.SuspPoints < suspensionLimit;
}

bool passesTeamFilter(const Player& player, TeamFilter filter) {
    switch (filter) {
        case TeamFilter::AllAges: return true;
        case TeamFilter::Seniors: return player.Age >= 18;
        case TeamFilter::Youth: return player.Age <= 17;
    }
    return true;
}

bool passesPositionFilter(const Player& player, PositionFilter filter) {
    std::string_view group = std::string_view(player.Position).substr(0, 3);
    switch (filter) {
        case PositionFilter::All: return true;
        case PositionFilter::Gkp: return player.Position == "AGKP";
        case PositionFilter::Def: return group == "DEF";
        case PositionFilter::Mid: return group == "MID";
        case PositionFilter::Str: return group == "STR";
    }
    return true;
}

std::string playerListEntry(const Player& player) { return player.Position + " " + player.Name; }

std::string listEntryName(std::string_view entry) { return fromColumn(entry, 6); }

std::string shirtCaption(const Fixture& fixture, int shirt) {
    if (shirt < 1 || shirt > 13) return "";
    const TeamSlot& slot = fixture.Slots[size_t(shirt - 1)];
    std::string n = std::to_string(shirt);
    if (trim(slot.Player).empty()) {
        std::string c = "Player " + n;
        if (shirt >= 12) c += " (Substitute " + std::to_string(shirt - 11) + ")";
        return c;
    }
    std::string c = n + ". " + slot.Player;
    const std::pair<int16_t, const char*> marks[] = {
        {fixture.Captain, "Cap"}, {fixture.Penalties, "Pen"}, {fixture.Corners, "Cor"}, {fixture.FreeKicks, "FK"}};
    bool first = true;
    for (const auto& [taker, mark] : marks) {
        if (taker != shirt) continue;
        c += first ? " (" : ", ";
        c += mark;
        first = false;
    }
    if (!first) c += ")";
    return c;
}

std::array<std::string, 13> shirtCaptions(const Fixture& fixture) {
    std::array<std::string, 13> out;
    for (int shirt = 1; shirt <= 13; ++shirt) out[size_t(shirt - 1)] = shirtCaption(fixture, shirt);
    return out;
}

namespace {

bool nameInCaption(const std::string& caption, const std::string& name) {
    return !name.empty() && caption.find(name) != std::string::npos;
}

}  // namespace

bool IsOnPitch(const Player& player, const Fixture& fixture, int injuryLimit, int suspensionLimit) {
    if (!canPlay(player, injuryLimit, suspensionLimit)) return true;
    for (int shirt = 1; shirt <= 13; ++shirt)
        if (nameInCaption(shirtCaption(fixture, shirt), player.Name)) return true;
    return false;
}

PitchLists buildPitchLists(const Club& club, Fixture& fixture, int injuryLimit, int suspensionLimit,
                           TeamFilter team, PositionFilter position) {
    PitchLists out;
    for (const Player& p : club.Players) {
        bool shown = passesTeamFilter(p, team) && passesPositionFilter(p, position);
        if (!canPlay(p, injuryLimit, suspensionLimit)) {
            if (shown) out.Unavailable.push_back(playerListEntry(p));
            for (int shirt = 1; shirt <= 13; ++shirt) {
                if (!nameInCaption(shirtCaption(fixture, shirt), p.Name)) continue;
                TeamSlot& slot = fixture.Slots[size_t(shirt - 1)];
                if (!slot.Player.empty()) {
                    slot.Player.clear();
                    out.SlotsChanged = true;
                }
            }
            continue;
        }
        if (shown && !IsOnPitch(p, fixture, injuryLimit, suspensionLimit)) out.Available.push_back(playerListEntry(p));
    }
    return out;
}

std::array<std::string, 4> infoLines(const Player& p) {
    const std::string pad = "    ";
    auto item = [](const char* label, int value) { return std::string(label) + " " + std::to_string(value); };
    std::string heading = p.Name + " (" + p.Position + ")";
    // Lines 2 to 4 start under "Skill" so that the figures stand in columns.
    std::string indent(heading.size() + 5, ' ');
    std::array<std::string, 4> l;
    l[0] = heading + "     " + item("Skill", p.Skill) + pad + item("Real Skill", p.RealSkill) + pad +
           item("Total Skill", p.TotalSkill) + pad + item("Age", p.Age);
    l[1] = indent + item("Pass", p.Pass) + pad + item("Control", p.Control) + pad + item("Tackle", p.Tackle) + pad +
           item("Run", p.Run);
    l[2] = indent + item("Shoot", p.Shoot) + pad + item("Dribble", p.Dribble) + pad + item("DefHd", p.DefHd) + pad +
           item("OffHd", p.OffHd);
    l[3] = indent + item("Flair", p.Flair) + pad + item("Strength", p.Strength) + pad +
           item("Creativity", p.Creativity) + pad + item("Games Played", p.CareerApps) + pad +
           item("Injury pts", p.Injury) + pad + item("Season Performance", p.AverageSeasonPerf) + pad +
           item("Goals", p.Goals) + pad + "Special Skill: " + p.SpecialSkill;
    return l;
}

std::string ShowInfo(const Player& player) {
    std::array<std::string, 4> l = infoLines(player);
    return l[0] + "\r\n" + l[1] + "\r\n" + l[2] + "\r\n" + l[3];
}

}  // namespace kestrin
