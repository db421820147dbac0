#include "rich_text_fixture.h"

#include <QAbstractTextDocumentLayout>

namespace {

using desktop::BlockHeight;
using desktop::BlockHeights;

class EditorLayout : public tests::RichText {
protected:
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

TEST(BlockHeights, ThousandChanges_EqualThoseOfAPlainList) {
    std::mt19937 random(3);
    const auto upTo = [&](int limit) {
        return static_cast<int>(random() % static_cast<unsigned>(limit + 1));
    };
    BlockHeights heights;
    std::vector<BlockHeight> plain;
    for (int round = 0; round < 1000; ++round) {
        const int first = upTo(heights.count());
        const int removed = upTo(std::min(heights.count() - first, round % 100 == 0 ? 9999 : 3));
        std::vector<BlockHeight> added(static_cast<std::size_t>(upTo(round % 50 == 0 ? 3000 : 4)));
        for (BlockHeight& height : added)
            height = {upTo(2), upTo(20), upTo(100), upTo(3) > 0};
        heights.replace(first, removed, added);
        plain.erase(plain.begin() + first, plain.begin() + first + removed);
        plain.insert(plain.begin() + first, added.begin(), added.end());
        ASSERT_EQ(heights.count(), std::ssize(plain));
        if (plain.empty())
            continue;
        const int changed = upTo(heights.count() - 1);
        heights.set(changed, plain[static_cast<std::size_t>(changed)] = {1, 2, upTo(200), true});
        const int at = upTo(heights.count() - 1);
        int top = 0;
        for (int i = 0; i < at; ++i)
            top += plain[static_cast<std::size_t>(i)].whole();
        ASSERT_EQ(heights.top(at), top);
        if (plain[static_cast<std::size_t>(at)].whole() > 0) {
            ASSERT_EQ(heights.at(top), at);
        }
        const int next = heights.nextEstimate(at);
        const auto isEstimate = [](const BlockHeight& height) { return !height.measured; };
        auto expected = std::find_if(plain.begin() + at, plain.end(), isEstimate);
        if (expected == plain.end())
            expected = std::find_if(plain.begin(), plain.end(), isEstimate);
        ASSERT_EQ(next, expected == plain.end() ? -1 : expected - plain.begin());
    }
    int total = 0;
    int width = 0;
    for (const BlockHeight& height : plain) {
        total += height.whole();
        width = std::max(width, height.width);
    }
    EXPECT_EQ(heights.total(), total);
    EXPECT_EQ(heights.width(), width);
}

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
