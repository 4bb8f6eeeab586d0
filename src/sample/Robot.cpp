#include "Robot.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

#include <utility>

namespace {

QAccessibleInterface *findBelow(QAccessibleInterface *element, QAccessible::Role role, const QString &name)
{
    if (!element)
        return nullptr;
    for (int i = 0; i < element->childCount(); ++i) {
        auto *child = element->child(i);
        if (!child || child->state().invisible)
            continue;
        if (child->role() == role && child->text(QAccessible::Name) == name && !child->rect().isEmpty())
            return child;
        if (auto *found = findBelow(child, role, name))
            return found;
    }
    return nullptr;
}

} // namespace

Robot::Robot(QQuickWindow &window) : m_window(window)
{
    QAccessible::setActive(true);
}

QAccessibleInterface *Robot::find(QAccessible::Role role, const QString &name) const
{
    return findBelow(QAccessible::queryAccessibleInterface(&m_window), role, name);
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
    const auto place = m_window.mapFromGlobal(element->rect().center());
    QMimeData files;
    files.setData(QStringLiteral("text/uri-list"), uriList);
    QDragEnterEvent enter(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &move);
    QDropEvent release(place, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &release);
    return true;
}

bool Robot::waitUntil(const std::function<bool()> &condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}
