#pragma once

namespace safety {

// The user's options for the archive of earlier versions.
struct Options {
    bool archive = true; // versions are kept
    int days = 30;       // maximum age
    int megabytes = 500; // maximum total size
};

} // namespace safety
