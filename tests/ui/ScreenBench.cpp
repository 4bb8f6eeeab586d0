#include "ScreenBench.h"

#include "Robot.h"
#include "SymbolPicture.h"

#include <QAccessible>
#include <QMimeData>
#include <QQmlEngine>
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

bool isText(const QQuickItem &item)
{
    return item.inherits("QQuickText") || item.inherits("Figures");
}

/// What the text takes, whatever room it has.
QSizeF contentSize(const QQuickItem &text)
{
    const auto width = text.property("contentWidth");
    return width.isValid() ? QSizeF(width.toReal(), text.property("contentHeight").toReal())
                           : QSizeF(text.implicitWidth(), text.implicitHeight());
}

QList<QQuickItem *> textItems(QQuickItem *item)
{
    auto items = visibleItems(item);
    items.removeIf([](QQuickItem *any) { return !isText(*any); });
    return items;
}

/// What can be used, and may be disabled.
bool isControl(const QAccessibleInterface &element)
{
    const auto role = element.role();
    return role == QAccessible::Button || role == QAccessible::CheckBox || role == QAccessible::RadioButton
           || role == QAccessible::PageTab || role == QAccessible::EditableText;
}

struct Element
{
    QAccessibleInterface *element;
    QString told;
};

Element described(QAccessibleInterface *element)
{
    const auto state = element->state();
    auto told =
        QString::fromLatin1(qAccessibleRoleString(element->role())) + u' ' + element->text(QAccessible::Name);
    for (const auto &[is, word] : {std::pair(bool(state.disabled), ", disabled"),
                                   {state.checked, ", checked"},
                                   {state.selected, ", selected"},
                                   {state.focused, ", focused"}})
        told += QLatin1String(is ? word : "");
    return {element, told};
}

/// What assistive technology is told of in the window of `item`, but for mere frames, outermost first.
QList<Element> elements(QQuickItem *item)
{
    QList<Element> all;
    for (auto *element : Robot::elements(*item->window())) {
        const auto role = element->role();
        if (role != QAccessible::NoRole && role != QAccessible::Client && role != QAccessible::Pane)
            all.append(described(element));
    }
    return all;
}

/// The first that is told so, whatever else of its states is told; null when there is none.
QAccessibleInterface *find(QQuickItem *item, const QString &told)
{
    for (const auto &[element, line] : elements(item)) {
        if (line == told || line.startsWith(told + u','))
            return element;
    }
    return nullptr;
}

QStringList seenIn(QQuickItem *item)
{
    if (!item->isVisible())
        return {};
    if (const auto *symbol = qobject_cast<SymbolPicture *>(item))
        return {u'<' + symbol->property("name").toString() + u'>'};
    if (isText(*item))
        return {item->property("text").toString()};
    if (item->inherits("QQuickTextField"))
        return {u'{' + item->property("placeholderText").toString() + u'}'};
    if (QByteArrayView(item->metaObject()->className()).startsWith("Spinner_"))
        return {QStringLiteral("~")};
    QStringList seen;
    for (auto *child : item->childItems())
        seen.append(seenIn(child));
    seen.removeAll({});
    if (item->inherits("QQuickAbstractButton"))
        return {(item->isEnabled() ? QStringLiteral("[%1]") : QStringLiteral("(%1)")).arg(seen.join(u' '))};
    return seen;
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
    QAccessible::setActive(true);
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
    for (const auto &[element, line] : elements(item)) {
        if (element->text(QAccessible::Name) != name)
            continue;
        auto *named = qobject_cast<QQuickItem *>(element->object());
        if (element->role() != QAccessible::StaticText && element->role() != QAccessible::Heading)
            return named;
        if (!text)
            text = named;
    }
    return text;
}

QStringList ScreenBench::told(QQuickItem *item)
{
    QStringList lines;
    for (const auto &[element, line] : elements(item))
        lines.append(line);
    return lines;
}

QStringList ScreenBench::mistold(QQuickItem *item)
{
    QStringList lines;
    for (const auto &[element, line] : elements(item)) {
        const auto *shown = qobject_cast<QQuickItem *>(element->object());
        auto *parent = element->parent();
        const auto isKnown = parent && parent->child(parent->indexOfChild(element)) == element;
        const auto isToldAsItIs = !isControl(*element) || element->state().disabled == !shown->isEnabled();
        if (element->text(QAccessible::Name).isEmpty() || !isKnown || !isToldAsItIs)
            lines.append(line);
    }
    return lines;
}

QQuickItem *ScreenBench::element(QQuickItem *item, const QString &told)
{
    auto *element = find(item, told);
    return element ? qobject_cast<QQuickItem *>(element->object()) : nullptr;
}

QString ScreenBench::description(QQuickItem *item, const QString &told)
{
    auto *element = find(item, told);
    return element ? element->text(QAccessible::Description) : QString();
}

QStringList ScreenBench::actions(QQuickItem *item, const QString &told)
{
    auto *element = find(item, told);
    auto names = element && element->actionInterface() ? element->actionInterface()->actionNames() : QStringList();
    names.removeAll(QAccessibleActionInterface::setFocusAction());
    return names;
}

void ScreenBench::assist(QQuickItem *item, const QString &told, const QString &action)
{
    find(item, told)->actionInterface()->doAction(action);
}

QString ScreenBench::seen(QQuickItem *item)
{
    return seenIn(item->window()->contentItem()).join(QStringLiteral(" "));
}

QStringList ScreenBench::clippedTexts(QQuickItem *item)
{
    QStringList texts;
    for (auto *text : textItems(item)) {
        // Names and paths are shortened on purpose; words of ours are not.
        const bool isShortened = text->property("truncated").toBool();
        const bool isWords = !text->property("text").toString().contains(QLatin1Char('/'));
        if ((isShortened && isWords) || contentSize(*text).width() > text->width() + 1
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
        if (text->mapRectToScene(QRectF({}, contentSize(*text))).intersects(place))
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
        const auto width = std::max(text->width(), contentSize(*text).width());
        edge = std::max(edge, text->mapToItem(item, {width, 0}).x());
    }
    return edge;
}

bool ScreenBench::hover(QQuickItem *item, const QString &type, const QString &data)
{
    return Robot::dragOver(*item->window(), middleOf(item), *mimeData(type, data));
}

void ScreenBench::leave(QQuickItem *item)
{
    Robot::dragAway(*item->window());
}

bool ScreenBench::drop(QQuickItem *item, const QString &type, const QString &data)
{
    return Robot::drop(*item->window(), middleOf(item), *mimeData(type, data));
}
