#include "editor/speaker_commands.h"

#include "base/numbers.h"

#include <algorithm>
#include <utility>

namespace editor {

using lang::operator""_en;

namespace {

constexpr int showAfter = 300;          // ms, so that fast typing does not search all the time
constexpr std::size_t longestName = 50; // units

} // namespace

SpeakerCommands::SpeakerCommands(Speakers& speakers, lang::Words& words, platform::EventLoop& loop)
    : speakers_(speakers), words_(words), mnuSpeakers_("mnuSpeakers", u"&Speakers..."_en),
      mnuParagraphs_("mnuParagraphs", u"Assig&n to a speaker"_en), shows_(loop) {
    for (int key = 1; key <= keys; ++key) {
        const std::string& name = names_.emplace_back("mnuParagraph" + std::to_string(key));
        const std::string& shortcut = names_.emplace_back("Alt+" + std::to_string(key));
        mnuParagraph_.emplace_back(name, base::Text(), shortcut).Click = [this, key] {
            give(static_cast<std::size_t>(key));
        };
        mnuParagraphs_.items.push_back(&mnuParagraph_.back());
    }
    mnuSpeakers_.Click = [this] { open(); };
    shows_.Tick = [this] { show(); };
    form.List1.observe([this, shown = -1]() mutable {
        if (std::exchange(shown, form.List1.listIndex.get()) != form.List1.listIndex)
            choose();
    });
    form.List1.DblClick = [this] { form.txtName.setFocus(); };
    form.cmdRename.Click = [this] { rename(); };
    form.cmdClose.Click = [this] { form.visible = false; };
    form.Unload = [this] {
        form.visible = false;
        return false;
    };
}

void SpeakerCommands::start() {
    words_.follow([this] { translate(); });
}

void SpeakerCommands::leave() {
    shows_.setInterval(0);
    form.visible = false;
}

void SpeakerCommands::changed() {
    shows_.setInterval(showAfter);
}

void SpeakerCommands::translate() {
    form.caption = words_(u"Speakers"_en);
    form.List1.accessible.name = form.caption.get();
    form.lblEmpty.caption = words_(u"No paragraph begins with a name and a colon."_en);
    form.lblName.caption = words_(u"Name:"_en);
    form.cmdRename.caption = words_(u"&Rename everywhere"_en);
    form.lblKeys.caption = words_(
        u"In the text, Alt+1 to Alt+9 give the paragraph to a speaker; at its end, they begin a new one."_en);
    form.cmdClose.caption = words_(u"Close"_en);
    show();
}

void SpeakerCommands::open() {
    const base::Text here = speakers_.atCaret();
    std::exchange(Load, [](SpeakersWindow&) {})(form);
    form.visible = true;
    show();
    fill(here);
    form.setFocus();
    if (all_.empty())
        form.List1.setFocus();
    else
        form.txtName.setFocus();
}

void SpeakerCommands::show() {
    shows_.setInterval(0);
    const base::Text before = chosen();
    all_ = speakers_.all();
    for (std::size_t i = 0; i < mnuParagraph_.size(); ++i) {
        base::Text caption = words_(u"Paragraph for speaker &%1"_en, {base::countText(i + 1)});
        if (i < all_.size())
            caption += u": " + base::replaced(all_[i].name, u"&", u"&&");
        mnuParagraph_[i].caption = std::move(caption);
    }
    if (form.visible)
        fill(before);
}

void SpeakerCommands::fill(base::TextView chosen) {
    std::vector<base::Text> rows;
    int index = all_.empty() ? -1 : 0;
    for (const Speakers::Speaker& speaker : all_) {
        if (speaker.name == chosen)
            index = static_cast<int>(rows.size());
        const std::size_t place = rows.size() + 1;
        rows.push_back((place <= keys ? u"Alt+" + base::countText(place) : base::Text()) + u'\t' +
                       speaker.name + u'\t' + base::countText(static_cast<std::size_t>(speaker.paragraphs)));
    }
    form.lblEmpty.visible = rows.empty();
    form.txtName.enabled = form.cmdRename.enabled = !rows.empty();
    form.List1.items = std::move(rows);
    form.List1.listIndex = index;
}

base::Text SpeakerCommands::chosen() const {
    const int index = form.List1.listIndex;
    return index < 0 || static_cast<std::size_t>(index) >= all_.size()
               ? base::Text()
               : all_[static_cast<std::size_t>(index)].name;
}

void SpeakerCommands::choose() {
    form.txtName.text = chosen();
    form.txtName.selStart = 0;
    form.txtName.selLength = static_cast<int>(form.txtName.text->size());
}

// A colon ends a name.
void SpeakerCommands::rename() {
    const base::Text from = chosen();
    base::Text to = base::replaced(form.txtName.text.get(), u":", u" ");
    while (to.find(u"  ") != base::Text::npos)
        to = base::replaced(to, u"  ", u" ");
    to = base::Text(base::trimmed(to)).substr(0, longestName);
    if (from.empty() || to.empty() || to == from)
        return;
    speakers_.rename(from, to);
    show();
    fill(to);
    choose();
}

// A number without a speaker is a new one.
void SpeakerCommands::give(std::size_t place) {
    const std::vector<Speakers::Speaker> all = speakers_.all();
    const auto isKnown = [&](const base::Text& name) {
        return std::any_of(all.begin(), all.end(), [&](const auto& each) { return each.name == name; });
    };
    base::Text name = place <= all.size() ? all[place - 1].name : base::Text();
    for (std::size_t n = all.size() + 1; name.empty(); ++n)
        if (base::Text fresh = words_(u"Speaker %1"_en, {base::countText(n)}); !isKnown(fresh))
            name = std::move(fresh);
    speakers_.give(name); // which changes the text, and so the menu a moment later
}

} // namespace editor
