// The contracts of all ports on the fakes.
#include "contracts/clipboard_contract.h"
#include "contracts/internet_contract.h"
#include "contracts/player_contract.h"
#include "contracts/printer_contract.h"
#include "contracts/rich_text_contract.h"
#include "contracts/wave_input_contract.h"
#include "fakes/fake_desktop.h"
#include "testing.h"

namespace contracts {

struct FakePlayerBench : PlayerBench {
    FakePlayerBench() { fake.lengths[u"/a.wav"] = 4; }
    platform::MediaPlayer& player() override { return fake; }
    base::Text recording() override { return u"/a.wav"; }
    base::Text unplayable() override { return u"/a.txt"; }
    void run(int ms) override { loop.advance(ms); }

    fakes::VirtualLoop loop;
    fakes::FakePlayer fake{loop};
};

struct FakeRichTextBench : RichTextBench {
    platform::RichText& text() override { return fake; }
    bool foldsCaseOf(base::TextView text) override {
        return std::ranges::all_of(text, [](char16_t unit) { return unit < 0x80; });
    }

    fakes::FakeRichText fake;
};

struct FakeClipboardBench : ClipboardBench {
    platform::Clipboard& clipboard() override { return fake; }
    void offer(base::TextView text, base::TextView rtf) override {
        fake.text = text;
        fake.rtf = rtf;
    }

    fakes::FakeClipboard fake;
};

struct FakeWaveInputBench : WaveInputBench {
    platform::WaveInput& device() override { return fake; }
    void takeDeviceAway() override {
        fake.refusal = 4;
        fake.words = u"Device unavailable";
    }
    void listen() override { fake.fill(); }

    fakes::FakeWaveInput fake;
};

struct FakePrinterBench : PrinterBench {
    platform::Printer& printer() override { return fake; }

    fakes::FakePrinter fake;
};

struct FakeInternetBench : InternetBench {
    platform::Internet& internet() override { return fake; }
    std::string serve(const std::string& body) override { return fake.pages["here"] = body, "here"; }

    fakes::FakeInternet fake;
};

INSTANTIATE_TEST_SUITE_P(Fake, PlayerContract, testing::Values(make<PlayerBench, FakePlayerBench>));
INSTANTIATE_TEST_SUITE_P(Fake, RichTextContract, testing::Values(make<RichTextBench, FakeRichTextBench>));
INSTANTIATE_TEST_SUITE_P(Fake, ClipboardContract, testing::Values(make<ClipboardBench, FakeClipboardBench>));
INSTANTIATE_TEST_SUITE_P(Fake, WaveInputContract, testing::Values(make<WaveInputBench, FakeWaveInputBench>));
INSTANTIATE_TEST_SUITE_P(Fake, PrinterContract, testing::Values(make<PrinterBench, FakePrinterBench>));
INSTANTIATE_TEST_SUITE_P(Fake, InternetContract, testing::Values(make<InternetBench, FakeInternetBench>));

} // namespace contracts
