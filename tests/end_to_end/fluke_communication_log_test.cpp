// The log of a link library's calls against those that the library recorded.
#include "tests/end_to_end/fluke_end_to_end.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane::testing {

namespace {

/// A pattern for the library's record of a logged call. It holds every argument that goes in only, and what
/// went in of some that the library writes.
QRegularExpression recordOf(const QString& operation, const QString& arguments, const QString& status) {
    static const QString quoted = uR"("(?:[^"\\]|\\.)*")"_s;
    static const QRegularExpression argument(
        u"\\G(?:, )?(?:(?<before>\\{[^}]*\\}|[^,\"{\\[→]*)→(?:%1|\\{[^}]*\\}|[^,]*)|(?<in>%1|\\{[^}]*\\}|\\[[^\\]]*\\]|[^,]+))"_s
            .arg(quoted));
    const auto plain = [](QString value) {
        if (value.startsWith(u'{'))
            value = value.sliced(1).chopped(1);
        return QRegularExpression::escape(value + u", "_s);
    };
    QString pattern;
    for (const auto& match : argument.globalMatch(arguments))
        pattern += match.hasCaptured(u"in"_s) ? plain(match.captured(u"in"_s))
                                              : u"(?:%1)?"_s.arg(plain(match.captured(u"before"_s)));
    return QRegularExpression(u"^%1\\(%2\\) = %3$"_s.arg(operation, pattern, status));
}

} // namespace

class FlukeCommunicationLog : public FlukeEndToEnd {
  protected:
    FlukeCommunicationLog() { workplace.settings.setValue(logSection, calibrator.name, u"1"_s); }

    QStringList logged() {
        const auto path = calibrators.log(calibrator.name).path();
        QStringList words;
        for (const auto& line : folder.read(QFileInfo(path).fileName()).split(u'\n', Qt::SkipEmptyParts))
            words << line.section(u"] "_s, 1);
        return words;
    }
    /// Expects the calls in the log to be those of the record, argument by argument.
    void expectCallsOfTheRecord(const QStringList& recorded) {
        static const QRegularExpression call(u"^(\\w+)\\((.*)\\) = (-?\\d+)[^\"]*, \\d+ ms$"_s);
        auto lines = logged();
        lines.removeIf([](const QString& line) {
            return line.startsWith(u"port "_s) || line.startsWith(u"library "_s);
        });
        ASSERT_EQ(lines.size(), recorded.size());
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const auto match = call.match(lines[i]);
            ASSERT_TRUE(match.hasMatch()) << lines[i].toStdString();
            auto record = recorded[i];
            // As if each argument were followed by a comma.
            if (!record.contains(u"() = "_s))
                record.insert(record.lastIndexOf(u") = "_s), u", "_s);
            EXPECT_TRUE(
                recordOf(match.captured(1), match.captured(2), match.captured(3)).match(record).hasMatch())
                << lines[i].toStdString() << " is not " << record.toStdString();
        }
    }
};

TEST_F(FlukeCommunicationLog, HoldsEachCallWithWhatWentInAndItsStatus) {
    list(singleInstrument());
    download();
    carryOut(singleRun());
    upload(singleRun());
    const auto recorded = takeCalls();
    ASSERT_GT(recorded.size(), 30);
    expectCallsOfTheRecord(recorded);
    EXPECT_TRUE(calibrators.log(calibrator.name).opening().has_value());
    EXPECT_EQ(logged().filter(QRegularExpression(u"^port COM1: "_s)).size(), 2);
}

TEST_F(FlukeCommunicationLog, HoldsTheErrorWithItsName) {
    const auto& error = calibrator.errors.first();
    list(singleInstrument());
    fault(u"%1=%2"_s.arg(calibrator.imageStep).arg(error.status));
    download(error.words());
    const auto failed = logged().filter(QRegularExpression(u"^%1\\("_s.arg(calibrator.imageStep)));
    ASSERT_EQ(failed.size(), 1);
    const auto name = error.words().section(u'(', -1).chopped(1);
    EXPECT_TRUE(failed.first().contains(u" = %1 %2, "_s.arg(error.status).arg(name)))
        << failed.first().toStdString();
}

TEST_F(FlukeCommunicationLog, TellsThatTheCalibratorDoesNotAnswer) {
    simulatorFolder.put(u"memory.json"_s, "{");
    list(singleInstrument());
    download(calibrator.noAnswer.words());
    const auto& opening = calibrators.log(calibrator.name).opening();
    ASSERT_TRUE(opening.has_value());
    EXPECT_TRUE(opening->refusal.endsWith(calibrator.noAnswer.words())) << opening->refusal.toStdString();
}

} // namespace kelvane::testing
