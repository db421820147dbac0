// The port to the clipboard.
#pragma once

#include "base/text.h"

#include <string>
#include <string_view>

namespace platform {

// A form of clipboard content, by the number that the program uses for it.
enum class ClipboardFormat { Text = 1, Rtf = -16639 };

// The clipboard shared by all programs. Every call throws base::Failure on an error.
class Clipboard {
public:
    Clipboard() = default;
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    virtual ~Clipboard() = default;

    virtual void Clear() = 0;
    // Replaces the contents by this text, as plain text only.
    void SetText(base::TextView text) { SetText(text, {}); }
    // The same, with what stands beside its letters (RichText::Beside) in a form that only this program
    // reads; without that form if it is empty.
    virtual void SetText(base::TextView text, std::string_view beside) = 0;
    // The contents in this form. Rtf returns an ASCII source; Text also returns the plain text of other
    // forms. Empty if the form is not available, if the owner does not answer in time, or if the contents are
    // unreasonably large.
    virtual base::Text GetText(ClipboardFormat format) = 0;
    // What stands beside the letters of the contents; empty for those of other programs.
    virtual std::string Beside() = 0;
};

} // namespace platform
