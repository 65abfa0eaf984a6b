#include "files/archive.h"

#include <utime.h>

#include <zip.h>

#include <fstream>
#include <memory>

#include "core/errors.h"
#include "core/gamefolder.h"
#include "core/text.h"

namespace kestrin {

namespace {

struct ZipCloser {
    void operator()(zip_t* z) const {
        if (z) zip_discard(z);
    }
};
using ZipPtr = std::unique_ptr<zip_t, ZipCloser>;

std::string archiveName(const std::filesystem::path& p) { return p.filename().string(); }

ZipPtr openForReading(const std::filesystem::path& zipPath) {
    int err = 0;
    zip_t* z = zip_open(zipPath.c_str(), ZIP_RDONLY | ZIP_CHECKCONS, &err);
    if (!z) {
        zip_error_t ze;
        zip_error_init_with_code(&ze, err);
        std::string why = zip_error_strerror(&ze);
        zip_error_fini(&ze);
        if (err == ZIP_ER_NOENT || err == ZIP_ER_OPEN)
            throw ArchiveError("The archive " + zipPath.string() + " could not be opened (" + why + ").");
        throw ArchiveError("The archive " + archiveName(zipPath) + " is damaged and can't be read (" + why +
                           "). Ask for the file to be sent again.");
    }
    return ZipPtr(z);
}

// True when the entry's name stays inside the target folder.
bool safeEntryName(const std::string& name) {
    if (name.empty() || name[0] == '/' || name[0] == '\\') return false;
    if (name.size() >= 2 && name[1] == ':') return false;  // a drive letter
    std::string part;
    for (size_t i = 0; i <= name.size(); ++i) {
        char c = i < name.size() ? name[i] : '/';
        if (c == '/' || c == '\\') {
            if (part == "..") return false;
            part.clear();
        } else {
            part += c;
        }
    }
    return true;
}

bool isSymlinkEntry(zip_t* z, zip_uint64_t index) {
    zip_uint8_t opsys = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(z, index, 0, &opsys, &attributes) != 0) return false;
    if (opsys != ZIP_OPSYS_UNIX) return false;
    const zip_uint32_t mode = attributes >> 16;
    return (mode & 0170000) == 0120000;
}

}  // namespace

void writeZip(const std::filesystem::path& zipPath, const std::vector<ZipEntry>& entries) {
    writeZip(zipPath, entries, 0);
}

void writeZip(const std::filesystem::path& zipPath, const std::vector<ZipEntry>& entries, std::time_t modified) {
    std::filesystem::path tmp = zipPath;
    tmp += ".part";
    std::error_code ec;
    std::filesystem::remove(tmp, ec);
    int err = 0;
    zip_t* z = zip_open(tmp.c_str(), ZIP_CREATE | ZIP_TRUNCATE, &err);
    if (!z) throw WriteError(zipPath.string(), "the archive could not be created");
    for (const ZipEntry& e : entries) {
        zip_source_t* src = zip_source_buffer(z, e.bytes.data(), e.bytes.size(), 0);
        zip_int64_t index = src ? zip_file_add(z, e.name.c_str(), src, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8) : -1;
        if (index < 0 || (modified != 0 && zip_file_set_mtime(z, zip_uint64_t(index), modified, 0) != 0)) {
            if (src && index < 0) zip_source_free(src);
            zip_discard(z);
            throw WriteError(zipPath.string(), "the entry " + e.name + " could not be added");
        }
    }
    if (zip_close(z) != 0) {
        std::string why = zip_strerror(z);
        zip_discard(z);
        std::filesystem::remove(tmp, ec);
        throw WriteError(zipPath.string(), why);
    }
    std::filesystem::rename(tmp, zipPath, ec);
    if (ec) {
        std::filesystem::remove(tmp, ec);
        throw WriteError(zipPath.string(), ec.message());
    }
}

std::vector<std::string> listZip(const std::filesystem::path& zipPath) {
    ZipPtr z = openForReading(zipPath);
    std::vector<std::string> names;
    zip_int64_t n = zip_get_num_entries(z.get(), 0);
    for (zip_int64_t i = 0; i < n; ++i) {
        const char* name = zip_get_name(z.get(), zip_uint64_t(i), ZIP_FL_ENC_RAW);
        if (name) names.emplace_back(name);
    }
    return names;
}

std::vector<std::filesystem::path> extractZip(const std::filesystem::path& zipPath,
                                              const std::filesystem::path& targetDir,
                                              const std::vector<std::string>& only) {
    ZipPtr z = openForReading(zipPath);
    zip_int64_t n = zip_get_num_entries(z.get(), 0);

    // Check every chosen entry before a byte is written.
    struct Chosen {
        zip_uint64_t index;
        std::string name;
    };
    std::vector<Chosen> chosen;
    for (zip_int64_t i = 0; i < n; ++i) {
        const char* raw = zip_get_name(z.get(), zip_uint64_t(i), ZIP_FL_ENC_RAW);
        if (!raw) continue;
        std::string name = raw;
        if (!only.empty()) {
            bool wanted = false;
            for (const std::string& o : only) wanted = wanted || equalsNoCase(o, name);
            if (!wanted) continue;
        }
        if (!safeEntryName(name))
            throw ArchiveError("The archive " + archiveName(zipPath) + " holds the entry \"" + name +
                               "\", which would be written outside the game folder. Nothing was unpacked; ask "
                               "your game administrator for a new archive.");
        if (isSymlinkEntry(z.get(), zip_uint64_t(i)))
            throw ArchiveError("The archive " + archiveName(zipPath) + " holds the entry \"" + name +
                               "\", a link to another place on the disk. Nothing was unpacked; ask your game "
                               "administrator for a new archive.");
        chosen.push_back({zip_uint64_t(i), name});
    }

    // Every entry is read whole before the first is written, so a damaged
    // archive leaves nothing half unpacked.
    std::vector<std::string> contents(chosen.size());
    for (size_t k = 0; k < chosen.size(); ++k) {
        const Chosen& c = chosen[k];
        if (!c.name.empty() && (c.name.back() == '/' || c.name.back() == '\\')) continue;
        zip_file_t* f = zip_fopen_index(z.get(), c.index, 0);
        if (!f)
            throw ArchiveError("The archive " + archiveName(zipPath) + " is damaged: the entry \"" + c.name +
                               "\" can't be read. Ask for the file to be sent again.");
        std::string& bytes = contents[k];
        char buf[65536];
        zip_int64_t got;
        while ((got = zip_fread(f, buf, sizeof buf)) > 0) bytes.append(buf, size_t(got));
        zip_fclose(f);
        if (got < 0)
            throw ArchiveError("The archive " + archiveName(zipPath) + " is damaged: the entry \"" + c.name +
                               "\" is cut short. Ask for the file to be sent again.");
    }

    std::vector<std::filesystem::path> written;
    for (size_t k = 0; k < chosen.size(); ++k) {
        std::filesystem::path out = targetDir;
        std::string normal = chosen[k].name;
        for (char& ch : normal)
            if (ch == '\\') ch = '/';
        out /= std::filesystem::path(normal).relative_path();
        std::error_code ec;
        if (!normal.empty() && normal.back() == '/') {
            std::filesystem::create_directories(out, ec);
            continue;
        }
        std::filesystem::create_directories(out.parent_path(), ec);
        writeFileAtomic(out, contents[k]);
        // The entry keeps its date: the week's date is read off it.
        zip_stat_t st;
        zip_stat_init(&st);
        if (zip_stat_index(z.get(), chosen[k].index, 0, &st) == 0 && (st.valid & ZIP_STAT_MTIME)) {
            const utimbuf times{st.mtime, st.mtime};
            ::utime(out.c_str(), &times);
        }
        written.push_back(out);
    }
    return written;
}

}  // namespace kestrin
