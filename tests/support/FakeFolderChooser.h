#pragma once

#include "FolderChooser.h"

/// Answers with the folder that a test set, none being a cancelled dialog, and keeps what the dialog would show.
class FakeFolderChooser : public FolderChooser
{
public:
    std::optional<Url> folder;
    QString title;
    QString prompt;

    QFuture<std::optional<Url>> chooseFolder(const QString &shownTitle, const QString &shownPrompt) override
    {
        title = shownTitle;
        prompt = shownPrompt;
        return QtFuture::makeReadyFuture(folder);
    }
};
