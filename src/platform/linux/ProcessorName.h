#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

/// What the processor is called, from the text of /proc/cpuinfo and, on boards whose cpuinfo does not say, from
/// the device tree's list of what the board is compatible with (texts that end in zeros, the chip last). An ARM
/// kernel gives numbers only, so these are looked up; a processor of several kinds of cores is named "A + B".
/// Absent when nothing names it.
std::optional<QString> processorName(QByteArrayView cpuinfo, QByteArrayView compatible);
