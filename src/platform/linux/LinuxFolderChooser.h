#pragma once

#include "FolderChooser.h"

#include <QObject>
#include <QPromise>

#include <functional>
#include <stop_token>

/// The desktop's own folder dialog, as its portal shows it (org.freedesktop.portal.FileChooser on the session
/// bus): the one that the user knows from other programs, whatever the desktop, and the same inside of a sandbox.
/// Where there is no bus, no portal or one that knows files only (before version 3), or where it does not answer,
/// another chooser is asked.
///
/// Nothing here waits for the portal. One dialog at a time: a request while one is open is answered as cancelled.
/// A portal that goes away takes its dialog along, so that is a cancel too; one that has not been answered is
/// closed with this object. Whether the dialog can create folders is the desktop's choice.
class LinuxFolderChooser : public QObject, public FolderChooser
{
    Q_OBJECT

public:
    /// `otherwise` outlives this. The dialog begins in `firstFolder`, a path of this computer. `parentWindow` tells
    /// which window it belongs to, as portals name it ("x11:1a2b"), or nothing. `busAddress` names another bus than the
    /// session's, for tests.
    LinuxFolderChooser(FolderChooser &otherwise, QByteArray firstFolder, std::function<QString()> parentWindow,
                       QByteArray busAddress = {});
    ~LinuxFolderChooser() override;

    QFuture<std::optional<Url>> chooseFolder(const QString &title, const QString &prompt) override;

private:
    void answer(const std::optional<Url> &folder);

    FolderChooser &m_otherwise;
    QByteArray m_firstFolder;
    std::function<QString()> m_parentWindow;
    QByteArray m_busAddress;
    bool m_isChoosing = false;
    QPromise<std::optional<Url>> m_promise;
    std::stop_source m_stop;
};
