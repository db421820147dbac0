#include "editor/follow_sound.h"

#include "lang/words.h"

#include <utility>

namespace editor {

using lang::operator""_en;

namespace {

constexpr int period = 20;               // ms: a mark comes within 30 ms of its word
constexpr std::int64_t usersTurn = 3000; // ms after a key or a scroll in which the view stays

} // namespace

FollowSound::FollowSound(Form2& form, WordSound& words, SoundOptions& options, platform::EventLoop& loop)
    : mnuFollow("mnuFollow", u"&Follow the sound"_en, "Ctrl+Shift+F"), form_(form), words_(words),
      options_(options), loop_(loop), timer_(loop) {
    mnuFollow.Click = [this] {
        follow(!options_.follow);
        OptionsChanged();
    };
    timer_.Tick = [this] { tick(); };
    form_.RTB.Scrolled = [this] { typed(); };
    form_.RTB.MarksIn = [this](std::int32_t begin, std::int32_t end) {
        const bool visible =
            marked_.length > 0 && marked_.position < end && marked_.position + marked_.length > begin;
        return visible ? std::vector{marked_} : std::vector<platform::MarkedPart>();
    };
}

void FollowSound::start() {
    follow(options_.follow);
}

void FollowSound::follow(bool on) {
    options_.follow = on;
    mnuFollow.checked = on;
    timer_.setInterval(on ? period : 0);
    if (!on)
        mark(0, 0);
}

// What was heard last stays marked during a pause.
void FollowSound::tick() {
    const auto heard = words_.Heard();
    if (!heard)
        return mark(0, 0);
    if (!Plays())
        return;
    const auto part = words_.heardPart(*heard);
    if (!part)
        return mark(0, 0);
    if (part->position == marked_.position && part->length == marked_.length)
        return;
    mark(part->position, part->length);
    if (loop_.now() - quietSince_ >= usersTurn)
        form_.RTB.scrollTo(part->position, part->length);
}

void FollowSound::mark(std::int32_t position, std::int32_t length) {
    const platform::MarkedPart before = std::exchange(marked_, {position, length, platform::Mark::Heard});
    for (const platform::MarkedPart& part : {before, marked_})
        if (part.length > 0 && before != marked_)
            form_.RTB.marksChanged(part.position, part.length);
}

} // namespace editor
