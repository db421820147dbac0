// What recognisers print while they work.
#pragma once

#include "drafts/draft.h"

#include <functional>

namespace drafts {

// Finds the words in the lines: those of PocketSphinx ("word 1.550 1.690 0.958482", an utterance between
// "<s>" and "</s>"), and segments behind their times ("[00:00.000 --> 00:04.000] text"). Other lines are
// passed over.
class PrintedWords {
public:
    // False for a line without any.
    bool line(TextView line);
    // Nothing more comes.
    void end();
    // Another program prints from here on.
    void reset();

    // The place up to which the recording has been heard.
    Ms heardMs() const { return heardMs_; }

    // An utterance is complete.
    std::function<void(const Segment&)> Arrived = [](const Segment&) {};

private:
    bool takeWord(TextView line);
    bool takeSegment(TextView line);

    Segment utterance_;
    Ms heardMs_ = 0;
};

} // namespace drafts
