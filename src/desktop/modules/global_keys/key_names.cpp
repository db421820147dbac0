#include "key_names.h"

#include <QKeySequence>
#include <QString>
#include <algorithm>
#include <string_view>
#include <utility>
#include <xcb/xproto.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace desktop {

namespace {

constexpr std::pair<int, xkb_keysym_t> symbols[] = {
    {Qt::Key_Escape, XKB_KEY_Escape},
    {Qt::Key_Tab, XKB_KEY_Tab},
    {Qt::Key_Backtab, XKB_KEY_Tab},
    {Qt::Key_Backspace, XKB_KEY_BackSpace},
    {Qt::Key_Return, XKB_KEY_Return},
    {Qt::Key_Enter, XKB_KEY_KP_Enter},
    {Qt::Key_Insert, XKB_KEY_Insert},
    {Qt::Key_Delete, XKB_KEY_Delete},
    {Qt::Key_Pause, XKB_KEY_Pause},
    {Qt::Key_Print, XKB_KEY_Print},
    {Qt::Key_ScrollLock, XKB_KEY_Scroll_Lock},
    {Qt::Key_Home, XKB_KEY_Home},
    {Qt::Key_End, XKB_KEY_End},
    {Qt::Key_Left, XKB_KEY_Left},
    {Qt::Key_Up, XKB_KEY_Up},
    {Qt::Key_Right, XKB_KEY_Right},
    {Qt::Key_Down, XKB_KEY_Down},
    {Qt::Key_PageUp, XKB_KEY_Page_Up},
    {Qt::Key_PageDown, XKB_KEY_Page_Down},
    {Qt::Key_Menu, XKB_KEY_Menu},
    {Qt::Key_MediaPlay, XKB_KEY_XF86AudioPlay},
    {Qt::Key_MediaTogglePlayPause, XKB_KEY_XF86AudioPlay},
    {Qt::Key_MediaPause, XKB_KEY_XF86AudioPause},
    {Qt::Key_MediaStop, XKB_KEY_XF86AudioStop},
    {Qt::Key_MediaPrevious, XKB_KEY_XF86AudioPrev},
    {Qt::Key_MediaNext, XKB_KEY_XF86AudioNext},
};

// The letter rows of a keyboard, each with the X key code of its first key.
constexpr std::pair<xkb_keycode_t, std::string_view> letterRows[] = {
    {24, "qwertyuiop"}, {38, "asdfghjkl"}, {52, "zxcvbnm"}};

xkb_keysym_t symbolOf(int key) {
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return XKB_KEY_F1 + static_cast<xkb_keysym_t>(key - Qt::Key_F1);
    const auto* const known = std::find_if(std::begin(symbols), std::end(symbols),
                                           [&](const auto& each) { return each.first == key; });
    if (known != std::end(symbols))
        return known->second;
    // The other keys are characters, in upper case.
    return key > 0 && key < Qt::Key_Escape ? xkb_utf32_to_keysym(QChar::toLower(static_cast<char32_t>(key)))
                                           : XKB_KEY_NoSymbol;
}

} // namespace

std::optional<KeyName> keyName(base::TextView text) {
    const QKeySequence keys = QKeySequence::fromString(
        QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())), QKeySequence::PortableText);
    if (keys.count() != 1)
        return std::nullopt;
    KeyName name{symbolOf(keys[0].key()), 0};
    if (name.symbol == XKB_KEY_NoSymbol)
        return std::nullopt;
    const Qt::KeyboardModifiers held = keys[0].keyboardModifiers();
    // Alt and Meta have these bits in all layouts that X ships.
    for (const auto& [modifier, bit] :
         {std::pair(Qt::ShiftModifier, XCB_MOD_MASK_SHIFT),
          std::pair(Qt::ControlModifier, XCB_MOD_MASK_CONTROL), std::pair(Qt::AltModifier, XCB_MOD_MASK_1),
          std::pair(Qt::MetaModifier, XCB_MOD_MASK_4)})
        if (held.testFlag(modifier))
            name.modifiers |= static_cast<std::uint16_t>(bit);
    return name;
}

xkb_keycode_t codeByPlace(xkb_keysym_t symbol) {
    for (const auto& [first, letters] : letterRows)
        if (const auto place = letters.find(static_cast<char>(symbol));
            symbol < 0x80 && place < letters.size())
            return first + static_cast<xkb_keycode_t>(place);
    return 0;
}

} // namespace desktop
