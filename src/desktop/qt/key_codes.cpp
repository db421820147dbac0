#include "desktop/qt/key_codes.h"

#include <QChar>
#include <string_view>
#include <utility>

namespace desktop {

namespace {

constexpr int firstFunctionKey = 112;

constexpr std::pair<int, int> numbers[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Escape, platform::escapeKey},
    {Qt::Key_Menu, platform::menuKey},
};

// The letter rows of a keyboard, each with the X keycode of its first key.
constexpr std::pair<quint32, std::string_view> letterRows[] = {
    {24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

int codeOf(int key) {
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9))
        return key;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return key - Qt::Key_F1 + firstFunctionKey;
    for (const auto& [name, number] : numbers)
        if (name == key)
            return number;
    return 0;
}

} // namespace

int latinKey(const QKeyEvent& event) {
    const auto letter = static_cast<char32_t>(event.key());
    if (!event.modifiers().testFlag(Qt::ControlModifier) || !QChar::isLetter(letter) ||
        QChar::script(letter) == QChar::Script_Latin)
        return event.key();
    for (const auto& [first, letters] : letterRows)
        if (const quint32 place = event.nativeScanCode() - first; place < letters.size())
            return letters[place];
    return event.key();
}

platform::KeyEvent keyEvent(const QKeyEvent& event) {
    const auto held = event.modifiers();
    return {.keyCode = codeOf(latinKey(event)),
            .shift = (held.testFlag(Qt::ShiftModifier) ? platform::shiftKey : 0) +
                     (held.testFlag(Qt::ControlModifier) ? platform::controlKey : 0) +
                     (held.testFlag(Qt::AltModifier) ? platform::altKey : 0)};
}

} // namespace desktop
