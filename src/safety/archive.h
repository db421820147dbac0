#pragma once

#include "base/text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace safety {

// Why a version was archived.
enum class Reason {
    Exit,        // unsaved at the exit
    Replaced,    // replaced by a new or another document
    SaveFailed,  // could not be written to its file
    Overwritten, // changed by another program since it was read, then overwritten
    InPlace,     // had to be overwritten in place
    Structure,   // contains what the editor cannot keep, and was overwritten
    Marks,       // bookmarks replaced by fewer
    Changed,     // the changed file of unsaved work that was restored after a crash
    Crash        // crashed the program each time it was restored
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

// The archive of work that the program's rules discard: a folder of plain files named "<document> <date>
// <time> [<reason>].<extension>", which other programs can open. Only the owner can read the folder and its
// files. Calls block on the disk.
class Archive {
public:
    struct Limits {
        std::int64_t age = std::int64_t{30} * 24 * 60 * 60; // seconds
        std::uint64_t size = 500'000'000;                   // bytes of all versions together
    };

    // `folder` is created with the first version; its parent must exist.
    explicit Archive(base::Text folder) : Archive(std::move(folder), Limits()) {}
    Archive(base::Text folder, Limits limits) : folder_(std::move(folder)), limits_(limits) {}

    // Sets the maximum age in days and the maximum total size in megabytes; applies from the next version on.
    void setLimits(int days, int megabytes);

    // Archives these bytes as a version of the document at `now`, in seconds since 1970, unless the archive
    // already holds the same bytes for this document. Then deletes versions beyond the limits, oldest first,
    // except the newest one of each document. Returns the path of the new version, empty if
    // the archive held the bytes already. Throws base::Failure and changes nothing if the version cannot be
    // written.
    base::Text keep(base::TextView document, std::string_view bytes, base::TextView extension, Reason reason,
                    std::int64_t now);

    // All versions, newest first; other files in the folder are skipped.
    std::vector<Version> versions() const;

    // Deletes the versions that are beyond the limits at `now`, in seconds since 1970.
    void prune(std::int64_t now);

    // Deletes all versions and no other files. Throws base::Failure if one cannot be deleted.
    void removeAll();

private:
    bool holds(base::TextView document, std::string_view bytes) const;

    base::Text folder_;
    Limits limits_;
};

} // namespace safety
