#include "recorder/wave_in.h"

#include "base/carry_on.h"
#include "recorder/wav_header.h"
#include "recorder/wav_repair.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace recorder {

namespace {

constexpr std::int32_t largestBuffer = 8192; // bytes
constexpr std::uint8_t middleOf8Bits = 128;

// A signed 16-bit sample from its low and high byte.
int IntDaByte(std::uint8_t basso, std::uint8_t alto) {
    const int value = alto * 256 + basso;
    return alto > 127 ? value - 65536 : value;
}

} // namespace

WaveIn::WaveIn(platform::WaveInput& device, platform::Dialogs& dialogs, RecordingJournal& journal)
    : device_(device), dialogs_(dialogs), journal_(journal) {
    device_.DeviceLost = [this](const base::Text& reason) {
        deviceLost_ = true;
        DeviceLost(reason);
    };
    device_.DeviceBack = [this] {
        deviceLost_ = false;
        DeviceBack();
    };
}

WaveIn::~WaveIn() {
    device_.BufferDone = nullptr;
    device_.DeviceLost = [](const base::Text&) {};
    device_.DeviceBack = [] {};
    FermaCattura();
}

void WaveIn::AggancioCattura(bool attiva) {
    if (attiva && hooked_) {
        dialogs_.messageBox(u"Double-hooking not permited!", u"ERROR!", platform::BoxStyle::Critical);
        return;
    }
    hooked_ = attiva;
    if (attiva)
        device_.BufferDone = [this](platform::WaveBuffer& buffer) { ProcCattura(buffer); };
    else
        device_.BufferDone = nullptr;
}

void WaveIn::AvviaCattura(std::int16_t canali, std::int16_t bit, std::int32_t frequenza,
                          base::TextView fileName) {
    capturing_ = true;
    // If the window was closed during a pause, the next recording must not start paused.
    InPausa = false;
    deviceLost_ = false;
    diskRefuses_ = false;
    writer_.begin(fileName);
    path_ = fileName;
    Formato = pcmFormat(canali, bit, frequenza);
    DimBuffer = largestBuffer - largestBuffer % std::max<std::int32_t>(Formato.blockAlign, 1);
    writer_.describe(Formato, DimBuffer);
    if (writer_.ConFile())
        base::carryOn([&] { journal_.begun(path_, Formato); });
    device_.open(Formato, [this](platform::WaveInput::Result result) { opened(result); });
}

void WaveIn::opened(platform::WaveInput::Result result) {
    UltimoErrore = result;
    if (UltimoErrore != 0) {
        errorText_ = base::trimmed(device_.errorText(UltimoErrore));
        dialogs_.messageBox(errorText_, {}, platform::BoxStyle::Plain);
    }
    allocateBuffers();
    for (platform::WaveBuffer& buffer : Intestazioni) {
        device_.prepareHeader(buffer);
        device_.addBuffer(buffer);
    }
    // A slow device may answer during a pause.
    if (!InPausa)
        device_.start();
}

void WaveIn::allocateBuffers() {
    for (std::uint32_t i = 0; i < bufferCount; ++i) {
        platform::WaveBuffer& buffer = Intestazioni[i];
        // Initialised with silence, so that the meters do not jump before the first sound.
        buffer.lpData.assign(static_cast<std::size_t>(DimBuffer),
                             Formato.bitsPerSample == 8 ? middleOf8Bits : std::uint8_t{0});
        buffer.dwBytesRecorded = 0;
        buffer.dwFlags = 0;
        buffer.dwUser = i;
    }
}

void WaveIn::PausaCattura() {
    InPausa = !InPausa;
    if (InPausa) {
        device_.stop();
        return;
    }
    offerAllBuffers();
    device_.start();
}

void WaveIn::ProcCattura(platform::WaveBuffer& buffer) {
    if (InPausa)
        return;
    if ((buffer.dwFlags & platform::WaveBuffer::WHDR_DONE) != 0) {
        if (writer_.ConFile()) {
            // One byte more than was recorded: the next block overwrites it, and after the last block it
            // stays.
            std::string block(buffer.lpData.begin(), buffer.lpData.begin() + buffer.dwBytesRecorded);
            writer_.ScriviBlocco(block += '\0');
        } else {
            writer_.ScriviBlocco({});
        }
        UltimoBuffer = buffer.dwUser;
    }
    offerAllBuffers();
    judgeDisk();
}

// Told when it begins and when it ends, not with each block.
void WaveIn::judgeDisk() {
    const base::Text& failure = writer_.failure();
    if (diskRefuses_ != failure.empty())
        return;
    diskRefuses_ = !diskRefuses_;
    if (diskRefuses_)
        DiskRefuses(errorText_ = failure);
    else
        DiskTakes();
}

void WaveIn::offerAllBuffers() {
    // Buffers that are still queued are refused, which is fine.
    for (platform::WaveBuffer& buffer : Intestazioni)
        UltimoErrore = device_.addBuffer(buffer);
}

void WaveIn::FermaCattura() {
    if (!capturing_)
        return;
    UltimoErrore = device_.stop();
    UltimoErrore = device_.reset();
    for (platform::WaveBuffer& buffer : Intestazioni)
        device_.unprepareHeader(buffer);
    device_.close();
    if (!writer_.HeaderScritto() && writer_.ConFile()) {
        writer_.ScriviIntestazione();
        judgeDisk();
    }
    if (writer_.ConFile()) {
        writer_.close();
        // If the header could not be written, the file must be repaired later, with the format in its note.
        if (!isCutOff(path_))
            base::carryOn([&] { journal_.finished(path_); });
    }
    capturing_ = false;
}

void WaveIn::LeggiPicchi(int& sinistro, int& destro) {
    if (isIdle()) {
        sinistro = destro = 0;
        return;
    }
    const auto n =
        static_cast<std::ptrdiff_t>(std::nearbyint(Formato.samplesPerSec / 1000.0 * Formato.blockAlign));
    if (StatoPicco.buffer != UltimoBuffer && !StatoPicco.seenOtherThanFirst)
        StatoPicco.seenOtherThanFirst = true;
    else if (!StatoPicco.seenOtherThanFirst && StatoPicco.buffer == 0)
        return;
    StatoPicco.buffer = UltimoBuffer == 0 ? bufferCount - 1 : UltimoBuffer - 1;
    const std::vector<std::uint8_t>& sound = Intestazioni[StatoPicco.buffer].lpData;
    if (std::ssize(sound) < n)
        return;
    const bool stereo = Formato.channels == 2;
    const auto value = [&](std::ptrdiff_t i) {
        return std::abs(Formato.bitsPerSample == 8 ? sound[i] - middleOf8Bits
                                                   : IntDaByte(sound[i], sound[i + 1]));
    };
    int left = 0;
    int right = 0;
    const std::ptrdiff_t upperBound = n - 1;
    for (std::ptrdiff_t i = 0; i < upperBound - 1; i += Formato.blockAlign) {
        left = std::max(left, value(i));
        if (stereo)
            right = std::max(right, value(i + Formato.bitsPerSample / 8));
    }
    sinistro = left;
    destro = stereo ? right : left;
}

std::int64_t WaveIn::SecondiRegistrati() const {
    return Formato.avgBytesPerSec == 0 ? 0 : ByteRegistrati() / Formato.avgBytesPerSec;
}

double WaveIn::ValoreMassimo() const {
    switch (Formato.bitsPerSample) {
    case 16:
        return 32767.0;
    case 8:
        return 127.0;
    default:
        return 0;
    }
}

} // namespace recorder
