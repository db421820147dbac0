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
using testing::IsEmpty;

namespace {

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

std::string textOf(const std::vector<desktop::DeviceReader::Move>& moves) {
    std::string text;
    for (const auto& move : moves)
        text += (move.pressed ? " +" : " -") + std::to_string(move.code);
    return text;
}

// What a reader reports of each of these pieces; an empty piece unplugs the device. `heldNow`: the keys as
// the kernel sees them when events were lost.
template <typename Reader>
std::string movesOf(const std::vector<std::string>& pieces, const std::set<int>& heldNow = {}) {
    recordedDevice() = {};
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_NONBLOCK | O_DIRECT), 0);
    Reader reader(ends[0]);
    base::Descriptor writer(ends[1]);
    recordedDevice().held = heldNow;
    std::string moves;
    for (const std::string& piece : pieces) {
        piece.empty() ? writer.close() : send(writer.get(), piece);
        moves += textOf(reader.read());
    }
    return moves;
}

} // namespace

TEST(KeyReader, RecordedStreams) {
    const std::string lost = event(EV_SYN, SYN_DROPPED, 0) + key(30, 1) + event(EV_SYN, SYN_REPORT, 0);
    const std::string left = key(256, 1);
    const std::string up = key(256, 0);
    std::string noise(std::size_t{24} * 64, '\0');
    for (std::size_t i = 0; i < noise.size(); ++i)
        noise[i] = static_cast<char>(i * 2654435761U >> 13U);
    const std::tuple<const char*, std::vector<std::string>, std::set<int>, std::string> rows[] = {
        {"press and release", {left, up}, {}, " +256 -256"},
        {"in one read", {left + key(258, 1) + up}, {}, " +256 +258 -256"},
        {"the repeat of a held key", {left, key(256, 2) + key(256, 2)}, {}, " +256"},
        {"a release of nothing", {up}, {}, ""},
        {"unplugged while held", {left + key(257, 1), ""}, {}, " +256 +257 -256 -257"},
        {"lost events: a release", {left, lost}, {}, " +256 -256"},
        {"lost events: a press", {left, lost, key(258, 0)}, {256, 258}, " +256 +258 -258"},
        {"half an event", {left, up.substr(0, 30)}, {}, " +256 -256"},
    };
    for (const auto& [what, pieces, heldNow, moves] : rows)
        EXPECT_EQ(movesOf<desktop::KeyReader>(pieces, heldNow), moves) << what;
    movesOf<desktop::KeyReader>({noise, noise.substr(5), ""}); // neither crashes nor hangs
    EXPECT_THROW(desktop::KeyReader(::open("/dev/null", O_RDONLY)), base::Failure);
}

TEST(ReportReader, RecordedReports) {
    const std::string none("\0\0", 2);
    const std::tuple<const char*, std::vector<std::string>, std::string> rows[] = {
        {"left and right", {"\1", "\5", "\4", none}, " +0 +2 -0 -2"},
        {"the same again", {"\2", "\2"}, " +1"},
        {"a short one keeps the rest", {none.substr(1) + "\1", "\2", none}, " +8 +1 -1 -8"},
        {"unplugged while held", {"\2", ""}, " +1 -1"},
        {"a long one is cut", {std::string(600, '\0') + '\1', "\1"}, " +0"},
    };
    for (const auto& [what, pieces, moves] : rows)
        EXPECT_EQ(movesOf<desktop::ReportReader>(pieces), moves) << what;
}

// Folders like those of the kernel, with pipes as devices.
class PedalDevicesTest : public testing::Test {
protected:
    PedalDevicesTest() {
        recordedDevice() = {};
        pedals.Moved = [this](int device, const platform::PedalCode& pedal, bool pressed) {
            moves += std::to_string(device) + (pedal.isBit ? "b" : "k") + std::to_string(pedal.code) +
                     (pressed ? "+ " : "- ");
        };
        pedals.DevicesChanged = [this] { ++changes; };
    }
    // Plugs in a device; returns what writes its events.
    auto plugKeys(const std::string& name, const std::string& product, mode_t mode = 0600) {
        const std::string about = "sys/class/input/" + name + "/device/";
        folder.write(about + "name", "Pedal " + product + "\n");
        folder.write(about + "id/vendor", "05f3\n");
        folder.write(about + "id/product", product + "\n");
        folder.write(about + "capabilities/key", "7 0 0\n");
        return plug("dev/input/" + name, mode);
    }
    std::unique_ptr<base::Descriptor> plug(const std::string& file, mode_t mode) {
        const std::filesystem::path path = folder.path() / file;
        const std::string hidden = path.string() + "~";
        std::filesystem::create_directories(path.parent_path());
        EXPECT_EQ(mkfifo(hidden.c_str(), 0600), 0);
        auto writer = std::make_unique<base::Descriptor>(hidden, O_RDWR | O_NONBLOCK);
        EXPECT_EQ(chmod(hidden.c_str(), mode), 0);
        std::filesystem::rename(hidden, path);
        return writer;
    }
    bool finds(std::size_t count) {
        return eventually([&] { return pedals.devices().size() == count; });
    }
    bool reads(const std::string& wanted) {
        return eventually([&] { return moves == wanted; });
    }

    fakes::TemporaryFolder folder;
    std::string moves;
    int changes = 0;
    desktop::PedalDevices pedals{folder.path() / "dev", folder.path() / "sys"};
    const std::vector<platform::WatchedModel> models{{{0x05f3, 0x00ff}, true}};
};

TEST_F(PedalDevicesTest, SeveralPedals_PluggedInAndOut) {
    std::filesystem::create_directories(folder.path() / "dev");
    pedals.watch(models, false);
    auto keys = plugKeys("event3", "00ff"); // the folder of input devices is new, too
    ASSERT_TRUE(finds(1));
    EXPECT_EQ(recordedDevice().grabs, 1);
    folder.write("sys/class/hidraw/hidraw0/device/uevent", "HID_ID=0003:000005F3:000000FF\nHID_NAME=Raw\n");
    const auto raw = plug("dev/hidraw0", 0600);
    const auto keyboard = plugKeys("event4", "0001");
    ASSERT_TRUE(finds(2));
    send(raw->get(), "\2");
    EXPECT_TRUE(reads("1b1+ "));
    send(keyboard->get(), key(30, 1));
    send(keys->get(), key(257, 1));
    EXPECT_TRUE(reads("1b1+ 0k257+ "));
    std::filesystem::remove(folder.path() / "dev/input/event3");
    keys->close();
    EXPECT_TRUE(reads("1b1+ 0k257+ 0k257- "));
    EXPECT_EQ(pedals.devices().size(), 1U);
    keys = plugKeys("event3", "00ff");
    EXPECT_TRUE(finds(2));
    EXPECT_GE(changes, 3);
}

TEST_F(PedalDevicesTest, ADeviceThatMayNotBeRead_IsTold_AndOpenedOnceItMay) {
    recordedDevice().held = {256};
    const auto writer = plugKeys("event0", "00ff", 0);
    chmod(folder.path().c_str(), 0755);
    setfsuid(65534); // root may read everything
    pedals.watch(models, false);
    setfsuid(0);
    ASSERT_EQ(pedals.devices().size(), 1U);
    EXPECT_FALSE(pedals.devices()[0].readable);
    chmod((folder.path() / "dev/input/event0").c_str(), 0644); // as the device manager does
    EXPECT_TRUE(eventually([&] { return pedals.devices()[0].readable; }));
    EXPECT_EQ(recordedDevice().grabs, 0) << "a key is held: others would miss its release";
    send(writer->get(), key(256, 0) + key(256, 1));
    EXPECT_TRUE(reads("0k256+ "));
}

TEST_F(PedalDevicesTest, WatchingAll_TakesNothingFromOtherPrograms_AndMayStopWithinAPress) {
    const auto writer = plugKeys("event7", "0abc");
    pedals.watch(models, true);
    EXPECT_EQ(recordedDevice().grabs, 0);
    pedals.Moved = [this, told = pedals.Moved](int device, const platform::PedalCode& pedal, bool pressed) {
        told(device, pedal, pressed);
        pedals.stop();
    };
    send(writer->get(), key(256, 1));
    EXPECT_TRUE(reads("0k256+ "));
    EXPECT_THAT(pedals.devices(), IsEmpty());
}
