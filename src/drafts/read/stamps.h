// Text between time stamps, put together as it is read.
#pragma once

#include "drafts/draft.h"

#include <optional>

namespace drafts {

// A stamp at the head of a text.
struct StampText {
    Ms startMs = 0;
    Ms endMs = noTime;      // of "[00:01 --> 00:04]"
    std::size_t length = 0; // units that it takes
};

// "[hh:mm:ss]", "(mm:ss)", "{hh:mm:ss.mmm}", "<...>", "#hh:mm:ss-t#", and with `bare` without brackets before
// a blank or at the end.
std::optional<StampText> stampAtHead(TextView text, bool bare);

// Makes segments of what stands between the stamps. The text of a stamp ends at the next one; each line of it
// is a paragraph.
class StampedPieces {
public:
    explicit StampedPieces(Draft& draft) : draft_(draft) {}

    void stamp(const StampText& stamp);
    // What was said up to here ended at that time.
    void endStamp(Ms ms);
    void speaker(TextView name);
    void text(TextView text) { line_ += text; }
    void endLine();

    bool lineIsEmpty() const;

private:
    void flush();
    void endUnit(Ms ms);

    Draft& draft_;
    Text line_;
    std::int32_t speaker_ = noSpeaker;
    Ms startMs_ = noTime;
    Ms endMs_ = noTime;
    std::size_t unit_ = 0; // its first segment, once it is there
    bool unitBegun_ = false;
    bool lineBegins_ = true;
};

} // namespace drafts
