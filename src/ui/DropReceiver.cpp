#include "DropReceiver.h"

#include "UriList.h"

#include <QMimeData>

#include <utility>

namespace {

/// The program only looks at what is dropped. A file manager that had meant to move it would take the original
/// away.
void acceptAsCopy(QDropEvent &event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

DropReceiver::DropReceiver(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemAcceptsDrops);
}

std::optional<Url> DropReceiver::firstFile(const QMimeData &dragged)
{
    const auto listed = urlsInUriList(dragged.data(QStringLiteral("text/uri-list")));
    if (!listed.isEmpty())
        return listed.constFirst();
    return Url::fromUri(dragged.data(QStringLiteral("text/plain")).trimmed());
}

void DropReceiver::setTargeted(bool isTargeted)
{
    if (std::exchange(m_isTargeted, isTargeted) != isTargeted)
        Q_EMIT isTargetedChanged();
}

void DropReceiver::dragEnterEvent(QDragEnterEvent *event)
{
    if (!firstFile(*event->mimeData()))
        return event->ignore();
    setTargeted(true);
    acceptAsCopy(*event);
}

void DropReceiver::dragMoveEvent(QDragMoveEvent *event)
{
    acceptAsCopy(*event);
}

void DropReceiver::dragLeaveEvent(QDragLeaveEvent *)
{
    setTargeted(false);
}

void DropReceiver::dropEvent(QDropEvent *event)
{
    setTargeted(false);
    const auto file = firstFile(*event->mimeData());
    if (!file)
        return event->ignore();
    acceptAsCopy(*event);
    QMetaObject::invokeMethod(
        this, [this, dropped = *file] { Q_EMIT urlDropped(dropped); }, Qt::QueuedConnection);
}
