#include "editor/find_replace.h"

#include "base/carry_on.h"
#include "base/numbers.h"

#include <initializer_list>
#include <utility>

namespace editor {

namespace {

using platform::BoxStyle;

constexpr double windowPlace = 750; // twips: 50 pixels from the left and from the top
constexpr base::TextView lineBreak = u"\r\n";
constexpr base::TextView dots = u"...";
constexpr base::TextView replaceUse = u"1";

// Cuts the text before its first line break. Returns true if there was one.
bool cutAtLineBreak(base::Text& text) {
    const auto at = text.find(lineBreak);
    if (at == base::Text::npos)
        return false;
    text.resize(at);
    return true;
}

// Appends the box's text to its list, unless the list contains it or it is blank.
void keepInHistory(controls::ComboBox& box) {
    const base::Text& text = box.text;
    if (box.listIndex() >= 0 || base::trimmed(text).empty())
        return;
    std::vector<base::Text> entries = box.items;
    entries.push_back(text);
    box.items = std::move(entries);
}

} // namespace

FindReplace::FindReplace(FrmFind& form, Form2& editor, platform::Dialogs& dialogs)
    : form_(form), editor_(editor), dialogs_(dialogs), Lingua(editor.Lingua) {
    editor_.mnuTrova.Click = [this] { mnuTrova_Click(); };
    editor_.mnuSostituisci.Click = [this] { mnuSostituisci_Click(); };
    form_.cboFind.Click = [this] { cboFind_Click(); };
    form_.cboFind.Drop = [this](const base::Text& dropped) { cboFind_OLEDragDrop(dropped); };
    form_.cboReplace.Drop = [this](const base::Text& dropped) { cboReplace_OLEDragDrop(dropped); };
    form_.cmdFind.Click = [this] { cmdFind_Click(); };
    form_.cmdReplace.Click = [this] { cmdReplace_Click(); };
    form_.cmdReplaceAll.Click = [this] { cmdReplaceAll_Click(); };
    form_.cmdCancel.Click = [this] { cmdCancel_Click(); };
    form_.Unload = [this] {
        cmdCancel_Click();
        return false;
    };
    form_.Timer1.Tick = [this] { Timer1_Timer(); };
}

void FindReplace::mnuTrova_Click() {
    show({});
}

void FindReplace::mnuSostituisci_Click() {
    show(replaceUse);
}

void FindReplace::show(base::TextView use) {
    editor_.tag = base::Text(use);
    std::exchange(Load, [] {})();
    if (!loaded_)
        Form_Load();
    form_.visible = true;
    form_.setFocus();
    form_.cboFind.setFocus();
}

void FindReplace::Form_Load() {
    loaded_ = true;
    form_.icon = editor_.icon.get();
    TagliatoCrLf = false;
    form_.topmost = true;
    form_.left = windowPlace;
    form_.top = windowPlace;
    form_.cboFind.items = std::vector<base::Text>();
    form_.cboReplace.items = std::vector<base::Text>();
    form_.cboReplace.text = base::Text();
    form_.chkWholeWord.value = form_.chkMatchCase.value = false;
    base::Text sought;
    base::carryOn([&] { sought = base::trimmed(editor_.RTB.SelText()); });
    writeCaptions();
    TagliatoCrLf = cutAtLineBreak(sought);
    form_.cboFind.text = sought;
    if (!sought.empty())
        form_.cboFind.items = std::vector<base::Text>{sought};
    const bool replaces = !editor_.tag->empty();
    form_.caption = (replaces ? base::TogliAmp(Lingua(59)) : Lingua(56)) + base::Text(dots);
    for (controls::Control* control : std::initializer_list<controls::Control*>{
             &form_.cmdReplace, &form_.cmdReplaceAll, &form_.lblReplace, &form_.cboReplace})
        control->visible = replaces;
}

void FindReplace::writeCaptions() {
    form_.cmdFind.caption = findCaption();
    form_.cmdCancel.caption = Lingua(21);
    form_.cmdReplace.caption = Lingua(59) + base::Text(dots);
    form_.cmdReplaceAll.caption = Lingua(61);
    form_.lblFind.caption = Lingua(56);
    form_.lblReplace.caption = Lingua(60);
    form_.Frame1.caption = Lingua(62);
    form_.chkWholeWord.caption = Lingua(63);
    form_.chkMatchCase.caption = Lingua(64);
}

// The caption that makes the next search start at the top.
base::Text FindReplace::findCaption() const {
    return u"&" + Lingua(56);
}

void FindReplace::StoriaFind() {
    keepInHistory(form_.cboFind);
}

void FindReplace::StoriaReplace() {
    keepInHistory(form_.cboReplace);
}

// The find button keeps its state, which may be "find next"; moving the caret makes the search for the chosen
// text start at the top anyway.
void FindReplace::cboFind_Click() {
    base::carryOn([&] { editor_.RTB.setSelStart(0); });
}

void FindReplace::cboFind_OLEDragDrop(base::TextView dropped) {
    base::Text text(dropped);
    TagliatoCrLf = cutAtLineBreak(text) || TagliatoCrLf;
    form_.cboFind.text = base::trimmed(text);
    StoriaFind();
    StoriaReplace();
}

void FindReplace::cboReplace_OLEDragDrop(base::TextView dropped) {
    base::Text text(dropped);
    cutAtLineBreak(text);
    form_.cboReplace.text = base::trimmed(text);
    StoriaFind();
    StoriaReplace();
}

int FindReplace::options() const {
    return (form_.chkWholeWord.value ? platform::findWholeWord : 0) +
           (form_.chkMatchCase.value ? platform::findMatchCase : 0);
}

// Unlike other routines, find and replace stop at a failure and report it.
template <typename Routine>
void FindReplace::reportingFailure(Routine&& routine) {
    try {
        routine();
    } catch (const base::Failure& failure) {
        report(base::fromUtf8(failure.what()), BoxStyle::Plain);
        editor_.RTB.SetFocus();
    }
}

void FindReplace::report(base::TextView message, BoxStyle style) {
    dialogs_.messageBox(message, {}, style);
}

void FindReplace::cmdFind_Click() {
    reportingFailure([this] { find(); });
}

void FindReplace::find() {
    StoriaFind();
    StoriaReplace();
    platform::RichText& text = editor_.RTB;
    const bool fromTop = form_.cmdFind.caption.get() == findCaption();
    const std::int32_t start = fromTop ? 0 : text.SelStart() + text.SelLength();
    if (text.Find(form_.cboFind.text.get(), start, options()) != -1) {
        if (fromTop)
            form_.cmdFind.caption = Lingua(57);
    } else {
        report(base::TogliAmp(Lingua(fromTop ? 65 : 66)), BoxStyle::Information);
        form_.cmdFind.caption = findCaption();
    }
    text.SetFocus();
}

void FindReplace::cmdReplace_Click() {
    reportingFailure([this] { replace(); });
}

void FindReplace::replace() {
    StoriaFind();
    StoriaReplace();
    platform::RichText& text = editor_.RTB;
    int word = options();
    // Searches from the start of the selection, so a selected hit is found again.
    if (text.Find(form_.cboFind.text.get(), text.SelStart(), word) == -1) {
        report(base::TogliAmp(Lingua(65)), BoxStyle::Information);
        return;
    }
    if (form_.cmdReplace.caption.get() == Lingua(59) + base::Text(dots)) {
        // The first press only finds, and arms the button until the window is closed.
        form_.cmdReplace.caption = Lingua(59);
    } else {
        // The options are added twice. So the search for the next hit turns "whole word" into "match case",
        // and "match case" into a search that does not select. Settled behaviour.
        word += options();
        if (!form_.cboFind.text->empty())
            replaceHit(word);
    }
    text.SetFocus();
}

void FindReplace::replaceHit(int options) {
    platform::RichText& text = editor_.RTB;
    base::Text replacement = form_.cboReplace.text;
    if (TagliatoCrLf)
        replacement += lineBreak;
    TagliatoCrLf = false;
    text.setSelText(replacement);
    if (text.Find(form_.cboFind.text.get(), text.SelStart() + text.SelLength(), options) == -1)
        form_.cmdFind.caption = findCaption();
}

// Starts at the caret and ignores both options. A selection made before the first search is replaced even if
// it does not match, because a failed search leaves it selected. Settled behaviour.
void FindReplace::cmdReplaceAll_Click() {
    ContaSostituzioni = 0;
    const base::Text cerca = base::trimmed(form_.cboFind.text.get());
    const base::Text con = base::trimmed(form_.cboReplace.text.get());
    platform::RichText& text = editor_.RTB;
    text.together([&] {
        while (true) {
            base::carryOn([&] { text.Find(cerca, std::nullopt, 0); });
            if (text.SelLength() == 0)
                return;
            ++ContaSostituzioni;
            // If it cannot be replaced, it would be found again forever.
            if (!base::carryOn([&] { text.setSelRTF(con); }))
                return;
        }
    });
    form_.visible = false;
    report(base::TogliAmp(Lingua(67)) + u" \r\n" + base::numberText(ContaSostituzioni) + u" " +
               base::TogliAmp(Lingua(68)),
           BoxStyle::Plain);
}

void FindReplace::cmdCancel_Click() {
    form_.visible = false;
    loaded_ = false;
}

void FindReplace::Timer1_Timer() {
    form_.Timer1.setInterval(0);
    cmdCancel_Click();
}

} // namespace editor
