#include "aids/delivery_commands.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace aids {

using lang::operator""_en;

namespace {

constexpr int afterChange = 1000;       // ms without a key before the text is checked again
constexpr std::size_t mostOfKind = 500; // rows
constexpr std::int32_t nearby = 5000;   // units within which a finding is searched that has moved
constexpr int deleteKey = 46;

// A control character, such as a line break, would end the row.
base::Text oneLine(base::Text text) {
    std::replace_if(
        text.begin(), text.end(), [](char16_t unit) { return unit < u' '; }, u' ');
    return text;
}

} // namespace

DeliveryCommands::DeliveryCommands(editor::Form2& editor, editor::UndoRedo& text, DeliveryCheck& check,
                                   const DeliveryOptions& options, lang::Words& words,
                                   platform::EventLoop& loop)
    : editor_(editor), text_(text), check_(check), options_(options), words_(words),
      mnuCheck_("mnuCheckDelivery", u"Check before deli&very..."_en), again_(loop) {
    mnuCheck_.Click = [this] { open(); };
    again_.Tick = [this] { this->check(); };
    check_.Progressed = [this] {
        if (!check_.runs())
            fill();
        showState();
    };
    form.List1.DblClick = form.cmdGo.Click = [this] { go(); };
    form.List1.KeyDown = [this](platform::KeyEvent& key) {
        if (key.keyCode != deleteKey || key.shift != 0)
            return;
        key.keyCode = 0;
        hide();
    };
    form.cmdHide.Click = [this] { hide(); };
    form.cmdAgain.Click = [this] { this->check(); };
    form.cmdClose.Click = [this] { close(); };
    form.Unload = [this] {
        close();
        return false;
    };
}

void DeliveryCommands::start() {
    words_.follow([this] { translate(); });
}

void DeliveryCommands::leave() {
    close();
}

void DeliveryCommands::open() {
    std::exchange(Load, [](DeliveryWindow&) {})(form);
    if (!form.visible)
        hidden_.clear();
    form.visible = true;
    check();
    form.setFocus();
    form.List1.setFocus();
}

void DeliveryCommands::close() {
    again_.setInterval(0);
    check_.stop();
    form.visible = false;
}

void DeliveryCommands::check() {
    again_.setInterval(0);
    check_.start(options_.unclear);
}

// The positions of the list would be wrong now.
void DeliveryCommands::changed() {
    if (!form.visible)
        return;
    check_.stop();
    again_.setInterval(afterChange);
}

void DeliveryCommands::translate() {
    form.caption = words_(u"Check before delivery"_en);
    form.List1.accessible.name = form.caption.get();
    form.cmdGo.caption = words_(u"&Go to"_en);
    form.cmdHide.caption = words_(u"&Hide"_en);
    form.cmdAgain.caption = words_(u"Check &again"_en);
    form.cmdClose.caption = words_(u"Close"_en);
    fill();
    showState();
}

void DeliveryCommands::showState() {
    if (check_.runs()) {
        const int percent = static_cast<int>(100 * check_.share());
        form.lblState.caption =
            words_(u"Checking: %1 %"_en, {base::countText(static_cast<std::size_t>(percent))});
        return;
    }
    const auto shown = static_cast<std::size_t>(
        std::count_if(rows_.begin(), rows_.end(), [](const Finding* finding) { return finding; }));
    form.lblState.caption =
        shown == 0 ? words_(u"Nothing was found."_en) : words_(u"Found: %1"_en, {base::countText(shown)});
}

base::Text DeliveryCommands::heading(FindingKind kind, std::size_t count) const {
    static constexpr std::array<lang::English, findingKinds> names = {
        u"Doubtful words"_en,
        u"Unclear passages"_en,
        u"Time stamps that run backwards"_en,
        u"Time stamps beyond the recording"_en,
        u"Speakers spelled in two ways"_en,
        u"Two blanks"_en,
        u"Unclosed brackets and quotes"_en,
        u"Misspelled words"_en,
    };
    const base::Text name = words_(names.at(static_cast<std::size_t>(kind)));
    const base::Text all = base::countText(count);
    if (count <= mostOfKind)
        return u'\t' + name + u" (" + all + u')';
    return u'\t' + words_(u"%1 (the first %2 of %3)"_en, {name, base::countText(mostOfKind), all});
}

base::Text DeliveryCommands::row(const Finding& finding) {
    base::Text letters = finding.letters;
    if (finding.kind == FindingKind::Blanks)
        letters.assign(letters.size(), u'\u00B7');
    base::Text after = finding.after;
    if (!finding.other.empty())
        after = u" \u2013 " + finding.other;
    if (finding.count > 1)
        letters += u" (" + base::countText(static_cast<std::size_t>(finding.count)) + u')';
    return oneLine(finding.before) + u'\t' + oneLine(std::move(letters)) + u'\t' + oneLine(std::move(after));
}

// Stays the same when the text changes elsewhere.
base::Text DeliveryCommands::key(const Finding& finding) {
    const bool byWord = finding.kind == FindingKind::Misspelled || finding.kind == FindingKind::Speaker;
    base::Text key(1, static_cast<char16_t>(finding.kind));
    key += finding.letters;
    return byWord ? key : key + u'\n' + finding.before + u'\n' + finding.after;
}

// What was selected stays selected, or what comes in its place.
void DeliveryCommands::fill() {
    const int before = form.List1.listIndex;
    const base::Text chosenRow = before >= 0 && static_cast<std::size_t>(before) < form.List1.items->size()
                                     ? form.List1.items.get()[static_cast<std::size_t>(before)]
                                     : base::Text();
    std::vector<base::Text> rows;
    rows_.clear();
    const std::vector<Finding>& all = check_.findings();
    for (auto begin = all.begin(); begin != all.end();) {
        const auto end =
            std::find_if(begin, all.end(), [&](const Finding& each) { return each.kind != begin->kind; });
        std::vector<const Finding*> shown;
        for (auto each = begin; each != end; ++each)
            if (!hidden_.contains(key(*each)))
                shown.push_back(&*each);
        if (!shown.empty()) {
            rows.push_back(heading(begin->kind, shown.size()));
            rows_.push_back(nullptr);
            shown.resize(std::min(shown.size(), mostOfKind));
            for (const Finding* const each : shown) {
                rows.push_back(row(*each));
                rows_.push_back(each);
            }
        }
        begin = end;
    }
    const auto hit = std::find(rows.begin(), rows.end(), chosenRow);
    int index = hit != rows.end() && !chosenRow.empty() ? static_cast<int>(hit - rows.begin())
                                                        : std::min(before, static_cast<int>(rows.size()) - 1);
    if (index < 1 && !rows.empty())
        index = 1;
    form.List1.items = std::move(rows);
    form.List1.listIndex = index;
    form.cmdGo.enabled = form.cmdHide.enabled = !rows_.empty();
}

const Finding* DeliveryCommands::chosen() const {
    const int index = form.List1.listIndex;
    return index < 0 || static_cast<std::size_t>(index) >= rows_.size()
               ? nullptr
               : rows_[static_cast<std::size_t>(index)];
}

std::optional<std::int32_t> DeliveryCommands::place(const Finding& finding) {
    const std::int32_t begin = std::max(finding.position - nearby, 0);
    const base::Text around = text_.letters(begin, finding.position + finding.length + nearby - begin);
    const auto there = static_cast<std::size_t>(finding.position - begin);
    const std::size_t before = around.rfind(finding.letters, there);
    const std::size_t behind = around.find(finding.letters, there);
    if (before == base::Text::npos && behind == base::Text::npos)
        return std::nullopt;
    const bool isBehind =
        before == base::Text::npos || (behind != base::Text::npos && behind - there < there - before);
    return begin + static_cast<std::int32_t>(isBehind ? behind : before);
}

void DeliveryCommands::go() {
    const Finding* const finding = chosen();
    const auto position = finding ? place(*finding) : std::nullopt;
    if (!position)
        return;
    editor_.RTB.SetFocus();
    editor_.RTB.setSelStart(*position);
    editor_.RTB.setSelLength(finding->length);
    editor_.RTB.scrollTo(*position, finding->length);
}

void DeliveryCommands::hide() {
    const Finding* const finding = chosen();
    if (!finding)
        return;
    hidden_.insert(key(*finding));
    fill();
    showState();
}

} // namespace aids
