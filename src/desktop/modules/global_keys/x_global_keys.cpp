#include "x_global_keys.h"

#include "base/failure.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace desktop {

namespace {

constexpr int layoutSettles = 100; // ms
constexpr std::uint16_t ownModifiers =
    XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;

} // namespace

XGlobalKeys::XGlobalKeys() {
    drain_.setSingleShot(true);
    layout_.setSingleShot(true);
    QObject::connect(&drain_, &QTimer::timeout, [this] { readEvents(); });
    QObject::connect(&layout_, &QTimer::timeout, [this] { followLayout(); });
    try {
        keyboard_ = std::make_unique<XKeyboard>();
    } catch (const base::Failure& failure) {
        failure_ = base::fromUtf8(failure.what());
        return;
    }
    typist_ = std::make_unique<Typist>(*keyboard_);
    typist_->HoldsKeys = [this] { return !pressed_.empty(); };
    typist_->NotTyped = [this](const base::Text& text) { NotTyped(text); };
    notifier_ = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(keyboard_->connection()),
                                                  QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { readEvents(); });
}

XGlobalKeys::~XGlobalKeys() = default;

std::vector<platform::KeyHold> XGlobalKeys::take(const std::vector<base::Text>& combinations) {
    combinations_ = combinations;
    pressed_.clear();
    holds_ = takeAll();
    return holds_;
}

std::vector<platform::KeyHold> XGlobalKeys::takeAll() {
    if (!keyboard_)
        return {};
    giveAllBack();
    std::vector<platform::KeyHold> holds;
    for (std::size_t i = 0; i < combinations_.size(); ++i)
        holds.push_back(take(i, combinations_[i]));
    xcb_flush(keyboard_->connection());
    drain_.start(0);
    return holds;
}

std::vector<xcb_keycode_t> XGlobalKeys::codesOf(const base::Text& combination) const {
    const auto name = keyName(combination);
    return name ? keyboard_->codesOf(*name) : std::vector<xcb_keycode_t>();
}

platform::KeyHold XGlobalKeys::take(std::size_t index, const base::Text& combination) {
    const auto name = keyName(combination);
    const auto codes = codesOf(combination);
    tried_.push_back(codes);
    if (codes.empty())
        return platform::KeyHold::Unknown;
    for (const xcb_keycode_t code : codes) {
        const Taken key{code, name->modifiers, index};
        if (!grab(key)) {
            giveBack(key);
            return platform::KeyHold::Taken;
        }
        taken_.push_back(key);
    }
    return platform::KeyHold::Held;
}

// All locks at once, then the answers: one wait for each key.
bool XGlobalKeys::grab(const Taken& key) {
    xcb_connection_t* const x = keyboard_->connection();
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t locks : keyboard_->locks())
        cookies.push_back(xcb_grab_key_checked(x, 0, keyboard_->root(), key.modifiers | locks, key.code,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool isOurs = true;
    for (const xcb_void_cookie_t cookie : cookies) {
        xcb_generic_error_t* const error = xcb_request_check(x, cookie);
        isOurs = isOurs && !error;
        std::free(error);
    }
    return isOurs;
}

void XGlobalKeys::giveBack(const Taken& key) {
    for (const std::uint16_t locks : keyboard_->locks())
        xcb_ungrab_key(keyboard_->connection(), key.code, keyboard_->root(), key.modifiers | locks);
}

// Also those of a layout with other locks.
void XGlobalKeys::giveAllBack() {
    xcb_ungrab_key(keyboard_->connection(), XCB_GRAB_ANY, keyboard_->root(), XCB_MOD_MASK_ANY);
    taken_.clear();
    tried_.clear();
}

void XGlobalKeys::readEvents() {
    xcb_connection_t* const x = keyboard_->connection();
    while (xcb_generic_event_t* const next = xcb_poll_for_event(x)) {
        const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(next, &std::free);
        const auto kind = event->response_type & 0x7FU;
        if (kind == XCB_KEY_PRESS)
            press(reinterpret_cast<const xcb_key_press_event_t&>(*event));
        else if (kind == XCB_KEY_RELEASE)
            release(reinterpret_cast<const xcb_key_release_event_t&>(*event).detail);
        else if (keyboard_->isLayoutChange(*event))
            layout_.start(layoutSettles);
    }
    if (xcb_connection_has_error(x) && notifier_)
        notifier_->setEnabled(false); // the server is gone, and so is the program's display
}

void XGlobalKeys::press(const xcb_key_press_event_t& event) {
    const auto taken = std::ranges::find_if(taken_, [&](const Taken& key) {
        return key.code == event.detail && key.modifiers == (event.state & ownModifiers);
    });
    if (taken == taken_.end() || std::ranges::find(pressed_, *taken) != pressed_.end())
        return;
    pressed_.push_back(*taken);
    Moved(taken->index, true);
}

// By then, the user may have let go of the modifiers.
void XGlobalKeys::release(xcb_keycode_t code) {
    std::vector<std::size_t> released;
    std::erase_if(pressed_, [&](const Taken& key) {
        if (key.code == code)
            released.push_back(key.index);
        return key.code == code;
    });
    for (const std::size_t index : released)
        Moved(index, false);
}

void XGlobalKeys::followLayout() {
    const auto locks = keyboard_->locks();
    try {
        keyboard_->readLayout();
    } catch (const base::Failure&) {
        return; // the server is going
    }
    drain_.start(0);
    if (locks == keyboard_->locks() &&
        std::ranges::equal(combinations_, tried_, {}, [this](const auto& each) { return codesOf(each); }))
        return;
    auto holds = takeAll();
    if (std::exchange(holds_, holds) != holds)
        Changed(holds);
}

void XGlobalKeys::type(base::TextView text) {
    if (typist_)
        return typist_->type(text);
    const base::Text late(text);
    QMetaObject::invokeMethod(
        &drain_, [this, late] { NotTyped(late); }, Qt::QueuedConnection);
}

} // namespace desktop
