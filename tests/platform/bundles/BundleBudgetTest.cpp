#include "BundleBudget.h"

#include "DiskBundleReader.h"
#include "DiskCodeSignature.h"
#include "InMemoryFileSystem.h"
#include "PropertyList.h"

#include <QtEndian>

#include <gtest/gtest.h>

namespace {

const QByteArray app = "/Applications/Notes.app";
const QByteArray resources = app + "/Contents/Resources/";
constexpr qint64 granted = 16 * 1024 * 1024;

/// Counts what is read from it.
class CountingFileSystem : public InMemoryFileSystem
{
public:
    std::optional<QByteArray> readFilePart(const Url &url, qint64 offset, qint64 maximumLength) const override
    {
        return counted(InMemoryFileSystem::readFilePart(url, offset, maximumLength));
    }
    std::optional<QByteArray> readFile(const Url &url, qint64 maximumSize) const override
    {
        // As on a disk, one that says that it is too large is not read.
        auto content = InMemoryFileSystem::readFilePart(url, 0, maximumSize + 1);
        return counted(content && content->size() <= maximumSize ? content : std::nullopt);
    }

    mutable int files = 0;
    mutable qint64 bytes = 0;

private:
    std::optional<QByteArray> counted(std::optional<QByteArray> content) const
    {
        ++files;
        bytes += content ? content->size() : 0;
        return content;
    }
};

class BundleBudgetTest : public testing::Test
{
protected:
    BundleBudgetTest() { disk.fileWithContent(app + "/Contents/Info.plist", "{ CFBundleName = Notes; }"); }

    QString name() const
    {
        const auto bundle = reader.open(disk.url(app));
        return bundle ? bundle->text("CFBundleName").value_or(QString()) : QStringLiteral("no bundle");
    }

    CountingFileSystem disk;
    std::stop_source stop;
    DiskBundleReader reader{disk, {"pl"}, {}, stop.get_token()};
};

std::optional<QVariant> list(const QByteArray &data)
{
    BundleBudget budget;
    return readPropertyList(data, budget);
}

QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray bigEndian(std::initializer_list<quint32> numbers)
{
    QByteArray bytes;
    for (const auto number : numbers)
        bytes += bigEndian(number);
    return bytes;
}

} // namespace

// Whatever is proportional to the square of these does not end.
TEST_F(BundleBudgetTest, whatXmlSaysOfItselfCostsWhatItIsLong)
{
    QByteArray attributes;
    for (int i = 0; attributes.size() < 2'000'000; ++i)
        attributes += " a" + QByteArray::number(i) + "='b'";
    EXPECT_EQ(list("<string" + attributes + ">c</string>"), QVariant("c"));
    EXPECT_EQ(list("<!DOCTYPE p [<!ATTLIST p" + attributes.replace('=', " CDATA ") + ">]><string>c</string>"),
              QVariant("c"));
    EXPECT_EQ(list("<!DOCTYPE p [" + QByteArray("<!-- ' -->").repeated(200'000) + "]><string>c</string>"),
              QVariant("c"));
}

TEST_F(BundleBudgetTest, longKeysOfABinaryListAreNotComparedForEver)
{
    // A dictionary that names two keys of three million characters, which differ in the last, again and again.
    constexpr quint32 length = 3'000'000;
    constexpr quint32 pairs = 49'000;
    QByteArray data = "bplist00";
    const auto dictionary = static_cast<quint32>(data.size());
    data += "\xdf\x12" + bigEndian(pairs);
    for (quint32 i = 0; i < pairs; ++i)
        data += static_cast<char>(1 + i % 2);
    data += QByteArray(pairs, '\x01');
    QList<quint32> offsets{dictionary};
    for (const char last : {'a', 'b'}) {
        offsets.append(static_cast<quint32>(data.size()));
        data += "\x5f\x12" + bigEndian(length) + QByteArray(length - 1, 'x') + last;
    }
    const auto table = static_cast<quint32>(data.size());
    for (const auto offset : offsets)
        data += bigEndian(offset);
    data += QByteArray(6, '\0') + "\x04\x01" + bigEndian({0, 3, 0, 0, 0, table});
    EXPECT_EQ(list(data), std::nullopt);
}

TEST_F(BundleBudgetTest, damagedTranslationsAreReadUpToTheBudget)
{
    disk.fileWithContent(app + "/damaged", QByteArray(1'000'000, ' ') + "a = ");
    for (int i = 0; i < 1000; ++i)
        disk.link(resources + QByteArray::number(i) + ".lproj/InfoPlist.strings", app + "/damaged");
    EXPECT_EQ(name(), "Notes");
    EXPECT_GT(disk.bytes, granted / 2);
    EXPECT_LE(disk.bytes, granted);
}

TEST_F(BundleBudgetTest, onlyFoldersThatAreThereAreLookedInto)
{
    QByteArray table;
    for (int i = 0; i < 40'000; ++i)
        table += '"' + QByteArray("./").repeated(i % 20) + QByteArray::number(i) + "\" = x;\n";
    disk.fileWithContent(resources + "InfoPlist.loctable", table);
    EXPECT_EQ(name(), "Notes");
    EXPECT_LE(disk.files, 3);
}

TEST_F(BundleBudgetTest, programsOfOneFileShareWhatItsSignatureMayCost)
{
    constexpr quint32 programs = 40;
    constexpr quint32 records = 256;
    constexpr quint32 start = 4096;
    constexpr quint32 entitlementsStart = 12 + 8 * records;
    const QByteArray damaged = "<plist>" + QByteArray(500'000, ' ');
    const auto entitlements = bigEndian({0xfade7171, static_cast<quint32>(damaged.size() + 8)}) + damaged;
    const auto signatureSize = entitlementsStart + static_cast<quint32>(entitlements.size());
    auto file = bigEndian({0xcafebabe, programs});
    for (quint32 i = 0; i < programs; ++i)
        file += bigEndian({7, 3, start, 48 + signatureSize, 0});
    file = file.leftJustified(start, '\0') + bigEndian({0xfeedfacf, 0, 0, 2, 1, 16, 0, 0})
           + bigEndian({0x1d, 16, 48, signatureSize}) + bigEndian({0xfade0cc0, signatureSize, records});
    for (quint32 i = 0; i < records; ++i)
        file += bigEndian({5, entitlementsStart});
    disk.fileWithContent(app + "/Contents/MacOS/Notes", file + entitlements);

    EXPECT_EQ(DiskCodeSignature(disk).entitlements(disk.url(app)), std::nullopt);
    EXPECT_GT(disk.bytes, granted / 2) << "the signature is found";
    EXPECT_LE(disk.bytes, granted);
}

TEST_F(BundleBudgetTest, namesOfOneDamagedIconShareIt)
{
    QByteArray names;
    for (int i = 0; i < 50; ++i) {
        names += QByteArray::number(i) + ',';
        disk.fileWithContent(resources + QByteArray::number(i), QByteArray(1'000'000, 'x'));
    }
    disk.remove(app + "/Contents/Info.plist");
    disk.fileWithContent(app + "/Contents/Info.plist", "{ CFBundleIconFiles = (" + names + "); }");
    EXPECT_EQ(reader.iconData(disk.url(app)), QByteArray());
    EXPECT_LE(disk.bytes, granted);
}

TEST_F(BundleBudgetTest, nothingIsReadOnceTheProgramQuits)
{
    EXPECT_EQ(name(), "Notes");
    stop.request_stop();
    EXPECT_EQ(name(), "no bundle");
    BundleBudget budget(stop.get_token());
    EXPECT_EQ(readPropertyList("(a)", budget), std::nullopt);
}
