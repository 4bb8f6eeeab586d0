#include "FocusKeeper.h"

#include <QQuickWindow>

namespace {

/// The first item below `item`, or itself, that Tab would stop at; null when there is none.
QQuickItem *firstTabStop(QQuickItem *item)
{
    if (!item->isVisible() || !item->isEnabled())
        return nullptr;
    if (item->activeFocusOnTab())
        return item;
    const auto children = item->childItems();
    for (auto *child : children) {
        if (auto *stop = firstTabStop(child))
            return stop;
    }
    return nullptr;
}

} // namespace

FocusKeeper::FocusKeeper(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemIsFocusScope);
}

void FocusKeeper::setHome(QQuickItem *home)
{
    if (m_home == home)
        return;
    m_home = home;
    Q_EMIT homeChanged();
}

void FocusKeeper::setBusy(bool isBusy)
{
    if (m_isBusy == isBusy)
        return;
    m_isBusy = isBusy;
    Q_EMIT isBusyChanged();
    lookLater();
}

void FocusKeeper::goHome()
{
    if (!m_home)
        return;
    m_last = m_home;
    if (isWithDialog())
        return;
    if (canHaveKeyboard(m_home))
        return give(m_home);
    auto *scope = m_home->parentItem();
    while (scope && !scope->isFocusScope())
        scope = scope->parentItem();
    if (scope)
        scope->forceActiveFocus();
    lookLater();
}

bool FocusKeeper::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress)
        m_isWorkedByKey = event->type() == QEvent::KeyPress;
    return QQuickItem::eventFilter(watched, event);
}

void FocusKeeper::itemChange(ItemChange change, const ItemChangeData &data)
{
    if (change == ItemSceneChange) {
        disconnect(m_window);
        if (data.window) {
            m_window =
                connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &FocusKeeper::followFocus);
            data.window->installEventFilter(this);
        }
    }
    QQuickItem::itemChange(change, data);
}

void FocusKeeper::followFocus()
{
    disconnect(m_visibility);
    auto *item = window()->activeFocusItem();
    if (canHaveKeyboard(item) && !isMereContainer(item)) {
        m_last = item;
        m_visibility = connect(item, &QQuickItem::visibleChanged, this, &FocusKeeper::lookLater);
    } else {
        lookLater();
    }
}

void FocusKeeper::lookLater()
{
    // Once what goes together has changed: a dialog is closed and the operation that it allowed has begun.
    QMetaObject::invokeMethod(this, &FocusKeeper::look, Qt::QueuedConnection);
}

void FocusKeeper::look()
{
    auto *item = window() ? window()->activeFocusItem() : nullptr;
    if (!item)
        return;
    const bool isWithNobody = item == window()->contentItem();
    const bool isLost = isAncestorOf(item) && (!canHaveKeyboard(item) || isMereContainer(item));
    if (!isWithNobody && !isLost)
        return;
    if (canHaveKeyboard(m_last))
        give(m_last);
    else if (!m_isBusy)
        give(placeNextTo(m_last));
    else if (isWithNobody)
        forceActiveFocus();
}

void FocusKeeper::give(QQuickItem *item)
{
    if (item)
        item->forceActiveFocus(m_isWorkedByKey ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

bool FocusKeeper::canHaveKeyboard(const QQuickItem *item) const
{
    return item && isAncestorOf(item) && item->isVisible() && item->isEnabled();
}

/// Whether something above the window's content has the keyboard, and will give it back.
bool FocusKeeper::isWithDialog() const
{
    if (!window())
        return false;
    // Before the window is the desktop's active one, what will have the keyboard then.
    const auto *active = window()->activeFocusItem();
    const auto *item = active ? active : window()->contentItem()->scopedFocusItem();
    return item && item != this && !isAncestorOf(item) && !item->isAncestorOf(this);
}

/// Whether it only passes the keyboard on to one of the items in it.
bool FocusKeeper::isMereContainer(const QQuickItem *item) const
{
    return item->isFocusScope() && !item->activeFocusOnTab() && item != m_home;
}

QQuickItem *FocusKeeper::placeNextTo(QQuickItem *lost) const
{
    const bool canGoHome = canHaveKeyboard(m_home);
    for (auto *around : {lost, canGoHome ? nullptr : m_home.get()}) {
        for (; around && around != this; around = around->parentItem()) {
            if (canGoHome && around->isAncestorOf(m_home))
                break;
            if (auto *stop = firstTabStop(around))
                return stop;
        }
    }
    return canGoHome ? m_home.get() : nullptr;
}
