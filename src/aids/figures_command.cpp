#include "aids/figures_command.h"

#include "base/numbers.h"

#include <algorithm>
#include <utility>

namespace aids {

using lang::operator""_en;

namespace {

constexpr int showPeriod = 1000;           // ms
constexpr std::int32_t longText = 500'000; // units; it is counted only while nobody types

base::Text row(base::Text name, base::TextView figure) {
    return std::move(name) + u'\t' + base::Text(figure);
}

} // namespace

FiguresCommand::FiguresCommand(editor::Form2& form2, editor::UndoRedo& text, Worklog& worklog,
                               lang::Words& words, platform::EventLoop& loop)
    : form2_(form2), text_(text), worklog_(worklog), words_(words),
      mnuFigures_("mnuFigures", u"Figures..."_en), shows_(loop) {
    mnuFigures_.Click = [this] { open(); };
    shows_.Tick = [this] {
        const bool rested = std::exchange(rests_, true);
        if (!form.visible)
            shows_.setInterval(0);
        else if (rested || text_.length() < longText)
            show();
    };
    form.cmdClose.Click = [this] { form.visible = false; };
    form.Unload = [this] {
        form.visible = false;
        return false;
    };
    words_.follow([this] {
        form.caption = words_(u"Figures"_en);
        form.List1.accessible.name = form.caption.get();
        form.lblKept.caption = worklog_.keeps ? words_(u"Kept in Files/Worklog.csv"_en) : base::Text();
        form.cmdClose.caption = words_(u"Close"_en);
        if (form.visible)
            show();
    });
}

void FiguresCommand::leave() {
    shows_.setInterval(0);
    form.visible = false;
}

void FiguresCommand::open() {
    std::exchange(Load, [](FiguresWindow&) {})(form);
    counted_ = false;
    place_ = {};
    form.visible = true;
    show();
    if (form.List1.listIndex < 0)
        form.List1.listIndex = 0;
    form.setFocus();
    form.List1.setFocus();
    shows_.setInterval(showPeriod);
}

// Only what may have changed is counted again.
void FiguresCommand::count() {
    const std::int32_t length = form2_.RTB.SelLength();
    const std::int32_t start = length > 0 ? form2_.RTB.SelStart() : 0;
    if (counted_ && start == selStart_ && length == selLength_)
        return;
    counted_ = true;
    selStart_ = start;
    selLength_ = length;
    figures_ = figuresOf(text_.letters(start, length > 0 ? length : text_.length()));
    std::int32_t last = 0;
    if (!text_.isOfOtherRecording())
        for (const auto& run : text_.moments().timed(0, text_.length()).runs)
            last = std::max(last, run.moment ? std::max(run.moment->start, run.moment->end) : 0);
    typed_ = last / 1000.0;
}

void FiguresCommand::show() {
    count();
    if (worklog_.place() != place_) {
        past_ = worklog_.past();
        place_ = worklog_.place();
    }
    std::vector<base::Text> rows;
    addText(rows);
    addRecording(rows);
    addWork(rows);
    form.List1.items = std::move(rows);
}

void FiguresCommand::addText(std::vector<base::Text>& rows) const {
    const base::Text sign = DecimalSign();
    rows.push_back(words_(selLength_ > 0 ? u"Selection"_en : u"Whole document"_en));
    rows.push_back(row(words_(u"Words"_en), base::countText(figures_.words)));
    rows.push_back(row(words_(u"Characters with blanks"_en), base::countText(figures_.characters)));
    rows.push_back(row(words_(u"Characters without blanks"_en), base::countText(figures_.withoutBlanks)));
    for (const std::size_t length : {std::size_t{55}, std::size_t{65}})
        rows.push_back(row(words_(u"Lines of %1 characters"_en, {base::countText(length)}),
                           linesText(figures_.characters, length, sign)));
}

void FiguresCommand::addRecording(std::vector<base::Text>& rows) const {
    const double duration = Duration();
    rows.push_back(words_(u"Recording"_en));
    // What is typed was heard.
    HeardParts heard = worklog_.heard();
    heard.add(0, typed_);
    const auto shown = [&](double seconds) {
        return duration > 0 ? base::clockText(std::clamp(seconds, 0.0, duration)) : base::Text(u"-");
    };
    rows.push_back(row(words_(u"Length"_en), shown(duration)));
    rows.push_back(row(words_(u"Heard"_en), shown(heard.total())));
    rows.push_back(row(words_(u"Typed up to"_en), shown(typed_)));
    rows.push_back(row(words_(u"Left to type"_en), shown(duration - typed_)));
}

void FiguresCommand::addWork(std::vector<base::Text>& rows) const {
    const Worklog::Place& place = worklog_.place();
    WorkEntry today;
    WorkEntry document;
    const auto add = [&](const WorkEntry& entry) {
        const auto addTo = [&entry](WorkEntry& sum) {
            sum.secondsWorked += entry.secondsWorked;
            sum.words += entry.words;
        };
        if (entry.date == place.date)
            addTo(today);
        if (entry.document == place.document)
            addTo(document);
    };
    std::ranges::for_each(past_, add);
    add(worklog_.entry());
    const auto speed = [](const WorkEntry& sum) {
        return speedText(static_cast<double>(sum.words), static_cast<double>(sum.secondsWorked));
    };
    rows.push_back(words_(u"Work"_en));
    rows.push_back(
        row(words_(u"Worked today"_en), base::clockText(static_cast<double>(today.secondsWorked))));
    rows.push_back(row(words_(u"Worked on this document"_en),
                       base::clockText(static_cast<double>(document.secondsWorked))));
    rows.push_back(row(words_(u"Words a minute today"_en), speed(today)));
    rows.push_back(row(words_(u"Words a minute in this document"_en), speed(document)));
}

} // namespace aids
