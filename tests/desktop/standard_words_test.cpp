#include "desktop/services/standard_words.h"
#include "qt_testing.h"

#include <QDialogButtonBox>
#include <QFileIconProvider>
#include <QLabel>

namespace {

// The texts of message box buttons, of a file dialog's label, and of a folder's kind.
QString shownWords() {
    const QDialogButtonBox box(QDialogButtonBox::Yes | QDialogButtonBox::No);
    QFileDialog dialog;
    return QStringList({box.button(QDialogButtonBox::Yes)->text(), box.button(QDialogButtonBox::No)->text(),
                        dialog.findChild<QLabel*>(QStringLiteral("lookInLabel"))->text(),
                        QFileIconProvider().type(QFileInfo(QDir::tempPath()))})
        .join(u' ')
        .remove(u'&');
}

} // namespace

TEST(StandardWords, FollowTheProgramsLanguage) {
    // The program's language folder, and a language that a user has added with two translations of its own.
    const fakes::TemporaryFolder folder;
    const QDir laid(QStringLiteral(LAID_LANGUAGES));
    folder.write("Files/Lang/Deutsch.words", "&Yes\t&Ja\nno tab here\n\t\n&No\t&Nein");
    for (const QString& name : laid.entryList({QStringLiteral("*.qm"), QStringLiteral("*.words")}))
        ASSERT_TRUE(QFile::copy(laid.filePath(name), desktop::qstring(folder.text("Files/Lang/")) + name));

    base::Text language;
    desktop::StandardWords words(language, base::ProgramFolder(folder.text("")));
    QCoreApplication::installTranslator(&words);
    const std::pair<base::TextView, const char*> rows[] = {
        {u"Italiano.lng", "Sì No Cerca in: Cartella"}, {u"English.lng", "Yes No Look in: Folder"},
        {u"Svenska.lng", "Ja Nej Leta i: Mapp"},       {u"Hungarian.lng", "Igen Nem Keresés itt: Mappa"},
        {u"Deutsch.lng", "Ja Nein Look in: Folder"},   {u"", "Yes No Look in: Folder"},
    };
    for (const auto& [file, shown] : rows) {
        language = file;
        EXPECT_EQ(shownWords().toStdString(), shown) << base::toUtf8(file);
    }
}
