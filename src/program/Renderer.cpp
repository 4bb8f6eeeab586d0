#include "Renderer.h"

#include <QDir>
#include <QFileInfo>
#include <QQuickWindow>

#include <algorithm>

void chooseRenderer()
{
    const bool isChosenByUser =
        qEnvironmentVariableIsSet("QT_QUICK_BACKEND") || qEnvironmentVariableIsSet("QSG_RHI_BACKEND");
    if (!isChosenByUser && lacksGraphicsCard(QStringLiteral("/dev")))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

bool lacksGraphicsCard(const QString &devices)
{
    // A card that only shows pictures, as in most virtual machines, has no node for drawing. The maker's own driver of one
    // family has nodes of its own, and so has a Linux inside of Windows.
    QStringList nodes{devices + QStringLiteral("/nvidiactl"), devices + QStringLiteral("/dxg")};
    const QDir folder(devices + QStringLiteral("/dri"));
    for (const auto &name : folder.entryList({QStringLiteral("renderD*")}, QDir::System | QDir::Files))
        nodes.append(folder.filePath(name));
    return std::ranges::none_of(nodes, [](const QString &node) {
        const QFileInfo file(node);
        return file.isReadable() && file.isWritable();
    });
}
