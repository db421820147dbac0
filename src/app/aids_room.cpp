#include "app/aids_room.h"

#include "app/place_over.h"
#include "base/numbers.h"
#include "player/stamp_text.h"

#include <array>
#include <ctime>

namespace app {

using lang::operator""_en;

namespace {

constexpr int saveAfter = 500; // ms
constexpr double step = 750;   // twips between the editor's top left corner and a window's

base::Text today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d", &local);
    return {text.begin(), text.begin() + static_cast<std::ptrdiff_t>(length)};
}

base::Text nameOf(base::TextView path) {
    return base::Text(base::afterLast(path, base::pathSeparator));
}

} // namespace

AidsRoom::AidsRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                   const Parts& parts)
    : form1_(form1), editor_(editor), disk_(desktop.disk()),
      abbreviations_(form1.folder.files(u"Abbreviations.txt"), desktop.eventLoop(), desktop.disk()),
      list_(abbreviations_, parts.words), expansion_(editor.form(), editor.undoRedo(), typing_),
      signs_(editor.form(), editor.undoRedo(), typing_, parts.words),
      completion_(editor.form(), editor.undoRedo(), typing_, desktop.eventLoop()), commands_(typing_),
      zoom_(editor.form()), saves_(desktop.eventLoop()),
      worklogFile_(form1.folder.files(u"Worklog.csv"), desktop.disk()),
      worklog_(worklogFile_, desktop.eventLoop()),
      figures_(editor.form(), editor.undoRedo(), worklog_, parts.words, desktop.eventLoop()) {
    menu.add({&list_.command(), &commands_.command(), &zoom_.command(), &figures_.command()});
    expansion_.fillings = {[this] { return stamp(); },
                           [&speakers = parts.speakers] { return speakers.atCaret(); }};
    figures_.Duration = [this] { return form1_.WMP1.URL().empty() ? 0 : form1_.WMP1.duration(); };
    figures_.DecimalSign = [&desktop] { return desktop.system().LeggiLocale(platform::localeDecimalSign); };
    followOptions(parts.options);
    followText();
    followWork(parts.notices);
    showWindows(desktop);
}

void AidsRoom::followOptions(OptionsFile& options) {
    options.tie("ExpandAbbreviations", typing_.expand);
    options.tie("OfferWords", typing_.complete);
    options.tie("OwnQuotes", typing_.quotes);
    options.tie("OwnDashes", typing_.dashes);
    options.tie("ViewZoom", zoom_.percent(), aids::Zoom::least, aids::Zoom::most);
    options.tie("KeepWorklog", worklog_.keeps);
    commands_.show();
    zoom_.show();
    commands_.Changed = [this] {
        completion_.apply();
        OptionsChanged();
    };
    zoom_.Changed = [this] { saves_.setInterval(saveAfter); };
    saves_.Tick = [this] {
        saves_.setInterval(0);
        OptionsChanged();
    };
}

void AidsRoom::followText() {
    platform::RichText& text = editor_.form().RTB;
    text.Typed = [this](base::TextView inserted) {
        expansion_.typed(inserted, abbreviations_.list());
        signs_.typed(inserted);
        completion_.typed(inserted);
    };
    auto& undo = editor_.form().mnuAnnulla.Click;
    undo = [this, others = undo] {
        others();
        expansion_.undone();
    };
    text.KeyDown = [this, others = text.KeyDown](platform::KeyEvent& key) {
        worklog_.worked();
        if (completion_.takes(key))
            key.keyCode = 0;
        else
            others(key);
    };
    editor_.undoRedo().Changed = [this, &text](const auto& before, const auto& after, const auto& change) {
        completion_.changed(before, after, change);
        figures_.changed();
        if (text.isTyping())
            worklog_.typed(before, after, change);
    };
}

void AidsRoom::followWork(safety::Notices& notices) {
    worklog_.Where = [this] { return place(); };
    worklog_.Hears = [this] {
        return aids::Worklog::Sound{form1_.WMP1.playState() == platform::PlayState::Playing,
                                    form1_.WMP1.currentPosition(), form1_.WMP1.rate()};
    };
    worklog_.Failed = [this, &notices](const base::Text& reason) {
        notices.tell(u"The worklog could not be written: %1"_en, {reason}, &editor_.form());
    };
}

void AidsRoom::showWindows(Desktop& desktop) {
    const auto show = [this, &desktop](auto& form) {
        placeOver(editor_.form(), form1_, step, form);
        desktop.show(form);
    };
    list_.Load = show;
    figures_.Load = show;
}

base::Text AidsRoom::stamp() const {
    return base::Text(base::trimmed(player::stampText(form1_.WMP1)));
}

aids::Worklog::Place AidsRoom::place() const {
    const editor::Document& document = editor_.document();
    return {today(), nameOf(form1_.WMP1.URL()),
            document.FileEditor.empty() ? document.NomeDocumento + base::numberText(document.NumeroDocumento)
                                        : nameOf(document.FileEditor)};
}

void AidsRoom::start() {
    abbreviations_.start();
    completion_.apply();
    worklog_.start();
}

void AidsRoom::flush() {
    worklog_.flush();
    disk_.drain();
}

void AidsRoom::leave() {
    if (saves_.interval() > 0)
        saves_.Tick();
    worklog_.leave();
    abbreviations_.leave();
    completion_.leave();
    list_.leave();
    figures_.leave();
    disk_.drain();
}

} // namespace app
