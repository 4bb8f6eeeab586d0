#include "PropertyList.h"

#include "BundleBudget.h"
#include "HostileInputs.h"

#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QStringEncoder>
#include <QTemporaryDir>
#include <QTimeZone>

#include <gtest/gtest.h>
#include <utility>

const QByteArray everyType = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
    <key>text</key><string>A &amp; B &#x142;<![CDATA[<c>]]></string> <!-- a comment -->
    <key>Zażółć</key><string>🙂 gęślą</string>
    <key>empty</key><string/>
    <key>small</key><integer>7</integer><key>byte</key><integer>200</integer>
    <key>short</key><integer>40000</integer><key>word</key><integer>3000000000</integer>
    <key>long</key><integer>9223372036854775807</integer><key>negative</key><integer>-5</integer>
    <key>huge</key><integer>18446744073709551615</integer>
    <key>real</key><real>-2.5</real><key>yes</key><true/><key>no</key><false/>
    <key>date</key><date>2019-07-04T10:20:30Z</date>
    <key>data</key><data>
        AAEC
        /w==
    </data>
    <key>list</key><array><string>a</string><array/><dict><key>k</key><integer>1</integer></dict>
        <true/><true/><true/><true/><true/><true/><true/><true/><true/><true/><true/><true/><true/></array>
</dict></plist>)";

static std::optional<QVariant> readPropertyList(const QByteArray &data)
{
    BundleBudget budget;
    return ::readPropertyList(data, budget);
}

static QVariant read(const QByteArray &data)
{
    const auto value = readPropertyList(data);
    EXPECT_TRUE(value.has_value()) << data.constData();
    return value.value_or(QVariant());
}

static QByteArray encoded(const QByteArray &utf8, QStringConverter::Encoding encoding,
                          QStringConverter::Flag flag = {})
{
    return QStringEncoder(encoding, flag).encode(QString::fromUtf8(utf8));
}

/// What plistutil makes of the property list `data` in `form`, "xml" or "bin".
static QByteArray converted(const QByteArray &data, const QString &form)
{
    const QTemporaryDir folder;
    QFile input(folder.filePath("in"));
    QFile output(folder.filePath("out"));
    EXPECT_TRUE(input.open(QFile::WriteOnly));
    input.write(data);
    input.close();
    EXPECT_EQ(QProcess::execute("plistutil", {"-i", input.fileName(), "-o", output.fileName(), "-f", form}), 0);
    EXPECT_TRUE(output.open(QFile::ReadOnly));
    return output.readAll();
}

static QByteArray repeated(const char *text, int count)
{
    return QByteArray(text).repeated(count);
}

TEST(PropertyListTest, valuesOfEveryTypeAreReadFromXmlAndFromWhatPlistutilMakesOfIt)
{
    const auto values = read(everyType).toMap();
    EXPECT_EQ(values.value("text"), "A & B ł<c>");
    EXPECT_EQ(values.value("Zażółć"), "🙂 gęślą");
    EXPECT_EQ(values.value("empty"), QString());
    EXPECT_EQ(values.value("long"), QVariant(qint64(9223372036854775807)));
    EXPECT_EQ(values.value("long").typeId(), QMetaType::LongLong);
    EXPECT_EQ(values.value("negative"), QVariant(qint64(-5)));
    EXPECT_EQ(values.value("huge"), QVariant(quint64(18446744073709551615u)));
    EXPECT_EQ(values.value("real"), QVariant(-2.5));
    EXPECT_EQ(values.value("yes"), QVariant(true));
    EXPECT_EQ(values.value("date"), QDateTime(QDate(2019, 7, 4), QTime(10, 20, 30), QTimeZone::utc()));
    EXPECT_EQ(values.value("data"), QByteArray("\x00\x01\x02\xff", 4));
    EXPECT_EQ(values.value("list").toList().size(), 16);
    EXPECT_EQ(read("<dict><key>bare</key><integer>0x1F</integer></dict>"), QVariantMap({{"bare", qint64(31)}}));
    const auto asBinary = converted(everyType, "bin");
    ASSERT_TRUE(asBinary.startsWith("bplist00"));
    EXPECT_EQ(read(asBinary), values);
    EXPECT_EQ(read(converted(asBinary, "xml")), values);
}

TEST(PropertyListTest, textInEveryEncodingIsRead)
{
    const QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-16\"?><plist><string>Żółw</string></plist>";
    for (const auto encoding : {QStringConverter::Utf8, QStringConverter::Utf16LE, QStringConverter::Utf16BE}) {
        for (const auto mark : {QStringConverter::Flag::Default, QStringConverter::Flag::WriteBom}) {
            EXPECT_EQ(read(encoded(xml, encoding, mark)), "Żółw");
            EXPECT_EQ(read(encoded("a = \"Żółw\";", encoding, mark)).toMap().value("a"), "Żółw");
        }
    }
    EXPECT_FALSE(readPropertyList("a = \"\xff\";"));
}

TEST(PropertyListTest, xmlIsReadInTheEncodingThatItDeclares)
{
    const auto declared = [](const QByteArray &declaration, const QByteArray &text) {
        return readPropertyList("\n\t <?xml version='1.0' " + declaration + " ?><plist><string>" + text
                                + "</string></plist>");
    };
    EXPECT_EQ(declared("", "\xc5\xbb"), "Ż") << "blanks in front";
    EXPECT_EQ(declared("encoding=\"ISO-8859-1\"", "caf\xe9"), "café");
    EXPECT_EQ(declared("encoding = 'latin1'", "caf\xe9"), "café");
    EXPECT_EQ(declared("encoding='windows-1250'", "\xaf"), "Ż");
    EXPECT_EQ(declared("encoding='UTF-16'", "\xc5\xbb"), "Ż") << "what can be read as bytes is not of two";
    EXPECT_EQ(declared("encoding='UTF-8'", "caf\xe9"), std::nullopt);
    EXPECT_EQ(declared("encoding='nothing-known'", "a"), std::nullopt);
    EXPECT_EQ(read(encoded("\r\n <?xml encoding='ISO-8859-1'?><string>Ż</string>", QStringConverter::Utf16BE)),
              "Ż");
}

TEST(PropertyListTest, xmlTextsMayHoldAnyCharacterAndEveryReference)
{
    EXPECT_EQ(read("<string>a\x01\x1f b&#1;&#x1F642;&lt;&gt;&quot;&apos;&amp;<![CDATA[<&]]><!-- - --></string>"),
              "a\x01\x1f b\x01🙂<>\"'&<&");
    EXPECT_EQ(
        read("<?a?><!--<b>--><!DOCTYPE c [ <!ENTITY d \"]>\"> <!-- ' --> ]>\n<string e='>' f=\"/\" >g</string >"),
        "g");
    EXPECT_EQ(read("<plist><array /></plist> and more"), QVariantList());
    EXPECT_EQ(read("<string>&#0000000000065;</string>"), "A") << "as long as a reference may be";
    EXPECT_FALSE(readPropertyList("<string>&#00000000000065;</string>"));
    for (const auto *broken : {"&d;", "&#;", "&#x110000;", "&#xD800;", "&amp", "<!-- ", "<![CDATA[a", "a<b/>"})
        EXPECT_FALSE(readPropertyList("<string>" + QByteArray(broken) + "</string>")) << broken;
}

TEST(PropertyListTest, textFormHasTextsListsDictionariesAndBytes)
{
    EXPECT_EQ(read(R"({ a = (x, "y z", (), ); b = <00 ff7F>; c.d-e/f:g_$1 = { 'k' = ""; }; })"),
              QVariantMap({{"a", QVariantList{"x", "y z", QVariantList()}},
                           {"b", QByteArray("\x00\xff\x7f", 3)},
                           {"c.d-e/f:g_$1", QVariantMap{{"k", ""}}}}));
    EXPECT_EQ(read("<0fbd77 1c>"), QByteArray("\x0f\xbd\x77\x1c"));
    EXPECT_EQ(read("( a )"), QVariantList{"a"});
    EXPECT_EQ(read("(\ta\v,\f\u2028b\r\u2029)"), QVariantList({"a", "b"}));
}

TEST(PropertyListTest, stringsFilesLeaveTheBracesOut)
{
    EXPECT_EQ(read("/* Name; */ // x\n\"CFBundleName\" = \"Żółw\";\nshort;\na=b /*c*/;// end"),
              QVariantMap({{"CFBundleName", "Żółw"}, {"short", "short"}, {"a", "b"}}));
    EXPECT_EQ(read(R"(k = "\"\\\a\b\f\n\r\t\v\U0142\u\251\101\'";)").toMap().value("k"),
              "\"\\\a\b\f\n\r\t\vłu’A'");
    EXPECT_EQ(read("k = \"http://a/*b*/\"; l = http://a;"),
              QVariantMap({{"k", "http://a/*b*/"}, {"l", "http://a"}}));
    EXPECT_EQ(read(" // nothing\n"), QVariantMap());
    EXPECT_EQ(read("a = 1; a = 2;").toMap().value("a"), "2");
}

TEST(PropertyListTest, damagedListsAreAbsent)
{
    const auto eachIsAbsent = [](auto... lists) {
        for (const auto *list : {lists...})
            EXPECT_FALSE(readPropertyList(list)) << list;
    };
    eachIsAbsent("", "<", "<plist>", "<what/>", "<plist><string>a</plist>", "<array><string>a</string>",
                 "<dict><key>a</key></dict>", "<dict><string>a</string></dict>", "<string><b/></string>",
                 "<plist><string>a</string><string>b</string></plist>", "<integer>x</integer>",
                 "<integer>99999999999999999999</integer>", "<integer>++5</integer>", "<integer>--5</integer>",
                 "<date>today</date>", "{ a = b }", "{ a = ; }", "{ a = b;", "( a", "\"a", "<0>", "<0g>",
                 "a = \"\\", "{}}", "a;;", "bplist00");
    const auto whole = converted(everyType, "bin");
    for (qsizetype size = 7; size < whole.size(); ++size)
        EXPECT_FALSE(readPropertyList(whole.first(size))) << size;
}

// Circles, lists that fan out and texts of four gigabytes are among the inputs of fuzzing/corpus.
TEST(PropertyListTest, hostileBinaryListsAreAbsent)
{
    const QByteArray text("\x51"
                          "a");
    const QList<QByteArrayList> hostile{
        {"\xa1\x05"}, // no such object
        {"\xd1\x01\x01", "\x10\x01"}, // a key that is no text
        {QByteArray("\xd1\x01\x00", 3), text}, // a dictionary that holds itself
        {QByteArray("\xd1\x00\x01", 3), text}, // under itself
        {QByteArray("\x4f\x13\xff\xff\xff\xff\xff\xff\xff\xff", 10)},
        {QByteArray("\xaf\x13\x40\x00\x00\x00\x00\x00\x00\x00", 10)}, // too many to count their bytes
    };
    for (const auto &objects : hostile)
        EXPECT_FALSE(readPropertyList(binaryList(objects))) << objects.first().toHex().constData();
    for (const auto *alone : {"\x15", "\x24", "\x88\1\1\1\1\1\1\1\1\1", "\x33\x7f\xf8\1\1\1\1\1\1", "\x98", "\xe0",
                              "\x5f\x51", "\x0f"})
        EXPECT_FALSE(readPropertyList(binaryList({alone}))) << QByteArray(alone).toHex().constData();

    EXPECT_EQ(read(binaryList({QByteArray("\xaf\x13\0\0\0\0\0\0\0\0", 10)})), QVariantList());
    EXPECT_EQ(read(binaryList({"\x80\5"})), QVariantMap({{"CF$UID", qint64(5)}}));
    EXPECT_EQ(read(binaryList({"\x87\1\1\1\1\1\1\1\1"})), QVariantMap({{"CF$UID", qint64(0x0101010101010101)}}));
    auto list = binaryList({text});
    for (const auto &[width, isRead] : {std::pair(0, false), {1, true}, {8, true}, {9, false}}) {
        auto other = list;
        other[list.size() - 32 + 7] = static_cast<char>(width);
        EXPECT_EQ(readPropertyList(other).has_value(), isRead) << width;
    }
    for (qsizetype i = list.size() - 32 + 6; i < list.size(); ++i) {
        auto damaged = list;
        damaged[i] = '\xff';
        EXPECT_FALSE(readPropertyList(damaged)) << i;
    }
}

TEST(PropertyListTest, depthAndCountAreBounded)
{
    EXPECT_TRUE(readPropertyList(repeated("<array>", 64) + repeated("</array>", 64)));
    EXPECT_TRUE(readPropertyList("<plist>" + repeated("<array>", 64) + repeated("</array>", 64) + "</plist>"));
    EXPECT_FALSE(readPropertyList(repeated("<array>", 65) + repeated("</array>", 65)));
    EXPECT_TRUE(readPropertyList(repeated("(", 64) + repeated(")", 64)));
    EXPECT_TRUE(readPropertyList(repeated("<dict><key>a</key>", 63) + "<true/>" + repeated("</dict>", 63)));
    for (const auto *opening : {"<array>", "<dict><key>a</key>", "(", "{a="})
        EXPECT_FALSE(readPropertyList(repeated(opening, 100'000))) << opening;
    EXPECT_FALSE(readPropertyList('(' + repeated("a,", 200'000) + ')'));
    EXPECT_FALSE(readPropertyList(repeated("a;", 100'001)));
    EXPECT_FALSE(readPropertyList('"' + QByteArray(9 * 1024 * 1024, 'a') + '"'));
}
