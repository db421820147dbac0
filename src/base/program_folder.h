#pragma once

#include "base/files.h"
#include "base/text.h"

namespace base {

// The folder of the executable and the paths below it. Only appends names; never checks that a path exists.
class ProgramFolder {
public:
    explicit ProgramFolder(Text path) : path_(std::move(path)) {}

    Text files(TextView name) const { return below(u"Files", name); }
    Text languages(TextView name) const { return below(u"Files/Lang", name); }
    Text bookmarks(TextView name) const { return below(u"Bookmarks", name); }
    const Text& path() const { return path_; }

private:
    Text below(TextView folder, TextView name) const {
        return path_ + pathSeparator + Text(folder) + pathSeparator + Text(name);
    }

    Text path_;
};

} // namespace base
