// Creates standard widgets for the input controls of a window. Each has the control's given name and is owned
// by its parent. "&" in a caption marks its mnemonic.
#pragma once

#include "controls/controls.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QListView;
class QPushButton;
class QWidget;

namespace desktop {

// Names an input control for screen readers.
void nameInput(QWidget& input, const QString& name);

QPushButton* addView(controls::CommandButton& button, QWidget& parent);
QCheckBox* addView(controls::CheckBox& box, QWidget& parent);
QLineEdit* addView(controls::TextBox& box, QWidget& parent);
QComboBox* addView(controls::ComboBox& box, QWidget& parent);
QListView* addView(controls::ListBox& list, QWidget& parent);

} // namespace desktop
