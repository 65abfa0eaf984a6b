// Arbitrary bytes as a match report, replayed to its end and searched with
// its own first line as the words. The reader may refuse the report with
// GameFileError and must do nothing worse.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "results/matchviewer.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace kestrin::results;
    const std::vector<std::string> lines =
        kestrin::splitLines(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!lines.empty()) searchReport(lines, searchTerms(lines[0]));
    try {
        MatchReplay replay(lines, "Squadsheets/FUZZ#REP.TXT");
        replay.closingStatistics();
        // The bytes also play the slider and the pause box.
        for (size_t i = 0; replay.running(); ++i) {
            const uint8_t b = size ? data[i % size] : 0;
            replay.setPaused(b % 7 == 0 && i % 3 == 0);
            const ViewerTick t = replay.tick(b * 4);
            for (const ViewerRow& r : t.rows)
                if (r.text.size() > kViewerRowWidth || r.back == r.fore) __builtin_trap();
        }
    } catch (const kestrin::GameFileError&) {
    }
    return 0;
}
