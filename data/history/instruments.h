#pragma once

#include "data/history/stored_values.h"
#include "data/session.h"

#include <QHash>
#include <QList>

namespace kelvane {

class Routine;

/// An instrument's registration with a calibrator that it is out with.
struct InstrumentOut {
    /// Of the calibrator.
    QString serial = {};
    /// Who sent it; empty when the registration does not say.
    QString technician = {};
    StoredMoment since = {};
};

/// An instrument of the inventory with its current calibration record, place and registrations. What the
/// database does not say is empty.
struct InstrumentSummary {
    QString mtag = {};
    QString asset = {};
    QString description = {};
    QString manufacturer = {};
    QString model = {};
    QString serial = {};
    QString group = {};
    /// Where it is now. Of several places that are marked so, the last in the alphabet.
    QString location = {};
    StoredMoment lastCalibration = {};
    /// Of the current record: the state of its run, and "Y" or "N" for passed. Both are empty for an
    /// instrument without a record.
    QString state = {};
    QString passed = {};
    StoredMoment due = {};
    /// From the present day to the due date: 0 on that day, negative behind it. Nothing without a due date,
    /// since an instrument that was never calibrated is neither due nor in calibration.
    std::optional<qint64> daysLeft = {};
    /// The newest registration first. A second one is most often left over from a calibrator that was not
    /// cleared.
    QList<InstrumentOut> out = {};
};

/// What the instruments can be ordered by. `due` orders by the days that are left, too.
enum class InstrumentOrder {
    asset,
    description,
    manufacturer,
    model,
    serial,
    group,
    location,
    lastCalibration,
    passed,
    due,
};

/// Which instruments are read: those that meet everything that is set.
struct InstrumentFilter {
    /// Contained in asset number, description, model, location or serial number, in any case of its letters.
    /// Every character stands for itself.
    QString text = {};
    /// The due date is at most so many days ahead, or behind the present day.
    std::optional<int> dueWithinDays = {};
    /// The due date is behind the present day. On the day itself an instrument is still in calibration.
    bool isOverdue = false;
    /// Exactly these; empty for any.
    QString group = {};
    QString model = {};
    QString description = {};
    QString asset = {};
};

struct InstrumentQuery {
    InstrumentFilter filter = {};
    /// Instruments without a value come last in either direction; those of one value in the order of their
    /// asset numbers.
    InstrumentOrder order = InstrumentOrder::asset;
    bool isDescending = false;
};

/// Reads the instruments of the session's owner in blocks, from a cursor that goes forward: what is kept in
/// memory is one block, and the registrations of what is out. Of several records that are marked as an
/// instrument's current one, the newest counts. Errors are reported as "History,instruments".
class InstrumentReader {
  public:
    /// Runs the query. The session has to outlive the reader; its connection need not.
    InstrumentReader(Session& session, const InstrumentQuery& query);

    ~InstrumentReader();

    /// The next instruments, at most `count`; fewer only at the end or after an error.
    QList<InstrumentSummary> next(qsizetype count);
    /// True when no instrument is left, or none can be read any more.
    bool isAtEnd() const { return !rows_; }
    /// True after an error: the instruments that came are not all.
    bool hasFailed() const { return hasFailed_; }

  private:
    void readRegistrations();
    InstrumentSummary instrumentOfRow();
    bool isContained(const InstrumentSummary& instrument) const;

    std::unique_ptr<Routine> routine_;
    QDate today_;
    QString text_;
    QHash<QString, QList<InstrumentOut>> registrations_;
    std::unique_ptr<RecordSet> rows_;
    bool hasFailed_ = false;
};

} // namespace kelvane
