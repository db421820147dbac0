// The port to the rich-text control.
#pragma once

#include "base/failure.h"
#include "base/text.h"
#include "platform/key_event.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class PrintDevice;

// A property of a selection; Mixed if its parts differ.
enum class Setting { Off, On, Mixed };

// The numbers are those that the toolbar writes.
enum class ParagraphAlignment { Left = 0, Right = 1, Centre = 2 };

// Editing commands for which platforms have shortcuts.
enum class EditCommand { Undo, Redo, Cut, Copy, Paste };

// Options of RichText::Find; the values are added.
inline constexpr int findWholeWord = 2;
inline constexpr int findMatchCase = 4;
inline constexpr int findNoHighlight = 8;

// A change of the text: `removed` units at `position` were replaced by `inserted`.
struct TextChange {
    std::int32_t position = 0;
    std::int32_t removed = 0;
    base::Text inserted;
};

// A change in paragraphs: `removed` paragraphs from number `first` (from 0) were replaced by those of
// the RTF in `source`; it is empty if they were only removed. With `whole`, it is the whole text.
struct ParagraphChange {
    std::uint32_t first = 0;
    std::uint32_t removed = 0;
    std::string source;
    bool whole = false;
};

// What a part of the text is marked for in the view. Marks are no formats: they are neither saved, copied nor
// printed.
enum class Mark { Heard, Doubtful, Misspelled };

struct MarkedPart {
    std::int32_t position = 0;
    std::int32_t length = 0;
    Mark mark = Mark::Heard;

    bool operator==(const MarkedPart&) const = default;
};

// A text that the control refuses because displaying it would block the program or exhaust the memory.
class TextTooLarge : public base::Failure {
public:
    using Failure::Failure;
};

// Forms of other programs that the control's library writes.
enum class ExportForm { Html, OpenDocument };

// One rich-text document with a selection. Positions and lengths are UTF-16 units; the end of a paragraph
// counts as two (CR LF). A position outside the text is clamped; one inside a pair means the position before
// it. A line break inside a paragraph is the single unit U+000B; a picture or another object is U+FFFC. On an
// error every call throws base::Failure and changes nothing. The control has no undo of its own.
class RichText {
public:
    RichText() = default;
    RichText(const RichText&) = delete;
    RichText& operator=(const RichText&) = delete;
    virtual ~RichText() = default;

    // The whole document as plain text, paragraphs separated by CR LF. Setting it replaces the document by
    // unformatted text.
    virtual base::Text Text() const = 0;
    virtual void setText(base::TextView text) = 0;
    // The length of Text, without building the text.
    virtual std::int32_t textLength() const = 0;
    // The change of Text since the last call, or since the empty document. Changes in several places are
    // combined into one that spans them all. The cost is proportional to the span.
    virtual TextChange takeChange() = 0;

    // The change of letters or formats since the last call, or since the empty document; none without a
    // change. Changes in several places are combined into one that spans them all. The cost is proportional
    // to the span.
    virtual std::optional<ParagraphChange> takeParagraphs() = 0;
    // All paragraphs as RTF; takeParagraphs reports changes from here on.
    virtual std::string takeAllParagraphs() = 0;

    // The whole document as RTF, as SaveFile writes it. Setting it replaces the document and raises Change
    // once.
    virtual std::string source() const = 0;
    virtual void setSource(std::string_view source) = 0;

    virtual std::int32_t SelStart() const = 0;
    // Moves the caret and clears the selection.
    virtual void setSelStart(std::int32_t position) = 0;
    virtual std::int32_t SelLength() const = 0;
    virtual void setSelLength(std::int32_t length) = 0;

    // Setting it replaces the selection and moves the caret behind the new text, which gets the format at its
    // position.
    virtual base::Text SelText() const = 0;
    virtual void setSelText(base::TextView text) = 0;
    // The selection as a complete RTF source. Setting it replaces the selection; a source that is not RTF is
    // inserted as plain text.
    virtual base::Text SelRTF() const = 0;
    virtual void setSelRTF(base::TextView source) = 0;
    // The same, with what stands beside the new letters, empty for nothing.
    virtual void insert(base::TextView source, const std::string& beside) = 0;

    // Formats of the selection; without a selection, of the text typed next. Mixed values read as none or
    // Mixed.
    virtual void setSelFontName(base::TextView name) = 0;
    virtual std::optional<double> SelFontSize() const = 0; // points
    virtual void setSelFontSize(double points) = 0;        // 1 to 1638, in steps of 0.5
    virtual void setSelColor(std::uint32_t color) = 0;     // 0xRRGGBB
    virtual Setting SelBold() const = 0;
    // True if the letter at this position is bold, whatever is selected.
    virtual bool isBold(std::int32_t position) const = 0;
    virtual void setSelBold(bool on) = 0;
    virtual Setting SelItalic() const = 0;
    virtual void setSelItalic(bool on) = 0;
    virtual Setting SelUnderline() const = 0;
    virtual void setSelUnderline(bool on) = 0;
    virtual Setting SelStrikeThru() const = 0;
    virtual void setSelStrikeThru(bool on) = 0;
    // Of all paragraphs that the selection touches.
    virtual Setting SelBullet() const = 0;
    virtual void setSelBullet(bool on) = 0;
    virtual std::optional<ParagraphAlignment> SelAlignment() const = 0;
    virtual void setSelAlignment(ParagraphAlignment alignment) = 0;

    // Replaces the whole document by the file: RTF, or plain text in the system's code page, in UTF-8, or in
    // UTF-16 with a byte-order mark. Raises Change once. Throws TextTooLarge for a file that it will not
    // show.
    virtual void LoadFile(base::TextView path) = 0;
    // Writes the whole document as RTF, whatever the file's extension.
    virtual void SaveFile(base::TextView path) = 0;

    // Prints the selection, or the whole document without a selection, with the device's settings. An empty
    // document prints no page. Timers run between pages.
    virtual void SelPrint(PrintDevice& hDC) = 0;
    // Prints this RTF in the same way, without touching the document.
    virtual void printSource(std::string_view source, PrintDevice& device) = 0;

    // Returns this RTF as a file of another form, without touching the document. Hidden text and objects that
    // are no pictures are left out.
    virtual std::string exported(std::string_view source, ExportForm form) = 0;

    // The first position at or after `start` (default: the caret) where `text` is found, -1 if nowhere.
    // Selects the hit unless findNoHighlight is set.
    virtual std::int32_t Find(base::TextView text, std::optional<std::int32_t> start, int options) = 0;

    virtual void SetFocus() = 0;

    // What stands beside the letters at this position has changed: the next takeParagraphs includes them.
    // Calls Edited.
    virtual void besideChanged(std::int32_t position) = 0;
    // The marks of a part of the text have changed: it is painted again if it is visible.
    virtual void marksChanged(std::int32_t position, std::int32_t length) = 0;
    // Scrolls as far as needed to make the part visible; the caret stays.
    virtual void scrollTo(std::int32_t position, std::int32_t length) = 0;
    // Returns the marks between two positions, which are those that are visible.
    std::function<std::vector<MarkedPart>(std::int32_t begin, std::int32_t end)> MarksIn =
        [](std::int32_t, std::int32_t) { return std::vector<MarkedPart>(); };
    // Called when the user has scrolled the view.
    std::function<void()> Scrolled = [] {};
    // Called for a click with Ctrl on a letter. True if the program has a use for it.
    std::function<bool(std::int32_t position)> CtrlClick = [](std::int32_t) { return false; };
    // Called for a press of the right button on a letter, before MouseDown. True if the program has a use for
    // it: MouseDown does not follow.
    std::function<bool(std::int32_t position)> RightClick = [](std::int32_t) { return false; };
    // True if a click with Ctrl on this letter has a use; the pointer shows it.
    std::function<bool(std::int32_t position)> Clickable = [](std::int32_t) { return false; };

    // True while a key or an input method changes the text.
    virtual bool isTyping() const = 0;
    // Shows these letters faintly behind the caret, where they are no part of the text, until the caret moves
    // or the text changes; empty for none. Returns false, and shows none, if there is no room for them.
    virtual bool offer(base::TextView letters) = 0;

    // Runs several edits, formats of letters and searches, and updates the display once at the end: it
    // scrolls to the caret unless the selection is where it was. Each edit raises Change as usual.
    virtual void together(const std::function<void()>& edits) = 0;

    // Called after every change of the text, including the program's own; not after a mere change of format.
    std::function<void()> Change = [] {};
    // Called after Change when a key or an input method has inserted letters; the caret is behind them.
    std::function<void(base::TextView inserted)> Typed = [](base::TextView) {};
    // The user wants the view larger or smaller by so many steps; 0: in its normal size.
    std::function<void(int steps)> Zoom = [](int) {};
    // Called after a change of formats alone, by which Text stays the same.
    std::function<void()> Formatted = [] {};
    // Returns true if the program handles this key in the text, before the menu shortcuts see it.
    std::function<bool(const KeyEvent&)> TakesKey = [](const KeyEvent&) { return false; };
    // What the program keeps beside the letters of a part of the text: ASCII letters, digits, "+", "/", "=";
    // empty for nothing. The control stores it in files and paragraphs and passes it on with a drag within
    // the program, never to other programs.
    std::function<std::string(std::int32_t position, std::int32_t length)> Beside =
        [](std::int32_t, std::int32_t) { return std::string(); };
    // Called before an edit that brings such, or that replaces the whole document: `removed` units at
    // `position` will be replaced, and `beside` is what stands beside the new ones, empty for nothing. Called
    // again with a position of -1 if the edit failed or changed nothing.
    std::function<void(std::int32_t position, std::int32_t removed, const std::string& beside)> Arrives =
        [](std::int32_t, std::int32_t, const std::string&) {};
    // Called after every change of the text or its formats.
    std::function<void()> Edited = [] {};
    std::function<void(KeyEvent&)> KeyDown = [](KeyEvent&) {};
    std::function<void(const KeyEvent&)> KeyUp = [](const KeyEvent&) {};
    // Called for a platform shortcut that KeyDown has not handled. The control itself does nothing with it.
    std::function<void(EditCommand)> EditKey = [](EditCommand) {};
    std::function<void(int button)> MouseDown = [](int) {};
    // Another control or window of this program has received the keyboard focus.
    std::function<void()> LostFocus = [] {};
};

} // namespace platform
