#include "files/clubexport.h"

#include <iterator>
#include <string_view>

#include "core/errors.h"
#include "core/text.h"

namespace kestrin {

namespace {

bool isHeader(const std::string& line) { return startsWith(line, "EXPORT FOR"); }

// Fills the player in field order. The file has no tolerance rules: a field
// that is missing or won't read leaves it and the remaining fields as they
// are. `t` is room for the tokens, reused from line to line.
void readPlayer(std::string_view line, ExportPlayer& p, std::vector<std::string_view>& t) {
    size_t dash = line.find("- ");
    if (dash == std::string_view::npos) {
        p.Name = trim(line);
        return;
    }
    p.Name = trim(line.substr(0, dash));
    const std::string tail = trim(line.substr(dash + 2));
    splitTokens(tail, t);
    const size_t n = t.size();

    std::string* const shown[] = {&p.Age, &p.Position, &p.TotalSkill, &p.Sign, &p.Played, &p.Perf, &p.Goals};
    for (size_t k = 0; k < std::size(shown); ++k) {
        if (k >= n) return;
        shown[k]->assign(t[k]);
    }
    try {
        if (n < 8) return;
        p.MinValue = parseInt32(t[7], true);
        if (n < 9) return;
        p.MaxValue = t[8] == "#NULL#" ? std::string_view("0") : t[8];
        for (size_t k = 0; k < p.Portrait.size(); ++k) {
            if (n < 10 + k) return;
            p.Portrait[k] = parseInt32(t[9 + k]);
        }
        if (n < 17) return;
        p.Loan = parseInt16(t[16]);
    } catch (const FieldError&) {
        return;
    }
    // The loaning club may be several words, so it runs up to the managed
    // flag; the club's colours are every word behind the flag.
    bool flagged = false;
    for (size_t i = 17; i < n; ++i) {
        const std::string_view word = t[i];
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
    std::vector<std::string_view> tokens;
    // The first line is a title; player lines before the first header
    // belong to no club of the game and are passed over.
    size_t i = 1;
    while (i < lines.size()) {
        const std::string& line = lines[i++];
        if (isHeader(line)) {
            ExportClub& club = clubs.emplace_back();
            club.Name = fromColumn(line, 12);
            size_t next = i + 1;
            while (next < lines.size() && !isHeader(lines[next])) ++next;
            club.Players.reserve(next - i);
            // The line after a header is its column headings; the one after
            // that is the first player, whatever it holds.
            ++i;
            if (i >= lines.size()) break;
            readPlayer(lines[i++], club.Players.emplace_back(), tokens);
        } else if (!clubs.empty()) {
            readPlayer(line, clubs.back().Players.emplace_back(), tokens);
        }
    }
    return clubs;
}

}  // namespace kestrin
