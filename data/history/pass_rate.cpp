#include "data/history/pass_rate.h"

#include "data/history/calibrations.h"
#include "data/history/statement_parts.h"
#include "data/routine.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The months are made here: engines differ on how a date is cut.
Sql statementOf(const Session& session, const QDate& since) {
    const auto owner = sqlName(session.SessionOwner);
    return u"select cal.c2301,cal.c2308,cal.c2323,inv.i4203,inv.i4240 from " + owner +
           u".calibration cal left outer join " + owner +
           u".inventory inv on inv.mtag = cal.mtag where cal.c2301 >= " + sqlDate(since) +
           u" or cal.c2301 is null";
}

QString monthOf(const QDate& date) {
    return formatMoment({date, QTime(0, 0)}, u"YYYY-MM");
}

class Counts {
  public:
    Counts(const QDate& since, const QDate& today) {
        rates_.since = since;
        rates_.until = today;
    }

    /// The columns come in their order.
    void add(RecordSet& row) {
        const auto date = storedMomentOf(row.value(0)).moment.date;
        const auto run = calibrationRunOf(storedText(row.value(1)));
        const auto result = storedText(row.value(2));
        const auto model = storedText(row.value(3));
        const auto group = storedText(row.value(4));
        if (run == CalibrationRun::asLeft)
            return;
        if (!date.isValid())
            ++rates_.undated;
        else if (date < rates_.since)
            return;
        else if (date > rates_.until)
            ++rates_.inFuture;
        else if (run == CalibrationRun::other)
            ++rates_.otherState;
        else if (result != u"Y" && result != u"N")
            ++rates_.otherResult;
        else
            count(date, model, group, result == u"Y");
    }

    PassRates take() {
        for (QDate month = first_; month.isValid() && month <= last_; month = month.addMonths(1))
            rates_.byMonth[monthOf(month)];
        return std::move(rates_);
    }

  private:
    void count(const QDate& date, const QString& model, const QString& group, bool hasPassed) {
        const QDate month(date.year(), date.month(), 1);
        first_ = first_.isValid() ? qMin(first_, month) : month;
        last_ = last_.isValid() ? qMax(last_, month) : month;
        for (auto* rate :
             {&rates_.all, &rates_.byMonth[monthOf(month)], &rates_.byModel[model], &rates_.byGroup[group]})
            ++(hasPassed ? rate->passed : rate->failed);
    }

    QDate first_;
    QDate last_;
    PassRates rates_;
};

} // namespace

std::optional<PassRates> passRatesSince(Session& session, const QDate& since) {
    Routine routine(session, u"History,passRates"_s);
    return routine.resultOf([&] {
        Counts counts(since, session.clock.moment().date);
        const auto rows = routine.select(statementOf(session, since));
        while (rows->next())
            counts.add(*rows);
        return counts.take();
    });
}

} // namespace kelvane
