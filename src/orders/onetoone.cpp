#include "orders/onetoone.h"

namespace kestrin {

OrderResult checkOneToOne(const Club& club) {
    if (club.OneToOneInstruction != 0)
        return OrderResult::refuse("One To One already selected",
                                   "You cannot perform more than a single One To One Option each week");
    return OrderResult::accept();
}

std::string oneToOnePrompt(const Club& club, std::string_view rowText) {
    const std::string name = rowPlayerName(club, rowText);
    return name.empty() ? "No Player Selected" : "One To One : " + name;
}

OrderResult setOneToOne(Club& club, int option, std::string_view rowText) {
    if (option < 0 || option >= kOneToOneOptions)
        return OrderResult::refuse("No option selected", "Please select a One to One option");
    std::string name = rowPlayerName(club, rowText);
    if (option != kTeamTalkOption && name.empty())
        return OrderResult::refuse("No player selected", "That One to One option needs a player to be selected");
    if (option == kTeamTalkOption) name.clear();
    club.OneToOneInstruction = int16_t(option + 1);
    club.OneToOnePlayer = name;
    return OrderResult::accept(oneToOneLine(club));
}

std::string oneToOneLine(const Club& club) {
    if (club.OneToOneInstruction == 0) return {};
    std::string line = "1 To 1 - ";
    // An instruction from a hand-edited Turnsheet may be out of range; it
    // still shows, so that it can be removed.
    const int index = club.OneToOneInstruction - 1;
    if (index >= 0 && index < kOneToOneOptions) line += kOneToOneListTexts[size_t(index)];
    if (!club.OneToOnePlayer.empty()) line += " - " + club.OneToOnePlayer;
    return line;
}

bool removeOneToOne(Club& club) {
    const bool had = club.OneToOneInstruction != 0 || !club.OneToOnePlayer.empty();
    club.OneToOnePlayer.clear();
    club.OneToOneInstruction = 0;
    return had;
}

}  // namespace kestrin
