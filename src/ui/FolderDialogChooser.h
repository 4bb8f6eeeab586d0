#pragma once

#include "FolderChooser.h"

#include <QObject>
#include <QPromise>
#include <QUrl>

#include <memory>

/// A folder dialog over the program's window: that of the desktop's Qt theme where it offers one, Qt's otherwise.
class FolderDialogChooser : public QObject, public FolderChooser
{
    Q_OBJECT

public:
    /// A dialog begins in `firstFolder`, a path of this computer.
    explicit FolderDialogChooser(const QByteArray &firstFolder);

    /// The window that a dialog of the desktop belongs to, as the desktop's portals name it. Empty where there is no
    /// window, or where Qt does not tell its name: it does for X11 alone.
    static QString parentWindow();

    /// One dialog at a time: a second request while one is open is answered as cancelled.
    QFuture<std::optional<Url>> chooseFolder(const QString &title, const QString &prompt) override;

private Q_SLOTS:
    void accept();
    void reject();

private:
    void answer(const std::optional<Url> &folder);

    QUrl m_firstFolder;
    std::unique_ptr<QObject> m_dialog;
    QPromise<std::optional<Url>> m_promise;
};
