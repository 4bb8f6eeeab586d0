#include "DiskDialog.h"

#include "Appearance.h"
#include "Engine.h"

#include <QQmlApplicationEngine>
#include <QUrl>

#include <utility>

DiskDialog::DiskDialog(AppLanguage language, QString title, QString message)
    : m_language(language), m_title(std::move(title)), m_message(std::move(message))
{
}

void DiskDialog::addChoice(const QString &name, const QString &detail)
{
    m_choices.append(QVariantMap{{QStringLiteral("name"), name}, {QStringLiteral("detail"), detail}});
    Q_EMIT choicesChanged();
}

void DiskDialog::setDetail(qsizetype choice, const QString &detail)
{
    auto values = m_choices.at(choice).toMap();
    values.insert(QStringLiteral("detail"), detail);
    m_choices[choice] = values;
    Q_EMIT choicesChanged();
}

std::optional<int> DiskDialog::exec(Appearance &appearance)
{
    const auto engine = makeEngine();
    engine->setInitialProperties({
        {QStringLiteral("dialog"), QVariant::fromValue(this)},
        {QStringLiteral("appearance"), QVariant::fromValue(&appearance)},
    });
    engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Tarnvale/DiskDialogWindow.qml")));
    if (engine->rootObjects().isEmpty())
        qFatal("the window cannot be made");
    m_loop.exec();
    return m_chosen;
}

void DiskDialog::choose(int choice)
{
    m_chosen = choice;
    m_loop.quit();
}

void DiskDialog::close()
{
    m_loop.quit();
}
