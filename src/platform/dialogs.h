// Message boxes and the system's file dialogs.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace platform {

// The kinds of box that the program shows, by its number for them: icon and buttons together.
enum class BoxStyle {
    Plain = 0,
    Critical = 16,
    Information = 64,
    Exclamation = 48,
    YesNoExclamation = 52,
    YesNoInformation = 68,
    YesNoCancelExclamation = 51
};

enum class Answer { OK, Yes, No, Cancel };

// What one file dialog asks; an empty text is an omitted argument.
struct FileDialogRequest {
    bool open = false;      // open an existing file, or name one to save to
    std::string_view owner; // given name of the window that waits for the answer
    base::Text title;
    base::Text fileName;          // proposed name
    base::Text defaultExtension;  // without a point; added to a name without one
    bool extensionAlways = false; // added to every name that does not end in it, whatever points it has
    base::Text filter;        // pairs of a name and its patterns ("*.a;*.b"), all joined with NUL characters
    bool allMedia = false;    // offers another filter behind those: all kinds of media that play
    base::Text initialFolder; // empty: the current directory
};

// A window that tells how far a piece of work is, and blocks nothing. It goes with this object.
class Progress {
public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress() = default;

    // 0 to 1.
    virtual void setShare(double share) = 0;
};

// All but showProgress are modal and let timers run while they are open.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    // A box without a title takes the program's own. Closing a box that has no Cancel answers No, or OK.
    virtual Answer messageBox(base::TextView text, base::TextView title, BoxStyle style) = 0;

    // Calls `cancelled` on the loop when the user wants the work to be given up; the window is gone then.
    virtual std::unique_ptr<Progress> showProgress(base::TextView text, base::TextView title,
                                                   std::function<void()> cancelled) = 0;

    // The colour that the user chose, red highest; none on cancel. The dialog begins on `start`.
    virtual std::optional<std::uint32_t> ShowColor(std::string_view owner, std::uint32_t start) = 0;

    // The chosen path, or the empty text on cancel. A choice moves the process's current directory to the
    // file's folder.
    virtual base::Text FileDlg(const FileDialogRequest& request) = 0;
};

} // namespace platform
