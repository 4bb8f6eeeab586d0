#pragma once

#include "MachO.h"

#include <QVariantMap>

#include <optional>

class BundleBudget;

/// The entitlements in the first of a Mach-O program's code signatures that holds any, as stored: nothing is
/// verified. Values as `readPropertyList` describes them. Absent when there are none or they cannot be read. Reads
/// headers and the entitlements themselves, and takes no more memory than those.
std::optional<QVariantMap> readEntitlements(const ByteSource &file, BundleBudget &budget);
