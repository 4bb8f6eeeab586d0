#pragma once

#include <QAccessible>
#include <QImage>
#include <QList>
#include <QMimeData>
#include <QQuickWindow>
#include <QString>

#include <functional>

/// Works a window like a person does: looks for what it shows by role and name, as assistive technology does, and
/// sends it mouse and key events.
class Robot
{
public:
    explicit Robot(QQuickWindow &window);

    /// Whether something visible with this role and name is there.
    bool sees(QAccessible::Role role, const QString &name) const;

    /// Whether it is there and can be used.
    bool canUse(QAccessible::Role role, const QString &name) const;

    /// Moves the pointer there and clicks. False when it is not there, not visible or disabled, and stays so for some
    /// seconds.
    bool click(QAccessible::Role role, const QString &name);

    /// Types into what has the keyboard.
    void type(const QString &text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    /// Drags what `uriList` (text/uri-list) names over what has this role and name, and drops it there. False when
    /// it is not there.
    bool drop(const QByteArray &uriList, QAccessible::Role role, const QString &name);

    /// Drags `files` over a place of the window as a file manager does that means to move them: told anything but a copy, it
    /// takes the original away. Whether they would be taken there, as a copy.
    static bool dragOver(QQuickWindow &window, QPoint place, const QMimeData &files);
    /// Ends the drag without a drop.
    static void dragAway(QQuickWindow &window);
    /// Drags them there and drops them where they would be taken. Whether they were, as a copy.
    static bool drop(QQuickWindow &window, QPoint place, const QMimeData &files);

    /// What assistive technology is told of in the window, outermost first.
    static QList<QAccessibleInterface *> elements(QQuickWindow &window);

    /// Lets the program work until `condition` holds. False when it does not within `milliseconds`.
    static bool waitUntil(const std::function<bool()> &condition, int milliseconds = 60'000);

    /// A picture of the window as it is.
    QImage picture() { return m_window.grabWindow(); }

private:
    /// Its middle on the screen, once it does not move any more.
    QPoint placeAtRest(QAccessible::Role role, const QString &name) const;
    /// Null when there is none.
    QAccessibleInterface *find(QAccessible::Role role, const QString &name) const;

    QQuickWindow &m_window;
};
