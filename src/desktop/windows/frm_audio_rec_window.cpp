#include "desktop/windows/frm_audio_rec_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace desktop {

namespace {

// The client area with all controls on it. All are owned by their Qt parent; the last one added is on top.
class RecorderSurface : public Ground {
public:
    RecorderSurface(recorder::FrmAudioRec& form, QWidget* parent) : Ground(parent) {
        setFixedSize(pixels(recorder::FrmAudioRec::clientWidth), pixels(recorder::FrmAudioRec::clientHeight));
        form.forEachControl([this](auto& control) { add(control); });
    }

private:
    void add(controls::Picture& picture) { new PictureView(picture, this); }
    void add(controls::Fill& fill) { new FillView(fill, this); }
    void add(controls::Label& label) { new LabelView(label, this); }
    template <typename Input>
    void add(Input& input) {
        addView(input, *this);
    }
};

} // namespace

FrmAudioRecWindow::FrmAudioRecWindow(recorder::FrmAudioRec& form)
    : FormWindow(form, Size::Fixed, Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(new RecorderSurface(form, this));
    begin();
}

} // namespace desktop
