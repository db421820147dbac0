#include "editor/text_edits.h"

#include "base/carry_on.h"

#include <optional>

namespace editor {

namespace {

void select(platform::RichText& rtb, std::int32_t position, std::int32_t length) {
    rtb.setSelStart(position);
    rtb.setSelLength(length);
}

void makeBold(platform::RichText& rtb, const TextEdit& edit) {
    select(rtb, edit.position, static_cast<std::int32_t>(edit.inserted.size()));
    rtb.setSelBold(false);
    select(rtb, edit.position + edit.boldBegin, edit.boldLength);
    rtb.setSelBold(true);
}

} // namespace

// From the end to the beginning, so that the positions before an edit stay what they are.
void makeEdits(platform::RichText& rtb, UndoRedo& text, const std::vector<TextEdit>& edits) {
    text.asOneStep([&] {
        for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit)
            base::carryOn([&] {
                select(rtb, edit->position, edit->removed);
                rtb.setSelText(edit->inserted);
                const auto added = static_cast<std::int32_t>(edit->inserted.size());
                text.moments().set(edit->position, added, std::nullopt);
                if (edit->boldLength > 0)
                    makeBold(rtb, *edit);
            });
    });
}

} // namespace editor
