#include "drivers/fluke702/stored_run.h"

#include "platform/error.h"
#include "testkit/fixtures.h"
#include "testkit/recorded_link.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

using namespace Module702Interface;

class ImageOfRuns : public ::testing::Test {
  protected:
    ImageOfRuns() { link.runs << StoredRun{}; }

    StoredRun& run() { return link.runs.first(); }
    /// Changes the stored run after the n-th call of the operation.
    void change(const QString& operation, int call, std::function<void(StoredRun&)> change) {
        changes_ << Change{operation, call, std::move(change)};
        link.onCall = [this](const QString& name) {
            for (const auto& planned : changes_) {
                if (planned.operation == name && link.callsOf(name).size() == planned.call)
                    planned.change(run());
            }
        };
    }

    RecordedLink link;

  private:
    struct Change {
        QString operation;
        int call;
        std::function<void(StoredRun&)> change;
    };
    QList<Change> changes_;
};

TEST_F(ImageOfRuns, AHeaderWithoutZerosComesByOneCall) {
    RunHeader header;
    EXPECT_EQ(readHeader(link, 0, header), 0);
    EXPECT_EQ(link.calls, QStringList{u"MEMrDir(0)"_s});
    EXPECT_EQ(header.kind, 1);
    EXPECT_EQ(momentOf(header), (Moment{QDate(2026, 3, 18), QTime(8, 15, 30)}));
}

TEST_F(ImageOfRuns, EachValueThatReadsZeroIsFetchedAgainByACallOfItsOwn) {
    const struct {
        const char* name;
        qint16 StoredRun::*stored;
        qint16 RunHeader::*read;
    } rows[] = {
        {"kind", &StoredRun::kind, &RunHeader::kind},
        {"month", &StoredRun::month, &RunHeader::month},
        {"day", &StoredRun::day, &RunHeader::day},
        {"year", &StoredRun::year, &RunHeader::year},
    };
    for (const auto& row : rows) {
        link.calls.clear();
        link.runs = {StoredRun{}};
        const auto value = run().*row.stored;
        run().*row.stored = 0;
        link.onCall = [&](const QString&) { run().*row.stored = value; };
        RunHeader header;
        EXPECT_EQ(readHeader(link, 0, header), 0);
        EXPECT_EQ(header.*row.read, value) << row.name;
        EXPECT_EQ(link.calls.size(), 2) << row.name;
    }
}

TEST_F(ImageOfRuns, ValuesThatStayZeroAreFetchedAgainOnce) {
    run().kind = run().month = run().day = run().year = 0;
    RunHeader header;
    EXPECT_EQ(readHeader(link, 0, header), 0);
    EXPECT_EQ(link.calls.size(), 1 + 4);
    EXPECT_FALSE(header.isDated());
}

TEST_F(ImageOfRuns, AValueFetchedAgainLeavesTheOthersAsTheyWere) {
    run().month = 0;
    change(u"MEMrDir"_s, 1, [](StoredRun& stored) {
        stored = StoredRun{};
        stored.kind = 2;
        stored.month = 5;
        stored.day = 6;
        stored.year = 2030;
        stored.hour = 0;
    });
    RunHeader header;
    EXPECT_EQ(readHeader(link, 0, header), 0);
    EXPECT_EQ(header.kind, 1);
    EXPECT_EQ(momentOf(header), (Moment{QDate(2026, 5, 18), QTime(8, 15, 30)}));
}

TEST_F(ImageOfRuns, ValuesOfAnEarlierHeaderDoNotShineThrough) {
    RunHeader header{1, 3, 18, 2026, 8, 15, 30};
    EXPECT_EQ(readHeader(link, 7, header), 0) << "no such run: the library writes nothing";
    EXPECT_FALSE(header.isDated());
    EXPECT_EQ(header.kind, 0);
}

TEST_F(ImageOfRuns, ATimeOfMidnightIsFetchedAgainByThreeCallsInItsOrder) {
    run().hour = run().minute = run().second = 0;
    change(u"MEMrDir"_s, 1, [](StoredRun& stored) { stored.hour = 1; });
    change(u"MEMrDir"_s, 2, [](StoredRun& stored) {
        stored.hour = 50;
        stored.minute = 2;
    });
    change(u"MEMrDir"_s, 3, [](StoredRun& stored) {
        stored.minute = 60;
        stored.second = 3;
    });
    RunHeader header;
    EXPECT_EQ(readHeader(link, 0, header), 0);
    EXPECT_EQ(link.calls.size(), 4);
    EXPECT_EQ(momentOf(header).time, QTime(1, 2, 3));
}

TEST_F(ImageOfRuns, ATimeWithOneValueThatIsNotZeroIsNotFetchedAgain) {
    for (const auto part : {&StoredRun::hour, &StoredRun::minute, &StoredRun::second}) {
        link.calls.clear();
        run().hour = run().minute = run().second = 0;
        run().*part = 7;
        RunHeader header;
        EXPECT_EQ(readHeader(link, 0, header), 0);
        EXPECT_EQ(link.calls.size(), 1);
    }
}

TEST_F(ImageOfRuns, TheStatusOfEachCallOfTheHeaderCounts) {
    run().kind = run().month = run().day = run().year = 0;
    run().hour = run().minute = run().second = 0;
    for (int call = 1; call <= 8; ++call) {
        RecordedLink failing;
        failing.runs = link.runs;
        failing.answer(u"MEMrDir"_s, 2014, call);
        RunHeader header;
        EXPECT_EQ(readHeader(failing, 0, header), 2014) << call;
        EXPECT_EQ(failing.calls.size(), call) << "no call follows";
    }
}

TEST_F(ImageOfRuns, MomentsThatDoNotExistAreATypeMismatch) {
    const struct {
        RunHeader header;
        const char* name;
    } rows[] = {
        {{1, 2, 30, 2026, 8, 0, 0}, "30 February"},
        {{1, 2, 29, 2026, 8, 0, 0}, "29 February of a common year"},
        {{1, 13, 5, 2026, 8, 0, 0}, "a month above 12 is not taken for a day"},
        {{1, 4, 31, 2026, 8, 0, 0}, "31 April"},
        {{1, 3, 32, 2026, 8, 0, 0}, "day 32"},
        {{1, 3, 18, 10000, 8, 0, 0}, "beyond the calendar"},
        {{1, 3, 18, 32767, 8, 0, 0}, "the largest year"},
        {{1, 3, 18, 2026, 24, 0, 0}, "hour 24"},
        {{1, 3, 18, 2026, 8, 60, 0}, "minute 60"},
        {{1, 3, 18, 2026, 8, 0, 60}, "second 60"},
        {{1, 3, 18, 2026, -1, 0, 0}, "before midnight"},
    };
    for (const auto& row : rows) {
        try {
            momentOf(row.header);
            ADD_FAILURE() << row.name;
        } catch (const Error& error) {
            EXPECT_EQ(error.number, 13) << row.name;
        }
    }
}

TEST_F(ImageOfRuns, AYearOfTwoDigitsIsOneOfOurTime) {
    const struct {
        qint16 year;
        int full;
    } rows[] = {{26, 2026}, {29, 2029}, {30, 1930}, {98, 1998}, {1, 2001}, {100, 100}, {9999, 9999}};
    for (const auto& row : rows)
        EXPECT_EQ(momentOf({1, 3, 18, row.year, 8, 0, 0}).date.year(), row.full);
}

TEST_F(ImageOfRuns, TheTagIsReadIntoThirtyThreeBlanksAndCleaned) {
    run().tag = u" PT-101 "_s;
    run().serial = u"V88101"_s;
    run().technician = u"Joe Doe"_s;
    QStringList buffers;
    link.writeText = [&](const QString& text, const QString& buffer) {
        buffers << buffer;
        return text + QChar(0) + u"behind"_s;
    };
    RunTag tag;
    EXPECT_EQ(readTag(link, 0, tag), 0);
    EXPECT_EQ(buffers, QStringList(3, QString(33, u' ')));
    EXPECT_EQ(tag.tag, u"PT-101"_s);
    EXPECT_EQ(tag.serial, u"V88101"_s);
    EXPECT_EQ(tag.technician, u"Joe Doe"_s);
}

TEST_F(ImageOfRuns, ATagWithoutATerminatingZeroIsTakenWhole) {
    run().tag = QString(33, u'X');
    link.writeText = [](const QString& text, const QString& buffer) {
        return text + buffer.mid(text.size());
    };
    RunTag tag;
    EXPECT_EQ(readTag(link, 0, tag), 0);
    EXPECT_EQ(tag.tag, QString(33, u'X'));
    EXPECT_EQ(tag.serial, QString());
    run().tag = u"PT-101"_s;
    EXPECT_EQ(readTag(link, 0, tag), 0);
    EXPECT_EQ(tag.tag, u"PT-101"_s);
}

TEST_F(ImageOfRuns, TextsOfAnEarlierTagAreOverwritten) {
    RunTag tag{u"old"_s, u"old"_s, u"old"_s};
    EXPECT_EQ(readTag(link, 7, tag), 0) << "no such run: the library writes nothing";
    EXPECT_EQ(tag.tag + tag.serial + tag.technician, QString());
}

TEST_F(ImageOfRuns, TheSevenValuesOfAnEntryAreFetchedOneByOneFromTheLastToTheFirst) {
    run().entries = {{}, {1, 1, 1}};
    for (int call = 1; call <= 6; ++call)
        change(u"MEMcalResultEntry"_s, call, [call](StoredRun& stored) {
            const auto value = static_cast<float>(call + 1);
            stored.entries[1] = {value, value, value};
        });
    RunEntry entry;
    EXPECT_EQ(readEntry(link, 0, 1, entry), 0);
    EXPECT_EQ(link.calls, QStringList(7, u"MEMcalResultEntry(0, 1)"_s));
    EXPECT_EQ(entry.calibratorError, 1) << "position 7 by the first call";
    EXPECT_EQ(entry.applied, 4) << "position 4 by the fourth";
    EXPECT_EQ(entry.reading, 7) << "position 1 by the seventh";
}

TEST_F(ImageOfRuns, TheStatusOfEachCallOfAnEntryCounts) {
    for (int call = 1; call <= 7; ++call) {
        RecordedLink failing;
        failing.answer(u"MEMcalResultEntry"_s, 2023, call);
        RunEntry entry;
        EXPECT_EQ(readEntry(failing, 0, 0, entry), 2023) << call;
        EXPECT_EQ(failing.calls.size(), call);
    }
}

TEST_F(ImageOfRuns, ValuesComeBackInTheInstrumentsUnits) {
    const struct {
        const char16_t* unit;
        float value;
        float scaled;
    } rows[] = {
        {u"V", 2.5F, 2.5F},
        {u"mV", 2.5F, 2500},
        {u"uV", 2.5F, 2500000},
        {u"VAC", 2.5F, 2.5F},
        {u"mVAC", 2.5F, 2500},
        {u"A", 2.5F, 2.5F},
        {u"mA", 2.5F, 2500},
        {u"uA", 2.5F, 2500000},
        {u"Ohms", 2500, 2500},
        {u"KOhms", 2500, 2.5F},
        {u"Mohms", 2500000, 2.5F},
        {u"Hz", 2500, 2500},
        {u"KHz", 2500, 2500},
        {u"MHz", 2500, 2500},
        {u"C", 25, 25},
        {u"F", 25, 25},
        {u"psi", 25, 25},
        {u"psig", 25, 25},
        {u"inHg", 25, 25},
        {u"inH2O", 25, 25},
        {u"mmHg", 25, 25},
        {u"kPa", 25, 25},
        {u"bar", 25, 25},
        {u"mbar", 25, 25},
        {u"%", 25, 25},
        {u"", 25, 25},
        {u"MA", 25, 25},
        {u"kohms", 25, 25},
        {u" mA", 25, 25},
    };
    for (const auto& row : rows) {
        CalParamRecord instrument;
        instrument.input_type = QString::fromUtf16(row.unit);
        instrument.output_type = u"V"_s;
        auto entry = readingOf(instrument, {3, row.value, 0.5F});
        EXPECT_EQ(entry.applied, row.scaled) << instrument.input_type.toStdString();
        EXPECT_EQ(entry.reading, 3) << "the input's unit is not the output's";
        EXPECT_EQ(entry.calibratorError, 50) << "in percent";
        std::swap(instrument.input_type, instrument.output_type);
        entry = readingOf(instrument, {row.value, 3, 0.5F});
        EXPECT_EQ(entry.reading, row.scaled) << instrument.output_type.toStdString();
        EXPECT_EQ(entry.applied, 3);
    }
}

TEST_F(ImageOfRuns, ScalingIsDoneInThirtyTwoBits) {
    CalParamRecord instrument;
    instrument.input_type = u"mA"_s;
    instrument.output_type = u"KOhms"_s;
    const auto entry = readingOf(instrument, {1234.567F, 0.0123F, 0});
    EXPECT_EQ(entry.applied, 0.0123F * 1000.0F);
    EXPECT_EQ(entry.reading, 1234.567F / 1000.0F);
}

TEST_F(ImageOfRuns, AValueThatCantBeScaledIsAnOverflowAndAnUnscaledOneStays) {
    CalParamRecord instrument;
    instrument.input_type = u"mV"_s;
    instrument.output_type = u"V"_s;
    EXPECT_THROW(readingOf(instrument, {0, 1E38F, 0}), Error);
    EXPECT_EQ(readingOf(instrument, {1E38F, 0, 0}).reading, 1E38F);
    EXPECT_THROW(readingOf(instrument, {0, std::nanf(""), 0}), Error);
    EXPECT_TRUE(std::isnan(readingOf(instrument, {std::nanf(""), 0, 0}).reading));
}

} // namespace kelvane::testing
