#include "ScreenBench.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QQuickWindow>

#include <algorithm>

namespace {

/// Every visible item below `item`, and itself, outermost first.
QList<QQuickItem *> visibleItems(QQuickItem *item)
{
    if (!item->isVisible())
        return {};
    QList items{item};
    for (auto *child : item->childItems())
        items.append(visibleItems(child));
    return items;
}

QList<QQuickItem *> textItems(QQuickItem *item)
{
    auto items = visibleItems(item);
    items.removeIf(
        [](QQuickItem *any) { return !any->inherits("QQuickText") && !any->inherits("QQuickTextEdit"); });
    return items;
}

/// Empty for what assistive technology is not told of.
QString accessibleName(QQuickItem *item)
{
    if (QQmlProperty(item, "Accessible.ignored", qmlContext(item)).read().toBool())
        return {};
    auto *interface = QAccessible::queryAccessibleInterface(item);
    return interface ? interface->text(QAccessible::Name) : QString();
}

std::unique_ptr<QMimeData> mimeData(const QString &type, const QString &data)
{
    auto mime = std::make_unique<QMimeData>();
    mime->setData(type, QByteArray::fromPercentEncoding(data.toLatin1(), '^'));
    return mime;
}

QPoint middleOf(QQuickItem *item)
{
    return item->mapToScene(item->boundingRect().center()).toPoint();
}

/// What a file manager is answered that means to move: told anything but a copy, it takes the original away.
template <typename Event> Qt::DropAction answerTo(QQuickItem *item, const QMimeData &mime)
{
    Event event(middleOf(item), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
    event.setDropAction(Qt::MoveAction);
    QCoreApplication::sendEvent(item->window(), &event);
    return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
}

} // namespace

QStringList ScreenBench::pathsOf(const QList<Url> &urls)
{
    QStringList paths;
    for (const auto &url : urls)
        paths.append(url.displayPath());
    return paths;
}

void ScreenBench::renew()
{
    // The screens let go of the old state before it goes.
    const auto oldState = std::move(m_viewModel);
    const auto oldComputer = std::move(m_computer);
    m_computer = std::make_unique<FakeComputer>();
    m_viewModel = std::make_unique<AppViewModel>(m_computer->platform);
    QQmlEngine::setObjectOwnership(m_viewModel.get(), QQmlEngine::CppOwnership);
    Q_EMIT renewed();
}

void ScreenBench::becomeLaptop(const QString &name, const QString &batteryHealth)
{
    auto &facts = m_computer->facts;
    m_computer->disk.setVolume(VolumeValues{name, 1000, std::nullopt, 250});
    facts.localizedHostNameValue = facts.modelValue = facts.processorBrandValue = name;
    facts.physicalMemoryValue = 1000;
    facts.pageSizeValue = 1;
    facts.pagesValue = VirtualMemoryStatistics{100, 0, 300, 200, 20};
    facts.power.source = PowerSourceDescription{4080, 5000, "AC Power", true};
    facts.power.registryEntry = BatteryRegistryEntry{213, 5550, batteryHealth, std::nullopt};
    facts.power.timeRemainingEstimate = -2;
}

QQuickItem *ScreenBench::control(QQuickItem *item, const QString &name)
{
    QQuickItem *text = nullptr;
    for (auto *named : visibleItems(item->window()->contentItem())) {
        if (accessibleName(named) != name)
            continue;
        const auto role = QAccessible::queryAccessibleInterface(named)->role();
        if (role != QAccessible::StaticText && role != QAccessible::Heading)
            return named;
        if (!text)
            text = named;
    }
    return text;
}

QString ScreenBench::description(QQuickItem *item, const QString &name)
{
    auto *named = control(item, name);
    auto *interface = named ? QAccessible::queryAccessibleInterface(named) : nullptr;
    if (!interface)
        return {};
    const auto ticked = interface->state().checked ? QStringLiteral(", ticked") : QString();
    return interface->text(QAccessible::Description) + ticked;
}

QStringList ScreenBench::alerts(QQuickItem *item)
{
    QStringList names;
    for (auto *named : visibleItems(item->window()->contentItem())) {
        const auto name = accessibleName(named);
        if (!name.isEmpty() && QAccessible::queryAccessibleInterface(named)->role() == QAccessible::AlertMessage)
            names.append(name);
    }
    return names;
}

QStringList ScreenBench::nameless(QQuickItem *item)
{
    QAccessible::setActive(true);
    QStringList roles;
    const auto collect = [&roles](const auto &again, QAccessibleInterface *element) -> void {
        for (int i = 0; element && i < element->childCount(); ++i) {
            auto *child = element->child(i);
            if (!child || child->state().invisible)
                continue;
            const bool isFrame = child->role() == QAccessible::NoRole || child->role() == QAccessible::Client
                                 || child->role() == QAccessible::Pane;
            if (!isFrame && child->text(QAccessible::Name).isEmpty())
                roles.append(qAccessibleRoleString(child->role()));
            again(again, child);
        }
    };
    collect(collect, QAccessible::queryAccessibleInterface(item->window()));
    return roles;
}

bool ScreenBench::assist(QQuickItem *item, const QString &name, const QString &action)
{
    QAccessible::setActive(true);
    for (auto *named : visibleItems(item->window()->contentItem())) {
        auto *interface = QAccessible::queryAccessibleInterface(named);
        if (accessibleName(named) != name || !interface->actionInterface()
            || !interface->actionInterface()->actionNames().contains(action))
            continue;
        interface->actionInterface()->doAction(action);
        return true;
    }
    return false;
}

QStringList ScreenBench::namelessControls(QQuickItem *item)
{
    QStringList types;
    for (auto *control : visibleItems(item)) {
        if (control->activeFocusOnTab() && accessibleName(control).isEmpty())
            types.append(QString::fromLatin1(control->metaObject()->className()));
    }
    return types;
}

QStringList ScreenBench::texts(QQuickItem *item)
{
    QStringList texts;
    for (auto *text : textItems(item))
        texts.append(text->property("text").toString());
    return texts;
}

QStringList ScreenBench::clippedTexts(QQuickItem *item)
{
    QStringList texts;
    for (auto *text : textItems(item)) {
        // Names and paths are shortened on purpose; words of ours are not.
        const bool isShortened = text->property("truncated").toBool();
        const bool isWords = !text->property("text").toString().contains(QLatin1Char('/'));
        if ((isShortened && isWords) || text->property("contentWidth").toReal() > text->width() + 1
            || text->property("textFormat").toInt() != Qt::PlainText)
            texts.append(text->property("text").toString());
    }
    return texts;
}

QStringList ScreenBench::textsUnder(QQuickItem *item)
{
    const auto place = item->mapRectToScene(item->boundingRect());
    QStringList texts;
    for (auto *text : textItems(item->window()->contentItem())) {
        const QSizeF size(text->property("contentWidth").toReal(), text->property("contentHeight").toReal());
        if (text->mapRectToScene(QRectF({}, size)).intersects(place))
            texts.append(text->property("text").toString());
    }
    return texts;
}

QQuickItem *ScreenBench::scrollBar(QQuickItem *item)
{
    for (auto *any : visibleItems(item)) {
        if (any->inherits("QQuickScrollBar"))
            return any;
    }
    return nullptr;
}

double ScreenBench::rightEdge(QQuickItem *item)
{
    double edge = 0;
    for (auto *text : textItems(item)) {
        const auto width = std::max(text->width(), text->property("contentWidth").toReal());
        edge = std::max(edge, text->mapToItem(item, {width, 0}).x());
    }
    return edge;
}

bool ScreenBench::hover(QQuickItem *item, const QString &type, const QString &data)
{
    const auto mime = mimeData(type, data);
    // The window passes on whether the drag may enter, and only of what follows, as what.
    return answerTo<QDragEnterEvent>(item, *mime) != Qt::IgnoreAction
           && answerTo<QDragMoveEvent>(item, *mime) == Qt::CopyAction;
}

void ScreenBench::leave(QQuickItem *item)
{
    QDragLeaveEvent event;
    QCoreApplication::sendEvent(item->window(), &event);
}

bool ScreenBench::drop(QQuickItem *item, const QString &type, const QString &data)
{
    if (hover(item, type, data))
        return answerTo<QDropEvent>(item, *mimeData(type, data)) == Qt::CopyAction;
    leave(item);
    return false;
}
