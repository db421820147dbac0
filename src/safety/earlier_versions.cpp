#include "safety/earlier_versions.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "lang/command_name.h"
#include "platform/file_filter.h"
#include "rtf/read/reader.h"
#include "safety/time_text.h"

#include <utility>

namespace safety {

using lang::operator""_en;

namespace {

constexpr std::uint64_t kilobyte = 1024;
constexpr base::TextView archivePlace = u"Files/Safety/Archive";

lang::English words(Reason reason) {
    switch (reason) {
    case Reason::Exit:
        return u"Not saved at the exit"_en;
    case Reason::Replaced:
        return u"Replaced by another document"_en;
    case Reason::SaveFailed:
        return u"Could not be saved"_en;
    case Reason::Overwritten:
        return u"Changed by another program, then overwritten"_en;
    case Reason::InPlace:
        return u"Kept while its file was written over"_en;
    case Reason::Structure:
        return u"Holds what the editor cannot keep"_en;
    case Reason::Marks:
        return u"Bookmarks before some were dropped"_en;
    case Reason::Changed:
        return u"Unsaved work whose file had changed"_en;
    case Reason::Crash:
        break;
    }
    return u"Ended the program when it was brought back"_en;
}

base::Text kilobytes(std::uint64_t bytes) {
    return base::numberText(static_cast<double>((bytes + kilobyte - 1) / kilobyte));
}

base::Text capitals(base::TextView extension) {
    base::Text text(extension);
    for (char16_t& unit : text) {
        if (unit >= u'a' && unit <= u'z')
            unit = static_cast<char16_t>(unit - u'a' + u'A');
    }
    return text;
}

} // namespace

EarlierVersions::EarlierVersions(Archive& archive, Options& options, lang::Words& words,
                                 platform::Dialogs& dialogs, const base::TextFiles& files)
    : archive_(archive), options_(options), words_(words), dialogs_(dialogs), files_(files),
      mnuEarlierVersions_("mnuEarlierVersions", u"&Earlier versions..."_en) {
    mnuEarlierVersions_.Click = [this] { open(); };
    form.List1.observe([this] { showText(); });
    form.List1.DblClick = form.cmdOpen.Click = [this] { openAsNew(); };
    form.cmdCopy.Click = [this] { saveCopy(); };
    form.cmdDeleteAll.Click = [this] { deleteAll(); };
    form.chkKeep.Click = [this] {
        options_.archive = form.chkKeep.value;
        translate();
        OptionsChanged();
    };
    form.cmdClose.Click = [this] { form.visible = false; };
    form.Unload = [this] {
        form.visible = false;
        return false;
    };
    words_.follow([this] { translate(); });
}

void EarlierVersions::translate() {
    form.caption = words_(u"Earlier versions"_en);
    form.List1.accessible.name = form.txtVersion.accessible.name = form.caption.get();
    form.lblEmpty.caption = words_(u"There are no earlier versions."_en);
    form.cmdDeleteAll.caption = words_(u"&Delete all..."_en);
    form.cmdCopy.caption = words_(u"&Save a copy..."_en);
    form.cmdOpen.caption = words_(u"&Open as new document"_en);
    form.chkKeep.caption = words_(u"&Keep earlier versions"_en);
    form.lblKept.caption =
        words_(u"Kept for %1 days, %2 MB at most, in %3"_en,
               {base::numberText(options_.days), base::numberText(options_.megabytes), archivePlace});
    form.lblKept.visible = options_.archive;
    form.cmdClose.caption = words_(u"Close"_en);
    showRows();
}

void EarlierVersions::open() {
    form.chkKeep.value = options_.archive;
    translate(); // the options may have been read since the last call
    std::exchange(Load, [](VersionsWindow&) {})(form);
    form.visible = true;
    fill();
    form.setFocus();
    form.List1.setFocus();
}

void EarlierVersions::fill() {
    versions_ = archive_.versions();
    form.List1.listIndex = -1;
    showRows();
    form.List1.listIndex = versions_.empty() ? -1 : 0;
    showText();
}

void EarlierVersions::showRows() {
    std::vector<base::Text> rows;
    for (const Version& version : versions_)
        rows.push_back(version.document + u'\t' + timeText(version.time) + u'\t' +
                       words_(u"%1 KB"_en, {kilobytes(version.size)}) + u'\t' +
                       words_(words(version.reason)));
    form.lblEmpty.visible = rows.empty();
    form.List1.items = std::move(rows);
    form.cmdDeleteAll.enabled = !versions_.empty();
}

const Version* EarlierVersions::chosen() const {
    const int index = form.List1.listIndex;
    return index < 0 || static_cast<std::size_t>(index) >= versions_.size()
               ? nullptr
               : &versions_[static_cast<std::size_t>(index)];
}

base::Text EarlierVersions::textOf(const Version& version) const {
    try {
        const std::string bytes = base::readFile(version.path);
        return rtf::isRtf(bytes) ? rtf::plainText(rtf::read(bytes)) : files_.read(version.path);
    } catch (const base::Failure& failure) {
        return words_(u"This version cannot be read: %1"_en, {base::fromUtf8(failure.what())});
    }
}

void EarlierVersions::showText() {
    const Version* const version = chosen();
    form.cmdOpen.enabled = form.cmdCopy.enabled = version != nullptr;
    const base::Text path = version ? version->path : base::Text();
    if (std::exchange(shown_, path) != path)
        form.txtVersion.text = version ? textOf(*version) : base::Text();
}

void EarlierVersions::openAsNew() {
    const Version* const version = chosen();
    if (!version)
        return;
    try {
        if (OpenAsNew(version->path))
            form.visible = false;
    } catch (const base::Failure& failure) {
        report(words_(u"This version cannot be read: %1"_en, {base::fromUtf8(failure.what())}));
    }
}

void EarlierVersions::saveCopy() {
    const Version* const version = chosen();
    if (!version)
        return;
    const Version copied = *version;
    platform::FileDialogRequest request;
    request.owner = form.name;
    request.title = lang::commandName(words_(u"&Save a copy..."_en));
    request.fileName = copied.document;
    request.defaultExtension = copied.extension;
    request.filter = platform::fileFilter(
        {{capitals(copied.extension), u"*." + copied.extension}, {words_(u"All files"_en), u"*.*"}});
    for (;;) {
        const base::Text path = dialogs_.FileDlg(request);
        if (path.empty())
            return;
        if (!base::fileExists(path)) {
            try {
                base::replaceFile(path, base::readFile(copied.path));
            } catch (const base::Failure& failure) {
                report(words_(u"The copy could not be written: %1"_en, {base::fromUtf8(failure.what())}));
            }
            return;
        }
        report(words_(
            u"A file of this name is there already. Choose another name: a copy overwrites nothing."_en));
    }
}

void EarlierVersions::deleteAll() {
    if (dialogs_.messageBox(words_(u"Delete all earlier versions? Nothing brings them back."_en), {},
                            platform::BoxStyle::YesNoExclamationDefaultNo) != platform::Answer::Yes)
        return;
    try {
        archive_.removeAll();
    } catch (const base::Failure& failure) {
        report(words_(u"The earlier versions could not be deleted: %1"_en, {base::fromUtf8(failure.what())}));
    }
    fill();
}

void EarlierVersions::report(base::TextView text) {
    dialogs_.messageBox(text, {}, platform::BoxStyle::Exclamation);
}

} // namespace safety
