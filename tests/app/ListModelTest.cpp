#include "ListModel.h"

#include "Presentation.h"

#include <QAbstractItemModelTester>
#include <QSet>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <numeric>

struct ListModelTest : testing::Test
{
    ListModel<ScanItem> model;
    // Fails the test when the model breaks the rules that views rely on.
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
    QSignalSpy removals{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy changes{&model, &ListModelBase::changed};
    QSignalSpy ticks{&model, &QAbstractItemModel::dataChanged};

    /// Item i has i bytes; every third one is selected.
    static QList<ScanItem> items(qint64 count)
    {
        QList<ScanItem> list;
        for (qint64 i = 0; i < count; ++i)
            list.append({Url("/Users/me/Library/Logs") / QByteArray::number(i), ScanItemKind::log,
                         ScanConfidence::probable, i, i % 3 == 0});
        return list;
    }
};

TEST_F(ListModelTest, sumsFollowEveryChange)
{
    const auto expectSums = [this](qint64 total, qint64 selected, int count, qsizetype timesChanged) {
        EXPECT_EQ(model.totalBytes(), total);
        EXPECT_EQ(model.selectedBytes(), selected);
        EXPECT_EQ(model.selectedCount(), count);
        EXPECT_EQ(changes.count(), timesChanged);
    };
    model.replace(items(6));
    expectSums(15, 3, 2, 1);
    EXPECT_EQ(model.rowCount(model.index(0)), 0);
    model.setSelected(5, true);
    EXPECT_TRUE(model.setData(model.index(0), false, ListModelBase::isSelectedRole));
    expectSums(15, 8, 2, 3);
    // What is so already, or not there, changes nothing.
    model.setSelected(5, true);
    model.setSelected(-1, true);
    model.setSelected(6, true);
    EXPECT_FALSE(model.setData(model.index(1), true, ListModelBase::nameRole));
    model.remove({});
    expectSums(15, 8, 2, 3);
    model.remove({5});
    expectSums(10, 3, 1, 4);

    model.toggleAll();
    expectSums(10, 10, 5, 5);
    model.toggleAll();
    expectSums(10, 0, 0, 6);
    model.clear();
    model.clear();
    model.toggleAll();
    EXPECT_EQ(model.rowBeginningWith("a", 0), -1);
    expectSums(0, 0, 0, 7);
    EXPECT_EQ(ticks.count(), 4);
}

TEST_F(ListModelTest, viewsKeepTheirPlaceWhenSomeRowsGo)
{
    model.replace(items(100));
    resets.clear();
    const QPersistentModelIndex place = model.index(50);
    QList<int> places(20);
    std::iota(places.begin(), places.end(), 0);
    model.remove(places + QList<int>{60});
    EXPECT_EQ(removals.count(), 2);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(place.row(), 30);
    EXPECT_EQ(place.data(ListModelBase::nameRole), "50");

    // Every second of many thousand rows: no view should be told of each.
    model.replace(items(20'000));
    resets.clear();
    removals.clear();
    places.clear();
    for (int even = 0; even < 20'000; even += 2)
        places.append(even);
    model.remove(places);
    EXPECT_EQ(model.count(), 10'000);
    EXPECT_EQ(model.rows().first().sizeBytes, 1);
    EXPECT_EQ(model.rows().last().sizeBytes, 19'999);
    EXPECT_EQ(resets.count() + removals.count(), 1);
}

TEST(RowDataTest, rowsTellByRoleWhatTheyAre)
{
    const auto told = []<typename Row>(const Row &row) {
        ListModel<Row> model;
        model.replace({row});
        QStringList values;
        for (int role = ListModelBase::nameRole; role <= ListModelBase::kindKeyRole; ++role)
            values.append(model.index(0).data(role).toString());
        return values.join(u'|');
    };
    const Url url("/x/a\xff");
    EXPECT_EQ(told(InstalledApplication{"Notes", "org.notes", url, 4000, true}),
              "Notes|/x/a\ufffd|file:///x/a%FF|4 KB||||true||");
    const QString file("a\ufffd|/x/a\ufffd|file:///x/a%FF|4 KB|");
    EXPECT_EQ(told(ScanItem{url, ScanItemKind::cache, ScanConfidence::probable, 4000, true}),
              file + "archivebox|teal|true||probable_match|cache");
    EXPECT_EQ(told(MediaFile{url, MediaCategory::audio, 4000}), file + "waveform|blue||||media_audio");
    EXPECT_EQ(told(TextFile{url, TextFileCategory::pdf, 4000}), file + "doc.richtext|red||||text_pdf");

    EXPECT_EQ(ListModel<TextFile>().roleNames().size(), ListModelBase::kindKeyRole - ListModelBase::nameRole + 1);
    QSet<QString> names;
    for (const auto kind : allCases<ScanItemKind>())
        names.insert(Presentation::kindText(rawValue(kind), AppLanguage::polish));
    EXPECT_EQ(names.size(), allCases<ScanItemKind>().size());
}
