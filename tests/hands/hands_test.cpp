#include "fakes/workbench.h"

#include "hands/pedal_models.h"
#include "hands/pedal_rule.h"

#include <fstream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr platform::DeviceModel known{0x05f3, 0x00ff};
constexpr platform::DeviceModel other{0x1234, 0xabcd};
constexpr platform::PedalCode left{known, false, 256};
constexpr platform::PedalCode middle{known, false, 257};
constexpr platform::PedalCode right{known, true, 2};
constexpr platform::PedalCode unlike{other, true, 9};

} // namespace

class HandsTest : public fakes::WorkbenchTest {
protected:
    fakes::FakePedals& pedals = desktop.pedalPort;
    fakes::FakeGlobalKeys& keys = desktop.globalKeyPort;

    void startWith(const std::string& options) {
        desktop.folder.write("Files/Options.ini", options);
        desktop.keysAndPedals = nullptr;
        ASSERT_TRUE(start());
        open("talk.mp3", 1800);
        desktop.loop.advance(player.loadingTime);
        form().cmdPlay.Click();
        player.setCurrentPosition(600);
        player.commands.clear();
    }
    hands::KeysAndPedalsWindow& window() {
        if (!desktop.keysAndPedals)
            command("mnuKeysAndPedals").Click();
        return *desktop.keysAndPedals;
    }
    std::string state() { return base::toUtf8(window().lblState.caption.get()); }
    std::vector<std::string> commandsOf(const std::function<void()>& what) {
        player.commands.clear();
        what();
        return player.commands;
    }
};

TEST_F(HandsTest, Panels_DoWhatTheButtonsDo_AndShowWhatThePlayerDoes) {
    using Run = platform::MediaFacts::Run;
    startWith("DesktopPanels=1\r\n");
    platform::MediaCommands& panel = *desktop.panels.commands;
    const platform::MediaFacts& shown = desktop.panels.shown;
    const auto then = [&](Run run, double jump) {
        EXPECT_EQ(shown.run, run);
        EXPECT_THAT(std::exchange(desktop.panels.jumps, {}), ElementsAre(jump));
    };
    desktop.loop.advance(300);
    EXPECT_EQ(base::afterLast(shown.path, u'/'), u"talk.mp3");
    EXPECT_EQ(shown.length, 1800);
    then(Run::Paused, 600);
    panel.play();
    panel.play();
    desktop.loop.advance(3000);
    EXPECT_TRUE(desktop.panels.jumps.empty());
    panel.pause();
    then(Run::Paused, 601);
    panel.playPause();
    panel.stepForward();
    then(Run::Playing, 606);
    panel.stepBack();
    then(Run::Playing, 601);
    panel.setPosition(1e9);
    panel.setPosition(20);
    EXPECT_EQ(desktop.panels.jumps.back(), 20);
    panel.setRate(7);
    panel.setVolume(0.25);
    EXPECT_EQ(shown.rate, 5);
    EXPECT_EQ(shown.volume, 0.25);
    EXPECT_EQ(form().Label7.caption.get(), u"5 x");
    panel.open(desktop.layMedia("other.mp3", 60));
    desktop.loop.advance(400);
    EXPECT_EQ(shown.length, 60);
    panel.stop();
    EXPECT_EQ(shown.run, Run::Stopped);
    form().mnuChiudi.Click();
    for (const auto command : {&platform::MediaCommands::play, &platform::MediaCommands::pause,
                               &platform::MediaCommands::stop, &platform::MediaCommands::stepBack})
        (panel.*command)();
    EXPECT_EQ(shown.path, u"");
    panel.quit();
    EXPECT_TRUE(desktop.systemPort.ended);
    EXPECT_FALSE(desktop.panels.commands);
}

TEST_F(HandsTest, Everything_IsOff_UntilItIsSwitchedOn) {
    startWith("");
    EXPECT_TRUE(keys.held.empty());
    EXPECT_FALSE(pedals.hears(known));
    EXPECT_FALSE(desktop.panels.commands);
    window().chkPanels.value = true;
    window().chkPanels.Click();
    EXPECT_TRUE(desktop.panels.commands);
    window().chkPanels.value = false;
    window().chkPanels.Click();
    EXPECT_FALSE(desktop.panels.commands);
    window().chkKeys.value = true;
    window().chkKeys.Click();
    window().chkPedals.value = true;
    window().chkPedals.Click();
    EXPECT_THAT(keys.held, ElementsAre(u"Meta+F5", u"Meta+F6", u"Meta+F7", u"Meta+F3", u"Meta+F4", u"Meta+F8",
                                       u"Meta+F9"));
    EXPECT_TRUE(pedals.hears(known));
    const std::string saved = desktop.folder.read("Files/Options.ini");
    EXPECT_THAT(saved, HasSubstr("KeysFromAnywhere=1\r\n"));
    EXPECT_THAT(saved, HasSubstr("PedalPlayWhileHeld=middle\r\n"));
    EXPECT_THAT(saved, HasSubstr("DesktopPanels=0\r\n"));
}

TEST_F(HandsTest, Pedals_PlayWhileHeld_AndStepFurtherTheLongerTheyAreHeld) {
    using Press = std::tuple<int, platform::PedalCode, bool, int>; // device, pedal, down, ms until the next
    const std::tuple<const char*, std::vector<Press>, const char*> rows[] = {
        {"held", {{1, middle, true, 0}, {1, middle, false, 0}}, "play;seek 598;pause;"},
        {"pressed twice", {{1, middle, true, 0}, {1, middle, true, 0}}, "play;"},
        {"by two", {{1, middle, true, 0}, {2, middle, true, 0}, {1, middle, false, 0}}, "play;"},
        {"a step", {{1, left, true, 0}, {1, left, false, 5000}}, "seek 595;"},
        {"repeated", {{1, right, true, 850}, {1, right, false, 5000}}, "seek 605;seek 610;seek 615;"},
        {"more after a second",
         {{1, right, true, 700}, {1, right, true, 600}, {1, right, false, 0}},
         "seek 605;seek 610;seek 615;seek 620;seek 625;seek 630;"},
        {"nothing", {{1, left, false, 0}, {7, unlike, true, 0}}, ""},
    };
    for (const auto& [what, presses, commands] : rows) {
        startWith("Pedals=1");
        for (const auto& [device, pedal, down, ms] : presses) {
            pedals.move(device, pedal, down);
            desktop.loop.advance(ms);
        }
        std::string all;
        for (const std::string& command : player.commands)
            all += command + ';';
        EXPECT_EQ(all, commands) << what;
    }
}

TEST_F(HandsTest, MiddlePedal_TogglesByChoice_AndEndsThePauseOfTheCycleToo) {
    startWith("Pedals=1\nPedalPlayPause=middle\nPedalPlayWhileHeld=");
    EXPECT_THAT(commandsOf([&] { pedals.move(1, middle, true), pedals.move(1, middle, false); }),
                ElementsAre("play"));
    EXPECT_THAT(commandsOf([&] { pedals.move(1, middle, true); }), ElementsAre("seek 598", "pause"));

    startWith("Pedals=1");
    form().imgDetta.Click();
    pedals.move(1, middle, true);
    desktop.loop.advance(6000); // the cycle pauses
    EXPECT_THAT(commandsOf([&] {
                    pedals.move(1, middle, false);
                    desktop.loop.advance(60000);
                }),
                ElementsAre());
}

TEST_F(HandsTest, OptionsWithGarbage_BecomeTheFirstChoice_AndAKeyBelongsToOneCommand) {
    startWith("Pedals=1\nKeysFromAnywhere=1\nKeyPlayPause=a\nKeyStepBack=Ctrl+\nKeyStepForward=Ctrl+Alt+J\n"
              "KeySlower=Ctrl+Alt+J\nKeyFaster=\nKeyCopyTime=Shift+F2\nKeyTypeTime=Ctrl+Rubbish+K\n"
              "PedalPlayPause=left, left,zzz,12:34,1234:ABCD:b9\nPedalPlayWhileHeld=1234:abcd:k99999999999\n"
              "PedalStepBack=left\nPedalStepForward=,,,");
    EXPECT_THAT(keys.held, ElementsAre(u"Meta+F5", u"Meta+F6", u"Ctrl+Alt+J", u"Shift+F2", u"Meta+F9"));
    EXPECT_THAT(commandsOf([&] { pedals.move(1, left, true); }), ElementsAre("play"));
    EXPECT_THAT(commandsOf([&] { pedals.move(1, unlike, true); }), ElementsAre());
    EXPECT_THAT(commandsOf([&] { pedals.move(1, right, true); }), ElementsAre("seek 605"));
    pedals.move(1, left, false);
    EXPECT_THAT(commandsOf([&] { pedals.move(1, unlike, false), pedals.move(1, unlike, true); }),
                ElementsAre("seek 603", "pause"));
}

TEST_F(HandsTest, Keys_DoWhatTheMenuDoes_AndTheTimeIsCopiedOrTyped) {
    startWith("KeysFromAnywhere=1");
    EXPECT_THAT(commandsOf([&] { keys.move(u"Meta+F5", true), keys.move(u"Meta+F5", false); }),
                ElementsAre("play"));
    EXPECT_THAT(commandsOf([&] { keys.move(u"Meta+F7", true), keys.move(u"Meta+F7", false); }),
                ElementsAre("seek 605"));
    keys.move(u"Meta+F3", true);
    desktop.loop.advance(600);
    keys.move(u"Meta+F3", false);
    EXPECT_DOUBLE_EQ(player.rate(), 0.7);
    keys.move(u"Meta+F9", true);
    EXPECT_EQ(keys.typed, u"[00:10:05] ");
    keys.types = false;
    keys.move(u"Meta+F9", false), keys.move(u"Meta+F9", true);
    EXPECT_EQ(desktop.clipboardPort.text, u"[00:10:05] ");
    EXPECT_THAT(base::toUtf8(program->workstation().notices().all().back().sentence),
                HasSubstr("could not be typed"));
    form().mnuChiudi.Click();
    desktop.clipboardPort.text.clear();
    for (const base::Text& key : keys.held)
        keys.move(key, true);
    EXPECT_EQ(desktop.clipboardPort.text, u"");
    EXPECT_EQ(keys.typed, u"[00:10:05] ");
}

TEST_F(HandsTest, Window_ChoosesKeys_RefusesLetters_AndNamesConflicts) {
    keys.taken = {u"Ctrl+Alt+T"};
    keys.unknown = {u"Meta+F6"};
    startWith("KeysFromAnywhere=1");
    EXPECT_THAT(state(), HasSubstr("Meta+F6: there is no such key"));
    const auto choose = [&](int row, const base::Text& key) {
        window().List1.listIndex = row;
        window().keyBox.Focus(true);
        EXPECT_TRUE(keys.held.empty()) << "the box would not see a key that is taken";
        window().keyBox.keys = key;
        window().keyBox.Change();
        const std::string told = state();
        window().keyBox.Focus(false);
        return told;
    };
    EXPECT_THAT(choose(0, u"Shift+A"), HasSubstr("needed for typing"));
    EXPECT_EQ(window().keyBox.keys.get(), u"Meta+F5");
    EXPECT_THAT(choose(0, u"Ctrl+Alt+T"), HasSubstr("Ctrl+Alt+T: another program has this key."));
    EXPECT_THAT(choose(0, u"Meta+F7"), Not(HasSubstr("another program")));
    EXPECT_EQ(window().List1.items->at(3), u"Step forward\t\tright pedal");
    EXPECT_THAT(commandsOf([&] { keys.move(u"Meta+F7", true); }), ElementsAre("play"));
}

TEST_F(HandsTest, Window_LearnsAPedal_AndTellsHowToReadOneThatMayNotBeRead) {
    startWith("");
    pedals.plugged = {{other, u"Keyboard", u"/dev/input/event0", true}};
    window().List1.listIndex = 7; // type the time
    window().cmdLearn.Click();
    EXPECT_THAT(state(), Not(HasSubstr("Keyboard")));
    pedals.plugged.push_back({other, u"Odd pedal", u"/dev/hidraw3", false});
    pedals.DevicesChanged();
    EXPECT_THAT(state(), HasSubstr("Odd pedal may not be read. This command allows it:\nprintf '"));
    window().cmdCopy.Click();
    EXPECT_THAT(base::toUtf8(desktop.clipboardPort.text), HasSubstr("KERNELS==\"*:1234:ABCD.*\""));
    constexpr int escape = 1;
    pedals.move(4, {other, false, escape}, true);
    pedals.move(4, unlike, true);
    EXPECT_EQ(window().List1.items->at(7), u"Type the time\tMeta+F9\tpedal 1234:abcd:b9");
    EXPECT_TRUE(keys.typed.empty()) << "the press that is learned does nothing else";
    pedals.move(4, unlike, false);
    pedals.move(4, unlike, true);
    EXPECT_FALSE(keys.typed.empty());
    window().cmdNoPedal.Click();
    EXPECT_FALSE(pedals.hears(other));
}

TEST(PedalRule, ShippedRules_AllowEveryKnownModel) {
    std::ifstream file(SHIPPED_RULES);
    const std::string rules((std::istreambuf_iterator<char>(file)), {});
    for (const hands::PedalModel& each : hands::pedalModels()) {
        const std::string made = base::toUtf8(hands::ruleCommand(each.model, u"it's.rules"));
        EXPECT_THAT(made, HasSubstr("install -m 644 'it'\\''s.rules' /etc/udev/rules.d/"));
        char numbers[99];
        std::snprintf(numbers, sizeof numbers, "%04x\".*%04x", each.model.vendor, each.model.product);
        EXPECT_THAT(rules, testing::ContainsRegex(numbers));
    }
}
