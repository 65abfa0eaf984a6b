#include "files/clubexport.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <span>
#include <string_view>
#include <thread>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

namespace {

bool isHeader(std::string_view line) { return startsWith(line, "EXPORT FOR"); }

class Reader {
public:
    Reader(std::string& text, std::vector<std::unique_ptr<char[]>>& joined) : text_(text), joined_(joined) {}

    // Fills the player in field order. The file has no tolerance rules: a
    // field that is missing or won't read leaves it and the remaining fields
    // as they are.
    void readPlayer(std::string_view line, ExportPlayer& p) {
        const size_t dash = line.find("- ");
        if (dash == std::string_view::npos) {
            p.Name = trimView(line);
            return;
        }
        p.Name = trimView(line.substr(0, dash));
        splitTokens(trimView(line.substr(dash + 2)), t_);
        const size_t n = t_.size();

        std::string_view* const shown[] = {&p.Age, &p.Position, &p.TotalSkill, &p.Sign, &p.Played, &p.Perf, &p.Goals};
        for (size_t k = 0; k < std::size(shown); ++k) {
            if (k >= n) return;
            *shown[k] = t_[k];
        }
        try {
            if (n < 8) return;
            p.MinValue = parseInt32(t_[7], true);
            if (n < 9) return;
            p.MaxValue = t_[8] == "#NULL#" ? std::string_view("0") : t_[8];
            for (size_t k = 0; k < p.Portrait.size(); ++k) {
                if (n < 10 + k) return;
                p.Portrait[k] = parseInt32(t_[9 + k]);
            }
            if (n < 17) return;
            p.Loan = parseInt16(t_[16]);
        } catch (const FieldError&) {
            return;
        }
        // The loaning club may be several words, so it runs up to the managed
        // flag; the club's colours are every word behind the flag. Each word
        // is taken with a blank behind it, and the club is trimmed once the
        // flag is found.
        const std::span<const std::string_view> tail = std::span(t_).subspan(17);
        const auto flag = std::find_if(tail.begin(), tail.end(), [](std::string_view w) { return w == "Y" || w == "N"; });
        if (flag == tail.end()) {
            p.LoanClub = words(tail, true);
            return;
        }
        p.LoanClub = trimView(words(std::span(tail.begin(), flag), false));
        p.Managed = *flag;
        p.Colours = words(std::span(flag + 1, tail.end()), true);
    }

private:
    // The words joined by single blanks, with one behind the last when asked.
    // Most lines already hold them so, and then the text is a view into the
    // file's bytes; for a blank behind the last word of a line, the byte
    // behind it is a trimmed blank or the line's end, which no view covers,
    // and it is made a blank.
    std::string_view words(std::span<const std::string_view> w, bool blankBehind) {
        if (w.empty()) return {};
        bool single = true;
        for (size_t k = 1; k < w.size() && single; ++k)
            single = w[k].data() == w[k - 1].data() + w[k - 1].size() + 1;
        const size_t first = size_t(w.front().data() - text_.data());
        const size_t end = size_t(w.back().data() - text_.data()) + w.back().size();
        if (single && (!blankBehind || end < text_.size())) {
            if (blankBehind) text_[end] = ' ';
            return std::string_view(text_).substr(first, end - first + blankBehind);
        }
        size_t size = w.size() - 1 + blankBehind;
        for (std::string_view word : w) size += word.size();
        char* const out = room(size);
        char* at = out;
        for (size_t k = 0; k < w.size(); ++k) {
            at = std::copy(w[k].begin(), w[k].end(), at);
            if (k + 1 < w.size() || blankBehind) *at++ = ' ';
        }
        return std::string_view(out, size);
    }

    // Room for a joined text, in chunks that never move.
    char* room(size_t size) {
        if (size > left_) {
            const size_t chunk = std::max<size_t>(size, 4096);
            joined_.push_back(std::make_unique_for_overwrite<char[]>(chunk));
            next_ = joined_.back().get();
            left_ = chunk;
        }
        char* out = next_;
        next_ += size;
        left_ -= size;
        return out;
    }

    std::string& text_;  // the file's bytes; only bytes of the lines read are written
    std::vector<std::unique_ptr<char[]>>& joined_;
    std::vector<std::string_view> t_;  // the tokens of a line, room reused from line to line
    char* next_ = nullptr;
    size_t left_ = 0;
};

}  // namespace

namespace {

// The clubs of one stretch of the file, read by a reader of its own.
struct Stretch {
    std::vector<ExportPlayer> players;
    std::vector<size_t> firstPlayer;
    std::vector<std::string_view> names;
    std::vector<std::unique_ptr<char[]>> joined;
};

// `first` tells whether the stretch starts with the file's title line; any
// other stretch starts at a club header.
void readStretch(ClubExport::Storage& st, std::string_view text, bool first, Stretch& out) {
    Reader reader(st.text, out.joined);
    size_t lineCount = 1;
    for (const char* at = text.data(), *end = text.data() + text.size();
         (at = static_cast<const char*>(std::memchr(at, '\n', size_t(end - at)))); ++at)
        ++lineCount;
    out.players.reserve(lineCount);

    LineWalker lines(text);
    std::string_view line;
    // The first line is a title; player lines before the first header
    // belong to no club of the game and are passed over.
    if (first) lines.next(line);
    while (lines.next(line)) {
        if (isHeader(line)) {
            out.names.push_back(line.size() > 11 ? line.substr(11) : std::string_view());
            out.firstPlayer.push_back(out.players.size());
            // The line after a header is its column headings; the one after
            // that is the first player, whatever it holds.
            if (!lines.next(line) || !lines.next(line)) break;
            reader.readPlayer(line, out.players.emplace_back());
        } else if (!out.names.empty()) {
            reader.readPlayer(line, out.players.emplace_back());
        }
    }
}

// Where the second half of a large file begins: a club header at or after
// its middle that no header of the two lines before it takes as its headings
// or first player; the end when there is none or the file is small.
size_t secondHalf(std::string_view text) {
    constexpr size_t kWorthSplitting = 256 * 1024;
    if (text.size() < kWorthSplitting) return text.size();
    auto lineBefore = [&](size_t start) {
        const size_t from = start < 2 ? 0 : text.rfind('\n', start - 2);
        return text.substr(from == std::string_view::npos || start < 2 ? 0 : from + 1);
    };
    for (size_t at = text.find("\nEXPORT FOR", text.size() / 2); at != std::string_view::npos;
         at = text.find("\nEXPORT FOR", at + 1)) {
        const std::string_view one = lineBefore(at + 1), two = lineBefore(size_t(one.data() - text.data()));
        if (one.data() != text.data() && !isHeader(one) && !isHeader(two)) return at + 1;
    }
    return text.size();
}

}  // namespace

ClubExport readClubExport(std::string bytes, const std::string&) {
    // The bytes are moved to their final place before any view is taken: a
    // short string's bytes move with it.
    auto st = std::make_shared<ClubExport::Storage>();
    st->text = std::move(bytes);
    const std::string_view text(st->text);
    // A large export is read in two halves at once, split at a club header;
    // each half writes only bytes of its own lines.
    const size_t split = secondHalf(text);
    std::array<Stretch, 2> halves;
    if (split < text.size()) {
        std::thread second([&] { readStretch(*st, text.substr(split), false, halves[1]); });
        readStretch(*st, text.substr(0, split), true, halves[0]);
        second.join();
    } else {
        readStretch(*st, text, true, halves[0]);
    }

    st->players.reserve(halves[0].players.size() + halves[1].players.size());
    std::vector<size_t> firstPlayer;
    std::vector<std::string_view> names;
    for (Stretch& h : halves) {
        for (size_t c = 0; c < h.names.size(); ++c) {
            names.push_back(h.names[c]);
            firstPlayer.push_back(st->players.size() + h.firstPlayer[c]);
        }
        st->players.insert(st->players.end(), h.players.begin(), h.players.end());
        for (auto& chunk : h.joined) st->joined.push_back(std::move(chunk));
    }
    // Every player is in place, so the clubs' spans can be taken.
    st->clubs.reserve(names.size());
    for (size_t c = 0; c < names.size(); ++c) {
        const size_t end = c + 1 < names.size() ? firstPlayer[c + 1] : st->players.size();
        st->clubs.push_back({names[c], std::span<const ExportPlayer>(st->players).subspan(firstPlayer[c], end - firstPlayer[c])});
    }
    return ClubExport(std::move(st));
}

}  // namespace kestrin
