#pragma once

#include "base/code_page.h"
#include "desktop/conversions.h"
#include "desktop/editor/rich_text_edit.h"

#include <QBuffer>
#include <QImage>
#include <QTextBlock>
#include <gtest/gtest.h>

namespace tests {

// The control with its side of drag and drop open.
class Control : public desktop::RichTextEdit {
public:
    using RichTextEdit::createMimeDataFromSelection;
    using RichTextEdit::moveSelection;
    using RichTextEdit::RichTextEdit;
};

// The digits of a picture of this size in one colour, as RTF carries it.
inline std::string pngDigits(QSize size, QColor color) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray png;
    QBuffer buffer(&png);
    image.save(&buffer, "PNG");
    return png.toHex().toStdString();
}

// A text window with its changes counted, and what the program finds at the last of them.
class RichText : public testing::Test {
protected:
    RichText() {
        rtb.Change = [this] {
            ++changes;
            seen = shown();
        };
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
    std::string seen{};
};

} // namespace tests
