#pragma once

#include "drivers/fluke702/dpclnk.h"

#include <QCoreApplication>

#include <memory>

namespace kelvane {

/// The real link library, `dpclnk.dll` or `libdpclnk.so`, loaded when `missing` is asked: first from
/// `folder`, which is the program's own, then from where the system looks for libraries, then the simulated
/// one that is installed. Its operations are plain C functions with the names, the order of arguments and the
/// widths of `Dpclnk`; out arguments are pointers, texts end with a zero. Error 53 for an operation that is
/// called without a library.
class DpclnkLibrary : public Dpclnk {
  public:
    explicit DpclnkLibrary(const QString& folder = QCoreApplication::applicationDirPath());
    ~DpclnkLibrary() override;

    QString missing() override;
    QString file() const override;

    Status DPCopen(qint32 baudRate, const QString& port, qint32 constant1000, quint8 constant5) override;
    Status DPCclose() override;
    Status DPCget70x(QString& model, QString& serial, QString& text, qint32& number, qint32& unused1,
                     qint32& unused2) override;
    Status DPCdnlStart(qint32& count) override;
    Status DPCdnlStep(qint32& count) override;
    Status DPCuplStart(qint32& count) override;
    Status DPCuplStep(qint32& count) override;

    Status MEMclear() override;
    Status MEMstrategyDefn(qint32& strategyId, const QString& name, qint16 count,
                           const float* points) override;
    Status MEMpromptDefn(const QString& key, const QString& prompt) override;
    Status MEMstartTask(const QString& tag) override;
    Status MEMprompt(const QString& key) override;
    Status MEMtemplate(qint32 strategyId, qint16 readByHand, const QString& tag, const QString& serial,
                       qint32 stateId) override;
    Status MEMendTask() override;

    Status STAinit() override;
    Status STAsetTempUnits(const QString& units) override;
    Status STAsetTref(const QString& mode, float temperature) override;
    Status STAsetTempStd(const QString& standard) override;
    Status STAsetPresUnits(const QString& units) override;
    Status STAsetOutput(const QString& mode, const QString& sensor, float value, float amplitude) override;
    Status STAsetInput(const QString& mode, const QString& sensor) override;
    Status STAsetInputRange(qint16 automatic, float top) override;
    Status STAsetLoopPower(const QString& power) override;
    Status STAsetOutputScale(float high, float low) override;
    Status STAsetInputScale(float high, float low) override;
    Status STAsetTestTolerance(float percent) override;
    Status STAsave(qint32& stateId) override;

    Status MEMstats(qint32& unused, qint32& count) override;
    Status MEMrDir(qint32 record, qint16& kind, qint16& month, qint16& day, qint16& year, qint16& hour,
                   qint16& minute, qint16& second) override;
    Status MEMasflInfo(qint32 record, qint32& unused1, Open& unused2, Open& unused3) override;
    Status MEMbaseState(qint32 record) override;
    Status MEMtagidInfo(qint32 record, QString& tag, QString& serial, QString& technician) override;
    Status MEMcalResult(qint32 record, qint16& entries) override;
    Status MEMcalResultEntry(qint32 record, qint16 entry, float& reading, qint16& unused2, float& unused3,
                             float& applied, qint16& unused5, float& unused6, float& error) override;
    Status STAgetPressure(QString& model, QString& serial, Open& unused) override;

  private:
    struct Operations;
    std::unique_ptr<Operations> library_;
};

} // namespace kelvane
