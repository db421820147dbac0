#include "desktop/views/input_views.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/key_codes.h"
#include "desktop/qt/keyboard_order.h"
#include "desktop/views/control_views.h"
#include "desktop/views/hover_pointer.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStringListModel>
#include <QValidator>

namespace desktop {

namespace {

QStringList strings(const std::vector<base::Text>& texts) {
    QStringList list;
    list.reserve(static_cast<qsizetype>(texts.size()));
    for (const base::Text& one : texts)
        list << qstring(base::TextView(one));
    return list;
}

// Applies the properties that all input controls have.
void followInput(const controls::Control& control, QWidget& view) {
    followControl(control, view);
    view.setEnabled(control.enabled);
    // Qt's own description would keep the blanks around the tip.
    view.setAccessibleDescription(view.toolTip().trimmed());
    if (const QString name = qstring(control.accessible.name); !name.isEmpty())
        nameInput(view, name);
}

// Names the widget and keeps it in sync with its control; `follow` applies the properties specific to this
// kind of control.
template <typename View, typename Data, typename Follow>
void tie(View& view, Data& control, Follow follow) {
    view.setObjectName(qstring(control.name));
    new HoverPointer(control, view);
    const auto takeOver = [&view, &control, follow] {
        followInput(control, view);
        follow();
    };
    takeOver();
    control.observe(takeOver);
}

void takeFocus(QWidget& view) {
    giveKeyboard(*view.window());
    view.setFocus();
}

// Cuts input at its first line break: a one-line box would keep the rest as invisible text. The caret is at
// the end of the new input.
class OneLine : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& content, int& caret) const override {
        const auto at = static_cast<qsizetype>(base::firstLine(text(content)).size());
        if (at == content.size())
            return Acceptable;
        content.remove(at, (caret > at ? caret : content.size()) - at);
        caret = static_cast<int>(at);
        return Acceptable;
    }
};

// A line edit that passes dropped text to the program if the program handles it.
class DropLine : public QLineEdit {
public:
    explicit DropLine(controls::ComboBox& box) : box_(box) { setValidator(new OneLine(this)); }

protected:
    void dragMoveEvent(QDragMoveEvent* event) override {
        QLineEdit::dragMoveEvent(event);
        copyFromElsewhere(*event);
    }
    void dropEvent(QDropEvent* event) override {
        if (!box_.Drop || !event->mimeData()->hasText()) {
            QLineEdit::dropEvent(event);
        } else {
            event->accept();
            QString dropped = event->mimeData()->text();
            // Normalises line ends to the program's CR LF.
            dropped.replace(QLatin1String("\r\n"), QLatin1String("\n"))
                .replace(u'\r', u'\n')
                .replace(u'\n', QLatin1String("\r\n"));
            box_.Drop(desktop::text(dropped));
        }
        copyFromElsewhere(*event);
    }

private:
    // The proposed action for text is a move, which would remove it from the transcript; the box takes a
    // copy.
    void copyFromElsewhere(QDropEvent& event) const {
        if (event.source() != this)
            event.setDropAction(Qt::CopyAction);
    }

    controls::ComboBox& box_;
};

// While its list is open, the list handles the keys. Otherwise Qt closes it before it looks for a shortcut,
// and the same Escape or Enter would also press a button of the window.
class ComboView : public QComboBox {
public:
    using QComboBox::QComboBox;

    void showPopup() override {
        view()->installEventFilter(this);
        QComboBox::showPopup();
    }

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride)
            event->accept();
        return QComboBox::eventFilter(receiver, event);
    }
};

class ListView : public QListView {
public:
    ListView(controls::ListBox& list, QWidget* parent) : QListView(parent), list_(list) {}

protected:
    void keyPressEvent(QKeyEvent* event) override {
        platform::KeyEvent key = keyEvent(*event);
        const int pressed = key.keyCode;
        list_.KeyDown(key);
        if (pressed == 0 || key.keyCode != 0)
            QListView::keyPressEvent(event);
    }
    void keyReleaseEvent(QKeyEvent* event) override {
        if (!event->isAutoRepeat())
            list_.KeyUp(keyEvent(*event));
        QListView::keyReleaseEvent(event);
    }
    void paintEvent(QPaintEvent* event) override {
        QListView::paintEvent(event);
        if (!hasFocus())
            return;
        // At densities between whole numbers, the clipping would cut off a part of a line's width.
        QPainter painter(viewport());
        const QRect all = viewport()->rect();
        painter.setClipRegion(QRegion(all) - all.adjusted(1, 1, -1, -1));
        painter.fillRect(all, palette().highlight());
    }
    void scrollContentsBy(int dx, int dy) override {
        QListView::scrollContentsBy(dx, dy);
        viewport()->update(); // the ring does not scroll
    }

private:
    controls::ListBox& list_;
};

// Enter presses the focused button, like the space bar.
class ButtonView : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (enter && !event->isAutoRepeat())
            click();
        else
            QPushButton::keyPressEvent(event);
    }
};

// Adds a window-wide key, in addition to the mnemonic in the button's caption.
template <typename Press>
void pressWith(QPushButton& button, Qt::Key key, Press press) {
    QObject::connect(new QShortcut(key, &button), &QShortcut::activated, &button, press);
}

} // namespace

void nameInput(QWidget& input, const QString& name) {
    if (input.accessibleName() == name)
        return;
    input.setAccessibleName(name);
    auto* const combo = qobject_cast<QComboBox*>(&input);
    if (!combo)
        return;
    // Qt reports the text of such a box as its name and expects a label beside it.
    const QString label = input.objectName() + QStringLiteral("Label");
    auto* beside = input.parentWidget()->findChild<QLabel*>(label, Qt::FindDirectChildrenOnly);
    if (!beside) {
        beside = new QLabel(input.parentWidget());
        beside->setObjectName(label);
        beside->setBuddy(combo);
        beside->hide();
    }
    beside->setText(name);
    if (combo->lineEdit())
        combo->lineEdit()->setAccessibleName(name);
}

QPushButton* addView(controls::CommandButton& button, QWidget& parent) {
    auto* const view = new ButtonView(&parent);
    view->setDefault(button.isDefault);
    view->setAutoDefault(button.isDefault);
    if (button.isCancel)
        pressWith(*view, Qt::Key_Escape, [view] { view->click(); });
    if (button.isDefault) {
        for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter})
            pressWith(*view, enter, [view] {
                auto* const focused = qobject_cast<QPushButton*>(QApplication::focusWidget());
                (focused ? focused : view)->click();
            });
    }
    tie(*view, button, [view, &button] {
        if (const QString caption = qstring(button.caption); caption != view->text())
            view->setText(caption);
    });
    button.setFocus = [view] { takeFocus(*view); };
    QObject::connect(view, &QPushButton::clicked, view, [&button] {
        if (button.Click)
            button.Click();
    });
    return view;
}

QCheckBox* addView(controls::CheckBox& box, QWidget& parent) {
    auto* const view = new QCheckBox(&parent);
    tie(*view, box, [view, &box] {
        const QSignalBlocker quiet(view);
        view->setText(qstring(box.caption));
        view->setChecked(box.value);
    });
    QObject::connect(view, &QCheckBox::toggled, view, [&box](bool on) {
        box.value = on;
        if (box.Click)
            box.Click();
    });
    return view;
}

QLineEdit* addView(controls::TextBox& box, QWidget& parent) {
    auto* const view = new QLineEdit(&parent);
    view->setValidator(new OneLine(view));
    QFont font = view->font();
    font.setPixelSize(letterPixels(box.fontSize));
    view->setFont(font);
    tie(*view, box, [view, &box] {
        const QSignalBlocker quiet(view);
        if (const QString content = qstring(box.text); content != view->text())
            view->setText(content);
        if (const bool selects = box.selLength > 0; selects)
            view->setSelection(box.selStart, box.selLength);
    });
    box.setFocus = [view] { takeFocus(*view); };
    // Also a text that a screen reader has set, which is not "edited".
    QObject::connect(view, &QLineEdit::textChanged, view, [&box](const QString& typed) {
        // From here on, the user controls the selection.
        box.selLength = 0;
        box.text = text(typed);
        box.Change();
    });
    return view;
}

QComboBox* addView(controls::ComboBox& box, QWidget& parent) {
    auto* const view = new ComboView(&parent);
    view->setInsertPolicy(QComboBox::NoInsert);
    if (box.editable) {
        view->setLineEdit(new DropLine(box)); // which makes it editable
        view->setCompleter(nullptr);
    }
    const auto items = std::make_shared<QStringList>();
    tie(*view, box, [view, &box, items] {
        const QSignalBlocker quiet(view);
        if (QStringList now = strings(box.items); now != *items) {
            *items = std::move(now);
            view->clear();
            view->addItems(*items);
        }
        const QString shown = qstring(box.text);
        view->setCurrentIndex(box.listIndex());
        if (view->isEditable() && view->currentText() != shown)
            view->setEditText(shown);
    });
    box.setFocus = [view] { takeFocus(*view); };
    const auto report = [&box](const QString& now) {
        box.text = text(now);
        box.Change();
    };
    if (box.editable)
        QObject::connect(view->lineEdit(), &QLineEdit::textEdited, view, report);
    QObject::connect(view, &QComboBox::textActivated, view, [&box, report](const QString& chosen) {
        report(chosen);
        if (box.Click)
            box.Click();
    });
    return view;
}

QListView* addView(controls::ListBox& list, QWidget& parent) {
    auto* const view = new ListView(list, &parent);
    auto* const model = new QStringListModel(view);
    view->setModel(model);
    view->setUniformItemSizes(true);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tie(*view, list, [view, model, &list] {
        const QSignalBlocker quiet(view->selectionModel());
        if (QStringList now = strings(list.items); now != model->stringList())
            model->setStringList(now);
        const QModelIndex chosen = model->index(list.listIndex);
        if (chosen == view->currentIndex())
            return;
        view->selectionModel()->setCurrentIndex(chosen, QItemSelectionModel::ClearAndSelect);
        view->viewport()->update();
        if (chosen.isValid())
            view->scrollTo(chosen);
    });
    list.setFocus = [view] { takeFocus(*view); };
    QObject::connect(view->selectionModel(), &QItemSelectionModel::currentChanged, view,
                     [&list](const QModelIndex& now) { list.listIndex = now.row(); });
    QObject::connect(view, &QListView::clicked, view, [&list] {
        if (list.Click)
            list.Click();
    });
    QObject::connect(view, &QListView::doubleClicked, view, [&list] { list.DblClick(); });
    return view;
}

} // namespace desktop
