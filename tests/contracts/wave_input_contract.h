#pragma once

#include "contracts/contract.h"
#include "platform/wave_input.h"

namespace contracts {

struct WaveInputBench {
    virtual ~WaveInputBench() = default;
    virtual platform::WaveInput& device() = 0;
    virtual void takeDeviceAway() = 0;
    virtual void listen() = 0; // runs for a moment in which sound may fill a buffer
};

using platform::WaveBuffer;

struct WaveInputContract : Contract<WaveInputBench> {
    WaveInputContract() {
        for (WaveBuffer& buffer : buffers)
            buffer.lpData.resize(8192);
        device.BufferDone = [this](WaveBuffer& buffer) {
            EXPECT_EQ(buffer.dwFlags, WaveBuffer::WHDR_PREPARED | WaveBuffer::WHDR_DONE);
            EXPECT_EQ(buffer.dwBytesRecorded, buffer.lpData.size());
            done.push_back(&buffer - buffers);
        };
    }
    int open() {
        std::optional<int> answer;
        device.open({1, 2, 44100, 176400, 4, 16}, [&](int result) { answer = result; });
        for (int i = 0; i < 10'000 && !answer; ++i)
            bench->listen();
        return answer.value_or(-1);
    }
    void listenFor(std::size_t count) {
        for (int i = 0; i < 5000 && done.size() < count; ++i)
            bench->listen();
    }
    void expectEveryCallFails() {
        const unsigned before = buffers[0].dwFlags;
        for (const auto result :
             {device.prepareHeader(buffers[0]), device.addBuffer(buffers[0]), device.start(), device.stop(),
              device.reset(), device.unprepareHeader(buffers[0])})
            EXPECT_NE(result, 0);
        EXPECT_EQ(buffers[0].dwFlags, before);
    }

    platform::WaveInput& device = bench->device();
    WaveBuffer buffers[3];
    std::vector<std::ptrdiff_t> done;
};

TEST_P(WaveInputContract, WithoutADevice_EveryCallFails) {
    expectEveryCallFails();
    ASSERT_EQ(open(), 0);
    device.close();
    expectEveryCallFails();
    bench->takeDeviceAway();
    const auto refused = open();
    EXPECT_NE(refused, 0);
    EXPECT_NE(device.errorText(refused), u"");
    expectEveryCallFails();
}

TEST_P(WaveInputContract, Buffers_AreFilledInOrder_MustBePrepared_AndQueuedOnlyOnce) {
    ASSERT_EQ(open(), 0);
    EXPECT_NE(device.addBuffer(buffers[0]), 0) << "not prepared";
    for (WaveBuffer& buffer : buffers)
        EXPECT_EQ(device.prepareHeader(buffer), 0);
    for (const int n : {1, 0})
        EXPECT_EQ(device.addBuffer(buffers[n]), 0);
    EXPECT_NE(device.addBuffer(buffers[1]), 0);
    EXPECT_NE(device.unprepareHeader(buffers[1]), 0);
    EXPECT_EQ(device.start(), 0);
    listenFor(2);
    EXPECT_EQ(device.addBuffer(buffers[2]), 0);
    listenFor(3);
    EXPECT_EQ(done, (std::vector<std::ptrdiff_t>{1, 0, 2}));
    EXPECT_EQ(device.unprepareHeader(buffers[1]), 0);
    EXPECT_EQ(buffers[1].dwFlags & WaveBuffer::WHDR_PREPARED, 0U);
}

TEST_P(WaveInputContract, StopResetAndClose_ReportNoBuffer) {
    ASSERT_EQ(open(), 0);
    for (WaveBuffer& buffer : buffers)
        device.prepareHeader(buffer);
    const auto expectNoneReported = [&] {
        done.clear();
        for (int i = 0; i < 100; ++i)
            bench->listen();
        EXPECT_TRUE(done.empty());
    };
    EXPECT_EQ(device.addBuffer(buffers[0]), 0);
    expectNoneReported(); // not started yet
    device.start();
    listenFor(1);
    EXPECT_EQ(device.stop(), 0);
    device.addBuffer(buffers[1]);
    device.addBuffer(buffers[2]);
    expectNoneReported();
    EXPECT_EQ(device.reset(), 0);
    for (const WaveBuffer& buffer : buffers)
        EXPECT_EQ(buffer.dwFlags, WaveBuffer::WHDR_PREPARED | WaveBuffer::WHDR_DONE);
    device.start();
    device.addBuffer(buffers[0]);
    device.close();
    expectNoneReported();
}

} // namespace contracts
