#pragma once

#include "app/desktop.h"
#include "fakes/fake_child_process.h"
#include "fakes/fake_clipboard.h"
#include "fakes/fake_decoder.h"
#include "fakes/fake_hands.h"
#include "fakes/fake_media_controls.h"
#include "fakes/fake_player.h"
#include "fakes/fake_printer.h"
#include "fakes/fake_rich_text.h"
#include "fakes/fake_spelling.h"
#include "fakes/fake_wave_input.h"
#include "fakes/fake_worker.h"
#include "fakes/temporary_folder.h"
#include "fakes/virtual_loop.h"

#include <deque>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace fakes {

// Message boxes and dialogs that record what they show and give the answers that the test has prepared.
class FakeDialogs : public platform::Dialogs {
public:
    struct Box {
        base::Text text;
        base::Text title;
        platform::BoxStyle style;
    };

    std::vector<Box> boxes;
    std::vector<platform::FileDialogRequest> requests;
    std::deque<platform::Answer> answers;            // OK if empty
    std::deque<base::Text> choices;                  // cancels if empty
    std::deque<std::optional<std::uint32_t>> colors; // cancels if empty
    std::vector<std::uint32_t> colorStarts;

    platform::Answer messageBox(base::TextView text, base::TextView title,
                                platform::BoxStyle style) override {
        boxes.push_back({base::Text(text), base::Text(title), style});
        return next(answers, platform::Answer::OK);
    }
    std::unique_ptr<platform::Progress> showProgress(base::TextView, base::TextView,
                                                     std::function<void()>) override {
        return std::make_unique<NoProgress>();
    }
    std::optional<std::uint32_t> ShowColor(std::string_view, std::uint32_t start) override {
        colorStarts.push_back(start);
        return next(colors, std::optional<std::uint32_t>());
    }
    base::Text FileDlg(const platform::FileDialogRequest& request) override {
        requests.push_back(request);
        return next(choices, base::Text());
    }

private:
    struct NoProgress : platform::Progress {
        void setShare(double) override {}
    };
    template <typename T>
    static T next(std::deque<T>& laidReady, T otherwise) {
        if (laidReady.empty())
            return otherwise;
        T first = std::move(laidReady.front());
        laidReady.pop_front();
        return first;
    }
};

struct FakeSystem : platform::System {
    base::Text folder;
    base::Text country = u"United Kingdom";
    base::Text decimalSign = u".";
    bool alreadyRunning = false;
    bool ended = false;
    std::function<void()> whenEnded = [] {};
    int beeps = 0;

    base::Text programFolder() const override { return folder; }
    base::Text LeggiLocale(int setting) const override {
        return setting == platform::localeEnglishCountry ? country
               : setting == platform::localeDecimalSign  ? decimalSign
                                                         : base::Text();
    }
    bool previousInstance() override { return alreadyRunning; }
    void beep() override { ++beeps; }
    std::vector<base::Text> screenFonts() const override { return {u"Zeroth", u"Arial", u"Courier New"}; }
    void endProcess() override {
        ended = true;
        whenEnded();
    }
};

// Serves the pages that the test has prepared and records the requests.
struct FakeInternet : platform::Internet {
    std::map<std::string, std::string> pages; // by address
    std::vector<std::string> reads;           // as "agent address"

    std::string read(const std::string& address, const std::string& agent) override {
        reads.push_back(agent + ' ' + address);
        return pages.contains(address) ? pages.at(address).substr(0, 64 * 1024 + 1) : std::string();
    }
};

// A shell that records what it opens.
struct FakeShell : platform::Shell {
    std::vector<std::string> opened; // UTF-8; or "sound settings"

    void open(base::TextView target) override { opened.push_back(base::toUtf8(target)); }
    void openSoundSettings() override { opened.emplace_back("sound settings"); }
};

// A desktop without a screen: virtual time, and a temporary program folder with the usual files.
class FakeDesktop : public app::Desktop {
public:
    TemporaryFolder folder;
    VirtualLoop loop;
    FakeSystem systemPort;
    FakeDialogs dialogPort;
    FakePlayer player{loop};
    FakeClipboard clipboardPort;
    FakeInternet internetPort;
    FakeShell shellPort;
    FakeWorker diskPort;
    outside::FrmInformazioni* about = nullptr;
    FakeRichText text;
    FakePrinter printerPort;
    FakeWaveInput device;
    FakeDecoder decoderPort;
    FakeMediaControls panels;
    FakeDecoder listenerPort;
    FakeSpelling spellingPort;
    FakeChildProcess childProcessPort;
    FakePedals pedalPort;
    FakeGlobalKeys globalKeyPort;
    player::Form1* form1 = nullptr;
    recorder::FrmAudioRec* recorder = nullptr; // null until opened
    editor::Form2* form2 = nullptr;
    editor::FrmFind* frmFind = nullptr;
    bookmarks::Form3* form3 = nullptr;
    dictation::Form4* form4 = nullptr;
    safety::QuietLineWindow* quietLine = nullptr;       // null until something was shown
    safety::VersionsWindow* versions = nullptr;         // likewise
    safety::NoticesWindow* notices = nullptr;           // null until opened
    outside::KeysWindow* keys = nullptr;                // null until opened
    drafts::RecogniserWindow* recogniser = nullptr;     // likewise
    editor::SpeakersWindow* speakers = nullptr;         // likewise
    aids::AbbreviationsWindow* abbreviations = nullptr; // likewise
    aids::FiguresWindow* figures = nullptr;             // likewise
    aids::DeliveryWindow* delivery = nullptr;           // likewise
    sound::SoundWindow* sound = nullptr;                // likewise
    hands::KeysAndPedalsWindow* keysAndPedals = nullptr;
    std::function<void()> inForm4 = [] {}; // user input while the dialog is open

    FakeDesktop() {
        systemPort.whenEnded = [this] { loop.end(); };
        systemPort.folder = base::fromUtf8(folder.path().string());
        std::filesystem::create_directories(folder.path() / "Files/Lang");
        std::filesystem::create_directories(folder.path() / "Bookmarks");
        layLanguage("English.lng");
    }

    // Creates a language file whose entry n reads "&<first two letters of its name>n", or `before` and n,
    // except for the entries in `others`.
    void layLanguage(const std::string& name, int lines = 136, const std::map<int, std::string>& others = {},
                     std::string before = {}) const {
        std::string bytes;
        if (before.empty())
            before = "&" + name.substr(0, 2);
        for (int n = 0; n < lines; ++n)
            bytes += "123" + (others.contains(n) ? others.at(n) : before + std::to_string(n)) + "\r\n";
        folder.write("Files/Lang/" + name, bytes);
    }
    // Settings with steps of 5 s, 2 s back, phases of 5 s and 3 s, except for these lines (counted from 1).
    void laySettingsWith(std::map<int, std::string> lines) const {
        lines.insert({{1, "English.lng"}, {2, "80"}, {3, "561"}, {4, "5"}, {5, "2"}, {7, ""}});
        lines.insert({{21, "5"}, {22, "3"}, {25, "1"}});
        std::string bytes;
        for (int line = 1; line <= 25; ++line)
            bytes += lines.insert({line, "0"}).first->second + "\r\n";
        folder.write("Files/Quillmere.ini", bytes);
    }
    std::string savedLine(int line) const {
        std::istringstream lines(folder.read("Files/Quillmere.ini"));
        std::string found;
        while (line-- > 0)
            std::getline(lines, found);
        return found.substr(0, found.find('\r'));
    }
    // Creates a media file that the player plays for this many seconds; returns its path.
    base::Text layMedia(const std::string& name, double seconds) {
        folder.write(name, "sound");
        player.lengths[folder.text(name)] = seconds;
        return folder.text(name);
    }

    platform::System& system() override { return systemPort; }
    platform::EventLoop& eventLoop() override { return loop; }
    platform::Dialogs& dialogs() override { return dialogPort; }
    platform::MediaPlayer& mediaPlayer() override { return player; }
    platform::Clipboard& clipboard() override { return clipboardPort; }
    platform::RichText& richText() override { return text; }
    platform::Printer& printer() override { return printerPort; }
    platform::WaveInput& waveInput() override { return device; }
    platform::Decoder& decoder() override { return decoderPort; }
    platform::MediaControls* mediaControls() override { return &panels; }
    platform::Decoder& listener() override { return listenerPort; }
    platform::ChildProcess& childProcess() override { return childProcessPort; }
    base::CodePage codePage() override { return base::CodePage(1252); }
    platform::Internet& internet() override { return internetPort; }
    platform::Shell& shell() override { return shellPort; }
    platform::Spelling& spelling() override { return spellingPort; }
    platform::Pedals& pedals() override { return pedalPort; }
    platform::GlobalKeys& globalKeys() override { return globalKeyPort; }
    platform::Worker& disk() override { return diskPort; }
    std::vector<outside::Library> libraries() override { return {{u"Fake library", u"1.0", u"none"}}; }
    void speak(const base::Text&) override {}
    void show(player::Form1& form) override {
        form1 = &form;
        lookAt(form.menuBar);
        form.screen.width = 28800;
        form.screen.height = 16200;
    }
    void show(editor::Form2& form) override {
        form2 = &form;
        lookAt(form.menuBar);
    }
    void show(editor::FrmFind& form) override { frmFind = &form; }
    void show(bookmarks::Form3& form) override { form3 = &form; }
    void show(dictation::Form4& form) override {
        form4 = &form;
        form.showModal = [this] {
            form4->visible = true;
            inForm4();
            form4->visible = false;
        };
    }
    void show(recorder::FrmAudioRec& form) override { recorder = &form; }
    void show(outside::FrmInformazioni& form) override { about = &form; }
    void show(safety::QuietLineWindow& form) override { quietLine = &form; }
    void show(safety::NoticesWindow& form) override { notices = &form; }
    void show(outside::KeysWindow& form) override { keys = &form; }
    void show(editor::SpeakersWindow& form) override { speakers = &form; }
    void show(sound::SoundWindow& form) override { sound = &form; }
    void show(safety::VersionsWindow& form) override { versions = &form; }
    void show(drafts::RecogniserWindow& form) override { recogniser = &form; }
    void show(hands::KeysAndPedalsWindow& form) override { keysAndPedals = &form; }
    void show(aids::AbbreviationsWindow& form) override { abbreviations = &form; }
    void show(aids::FiguresWindow& form) override { figures = &form; }
    void show(aids::DeliveryWindow& form) override { delivery = &form; }

    // Menu commands without a routine when they were shown: a real menu would disable them for good.
    std::vector<std::string_view> shownWithoutRoutine;

private:
    void lookAt(const std::vector<controls::MenuItem*>& items) {
        for (const controls::MenuItem* const item : items) {
            lookAt(item->items);
            if (item->items.empty() && item->caption.get() != u"-" && !item->Click)
                shownWithoutRoutine.push_back(item->name);
        }
    }
};

} // namespace fakes
