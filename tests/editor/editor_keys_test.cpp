#include "editor/editor_keys.h"
#include "editor/time_stamp.h"
#include "fakes/editor_bench.h"

// Every command logs its name; a style logs what it did to the text.
struct EditorKeysTest : fakes::EditorBench {
    EditorKeysTest() {
        for (const std::vector<controls::MenuItem*>& bar : {form1.menuBar, form.menuBar})
            for (const controls::MenuItem* menu : bar)
                for (controls::MenuItem* item : menu->items)
                    item->Click = [this, item] { text.commands.emplace_back(item->name); };
        form1.mnuDiminuisciVelocità.Click = [this] { text.commands.emplace_back("slower"); };
        form1.mnuAumentaVelocità.Click = [this] { text.commands.emplace_back("faster"); };
        for (controls::PictureButton* button : {&form1.cmdPlay, &form1.cmdIndietro, &form1.cmdAvanz})
            button->Click = [this, button] { text.commands.emplace_back(button->name); };
    }
    // The commands logged since the last call.
    std::string told() {
        std::string all;
        for (const std::string& command : std::exchange(text.commands, {}))
            all += command + ' ';
        return all;
    }
    // The commands that a key press runs, and what remains of the key event.
    std::string press(int keyCode, int shift) {
        platform::KeyEvent key{keyCode, shift};
        text.KeyDown(key);
        return told() + std::to_string(key.keyCode) + '/' + std::to_string(key.shift);
    }
    std::string release(int keyCode, int shift) {
        text.setAllStyles(platform::Setting::Off);
        text.KeyUp({keyCode, shift});
        return told();
    }

    editor::Toolbar toolbar{form, document, desktop.systemPort, dialogs};
    editor::EditorKeys keys{form, toolbar, form1};

    struct Row {
        int keyCode, shift;
        const char* expected;
    };
};

TEST_F(EditorKeysTest, KeyPress_RunsItsCommand_AndPassesTheRestToTheControl) {
    const Row rows[] = {{'M', 2, "mnuAddBM 0/0"},  {'O', 2, "mnuApri 0/0"},  {'Q', 2, "mnuEsci 0/0"},
                        {'W', 2, "mnuLingua 0/0"}, {112, 2, "mnuInfo 0/0"},  {115, 2, "mnuChiudi 0/0"},
                        {117, 2, "slower 117/0"},  {118, 2, "faster 118/0"}, {114, 0, "slower 0/0"},
                        {114, 2, "slower 0/2"},    {115, 4, "faster 0/4"},   {46, 0, "46/0"},
                        {'M', 3, "77/3"},          {'Z', 6, "90/6"},         {'B', 2, "66/2"},
                        {116, 0, "116/0"}};
    for (const auto& [keyCode, shift, expected] : rows)
        EXPECT_EQ(press(keyCode, shift), expected) << keyCode << '/' << shift;
    for (const char letter : std::string_view("XCVZIY"))
        EXPECT_EQ(press(letter, 2), "0/0") << letter;
    std::string taken;
    for (int keyCode = 8; keyCode < 130; ++keyCode)
        if (text.TakesKey({keyCode, 2}))
            taken += keyCode < 'a' ? std::string(1, static_cast<char>(keyCode)) : std::to_string(keyCode);
    EXPECT_EQ(taken, "CIMOQVWXYZ112113114115116117118119120121122123") << "keys that no menu may handle";
    EXPECT_FALSE(text.TakesKey({'Z', 3}));
}

TEST_F(EditorKeysTest, KeyRelease_RunsItsCommand_LettersWithControlOnly_FunctionKeysWithAnyModifier) {
    const Row rows[] = {{'Z', 2, "mnuAnnulla "},       {'Y', 2, "mnuRipeti "},   {'C', 2, "mnuCopia "},
                        {'V', 2, "mnuIncolla "},       {'X', 2, "mnuTaglia "},   {'I', 2, "italic on focus "},
                        {112, 2, "mnuGuida "},         {116, 0, "cmdPlay "},     {117, 2, "cmdIndietro "},
                        {118, 7, "cmdAvanz "},         {119, 0, "mnuBookMark "}, {120, 0, "mnuImpostaAudio "},
                        {122, 0, "mnuTitoloCompleto "}};
    for (const auto& [keyCode, shift, expected] : rows)
        EXPECT_EQ(release(keyCode, shift), expected) << keyCode << '/' << shift;
    for (const auto& [keyCode, shift] : {std::pair{int{'C'}, 3}, {'M', 2}, {114, 0}})
        EXPECT_EQ(release(keyCode, shift), "") << keyCode << '/' << shift;
}

TEST_F(EditorKeysTest, EditShortcut_RunsTheMenuCommand) {
    using platform::EditCommand;
    for (const auto& [command, expected] : {std::pair{EditCommand::Undo, "mnuAnnulla "},
                                            {EditCommand::Redo, "mnuRipeti "},
                                            {EditCommand::Cut, "mnuTaglia "},
                                            {EditCommand::Copy, "mnuCopia "},
                                            {EditCommand::Paste, "mnuIncolla "}}) {
        text.EditKey(command);
        EXPECT_EQ(told(), expected);
    }
}

TEST_F(EditorKeysTest, BoldAndUnderlineKeys_DependOnTheLanguageFileName) {
    const std::string elsewhere = "B bold on focus U underline on focus G S ";
    for (const auto& [file, expected] :
         {std::pair{u"Italiano.LNG", std::string("B U G bold on focus S underline on focus ")},
          {u"English.lng", elsewhere},
          {u"Italiano2.lng", elsewhere}}) {
        Lingua.FileLingua = file;
        std::string told;
        for (const char letter : std::string_view("BUGS"))
            told.append({letter, ' '}).append(release(letter, 2));
        EXPECT_EQ(told, expected);
    }
}

TEST_F(EditorKeysTest, RightButton_OpensTheEditMenu_AndEscapeInTheWindowQuits) {
    form.PopupMenu = [this](controls::MenuItem& menu) { text.commands.emplace_back(menu.name); };
    for (const int button : {1, 4})
        text.MouseDown(button);
    EXPECT_EQ(told(), "");
    text.MouseDown(2);
    EXPECT_EQ(told(), "mnuModifica ");
    platform::KeyEvent key{platform::escapeKey, 0};
    EXPECT_EQ(press(platform::escapeKey, 0), "27/0") << "Escape has no effect in the text";
    form.KeyDown(key);
    EXPECT_EQ(told(), "mnuEsci ");
}

TEST_F(EditorKeysTest, TimeStamp_HasElevenCharacters_OrIsEmpty) {
    const editor::TimeStamp stamp(form, desktop.player);
    desktop.player.setURL(desktop.layMedia("talk.mp3", 500'000));
    for (const auto& [seconds, expected] :
         {std::pair{65, u"[00:01:05] "}, {3723, u"[01:02:03] "}, {45296, u"[12:34:56] "}, {445506, u"ab"}}) {
        text.setText(u"ab");
        text.setSelLength(2);
        desktop.player.setCurrentPosition(seconds);
        form.mnuTimeStamp.Click();
        EXPECT_EQ(text.Text(), expected);
    }
    EXPECT_FALSE(form.mnuTimeStamp.enabled) << "until a file is open";
}
