// Writes a property of the engine asynchronously.
#pragma once

namespace desktop {

// One property: the value that the program wants and the value last sent. Only one write is pending at a
// time. While the engine is busy, intermediate values are dropped, so that a held key does not queue up
// writes.
template <typename Value>
class MpvSetting {
public:
    explicit MpvSetting(Value initial) : wanted_(initial), sent_(initial) {}

    void want(Value value) { wanted_ = value; }
    Value wanted() const { return wanted_; }
    bool due() const { return !underWay_ && wanted_ != sent_; }
    bool settled() const { return !underWay_ && wanted_ == sent_; }

    // Starts the write; call only if due().
    Value begin() {
        underWay_ = true;
        sent_ = wanted_;
        return sent_;
    }
    void finish() { underWay_ = false; }

    // The engine has changed the property by itself.
    void correct(Value seen) {
        if (!underWay_)
            sent_ = seen;
    }

private:
    Value wanted_;
    Value sent_;
    bool underWay_ = false;
};

} // namespace desktop
