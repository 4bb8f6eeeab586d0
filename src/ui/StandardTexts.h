#pragma once

#include "Enumerations.h"

#include <QObject>
#include <qqml.h>

/// What menus of every program say, in the words of Qt's own translations. Stateless.
class StandardTexts : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    enum class Text { cut, copy, paste, selectAll };
    Q_ENUM(Text)

    using QObject::QObject;

    /// In English where Qt's translation into `language` is not installed.
    Q_INVOKABLE static QString of(StandardTexts::Text text, Tarnvale::AppLanguage language);
};
