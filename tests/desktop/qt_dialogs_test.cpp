#include "base/files.h"
#include "desktop/services/qt_dialogs.h"
#include "qt_testing.h"

#include <QAbstractItemView>
#include <QColorDialog>
#include <QMessageBox>
#include <QProgressDialog>
#include <QSettings>

using namespace std::string_literals;
using fakes::eventually;
using platform::Answer;
using platform::BoxStyle;

namespace {

// Runs `act` on the next dialog that opens; `act` must close it.
template <typename Dialog>
void whenOpen(std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        act(*dialog);
        if (dialog->isVisible()) {
            ADD_FAILURE() << "the dialog was left open";
            dialog->reject();
        }
    });
}

struct FileDlgTest : testing::Test {
    FileDlgTest() {
        request.open = true;
        request.initialFolder = folder.text("");
    }
    ~FileDlgTest() override { QDir::setCurrent(before); }

    static QAbstractItemView& list(QFileDialog& dialog) {
        return *dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
    }
    static QMap<QString, QModelIndex> files(QFileDialog& dialog) {
        const QAbstractItemModel& model = *list(dialog).model();
        const QModelIndex root = list(dialog).rootIndex();
        QMap<QString, QModelIndex> shown;
        for (int row = 0; row < model.rowCount(root); ++row)
            shown.insert(model.index(row, 0, root).data().toString(), model.index(row, 0, root));
        return shown;
    }
    // Selects this name in the list, once it is there.
    static void pick(QFileDialog& dialog, const QString& name) {
        ASSERT_TRUE(eventually([&] { return files(dialog).contains(name); })) << name.toStdString();
        list(dialog).setCurrentIndex(files(dialog).value(name));
        QTest::keyClick(&list(dialog), Qt::Key_Return);
    }
    static void accept(QFileDialog& dialog, const std::string& typed) {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString(typed));
        dynamic_cast<QDialog&>(dialog).accept();
    }
    void beginSaving() {
        request.open = false;
        request.extensionAlways = true;
        request.defaultExtension = u"wav";
    }
    // The result of the dialog after `act` has operated it.
    base::Text ask(std::function<void(QFileDialog&)> act) {
        whenOpen<QFileDialog>(std::move(act));
        return dialogs.FileDlg(request);
    }

    const QString before = QDir::currentPath();
    fakes::TemporaryFolder folder;
    desktop::QtDialogs dialogs;
    platform::FileDialogRequest request;
};

} // namespace

TEST(MessageBox, EachStyle_HasItsButtonsAndItsTextAsItIs_AndAnswersToEscapeAndEnter) {
    using Box = QMessageBox;
    const std::tuple<BoxStyle, Box::Icon, Box::StandardButtons, Answer, Answer> rows[] = {
        {BoxStyle::Exclamation, Box::Warning, Box::Ok, Answer::OK, Answer::OK},
        {BoxStyle::YesNoInformation, Box::Information, Box::Yes | Box::No, Answer::No, Answer::Yes},
        {BoxStyle::YesNoExclamationDefaultNo, Box::Warning, Box::Yes | Box::No, Answer::No, Answer::No},
        {BoxStyle::YesNoCancelExclamation, Box::Warning, Box::Yes | Box::No | Box::Cancel, Answer::Cancel,
         Answer::Yes},
    };
    for (const auto& [style, icon, buttons, escape, enter] : rows) {
        for (const auto& [key, answer] : {std::pair(Qt::Key_Escape, escape), {Qt::Key_Return, enter}}) {
            whenOpen<Box>([icon = icon, buttons = buttons, pressed = key](Box& box) {
                EXPECT_EQ(box.icon(), icon);
                EXPECT_EQ(box.standardButtons(), buttons);
                EXPECT_EQ(box.text(), QStringLiteral("<b>a & b</b>\none\ntwo\nthree"));
                EXPECT_EQ(box.textFormat(), Qt::PlainText);
                EXPECT_EQ(box.windowTitle(), QStringLiteral("Quillmere"));
                EXPECT_GE(box.width(), 240) << "room for the title";
                QTest::keyClick(&box, pressed);
            });
            EXPECT_EQ(desktop::QtDialogs().messageBox(u"<b>a & b</b>\rone\r\ntwo\nthree", u"", style),
                      answer);
        }
    }
}

TEST(Progress, IsNotModal_AndReportsCancel) {
    int cancelled = 0;
    std::unique_ptr<platform::Progress> progress;
    progress = desktop::QtDialogs().showProgress(u"one\rtwo", u"Title", [&] {
        ++cancelled;
        progress.reset();
    });
    progress->setShare(0.5);
    QProgressDialog* window = nullptr;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const shown = qobject_cast<QProgressDialog*>(widget); shown && shown->isVisible())
            window = shown;
    ASSERT_TRUE(window);
    EXPECT_FALSE(window->isModal());
    EXPECT_EQ(window->value() * 2, window->maximum());
    window->findChild<QPushButton*>()->click();
    EXPECT_EQ(cancelled, 1);
    EXPECT_FALSE(progress);
}

TEST(ShowColor, BeginsWithoutCustomColours) {
    QColorDialog::setCustomColor(3, Qt::red); // as an earlier dialog would leave it
    whenOpen<QColorDialog>([](QColorDialog& dialog) {
        EXPECT_EQ(dialog.currentColor(), Qt::black);
        for (int i = 0; i < QColorDialog::customCount(); ++i)
            EXPECT_EQ(QColorDialog::customColor(i), Qt::white) << i;
        dialog.reject();
    });
    EXPECT_EQ(desktop::QtDialogs().ShowColor("", 0), std::nullopt);
    EXPECT_FALSE(QSettings(QSettings::UserScope, QStringLiteral("QtProject")).isWritable())
        << "and none is saved for the next run";
}

TEST_F(FileDlgTest, Filters_ShowOnlyMatchingFiles) {
    for (const char* name : {"a.mp3", "B.MP3", "c.wav", "d.txt", "e.m4a", "noPoint"})
        folder.write(name, "");
    request.title = u"Open media file";
    request.filter = u"Media files\0*.mp3;*.wav\0All files\0*.*\0\0"s;
    request.allMedia = true;
    const base::Text chosen = ask([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open media file"));
        const auto* const box = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(box->itemText(0) + u'|' + box->itemText(1), QStringLiteral("Media files|All files"));
        EXPECT_TRUE(eventually(
            [&] { return files(dialog).keys().join(u'|') == QStringLiteral("B.MP3|a.mp3|c.wav"); }));
        dialog.selectNameFilter(dialog.nameFilters().value(1));
        EXPECT_TRUE(eventually([&] { return files(dialog).size() == 6; }));
        dialog.selectNameFilter(dialog.nameFilters().value(2));
        EXPECT_TRUE(eventually([&] { return files(dialog).size() == 4; })) << "all media types";
        dialog.reject();
    });
    EXPECT_EQ(chosen, u"");
    EXPECT_EQ(QDir::currentPath(), before) << "a cancel does not change the folder";
}

TEST_F(FileDlgTest, UnusualNames_AreReturnedUnchanged_APathOver255UnitsNotAtAll) {
    const std::string deep = std::string(200, 'd') + "/" + std::string(60, 'f');
    for (const std::string& name :
         {std::string("Grüße & Söhne.mp3"), std::string("\"quoted\" talk.mp3"), std::string("new\nline.mp3"),
          std::string(" %1 a;b,c [1]*.mp3"), std::string("back\\slash"), deep}) {
        folder.write(name, "");
        const std::filesystem::path path = folder.path() / name;
        request.initialFolder = base::fromUtf8(path.parent_path().string());
        const base::Text chosen =
            ask([&](QFileDialog& dialog) { pick(dialog, QString::fromStdString(path.filename().string())); });
        EXPECT_EQ(base::toUtf8(chosen), name == deep ? "" : path.string());
        EXPECT_TRUE(name == deep || QDir::currentPath().toStdString() == folder.path().string());
    }
}

TEST_F(FileDlgTest, NameToSave_GetsItsExtension_WhateverDotsItHas) {
    QWidget other, owner;
    owner.setObjectName(QStringLiteral("owner"));
    request.owner = "owner";
    beginSaving();
    for (const auto& [always, typed, saved] : {std::tuple{true, "Dr. Jones", "Dr. Jones.wav"},
                                               {true, "Talk.WAV", "Talk.WAV"},
                                               {false, "letter.txt", "letter.txt"},
                                               {false, "letter", "letter.wav"}}) {
        request.extensionAlways = always;
        const base::Text chosen = ask([&, name = typed](QFileDialog& dialog) {
            EXPECT_EQ(dialog.parentWidget(), &owner);
            accept(dialog, name);
        });
        EXPECT_EQ(chosen, folder.text(saved));
    }
}

TEST_F(FileDlgTest, NameThatCannotBeWritten_IsRefused_WhileTheDialogStaysOpen) {
    folder.write("folder.wav/x", "");
    beginSaving();
    const std::string path = folder.path().string();
    const base::Text chosen = ask([&](QFileDialog& dialog) {
        for (const auto& [name, reason] :
             {std::pair<std::string, std::string>{"/none/x", "No such file or directory"},
              {std::string(254, 'x'), "File name too long"},
              {path + "/folder.wav/x/y", "Not a directory"}}) {
            whenOpen<QMessageBox>([reason = reason](QMessageBox& box) {
                EXPECT_EQ(box.text().toStdString(), reason);
                box.accept();
            });
            accept(dialog, name);
            EXPECT_TRUE(dialog.isVisible());
        }
        accept(dialog, path + "/new");
    });
    EXPECT_EQ(chosen, folder.text("new.wav"));
    EXPECT_FALSE(base::fileExists(chosen));
}
