#include "editor/editor_keys.h"

#include <algorithm>

namespace editor {

namespace {

// Key codes; a letter's code is its upper-case character.
enum Key {
    f1 = 112,
    f3 = 114,
    f4 = 115,
    f5 = 116,
    f6 = 117,
    f7 = 118,
    f8 = 119,
    f9 = 120,
    f10 = 121,
    f11 = 122,
    f12 = 123,
};

constexpr int rightMouseButton = 2;

// Letters that act on release. Their press is suppressed, so the control's own command for them never runs.
bool actsOnRelease(int keyCode) {
    constexpr base::TextView letters = u"XCVZIY";
    return letters.find(static_cast<char16_t>(keyCode)) != base::TextView::npos;
}

constexpr base::TextView italian = u"italiano.lng";

// A command whose room has not been created has no routine and does nothing.
void run(const std::function<void()>& routine) {
    if (routine)
        routine();
}

} // namespace

EditorKeys::EditorKeys(Form2& form, Toolbar& toolbar, player::Form1& player)
    : form_(form), toolbar_(toolbar), player_(player), pressRows_{{{player.mnuAddBM, 'M', true},
                                                                   {player.mnuApri, 'O', true},
                                                                   {player.mnuEsci, 'Q', true},
                                                                   {player.mnuLingua, 'W', true},
                                                                   {player.mnuInfo, f1, true},
                                                                   {player.mnuChiudi, f4, true},
                                                                   {player.mnuDiminuisciVelocità, f6, false},
                                                                   {player.mnuAumentaVelocità, f7, false}}},
      speedRows_{{{player.mnuDiminuisciVelocità, f3, true}, {player.mnuAumentaVelocità, f4, true}}},
      editRows_{{{form.mnuAnnulla, form.mnuAnnulla.Click, 'Z'},
                 {form.mnuRipeti, form.mnuRipeti.Click, 'Y'},
                 {form.mnuCopia, form.mnuCopia.Click, 'C'},
                 {form.mnuIncolla, form.mnuIncolla.Click, 'V'},
                 {form.mnuTaglia, form.mnuTaglia.Click, 'X'}}},
      releaseRows_{{{player.mnuGuida, player.mnuGuida.Click, f1},
                    {player.mnuPlay, player.cmdPlay.Click, f5},
                    {player.mnuIndietro, player.cmdIndietro.Click, f6},
                    {player.mnuAvanti, player.cmdAvanz.Click, f7},
                    {player.mnuBookMark, player.mnuBookMark.Click, f8},
                    {player.mnuImpostaAudio, player.mnuImpostaAudio.Click, f9},
                    {player.mnuTitoloCompleto, player.mnuTitoloCompleto.Click, f11}}} {
    form_.RTB.TakesKey = [this](const platform::KeyEvent& key) { return RTB_TakesKey(key); };
    form_.RTB.KeyDown = [this](platform::KeyEvent& key) { RTB_KeyDown(key); };
    form_.RTB.KeyUp = [this](const platform::KeyEvent& key) { RTB_KeyUp(key); };
    form_.RTB.EditKey = [this](platform::EditCommand command) { RTB_EditKey(command); };
    form_.RTB.MouseDown = [this](int button) { RTB_MouseDown(button); };
    form_.KeyDown = [this](const platform::KeyEvent& key) { Form_KeyDown(key); };
}

bool EditorKeys::RTB_TakesKey(const platform::KeyEvent& key) const {
    if (key.keyCode >= f1 && key.keyCode <= f12)
        return true;
    return key.shift == platform::controlKey && (pressRow(key.keyCode) || actsOnRelease(key.keyCode));
}

void EditorKeys::RTB_KeyDown(platform::KeyEvent& key) {
    if (key.shift == platform::controlKey) {
        if (runPressCommand(key))
            return;
        if (actsOnRelease(key.keyCode))
            key = {};
    }
    if (key.keyCode == f10 && key.shift == 0)
        form_.focusControls();
    for (const PressRow& row : speedRows_) {
        if (row.keyCode == key.keyCode) {
            key.keyCode = 0;
            run(row.item.Click);
            return;
        }
    }
}

const EditorKeys::PressRow* EditorKeys::pressRow(int keyCode) const {
    const auto row = std::find_if(pressRows_.begin(), pressRows_.end(),
                                  [&](const PressRow& each) { return each.keyCode == keyCode; });
    return row == pressRows_.end() ? nullptr : &*row;
}

// The command may open a modal window, which then receives the release; so the key is consumed before it
// runs.
bool EditorKeys::runPressCommand(platform::KeyEvent& key) {
    const PressRow* const row = pressRow(key.keyCode);
    if (!row)
        return false;
    key.shift = 0;
    if (row->consumed)
        key.keyCode = 0;
    run(row->item.Click);
    return true;
}

void EditorKeys::RTB_KeyUp(const platform::KeyEvent& key) {
    if (key.shift == platform::controlKey) {
        runEditCommand(key.keyCode);
        runStyleCommand(key.keyCode);
    }
    runReleaseCommand(key.keyCode);
}

// The control's own commands handle only one form of a copy, and would wait for a hanging clipboard owner.
void EditorKeys::RTB_EditKey(platform::EditCommand command) {
    using platform::EditCommand;
    const std::pair<EditCommand, const Routine&> rows[] = {
        {EditCommand::Undo, form_.mnuAnnulla.Click},  {EditCommand::Redo, form_.mnuRipeti.Click},
        {EditCommand::Cut, form_.mnuTaglia.Click},    {EditCommand::Copy, form_.mnuCopia.Click},
        {EditCommand::Paste, form_.mnuIncolla.Click},
    };
    for (const auto& [meant, routine] : rows)
        if (meant == command)
            run(routine);
}

void EditorKeys::runEditCommand(int keyCode) {
    for (const ReleaseRow& row : editRows_)
        if (row.keyCode == keyCode)
            run(row.command);
}

// The letters depend only on the name of the language file. In Italian, Ctrl+S saves on its press and
// underlines on its release.
std::array<char, 3> EditorKeys::styleLetters() const {
    if (base::lowered(form_.Lingua.FileLingua) == italian)
        return {'G', 'I', 'S'};
    return {'B', 'I', 'U'};
}

void EditorKeys::runStyleCommand(int keyCode) {
    static constexpr std::array buttons = {boldButton, italicButton, underlineButton};
    const std::array<char, 3> letters = styleLetters();
    for (std::size_t i = 0; i < buttons.size(); ++i)
        if (keyCode == letters[i])
            toolbar_.Label2_Click(buttons[i]);
}

// Applies with any modifier: Ctrl+F6 slows down on its press and steps back on its release.
void EditorKeys::runReleaseCommand(int keyCode) {
    for (const ReleaseRow& row : releaseRows_)
        if (row.keyCode == keyCode)
            run(row.command);
}

std::vector<TextKey> EditorKeys::keys() const {
    std::vector<TextKey> all;
    const auto add = [&all](std::string modifier, int keyCode, const controls::MenuItem& item) {
        const bool isFunctionKey = keyCode >= f1 && keyCode <= f12;
        all.push_back({std::move(modifier) + (isFunctionKey ? 'F' + std::to_string(keyCode - f1 + 1)
                                                            : std::string(1, static_cast<char>(keyCode))),
                       &item});
    };
    for (const ReleaseRow& row : releaseRows_)
        add("", row.keyCode, row.item);
    for (const PressRow& row : speedRows_)
        add("", row.keyCode, row.item);
    for (const PressRow& row : pressRows_)
        add("Ctrl+", row.keyCode, row.item);
    for (const ReleaseRow& row : editRows_)
        add("Ctrl+", row.keyCode, row.item);
    return all;
}

void EditorKeys::RTB_MouseDown(int button) {
    if (button == rightMouseButton)
        form_.PopupMenu(form_.mnuModifica);
}

void EditorKeys::Form_KeyDown(const platform::KeyEvent& key) {
    if (key.keyCode == platform::escapeKey)
        run(player_.mnuEsci.Click);
}

} // namespace editor
