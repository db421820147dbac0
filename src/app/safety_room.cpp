#include "app/safety_room.h"

#include "base/carry_on.h"
#include "base/numbers.h"

#include <ctime>

namespace app {

using lang::operator""_en;

namespace {

constexpr int marksPeriod = 400;     // ms; bookmarks change without an event, so they are polled
constexpr int survivedAfter = 10000; // ms without a crash after which a text counts as harmless
constexpr int mostTries = 2;         // attempts to restore a text that crashes the program
constexpr base::TextView textExtension = u"rtf";
constexpr base::TextView marksExtension = u"bm";

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

bool hasTable(const std::string& source) {
    return source.find("\\trowd") != std::string::npos;
}

} // namespace

SafetyRoom::SafetyRoom(Desktop& desktop, const player::Form1& form1, EditorRoom& editor,
                       BookmarkRoom& bookmarks, const base::TextFiles& files)
    : form1_(form1), editor_(editor), bookmarks_(bookmarks), files_(files), disk_(desktop.disk()),
      archive_(form1.folder.files(u"Safety/Archive")),
      journal_(desktop.eventLoop(), disk_, *this, form1.folder.files(u"Safety/Journal")),
      marksWatch_(desktop.eventLoop()), survived_(desktop.eventLoop()) {
    base::setKeepOld([this](base::TextView path, std::string_view bytes, const auto& write) {
        keepWhileWritten(path, bytes, write);
    });
    journal_.Failed = [this](const base::Text& reason) {
        Tell(u"Unsaved work cannot be kept safe: %1"_en, reason);
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
    watch();
}

// Called after bringBack, so that the restored text does not count as a change by the user.
void SafetyRoom::watch() {
    editor::Document& document = editor_.document();
    document.Settled = [this] { settled(); };
    document.Writing = [this](const base::Text& path) { beforeWriting(path); };
    document.Replacing = [this] {
        if (hasUnsavedText())
            keepText(safety::Reason::Replaced);
    };
    document.SaveFailed = [this](const base::Text& reason) {
        keepText(safety::Reason::SaveFailed);
        Tell(u"The document could not be saved and is kept among the earlier versions: %1"_en, reason);
    };
    bookmarks_.media.Replacing = [this](const base::Text& file, std::size_t lines) {
        base::carryOn([&] {
            if (files_.readLines(file).size() > lines)
                keep(base::afterLast(file, base::pathSeparator), base::readFile(file), marksExtension,
                     safety::Reason::Marks);
        });
    };
    bookmarks_.media.Failed = [this](const base::Text& reason) {
        Tell(u"The bookmarks could not be saved: %1"_en, reason);
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

void SafetyRoom::settled() {
    unsaved_ = false;
    fileCheck_ = checkOf(bytesOf(editor_.document().FileEditor));
    journal_.changed();
}

// Another program may have changed the file, or it may contain structure that the editor cannot keep.
void SafetyRoom::beforeWriting(const base::Text& path) {
    const std::string bytes = bytesOf(path);
    if (bytes.empty())
        return;
    const base::Text name(base::afterLast(path, base::pathSeparator));
    if (checkOf(bytes) != fileCheck_)
        keep(name, bytes, textExtension, safety::Reason::Overwritten);
    else if (hasTable(bytes))
        keep(name, bytes, textExtension, safety::Reason::Structure);
}

// Documents and bookmarks stay in the archive; other files, as the settings, only until they are written.
void SafetyRoom::keepWhileWritten(base::TextView path, std::string_view bytes,
                                  const std::function<void()>& write) {
    const base::TextView name = base::afterLast(path, base::pathSeparator);
    const bool isMarks = name.ends_with(u".bm");
    const bool isWork = isMarks || path == editor_.document().FileEditor;
    const base::TextView extension = isMarks ? marksExtension : textExtension;
    const base::Text version = archive_.keep(name, bytes, isWork ? extension : base::afterLast(name, u'.'),
                                             safety::Reason::InPlace, now());
    write();
    if (!version.empty() && !(isWork && keepsArchive()))
        base::carryOn([&] { base::removeFile(version); });
}

void SafetyRoom::keepText(safety::Reason reason) {
    keep(documentName(), editor_.form().RTB.source(), textExtension, reason);
}

void SafetyRoom::keep(base::TextView document, const std::string& bytes, base::TextView extension,
                      safety::Reason reason) {
    if (!keepsArchive())
        return;
    try {
        archive_.keep(document, bytes, extension, reason, now());
    } catch (const base::Failure& failure) {
        Tell(u"An earlier version could not be kept: %1"_en, base::fromUtf8(failure.what()));
    }
}

base::Text SafetyRoom::documentName() const {
    const editor::Document& document = editor_.document();
    return document.FileEditor.empty()
               ? document.NomeDocumento + base::numberText(document.NumeroDocumento)
               : base::Text(base::afterLast(document.FileEditor, base::pathSeparator));
}

void SafetyRoom::leave() {
    marksWatch_.setInterval(0);
    if (hasUnsavedText())
        keepText(safety::Reason::Exit);
    journal_.close();
    base::carryOn([this] { base::removeFile(folder(u"BringingBack")); });
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
    if (endedTheProgramTwice()) {
        keep(work.document.title, work.source, textExtension, safety::Reason::Crash);
        Tell(u"A text that ended the program twice is kept among the earlier versions: %1"_en,
             work.document.title);
        return;
    }
    bringBackText(work);
}

void SafetyRoom::bringBackText(const safety::Work& work) {
    const std::string file = bytesOf(work.document.path);
    fileCheck_ = work.document.fileCheck;
    if (!base::carryOn(
            [&] { editor_.document().restore(work.document.path, work.source, work.document.caret); })) {
        keep(work.document.title, work.source, textExtension, safety::Reason::Crash);
        return;
    }
    unsaved_ = true;
    if (!file.empty() && checkOf(file) != work.document.fileCheck) {
        keep(work.document.title, file, textExtension, safety::Reason::Changed);
        Tell(u"Unsaved work was brought back; its file has changed since and is kept among the earlier "
             "versions: %1"_en,
             work.document.title);
    } else {
        Tell(u"Unsaved work was brought back: %1"_en, work.document.title);
    }
    journal_.changed();
}

void SafetyRoom::bringBackMarks(const safety::Marks& marks) {
    base::carryOn([&] {
        if (bookmarks_.media.bringBack(marks.recording, marks.lines))
            Tell(u"Bookmarks were brought back: %1"_en,
                 base::Text(base::afterLast(marks.recording, base::pathSeparator)));
    });
}

} // namespace app
