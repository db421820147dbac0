#include "typist.h"

#include "base/failure.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

namespace desktop {

namespace {

constexpr int look = 15;          // ms between two looks at the modifiers
constexpr int patience = 5000;    // ms
constexpr int mapsKnown = 120;    // ms until programs know a new key
constexpr int betweenKeys = 6;    // ms
constexpr int lookedUp = 400;     // ms until slow programs have looked up what was typed
constexpr std::size_t most = 100; // characters of a text, and texts that wait

} // namespace

Typist::Typist(XKeyboard& keyboard) : keyboard_(keyboard) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { step(); });
}

Typist::~Typist() {
    if (mapped_.empty())
        return;
    unmap();
    // The connection is about to close, and the server may drop what it has not read by then.
    xcb_connection_t* const x = keyboard_.connection();
    std::free(xcb_get_input_focus_reply(x, xcb_get_input_focus(x), nullptr));
}

void Typist::type(base::TextView text) {
    if (texts_.size() >= most)
        return;
    texts_.emplace_back(text.substr(0, most));
    if (stage_ == Stage::Idle) {
        waited_ = 0;
        next(Stage::Waiting, 0);
    }
}

void Typist::next(Stage stage, int ms) {
    stage_ = stage;
    timer_.start(ms);
}

void Typist::step() {
    const bool isFree = keyboard_.heldModifiers() == 0 && !HoldsKeys();
    switch (stage_) {
    case Stage::Idle:
        return;
    case Stage::Waiting:
        if (!keyboard_.hasTyping() || waited_ >= patience || xcb_connection_has_error(keyboard_.connection()))
            return giveUp();
        waited_ += look;
        return isFree ? prepare() : next(Stage::Waiting, look);
    case Stage::Mapped:
    case Stage::Typing:
        if (!isFree && (waited_ += look) < patience)
            return next(Stage::Typing, look);
        if (!isFree)
            return giveUp();
        if (strokes_.empty()) {
            texts_.pop_front();
            return next(Stage::Typed, mapped_.empty() ? 0 : lookedUp);
        }
        strike(strokes_.front());
        strokes_.pop_front();
        return next(Stage::Typing, betweenKeys);
    case Stage::Typed:
        unmap();
        waited_ = 0;
        return texts_.empty() ? static_cast<void>(stage_ = Stage::Idle) : next(Stage::Waiting, 0);
    }
}

// Finds the key of each character, and gives one to those without.
void Typist::prepare() {
    try {
        keyboard_.readLayout();
    } catch (const base::Failure&) {
        return giveUp();
    }
    const auto shifts = keyboard_.codesOf({XKB_KEY_Shift_L, 0});
    shift_ = shifts.empty() ? xcb_keycode_t{0} : shifts.front();
    std::vector<xcb_keycode_t> unused = keyboard_.unusedCodes();
    std::map<char16_t, XKeyboard::Stroke> known;
    for (const char16_t character : texts_.front()) {
        auto& stroke = known[character];
        if (stroke.code == 0)
            stroke = keyboard_.strokeOf(character);
        if (stroke.code == 0 || (stroke.shift && shift_ == 0)) {
            if (unused.empty())
                return giveUp();
            stroke = map(unused.back(), character);
            unused.pop_back();
        }
        strokes_.push_back(stroke);
    }
    xcb_flush(keyboard_.connection());
    next(Stage::Mapped, mapped_.empty() ? 0 : mapsKnown);
}

void Typist::strike(const XKeyboard::Stroke& stroke) {
    const auto key = [this](std::uint8_t kind, xcb_keycode_t code) {
        xcb_test_fake_input(keyboard_.connection(), kind, code, XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
    };
    if (stroke.shift)
        key(XCB_KEY_PRESS, shift_);
    key(XCB_KEY_PRESS, stroke.code);
    key(XCB_KEY_RELEASE, stroke.code);
    if (stroke.shift)
        key(XCB_KEY_RELEASE, shift_);
    xcb_flush(keyboard_.connection());
}

XKeyboard::Stroke Typist::map(xcb_keycode_t code, char32_t character) {
    const xkb_keysym_t symbol = xkb_utf32_to_keysym(character);
    // Programs turn a small letter into a capital one while Caps Lock is on, unless the key has both.
    const xcb_keysym_t both[] = {xkb_keysym_to_lower(symbol), xkb_keysym_to_upper(symbol)};
    xcb_change_keyboard_mapping(keyboard_.connection(), 1, code, 2, both);
    mapped_.push_back(code);
    return {code, both[0] != both[1] && (symbol == both[1]) != keyboard_.hasCapsLock()};
}

void Typist::unmap() {
    constexpr xcb_keysym_t none[] = {XKB_KEY_NoSymbol, XKB_KEY_NoSymbol};
    for (const xcb_keycode_t code : mapped_)
        xcb_change_keyboard_mapping(keyboard_.connection(), 1, code, 2, none);
    mapped_.clear();
    xcb_flush(keyboard_.connection());
}

void Typist::giveUp() {
    unmap();
    strokes_.clear();
    const base::Text text = texts_.front();
    texts_.clear();
    stage_ = Stage::Idle;
    NotTyped(text);
}

} // namespace desktop
