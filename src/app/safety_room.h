#pragma once

#include "app/bookmark_room.h"
#include "app/desktop.h"
#include "app/editor_room.h"
#include "controls/timer.h"
#include "lang/words.h"
#include "safety/archive.h"
#include "safety/journal.h"

#include <functional>
#include <string>

namespace app {

// The safety net behind the rules that let work vanish: the journal of unsaved work, the way back after a
// crash, and the archive of what a rule drops. All of it lies in Files/Safety, readable by its owner alone.
class SafetyRoom : private safety::JournalSource {
public:
    SafetyRoom(Desktop& desktop, const player::Form1& form1, EditorRoom& editor, BookmarkRoom& bookmarks,
               const base::TextFiles& files);

    // Brings back what an earlier run left unsaved, and begins the journal of this one. When the start is
    // over.
    void start();
    // The exit goes: what is unsaved goes into the archive, and the journal is deleted.
    void leave();
    // The journal holds all of the work when this returns.
    void flush();

    safety::Archive& archive() { return archive_; }
    base::Text archiveFolder() const;

    // Tells the user one sentence, with what stands for its %1.
    std::function<void(lang::English sentence, const base::Text& detail)> Tell = [](auto, const auto&) {};
    // False while the user wants no archive.
    std::function<bool()> keepsArchive = [] { return true; };

private:
    std::optional<platform::ParagraphChange> takeChange() override;
    std::string wholeText() override;
    safety::DocumentState documentState() override;
    safety::Marks marks() override;

    void watch();
    void bringBack(const safety::Work& work);
    void bringBackText(const safety::Work& work);
    void bringBackMarks(const safety::Marks& marks);
    bool endedTheProgramTwice();
    void beforeWriting(const base::Text& path);
    void settled();
    bool hasUnsavedText() const;
    void keepText(safety::Reason reason);
    void keep(base::TextView document, const std::string& bytes, base::TextView extension,
              safety::Reason reason);
    base::Text folder(base::TextView name) const;
    base::Text documentName() const;

    const player::Form1& form1_;
    EditorRoom& editor_;
    BookmarkRoom& bookmarks_;
    const base::TextFiles& files_;
    platform::Worker& disk_;
    safety::Archive archive_;
    safety::Journal journal_;
    controls::Timer marksWatch_;
    controls::Timer survived_;
    safety::Marks lastMarks_;
    bool unsaved_ = false;        // whatever a rule does to TestoModificato
    std::uint32_t fileCheck_ = 0; // of the document's file when it was last read or written
};

} // namespace app
