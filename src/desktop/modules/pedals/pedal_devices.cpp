#include "pedal_devices.h"

#include "base/failure.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace desktop {

namespace {

constexpr int settles = 50;          // ms; a device appears as several files
constexpr int withoutNotices = 2000; // ms between two looks at the folders

} // namespace

void PedalDevices::Later::operator()(QSocketNotifier* notifier) const {
    notifier->setEnabled(false);
    notifier->deleteLater();
}

PedalDevices::PedalDevices(std::string dev, std::string sys)
    : dev_(std::move(dev)), sys_(std::move(sys)), notices_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    QObject::connect(&rescan_, &QTimer::timeout, [this] { scan(); });
    if (notices_ < 0)
        return;
    noticed_ = std::make_unique<QSocketNotifier>(notices_, QSocketNotifier::Read);
    noticed_->setEnabled(false);
    QObject::connect(noticed_.get(), &QSocketNotifier::activated, [this] { readNotices(); });
}

PedalDevices::~PedalDevices() {
    open_.clear();
    noticed_.reset();
    if (notices_ >= 0)
        ::close(notices_);
}

void PedalDevices::watch(const std::vector<platform::WatchedModel>& models, bool all) {
    stop();
    models_ = models;
    all_ = all;
    if (noticed_)
        noticed_->setEnabled(true);
    watchFolders();
    for (const InputDevice& device : inputDevices(dev_, sys_))
        open(device, open_[device.path]);
    rescan_.setSingleShot(notices_ >= 0);
    if (notices_ < 0)
        rescan_.start(withoutNotices);
}

void PedalDevices::stop() {
    rescan_.stop();
    if (noticed_)
        noticed_->setEnabled(false);
    open_.clear();
    models_.clear();
}

// Watching a folder again is harmless; the folder of input devices may appear late.
void PedalDevices::watchFolders() {
    constexpr std::uint32_t events = IN_CREATE | IN_ATTRIB | IN_DELETE | IN_MOVED_TO;
    for (const std::string& folder : {dev_, dev_ + "/input"})
        ::inotify_add_watch(notices_, folder.c_str(), events);
}

void PedalDevices::readNotices() {
    alignas(inotify_event) std::array<char, 4096> bytes;
    bool isOurs = false;
    ssize_t length = 0;
    while ((length = ::read(notices_, bytes.data(), bytes.size())) > 0) {
        for (ssize_t at = 0; at < length;) {
            const auto& notice = *reinterpret_cast<const inotify_event*>(bytes.data() + at);
            const std::string_view name = notice.len > 0 ? notice.name : "";
            isOurs = isOurs || name.starts_with("event") || name.starts_with("hidraw") || name == "input" ||
                     (notice.mask & IN_Q_OVERFLOW) != 0;
            at += static_cast<ssize_t>(sizeof(inotify_event) + notice.len);
        }
    }
    if (isOurs)
        rescan_.start(settles);
}

// Closes what is gone and opens what is new, or may be read now.
void PedalDevices::scan() {
    watchFolders();
    const auto before = devices();
    const std::vector<InputDevice> now = inputDevices(dev_, sys_);
    // The reader of a device that is gone notices that by itself, and reports the releases.
    std::erase_if(open_, [&](const auto& entry) {
        return !entry.second.reader && std::ranges::find(now, entry.second.device) == now.end();
    });
    for (const InputDevice& device : now)
        if (Open& known = open_[device.path]; !known.reader)
            open(device, known);
    std::erase_if(open_, [](const auto& entry) { return entry.second.device.path.empty(); });
    if (devices() != before)
        DevicesChanged();
}

const platform::WatchedModel* PedalDevices::watched(const platform::DeviceModel& model) const {
    const auto found = std::ranges::find(models_, model, &platform::WatchedModel::model);
    return found == models_.end() ? nullptr : &*found;
}

void PedalDevices::open(const InputDevice& device, Open& open) {
    const platform::WatchedModel* const model = watched(device.model);
    if (!model && !all_)
        return;
    const int descriptor = ::open(device.path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0 && errno != EACCES && errno != EPERM)
        return; // gone already
    open.device = device;
    if (descriptor < 0)
        return;
    try {
        if (device.hasKeys) {
            auto reader = std::make_unique<KeyReader>(descriptor);
            if (model && !all_ && (model->isPedal || !reader->isForTyping()))
                reader->keepToItself();
            open.reader = std::move(reader);
        } else {
            open.reader = std::make_unique<ReportReader>(descriptor);
        }
    } catch (const base::Failure&) {
        open.device = {}; // unplugged at this moment
        return;
    }
    open.number = nextNumber_++;
    open.notifier.reset(new QSocketNotifier(descriptor, QSocketNotifier::Read));
    QObject::connect(open.notifier.get(), &QSocketNotifier::activated,
                     [this, number = open.number] { read(number); });
}

void PedalDevices::read(int number) {
    const auto found = std::ranges::find_if(
        open_, [&](const auto& entry) { return entry.second.reader && entry.second.number == number; });
    if (found == open_.end())
        return;
    const InputDevice device = found->second.device;
    const std::vector<DeviceReader::Move> moves = found->second.reader->read();
    const bool isGone = found->second.reader->isGone();
    if (isGone) {
        open_.erase(found);
        rescan_.start(settles); // another one may already have its name
    }
    // Whoever is told may stop everything.
    for (const DeviceReader::Move& move : moves)
        Moved(number, {device.model, !device.hasKeys, move.code}, move.pressed);
    if (isGone)
        DevicesChanged();
}

std::vector<platform::PedalDevice> PedalDevices::devices() const {
    std::vector<platform::PedalDevice> devices;
    for (const auto& [path, open] : open_)
        if (!open.device.path.empty())
            devices.push_back({open.device.model, base::fromUtf8(open.device.name), base::fromUtf8(path),
                               open.reader != nullptr});
    return devices;
}

} // namespace desktop
