#include "Text.h"

#include "LocalText.h"

#include <QHash>

namespace {

struct Entry
{
    QStringView key;
    LocalText text;
};

// clang-format off
constexpr Entry entries[] = {
    {u"title", u"Tarnvale", u"Tarnvale"},
    {u"dashboard", u"Panel sterowania", u"Dashboard"},
    {u"dashboard_help",
     u"Podstawowe informacje o komputerze, dysku, pamięci RAM i baterii.",
     u"Basic information about your Mac, storage, RAM, and battery."},
    {u"dashboard_no_data", u"Brak danych", u"No data"},
    {u"dashboard_refresh_help",
     u"Kliknij Odśwież, aby pobrać aktualne informacje o komputerze.",
     u"Click Refresh to load current computer information."},
    {u"dashboard_processor", u"Procesor", u"Processor"},
    {u"dashboard_memory", u"Pamięć", u"Memory"},
    {u"dashboard_boot_date", u"Uruchomiony od", u"Boot date"},
    {u"dashboard_battery", u"Bateria", u"Battery"},
    {u"dashboard_charge", u"Naładowanie", u"Charge"},
    {u"dashboard_power_source", u"Zasilanie", u"Power source"},
    {u"dashboard_time_remaining", u"Szacowany czas pracy", u"Estimated battery life"},
    {u"dashboard_charging", u"Ładowanie", u"Charging"},
    {u"dashboard_health", u"Żywotność", u"Health"},
    {u"dashboard_condition", u"Stan", u"Condition"},
    {u"dashboard_cycle_count", u"Liczba cykli", u"Cycle count"},
    {u"dashboard_capacity", u"Pojemność", u"Capacity"},
    {u"dashboard_design_capacity", u"Pojemność projektowa", u"Design capacity"},
    {u"dashboard_no_battery", u"Nie wykryto baterii", u"No battery detected"},
    {u"dashboard_no_battery_help",
     u"Ten komputer prawdopodobnie nie jest MacBookiem albo macOS nie udostępnia danych baterii.",
     u"This Mac may not be a MacBook, or macOS does not expose battery data."},
    {u"dashboard_storage", u"Dysk", u"Storage"},
    {u"dashboard_used", u"Zajęte", u"Used"},
    {u"dashboard_free", u"Wolne", u"Free"},
    {u"dashboard_total", u"Łącznie", u"Total"},
    {u"dashboard_ram", u"RAM", u"RAM"},
    {u"dashboard_wired_memory", u"Pamięć systemowa", u"Wired memory"},
    {u"dashboard_active_memory", u"Pamięć aktywna", u"Active memory"},
    {u"dashboard_compressed_memory", u"Pamięć skompresowana", u"Compressed memory"},
    {u"dashboard_power_adapter", u"Zasilacz podłączony", u"Power adapter connected"},
    {u"dashboard_unlimited", u"Bez limitu przy zasilaczu", u"Unlimited on power adapter"},
    {u"dashboard_condition_good", u"Dobry", u"Good"},
    {u"dashboard_condition_fair", u"Średni", u"Fair"},
    {u"dashboard_condition_poor", u"Słaby", u"Poor"},
    {u"yes", u"Tak", u"Yes"},
    {u"no", u"Nie", u"No"},
    {u"not_available", u"Niedostępne", u"Not available"},
    {u"uninstaller", u"Dezinstalator", u"Uninstaller"},
    {u"applications", u"Lista aplikacji", u"Applications"},
    {u"leftovers", u"Pozostałości", u"Leftovers"},
    {u"cleaner", u"Cache i logi", u"Cache & Logs"},
    {u"mediaFinder", u"Pliki multimedialne", u"Media Files"},
    {u"textFinder", u"Pliki tekstowe", u"Text Files"},
    {u"media_finder", u"Wyszukiwarka plików multimedialnych", u"Media File Finder"},
    {u"media_help",
     u"Wybierz folder lub dysk, a następnie typy plików do wyszukania. Skanowanie nie usuwa znalezionych plików.",
     u"Choose a folder or disk, then select the file types to find. Scanning does not delete found files."},
    {u"media_choose_folder", u"Wybierz folder lub dysk", u"Choose Folder or Disk"},
    {u"choose", u"Wybierz", u"Choose"},
    {u"media_empty_title", u"Nie wykonano skanowania", u"No Scan Yet"},
    {u"media_video", u"Video", u"Video"},
    {u"media_audio", u"Audio", u"Audio"},
    {u"media_image", u"Grafiki", u"Images"},
    {u"media_scanning", u"Skanowanie plików multimedialnych…", u"Scanning media files…"},
    {u"media_select_folder_first", u"Najpierw wybierz folder lub dysk.", u"Choose a folder or disk first."},
    {u"media_select_category",
     u"Wybierz co najmniej jedną kategorię plików.",
     u"Select at least one file category."},
    {u"media_no_results",
     u"Nie znaleziono plików wybranych typów.",
     u"No files of the selected types were found."},
    {u"media_results", u"Znaleziono plików: %d.", u"Files found: %d."},
    {u"media_summary", u"Znaleziono: %d • Łączny rozmiar: %@", u"Found: %d • Total size: %@"},
    {u"text_finder", u"Wyszukiwarka plików tekstowych", u"Text File Finder"},
    {u"text_help",
     u"Wybierz folder lub dysk, a następnie typy dokumentów do wyszukania: TXT, RTF, PDF, Microsoft Office oraz LibreOffice/OpenDocument. Skanowanie nie usuwa znalezionych plików.",
     u"Choose a folder or disk, then select document types to find: TXT, RTF, PDF, Microsoft Office, and LibreOffice/OpenDocument. Scanning does not delete found files."},
    {u"text_choose_folder", u"Wybierz folder lub dysk", u"Choose Folder or Disk"},
    {u"text_empty_title", u"Nie wykonano skanowania", u"No Scan Yet"},
    {u"text_plainText", u"TXT", u"TXT"},
    {u"text_richText", u"RTF", u"RTF"},
    {u"text_microsoftOffice", u"Microsoft Office", u"Microsoft Office"},
    {u"text_libreOffice", u"LibreOffice", u"LibreOffice"},
    {u"text_pdf", u"PDF", u"PDF"},
    {u"text_scanning", u"Skanowanie plików tekstowych…", u"Scanning text files…"},
    {u"text_select_folder_first", u"Najpierw wybierz folder lub dysk.", u"Choose a folder or disk first."},
    {u"text_select_category", u"Wybierz co najmniej jeden typ plików.", u"Select at least one file type."},
    {u"text_no_results",
     u"Nie znaleziono plików wybranych typów.",
     u"No files of the selected types were found."},
    {u"text_results", u"Znaleziono plików: %d.", u"Files found: %d."},
    {u"show_in_finder", u"Pokaż w Finderze", u"Show in Finder"},
    {u"search_placeholder", u"Wpisz dokładną nazwę aplikacji", u"Enter the exact application name"},
    {u"scan", u"Skanuj", u"Scan"},
    {u"scan_related", u"Skanuj powiązane pliki", u"Scan Related Files"},
    {u"drop_app_title", u"Przeciągnij aplikację tutaj", u"Drag an application here"},
    {u"drop_app_help",
     u"Upuść plik .app, aby przeskanować aplikację i jej powiązane elementy.",
     u"Drop an .app file to scan the application and its related items."},
    {u"drop_invalid_app",
     u"Upuszczony element nie jest poprawną aplikacją .app.",
     u"The dropped item is not a valid .app application."},
    {u"scanning", u"Skanowanie…", u"Scanning…"},
    {u"searching", u"Wyszukiwanie w bibliotece użytkownika…", u"Searching the user library…"},
    {u"loading_apps", u"Wczytywanie aplikacji…", u"Loading applications…"},
    {u"welcome",
     u"Wybierz aplikację lub wpisz jej dokładną nazwę.",
     u"Select an application or enter its exact name."},
    {u"select_app", u"Wybierz aplikację z listy.", u"Select an application from the list."},
    {u"applications_empty_title", u"Wybierz aplikację", u"Select an application"},
    {u"applications_not_scanned_title",
     u"Lista aplikacji nie została jeszcze przeskanowana",
     u"Applications have not been scanned yet"},
    {u"applications_not_scanned_help",
     u"Kliknij Skanuj, aby wczytać aplikacje z folderów Applications.",
     u"Click Scan to load apps from the Applications folders."},
    {u"leftovers_empty_title", u"Brak wyników skanowania", u"No scan results"},
    {u"cleaner_empty_title", u"Brak wyników skanowania", u"No scan results"},
    {u"no_match", u"Nie znaleziono aplikacji o takiej nazwie.", u"No application with that name was found."},
    {u"no_files",
     u"Nie znaleziono bezpiecznie powiązanych elementów.",
     u"No safely associated items were found."},
    {u"scan_leftovers_help",
     u"Skan wykrywa wyłącznie katalogi przypominające Bundle ID, których aplikacji nie odnajduje Launch Services. Wyniki są domyślnie odznaczone.",
     u"The scan only detects bundle-ID-like folders whose application cannot be found by Launch Services. Results are unselected by default."},
    {u"leftover_search_placeholder",
     u"Dokładna nazwa pliku lub katalogu, np. com.example.core.service",
     u"Exact file or folder name, e.g. com.example.core.service"},
    {u"search", u"Szukaj", u"Search"},
    {u"leftover_search_invalid",
     u"Wpisz poprawną nazwę pliku lub katalogu bez znaków ścieżki.",
     u"Enter a valid file or folder name without path separators."},
    {u"leftover_search_no_results",
     u"Nie znaleziono elementu o tej nazwie w obsługiwanych katalogach biblioteki użytkownika.",
     u"No item with that name was found in the supported user library folders."},
    {u"leftover_search_results",
     u"Znaleziono: %d. Wyniki wyszukiwania nie muszą być pozostałościami i są domyślnie odznaczone.",
     u"Found: %d. Search results are not necessarily leftovers and are unselected by default."},
    {u"scan_cleaner_help",
     u"Skan obejmuje cache i logi bieżącego użytkownika. Wyniki są domyślnie odznaczone.",
     u"The scan covers the current user's caches and logs. Results are unselected by default."},
    {u"nothing_found",
     u"Nie znaleziono elementów spełniających bezpieczne kryteria.",
     u"No items matching the safety criteria were found."},
    {u"delete_selected", u"Przenieś zaznaczone do Kosza", u"Move Selected to Trash"},
    {u"selected_size", u"Zaznaczono: %@", u"Selected: %@"},
    {u"selected", u"Zaznaczono", u"Selected"},
    {u"confirm_title", u"Przenieść elementy do Kosza?", u"Move items to Trash?"},
    {u"confirm_message",
     u"Operacja obejmie %d elementów (%@). Elementy będzie można odzyskać z Kosza.",
     u"This will move %d items (%@) to Trash. They can be restored from Trash."},
    {u"cancel", u"Anuluj", u"Cancel"},
    {u"move_to_trash", u"Przenieś do Kosza", u"Move to Trash"},
    {u"delete_success", u"Przeniesiono do Kosza: %d elementów (%@).", u"Moved to Trash: %d items (%@)."},
    {u"delete_partial", u"Przeniesiono: %d, błędy: %d.", u"Moved: %d, failures: %d."},
    {u"deletion_failed_title", u"Nie udało się przenieść części elementów", u"Some items could not be moved"},
    {u"uninstall_completed_with_notes_title",
     u"Odinstalowanie zakończone z uwagami",
     u"Uninstall completed with notes"},
    {u"uninstall_completed_with_notes_message",
     u"Aplikacja została możliwie odinstalowana. Zaleca się przeskanowanie plików innymi funkcjami, np. Pozostałości oraz Cache i logi.",
     u"The application appears to have been uninstalled as far as possible. We recommend scanning with other tools, such as Leftovers and Cache & Logs."},
    {u"uninstall_completed_with_notes_status",
     u"Odinstalowanie zakończone. Zalecany dodatkowy skan pozostałości.",
     u"Uninstall completed. Additional leftovers scan recommended."},
    {u"leftovers_completed_with_notes_title",
     u"Czyszczenie pozostałości zakończone z uwagami",
     u"Leftovers cleanup completed with notes"},
    {u"leftovers_completed_with_notes_message",
     u"Przeniesiono do Kosza: %d elementów. Części elementów (%d) macOS nie pozwolił przenieść automatycznie. Możesz sprawdzić je ręcznie w Finderze albo wykonać ponowny skan później.",
     u"Moved to Trash: %d items. macOS did not allow %d items to be moved automatically. You can review them manually in Finder or scan again later."},
    {u"leftovers_completed_with_notes_status",
     u"Czyszczenie pozostałości zakończone z uwagami.",
     u"Leftovers cleanup completed with notes."},
    {u"unknown_error", u"Nieznany błąd", u"Unknown error"},
    {u"ok", u"OK", u"OK"},
    {u"no_selection", u"Najpierw zaznacz elementy.", u"Select items first."},
    {u"system_app", u"Aplikacja systemowa — usuwanie zablokowane", u"System application — removal blocked"},
    {u"exact_match", u"Dokładne powiązanie", u"Exact association"},
    {u"probable_match", u"Niepewna pozostałość", u"Probable leftover"},
    {u"items", u"Elementy", u"Items"},
    {u"size", u"Rozmiar", u"Size"},
    {u"path", u"Ścieżka", u"Path"},
    {u"errors", u"Błędy", u"Errors"},
    {u"refresh", u"Odśwież", u"Refresh"},
};
// clang-format on

} // namespace

QString localizedText(QStringView key, AppLanguage language)
{
    static const auto byKey = [] {
        QHash<QStringView, const Entry *> index;
        for (const auto &entry : entries)
            index.insert(entry.key, &entry);
        return index;
    }();

    const auto *entry = byKey.value(key);
    if (!entry)
        return key.toString();
    return entry->text.in(language).toString();
}

QList<QString> allTextKeys()
{
    QList<QString> keys;
    for (const auto &entry : entries)
        keys.append(entry.key.toString());
    return keys;
}

QString TextFormat::filled(QStringView format, const QStringList &values)
{
    QString text;
    auto value = values.begin();
    while (!format.isEmpty()) {
        const bool isPlaceholder = format.startsWith(u"%d") || format.startsWith(u"%@");
        if (isPlaceholder && value != values.end()) {
            text += *value++;
            format = format.sliced(2);
        } else {
            text += format.front();
            format = format.sliced(1);
        }
    }
    return text;
}
