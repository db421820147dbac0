// The about box as data.
#pragma once

#include "base/program_folder.h"
#include "controls/controls.h"
#include "controls/timer.h"

#include <vector>

namespace outside {

// A library that the program uses, in its makers' spelling.
struct Library {
    base::Text name;
    base::Text version;
    base::Text licence;
};

// The about box. The panel with the credits scrolls through a well; positions in the well are relative to it.
struct FrmInformazioni : controls::Window {
    FrmInformazioni(platform::EventLoop& loop, const base::ProgramFolder& folder);

    static constexpr double clientWidth = 6420;  // twips
    static constexpr double clientHeight = 4635; // twips

    // In z-order, from bottom to top.
    controls::Picture imgTitle{"imgTitle", {0, 0, 6420, 1065}};       // picture at the top of the window
    controls::Label lblTitle{"lblTitle", {1170, 195, 2400, 390}};     // name of the program
    controls::Label lblVersion{"lblVersion", {3720, 285, 1500, 270}}; // its version
    controls::Label lblDescription{"lblDescription", {1170, 585, 5010, 420}};
    controls::Picture Picture1{"Picture1", {240, 1170, 5940, 2235}}; // the well
    controls::Picture Picture2{"Picture2", {60, 2200, 5775, 4155}};  // the panel that scrolls in it
    controls::Control Frame1{"Frame1", {240, 3525, 5940, 945}};      // frame around the labels below
    controls::Picture Image1{"Image1", {390, 3660, 240, 240}};       // icon of the home page
    controls::Label lblHomePageCap{"lblHomePageCap", {705, 3645, 1500, 270}};
    controls::Label lblHomePage{"lblHomePage", {2280, 3645, 3750, 270}}; // opens the maker's page
    controls::Label lblCopyright{"lblCopyright", {390, 4020, 5640, 330}};

    // The libraries listed on the panel.
    std::vector<Library> credits;

    controls::Timer Timer1; // scrolls the panel
    int n = 0;              // ticks of its stop so far

    // Calls `visit` with each control of the window except the well, in z-order from bottom to top.
    template <typename Visitor>
    void forEachControl(Visitor&& visit) {
        const auto each = [&](auto&... controls) { (visit(controls), ...); };
        each(imgTitle, lblTitle, lblVersion, lblDescription, Frame1, Image1, lblHomePageCap, lblHomePage,
             lblCopyright);
    }
};

} // namespace outside
