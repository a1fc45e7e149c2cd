#include "drivers/fluke74x/dpclnk3_library.h"

#include "drivers/link_library.h"

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// What the library may write of a text.
qint32 lengthOf(const QString& buffer) {
    return static_cast<qint32>(buffer.size());
}

} // namespace

/// The operations by their names, with what the library takes and fills.
struct Dpclnk3Library::Operations {
    using In = const char*;
    using Out = char*;

    explicit Operations(const QString& folder) : library(u"dpclnk3"_s, folder) {}

    LinkLibrary library;

    LinkOperation<qint32, In, qint32, qint32> DPC3open{library, "DPC3open"};
    LinkOperation<> DPC3close{library, "DPC3close"};
    LinkOperation<Out, qint32, Out, qint32, Out, qint32, qint32*, qint32*, qint32*> DPC3get74X{library,
                                                                                               "DPC3get74X"};
    LinkOperation<qint32*> DPC3mapStart{library, "DPC3mapStart"};
    LinkOperation<qint32*> DPC3mapStep{library, "DPC3mapStep"};
    LinkOperation<qint32*> DPC3dnlStart{library, "DPC3dnlStart"};
    LinkOperation<qint32*, qint32*, qint32*, qint32*> DPC3dnlStep{library, "DPC3dnlStep"};
    LinkOperation<qint32*> DPC3uplStart{library, "DPC3uplStart"};
    LinkOperation<qint32*> DPC3uplStep{library, "DPC3uplStep"};

    LinkOperation<> MEM3clear{library, "MEM3clear"};
    LinkOperation<qint32*, qint32*, In, In> MEM3startTask{library, "MEM3startTask"};
    LinkOperation<qint32*, qint32*, qint32*, In, In, In, In> MEM3promptDefn{library, "MEM3promptDefn"};
    LinkOperation<qint32, qint32, qint32*, qint32, qint32, qint32> MEM3promptTemplate{library,
                                                                                      "MEM3promptTemplate"};
    LinkOperation<qint32, In, qint32*, qint32*> MEM3findStrategyDefn{library, "MEM3findStrategyDefn"};
    LinkOperation<qint32, qint32*, qint32*, In, const float*, qint16> MEM3strategyDefn{library,
                                                                                       "MEM3strategyDefn"};
    LinkOperation<qint32, qint32, qint32*, qint32, qint32, qint32, qint32, qint32, qint32, qint16, qint16,
                  qint32, In, In>
        MEM3instrCalTemplate{library, "MEM3instrCalTemplate"};
    LinkOperation<> MEM3endTask{library, "MEM3endTask"};

    LinkOperation<> STA3beginOps{library, "STA3beginOps"};
    LinkOperation<> STA3initOp{library, "STA3initOp"};
    LinkOperation<In, In, In> STA3setMappedOp{library, "STA3setMappedOp"};
    LinkOperation<In, In, In> STA3setUnitOp{library, "STA3setUnitOp"};
    LinkOperation<In, In, float> STA3setFloatOp{library, "STA3setFloatOp"};
    LinkOperation<In, In, qint32> STA3setIntOp{library, "STA3setIntOp"};
    LinkOperation<> STA3evalOp{library, "STA3evalOp"};
    LinkOperation<qint32*, qint32*, qint32*> STA3saveOps{library, "STA3saveOps"};
    LinkOperation<> STA3freeOps{library, "STA3freeOps"};

    LinkOperation<qint32, qint32*> MEM3ngroups{library, "MEM3ngroups"};
    LinkOperation<qint32, qint32, qint32*> MEM3natoms{library, "MEM3natoms"};
    LinkOperation<qint32, qint32, qint32*> MEM3groupDir{library, "MEM3groupDir"};
    LinkOperation<qint32, qint32, qint32, qint16*, qint32*> MEM3atomDir{library, "MEM3atomDir"};
    LinkOperation<qint32, qint32, qint32, qint32*, qint32*> MEM3taskResultRefInfo{library,
                                                                                  "MEM3taskResultRefInfo"};
    LinkOperation<qint32, qint32, qint32, Out, Out, Out> MEM3instrTagInfo{library, "MEM3instrTagInfo"};
    LinkOperation<qint32, qint32, qint32, qint16*, qint16*, qint16*, qint16*, qint16*, qint16*, qint16*>
        MEM3instrCalResultInfo{library, "MEM3instrCalResultInfo"};
    LinkOperation<qint32, qint32, qint32, qint16, qint32*, qint32*, qint32*> MEM3instrCalResultStepInfo{
        library, "MEM3instrCalResultStepInfo"};
    LinkOperation<qint32, qint32, qint32> STA3restore{library, "STA3restore"};

    LinkOperation<In, qint32*> STA3getBktListInfo{library, "STA3getBktListInfo"};
    LinkOperation<In, qint16, Out, qint32> STA3getBktName{library, "STA3getBktName"};
    LinkOperation<In, In, qint16*> STA3getType{library, "STA3getType"};
    LinkOperation<In, In, float*> STA3getFloat{library, "STA3getFloat"};
    LinkOperation<In, In, Out, qint32> STA3getStr{library, "STA3getStr"};
    LinkOperation<In, In, float*, float*> STA3getRange{library, "STA3getRange"};
    LinkOperation<In, In, Out, qint32> STA3getUnit{library, "STA3getUnit"};
    LinkOperation<In, In, qint32*> STA3getInt{library, "STA3getInt"};
    LinkOperation<In, In, qint32*> STA3getTime{library, "STA3getTime"};
    LinkOperation<In, In, Out, qint32> STA3getMapped{library, "STA3getMapped"};
};

Dpclnk3Library::Dpclnk3Library(const QString& folder) : library_(std::make_unique<Operations>(folder)) {}

Dpclnk3Library::~Dpclnk3Library() = default;

QString Dpclnk3Library::missing() {
    return library_->library.missing();
}

QString Dpclnk3Library::file() const {
    return library_->library.file();
}

Dpclnk3::Status Dpclnk3Library::DPC3open(qint32 baudRate, const QString& port, qint32 constant1000,
                                         qint32 constant5) {
    return library_->DPC3open(baudRate, TextIn(port), constant1000, constant5);
}

Dpclnk3::Status Dpclnk3Library::DPC3close() {
    return library_->DPC3close();
}

Dpclnk3::Status Dpclnk3Library::DPC3get74X(QString& model, QString& serial, QString& text, qint32& number,
                                           qint32& unused1, qint32& unused2) {
    return library_->DPC3get74X(TextOut(model), lengthOf(model), TextOut(serial), lengthOf(serial),
                                TextOut(text), lengthOf(text), &number, &unused1, &unused2);
}

Dpclnk3::Status Dpclnk3Library::DPC3mapStart(qint32& count) {
    return library_->DPC3mapStart(&count);
}

Dpclnk3::Status Dpclnk3Library::DPC3mapStep(qint32& count) {
    return library_->DPC3mapStep(&count);
}

Dpclnk3::Status Dpclnk3Library::DPC3dnlStart(qint32& count) {
    return library_->DPC3dnlStart(&count);
}

Dpclnk3::Status Dpclnk3Library::DPC3dnlStep(qint32& count, qint32& kept1, qint32& kept2, qint32& kept3) {
    return library_->DPC3dnlStep(&count, &kept1, &kept2, &kept3);
}

Dpclnk3::Status Dpclnk3Library::DPC3uplStart(qint32& count) {
    return library_->DPC3uplStart(&count);
}

Dpclnk3::Status Dpclnk3Library::DPC3uplStep(qint32& count) {
    return library_->DPC3uplStep(&count);
}

Dpclnk3::Status Dpclnk3Library::MEM3clear() {
    return library_->MEM3clear();
}

Dpclnk3::Status Dpclnk3Library::MEM3startTask(qint32& task, qint32& atom, const QString& tag,
                                              const QString& text) {
    return library_->MEM3startTask(&task, &atom, TextIn(tag), TextIn(text));
}

Dpclnk3::Status Dpclnk3Library::MEM3promptDefn(PromptNumbers& numbers, const QString& key,
                                               const QString& prompt, const QString& style,
                                               const QString& font) {
    return library_->MEM3promptDefn(&numbers.first, &numbers.second, &numbers.third, TextIn(key),
                                    TextIn(prompt), TextIn(style), TextIn(font));
}

Dpclnk3::Status Dpclnk3Library::MEM3promptTemplate(qint32 task, qint32 atom, qint32& place,
                                                   const PromptNumbers& numbers) {
    return library_->MEM3promptTemplate(task, atom, &place, numbers.first, numbers.second, numbers.third);
}

Dpclnk3::Status Dpclnk3Library::MEM3findStrategyDefn(qint32 constant1, const QString& name, qint32& strategy,
                                                     qint32& strategyId) {
    return library_->MEM3findStrategyDefn(constant1, TextIn(name), &strategy, &strategyId);
}

Dpclnk3::Status Dpclnk3Library::MEM3strategyDefn(qint32 task, qint32& atom, qint32& strategyId,
                                                 const QString& name, const float* points, qint16 count) {
    return library_->MEM3strategyDefn(task, &atom, &strategyId, TextIn(name), points, count);
}

Dpclnk3::Status Dpclnk3Library::MEM3instrCalTemplate(qint32 task, qint32 atom, qint32& place, qint32 strategy,
                                                     qint32 strategyAtom, qint32 strategyId,
                                                     const State& state, qint16 measureByHand,
                                                     qint16 sourceByHand, qint32 constant2,
                                                     const QString& tag, const QString& serial) {
    return library_->MEM3instrCalTemplate(task, atom, &place, strategy, strategyAtom, strategyId, state.first,
                                          state.second, state.third, measureByHand, sourceByHand, constant2,
                                          TextIn(tag), TextIn(serial));
}

Dpclnk3::Status Dpclnk3Library::MEM3endTask() {
    return library_->MEM3endTask();
}

Dpclnk3::Status Dpclnk3Library::STA3beginOps() {
    return library_->STA3beginOps();
}

Dpclnk3::Status Dpclnk3Library::STA3initOp() {
    return library_->STA3initOp();
}

Dpclnk3::Status Dpclnk3Library::STA3setMappedOp(const QString& root, const QString& item,
                                                const QString& word) {
    return library_->STA3setMappedOp(TextIn(root), TextIn(item), TextIn(word));
}

Dpclnk3::Status Dpclnk3Library::STA3setUnitOp(const QString& root, const QString& item, const QString& unit) {
    return library_->STA3setUnitOp(TextIn(root), TextIn(item), TextIn(unit));
}

Dpclnk3::Status Dpclnk3Library::STA3setFloatOp(const QString& root, const QString& item, float value) {
    return library_->STA3setFloatOp(TextIn(root), TextIn(item), value);
}

Dpclnk3::Status Dpclnk3Library::STA3setIntOp(const QString& root, const QString& item, qint32 value) {
    return library_->STA3setIntOp(TextIn(root), TextIn(item), value);
}

Dpclnk3::Status Dpclnk3Library::STA3evalOp() {
    return library_->STA3evalOp();
}

Dpclnk3::Status Dpclnk3Library::STA3saveOps(State& state) {
    return library_->STA3saveOps(&state.first, &state.second, &state.third);
}

Dpclnk3::Status Dpclnk3Library::STA3freeOps() {
    return library_->STA3freeOps();
}

Dpclnk3::Status Dpclnk3Library::MEM3ngroups(qint32 list, qint32& groups) {
    return library_->MEM3ngroups(list, &groups);
}

Dpclnk3::Status Dpclnk3Library::MEM3natoms(qint32 list, qint32 group, qint32& atoms) {
    return library_->MEM3natoms(list, group, &atoms);
}

Dpclnk3::Status Dpclnk3Library::MEM3groupDir(qint32 list, qint32 group, qint32& reference) {
    return library_->MEM3groupDir(list, group, &reference);
}

Dpclnk3::Status Dpclnk3Library::MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16& kind,
                                            qint32& reference) {
    return library_->MEM3atomDir(list, group, atom, &kind, &reference);
}

Dpclnk3::Status Dpclnk3Library::MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32& results,
                                                      qint32& task) {
    return library_->MEM3taskResultRefInfo(list, group, atom, &results, &task);
}

Dpclnk3::Status Dpclnk3Library::MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, QString& tag,
                                                 QString& serial, QString& technician) {
    return library_->MEM3instrTagInfo(list, group, atom, TextOut(tag), TextOut(serial), TextOut(technician));
}

Dpclnk3::Status Dpclnk3Library::MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom, qint16& steps,
                                                       RunTime& time) {
    return library_->MEM3instrCalResultInfo(list, group, atom, &steps, &time.month, &time.day, &time.year,
                                            &time.hour, &time.minute, &time.second);
}

Dpclnk3::Status Dpclnk3Library::MEM3instrCalResultStepInfo(qint32 list, qint32 group, qint32 atom,
                                                           qint16 step, State& state) {
    return library_->MEM3instrCalResultStepInfo(list, group, atom, step, &state.first, &state.second,
                                                &state.third);
}

Dpclnk3::Status Dpclnk3Library::STA3restore(const State& state) {
    return library_->STA3restore(state.first, state.second, state.third);
}

Dpclnk3::Status Dpclnk3Library::STA3getBktListInfo(const QString& root, qint32& buckets) {
    return library_->STA3getBktListInfo(TextIn(root), &buckets);
}

Dpclnk3::Status Dpclnk3Library::STA3getBktName(const QString& root, qint16 bucket, QString& name) {
    return library_->STA3getBktName(TextIn(root), bucket, TextOut(name), lengthOf(name));
}

Dpclnk3::Status Dpclnk3Library::STA3getType(const QString& root, const QString& bucket, qint16& type) {
    return library_->STA3getType(TextIn(root), TextIn(bucket), &type);
}

Dpclnk3::Status Dpclnk3Library::STA3getFloat(const QString& root, const QString& bucket, float& value) {
    return library_->STA3getFloat(TextIn(root), TextIn(bucket), &value);
}

Dpclnk3::Status Dpclnk3Library::STA3getStr(const QString& root, const QString& bucket, QString& value) {
    return library_->STA3getStr(TextIn(root), TextIn(bucket), TextOut(value), lengthOf(value));
}

Dpclnk3::Status Dpclnk3Library::STA3getRange(const QString& root, const QString& bucket, float& low,
                                             float& high) {
    return library_->STA3getRange(TextIn(root), TextIn(bucket), &low, &high);
}

Dpclnk3::Status Dpclnk3Library::STA3getUnit(const QString& root, const QString& bucket, QString& unit) {
    return library_->STA3getUnit(TextIn(root), TextIn(bucket), TextOut(unit), lengthOf(unit));
}

Dpclnk3::Status Dpclnk3Library::STA3getInt(const QString& root, const QString& bucket, qint32& value) {
    return library_->STA3getInt(TextIn(root), TextIn(bucket), &value);
}

Dpclnk3::Status Dpclnk3Library::STA3getTime(const QString& root, const QString& bucket, qint32& value) {
    return library_->STA3getTime(TextIn(root), TextIn(bucket), &value);
}

Dpclnk3::Status Dpclnk3Library::STA3getMapped(const QString& root, const QString& bucket, QString& word) {
    return library_->STA3getMapped(TextIn(root), TextIn(bucket), TextOut(word), lengthOf(word));
}

} // namespace kelvane
