// What the program asks of a rich-text control.
#pragma once

#include "base/text.h"
#include "platform/key_event.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

class PrintDevice;

// A property of a selection whose parts may differ.
enum class Setting { Off, On, Mixed };

// By the numbers that the toolbar writes.
enum class ParagraphAlignment { Left = 0, Right = 1, Centre = 2 };

// What keyboards have keys for besides letters.
enum class EditCommand { Undo, Redo, Cut, Copy, Paste };

// Options of RichText::Find, to be added.
inline constexpr int findWholeWord = 2;
inline constexpr int findMatchCase = 4;
inline constexpr int findNoHighlight = 8;

// A change of a text: `removed` units at `position` gave way to `inserted`.
struct TextChange {
    std::int32_t position = 0;
    std::int32_t removed = 0;
    base::Text inserted;
};

// Paragraphs `first` to `first` + `removed` gave way to those of `source`: RTF, or empty where they were only
// removed. Paragraphs count from 0, as RTF has them. `whole`: the source is all of the text.
struct ParagraphChange {
    std::uint32_t first = 0;
    std::uint32_t removed = 0;
    std::string source;
    bool whole = false;
};

// One document of rich text with a selection. Positions and lengths count UTF-16 units, the end of a
// paragraph counting two (CR LF); one that lies outside the text is taken as the nearest inside, one inside a
// pair as the place before it. A line break inside of a paragraph is the one unit U+000B, a picture or
// another object U+FFFC. What the control cannot do throws base::Failure and changes nothing. The control
// keeps no undo of its own.
class RichText {
public:
    RichText() = default;
    RichText(const RichText&) = delete;
    RichText& operator=(const RichText&) = delete;
    virtual ~RichText() = default;

    // The whole document as plain text, paragraphs divided by CR LF. Writing replaces it all, without
    // formats.
    virtual base::Text Text() const = 0;
    virtual void setText(base::TextView text) = 0;
    // Len(Text), without building the text.
    virtual std::int32_t textLength() const = 0;
    // What has changed in Text since this was last asked, at first since the empty document. Changes in many
    // places are told as one that covers them all; its cost is that of what it covers.
    virtual TextChange takeChange() = 0;

    // What has changed since this was last asked, in letters or formats, at first since the empty document;
    // nothing when nothing has. Changes in many places are told as one that covers them all; its cost is that
    // of what it covers.
    virtual std::optional<ParagraphChange> takeParagraphs() = 0;
    // All paragraphs as RTF, with which takeParagraphs begins anew.
    virtual std::string takeAllParagraphs() = 0;

    // The whole document as RTF, as SaveFile writes it. Writing replaces it all and raises Change once.
    virtual std::string source() const = 0;
    virtual void setSource(std::string_view source) = 0;

    virtual std::int32_t SelStart() const = 0;
    // Puts the caret there, with nothing selected.
    virtual void setSelStart(std::int32_t position) = 0;
    virtual std::int32_t SelLength() const = 0;
    virtual void setSelLength(std::int32_t length) = 0;

    // Writing replaces the selection and leaves the caret behind the new text, which takes the format at its
    // place.
    virtual base::Text SelText() const = 0;
    virtual void setSelText(base::TextView text) = 0;
    // The selection as a complete RTF source. Writing replaces the selection; a text that is not RTF goes in
    // as plain text.
    virtual base::Text SelRTF() const = 0;
    virtual void setSelRTF(base::TextView source) = 0;

    // Formats of the selection; with nothing selected, of what is typed next. Mixed values read as none or
    // Mixed.
    virtual void setSelFontName(base::TextView name) = 0;
    virtual std::optional<double> SelFontSize() const = 0; // points
    virtual void setSelFontSize(double points) = 0;        // from 1 to 1638, in halves
    virtual void setSelColor(std::uint32_t color) = 0;     // red, green, blue, red highest
    virtual Setting SelBold() const = 0;
    virtual void setSelBold(bool on) = 0;
    virtual Setting SelItalic() const = 0;
    virtual void setSelItalic(bool on) = 0;
    virtual Setting SelUnderline() const = 0;
    virtual void setSelUnderline(bool on) = 0;
    virtual Setting SelStrikeThru() const = 0;
    virtual void setSelStrikeThru(bool on) = 0;
    // Of the paragraphs that the selection touches.
    virtual Setting SelBullet() const = 0;
    virtual void setSelBullet(bool on) = 0;
    virtual void setSelAlignment(ParagraphAlignment alignment) = 0;

    // Replaces the whole document by the file: RTF, or plain text in the system's code page, in UTF-8, or in
    // UTF-16 with its mark. Raises Change once.
    virtual void LoadFile(base::TextView path) = 0;
    // Writes the whole document as RTF, whatever the file's name.
    virtual void SaveFile(base::TextView path) = 0;

    // Prints the selection, or all when nothing is selected, with margins, paper and the like as the device
    // has them; an empty document takes no page. Timers run on between the pages.
    virtual void SelPrint(PrintDevice& hDC) = 0;

    // The first place at or after `start` (the caret when left out) that holds `text`, by the options; -1 for
    // none. The hit becomes the selection unless findNoHighlight is given.
    virtual std::int32_t Find(base::TextView text, std::optional<std::int32_t> start, int options) = 0;

    virtual void SetFocus() = 0;

    // Does several edits of selections, with searches between them, and shows what came of them once, when
    // all are done. Each raises its Change as ever.
    virtual void together(const std::function<void()>& edits) = 0;

    // After every change of the text, the program's own included; never for a mere change of format.
    std::function<void()> Change = [] {};
    // Whether the program has a use for the key in the text, ahead of the shortcuts of the menus.
    std::function<bool(const KeyEvent&)> TakesKey = [](const KeyEvent&) { return false; };
    // After every change of the text or of its formats.
    std::function<void()> Edited = [] {};
    std::function<void(KeyEvent&)> KeyDown = [](KeyEvent&) {};
    std::function<void(const KeyEvent&)> KeyUp = [](const KeyEvent&) {};
    // A key that means the command to the desktop, and that KeyDown has left alone. The control itself does
    // nothing with it.
    std::function<void(EditCommand)> EditKey = [](EditCommand) {};
    std::function<void(int button)> MouseDown = [](int) {};
    // Another control or window of this program has got the keyboard.
    std::function<void()> LostFocus = [] {};
};

} // namespace platform
