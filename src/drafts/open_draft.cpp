#include "drafts/open_draft.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"
#include "drafts/fault_sentence.h"
#include "drafts/read/reader.h"
#include "platform/file_filter.h"

#include <chrono>
#include <utility>

namespace drafts {

using lang::operator""_en;

namespace {

constexpr int askEvery = 50;                     // ms
constexpr std::chrono::milliseconds moment{700}; // a file that takes longer gets a progress window

} // namespace

OpenDraft::OpenDraft(platform::EventLoop& loop, platform::Dialogs& dialogs, const lang::Words& words,
                     base::CodePage page, const Options& options)
    : dialogs_(dialogs), words_(words), page_(page), options_(options),
      mnuOpenDraft_("mnuOpenDraft", u"Open a &draft..."_en), alarm_(loop.alarm([this] { tick(); })) {
    mnuOpenDraft_.Click = [this] { open(); };
}

OpenDraft::~OpenDraft() {
    stop_ = true;
}

void OpenDraft::open(base::Text path) {
    if (path.empty()) {
        platform::FileDialogRequest request;
        request.open = true;
        request.owner = "Form2";
        request.title = words_(u"Open a draft"_en);
        request.filter =
            platform::fileFilter({{words_(u"Drafts and subtitles"_en), u"*.srt;*.vtt;*.json;*.otr;*.txt"},
                                  {words_(u"All files"_en), u"*.*"}});
        path = dialogs_.FileDlg(request);
    }
    if (path.empty())
        return;
    stop();
    stop_ = false;
    share_ = 0;
    running_ = std::async(std::launch::async, [this, path, pauseMs = options_.pauseMs] {
        return read(path, TurnOptions{pauseMs});
    });
    if (running_.wait_for(moment) == std::future_status::ready) {
        finish();
        return;
    }
    progress_ = dialogs_.showProgress(words_(u"The draft is being read."_en), {}, [this] { stop(); });
    alarm_->start(askEvery);
}

OpenDraft::Result OpenDraft::read(const base::Text& path, TurnOptions options) {
    Result result;
    try {
        Draft draft = drafts::read(base::readFile(path), page_, [this](double share) {
            share_ = share;
            return !stop_;
        });
        result.remarks = draft.remarks;
        const base::Text recording = draft.recording;
        result.transcript = transcript(turns(std::move(draft), options), {});
        result.transcript.recording = recording;
    } catch (const Damage& damage) {
        result.damage.push_back(damage.remark());
        result.failed = true;
    } catch (const std::exception& failure) { // the memory may be too small as well
        result.failure = base::fromUtf8(failure.what());
        result.failed = true;
    }
    return result;
}

void OpenDraft::tick() {
    if (running_.valid() && running_.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        finish();
    else if (progress_)
        progress_->setShare(share_);
}

void OpenDraft::finish() {
    if (!running_.valid())
        return;
    alarm_->stop();
    const Result result = running_.get();
    progress_.reset();
    if (stop_)
        return;
    if (!result.damage.empty()) {
        const Remark& damage = result.damage.front();
        report(faultText(words_, damage));
    } else if (result.failed) {
        report(result.failure);
    } else if (base::carryOn([&] { Show(result.transcript); },
                             [this](const char* reason) { report(base::fromUtf8(reason)); })) {
        for (const Remark& remark : result.remarks)
            Tell(sentenceOf(remark.fault), base::countText(remark.line));
    }
}

void OpenDraft::report(base::TextView reason) {
    dialogs_.messageBox(words_(u"The draft cannot be opened: %1"_en, {reason}), {},
                        platform::BoxStyle::Exclamation);
}

void OpenDraft::stop() {
    stop_ = true;
    finish();
}

} // namespace drafts
