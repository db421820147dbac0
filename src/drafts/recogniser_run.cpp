#include "drafts/recogniser_run.h"

#include "base/files.h"
#include "drafts/read/reader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

namespace drafts {

namespace {

namespace fs = std::filesystem;

constexpr TextView recordingName = u"/recording.wav";
constexpr TextView draftName = u"/draft";
constexpr std::size_t longestReason = 300; // units
// The forms that tell most come first.
constexpr std::array<std::string_view, 5> extensions = {".json", ".vtt", ".srt", ".otr", ".txt"};

// Programs write the file that they are told, add an extension to its name, or write into a folder of that
// name: all files that they may have written, the best first.
std::vector<fs::path> written(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(folder, ignored))
        if (entry.is_regular_file(ignored) && entry.path() != folder / "recording.wav")
            files.push_back(entry.path());
    const auto rank = [](const fs::path& path) {
        return std::find(extensions.begin(), extensions.end(), path.extension().string());
    };
    std::stable_sort(files.begin(), files.end(),
                     [&](const fs::path& a, const fs::path& b) { return rank(a) < rank(b); });
    return files;
}

bool tellsError(TextView line) {
    const Text lower = base::lowered(line);
    return lower.find(u"error") != Text::npos || lower.find(u"fatal") != Text::npos;
}

} // namespace

RecogniserRun::RecogniserRun(platform::Decoder& decoder, platform::ChildProcess& process, Text folder,
                             base::CodePage page)
    : decoder_(decoder), process_(process), folder_(std::move(folder)), page_(page) {
    clear();
    printed_.Arrived = [this](const Segment& segment) {
        arrived_ = true;
        Arrived(segment);
    };
    decoder_.Progress = [this](double seconds) {
        seconds_ = seconds;
        Progress();
    };
    decoder_.Finished = [this](const Text& failure) {
        if (failure.empty())
            recognise();
        else
            end({Outcome::NotConverted, failure, {}, {}});
    };
    process_.OutputLine = process_.ErrorLine = [this](TextView line) { print(line); };
    process_.Finished = [this](const platform::ChildProcess::End& end) { finish(end); };
}

RecogniserRun::~RecogniserRun() {
    cancel();
}

void RecogniserRun::start(const Text& recording, CommandLine command, const std::function<bool()>& mayStart) {
    clear();
    base::createPrivateFolder(folder_);
    try {
        if (!mayStart())
            return clear();
    } catch (...) {
        clear();
        throw;
    }
    command_ = std::move(command);
    printed_.reset();
    arrived_ = false;
    lastLine_.clear();
    seconds_ = 0;
    stage_ = Stage::Converting;
    decoder_.start(recording, folder_ + Text(recordingName));
    Progress();
}

void RecogniserRun::cancel() {
    if (stage_ == Stage::Idle)
        return;
    stage_ = Stage::Idle;
    decoder_.cancel();
    process_.cancel();
    clear();
}

void RecogniserRun::recognise() {
    stage_ = Stage::Recognising;
    seconds_ = 0;
    process_.start(filledIn(command_, folder_ + Text(recordingName), folder_ + Text(draftName)), folder_);
    Progress();
}

void RecogniserRun::print(TextView line) {
    if (!printed_.line(line) && (tellsError(line) || !tellsError(lastLine_)))
        lastLine_ = line.substr(0, longestReason);
    const double heard = printed_.heardMs() / 1000.0;
    if (heard > seconds_ && stage_ == Stage::Recognising) {
        seconds_ = heard;
        Progress();
    }
}

void RecogniserRun::finish(const platform::ChildProcess::End& ended) {
    printed_.end();
    if (stage_ == Stage::Recognising) // the last words may have made somebody cancel
        end(resultOf(ended));
}

RecogniserRun::Result RecogniserRun::resultOf(const platform::ChildProcess::End& end) {
    using How = platform::ChildProcess::End::How;
    if (end.how == How::NotStarted)
        return {Outcome::NotStarted, end.failure, {}, {}};
    if (end.how == How::Killed)
        return {Outcome::Killed, base::fromUtf8(::strsignal(end.code)), {}, {}};
    if (end.code != 0)
        return {Outcome::Failed, lastLine_, {}, {}};
    Result unreadable{Outcome::Unreadable, lastLine_, {}, {}};
    if (command_.hasOutput) {
        for (const fs::path& path : written(base::toUtf8(folder_))) {
            try {
                return {
                    Outcome::Complete, {}, {}, read(base::readFile(base::fromUtf8(path.string())), page_)};
            } catch (const Damage& damage) {
                unreadable.damage = damage.remark();
            } catch (const base::Failure& failure) {
                unreadable.reason = base::fromUtf8(failure.what());
            }
        }
    }
    return arrived_ ? Result() : unreadable;
}

void RecogniserRun::end(Result result) {
    stage_ = Stage::Idle;
    clear();
    Finished(std::move(result));
}

void RecogniserRun::clear() {
    std::error_code ignored;
    fs::remove_all(base::toUtf8(folder_), ignored);
}

} // namespace drafts
