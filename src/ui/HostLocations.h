#pragma once

#include "Url.h"

#include <QQmlEngine>

#include <functional>
#include <optional>

/// From a location as the desktop hands it over (dropped, chosen in a dialog) to the same location on the disk
/// that the program works on; absent where that disk does not have it.
using LocationMap = std::function<std::optional<Url>(const Url &)>;

/// What the window's items know of the disk: the map of the engine that they live in. The desktop's locations are
/// the disk's own until another map is set.
class HostLocations : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    explicit HostLocations(QObject *parent = nullptr) : QObject(parent) { }

    /// Those that the items of `engine` ask.
    static HostLocations &of(QQmlEngine &engine)
    {
        return *engine.singletonInstance<HostLocations *>(qmlTypeId("Tarnvale", 1, 0, "HostLocations"));
    }

    LocationMap onDisk = [](const Url &host) { return std::optional(host); };
};
