// Between the text of a document of Qt and that of the program. A document counts one unit for the end of a
// paragraph, the program two: a place differs by the number of the paragraph that it lies in. A line break
// inside of a paragraph is one unit in both, so that no place depends on how many of them there are.
#pragma once

#include "base/text.h"

#include <QString>
#include <QStringView>
#include <cstdint>

class QTextDocument;

namespace desktop {

inline constexpr char16_t programLineBreak = u'\u000B';
inline constexpr char16_t documentLineBreak = u'\u2028';
inline constexpr char16_t documentParagraphEnd = u'\u2029';

// The text as it goes into a document: CR LF, CR and LF each end a paragraph.
QString documentText(base::TextView text);

// A stretch of a document.
struct TextRange {
    int begin = 0;
    int end = 0;

    bool operator==(const TextRange&) const = default;
};

// A text of a document as the program has it; it holds so many ends of paragraphs.
base::Text programText(QStringView text, int paragraphEnds);

// Len(Text), in constant time.
std::int32_t programLength(const QTextDocument& document);

// Both in a time that hardly grows with the document. A place outside is taken as the nearest inside, one
// within CR LF or a surrogate pair as the place before it.
std::int32_t programPosition(const QTextDocument& document, int position);
int documentPosition(const QTextDocument& document, std::int64_t position);

} // namespace desktop
