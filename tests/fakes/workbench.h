#pragma once

#include "app/program.h"
#include "fakes/fake_desktop.h"
#include "testing.h"

namespace fakes {

// The whole program on fakes, started without a recording, with language entries "&En0" to "&En135". Steps
// are 5 s, every pause steps back 2 s.
struct Workbench {
    explicit Workbench(const std::map<int, std::string>& settings = {}) {
        desktop.laySettingsWith(settings);
        EXPECT_TRUE(start());
        desktop.player.commands.clear();
    }

    // Starts the program again with the current contents of its folder.
    bool start(base::TextView commandLine = u"") {
        desktop.loop.begin();
        program.emplace(desktop);
        return program->Main(commandLine);
    }
    player::Form1& form() { return *desktop.form1; }
    player::MediaSession& session() { return program->workstation().session(); }
    player::MediaOpener& opener() { return program->workstation().opener(); }
    // This command of the menu "Transcript" or of one inside it.
    controls::MenuItem& command(std::string_view name) {
        controls::MenuItem* found = nullptr;
        const std::function<void(controls::MenuItem&)> look = [&](controls::MenuItem& item) {
            found = item.name == name ? &item : found;
            for (controls::MenuItem* const inner : item.items)
                look(*inner);
        };
        look(*desktop.form2->menuBar.back());
        return *found;
    }
    void open(const std::string& name, double seconds) {
        opener().ApriMedia(desktop.layMedia(name, seconds));
    }

    // Switches to a language with entries "T0" to "T135" without mnemonics: the input dialog recognises its
    // task by comparing such an entry. Entry 128 is "(nnn)".
    void speakPlainly() {
        desktop.layLanguage("Plain.lng", 136, {{128, "(nnn)"}}, "T");
        desktop.dialogPort.choices.push_back(desktop.folder.text("Files/Lang/Plain.lng"));
        form().mnuLingua.Click();
    }

    FakeDesktop desktop;
    FakePlayer& player = desktop.player;
    std::vector<FakeDialogs::Box>& boxes = desktop.dialogPort.boxes;
    std::optional<app::Program> program;
};

class WorkbenchTest : public testing::Test, protected Workbench {};

} // namespace fakes
