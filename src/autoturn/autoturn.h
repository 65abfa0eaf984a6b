#pragma once
// Auto Turn: a whole week's orders built by rule, club by club, for the
// manager to review on the usual screens before he sends them.
#include <array>
#include <atomic>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/messages.h"
#include "core/session.h"

namespace SQLite {
class Database;
}

namespace kestrin {

// ---- The choices of the AutoTurn screen -------------------------------------

enum class PickMethod : int { TotalSkill = 0, Performance = 1, CoreSkills = 2, BestBlend = 3 };
inline constexpr std::array<std::string_view, 4> kPickCaptions = {"By Total Skill", "By Performance",
                                                                  "By Core Skills", "By Best Blend"};
inline constexpr std::string_view kBestBlendNoDatabaseCaption = "By Best Blend (Stats DB needed)";
inline constexpr std::string_view kAutoPick = "Auto Pick";

// PickForm's entries: "Auto Pick", then the eleven formations that can be ordered.
std::vector<std::string> pickFormations();

// One TeamList entry's choices.
struct PickChoice {
    PickMethod Method = PickMethod::TotalSkill;
    std::string Formation{kAutoPick};
    bool operator==(const PickChoice&) const = default;
};

struct AutoTurnOptions {
    // The TeamList entry: 0 for all teams, i + 1 for club i.
    int Team = 0;
    // One entry per TeamList entry (ClubCount + 1); a club missing from it
    // takes the defaults.
    std::vector<PickChoice> Choices;
    bool PickTeam = true;  // optPickTeam: write the line-ups into the fixtures
    bool Physio = true;
    bool Warn = true;
    bool Scout = true;
    bool Coach = true;
};

// TeamList: "All Teams" and the clubs' names.
std::vector<std::string> teamListEntries(const Session& session);

// What the three help labels say; paragraphs are separated by an empty line.
extern const std::string kAutoTurnHelp;        // lblHelp
extern const std::string kAutoTurnSelectHelp;  // lblSelHelp
extern const std::string kAutoTurnAdminHelp;   // LblAdminHelp

inline constexpr std::string_view kAutoTurnCompleteTitle = "Complete";
inline constexpr std::string_view kAutoTurnCompleteText = "Auto Turn has Completed !";

// ---- One run ----------------------------------------------------------------

// A number in [0, 1), as the game's Rnd; the tactic if losing and the
// scouting draws use it.
using RandomSource = std::function<double()>;
// A seeded source of our own, for a run that needs no particular numbers.
RandomSource defaultRandomSource(unsigned seed);

// Shirts 1 to 13 ([0] is shirt 1): the 1-based number of the player who wears
// it in the squad, 0 for nobody.
using ShirtPlayers = std::array<int, 13>;

struct ClubRun {
    std::string Name;
    // Every message shown while the club was worked on: "title: text".
    std::vector<std::string> Messages;
    bool Skipped = false;  // By Best Blend found no match of the club
};

struct AutoTurnProgress {
    // Called before each club: clubs done, clubs to do, the club's name.
    std::function<void(int done, int total, const std::string& club)> step;
    // Set from another thread to stop between clubs; the clubs done keep their orders.
    const std::atomic<bool>* cancel = nullptr;
};

// Runs the stages for the clubs the options name, in club order, writing into
// session.Clubs. `stats` is the open Stats database, or nothing when its file
// doesn't exist (By Best Blend then finds nothing). Questions go through
// `messages`. Nothing is saved here: the caller saves the Turnsheets.
std::vector<ClubRun> runAutoTurn(Session& session, const AutoTurnOptions& options, SQLite::Database* stats,
                                 Messages& messages, const RandomSource& rnd, const AutoTurnProgress& progress = {});

// The same, opening settings.StatsFile read-only itself when the file exists.
std::vector<ClubRun> runAutoTurn(Session& session, const AutoTurnOptions& options, Messages& messages,
                                 const RandomSource& rnd, const AutoTurnProgress& progress = {});

// Whether the Stats database file of the settings exists, which enables By Best Blend.
bool statsDatabaseExists(const Session& session);

}  // namespace kestrin
