#include "editor/spoken_toolbar.h"

#include "base/carry_on.h"
#include "editor/toolbar.h"
#include "lang/command_name.h"

#include <utility>

namespace editor {

using lang::operator""_en;

SpokenToolbar::SpokenToolbar(Form2& form, const EditorKeys& keys, lang::Words& words)
    : form_(form), keys_(keys), words_(words) {
    describe();
    words_.follow([this] { nameControls(); });
}

void SpokenToolbar::describe() {
    using Getter = platform::Setting (platform::RichText::*)() const;
    using platform::ParagraphAlignment;
    form_.Label1.accessible.role = controls::Role::Decoration;
    for (controls::Label& letter : form_.Label3)
        letter.accessible.role = controls::Role::Decoration;
    for (controls::Control& button : form_.Label2)
        button.accessible.role = controls::Role::Button;
    const std::pair<ToolbarButton, Getter> toggles[] = {
        {boldButton, &platform::RichText::SelBold},
        {italicButton, &platform::RichText::SelItalic},
        {underlineButton, &platform::RichText::SelUnderline},
        {strikeButton, &platform::RichText::SelStrikeThru},
        {bulletButton, &platform::RichText::SelBullet},
    };
    for (const auto& [index, getter] : toggles) {
        controls::Accessible& toggle = form_.Label2.at(index).accessible;
        toggle.role = controls::Role::Toggle;
        toggle.refresh = [this, &toggle, state = getter] {
            base::carryOn([&] { toggle.on = (form_.RTB.*state)() == platform::Setting::On; });
        };
    }
    const std::pair<ToolbarButton, ParagraphAlignment> sides[] = {
        {leftButton, ParagraphAlignment::Left},
        {centreButton, ParagraphAlignment::Centre},
        {rightButton, ParagraphAlignment::Right},
    };
    for (const auto& [index, side] : sides) {
        controls::Accessible& toggle = form_.Label2.at(index).accessible;
        toggle.role = controls::Role::Toggle;
        toggle.refresh = [this, &toggle, alignment = side] {
            base::carryOn([&] { toggle.on = form_.RTB.SelAlignment() == alignment; });
        };
    }
}

void SpokenToolbar::nameControls() {
    const std::array<char, 3> letters = keys_.styleLetters();
    const auto style = [&](std::size_t index) {
        return u"Ctrl+" + base::Text(1, static_cast<char16_t>(letters.at(index)));
    };
    const auto entry = [this](int index) { return lang::commandName(form_.Lingua(index)); };
    const std::tuple<ToolbarButton, base::Text, base::Text> rows[] = {
        {newButton, entry(42), u"Ctrl+N"},
        {openButton, entry(43), u""},
        {saveButton, entry(44), u"Ctrl+S"},
        {printButton, entry(46), u"Ctrl+P"},
        {boldButton, words_(u"Bold"_en), style(0)},
        {italicButton, words_(u"Italic"_en), style(1)},
        {underlineButton, words_(u"Underline"_en), style(2)},
        {strikeButton, words_(u"Strike through"_en), u""},
        {leftButton, words_(u"Align left"_en), u""},
        {centreButton, words_(u"Centre"_en), u""},
        {rightButton, words_(u"Align right"_en), u""},
        {largerButton, words_(u"Larger"_en), u""},
        {smallerButton, words_(u"Smaller"_en), u""},
        {colorButton, words_(u"Colour of the text"_en), u""},
        {bulletButton, words_(u"Bullets"_en), u""},
        {undoButton, entry(70), u"Ctrl+Z"},
        {redoButton, entry(82), u"Ctrl+Y"},
    };
    for (const auto& [index, name, key] : rows) {
        controls::Control& button = form_.Label2.at(index);
        button.accessible.name = name;
        button.toolTip = lang::toolTip(key.empty() ? name : name + u" (" + key + u")");
    }
    form_.Combo1.accessible.name = words_(u"Font"_en);
    form_.Combo2.accessible.name = words_(u"Font size"_en);
    form_.RTBPlace.accessible.name = lang::commandName(words_(u"T&ranscript"_en));
}

} // namespace editor
