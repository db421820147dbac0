#include "aids/zoom.h"

#include "lang/words.h"

#include <algorithm>
#include <array>

namespace aids {

using lang::operator""_en;

namespace {

constexpr std::array sizes = {Zoom::least, 67,  80,  90,  100, 110, 120,
                              133,         150, 170, 200, 240, 300, Zoom::most};

} // namespace

Zoom::Zoom(editor::Form2& form)
    : form_(form), mnuZoom_("mnuZoom", u"&Zoom"_en), mnuLarger_("mnuZoomIn", u"&Larger"_en, "Ctrl++"),
      mnuSmaller_("mnuZoomOut", u"&Smaller"_en, "Ctrl+-"),
      mnuNormal_("mnuZoomNormal", u"&Normal size"_en, "Ctrl+0") {
    mnuZoom_.items = {&mnuLarger_, &mnuSmaller_, &mnuNormal_};
    mnuLarger_.repeats = mnuSmaller_.repeats = true;
    mnuLarger_.Click = [this] { step(1); };
    mnuSmaller_.Click = [this] { step(-1); };
    mnuNormal_.Click = [this] { step(0); };
    form_.RTB.Zoom = [this](int steps) { step(steps); };
}

void Zoom::step(int steps) {
    int wanted = 100;
    if (steps > 0) {
        auto place = std::ranges::upper_bound(sizes, percent_);
        place += std::min<std::ptrdiff_t>(steps - 1, sizes.end() - place);
        wanted = place == sizes.end() ? most : *place;
    } else if (steps < 0) {
        auto place = std::ranges::lower_bound(sizes, percent_);
        place -= std::min<std::ptrdiff_t>(-steps, place - sizes.begin());
        wanted = *place;
    }
    if (wanted == percent_)
        return;
    percent_ = wanted;
    show();
    Changed();
}

void Zoom::show() {
    form_.zoom = percent_;
}

} // namespace aids
