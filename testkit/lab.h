#pragma once

#include "data/parameters/cal_params.h"
#include "testkit/fixtures.h"

namespace kelvane::testing {

/// A lab over a recording connection: what its database answers to the routines that a calibrator's download
/// and upload call. The key of an instrument is its number with "K" in front, but where a test names another.
class Lab : public RecordedSession {
  protected:
    /// A piece of equipment that the inventory knows by its serial number.
    void addEquipment(const QString& asset, const QString& mtag, const QString& serial);
    /// An instrument that exists, with its parameters and a strategy.
    void addInstrument(const QString& asset, const QString& mtag, CalParamRecord record);
    void addInstrument(const QString& asset, const CalParamRecord& record);
    /// The points of an instrument's strategy, in percent, and its repetitions.
    void addPoints(const QString& asset, const QStringList& points, int repetitions);
    /// The test messages of an instrument: name, text and type of each.
    void addPrompts(const QString& asset, const QList<Row>& prompts);
    /// The standards in use with an instrument.
    void addStandards(const QString& asset, const QStringList& standards);
    /// A task package of instruments, with their entries of `serials`.
    void addPackage(const QString& tag, const QStringList& assets);
    /// A task package "TAG" of instruments with these parameters: "I-1", "I-2" ..., each with three points.
    /// Gives their names.
    QStringList addList(const QList<CalParamRecord>& records);
    /// The instruments that are registered with a calibrator.
    void addInUseWith(const QString& serial, const QStringList& assets);
    /// Who has downloaded an instrument, and when.
    void addInUseData(const QString& serial, const QString& asset, const QString& tech);
    /// The fields that a site's dictionary asks for, by their columns.
    void addDictionary(const QStringList& columns);
    /// The history and the interval of an instrument, which the record's due date needs.
    void addHistory(const QString& asset);

    // The statements of the data routines, as they arrive.
    static QString selectMtag(const QString& asset);
    static QString mtagOf(const QString& asset);
    static QString selectParams(const QString& asset);
    static QString selectStandards(const QString& asset);
    static QString selectSerial(const QString& serial);
    static QString selectConfig(const QString& asset);
    /// Without an order, as the check for a complete configuration asks.
    static QString selectPoints(const QString& asset);
    static QString selectPointList(const QString& asset);
    static QString selectRepetitions(const QString& asset);
    static QString selectPrompts(const QString& asset);
    static QString selectPackage(const QString& task);
    static QString selectMembers(const QString& tag);
    static QString selectInUse(const QString& serial);
    static QString selectInUseData(const QString& serial, const QString& mtag);

    /// The statements that change something.
    QStringList writes() const;
    /// The value that the record of an instrument got in a column, out of the insert; "no record" when there
    /// was none.
    QString recordedValue(const QString& column, const QString& asset) const;
    /// The instruments that have got a record, in order.
    QStringList recordedAssets() const;
    QStringList resultLines() const;
    /// The keys of the instruments that were registered with a calibrator, by its serial number.
    QStringList registeredInstruments(const QString& serial) const;

    /// The serial numbers of instruments; the others have none.
    QHash<QString, QString> serials;
};

} // namespace kelvane::testing
