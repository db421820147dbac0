#include "desktop/views/announcer.h"

#include <QAccessible>

namespace desktop {

namespace {

constexpr int longestQuery = 2000; // ms in which a screen reader asks for the text

} // namespace

Announcer::Announcer(QWidget& window) : QWidget(&window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(0, 0, 1, 1);
    end_.setSingleShot(true);
    end_.setInterval(longestQuery);
    connect(&end_, &QTimer::timeout, this, [this] { hide(); });
    hide();
}

void Announcer::speak(const QString& text) {
    if (!QAccessible::isActive())
        return;
    hide();
    setAccessibleName(text);
    show(); // which screen readers hear of
    end_.start();
}

} // namespace desktop
