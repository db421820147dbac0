#pragma once

#include "app/bookmark_room.h"
#include "app/desktop.h"
#include "app/editor_room.h"
#include "controls/timer.h"
#include "lang/words.h"
#include "safety/archive.h"
#include "safety/journal.h"
#include "safety/notices.h"

#include <functional>
#include <string>

namespace app {

// The safety net for rules that discard work: the journal of unsaved work, its restoration after a crash, and
// the archive of discarded texts. Everything is stored in Files/Safety, readable by its owner only.
class SafetyRoom : private safety::JournalSource {
public:
    SafetyRoom(Desktop& desktop, const player::Form1& form1, EditorRoom& editor, BookmarkRoom& bookmarks,
               const base::TextFiles& files, safety::Notices& notices);
    SafetyRoom(const SafetyRoom&) = delete;
    SafetyRoom& operator=(const SafetyRoom&) = delete;
    ~SafetyRoom() override;

    // Restores what an earlier run left unsaved and starts this run's journal. Called when the start is over.
    void start();
    // The program exits: archives unsaved work and deletes the journal.
    void leave();
    // Returns once the journal holds all unsaved work.
    void flush();

    safety::Archive& archive() { return archive_; }
    base::Text archiveFolder() const;

    // Returns false if the user has turned the archive off.
    std::function<bool()> keepsArchive = [] { return true; };

private:
    std::optional<platform::ParagraphChange> takeChange() override;
    std::string wholeText() override;
    safety::DocumentState documentState() override;
    safety::Marks marks() override;

    void watch();
    void tellKeptAtExit();
    void bringBack(const safety::Work& work);
    void bringBackText(const safety::Work& work);
    void tellIfItStays();
    void bringBackMarks(const safety::Marks& marks);
    bool endedTheProgramTwice();
    void giveUp(const safety::Work& work);
    void beforeWriting(const base::Text& path);
    void settled(editor::Document::Origin origin);
    void keepWhileWritten(base::TextView path, std::string_view bytes, const std::function<void()>& write);
    void saveFailed(const base::Text& reason);
    void marksReplaced(const base::Text& file, std::size_t lines);
    bool hasUnsavedText() const;
    bool keepText(safety::Reason reason);
    // False when it is not kept, as the user wishes or the disk.
    bool keep(base::TextView document, const std::string& bytes, safety::Reason reason);
    void tellKept(const base::Text& document, safety::Reason reason);
    void tell(lang::English sentence, const base::Text& detail);
    base::Text folder(base::TextView name) const;
    base::Text documentName() const;

    const player::Form1& form1_;
    EditorRoom& editor_;
    BookmarkRoom& bookmarks_;
    const base::TextFiles& files_;
    platform::Worker& disk_;
    safety::Notices& notices_;
    safety::Archive archive_;
    safety::Journal journal_;
    controls::Timer marksWatch_;
    controls::Timer survived_;
    safety::Marks lastMarks_;
    bool unsaved_ = false;        // independent of TestoModificato, which some rules change
    std::uint32_t fileCheck_ = 0; // checksum of the document's file when last read or written
    base::Text checked_;          // path of that file; empty if the editor's text is not the file's
    bool written_ = false;        // this program wrote the file, so it contains what the editor keeps
};

} // namespace app
