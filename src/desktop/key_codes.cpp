#include "desktop/key_codes.h"

#include <utility>

namespace desktop {

namespace {

constexpr int firstFunctionKey = 112;

constexpr std::pair<int, int> numbers[] = {
    {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},
    {Qt::Key_Return, 13},   {Qt::Key_Enter, 13},
    {Qt::Key_Space, 32},    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},
    {Qt::Key_Home, 36},     {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},       {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},     {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},   {Qt::Key_Escape, platform::escapeKey},
};

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

platform::KeyEvent keyEvent(const QKeyEvent& event) {
    const auto held = event.modifiers();
    return {.keyCode = codeOf(event.key()),
            .shift = (held.testFlag(Qt::ShiftModifier) ? platform::shiftKey : 0) +
                     (held.testFlag(Qt::ControlModifier) ? platform::controlKey : 0) +
                     (held.testFlag(Qt::AltModifier) ? platform::altKey : 0)};
}

} // namespace desktop
