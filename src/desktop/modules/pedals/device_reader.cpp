#include "device_reader.h"

#include "base/failure.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <libevdev/libevdev.h>
#include <poll.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace desktop {

namespace {

constexpr int mostAtOnce = 1000; // events or reports, so that a device that never stops does not block

bool isHungUp(int descriptor) {
    pollfd device{descriptor, POLLIN, 0};
    return ::poll(&device, 1, 0) > 0 && (device.revents & POLLIN) == 0 &&
           (device.revents & (POLLHUP | POLLERR)) != 0;
}

} // namespace

std::vector<DeviceReader::Move> DeviceReader::read() {
    if (!gone_ && !readOnce())
        gone_ = true;
    if (gone_)
        for (const int code : std::set<int>(held_))
            move(code, false);
    return std::exchange(moves_, {});
}

void DeviceReader::move(int code, bool pressed) {
    if (pressed ? held_.insert(code).second : held_.erase(code) > 0)
        moves_.push_back({code, pressed});
}

void KeyReader::Closer::operator()(libevdev* device) const {
    libevdev_free(device);
}

KeyReader::KeyReader(int descriptor) : descriptor_(descriptor) {
    libevdev* device = nullptr;
    if (const int failed = libevdev_new_from_fd(descriptor, &device); failed < 0) {
        ::close(descriptor);
        throw base::Failure(std::strerror(-failed));
    }
    device_.reset(device);
}

KeyReader::~KeyReader() {
    device_.reset();
    ::close(descriptor_);
}

bool KeyReader::isForTyping() const {
    const auto has = [this](unsigned type, unsigned code) {
        return libevdev_has_event_code(device_.get(), type, code) != 0;
    };
    return has(EV_REL, REL_X) || has(EV_ABS, ABS_MT_POSITION_X) ||
           (has(EV_KEY, KEY_A) && has(EV_KEY, KEY_Z) && has(EV_KEY, KEY_ENTER));
}

void KeyReader::keepToItself() {
    wantsGrab_ = true;
    grabIfFree();
}

// Other programs would never learn of the release of a key that is held now.
void KeyReader::grabIfFree() {
    if (!wantsGrab_ || holdsAnything())
        return;
    libevdev_grab(device_.get(), LIBEVDEV_GRAB);
    wantsGrab_ = false;
}

bool KeyReader::holdsAnything() const {
    for (unsigned code = 0; code < KEY_CNT; ++code)
        if (libevdev_get_event_value(device_.get(), EV_KEY, code) != 0)
            return true;
    return false;
}

bool KeyReader::readOnce() {
    unsigned flag = LIBEVDEV_READ_FLAG_NORMAL;
    for (int i = 0; i < mostAtOnce || flag == LIBEVDEV_READ_FLAG_SYNC; ++i) {
        input_event event{};
        const int status = libevdev_next_event(device_.get(), flag, &event);
        if (status == -EAGAIN && flag == LIBEVDEV_READ_FLAG_SYNC) {
            flag = LIBEVDEV_READ_FLAG_NORMAL; // what was lost is made up for
            continue;
        }
        if (status == -EAGAIN && isHungUp(descriptor_))
            return false;
        if (status == -EAGAIN || status == -EINTR)
            break;
        if (status < 0)
            return false;
        if (status == LIBEVDEV_READ_STATUS_SYNC)
            flag = LIBEVDEV_READ_FLAG_SYNC;
        constexpr int repeat = 2;
        if (event.type == EV_KEY && event.value != repeat)
            move(event.code, event.value != 0);
    }
    grabIfFree();
    return true;
}

ReportReader::~ReportReader() {
    ::close(descriptor_);
}

bool ReportReader::readOnce() {
    for (int i = 0; i < mostAtOnce; ++i) {
        std::array<unsigned char, mostBytes> report{};
        const ssize_t length = ::read(descriptor_, report.data(), report.size());
        if (length < 0 && (errno == EAGAIN || errno == EINTR))
            return true;
        if (length <= 0)
            return false;
        for (std::size_t bit = 0; bit < static_cast<std::size_t>(length) * 8; ++bit) {
            const bool now = (report[bit / 8] >> bit % 8 & 1U) != 0;
            if (bits_[bit] != now)
                move(static_cast<int>(bit), now);
            bits_[bit] = now;
        }
    }
    return true;
}

} // namespace desktop
