// A contract is what a port promises, written as tests that run on the real adapter and on the fake. A fake
// that passes behaves like the real thing.
#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace contracts {

// Runs on each bench it is instantiated with. A bench holds one port and everything its tests need.
template <typename Bench>
struct Contract : testing::TestWithParam<std::unique_ptr<Bench> (*)()> {
    const std::unique_ptr<Bench> bench = testing::TestWithParam<std::unique_ptr<Bench> (*)()>::GetParam()();
};

template <typename Bench, typename Own>
std::unique_ptr<Bench> make() {
    return std::make_unique<Own>();
}

} // namespace contracts
