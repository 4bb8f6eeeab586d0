#include "HostileInputs.h"

#include "FuzzedBundle.h"

#include <QtEndian>

#include <algorithm>
#include <functional>

QByteArray bigEndian(std::initializer_list<quint32> numbers)
{
    QByteArray bytes;
    for (const auto number : numbers) {
        QByteArray next(4, '\0');
        qToBigEndian(number, next.data());
        bytes += next;
    }
    return bytes;
}

QByteArray binaryList(const QByteArrayList &objects)
{
    QByteArray data = "bplist00";
    QByteArray offsets;
    for (const auto &object : objects) {
        offsets += bigEndian({static_cast<quint32>(data.size())});
        data += object;
    }
    const auto table = static_cast<quint32>(data.size());
    return data + offsets + QByteArray(6, '\0') + "\x04\x01"
           + bigEndian({0, static_cast<quint32>(objects.size()), 0, 0, 0, table});
}

namespace {

/// What `part` makes of 0, 1 and so on, until that is `size` bytes.
QByteArray repeated(qsizetype size, const std::function<QByteArray(int)> &part)
{
    QByteArray bytes;
    for (int i = 0; bytes.size() < size; ++i)
        bytes += part(i);
    return bytes;
}

QByteArray attributes(qsizetype size, const char *between)
{
    return repeated(size, [&](int i) { return " a" + QByteArray::number(i) + between; });
}

/// A dictionary that names two long keys, which differ in the last character, again and again.
QByteArray longKeys(double scale)
{
    const auto length = static_cast<quint32>(3'900'000 * scale) + 2;
    const auto pairs = static_cast<quint32>(49'000 * scale) + 2;
    QByteArray dictionary = "\xdf\x12" + bigEndian({pairs});
    for (quint32 i = 0; i < pairs; ++i)
        dictionary += static_cast<char>(1 + i % 2);
    dictionary += QByteArray(pairs, '\x01');
    const auto key = [&](char last) {
        return "\x5f\x12" + bigEndian({length}) + QByteArray(length - 1, 'x') + last;
    };
    return binaryList({dictionary, key('a'), key('b')});
}

/// Lists each of which names the next one fifteen times.
QByteArray fanOut()
{
    QByteArrayList lists;
    for (char next = 1; next < 60; ++next)
        lists += '\xae' + QByteArray(14, next);
    return binaryList(lists << QByteArray("\x10\x01"));
}

/// A universal file of forty programs that share one signature, whose every record leads to the same damaged list.
QByteArray sharedSignature(double scale)
{
    constexpr quint32 programs = 40;
    constexpr quint32 records = 256;
    constexpr quint32 start = 4096;
    constexpr quint32 listStart = 12 + 8 * records;
    const auto damaged = "<plist>" + QByteArray(static_cast<qsizetype>(1'000'000 * scale), ' ');
    const auto list = bigEndian({0xfade7171, static_cast<quint32>(damaged.size() + 8)}) + damaged;
    const auto size = listStart + static_cast<quint32>(list.size());
    auto file = bigEndian({0xcafebabe, programs});
    for (quint32 i = 0; i < programs; ++i)
        file += bigEndian({7, 3, start, 48 + size, 0});
    file = file.leftJustified(start, '\0') + bigEndian({0xfeedfacf, 0, 0, 2, 1, 16, 0, 0})
           + bigEndian({0x1d, 16, 48, size}) + bigEndian({0xfade0cc0, size, records});
    for (quint32 i = 0; i < records; ++i)
        file += bigEndian({5, listStart});
    return file + list;
}

/// An icon family of as many pictures as fit, each too small to be the last word.
QByteArray manyPictures(qsizetype size)
{
    const auto picture = "\x89PNG\r\n\x1a\n" + bigEndian({13}) + "IHDR" + bigEndian({16, 16});
    const auto element = "icp4" + bigEndian({static_cast<quint32>(picture.size() + 8)}) + picture;
    const auto elements = element.repeated(std::max<qsizetype>(1, size / element.size()));
    return "icns" + bigEndian({static_cast<quint32>(elements.size() + 8)}) + elements;
}

} // namespace

std::vector<HostileInput> hostileInputs(double scale)
{
    using Bundle = FuzzedBundle;
    const auto bytes = [scale](double most) {
        return std::max<qsizetype>(16, static_cast<qsizetype>(most * scale));
    };
    const auto entries = [&](double most) { return Bundle::listing(static_cast<quint32>(bytes(most))); };
    const auto megabytes8 = bytes(8'000'000);
    const auto information = Bundle::part(Bundle::information, "{ CFBundleName = Notes; }");
    const auto damagedXml =
        "<plist><array>" + repeated(bytes(1'000'000), [](int) { return QByteArray("<true/>"); });
    const auto manyPairs =
        '{' + repeated(bytes(1'100'000), [](int i) { return "key" + QByteArray::number(i) + "=v;"; }) + '}';
    const auto pairsWithoutValues =
        repeated(megabytes8, [](int i) { return "k" + QByteArray::number(i % 7) + ';'; });

    return {
        {"property_list", "attributes_of_an_element",
         "<plist><string" + attributes(bytes(1'600'000), "='b'") + ">c</string></plist>"},
        {"property_list", "attributes_of_a_declaration",
         "<!DOCTYPE p [<!ATTLIST p" + attributes(bytes(1'600'000), " CDATA 'b'") + ">]><plist><string/></plist>"},
        {"property_list", "comments_in_a_declaration",
         "<!DOCTYPE p [" + QByteArray("<!-- ' -->").repeated(megabytes8 / 10) + "]><plist><string/></plist>"},
        {"property_list", "references",
         "<plist><string>" + QByteArray("&#65;").repeated(megabytes8 / 5) + "</string></plist>"},
        {"property_list", "nested_lists", "<plist>" + QByteArray("<array>").repeated(megabytes8 / 7)},
        {"property_list", "empty_values", "<plist><array>" + QByteArray("<true/>").repeated(megabytes8 / 7)},
        {"property_list", "long_keys", longKeys(scale)},
        {"property_list", "fan_out", fanOut()},
        {"property_list", "pairs_without_values", '{' + pairsWithoutValues + '}'},
        {"strings", "pairs_without_values", pairsWithoutValues},
        {"strings", "nested_lists", "a = " + QByteArray(megabytes8, '(')},
        {"strings", "comments", QByteArray("/* \" */").repeated(megabytes8 / 7)},
        {"strings", "escapes", '"' + QByteArray("\\U00e9").repeated(megabytes8 / 6) + "\" = b;"},
        {"signature", "records_of_many_programs", sharedSignature(scale)},
        {"icon", "many_pictures", manyPictures(bytes(16'000'000))},
        {"uri_list", "long_way_up", "file:///" + QByteArray("a/%2e%2e/").repeated(megabytes8 / 9)},
        {"uri_list", "many_lines", QByteArray("file:///a/..//b\r\n").repeated(megabytes8 / 17)},
        {"bundle", "translations_that_share_a_damaged_file",
         information + Bundle::part(Bundle::translation, damagedXml) + entries(2000)},
        {"bundle", "table_of_paths",
         information
             + Bundle::part(Bundle::translationTable, '{'
                                                          + repeated(megabytes8,
                                                                     [](int i) {
                                                                         return '"'
                                                                                + QByteArray("./").repeated(i % 20)
                                                                                + QByteArray::number(i) + "\"=x;";
                                                                     })
                                                          + '}')
             + Bundle::part(Bundle::translation, damagedXml)},
        {"bundle", "table_of_languages",
         information
             + Bundle::part(
                 Bundle::translationTable,
                 '{' + repeated(megabytes8, [](int i) { return "l" + QByteArray::number(i) + "={a=b;};"; })
                     + '}')},
        {"bundle", "crowded_resources", information + entries(16'000'000)},
        {"bundle", "icons_that_are_none",
         Bundle::part(Bundle::information,
                      "{ CFBundleIconFiles = ("
                          + repeated(bytes(300'000), [](int i) { return "i" + QByteArray::number(i) + ','; })
                          + "); }")
             + Bundle::part(Bundle::icon, QByteArray(bytes(1'000'000), 'x')) + entries(2000)},
        {"bundle", "records_of_many_programs",
         information + Bundle::part(Bundle::executable, sharedSignature(scale))},
        {"bundle", "lists_as_large_as_they_may_be",
         Bundle::part(Bundle::information, manyPairs) + Bundle::part(Bundle::translationTable, manyPairs)
             + Bundle::part(Bundle::translation, manyPairs) + entries(2000)},
    };
}
