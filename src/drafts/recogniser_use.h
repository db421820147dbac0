#pragma once

#include "drafts/draft.h"
#include "lang/sentence.h"

#include <optional>

namespace drafts {

// The recording that a recogniser hears.
struct HeardRecording {
    Text path; // empty for none
    double seconds = 0;
};

// What becomes of the words of a recogniser.
class RecogniserUse {
public:
    RecogniserUse() = default;
    RecogniserUse(const RecogniserUse&) = delete;
    RecogniserUse& operator=(const RecogniserUse&) = delete;
    virtual ~RecogniserUse() = default;

    // The title of the window.
    virtual lang::English title() const = 0;
    // A recogniser is about to start. False if the user decided otherwise. Throws Failure.
    virtual bool begin(const HeardRecording& recording) = 0;
    // Words have arrived.
    virtual void arrived(const Segment& segment) = 0;
    // The recogniser has ended: the draft that it wrote, or nothing if all words have arrived. Throws
    // Failure.
    virtual lang::Sentence finish(std::optional<Draft> draft) = 0;
};

} // namespace drafts
