#include "drafts/letters.h"
#include "drafts/read/forms.h"
#include "drafts/read/markup.h"
#include "drafts/read/stamps.h"
#include "drafts/time_text.h"

#include "base/numbers.h"

#include <algorithm>
#include <array>

namespace drafts {

namespace {

// The name of a tag in small letters, with "/" before that of an end.
Text tagName(TextView tag) {
    const auto end = std::find_if(tag.begin(), tag.end(), isBlank);
    Text name = base::lowered(TextView(tag.begin(), end));
    if (name.size() > 1 && name.back() == u'/')
        name.pop_back();
    return name;
}

bool endsLine(TextView name) {
    static constexpr std::array<TextView, 7> names = {u"p", u"/p", u"br", u"div", u"/div", u"li", u"/li"};
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The time of a stamp: exact in its data, else as it is shown.
std::optional<Ms> stampTime(TextView tag, TextView shown) {
    constexpr TextView data = u"data-timestamp=";
    if (const auto at = tag.find(data); at != TextView::npos) {
        TextView value = tag.substr(at + data.size());
        value.remove_prefix(!value.empty() && (value[0] == u'"' || value[0] == u'\'') ? 1 : 0);
        value = value.substr(0, value.find_first_of(u"\"' "));
        if (base::isNumber(value) && toMs(base::val(value)) != noTime)
            return toMs(base::val(value));
    }
    const auto time = timeAtHead(stripped(shown));
    return time && time->colons > 0 ? std::optional<Ms>(time->ms) : std::nullopt;
}

} // namespace

Draft readStampedHtml(TextView html) {
    Draft draft;
    draft.form = Form::Html;
    StampedPieces pieces(draft);
    bool closes = true; // a bracket further on closes a tag
    while (!html.empty()) {
        const auto special = html.find_first_of(u"<&");
        pieces.text(html.substr(0, special));
        if (special == TextView::npos)
            break;
        html.remove_prefix(special);
        const auto close = html.front() == u'<' && closes ? html.find(u'>') : TextView::npos;
        if (close == TextView::npos) {
            closes = closes && html.front() == u'&';
            const auto entity = html.front() == u'&' ? entityAtHead(html) : std::nullopt;
            pieces.text(entity ? TextView(entity->text) : html.substr(0, 1));
            html.remove_prefix(entity ? entity->length : 1);
            continue;
        }
        const TextView tag = html.substr(1, close - 1);
        html.remove_prefix(close + 1);
        const Text name = tagName(tag);
        if (endsLine(name)) {
            pieces.endLine();
        } else if (name == u"span" && tag.find(u"timestamp") != TextView::npos) {
            const TextView shown = html.substr(0, html.find(u'<'));
            if (const auto ms = stampTime(tag, shown)) {
                pieces.stamp({*ms, noTime, 0});
                html.remove_prefix(shown.size());
            }
        }
    }
    pieces.endLine();
    return draft;
}

} // namespace drafts
