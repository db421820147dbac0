#include "editor/time_stamp.h"

#include "base/carry_on.h"
#include "player/stamp_text.h"

namespace editor {

TimeStamp::TimeStamp(Form2& form, const platform::MediaPlayer& player) : form_(form), player_(player) {
    form_.mnuTimeStamp.Click = [this] { mnuTimeStamp_Click(); };
}

void TimeStamp::mnuTimeStamp_Click() {
    const base::Text stamp = player::stampText(player_);
    if (!stamp.empty())
        base::carryOn([&] { form_.RTB.setSelText(stamp); });
}

} // namespace editor
