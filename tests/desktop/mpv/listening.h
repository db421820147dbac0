// What the tests of the media player share: waiting on the Qt loop, and media made on the spot.
#pragma once

#include "platform/media_player.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <random>
#include <string>

namespace platform {

inline void PrintTo(PlayState state, std::ostream* out) {
    *out << static_cast<int>(state);
}

} // namespace platform

namespace listening {

// Runs the loop until the condition holds; false when it does not within the time.
template <typename Condition>
bool waitFor(Condition condition, int milliseconds = 5000) {
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents();
        QThread::usleep(300);
    }
    return true;
}

inline void runLoop(int milliseconds) {
    waitFor([] { return false; }, milliseconds);
}

// A WAV file of white noise, 16 bits, mono.
inline std::string noiseWav(double seconds, std::uint32_t rate = 8000) {
    const auto size = static_cast<std::uint32_t>(seconds * rate) * 2;
    const auto number = [](std::uint32_t value, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i)
            text += static_cast<char>(value >> 8 * i & 0xFFU);
        return text;
    };
    std::string wav = "RIFF" + number(36 + size, 4) + "WAVEfmt " + number(16, 4) + number(1, 2) +
                      number(1, 2) + number(rate, 4) + number(rate * 2, 4) + number(2, 2) + number(16, 2) +
                      "data" + number(size, 4);
    std::minstd_rand random;
    for (std::uint32_t i = 0; i < size / 2; ++i)
        wav += number(random() % 16384 - 8192U, 2);
    return wav;
}

} // namespace listening
