#include "ListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <numeric>

namespace {

class ListModelTest : public testing::Test
{
protected:
    ListModel<ScanItem> model;
    // Fails the test when the model breaks the rules that views rely on.
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy resets{&model, &QAbstractItemModel::modelReset};
    QSignalSpy removals{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy changes{&model, &ListModelBase::changed};

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

} // namespace

TEST_F(ListModelTest, sumsFollowEveryChange)
{
    model.replace(items(6));
    EXPECT_EQ(model.totalBytes(), 15);
    EXPECT_EQ(model.selectedBytes(), 3);
    EXPECT_EQ(model.selectedCount(), 2);

    model.setSelected(5, true);
    EXPECT_TRUE(model.setData(model.index(0), false, ListModelBase::isSelectedRole));
    EXPECT_EQ(model.selectedBytes(), 8);
    EXPECT_EQ(model.selectedCount(), 2);

    model.remove({5});
    EXPECT_EQ(model.totalBytes(), 10);
    EXPECT_EQ(model.selectedBytes(), 3);
    EXPECT_EQ(changes.count(), 4);
}

TEST_F(ListModelTest, allRowsAreTickedOrNone)
{
    model.replace(items(6));
    changes.clear();
    model.toggleAll();
    EXPECT_EQ(model.selectedCount(), 6);
    EXPECT_EQ(model.selectedBytes(), 15);
    model.toggleAll();
    EXPECT_EQ(model.selectedCount(), 0);
    EXPECT_EQ(changes.count(), 2);
    model.clear();
    model.toggleAll();
    EXPECT_EQ(changes.count(), 3) << "a list without rows has none to tick";
}

TEST_F(ListModelTest, tickingWhatIsTickedOrNotThereChangesNothing)
{
    model.replace(items(2));
    changes.clear();
    model.setSelected(0, true);
    model.setSelected(-1, true);
    model.setSelected(2, true);
    EXPECT_FALSE(model.setData(model.index(1), true, ListModelBase::nameRole));
    EXPECT_EQ(changes.count(), 0);
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
    EXPECT_EQ(model.rows().at(9'999).sizeBytes, 19'999);
    EXPECT_EQ(resets.count() + removals.count(), 1);
}
