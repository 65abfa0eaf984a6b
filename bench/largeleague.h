#pragma once
// The large demo league of the benchmarks, made once per run in a folder of
// its own and removed at exit, with its session as the manager gets it.
#include <unistd.h>

#include "core/loader.h"
#include "core/messages.h"
#include "demo/demo.h"

namespace kestrin::bench {

class LargeLeague {
public:
    LargeLeague() : folder_(fs::temp_directory_path() / ("kestrin-bench-" + std::to_string(::getpid()))) {
        fs::remove_all(folder_);
        makeDemoLeague(folder_, largeDemoOptions());
        RecordingMessages quiet;
        session_ = loadSession(folder_, quiet);
    }
    ~LargeLeague() {
        std::error_code ec;
        fs::remove_all(folder_, ec);
    }
    const fs::path& folder() const { return folder_; }
    const Session& session() const { return session_; }

private:
    fs::path folder_;
    Session session_;
};

inline const LargeLeague& largeLeague() {
    static const LargeLeague l;
    return l;
}

}  // namespace kestrin::bench
