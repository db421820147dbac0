#pragma once

#include "platform/worker.h"

namespace fakes {

// A worker without a thread: work runs when posted.
struct FakeWorker : platform::Worker {
    void post(std::function<void()> work) override { work(); }
    void drain() override {}
};

} // namespace fakes
