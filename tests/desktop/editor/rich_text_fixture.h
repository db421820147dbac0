#pragma once

#include "desktop/text/rich_text_edit.h"
#include "fakes/watched_text.h"
#include "qt_testing.h"

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

// A text window with its changes counted.
class RichText : public testing::Test {
protected:
    void select(int start, int length) { fakes::select(rtb, start, length); }
    std::string shown() const { return fakes::shown(rtb); }

    Control rtb{base::CodePage(1252)};
    fakes::WatchedText watch{rtb};
    int& changes = watch.changes;
};

} // namespace tests
