#pragma once

#include "desktop/views/list_looks.h"

#include <QStringList>
#include <QStyledItemDelegate>

namespace desktop {

// Paints the rows of a list: each is a text whose parts are separated by tabs, one line high.
class ListRow : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& row) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& row) const override;

protected:
    // True for a heading, whose second part is painted in bold, with some space above.
    virtual bool isHeading(const QStringList& /*parts*/) const { return false; }
    // Paints a row that is no heading on its background. `place` is inside the margins, in pixels; the font
    // is that of the list.
    virtual void paintParts(QPainter& painter, QRect place, const QStringList& parts,
                            const RowColors& colors) const = 0;
};

} // namespace desktop
