#pragma once

#include "base/failure.h"
#include "base/files.h"
#include "base/numbers.h"
#include "platform/rich_text.h"
#include "rtf/read/reader.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace fakes {

// A rich-text control without a screen: plain text with one set of formats for all of it; ignores case for
// ASCII only. Records the calls.
class FakeRichText : public platform::RichText {
public:
    std::vector<std::string> commands; // in order: "bold on", "align 2", "size 13", "focus", "load", "save"
    // keys: "bold", "italic", "underline", "strike", "bullet"
    std::map<std::string, platform::Setting> styles;
    std::optional<double> size = 12;
    bool refusesSearch = false;
    std::vector<platform::MarkedPart> marks; // of the part that was painted last
    std::int32_t scrolledTo = -1;
    std::size_t largestFile = 1'000'000; // units

    void setAllStyles(platform::Setting setting) {
        for (const char* style : {"bold", "italic", "underline", "strike", "bullet"})
            styles[style] = setting;
    }
    // Types at the caret, like the user.
    void type(base::TextView typed) {
        typing_ = true;
        setSelText(typed);
        Typed(typed);
        typing_ = false;
    }
    base::Text offered; // behind the caret

    bool isTyping() const override { return typing_; }
    bool offer(base::TextView letters) override {
        offered = letters;
        return true;
    }

    base::Text Text() const override { return text_; }
    platform::TextChange takeChange() override {
        const std::int32_t begin = std::min(first_, textLength() - tail_);
        platform::TextChange change{begin, std::exchange(told_, textLength()) - begin - tail_,
                                    text_.substr(static_cast<std::size_t>(begin),
                                                 static_cast<std::size_t>(textLength() - begin - tail_))};
        first_ = tail_ = textLength();
        return change;
    }
    std::optional<platform::ParagraphChange> takeParagraphs() override {
        if (!std::exchange(edited_, false))
            return std::nullopt;
        return platform::ParagraphChange{0, 0, source(), true};
    }
    std::string takeAllParagraphs() override {
        edited_ = false;
        return source();
    }
    std::string source() const override {
        const std::string beside = Beside(0, textLength());
        return "{\\rtf1 " + base::toUtf8(base::replaced(text_, u"\r\n", u"\\par\n")) +
               (beside.empty() ? "" : "{\\*\\quillmoments " + beside + "}") + "}";
    }
    void setSource(std::string_view source) override {
        const rtf::Document document = rtf::read(source);
        styles.clear();
        replaceAll(base::replaced(rtf::plainText(document), u"\n", u"\r\n"), document.moments);
    }
    void setText(base::TextView text) override {
        styles.clear();
        replaceAll(text);
    }
    std::string exported(std::string_view source, platform::ExportForm form) override {
        commands.emplace_back(form == platform::ExportForm::Html ? "html" : "odt");
        return std::string(source);
    }
    std::int32_t textLength() const override { return static_cast<std::int32_t>(text_.size()); }
    std::int32_t SelStart() const override { return start_; }
    void setSelStart(std::int32_t position) override {
        start_ = nearest(position);
        length_ = 0;
    }
    std::int32_t SelLength() const override { return length_; }
    void setSelLength(std::int32_t length) override {
        length_ = nearest(start_ + std::clamp(length, 0, textLength() - start_)) - start_;
    }
    base::Text SelText() const override {
        return text_.substr(static_cast<std::size_t>(start_), static_cast<std::size_t>(length_));
    }
    void setSelText(base::TextView text) override {
        if (length_ == 0 && text.empty())
            return;
        first_ = std::min(first_, start_);
        tail_ = std::min(tail_, textLength() - start_ - length_);
        text_.replace(static_cast<std::size_t>(start_), static_cast<std::size_t>(length_), text);
        start_ += static_cast<std::int32_t>(text.size());
        length_ = 0;
        tellChange();
    }
    base::Text SelRTF() const override { return u"{\\rtf1 " + SelText() + u"}"; }
    void setSelRTF(base::TextView source) override { setSelText(plain(source)); }
    void insert(base::TextView source, const std::string& beside) override {
        const bool changes = length_ > 0 || !plain(source).empty();
        if (!beside.empty() && changes)
            Arrives(start_, length_, beside);
        setSelRTF(source);
    }
    void setSelFontName(base::TextView name) override { format("font " + base::toUtf8(name)); }
    std::optional<double> SelFontSize() const override { return size; }
    void setSelFontSize(double points) override {
        if (!(points >= 1 && points <= 1638))
            throw base::Failure("Invalid property value");
        size = std::round(points * 2) / 2;
        format("size " + base::toUtf8(base::numberText(*size)));
    }
    void setSelColor(std::uint32_t color) override { format("color " + std::to_string(color)); }
    platform::Setting SelBold() const override { return style("bold"); }
    void setSelBold(bool on) override { set("bold", on); }
    bool isBold(std::int32_t) const override { return style("bold") == platform::Setting::On; }
    platform::Setting SelItalic() const override { return style("italic"); }
    void setSelItalic(bool on) override { set("italic", on); }
    platform::Setting SelUnderline() const override { return style("underline"); }
    void setSelUnderline(bool on) override { set("underline", on); }
    platform::Setting SelStrikeThru() const override { return style("strike"); }
    void setSelStrikeThru(bool on) override { set("strike", on); }
    platform::Setting SelBullet() const override { return style("bullet"); }
    void setSelBullet(bool on) override { set("bullet", on); }
    std::optional<platform::ParagraphAlignment> SelAlignment() const override { return alignment_; }
    void setSelAlignment(platform::ParagraphAlignment alignment) override {
        alignment_ = alignment;
        format("align " + std::to_string(static_cast<int>(alignment)), true);
    }
    void LoadFile(base::TextView path) override {
        const base::Text bytes = base::fromUtf8(base::readFile(path));
        if (bytes.size() > largestFile)
            throw platform::TextTooLarge("The file is too large");
        commands.emplace_back("load");
        replaceAll(base::replaced(base::replaced(plain(bytes), u"\r\n", u"\n"), u"\n", u"\r\n"));
    }
    void SaveFile(base::TextView path) override {
        commands.emplace_back("save");
        base::replaceFile(path, "{\\rtf1 " + base::toUtf8(text_) + "}");
    }
    std::int32_t Find(base::TextView text, std::optional<std::int32_t> start, int options) override {
        if (refusesSearch)
            throw base::Failure("the search broke off");
        const bool matchCase = (options & platform::findMatchCase) != 0;
        const base::Text all = matchCase ? text_ : base::lowered(text_);
        const base::Text wanted = matchCase ? base::Text(text) : base::lowered(text);
        const auto isLetter = [&](std::size_t at) {
            return at < all.size() && all[at] > u' ' && all[at] < 0x80;
        };
        auto at = static_cast<std::size_t>(nearest(start.value_or(start_)));
        at = all.find(wanted, at);
        while (at != base::Text::npos && (options & platform::findWholeWord) != 0 &&
               (isLetter(at - 1) || isLetter(at + wanted.size())))
            at = all.find(wanted, at + 1);
        if (wanted.empty() || at == base::Text::npos)
            return -1;
        if ((options & platform::findNoHighlight) == 0) {
            start_ = static_cast<std::int32_t>(at);
            length_ = static_cast<std::int32_t>(text.size());
        }
        return static_cast<std::int32_t>(at);
    }
    void SelPrint(platform::PrintDevice&) override {
        commands.push_back("print " + base::toUtf8(length_ > 0 ? SelText() : text_));
    }
    void printSource(std::string_view source, platform::PrintDevice&) override {
        commands.push_back("print source " + std::string(source));
    }
    void SetFocus() override { commands.emplace_back("focus"); }
    void besideChanged(std::int32_t) override {
        edited_ = true;
        Edited();
    }
    void marksChanged(std::int32_t position, std::int32_t length) override {
        marks = MarksIn(position, position + length);
    }
    void scrollTo(std::int32_t position, std::int32_t) override { scrolledTo = position; }
    void together(const std::function<void()>& edits) override {
        commands.emplace_back("together");
        edits();
    }

private:
    // Without a selection, only paragraphs get a format.
    void format(const std::string& command, bool ofParagraph = false) {
        commands.push_back(command);
        if (ofParagraph || length_ > 0)
            Formatted();
    }
    void tellChange() {
        edited_ = true;
        Change();
        Edited();
    }
    // The position, or the nearest one before it that is inside the text and does not split a character or CR
    // LF.
    std::int32_t nearest(std::int32_t place) const {
        const std::int32_t inside = std::clamp(place, 0, textLength());
        if (inside == 0 || inside == textLength())
            return inside;
        const char16_t before = text_[static_cast<std::size_t>(inside) - 1];
        const char16_t behind = text_[static_cast<std::size_t>(inside)];
        const bool inPair = before >> 10U == 0xD800 >> 10U && behind >> 10U == 0xDC00 >> 10U;
        return inside - (inPair || (before == u'\r' && behind == u'\n') ? 1 : 0);
    }
    // The text of a source: of its own simple one, or of a complete one.
    static base::Text plain(base::TextView source) {
        if (source.starts_with(u"{\\rtf1\\"))
            return base::replaced(rtf::plainText(rtf::read(base::toUtf8(source))), u"\n", u"\r\n");
        return base::Text(source.starts_with(u"{\\rtf1 ") ? source.substr(7, source.size() - 8) : source);
    }
    void replaceAll(base::TextView text, const std::string& beside = {}) {
        Arrives(0, textLength(), beside);
        first_ = tail_ = 0;
        text_ = text;
        start_ = length_ = 0;
        tellChange();
    }
    platform::Setting style(const std::string& name) const {
        return styles.contains(name) ? styles.at(name) : platform::Setting::Off;
    }
    void set(const std::string& name, bool on) {
        styles[name] = on ? platform::Setting::On : platform::Setting::Off;
        format(name + (on ? " on" : " off"), name == "bullet");
    }

    base::Text text_;
    platform::ParagraphAlignment alignment_ = platform::ParagraphAlignment::Left;
    std::int32_t start_ = 0;
    std::int32_t length_ = 0;
    std::int32_t told_ = 0;  // length of the text at the last takeChange()
    std::int32_t first_ = 0; // units in front of all changes since then, and behind them
    std::int32_t tail_ = 0;
    bool edited_ = false;
    bool typing_ = false;
};

} // namespace fakes
