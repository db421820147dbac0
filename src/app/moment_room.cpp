#include "app/moment_room.h"

#include "base/carry_on.h"
#include "drafts/letters.h"
#include "drafts/names.h"

#include <cmath>

namespace app {

using lang::operator""_en;

namespace {

constexpr int watchPeriod = 2000;        // ms
constexpr std::int32_t leastKept = 3000; // ms; who has heard no more has not begun

// A name may also stand alone, above what was said.
base::TextView speakerOf(base::TextView paragraph) {
    const base::TextView text = drafts::stripped(paragraph);
    if (text.ends_with(u':') && drafts::isName(text.substr(0, text.size() - 1)))
        return text.substr(0, text.size() - 1);
    return drafts::nameAtHead(text).name;
}

} // namespace

MomentRoom::MomentRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                       OptionsFile& options, safety::Notices& notices)
    : form1_(form1), editor_(editor), disk_(desktop.disk()), notices_(notices),
      words_(editor.form(), editor.undoRedo(), soundOptions_),
      follow_(editor.form(), words_, soundOptions_, desktop.eventLoop()),
      stamps_(editor.form(), editor.undoRedo(), soundOptions_),
      mnuGoOn_("mnuGoOn", u"G&o on where I stopped"_en, "Alt+End"),
      positions_(form1.folder.files(u"Safety/LastPositions")), watch_(desktop.eventLoop()) {
    options.tie("HearLeadMilliseconds", soundOptions_.leadMs, 0, 10'000);
    options.tie("StampSeconds", soundOptions_.stampSeconds, 1, 3600);
    options.tie("FollowSound", soundOptions_.follow);
    std::vector<controls::MenuItem*> commands = words_.commands();
    commands.insert(commands.begin() + 1, follow_.commands().front());
    commands.push_back(&mnuGoOn_);
    commands.push_back(stamps_.commands().front());
    menu.add(commands);
    mnuGoOn_.Click = [this] { goOn(); };
    words_.PlayFrom = [this](std::int32_t ms) { return playFrom(ms); };
    words_.CanPlay = [this] { return isOpen(); };
    words_.Heard = [this] { return heardByWords(); };
    words_.ToldOther = [this] { tellOther(); };
    words_.MomentSet = [this] { editor_.document().TestoModificato = 1; };
    stamps_.SpeakerOf = speakerOf;
    follow_.Plays = [this] { return form1_.WMP1.playState() == platform::PlayState::Playing; };
    editor.typing().Typed = [this] { follow_.typed(); };
    editor.undoRedo().momentsHeard([this] { return heardByWords(); });
    editor.undoRedo().Recording = [this] {
        return isOpen() ? moments::layerOf(form1_.WMP1.URL(), form1_.WMP1.duration()) : moments::Layer();
    };
    watch_.Tick = [this] { watch(); };
}

void MomentRoom::start() {
    follow_.start();
    watch_.setInterval(watchPeriod);
}

void MomentRoom::flush() {
    watch();
    disk_.drain();
}

void MomentRoom::leave() {
    flush();
    watch_.setInterval(0);
}

bool MomentRoom::isOpen() const {
    return !form1_.WMP1.URL().empty();
}

std::optional<std::int32_t> MomentRoom::heard() const {
    const platform::PlayState state = form1_.WMP1.playState();
    const bool there = state == platform::PlayState::Playing || state == platform::PlayState::Paused;
    if (!isOpen() || !there)
        return std::nullopt;
    return static_cast<std::int32_t>(std::lround(form1_.WMP1.currentPosition() * 1000));
}

// Words of another recording neither follow this one nor take moments from it.
std::optional<std::int32_t> MomentRoom::heardByWords() const {
    return editor_.undoRedo().isOfOtherRecording() ? std::nullopt : heard();
}

bool MomentRoom::playFrom(std::int32_t ms) {
    if (!isOpen())
        return false;
    form1_.WMP1.setCurrentPosition(ms / 1000.0);
    if (!form1_.isPlaying())
        form1_.cmdPlay.Click();
    return true;
}

void MomentRoom::watch() {
    const base::Text recording = form1_.WMP1.URL();
    if (recording != recording_) {
        recording_ = recording;
        stopped_ = recording.empty() ? std::nullopt : positions_.of(recording);
    }
    if (const auto position = heard(); position && *position >= leastKept)
        positions_.set(recording_, *position);
    positions_.save(disk_);
    const bool isOther = editor_.undoRedo().isOfOtherRecording();
    if (isOther && other_ != editor_.undoRedo().recordingOfMoments())
        tellOther();
    if (!isOther)
        other_.clear();
}

void MomentRoom::tellOther() {
    other_ = editor_.undoRedo().recordingOfMoments();
    notices_.tell(u"The words of this document belong to another recording: %1"_en, {other_},
                  &editor_.form());
}

// The recording may have been opened since the last look.
void MomentRoom::goOn() {
    if (form1_.WMP1.URL() != recording_)
        watch();
    if (stopped_)
        playFrom(*stopped_);
}

} // namespace app
