// Message boxes and the system's file dialogs.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace platform {

// The kinds of message box that the program shows. The numbers combine icon, buttons and default button; that
// is the first one unless the name says otherwise.
enum class BoxStyle {
    Plain = 0,
    Critical = 16,
    Information = 64,
    Exclamation = 48,
    YesNoExclamation = 52,
    YesNoInformation = 68,
    YesNoExclamationDefaultNo = 308,
    YesNoCancelExclamation = 51
};

enum class Answer { OK, Yes, No, Cancel };

// The arguments of one file dialog. An empty text means that the argument is omitted.
struct FileDialogRequest {
    bool open = false;      // true: open an existing file; false: choose a file to save to
    std::string_view owner; // given name of the window that waits for the answer
    base::Text title;
    base::Text fileName;         // proposed name
    base::Text defaultExtension; // without a point; appended to a name that has no extension
    bool extensionAlways =
        false; // appended to every name that does not end in it, even one with another extension
    bool extensionOfFilter = false; // choosing another filter makes its first pattern's the default extension
    base::Text filter;        // pairs of a name and its patterns ("*.a;*.b"), all joined by NUL characters
    bool allMedia = false;    // adds another filter after those: all playable media
    base::Text initialFolder; // empty: the current directory
};

// A non-modal progress window. Destroying the object closes it.
class Progress {
public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress() = default;

    // Progress from 0 to 1.
    virtual void setShare(double share) = 0;
};

// All dialogs except showProgress are modal; timers keep running while one is open.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    // An empty title means the program's own. Closing a box without a Cancel button answers No, or OK.
    virtual Answer messageBox(base::TextView text, base::TextView title, BoxStyle style) = 0;

    // Calls `cancelled` on the event loop if the user cancels the work; the window is closed by then.
    virtual std::unique_ptr<Progress> showProgress(base::TextView text, base::TextView title,
                                                   std::function<void()> cancelled) = 0;

    // The chosen colour as 0xRRGGBB, none on cancel. The dialog starts with `start`.
    virtual std::optional<std::uint32_t> ShowColor(std::string_view owner, std::uint32_t start) = 0;

    // The chosen path; empty on cancel. A choice changes the process's current directory to the file's
    // folder.
    virtual base::Text FileDlg(const FileDialogRequest& request) = 0;
};

} // namespace platform
