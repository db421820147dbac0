#pragma once

#include "platform/dialogs.h"
#include "platform/wave_input.h"
#include "recorder/recording_journal.h"
#include "recorder/wav_writer.h"

#include <array>
#include <cstdint>
#include <functional>

namespace recorder {

// The capture engine: five buffers circulate between the device and the file. A statement that fails is
// skipped; only a device that cannot be opened is reported to the user.
class WaveIn {
public:
    WaveIn(platform::WaveInput& device, platform::Dialogs& dialogs, RecordingJournal& journal);
    WaveIn(const WaveIn&) = delete;
    WaveIn& operator=(const WaveIn&) = delete;
    ~WaveIn();

    // Starts or stops listening to the device. A second start is refused with a message.
    void AggancioCattura(bool attiva);
    // Starts a recording with `canali` channels, `bit` bits per sample and `frequenza` samples per second
    // into this file; without a file if the name is empty.
    void AvviaCattura(std::int16_t canali, std::int16_t bit, std::int32_t frequenza, base::TextView fileName);
    // Pauses or resumes the recording. Sound that arrives during a pause is discarded.
    void PausaCattura();
    // Stops the recording and completes its file.
    void FermaCattura();

    // The peaks of one millisecond of sound, 0 to ValoreMassimo, from the buffer before the one that finished
    // last. Leaves both unchanged until there is such a buffer. Both are equal for one channel.
    void LeggiPicchi(int& sinistro, int& destro);
    // The byte counter; starts at 45 if there is a file.
    std::int64_t ByteRegistrati() const { return writer_.BytesScritti(); }
    std::int64_t SecondiRegistrati() const;
    // The largest peak of the format; 0 if it has neither 8 nor 16 bits.
    double ValoreMassimo() const;

    // True while the disk refuses the recording or its device is gone: the peaks are 0.
    bool isIdle() const { return diskRefuses_ || deviceLost_; }

    // The file cannot be written, with the system's message, and can be written again: the recording lacks
    // the sound in between.
    std::function<void(const base::Text& reason)> DiskRefuses = [](const base::Text&) {};
    std::function<void()> DiskTakes = [] {};
    // The device is gone, and is back.
    std::function<void(const base::Text& reason)> DeviceLost = [](const base::Text&) {};
    std::function<void()> DeviceBack = [] {};

    // Message of the last device or write error.
    const base::Text& TestoErrore() const { return errorText_; }

private:
    static constexpr std::uint32_t bufferCount = 5;

    // The device has filled this buffer: writes it and queues it again.
    void ProcCattura(platform::WaveBuffer& buffer);
    // The device has answered: completes the start.
    void opened(platform::WaveInput::Result result);
    void offerAllBuffers();
    void allocateBuffers();
    void judgeDisk();

    platform::WaveInput& device_;
    platform::Dialogs& dialogs_;
    RecordingJournal& journal_;
    WavWriter writer_;
    base::Text path_; // file of the running recording

    base::Text errorText_;
    platform::WaveInput::Result UltimoErrore = 0;
    std::int32_t DimBuffer = 0;
    platform::WaveFormat Formato;
    std::array<platform::WaveBuffer, bufferCount> Intestazioni;
    std::uint32_t UltimoBuffer = 0;
    struct {
        std::uint32_t buffer = 0;        // the one that LeggiPicchi examined last
        bool seenOtherThanFirst = false; // a buffer other than number 0 has finished
    } StatoPicco;
    bool hooked_ = false;
    bool capturing_ = false;
    bool InPausa = false;
    bool diskRefuses_ = false;
    bool deviceLost_ = false;
};

} // namespace recorder
