#pragma once

#include <QString>

/// What is known of a Mac's disk that the program works on in place of its computer's own.
struct MacDisk
{
    /// What the user calls the disk: its label, else the folder that it lies in.
    QString name;
    /// Whose home on it the program works on.
    QString homeName;
    /// There is this home folder and nothing else of the disk, so that nobody can tell what was installed.
    bool isHomeAlone = false;
    /// Nothing on it can be changed.
    bool isReadOnly = false;
};
