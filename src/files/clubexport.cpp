#include "files/clubexport.h"

#include "core/errors.h"
#include "core/text.h"

namespace kestrin {

namespace {

bool isHeader(const std::string& line) { return startsWith(line, "EXPORT FOR"); }

// Fills the player in field order. The file has no tolerance rules: a field
// that won't read leaves this and the remaining fields as they are.
void readPlayer(std::string_view line, ExportPlayer& p) {
    size_t dash = line.find("- ");
    if (dash == std::string_view::npos) {
        p.Name = trim(line);
        return;
    }
    p.Name = trim(line.substr(0, dash));
    Tokens t(trim(line.substr(dash + 2)));
    try {
        p.Age = t[1];
        p.Position = t[2];
        p.TotalSkill = t[3];
        p.Sign = t[4];
        p.Played = t[5];
        p.Perf = t[6];
        p.Goals = t[7];
        p.MinValue = parseInt32(t[8], true);
        p.MaxValue = t[9] == "#NULL#" ? std::string("0") : t[9];
        for (size_t k = 0; k < p.Portrait.size(); ++k) p.Portrait[k] = parseInt32(t[10 + k]);
        p.Loan = parseInt16(t[17]);
    } catch (const FieldError&) {
        return;
    }
    // The loaning club may be several words, so it runs up to the managed
    // flag; the club's colours are every word behind the flag.
    bool flagged = false;
    for (size_t i = 18; i <= t.count(); ++i) {
        const std::string& word = t[i];
        if (flagged) {
            p.Colours += word;
            p.Colours += ' ';
        } else if (word == "Y" || word == "N") {
            p.LoanClub = trim(p.LoanClub);
            p.Managed = word;
            flagged = true;
        } else {
            p.LoanClub += word;
            p.LoanClub += ' ';
        }
    }
}

}  // namespace

std::vector<ExportClub> readClubExport(const std::vector<std::string>& lines, const std::string&) {
    std::vector<ExportClub> clubs;
    // The first line is a title; player lines before the first header
    // belong to no club of the game and are passed over.
    size_t i = 1;
    while (i < lines.size()) {
        const std::string& line = lines[i++];
        if (isHeader(line)) {
            ExportClub& club = clubs.emplace_back();
            club.Name = fromColumn(line, 12);
            // The line after a header is its column headings; the one after
            // that is the first player, whatever it holds.
            ++i;
            if (i >= lines.size()) break;
            readPlayer(lines[i++], club.Players.emplace_back());
        } else if (!clubs.empty()) {
            readPlayer(line, clubs.back().Players.emplace_back());
        }
    }
    return clubs;
}

}  // namespace kestrin
