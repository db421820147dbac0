// Every control of the first windows, as they are after the start, with a recording and in another language.
// Constants of a design have no other test. QUILLMERE_WRITE=1 in the environment writes the files anew.
#include "fakes/workbench.h"

#include <cstdlib>
#include <fstream>

namespace {

class Description {
public:
    void heading(const std::string& text) { out_ << "== " << text << '\n'; }
    void menu(const std::vector<controls::MenuItem*>& items, const std::string& indent = "  ") {
        for (const controls::MenuItem* const item : items) {
            out_ << indent << item->name << ' ' << base::toUtf8(item->caption.get()) << ' ' << item->shortcut
                 << (item->offered() ? "" : " unavailable") << (item->visible ? "" : " hidden")
                 << (item->checked ? " checked" : "") << '\n';
            menu(item->items, indent + "  ");
        }
    }
    template <typename Kind>
    void control(const Kind& control) {
        out_ << "  " << control.name << ' ' << control.left << ' ' << control.top << ' ' << control.width
             << ' ' << control.height << (control.enabled ? "" : " disabled")
             << (control.visible ? "" : " hidden");
        text("tag", control.tag.get());
        text("tip", control.toolTip.get());
        text("called", control.accessible.name.get());
        if constexpr (requires { control.caption; })
            text("says", control.caption.get());
        if constexpr (requires { control.fontSize; })
            out_ << ' ' << control.fontSize << " pt";
        if constexpr (requires { control.foreColor; })
            out_ << " colour " << control.foreColor << " align " << static_cast<int>(control.alignment.get());
        if constexpr (requires { control.picture; })
            text("picture", base::Text(base::afterLast(control.picture.get(), u'/')));
        if constexpr (requires { control.isDefault; })
            out_ << (control.isDefault ? " default" : "") << (control.isCancel ? " cancel" : "");
        if constexpr (requires { control.text; })
            text("holds", control.text.get());
        if constexpr (requires { control.items; } && !std::is_same_v<Kind, controls::MenuItem>)
            out_ << ' ' << control.items->size() << " entries";
        out_ << '\n';
    }
    void add(const std::string& lines) { out_ << lines; }
    std::string text() const { return out_.str(); }

private:
    void text(const char* what, const base::Text& value) {
        if (!value.empty())
            out_ << ' ' << what << " '" << base::toUtf8(value) << '\'';
    }
    std::ostringstream out_;
};

struct WindowsTest : fakes::WorkbenchTest {
    void window(const controls::Window& form) { seen.heading(std::string(form.name)), seen.control(form); }
    template <typename... Controls>
    void these(const Controls&... all) {
        (seen.control(all), ...);
    }
    void player() {
        window(form());
        form().forEachControl([this](const auto& control) { seen.control(control); });
        seen.menu(form().menuBar);
    }
    void editor() {
        const editor::Form2& editor = *desktop.form2;
        window(editor);
        these(editor.Image1, editor.Line1, editor.Shape1, editor.Label1, editor.Combo1, editor.Combo2);
        std::ranges::for_each(editor.Label2, [this](const auto& button) { seen.control(button); });
        std::ranges::for_each(editor.Label3, [this](const auto& letter) { seen.control(letter); });
        const std::vector<controls::MenuItem*> stated(editor.menuBar.begin(), editor.menuBar.end() - 1);
        seen.menu(stated);
    }
    void find(controls::MenuItem& command) {
        command.Click();
        const editor::FrmFind& find = *desktop.frmFind;
        window(find);
        these(find.lblFind, find.cboFind, find.lblReplace, find.cboReplace, find.Frame1, find.chkWholeWord,
              find.chkMatchCase, find.cmdFind, find.cmdReplace, find.cmdReplaceAll, find.cmdCancel);
        desktop.frmFind->cmdCancel.Click();
    }
    void ask(controls::MenuItem& command) {
        desktop.inForm4 = [this] {
            const dictation::Form4& asks = *desktop.form4;
            window(asks);
            these(asks.Image1, asks.Label1, asks.Text1, asks.Command1, asks.Command2);
            desktop.form4->Command2.Click();
        };
        command.Click();
    }
    void all() {
        player();
        editor();
        find(desktop.form2->mnuTrova);
        find(desktop.form2->mnuSostituisci);
        for (controls::MenuItem* const command : {&form().mnuSalto, &form().mnuSecIndietro, &form().mnuVai,
                                                  &form().mnuTempoPlay, &form().mnuTempoPause})
            ask(*command);
        form().mnuRegistra.Click();
        window(*desktop.recorder);
        desktop.recorder->forEachControl([this](const auto& control) { seen.control(control); });
        form().mnuInfo.Click();
        window(*desktop.about);
        desktop.about->forEachControl([this](const auto& control) { seen.control(control); });
        desktop.about->Unload();
    }
    // Compares with the file of this name in tests/data/windows.
    void expectSeen(const std::string& name) {
        const std::filesystem::path file = std::filesystem::path(QUILLMERE_WINDOWS) / name;
        std::string text = seen.text();
        const std::string folder = desktop.folder.path().string();
        const std::string here = '\n' + std::string(2, ' ') + std::filesystem::current_path().string() + '\n';
        for (auto at = text.find(here); at != std::string::npos; at = text.find(here))
            text.replace(at, here.size(), "\n  HERE\n");
        for (auto at = text.find(folder); at != std::string::npos; at = text.find(folder))
            text.replace(at, folder.size(), "FOLDER");
        if (std::getenv("QUILLMERE_WRITE"))
            std::ofstream(file, std::ios::binary) << text;
        std::ifstream expected(file, std::ios::binary);
        std::istringstream now(text);
        for (std::string line, wanted; std::getline(now, line) || std::getline(expected, wanted);) {
            std::getline(expected, wanted);
            ASSERT_EQ(line, wanted) << name;
        }
    }

    // What has changed since the last call, and what was asked of the desktop.
    std::string changes() {
        Description now;
        std::swap(seen, now);
        player();
        editor();
        window(*desktop.form3);
        these(desktop.form3->List1, desktop.form3->Command1, desktop.form3->Command2);
        std::swap(seen, now);
        std::istringstream lines(now.text() + desktop.folder.read("Files/Quillmere.ini"));
        std::vector<std::string> fresh;
        for (std::string line; std::getline(lines, line);)
            fresh.push_back(line.substr(0, line.find('\r')));
        std::string out;
        for (std::size_t i = 0; i < fresh.size(); ++i)
            if (i >= before_.size() || fresh[i] != before_[i])
                out += (out.empty() && before_.empty() ? "" : "  " + fresh[i] + '\n');
        before_ = fresh;
        for (const std::string& command : std::exchange(desktop.player.commands, {}))
            out += "  player: " + command + '\n';
        for (const std::string& command : std::exchange(desktop.text.commands, {}))
            out += "  text: " + command + '\n';
        for (const auto& box : std::exchange(boxes, {}))
            out += "  box: " + base::toUtf8(box.title) + ": " + base::toUtf8(box.text) + '\n';
        for (const auto& asked : std::exchange(desktop.dialogPort.requests, {}))
            out += "  file: " + base::toUtf8(asked.title) + ' ' +
                   base::toUtf8(base::replaced(asked.filter, base::Text(1, u'\0'), u"|")) + ' ' +
                   base::toUtf8(asked.fileName) + ' ' + base::toUtf8(asked.defaultExtension) + '\n';
        for (const std::string& opened : std::exchange(desktop.shellPort.opened, {}))
            out += "  opened: " + opened + '\n';
        return out;
    }
    template <typename Action>
    void tell(const std::string& what, Action&& act) {
        act();
        desktop.loop.advance(700);
        seen.heading(what);
        seen.add(changes());
    }
    // Each command twice, with what it changes.
    void commands(const std::vector<controls::MenuItem*>& items) {
        for (controls::MenuItem* const item : items) {
            if (item->name == "mnuEsci")
                continue;
            for (int i = 0; item->Click && item->enabled && i < 2; ++i)
                tell(std::string(item->name), item->Click);
            commands(item->items);
        }
    }

    Description seen;

private:
    std::vector<std::string> before_;
};

} // namespace

TEST_F(WindowsTest, AfterTheStart) {
    all();
    expectSeen("start.txt");
}

TEST_F(WindowsTest, WithARecordingInAnotherLanguage) {
    open("talk.mp3", 600);
    desktop.loop.advance(1000);
    form().mnuSmartPlay.Click();
    speakPlainly();
    all();
    expectSeen("recording.txt");
}

TEST_F(WindowsTest, EachCommandInTurn) {
    speakPlainly();
    desktop.inForm4 = [this] {
        desktop.form4->Text1.text = u"7";
        desktop.form4->Command1.Click();
    };
    open("talk.mp3", 600);
    desktop.loop.advance(1000);
    desktop.text.setText(u"one two");
    changes();
    commands(form().menuBar);
    std::vector<controls::MenuItem*> stated = desktop.form2->menuBar;
    stated.pop_back();
    commands(stated);
    expectSeen("commands.txt");
}

TEST_F(WindowsTest, EachButtonAndKeyInTurn) {
    open("talk.mp3", 600);
    desktop.loop.advance(1000);
    desktop.text.setText(u"one two");
    form().mnuPlay.Click();
    changes();
    form().forEachControl([this](auto& control) {
        const std::string name(control.name);
        tell("over " + name, [&] { control.MouseMove({0, 30, 30}); });
        tell("down " + name, [&] { control.MouseDown({1, 30, 30}); });
        tell("moved " + name, [&] { control.MouseMove({1, 90, 60}); });
        tell("up " + name, [&] { control.MouseUp({1, 90, 60}); });
        if (control.Click && control.enabled && &control != static_cast<void*>(&form().Image4))
            tell("click " + name, control.Click);
    });
    for (std::size_t i = 0; i < desktop.form2->Label2.size(); ++i)
        tell("tool " + std::to_string(i), [&] { desktop.form2->Label2[i].Click(); });
    for (const int code :
         {13, 27, 32, 37, 65, 66, 112, 113, 114, 116, 117, 118, 119, 120, 121, 122, 123, 115})
        for (const int modifiers : {0, 2}) {
            platform::KeyEvent key{code, modifiers};
            tell("key " + std::to_string(code) + ' ' + std::to_string(modifiers),
                 [&] { desktop.text.KeyDown(key); });
            seen.add(key.keyCode == 0 ? "  taken\n" : "");
        }
    expectSeen("buttons.txt");
}
