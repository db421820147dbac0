// Reads one device from its file descriptor.
#pragma once

#include <bitset>
#include <memory>
#include <set>
#include <vector>

struct libevdev;

namespace desktop {

// What a device reports: the keys or bits that are pressed.
class DeviceReader {
public:
    // A key or bit that was pressed or released.
    struct Move {
        int code = 0;
        bool pressed = false;

        bool operator==(const Move&) const = default;
    };

    DeviceReader() = default;
    DeviceReader(const DeviceReader&) = delete;
    DeviceReader& operator=(const DeviceReader&) = delete;
    virtual ~DeviceReader() = default;

    // Reads what has arrived, without waiting. Ends with the release of all that is held if the device is
    // gone.
    std::vector<Move> read();
    bool isGone() const { return gone_; }

    // From now on, what the device types reaches no other program.
    virtual void keepToItself() {}

protected:
    // Reads once. Returns false if the device is gone.
    virtual bool readOnce() = 0;
    // A state that was already reported is ignored.
    void move(int code, bool pressed);

private:
    std::set<int> held_;
    std::vector<Move> moves_;
    bool gone_ = false;
};

// A device with keys, as the kernel's input layer reports it.
class KeyReader : public DeviceReader {
public:
    // Owns the descriptor, which must not block. Throws base::Failure if it is not an input device.
    explicit KeyReader(int descriptor);
    ~KeyReader() override;

    // True for keyboards and mice.
    bool isForTyping() const;
    void keepToItself() override;

protected:
    bool readOnce() override;

private:
    struct Closer {
        void operator()(libevdev* device) const;
    };

    bool holdsAnything() const;
    void grabIfFree();

    int descriptor_;
    std::unique_ptr<libevdev, Closer> device_;
    bool wantsGrab_ = false;
};

// A device without keys: each bit of its reports is a pedal.
class ReportReader : public DeviceReader {
public:
    // Owns the descriptor, which must not block.
    explicit ReportReader(int descriptor) : descriptor_(descriptor) {}
    ~ReportReader() override;

protected:
    bool readOnce() override;

private:
    static constexpr std::size_t mostBytes = 64; // of a report

    int descriptor_;
    std::bitset<mostBytes * 8> bits_; // of the last report
};

} // namespace desktop
