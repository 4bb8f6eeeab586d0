#pragma once

#include "Enumerations.h"

#include <QString>

/// What is said only where the program works on another Mac's disk.
enum class DiskText {
    // Once, before anything is ticked.
    readOnlyTitle,
    readOnlyMessage,
    /// In place of leftovers.
    nothingKnownOfApplications,

    // The choice of a home.
    chooseHomeTitle,
    /// With the disk's name.
    chooseHomeMessage,
    /// Of a home that is still being measured.
    measuring,
    /// In a terminal, with the names.
    severalHomes,

    // Why nothing is opened. All with the folder that was named, this one in a title.
    cannotOpenTitle,
    noSuchFolder,
    mayNotBeRead,
    ownDisk,
    /// And with what was found.
    noMacDisk,
    noHome,
    /// And with the home's name and what was found.
    noSuchHome,
    homeMayNotBeRead,
    /// And with the home's folder.
    insideAnotherHome,
    noDisplay,
    /// What a folder holds that holds nothing.
    nothing,
};

/// In `language`, its placeholders to be filled.
QString diskText(DiskText text, AppLanguage language);
