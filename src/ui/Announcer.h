#pragma once

#include <QQuickItem>

/// Has assistive technology say what changed where nobody looks. Nothing of it is seen.
///
/// It is told to be a notification that shows up: readers say what that is called. Qt has announcements, but only from 6.8
/// on, and an alert of Qt's does not reach the bus.
class Announcer : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    /// What was said last; what assistive technology is told that the item is called.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    explicit Announcer(QQuickItem *parent = nullptr);

    const QString &text() const { return m_text; }

    /// Says `text`; says nothing, and forgets what was said, where it is empty.
    Q_INVOKABLE void say(const QString &text);

Q_SIGNALS:
    void textChanged();

private:
    QString m_text;
};
