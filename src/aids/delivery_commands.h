#pragma once

#include "aids/delivery_check.h"
#include "aids/delivery_window.h"
#include "editor/form2.h"
#include "lang/words.h"

#include <functional>
#include <set>
#include <vector>

namespace aids {

// User options for the check before delivery.
struct DeliveryOptions {
    base::Text unclear = u"[unclear,[inaudible,???,(...),(\u2026)"; // marks, separated by commas
};

// The command "Check before delivery" and its window: lists what was found, shows it in the text, and checks
// again when the text has changed.
class DeliveryCommands {
public:
    DeliveryCommands(editor::Form2& editor, editor::UndoRedo& text, DeliveryCheck& check,
                     const DeliveryOptions& options, lang::Words& words, platform::EventLoop& loop);

    std::vector<controls::MenuItem*> commands() { return {&mnuCheck_}; }

    // The command is in the menu.
    void start();
    // The exit goes.
    void leave();
    // The text or what counts as misspelled has changed.
    void changed();

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(DeliveryWindow&)> Load = [](DeliveryWindow&) {};

    DeliveryWindow form;

private:
    void open();
    void close();
    void check();
    void translate();
    void showState();
    void fill();
    void go();
    void hide();
    // The finding of the selected row; null for a heading or none.
    const Finding* chosen() const;
    base::Text heading(FindingKind kind, std::size_t count) const;
    static base::Text row(const Finding& finding);
    static base::Text key(const Finding& finding);
    // Where the finding is now; nothing if it is gone.
    std::optional<std::int32_t> place(const Finding& finding);

    editor::Form2& editor_;
    editor::UndoRedo& text_;
    DeliveryCheck& check_;
    const DeliveryOptions& options_;
    lang::Words& words_;
    controls::MenuItem mnuCheck_;
    controls::Timer again_;
    std::vector<const Finding*> rows_; // null for a heading
    std::set<base::Text> hidden_;      // their keys
};

} // namespace aids
