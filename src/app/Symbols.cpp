#include "Symbols.h"

#include <algorithm>

namespace {

template <typename Case> struct TileRow
{
    Case value;
    SymbolTile tile;
};

constexpr TileRow<ScanItemKind> kinds[] = {
    {ScanItemKind::application, {u"app.dashed", u"blue"}},
    {ScanItemKind::applicationSupport, {u"folder", u"green"}},
    {ScanItemKind::cache, {u"archivebox", u"teal"}},
    {ScanItemKind::container, {u"shippingbox", u"indigo"}},
    {ScanItemKind::preference, {u"slider.horizontal.3", u"purple"}},
    {ScanItemKind::log, {u"doc.text", u"gray"}},
    {ScanItemKind::savedState, {u"clock.arrow.circlepath", u"orange"}},
    {ScanItemKind::webData, {u"globe", u"cyan"}},
    {ScanItemKind::leftover, {u"questionmark.folder", u"orange"}},
};

constexpr TileRow<MediaCategory> mediaCategories[] = {
    {MediaCategory::video, {u"film", u"purple"}},
    {MediaCategory::audio, {u"waveform", u"blue"}},
    {MediaCategory::image, {u"photo", u"orange"}},
};

constexpr TileRow<TextFileCategory> textFileCategories[] = {
    {TextFileCategory::plainText, {u"doc.plaintext", u"blue"}},
    {TextFileCategory::richText, {u"doc.richtext", u"purple"}},
    {TextFileCategory::microsoftOffice, {u"doc.text", u"indigo"}},
    {TextFileCategory::libreOffice, {u"doc.on.doc", u"green"}},
    {TextFileCategory::pdf, {u"doc.richtext", u"red"}},
};

struct SectionRow
{
    SidebarSelection value;
    QStringView symbol;
};

constexpr SectionRow sections[] = {
    {SidebarSelection::dashboard, u"rectangle.grid.2x2"},
    {SidebarSelection::uninstaller, u"trash"},
    {SidebarSelection::applications, u"app.badge"},
    {SidebarSelection::leftovers, u"eraser"},
    {SidebarSelection::cleaner, u"gauge.with.dots.needle.33percent"},
    {SidebarSelection::mediaFinder, u"photo.on.rectangle.angled"},
    {SidebarSelection::textFinder, u"doc.text.magnifyingglass"},
};

/// The tables hold every case of their enumeration.
template <typename Table, typename Case> const auto &rowOf(const Table &table, Case value)
{
    return *std::ranges::find(table, value, &std::ranges::range_value_t<Table>::value);
}

} // namespace

SymbolTile symbolTile(ScanItemKind kind)
{
    return rowOf(kinds, kind).tile;
}

SymbolTile symbolTile(MediaCategory category)
{
    return rowOf(mediaCategories, category).tile;
}

SymbolTile symbolTile(TextFileCategory category)
{
    return rowOf(textFileCategories, category).tile;
}

QStringView sidebarSymbol(SidebarSelection section)
{
    return rowOf(sections, section).symbol;
}
