#pragma once

#include "drafts/draft.h"
#include "lang/words.h"

#include <optional>
#include <vector>

namespace drafts {

// The recording that a recogniser hears.
struct HeardRecording {
    Text path; // empty for none
    double seconds = 0;
};

// What becomes of the words of a recogniser.
class RecogniserUse {
public:
    // A sentence for the user; each part replaces its "%1", "%2".
    struct Told {
        lang::English sentence;
        std::vector<Text> parts;
    };

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
    virtual Told finish(std::optional<Draft> draft) = 0;
};

} // namespace drafts
