#pragma once

#include "desktop/text/rich_text_edit.h"
#include "fakes/watched_text.h"
#include "qt_testing.h"

#include <QBuffer>
#include <QTextBlock>

namespace tests {

// Makes the control's drag and drop functions public.
struct Control : desktop::RichTextEdit {
    using RichTextEdit::createMimeDataFromSelection;
    using RichTextEdit::moveSelection;
    using RichTextEdit::RichTextEdit;
};

// The hex digits of a one-colour picture of this size, as stored in RTF.
inline std::string pngDigits(QSize size, QColor color) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray png;
    QBuffer buffer(&png);
    image.save(&buffer, "PNG");
    return png.toHex().toStdString();
}

// Random edits as by user and program, one after the other; the same seed gives the same edits.
class RandomEdits {
public:
    explicit RandomEdits(unsigned seed) : random_(seed) {}

    std::vector<base::Text> pieces{u"x",           u"\xD83D\xDE00", u"\r\n", u"word ",
                                   u"a\r\nb\r\nc", u"\u000B",       u"",     u"equal"};

    std::int32_t upTo(std::int32_t limit) {
        return static_cast<std::int32_t>(random_() % static_cast<unsigned>(limit + 1));
    }
    void edit(desktop::RichTextEdit& control) {
        const auto press = [&](int key, const QString& text = {}) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
            QApplication::sendEvent(&control, &event);
        };
        const auto piece = [&] { return pieces[static_cast<std::size_t>(upTo(int(pieces.size()) - 1))]; };
        if (upTo(2) == 0)
            fakes::select(control, upTo(control.textLength()), upTo(3) == 0 ? upTo(30) : 0);
        const std::function<void()> edits[] = {
            [&] { press(Qt::Key_Return, QStringLiteral("\r")); },
            [&] { press(Qt::Key_Backspace); },
            [&] { press(Qt::Key_Delete); },
            [&] { control.setSelText(piece()); },
            [&] { control.setSelRTF(u"{\\rtf1 a{\\b b}\\par\\qr\\u-10179?\\u-8704?}"); },
            [&] { control.setSelRTF(u"{\\rtf1 {\\pict\\pngblip 00}{\\cf1\\super s}}"); },
            [&] { control.setSelBold(upTo(1) == 0); },
            [&] { control.setSelBullet(upTo(1) == 0); },
            [&] { control.setSelAlignment(platform::ParagraphAlignment::Centre); },
            [&] {
                if (upTo(30) == 0)
                    control.setText(u"a new text\r\n\U0001F600\r\nof three lines");
            },
            [&] { // like Replace All
                control.together([&] {
                    for (int i = 0; i < 3; ++i) {
                        fakes::select(control, upTo(control.textLength()), upTo(8));
                        control.setSelRTF(piece());
                        fakes::select(control, upTo(control.textLength()), upTo(8));
                        control.setSelBold(upTo(1) == 0);
                    }
                });
            },
            [&] { press(Qt::Key_X, QStringLiteral("x")); },
        };
        edits[std::min(upTo(14), 11)]();
    }

private:
    std::mt19937 random_;
};

// A text control whose changes are counted.
struct RichText : testing::Test {
    void select(int start, int length) { fakes::select(rtb, start, length); }
    std::string shown() const { return fakes::shown(rtb); }

    Control rtb{base::CodePage(1252)};
    fakes::WatchedText watch{rtb};
    int& changes = watch.changes;
};

} // namespace tests
