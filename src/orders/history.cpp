#include "orders/history.h"

#include "core/binrecord.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

std::vector<HistoryRecord> parseHistory(std::string_view bytes) {
    std::vector<HistoryRecord> out;
    for (size_t off = 0; off + kHistoryRecordLength <= bytes.size(); off += kHistoryRecordLength) {
        RecordReader r(bytes.substr(off, kHistoryRecordLength));
        HistoryRecord h;
        h.Date = r.text(0, 8);
        h.Name = trim(r.text(8, 30));
        h.Position = trim(r.text(38, 4));
        h.Result = r.text(42, 1);
        h.Skill = r.text(43, 2);
        h.NewValue = r.int16(45);
        out.push_back(std::move(h));
    }
    return out;
}

std::vector<HistoryRecord> readHistoryFile(const std::filesystem::path& path) {
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) return {};
    return parseHistory(readFileBytes(path));
}

std::string historyBytes(const std::vector<HistoryRecord>& records) {
    std::string out;
    for (const HistoryRecord& h : records) {
        RecordWriter w(kHistoryRecordLength);
        w.text(0, 8, h.Date);
        w.text(8, 30, h.Name);
        w.text(38, 4, h.Position);
        w.text(42, 1, h.Result);
        w.text(43, 2, h.Skill);
        w.int16(45, h.NewValue);
        out += w.bytes();
    }
    return out;
}

int historySkillIndex(const std::string& code) {
    static const char* codes[] = {"PA", "CO", "TA", "RU", "SH", "DR", "DE", "OF", nullptr, "ST", nullptr};
    for (int i = 0; i < 11; ++i)
        if (codes[i] && code == codes[i]) return i;
    return -1;
}

int historyResultColour(const std::string& result) {
    if (result == "P") return 0xFF0000;
    if (result == "Y") return 0x00FF00;
    if (result == "N") return 0xFFFF00;
    return -1;
}

}  // namespace kestrin

namespace kestrin {

std::string makePosition(std::string_view place) {
    const std::string text = trim(place);
    const double n = val(text);
    if (n == 1) return "Champions";
    if (n == 2) return "Runners up";
    if (n >= 11 && n <= 19) return text + "th";
    const char last = text.empty() ? ' ' : text.back();
    if (last == '1') return text + "st";
    if (last == '2') return text + "nd";
    if (last == '3') return text + "rd";
    return text + "th";
}

std::string convDate(std::string_view date) {
    const std::string_view lastTwo = date.size() >= 2 ? date.substr(date.size() - 2) : date;
    return columns(date, 4, 3) + columns(date, 1, 3) + std::string(lastTwo);
}

std::string sortDate(std::string_view date) { return columns(date, 7, 4) + columns(date, 4, 2) + columns(date, 1, 2); }

}  // namespace kestrin
