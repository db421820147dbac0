// Reads and replaces whole files in one step, and the lines of text files.
#pragma once

#include "base/code_page.h"
#include "base/text.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace base {

inline constexpr char16_t pathSeparator = u'/';

// True if the path names something other than a folder; false if that cannot be determined.
bool fileExists(TextView path);

// The process's current directory. Throws Failure if it no longer exists.
Text currentFolder();

// Creates the folder unless it exists. Throws Failure with the system's message.
void createFolder(TextView path);

// The same, and makes the folder accessible to its owner only, even if it existed before.
void createPrivateFolder(TextView path);

// Creates an empty temporary file under a free name beside `path` and returns that name. Throws Failure with
// the system's message.
Text createBeside(TextView path);

// All bytes of the file. Throws Failure with the system's message.
std::string readFile(TextView path);

// Replaces the file atomically: writes a temporary file in the same folder, flushes it to the disk and
// renames it over the target. After a crash or on a full disk the file holds the old bytes or the new ones.
// Follows a symbolic link, also one whose target does not exist yet, refuses a file that is not writable,
// keeps owner, group and permissions. A file that cannot be replaced, that has several hard links, or whose
// owner, group or permissions would change, is overwritten in place; see setKeepOld. A process killed
// meanwhile leaves nothing behind if the file system supports files without a name; otherwise it leaves a
// temporary file, which the next replacement removes (see unfinished_file.h). Throws Failure with the
// system's message and leaves the old file unchanged.
void replaceFile(TextView path, std::string_view bytes);

// The same for a file of the program in a private folder: only its owner may read it, from the first byte on.
// Never overwrites in place.
void replacePrivateFile(TextView path, std::string_view bytes);

// Throws Failure with the system's message if replaceFile cannot write a file of this name: the folder does
// not exist or is not writable, the name is too long or names a folder. Leaves no file behind.
void checkWritable(TextView path);

// Called when a file has to be overwritten in place, with its path, its bytes and the function that
// overwrites it. Stores the bytes safely, then calls `write`. Throws Failure without calling it if they
// cannot be stored.
using KeepOld =
    std::function<void(TextView path, std::string_view bytes, const std::function<void()>& write)>;

// Sets the handler for the whole program; call it while no other thread replaces files. Without a handler,
// replaceFile refuses to overwrite in place.
void setKeepOld(KeepOld keep);

// Deletes the file; a missing file is no error. Throws Failure with the system's message.
void removeFile(TextView path);

// The program's text files, line by line. Writes UTF-8; reads UTF-8 or the code page of the user's language.
class TextFiles {
public:
    explicit TextFiles(CodePage page) : page_(page) {}

    // The whole text of the file; its lines are still in the form of oneLine. Throws Failure.
    Text read(TextView path) const;

    // The lines of the file without their line ends (CR LF, CR or LF; the last line may lack one), decoded
    // with fromOneLine. Throws Failure.
    std::vector<Text> readLines(TextView path) const;

    // Replaces the file by these lines, each ended by CR LF. readLines restores line breaks inside a line.
    // Throws Failure.
    void writeLines(TextView path, const std::vector<Text>& lines) const;

    // The same, but skips the write, which would wait for the disk, if the file already holds these bytes.
    void writeChangedLines(TextView path, const std::vector<Text>& lines) const;

private:
    CodePage page_;
};

} // namespace base
