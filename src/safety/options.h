#pragma once

namespace safety {

// What the user can choose about the archive of earlier versions.
struct Options {
    bool archive = true; // versions are kept at all
    int days = 30;       // how long
    int megabytes = 500; // at most
};

} // namespace safety
