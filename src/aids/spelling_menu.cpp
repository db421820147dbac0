#include "aids/spelling_menu.h"

#include "base/carry_on.h"
#include "editor/text_edits.h"

#include <algorithm>
#include <utility>

namespace aids {

using lang::operator""_en;

namespace {

constexpr int patience = 400; // ms for suggestions; a long word may take more
constexpr int f10 = 121;

} // namespace

SpellingMenu::SpellingMenu(editor::Form2& form, editor::UndoRedo& text, platform::Spelling& spelling,
                           OwnWords& own, SpellingMarks& marks, const lang::Words& words,
                           platform::EventLoop& loop)
    : form_(form), text_(text), spelling_(spelling), own_(own), marks_(marks), words_(words), soon_(loop) {
    for (std::size_t i = 0; i < most; ++i) {
        const std::string& name = names_.emplace_back("mnuSuggestion" + std::to_string(i + 1));
        mnuSuggestion_.emplace_back(name, base::Text());
    }
    mnuNone_.enabled = false;
    mnuIgnore_.Click = [this] { takeForRight(false); };
    mnuAdd_.Click = [this] { takeForRight(true); };
    soon_.Tick = [this] { open({}); };
    form_.RTB.RightClick = [this](std::int32_t position) { return rightClick(position); };
    form_.RTB.KeyDown = [this, others = form_.RTB.KeyDown](platform::KeyEvent& key) {
        if (menuKey(key))
            key.keyCode = 0;
        else
            others(key);
    };
}

bool SpellingMenu::rightClick(std::int32_t position) {
    stop();
    const auto word = marks_.wrongAt(position);
    if (word)
        ask(*word, false);
    return word.has_value();
}

bool SpellingMenu::menuKey(const platform::KeyEvent& key) {
    const bool isMenuKey = (key.keyCode == platform::menuKey && key.shift == 0) ||
                           (key.keyCode == f10 && key.shift == platform::shiftKey);
    if (!isMenuKey)
        return false;
    stop();
    const auto word = marks_.wrongAt(form_.RTB.SelStart());
    if (word)
        ask(*word, true);
    return word.has_value();
}

void SpellingMenu::stop() {
    ++question_;
    waits_ = false;
    soon_.setInterval(0);
}

void SpellingMenu::ask(const SpellingMarks::Part& word, bool atCaret) {
    word_ = word;
    atCaret_ = atCaret;
    waits_ = true;
    soon_.setInterval(patience);
    spelling_.suggest(dictionaryForm(word.word),
                      [this, asked = question_](const std::vector<base::Text>& suggestions) {
                          if (waits_ && asked == question_)
                              open(suggestions);
                      });
}

void SpellingMenu::open(const std::vector<base::Text>& suggestions) {
    stop();
    if (!isThere())
        return;
    menu_.items.clear();
    const std::size_t count = std::min(suggestions.size(), most);
    for (std::size_t i = 0; i < count; ++i) {
        mnuSuggestion_[i].caption = base::doubledAmp(suggestions[i]);
        mnuSuggestion_[i].Click = [this, with = suggestions[i]] { replace(with); };
        menu_.items.push_back(&mnuSuggestion_[i]);
    }
    mnuNone_.caption = words_(u"No suggestions"_en);
    if (count == 0)
        menu_.items.push_back(&mnuNone_);
    mnuIgnore_.caption = words_(u"&Ignore here"_en);
    mnuAdd_.caption = words_(u"Add to my &words"_en);
    for (controls::MenuItem* const item : {&line1_, &mnuIgnore_, &mnuAdd_, &line2_})
        menu_.items.push_back(item);
    menu_.items.insert(menu_.items.end(), form_.mnuModifica.items.begin(), form_.mnuModifica.items.end());
    if (atCaret_)
        form_.PopupAtCaret(menu_);
    else
        form_.PopupMenu(menu_);
}

bool SpellingMenu::isThere() {
    return text_.letters(word_.position, word_.length) == word_.word;
}

void SpellingMenu::replace(const base::Text& with) {
    if (isThere())
        editor::replaceWord(form_.RTB, text_, word_.position, word_.length, with);
}

void SpellingMenu::takeForRight(bool forever) {
    const base::Text form = dictionaryForm(word_.word);
    if (!forever)
        own_.ignore(form);
    else
        base::carryOn([&] { own_.add(form); },
                      [this](const char* reason) { NotSaved(base::fromUtf8(reason)); });
    marks_.verdictsChanged();
}

} // namespace aids
