#include "desktop/windows/form1_window.h"

#include "desktop/qt/event_stop.h"
#include "desktop/services/qt_event_loop.h"
#include "fakes/fake_player.h"
#include "qt_testing.h"

#include <QDragEnterEvent>
#include <QSignalSpy>

using desktop::qstring;

struct Form1WindowTest : testing::Test {
    Form1WindowTest() { paint("play.jpg", Qt::black); }

    void paint(const std::string& name, const QColor& color, int side = 10) {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(color);
        std::filesystem::create_directories(folder.path() / "Files");
        ASSERT_TRUE(image.save(qstring(folder.text("Files/" + name)), "PNG"));
    }

    void show() {
        window.emplace(form);
        form.visible = true;
        // A window is shown by the event loop.
        QCoreApplication::sendPostedEvents();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&*window));
    }
    QWidget& view(const controls::Control& control) {
        return *window->findChild<QWidget*>(qstring(control.name));
    }

    // The displayed colour at this pixel of the control.
    QColor color(const controls::Control& control, int x = 4, int y = 4) {
        const QImage image = window->grab().toImage();
        const QPointF at = QPointF(view(control).mapTo(&*window, QPoint(x, y))) * image.devicePixelRatio();
        return image.pixelColor(at.toPoint());
    }

    // Presses and releases through the window, like a user, on whatever is on top at these points.
    void drag(const controls::Control& control, QPoint from, QPoint to, Qt::MouseButton button) {
        const auto inWindow = [&](QPoint place) { return view(control).mapTo(&*window, place); };
        QTest::mousePress(window->windowHandle(), button, {}, inWindow(from));
        QTest::mouseRelease(window->windowHandle(), button, {}, inWindow(to));
    }

    // The bounding box of dark pixels.
    static QRect ink(const QImage& image) {
        QRect box;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y).lightness() < 160)
                    box |= QRect(x, y, 1, 1);
        return box;
    }

    fakes::TemporaryFolder folder;
    fakes::VirtualLoop loop;
    fakes::FakePlayer player{loop};
    base::TextFiles files{base::CodePage(1252)};
    base::ProgramFolder programFolder{base::fromUtf8(folder.path().string())};
    lang::LanguageTable Lingua{files, programFolder};
    player::Form1 form{loop, player, Lingua, programFolder};
    std::optional<desktop::Form1Window> window;
};

TEST_F(Form1WindowTest, Fill_IsCutOffAtItsWidth_NotStretched) {
    paint("track.jpg", Qt::yellow);
    paint("seek.jpg", Qt::red, 50);
    show();
    form.Shape1.width = 20 * 15;
    EXPECT_EQ(color(form.SeekTrack, 19, 8), Qt::red);
    EXPECT_EQ(color(form.SeekTrack, 21, 8), Qt::yellow);
    form.Shape1.width = 100 * 15;
    EXPECT_EQ(color(form.SeekTrack, 49, 8), Qt::red);
    EXPECT_EQ(color(form.SeekTrack, 51, 8), Qt::yellow) << "the picture keeps its size";
}

TEST_F(Form1WindowTest, UnreadablePicture_KeepsThePreviousOne) {
    form.cmdPlay.enabled = true;
    form.cmdPlay.Click = [] {};
    show();
    EXPECT_EQ(color(form.cmdPlay, 47, 48), Qt::black) << "stretched to the control";
    paint("pause.jpg", Qt::cyan);
    form.load(form.cmdPlay, u"pause.jpg");
    EXPECT_EQ(color(form.cmdPlay), Qt::cyan);
    folder.write("Files/broken.jpg", "\xFF\xD8\xFF\xE0 and no more");
    for (const base::TextView name : {u"missing.jpg", u"broken.jpg"}) {
        form.load(form.cmdPlay, name);
        EXPECT_EQ(color(form.cmdPlay), Qt::cyan) << base::toUtf8(name);
    }
}

TEST_F(Form1WindowTest, ScreenOfAnotherDensity_ShowsTheFinerPictures) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (screens.size() < 2)
        GTEST_SKIP() << "requires two screens";
    paint("play@2x.jpg", Qt::cyan, 96);
    paint("stop.jpg", Qt::yellow);
    folder.write("Files/stop@2x.jpg", "not a picture");
    for (controls::PictureButton* const button : {&form.cmdPlay, &form.cmdStop}) {
        button->enabled = true;
        button->Click = [] {};
    }
    show();
    for (const bool fine : {false, true, false}) {
        const bool wanted = fine == (screens[1]->devicePixelRatio() == 2);
        window->windowHandle()->setScreen(screens[wanted ? 1 : 0]);
        EXPECT_EQ(color(form.cmdPlay), fine ? Qt::cyan : Qt::black);
        EXPECT_EQ(color(form.cmdPlay, 47, 48), fine ? Qt::cyan : Qt::black);
        EXPECT_EQ(color(form.cmdStop), Qt::yellow) << "has no high-density picture";
    }
}

TEST_F(Form1WindowTest, Mouse_IsReportedInTwips_AndClicksIfReleasedInside) {
    using Seen = std::vector<std::pair<int, QPointF>>;
    Seen seen;
    int clicks = 0;
    form.Label2.MouseDown = form.Label2.MouseUp = [&](const controls::MouseEvent& event) {
        seen.emplace_back(event.button, QPointF(event.x, event.y));
    };
    form.cmdPlay.enabled = true;
    form.cmdPlay.Click = form.cmdStop.Click = form.Label2.Click = [&] { ++clicks; };
    show();
    drag(form.Label2, {2, 3}, {20, 3}, Qt::RightButton);
    EXPECT_EQ(seen, (Seen{{2, {30, 45}}, {2, {300, 45}}}));
    drag(form.cmdPlay, {5, 5}, {5, -2}, Qt::LeftButton);
    drag(form.cmdStop, {5, 5}, {5, 5}, Qt::LeftButton); // disabled
    EXPECT_EQ(clicks, 0);
    drag(form.cmdPlay, {5, 5}, {40, 40}, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(Form1WindowTest, Drop_TakesLocalFiles_AndRefusesAWebAddress) {
    std::vector<base::Text> dropped;
    form.acceptsDrops = true;
    form.Drop = [&](const std::vector<base::Text>& paths) { dropped = paths; };
    show();
    const std::pair<const char*, std::vector<base::Text>> rows[] = {
        {"https://example.org/a.mp3", {}},
        {"file:///t/one%20%FF.mp3\r\nhttps://example.org/\r\nfile://here/b.mp3\r\nfile:/c\r\n",
         {u"/t/one " + base::fromUtf8("\xFF") + u".mp3", u"/b.mp3", u"/c"}}};
    for (const auto& [list, taken] : rows) {
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"), list);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&*window, &enter);
        EXPECT_EQ(enter.isAccepted(), !taken.empty());
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&*window, &event);
        EXPECT_EQ(dropped, taken);
    }
}

TEST_F(Form1WindowTest, LongPath_IsShortened_ButKeepsTheFileName) {
    form.Label4.visible = true;
    show();
    const auto shown = [&](const base::Text& folders, const base::Text& end) {
        form.Label4.caption = u'/' + base::Text(folders) + base::Text(300, u'm') + end;
        return window->grab().toImage();
    };
    EXPECT_EQ(shown(u"a", u"m/talk.mp3"), shown(u"a", u"mm/talk.mp3"));
    EXPECT_NE(shown(u"a", u"/talk.mp3"), shown(u"a", u"/walk.mp3"));
    EXPECT_NE(shown(u"a", u"/talk.mp3"), shown(u"b", u"/talk.mp3"));
    EXPECT_NE(shown(u"a", u".mp3"), shown(u"a", u".mp4")) << "the end of a long name stays visible too";
}

TEST_F(Form1WindowTest, EventStop_BlocksAllEvents) {
    int heard = 0;
    form.cmdPlay.enabled = true;
    form.cmdPlay.Click = [&] { ++heard; };
    form.KeyDown = [&](const platform::KeyEvent&) { ++heard; };
    form.Unload = [&] { return ++heard == 0; };
    desktop::QtEventLoop timers;
    const auto alarm = timers.alarm([&] { ++heard; });
    show();
    {
        const desktop::EventStop stop;
        alarm->start(1);
        drag(form.cmdPlay, {5, 5}, {5, 5}, Qt::LeftButton);
        QTest::keyClick(&*window, Qt::Key_Escape);
        window->close();
        QTest::qWait(10);
        EXPECT_EQ(heard, 0);
    }
    EXPECT_TRUE(fakes::eventually([&] { return heard > 0; })) << "the alarm fires afterwards";
}

TEST_F(Form1WindowTest, LongCaption_IsWrapped_AndEndsWithAnEllipsis) {
    form.Label4.showsPath = false;
    show();
    const QRect whole = view(form.Label4).rect();
    for (const base::Text& word : {base::Text(u"wordword "), base::Text(u"oneword")}) {
        base::Text caption;
        while (caption.size() < 400)
            caption += word;
        form.Label4.caption = caption;
        QImage shown(whole.size(), QImage::Format_RGB32);
        shown.fill(Qt::white);
        view(form.Label4).render(&shown, {}, {}, {});
        const QRect box = ink(shown);
        EXPECT_GT(box.height(), whole.height() / 2);
        EXPECT_TRUE(whole.adjusted(1, 1, -1, -1).contains(box)) << "no line is cut off horizontally";
        const QRect end = ink(shown.copy(box.right() - 8, box.bottom() - 18, 9, 19));
        EXPECT_LE(end.height(), 4) << "the dots of an ellipsis are low";
    }
}

TEST_F(Form1WindowTest, StayOnTop_GoesOnAndOff_WithoutHidingTheWindow) {
    form.topmost = true;
    show();
    const QWindow& handle = *window->windowHandle();
    const QSignalSpy hides(&handle, &QWindow::visibleChanged);
    for (const bool on : {true, false, true}) {
        form.topmost = on;
        EXPECT_EQ(handle.flags().testFlag(Qt::WindowStaysOnTopHint), on);
    }
    EXPECT_EQ(hides.count(), 0);
    EXPECT_EQ(window->windowHandle(), &handle);
}

TEST_F(Form1WindowTest, MenuBar_LeftWithEscape_ReturnsTheFocus) {
    int quits = 0;
    form.KeyDown = [&](const platform::KeyEvent& key) { quits += key.keyCode == 27; };
    show();
    QApplication::setActiveWindow(&*window);
    const std::pair<QKeyCombination, bool> road[] = {{Qt::ALT | Qt::Key_F, true},
                                                     {Qt::Key_Escape, false},
                                                     {Qt::Key_Escape, false},
                                                     {Qt::Key_F, false},
                                                     {Qt::Key_Escape, false}};
    for (const auto& [key, opensMenu] : road) {
        EXPECT_EQ(quits, 0);
        QWidget* const popup = QApplication::activePopupWidget();
        QTest::keyClick(popup ? popup : QApplication::focusWidget(), key.key(), key.keyboardModifiers());
        EXPECT_EQ(QApplication::activePopupWidget() != nullptr, opensMenu);
    }
    EXPECT_EQ(quits, 1);
}
