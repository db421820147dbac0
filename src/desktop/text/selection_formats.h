// Formats of a selection: one common value, or "mixed".
#pragma once

#include "platform/rich_text.h"

#include <QFont>
#include <QTextCursor>
#include <QTextFormat>
#include <optional>

namespace desktop {

enum class LetterStyle { Bold, Italic, Underline, StrikeThru };

// Style of the selected characters; with nothing selected, of the text typed next.
platform::Setting letterStyle(const QTextCursor& selection, LetterStyle style);
QTextCharFormat withLetterStyle(LetterStyle style, bool on);
// Of one letter. Unlike a cursor, it lays no paragraph out.
bool isBoldAt(const QTextDocument& document, int position);

// In points; empty if the sizes differ.
std::optional<double> letterSize(const QTextCursor& selection);

// For all paragraphs that the selection touches.
platform::Setting bullets(const QTextCursor& selection);
void setBullets(const QTextCursor& selection, bool on);
std::optional<platform::ParagraphAlignment> alignment(const QTextCursor& selection);
void setAlignment(QTextCursor selection, Qt::Alignment alignment);

} // namespace desktop
