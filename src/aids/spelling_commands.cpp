#include "aids/spelling_commands.h"

#include "aids/language_tags.h"

#include <algorithm>

namespace aids {

using lang::operator""_en;

namespace {

constexpr int afterStart = 2000; // ms, so that dictionaries do not slow the start

} // namespace

SpellingCommands::SpellingCommands(platform::Spelling& spelling, Verdicts& verdicts, SpellingMarks& marks,
                                   SpellingMenu& menu, SpellingOptions& options, lang::Words& words,
                                   const base::Text& fileLingua, platform::EventLoop& loop)
    : spelling_(spelling), verdicts_(verdicts), marks_(marks), menu_(menu), options_(options), words_(words),
      fileLingua_(fileLingua), begins_(loop), mnuCheck_("mnuCheckSpelling", u"Check spe&lling"_en),
      mnuLanguage_("mnuSpellingLanguage", u"Spelling dictionar&y"_en) {
    for (std::size_t i = 0; i < most; ++i) {
        const std::string& name = names_.emplace_back("mnuSpellingLanguage" + std::to_string(i + 1));
        mnuOne_.emplace_back(name, base::Text()).Click = [this, i] { choose(i); };
        mnuLanguage_.items.push_back(&mnuOne_.back());
    }
    mnuCheck_.Click = [this] { toggle(); };
    begins_.Tick = [this] { switchOn(); };
}

void SpellingCommands::start() {
    words_.follow([this] { languageChanged(); });
    mnuCheck_.checked = options_.check;
    begins_.setInterval(options_.check ? afterStart : 0);
}

// The dictionary of the program's language, unless the user has chosen one.
void SpellingCommands::languageChanged() {
    showLanguages();
    if (!languages_.empty() && tagOfProgram(fileLingua_).tag != program_)
        switchOn();
}

void SpellingCommands::leave() {
    begins_.setInterval(0);
    menu_.stop();
    spelling_.stop();
}

void SpellingCommands::toggle() {
    options_.check = !options_.check;
    mnuCheck_.checked = options_.check;
    OptionsChanged();
    if (options_.check)
        switchOn();
    else
        switchOff();
}

void SpellingCommands::switchOn() {
    begins_.setInterval(0);
    spelling_.list(
        [this](const std::vector<platform::SpellingLanguage>& languages, const base::Text& failure) {
            if (options_.check)
                listed(languages, failure);
        });
}

void SpellingCommands::switchOff() {
    begins_.setInterval(0);
    menu_.stop();
    marks_.show(std::nullopt);
    spelling_.stop();
    verdicts_.clear();
    used_.clear();
    languages_.clear();
    showLanguages();
}

// A text in a language without a dictionary would be one mark: another dictionary is used only by choice.
void SpellingCommands::listed(std::vector<platform::SpellingLanguage> languages, const base::Text& failure) {
    const LanguageTag program = tagOfProgram(fileLingua_);
    program_ = program.tag;
    languages_ = std::move(languages);
    putFirst(program.tag, languages_);
    showLanguages();
    const std::string chosen = base::toUtf8(options_.language);
    const auto hit = std::find_if(languages_.begin(), languages_.end(), [&](const auto& language) {
        return chosen.empty() ? isSameLanguage(language.tag, program.tag) : language.tag == chosen;
    });
    const base::Text package(program.package.begin(), program.package.end());
    if (hit != languages_.end())
        use(*hit);
    else if (!failure.empty())
        Tell(u"Spelling cannot be checked: %1"_en, {failure});
    else if (languages_.empty())
        Tell(u"No spelling dictionary is installed. One is in the package %1."_en, {package});
    else
        Tell(
            u"The spelling dictionary %1 is not installed. Choose another language, or install the package %2."_en,
            {chosen.empty() ? base::fromUtf8(program.tag) : options_.language, package});
    if (languages_.empty() && options_.check)
        toggle();
}

void SpellingCommands::use(const platform::SpellingLanguage& language) {
    menu_.stop();
    verdicts_.clear();
    used_.clear();
    spelling_.use(language.tag, [this, language](const base::Text& failure) {
        if (failure.empty()) {
            used_ = language.tag;
            marks_.show(Script::of(language.tag));
        } else {
            marks_.show(std::nullopt);
            Tell(u"Spelling cannot be checked: %1"_en, {failure});
        }
        showLanguages();
    });
}

void SpellingCommands::choose(std::size_t row) {
    if (row >= languages_.size())
        return;
    options_.language = base::fromUtf8(languages_[row].tag);
    OptionsChanged();
    use(languages_[row]);
}

void SpellingCommands::showLanguages() {
    mnuLanguage_.enabled = !languages_.empty();
    for (std::size_t i = 0; i < mnuOne_.size(); ++i) {
        const bool shown = i < languages_.size();
        mnuOne_[i].caption = shown ? base::doubledAmp(languages_[i].name) : base::Text();
        mnuOne_[i].visible = shown;
        mnuOne_[i].checked = shown && languages_[i].tag == used_;
    }
}

} // namespace aids
