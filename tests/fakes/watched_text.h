#pragma once

#include "base/text.h"
#include "platform/rich_text.h"

#include <string>

namespace fakes {

inline void select(platform::RichText& text, int start, int length) {
    text.setSelStart(start);
    text.setSelLength(length);
}

// The text with its selection, as "a[b]c" or "a|bc"; "/" stands for a paragraph end.
inline std::string shown(const platform::RichText& text) {
    base::Text all = text.Text();
    const auto start = static_cast<std::size_t>(text.SelStart());
    const base::Text selected = text.SelText();
    all.replace(start, selected.size(), selected.empty() ? u"|" : u"[" + selected + u"]");
    return base::toUtf8(base::replaced(all, u"\r\n", u"/"));
}

// Counts the changes of a text. `seen` is the text as the program finds it during the last change.
struct WatchedText {
    explicit WatchedText(platform::RichText& text) {
        text.Formatted = [this] { ++formats; };
        text.Change = [this, &text] {
            ++changes;
            seen = shown(text);
            const platform::TextChange change = text.takeChange();
            told.replace(static_cast<std::size_t>(change.position), static_cast<std::size_t>(change.removed),
                         change.inserted);
        };
    }

    int changes = 0;
    int formats = 0; // changes of formats alone
    std::string seen;
    base::Text told; // the text rebuilt from the reported changes
};

} // namespace fakes
