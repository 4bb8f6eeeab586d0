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

/// A case without a row has no symbol.
template <typename Table, typename Case> SymbolTile tileOf(const Table &table, Case value)
{
    const auto row = std::ranges::find(table, value, &std::ranges::range_value_t<Table>::value);
    return row == std::ranges::end(table) ? SymbolTile{} : row->tile;
}

} // namespace

SymbolTile symbolTile(ScanItemKind kind)
{
    return tileOf(kinds, kind);
}

SymbolTile symbolTile(MediaCategory category)
{
    return tileOf(mediaCategories, category);
}

SymbolTile symbolTile(TextFileCategory category)
{
    return tileOf(textFileCategories, category);
}
