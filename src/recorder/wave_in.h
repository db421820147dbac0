#pragma once

#include "platform/dialogs.h"
#include "platform/wave_input.h"
#include "recorder/recording_journal.h"
#include "recorder/wav_writer.h"

#include <array>
#include <cstdint>

namespace recorder {

// The capture engine: five buffers go round between the device and the file. Every statement that fails is
// skipped; only a device that refuses to open is told to the user.
class WaveIn {
public:
    WaveIn(platform::WaveInput& device, platform::Dialogs& dialogs, RecordingJournal& journal);
    WaveIn(const WaveIn&) = delete;
    WaveIn& operator=(const WaveIn&) = delete;
    ~WaveIn();

    // Listens to the device, or no longer does. Listening twice is refused with a message.
    void AggancioCattura(bool attiva);
    // Starts a recording of `canali` channels, `bit` bits and `frequenza` samples per second into this file;
    // into none when the name is empty.
    void AvviaCattura(std::int16_t canali, std::int16_t bit, std::int32_t frequenza, base::TextView fileName);
    // Holds the recording, or goes on with it. What arrives meanwhile is dropped.
    void PausaCattura();
    // Ends the recording and finishes its file.
    void FermaCattura();

    // The peaks of one millisecond of sound, 0 to ValoreMassimo: from the buffer before the one that finished
    // last. Leaves both as they are until there is such a buffer. With one channel both are the same.
    void LeggiPicchi(int& sinistro, int& destro);
    // The byte counter, which begins at 45 when there is a file.
    std::int64_t ByteRegistrati() const { return writer_.BytesScritti(); }
    std::int64_t SecondiRegistrati() const;
    // The greatest peak that the format can hold; 0 when it is neither of 16 nor of 8 bits.
    double ValoreMassimo() const;

    // Text of the last refused device or block.
    const base::Text& TestoErrore() const { return errorText_; }

private:
    static constexpr std::uint32_t bufferCount = 5;

    // The device has something to tell: the buffer is written and offered again.
    void ProcCattura(platform::WaveBuffer& buffer);
    // The device has answered: the rest of the start.
    void opened(platform::WaveInput::Result result);
    void offerAllBuffers();
    void allocateBuffers();

    platform::WaveInput& device_;
    platform::Dialogs& dialogs_;
    RecordingJournal& journal_;
    WavWriter writer_;
    base::Text path_; // of the recording that runs

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
};

} // namespace recorder
