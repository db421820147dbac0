// Whole files, read and replaced in one step each, and the lines of text files.
#pragma once

#include "base/code_page.h"
#include "base/text.h"

#include <string>
#include <string_view>
#include <vector>

namespace base {

inline constexpr char16_t pathSeparator = u'/';

// True for a file that can be opened by name; false for a folder, and for what cannot be looked at.
bool fileExists(TextView path);

// The process's current directory. Throws Failure when it has gone.
Text currentFolder();

// Makes the folder; one that is there already is left alone. Throws Failure in the system's words.
void createFolder(TextView path);

// The same, with a folder that its owner alone may look into, also when it was there already.
void createPrivateFolder(TextView path);

// Makes an empty file beside `path`, for bytes that are on their way there, and tells its name, which is no
// other file's. Throws Failure in the system's words.
Text createBeside(TextView path);

// All bytes of the file. Throws Failure in the system's words.
std::string readFile(TextView path);

// Replaces the file as a whole: written beside it, flushed to the disk, renamed over it, so that a crash or a
// full disk leaves the old bytes or the new ones. A link is followed, a file that is not writable is left
// alone, permissions stay. A process that is killed meanwhile leaves nothing behind where the file system can
// hold a file without a name, and else a file that the next replacement takes away (see unfinished_file.h).
// Throws Failure in the system's words, with the old file as it was.
void replaceFile(TextView path, std::string_view bytes);

// The same for a file in a private folder, which its owner alone may read.
void replacePrivateFile(TextView path, std::string_view bytes);

// Takes the file away; one that is not there is no failure. Throws Failure in the system's words.
void removeFile(TextView path);

// Text files of the program, by lines: written as UTF-8, read so or in the code page of the user's language.
class TextFiles {
public:
    explicit TextFiles(CodePage page) : page_(page) {}

    // The whole text of the file, each of its lines as oneLine made it. Throws Failure.
    Text read(TextView path) const;

    // The lines of the file without their ends (CR LF, CR or LF; the last line may have none). Throws
    // Failure.
    std::vector<Text> readLines(TextView path) const;

    // Replaces the file by these lines, each ended by CR LF. A line break inside one comes back with it.
    // Throws Failure.
    void writeLines(TextView path, const std::vector<Text>& lines) const;

    // The same, but a file that holds just these bytes is left alone: a write waits for the disk.
    void writeChangedLines(TextView path, const std::vector<Text>& lines) const;

private:
    CodePage page_;
};

} // namespace base
