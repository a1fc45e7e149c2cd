#include "data/assets/assets.h"
#include "data/parameters/cal_params.h"
#include "data/records/standards.h"
#include "platform/values/numbers.h"
#include "testkit/database_session.h"

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace ModuleGlobals;

namespace {

/// What stands in backticks.
QStringList namesIn(const QString& text) {
    static const QRegularExpression name(u"`([^`]+)`"_s);
    QStringList names;
    for (const auto& match : name.globalMatch(text))
        names << match.captured(1);
    return names;
}

} // namespace

/// docs/demonstration-data.md, compared with the data that it describes.
class DemoPage : public DatabaseSession {
  protected:
    void SetUp() override {
        QFile file(QStringLiteral(KELVANE_SOURCES "/docs/demonstration-data.md"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        page = QString::fromUtf8(file.readAll());
        // What kelvane-admin alone makes is compared with its own data.
        static const QRegularExpression past(u"## A past of five years\n.*?(?=\n## )"_s,
                                             QRegularExpression::DotMatchesEverythingOption);
        ASSERT_TRUE(page.contains(past));
        page.remove(past);
    }
    /// The rows of its tables that begin with a name, as cells.
    QList<QStringList> tableRows() const {
        QList<QStringList> rows;
        for (const auto& line : page.split(u'\n')) {
            if (!line.startsWith(u"| `"))
                continue;
            auto cells = line.mid(1).chopped(1).split(u'|');
            for (auto& cell : cells)
                cell = cell.trimmed();
            rows << cells;
        }
        return rows;
    }

    QString page;
};

TEST_F(DemoPage, NamesTheLevelOfEachUser) {
    int users = 0;
    for (const auto& row : tableRows()) {
        if (row.size() != 3 || row[1].isEmpty())
            continue;
        const auto names = namesIn(row[0]);
        const auto levels = row[1].split(u", "_s);
        for (qsizetype i = 0; i < names.size(); ++i) {
            ++users;
            logIn(names[i]);
            EXPECT_EQ(session.SessionLevel, numericValue(levels.value(i, levels[0])))
                << names[i].toStdString();
        }
    }
    EXPECT_EQ(users, 9);
}

TEST_F(DemoPage, NamesTheRangeAndATransducerOfEachTool) {
    int tools = 0;
    for (const auto& row : tableRows()) {
        if (row.size() != 4)
            continue;
        ++tools;
        const auto tool = namesIn(row[0]).value(0);
        const auto params = GetCalParams(session, tool);
        const auto range = plainText(params.output_low) + u" to "_s + plainText(params.output_high) + u' ' +
                           params.output_type;
        EXPECT_EQ(row[2], range) << tool.toStdString();
        const auto transducer = namesIn(row[3]).value(0);
        EXPECT_TRUE(HasConfigData(session, transducer)) << transducer.toStdString();
        EXPECT_EQ(CheckStandard(session, transducer, tool), standardUsable) << tool.toStdString();
    }
    EXPECT_GE(tools, 7);
}

TEST_F(DemoPage, NamesTheRangesAndAStandardOfEachProcessInstrument) {
    const auto range = [](float low, float high, const QString& unit) {
        return plainText(low) + u" to "_s + plainText(high) + u' ' + unit;
    };
    int instruments = 0;
    for (const auto& row : tableRows()) {
        if (row.size() != 5)
            continue;
        ++instruments;
        const auto asset = namesIn(row[0]).value(0);
        const auto params = GetCalParams(session, asset);
        EXPECT_EQ(row[2], range(params.input_low, params.input_high, params.input_type))
            << asset.toStdString();
        EXPECT_EQ(row[3], range(params.output_low, params.output_high, params.output_type))
            << asset.toStdString();
        EXPECT_EQ(params.repetitions, row[1].contains(u"3 readings a point"_s) ? 3 : 1)
            << asset.toStdString();
        EXPECT_EQ(params.output_indicated, row[1].contains(u"read manually"_s)) << asset.toStdString();
        EXPECT_EQ(params.input_indicated, row[1].contains(u"shows its input"_s)) << asset.toStdString();
        for (const auto& standard : namesIn(row[4]))
            EXPECT_EQ(CheckStandard(session, standard, asset), standardUsable) << asset.toStdString();
    }
    EXPECT_GE(instruments, 14);
    EXPECT_EQ(AssetfromSerial(session, u"6841207"_s), u"F702-01"_s);
    EXPECT_EQ(AssetfromSerial(session, u"7112044"_s), u"F743-01"_s);
    EXPECT_EQ(AssetfromSerial(session, u"71204"_s), u"PM-100"_s);
    EXPECT_EQ(AssetfromSerial(session, u"71391"_s), u"PM-300"_s);
    EXPECT_EQ(CheckStandard(session, u"PM-030"_s, u"TCS-802"_s), standardOverdue);
}

TEST_F(DemoPage, NamesAnInstrumentWithoutParameters) {
    const auto asset = u"UC-901"_s;
    EXPECT_TRUE(page.contains(u"`UC-901`, a pressure transmitter, is not configured."_s));
    EXPECT_EQ(value(u"select i4204 from mt.inventory where i4201 = 'UC-901'"_s), u"PRESSURE TRANSMITTER"_s);
    EXPECT_FALSE(HasConfigData(session, asset));
    for (const auto& table : {u"tag_config"_s, u"proc_prompts"_s})
        EXPECT_EQ(value(u"select count(*) from mt.hvm_kv_"_s + table + u" where mtag = "_s +
                        mtagOf(session, asset).text()),
                  u"0"_s)
            << table.toStdString();
    EXPECT_EQ(CheckStandard(session, u"PM-100"_s, asset), standardUsable);
}

TEST_F(DemoPage, NamesOnlyInstrumentsAndPackagesThatExist) {
    static const QRegularExpression asset(u"^[A-Z]{2}-[A-Z0-9]+$"_s);
    static const QRegularExpression package(u"^[A-Z0-9 ]{4,}$"_s);
    int packages = 0;
    for (const auto& name : namesIn(page)) {
        if (asset.match(name).hasMatch()) {
            EXPECT_FALSE(CheckAsset(session, name).isEmpty()) << name.toStdString();
        } else if (package.match(name).hasMatch()) {
            ++packages;
            EXPECT_FALSE(GetAssetsInTaskPackage(session, name).isEmpty()) << name.toStdString();
        }
    }
    EXPECT_GE(packages, 6);
}

TEST_F(DemoPage, NamesTheRefusedStandards) {
    EXPECT_TRUE(page.contains(u"`TT-0200F` is overdue, `TT-TRAIN` ranks too low and `TT-NEW` has no"_s));
    EXPECT_EQ(CheckStandard(session, u"TT-0200F"_s, u"TW-101"_s), standardOverdue);
    EXPECT_EQ(CheckStandard(session, u"TT-TRAIN"_s, u"TW-101"_s), standardRankTooLow);
    EXPECT_FALSE(HasConfigData(session, u"TT-NEW"_s));
}

} // namespace kelvane::testing
