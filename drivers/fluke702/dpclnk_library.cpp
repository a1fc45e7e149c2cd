#include "drivers/fluke702/dpclnk_library.h"

#include "drivers/link_library.h"

using namespace Qt::StringLiterals;

namespace kelvane {

/// The operations by their names, with what the library takes and fills.
struct DpclnkLibrary::Operations {
    using In = const char*;
    using Out = char*;

    explicit Operations(const QString& folder) : library(u"dpclnk"_s, folder) {}

    LinkLibrary library;

    LinkOperation<qint32, In, qint32, quint8> DPCopen{library, "DPCopen"};
    LinkOperation<> DPCclose{library, "DPCclose"};
    LinkOperation<Out, Out, Out, qint32*, qint32*, qint32*> DPCget70x{library, "DPCget70x"};
    LinkOperation<qint32*> DPCdnlStart{library, "DPCdnlStart"};
    LinkOperation<qint32*> DPCdnlStep{library, "DPCdnlStep"};
    LinkOperation<qint32*> DPCuplStart{library, "DPCuplStart"};
    LinkOperation<qint32*> DPCuplStep{library, "DPCuplStep"};

    LinkOperation<> MEMclear{library, "MEMclear"};
    LinkOperation<qint32*, In, qint16, const float*> MEMstrategyDefn{library, "MEMstrategyDefn"};
    LinkOperation<In, In> MEMpromptDefn{library, "MEMpromptDefn"};
    LinkOperation<In> MEMstartTask{library, "MEMstartTask"};
    LinkOperation<In> MEMprompt{library, "MEMprompt"};
    LinkOperation<qint32, qint16, In, In, qint32> MEMtemplate{library, "MEMtemplate"};
    LinkOperation<> MEMendTask{library, "MEMendTask"};

    LinkOperation<> STAinit{library, "STAinit"};
    LinkOperation<In> STAsetTempUnits{library, "STAsetTempUnits"};
    LinkOperation<In, float> STAsetTref{library, "STAsetTref"};
    LinkOperation<In> STAsetTempStd{library, "STAsetTempStd"};
    LinkOperation<In> STAsetPresUnits{library, "STAsetPresUnits"};
    LinkOperation<In, In, float, float> STAsetOutput{library, "STAsetOutput"};
    LinkOperation<In, In> STAsetInput{library, "STAsetInput"};
    LinkOperation<qint16, float> STAsetInputRange{library, "STAsetInputRange"};
    LinkOperation<In> STAsetLoopPower{library, "STAsetLoopPower"};
    LinkOperation<float, float> STAsetOutputScale{library, "STAsetOutputScale"};
    LinkOperation<float, float> STAsetInputScale{library, "STAsetInputScale"};
    LinkOperation<float> STAsetTestTolerance{library, "STAsetTestTolerance"};
    LinkOperation<qint32*> STAsave{library, "STAsave"};

    LinkOperation<qint32*, qint32*> MEMstats{library, "MEMstats"};
    LinkOperation<qint32, qint16*, qint16*, qint16*, qint16*, qint16*, qint16*, qint16*> MEMrDir{library,
                                                                                                 "MEMrDir"};
    LinkOperation<qint32, qint32*, Open*, Open*> MEMasflInfo{library, "MEMasflInfo"};
    LinkOperation<qint32> MEMbaseState{library, "MEMbaseState"};
    LinkOperation<qint32, Out, Out, Out> MEMtagidInfo{library, "MEMtagidInfo"};
    LinkOperation<qint32, qint16*> MEMcalResult{library, "MEMcalResult"};
    LinkOperation<qint32, qint16, float*, qint16*, float*, float*, qint16*, float*, float*> MEMcalResultEntry{
        library, "MEMcalResultEntry"};
    LinkOperation<Out, Out, Open*> STAgetPressure{library, "STAgetPressure"};
};

DpclnkLibrary::DpclnkLibrary(const QString& folder) : library_(std::make_unique<Operations>(folder)) {}

DpclnkLibrary::~DpclnkLibrary() = default;

QString DpclnkLibrary::missing() {
    return library_->library.missing();
}

QString DpclnkLibrary::file() const {
    return library_->library.file();
}

Dpclnk::Status DpclnkLibrary::DPCopen(qint32 baudRate, const QString& port, qint32 constant1000,
                                      quint8 constant5) {
    return library_->DPCopen(baudRate, TextIn(port), constant1000, constant5);
}

Dpclnk::Status DpclnkLibrary::DPCclose() {
    return library_->DPCclose();
}

Dpclnk::Status DpclnkLibrary::DPCget70x(QString& model, QString& serial, QString& text, qint32& number,
                                        qint32& unused1, qint32& unused2) {
    return library_->DPCget70x(TextOut(model), TextOut(serial), TextOut(text), &number, &unused1, &unused2);
}

Dpclnk::Status DpclnkLibrary::DPCdnlStart(qint32& count) {
    return library_->DPCdnlStart(&count);
}

Dpclnk::Status DpclnkLibrary::DPCdnlStep(qint32& count) {
    return library_->DPCdnlStep(&count);
}

Dpclnk::Status DpclnkLibrary::DPCuplStart(qint32& count) {
    return library_->DPCuplStart(&count);
}

Dpclnk::Status DpclnkLibrary::DPCuplStep(qint32& count) {
    return library_->DPCuplStep(&count);
}

Dpclnk::Status DpclnkLibrary::MEMclear() {
    return library_->MEMclear();
}

Dpclnk::Status DpclnkLibrary::MEMstrategyDefn(qint32& strategyId, const QString& name, qint16 count,
                                              const float* points) {
    return library_->MEMstrategyDefn(&strategyId, TextIn(name), count, points);
}

Dpclnk::Status DpclnkLibrary::MEMpromptDefn(const QString& key, const QString& prompt) {
    return library_->MEMpromptDefn(TextIn(key), TextIn(prompt));
}

Dpclnk::Status DpclnkLibrary::MEMstartTask(const QString& tag) {
    return library_->MEMstartTask(TextIn(tag));
}

Dpclnk::Status DpclnkLibrary::MEMprompt(const QString& key) {
    return library_->MEMprompt(TextIn(key));
}

Dpclnk::Status DpclnkLibrary::MEMtemplate(qint32 strategyId, qint16 readByHand, const QString& tag,
                                          const QString& serial, qint32 stateId) {
    return library_->MEMtemplate(strategyId, readByHand, TextIn(tag), TextIn(serial), stateId);
}

Dpclnk::Status DpclnkLibrary::MEMendTask() {
    return library_->MEMendTask();
}

Dpclnk::Status DpclnkLibrary::STAinit() {
    return library_->STAinit();
}

Dpclnk::Status DpclnkLibrary::STAsetTempUnits(const QString& units) {
    return library_->STAsetTempUnits(TextIn(units));
}

Dpclnk::Status DpclnkLibrary::STAsetTref(const QString& mode, float temperature) {
    return library_->STAsetTref(TextIn(mode), temperature);
}

Dpclnk::Status DpclnkLibrary::STAsetTempStd(const QString& standard) {
    return library_->STAsetTempStd(TextIn(standard));
}

Dpclnk::Status DpclnkLibrary::STAsetPresUnits(const QString& units) {
    return library_->STAsetPresUnits(TextIn(units));
}

Dpclnk::Status DpclnkLibrary::STAsetOutput(const QString& mode, const QString& sensor, float value,
                                           float amplitude) {
    return library_->STAsetOutput(TextIn(mode), TextIn(sensor), value, amplitude);
}

Dpclnk::Status DpclnkLibrary::STAsetInput(const QString& mode, const QString& sensor) {
    return library_->STAsetInput(TextIn(mode), TextIn(sensor));
}

Dpclnk::Status DpclnkLibrary::STAsetInputRange(qint16 automatic, float top) {
    return library_->STAsetInputRange(automatic, top);
}

Dpclnk::Status DpclnkLibrary::STAsetLoopPower(const QString& power) {
    return library_->STAsetLoopPower(TextIn(power));
}

Dpclnk::Status DpclnkLibrary::STAsetOutputScale(float high, float low) {
    return library_->STAsetOutputScale(high, low);
}

Dpclnk::Status DpclnkLibrary::STAsetInputScale(float high, float low) {
    return library_->STAsetInputScale(high, low);
}

Dpclnk::Status DpclnkLibrary::STAsetTestTolerance(float percent) {
    return library_->STAsetTestTolerance(percent);
}

Dpclnk::Status DpclnkLibrary::STAsave(qint32& stateId) {
    return library_->STAsave(&stateId);
}

Dpclnk::Status DpclnkLibrary::MEMstats(qint32& unused, qint32& count) {
    return library_->MEMstats(&unused, &count);
}

Dpclnk::Status DpclnkLibrary::MEMrDir(qint32 record, qint16& kind, qint16& month, qint16& day, qint16& year,
                                      qint16& hour, qint16& minute, qint16& second) {
    return library_->MEMrDir(record, &kind, &month, &day, &year, &hour, &minute, &second);
}

Dpclnk::Status DpclnkLibrary::MEMasflInfo(qint32 record, qint32& unused1, Open& unused2, Open& unused3) {
    return library_->MEMasflInfo(record, &unused1, &unused2, &unused3);
}

Dpclnk::Status DpclnkLibrary::MEMbaseState(qint32 record) {
    return library_->MEMbaseState(record);
}

Dpclnk::Status DpclnkLibrary::MEMtagidInfo(qint32 record, QString& tag, QString& serial,
                                           QString& technician) {
    return library_->MEMtagidInfo(record, TextOut(tag), TextOut(serial), TextOut(technician));
}

Dpclnk::Status DpclnkLibrary::MEMcalResult(qint32 record, qint16& entries) {
    return library_->MEMcalResult(record, &entries);
}

Dpclnk::Status DpclnkLibrary::MEMcalResultEntry(qint32 record, qint16 entry, float& reading, qint16& unused2,
                                                float& unused3, float& applied, qint16& unused5,
                                                float& unused6, float& error) {
    return library_->MEMcalResultEntry(record, entry, &reading, &unused2, &unused3, &applied, &unused5,
                                       &unused6, &error);
}

Dpclnk::Status DpclnkLibrary::STAgetPressure(QString& model, QString& serial, Open& unused) {
    return library_->STAgetPressure(TextOut(model), TextOut(serial), &unused);
}

} // namespace kelvane
