#pragma once

#include <QObject>
#include <qqml.h>

#include <optional>

/// Where the keys for moving about lead in what is longer than its place. Stateless.
class KeyTravel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /// The row that `key` (a Qt::Key) leads to from `row` among `count` rows, `rowsOnPage` of which are in sight. -1 for
    /// a key that leads nowhere, and where there are no rows.
    Q_INVOKABLE static int row(int key, int row, int count, int rowsOnPage);

    /// How far below the upper edge of the content `key` brings that of the view, which shows `page` of `length` from
    /// `edge` on. -1 for a key that leads nowhere.
    Q_INVOKABLE static double edge(int key, double edge, double length, double page);
};
