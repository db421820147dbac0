// The boxes and buttons of a window's data, shown by the desktop's own widgets. Each carries the control's
// given name; its parent owns it. The text of a caption may have a "&" before its mnemonic.
#pragma once

#include "controls/controls.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListView;
class QPushButton;
class QWidget;

namespace desktop {

QPushButton* addView(controls::CommandButton& button, QWidget& parent);
QCheckBox* addView(controls::CheckBox& box, QWidget& parent);
QLineEdit* addView(controls::TextBox& box, QWidget& parent);
QComboBox* addView(controls::ComboBox& box, QWidget& parent);
QListView* addView(controls::ListBox& list, QWidget& parent);

} // namespace desktop
