#include "app/safety_room.h"

#include "base/carry_on.h"
#include "base/numbers.h"
#include "rtf/read/reader.h"
#include "rtf/read/structure.h"
#include "rtf/write/writer.h"

#include <ctime>

namespace app {

using lang::operator""_en;

namespace {

constexpr int marksPeriod = 400;     // ms; bookmarks change without an event, so they are polled
constexpr int survivedAfter = 10000; // ms without a crash after which a text counts as harmless
constexpr int mostTries = 2;         // attempts to restore a text that crashes the program

std::int64_t now() {
    return std::time(nullptr);
}

std::string bytesOf(const base::Text& path) {
    std::string bytes;
    if (!path.empty())
        base::carryOn([&] { bytes = base::readFile(path); });
    return bytes;
}

std::uint32_t checkOf(const std::string& bytes) {
    return bytes.empty() ? 0 : safety::checksum(bytes);
}

// True if the file holds the whole of the text that a journal describes: it was saved just before the program
// was killed, or the journal could not be deleted at an exit.
bool isSameText(const std::string& file, const std::string& source) {
    const auto canonical = [](std::string_view rtf) {
        rtf::Document document = rtf::read(rtf);
        document.lastParagraphEnds = true;
        return rtf::write(document);
    };
    return rtf::isRtf(file) && canonical(file) == canonical(source);
}

// Any program opens the version by its name, whatever the document is called.
base::TextView extensionFor(std::string_view bytes, safety::Reason reason) {
    return reason == safety::Reason::Marks ? u"bm" : rtf::isRtf(bytes) ? u"rtf" : u"txt";
}

} // namespace

SafetyRoom::SafetyRoom(Desktop& desktop, const player::Form1& form1, EditorRoom& editor,
                       BookmarkRoom& bookmarks, const base::TextFiles& files, safety::Notices& notices)
    : form1_(form1), editor_(editor), bookmarks_(bookmarks), files_(files), disk_(desktop.disk()),
      notices_(notices), archive_(form1.folder.files(u"Safety/Archive")),
      journal_(desktop.eventLoop(), disk_, *this, form1.folder.files(u"Safety/Journal")),
      marksWatch_(desktop.eventLoop()), survived_(desktop.eventLoop()) {
    base::setKeepOld([this](base::TextView path, std::string_view bytes, const auto& write) {
        keepWhileWritten(path, bytes, write);
    });
    journal_.Failed = [this](const base::Text& reason) {
        tell(u"Unsaved work cannot be kept safe: %1"_en, reason);
    };
    marksWatch_.Tick = [this] {
        if (safety::Marks held = marks(); held != lastMarks_) {
            lastMarks_ = std::move(held);
            journal_.changed();
        }
    };
    survived_.Tick = [this] {
        survived_.setInterval(0);
        base::carryOn([this] { base::removeFile(folder(u"BringingBack")); });
    };
}

SafetyRoom::~SafetyRoom() {
    base::setKeepOld({});
}

base::Text SafetyRoom::folder(base::TextView name) const {
    return form1_.folder.files(base::Text(u"Safety/") + base::Text(name));
}

base::Text SafetyRoom::archiveFolder() const {
    return folder(u"Archive");
}

void SafetyRoom::start() {
    base::carryOn([this] { base::createPrivateFolder(form1_.folder.files(u"Safety")); });
    const safety::Work work = safety::replay(safety::JournalFile::read(folder(u"Journal")));
    bringBack(work);
    tellKeptAtExit();
    watch();
    archive_.prune(now());
}

void SafetyRoom::tell(lang::English sentence, const base::Text& detail) {
    notices_.tell(sentence, {detail}, &editor_.form());
}

// Called after bringBack, so that the restored text does not count as a change by the user.
void SafetyRoom::watch() {
    editor::Document& document = editor_.document();
    document.Settled = [this](editor::Document::Origin origin) { settled(origin); };
    document.Writing = [this](const base::Text& path) { beforeWriting(path); };
    document.Replacing = [this] {
        if (hasUnsavedText())
            keepText(safety::Reason::Replaced);
    };
    document.Refused = [this](const base::Text& path) {
        tell(u"This document is too large to be shown and was not opened: %1"_en, path);
    };
    document.SaveFailed = [this](const base::Text& reason) { saveFailed(reason); };
    bookmarks_.media.Replacing = [this](const base::Text& file, std::size_t lines) {
        marksReplaced(file, lines);
    };
    editor_.form().RTB.Edited = [this] {
        unsaved_ = true;
        journal_.changed();
    };
    marksWatch_.setInterval(marksPeriod);
}

bool SafetyRoom::hasUnsavedText() const {
    return unsaved_ && editor_.form().RTB.textLength() > 0;
}

void SafetyRoom::settled(editor::Document::Origin origin) {
    using Origin = editor::Document::Origin;
    const base::Text& path = editor_.document().FileEditor;
    unsaved_ = false;
    written_ = origin == Origin::Written;
    fileCheck_ = checkOf(bytesOf(path));
    checked_ = origin == Origin::New ? base::Text() : path;
    journal_.gather();
}

// The file may belong to another text, another program may have changed it, or it may contain structure that
// the editor cannot keep.
void SafetyRoom::beforeWriting(const base::Text& path) {
    using safety::Reason;
    const std::string bytes = bytesOf(path);
    if (bytes.empty())
        return;
    const bool changed = checkOf(bytes) != fileCheck_;
    if (path == checked_ && !changed && (written_ || !rtf::losesStructure(bytes)))
        return;
    const Reason reason = path != checked_ ? Reason::Replaced
                          : changed        ? Reason::Overwritten
                                           : Reason::Structure;
    keep(base::afterLast(path, base::pathSeparator), bytes, reason);
}

void SafetyRoom::saveFailed(const base::Text& reason) {
    if (keepText(safety::Reason::SaveFailed))
        tell(u"The document could not be saved and is kept among the earlier versions: %1"_en, reason);
    else
        tell(u"The document could not be saved: %1"_en, reason);
}

void SafetyRoom::marksReplaced(const base::Text& file, std::size_t lines) {
    base::carryOn([&] {
        if (files_.readLines(file).size() > lines)
            keep(base::afterLast(file, base::pathSeparator), base::readFile(file), safety::Reason::Marks);
    });
}

// Documents and bookmarks stay in the archive; other files, as the settings, only until they are written.
void SafetyRoom::keepWhileWritten(base::TextView path, std::string_view bytes,
                                  const std::function<void()>& write) {
    const base::TextView name = base::afterLast(path, base::pathSeparator);
    const bool isWork = name.ends_with(u".bm") || path == editor_.document().FileEditor;
    const base::TextView extension = path == editor_.document().FileEditor
                                         ? extensionFor(bytes, safety::Reason::InPlace)
                                         : base::afterLast(name, u'.');
    const base::Text version = archive_.keep(name, bytes, extension, safety::Reason::InPlace, now());
    write();
    if (!version.empty() && !(isWork && keepsArchive()))
        base::carryOn([&] { base::removeFile(version); });
}

bool SafetyRoom::keepText(safety::Reason reason) {
    return keep(documentName(), editor_.form().RTB.source(), reason);
}

bool SafetyRoom::keep(base::TextView document, const std::string& bytes, safety::Reason reason) {
    // What nothing else holds is no copy that the user could do without.
    if (!keepsArchive() && reason != safety::Reason::Crash)
        return false;
    try {
        if (!archive_.keep(document, bytes, extensionFor(bytes, reason), reason, now()).empty())
            tellKept(base::Text(document), reason);
        return true;
    } catch (const base::Failure& failure) {
        tell(u"An earlier version could not be kept: %1"_en, base::fromUtf8(failure.what()));
        return false;
    }
}

// The other reasons have sentences of their own.
void SafetyRoom::tellKept(const base::Text& document, safety::Reason reason) {
    using safety::Reason;
    if (reason == Reason::Replaced)
        tell(u"What was replaced is kept among the earlier versions: %1"_en, document);
    else if (reason == Reason::Overwritten)
        tell(u"Another program had changed this file; what was overwritten is kept among the earlier "
             "versions: %1"_en,
             document);
    else if (reason == Reason::Structure)
        tell(u"This file held what the editor cannot keep, such as tables; it is kept as it was among the "
             "earlier versions: %1"_en,
             document);
    else if (reason == Reason::Marks)
        notices_.tell(u"Bookmarks that were dropped are kept among the earlier versions: %1"_en, {document},
                      &bookmarks_.form());
}

base::Text SafetyRoom::documentName() const {
    const editor::Document& document = editor_.document();
    return document.FileEditor.empty()
               ? document.NomeDocumento + base::numberText(document.NumeroDocumento)
               : base::Text(base::afterLast(document.FileEditor, base::pathSeparator));
}

void SafetyRoom::leave() {
    marksWatch_.setInterval(0);
    const bool kept = hasUnsavedText() && keepText(safety::Reason::Exit);
    if (kept)
        base::carryOn(
            [this] { base::replacePrivateFile(folder(u"KeptAtExit"), base::toUtf8(documentName())); });
    // What the archive could not take remains in the journal.
    if (hasUnsavedText() && !kept && keepsArchive())
        journal_.flush();
    else
        journal_.close();
    base::carryOn([this] { base::removeFile(folder(u"BringingBack")); });
}

// The run that kept it could tell nobody any more.
void SafetyRoom::tellKeptAtExit() {
    const base::Text document = base::fromUtf8(bytesOf(folder(u"KeptAtExit")));
    if (document.empty())
        return;
    tell(u"Unsaved text was kept among the earlier versions at the last exit: %1"_en, document);
    base::carryOn([this] { base::removeFile(folder(u"KeptAtExit")); });
}

void SafetyRoom::flush() {
    journal_.flush();
    // A termination that somebody requested is not the text's fault.
    base::carryOn([this] { base::removeFile(folder(u"BringingBack")); });
}

std::optional<platform::ParagraphChange> SafetyRoom::takeChange() {
    return editor_.form().RTB.takeParagraphs();
}

std::string SafetyRoom::wholeText() {
    return editor_.form().RTB.takeAllParagraphs();
}

safety::DocumentState SafetyRoom::documentState() {
    const editor::Document& document = editor_.document();
    return {document.FileEditor, documentName(), editor_.form().RTB.SelStart(), hasUnsavedText(), fileCheck_};
}

safety::Marks SafetyRoom::marks() {
    safety::Marks held{form1_.Label4.tag.get(), bookmarks_.lines()};
    return held.lines.empty() ? safety::Marks() : held;
}

// The counter is a file, because a text that crashes the program would take a counter in memory with it.
bool SafetyRoom::endedTheProgramTwice() {
    const std::string tries = bytesOf(folder(u"BringingBack"));
    if (tries.size() >= mostTries)
        return true;
    base::carryOn([&] { base::replacePrivateFile(folder(u"BringingBack"), tries + "x"); });
    survived_.setInterval(survivedAfter);
    return false;
}

void SafetyRoom::bringBack(const safety::Work& work) {
    if (!work.marks.lines.empty())
        bringBackMarks(work.marks);
    if (!work.document.unsaved || work.source.empty())
        return;
    if (endedTheProgramTwice())
        giveUp(work);
    else
        bringBackText(work);
}

// The archive has the text from now on, and the next one begins without its count.
void SafetyRoom::giveUp(const safety::Work& work) {
    if (!keep(work.document.title, work.source, safety::Reason::Crash))
        return;
    tell(u"A text that ended the program twice is kept among the earlier versions: %1"_en,
         work.document.title);
    journal_.close();
    base::carryOn([this] { base::removeFile(folder(u"BringingBack")); });
}

void SafetyRoom::bringBackText(const safety::Work& work) {
    const base::Text& path = work.document.path;
    const std::string file = bytesOf(path);
    const bool changed = !file.empty() && checkOf(file) != work.document.fileCheck;
    if (changed && isSameText(file, work.source))
        return;
    const bool kept =
        changed && keep(base::afterLast(path, base::pathSeparator), file, safety::Reason::Changed);
    // Without a path, the next save cannot overwrite the only copy of the other version.
    const bool asNew = changed && !kept;
    checked_ = asNew ? base::Text() : path;
    fileCheck_ = asNew ? 0 : work.document.fileCheck;
    try {
        editor_.document().restore(checked_, work.source, work.document.caret);
    } catch (const base::Failure& failure) {
        keep(work.document.title, work.source, safety::Reason::Crash);
        tell(u"Unsaved work could not be brought back and is kept among the earlier versions: %1"_en,
             base::fromUtf8(failure.what()));
        return;
    }
    unsaved_ = true;
    if (asNew)
        tell(u"Unsaved work was brought back as a new document, because its file has changed since: %1"_en,
             work.document.title);
    else if (changed)
        tell(u"Unsaved work was brought back; its file has changed since and is kept among the earlier "
             "versions: %1"_en,
             work.document.title);
    else
        tell(u"Unsaved work was brought back: %1"_en, work.document.title);
    tellIfItStays();
    journal_.changed();
}

// Whatever the user does with the work, its journal cannot be deleted then.
void SafetyRoom::tellIfItStays() {
    base::carryOn([this] { base::checkWritable(folder(u"Journal")); },
                  [this](const char* reason) {
                      tell(
                          u"The program folder cannot be written: this work comes back at every start. %1"_en,
                          base::fromUtf8(reason));
                  });
}

void SafetyRoom::bringBackMarks(const safety::Marks& marks) {
    base::carryOn([&] {
        if (bookmarks_.media.bringBack(marks.recording, marks.lines))
            notices_.tell(u"Bookmarks were brought back: %1"_en,
                          {base::Text(base::afterLast(marks.recording, base::pathSeparator))},
                          &bookmarks_.form());
    });
}

} // namespace app
