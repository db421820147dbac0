#include "editor/clipboard_forms.h"
#include "editor/editor_keys.h"
#include "editor/time_stamp.h"
#include "fakes/editor_bench.h"
#include "fakes/workbench.h"

using testing::ElementsAre;
using testing::IsEmpty;

// Every command tells its name when it runs; a style tells what it did to the text.
class EditorKeysTest : public fakes::EditorBench {
protected:
    EditorKeysTest() {
        const std::pair<std::function<void()>*, const char*> commands[] = {
            {&form1.mnuAddBM.Click, "mnuAddBM"},
            {&form1.mnuApri.Click, "mnuApri"},
            {&form1.mnuEsci.Click, "mnuEsci"},
            {&form1.mnuLingua.Click, "mnuLingua"},
            {&form1.mnuInfo.Click, "mnuInfo"},
            {&form1.mnuChiudi.Click, "mnuChiudi"},
            {&form1.mnuGuida.Click, "mnuGuida"},
            {&form1.mnuBookMark.Click, "mnuBookMark"},
            {&form1.mnuImpostaAudio.Click, "mnuImpostaAudio"},
            {&form1.mnuTitoloCompleto.Click, "mnuTitoloCompleto"},
            {&form1.mnuDiminuisciVelocità.Click, "slower"},
            {&form1.mnuAumentaVelocità.Click, "faster"},
            {&form1.cmdPlay.Click, "cmdPlay"},
            {&form1.cmdIndietro.Click, "cmdIndietro"},
            {&form1.cmdAvanz.Click, "cmdAvanz"},
            {&form.mnuAnnulla.Click, "mnuAnnulla"},
            {&form.mnuRipeti.Click, "mnuRipeti"},
            {&form.mnuCopia.Click, "mnuCopia"},
            {&form.mnuIncolla.Click, "mnuIncolla"},
            {&form.mnuTaglia.Click, "mnuTaglia"},
        };
        for (const auto& [command, name] : commands)
            *command = [this, told = name] { text.commands.emplace_back(told); };
    }
    // What a press leaves of a key, with the commands it ran.
    std::vector<std::string> press(int keyCode, int shift) {
        text.commands.clear();
        platform::KeyEvent key{keyCode, shift};
        text.KeyDown(key);
        std::vector<std::string> told = text.commands;
        told.push_back(std::to_string(key.keyCode) + '/' + std::to_string(key.shift));
        return told;
    }
    std::vector<std::string> release(int keyCode, int shift) {
        text.commands.clear();
        text.KeyUp({keyCode, shift});
        return text.commands;
    }

    editor::Toolbar toolbar{form, document, desktop.systemPort, dialogs};
    editor::EditorKeys keys{form, toolbar, form1};
};

TEST_F(EditorKeysTest, APress_RunsItsCommand_AndLeavesOfTheKeyWhatTheControlMaySee) {
    struct Row {
        int keyCode, shift;
        std::vector<std::string> expected;
    };
    const Row rows[] = {
        {'M', 2, {"mnuAddBM", "0/0"}},
        {'O', 2, {"mnuApri", "0/0"}},
        {'Q', 2, {"mnuEsci", "0/0"}},
        {'W', 2, {"mnuLingua", "0/0"}},
        {112, 2, {"mnuInfo", "0/0"}},
        {115, 2, {"mnuChiudi", "0/0"}},
        {117, 2, {"slower", "117/0"}},
        {118, 2, {"faster", "118/0"}},
        {'X', 2, {"0/0"}},
        {'C', 2, {"0/0"}},
        {'V', 2, {"0/0"}},
        {'Z', 2, {"0/0"}},
        {'I', 2, {"0/0"}},
        {'Y', 2, {"0/0"}},
        {114, 0, {"slower", "0/0"}},
        {114, 2, {"slower", "0/2"}},
        {115, 0, {"faster", "0/0"}},
        {115, 4, {"faster", "0/4"}},
        {45, 1, {"mnuIncolla", "0/0"}},
        {45, 2, {"mnuCopia", "0/0"}},
        {46, 1, {"mnuTaglia", "0/0"}},
        {46, 0, {"46/0"}},
        {45, 0, {"45/0"}},
        {'M', 3, {"77/3"}},
        {'M', 0, {"77/0"}},
        {'Z', 6, {"90/6"}},
        {'B', 2, {"66/2"}},
        {116, 0, {"116/0"}},
        {123, 0, {"123/0"}},
        {platform::escapeKey, 0, {"27/0"}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(press(row.keyCode, row.shift), row.expected) << row.keyCode << '/' << row.shift;
}

TEST_F(EditorKeysTest, ARelease_RunsItsCommand_LettersWithControlAloneAndFunctionKeysWithAny) {
    struct Row {
        int keyCode, shift;
        std::vector<std::string> expected;
    };
    const Row rows[] = {
        {'Z', 2, {"mnuAnnulla"}},
        {'Y', 2, {"mnuRipeti"}},
        {'C', 2, {"mnuCopia"}},
        {'V', 2, {"mnuIncolla"}},
        {'X', 2, {"mnuTaglia"}},
        {'I', 2, {"italic on", "focus"}},
        {'Z', 0, {}},
        {'C', 3, {}},
        {'M', 2, {}},
        {112, 2, {"mnuGuida"}},
        {116, 0, {"cmdPlay"}},
        {117, 2, {"cmdIndietro"}},
        {118, 7, {"cmdAvanz"}},
        {119, 0, {"mnuBookMark"}},
        {120, 0, {"mnuImpostaAudio"}},
        {122, 0, {"mnuTitoloCompleto"}},
        {114, 0, {}},
        {115, 0, {}},
        {123, 0, {}},
    };
    for (const Row& row : rows) {
        text.style = platform::Setting::Off;
        EXPECT_EQ(release(row.keyCode, row.shift), row.expected) << row.keyCode << '/' << row.shift;
    }
}

TEST_F(EditorKeysTest, UndoHeldForAMinute_IsOneUndo) {
    for (int repeat = 0; repeat < 1800; ++repeat)
        ASSERT_THAT(press('Z', 2), ElementsAre("0/0"));
    EXPECT_THAT(release('Z', 2), ElementsAre("mnuAnnulla"));
}

TEST(EditorKeys, HammeredWhileThePlayerLoads_LeaveTextAndPlayerInStep) {
    fakes::Workbench bench;
    bench.desktop.player.loadingTime = 2000;
    bench.open("talk.mp3", 600);
    for (int key = 0; key < 301; ++key) {
        for (const int code : {116, int{'X'}, 118, 115}) {
            platform::KeyEvent pressed{code, 0};
            bench.desktop.text.KeyDown(pressed);
            bench.desktop.text.KeyUp({code, 0});
        }
        bench.desktop.text.type(u"x");
        bench.desktop.loop.advance(10);
    }
    EXPECT_EQ(bench.desktop.text.textLength(), 301);
    EXPECT_FALSE(bench.form().isPlaying()) << "an odd number of presses";
    EXPECT_EQ(bench.desktop.player.playState(), platform::PlayState::Paused);
    EXPECT_LE(bench.desktop.player.rate(), 5.0);
}

TEST_F(EditorKeysTest, LettersOfBoldAndUnderline_GoByTheNameOfTheLanguageFile) {
    for (const auto& [file, bold, underline] :
         {std::tuple{u"Italiano.LNG", 'G', 'S'}, {u"English.lng", 'B', 'U'}, {u"Italiano2.lng", 'B', 'U'}}) {
        Lingua.FileLingua = file;
        for (const char letter : std::string_view("BUGS")) {
            text.style = platform::Setting::Off;
            const std::vector<std::string> told = release(letter, 2);
            if (letter == bold)
                EXPECT_THAT(told, ElementsAre("bold on", "focus"));
            else if (letter == underline)
                EXPECT_THAT(told, ElementsAre("underline on", "focus"));
            else
                EXPECT_THAT(told, IsEmpty()) << letter;
        }
    }
}

TEST_F(EditorKeysTest, CommandsWithoutARoutine_AndOtherEvents_DoNothingButTheirOwn) {
    form1.mnuGuida.Click = nullptr;
    EXPECT_THAT(release(112, 0), IsEmpty());
    form.PopupMenu = [this](controls::MenuItem& menu) { text.commands.emplace_back(menu.name); };
    text.MouseDown(1);
    EXPECT_THAT(text.commands, IsEmpty());
    text.MouseDown(2);
    platform::KeyEvent key{platform::escapeKey, 0};
    form.KeyDown(key);
    EXPECT_THAT(text.commands, ElementsAre("mnuModifica", "mnuEsci"));
}

TEST_F(EditorKeysTest, TimeStamp_HasElevenCharacters_OrIsNone) {
    class Clock : public fakes::FakePlayer {
    public:
        using FakePlayer::FakePlayer;
        base::Text position;
        base::Text currentPositionString() const override { return position; }
    };
    Clock clock(desktop.loop);
    const editor::TimeStamp stamp(form, clock);
    for (const auto& [position, expected] : {std::pair{u"", u"[00:00:00] "},
                                             {u"01:05", u"[00:01:05] "},
                                             {u"1:02:03", u"[01:02:03] "},
                                             {u"12:34:56", u"[12:34:56] "},
                                             {u"123:45:06", u"ab"}}) {
        text.setText(u"ab");
        text.setSelStart(0);
        text.setSelLength(2);
        clock.position = position;
        form.mnuTimeStamp.Click();
        EXPECT_EQ(text.Text(), expected);
    }
    EXPECT_FALSE(form.mnuTimeStamp.enabled) << "until a file is open";
}
