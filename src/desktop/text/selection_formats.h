// Formats of a selection, of which a control says one value or that there are several.
#pragma once

#include "platform/rich_text.h"

#include <QFont>
#include <QTextCursor>
#include <QTextFormat>
#include <optional>

namespace desktop {

enum class LetterStyle { Bold, Italic, Underline, StrikeThru };

// Of the letters of the selection; with nothing selected, of what is typed next.
platform::Setting letterStyle(const QTextCursor& selection, LetterStyle style);
QTextCharFormat withLetterStyle(LetterStyle style, bool on);

// In points; empty when there are several.
std::optional<double> letterSize(const QTextCursor& selection);

// Of the paragraphs that the selection touches.
platform::Setting bullets(const QTextCursor& selection);
void setBullets(const QTextCursor& selection, bool on);
void setAlignment(QTextCursor selection, Qt::Alignment alignment);

} // namespace desktop
