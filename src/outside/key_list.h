#pragma once

#include "controls/controls.h"
#include "lang/words.h"

#include <functional>
#include <string>
#include <vector>

namespace outside {

// The list of keys as data: a resizable window. A row holds a key, a tab and what it does; a heading begins
// with a tab. The desktop positions the controls.
struct KeysWindow : controls::Window {
    KeysWindow() : Window("KeysWindow", {0, 0, 7200, 7800}) { cmdClose.isCancel = true; }

    controls::Label lblSearch{"lblSearchKeys", {}};
    controls::TextBox txtSearch{"txtSearchKeys", {}};
    controls::ListBox List1{"lstKeys", {}};
    controls::CommandButton cmdPrint{"cmdPrintKeys", {}};
    controls::CommandButton cmdClose{"cmdCloseKeys", {}};
};

// Keys that belong together.
struct KeyGroup {
    struct Row {
        base::Text keys; // such as "Ctrl+F6"
        base::Text command;
    };
    base::Text heading;
    std::vector<Row> rows;
};

// The command "Keys" and its window, which lists all keys, searches in them and prints them.
class KeyList {
public:
    // `collect` returns the keys as they are now, in the program's language.
    KeyList(lang::Words& words, std::function<std::vector<KeyGroup>()> collect);

    controls::MenuItem& command() { return mnuKeys_; }

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(KeysWindow&)> Load = [](KeysWindow&) {};
    // Prints this RTF under this name.
    std::function<void(const base::Text& name, const std::string& source)> Print = [](const auto&,
                                                                                      const auto&) {};

    KeysWindow form;

private:
    void open();
    void fill();
    std::string source() const;

    std::function<std::vector<KeyGroup>()> collect_;
    controls::MenuItem mnuKeys_;
    std::vector<KeyGroup> groups_;
};

} // namespace outside
