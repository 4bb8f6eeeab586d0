#pragma once

#include "Enumerations.h"

#include <QObject>
#include <QVariant>

/// One segment of the language switch.
struct LanguageChoice
{
    Q_GADGET
    Q_PROPERTY(Tarnvale::AppLanguage language MEMBER language)
    Q_PROPERTY(QString label MEMBER label)

public:
    AppLanguage language;
    /// "PL", "EN".
    QString label;
};

/// One check box of a finder: a `MediaCategory` or a `TextFileCategory` as its number.
struct CategoryChoice
{
    Q_GADGET
    Q_PROPERTY(int category MEMBER category)
    Q_PROPERTY(QString textKey MEMBER textKey)

public:
    int category;
    QString textKey;
};

/// What the screens ask that is not state: texts, and the fixed lists that they repeat over. Every answer depends
/// on its arguments alone, so a QML binding that names the language follows it. Stateless.
class Presentation : public QObject
{
    Q_OBJECT
    /// Lists of `SidebarSection`, `LanguageChoice` and `CategoryChoice` in the order in which they are shown.
    Q_PROPERTY(QVariantList sections READ sections CONSTANT)
    Q_PROPERTY(QVariantList languages READ languages CONSTANT)
    Q_PROPERTY(QVariantList mediaCategories READ mediaCategories CONSTANT)
    Q_PROPERTY(QVariantList textFileCategories READ textFileCategories CONSTANT)

public:
    using QObject::QObject;

    static QVariantList sections();
    static QVariantList languages();
    static QVariantList mediaCategories();
    static QVariantList textFileCategories();

    /// The screen's row of `sections`; undefined where there is none.
    Q_INVOKABLE static QVariant section(Tarnvale::SidebarSelection selection);

    /// The text under `key`; the key itself where there is none.
    Q_INVOKABLE static QString text(const QString &key, Tarnvale::AppLanguage language);

    /// What a row of this `kindKey` is, in words: for assistive technology, which cannot tell of the row's symbol.
    Q_INVOKABLE static QString kindText(const QString &kindKey, Tarnvale::AppLanguage language);

    /// The text under `key` with its placeholders replaced by `arguments` in order: numbers as plain digits, texts
    /// as they are.
    Q_INVOKABLE static QString filledText(const QString &key, Tarnvale::AppLanguage language,
                                          const QVariantList &arguments);

    /// What a row's menu calls copying its path.
    Q_INVOKABLE static QString copyPathText(Tarnvale::AppLanguage language);

    /// A size in the style of files.
    Q_INVOKABLE static QString sizeText(qint64 bytes);

    /// What the confirmation of `request` (a `DeletionRequest`) says: how many items, how large; empty for
    /// anything else.
    Q_INVOKABLE static QString confirmationMessage(const QVariant &request, Tarnvale::AppLanguage language);

    /// A `DashboardPresentation` of `snapshot` (a `DashboardSnapshot`); undefined for anything else.
    Q_INVOKABLE static QVariant dashboard(const QVariant &snapshot, Tarnvale::AppLanguage language);
};
