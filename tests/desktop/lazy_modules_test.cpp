#include "desktop/services/lazy_internet.h"
#include "desktop/services/lazy_player.h"
#include "desktop/services/lazy_spelling.h"
#include "desktop/services/lazy_wave_input.h"
#include "eventually.h"

#include <algorithm>
#include <gtest/gtest.h>

using desktop::LazyPlayer;
using platform::PlayState;

TEST(LazyPlayer, WithoutItsModule_BehavesLikeAnUnplayableFile) {
    for (const char* module : {"/nowhere/player.so", "libc.so.6"}) {
        LazyPlayer player(module);
        player.prepare();
        EXPECT_EQ(player.playState(), PlayState::Undefined) << "no file was requested";
        for (int i = 0; i < 2; ++i) {
            player.setURL(u"/a/talk.mp3");
            player.setCurrentPosition(5);
            player.play();
            player.pause();
            EXPECT_EQ(player.playState(), PlayState::Stopped);
        }
        EXPECT_EQ(player.URL(), u"/a/talk.mp3");
        EXPECT_EQ(player.currentPosition(), 0);
        EXPECT_EQ(player.duration(), 0);
    }
}

TEST(LazyPlayer, Versions_ComeFromItsModule) {
    EXPECT_EQ(LazyPlayer("/nowhere/player.so").versions(), "");
    LazyPlayer player(LAID_MODULES "/mpv_player.so");
    EXPECT_EQ(std::ranges::count(player.versions(), '\n'), 1);
}

TEST(LazyInternet, Read_UsesItsModule_AndReturnsNothingWithoutIt) {
    EXPECT_EQ(desktop::LazyInternet(LAID_MODULES "/internet.so").read("data:,001015003", "Quillmere"),
              "001015003");
    desktop::LazyInternet none("/nowhere/internet.so");
    EXPECT_EQ(none.read("data:,001015003", "Quillmere"), "");
    EXPECT_FALSE(none.isHanging());
}

TEST(LazyWaveInput, WithoutItsModule_RefusesEveryDevice_WithAReason) {
    desktop::LazyWaveInput device("/nowhere/capture.so");
    int answer = 0;
    device.open({}, [&](int result) { answer = result; });
    EXPECT_NE(answer, 0);
    EXPECT_NE(device.errorText(0), u"");
    EXPECT_NE(device.start(), 0);
    device.close();
}

TEST(LazySpelling, List_UsesItsModule_AndTellsWhyThereAreNoLanguagesWithoutIt) {
    for (const std::string module : {LAID_MODULES "/spelling.so", "/nowhere/spelling.so"}) {
        desktop::LazySpelling spelling(module);
        spelling.stop();
        spelling.use("en_US", [](const base::Text&) { ADD_FAILURE() << "nothing was listed"; });
        std::optional<bool> found;
        spelling.list([&](const auto& languages, const base::Text& failure) {
            EXPECT_EQ(languages.empty(), !failure.empty());
            found = !languages.empty();
        });
        EXPECT_TRUE(fakes::eventually([&] { return found.has_value(); }));
        EXPECT_EQ(found, module.starts_with(LAID_MODULES));
    }
}
