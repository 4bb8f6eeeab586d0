#pragma once

#include "Enumerations.h"
#include "Robot.h"
#include "Url.h"

#include <QSize>

#include <functional>

class AppViewModel;
class ChosenFolder;
class SampleDisk;

/// One walk through every screen of the window on a fresh sample disk, as a person would take it: with keys and
/// clicks, a whole uninstall among them. Prints each step and what it found on the disk, and keeps a picture of each.
/// Ends at the first step that is not as it should be, for every other one builds on it.
class Tour
{
public:
    /// `pictures` is a folder of this computer; it is made when it is not there.
    Tour(AppViewModel &viewModel, QQuickWindow &window, ChosenFolder &chosenFolder, const SampleDisk &disk,
         QString pictures);

    /// Whether every step was as it should be.
    bool run(AppLanguage language, QSize size);

private:
    /// Ends the tour. What failed is said before it is thrown.
    struct StepFailed
    {
    };

    void visitEverything(AppLanguage language, QSize size);
    // The stops, in their order.
    void visitDashboard();
    void visitEmptyUninstaller();
    void visitApplications();
    void uninstallByName();
    void meetSystemApplication();
    void dropBundles();
    void visitLeftovers();
    void visitCleaner();
    void visitMedia();
    void visitDocuments();
    void visitComputerWithoutBattery();

    void show(SidebarSelection section);
    void searchApplication(const QString &name);
    /// Asks for the removal of what is ticked, confirms it and waits for its end.
    void removeSelected();
    /// Begins what goes on in the background, keeps a picture of the window that is busy with it, and waits for its end.
    void workOn(const QString &name, const std::function<void()> &begin);
    void waitUntilIdle();
    /// What a program of this computer calls a path of the disk.
    Url onHost(const QByteArray &path) const;

    /// Where `isTrue` does not hold says so of `what`, keeps a picture and throws StepFailed.
    void expect(bool isTrue, const QString &what);
    void click(QAccessible::Role role, const QString &name);
    void press(const QString &textKey) { click(QAccessible::Button, text(textKey)); }

    /// Lets animations come to rest and keeps a picture.
    void keepPicture(const QString &name);
    void keep(const QImage &picture, const QString &name);
    /// The file of the next picture.
    QString nextPicture(const QString &name);

    QString text(const QString &key) const;
    /// How many items the disk's Trash holds.
    qsizetype trashCount() const;
    bool isOnDisk(const QString &path) const;

    AppViewModel &m_viewModel;
    QQuickWindow &m_window;
    ChosenFolder &m_chosenFolder;
    const SampleDisk &m_disk;
    QString m_pictures;
    Robot m_robot;
    int m_pictureCount = 0;
};
