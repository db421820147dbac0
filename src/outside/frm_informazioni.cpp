#include "outside/frm_informazioni.h"

namespace outside {

FrmInformazioni::FrmInformazioni(platform::EventLoop& loop, const base::ProgramFolder& folder)
    : Window("frmInformazioni", {0, 0, clientWidth, clientHeight}), Timer1(loop) {
    constexpr controls::Color ink = controls::rgb(0x1F, 0x2A, 0x44);
    constexpr controls::Color teal = controls::rgb(0x0E, 0x7C, 0x86);
    constexpr controls::Color slate = controls::rgb(0x3B, 0x48, 0x62);
    icon = folder.files(u"quillmere.ico");
    imgTitle.picture = folder.files(u"abouthead.jpg");
    Picture2.picture = folder.files(u"about.jpg");
    Image1.picture = folder.files(u"home.png");
    for (controls::Label* label : {&lblTitle, &lblHomePageCap})
        label->foreColor = ink;
    for (controls::Label* label : {&lblVersion, &lblHomePage})
        label->foreColor = teal;
    for (controls::Label* label : {&lblDescription, &lblCopyright})
        label->foreColor = slate;
    for (controls::Label* label : {&lblTitle, &lblVersion, &lblHomePageCap})
        label->autoSize = true;
    lblTitle.fontSize = 16;
    lblTitle.fontBold = true;
    lblHomePage.fontUnderline = true;
    lblHomePage.pointerIcon = folder.files(u"Indica.ico");
}

} // namespace outside
