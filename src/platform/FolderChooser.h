#pragma once

#include "Url.h"

#include <QFuture>
#include <QString>

#include <optional>

/// Lets the user choose one folder. Called on the main thread only.
class FolderChooser
{
public:
    virtual ~FolderChooser() = default;

    /// Shows a dialog for folders only, one at most, without a way to create one. `prompt` labels the button that
    /// confirms. The answer is the folder as the desktop hands it over; absent when the user cancels, and for a
    /// location that is not a local folder.
    virtual QFuture<std::optional<Url>> chooseFolder(const QString &title, const QString &prompt) = 0;
};
