#pragma once

#include "admin/past_days.h"
#include "admin/past_errors.h"
#include "data/parameters/cal_params.h"
#include "data/records/cal_record.h"
#include "drivers/fluke_judgement.h"
#include "platform/clock.h"
#include "platform/silent_user_interface.h"

#include <QHash>

#include <memory>

namespace kelvane::admin {

/// The clock of a session whose day is set.
class PastClock final : public Clock {
  public:
    QDateTime now() const override { return {moment_.date, moment_.time}; }
    void set(const Moment& moment) { moment_ = moment; }

  private:
    Moment moment_;
};

/// An operator who knows what the making of a record asks for. Whatever else is asked or told is a fault.
class PastOperator final : public SilentUserInterface {
  public:
    BoxAnswer messageBox(const QString& text, const QString& title, BoxStyle style) override;
    QString askOneField(const DialogQuestion& question) override;

    /// By the title of the field.
    QHash<QString, QString> answers;
    QStringList faults;
};

/// Makes the records of calibrations in the order in which they come.
class PastRecords {
  public:
    /// `clock` and `ui` are those of the session; `day` is the one that years are counted back from.
    PastRecords(Session& session, PastClock& clock, PastOperator& ui, const QDate& day)
        : session_(session), clock_(clock), ui_(ui), day_(day) {}

    /// The record of a calibration, and of the one after the adjustment when it has failed. A `Failure` when
    /// one was not made.
    void add(const PastCalibration& calibration);

  private:
    /// An instrument as it is known between two of its calibrations.
    struct Known {
        CalParamRecord parameters;
        QList<float> points;
        double tolerance = 0;
        PastErrors errors;
    };
    /// One run of a calibration.
    struct Run {
        const PastCalibration& calibration;
        Known& known;
        qint16 kind;
        Moment moment;
        PastRandom& random;
        QString temperature;
        QString humidity;
    };
    Known& known(const PastInstrument& instrument);
    /// True when all points are within tolerance.
    bool addRun(const Run& run);
    PointCounts judge(const Run& run, CalRecord& record);
    void fillOwnFields(const Run& run, bool passed, CalRecord& record) const;
    double shown(double value, const CalParamRecord& parameters) const;
    void requireNoFault(const PastInstrument& instrument, const QString& refusal) const;

    Session& session_;
    PastClock& clock_;
    PastOperator& ui_;
    QDate day_;
    QHash<const PastInstrument*, std::shared_ptr<Known>> known_;
};

} // namespace kelvane::admin
