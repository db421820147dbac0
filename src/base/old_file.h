#pragma once

#include <string>
#include <string_view>
#include <sys/stat.h>

namespace base {

// The existing file at a path that is about to be written, if there is one. Failures throw Failure with the
// system's message.
class OldFile {
public:
    // Throws for a folder, a device or a file that is not writable.
    explicit OldFile(std::string path);

    bool isThere() const { return there_; }
    bool hasOtherNames() const { return there_ && about_.st_nlink > 1; }
    mode_t permissions() const { return about_.st_mode & 07777U; }

    // Sets owner, group, permissions and access list of this file on the open one. False if that is
    // impossible.
    bool handRightsTo(int fd) const;

    // Overwrites the file, which contains `old`, in place. On failure writes `old` back, if the disk allows
    // it.
    void writeOver(std::string_view old, std::string_view bytes) const;

private:
    std::string path_;
    bool there_ = false;
    struct stat about_ {};
};

} // namespace base
