#include "TrashFailure.h"

#include "Text.h"

#include <QLocale>

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace {

struct Row
{
    TrashFailure failure;
    const char *polish;
    const char *english;
};

constexpr Row reasons[] = {
    {TrashFailure::itemIsMissing, "ponieważ już nie istnieje.", "because it no longer exists."},
    {TrashFailure::itemIsOutOfSight, "ponieważ nie można go sprawdzić. Może nadal tam być.",
     "because it can't be looked at. It may still be there."},
    {TrashFailure::noTrashOnDisk, "ponieważ na jego dysku nie ma Kosza.",
     "because the disk that it is on has no Trash."},
    {TrashFailure::noPermission, "ponieważ nie masz do tego uprawnień.",
     "because you don't have permission to do that."},
    {TrashFailure::diskIsReadOnly, "ponieważ jego dysk jest tylko do odczytu.",
     "because the disk that it is on can only be read."},
    {TrashFailure::diskIsFull, "ponieważ dysk jest pełny. Zwolnij trochę miejsca i spróbuj ponownie.",
     "because the disk is full. Free some space and try again."},
    {TrashFailure::nameIsTooLong, "ponieważ jego nazwa jest za długa. Skróć ją i spróbuj ponownie.",
     "because its name is too long. Make it shorter and try again."},
    {TrashFailure::itemIsInUse,
     "ponieważ jest używany. Zamknij programy, które z niego korzystają, i spróbuj ponownie.",
     "because it is in use. Quit the programs that use it and try again."},
    {TrashFailure::itemIsOutsideOfDisk, "ponieważ leży poza tym dyskiem.", "because it is not on this disk."},
    {TrashFailure::other, "ponieważ Kosz go nie przyjął.", "because the Trash didn't accept it."},
};

struct ErrorRow
{
    int errorNumber;
    TrashFailure failure;
};

constexpr ErrorRow failures[] = {
    // A move that would leave the volume.
    {EXDEV, TrashFailure::noTrashOnDisk},        {EACCES, TrashFailure::noPermission},
    {EPERM, TrashFailure::noPermission},         {EROFS, TrashFailure::diskIsReadOnly},
    {ENOSPC, TrashFailure::diskIsFull},          {EDQUOT, TrashFailure::diskIsFull},
    {ENAMETOOLONG, TrashFailure::nameIsTooLong}, {EBUSY, TrashFailure::itemIsInUse},
};

} // namespace

TrashFailure trashFailureOf(int errorNumber)
{
    const auto *row = std::ranges::find(failures, errorNumber, &ErrorRow::errorNumber);
    return row == std::end(failures) ? TrashFailure::other : row->failure;
}

QString trashFailureText(TrashFailure failure, const QString &name, AppLanguage language)
{
    const auto *reason = std::ranges::find(reasons, failure, &Row::failure);
    Q_ASSERT(reason != std::end(reasons));
    return language == AppLanguage::polish ? filledText(QStringLiteral("Nie można przenieść „%@” do Kosza, %@"),
                                                        name, QString::fromUtf8(reason->polish))
                                           : filledText(QStringLiteral("“%@” couldn't be moved to the Trash %@"),
                                                        name, QString::fromUtf8(reason->english));
}

AppLanguage systemLanguage()
{
    const auto languages = QLocale::system().uiLanguages();
    return QLocale(languages.value(0)).language() == QLocale::Polish ? AppLanguage::polish : AppLanguage::english;
}
