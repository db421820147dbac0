// A contract is what a port promises, as tests that run on the adapter of the desktop and on the fake of the
// rooms: a fake that keeps it tells the rooms the truth.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace contracts {

// Runs on each bench that it is instantiated with. A bench holds one port and what a test needs around it.
template <typename Bench>
class Contract : public testing::TestWithParam<std::unique_ptr<Bench> (*)()> {
protected:
    const std::unique_ptr<Bench> bench = testing::TestWithParam<std::unique_ptr<Bench> (*)()>::GetParam()();
};

template <typename Bench, typename Own>
std::unique_ptr<Bench> make() {
    return std::make_unique<Own>();
}

} // namespace contracts
