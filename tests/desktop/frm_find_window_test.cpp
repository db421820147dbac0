#include "desktop/windows/frm_find_window.h"

#include "desktop/services/qt_event_loop.h"
#include "qt_testing.h"

#include <QAbstractItemView>
#include <QDropEvent>

namespace {

struct FrmFindWindow : testing::Test {
    FrmFindWindow() {
        form.cmdFind.Click = [this] { pressed += "find "; };
        form.cmdReplace.Click = [this] { pressed += "replace "; };
        form.cmdCancel.Click = [this] { pressed += "cancel "; };
        form.cboFind.Click = [this] { pressed += "chosen "; };
        form.visible = true;
        EXPECT_TRUE(fakes::eventually([this] { return window.isVisible(); }));
        form.setFocus();
        form.cboFind.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    desktop::QtEventLoop loop;
    editor::FrmFind form{loop};
    desktop::FrmFindWindow window{form};
    QComboBox& box{*window.findChild<QComboBox*>(QStringLiteral("cboFind"))};
    std::string pressed;
};

} // namespace

TEST_F(FrmFindWindow, EnterEscapeAndMnemonics_PressTheirButtons) {
    QLineEdit* const line = box.lineEdit();
    QTest::keyClicks(line, QStringLiteral("one"));
    EXPECT_EQ(form.cboFind.text.get(), u"one");
    QTest::keyClick(line, Qt::Key_Return);
    form.cmdReplace.setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    form.cmdFind.caption = u"&Next";
    QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(fakes::eventually([this] { return pressed == "find replace find "; })) << pressed;
    QTest::keyClick(line, Qt::Key_Escape);
    window.close();
    EXPECT_EQ(pressed, "find replace find cancel ");
    EXPECT_TRUE(window.isVisible()) << "only the data closes the window";
}

TEST_F(FrmFindWindow, Box_HoldsALineOfAnyLength_AndReportsOnlyUserInput) {
    form.cboFind.Change = [this] { pressed += "changed "; };
    const QString huge(100'000, u'x');
    QApplication::clipboard()->setText(huge + QStringLiteral("\ny"));
    box.lineEdit()->paste();
    EXPECT_EQ(form.cboFind.text->size(), 100'000U);
    form.cboFind.items = std::vector<base::Text>{u"zero", u"one"};
    EXPECT_EQ(box.currentText(), huge) << "a new list keeps the text";
    form.cboFind.text = u"zero";
    EXPECT_EQ(pressed, "changed ");
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(form.cboFind.text.get(), u"one");
    EXPECT_EQ(pressed, "changed changed chosen ");
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return}) {
        box.showPopup();
        QTest::keyClick(box.view(), key);
        EXPECT_FALSE(box.view()->isVisible());
    }
    EXPECT_EQ(pressed, "changed changed chosen changed chosen ") << "an open list handles its keys";
}

TEST_F(FrmFindWindow, Drop_CopiesTheText_AndNormalisesLineEnds) {
    base::Text dropped;
    form.cboFind.Drop = [&](const base::Text& text) { dropped = text; };
    const std::pair<const char*, base::TextView> rows[] = {
        {"a\nb", u"a\r\nb"}, {"a\r\nb", u"a\r\nb"}, {"a\rb\n", u"a\r\nb\r\n"}};
    for (const auto& [text, taken] : rows) {
        QMimeData data;
        data.setText(QString::fromLatin1(text));
        QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
        event.setDropAction(Qt::MoveAction);
        box.lineEdit()->event(&event);
        EXPECT_EQ(dropped, taken);
        EXPECT_TRUE(event.isAccepted());
        EXPECT_EQ(event.dropAction(), Qt::CopyAction);
    }
}
