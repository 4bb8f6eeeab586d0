#pragma once

#include "FolderChooser.h"
#include "ReadyFuture.h"

#include <utility>

/// Stands in the tour for the user who chooses a folder in the desktop's dialog, which is not a part of the window.
class ChosenFolder : public FolderChooser
{
public:
    /// As the desktop hands it over.
    void setAnswer(std::optional<Url> answer) { m_answer = std::move(answer); }

    QFuture<std::optional<Url>> chooseFolder(const QString &, const QString &) override
    {
        return readyFuture(m_answer);
    }

private:
    std::optional<Url> m_answer;
};
