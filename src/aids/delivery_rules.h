#pragma once

#include "aids/finding.h"
#include "aids/similar_names.h"

#include <cstdint>
#include <map>
#include <vector>

namespace aids {

// The rules of the check before delivery that need the text alone, paragraph by paragraph.
class DeliveryRules {
public:
    // `marks` of unclear passages, separated by commas; `recordingMs` is 0 where the length is not known.
    DeliveryRules(base::TextView marks, std::int32_t recordingMs);

    // Looks at the next paragraph, which begins at this position of the text; `next` follows it.
    void look(base::TextView paragraph, base::TextView next, std::int32_t position, Findings& findings);
    // All paragraphs were looked at: adds what only the whole text shows.
    void end(Findings& findings) const;

private:
    void lookForMarks(base::TextView paragraph, std::int32_t position, Findings& findings) const;
    void lookForStamps(base::TextView paragraph, std::int32_t position, Findings& findings);
    void lookForBlanks(base::TextView paragraph, std::int32_t position, Findings& findings) const;
    void noteName(base::TextView paragraph, std::int32_t position);

    std::vector<base::Text> marks_; // in small letters
    std::int32_t recordingMs_;
    std::int32_t stampMs_ = 0; // of the last stamp
    std::map<base::Text, NameUse> names_;
};

} // namespace aids
