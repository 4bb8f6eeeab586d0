#pragma once

#include <QString>

#include <vector>

class BenchDisk;

/// One line of the budget table.
struct Figure
{
    QString what;
    /// Worded for people, with its unit.
    QString measured;
    /// Empty where there is none.
    QString budget;
    bool isMet = true;
};

/// A quantity in `unit`, with so many decimals, against "at most LIMIT UNIT".
Figure atMost(const QString &what, double measured, double limit, const QString &unit, int decimals = 1);

/// Each in the file of its name.
std::vector<Figure> sizeWalk(const BenchDisk &disk);
std::vector<Figure> mediaScan(const BenchDisk &disk);
std::vector<Figure> nameSearch(const BenchDisk &disk);
std::vector<Figure> libraryScans(const BenchDisk &disk);
std::vector<Figure> resultMemory(const BenchDisk &disk);
std::vector<Figure> walkMemory(const BenchDisk &disk);
std::vector<Figure> rowToggle(const BenchDisk &disk);
std::vector<Figure> bundleReading(const BenchDisk &disk);
std::vector<Figure> bundlesAndRemoval(const BenchDisk &disk);
std::vector<Figure> windowFigures(const BenchDisk &disk);
std::vector<Figure> crowdedFolder(const BenchDisk &disk);
std::vector<Figure> catalogScan(const BenchDisk &disk);
std::vector<Figure> quitInTheMiddle(const BenchDisk &disk);
std::vector<Figure> snapshot(const BenchDisk &disk);
std::vector<Figure> silentBus(const BenchDisk &disk);
