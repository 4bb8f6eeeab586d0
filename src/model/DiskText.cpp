#include "DiskText.h"

#include "LocalText.h"

#include <algorithm>
#include <iterator>

namespace {

struct Row
{
    DiskText key;
    LocalText text;
};

// clang-format off
constexpr Row rows[] = {
    {DiskText::readOnlyTitle, u"Dysk jest tylko do odczytu", u"The disk can only be read"},
    {DiskText::readOnlyMessage,
     u"Można przeszukać cały dysk, ale niczego nie da się z niego przenieść do Kosza. Aby usuwać, zamontuj go do zapisu i otwórz ponownie.",
     u"All of the disk can be searched, but nothing on it can be moved to the Trash. To remove something, mount it for writing and open it again."},
    {DiskText::nothingKnownOfApplications,
     u"To sam folder domowy, bez reszty dysku. Nie wiadomo, jakie inne aplikacje były zainstalowane na tym Macu, więc nie wiadomo też, co jest pozostałością. Możesz szukać po dokładnej nazwie.",
     u"This is a home folder without the rest of its disk. Nothing is known of the other applications on that Mac, so nothing can be told to be a leftover. You can search for an exact name."},

    {DiskText::chooseHomeTitle, u"Czyj folder domowy?", u"Whose home folder?"},
    {DiskText::chooseHomeMessage,
     u"Na dysku „%@” jest kilka folderów domowych. Wybierz ten, na którym chcesz pracować.",
     u"There are several home folders on the disk “%@”. Choose the one to work on."},
    {DiskText::measuring, u"obliczanie…", u"measuring…"},
    {DiskText::severalHomes,
     u"Na dysku w „%@” jest kilka folderów domowych. Podaj jeden z nich za folderem:",
     u"There are several home folders on the disk in “%@”. Name one of them after the folder:"},

    {DiskText::cannotOpenTitle, u"Nie można otworzyć dysku", u"The disk can't be opened"},
    {DiskText::noSuchFolder, u"Nie ma folderu „%@”.", u"There is no folder “%@”."},
    {DiskText::mayNotBeRead,
     u"Nie masz uprawnień do odczytu folderu „%@”.",
     u"You don't have permission to read the folder “%@”."},
    {DiskText::ownDisk,
     u"„%@” to dysk tego komputera, a nie innego Maca.",
     u"“%@” is the disk of this computer and not another Mac's."},
    {DiskText::noMacDisk,
     u"W „%@” nie ma dysku Maca. Szukano folderu „Users” obok „Applications”, „Library” lub „System” albo, w kopii samego folderu domowego, „Library” z „Preferences”, „Caches” lub „Application Support”. Znaleziono: %@.",
     u"There is no Mac's disk in “%@”. Looked for was a folder “Users” beside “Applications”, “Library” or “System”, or, in a copy of a home folder alone, “Library” with “Preferences”, “Caches” or “Application Support”. Found was: %@."},
    {DiskText::noHome,
     u"Na dysku Maca w „%@” nie ma folderu domowego. Szukano w „Users” folderów z „Library”; „Shared” i „Guest” się nie liczą. Znaleziono: %@.",
     u"There is no home folder on the Mac's disk in “%@”. Looked for were folders with a “Library” in “Users”; “Shared” and “Guest” don't count. Found was: %@."},
    {DiskText::noSuchHome,
     u"Nie ma folderu domowego „%@” na dysku Maca w „%@”. Znaleziono: %@.",
     u"There is no home folder “%@” on the Mac's disk in “%@”. Found was: %@."},
    {DiskText::homeMayNotBeRead,
     u"Na dysku Maca w „%@” nie masz uprawnień do odczytu folderu domowego „%@”.",
     u"On the Mac's disk in “%@” you don't have permission to read the home folder “%@”."},
    {DiskText::insideAnotherHome,
     u"„%@” leży w folderze domowym na dysku Maca, w „%@”. Otwórz ten dysk albo skopiuj folder w inne miejsce.",
     u"“%@” lies inside of a home folder on a Mac's disk, “%@”. Open that disk, or copy the folder to another place."},
    {DiskText::noDisplay,
     u"Nie ma ekranu, na którym można otworzyć okno.",
     u"There is no display to open the window on."},
    {DiskText::nothing, u"nic", u"nothing"},
};
// clang-format on

} // namespace

QString diskText(DiskText text, AppLanguage language)
{
    const auto *row = std::ranges::find(rows, text, &Row::key);
    Q_ASSERT(row != std::end(rows));
    return row->text.in(language).toString();
}
