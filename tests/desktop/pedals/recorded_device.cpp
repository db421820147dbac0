#include "recorded_device.h"

#include <cerrno>
#include <cstdarg>
#include <cstring>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

RecordedDevice& recordedDevice() {
    static RecordedDevice device;
    return device;
}

namespace {

void setBits(void* bytes, std::size_t size, const std::set<int>& bits) {
    std::memset(bytes, 0, size);
    for (const int bit : bits)
        if (static_cast<std::size_t>(bit) / 8 < size)
            static_cast<unsigned char*>(bytes)[bit / 8] |= static_cast<unsigned char>(1U << bit % 8);
}

} // namespace

// Answers for the kernel where a descriptor is a pipe; libevdev finds this function before the C library's.
// The names of the C library are reserved ones.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
extern "C" int ioctl(int descriptor, unsigned long request, ...) noexcept {
    std::va_list arguments;
    va_start(arguments, request);
    void* const answer = va_arg(arguments, void*);
    va_end(arguments);
    struct stat file {};
    if (fstat(descriptor, &file) != 0 || !S_ISFIFO(file.st_mode) || _IOC_TYPE(request) != 'E')
        return static_cast<int>(syscall(SYS_ioctl, descriptor, request, answer));
    RecordedDevice& device = recordedDevice();
    const std::size_t size = _IOC_SIZE(request);
    switch (_IOC_NR(request)) {
    case _IOC_NR(EVIOCGNAME(0)):
        std::memcpy(answer, "pedal", 6);
        return 6;
    case _IOC_NR(EVIOCGPHYS(0)):
    case _IOC_NR(EVIOCGUNIQ(0)):
        errno = ENOENT;
        return -1;
    case _IOC_NR(EVIOCGRAB):
        device.grabs += answer ? 1 : 0;
        return 0;
    case _IOC_NR(EVIOCGKEY(0)):
        setBits(answer, size, device.held);
        return static_cast<int>(size);
    case _IOC_NR(EVIOCGBIT(0, 0)):
        setBits(answer, size, {EV_SYN, EV_KEY});
        return static_cast<int>(size);
    case _IOC_NR(EVIOCGBIT(EV_KEY, 0)):
        setBits(answer, size, device.keys);
        return static_cast<int>(size);
    default:
        std::memset(answer, 0, size);
        return static_cast<int>(size);
    }
}
