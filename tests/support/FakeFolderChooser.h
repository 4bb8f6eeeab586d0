#pragma once

#include "FolderChooser.h"
#include "ReadyFuture.h"

/// Answers with the folder that a test set, none being a cancelled dialog.
class FakeFolderChooser : public FolderChooser
{
public:
    std::optional<Url> folder;

    QFuture<std::optional<Url>> chooseFolder(const QString &, const QString &) override
    {
        return readyFuture(folder);
    }
};
