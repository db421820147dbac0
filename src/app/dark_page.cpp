#include "app/dark_page.h"

namespace app {

using lang::operator""_en;

DarkPage::DarkPage(editor::Form2& editor, OptionsFile& options, TranscriptMenu& menu)
    : editor_(editor), mnuDarkPage_("mnuDarkPage", u"D&ark page"_en) {
    options.tie("DarkPage", isDark_);
    mnuDarkPage_.Click = [this] {
        isDark_ = !isDark_;
        apply();
        Changed();
    };
    menu.add({&mnuDarkPage_});
    apply();
}

void DarkPage::apply() {
    mnuDarkPage_.checked = isDark_;
    editor_.darkPage = isDark_;
}

} // namespace app
