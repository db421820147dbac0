#include "fakes/temporary_folder.h"
#include "sound/map_folder.h"
#include "sound/map_maker.h"
#include "testing.h"

#include <filesystem>

namespace {

struct MapFolder : testing::Test {
    // Creates a recording and returns what identifies it.
    sound::Recording lay(const std::string& name) const {
        folder.write(name, "sound of " + name);
        return *sound::Recording::at(folder.text(name));
    }
    std::filesystem::path fileOf(const sound::Recording& recording) const {
        return folder.path() / "Maps" / base::toUtf8(sound::mapName(recording.path));
    }
    // A map of 1000 columns, which takes some 2 KB.
    static sound::SoundMap map() {
        return {{{{10, 900}, {1200, 7000}}, {{400, 20}}},
                sound::Waveform(std::vector<sound::Peak>(1000, {200, 90}))};
    }

    fakes::TemporaryFolder folder;
    sound::MapFolder maps{folder.text("Maps"), 5000};
};

} // namespace

TEST_F(MapFolder, KeptMap_ComesBack_UnlessItIsDamagedOrTheRecordingHasChanged) {
    const sound::Recording talk = lay("talk.mp3");
    maps.keep(talk, map());
    const auto kept = maps.find(talk);
    ASSERT_TRUE(kept);
    EXPECT_EQ(kept->phrases, map().phrases);
    EXPECT_EQ(kept->waveform.levels(), 2U);
    EXPECT_EQ(kept->waveform.level(1), std::vector<sound::Peak>(250, {200, 90}));

    std::string bytes = folder.read("Maps/" + fileOf(talk).filename().string());
    for (std::size_t i = 0; i < 120; i += 7) {
        std::string damaged = bytes;
        damaged[i] = static_cast<char>(~damaged[i]);
        EXPECT_FALSE(sound::unpacked(damaged, talk)) << i;
        EXPECT_FALSE(sound::unpacked(std::string_view(bytes).substr(0, i), talk)) << i;
    }
    folder.write("talk.mp3", "another sound");
    EXPECT_FALSE(maps.find(*sound::Recording::at(talk.path)));
    EXPECT_FALSE(std::filesystem::exists(fileOf(talk))) << "its room is free again";
}

TEST_F(MapFolder, IsBounded_AndLosesWhatWasNotUsedForLongest) {
    const sound::Recording recordings[] = {lay("a"), lay("b"), lay("c")};
    const auto now = std::filesystem::file_time_type::clock::now();
    for (const int i : {0, 1}) {
        maps.keep(recordings[i], map());
        std::filesystem::last_write_time(fileOf(recordings[i]), now - std::chrono::hours(2 - i));
    }
    EXPECT_TRUE(maps.find(recordings[0])); // used again
    maps.keep(recordings[2], map());
    EXPECT_TRUE(maps.find(recordings[0]));
    EXPECT_FALSE(maps.find(recordings[1]));
    EXPECT_TRUE(maps.find(recordings[2]));
}
