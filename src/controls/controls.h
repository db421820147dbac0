// The state of windows as plain data. The program's routines work on this data; a window on the screen
// displays it and reports the user's actions. Positions and sizes are twips from the window's inner top left
// corner.
#pragma once

#include "base/text.h"
#include "controls/accessible.h"
#include "controls/property.h"
#include "platform/key_event.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

namespace controls {

// A colour as 0xRRGGBB.
using Color = std::uint32_t;

constexpr Color rgb(unsigned red, unsigned green, unsigned blue) {
    return red << 16U | green << 8U | blue;
}

inline constexpr double twipsPerPixel = 15;

// The initial position and size of a control, in twips.
struct Box {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

// A mouse event on a control. `button` is 1 left, 2 right, 4 middle; in a move event, the sum of the buttons
// held. The position is in twips relative to the control.
struct MouseEvent {
    int button = 0;
    double x = 0;
    double y = 0;
};

enum class Pointer { Default = 0, Hourglass = 11 };

// The properties of every control. `name` is its given name in UTF-8, by which tests find it on the screen.
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
    Accessible accessible{this};

    std::function<void()> Click; // empty: a click does nothing
    std::function<void()> DblClick = [] {};
    std::function<void(const MouseEvent&)> MouseDown = [](const MouseEvent&) {};
    std::function<void(const MouseEvent&)> MouseMove = [](const MouseEvent&) {};
    std::function<void(const MouseEvent&)> MouseUp = [](const MouseEvent&) {};
};

enum class Alignment { Left, Centre, Right };

// One or more lines of text. "&" in the caption marks a mnemonic, "&&" shows an ampersand. With `autoSize`
// the label is always as wide as its caption once it is displayed.
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
    bool showsPath = false; // too long a path is elided in the middle, so that the file name stays visible
    const Control* labels = nullptr; // the control that this label names
};

// A picture, loaded from its file when `picture` changes. If the file cannot be read, the previous picture
// stays.
struct Picture : Control {
    using Control::Control;

    Property<base::Text> picture{this}; // path
};

// A picture that is clipped at the control's width instead of stretched: the fill of a bar.
struct Fill : Picture {
    using Picture::Picture;
};

// A clickable picture. It is offered if it is enabled and has a routine; otherwise it is shown faded.
struct PictureButton : Picture {
    using Picture::Picture;

    bool offered() const { return enabled && Click; }
};

// A text box with a drop-down list. Choosing an entry calls `Change`, then `Click`.
struct ComboBox : Control {
    using Control::Control;

    Property<std::vector<base::Text>> items{this};
    Property<base::Text> text{this};
    bool editable = true; // the user may type text that is not in the list

    // Index of the text in the list; -1 if it is not an entry.
    int listIndex() const {
        const auto hit = std::find(items->begin(), items->end(), text.get());
        return hit == items->end() ? -1 : static_cast<int>(hit - items->begin());
    }

    // Gives the box the keyboard focus; set by the window that displays it.
    std::function<void()> setFocus = [] {};
    // The user typed or chose an entry; `text` is already updated.
    std::function<void()> Change = [] {};
    // A text was dropped on the box, which does not change by itself. Empty: the box handles drops in its
    // default way.
    std::function<void(const base::Text&)> Drop;
};

// A single-line text box. The selection counts UTF-16 units.
struct TextBox : Control {
    using Control::Control;

    Property<base::Text> text{this};
    Property<int> selStart{this, 0};
    Property<int> selLength{this, 0};
    Property<double> fontSize{this, 9.0}; // points

    // Gives the box the keyboard focus; set by the window that displays it.
    std::function<void()> setFocus = [] {};
    // The user typed; `text` is already updated.
    std::function<void()> Change = [] {};
};

// A list with at most one selected entry. It does not sort its entries.
struct ListBox : Control {
    using Control::Control;

    Property<std::vector<base::Text>> items{this};
    Property<int> listIndex{this, -1}; // selected entry; -1: none

    std::function<void()> setFocus = [] {};
    std::function<void(platform::KeyEvent&)> KeyDown = [](platform::KeyEvent&) {};
    std::function<void(const platform::KeyEvent&)> KeyUp = [](const platform::KeyEvent&) {};
};

// A push button. Enter also presses the default button, Escape the cancel button.
struct CommandButton : Control {
    using Control::Control;

    Property<base::Text> caption{this};
    bool isDefault = false;
    bool isCancel = false;
    std::function<void()> setFocus = [] {};
};

// A check box. `Click` is called after `value` has changed.
struct CheckBox : Control {
    using Control::Control;

    Property<base::Text> caption{this};
    Property<bool> value{this, false};
};

// A menu item: a command, a separator (caption "-") or, with items of its own, a submenu. A command is
// offered if it is enabled and has a routine.
struct MenuItem : Observed {
    explicit MenuItem(std::string_view givenName, base::Text design = u"-", std::string_view keys = {})
        : name(givenName), shortcut(keys), caption(this, std::move(design)) {}

    std::string_view name;
    std::string_view shortcut; // such as "Ctrl+O"; empty for none
    bool repeats = false;      // a held shortcut repeats the command
    Property<base::Text> caption;
    Property<bool> checked{this, false};
    Property<bool> enabled{this, true};
    Property<bool> visible{this, true};
    std::vector<MenuItem*> items;

    bool offered() const { return enabled && (Click || !items.empty()); }

    std::function<void()> Click;
};

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2, FullScreen = 3 };

// A window. Left, top, width and height are those of its outer frame; the client size is fixed by the design.
struct Window : Control {
    Window(std::string_view givenName, Box place) : Control(givenName, place) { visible = false; }

    Property<base::Text> caption{this};
    Property<base::Text> icon{this}; // picture file
    Property<bool> topmost{this, false};
    Property<bool> acceptsDrops{this, false};
    Property<WindowState> windowState{this, WindowState::Normal};

    // Gives the window the keyboard focus; set by the window that displays it.
    std::function<void()> setFocus = [] {};
    // Gives it to the first button of the skin or toolbar; set likewise.
    std::function<void()> focusControls = [] {};
    // Has screen readers speak this text; set likewise.
    std::function<void(const base::Text&)> announce = [](const base::Text&) {};
    // The user wants to continue in the next group of controls (F10).
    std::function<void()> NextGroup = [] {};
    std::function<void()> Resize = [] {};
    // The window manager's frame is unknown until the window is shown, and estimated until then. Called once
    // when it is known: width and height already hold the real size, which exceeds the estimate by these
    // twips.
    std::function<void(double wider, double higher)> FrameKnown = [](double, double) {};
    // A key that no control of the window has handled.
    std::function<void(platform::KeyEvent&)> KeyDown = [](platform::KeyEvent&) {};
    std::function<void(const platform::KeyEvent&)> KeyUp = [](const platform::KeyEvent&) {};
    bool active = false; // this window is in front and has the keyboard focus
    // Opens a menu at the mouse pointer: one of the window's, or another one for this time, which may have
    // items of those; set by the window that displays it.
    std::function<void(MenuItem&)> PopupMenu = [](MenuItem&) {};
    // The window has become, or is no longer, the active one.
    std::function<void()> Activate = [] {};
    std::function<void()> Deactivate = [] {};
    // Shows the window modally and returns when it is hidden again; timers keep running meanwhile. Set by the
    // window that displays it.
    std::function<void()> showModal = [] {};
    // Files were dropped on the window: their paths, at least one.
    std::function<void(const std::vector<base::Text>&)> Drop = [](const auto&) {};
    // The user wants to close the window. Returns true to refuse.
    std::function<bool()> Unload = [] { return false; };
};

// The screen: size of the first monitor in twips without the system's bars, and the pointer shown by all
// windows.
struct Screen : Observed {
    Property<double> width{this, 0};
    Property<double> height{this, 0};
    // The work area (without bars) of the monitor that most of this window lies on, or of the first monitor
    // if it lies on none. Set by the desktop.
    std::function<Box(const Control& window)> areaOf = [this](const Control&) {
        return Box{0, 0, width, height};
    };
    // The frames of all visible windows and dialogs of the program (twips). Set by the desktop.
    std::function<std::vector<Box>()> occupied = [] { return std::vector<Box>(); };
    Property<Pointer> mousePointer{this, Pointer::Default};
};

} // namespace controls
