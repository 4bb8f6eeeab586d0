#pragma once

#include <QString>

#include <optional>

/// The label that the user gave the file system that `openFile` lies on, as the system's device list shows it.
/// Absent when it has none or lies on no device (a network's, one in memory). Reads lists that the kernel and udev
/// hold in memory; never the device.
std::optional<QString> volumeLabel(int openFile);
