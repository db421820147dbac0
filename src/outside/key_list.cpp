#include "outside/key_list.h"

#include <utility>

namespace outside {

using lang::operator""_en;

namespace {

bool contains(const base::Text& text, const base::Text& wanted) {
    return base::lowered(text).find(wanted) != base::Text::npos;
}

// RTF with each unit outside of ASCII as a signed decimal number.
std::string rtfText(const base::Text& text) {
    std::string source;
    for (const char16_t unit : text) {
        if (unit == u'\\' || unit == u'{' || unit == u'}')
            source += '\\';
        if (unit < 0x80)
            source += static_cast<char>(unit);
        else
            source += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + '?';
    }
    return source;
}

} // namespace

KeyList::KeyList(lang::Words& words, std::function<std::vector<KeyGroup>()> collect)
    : collect_(std::move(collect)), mnuKeys_("mnuKeys", u"&Keys"_en) {
    mnuKeys_.Click = [this] { open(); };
    form.txtSearch.Change = [this] { fill(); };
    form.cmdPrint.Click = [this] { Print(form.caption, source()); };
    form.cmdClose.Click = [this] { form.visible = false; };
    form.Unload = [this] {
        form.visible = false;
        return false;
    };
    form.lblSearch.labels = &form.txtSearch;
    words.follow([this, &words] {
        form.caption = words(u"Keys"_en);
        form.List1.accessible.name = form.caption.get();
        form.lblSearch.caption = words(u"Search:"_en);
        form.cmdPrint.caption = words(u"&Print..."_en);
        form.cmdClose.caption = words(u"Close"_en);
        if (form.visible) {
            groups_ = collect_();
            fill();
        }
    });
}

void KeyList::open() {
    std::exchange(Load, [](KeysWindow&) {})(form);
    groups_ = collect_();
    form.txtSearch.text = u"";
    form.visible = true;
    fill();
    form.setFocus();
    form.txtSearch.setFocus();
}

void KeyList::fill() {
    const base::Text wanted = base::lowered(base::trimmed(form.txtSearch.text.get()));
    std::vector<base::Text> rows;
    for (const KeyGroup& group : groups_) {
        bool isHeaded = false;
        for (const KeyGroup::Row& row : group.rows) {
            if (!contains(row.keys, wanted) && !contains(row.command, wanted))
                continue;
            if (!std::exchange(isHeaded, true))
                rows.push_back(u'\t' + group.heading);
            rows.push_back(row.keys + u'\t' + row.command);
        }
    }
    form.List1.listIndex = -1;
    form.List1.items = std::move(rows);
}

std::string KeyList::source() const {
    std::string source = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\fs32\\b " + rtfText(form.caption) +
                         "\\b0\\fs20\\par\n";
    for (const KeyGroup& group : groups_) {
        source += "\\par\\b " + rtfText(group.heading) + "\\b0\\par\n";
        for (const KeyGroup::Row& row : group.rows)
            source += "\\tx2400 " + rtfText(row.keys) + "\\tab " + rtfText(row.command) + "\\par\n";
    }
    return source + '}';
}

} // namespace outside
