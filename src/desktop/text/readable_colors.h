#pragma once

#include <QPalette>
#include <QTextBlock>
#include <QTextLayout>

namespace desktop {

// How a dark page shows those letters of a paragraph whose colours are too close to what is behind them:
// lighter or darker, so that they can be read. The document keeps its own colours. A light page shows them as
// they are.
QList<QTextLayout::FormatRange> readableColors(const QTextBlock& block, const QPalette& page);

} // namespace desktop
