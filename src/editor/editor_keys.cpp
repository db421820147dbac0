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
    : form_(form), toolbar_(toolbar),
      player_(player), pressRows_{{{player.mnuAddBM.Click, 'M', true},
                                   {player.mnuApri.Click, 'O', true},
                                   {player.mnuEsci.Click, 'Q', true},
                                   {player.mnuLingua.Click, 'W', true},
                                   {player.mnuInfo.Click, f1, true},
                                   {player.mnuChiudi.Click, f4, true},
                                   {player.mnuDiminuisciVelocità.Click, f6, false},
                                   {player.mnuAumentaVelocità.Click, f7, false}}} {
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
    if (key.keyCode != f3 && key.keyCode != f4)
        return;
    run(key.keyCode == f3 ? player_.mnuDiminuisciVelocità.Click : player_.mnuAumentaVelocità.Click);
    key.keyCode = 0;
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
    run(row->command);
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
    const std::pair<int, const Routine&> rows[] = {
        {'Z', form_.mnuAnnulla.Click}, {'Y', form_.mnuRipeti.Click}, {'C', form_.mnuCopia.Click},
        {'V', form_.mnuIncolla.Click}, {'X', form_.mnuTaglia.Click},
    };
    for (const auto& [code, command] : rows)
        if (code == keyCode)
            run(command);
}

// The letters depend only on the name of the language file. In Italian, Ctrl+S saves on its press and
// underlines on its release.
void EditorKeys::runStyleCommand(int keyCode) {
    const bool isItalian = base::lowered(form_.Lingua.FileLingua) == italian;
    if (keyCode == 'I')
        toolbar_.Label2_Click(italicButton);
    if (keyCode == (isItalian ? 'G' : 'B'))
        toolbar_.Label2_Click(boldButton);
    if (keyCode == (isItalian ? 'S' : 'U'))
        toolbar_.Label2_Click(underlineButton);
}

// Applies with any modifier: Ctrl+F6 slows down on its press and steps back on its release.
void EditorKeys::runReleaseCommand(int keyCode) {
    const std::pair<int, const Routine&> rows[] = {
        {f1, player_.mnuGuida.Click},           {f5, player_.cmdPlay.Click},
        {f6, player_.cmdIndietro.Click},        {f7, player_.cmdAvanz.Click},
        {f8, player_.mnuBookMark.Click},        {f9, player_.mnuImpostaAudio.Click},
        {f11, player_.mnuTitoloCompleto.Click},
    };
    for (const auto& [code, command] : rows)
        if (code == keyCode)
            run(command);
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
