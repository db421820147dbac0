// One run of a recogniser over a recording.
#pragma once

#include "base/code_page.h"
#include "drafts/command_line.h"
#include "drafts/draft.h"
#include "drafts/printed_words.h"
#include "platform/child_process.h"
#include "platform/decoder.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace drafts {

// Converts a recording, runs a recogniser on it and reads what it prints and writes. Its
// temporary files are in a folder of their own, which is removed at the end of the run.
class RecogniserRun {
public:
    enum class Stage : std::uint8_t { Idle, Converting, Recognising };
    // What ended the run. Failed: the recogniser reported an error. Killed: somebody ended it. Unreadable: it
    // left nothing that is a draft.
    enum class Outcome : std::uint8_t { Complete, NotConverted, NotStarted, Failed, Killed, Unreadable };
    struct Result {
        Outcome outcome = Outcome::Complete;
        Text reason;                  // of a failure, in the words of the system or the recogniser
        std::optional<Remark> damage; // of the file, if it is that
        std::optional<Draft> draft;   // from the file that the recogniser wrote; none if it only printed
    };

    // `folder` is created for a run and removed with all that is in it, also here: an earlier process may
    // have been killed.
    RecogniserRun(platform::Decoder& decoder, platform::ChildProcess& process, Text folder,
                  base::CodePage page);
    ~RecogniserRun();
    RecogniserRun(const RecogniserRun&) = delete;
    RecogniserRun& operator=(const RecogniserRun&) = delete;

    // Only while none runs. Throws Failure if the folder cannot be created. `mayStart` is asked at the last
    // moment.
    void start(const Text& recording, CommandLine command, const std::function<bool()>& mayStart);
    // Nothing is called afterwards.
    void cancel();

    Stage stage() const { return stage_; }
    // Up to where the recording has been converted or heard.
    double seconds() const { return seconds_; }
    // True when words have arrived.
    bool hasArrived() const { return arrived_; }

    // The stage or the time has changed.
    std::function<void()> Progress = [] {};
    // The recogniser has printed an utterance.
    std::function<void(const Segment&)> Arrived = [](const Segment&) {};
    std::function<void(Result)> Finished = [](const Result&) {};

private:
    void recognise();
    void print(TextView line);
    void finish(const platform::ChildProcess::End& end);
    void end(Result result);
    Result resultOf(const platform::ChildProcess::End& end);
    void clear();

    platform::Decoder& decoder_;
    platform::ChildProcess& process_;
    const Text folder_;
    const base::CodePage page_;
    CommandLine command_;
    PrintedWords printed_;
    Stage stage_ = Stage::Idle;
    double seconds_ = 0;
    bool arrived_ = false;
    Text lastLine_; // that told of no words; the last one that told of an error, if there was one
};

} // namespace drafts
