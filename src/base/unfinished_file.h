#pragma once

#include "base/descriptor.h"
#include "base/text.h"

#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace base {

// A temporary file that replaces its target once it is complete. It has no name, or one beside the target
// that ends in ".quillmere-new" and perhaps a number. Its writer holds a lock, which distinguishes it from
// the left-over of a killed process; only left-overs are ever deleted.
class UnfinishedFile {
public:
    enum class Seen { Never, Always };

    // Creates the temporary file in the folder of `target` with these permissions. With Seen::Never it has no
    // name, where the file system supports that. On failure the file is not open and errno is set.
    UnfinishedFile(std::string target, mode_t mode, Seen seen = Seen::Never);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    // Deletes the file unless it has replaced its target or was left in place.
    ~UnfinishedFile();

    bool isOpen() const { return file_.isOpen(); }
    int descriptor() const { return file_.get(); }

    // Both return false on failure and set errno.
    bool write(std::string_view bytes);
    // Flushes the bytes to the disk and renames the file over its target.
    bool putInPlace();

    // Closes the file, leaves it where it is and returns its name.
    std::string leave();

private:
    bool giveName();
    void openNamed();
    bool copyToNamed();

    std::string target_;
    mode_t mode_;
    Descriptor file_;
    std::string name_; // empty while the file has no name
};

// Deletes the left-overs of killed processes in this folder, which may be missing: files with the ending
// above, and those of earlier versions of the program, which end in ".new" and perhaps a number. The latter
// are deleted only if `isOwn` says that only this program creates files of that name (without the ending) in
// the folder.
void removeUnfinished(TextView folder, const std::function<bool(TextView name)>& isOwn);

} // namespace base
