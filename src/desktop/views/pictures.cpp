#include "desktop/views/pictures.h"

#include "desktop/qt/conversions.h"

#include <QImageReader>

namespace desktop {

namespace {

constexpr QSize pointerSize(32, 32);
constexpr QPoint fingerTip(12, 2); // pixels; icon files cannot store a hot spot

} // namespace

QPixmap loadPicture(base::TextView path, double devicePixelRatio) {
    const QString name = qstring(path);
    if (devicePixelRatio > 1) {
        const auto point = name.lastIndexOf(u'.');
        QPixmap fine(name.left(point) + QStringLiteral("@2x") + name.mid(point));
        if (!fine.isNull()) {
            fine.setDevicePixelRatio(2);
            return fine;
        }
    }
    return QPixmap(name);
}

QIcon loadIcon(base::TextView path, int largest) {
    QIcon icon;
    QImageReader reader(qstring(path));
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i) {
        if (reader.size().width() <= largest)
            icon.addPixmap(QPixmap::fromImage(reader.read()));
    }
    return icon;
}

QCursor loadPointer(base::TextView path, double devicePixelRatio) {
    QImageReader reader(qstring(path));
    const QSize wanted = devicePixelRatio > 1 ? pointerSize * 2 : pointerSize;
    for (int i = 0; i < reader.imageCount(); ++i) {
        if (!reader.jumpToImage(i))
            break;
        if (reader.size() != wanted)
            continue;
        QPixmap pixmap = QPixmap::fromImage(reader.read());
        pixmap.setDevicePixelRatio(devicePixelRatio > 1 ? 2 : 1);
        if (!pixmap.isNull())
            return QCursor(pixmap, fingerTip.x(), fingerTip.y());
    }
    return {};
}

} // namespace desktop
