#pragma once
// Order profiles: every match order of one fixture with its line-up, kept
// under a name in Profiles/ of the game folder so that the manager can put
// them on another fixture. One is also saved for each match whenever the
// Turnsheets are saved and the manager asked for it.
#include <string>
#include <string_view>
#include <vector>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/messages.h"
#include "core/records.h"
#include "core/session.h"

namespace kestrin {

inline constexpr std::string_view kProfilesFolder = "Profiles";
// Lines of a profile as it is written: the orders, the shirts, the arrows.
inline constexpr int kProfileOrderLines = 37;
inline constexpr int kProfileShirtLines = 13 + 11;
inline constexpr int kProfileArrowLines = 10;
inline constexpr int kProfileLines = kProfileOrderLines + kProfileShirtLines + kProfileArrowLines;

// Texts of the manager's dialogue about profiles.
inline constexpr std::string_view kProfileNameTitle = "Name";
inline constexpr std::string_view kProfileNamePrompt = "Enter name to save this profile under.";
inline constexpr std::string_view kProfileSavedText = "Successfully saved profile.";
inline constexpr std::string_view kQuestionTitle = "Question";
inline constexpr std::string_view kLoadProfileQuestion = "Are you sure you want to load this profile?";
inline constexpr std::string_view kDeleteProfileQuestion = "Are you sure you want to delete this profile?";
inline constexpr std::string_view kOldProfileTitle = "Old profile will not set pitchgrid coordinates";
inline constexpr std::string_view kOldProfileText =
    "This is an old profile.\r\n\r\nYou will need to redo your pitchgrid but all other details will be "
    "retained.\r\n\r\nPlease save your profile once you have changed the pitchgrid to stop this message";
inline constexpr std::string_view kProfileNotSavedTitle = "Profile not saved";
inline constexpr std::string_view kProfileNotLoadedTitle = "Profile not loaded";
inline constexpr std::string_view kProfileNotDeletedTitle = "Profile not deleted";

// Every line of the fixture's profile, CR LF after each.
std::string profileText(const Fixture& fixture);

// Reads a profile's lines into the fixture. A profile written before arrows
// existed simply ends after the shirts; one written before cells existed
// holds a plain number where shirt 2's cell belongs, and then everything up
// to that shirt is taken and `true` returned: the pitch has to be redone.
// Throws GameFileError naming the file and line when the file is cut short
// or holds a value that is not of its line; the fixture is then untouched.
bool readProfile(Fixture& fixture, const std::vector<std::string>& lines, const std::string& fileName);

// Whether the name can be a file's name in Profiles/: not empty, no "/" or
// "\", no control character, not "." or "..".
bool validProfileName(std::string_view name);
// Profiles/<name>.txt, found without regard to case. Names are game text;
// on disk they are UTF-8.
fs::path profilePath(const GameFolder& folder, std::string_view name);
// The saved profiles' names, sorted without regard to case.
std::vector<std::string> profileNames(const GameFolder& folder);

// SaveProfile: makes Profiles/ when needed and writes the file anew,
// atomically, over any profile of the same name. Throws WriteError.
void saveProfile(const GameFolder& folder, std::string_view name, const Fixture& fixture);

// The name of a match's own profile: club, competition, opponent and
// "Home", "Away" or "Neutral", with any character a file name can't hold
// turned into "-".
std::string automaticProfileName(const Club& club, const Fixture& fixture);
// The profiles saved with the Turnsheets: one for each match that has a
// competition and a keeper on its team sheet. A profile that can't be
// written is told as a warning, and the others (and the Turnsheets) go on.
void saveAutomaticProfiles(const Session& session, const Club& club, Messages& messages);

// cmdAddProfile once the manager has typed a name: nothing for an empty name,
// a refusal for a name that can't be a file's, then the save (a profile of
// that name is overwritten) and "Successfully saved profile.".
// Returns whether a profile was written.
bool addProfile(const Session& session, const Fixture& fixture, const std::string& name, Messages& messages);

enum class ProfileLoad { Declined, Refused, Loaded, OldProfile };
// A profile chosen in the list: asks, then reads it into the fixture. Arrows
// of shirts 1 to 10 are cleared first, and shirt 11 keeps its own unless the
// profile gives one. A file that can't be read is refused in plain words and
// the fixture left as it was. Loading marks the turn changed.
ProfileLoad loadProfile(Session& session, Fixture& fixture, const std::string& name, Messages& messages);

// cmdDelProfiles: asks, then deletes the file. Returns whether it was deleted.
bool deleteProfile(const GameFolder& folder, const std::string& name, Messages& messages);

}  // namespace kestrin
