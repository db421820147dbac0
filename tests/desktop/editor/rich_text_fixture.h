#pragma once

#include "base/code_page.h"
#include "desktop/conversions.h"
#include "desktop/editor/rich_text_edit.h"

#include <gtest/gtest.h>

namespace tests {

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
        std::string text = base::toUtf8(rtb.Text());
        const auto start = static_cast<std::size_t>(rtb.SelStart());
        const auto length = static_cast<std::size_t>(rtb.SelLength());
        if (length == 0)
            return text.insert(start, "|");
        return text.insert(start + length, "]").insert(start, "[");
    }

    desktop::RichTextEdit rtb{base::CodePage(1252)};
    int changes = 0;
};

} // namespace tests
