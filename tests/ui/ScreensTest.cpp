#include "AccessibleButton.h"
#include "ScreenBench.h"
#include "Surroundings.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickImageProvider>
#include <QtQuickTest>

/// Makes the QML module's C++ types known; the build writes it. A static library has to be asked.
void qml_register_types_Tarnvale();

/// Gives the test files the window's module and a bench.
class ScreensTest : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        qml_register_types_Tarnvale();
        installAccessibleButtons();
        engine->addImportPath("qrc:/qt/qml");
        engine->addImageProvider("bundles", new NoPictures);
        engine->rootContext()->setContextProperty("bench", &m_bench);
    }

private:
    struct NoPictures : QQuickImageProvider
    {
        NoPictures() : QQuickImageProvider(QQuickImageProvider::Image) { }
        QImage requestImage(const QString &, QSize *size, const QSize &) override
        {
            *size = {1, 1};
            return QImage(1, 1, QImage::Format_ARGB32);
        }
    };

    ScreenBench m_bench;
};

int main(int argc, char **argv)
{
    setSurroundings();
    // A platform without a screen says that nothing hovers there.
    qputenv("QT_QUICK_CONTROLS_HOVER_ENABLED", "1");
    ScreensTest setup;
    return quick_test_main_with_setup(argc, argv, "screens", QUICK_TEST_SOURCE_DIR, &setup);
}

#include "ScreensTest.moc"
