#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// The value in the first line "key : value" of a file of /proc, without the blanks around it; absent when no line
/// has the key, a view into `text` otherwise.
std::optional<QByteArrayView> colonValue(QByteArrayView text, QByteArrayView key);

/// The value of the last line `KEY=value` of a file such as /etc/os-release, unquoted as a shell would do it;
/// absent when no line has the key or its value is empty.
std::optional<QString> assignedValue(QByteArrayView text, QByteArrayView key);
