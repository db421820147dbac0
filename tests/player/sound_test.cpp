#include "base/files.h"
#include "fakes/workbench.h"

using platform::Channel;
using platform::SoundAdjustment;

struct SoundTest : fakes::WorkbenchTest {
    void choose(std::string_view name) {
        const auto& items = command("mnuSound").items;
        (*std::ranges::find_if(items, [&](const auto* item) { return item->name == name; }))->Click();
    }
    // Expects this sound before and after the length of the recording is known.
    void expectOpens(const std::string& name, double seconds, const SoundAdjustment& first,
                     const SoundAdjustment& then) {
        open(name, seconds);
        EXPECT_EQ(player.sound, first) << name;
        desktop.loop.advance(400);
        EXPECT_EQ(player.sound, then) << name << seconds;
    }
};

TEST_F(SoundTest, ChoiceForARecording_IsKept_AndAppliesToNoOther) {
    open("a.mp3", 60);
    for (const char* name : {"mnuClearVoice", "mnuLeftChannel", "mnuBoost200"})
        choose(name);
    desktop.loop.advance(400);
    const SoundAdjustment chosen{true, Channel::Left, 200};
    EXPECT_EQ(player.sound, chosen);
    expectOpens("b.mp3", 60, {}, {});
    expectOpens("a.mp3", 90, chosen, {});
    ASSERT_TRUE(start());
    expectOpens("a.mp3", 60, chosen, chosen);
    for (const char* name : {"mnuClearVoice", "mnuBothChannels", "mnuBoost100"})
        choose(name);
    EXPECT_EQ(base::readFile(desktop.folder.text("Files/Safety/RecordingSounds")), "");
    form().mnuChiudi.Click();
    EXPECT_FALSE(command("mnuSound").items.front()->offered());
}

TEST_F(SoundTest, DamagedLine_IsSkipped) {
    desktop.folder.write("Files/Safety/RecordingSounds",
                         "1\t0\t100\t60000\r\n2\t0\t100\t60000\ta.mp3\n1\t3\t100\t60000\ta.mp3\n"
                         "1\t0\t1e9\t60000\ta.mp3\n1\t0\t150.5\t60000\ta.mp3\n-\t\t\t\ta.mp3\n\xFF\xFE\t\n\n"
                         "0\t2\t150\t60400\ta.mp3");
    ASSERT_TRUE(start());
    const SoundAdjustment kept{false, Channel::Right, 150};
    expectOpens("a.mp3", 60, kept, kept);
}
