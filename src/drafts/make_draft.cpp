#include "drafts/make_draft.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "drafts/fault_sentence.h"

#include <algorithm>

namespace drafts {

using lang::operator""_en;

namespace {

// "5:30", with hours from the first one on.
Text clock(double seconds) {
    Text text = base::clockText(seconds);
    if (text.size() == 5 && text.front() == u'0')
        text.erase(0, 1);
    return text;
}

lang::Sentence tellOf(const RecogniserRun::Result& result) {
    using Outcome = RecogniserRun::Outcome;
    switch (result.outcome) {
    case Outcome::NotConverted:
        return {u"The recording could not be converted: %1"_en, {result.reason}};
    case Outcome::NotStarted:
        return {u"The recogniser could not be started: %1"_en, {result.reason}};
    case Outcome::Unreadable:
        return {u"The recogniser left nothing that can be read as a draft: %1"_en, {result.reason}};
    case Outcome::Failed:
    case Outcome::Killed:
    case Outcome::Complete:
        break;
    }
    return {u"The recogniser ended with an error: %1"_en, {result.reason}};
}

} // namespace

MakeDraft::MakeDraft(Tools tools, RecogniserOptions& options, lang::Words& words)
    : words_(words), choice_(form, options, tools.process, tools.clipboard, words),
      run_(tools.decoder, tools.process, std::move(tools.folder), tools.page) {
    form.cmdStart.Click = [this] { start(); };
    form.cmdStop.Click = [this] { stop(u"Cancelled. What has arrived stays."_en); };
    form.cmdClose.Click = [this] { form.visible = false; };
    form.Activate = [this] {
        if (runs())
            return;
        choice_.show(); // something may have been installed meanwhile
        showRecording();
    };
    form.Unload = [this] {
        form.visible = false;
        return false;
    };
    run_.Progress = [this] { showProgress(); };
    run_.Arrived = [this](const Segment& segment) {
        try {
            use_->arrived(segment);
        } catch (const base::Failure& failure) {
            run_.cancel();
            end({u"The words could not be inserted: %1"_en, {base::fromUtf8(failure.what())}});
        }
    };
    run_.Finished = [this](RecogniserRun::Result result) { finish(std::move(result)); };
    words_.follow([this] { translate(); });
}

void MakeDraft::add(controls::MenuItem& command, RecogniserUse& use) {
    command.Click = [this, &use] { open(use); };
}

void MakeDraft::open(RecogniserUse& use) {
    // While a recogniser runs, its window is shown, whatever command asks for it.
    if (!runs() && use_ != &use) {
        use_ = &use;
        status_.reset();
    }
    choice_.show();
    translate();
    std::exchange(Load, [](RecogniserWindow&) {})(form);
    form.visible = true;
    form.setFocus();
    (runs() ? form.cmdStop : form.cmdStart).setFocus();
}

void MakeDraft::translate() {
    form.cmdStart.caption = words_(u"&Start"_en);
    form.cmdStop.caption = words_(u"&Cancel"_en);
    form.cmdClose.caption = words_(u"Close"_en);
    form.barProgress.accessible.name = words_(u"Progress of the recogniser"_en);
    if (use_)
        form.caption = words_(use_->title());
    showState();
}

void MakeDraft::showRecording() {
    const HeardRecording open = runs() ? recording_ : Recording();
    Text caption = open.path.empty() ? words_(u"No recording is open."_en)
                                     : base::doubledAmp(base::afterLast(open.path, base::pathSeparator));
    if (open.seconds > 0)
        caption += u" (" + clock(open.seconds) + u')';
    form.lblRecording.caption = std::move(caption);
}

void MakeDraft::start() {
    if (runs() || !use_)
        return;
    const HeardRecording recording = Recording();
    showRecording();
    if (recording.path.empty())
        return tellStatus({u"Open the recording first."_en, {}});
    const auto command = choice_.command();
    if (!command)
        return;
    try {
        recording_ = recording;
        run_.start(recording.path, *command, [&] { return use_->begin(recording); });
    } catch (const base::Failure& failure) {
        return tellStatus({u"The recogniser could not be started: %1"_en, {base::fromUtf8(failure.what())}});
    }
    showState();
    if (runs())
        form.cmdStop.setFocus();
}

void MakeDraft::stop(lang::English reason) {
    if (!runs())
        return;
    run_.cancel();
    end({reason, {}});
}

void MakeDraft::leave() {
    run_.cancel();
    form.visible = false;
}

void MakeDraft::finish(RecogniserRun::Result result) {
    using Outcome = RecogniserRun::Outcome;
    if (result.outcome == Outcome::Complete) {
        try {
            return end(use_->finish(std::move(result.draft)));
        } catch (const base::Failure& failure) {
            result = {Outcome::Unreadable, base::fromUtf8(failure.what()), {}, {}};
        }
    }
    if (result.damage)
        result.reason = faultText(words_, *result.damage);
    end(tellOf(result));
    const bool lacksSomething =
        result.outcome == Outcome::NotStarted || (result.outcome == Outcome::Failed && !run_.hasArrived());
    if (lacksSomething)
        choice_.tellPackages();
}

void MakeDraft::end(const lang::Sentence& told) {
    tellStatus(told);
    if (!form.active)
        return Tell(told);
    form.announce(form.lblStatus.caption);
    form.cmdClose.setFocus();
}

void MakeDraft::tellStatus(const lang::Sentence& told) {
    status_ = told;
    showState();
}

void MakeDraft::showState() {
    choice_.setEnabled(!runs());
    form.cmdStart.enabled = !runs();
    form.cmdStop.enabled = runs();
    form.barProgress.visible = runs();
    showRecording();
    if (runs())
        showProgress();
    else
        form.lblStatus.caption = status_ ? base::doubledAmp(status_->in(words_)) : Text();
}

void MakeDraft::showProgress() {
    const double all = recording_.seconds;
    const double now = all > 0 ? std::min(run_.seconds(), all) : run_.seconds();
    const bool converts = run_.stage() == RecogniserRun::Stage::Converting;
    const bool isKnown = all > 0 && (converts || now > 0);
    form.barProgress.share = isKnown ? now / all : -1.0;
    const Text place = all > 0 ? words_(u"%1 of %2"_en, {clock(now), clock(all)}) : clock(now);
    if (converts)
        form.lblStatus.caption = words_(u"Converting the recording: %1"_en, {place});
    else if (now > 0)
        form.lblStatus.caption = words_(u"Recognised: %1"_en, {place});
    else
        form.lblStatus.caption = words_(u"The recogniser is at work."_en);
}

} // namespace drafts
