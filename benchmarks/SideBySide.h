#pragma once

#include "Figure.h"

#include <QStringList>

#include <functional>
#include <optional>

/// One way to do the work. All ways are taken in turn, round after round, so that what else the computer does
/// meets them alike.
using Contestant = std::function<void()>;

/// Runs another program to its end, its output thrown away.
Contestant program(const QString &name, const QStringList &arguments);

/// How the time of the contestants compares to the first one's; the median over the rounds of the ratio within a
/// round. The first answer is the first one's median time in seconds, the others are ratios.
std::vector<double> sideBySide(int rounds, const std::vector<Contestant> &contestants);

/// The same with everything read from the disk again: the caches are dropped before each contestant, which only root
/// can do. Nothing for anybody else.
std::optional<std::vector<double>> coldSideBySide(int rounds, const std::vector<Contestant> &contestants);

/// Whether the caches of the file systems were dropped, which only root can do.
bool dropCaches();

/// A figure that could not be measured, and why.
Figure skipped(const QString &what);

/// "1.02 ×" against "at most LIMIT ×".
Figure atMost(const QString &what, double ratio, double limit);
/// "1.40 × faster" against "at least LIMIT × faster".
Figure fasterBy(const QString &what, double ratio, double limit);
