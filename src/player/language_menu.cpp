#include "player/language_menu.h"

#include "base/carry_on.h"
#include "player/apply_language.h"

namespace player {

namespace {

constexpr std::size_t dots = 3; // "..." at the end of the menu's entry
constexpr base::TextView languageFolder = u"/Lang/";

} // namespace

LanguageMenu::LanguageMenu(Form1& form, lang::LanguageTable& table, platform::Dialogs& dialogs,
                           Companions& companions, platform::SettingsStore& store)
    : form_(form), table_(table), dialogs_(dialogs), companions_(companions), store_(store) {
    form_.mnuLingua.Click = [this] { mnuLingua_Click(); };
}

void LanguageMenu::mnuLingua_Click() {
    const base::Text& entry = table_(15);
    platform::FileDialogRequest request;
    request.open = true;
    request.owner = form_.name;
    request.title = entry.size() >= dots ? entry.substr(0, entry.size() - dots) : base::Text();
    request.filter = request.title + u'\0' + u"*.lng";
    request.defaultExtension = u"lng";
    request.initialFolder = form_.folder.files(u"Lang");
    const base::Text chosen = dialogs_.FileDlg(request);
    if (const auto hit = chosen.rfind(languageFolder); hit != base::Text::npos)
        table_.FileLingua = chosen.substr(hit + languageFolder.size());
    if (!chosen.empty())
        base::carryOn([&] { table_.load(); });
    ApplicaLingua(form_, companions_);
    store_.Salva();
}

} // namespace player
