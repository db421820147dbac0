#include "outside/about_box.h"

#include "outside/addresses.h"
#include "outside/program_version.h"

namespace outside {

namespace {

constexpr int scrollPeriod = 10;    // ms
constexpr double scrollStep = 10;   // twips
constexpr double panelStart = 2200; // twips: the panel's top is just below the well's lower edge
constexpr int haltTicks = 121;      // ticks for which the panel stops with its end in view
constexpr double versionGap = 150;  // twips between the program's name and the version
constexpr double homePageGap = 90;  // twips between the caption and the address
constexpr base::TextView copyright = u"© 2026 Brackenloft Freeware";
constexpr base::TextView dots = u"...";

} // namespace

AboutBox::AboutBox(FrmInformazioni& about, player::Form1& form1, controls::Window& form2,
                   controls::Window& form3, platform::Shell& shell)
    : about_(about), form1_(form1), Form2_(form2), Form3_(form3), shell_(shell) {
    about_.Timer1.Tick = [this] { Timer1_Timer(); };
    about_.Unload = [this] {
        Form_Unload();
        return false;
    };
    for (controls::Control* closes : std::initializer_list<controls::Control*>{
             &about_, &about_.imgTitle, &about_.lblCopyright, &about_.lblDescription, &about_.lblHomePageCap,
             &about_.lblTitle, &about_.lblVersion})
        closes->Click = [this] { Form_Unload(); };
    // The well is the only control with the keyboard focus, and it leaves its keys to the window.
    about_.KeyDown = [this](const platform::KeyEvent& key) {
        if (key.keyCode == platform::escapeKey)
            Form_Unload();
    };
    about_.lblHomePage.caption = base::Text(makersSite);
    about_.lblHomePage.accessible.role = controls::Role::Link;
    about_.lblHomePage.Click = [this] { lblHomePage_Click(); };
}

void AboutBox::mnuInfo_Click() {
    form1_.visible = false;
    showOthers(false);
    Form_Load();
    fillIn();
    about_.visible = true;
    about_.setFocus();
}

void AboutBox::Form_Load() {
    about_.left = (form1_.screen.width - about_.width) / 2;
    about_.top = (form1_.screen.height - about_.height) / 2;
    about_.Timer1.setInterval(scrollPeriod);
    about_.Picture2.top = panelStart;
    about_.n = 0;
}

void AboutBox::fillIn() {
    const base::Text title = base::TogliAmp(form1_.Lingua(19));
    // In this entry the dots are at the end, so they usually stay.
    about_.caption = title.starts_with(dots) ? title.substr(0, title.size() - dots.size()) : title;
    about_.lblTitle.caption = u"Quillmere Free";
    about_.lblVersion.caption = programVersion.shown();
    about_.lblHomePageCap.caption = form1_.Lingua(118) + u":";
    about_.lblDescription.caption = form1_.Lingua(22);
    about_.lblCopyright.caption = base::Text(copyright) + u" - " + form1_.Lingua(23);
    about_.lblVersion.left = about_.lblTitle.left + about_.lblTitle.width + versionGap;
    about_.lblHomePage.left = about_.lblHomePageCap.left + about_.lblHomePageCap.width + homePageGap;
}

void AboutBox::Timer1_Timer() {
    controls::Picture& panel = about_.Picture2;
    if (panel.top > about_.Picture1.height - panel.height || ++about_.n >= haltTicks)
        panel.top = panel.top - scrollStep;
    if (panel.top < -panel.height) {
        panel.top = panelStart;
        about_.n = 0;
    }
}

void AboutBox::lblHomePage_Click() {
    shell_.open(makersSite);
}

void AboutBox::Form_Unload() {
    about_.Timer1.setInterval(0);
    about_.visible = false;
    form1_.visible = true;
    showOthers(true);
}

void AboutBox::showOthers(bool shown) {
    if (form1_.mnuMostraNascondi.caption.get() == form1_.Lingua(116))
        Form2_.visible = shown;
    if (form1_.mnuBookMark.caption.get() == form1_.Lingua(85))
        Form3_.visible = shown;
}

} // namespace outside
