#include "AccessibleButton.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

/// What assistive technology is told of a BaseButton.
class AccessibleButton : public QAccessibleObject, public QAccessibleActionInterface
{
public:
    explicit AccessibleButton(QQuickItem *button) : QAccessibleObject(button) { }

    QAccessible::Role role() const override { return static_cast<QAccessible::Role>(value("role").toInt()); }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? value("name").toString() : QString();
    }

    QAccessible::State state() const override
    {
        const auto *window = button()->window();
        QAccessible::State state;
        state.disabled = !button()->isEnabled();
        state.focusable = button()->isEnabled() && button()->activeFocusOnTab();
        state.focused = button()->hasActiveFocus();
        state.pressed = value("down").toBool();
        state.checkable = isTicked() || role() == QAccessible::RadioButton;
        state.checked = value("checked").toBool();
        state.selectable = role() == QAccessible::PageTab;
        state.selected = value("selected").toBool();
        state.invisible = !window || !window->isVisible() || rect().isEmpty();
        state.offscreen = !window || !rect().intersects(window->geometry());
        return state;
    }

    QRect rect() const override
    {
        if (!button()->window() || !button()->isVisible())
            return {};
        return {button()->mapToGlobal({0, 0}).toPoint(), button()->size().toSize()};
    }

    QWindow *window() const override { return button()->window(); }

    QAccessibleInterface *parent() const override
    {
        auto *window = button()->window();
        for (auto *item = button()->parentItem(); window && item && item != window->contentItem();
             item = item->parentItem()) {
            if (auto *told = QAccessible::queryAccessibleInterface(item))
                return told;
        }
        return QAccessible::queryAccessibleInterface(window);
    }

    // What a button shows is its name.
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }

    QStringList actionNames() const override
    {
        QStringList names{pressAction()};
        if (isTicked())
            names.append(toggleAction());
        if (state().focusable)
            names.append(setFocusAction());
        return names;
    }

    void doAction(const QString &name) override
    {
        if (name == setFocusAction())
            button()->forceActiveFocus();
        else if (actionNames().contains(name))
            QMetaObject::invokeMethod(button(), "activate");
    }

    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QQuickItem *button() const { return static_cast<QQuickItem *>(object()); }
    QVariant value(const char *property) const { return object()->property(property); }
    bool isTicked() const { return value("checkable").toBool(); }
};

/// Null for what Qt is to tell of, as it asks from an object's own class on to what that is made of.
QAccessibleInterface *makeAccessibleButton(const QString &className, QObject *object)
{
    const bool isOurs = className == QLatin1String("QQuickAbstractButton") && object->property("role").isValid();
    return isOurs ? new AccessibleButton(qobject_cast<QQuickItem *>(object)) : nullptr;
}

} // namespace

void installAccessibleButtons()
{
    QAccessible::installFactory(makeAccessibleButton);
}
