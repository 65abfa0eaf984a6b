#include "autoturn/autoturn.h"

#include <SQLiteCpp/Database.h>

#include <random>

#include "autoturn/clubstages.h"
#include "autoturn/teamselection.h"
#include "core/clubview.h"
#include "match/ordertables.h"
#include "orders/history.h"
#include "stats/reading.h"

namespace kestrin {

namespace {

std::string paragraphs(std::initializer_list<std::string_view> parts) {
    std::string out;
    for (std::string_view p : parts) {
        if (!out.empty()) out += "\n\n";
        out += p;
    }
    return out;
}

// Passes every message on and keeps a line of it for the club's report.
class ClubMessages : public Messages {
public:
    ClubMessages(Messages& to, std::vector<std::string>& lines) : to_(to), lines_(lines) {}
    void refuse(const std::string& t, const std::string& x) override { keep(t, x), to_.refuse(t, x); }
    void warn(const std::string& t, const std::string& x) override { keep(t, x), to_.warn(t, x); }
    void inform(const std::string& t, const std::string& x) override { keep(t, x), to_.inform(t, x); }
    bool ask(const std::string& t, const std::string& x) override { return keep(t, x), to_.ask(t, x); }
    bool askQuestion(const std::string& t, const std::string& x) override {
        return keep(t, x), to_.askQuestion(t, x);
    }

private:
    void keep(const std::string& title, const std::string& text) { lines_.push_back(title + ": " + text); }
    Messages& to_;
    std::vector<std::string>& lines_;
};

const PickChoice& choiceOf(const AutoTurnOptions& options, int entry) {
    static const PickChoice defaults;
    return entry >= 0 && size_t(entry) < options.Choices.size() ? options.Choices[size_t(entry)] : defaults;
}

}  // namespace

const std::string kAutoTurnHelp = paragraphs(
    {"Welcome to the Kestrin Auto Turn",
     "Here, you can let the computer create a turn for you based on selections you make. You can then review the "
     "changes it has made before sending your turn",
     "Select what you would like the computer to do, and then press the button at the bottom of the screen to start "
     "this feature"});

const std::string kAutoTurnSelectHelp = paragraphs(
    {"Select the options for all teams, or select a club to run a turn specifically for them",
     "By Total Skill will select the highest rated players available to you.",
     "By Performance will select the best performing players, based on their entire career.",
     "By Core Skill will select the players most suited to their positions.",
     "By Blend will select the best blending team, based on previous team selections (stats db is needed for this "
     "feature).",
     "Choose Auto Pick to let the computer decide a formation, or choose a formation yourself."});

const std::string kAutoTurnAdminHelp = paragraphs(
    {"Physio points priority will be attributed to any slightly injured players who have been selected to play, and "
     "squad members after that.",
     "Any low contracts or warnings of unhappy players can be viewed and actioned if necessary, and if the club can "
     "afford it.",
     "Automatic Coaching will prioritise players in the first eleven who are closest to reaching the next skill level "
     "and coach their core skills first.",
     "Automatic Scouting can also be done, the computer will look at good quality unmanaged players who have been "
     "performing well."});

std::vector<std::string> pickFormations() {
    std::vector<std::string> out{std::string(kAutoPick)};
    for (const FormationEntry& f : kFormations)
        if (f.Code != 0) out.emplace_back(f.Text);
    return out;
}

std::vector<std::string> teamListEntries(const Session& session) {
    std::vector<std::string> out{"All Teams"};
    for (const Club& c : session.Clubs) out.push_back(c.Name);
    return out;
}

RandomSource defaultRandomSource(unsigned seed) {
    auto engine = std::make_shared<std::mt19937>(seed);
    return [engine] { return std::uniform_real_distribution<double>(0.0, 1.0)(*engine); };
}

bool statsDatabaseExists(const Session& session) { return stats::statsFileExists(session.Prefs); }

std::vector<ClubRun> runAutoTurn(Session& session, const AutoTurnOptions& options, SQLite::Database* stats,
                                 Messages& messages, const RandomSource& rnd, const AutoTurnProgress& progress) {
    std::vector<ClubRun> runs;
    std::vector<int> chosen;
    for (int c = 0; c < session.ClubCount(); ++c)
        if (options.Team == 0 || options.Team == c + 1) chosen.push_back(c);

    for (size_t i = 0; i < chosen.size(); ++i) {
        if (progress.cancel && progress.cancel->load()) break;
        Club& club = session.Clubs[size_t(chosen[i])];
        if (progress.step) progress.step(int(i), int(chosen.size()), club.Name);
        ClubRun& run = runs.emplace_back();
        run.Name = club.Name;
        ClubMessages told(messages, run.Messages);

        const PickChoice& choice = choiceOf(options, chosen[i] + 1);
        // The line-up is the same for every fixture; only the drawn tactic differs.
        const std::optional<TeamPick> pick = selectTeam(club, choice, stats);
        if (!pick) {
            told.refuse("No Stats DB data for this team", "No stats db data can be found for " + club.Name +
                                                              "\r\nAuto turn cannot find a best blend for this team");
            run.Skipped = true;
            continue;
        }
        if (options.PickTeam) {
            const size_t fixtures = std::min(club.Fixtures.size(), size_t(std::max<int>(club.FixtureCount, 0)));
            for (size_t f = 0; f < fixtures; ++f) writeTeamOrders(club.Fixtures[f], club, *pick, rnd);
        }
        if (options.Physio) autoPhysio(club, pick->Shirts);
        if (options.Warn) autoWarnings(club, told);
        if (options.Scout) autoScouting(club, session.ExportClubs, rnd);
        if (options.Coach) {
            std::vector<HistoryRecord> history;
            try {
                history = readHistoryFile(historyPath(session, club));
            } catch (const std::exception& e) {
                // Coaching goes on without it: at worst a skill that reached
                // its potential is tried once more.
                told.warn("Coaching history not read",
                          "The coaching history of " + club.Name + " could not be read (" + e.what() +
                              "), so Auto Turn could not tell which skills have reached their potential.");
            }
            autoCoaching(club, pick->Shirts, history);
        }
    }
    if (progress.step && !(progress.cancel && progress.cancel->load()))
        progress.step(int(chosen.size()), int(chosen.size()), {});
    return runs;
}

std::vector<ClubRun> runAutoTurn(Session& session, const AutoTurnOptions& options, Messages& messages,
                                 const RandomSource& rnd, const AutoTurnProgress& progress) {
    std::optional<stats::ReadableStats> opened;
    if (statsDatabaseExists(session))
        opened = stats::openStatsForReading(session.Prefs, messages, stats::kUnusableTitle);
    SQLite::Database* db = opened && opened->state == stats::SchemaState::Ours ? &opened->db : nullptr;
    return runAutoTurn(session, options, db, messages, rnd, progress);
}

}  // namespace kestrin
