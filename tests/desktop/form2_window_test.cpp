#include "desktop/windows/form2_window.h"

#include "desktop/text/rich_text_edit.h"
#include "desktop/views/menus.h"
#include "editor/editor_window.h"
#include "fakes/virtual_loop.h"
#include "qt_testing.h"

#include <QMenu>

using desktop::qstring;
using fakes::eventually;

// The editor window on the offscreen platform, with its routines.
struct Form2WindowTest : testing::Test {
    Form2WindowTest() {
        screen.width = screen.height = 30000;
        form.top = 1500;
        form.left = 1500;
        form.visible = true;
        QCoreApplication::sendPostedEvents();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    QWidget& view(const controls::Control& control) {
        return *window.findChild<QWidget*>(qstring(control.name));
    }

    fakes::TemporaryFolder place;
    fakes::VirtualLoop loop;
    base::TextFiles files{base::CodePage(1252)};
    base::ProgramFolder folder{place.text("")};
    lang::LanguageTable Lingua{files, folder};
    desktop::RichTextEdit text{base::CodePage(1252)};
    controls::Window player{"Form1", {0, 0, 5000, 3000}};
    controls::Screen screen;
    controls::MenuItem command{"mnuMostraNascondi"};
    editor::Form2 form{loop, text, Lingua, folder};
    editor::EditorWindow routines{form, player, screen, command};
    desktop::Form2Window window{form, text};
};

TEST_F(Form2WindowTest, Resize_ByUserOrProgram_ResizesTheText) {
    EXPECT_TRUE(eventually([&] { return window.frameGeometry().size() == QSize(728, 347); }))
        << "with its frame";
    const QSize frame = window.frameGeometry().size() - window.size();
    window.resize(1000, 600);
    EXPECT_TRUE(eventually([&] { return form.width == (1000 + frame.width()) * 15; }));
    const int before = text.width();
    form.width = form.width + 1500;
    EXPECT_TRUE(eventually([&] { return text.width() == before + 100; }));
}

TEST_F(Form2WindowTest, HideAndShow_KeepsTheSize_AndFocusesTheText) {
    view(form.Combo1).setFocus();
    const QSize before = window.frameGeometry().size();
    window.close();
    form.visible = true;
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(eventually([&] { return window.isVisible() && window.frameGeometry().size() == before; }));
    EXPECT_EQ(window.focusWidget(), &text);
}

TEST_F(Form2WindowTest, Escape_InTheTextOrABox_DoesNotReachTheWindow) {
    int told = 0;
    form.KeyDown = [&](const platform::KeyEvent& key) { told += key.keyCode == platform::escapeKey; };
    window.activateWindow();
    for (QWidget* const control : {static_cast<QWidget*>(&text), &view(form.Combo1)}) {
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Escape);
        EXPECT_EQ(told, 0);
    }
    QApplication::focusWidget()->clearFocus();
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(told, 1);
}

TEST_F(Form2WindowTest, AMenuInsideAMenu_OpensItsCommands) {
    controls::MenuItem bar{"bar"}, within{"within"}, inner{"inner"};
    int runs = 0;
    inner.Click = [&] { ++runs; };
    within.items = {&inner};
    bar.items = {&within};
    const desktop::MenuBar menus({&bar}, nullptr);
    const auto* const opened = menus.findChild<QMenu*>(QStringLiteral("within"));
    ASSERT_TRUE(opened);
    opened->actions().front()->trigger();
    EXPECT_EQ(runs, 1);
}
