#include "TrashServiceError.h"

QString TrashServiceError::description() const
{
    switch (code) {
    case recycleFailed:
        return message;
    case unsafePath:
        return QStringLiteral("Ścieżka znajduje się poza dozwolonym obszarem.");
    case systemApplication:
        return QStringLiteral("Usuwanie aplikacji systemowych jest zablokowane.");
    case missingItem:
        return QStringLiteral("Element już nie istnieje.");
    }
    Q_UNREACHABLE();
}
