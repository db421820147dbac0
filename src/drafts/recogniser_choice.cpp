#include "drafts/recogniser_choice.h"

#include "base/carry_on.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace drafts {

using lang::operator""_en;

namespace {

base::Text home() {
    const char* const path = std::getenv("HOME");
    return path ? base::fromUtf8(path) : base::Text();
}

lang::English sentenceOf(CommandFault fault) {
    switch (fault) {
    case CommandFault::OpenQuote:
        return u"A quotation mark of the command line is not closed."_en;
    case CommandFault::NoInput:
        return u"The command line needs %i where the path of the recording belongs."_en;
    case CommandFault::Empty:
    case CommandFault::None:
        break;
    }
    return u"Enter a command line with %i for the recording and %o for the draft that the program writes."_en;
}

} // namespace

RecogniserChoice::RecogniserChoice(RecogniserWindow& form, RecogniserOptions& options,
                                   const platform::ChildProcess& process, platform::Clipboard& clipboard,
                                   lang::Words& words)
    : form_(form), options_(options), process_(process), clipboard_(clipboard), words_(words) {
    form_.cboRecogniser.Click = [this] { choose(); };
    form_.txtCommand.Change = [this] { changeCommand(); };
    form_.cmdCopy.Click = [this] { base::carryOn([this] { clipboard_.SetText(chosen().install); }); };
    words_.follow([this] { show(); });
}

const Recogniser& RecogniserChoice::chosen() const {
    return recognisers()[static_cast<std::size_t>(options_.chosen)];
}

base::Text RecogniserChoice::name(const Recogniser& recogniser) const {
    return recogniser.name.empty() ? words_(u"Another program"_en) : base::Text(recogniser.name);
}

void RecogniserChoice::show() {
    form_.lblRecogniser.caption = words_(u"Recogniser:"_en);
    form_.lblCommand.caption = words_(u"Command line:"_en);
    form_.cmdCopy.caption = words_(u"C&opy the install command"_en);
    std::vector<base::Text> names;
    for (const Recogniser& recogniser : recognisers())
        names.push_back(name(recogniser));
    form_.cboRecogniser.items = std::move(names);
    form_.cboRecogniser.text = name(chosen());
    const base::Text& own = options_.commands[static_cast<std::size_t>(options_.chosen)];
    form_.txtCommand.text = own.empty() ? base::Text(chosen().command) : own;
    showHint();
}

void RecogniserChoice::setEnabled(bool enabled) {
    form_.cboRecogniser.enabled = enabled;
    form_.txtCommand.enabled = enabled;
}

void RecogniserChoice::choose() {
    options_.chosen = std::max(0, form_.cboRecogniser.listIndex());
    show();
    OptionsChanged();
}

// The recogniser's own line is not stored, so that a later version can improve it.
void RecogniserChoice::changeCommand() {
    const base::Text& text = form_.txtCommand.text;
    options_.commands[static_cast<std::size_t>(options_.chosen)] =
        text == chosen().command ? base::Text() : text;
    showHint();
    OptionsChanged();
}

void RecogniserChoice::showHint() {
    const CommandLine command = parseCommand(form_.txtCommand.text.get(), home());
    if (command.fault != CommandFault::None)
        hint(words_(sentenceOf(command.fault)), false);
    else if (!process_.isInstalled(command.words.front()))
        tellPackages();
    else if (command.hasOutput)
        hint(words_(u"%i stands for the recording, %o for the file that the program writes: JSON, SubRip, "
                    u"WebVTT or a text with time stamps."_en),
             false);
    else if (&chosen() == recognisers().data())
        hint(words_(u"For English. The recording stays on this computer."_en), false);
    else
        hint(words_(u"%i stands for the recording. The words are taken from what the program prints."_en),
             false);
}

void RecogniserChoice::tellPackages() {
    const CommandLine command = parseCommand(form_.txtCommand.text.get(), home());
    const base::Text program = command.words.empty() ? base::Text() : command.words.front();
    if (chosen().packages.empty())
        hint(words_(u"The program %1 was not found on this computer."_en, {program}), false);
    else
        hint(words_(u"%1 is missing on this computer, or a part of it. It comes with: %2."_en,
                    {program, chosen().packages}),
             true);
}

void RecogniserChoice::hint(const base::Text& text, bool canInstall) {
    form_.lblHint.caption = base::doubledAmp(text);
    form_.cmdCopy.visible = canInstall && !chosen().install.empty();
}

std::optional<CommandLine> RecogniserChoice::command() {
    showHint();
    CommandLine command = parseCommand(form_.txtCommand.text.get(), home());
    if (command.fault != CommandFault::None || !process_.isInstalled(command.words.front())) {
        if (form_.cmdCopy.visible)
            form_.cmdCopy.setFocus();
        else
            form_.txtCommand.setFocus();
        return std::nullopt;
    }
    return command;
}

} // namespace drafts
