#pragma once
// What the squad screen tells of one player: the detail panel under the grid,
// and the text that EmailPlayer saves or mails to another manager.
#include <string>
#include <string_view>
#include <vector>

#include "orders/orderresult.h"

namespace kestrin {

// "Other details for " name ".", and the loan notice in his last week of a loan.
std::string otherDetailsCaption(const Player& player);

// The ten rows of txtOtherDet, each a list of its items in order.
std::vector<std::vector<std::string>> otherDetailsRows(const Player& player, std::string_view currency);
// The same as one text: tabs between the items of a row, CR LF between rows.
std::string otherDetailsText(const Player& player, std::string_view currency);

// EmailText: the player's figures in fixed columns, CR LF line ends.
std::string createDetails(const Club& club, const Player& player);

inline constexpr std::string_view kPlayerDetailsFileName = "PlayerDetails.txt";
inline constexpr std::string_view kDetailsExportedTitle = "Player Details exported";

// btnSaveDetails: writes the text to PlayerDetails.txt in the game folder,
// whole or not at all. Returns the path. Throws WriteError.
fs::path savePlayerDetails(const Session& session, std::string_view text);
// The message that follows a save.
std::string detailsExportedText(const fs::path& path);

// ---- Sending by e-mail ------------------------------------------------------

inline constexpr std::string_view kAllManagers = "(All Managers)";

// btnEmailDetails with the manager chosen in EmailTo ("" for none).
OrderResult checkDetailsRecipient(std::string_view choice);
// "Player Details from " the club, a blank and the player.
std::string detailsSubject(const Club& club, const Player& player);
// The addresses of "(All Managers)": those holding an "@", joined by "; ".
std::string allManagersRecipients(const std::vector<std::string>& addresses);

inline constexpr std::string_view kDetailsSentTitle = "Email sent";
std::string detailsSentText(std::string_view choice);
inline constexpr std::string_view kDetailsNotSentTitle = "Problem in emailing file";
inline constexpr std::string_view kDetailsNotSentText =
    "Sorry, there has been a problem with sending to that manager, try the save feature to email manually";

}  // namespace kestrin
