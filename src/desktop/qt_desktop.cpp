#include "desktop/qt_desktop.h"

#include "base/failure.h"
#include "desktop/services/libraries.h"

#include <QCoreApplication>
#include <QTimer>

namespace desktop {

namespace {

constexpr int quietAfter = 1500;        // ms after the first window
constexpr int editorPaintedAfter = 200; // ms at most, even if the player is not seen

std::string modulePath(const platform::System& system, std::string_view name) {
    return base::toUtf8(system.programFolder()) + "/Modules/" + std::string(name) + ".so";
}

// Runs something once, right after the first paint of a window.
class FirstPaint : public QObject {
public:
    FirstPaint(QWidget& window, std::function<void()> then) : QObject(&window), then_(std::move(then)) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            QMetaObject::invokeMethod(this, then_, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> then_;
};

} // namespace

QtDesktop::QtDesktop()
    : player_(modulePath(system_, "mpv_player")), waveInput_(modulePath(system_, "portaudio_capture")),
      decoder_(modulePath(system_, "decoder")), listener_(modulePath(system_, "decoder")),
      spelling_(modulePath(system_, "spelling")),
      mediaControls_(modulePath(system_, "mpris"), "quillmere_media_controls"), text_(QtSystem::codePage()),
      printing_(modulePath(system_, "printing"), "quillmere_printer"),
      internet_(modulePath(system_, "internet")), pedals_(modulePath(system_, "pedals")),
      globalKeys_(modulePath(system_, "global_keys")) {}

platform::Printer& QtDesktop::printer() {
    if (platform::Printer* const printer = printing_.load())
        return *printer;
    throw base::Failure(printing_.failure());
}

void QtDesktop::speak(const base::Text& fileLingua) {
    words_ = std::make_unique<StandardWords>(fileLingua, base::ProgramFolder(system_.programFolder()));
    QCoreApplication::installTranslator(words_.get());
}

void QtDesktop::show(player::Form1& form) {
    form1_ = std::make_unique<Form1Window>(form);
}

void QtDesktop::show(editor::Form2& form) {
    form2_ = std::make_unique<Form2Window>(form, text_);
}

void QtDesktop::show(editor::FrmFind& form) {
    frmFind_ = std::make_unique<FrmFindWindow>(form);
}

void QtDesktop::show(bookmarks::Form3& form) {
    // Builds the window only after the handler that shows it: a window that is visible only during a handler,
    // as at the start, is never seen. Building it also starts observing the data, which is not possible while
    // the data notifies its observers.
    form.observe([this, &form] {
        if (form.visible && !form3_)
            QTimer::singleShot(0, form1_.get(), [this, &form] {
                if (form.visible && !form3_)
                    form3_ = std::make_unique<Form3Window>(form);
            });
    });
}

void QtDesktop::show(dictation::Form4& form) {
    form.Load = [this, &form] {
        if (!form4_)
            form4_ = std::make_unique<Form4Window>(form);
    };
}

void QtDesktop::show(recorder::FrmAudioRec& form) {
    waveInput_.prepare();
    frmAudioRec_ = std::make_unique<FrmAudioRecWindow>(form);
}

void QtDesktop::show(outside::FrmInformazioni& form) {
    about_ = std::make_unique<FrmInformazioniWindow>(form);
}

void QtDesktop::show(outside::KeysWindow& form) {
    keys_ = std::make_unique<KeysWindow>(form);
}

void QtDesktop::show(editor::SpeakersWindow& form) {
    speakers_ = std::make_unique<SpeakersWindow>(form);
}

void QtDesktop::show(safety::QuietLineWindow& form) {
    quietLine_ = std::make_unique<QuietLineView>(form);
}

void QtDesktop::show(safety::NoticesWindow& form) {
    notices_ = std::make_unique<NoticesWindow>(form);
}

void QtDesktop::show(safety::VersionsWindow& form) {
    versions_ = std::make_unique<VersionsWindow>(form);
}

void QtDesktop::show(drafts::RecogniserWindow& form) {
    recogniser_ = std::make_unique<RecogniserWindow>(form);
}

void QtDesktop::show(hands::KeysAndPedalsWindow& form) {
    keysAndPedals_ = std::make_unique<KeysAndPedalsWindow>(form);
}

void QtDesktop::show(aids::AbbreviationsWindow& form) {
    abbreviations_ = std::make_unique<AbbreviationsWindow>(form);
}

void QtDesktop::show(aids::FiguresWindow& form) {
    figures_ = std::make_unique<FiguresWindow>(form);
}

void QtDesktop::show(aids::DeliveryWindow& form) {
    delivery_ = std::make_unique<DeliveryWindow>(form);
}

void QtDesktop::show(sound::SoundWindow& form) {
    sound_ = std::make_unique<SoundWindow>(form);
}

std::vector<outside::Library> QtDesktop::libraries() {
    return librariesInUse(player_);
}

void QtDesktop::closeWindows() {
    quietLine_.reset();
    notices_.reset();
    versions_.reset();
    recogniser_.reset();
    keysAndPedals_.reset();
    abbreviations_.reset();
    figures_.reset();
    delivery_.reset();
    sound_.reset();
    speakers_.reset();
    keys_.reset();
    about_.reset();
    player_.release();
    frmFind_.reset();
    form4_.reset();
    form3_.reset();
    frmAudioRec_.reset();
    form2_.reset();
    form1_.reset();
}

void QtDesktop::prepareInIdleTime() {
    // The editor opens before the player, but the player is what the user waits for: it is painted first.
    form2_->setUpdatesEnabled(false);
    const auto paintEditor = [this] { form2_->setUpdatesEnabled(true); };
    new FirstPaint(*form1_, paintEditor);
    QTimer::singleShot(editorPaintedAfter, form2_.get(), paintEditor);
    QTimer::singleShot(quietAfter, form1_.get(), [this] {
        player_.prepare();
        form1_->completeIcon();
    });
}

} // namespace desktop
