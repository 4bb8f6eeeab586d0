#pragma once

#include "AppViewModel.h"
#include "FakeComputer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QQuickItem>
#include <QStringList>

/// What the tests of the screens work with: the real state object on a disk in memory, and hands that find a
/// control by the name that assistive technology is told, and drop things.
class ScreenBench : public QObject
{
    Q_OBJECT
    Q_PROPERTY(AppViewModel *viewModel READ viewModel NOTIFY renewed)
    /// What was given to the Trash, in order.
    Q_PROPERTY(QStringList recycled READ recycled)
    Q_PROPERTY(QStringList revealed READ revealed)
    Q_PROPERTY(QString clipboard READ clipboard)
    /// How often the computer was read for the dashboard.
    Q_PROPERTY(int readings READ readings)

public:
    ScreenBench() { renew(); }

    AppViewModel *viewModel() { return m_viewModel.get(); }
    QStringList recycled() const { return pathsOf(m_computer->workspace.recycled); }
    QStringList revealed() const { return pathsOf(m_computer->workspace.revealed); }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    int readings() const { return m_computer->facts.timesRead; }

    /// An empty disk of a computer that tells nothing, and a state object as at the program's start.
    Q_INVOKABLE void renew();
    /// The computer is a laptop whose parts all go by one name.
    Q_INVOKABLE void becomeLaptop(const QString &name, const QString &batteryHealth);
    /// A byte of the path that is no text is written ^xx.
    Q_INVOKABLE void installApplication(const QString &path, const QString &identifier)
    {
        m_computer->disk.application(QByteArray::fromPercentEncoding(path.toUtf8(), '^'),
                                     {.identifier = identifier});
    }
    Q_INVOKABLE void addFile(const QString &path, int size = 4096) { m_computer->disk.file(path.toUtf8(), size); }
    /// The Trash refuses the item, for this reason.
    Q_INVOKABLE void refuse(const QString &path, const QString &reason)
    {
        m_computer->workspace.reactTo(locate(path), {.moves = false, .confirms = false, .error = reason});
    }
    /// Scans come to no end until the disk is released.
    Q_INVOKABLE void holdDisk() { m_computer->disk.hold(); }
    Q_INVOKABLE void releaseDisk() { m_computer->disk.release(); }
    /// The folder that the next choice of a folder answers.
    Q_INVOKABLE void setChosenFolder(const QString &path) { m_computer->chooser.folder = locate(path); }

    /// The visible control of this accessible name in the window of `item`, or else the text; null when there is
    /// none.
    Q_INVOKABLE static QQuickItem *control(QQuickItem *item, const QString &name);
    /// What assistive technology is told of in the window of `item`, but for mere frames: the role and the name of each, and
    /// behind commas the states that it has, "Button Scan, disabled".
    Q_INVOKABLE static QStringList told(QQuickItem *item);
    /// Those that have no name, that are not told to be disabled as they are, or whose parent does not know them.
    Q_INVOKABLE static QStringList mistold(QQuickItem *item);
    /// The first of them that is told so; null when there is none.
    Q_INVOKABLE static QQuickItem *element(QQuickItem *item, const QString &told);
    Q_INVOKABLE static QString description(QQuickItem *item, const QString &told);
    /// What assistive technology can have it do, but for taking the keyboard; and has it do that.
    Q_INVOKABLE static QStringList actions(QQuickItem *item, const QString &told);
    Q_INVOKABLE static void assist(QQuickItem *item, const QString &told, const QString &action);
    /// What the eyes see in the window of `item`, in its order: texts, <symbols>, {a field's hint}, [what can be pressed],
    /// (what is disabled), and ~ for work that goes on.
    Q_INVOKABLE static QString seen(QQuickItem *item);
    /// The texts below `item` that do not fit into their place, or would be taken for markup.
    Q_INVOKABLE static QStringList clippedTexts(QQuickItem *item);
    /// The texts in its window that `item` lies over, or would.
    Q_INVOKABLE static QStringList textsUnder(QQuickItem *item);
    /// The first scroll bar that shows below `item`; null when there is none.
    Q_INVOKABLE static QQuickItem *scrollBar(QQuickItem *item);
    /// Where the text that reaches farthest ends.
    Q_INVOKABLE static double rightEdge(QQuickItem *item);

    /// Drags `data` of a MIME type over the middle of `item`, and drops it when it is taken there. Whether it was.
    Q_INVOKABLE static bool drop(QQuickItem *item, const QString &type, const QString &data);
    /// Only hovers; `leave` ends it.
    Q_INVOKABLE static bool hover(QQuickItem *item, const QString &type, const QString &data);
    Q_INVOKABLE static void leave(QQuickItem *item);

Q_SIGNALS:
    void renewed();

private:
    static QStringList pathsOf(const QList<Url> &urls);
    Url locate(const QString &path) const { return m_computer->disk.url(path.toUtf8()); }

    std::unique_ptr<FakeComputer> m_computer;
    std::unique_ptr<AppViewModel> m_viewModel;
};
