#include "app/safety_windows.h"

#include "app/place_over.h"

namespace app {

namespace {

constexpr double step = 450;      // twips between the editor's top left corner and the window's
constexpr double belowText = 600; // twips from the editor's lower edge up to the text, at least

} // namespace

SafetyWindows::SafetyWindows(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                             Parts parts)
    : form1_(form1), form2_(editor.form()),
      quietLine_(
          desktop.eventLoop(), parts.notices, parts.words, form1.screen,
          [this]() -> const controls::Window& {
              return form2_.visible && !form1_.active ? static_cast<controls::Window&>(form2_) : form1_;
          },
          [this] { return visibleText(); }),
      whatHappened_(parts.notices, parts.words),
      earlierVersions_(parts.archive, parts.options, parts.words, desktop.dialogs(), parts.files) {
    menu.add({earlierVersions_.commands().front(), whatHappened_.commands().front()});
    earlierVersions_.OpenAsNew = [&editor, &form1](const base::Text& path) {
        if (!editor.document().openCopy(path))
            return false;
        if (!editor.form().visible)
            form1.mnuMostraNascondi.Click();
        editor.form().setFocus();
        editor.form().RTB.SetFocus();
        return true;
    };
    earlierVersions_.Load = [this, &desktop](safety::VersionsWindow& form) {
        placeOver(form2_, form1_, step, form);
        desktop.show(form);
    };
    quietLine_.Load = [&desktop](safety::QuietLineWindow& form) { desktop.show(form); };
    whatHappened_.Load = [this, &desktop](safety::NoticesWindow& form) {
        placeOver(form2_, form1_, step, form);
        desktop.show(form);
    };
}

std::optional<controls::Box> SafetyWindows::visibleText() const {
    if (!form2_.visible || form2_.windowState == controls::WindowState::Minimised)
        return std::nullopt;
    const controls::Control& text = form2_.RTBPlace;
    return controls::Box{form2_.left + text.left, form2_.top + text.top, text.width,
                         form2_.height - text.top - belowText};
}

void SafetyWindows::leave() {
    quietLine_.form.visible = false;
    whatHappened_.form.visible = false;
    earlierVersions_.form.visible = false;
}

} // namespace app
