#pragma once

#include "Enumerations.h"

#include <QEventLoop>
#include <QObject>
#include <QVariant>
#include <qqml.h>

#include <optional>

class Appearance;

/// A small window before the program's own: it says something and lets the user choose one of several things, where there
/// are any, or close it.
class DiskDialog : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the window is given it")
    Q_PROPERTY(Tarnvale::AppLanguage language MEMBER m_language CONSTANT)
    Q_PROPERTY(QString title MEMBER m_title CONSTANT)
    Q_PROPERTY(QString message MEMBER m_message CONSTANT)
    /// Objects with a `name` and a `detail`.
    Q_PROPERTY(QVariantList choices MEMBER m_choices NOTIFY choicesChanged)

public:
    DiskDialog(AppLanguage language, QString title, QString message);

    void addChoice(const QString &name, const QString &detail);
    void setDetail(qsizetype choice, const QString &detail);

    /// Shows the window until the user has chosen or closed it. The number of the choice; absent when there is none.
    std::optional<int> exec(Appearance &appearance);

public Q_SLOTS:
    void choose(int choice);
    void close();

Q_SIGNALS:
    void choicesChanged();

private:
    AppLanguage m_language;
    QString m_title;
    QString m_message;
    QVariantList m_choices;
    std::optional<int> m_chosen;
    QEventLoop m_loop;
};
