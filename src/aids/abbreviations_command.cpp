#include "aids/abbreviations_command.h"

#include "aids/letter_case.h"
#include "base/carry_on.h"
#include "base/numbers.h"

#include <algorithm>
#include <utility>

namespace aids {

using lang::operator""_en;

namespace {

constexpr std::size_t mostNumbers = 8; // of lines that were skipped

base::Text numbers(const std::vector<std::size_t>& lines) {
    base::Text all;
    for (std::size_t i = 0; i < std::min(lines.size(), mostNumbers); ++i)
        all += (i == 0 ? base::Text() : base::Text(u", ")) + base::countText(lines[i]);
    return lines.size() > mostNumbers ? all + u", \u2026 (" + base::countText(lines.size()) + u")" : all;
}

} // namespace

AbbreviationsCommand::AbbreviationsCommand(AbbreviationFile& file, lang::Words& words)
    : file_(file), words_(words), mnuAbbreviations_("mnuAbbreviations", u"Abbre&viations..."_en) {
    mnuAbbreviations_.Click = [this] { open(); };
    file_.Changed = [this] {
        if (form.visible)
            fill(chosen() ? chosen()->shortForm : base::Text());
    };
    form.txtSearch.Change = [this] { fill(chosen() ? chosen()->shortForm : base::Text()); };
    form.txtShort.Change = form.txtText.Change = [this] { offer(); };
    form.List1.observe([this, shown = -1]() mutable {
        if (std::exchange(shown, form.List1.listIndex.get()) != form.List1.listIndex)
            choose();
    });
    form.List1.DblClick = [this] { form.txtText.setFocus(); };
    form.cmdAdd.Click = [this] { add(); };
    form.cmdChange.Click = [this] { alter(); };
    form.cmdDelete.Click = [this] { remove(); };
    form.cmdClose.Click = [this] { form.visible = false; };
    form.Unload = [this] {
        form.visible = false;
        return false;
    };
    words_.follow([this] { translate(); });
}

void AbbreviationsCommand::translate() {
    form.caption = words_(u"Abbreviations"_en);
    form.List1.accessible.name = form.caption.get();
    form.lblSearch.caption = words_(u"Search:"_en);
    form.lblEmpty.caption = words_(u"There are no abbreviations."_en);
    form.lblShort.caption = words_(u"Short form:"_en);
    form.lblText.caption = words_(u"Text:"_en);
    form.lblHint.caption =
        words_(u"A short form has no blanks. In the text, {time} stands for the position of "
               "the recording, {speaker} for whoever speaks, {caret} for where the caret "
               "goes."_en);
    form.cmdAdd.caption = words_(u"&Add"_en);
    form.cmdChange.caption = words_(u"&Change"_en);
    form.cmdDelete.caption = words_(u"&Delete"_en);
    form.cmdClose.caption = words_(u"Close"_en);
    showFault();
}

void AbbreviationsCommand::open() {
    std::exchange(Load, [](AbbreviationsWindow&) {})(form);
    failure_.clear();
    form.txtSearch.text = base::Text();
    form.visible = true;
    fill({});
    form.setFocus();
    form.txtShort.setFocus();
}

void AbbreviationsCommand::fill(base::TextView chosen) {
    const base::Text wanted = lowered(base::trimmed(form.txtSearch.text.get()));
    rows_ = file_.list().all();
    std::erase_if(rows_, [&](const Abbreviation& each) {
        return lowered(each.shortForm).find(wanted) == base::Text::npos &&
               lowered(each.text).find(wanted) == base::Text::npos;
    });
    std::ranges::stable_sort(rows_, {}, [](const Abbreviation& each) { return lowered(each.shortForm); });
    std::vector<base::Text> shown;
    int index = -1;
    for (const Abbreviation& each : rows_) {
        if (each.shortForm == chosen)
            index = static_cast<int>(shown.size());
        shown.push_back(each.shortForm + u'\t' + each.text);
    }
    form.lblEmpty.visible = shown.empty();
    form.List1.items = std::move(shown);
    form.List1.listIndex = index;
    offer();
    showFault();
}

const Abbreviation* AbbreviationsCommand::chosen() const {
    const int index = form.List1.listIndex;
    return index < 0 || static_cast<std::size_t>(index) >= rows_.size()
               ? nullptr
               : &rows_[static_cast<std::size_t>(index)];
}

void AbbreviationsCommand::choose() {
    if (const Abbreviation* const row = chosen()) {
        form.txtShort.text = row->shortForm;
        form.txtText.text = row->text;
    }
    offer();
}

// Which buttons have a use.
void AbbreviationsCommand::offer() {
    const Abbreviation* const row = chosen();
    const base::Text shortForm = this->shortForm();
    const bool usable = Abbreviations::isUsable(shortForm, text());
    const bool isFresh = !file_.list().knows(shortForm);
    form.cmdAdd.enabled = usable && isFresh;
    form.cmdChange.enabled =
        usable && row && *row != Abbreviation{shortForm, text()} && (isFresh || row->shortForm == shortForm);
    form.cmdDelete.enabled = row != nullptr;
}

void AbbreviationsCommand::showFault() {
    const std::vector<std::size_t>& skipped = file_.list().skipped();
    if (!failure_.empty())
        form.lblFault.caption = words_(u"The abbreviations could not be saved: %1"_en, {failure_});
    else if (!file_.failure().empty())
        form.lblFault.caption = words_(u"The abbreviations could not be read: %1"_en, {file_.failure()});
    else
        form.lblFault.caption =
            skipped.empty() ? base::Text()
                            : words_(u"Lines of the file that cannot be used: %1"_en, {numbers(skipped)});
}

void AbbreviationsCommand::change(const std::function<void(Abbreviations&)>& edit,
                                  base::TextView chosenThen) {
    failure_.clear();
    base::carryOn([&] { file_.change(edit); },
                  [this](const char* reason) { failure_ = base::fromUtf8(reason); });
    fill(chosenThen);
}

void AbbreviationsCommand::add() {
    if (!form.cmdAdd.enabled)
        return;
    const base::Text fresh = shortForm();
    change([&](Abbreviations& all) { all.set(fresh, text()); }, {});
    if (!failure_.empty())
        return;
    form.txtShort.text = form.txtText.text = base::Text();
    offer();
    form.txtShort.setFocus();
}

void AbbreviationsCommand::alter() {
    const Abbreviation* const row = chosen();
    if (!row || !form.cmdChange.enabled)
        return;
    const base::Text before = row->shortForm;
    const base::Text after = shortForm();
    change(
        [&](Abbreviations& all) {
            if (before != after)
                all.remove(before);
            all.set(after, text());
        },
        after);
}

void AbbreviationsCommand::remove() {
    const Abbreviation* const row = chosen();
    if (!row)
        return;
    const base::Text before = row->shortForm;
    change([&](Abbreviations& all) { all.remove(before); }, {});
}

} // namespace aids
