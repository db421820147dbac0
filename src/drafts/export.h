// The command that writes the transcript in the forms of other programs.
#pragma once

#include "controls/controls.h"
#include "drafts/options.h"
#include "drafts/transcript.h"
#include "drafts/write/documents.h"
#include "lang/words.h"
#include "platform/dialogs.h"
#include "platform/rich_text.h"

#include <functional>
#include <string>
#include <vector>

namespace drafts {

// Asks for a file and writes the transcript in the format of the file's extension. Reports what that format
// cannot store. A file that cannot be written stays unchanged.
class Export {
public:
    Export(platform::RichText& text, platform::Dialogs& dialogs, const lang::Words& words, Options& options);

    // The commands for the menu.
    std::vector<controls::MenuItem*> commands() { return {&mnuExport_, &mnuPlainText_}; }

    // The options were read.
    void start();

    // The path of the document; empty if untitled.
    std::function<Text()> DocumentPath = [] { return Text(); };
    // Tells what the file does not hold; `parts` replace %1 and %2.
    std::function<void(lang::English sentence, const std::vector<Text>& parts)> Tell = [](auto, const auto&) {
    };
    // The user changed the options.
    std::function<void()> OptionsChanged = [] {};

private:
    enum class Kind { SubRip, WebVtt, PlainText, Markdown, Docx, OpenDocument, Html, Json };
    struct Row;

    static const std::vector<Row>& rows();
    void run();
    Text ask() const;
    bool mayReplace(const Text& path) const;
    void write(const Text& path, Kind kind);
    Exported bytesOf(const std::string& source, Kind kind, std::vector<Text>& missing);
    Text list(const Losses& losses, std::vector<Text> missing) const;
    void toggle(bool& option);

    platform::RichText& text_;
    platform::Dialogs& dialogs_;
    const lang::Words& words_;
    Options& options_;
    controls::MenuItem mnuExport_;
    controls::MenuItem mnuPlainText_;
    controls::MenuItem mnuStamps_;
    controls::MenuItem mnuSpeakers_;
    Text extension_ = u"srt"; // of the form that was chosen last
};

} // namespace drafts
