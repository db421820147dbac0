// Writing a property of the engine without waiting.
#pragma once

namespace desktop {

// One property as the program wants it and as it was last sent. One write at a time is under way: while the
// engine is busy the values in between are dropped, so that a held key does not pile up writes.
template <typename Value>
class MpvSetting {
public:
    explicit MpvSetting(Value initial) : wanted_(initial), sent_(initial) {}

    void want(Value value) { wanted_ = value; }
    Value wanted() const { return wanted_; }
    bool due() const { return !underWay_ && wanted_ != sent_; }
    bool settled() const { return !underWay_ && wanted_ == sent_; }

    // To be called for the write that `due` asked for.
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
