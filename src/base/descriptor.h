#pragma once

#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace base {

// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int fd = -1) : fd_(fd) {}
    Descriptor(const std::string& path, int flags) : fd_(::open(path.c_str(), flags | O_CLOEXEC)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    bool isOpen() const { return fd_ >= 0; }
    int get() const { return fd_; }
    void take(int fd) {
        close();
        fd_ = fd;
    }
    void close() {
        if (fd_ >= 0)
            ::close(fd_);
        fd_ = -1;
    }

private:
    int fd_;
};

} // namespace base
