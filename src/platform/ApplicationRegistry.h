#pragma once

#include "Url.h"

#include <QString>

#include <memory>
#include <optional>

/// The applications that the system knew at one moment. Used by one thread at a time.
class ApplicationIndex
{
public:
    virtual ~ApplicationIndex() = default;

    /// Where the application with this identifier is; absent when none is known. Identifiers are the
    /// same in any case and in any canonical spelling.
    virtual std::optional<Url> urlForApplication(const QString &bundleIdentifier) const = 0;
};

/// The applications that the system knows, wherever they are installed.
class ApplicationRegistry
{
public:
    virtual ~ApplicationRegistry() = default;

    /// Reads the registry anew; meant to be asked once a scan. May take long: not for the main thread.
    virtual std::unique_ptr<ApplicationIndex> index() const = 0;
};
