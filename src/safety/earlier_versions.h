#pragma once

#include "base/files.h"
#include "lang/words.h"
#include "platform/dialogs.h"
#include "safety/archive.h"
#include "safety/options.h"
#include "safety/versions_window.h"

namespace safety {

// The command "Earlier versions..." and its window: lists the archive's versions, opens and copies them, and
// never overwrites a file.
class EarlierVersions {
public:
    // `files` supplies the code page for texts that are not RTF.
    EarlierVersions(Archive& archive, Options& options, lang::Words& words, platform::Dialogs& dialogs,
                    const base::TextFiles& files);

    // The commands for the transcript menu.
    std::vector<controls::MenuItem*> commands() { return {&mnuEarlierVersions_}; }

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(VersionsWindow&)> Load = [](VersionsWindow&) {};
    // Opens the file at this path as a new untitled document. Returns false if the user kept the current
    // text. Throws base::Failure if the file cannot be read.
    std::function<bool(const base::Text& path)> OpenAsNew = [](const base::Text&) { return false; };
    // Called when the user has changed the options.
    std::function<void()> OptionsChanged = [] {};

    VersionsWindow form;

private:
    void open();
    void translate();
    // Reloads the list from the archive.
    void fill();
    void showRows();
    void showText();
    void openAsNew();
    void saveCopy();
    void deleteAll();
    const Version* chosen() const;
    base::Text textOf(const Version& version) const;
    void report(base::TextView text);

    Archive& archive_;
    Options& options_;
    lang::Words& words_;
    platform::Dialogs& dialogs_;
    const base::TextFiles& files_;
    controls::MenuItem mnuEarlierVersions_;
    std::vector<Version> versions_; // in the order of the rows
    base::Text shown_;              // path of the version whose text is shown
};

} // namespace safety
