#pragma once

#include "Url.h"

#include <QByteArray>
#include <QVariant>

#include <optional>

class BundleBudget;
class FileSystem;

/// Reads a property list of any form: XML, binary, or text ("{ key = value; }", and ".strings" files, which leave
/// the braces out). Text may be UTF-8 or UTF-16, with or without a mark, and XML of any encoding that it declares.
///
/// A text is a QString, a list a QVariantList, a dictionary a QVariantMap (of equal keys the last counts), a
/// number a qint64 (a quint64 where it is larger than that) or a double, and otherwise a bool, QByteArray or
/// QDateTime in UTC. Absent when the list is damaged or costs more than `budget` grants.
std::optional<QVariant> readPropertyList(const QByteArray &data, BundleBudget &budget);

/// The dictionary in the property list at `url`; absent also when it holds something else, or when there is no
/// such regular file.
std::optional<QVariantMap> readPropertyListFile(const FileSystem &fileSystem, const Url &url,
                                                BundleBudget &budget);
