#include "desktop/qt_dialogs.h"

#include "desktop/conversions.h"
#include "desktop/qt_event_loop.h"
#include "eventually.h"
#include "fakes/temporary_folder.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace std::string_literals;
using desktop::qstring;
using fakes::eventually;
using platform::Answer;
using platform::BoxStyle;

namespace {

// Does something with the dialog that opens next, which has to be closed by it.
template <typename Dialog>
void whenOpen(std::function<void(Dialog&)> act) {
    QTimer::singleShot(0, qApp, [act = std::move(act)] {
        Dialog* dialog = nullptr;
        eventually([&] {
            dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            return dialog && dialog->isVisible();
        });
        ASSERT_NE(dialog, nullptr);
        act(*dialog);
        if (QApplication::activeModalWidget() == dialog && dialog->isVisible()) {
            ADD_FAILURE() << "the dialog was left open";
            dialog->reject();
        }
    });
}

class FileDlgTest
    : public testing::Test { // NOLINT(cppcoreguidelines-virtual-class-destructor): as gtest's own
protected:
    FileDlgTest() {
        request.open = true;
        request.initialFolder = folder.text("");
    }
    ~FileDlgTest() override { QDir::setCurrent(before); }

    static QStringList names(QFileDialog& dialog) {
        const auto* const list = dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
        QStringList shown;
        for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
            shown << list->model()->index(row, 0, list->rootIndex()).data().toString();
        shown.sort();
        return shown;
    }
    // Picks this name from the list, once the list has it.
    static void pick(QFileDialog& dialog, const QString& name) {
        auto* const list = dialog.findChild<QAbstractItemView*>(QStringLiteral("listView"));
        ASSERT_TRUE(eventually([&] { return names(dialog).contains(name); })) << name.toStdString();
        const QModelIndexList found =
            list->model()->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name, 1,
                                 Qt::MatchExactly | Qt::MatchCaseSensitive);
        list->setCurrentIndex(found.value(0));
        QTest::keyClick(list, Qt::Key_Return);
    }
    static void type(QFileDialog& dialog, const QString& name) {
        auto* const line = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        line->setText(name);
        QTest::keyClick(line, Qt::Key_Return);
    }
    // The answer of the dialog when this is done with it.
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

TEST(MessageBox, EachStyle_HasItsButtons_AndTellsTheOnePressed) {
    using Button = QMessageBox::StandardButton;
    const struct {
        BoxStyle style;
        QMessageBox::Icon icon;
        std::vector<std::pair<Button, Answer>> answers;
        Answer escape;
    } rows[] = {
        {BoxStyle::Exclamation, QMessageBox::Warning, {{Button::Ok, Answer::OK}}, Answer::OK},
        {BoxStyle::Information, QMessageBox::Information, {{Button::Ok, Answer::OK}}, Answer::OK},
        {BoxStyle::YesNoExclamation,
         QMessageBox::Warning,
         {{Button::Yes, Answer::Yes}, {Button::No, Answer::No}},
         Answer::No},
        {BoxStyle::YesNoInformation,
         QMessageBox::Information,
         {{Button::Yes, Answer::Yes}, {Button::No, Answer::No}},
         Answer::No},
        {BoxStyle::YesNoCancelExclamation,
         QMessageBox::Warning,
         {{Button::Yes, Answer::Yes}, {Button::No, Answer::No}, {Button::Cancel, Answer::Cancel}},
         Answer::Cancel},
    };
    for (const auto& row : rows) {
        for (const auto& [button, expected] : row.answers) {
            whenOpen<QMessageBox>([&, wanted = button](QMessageBox& box) {
                EXPECT_EQ(box.icon(), row.icon);
                EXPECT_EQ(box.buttons().size(), static_cast<qsizetype>(row.answers.size()));
                QTest::mouseClick(box.button(wanted), Qt::LeftButton);
            });
            EXPECT_EQ(desktop::QtDialogs().messageBox(u"Text", u"", row.style), expected);
        }
        whenOpen<QMessageBox>([&](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(desktop::QtDialogs().messageBox(u"Text", u"", row.style), row.escape);
    }
}

TEST(MessageBox, Text_IsShownAsItIs_InItsLines) {
    const std::pair<base::TextView, const char*> rows[] = {
        {u"Lib -> Error!\rreason", "Lib -> Error!\nreason"},
        {u"one\r\ntwo\nthree", "one\ntwo\nthree"},
        {u"<b>a & b</b>", "<b>a & b</b>"},
    };
    for (const auto& [text, shown] : rows) {
        whenOpen<QMessageBox>([expected = shown](QMessageBox& box) {
            EXPECT_EQ(box.text(), QString::fromLatin1(expected));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Attention"));
            box.accept();
        });
        desktop::QtDialogs().messageBox(text, u"Attention", BoxStyle::Exclamation);
    }
    whenOpen<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Quillmere"));
        box.accept();
    });
    desktop::QtDialogs().messageBox(u"Text", u"", BoxStyle::Exclamation);
}

TEST(MessageBox, Timers_RunWhileItIsOpen) {
    int calls = 0;
    desktop::QtEventLoop loop;
    const auto alarm = loop.alarm([&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box && ++calls == 3)
            box->accept();
    });
    alarm->start(1);
    desktop::QtDialogs().messageBox(u"Text", u"", BoxStyle::Exclamation);
    EXPECT_EQ(calls, 3);
}

TEST_F(FileDlgTest, Filters_LetThroughWhatTheyName) {
    for (const char* name : {"a.mp3", "B.MP3", "c.wav", "d.txt", "noPoint"})
        folder.write(name, "");
    request.title = u"Open media file";
    request.filter = u"Media files\0*.mp3;*.wav\0All files\0*.*\0\0"s;
    const base::Text chosen = ask([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Open media file"));
        const auto* const box = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(box->itemText(0) + u'|' + box->itemText(1), QStringLiteral("Media files|All files"));
        EXPECT_TRUE(eventually([&] {
            return names(dialog) ==
                   QStringList({QStringLiteral("B.MP3"), QStringLiteral("a.mp3"), QStringLiteral("c.wav")});
        }));
        dialog.selectNameFilter(dialog.nameFilters().value(1));
        EXPECT_TRUE(eventually([&] { return names(dialog).size() == 5; }));
        dialog.reject();
    });
    EXPECT_EQ(chosen, u"");
    EXPECT_EQ(QDir::currentPath(), before) << "a cancel moves nothing";
}

TEST_F(FileDlgTest, Name_ComesThroughIntact) {
    for (const char* name :
         {"Grüße & Söhne.mp3", "тест.mp3", "\"quoted\" talk.mp3", "one\"quote.mp3", "new\nline.mp3",
          "a;b,c.mp3", "%1 100%.mp3", " blanks .mp3", "🎤.mp3", "[1]*.mp3", "noPoint", "back\\slash.mp3"}) {
        folder.write(name, "");
        const base::Text chosen = ask([&](QFileDialog& dialog) { pick(dialog, QString::fromUtf8(name)); });
        EXPECT_EQ(base::toUtf8(chosen), (folder.path() / name).string());
        EXPECT_EQ(QDir::currentPath().toStdString(), folder.path().string());
    }
}

TEST_F(FileDlgTest, NameWithoutAnExtension_GetsTheDefaultOne) {
    folder.write("talk.wav", "");
    request.defaultExtension = u"wav";
    const struct {
        bool open;
        const char* typed;
        const char* chosen;
    } rows[] = {{true, "talk", "talk.wav"},
                {false, "fresh", "fresh.wav"},
                {false, "fresh.rtf", "fresh.rtf"},
                {false, "talk.wav", "talk.wav"}};
    for (const auto& row : rows) {
        request.open = row.open;
        EXPECT_EQ(ask([&](QFileDialog& dialog) { type(dialog, QString::fromLatin1(row.typed)); }),
                  folder.text(row.chosen));
    }
    request.fileName = u"Document 1.rtf";
    EXPECT_EQ(ask([&](QFileDialog& dialog) {
                  dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setFocus();
                  QTest::keyClick(&dialog, Qt::Key_Return);
              }),
              folder.text("Document 1.rtf"));
}

TEST_F(FileDlgTest, InitialFolder_FallsBackToTheCurrentOne) {
    std::filesystem::create_directories(folder.path() / "here");
    folder.write("there/talk.mp3", "");
    for (const base::Text& initial : {folder.text("there"), base::Text(), folder.text("gone"),
                                      base::Text(u"C:\\Media"), folder.text("there/talk.mp3/x")}) {
        QDir::setCurrent(qstring(folder.text("here")));
        request.initialFolder = initial;
        ask([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().path(),
                      qstring(folder.text(initial == folder.text("there") ? "there" : "here")))
                << base::toUtf8(initial);
            dialog.reject();
        });
    }
}

TEST_F(FileDlgTest, PathOfMoreThan255Units_CannotBeReturned) {
    std::string deep(200, 'd');
    deep += "/" + std::string(60, 'f') + ".mp3";
    folder.write(deep, "");
    request.initialFolder = folder.text(std::string(200, 'd'));
    EXPECT_EQ(ask([&](QFileDialog& dialog) {
                  pick(dialog, QString::fromStdString(std::string(60, 'f') + ".mp3"));
              }),
              u"");
}
