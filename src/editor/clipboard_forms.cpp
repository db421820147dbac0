#include "editor/clipboard_forms.h"

#include "base/carry_on.h"

namespace editor {

namespace {

constexpr int watchPeriod = 200; // ms

} // namespace

ClipboardForms::ClipboardForms(Form2& form, platform::Clipboard& clipboard)
    : form_(form), clipboard_(clipboard) {
    form_.mnuCopia.Click = [this] { mnuCopia_Click(); };
    form_.mnuTaglia.Click = [this] { mnuTaglia_Click(); };
    form_.mnuIncolla.Click = [this] { mnuIncolla_Click(); };
    form_.Timer1.Tick = [this] { Timer1_Timer(); };
    form_.RTB.LostFocus = [this] { RTB_LostFocus(); };
}

void ClipboardForms::Form_Load() {
    form_.Timer1.setInterval(watchPeriod);
    ClipRtfOn = true;
}

void ClipboardForms::copySelection() {
    base::carryOn([&] { clipboard_.Clear(); });
    beside_ = form_.RTB.Beside(form_.RTB.SelStart(), form_.RTB.SelLength());
    base::carryOn([&] {
        form_.Combo1.tag = form_.RTB.SelRTF();
        clipboard_.SetText(form_.Combo1.tag.get(), beside_);
    });
    form_.Combo2.tag = form_.RTB.SelText();
}

void ClipboardForms::mnuCopia_Click() {
    copySelection();
    ClipRtfOn = true;
}

void ClipboardForms::mnuTaglia_Click() {
    copySelection();
    base::carryOn([&] { form_.RTB.setSelRTF({}); });
    ClipRtfOn = true;
}

// Plain text is also inserted as RTF, which turns the source stored by a copy back into formatted text.
void ClipboardForms::mnuIncolla_Click() {
    for (const auto format : {platform::ClipboardFormat::Rtf, platform::ClipboardFormat::Text}) {
        base::Text held;
        base::carryOn([&] { held = clipboard_.GetText(format); });
        if (held.empty())
            continue;
        base::carryOn([&] { form_.RTB.insert(held, clipboard_.Beside()); });
        return;
    }
}

void ClipboardForms::Timer1_Timer() {
    if (ClipRtfOn == form_.active)
        return;
    const base::Text& form = form_.active ? form_.Combo1.tag : form_.Combo2.tag;
    base::carryOn([&] { clipboard_.Clear(); });
    base::carryOn([&] { clipboard_.SetText(form, beside_); });
    ClipRtfOn = form_.active;
}

void ClipboardForms::RTB_LostFocus() {
    base::carryOn([&] { clipboard_.SetText(form_.RTB.SelText()); });
}

} // namespace editor
