#include "orders/scoutfile.h"

#include "core/binrecord.h"
#include "core/gamefolder.h"

namespace kestrin {

std::vector<ScoutRecord> parseScoutRecords(std::string_view bytes) {
    std::vector<ScoutRecord> out;
    for (size_t off = 0; off + kScoutRecordLength <= bytes.size(); off += kScoutRecordLength) {
        RecordReader r(bytes.substr(off, kScoutRecordLength));
        ScoutRecord s;
        s.Date = r.text(0, 8);
        s.Name = r.text(8, 30);
        s.Position = r.text(38, 4);
        s.Club = r.text(42, 20);
        for (size_t i = 0; i < 11; ++i) s.Skills[i] = r.int16(62 + 2 * i);
        s.TotalSkill = r.int16(84);
        s.TLFigure = r.int16(86);
        s.Goals = r.int16(88);
        s.Age = r.int16(90);
        s.Potential = r.int16(92);
        s.Perf = r.int16(94);
        s.Sign = r.int16(96);
        s.Value = r.real(98);
        s.International = r.text(106, 1);
        s.Retiring = r.text(107, 1);
        s.Flinging = r.text(108, 1);
        out.push_back(std::move(s));
    }
    return out;
}

std::vector<ScoutRecord> readScoutFile(const std::filesystem::path& path) {
    std::error_code ec;
    if (!std::filesystem::exists(path, ec)) return {};
    return parseScoutRecords(readFileBytes(path));
}

std::string scoutRecordBytes(const ScoutRecord& s) {
    RecordWriter w(kScoutRecordLength);
    w.text(0, 8, s.Date);
    w.text(8, 30, s.Name);
    w.text(38, 4, s.Position);
    w.text(42, 20, s.Club);
    for (size_t i = 0; i < 11; ++i) w.int16(62 + 2 * i, s.Skills[i]);
    w.int16(84, s.TotalSkill);
    w.int16(86, s.TLFigure);
    w.int16(88, s.Goals);
    w.int16(90, s.Age);
    w.int16(92, s.Potential);
    w.int16(94, s.Perf);
    w.int16(96, s.Sign);
    w.real(98, s.Value);
    w.text(106, 1, s.International);
    w.text(107, 1, s.Retiring);
    w.text(108, 1, s.Flinging);
    return w.bytes();
}

}  // namespace kestrin
