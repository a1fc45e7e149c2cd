#pragma once

#include <QString>

namespace kelvane {

/// The link library `dpclnk` of the Fluke 702: it keeps an image of the calibrator's memory inside this
/// process and moves it over the serial line. Only what the program calls stands here.
///
/// Every operation gives a status: 0 done, 100 to 105 a warning, 2000 to 2026 an error.
///
/// Texts go in as they are and reach the library in the calibrator's alphabet. A text that comes out is
/// passed in filled with blanks, as many as the library may write, and comes back as the whole buffer, the
/// library's terminating zero and what stands behind it included: `CleanDLLString` makes a text of it.
///
/// Out values are left as they are by a library that does not write them.
class Dpclnk {
  public:
    using Status = qint16;
    /// An out number whose width the library's own description leaves open.
    using Open = qint32;

    virtual ~Dpclnk() = default;

    /// Empty when the library is there with all its operations, otherwise what is missing, for the operator.
    /// Call this before anything else: without a library no operation may be called.
    virtual QString missing() = 0;
    /// The file of the library that is loaded; empty when there is none.
    virtual QString file() const { return {}; }

    // The link.
    /// `port` is a name such as "COM1". What the constants 1000 and 5 mean is the library's own.
    virtual Status DPCopen(qint32 baudRate, const QString& port, qint32 constant1000, quint8 constant5) = 0;
    virtual Status DPCclose() = 0;
    /// Texts of 16, 10 and 40.
    virtual Status DPCget70x(QString& model, QString& serial, QString& text, qint32& number, qint32& unused1,
                             qint32& unused2) = 0;
    /// The number of steps to come; each step lowers it.
    virtual Status DPCdnlStart(qint32& count) = 0;
    virtual Status DPCdnlStep(qint32& count) = 0;
    virtual Status DPCuplStart(qint32& count) = 0;
    virtual Status DPCuplStep(qint32& count) = 0;

    // Writing the image.
    virtual Status MEMclear() = 0;
    /// 1 to 50 points, as fractions; they are read during the call.
    virtual Status MEMstrategyDefn(qint32& strategyId, const QString& name, qint16 count,
                                   const float* points) = 0;
    virtual Status MEMpromptDefn(const QString& key, const QString& prompt) = 0;
    virtual Status MEMstartTask(const QString& tag) = 0;
    virtual Status MEMprompt(const QString& key) = 0;
    /// `readByHand`: 1 when the user reads the output, 0 when the calibrator measures it.
    virtual Status MEMtemplate(qint32 strategyId, qint16 readByHand, const QString& tag,
                               const QString& serial, qint32 stateId) = 0;
    virtual Status MEMendTask() = 0;

    // The setup state of a task.
    virtual Status STAinit() = 0;
    virtual Status STAsetTempUnits(const QString& units) = 0;
    virtual Status STAsetTref(const QString& mode, float temperature) = 0;
    virtual Status STAsetTempStd(const QString& standard) = 0;
    virtual Status STAsetPresUnits(const QString& units) = 0;
    virtual Status STAsetOutput(const QString& mode, const QString& sensor, float value, float amplitude) = 0;
    virtual Status STAsetInput(const QString& mode, const QString& sensor) = 0;
    virtual Status STAsetInputRange(qint16 automatic, float top) = 0;
    virtual Status STAsetLoopPower(const QString& power) = 0;
    /// High before low.
    virtual Status STAsetOutputScale(float high, float low) = 0;
    virtual Status STAsetInputScale(float high, float low) = 0;
    /// In percent of span.
    virtual Status STAsetTestTolerance(float percent) = 0;
    virtual Status STAsave(qint32& stateId) = 0;

    // Reading the image.
    virtual Status MEMstats(qint32& unused, qint32& count) = 0;
    virtual Status MEMrDir(qint32 record, qint16& kind, qint16& month, qint16& day, qint16& year,
                           qint16& hour, qint16& minute, qint16& second) = 0;
    virtual Status MEMasflInfo(qint32 record, qint32& unused1, Open& unused2, Open& unused3) = 0;
    /// Makes the setup state of that record the current one.
    virtual Status MEMbaseState(qint32 record) = 0;
    /// Texts of 33.
    virtual Status MEMtagidInfo(qint32 record, QString& tag, QString& serial, QString& technician) = 0;
    virtual Status MEMcalResult(qint32 record, qint16& entries) = 0;
    /// `reading` and `applied` in the calibrator's base units, `error` as a fraction of span.
    virtual Status MEMcalResultEntry(qint32 record, qint16 entry, float& reading, qint16& unused2,
                                     float& unused3, float& applied, qint16& unused5, float& unused6,
                                     float& error) = 0;
    /// The pressure module of the current state: texts of 16 (its model) and 10 (its serial number).
    virtual Status STAgetPressure(QString& model, QString& serial, Open& unused) = 0;
};

} // namespace kelvane
