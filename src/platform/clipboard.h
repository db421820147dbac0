// What the program asks of the clipboard.
#pragma once

#include "base/text.h"

namespace platform {

// A form in which the clipboard may hold what was copied, by the numbers that the program knows them by.
enum class ClipboardFormat { Text = 1, Rtf = -16639 };

// The clipboard that all programs share. What it could not do throws base::Failure.
class Clipboard {
public:
    Clipboard() = default;
    Clipboard(const Clipboard&) = delete;
    Clipboard& operator=(const Clipboard&) = delete;
    virtual ~Clipboard() = default;

    virtual void Clear() = 0;
    // Holds this text, as plain text and in no other form.
    virtual void SetText(base::TextView text) = 0;
    // What the clipboard holds in that form: for RTF a source of ASCII; for Text the plain text of any other
    // form too. Empty when it does not hold the form, when its owner does not answer within a moment, and
    // when it is larger than anybody could want in a text.
    virtual base::Text GetText(ClipboardFormat format) = 0;
};

} // namespace platform
