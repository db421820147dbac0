#include "app/delivery_room.h"

#include "app/place_over.h"

#include <cmath>

namespace app {

namespace {

constexpr double step = 900; // twips between the editor's top left corner and the window's

} // namespace

DeliveryRoom::DeliveryRoom(Desktop& desktop, Rooms rooms, TranscriptMenu& menu, OptionsFile& options,
                           lang::Words& words)
    : check_(rooms.editor.undoRedo(), rooms.spelling.verdicts(), rooms.spelling.marks(), desktop.eventLoop()),
      commands_(rooms.editor.form(), rooms.editor.undoRedo(), check_, options_, words, desktop.eventLoop()) {
    options.tie("UnclearMarks", options_.unclear);
    menu.add(commands_.commands());
    commands_.start();
    check_.Doubtful = [&doubts = rooms.doubts](std::int32_t begin, std::int32_t end) {
        return doubts.marksIn(begin, end);
    };
    check_.RecordingMs = [&form1 = rooms.form1] {
        return form1.WMP1.URL().empty()
                   ? 0
                   : static_cast<std::int32_t>(std::lround(form1.WMP1.duration() * 1000));
    };
    const auto alsoHere = [this](std::function<void()>& event) {
        event = [this, others = event] {
            others();
            commands_.changed();
        };
    };
    alsoHere(rooms.editor.typing().Typed);
    alsoHere(rooms.spelling.marks().Decided);
    alsoHere(rooms.doubts.Kept);
    commands_.Load = [&desktop, &form1 = rooms.form1,
                      &beside = rooms.editor.form()](aids::DeliveryWindow& form) {
        placeOver(beside, form1, step, form);
        desktop.show(form);
    };
}

} // namespace app
