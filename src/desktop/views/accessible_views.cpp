#include "desktop/views/accessible_views.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/announcer.h"
#include "desktop/views/control_views.h"
#include "desktop/views/form_window.h"

#include <QAccessibleWidget>
#include <QMenu>
#include <QRegularExpression>

namespace desktop {

namespace {

QAccessible::Role qtRole(controls::Role role) {
    switch (role) {
    case controls::Role::Text:
        return QAccessible::StaticText;
    case controls::Role::Button:
        return QAccessible::Button;
    case controls::Role::Toggle:
        return QAccessible::CheckBox; // Qt's role of a button that stays down
    case controls::Role::Slider:
        return QAccessible::Slider;
    case controls::Role::Meter:
        return QAccessible::ProgressBar;
    case controls::Role::Link:
        return QAccessible::Link;
    case controls::Role::Kind:
    case controls::Role::Decoration:
        break;
    }
    return QAccessible::Graphic;
}

// The key that a tool tip such as "Back (F6)" names.
QString keyIn(const QString& toolTip) {
    static const QRegularExpression inBrackets(QStringLiteral("\\(([^()]+)\\)$"));
    return inBrackets.match(toolTip.trimmed()).captured(1);
}

// A drawn control.
class AccessibleControl : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleControl(ControlView& view) : QAccessibleWidget(&view), view_(view) {}

    QAccessible::Role role() const override { return qtRole(view_.role()); }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const controls::Role role = view_.role();
        if (role != controls::Role::Text && role != controls::Role::Meter)
            state.disabled = !view_.isOperable();
        if (role == controls::Role::Toggle) {
            state.checkable = true;
            state.checked = view_.accessible().on;
        }
        state.readOnly = role == controls::Role::Meter;
        return state;
    }

    QString text(QAccessible::Text kind) const override {
        const QString name = view_.spokenName();
        switch (kind) {
        case QAccessible::Name:
            return name;
        case QAccessible::Value:
            return qstring(view_.accessible().valueText());
        case QAccessible::Description: {
            // Desktops report no text of a value, only its number.
            if (const QString value = qstring(view_.accessible().valueText()); !value.isEmpty())
                return value;
            const QString tip = view_.toolTip().trimmed();
            return tip == name ? QString() : tip;
        }
        default:
            return QAccessibleWidget::text(kind);
        }
    }

    QStringList actionNames() const override {
        QStringList names;
        if (view_.isOperable()) {
            if (view_.role() == controls::Role::Slider)
                names << increaseAction() << decreaseAction();
            else
                names << (view_.role() == controls::Role::Toggle ? toggleAction() : pressAction());
        }
        return names + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        const controls::Accessible& now = view_.accessible();
        if (name == pressAction() || name == toggleAction())
            // Deferred: the routine may open a dialog, and the screen reader waits for the end of this call.
            QMetaObject::invokeMethod(
                &view_, [view = &view_] { view->press(); }, Qt::QueuedConnection);
        else if (name == increaseAction())
            view_.setValue(now.value() + now.step);
        else if (name == decreaseAction())
            view_.setValue(now.value() - now.step);
        else
            QAccessibleWidget::doAction(name);
    }

    QStringList keyBindingsForAction(const QString& name) const override {
        const QString key = keyIn(view_.toolTip());
        if ((name == pressAction() || name == toggleAction()) && !key.isEmpty())
            return {key};
        return QAccessibleWidget::keyBindingsForAction(name);
    }

    QVector<QPair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        const auto* const label = dynamic_cast<const LabelView*>(&view_);
        QWidget* const named = label ? label->labelled() : nullptr;
        if (named && (match & QAccessible::Labelled))
            found.append({QAccessible::queryAccessibleInterface(named), QAccessible::Labelled});
        return found;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        const bool valued = view_.role() == controls::Role::Slider || view_.role() == controls::Role::Meter;
        if (type == QAccessible::ValueInterface && valued)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return view_.accessible().value(); }
    void setCurrentValue(const QVariant& value) override { view_.setValue(value.toDouble()); }
    QVariant maximumValue() const override { return view_.accessible().most(); }
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override { return view_.accessible().step; }

private:
    ControlView& view_;
};

// A window or the surface in it: its children are those that have a meaning.
class AccessibleParent : public QAccessibleWidget {
public:
    explicit AccessibleParent(QWidget& widget) : QAccessibleWidget(&widget) {}

    QAccessible::Role role() const override {
        const auto* const window = dynamic_cast<const FormWindow*>(widget());
        if (!window)
            return QAccessible::Grouping;
        return window->isDialog() ? QAccessible::Dialog : QAccessible::Window;
    }
    int childCount() const override { return static_cast<int>(children().size()); }
    QAccessibleInterface* child(int index) const override {
        return QAccessible::queryAccessibleInterface(children().value(index));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child ? static_cast<int>(children().indexOf(child->object())) : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QList<QObject*> all = children();
        const auto hit = std::find_if(all.rbegin(), all.rend(), [&](QObject* one) {
            const auto& widget = static_cast<const QWidget&>(*one);
            return widget.isVisible() && widget.rect().contains(widget.mapFromGlobal(QPoint(x, y)));
        });
        return hit == all.rend() ? nullptr : QAccessible::queryAccessibleInterface(*hit);
    }

private:
    static bool isTold(const QWidget& widget) {
        if (const auto* const view = dynamic_cast<const ControlView*>(&widget))
            return view->role() != controls::Role::Decoration &&
                   (view->role() != controls::Role::Text || !view->spokenName().isEmpty());
        if (dynamic_cast<const Announcer*>(&widget))
            return widget.isVisible();
        return !widget.isWindow() && !qobject_cast<const QMenu*>(&widget);
    }
    QList<QObject*> children() const {
        QList<QObject*> told;
        for (QObject* const one : widget()->children())
            if (one->isWidgetType() && isTold(static_cast<const QWidget&>(*one)))
                told << one;
        return told;
    }
};

QAccessibleInterface* interfaceOf(const QString&, QObject* object) {
    if (auto* const view = dynamic_cast<ControlView*>(object))
        return new AccessibleControl(*view);
    if (dynamic_cast<FormWindow*>(object) || dynamic_cast<Ground*>(object))
        return new AccessibleParent(static_cast<QWidget&>(*object));
    if (auto* const announcer = dynamic_cast<Announcer*>(object))
        return new QAccessibleWidget(announcer, QAccessible::Notification);
    // Qt calls a window without a class of its own a filler.
    auto* const widget = qobject_cast<QWidget*>(object);
    if (widget && widget->isWindow() && widget->metaObject() == &QWidget::staticMetaObject)
        return new QAccessibleWidget(widget, QAccessible::Window);
    return nullptr;
}

} // namespace

void prepareAccessibleViews() {
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(&interfaceOf);
        return true;
    }();
}

} // namespace desktop
