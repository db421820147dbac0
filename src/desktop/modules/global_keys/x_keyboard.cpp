#include "x_keyboard.h"

#include "base/failure.h"

#include <algorithm>
#include <cstdlib>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

// The C header has a member named `explicit`.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define explicit explicitMember
#include <xcb/xkb.h>
#undef explicit

namespace desktop {

namespace {

constexpr std::uint16_t keyboard = XCB_XKB_ID_USE_CORE_KBD;

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, &std::free};
}

} // namespace

void XKeyboard::Release::operator()(xcb_connection_t* connection) const {
    xcb_disconnect(connection);
}
void XKeyboard::Release::operator()(xkb_context* context) const {
    xkb_context_unref(context);
}
void XKeyboard::Release::operator()(xkb_keymap* keymap) const {
    xkb_keymap_unref(keymap);
}
void XKeyboard::Release::operator()(xkb_state* state) const {
    xkb_state_unref(state);
}

XKeyboard::XKeyboard()
    : connection_(xcb_connect(nullptr, nullptr)), context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS)) {
    xcb_connection_t* const x = connection_.get();
    if (xcb_connection_has_error(x))
        throw base::Failure("no X server");
    root_ = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
    if (!context_ || xkb_x11_setup_xkb_extension(
                         x, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                         XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &firstEvent_, nullptr) == 0)
        throw base::Failure("the X server has no keyboard extension");
    device_ = xkb_x11_get_core_keyboard_device_id(x);
    // A held key is not released again and again.
    constexpr auto flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_discard_reply(x, xcb_xkb_per_client_flags(x, keyboard, flag, flag, 0, 0, 0).sequence);
    constexpr auto events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                            XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr auto parts =
        XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events_details_t details{};
    details.affectState = details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(x, keyboard, events, 0, XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY, parts, parts,
                              &details);
    const xcb_query_extension_reply_t* const typing = xcb_get_extension_data(x, &xcb_test_id);
    hasTyping_ = typing && typing->present;
    readLayout();
}

XKeyboard::~XKeyboard() = default;

void XKeyboard::readLayout() {
    keymap_.reset(xkb_x11_keymap_new_from_device(context_.get(), connection_.get(), device_,
                                                 XKB_KEYMAP_COMPILE_NO_FLAGS));
    state_.reset(keymap_ ? xkb_x11_state_new_from_device(keymap_.get(), connection_.get(), device_)
                         : nullptr);
    if (!state_)
        throw base::Failure("the keyboard layout cannot be read");
    readLocks();
}

bool XKeyboard::isLayoutChange(const xcb_generic_event_t& event) const {
    return (event.response_type & 0x7FU) == firstEvent_;
}

// The bits of Num Lock and Scroll Lock differ between layouts.
void XKeyboard::readLocks() {
    const auto map = owned(xcb_get_modifier_mapping_reply(
        connection_.get(), xcb_get_modifier_mapping(connection_.get()), nullptr));
    std::vector<std::uint16_t> bits{XCB_MOD_MASK_LOCK};
    const auto* const codes = map ? xcb_get_modifier_mapping_keycodes(map.get()) : nullptr;
    for (unsigned bit = 3; map && bit < 8; ++bit) {
        for (unsigned i = 0; i < map->keycodes_per_modifier; ++i) {
            const xcb_keycode_t code = codes[bit * map->keycodes_per_modifier + i];
            const xkb_keysym_t symbol =
                code ? xkb_state_key_get_one_sym(state_.get(), code) : XKB_KEY_NoSymbol;
            if (symbol == XKB_KEY_Num_Lock || symbol == XKB_KEY_Scroll_Lock) {
                bits.push_back(static_cast<std::uint16_t>(1U << bit));
                break;
            }
        }
    }
    locks_.clear();
    for (unsigned chosen = 0; chosen < 1U << bits.size(); ++chosen) {
        std::uint16_t all = 0;
        for (std::size_t i = 0; i < bits.size(); ++i)
            if ((chosen >> i & 1U) != 0)
                all |= bits[i];
        locks_.push_back(all);
    }
}

bool XKeyboard::carries(xkb_keycode_t code, xkb_layout_index_t layout, const KeyName& name) const {
    // With Shift, a key is also known by what it types then.
    const xkb_level_index_t levels = (name.modifiers & XCB_MOD_MASK_SHIFT) != 0 ? 2 : 1;
    for (xkb_level_index_t level = 0; level < levels; ++level) {
        const xkb_keysym_t* found = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap_.get(), code, layout, level, &found);
        if (std::find(found, found + count, name.symbol) != found + count)
            return true;
    }
    return false;
}

std::vector<xcb_keycode_t> XKeyboard::codesOf(const KeyName& name) const {
    const xkb_layout_index_t chosen = xkb_state_serialize_layout(state_.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    std::vector<xcb_keycode_t> here;
    std::vector<xcb_keycode_t> elsewhere;
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(keymap_.get()), 255);
    for (xkb_keycode_t code = xkb_keymap_min_keycode(keymap_.get()); code <= last; ++code) {
        const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(keymap_.get(), code);
        if (layouts > 0 && carries(code, chosen % layouts, name))
            here.push_back(static_cast<xcb_keycode_t>(code));
        for (xkb_layout_index_t layout = 0; layout < layouts; ++layout)
            if (carries(code, layout, name)) {
                elsewhere.push_back(static_cast<xcb_keycode_t>(code));
                break;
            }
    }
    if (here.empty() && elsewhere.empty())
        if (const xkb_keycode_t code = codeByPlace(name.symbol))
            return {static_cast<xcb_keycode_t>(code)};
    return here.empty() ? elsewhere : here;
}

XKeyboard::Stroke XKeyboard::strokeOf(char32_t character) const {
    const xkb_keysym_t wanted = xkb_utf32_to_keysym(character);
    const auto part = [this](xkb_state_component component) {
        return xkb_state_serialize_mods(state_.get(), component);
    };
    const xkb_mod_mask_t locked = part(XKB_STATE_MODS_LOCKED);
    const xkb_layout_index_t layout = xkb_state_serialize_layout(state_.get(), XKB_STATE_LAYOUT_EFFECTIVE);
    const std::unique_ptr<xkb_state, Release> typing(xkb_state_new(keymap_.get()));
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(keymap_.get()), 255);
    for (const bool shift : {false, true}) {
        xkb_state_update_mask(typing.get(), shift ? XCB_MOD_MASK_SHIFT : 0, 0, locked, 0, 0, layout);
        for (xkb_keycode_t code = xkb_keymap_min_keycode(keymap_.get()); code <= last; ++code)
            if (xkb_state_key_get_one_sym(typing.get(), code) == wanted)
                return {static_cast<xcb_keycode_t>(code), shift};
    }
    return {};
}

bool XKeyboard::hasCapsLock() const {
    return xkb_state_mod_name_is_active(state_.get(), XKB_MOD_NAME_CAPS, XKB_STATE_MODS_LOCKED) > 0;
}

std::vector<xcb_keycode_t> XKeyboard::unusedCodes() const {
    std::vector<xcb_keycode_t> codes;
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(keymap_.get()), 255);
    for (xkb_keycode_t code = xkb_keymap_min_keycode(keymap_.get()); code <= last; ++code)
        if (xkb_keymap_num_layouts_for_key(keymap_.get(), code) == 0)
            codes.push_back(static_cast<xcb_keycode_t>(code));
    return codes;
}

std::uint32_t XKeyboard::heldModifiers() const {
    const auto state = owned(
        xcb_xkb_get_state_reply(connection_.get(), xcb_xkb_get_state(connection_.get(), keyboard), nullptr));
    return state ? state->baseMods : 0;
}

} // namespace desktop
