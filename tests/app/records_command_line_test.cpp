#include "app/records_command_line.h"

#include "testkit/fixtures.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

using List = RecordsRequest::List;

/// What a command line is refused with, without the advice at its end; empty when it is taken.
QString refusalOf(const QStringList& words) {
    try {
        recordsRequest(words);
        return {};
    } catch (const ProgramAnswer& answer) {
        EXPECT_EQ(answer.status, 2);
        EXPECT_TRUE(answer.text.endsWith(u"; see kelvane-records --help"_s));
        return answer.text.section(u"; see "_s, 0, 0);
    }
}

} // namespace

TEST(RecordsCommandLine, NamesAListAndItsForm) {
    const auto due = recordsRequest({u"--due=30"_s, u"--csv"_s, u"--user"_s, u"jdoe"_s});
    EXPECT_EQ(due.list, List::due);
    EXPECT_EQ(due.days, 30);
    EXPECT_EQ(due.user, u"jdoe"_s);
    EXPECT_EQ(due.form.separator, u',');
    EXPECT_EQ(due.form.decimalSign, u'.');
    EXPECT_EQ(due.dataSource + due.file, QString());

    const auto used = recordsRequest({u"--used"_s, u"DMM-01"_s, u"--since=2026-02-28"_s, u"--csv"_s,
                                      u"--separator=semicolon"_s, u"--user=jdoe"_s,
                                      u"--data-source=My Data"_s, u"--out=a b.csv"_s});
    EXPECT_EQ(used.list, List::used);
    EXPECT_EQ(used.asset, u"DMM-01"_s);
    EXPECT_EQ(used.since, QDate(2026, 2, 28));
    EXPECT_EQ(used.form.separator, u';');
    EXPECT_EQ(used.form.decimalSign, u',');
    EXPECT_EQ(used.dataSource, u"My Data"_s);
    EXPECT_EQ(used.file, u"a b.csv"_s);

    EXPECT_EQ(recordsRequest({u"--overdue"_s, u"--csv"_s, u"--user=a"_s}).list, List::overdue);
    const auto history = recordsRequest({u"--history=LT-10'COL"_s, u"--csv"_s, u"--user=a"_s});
    EXPECT_EQ(history.list, List::history);
    EXPECT_EQ(history.asset, u"LT-10'COL"_s);
}

TEST(RecordsCommandLine, NamesACertificateAndItsFile) {
    const auto newest = recordsRequest({u"--certificate=PT-101"_s, u"--out=a b.pdf"_s, u"--user=jdoe"_s});
    EXPECT_EQ(newest.list, List::certificate);
    EXPECT_EQ(newest.asset, u"PT-101"_s);
    EXPECT_EQ(newest.file, u"a b.pdf"_s);
    EXPECT_EQ(newest.record, QString());
    EXPECT_EQ(recordsRequest({u"--certificate"_s, u"PT-101"_s, u"--record"_s, u"77"_s, u"--out"_s, u"a"_s,
                              u"--user"_s, u"jdoe"_s})
                  .record,
              u"77"_s);
    const struct {
        QStringList words;
        QString refusal;
    } rows[] = {
        {{u"--certificate="_s}, u"--certificate needs a value"_s},
        {{u"--certificate=A"_s, u"--certificate=B"_s, u"--out=b"_s, u"--user=a"_s},
         u"--certificate was given twice"_s},
        {{u"--certificate=A"_s, u"--user=a"_s}, u"--out is missing"_s},
        {{u"--certificate=A"_s, u"--out=b"_s}, u"--user is missing"_s},
        {{u"--certificate=A"_s, u"--out=b"_s, u"--csv"_s}, u"--csv is for lists, a certificate is a PDF"_s},
        {{u"--certificate=A"_s, u"--out=b"_s, u"--separator=comma"_s},
         u"--separator is for lists, a certificate is a PDF"_s},
        {{u"--certificate=A"_s, u"--out=b"_s, u"--since=2026-01-01"_s}, u"--since is for --used"_s},
        {{u"--certificate=A"_s, u"--out=b"_s, u"--record="_s}, u"--record needs a value"_s},
        {{u"--overdue"_s, u"--csv"_s, u"--record=1"_s}, u"--record is for --certificate"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(refusalOf(row.words), row.refusal) << row.words.join(u' ').toStdString();
}

TEST(RecordsCommandLine, WithoutAListTellsWhatThereIs) {
    const auto refusal = refusalOf({});
    for (const auto& option : {u"--due"_s, u"--overdue"_s, u"--used"_s, u"--history"_s})
        EXPECT_TRUE(refusal.contains(option)) << refusal.toStdString();
    EXPECT_EQ(refusalOf({u"--csv"_s, u"--user=jdoe"_s}), refusal);
}

TEST(RecordsCommandLine, RefusesWhatIsNoRequest) {
    const auto noDays = u"--due needs a number of days from 0 to 36500"_s;
    const auto noSource = u"--data-source needs the name of a data source and nothing else"_s;
    const struct {
        QStringList words;
        QString refusal;
    } rows[] = {
        {{u"--due"_s}, u"--due needs a value"_s},
        {{u"--due=30"_s, u"--csv"_s, u"--csv"_s, u"--user=a"_s}, u"--csv was given twice"_s},
        {{u"--due=30"_s, u"--csv"_s, u"--user=a"_s, u"--user=b"_s}, u"--user was given twice"_s},
        {{u"--due="_s}, u"--due needs a value"_s},
        {{u"--due=soon"_s}, noDays},
        {{u"--due=-1"_s}, noDays},
        {{u"--due=36501"_s}, noDays},
        {{u"--due=3.5"_s}, noDays},
        {{u"--due=30"_s, u"--overdue"_s}, u"--due and --overdue are two lists"_s},
        {{u"--history=A"_s, u"--used=B"_s}, u"--used and --history are two lists"_s},
        {{u"--history="_s}, u"--history needs a value"_s},
        {{u"--used=A"_s}, u"--since is missing"_s},
        {{u"--used=A"_s, u"--since=2026-02-29"_s}, u"no such day: 2026-02-29"_s},
        {{u"--used=A"_s, u"--since=1/2/2026"_s}, u"no such day: 1/2/2026"_s},
        {{u"--overdue"_s, u"--since=2026-01-01"_s}, u"--since is for --used"_s},
        {{u"--overdue"_s}, u"--csv is missing: a list is written in no other form"_s},
        {{u"--overdue"_s, u"--csv"_s, u"--separator=tab"_s}, u"--separator is comma or semicolon"_s},
        {{u"--overdue"_s, u"--csv"_s}, u"--user is missing"_s},
        {{u"--overdue"_s, u"--csv"_s, u"--user="_s}, u"--user needs a value"_s},
        {{u"--overdue"_s, u"--csv"_s, u"--user=a"_s, u"--out="_s}, u"--out needs a value"_s},
        {{u"--overdue"_s, u"--csv"_s, u"--user=a"_s, u"--data-source="_s}, noSource},
        {{u"--overdue"_s, u"--csv"_s, u"--user=a"_s, u"--data-source=A;PWD=b"_s}, noSource},
        {{u"--overdue"_s, u"--password=secret"_s}, u"unknown option --password"_s},
        {{u"--overdue"_s, u"secret"_s}, u"secret is not understood"_s},
    };
    for (const auto& row : rows)
        EXPECT_EQ(refusalOf(row.words), row.refusal) << row.words.join(u' ').toStdString();
}

} // namespace kelvane::testing
