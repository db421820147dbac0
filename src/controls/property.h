// One value of a control, which notifies the control's watchers of changes.
#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace controls {

// An observable object. The window that displays a control watches it; watchers live as long as the control.
class Observed {
public:
    Observed() = default;
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;

    void observe(std::function<void()> watcher) { watchers_.push_back(std::move(watcher)); }

protected:
    ~Observed() = default;

private:
    template <typename>
    friend class Property;

    void changed() const {
        for (const auto& watcher : watchers_)
            watcher();
    }

    std::vector<std::function<void()>> watchers_;
};

// A value of the control `owner`. Setting an equal value notifies nobody, so a timer tick that changes
// nothing costs no repaint.
template <typename T>
class Property {
public:
    explicit Property(Observed* owner, T value = {}) : owner_(owner), value_(std::move(value)) {}
    Property(const Property&) = delete;

    Property& operator=(const Property& other) {
        if (this != &other)
            set(other.value_);
        return *this;
    }
    Property& operator=(T value) {
        set(std::move(value));
        return *this;
    }

    const T& get() const { return value_; }
    operator const T&() const {
        return value_;
    } // NOLINT(google-explicit-constructor): reads as the value that it is
    const T* operator->() const { return &value_; }

private:
    void set(T value) {
        if (value_ == value)
            return;
        value_ = std::move(value);
        owner_->changed();
    }

    Observed* owner_;
    T value_;
};

// Sets the width or height of a control, in twips. A negative size is ignored.
inline void resize(Property<double>& size, double twips) {
    if (twips >= 0)
        size = twips;
}

} // namespace controls
