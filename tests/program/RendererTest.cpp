#include "Renderer.h"

#include <QDir>
#include <QFile>
#include <QQuickWindow>
#include <QTemporaryDir>

#include <gmock/gmock.h>

TEST(Renderer, aCardThatOnlyShowsPicturesIsNoCard)
{
    const QTemporaryDir devices;
    EXPECT_TRUE(lacksGraphicsCard(devices.path())) << "nothing at all";
    ASSERT_TRUE(QDir(devices.path()).mkdir("dri"));
    const auto add = [&](const QString &name) { return QFile(devices.filePath(name)).open(QFile::WriteOnly); };
    ASSERT_TRUE(add("dri/card0"));
    EXPECT_TRUE(lacksGraphicsCard(devices.path())) << "a virtual machine's";
    ASSERT_TRUE(add("dri/renderD129"));
    EXPECT_FALSE(lacksGraphicsCard(devices.path()));
    ASSERT_TRUE(QDir(devices.filePath("dri")).removeRecursively());
    ASSERT_TRUE(add("nvidiactl"));
    EXPECT_FALSE(lacksGraphicsCard(devices.path()));
}

TEST(Renderer, whatTheUserHasSetStays)
{
    const auto isSoftware = [] { return QQuickWindow::sceneGraphBackend() == u"software"; };
    qunsetenv("QT_QUICK_BACKEND");
    qputenv("QSG_RHI_BACKEND", "opengl");
    chooseRenderer();
    EXPECT_FALSE(isSoftware());
    qunsetenv("QSG_RHI_BACKEND");
    qputenv("QT_QUICK_BACKEND", "rhi");
    chooseRenderer();
    EXPECT_FALSE(isSoftware());
    qunsetenv("QT_QUICK_BACKEND");
    chooseRenderer();
    EXPECT_EQ(isSoftware(), lacksGraphicsCard("/dev"));
}
