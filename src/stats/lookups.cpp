#include "stats/lookups.h"

#include <algorithm>
#include <stdexcept>
#include <zlib.h>

#include "core/text.h"

namespace kestrin::stats {

const std::array<std::string_view, 10> kSkills = {"PA", "CO", "TA", "RU", "SH", "DR", "DE", "OF", "ST", "CR"};

const std::array<std::string_view, 50> kCompetitions = {
    "Iberian Premier", "English Premier", "Italian Premier", "German Premier", "South American Premier",
    "Scottish Premier", "French Premier", "Argentine Premier", "Dutch Premier", "Non Main League",
    "English 1st Division", "Elite Cup", "League Cup", "English 2nd Division", "English 3rd Division",
    "Friendly Match", "Friendly Tournament", "Testimonial", "Charity Shield", "London Champions Cup",
    "Divisonal Playoff", "European Cup", "EC Winners Cup", "U.E.F.A. Cup", "Pacific Cup", "European Cup KO",
    "SAFA Cup", "European Super Cup", "South American Super Cup", "World Super Cup", "Concacaf Club Cup",
    "African Club Cup", "European Championship", "Euro Finals", "Concacaf", "World Cup Finals", "World Cup",
    "African Nations Cup", "ASCO Championship Cup", "South American Championship", "POOR Championship",
    "Welsh Premier", "European Super League", "Pacific Super League", "World Club Cup", "Pacific Premier",
    "Scandanavian Premier", "Portuguese Premier", "Reserve League", "Unknown"};

const std::array<std::string_view, 29> kRounds = {
    "Last 512 1st Leg", "Last 512 2nd Leg", "Last 512", "Last 256 1st Leg", "Last 256 2nd Leg", "Last 256",
    "Last 128 1st Leg", "Last 128 2nd Leg", "Last 128", "Last 64 1st Leg", "Last 64 2nd Leg", "Last 64",
    "Last 32 1st Leg", "Last 32 2nd Leg", "Last 32", "Last 16 1st Leg", "Last 16 2nd Leg", "Last 16",
    "QF 1st Leg", "QF 2nd Leg", "QF", "SF 1st Leg", "SF 2nd Leg", "SF", "Final 1st Leg", "Final 2nd Leg",
    "Final", "No Round", "Unknown"};

const std::array<std::string_view, 24> kTactics = {
    "No Specific Tactic Employed", "Pressure", "Blanket", "Offside", "Bite Back", "Stopcross", "Diamond",
    "The Wall", "Snappy", "Revolver", "Pass It", "Waiting Game", "Standard", "Centre Stage", "Tram Lines",
    "Route One", "Rainy Day", "Support", "Pot Shot", "Chameleon", "Flanker", "Trickery", "Sardines", "No Tactic"};

// Row 14 repeats row 8 and so is never found; it keeps its place.
const std::array<std::string_view, 21> kGoalTypes = {
    "power header", "placed header", "looping header", "flicked header", "low header", "diving header",
    "chip over", "low shot", "side footed shot", "powerful shot", "dipping shot", "swerving shot", "half volley",
    "low shot", "lob over", "volley", "clear cut penalty", "dubious penalty", "disputed penalty",
    "direct freekick", "Unknown"};

const std::array<std::string_view, 9> kLeagueNames = {
    "English Premier", "English 1st Division", "English 2nd Division", "English 3rd Division", "French Premier",
    "German Premier", "Italian Premier", "Scottish Premier", "Spanish Premier"};
const std::array<std::string_view, 9> kLeagueFiles = {"ENGTABS.TXT",  "ENG1TABS.TXT", "ENG2TABS.TXT",
                                                      "ENG3TABS.TXT", "FRATABS.TXT",  "GERTABS.TXT",
                                                      "ITATABS.TXT",  "SCOTABS.TXT",  "SPATABS.TXT"};

const std::array<std::string_view, 15> kFormationReportTexts = {
    "4  3  3", "4  4  2", "4  2  4", "4  5  1", "5  4  1", "5  3  2", "5  2  3", "3  4  3",
    "3  3  4", "3  2  5", "3  5  2", "2  3  5", "3  6  1", "3  3  3", "2  4  4"};

const std::array<std::string_view, 10> kPositionCodes = {"AGKP", "DEFL", "DEFC", "DEFR", "MIDL",
                                                         "MIDC", "MIDR", "STRL", "STRC", "STRR"};

const std::array<std::string_view, 19> kBallWinPhrases = {
    " dummies ",
    " checks back inside ",
    " flicks the ball a little way forward",
    " is looking for someone to make a run",
    " controls the ball",
    " holds off a challenge from ",
    " twists and turns, trying to lose ",
    " accelerates forward",
    " tries to shake off ",
    " holds off a another challenge, this time from ",
    " breaks through the centre",
    " takes the ball out wide",
    " is being hacked at by ",
    " double nutmegs ",
    " flicks the ball up and does a revolution with it....amazing skill!",
    " does a Zo'Ky!....what an entertainer!!",
    " nutmegs ",
    " flicks the ball up and juggles with it!",
    " does a two footed drag back!"};

const std::array<std::string_view, 4> kBallLossPhrases = {
    " loses control ", " over runs the ball under pressure from ", " loses possession after great covering by ",
    " forced back after great pressure from "};

int64_t wholeNumber(std::string_view text) {
    // A whole number of up to 15 figures, the most the files hold, is what
    // val would give exactly; only the rest needs its reading of decimals.
    size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    const bool negative = i < text.size() && text[i] == '-';
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    const size_t first = i;
    int64_t whole = 0;
    while (i < text.size() && i - first < 15 && text[i] >= '0' && text[i] <= '9') whole = whole * 10 + (text[i++] - '0');
    const bool more = i < text.size() && ((text[i] >= '0' && text[i] <= '9') || text[i] == '.');
    if (i > first && !more) return negative ? -whole : whole;
    constexpr double kLimit = 1e15;
    return roundHalfEven(std::clamp(val(text), -kLimit, kLimit));
}

int skillNumber(std::string_view text) {
    for (size_t i = 0; i < kSkills.size(); ++i)
        if (text == kSkills[i]) return int(i) + 1;
    return 11;
}

int competitionFromStart(std::string_view text) {
    for (size_t i = 0; i < kCompetitions.size(); ++i)
        if (startsWithNoCase(text, kCompetitions[i])) return int(i) + 1;
    return 50;
}

int competitionInLine(std::string_view text) {
    for (size_t i = 0; i + 1 < kCompetitions.size(); ++i)
        if (text.find(kCompetitions[i]) != std::string_view::npos) return int(i) + 1;
    return 50;
}

std::string_view competitionName(int number) {
    return (number >= 1 && number <= 50) ? kCompetitions[size_t(number - 1)] : std::string_view();
}

namespace {
int leagueRound(std::string_view twoCharacters) { return 50 + int(wholeNumber(twoCharacters)); }
}  // namespace

int roundFromText(std::string_view text) {
    const std::string up = upper(text);
    for (size_t i = 0; i < 28; ++i)
        if (findNoCase(up, kRounds[i]) != std::string::npos) return int(i) + 1;
    int round = leagueRound(text.substr(0, 2));
    if (round == 50 && startsWithNoCase(text, "MATCH "))
        round = 50 + int(std::clamp<int64_t>(wholeNumber(text.substr(6)), -1000000, 1000000));
    return round;
}

int roundFromLine(int competition, std::string_view text) {
    const size_t at = competitionName(competition).size() + 1;
    const std::string_view rest = at <= text.size() ? text.substr(at) : std::string_view();
    for (size_t i = 0; i < 27; ++i)
        if (startsWithNoCase(rest, kRounds[i])) return int(i) + 1;
    return leagueRound(rest.substr(0, 2));
}

int tacticNumber(std::string_view text) {
    const std::string t = trim(text);
    for (size_t i = 1; i <= 22; ++i)
        if (equalsNoCase(t, kTactics[i])) return int(i);
    return 23;
}

int goalTypeInLine(std::string_view text) {
    for (size_t i = 0; i < 20; ++i)
        if (findNoCase(text, kGoalTypes[i]) != std::string::npos) return int(i) + 1;
    return 21;
}

int leagueFromFileName(std::string_view name) {
    const std::string up = upper(name);
    for (size_t i = 0; i < kLeagueFiles.size(); ++i)
        if (up == kLeagueFiles[i]) return int(i) + 1;
    return 0;
}

std::string_view leagueName(int number) {
    return (number >= 1 && number <= 9) ? kLeagueNames[size_t(number - 1)] : std::string_view();
}

int formationNumber(std::string_view text) {
    for (size_t i = 0; i < kFormationReportTexts.size(); ++i)
        if (text == kFormationReportTexts[i]) return int(i) + 1;
    return 16;
}

std::string formationText(int number) {
    if (number < 1 || number > 15) return {};
    std::string t(kFormationReportTexts[size_t(number - 1)]);
    return t.substr(0, 1) + " - " + t.substr(3, 1) + " - " + t.substr(6, 1);
}

int positionNumber(std::string_view code) {
    for (size_t i = 0; i < kPositionCodes.size(); ++i)
        if (code == kPositionCodes[i]) return int(i) + 1;
    return 0;
}

std::string compressString(std::string_view text) {
    uLongf size = uLongf(double(text.size()) * 1.01 + 13);
    if (size < compressBound(uLong(text.size()))) size = compressBound(uLong(text.size()));
    // Compressed in place behind its length, so the output is not copied again.
    std::string out = std::to_string(text.size()) + ":";
    const size_t head = out.size();
    out.resize(head + size);
    const int rc = compress(reinterpret_cast<Bytef*>(out.data() + head), &size,
                            reinterpret_cast<const Bytef*>(text.data()), uLong(text.size()));
    if (rc == Z_MEM_ERROR) throw std::runtime_error("Insufficient memory to compress string");
    if (rc == Z_BUF_ERROR) throw std::runtime_error("Insufficient space in output buffer to compress string");
    if (rc != Z_OK) throw std::runtime_error("Unknown error during compress operation");
    out.resize(head + size);
    return out;
}

void ClubLookup::clear() {
    entries_.clear();
    byName_.clear();
    byTruncated_.clear();
    last_ = 0;
}

void ClubLookup::add(std::string_view code, std::string_view name) {
    if (entries_.size() >= kMaxClubEntries) return;
    // Fixed-width entries: a longer name is known only by its first 20 characters.
    // Cutting before trimming gives what padding to the width and trimming would.
    Entry e{trim(code.substr(0, 5)), trim(name.substr(0, 20)), trim(name.substr(0, 15))};
    const int number = int(entries_.size()) + 1;
    byName_.emplace(upper(e.name), number);
    byTruncated_.emplace(upper(e.truncated), number);
    entries_.push_back(std::move(e));
}

std::string ClubLookup::find(std::string_view name, bool truncated) {
    const std::string wanted = trim(name);
    if (last_ > 0) {
        const Entry& e = entries_[size_t(last_ - 1)];
        if (equalsNoCase(truncated ? e.truncated : e.name, wanted)) return e.code;
    }
    const auto& index = truncated ? byTruncated_ : byName_;
    auto it = index.find(upper(wanted));
    if (it == index.end()) return kUnknownClub;
    last_ = it->second;
    return entries_[size_t(last_ - 1)].code;
}

std::string ClubLookup::codeFromName(std::string_view name) { return find(name, false); }
std::string ClubLookup::codeFromTruncated(std::string_view name) { return find(name, true); }

}  // namespace kestrin::stats
