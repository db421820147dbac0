#pragma once

#include <QTimer>
#include <QWidget>

namespace desktop {

// Has screen readers speak a text. An invisible part of a window that exists for them only while it is
// spoken.
class Announcer : public QWidget {
public:
    explicit Announcer(QWidget& window);

    void speak(const QString& text);

private:
    QTimer end_;
};

} // namespace desktop
