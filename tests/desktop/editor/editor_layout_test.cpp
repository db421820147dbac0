#include "desktop/text/block_heights.h"
#include "desktop/text/readable_colors.h"
#include "rich_text_fixture.h"

#include <QAbstractTextDocumentLayout>

namespace {

struct EditorLayout : tests::RichText {
    EditorLayout() {
        rtb.resize(300, 200);
        rtb.show();
    }
    // Measures all heights.
    void settle() {
        auto& layout = static_cast<desktop::EditorLayout&>(*rtb.document()->documentLayout());
        layout.measureFor(std::chrono::seconds(10));
        ASSERT_FALSE(layout.isEstimated());
    }
    // Paragraphs of one to six lines.
    static base::Text lines(int count) {
        base::Text text;
        for (int i = 0; i < count; ++i)
            text += base::Text(static_cast<std::size_t>(i * 37 % 200), u'x') + u" y\r\n";
        return text;
    }
};

} // namespace

TEST_F(EditorLayout, LongText_AfterManyEdits_HasTheHeightOfAFreshLayout) {
    rtb.setText(lines(3000));
    std::mt19937 random(5);
    for (int i = 0; i < 200; ++i) {
        select(static_cast<int>(random() % 300'000), static_cast<int>(random() % 500));
        switch (random() % 4) {
        case 0:
            rtb.setSelText(i % 50 == 0 ? lines(400) : u"a\r\n\r\nb");
            break;
        case 1:
            rtb.setSelText({});
            break;
        case 2:
            rtb.setSelFontSize(static_cast<double>(random() % 20 + 5));
            break;
        default:
            rtb.setSelBullet(true);
        }
    }
    settle();
    const QSizeF edited = rtb.document()->documentLayout()->documentSize();
    const auto last = rtb.document()->documentLayout()->blockBoundingRect(rtb.document()->lastBlock());
    rtb.document()->markContentsDirty(0, rtb.document()->characterCount());
    settle();
    EXPECT_EQ(rtb.document()->documentLayout()->documentSize(), edited);
    EXPECT_EQ(rtb.document()->documentLayout()->blockBoundingRect(rtb.document()->lastBlock()), last);
    EXPECT_NEAR(last.bottom(), edited.height() - 4, 1);
}

TEST_F(EditorLayout, VisibleText_DoesNotMove_WhileTheRestIsMeasured) {
    rtb.setText(lines(3000));
    rtb.setSelStart(rtb.textLength() / 2);
    rtb.setSelText(u"|");
    const auto caret = [&] { return rtb.cursorRect().top(); };
    const int before = caret();
    EXPECT_GE(before, 0);
    EXPECT_LT(before, 200);
    auto& layout = static_cast<desktop::EditorLayout&>(*rtb.document()->documentLayout());
    const QSizeF estimated = layout.documentSize();
    while (layout.isEstimated())
        QApplication::processEvents();
    EXPECT_NE(layout.documentSize(), estimated);
    EXPECT_EQ(caret(), before);
    EXPECT_EQ(rtb.verticalScrollBar()->maximum(), layout.documentSize().height() - rtb.viewport()->height());
}

TEST_F(EditorLayout, HitTest_FindsTheCharacterAtItsPosition) {
    rtb.setText(lines(200) + u"\u05E9\u05DC\u05D5\u05DD\r\nend");
    for (int position = 0; position < rtb.document()->characterCount(); position += 7) {
        QTextCursor cursor(rtb.document());
        cursor.setPosition(position);
        rtb.setTextCursor(cursor);
        const QRect place = rtb.cursorRect();
        ASSERT_TRUE(rtb.viewport()->rect().contains(place.center())) << position;
        // The end of a line is also the beginning of the next one.
        const int found = rtb.cursorForPosition(place.center()).position();
        ASSERT_NEAR(found, position, 1);
    }
    EXPECT_EQ(rtb.cursorForPosition({0, 5000}).position(), rtb.document()->characterCount() - 1);
    EXPECT_EQ(rtb.document()->documentLayout()->hitTest({250, 10}, Qt::ExactHit), -1) << "beside the line";
}

TEST_F(EditorLayout, Zoom_EnlargesLettersTabsMarginsAndPictures_AndLeavesTheDocument) {
    rtb.resize(900, 400);
    rtb.setSource(
        R"({\rtf1\ansi\deff0{\fonttbl{\f0 Arial;}}\fs24 one\tab two\par\li720\sb120 in {\pict\pngblip)" +
        std::string(R"(\picwgoal600\pichgoal600 )") + tests::pngDigits(QSize(40, 40), Qt::red) +
        R"(}{\fs60 big}\par\pard{\pntext\'b7\tab}dot\page end\par})");
    const auto size = [&] { return rtb.document()->documentLayout()->documentSize(); };
    const auto place = [&](int position) {
        QTextCursor cursor(rtb.document());
        cursor.setPosition(position);
        return rtb.cursorRect(cursor);
    };
    std::vector<QRect> before;
    for (int position = 0; position < rtb.document()->characterCount(); ++position)
        before.push_back(place(position));
    const std::string source = rtb.source();
    const QSizeF normal = size();
    changes = watch.formats = 0;
    rtb.setZoom(200);
    settle();
    for (std::size_t i = 0; i < before.size(); ++i) {
        const QRect now = place(static_cast<int>(i));
        EXPECT_NEAR(now.left() - 4, 2 * (before[i].left() - 4), 6) << i;
        EXPECT_NEAR(now.top() - 4, 2 * (before[i].top() - 4), 8) << i;
        EXPECT_NEAR(now.height(), 2 * before[i].height(), 3) << i;
        EXPECT_EQ(rtb.cursorForPosition(now.center()).position(), static_cast<int>(i));
    }
    select(0, 3);
    EXPECT_EQ(rtb.SelFontSize(), 12);
    EXPECT_EQ(rtb.source(), source);
    EXPECT_EQ(changes + watch.formats, 0);
    rtb.setText(lines(3));
    rtb.setSource(source);
    EXPECT_GT(size().height(), 1.8 * normal.height()) << "also of a text that is opened";
    rtb.setZoom(100);
    settle();
    EXPECT_EQ(size(), normal);
}

TEST_F(EditorLayout, ColorsOnADarkPage_AreShownReadable_AndKept) {
    rtb.setSource("{\\rtf1{\\colortbl;\\red0\\green0\\blue160;\\red255\\green255\\blue0;}a{\\cf1 "
                  "b}{\\highlight2 c}{\\cf2 d}}");
    QPalette page;
    page.setColor(QPalette::Base, Qt::white);
    EXPECT_TRUE(desktop::readableColors(rtb.document()->begin(), page).empty());
    page.setColor(QPalette::Base, QColor(0x1B, 0x20, 0x2B));
    page.setColor(QPalette::Text, QColor(0xE6, 0xEA, 0xF0));
    const auto ranges = desktop::readableColors(rtb.document()->begin(), page);
    ASSERT_EQ(ranges.size(), 2);
    EXPECT_EQ(ranges[0].start, 1);
    EXPECT_GT(ranges[0].format.foreground().color().lightness(), 150) << "blue on dark";
    EXPECT_EQ(ranges[0].format.foreground().color().hslHue(), 240);
    EXPECT_EQ(ranges[1].start, 2);
    EXPECT_LT(ranges[1].format.foreground().color().lightness(), 130) << "light on yellow";
}

TEST(BlockHeights, AfterManyChanges_AnswerLikeAPlainList) {
    std::mt19937 random(2);
    const auto upTo = [&](auto limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit + 1));
    };
    const auto some = [&](int count) {
        std::vector<desktop::BlockHeight> made(static_cast<std::size_t>(count));
        for (desktop::BlockHeight& block : made)
            block = {upTo(2), upTo(9), upTo(9000), upTo(40) > 0};
        return made;
    };
    desktop::BlockHeights tested;
    std::vector<desktop::BlockHeight> plain;
    for (int step = 0; step < 500; ++step) {
        const int first = upTo(plain.size());
        const int removed =
            upTo(std::min<std::ptrdiff_t>(std::ssize(plain) - first, step % 9 == 0 ? 900 : 5));
        const auto added = some(upTo(step % 10 == 0 ? 900 : 5));
        tested.replace(first, removed, added);
        plain.erase(plain.begin() + first, plain.begin() + first + removed);
        plain.insert(plain.begin() + first, added.begin(), added.end());
        ASSERT_EQ(tested.count(), std::ssize(plain));
        if (plain.empty())
            continue;
        const int index = upTo(plain.size() - 1);
        tested.set(index, plain[static_cast<std::size_t>(index)] = some(1).front());
        const int height = step % 5 == 0 ? tested.total() : upTo(tested.total() + 5) - 5;
        int total = 0, width = 0, top = 0, at = -1, estimate = -1, firstEstimate = -1;
        for (int i = 0; const desktop::BlockHeight& block : plain) {
            top = i == index ? total : top;
            total += block.whole();
            width = std::max(width, block.width);
            at = at < 0 && height < total ? i : at;
            firstEstimate = firstEstimate < 0 && !block.measured ? i : firstEstimate;
            estimate = estimate < 0 && !block.measured && i >= index ? i : estimate;
            ++i;
        }
        EXPECT_EQ(std::tuple(tested.total(), tested.width(), tested.top(index)),
                  std::tuple(total, width, top));
        EXPECT_EQ(tested.at(height), at < 0 ? std::ssize(plain) - 1 : at) << height;
        EXPECT_EQ(tested.nextEstimate(index), estimate < 0 ? firstEstimate : estimate) << index;
    }
}
