#include "pedal_devices.h"

#include "base/descriptor.h"
#include "base/failure.h"
#include "desktop/eventually.h"
#include "fakes/temporary_folder.h"
#include "recorded_device.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <linux/input.h>
#include <sys/fsuid.h>
#include <sys/stat.h>

using fakes::eventually;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Moves = std::vector<std::pair<int, bool>>;

std::string event(int type, int code, int value) {
    input_event one{};
    one.type = static_cast<std::uint16_t>(type);
    one.code = static_cast<std::uint16_t>(code);
    one.value = value;
    return {reinterpret_cast<const char*>(&one), sizeof one};
}

std::string key(int code, int value) {
    return event(EV_MSC, MSC_SCAN, 0x90001) + event(EV_KEY, code, value) + event(EV_SYN, SYN_REPORT, 0);
}

void send(int descriptor, const std::string& bytes) {
    ASSERT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

// What a reader reports of each of these pieces; an empty piece unplugs the device.
template <typename Reader>
Moves movesOf(const std::vector<std::string>& pieces) {
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_NONBLOCK | O_DIRECT), 0);
    Reader reader(ends[0]);
    base::Descriptor writer(ends[1]);
    Moves moves;
    for (const std::string& piece : pieces) {
        piece.empty() ? writer.close() : send(writer.get(), piece);
        for (const auto& move : reader.read())
            moves.emplace_back(move.code, move.pressed);
    }
    return moves;
}

} // namespace

TEST(KeyReader, RecordedStreams) {
    const std::string dropped = event(EV_SYN, SYN_DROPPED, 0) + key(30, 1) + event(EV_SYN, SYN_REPORT, 0);
    std::string noise(24 * 64, '\0');
    for (std::size_t i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<char>(i * 2654435761U >> 13U);
    const struct {
        const char* what;
        std::vector<std::string> pieces;
        std::set<int> heldNow; // as the kernel sees it when events were lost
        Moves moves;
    } rows[] = {
        {"press and release", {key(256, 1), key(256, 0)}, {}, {{256, true}, {256, false}}},
        {"in one read",
         {key(256, 1) + key(258, 1) + key(256, 0)},
         {},
         {{256, true}, {258, true}, {256, false}}},
        {"the repeat of a held key", {key(257, 1), key(257, 2) + key(257, 2)}, {}, {{257, true}}},
        {"a release of nothing", {key(257, 0)}, {}, {}},
        {"unplugged while held",
         {key(256, 1) + key(257, 1), ""},
         {},
         {{256, true}, {257, true}, {256, false}, {257, false}}},
        {"lost events: a release", {key(256, 1), dropped}, {}, {{256, true}, {256, false}}},
        {"lost events: a press",
         {key(256, 1), dropped, key(258, 0)},
         {256, 258},
         {{256, true}, {258, true}, {258, false}}},
        {"half an event", {key(256, 1), key(256, 0).substr(0, 30)}, {}, {{256, true}, {256, false}}},
        {"nothing", {}, {}, {}},
    };
    for (const auto& row : rows) {
        recordedDevice().held = {};
        int ends[2];
        ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
        desktop::KeyReader reader(ends[0]);
        base::Descriptor writer(ends[1]);
        recordedDevice().held = row.heldNow;
        Moves moves;
        for (const std::string& piece : row.pieces) {
            piece.empty() ? writer.close() : send(writer.get(), piece);
            for (const auto& move : reader.read())
                moves.emplace_back(move.code, move.pressed);
        }
        EXPECT_EQ(moves, row.moves) << row.what;
    }
    recordedDevice().held = {};
    movesOf<desktop::KeyReader>({noise, noise.substr(5), ""}); // neither crashes nor hangs
}

TEST(KeyReader, KeepsToItself_OnlyOnceNothingIsHeld_AndRefusesOtherFiles) {
    recordedDevice() = {};
    recordedDevice().held = {256};
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
    const base::Descriptor writer(ends[1]);
    desktop::KeyReader reader(ends[0]);
    EXPECT_FALSE(reader.isForTyping());
    reader.keepToItself();
    EXPECT_EQ(recordedDevice().grabs, 0);
    send(writer.get(), key(256, 0));
    EXPECT_THAT(reader.read(), IsEmpty());
    EXPECT_EQ(recordedDevice().grabs, 1);
    EXPECT_THROW(desktop::KeyReader(::open("/dev/null", O_RDONLY)), base::Failure);
}

TEST(ReportReader, RecordedReports) {
    const auto report = [](std::initializer_list<int> bytes) {
        return std::string(bytes.begin(), bytes.end());
    };
    const struct {
        const char* what;
        std::vector<std::string> pieces;
        Moves moves;
    } rows[] = {
        {"left and right",
         {report({1, 0}), report({5, 0}), report({4, 0}), report({0, 0})},
         {{0, true}, {2, true}, {0, false}, {2, false}}},
        {"the same again", {report({2, 0}), report({2, 0})}, {{1, true}}},
        {"a short one keeps the rest",
         {report({0, 1}), report({2}), report({0, 0})},
         {{8, true}, {1, true}, {1, false}, {8, false}}},
        {"unplugged while held", {report({2, 0}), ""}, {{1, true}, {1, false}}},
        {"a long one is cut", {std::string(600, '\0') + '\1', report({1})}, {{0, true}}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(movesOf<desktop::ReportReader>(row.pieces), row.moves) << row.what;
}

// Folders like those of the kernel, with pipes as devices.
class PedalDevicesTest : public testing::Test {
protected:
    PedalDevicesTest() {
        recordedDevice() = {};
        pedals.Moved = [this](int device, const platform::PedalCode& pedal, bool pressed) {
            moves.push_back({device, pedal.isBit ? -pedal.code : pedal.code, pressed});
        };
        pedals.DevicesChanged = [this] { ++changes; };
    }
    void lay(const std::string& file, const std::string& content) {
        folder.write("sys/class/" + file, content + "\n");
    }
    // Plugs in a device; returns what writes its events.
    std::unique_ptr<base::Descriptor> plugKeys(const std::string& name, const std::string& product,
                                               mode_t mode = 0600) {
        lay("input/" + name + "/device/name", "Pedal " + product);
        lay("input/" + name + "/device/id/vendor", "05f3");
        lay("input/" + name + "/device/id/product", product);
        lay("input/" + name + "/device/capabilities/key", "7 0 0");
        return plug("dev/input/" + name, mode);
    }
    std::unique_ptr<base::Descriptor> plugRaw(const std::string& name) {
        lay("hidraw/" + name + "/device/uevent",
            "DRIVER=hid-generic\nHID_ID=0003:000005F3:000000FF\nHID_NAME=Raw pedal");
        return plug("dev/" + name, 0600);
    }
    std::unique_ptr<base::Descriptor> plug(const std::string& file, mode_t mode) {
        const std::string path = folder.path() / file;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        EXPECT_EQ(mkfifo((path + "~").c_str(), 0600), 0);
        auto writer = std::make_unique<base::Descriptor>(path + "~", O_RDWR | O_NONBLOCK);
        EXPECT_EQ(chmod((path + "~").c_str(), mode), 0);
        std::filesystem::rename(path + "~", path);
        return writer;
    }
    bool reads(const std::vector<std::tuple<int, int, bool>>& wanted) {
        return eventually([&] { return moves == wanted; });
    }

    fakes::TemporaryFolder folder;
    std::vector<std::tuple<int, int, bool>> moves; // device, code or negative bit, pressed
    int changes = 0;
    desktop::PedalDevices pedals{folder.path() / "dev", folder.path() / "sys"};
    const std::vector<platform::WatchedModel> models{{{0x05f3, 0x00ff}, true}};
};

TEST_F(PedalDevicesTest, SeveralPedals_PluggedInAndOut) {
    std::filesystem::create_directories(folder.path() / "dev");
    pedals.watch(models, false);
    auto keys = plugKeys("event3", "00ff"); // the folder of input devices is new, too
    ASSERT_TRUE(eventually([&] { return pedals.devices().size() == 1; }));
    EXPECT_EQ(recordedDevice().grabs, 1);
    const auto raw = plugRaw("hidraw0");
    const auto keyboard = plugKeys("event4", "0001");
    ASSERT_TRUE(eventually([&] { return pedals.devices().size() == 2; }));
    send(raw->get(), std::string("\2\0", 2));
    send(keys->get(), key(257, 1));
    send(keyboard->get(), key(30, 1));
    ASSERT_TRUE(eventually([&] { return moves.size() == 2; }));
    EXPECT_THAT(moves, testing::UnorderedElementsAre(std::tuple(0, 257, true), std::tuple(1, -1, true)));
    moves.clear();
    std::filesystem::remove(folder.path() / "dev/input/event3");
    keys->close();
    EXPECT_TRUE(reads({{0, 257, false}}));
    EXPECT_EQ(pedals.devices().size(), 1U);
    keys = plugKeys("event3", "00ff");
    EXPECT_TRUE(eventually([&] { return pedals.devices().size() == 2; }));
    EXPECT_GE(changes, 3);
}

TEST_F(PedalDevicesTest, ADeviceThatMayNotBeRead_IsTold_AndOpenedOnceItMay) {
    const auto writer = plugKeys("event0", "00ff", 0);
    const auto deny = [](uid_t user) { setfsuid(user), setfsgid(user); };
    chmod(folder.path().c_str(), 0755);
    deny(65534);
    pedals.watch(models, false);
    deny(0);
    ASSERT_EQ(pedals.devices().size(), 1U);
    EXPECT_FALSE(pedals.devices()[0].readable);
    EXPECT_EQ(pedals.devices()[0].name, u"Pedal 00ff");
    chmod((folder.path() / "dev/input/event0").c_str(), 0644); // as the device manager does
    EXPECT_TRUE(eventually([&] { return pedals.devices()[0].readable; }));
    send(writer->get(), key(256, 1));
    EXPECT_TRUE(reads({{0, 256, true}}));
}

TEST_F(PedalDevicesTest, WatchingAll_TakesNothingFromOtherPrograms_AndMayStopWithinAPress) {
    const auto writer = plugKeys("event7", "0abc");
    pedals.watch(models, true);
    EXPECT_EQ(recordedDevice().grabs, 0);
    pedals.Moved = [&](int, const platform::PedalCode& pedal, bool) {
        moves.push_back({0, pedal.model.product, true});
        pedals.stop();
    };
    send(writer->get(), key(256, 1) + key(256, 0));
    EXPECT_TRUE(eventually([&] { return !moves.empty(); }));
    EXPECT_THAT(pedals.devices(), IsEmpty());
    pedals.watch({{{0x05f3, 0x0abc}, false}}, false);
    send(writer->get(), key(258, 1));
    EXPECT_TRUE(eventually([&] { return moves.size() > 1; }));
    EXPECT_EQ(recordedDevice().grabs, 1);
}
