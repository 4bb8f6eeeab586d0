#include "SampleContents.h"

namespace {

constexpr qint64 KB = 1000;
constexpr qint64 MB = 1000 * KB;

} // namespace

// clang-format off
const QList<SampleApplication> &SampleContents::applications()
{
    static const QList<SampleApplication> applications = {
        {u"/Applications/Lumen.app", u"Lumen", u"org.lumen.editor", 184 * MB, u"L", "#e0823d", u"group.org.lumen.shared"},
        {u"/Applications/Fjord.app", u"Fjord Browser", u"com.fjord.browser", 126 * MB, u"F", "#2f7fd6", u""},
        {u"/Applications/Fjord Beta.app", u"Fjord Browser Beta", u"com.fjord.browserbeta", 131 * MB, u"β", "#5b6bd8", u""},
        {u"/Applications/Kwartet.app", u"Kwartet", u"pl.kwartet.studio", 92 * MB, u"K", "#8d4fc4", u""},
        {u"/Applications/Notatnik.app", u"Notatnik", u"org.notes", 14 * MB, u"N", "#d7a92c", u""},
        {u"/Applications/Noteser.app", u"Noteser", u"org.noteser", 9 * MB, u"n", "#b98a1d", u""},
        {u"/Applications/Tea & Time.app", u"Tea & Time", u"com.example.tea-time", 6 * MB, u"T", "#3f9d6b", u""},
        {u"/Applications/Zażółć gęślą jaźń — edytor tekstów o bardzo długiej nazwie.app",
         u"Zażółć gęślą jaźń — edytor tekstów o bardzo długiej nazwie", u"pl.zazolc.edytor", 22 * MB, u"Ż", "#c2464f", u""},
        {u"/Applications/Atlas.app", u"Atlas", u"com.meridian.atlas", 240 * MB, u"A", "#1f8f8a", u""},
        {u"/Applications/Bare.app", u"Bare", u"com.example.bare", 3 * MB, u"", "", u""},
        {u"/Applications/Orbit.app", u"Orbit", u"io.orbit.mail", 58 * MB, u"O", "#3a68b0", u""},
        {u"/Applications/Pulse.app", u"Pulse", u"com.pulse.monitor", 18 * MB, u"P", "#d14a7c", u""},
        {u"/Applications/Quill.app", u"Quill", u"com.quill.writer", 44 * MB, u"Q", "#51606f", u""},
        {u"/Applications/Utilities/Inspektor.app", u"Inspektor", u"com.example.inspektor", 5 * MB, u"I", "#6c7a89", u""},
        {u"~/Applications/Szkicownik.app", u"Szkicownik", u"pl.szkicownik", 31 * MB, u"S", "#e06a4f", u""},
        {u"/System/Applications/Kalkulator.app", u"Kalkulator", u"com.apple.kalkulator", 8 * MB, u"=", "#6a6f76", u""},
        {u"/System/Applications/Zegar.app", u"Zegar", u"com.apple.zegar", 7 * MB, u"Z", "#2b2f36", u""},
        // Dropped from where nothing may be removed: its removal fails and says why.
        {u"~/Downloads/Installer.app", u"Installer", u"com.example.installer", 12 * MB, u"↓", "#7a8793", u""},
        // An application within another one: not counted with it.
        {u"/Applications/Atlas.app/Contents/Helpers/Atlas Helper.app", u"Atlas Helper", u"com.meridian.atlas.helper", 20 * MB, u"", "", u""},
    };
    return applications;
}

const QList<SampleFile> &SampleContents::files()
{
    static const QList<SampleFile> files = {
        // What belongs to Lumen: one of every kind.
        {u"~/Library/Application Support/org.lumen.editor/catalog.db", 64 * MB},
        {u"~/Library/Application Support/org.lumen.editor/Presets.bundle/Contents/presets", 4 * MB},
        {u"~/Library/Application Support/org.lumen.editor/.hidden index", 2 * MB},
        {u"~/Library/Application Support/Lumen/brushes", 11 * MB},
        {u"~/Library/Caches/org.lumen.editor/previews", 210 * MB},
        {u"~/Library/Caches/Lumen/thumbnails", 7 * MB},
        {u"~/Library/Containers/org.lumen.editor/Data/state", 3 * MB},
        {u"~/Library/Application Scripts/org.lumen.editor/export.scpt", 20 * KB},
        {u"~/Library/Logs/org.lumen.editor/lumen.log", 2 * MB},
        {u"~/Library/Logs/Lumen/crash.log", 120 * KB},
        {u"~/Library/Saved Application State/org.lumen.editor.savedState/windows.plist", 16 * KB},
        {u"~/Library/WebKit/org.lumen.editor/WebsiteData/store", 5 * MB},
        {u"~/Library/HTTPStorages/org.lumen.editor/httpstorages.sqlite", 400 * KB},
        {u"~/Library/Cookies/org.lumen.editor.binarycookies", 8 * KB},
        {u"~/Library/Preferences/org.lumen.editor.plist", 12 * KB},
        {u"~/Library/Preferences/ByHost/org.lumen.editor.6F1C2A.plist", 4 * KB},
        {u"~/Library/Group Containers/group.org.lumen.shared/library.db", 18 * MB},
        {u"~/Library/LaunchAgents/org.lumen.editor.agent.plist", 4 * KB},
        {u"~/Library/LaunchAgents/org.lumen.editorial.plist", 4 * KB},

        // Two identifiers of which one begins like the other.
        {u"~/Library/Caches/com.fjord.browser/cache.db", 340 * MB},
        {u"~/Library/Caches/com.fjord.browserbeta/cache.db", 150 * MB},
        {u"~/Library/Application Support/com.fjord.browser/profile", 48 * MB},
        {u"~/Library/Application Support/com.fjord.browserbeta/profile", 21 * MB},
        {u"~/Library/WebKit/com.fjord.browser/store", 33 * MB},
        {u"~/Library/Preferences/com.fjord.browser.plist", 12 * KB},
        {u"~/Library/Preferences/com.fjord.browserbeta.plist", 12 * KB},
        {u"~/Library/LaunchAgents/org.notes.plist", 4 * KB},
        {u"~/Library/LaunchAgents/org.noteser.plist", 4 * KB},
        {u"~/Library/Application Support/Notatnik/notes.db", 3 * MB},
        {u"~/Library/Preferences/org.notes.plist", 4 * KB},
        {u"~/Library/Preferences/org.noteser.plist", 4 * KB},
        {u"~/Library/Application Support/pl.kwartet.studio/samples", 96 * MB},
        {u"~/Library/Containers/io.orbit.mail/Data/mail.db", 72 * MB},
        {u"~/Library/Application Support/com.example.installer/receipt", 40 * KB},

        // The operating system's own.
        {u"~/Library/Preferences/com.apple.kalkulator.plist", 4 * KB},
        {u"~/Library/Caches/com.apple.kalkulator/cache", 6 * MB},
        {u"~/Library/Containers/com.apple.zegar/Data/alarms", 200 * KB},

        // What applications left behind.
        {u"~/Library/Caches/com.oldvendor.sync/blobs", 88 * MB},
        {u"~/Library/Containers/com.oldvendor.sync/Data/state.db", 9 * MB},
        {u"~/Library/Saved Application State/com.oldvendor.sync.savedState/data", 48 * KB},
        {u"~/Library/HTTPStorages/net.dawny.klient/httpstorages.sqlite", 2 * MB},
        {u"~/Library/WebKit/net.dawny.klient/WebsiteData/store", 14 * MB},
        {u"~/Library/Caches/org.zapomniany.edytor/cache", 27 * MB},
        {u"~/Library/Caches/not an identifier/cache", 5 * MB},

        // Large caches and logs.
        {u"~/Library/Caches/package-index/index", 62 * MB},
        {u"~/Library/Caches/small/cache", 300 * KB},
        {u"~/Library/Logs/DiagnosticReports/report.ips", 4 * MB},
        {u"~/Library/Logs/updater.log", 23 * MB},
        {u"~/Library/Logs/com.apple.system/system.log", 9 * MB},

        // Media and documents.
        {u"~/Movies/Wakacje 2025/Bieszczady.mov", 380 * MB},
        {u"~/Movies/Wakacje 2025/Połonina.MP4", 140 * MB},
        {u"~/Movies/talk.webm", 66 * MB},
        {u"~/Music/Kwartet/01 Allegro.flac", 31 * MB},
        {u"~/Music/Kwartet/02 Andante.flac", 28 * MB},
        {u"~/Music/voice memo.m4a", 3 * MB},
        {u"~/Pictures/Rodzina.photoslibrary/originals/1.heic", 40 * MB},
        {u"~/Pictures/scan.tiff", 24 * MB},
        {u"~/Pictures/Mapa szlaku.png", 5 * MB},
        {u"~/Pictures/portrait.JPG", 4 * MB},
        {u"~/Pictures/.cache.png", 4 * MB},
        {u"~/Documents/Umowa najmu.pdf", 2 * MB},
        {u"~/Documents/Raport roczny 2025.docx", 900 * KB},
        {u"~/Documents/Budżet.xlsx", 350 * KB},
        {u"~/Documents/Prezentacja.pptx", 12 * MB},
        {u"~/Documents/List.odt", 60 * KB},
        {u"~/Documents/notatki.txt", 8 * KB},
        {u"~/Documents/Szkic.rtf", 24 * KB},
        {u"~/Documents/Projekt.pages/index", 3 * MB},
        {u"~/Documents/README.md", 4 * KB},
    };
    return files;
}

const QList<SampleLink> &SampleContents::links()
{
    static const QList<SampleLink> links = {
        {u"~/Library/Logs/Kwartet", u"../Application Support/pl.kwartet.studio"},
        {u"~/Library/Caches/pl.kwartet.studio", u"../Missing/pl.kwartet.studio"},
        {u"~/Pictures/shortcut.png", u"Mapa szlaku.png"},
    };
    return links;
}

const QList<SampleFact> &SampleContents::facts()
{
    static const QList<SampleFact> facts = {
        {u"/etc/machine-info", "PRETTY_HOSTNAME=\"Laptop Ady\"\n"},
        {u"/etc/os-release", "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\n"},
        {u"/proc/sys/kernel/hostname", "ada-laptop\n"},
        {u"/proc/cpuinfo", "processor\t: 0\nmodel name\t: Fennel F7 8-Core Processor @ 3.20GHz\n"},
        {u"/proc/meminfo", "MemTotal:       16777216 kB\nMemFree:         2621440 kB\nMemAvailable:    6881280 kB\n"
                           "AnonPages:       6144000 kB\nShmem:            512000 kB\nZswap:            786432 kB\n"},
        {u"/proc/uptime", "187260.42 1201333.10\n"},
        {u"/sys/class/dmi/id/sys_vendor", "Fennel\n"},
        {u"/sys/class/dmi/id/product_name", "Meadow 14\n"},
        {u"/sys/class/power_supply/AC/type", "Mains\n"},
        {u"/sys/class/power_supply/AC/online", "0\n"},
        {u"/sys/class/power_supply/BAT0/type", "Battery\n"},
        {u"/sys/class/power_supply/BAT0/present", "1\n"},
        {u"/sys/class/power_supply/BAT0/status", "Discharging\n"},
        {u"/sys/class/power_supply/BAT0/health", "Good\n"},
        {u"/sys/class/power_supply/BAT0/charge_now", "3186000\n"},
        {u"/sys/class/power_supply/BAT0/charge_full", "4120000\n"},
        {u"/sys/class/power_supply/BAT0/charge_full_design", "4600000\n"},
        {u"/sys/class/power_supply/BAT0/current_now", "731000\n"},
        {u"/sys/class/power_supply/BAT0/voltage_min_design", "11550000\n"},
        {u"/sys/class/power_supply/BAT0/cycle_count", "218\n"},
    };
    return facts;
}
// clang-format on
