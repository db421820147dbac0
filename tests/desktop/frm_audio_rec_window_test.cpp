#include "desktop/frm_audio_rec_window.h"

#include "desktop/conversions.h"
#include "desktop/lazy_wave_input.h"
#include "fakes/temporary_folder.h"
#include "fakes/virtual_loop.h"

#include <QComboBox>
#include <QImage>
#include <QTest>
#include <gtest/gtest.h>

TEST(FrmAudioRecWindow, ShowsTheMetersCutOff_AndAListToChooseFrom) {
    const fakes::TemporaryFolder folder;
    // A meter that is blue and from pixel 240 on red.
    QImage picture(320, 12, QImage::Format_RGB32);
    picture.fill(Qt::blue);
    for (int i = 0; i < 80 * 12; ++i)
        picture.setPixelColor(240 + i % 80, i / 80, Qt::red);
    folder.write("Files/place", "");
    ASSERT_TRUE(picture.save(desktop::qstring(folder.text("Files/meter.jpg")), "PNG"));
    fakes::VirtualLoop loop;
    const base::TextFiles files{base::CodePage()};
    const base::ProgramFolder program(folder.path().u16string());
    const lang::LanguageTable language(files, program);
    recorder::FrmAudioRec form(loop, language, program);
    form.load(form.picPeakLeft, u"meter.jpg");
    desktop::FrmAudioRecWindow window(form);
    form.visible = true;
    QCoreApplication::sendPostedEvents();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    // The colour of the left meter at this pixel of its length.
    const auto shown = [&](int x) {
        const QImage image = window.grab().toImage();
        const double fine = image.devicePixelRatio();
        const QPointF at(desktop::pixels(form.picPeakLeft.left) + x,
                         desktop::pixels(form.picPeakLeft.top) + 6);
        return image.pixelColor((at * fine).toPoint());
    };
    form.picPeakLeft.width = 4500;
    EXPECT_EQ(shown(239), QColor(Qt::blue)) << "the picture keeps its size";
    EXPECT_EQ(shown(299), QColor(Qt::red));
    EXPECT_NE(shown(301), QColor(Qt::red));

    auto* const channels = window.findChild<QComboBox*>(QStringLiteral("cmbChannels"));
    QTest::keyClick(channels, Qt::Key_1);
    EXPECT_EQ(form.cmbChannels.listIndex(), 1) << "chosen from the list, not typed";
}

TEST(LazyWaveInput, WithoutItsModule_RefusesEveryDevice_AndSaysWhy) {
    for (const char* module : {"/nowhere/capture.so", "libc.so.6"}) {
        desktop::LazyWaveInput device(module);
        EXPECT_NE(device.open({}), 0);
        EXPECT_NE(device.errorText(0), u"") << module;
        EXPECT_NE(device.start(), 0);
        device.close();
    }
}
