#pragma once

#include "base/files.h"
#include "lang/words.h"
#include "platform/dialogs.h"
#include "safety/archive.h"
#include "safety/options.h"
#include "safety/versions_window.h"

namespace safety {

// The command "Earlier versions..." with its window: reads what the archive holds, hands it out, and
// overwrites nothing.
class EarlierVersions {
public:
    // `files` knows the code page of texts that are no RTF.
    EarlierVersions(Archive& archive, Options& options, lang::Words& words, platform::Dialogs& dialogs,
                    const base::TextFiles& files);

    // What the menu of the transcript gets from here.
    std::vector<controls::MenuItem*> commands() { return {&mnuEarlierVersions_}; }

    // Builds the window and puts it on the screen, at its first use.
    std::function<void(VersionsWindow&)> Load = [](VersionsWindow&) {};
    // Opens the file at this path as a new untitled document; false when the user kept the text that is
    // there. Throws base::Failure when it cannot be read.
    std::function<bool(const base::Text& path)> OpenAsNew = [](const base::Text&) { return false; };
    // The user changed the options.
    std::function<void()> OptionsChanged = [] {};

    VersionsWindow form;

private:
    void open();
    void translate();
    // Reads the archive anew.
    void fill();
    void showRows();
    void showText();
    void openAsNew();
    void saveCopy();
    void deleteAll();
    const Version* chosen() const;
    base::Text textOf(const Version& version) const;
    void tell(base::TextView text);

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
