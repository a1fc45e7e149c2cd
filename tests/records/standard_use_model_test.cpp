#include "records/standard_use_model.h"

#include "records/colors.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

class ModelOfUses : public ::testing::Test {
  protected:
    static StandardUse use(const QString& asset, const QString& date, const QString& time,
                           const QString& ctag) {
        return {.asset = asset,
                .date = storedMomentOf(date.isEmpty() ? std::nullopt : std::optional(date)),
                .time = storedMomentOf(time.isEmpty() ? std::nullopt : std::optional(time)),
                .ctag = ctag};
    }
    QStringList order() const {
        QStringList ctags;
        for (const auto& use : model.uses())
            ctags << use.ctag;
        return ctags;
    }
    void show() {
        model.show({use(u"PT-2"_s, u"2026-01-05"_s, u"08:00:00"_s, u"9"_s), use({}, {}, {}, u"12"_s),
                    use(u"pt-1"_s, u"2026-01-05"_s, u"10:00:00"_s, u"100"_s),
                    use(u"PT-3"_s, u"2026-01-04"_s, {}, u"11"_s)});
    }

    StandardUseModel model;
};

TEST_F(ModelOfUses, HasTheNewestFirstAndThoseWithoutADateLast) {
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    show();
    EXPECT_EQ(order(), (QStringList{u"100"_s, u"9"_s, u"11"_s, u"12"_s}));
    EXPECT_EQ(model.headerData(StandardUseModel::dateColumn(), Qt::Horizontal, Qt::DisplayRole), u"Date"_s);
    EXPECT_EQ(model.index(0, 2).data(), u"2026-01-05"_s);
}

TEST_F(ModelOfUses, IsSortedByAColumnAndStaysSo) {
    show();
    model.sort(StandardUseModel::dateColumn(), Qt::AscendingOrder);
    EXPECT_EQ(order(), (QStringList{u"11"_s, u"9"_s, u"100"_s, u"12"_s})) << "those without a date stay last";
    model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(order(), (QStringList{u"100"_s, u"9"_s, u"11"_s, u"12"_s})) << "in any case of the letters";
    model.sort(model.columnCount() - 1, Qt::DescendingOrder);
    EXPECT_EQ(order(), (QStringList{u"100"_s, u"12"_s, u"11"_s, u"9"_s})) << "numbers, not letters";
    model.sort(99, Qt::AscendingOrder);
    show();
    EXPECT_EQ(order(), (QStringList{u"100"_s, u"12"_s, u"11"_s, u"9"_s}));
}

TEST_F(ModelOfUses, ShowsWhatHasFailedInItsColor) {
    auto failed = use(u"PT-1"_s, {}, {}, u"1"_s);
    failed.passed = u"N"_s;
    model.show({failed});
    EXPECT_EQ(model.index(0, 5).data(Qt::DisplayRole), text(TextId::resultFailed));
    EXPECT_EQ(model.index(0, 5).data(Qt::ForegroundRole).value<QColor>(), alarmColor());
    EXPECT_FALSE(model.index(0, 4).data(Qt::ForegroundRole).isValid());
}

} // namespace kelvane::testing
