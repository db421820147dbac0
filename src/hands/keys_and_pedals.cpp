#include "hands/keys_and_pedals.h"

#include "base/carry_on.h"
#include "hands/pedal_rule.h"

#include <algorithm>
#include <utility>

namespace hands {

using lang::operator""_en;

namespace {

constexpr lang::English placeNames[] = {u"left pedal"_en, u"middle pedal"_en, u"right pedal"_en};
constexpr base::TextView placeTexts[] = {u"left", u"middle", u"right"};

} // namespace

KeysAndPedals::KeysAndPedals(Hands& hands, Options& options, Bindings& bindings,
                             platform::Clipboard& clipboard, lang::Words& words, base::Text rules)
    : hands_(hands), options_(options), bindings_(bindings), clipboard_(clipboard), words_(words),
      rules_(std::move(rules)), mnuKeysAndPedals_("mnuKeysAndPedals", u"Keys and pedals..."_en) {
    mnuKeysAndPedals_.Click = [this] { open(); };
    form.chkKeys.Click = [this] { switchOn(form.chkKeys, options_.keys); };
    form.chkPedals.Click = [this] { switchOn(form.chkPedals, options_.pedals); };
    form.chkPanels.Click = [this] {
        switchOn(form.chkPanels, options_.panels);
        PanelsChanged();
    };
    form.List1.observe([this, shown = -1]() mutable {
        if (std::exchange(shown, form.List1.listIndex.get()) != form.List1.listIndex)
            choose();
    });
    form.List1.DblClick = [this] { form.keyBox.setFocus(); };
    form.keyBox.Change = [this] { setKey(); };
    form.keyBox.Focus = [this](bool has) { hands_.restKeys(has); };
    form.cmdNoKey.Click = [this] {
        bindings_.setKey(chosen(), {});
        change();
    };
    form.cmdLearn.Click = [this] { learn(); };
    form.cmdNoPedal.Click = [this] {
        bindings_.removePedals(chosen());
        change();
    };
    form.cmdCopy.Click = [this] { base::carryOn([&] { clipboard_.SetText(rule_); }); };
    form.cmdClose.Click = [this] { leave(); };
    form.Unload = [this] {
        leave();
        return false;
    };
    hands_.StateChanged = [this] {
        if (form.visible)
            show();
    };
    words_.follow([this] { translate(); });
}

void KeysAndPedals::leave() {
    hands_.stopLearning();
    form.visible = false;
}

void KeysAndPedals::open() {
    wasRefused_ = false;
    form.chkKeys.value = options_.keys;
    form.chkPedals.value = options_.pedals;
    form.chkPanels.value = options_.panels;
    std::exchange(Load, [](KeysAndPedalsWindow&) {})(form);
    form.visible = true;
    fill();
    show();
    form.setFocus();
    form.List1.setFocus();
}

void KeysAndPedals::translate() {
    form.caption = words_(u"Keys and pedals"_en);
    form.chkKeys.caption = words_(u"&Keys from anywhere, while another program is in front"_en);
    form.chkPedals.caption = words_(u"&Foot pedals"_en);
    form.chkPanels.caption = words_(u"&Media keys and panels of the desktop"_en);
    form.List1.accessible.name = words_(u"Commands with their keys and pedals"_en);
    form.lblKey.caption = words_(u"Key:"_en);
    form.keyBox.accessible.name = words_(u"Key of the command: press it here"_en);
    form.cmdNoKey.caption = words_(u"N&o key"_en);
    form.lblPedal.caption = words_(u"Pedal:"_en);
    form.cmdLearn.caption = words_(u"&Press the pedal now..."_en);
    form.cmdNoPedal.caption = words_(u"No p&edal"_en);
    form.cmdCopy.caption = words_(u"Cop&y the command"_en);
    form.cmdClose.caption = words_(u"Close"_en);
    fill();
    show();
}

base::Text KeysAndPedals::pedalName(const base::Text& pedal) const {
    for (std::size_t i = 0; i < std::size(placeTexts); ++i)
        if (pedal == placeTexts[i])
            return words_(placeNames[i]);
    return words_(u"pedal %1"_en, {pedal});
}

void KeysAndPedals::fill() {
    std::vector<base::Text> rows;
    for (std::size_t i = 0; i < commandCount; ++i) {
        const auto command = static_cast<Command>(i);
        base::Text pedals;
        for (const base::Text& pedal : bindings_.pedals(command))
            (pedals += pedals.empty() ? u"" : u", ") += pedalName(pedal);
        rows.push_back(words_(hands::commands()[i].name) + u'\t' + bindings_.key(command) + u'\t' + pedals);
    }
    form.List1.items = std::move(rows);
    if (form.List1.listIndex < 0)
        form.List1.listIndex = 0;
    choose();
}

Command KeysAndPedals::chosen() const {
    const int row = form.List1.listIndex;
    return static_cast<Command>(std::clamp(row, 0, static_cast<int>(commandCount) - 1));
}

void KeysAndPedals::choose() {
    form.keyBox.keys = bindings_.key(chosen());
    form.cmdNoKey.enabled = !bindings_.key(chosen()).empty();
    form.cmdNoPedal.enabled = !bindings_.pedals(chosen()).empty();
}

void KeysAndPedals::switchOn(controls::CheckBox& box, bool& option) {
    option = box.value;
    change();
}

void KeysAndPedals::change() {
    wasRefused_ = false;
    hands_.apply();
    fill();
    show();
    OptionsChanged();
}

void KeysAndPedals::setKey() {
    const base::Text key = form.keyBox.keys;
    wasRefused_ = !key.empty() && !isSafeKey(key);
    if (wasRefused_) {
        choose();
        return show();
    }
    bindings_.setKey(chosen(), key);
    change();
    hands_.restKeys(true); // the box still has the keyboard
}

void KeysAndPedals::learn() {
    if (hands_.isLearning()) {
        hands_.stopLearning();
        return show();
    }
    hands_.learn([this](const platform::PedalCode& pedal) { learned(pedal); });
    before_ = hands_.devices();
    show();
    form.announce(form.lblState.caption);
}

void KeysAndPedals::learned(const platform::PedalCode& pedal) {
    bindings_.addPedal(chosen(), pedal);
    options_.pedals = true;
    form.chkPedals.value = true;
    change();
    form.announce(form.List1.items.get()[static_cast<std::size_t>(chosen())]);
}

void KeysAndPedals::show() {
    form.cmdLearn.caption =
        hands_.isLearning() ? words_(u"&Cancel"_en) : words_(u"&Press the pedal now..."_en);
    rule_.clear();
    base::Text all;
    for (const base::Text& line : state())
        (all += all.empty() ? u"" : u"\n") += base::doubledAmp(line);
    form.lblState.caption = all;
    form.cmdCopy.visible = !rule_.empty();
}

std::vector<base::Text> KeysAndPedals::state() {
    std::vector<base::Text> lines;
    if (wasRefused_)
        lines.push_back(words_(
            u"This key is needed for typing. Choose one with Ctrl, Alt or Meta, or a function key."_en));
    if (options_.keys && !hands_.keysFailure().empty())
        lines.push_back(words_(u"Keys cannot be taken: %1"_en, {hands_.keysFailure()}));
    for (std::size_t i = 0; options_.keys && i < commandCount; ++i) {
        const auto command = static_cast<Command>(i);
        if (hands_.keyHold(command) == platform::KeyHold::Taken)
            lines.push_back(words_(u"%1: another program has this key."_en, {bindings_.key(command)}));
        else if (hands_.keyHold(command) == platform::KeyHold::Unknown)
            lines.push_back(
                words_(u"%1: there is no such key on this keyboard."_en, {bindings_.key(command)}));
    }
    const std::vector<base::Text> pedals = pedalState();
    lines.insert(lines.end(), pedals.begin(), pedals.end());
    return lines;
}

std::vector<base::Text> KeysAndPedals::pedalState() {
    const bool learns = hands_.isLearning();
    if (!options_.pedals && !learns)
        return {};
    if (!hands_.pedalsFailure().empty())
        return {words_(u"Pedals cannot be used: %1"_en, {hands_.pedalsFailure()})};
    std::vector<base::Text> lines;
    if (learns)
        lines.push_back(
            words_(u"Press the pedal now. If nothing happens, unplug it and plug it in again."_en));
    bool isAny = false;
    for (const platform::PedalDevice& device : hands_.devices()) {
        // While every device is read, only those that were plugged in since then are of interest.
        if (learns && std::ranges::find(before_, device) != before_.end())
            continue;
        isAny = true;
        if (device.readable) {
            lines.push_back(words_(u"Plugged in: %1"_en, {device.name}));
            continue;
        }
        lines.push_back(words_(u"%1 may not be read. This command allows it:"_en, {device.name}));
        if (rule_.empty())
            rule_ = ruleCommand(device.model, rules_);
        lines.push_back(ruleCommand(device.model, rules_));
    }
    if (!isAny && !learns)
        lines.push_back(words_(u"No foot pedal is plugged in."_en));
    return lines;
}

} // namespace hands
