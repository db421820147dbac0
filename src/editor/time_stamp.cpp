#include "editor/time_stamp.h"

#include "base/carry_on.h"

namespace editor {

namespace {

constexpr base::TextView noTime = u"00:00:00";

} // namespace

TimeStamp::TimeStamp(Form2& form, const platform::MediaPlayer& player) : form_(form), player_(player) {
    form_.mnuTimeStamp.Click = [this] { mnuTimeStamp_Click(); };
}

void TimeStamp::mnuTimeStamp_Click() {
    const base::Text s = player_.currentPositionString();
    if (s.size() > noTime.size())
        return;
    const base::Text filled = base::Text(noTime.substr(0, noTime.size() - s.size())) + s;
    base::carryOn([&] { form_.RTB.setSelText(u"[" + filled + u"] "); });
}

} // namespace editor
