#pragma once

#include "device_reader.h"
#include "input_devices.h"
#include "platform/pedals.h"

#include <QSocketNotifier>
#include <QTimer>
#include <map>
#include <memory>
#include <string>

namespace desktop {

// The foot pedals of this machine. The kernel's notices about the folders of device files tell when one is
// plugged in, or may be read now: the device manager grants that a moment after the file has appeared. They
// need no library, and no device manager in a container.
class PedalDevices : public platform::Pedals {
public:
    // `dev` and `sys`: see inputDevices. Requires a QCoreApplication.
    PedalDevices(std::string dev, std::string sys);
    ~PedalDevices() override;

    void watch(const std::vector<platform::WatchedModel>& models, bool all) override;
    void stop() override;
    std::vector<platform::PedalDevice> devices() const override;
    base::Text failure() const override { return {}; }

private:
    // It may be calling while it is removed.
    struct Later {
        void operator()(QSocketNotifier* notifier) const;
    };
    struct Open {
        int number = 0;
        InputDevice device;
        std::unique_ptr<DeviceReader> reader; // null if this user may not read it
        std::unique_ptr<QSocketNotifier, Later> notifier;
    };

    void watchFolders();
    void readNotices();
    void scan();
    const platform::WatchedModel* watched(const platform::DeviceModel& model) const;
    void open(const InputDevice& device, Open& open);
    void read(int number);

    std::string dev_;
    std::string sys_;
    std::vector<platform::WatchedModel> models_;
    bool all_ = false;
    std::map<std::string, Open> open_; // by path
    int nextNumber_ = 0;
    int notices_; // of the kernel; -1 if it has none left
    std::unique_ptr<QSocketNotifier> noticed_;
    QTimer rescan_;
};

} // namespace desktop
