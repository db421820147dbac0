#include "safety/what_happened.h"

#include "safety/time_text.h"

#include <utility>

namespace safety {

using lang::operator""_en;

WhatHappened::WhatHappened(Notices& notices, lang::Words& words)
    : notices_(notices), words_(words), mnuWhatHappened_("mnuWhatHappened", u"&What happened"_en) {
    mnuWhatHappened_.Click = [this] { open(); };
    form.cmdClose.Click = [this] { form.visible = false; };
    form.Unload = [this] {
        form.visible = false;
        return false;
    };
    notices_.Listed = [this] { fill(); };
    words.follow([this, &words] {
        form.caption = words(u"What happened"_en);
        form.List1.accessible.name = form.caption;
        form.lblEmpty.caption = words(u"Nothing to report."_en);
        form.cmdClose.caption = words(u"Close"_en);
        fill();
    });
}

void WhatHappened::open() {
    std::exchange(Load, [](NoticesWindow&) {})(form);
    form.visible = true;
    fill();
    form.setFocus();
    form.List1.setFocus();
}

void WhatHappened::fill() {
    if (!form.visible)
        return;
    std::vector<base::Text> rows;
    for (const Notices::Notice& notice : notices_.all())
        rows.push_back(timeText(notice.time) + u'\t' + notice.in(words_));
    form.lblEmpty.visible = rows.empty();
    form.List1.listIndex = -1;
    form.List1.items = std::move(rows);
}

} // namespace safety
