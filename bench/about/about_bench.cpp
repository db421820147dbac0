// CPU use of the scrolling credits in the about box, on a real display in real time.
#include "core_share.h"
#include "desktop/application.h"
#include "desktop/services/qt_event_loop.h"
#include "desktop/windows/frm_informazioni_window.h"
#include "outside/about_box.h"
#include "still_desktop.h"
#include "table.h"

#include <QTimer>

namespace {

constexpr int watched = 4000; // ms

} // namespace

int main(int argc, char* argv[]) {
    const desktop::Application application(argc, argv);
    bench::StillDesktop still;
    const base::ProgramFolder folder(still.systemPort.folder);
    const base::TextFiles files(still.codePage());
    const lang::LanguageTable Lingua(files, folder);
    player::Form1 form1(still.loop, still.still, Lingua, folder);
    form1.screen.width = form1.screen.height = 15'000;
    controls::Window none("Form2", {});

    desktop::QtEventLoop loop;
    outside::FrmInformazioni about(loop, folder);
    about.credits = std::vector<outside::Library>(8, {u"Library", u"1.2.3", u"A licence or later"});
    {
        const desktop::FrmInformazioniWindow window(about);
        outside::AboutBox box(about, form1, none, none, still.shellPort);
        box.mnuInfo_Click();
        bench::coreShare(watched); // warm-up: the window appears, the panel is drawn
        const double scrolling = bench::coreShare(watched);
        about.Timer1.setInterval(0);
        // Baseline: the timer alone.
        QTimer bare;
        bare.callOnTimeout([] {});
        bare.start(std::chrono::milliseconds(10));
        const double ticking = bench::coreShare(watched);
        bench::print({"Credits scrolling, share of a core", bench::measure("%.2f %%", scrolling),
                      bench::measure("%.2f %%", ticking), bench::measure("x %.1f", scrolling / ticking),
                      "< 2 %", scrolling < 2});
    }
}
