#pragma once

#include "Url.h"

#include <QVariantMap>

#include <optional>

/// What is stored in code signatures. Nothing is verified and nothing is run. Safe to call from any thread.
class CodeSignature
{
public:
    virtual ~CodeSignature() = default;

    /// The entitlements in the signature of the executable of the bundle at `bundle`, as stored. Property-list
    /// values: text, list, map, bool, integer (qint64), real, QByteArray, QDateTime. Absent when there is no
    /// executable, no signature or no entitlements, or when they cannot be read.
    virtual std::optional<QVariantMap> entitlements(const Url &bundle) const = 0;
};
