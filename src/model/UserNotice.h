#pragma once

#include <QMetaType>
#include <QString>
#include <QUuid>

/// The content of one alert.
struct UserNotice
{
    Q_GADGET
    Q_PROPERTY(QUuid id MEMBER id)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString message MEMBER message)

public:
    /// Fresh for every notice: two with equal texts are still two alerts.
    QUuid id;
    /// Both in the language that was the user's when the notice was made; lines are separated by a line feed.
    QString title;
    QString message;
};

Q_DECLARE_METATYPE(UserNotice)
