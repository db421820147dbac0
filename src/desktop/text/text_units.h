// Converts between the text of a Qt document and the program's text. A document counts one unit for a
// paragraph end, the program two: positions differ by the index of their paragraph. A line break inside of a
// paragraph is one unit in both, so positions do not depend on the number of line breaks.
#pragma once

#include "base/text.h"

#include <QString>
#include <QStringView>
#include <QTextBlock>
#include <cstdint>

class QTextDocument;

namespace desktop {

inline constexpr char16_t programLineBreak = u'\u000B';
inline constexpr char16_t documentLineBreak = u'\u2028';
inline constexpr char16_t documentParagraphEnd = u'\u2029';

// Converts text for a document: CR LF, CR and LF each end a paragraph.
QString documentText(base::TextView text);

// A range of positions in a document.
struct TextRange {
    int begin = 0;
    int end = 0;

    bool operator==(const TextRange&) const = default;
};

// Converts text of a document to the program's text. `paragraphEnds` is the number of paragraph ends in it.
base::Text programText(QStringView text, int paragraphEnds);

// The length of the program's text in UTF-16 units, in constant time.
std::int32_t programLength(const QTextDocument& document);

// Converts positions of the program that are near each other in less time.
class NearPositions {
public:
    explicit NearPositions(const QTextDocument& document) : document_(document) {}

    int documentPosition(std::int32_t position);

private:
    const QTextDocument& document_;
    QTextBlock block_; // of the last one
};

// Convert a position, in a time that hardly grows with the document. A position outside is moved to the
// nearest one inside; a position within CR LF or a surrogate pair moves in front of it.
std::int32_t programPosition(const QTextDocument& document, int position);
int documentPosition(const QTextDocument& document, std::int64_t position);

} // namespace desktop
