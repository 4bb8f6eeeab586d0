#pragma once

#include "FolderChooser.h"
#include "HostLocations.h"

#include <QObject>
#include <QPromise>

#include <memory>

/// The desktop's own folder dialog where it offers one, Qt's otherwise, over the program's window.
class FolderDialogChooser : public QObject, public FolderChooser
{
    Q_OBJECT

public:
    explicit FolderDialogChooser(LocationMap onDisk);

    /// One dialog at a time: a second request while one is open is answered as cancelled.
    QFuture<std::optional<Url>> chooseFolder(const QString &title, const QString &prompt) override;

private Q_SLOTS:
    void accept();
    void reject();

private:
    void answer(const std::optional<Url> &folder);

    LocationMap m_onDisk;
    std::unique_ptr<QObject> m_dialog;
    QPromise<std::optional<Url>> m_promise;
};
