#pragma once

#include <QString>

namespace kelvane {

/// The link library `dpclnk3` of the Fluke 743 and 744: it keeps an image of the calibrator's memory inside
/// this process and moves it over the serial line. Only what the program calls stands here.
///
/// Every operation gives a status: 0 done, 100 to 1999 a warning, from 2000 on an error. Until the maps have
/// come over the line, every operation on a setup state gives 2013.
///
/// Texts go in as they are and reach the library in the calibrator's alphabet. A text that comes out is
/// passed in filled with blanks, as many as the library may write, and comes back as the whole buffer, the
/// library's terminating zero and what stands behind it included: `CleanDLLString` makes a text of it.
///
/// Out values are left as they are by a library that does not write them.
///
/// The library's own description leaves a few arguments open; their widths and order are settled here. A
/// reference is a number by which the library finds an object of the image; the program only passes it on.
class Dpclnk3 {
  public:
    using Status = qint16;

    /// A saved setup state: the three references that saving it gives and that restoring it takes.
    struct State {
        qint32 first = 0;
        qint32 second = 0;
        qint32 third = 0;
    };
    /// The three numbers of a defined message, by which a task refers to it.
    using PromptNumbers = State;
    /// When a run was stored, in the order in which the library fills it.
    struct RunTime {
        qint16 month = 0;
        qint16 day = 0;
        qint16 year = 0;
        qint16 hour = 0;
        qint16 minute = 0;
        qint16 second = 0;
    };

    virtual ~Dpclnk3() = default;

    /// Empty when the library is there with all its operations, otherwise what is missing, for the operator.
    /// Call this before anything else: without a library no operation may be called.
    virtual QString missing() = 0;
    /// The file of the library that is loaded; empty when there is none.
    virtual QString file() const { return {}; }

    // The link.
    /// `port` is a name such as "COM1". What the constants 1000 and 5 mean is the library's own.
    virtual Status DPC3open(qint32 baudRate, const QString& port, qint32 constant1000, qint32 constant5) = 0;
    virtual Status DPC3close() = 0;
    /// Texts of 16, 10 and 40, each followed by its length.
    virtual Status DPC3get74X(QString& model, QString& serial, QString& text, qint32& number, qint32& unused1,
                              qint32& unused2) = 0;
    /// The number of steps to come; each step lowers it.
    virtual Status DPC3mapStart(qint32& count) = 0;
    virtual Status DPC3mapStep(qint32& count) = 0;
    virtual Status DPC3dnlStart(qint32& count) = 0;
    /// The last three numbers are the library's own: they start at 0 and are kept from call to call of a
    /// transfer.
    virtual Status DPC3dnlStep(qint32& count, qint32& kept1, qint32& kept2, qint32& kept3) = 0;
    virtual Status DPC3uplStart(qint32& count) = 0;
    virtual Status DPC3uplStep(qint32& count) = 0;

    // Writing the image.
    virtual Status MEM3clear() = 0;
    /// Opens a task; what the two references held before goes in.
    virtual Status MEM3startTask(qint32& task, qint32& atom, const QString& tag, const QString& text) = 0;
    virtual Status MEM3promptDefn(PromptNumbers& numbers, const QString& key, const QString& prompt,
                                  const QString& style, const QString& font) = 0;
    /// Puts a message into the task; the reference of its place there comes out.
    virtual Status MEM3promptTemplate(qint32 task, qint32 atom, qint32& place,
                                      const PromptNumbers& numbers) = 0;
    /// Status 2001 when the image has no strategy of that name.
    virtual Status MEM3findStrategyDefn(qint32 constant1, const QString& name, qint32& strategy,
                                        qint32& strategyId) = 0;
    /// 1 to 50 points, as fractions; they are read during the call. The task's atom goes in as `atom` and the
    /// strategy's own comes out.
    virtual Status MEM3strategyDefn(qint32 task, qint32& atom, qint32& strategyId, const QString& name,
                                    const float* points, qint16 count) = 0;
    /// The calibration of the task: by which strategy, in which state, and which side is a user's entry (1)
    /// or the calibrator's own (0). `strategy` is what finding one gave last, `strategyAtom` what defining
    /// one gave last.
    virtual Status MEM3instrCalTemplate(qint32 task, qint32 atom, qint32& place, qint32 strategy,
                                        qint32 strategyAtom, qint32 strategyId, const State& state,
                                        qint16 measureByHand, qint16 sourceByHand, qint32 constant2,
                                        const QString& tag, const QString& serial) = 0;
    virtual Status MEM3endTask() = 0;

    // The setup state: a list of operations on named items, whose words the maps define.
    virtual Status STA3beginOps() = 0;
    virtual Status STA3initOp() = 0;
    virtual Status STA3setMappedOp(const QString& root, const QString& item, const QString& word) = 0;
    virtual Status STA3setUnitOp(const QString& root, const QString& item, const QString& unit) = 0;
    virtual Status STA3setFloatOp(const QString& root, const QString& item, float value) = 0;
    virtual Status STA3setIntOp(const QString& root, const QString& item, qint32 value) = 0;
    virtual Status STA3evalOp() = 0;
    virtual Status STA3saveOps(State& state) = 0;
    virtual Status STA3freeOps() = 0;

    // Reading the image. `list` is the constant 2, the list of results; groups, the atoms of a group and the
    // steps of a run count from 0.
    virtual Status MEM3ngroups(qint32 list, qint32& groups) = 0;
    virtual Status MEM3natoms(qint32 list, qint32 group, qint32& atoms) = 0;
    /// The reference of the group.
    virtual Status MEM3groupDir(qint32 list, qint32 group, qint32& reference) = 0;
    /// What an atom is (4 the results of a run, 11 the tag of the instrument, 18 a reference to results), and
    /// its reference.
    virtual Status MEM3atomDir(qint32 list, qint32 group, qint32 atom, qint16& kind, qint32& reference) = 0;
    /// The references of the results and of their task.
    virtual Status MEM3taskResultRefInfo(qint32 list, qint32 group, qint32 atom, qint32& results,
                                         qint32& task) = 0;
    /// Texts of 33.
    virtual Status MEM3instrTagInfo(qint32 list, qint32 group, qint32 atom, QString& tag, QString& serial,
                                    QString& technician) = 0;
    virtual Status MEM3instrCalResultInfo(qint32 list, qint32 group, qint32 atom, qint16& steps,
                                          RunTime& time) = 0;
    /// The setup state that a step of the run was stored with.
    virtual Status MEM3instrCalResultStepInfo(qint32 list, qint32 group, qint32 atom, qint16 step,
                                              State& state) = 0;
    /// Makes a state the current one.
    virtual Status STA3restore(const State& state) = 0;

    // The current state: its buckets, counted from 0, by their names.
    virtual Status STA3getBktListInfo(const QString& root, qint32& buckets) = 0;
    /// A text of 33, followed by its length.
    virtual Status STA3getBktName(const QString& root, qint16 bucket, QString& name) = 0;
    /// 1 float, 2 text, 3 range, 4 unit, 5 integer, 6 time, 7 mapped word.
    virtual Status STA3getType(const QString& root, const QString& bucket, qint16& type) = 0;
    virtual Status STA3getFloat(const QString& root, const QString& bucket, float& value) = 0;
    /// Texts of 33, each followed by its length; so are units and mapped words.
    virtual Status STA3getStr(const QString& root, const QString& bucket, QString& value) = 0;
    virtual Status STA3getRange(const QString& root, const QString& bucket, float& low, float& high) = 0;
    virtual Status STA3getUnit(const QString& root, const QString& bucket, QString& unit) = 0;
    virtual Status STA3getInt(const QString& root, const QString& bucket, qint32& value) = 0;
    /// Seconds; since when is the library's own.
    virtual Status STA3getTime(const QString& root, const QString& bucket, qint32& value) = 0;
    virtual Status STA3getMapped(const QString& root, const QString& bucket, QString& word) = 0;
};

} // namespace kelvane
