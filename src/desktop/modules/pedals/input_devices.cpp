#include "input_devices.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <optional>

namespace desktop {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestLine = 4096; // bytes

std::string lineOf(const fs::path& file) {
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    return line.substr(0, longestLine);
}

std::uint16_t hexadecimal(std::string_view text) {
    std::uint32_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, 16);
    return static_cast<std::uint16_t>(value);
}

// The kernel writes the bits of all keys as words; a device without keys has only zeros.
bool hasKeys(const fs::path& input) {
    return lineOf(input / "capabilities/key").find_first_not_of("0 ") != std::string::npos;
}

std::vector<std::string> entries(const fs::path& folder, std::string_view start) {
    std::vector<std::string> names;
    std::error_code none;
    for (fs::directory_iterator each(folder, none), end; !none && each != end; each.increment(none))
        if (const std::string name = each->path().filename(); name.starts_with(start))
            names.push_back(name);
    std::ranges::sort(names);
    return names;
}

// A device without keys, from its lines HID_ID=0003:000005F3:000000FF and HID_NAME.
std::optional<InputDevice> keylessDevice(const fs::path& about) {
    for (const std::string& input : entries(about / "input", "input"))
        if (hasKeys(about / "input" / input))
            return std::nullopt;
    InputDevice device;
    std::ifstream in(about / "uevent");
    for (std::string line; std::getline(in, line) && line.size() < longestLine;) {
        constexpr std::string_view id = "HID_ID=";
        constexpr std::string_view name = "HID_NAME=";
        const std::size_t first = line.find(':');
        const std::size_t second = first == std::string::npos ? first : line.find(':', first + 1);
        if (line.starts_with(id) && second != std::string::npos) {
            const std::string_view all = line;
            device.model = {hexadecimal(all.substr(first + 1, second - first - 1)),
                            hexadecimal(all.substr(second + 1))};
        } else if (line.starts_with(name)) {
            device.name = line.substr(name.size());
        }
    }
    return device;
}

} // namespace

std::vector<InputDevice> inputDevices(const std::string& dev, const std::string& sys) {
    std::vector<InputDevice> devices;
    for (const std::string& event : entries(fs::path(dev) / "input", "event")) {
        const fs::path about = fs::path(sys) / "class/input" / event / "device";
        if (hasKeys(about))
            devices.push_back(
                {{hexadecimal(lineOf(about / "id/vendor")), hexadecimal(lineOf(about / "id/product"))},
                 lineOf(about / "name"),
                 fs::path(dev) / "input" / event,
                 true});
    }
    for (const std::string& raw : entries(dev, "hidraw")) {
        auto device = keylessDevice(fs::path(sys) / "class/hidraw" / raw / "device");
        if (!device)
            continue;
        device->path = fs::path(dev) / raw;
        devices.push_back(*device);
    }
    return devices;
}

} // namespace desktop
