#pragma once

#include <QPointer>
#include <QQuickItem>

/// Holds what the person works with, and sees to it that the keyboard is always somewhere in it.
///
/// A popup that closes, a control that is disabled or hidden and a screen that goes away leave the keyboard to nobody.
/// It then goes back to where it was or, where that is gone, to what stands next to it.
class FocusKeeper : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// What the person came for: where the keyboard goes for want of a better place. Null where nothing is shown.
    Q_PROPERTY(QQuickItem *home READ home WRITE setHome NOTIFY homeChanged)
    /// Whether an operation runs: what is disabled or hidden meanwhile may come back, and is waited for.
    Q_PROPERTY(bool isBusy READ isBusy WRITE setBusy NOTIFY isBusyChanged)

public:
    explicit FocusKeeper(QQuickItem *parent = nullptr);

    QQuickItem *home() const { return m_home; }
    void setHome(QQuickItem *home);
    bool isBusy() const { return m_isBusy; }
    void setBusy(bool isBusy);

    /// Gives the keyboard to `home`.
    Q_INVOKABLE void goHome();

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void homeChanged();
    void isBusyChanged();

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void followFocus();
    void look();
    void lookLater();
    void give(QQuickItem *item);
    bool canHaveKeyboard(const QQuickItem *item) const;
    bool isWithDialog() const;
    bool isMereContainer(const QQuickItem *item) const;
    QQuickItem *placeNextTo(QQuickItem *lost) const;

    QPointer<QQuickItem> m_home;
    /// The last of the items in here that had the keyboard.
    QPointer<QQuickItem> m_last;
    QMetaObject::Connection m_window;
    QMetaObject::Connection m_visibility;
    bool m_isBusy = false;
    bool m_isWorkedByKey = false;
};
