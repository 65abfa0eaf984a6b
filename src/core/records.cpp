#include "core/records.h"

#include "core/text.h"

namespace kestrin {

int16_t Player::skill(int i) const { return const_cast<Player*>(this)->skill(i); }

int16_t& Player::skill(int i) {
    switch (i) {
        case 0: return Pass;
        case 1: return Control;
        case 2: return Tackle;
        case 3: return Run;
        case 4: return Shoot;
        case 5: return Dribble;
        case 6: return DefHd;
        case 7: return OffHd;
        case 8: return Flair;
        case 9: return Strength;
        default: return Creativity;
    }
}

std::string Fixture::venueWord() const {
    if (Venue == "H") return "Home";
    if (Venue == "A") return "Away";
    return "Neutral";
}

CoachOrder& Club::coachOrder(int i) {
    switch (i) {
        case 0: return GoalkeeperSenior;
        case 1: return DefenceSenior;
        case 2: return MidfieldSenior;
        case 3: return AttackSenior;
        case 4: return GoalkeeperYouth;
        case 5: return DefenceYouth;
        case 6: return MidfieldYouth;
        default: return AttackYouth;
    }
}

const CoachOrder& Club::coachOrder(int i) const { return const_cast<Club*>(this)->coachOrder(i); }

int Club::findPlayer(std::string_view displayed, std::string* bareName) const {
    std::string name(displayed);
    size_t paren = name.find('(');
    if (paren != std::string::npos) {
        name = trim(std::string_view(name).substr(0, paren));
        if (bareName) *bareName = name;
    }
    for (size_t i = 0; i < Players.size(); ++i)
        if (Players[i].Name == name) return int(i) + 1;
    return 0;
}

const Player* Club::player(int index1) const {
    if (index1 < 1 || index1 > int(Players.size())) return nullptr;
    return &Players[size_t(index1) - 1];
}

Player* Club::player(int index1) {
    if (index1 < 1 || index1 > int(Players.size())) return nullptr;
    return &Players[size_t(index1) - 1];
}

std::string potentialGrade(int32_t p) {
    if (p < 1 || p > 99) return "None";
    if (p <= 5) return "Very Poor";
    if (p <= 10) return "Poor";
    if (p <= 15) return "Average";
    if (p <= 20) return "Good";
    if (p <= 30) return "Very Good";
    if (p <= 40) return "Excellent";
    return "World Class";
}

std::string potentialText(int32_t p) { return potentialGrade(p) + "  (" + std::to_string(p) + ")"; }

int skillPointsToNextLevel(const Player& p) { return (p.Skill + 1) * 11 - p.TotalSkill; }

std::string positionWord(std::string_view code) {
    if (code == "AGKP") return "Goalkeeper";
    if (code == "DEFC") return "Central Defender";
    if (code == "DEFL") return "Left sided Defender";
    if (code == "DEFR") return "Right sided Defender";
    if (code == "MIDC") return "Central Midfielder";
    if (code == "MIDL") return "Left sided Midfielder";
    if (code == "MIDR") return "Right sided Midfielder";
    if (code == "STRC") return "Central Striker";
    if (code == "STRL") return "Left sided Striker";
    if (code == "STRR") return "Right sided Striker";
    return {};
}

}  // namespace kestrin
