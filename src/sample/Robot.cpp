#include "Robot.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QTest>

#include <utility>

namespace {

void appendBelow(QList<QAccessibleInterface *> &elements, QAccessibleInterface *element)
{
    for (int i = 0; element && i < element->childCount(); ++i) {
        auto *child = element->child(i);
        if (!child || child->state().invisible)
            continue;
        elements.append(child);
        appendBelow(elements, child);
    }
}

template <typename Event> Qt::DropAction answerTo(QQuickWindow &window, QPoint place, const QMimeData &files)
{
    Event event(place, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, Qt::NoModifier);
    event.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(&window, &event);
    return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
}

} // namespace

Robot::Robot(QQuickWindow &window) : m_window(window)
{
    QAccessible::setActive(true);
}

QAccessibleInterface *Robot::find(QAccessible::Role role, const QString &name) const
{
    for (auto *element : elements(m_window)) {
        if (element->role() == role && element->text(QAccessible::Name) == name && !element->rect().isEmpty())
            return element;
    }
    return nullptr;
}

bool Robot::sees(QAccessible::Role role, const QString &name) const
{
    return find(role, name);
}

bool Robot::canUse(QAccessible::Role role, const QString &name) const
{
    const auto *element = find(role, name);
    return element && !element->state().disabled;
}

QPoint Robot::placeAtRest(QAccessible::Role role, const QString &name) const
{
    // What was just filled or emptied moves its neighbours with the next picture or two, as no hand is fast enough to see.
    QRect last;
    int timesAlike = 0;
    waitUntil(
        [&] {
            const auto *element = find(role, name);
            const auto now = element ? element->rect() : QRect();
            timesAlike = now == std::exchange(last, now) ? timesAlike + 1 : 0;
            return timesAlike == 3;
        },
        1'000);
    return last.center();
}

bool Robot::click(QAccessible::Role role, const QString &name)
{
    // A list makes its rows after it was filled.
    if (!waitUntil([&] { return canUse(role, name); }, 5'000))
        return false;
    const auto place = m_window.mapFromGlobal(placeAtRest(role, name));
    QTest::mouseMove(&m_window, place);
    QTest::mouseClick(&m_window, Qt::LeftButton, {}, place);
    return true;
}

void Robot::type(const QString &text)
{
    for (const auto character : text)
        QTest::sendKeyEvent(QTest::Click, &m_window, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

void Robot::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&m_window, key, modifiers);
}

bool Robot::drop(const QByteArray &uriList, QAccessible::Role role, const QString &name)
{
    const auto *element = find(role, name);
    if (!element)
        return false;
    QMimeData files;
    files.setData(QStringLiteral("text/uri-list"), uriList);
    drop(m_window, m_window.mapFromGlobal(element->rect().center()), files);
    return true;
}

bool Robot::dragOver(QQuickWindow &window, QPoint place, const QMimeData &files)
{
    // The window passes on whether the drag may enter, and only of what follows, as what.
    return answerTo<QDragEnterEvent>(window, place, files) != Qt::IgnoreAction
           && answerTo<QDragMoveEvent>(window, place, files) == Qt::CopyAction;
}

void Robot::dragAway(QQuickWindow &window)
{
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(&window, &leave);
}

bool Robot::drop(QQuickWindow &window, QPoint place, const QMimeData &files)
{
    if (dragOver(window, place, files))
        return answerTo<QDropEvent>(window, place, files) == Qt::CopyAction;
    dragAway(window);
    return false;
}

QList<QAccessibleInterface *> Robot::elements(QQuickWindow &window)
{
    QList<QAccessibleInterface *> all;
    appendBelow(all, QAccessible::queryAccessibleInterface(&window));
    return all;
}

bool Robot::waitUntil(const std::function<bool()> &condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}
