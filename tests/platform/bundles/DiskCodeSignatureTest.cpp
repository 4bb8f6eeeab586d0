#include "DiskCodeSignature.h"

#include "DerEntitlementsReader.h"
#include "InMemoryFileSystem.h"
#include "SignedProgram.h"

#include <gtest/gtest.h>
#include <utility>

const QByteArray app = "/Applications/Notes.app";
const QByteArray macOS = app + "/Contents/MacOS/";
const QVariantMap groups{
    {"com.apple.security.application-groups", QVariantList{"group.org.notes", "TEAM.ł"}},
    {"com.apple.security.app-sandbox", true},
    {"number", qint64(-300)},
    {"nested", QVariantMap{{"long", QString(200, u'x')}}},
};
const QVariantMap others{{"a", "b"}};

struct DiskCodeSignatureTest : testing::Test
{
    std::optional<QVariantMap> entitlements() const { return DiskCodeSignature(disk).entitlements(disk.url(app)); }

    std::optional<QVariantMap> entitlementsOf(const QByteArray &program)
    {
        disk.remove(macOS + "Notes");
        disk.fileWithContent(macOS + "Notes", program);
        return entitlements();
    }

    InMemoryFileSystem disk;
};

TEST_F(DiskCodeSignatureTest, programsOfEveryWordSizeAndByteOrder)
{
    for (const auto wordSize : {WordSize::bits32, WordSize::bits64}) {
        for (const auto order : {QSysInfo::BigEndian, QSysInfo::LittleEndian}) {
            EXPECT_EQ(entitlementsOf(SignedProgram{groups, {}, wordSize, order}.file()), groups);
            EXPECT_EQ(entitlementsOf(SignedProgram{{}, groups, wordSize, order}.file()), groups);
            const auto unsignedProgram = SignedProgram{{}, {}, wordSize, order}.file();
            const auto program = SignedProgram{groups, others, wordSize, order}.file();
            EXPECT_EQ(entitlementsOf(unsignedProgram), std::nullopt);
            EXPECT_EQ(entitlementsOf(universalFile({unsignedProgram, program}, wordSize, order)), groups);
        }
    }
}

TEST_F(DiskCodeSignatureTest, whatIsCutShortOrNoProgramHasNone)
{
    const auto program = SignedProgram{{}, groups}.file();
    for (qsizetype size = 0; size < program.size(); ++size)
        EXPECT_EQ(entitlementsOf(program.first(size)), std::nullopt) << size;
    auto uncounted = program;
    uncounted[16] = 2; // of three commands, the last of which says where the signature is
    EXPECT_EQ(entitlementsOf(uncounted), std::nullopt);
    EXPECT_EQ(entitlementsOf("#!/bin/sh\nexit 0\n"), std::nullopt);
    EXPECT_EQ(entitlementsOf(QByteArray("\xca\xfe\xba\xbe\0\0\0\x37\0\x1d", 10)), std::nullopt);
}

TEST_F(DiskCodeSignatureTest, lengthsAreOfOneToEightBytesAndTheRootIsADictionary)
{
    const auto isRead = [](const QByteArray &hexadecimal) {
        BundleBudget budget;
        return DerEntitlementsReader(QByteArray::fromHex(hexadecimal), budget).read().has_value();
    };
    for (const auto *whole : {"3100", "b000", "318100", "31880000000000000000", "70050201013100"})
        EXPECT_TRUE(isRead(whole)) << whole;
    for (const auto *damaged : {"3000", "3180", "3189000000000000000000", "318200", "3101", "70050401013100"})
        EXPECT_FALSE(isRead(damaged)) << damaged;
}

TEST_F(DiskCodeSignatureTest, nestingIsBounded)
{
    for (const auto &[lists, isRead] : {std::pair(62, true), {63, false}}) {
        QVariant value = true;
        for (int i = 0; i < lists; ++i)
            value = QVariantList{value};
        EXPECT_EQ(entitlementsOf(SignedProgram{{}, QVariantMap{{"a", value}}}.file()).has_value(), isRead)
            << lists;
    }
}

TEST_F(DiskCodeSignatureTest, theExecutableIsTheOneThatTheBundleNames)
{
    disk.fileWithContent(macOS + "Notes", SignedProgram{groups, {}}.file());
    const auto named = [&](const QByteArray &name) {
        disk.remove(app + "/Contents/Info.plist");
        disk.fileWithContent(app + "/Contents/Info.plist", "{ CFBundleExecutable = " + name + "; }");
        return entitlements();
    };
    disk.fileWithContent(macOS + "main", SignedProgram{others, {}}.file());
    EXPECT_EQ(entitlements(), groups) << "no information: the bundle's name";
    EXPECT_EQ(named("main"), others);
    EXPECT_EQ(named("missing"), std::nullopt);
    EXPECT_EQ(named("(main)"), groups);
    EXPECT_EQ(named("\"\""), groups);
    EXPECT_EQ(named("\"../MacOS/main\""), std::nullopt) << "a file of another folder";
    disk.link(macOS + "inside", "main");
    disk.link(macOS + "outside", "../../../Other.app/Contents/MacOS/other");
    disk.fileWithContent("/Applications/Other.app/Contents/MacOS/other", SignedProgram{others, {}}.file());
    EXPECT_EQ(named("inside"), others);
    EXPECT_EQ(named("outside"), std::nullopt) << "another program's file";
}
