#pragma once

#include "base/text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace safety {

// Why a version went into the archive.
enum class Reason {
    Exit,        // unsaved at the exit
    Replaced,    // gave way to a new or another document
    SaveFailed,  // could not be written to its file
    Overwritten, // changed by another program since it was read, and then overwritten
    Structure,   // holds what the editor cannot keep, and was overwritten
    Marks,       // bookmarks that gave way to fewer
    Changed,     // what was brought back after a crash, where the file had changed meanwhile
    Crash        // what ended the program each time that it was brought back
};

// One archived version.
struct Version {
    base::Text path;
    base::Text document; // name without folder
    base::Text extension;
    std::int64_t time = 0;  // seconds since 1970, UTC
    std::uint64_t size = 0; // bytes
    Reason reason = Reason::Exit;
};

// What rules of the program drop: a folder of plain files, "<document> <date> <time> [<reason>].<extension>",
// that any program opens. The folder and its files are readable by their owner alone. Calls may take as long
// as the disk does.
class Archive {
public:
    struct Limits {
        std::int64_t age = 30 * std::int64_t{24 * 60 * 60}; // seconds
        std::uint64_t size = 500'000'000;                   // bytes of all versions
    };

    // `folder` is created when the first version goes in; the folder above it is there.
    explicit Archive(base::Text folder) : Archive(std::move(folder), Limits()) {}
    Archive(base::Text folder, Limits limits) : folder_(std::move(folder)), limits_(limits) {}

    // How long versions stay and how many megabytes they may take together, from the next one on.
    void setLimits(int days, int megabytes);

    // Keeps these bytes as a version of the document, at `now`, seconds since 1970. Bytes that the archive
    // holds for this document already are not kept again. Versions beyond the limits are deleted, the oldest
    // first; the newest one of each document stays. Throws base::Failure when the version cannot be written;
    // what was there stays.
    void keep(base::TextView document, std::string_view bytes, base::TextView extension, Reason reason,
              std::int64_t now);

    // All versions, the newest first. Files that are none are left out.
    std::vector<Version> versions() const;

    // Deletes all versions; files that are none stay. Throws base::Failure when one cannot be deleted.
    void removeAll();

private:
    bool holds(base::TextView document, std::string_view bytes) const;
    void prune(std::int64_t now);

    base::Text folder_;
    Limits limits_;
};

} // namespace safety
