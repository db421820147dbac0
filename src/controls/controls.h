// The state of a window as plain data. The routines of the program act on these; a window on a screen shows
// them and reports what the user did to them. Positions and sizes are twips, counted from the inner top left
// of the window.
#pragma once

#include "base/text.h"
#include "controls/property.h"
#include "platform/key_event.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace controls {

// A colour as red, green and blue in one number, red highest.
using Color = std::uint32_t;

constexpr Color rgb(unsigned red, unsigned green, unsigned blue) {
    return red << 16U | green << 8U | blue;
}

inline constexpr double twipsPerPixel = 15;

// The design place of a control, in twips.
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

// A mouse event on a control: the button of the event (1 left, 2 right, 4 middle; on a move the sum of those
// held), and the place in twips relative to the control.
struct MouseEvent {
    int button = 0;
    double x = 0;
    double y = 0;
};

enum class Pointer { Default = 0, Hourglass = 11 };

// What every control has. `name` is the given name in UTF-8, by which tests find the control on the screen.
struct Control : Observed {
    Control(std::string_view givenName, Box place)
        : name(givenName), left(this, place.left), top(this, place.top), width(this, place.width),
          height(this, place.height) {}

    std::string_view name;
    Property<double> left;
    Property<double> top;
    Property<double> width;
    Property<double> height;
    Property<bool> visible{this, true};
    Property<bool> enabled{this, true};
    Property<base::Text> tag{this};
    Property<base::Text> toolTip{this};
    Property<base::Text> pointerIcon{
        this}; // picture file of the pointer over the control; empty: the usual one

    std::function<void()> Click; // empty: nothing happens on a click
    std::function<void()> DblClick = [] {};
    std::function<void(const MouseEvent&)> MouseDown = [](const MouseEvent&) {};
    std::function<void(const MouseEvent&)> MouseMove = [](const MouseEvent&) {};
    std::function<void(const MouseEvent&)> MouseUp = [](const MouseEvent&) {};
};

enum class Alignment { Left, Centre, Right };

// A line or a few lines of text. A "&" in its caption is a mnemonic, "&&" shows one. One that sizes itself is
// always as wide as its caption, as soon as somebody shows it.
struct Label : Control {
    using Control::Control;

    Property<base::Text> caption{this};
    Property<base::Text> fontName{this, u"Arial"};
    Property<double> fontSize{this, 9.0}; // points
    Property<bool> fontBold{this, false};
    Property<bool> fontItalic{this, false};
    Property<bool> fontUnderline{this, false};
    Property<bool> fontStrikethru{this, false};
    Property<Color> foreColor{this, rgb(0, 0, 0)};
    Property<Alignment> alignment{this, Alignment::Left};
    bool autoSize = false;
    bool showsPath = false; // one that is too long loses its middle, so that the file's name is still there
};

// A picture, read from its file when `picture` changes. A file that cannot be read leaves what was shown
// before.
struct Picture : Control {
    using Control::Control;

    Property<base::Text> picture{this}; // path
};

// A picture that is cut off at the width of its control, not stretched: the fill of a bar.
struct Fill : Picture {
    using Picture::Picture;
};

// A picture that is pressed. It is offered when it is enabled and a routine stands behind it; else it is
// shown faded.
struct PictureButton : Picture {
    using Picture::Picture;

    bool offered() const { return enabled && Click; }
};

// A box for text over a list to choose from. `Click` is told when an entry was chosen, after `Change`.
struct ComboBox : Control {
    using Control::Control;

    Property<std::vector<base::Text>> items{this};
    Property<base::Text> text{this};
    bool editable = true; // the text may be one that is not in the list

    // Place of the text in the list; -1 when it was typed and is no entry.
    int listIndex() const {
        const auto hit = std::find(items->begin(), items->end(), text.get());
        return hit == items->end() ? -1 : static_cast<int>(hit - items->begin());
    }

    // Gives the box the keyboard; the one who shows it fills this in.
    std::function<void()> setFocus = [] {};
    // The user typed or chose: `text` holds it already.
    std::function<void()> Change = [] {};
    // A text was dropped on the box: it replaces nothing by itself. Empty: the box takes drops in its own
    // way.
    std::function<void(const base::Text&)> Drop;
};

// A box for one line of text. The selection counts UTF-16 units.
struct TextBox : Control {
    using Control::Control;

    Property<base::Text> text{this};
    Property<int> selStart{this, 0};
    Property<int> selLength{this, 0};
    Property<double> fontSize{this, 9.0}; // points

    // Gives the box the keyboard; the one who shows it fills this in.
    std::function<void()> setFocus = [] {};
    // The user typed: `text` holds it already.
    std::function<void()> Change = [] {};
};

// A list with one entry chosen; it keeps the order in which it is given.
struct ListBox : Control {
    using Control::Control;

    Property<std::vector<base::Text>> items{this};
    Property<int> listIndex{this, -1}; // entry chosen; -1: none

    std::function<void()> setFocus = [] {};
    std::function<void(platform::KeyEvent&)> KeyDown = [](platform::KeyEvent&) {};
    std::function<void(const platform::KeyEvent&)> KeyUp = [](const platform::KeyEvent&) {};
};

// A button with words on it. The default one is also pressed by Enter, the cancel one by Escape.
struct CommandButton : Control {
    using Control::Control;

    Property<base::Text> caption{this};
    bool isDefault = false;
    bool isCancel = false;
    std::function<void()> setFocus = [] {};
};

// A box to tick. `Click` is told after the tick has changed.
struct CheckBox : Control {
    using Control::Control;

    Property<base::Text> caption{this};
    Property<bool> value{this, false};
};

// An item of a menu: a command, a separator (caption "-") or, with items of its own, a menu. A command is
// offered when it is enabled and a routine stands behind it.
struct MenuItem : Observed {
    explicit MenuItem(std::string_view givenName, base::Text design = u"-", std::string_view keys = {})
        : name(givenName), shortcut(keys), caption(this, std::move(design)) {}

    std::string_view name;
    std::string_view shortcut; // such as "Ctrl+O"; empty for none
    bool repeats = false;      // a held shortcut runs the command again and again
    Property<base::Text> caption;
    Property<bool> checked{this, false};
    Property<bool> enabled{this, true};
    Property<bool> visible{this, true};
    std::vector<MenuItem*> items;

    bool offered() const { return enabled && (Click || !items.empty()); }

    std::function<void()> Click;
};

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2, FullScreen = 3 };

// A window. Left, top, width and height are those of its frame on the screen; the client size is design.
struct Window : Control {
    Window(std::string_view givenName, Box place) : Control(givenName, place) { visible = false; }

    Property<base::Text> caption{this};
    Property<base::Text> icon{this}; // picture file
    Property<bool> topmost{this, false};
    Property<bool> acceptsDrops{this, false};
    Property<WindowState> windowState{this, WindowState::Normal};

    // Gives the window the keyboard; the one who shows it fills this in.
    std::function<void()> setFocus = [] {};
    std::function<void()> Resize = [] {};
    // What the window manager adds is not known before a window is shown, and guessed until then. Told once,
    // when it is known: the size of the window, which holds already, is larger by this than it was taken for.
    std::function<void(double wider, double higher)> FrameKnown = [](double, double) {};
    // A key that no control of the window took.
    std::function<void(platform::KeyEvent&)> KeyDown = [](platform::KeyEvent&) {};
    std::function<void(const platform::KeyEvent&)> KeyUp = [](const platform::KeyEvent&) {};
    bool active = false; // the window in front, which has the keyboard
    // Opens one of the window's menus at the pointer; the one who shows the window fills this in.
    std::function<void(MenuItem&)> PopupMenu = [](MenuItem&) {};
    // The window became the active one, or is that no more.
    std::function<void()> Activate = [] {};
    std::function<void()> Deactivate = [] {};
    // Makes the window visible and returns when it is hidden again; timers run on meanwhile, the other
    // windows take no input. The one who shows it fills this in.
    std::function<void()> showModal = [] {};
    // Files were dropped on the window: their paths, at least one.
    std::function<void(const std::vector<base::Text>&)> Drop = [](const auto&) {};
    // The user asks for the window to be closed: true when that is refused.
    std::function<bool()> Unload = [] { return false; };
};

// The screen: the size of the first one in twips without the system's own bars, and the pointer that all
// windows show.
struct Screen : Observed {
    Property<double> width{this, 0};
    Property<double> height{this, 0};
    // The area without bars of the screen that most of this window lies on; of the first one where it lies on
    // none. Whoever knows the screens fills this in.
    std::function<Box(const Control& window)> areaOf = [this](const Control&) {
        return Box{0, 0, width, height};
    };
    Property<Pointer> mousePointer{this, Pointer::Default};
};

} // namespace controls
