#include "drivers/fluke702/logged_dpclnk.h"

#include "drivers/fluke702/link.h"
#include "drivers/logged_calls.h"

namespace kelvane {

namespace {

class LoggedDpclnk final : public Dpclnk {
  public:
    LoggedDpclnk(Dpclnk& real, const LinkLog& log)
        : log_(log), call_(real, log.log, Module702Interface::statusName) {}

    QString missing() override {
        const auto missing = call_.link().missing();
        return log_.begin(missing, file());
    }
    QString file() const override { return call_.link().file(); }

    Status DPCopen(qint32 baudRate, const QString& port, qint32 constant1000, quint8 constant5) override;
    Status DPCclose() override { return call_("DPCclose", &Dpclnk::DPCclose); }
    Status DPCget70x(QString& model, QString& serial, QString& text, qint32& number, qint32& unused1,
                     qint32& unused2) override {
        return call_("DPCget70x", &Dpclnk::DPCget70x, model, serial, text, number, unused1, unused2);
    }
    Status DPCdnlStart(qint32& count) override { return call_("DPCdnlStart", &Dpclnk::DPCdnlStart, count); }
    Status DPCdnlStep(qint32& count) override { return call_("DPCdnlStep", &Dpclnk::DPCdnlStep, count); }
    Status DPCuplStart(qint32& count) override { return call_("DPCuplStart", &Dpclnk::DPCuplStart, count); }
    Status DPCuplStep(qint32& count) override { return call_("DPCuplStep", &Dpclnk::DPCuplStep, count); }
    Status MEMclear() override { return call_("MEMclear", &Dpclnk::MEMclear); }
    Status MEMstrategyDefn(qint32& strategyId, const QString& name, qint16 count,
                           const float* points) override {
        return call_("MEMstrategyDefn", &Dpclnk::MEMstrategyDefn, strategyId, name, count, points);
    }
    Status MEMpromptDefn(const QString& key, const QString& prompt) override {
        return call_("MEMpromptDefn", &Dpclnk::MEMpromptDefn, key, prompt);
    }
    Status MEMstartTask(const QString& tag) override {
        return call_("MEMstartTask", &Dpclnk::MEMstartTask, tag);
    }
    Status MEMprompt(const QString& key) override { return call_("MEMprompt", &Dpclnk::MEMprompt, key); }
    Status MEMtemplate(qint32 strategyId, qint16 readByHand, const QString& tag, const QString& serial,
                       qint32 stateId) override {
        return call_("MEMtemplate", &Dpclnk::MEMtemplate, strategyId, readByHand, tag, serial, stateId);
    }
    Status MEMendTask() override { return call_("MEMendTask", &Dpclnk::MEMendTask); }
    Status STAinit() override { return call_("STAinit", &Dpclnk::STAinit); }
    Status STAsetTempUnits(const QString& units) override {
        return call_("STAsetTempUnits", &Dpclnk::STAsetTempUnits, units);
    }
    Status STAsetTref(const QString& mode, float temperature) override {
        return call_("STAsetTref", &Dpclnk::STAsetTref, mode, temperature);
    }
    Status STAsetTempStd(const QString& standard) override {
        return call_("STAsetTempStd", &Dpclnk::STAsetTempStd, standard);
    }
    Status STAsetPresUnits(const QString& units) override {
        return call_("STAsetPresUnits", &Dpclnk::STAsetPresUnits, units);
    }
    Status STAsetOutput(const QString& mode, const QString& sensor, float value, float amplitude) override {
        return call_("STAsetOutput", &Dpclnk::STAsetOutput, mode, sensor, value, amplitude);
    }
    Status STAsetInput(const QString& mode, const QString& sensor) override {
        return call_("STAsetInput", &Dpclnk::STAsetInput, mode, sensor);
    }
    Status STAsetInputRange(qint16 automatic, float top) override {
        return call_("STAsetInputRange", &Dpclnk::STAsetInputRange, automatic, top);
    }
    Status STAsetLoopPower(const QString& power) override {
        return call_("STAsetLoopPower", &Dpclnk::STAsetLoopPower, power);
    }
    Status STAsetOutputScale(float high, float low) override {
        return call_("STAsetOutputScale", &Dpclnk::STAsetOutputScale, high, low);
    }
    Status STAsetInputScale(float high, float low) override {
        return call_("STAsetInputScale", &Dpclnk::STAsetInputScale, high, low);
    }
    Status STAsetTestTolerance(float percent) override {
        return call_("STAsetTestTolerance", &Dpclnk::STAsetTestTolerance, percent);
    }
    Status STAsave(qint32& stateId) override { return call_("STAsave", &Dpclnk::STAsave, stateId); }
    Status MEMstats(qint32& unused, qint32& count) override {
        return call_("MEMstats", &Dpclnk::MEMstats, unused, count);
    }
    Status MEMrDir(qint32 record, qint16& kind, qint16& month, qint16& day, qint16& year, qint16& hour,
                   qint16& minute, qint16& second) override {
        return call_("MEMrDir", &Dpclnk::MEMrDir, record, kind, month, day, year, hour, minute, second);
    }
    Status MEMasflInfo(qint32 record, qint32& unused1, Open& unused2, Open& unused3) override {
        return call_("MEMasflInfo", &Dpclnk::MEMasflInfo, record, unused1, unused2, unused3);
    }
    Status MEMbaseState(qint32 record) override {
        return call_("MEMbaseState", &Dpclnk::MEMbaseState, record);
    }
    Status MEMtagidInfo(qint32 record, QString& tag, QString& serial, QString& technician) override {
        return call_("MEMtagidInfo", &Dpclnk::MEMtagidInfo, record, tag, serial, technician);
    }
    Status MEMcalResult(qint32 record, qint16& entries) override {
        return call_("MEMcalResult", &Dpclnk::MEMcalResult, record, entries);
    }
    Status MEMcalResultEntry(qint32 record, qint16 entry, float& reading, qint16& unused2, float& unused3,
                             float& applied, qint16& unused5, float& unused6, float& error) override {
        return call_("MEMcalResultEntry", &Dpclnk::MEMcalResultEntry, record, entry, reading, unused2,
                     unused3, applied, unused5, unused6, error);
    }
    Status STAgetPressure(QString& model, QString& serial, Open& unused) override {
        return call_("STAgetPressure", &Dpclnk::STAgetPressure, model, serial, unused);
    }

  private:
    LinkLog log_;
    LoggedCalls<Dpclnk> call_;
};

Dpclnk::Status LoggedDpclnk::DPCopen(qint32 baudRate, const QString& port, qint32 constant1000,
                                     quint8 constant5) {
    const auto status = call_("DPCopen", &Dpclnk::DPCopen, baudRate, port, constant1000, constant5);
    log_.setOpening(port, status, Module702Interface::statusWords(status));
    return status;
}

} // namespace

std::unique_ptr<Dpclnk> loggedDpclnk(Dpclnk& real, const LinkLog& log) {
    return std::make_unique<LoggedDpclnk>(real, log);
}

} // namespace kelvane
