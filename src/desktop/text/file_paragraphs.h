#pragma once

#include "desktop/text/changed_paragraphs.h"
#include "desktop/text/rtf_bridge.h"
#include "platform/rich_text.h"

#include <optional>

namespace desktop {

// Converts changes in the editor's paragraphs to changes in those of the file. A page break within a
// paragraph of the file splits it into several of the editor's.
class FileParagraphs {
public:
    // The whole text; later changes refer to it.
    rtf::Document takeAll(const EditorDocument& document);

    struct Change {
        int begin = 0; // of the editor's paragraphs that are converted
        int end = 0;
        std::uint32_t first = 0; // paragraphs of the file that they replace
        std::uint32_t removed = 0;
        rtf::Document part;
    };
    // The paragraphs of the file that a change concerns; none if it may concern others far behind it. The
    // cost is proportional to the change and to the number of page breaks.
    std::optional<Change> take(const EditorDocument& document, const ChangedParagraphs::Range& range);

private:
    bool isRest(int paragraph) const;
    bool isBoundToPrevious(int paragraph) const;
    std::uint32_t restsBefore(int paragraph) const;
    bool splice(FileMap part, int begin, int end, int shift);

    FileMap map_; // as last taken
};

} // namespace desktop
