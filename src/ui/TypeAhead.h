#pragma once

#include "ListModelBase.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <qqml.h>

/// Finds a row of a list by the beginning of its name as that is typed. A pause begins another name, and one letter over
/// and over goes through the names that begin with it.
class TypeAhead : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ListModelBase *model READ model WRITE setModel NOTIFY modelChanged)

public:
    using QObject::QObject;

    ListModelBase *model() const { return m_model; }
    void setModel(ListModelBase *model);

    /// The row that a key with this text leads to from `row`; -1 where it leads nowhere.
    Q_INVOKABLE int row(const QString &keyText, int row);

Q_SIGNALS:
    void modelChanged();

private:
    QPointer<ListModelBase> m_model;
    QString m_typed;
    QElapsedTimer m_sinceLastKey;
};
