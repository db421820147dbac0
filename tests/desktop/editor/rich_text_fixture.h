#pragma once

#include "base/code_page.h"
#include "desktop/conversions.h"
#include "desktop/editor/rich_text_edit.h"

#include <gtest/gtest.h>

namespace tests {

// The control with its clipboard side open.
class Control : public desktop::RichTextEdit {
public:
    using RichTextEdit::canInsertFromMimeData;
    using RichTextEdit::createMimeDataFromSelection;
    using RichTextEdit::insertFromMimeData;
    using RichTextEdit::RichTextEdit;
};

// A text window with its changes counted.
class RichText : public testing::Test {
protected:
    RichText() {
        rtb.Change = [this] { ++changes; };
    }

    void select(int start, int length) {
        rtb.setSelStart(start);
        rtb.setSelLength(length);
    }
    // The text with its selection between brackets: "a[b]c", "a|bc".
    std::string shown() const {
        base::Text text = rtb.Text();
        const auto start = static_cast<std::size_t>(rtb.SelStart());
        const auto length = static_cast<std::size_t>(rtb.SelLength());
        if (length > 0)
            text.insert(start + length, u"]");
        text.insert(start, length > 0 ? u"[" : u"|");
        return base::toUtf8(text);
    }

    Control rtb{base::CodePage(1252)};
    int changes = 0;
};

} // namespace tests
