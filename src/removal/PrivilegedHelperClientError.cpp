#include "PrivilegedHelperClientError.h"

namespace {

QString beginning(PrivilegedHelperClientError::Case code)
{
    switch (code) {
    case PrivilegedHelperClientError::helperNotFound:
        return QStringLiteral("Nie znaleziono helpera administratora wewnątrz aplikacji. ");
    case PrivilegedHelperClientError::helperRequiresApplicationsFolder:
        return QStringLiteral("Helper administratora nie może zostać zarejestrowany z tej lokalizacji. ");
    case PrivilegedHelperClientError::connectionFailed:
        return QStringLiteral("Nie udało się połączyć z helperem administratora: ");
    case PrivilegedHelperClientError::approvalRequired:
        return QStringLiteral("Helper administratora wymaga zatwierdzenia w Ustawienia systemowe → Ogólne → "
                              "Elementy logowania.");
    }
    Q_UNREACHABLE();
}

} // namespace

QString PrivilegedHelperClientError::description() const
{
    return beginning(code) + message;
}
