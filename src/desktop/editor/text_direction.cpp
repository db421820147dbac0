#include "desktop/editor/text_direction.h"

#include <QTextOption>
#include <algorithm>

namespace desktop {

namespace {

// A shorter text costs little, and in an empty one the keyboard tells the side.
constexpr int longText = 50'000; // units

// Letters and marks of the scripts that run from the right; of a surrogate pair the first unit tells.
bool runsFromTheRight(QChar letter) {
    const char16_t unit = letter.unicode();
    if (unit < 0x0590)
        return false;
    return unit <= 0x08FF || (unit >= 0xFB1D && unit <= 0xFDFF) || (unit >= 0xFE70 && unit <= 0xFEFE) ||
           unit == 0xD802 || unit == 0xD803 || unit == 0xD83A || unit == 0xD83B || unit == 0x200F ||
           unit == 0x202B || unit == 0x202E || unit == 0x2067;
}

void setDirection(QTextDocument& document, Qt::LayoutDirection direction) {
    QTextOption option = document.defaultTextOption();
    option.setTextDirection(direction);
    document.setDefaultTextOption(option);
}

} // namespace

void TextDirection::begin(QTextDocument& document) {
    const QString text = document.characterCount() > longText ? document.toRawText() : QString();
    fromTheLeft_ = isTrue_ = !text.isEmpty() && std::none_of(text.begin(), text.end(), runsFromTheRight);
    if (fromTheLeft_)
        setDirection(document, Qt::LeftToRight);
}

void TextDirection::noteInserted(QStringView text) {
    if (isTrue_)
        isTrue_ = std::none_of(text.begin(), text.end(), runsFromTheRight);
}

void TextDirection::settle(QTextDocument& document) {
    if (fromTheLeft_ == isTrue_)
        return;
    fromTheLeft_ = false;
    setDirection(document, Qt::LayoutDirectionAuto);
}

} // namespace desktop
