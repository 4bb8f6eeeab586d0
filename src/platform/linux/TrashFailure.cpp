#include "TrashFailure.h"

#include "LocalText.h"
#include "Text.h"

#include <QLocale>

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace {

struct Row
{
    TrashFailure failure;
    LocalText text;
};

constexpr Row reasons[] = {
    {TrashFailure::itemIsMissing, u"ponieważ już nie istnieje.", u"because it no longer exists."},
    {TrashFailure::itemIsOutOfSight, u"ponieważ nie można go sprawdzić. Może nadal tam być.",
     u"because it can't be looked at. It may still be there."},
    {TrashFailure::noTrashOnDisk, u"ponieważ na jego dysku nie ma Kosza.",
     u"because the disk that it is on has no Trash."},
    {TrashFailure::noPermission, u"ponieważ nie masz do tego uprawnień.",
     u"because you don't have permission to do that."},
    {TrashFailure::itemIsOfAnotherUser,
     u"ponieważ należy do innego użytkownika i nie masz uprawnień, aby to zrobić.",
     u"because it belongs to another user and you don't have permission to do that."},
    {TrashFailure::diskIsReadOnly, u"ponieważ jego dysk jest tylko do odczytu.",
     u"because the disk that it is on can only be read."},
    {TrashFailure::diskIsFull, u"ponieważ dysk jest pełny. Zwolnij trochę miejsca i spróbuj ponownie.",
     u"because the disk is full. Free some space and try again."},
    {TrashFailure::nameIsTooLong, u"ponieważ jego nazwa jest za długa. Skróć ją i spróbuj ponownie.",
     u"because its name is too long. Make it shorter and try again."},
    {TrashFailure::itemIsInUse,
     u"ponieważ jest używany. Zamknij programy, które z niego korzystają, i spróbuj ponownie.",
     u"because it is in use. Quit the programs that use it and try again."},
    {TrashFailure::itemIsOutsideOfDisk, u"ponieważ leży poza tym dyskiem.", u"because it is not on this disk."},
    {TrashFailure::other, u"ponieważ Kosz go nie przyjął.", u"because the Trash didn't accept it."},
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
    constexpr LocalText sentence{u"Nie można przenieść „%@” do Kosza, %@",
                                 u"“%@” couldn't be moved to the Trash %@"};
    return filledText(sentence.in(language).toString(), name, reason->text.in(language).toString());
}

AppLanguage systemLanguage()
{
    const QLocale system(QLocale::system().uiLanguages().value(0));
    for (const auto language : allCases<AppLanguage>()) {
        if (localeOf(language).language() == system.language())
            return language;
    }
    return AppLanguage::english;
}
