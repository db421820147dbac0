#include "desktop/form1_window.h"

#include "desktop/conversions.h"
#include "eventually.h"
#include "fakes/fake_player.h"
#include "fakes/temporary_folder.h"
#include "fakes/virtual_loop.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QScreen>
#include <QTest>
#include <QWindow>
#include <gtest/gtest.h>
#include <optional>

using desktop::qstring;
using fakes::eventually;

namespace {

// Counts the events of one kind, by the name of the widget they go to.
class EventCounter : public QObject {
public:
    explicit EventCounter(QEvent::Type kind) : kind_(kind) { qApp->installEventFilter(this); }
    QMap<QString, int> counts;

private:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == kind_ && object->isWidgetType())
            ++counts[object->objectName()];
        return false;
    }
    QEvent::Type kind_;
};

} // namespace

class Form1WindowTest : public testing::Test {
protected:
    Form1WindowTest() {
        for (const char* name : {"logo.jpg", "title.jpg", "volbar.jpg", "Apri.bmp", "bac.jpg", "stop.jpg",
                                 "for.jpg", "rec.jpg", "detta.jpg"})
            paint(name, Qt::gray);
        paint("track.jpg", Qt::yellow);
        paint("volthumb.jpg", Qt::green);
        paint("play.jpg", Qt::black);
        QImage seek(309, 15, QImage::Format_RGB32);
        seek.fill(Qt::blue);
        for (int x = 0; x < 50; ++x)
            for (int y = 0; y < seek.height(); ++y)
                seek.setPixelColor(x, y, Qt::red);
        save(seek, "seek.jpg");
    }

    void paint(const std::string& name, const QColor& color, int side = 10) {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(color);
        save(image, name);
    }
    void save(const QImage& image, const std::string& name) {
        std::filesystem::create_directories(folder.path() / "Files");
        ASSERT_TRUE(image.save(qstring(folder.text("Files/" + name)), "PNG"));
    }

    void show() {
        window.emplace(form);
        form.visible = true;
        // A window waits for the loop before it shows itself.
        QCoreApplication::sendPostedEvents();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&*window));
        // So that the next paint is due to what the test does.
        QCoreApplication::sendPostedEvents();
    }
    QWidget& view(const controls::Control& control) {
        return *window->findChild<QWidget*>(qstring(control.name));
    }
    QWidget& skin() { return *window->findChild<QWidget*>(QStringLiteral("skin")); }
    QAction& action(const controls::MenuItem& item) {
        return *window->findChild<QAction*>(qstring(item.name));
    }

    // The colour on the screen at this pixel of the control.
    QColor color(const controls::Control& control, int x = 4, int y = 4) {
        const QImage image = window->grab().toImage();
        const QPointF at = QPointF(view(control).mapTo(&*window, QPoint(x, y))) * image.devicePixelRatio();
        return image.pixelColor(at.toPoint());
    }

    // The mouse goes through the window, as a person's does, to whatever lies there on top.
    QPoint at(const QWidget& widget, QPoint place) { return widget.mapTo(&*window, place); }
    void press(const controls::Control& control, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(window->windowHandle(), button, {}, at(view(control), place));
    }
    void release(const controls::Control& control, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(window->windowHandle(), button, {}, at(view(control), place));
    }
    void move(const QWidget& widget, QPoint place) {
        QTest::mouseMove(window->windowHandle(), at(widget, place));
    }

    // The label's picture with this caption, and the box around its ink.
    QImage picture(controls::Label& label, const base::Text& caption) {
        label.caption = caption;
        QImage image(view(label).size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        view(label).render(&image, {}, {}, {});
        return image;
    }
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

TEST_F(Form1WindowTest, Fill_IsCutAtItsWidth_NotStretched) {
    show();
    form.Shape1.width = 20 * 15;
    EXPECT_EQ(color(form.SeekTrack, 19, 8), Qt::red);
    EXPECT_EQ(color(form.SeekTrack, 20, 8), Qt::yellow);
    form.Shape1.width = 100 * 15;
    EXPECT_EQ(color(form.SeekTrack, 47, 8), Qt::red);
    EXPECT_EQ(color(form.SeekTrack, 53, 8), Qt::blue);
    EXPECT_EQ(color(form.SeekTrack, 100, 8), Qt::yellow);
    form.Shape1.visible = false;
    EXPECT_EQ(color(form.SeekTrack, 4, 8), Qt::yellow);
}

TEST_F(Form1WindowTest, PictureThatCannotBeRead_LeavesTheOneBefore) {
    form.cmdPlay.enabled = true;
    form.cmdPlay.Click = [] {};
    show();
    paint("pause.jpg", Qt::cyan);
    form.load(form.cmdPlay, u"pause.jpg");
    EXPECT_EQ(color(form.cmdPlay), Qt::cyan);
    folder.write("Files/broken.jpg", "\xFF\xD8\xFF\xE0 and no more");
    folder.write("Files/empty.jpg", "");
    for (const base::TextView name : {u"missing.jpg", u"broken.jpg", u"empty.jpg"}) {
        form.load(form.cmdPlay, name);
        EXPECT_EQ(color(form.cmdPlay), Qt::cyan) << base::toUtf8(name);
    }
    form.load(form.cmdPlay, u"play.jpg");
    EXPECT_EQ(color(form.cmdPlay), Qt::black);
    EXPECT_EQ(color(form.cmdPlay, 47, 48), Qt::black) << "stretched over its place";
}

TEST_F(Form1WindowTest, ScreenOfAnotherDensity_ShowsTheFinerPictures) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (screens.size() < 2)
        GTEST_SKIP() << "runs where there are two screens";
    paint("play@2x.jpg", Qt::cyan, 20);
    form.cmdPlay.enabled = true;
    form.cmdPlay.Click = [] {};
    form.Shape1.visible = false;
    show();
    for (const bool fine : {false, true, false}) {
        const bool wanted = fine == (screens[1]->devicePixelRatio() == 2);
        window->windowHandle()->setScreen(screens[wanted ? 1 : 0]);
        EXPECT_EQ(color(form.cmdPlay), fine ? Qt::cyan : Qt::black);
        EXPECT_EQ(color(form.SeekTrack), Qt::yellow) << "one that has no finer picture";
    }
}

TEST_F(Form1WindowTest, ChangeThatIsNotSeen_PaintsNothing) {
    show();
    EventCounter paints(QEvent::Paint);
    form.Label4.tag = u"/a/talk.mp3";
    form.Label4.toolTip = u"talk";
    form.Image1.tag = u"80";
    form.Shape1.width = form.Shape1.width + 3;
    form.cmdStop.enabled = true; // no routine stands behind it
    form.topmost = true;
    // What has to be painted shows that all that could have been painted was.
    form.Label5.caption = u" 80%";
    EXPECT_TRUE(eventually([&] { return paints.counts[QStringLiteral("Label5")] > 0; }));
    for (const auto& name :
         {"Label4", "Label2", "Image1", "Image4", "Shape1", "SeekTrack", "cmdStop", "cmdPlay"})
        EXPECT_EQ(paints.counts[QLatin1String(name)], 0) << name;
}

TEST_F(Form1WindowTest, Mouse_IsReportedInTwips_ByItsButton) {
    std::vector<std::pair<int, QPointF>> seen;
    const auto note = [&](const controls::MouseEvent& event) {
        seen.emplace_back(event.button, QPointF(event.x, event.y));
    };
    form.Label2.MouseDown = form.Label2.MouseMove = form.Label2.MouseUp = note;
    show();
    const std::pair<Qt::MouseButton, int> rows[] = {
        {Qt::LeftButton, 1}, {Qt::RightButton, 2}, {Qt::MiddleButton, 4}};
    for (const auto& [button, number] : rows) {
        move(view(form.Label2), {2, 3});
        seen.clear();
        press(form.Label2, {2, 3}, button);
        move(view(form.Label2), {200, -20});
        release(form.Label2, {200, -20}, button);
        EXPECT_EQ(seen, (std::vector<std::pair<int, QPointF>>{
                            {number, {30, 45}}, {number, {3000, -300}}, {number, {3000, -300}}}));
    }
    seen.clear();
    form.MouseMove = note;
    move(skin(), {2, 100});
    EXPECT_EQ(seen, (std::vector<std::pair<int, QPointF>>{{0, {30, 1500}}}));
}

TEST_F(Form1WindowTest, Click_IsAPressAndAReleaseInside) {
    int clicks = 0;
    form.cmdPlay.enabled = true;
    form.cmdPlay.Click = form.cmdStop.Click = [&] { ++clicks; };
    show();
    struct Row {
        const controls::Control& control;
        QPoint pressed;
        QPoint released;
        int clicks;
    } const rows[] = {
        {form.cmdPlay, {5, 5}, {5, 5}, 1},  {form.cmdPlay, {5, 5}, {40, 40}, 1},
        {form.cmdPlay, {5, 5}, {5, -2}, 0}, {form.cmdPlay, {-2, 5}, {5, 5}, 0},
        {form.cmdStop, {5, 5}, {5, 5}, 0}, // not enabled
        {form.cmdRec, {5, 5}, {5, 5}, 0},  // no routine
    };
    for (const Row& row : rows) {
        clicks = 0;
        press(row.control, row.pressed);
        release(row.control, row.released);
        EXPECT_EQ(clicks, row.clicks) << row.control.name << row.released.x();
    }
}

TEST_F(Form1WindowTest, OverlappingControls_LieInTheirOrder) {
    form.Image1.top = form.Image2.top + form.Image2.height - form.Image1.height;
    show();
    const std::pair<const controls::Control*, QPoint> rows[] = {
        {&form.Image1, {9, 3}},  // over the bar and the "-"
        {&form.Image2, {3, 5}},  // over the "+"
        {&form.Label2, {3, 3}},  // over the bar of the position
        {&form.Image4, {2, 10}}, // nothing hidden takes the mouse
        {&form.cmdIndietro, {1, 9}},
    };
    for (const auto& [control, place] : rows)
        EXPECT_EQ(skin().childAt(view(*control).mapToParent(place)), &view(*control)) << control->name;
    EXPECT_EQ(color(form.Image1, 9, 3), Qt::green);
}

TEST_F(Form1WindowTest, LongCaption_IsWrapped_AndCutWithAnEllipsis) {
    show();
    const QRect whole = view(form.Label4).rect();
    for (const base::Text& word : {base::Text(u"wordword "), base::Text(u"oneword"), base::Text(u"Ŵ/")}) {
        base::Text caption;
        while (caption.size() < 400)
            caption += word;
        const QImage shown = picture(form.Label4, caption);
        EXPECT_EQ(shown, picture(form.Label4, caption + u"more"));
        const QRect box = ink(shown);
        EXPECT_GT(box.height(), whole.height() / 2);
        EXPECT_TRUE(whole.adjusted(1, 1, -1, -1).contains(box)) << "no line is cut through";
        const QRect end = ink(shown.copy(box.right() - 8, box.bottom() - 18, 9, 19));
        EXPECT_LE(end.height(), 4) << "the points of an ellipsis lie low";
    }
    EXPECT_LT(ink(picture(form.Label4, u"short.mp3")).height(), 25);
}

TEST_F(Form1WindowTest, Place_FollowsTheData_AndTheUser) {
    form.left = 750;
    form.top = 1500;
    show();
    EXPECT_EQ(window->frameGeometry().topLeft(), QPoint(50, 100));
    form.left = 3000;
    EXPECT_EQ(window->frameGeometry().left(), 200);
    window->windowHandle()->setFramePosition({300, 250});
    EXPECT_TRUE(eventually([&] { return form.left == 4500 && form.top == 3750; }));
    form.caption = u"talk.mp3";
    EXPECT_EQ(window->frameGeometry().topLeft(), QPoint(300, 250));
    EXPECT_EQ(form.height, window->frameGeometry().height() * 15);
}

TEST_F(Form1WindowTest, Minimising_IsToldWithItsState) {
    using controls::WindowState;
    std::vector<WindowState> states;
    form.Resize = [&] { states.push_back(form.windowState); };
    show();
    states.clear();
    window->windowHandle()->showMinimized();
    EXPECT_TRUE(eventually([&] { return states.size() == 1; }));
    window->windowHandle()->showNormal();
    EXPECT_TRUE(eventually([&] { return states.size() == 2; }));
    EXPECT_EQ(states, (std::vector<WindowState>{WindowState::Minimised, WindowState::Normal}));
}

TEST_F(Form1WindowTest, StayOnTop_GoesOnAndOff_WithoutHidingTheWindow) {
    form.topmost = true;
    show();
    const WId id = window->winId();
    EventCounter hides(QEvent::Hide);
    for (const bool on : {true, false, true, false, true}) {
        form.topmost = on;
        EXPECT_EQ(window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), on);
    }
    EXPECT_EQ(hides.counts.size(), 0);
    EXPECT_EQ(window->winId(), id);
}

TEST_F(Form1WindowTest, Hourglass_IsTakenBack_HoweverOftenItWasSet) {
    using controls::Pointer;
    show();
    // A drag of text shows a pointer of its own meanwhile.
    QApplication::setOverrideCursor(Qt::DragMoveCursor);
    for (const Pointer pointer :
         {Pointer::Default, Pointer::Hourglass, Pointer::Hourglass, Pointer::Default}) {
        form.screen.mousePointer = pointer;
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(),
                  pointer == Pointer::Hourglass ? Qt::WaitCursor : Qt::DragMoveCursor);
    }
    QApplication::restoreOverrideCursor();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

// Run once more on a screen of twice the density.
TEST_F(Form1WindowTest, FinePicture_IsTakenWhereTheScreenIsFine) {
    form.cmdPlay.enabled = true;
    form.cmdPlay.Click = [] {};
    paint("play@2x.jpg", Qt::magenta, 96);
    paint("bac.jpg", Qt::cyan);
    folder.write("Files/bac@2x.jpg", "not a picture");
    form.cmdIndietro.Click = [] {};
    show();
    const bool fine = window->devicePixelRatio() > 1;
    EXPECT_EQ(color(form.cmdPlay), fine ? Qt::magenta : Qt::black);
    EXPECT_EQ(color(form.cmdPlay, 47, 48), fine ? Qt::magenta : Qt::black);
    EXPECT_EQ(color(form.cmdIndietro), Qt::cyan);
    EXPECT_EQ(view(form.cmdPlay).size(), QSize(48, 49));
}
