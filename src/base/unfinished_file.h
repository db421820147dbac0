#pragma once

#include "base/descriptor.h"
#include "base/text.h"

#include <functional>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace base {

// The bytes of a file on their way: out of sight, or under a name of the program's own beside the file, until
// they are whole and take its place. Those names end in ".quillmere-new" and perhaps a number. A lock tells
// one that is being written from one that a killed process left: only the latter is ever taken away.
class UnfinishedFile {
public:
    enum class Seen { Never, Always };

    // Begins a file that is to become `target`, in its folder, with these permissions. A file system that
    // cannot hold a file without a name shows it all the same. It may not be open then: see errno.
    UnfinishedFile(std::string target, mode_t mode, Seen seen = Seen::Never);
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;
    // What has not taken its place by now is gone.
    ~UnfinishedFile();

    bool isOpen() const { return file_.isOpen(); }
    int descriptor() const { return file_.get(); }

    // Each is false on a failure, with errno.
    bool write(std::string_view bytes);
    // Brings the bytes to the disk and renames the file over its target.
    bool putInPlace();

    // Closes the file, which stays where it is, and tells its name.
    std::string leave();

private:
    bool giveName();
    void openNamed();
    bool copyToNamed();

    std::string target_;
    mode_t mode_;
    Descriptor file_;
    std::string name_; // empty as long as the file has none
};

// Takes away what killed processes left in this folder, which may be missing: files of the names above, and
// those of earlier versions, which are the name of a file with ".new" behind it and perhaps a number. Such a
// one is taken for theirs only where `isOwn` says that nobody else makes a file of this name there.
void removeUnfinished(TextView folder, const std::function<bool(TextView name)>& isOwn);

} // namespace base
