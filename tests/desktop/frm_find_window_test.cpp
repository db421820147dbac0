#include "desktop/frm_find_window.h"

#include "desktop/qt_event_loop.h"
#include "eventually.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

namespace {

class FrmFindWindow : public testing::Test {
protected:
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
    template <typename View>
    View& view(const char* name) {
        return *window.findChild<View*>(QLatin1String(name));
    }

    desktop::QtEventLoop loop;
    editor::FrmFind form{loop};
    desktop::FrmFindWindow window{form};
    std::string pressed;
};

} // namespace

TEST_F(FrmFindWindow, Keys_PressTheButtonsThatAreForThem) {
    auto& line = *view<QComboBox>("cboFind").lineEdit();
    QTest::keyClicks(&line, QStringLiteral("one"));
    EXPECT_EQ(form.cboFind.text.get(), u"one");
    QTest::keyClick(&line, Qt::Key_Return);
    view<QWidget>("cmdReplace").setFocus();
    QTest::keyClick(&view<QWidget>("cmdReplace"), Qt::Key_Return);
    form.cmdFind.caption = u"&Next";
    form.cmdCancel.caption = u"Away";
    QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(fakes::eventually([this] { return pressed == "find replace find "; })) << pressed;
    QTest::keyClick(&line, Qt::Key_Escape);
    window.close();
    EXPECT_EQ(pressed, "find replace find cancel ");
    EXPECT_TRUE(window.isVisible()) << "the data says when it goes";
}

TEST_F(FrmFindWindow, ABox_HoldsWhateverIsPasted_AndTellsOfWhatIsChosen) {
    const QString huge = QString(100'000, u'x') + QStringLiteral("\ny");
    QApplication::clipboard()->setText(huge);
    auto& box = view<QComboBox>("cboFind");
    box.lineEdit()->paste();
    EXPECT_EQ(form.cboFind.text->size(), 100'002U);
    form.cboFind.items = std::vector<base::Text>{form.cboFind.text.get(), u"one"};
    EXPECT_EQ(box.currentText(), huge) << "a longer list leaves the text alone";
    Q_EMIT box.textActivated(QStringLiteral("one"));
    EXPECT_EQ(form.cboFind.text.get(), u"one");
    EXPECT_EQ(pressed, "chosen ");
}
