#pragma once

#include "simulators/torquestar/memory.h"
#include "testkit/tools.h"
#include "tests/end_to_end/end_to_end.h"

namespace kelvane::testing {

namespace messages {
inline QString noPort() {
    return text(TextId::lineCannotBeOpened);
}
/// The link start was not answered, or the frame not acknowledged rightly.
inline QString noLink() {
    return text(TextId::lineCommunicationFailed) + QStringLiteral("\r\n") + text(TextId::linePcCommsAdvice);
}
inline QString timeOut() {
    return text(TextId::lineAcknowledgementTimeout);
}
inline QString noResponse() {
    return text(TextId::lineCommunicationFailed) + QStringLiteral("\r\n") + text(TextId::lineNoResponse);
}
/// No results for these, by their names on the calibrator.
QString noData(const QStringList& names);
} // namespace messages

inline const QString torqueStarName = QStringLiteral("Crane TorqueStar IVc");

/// A calibration from end to end with the simulated torque calibrator, in a process of its own on a pseudo
/// terminal. The calibrator (TS-0001, serial number 48213) is on and empty.
class TorqueEndToEnd : public EndToEndTest {
  protected:
    TorqueEndToEnd();

    /// Switches the calibrator on, or off and on; its memory stays.
    void switchOn(const QStringList& faults = {});
    void switchOff() { device_.reset(); }

    /// Puts a tool into the list; the operator names its standard, that of the demonstration when none is
    /// given.
    void list(const QString& asset, const QString& standard = {});

    /// The technician takes the demonstration's readings, from 08:00 of the working day on.
    void carryOut(const QStringList& assets);
    /// The same by a plan of its own.
    void carryOutPlan(const QString& plan);
    static QString planFor(const QString& asset);

    /// The operator presses Upload, answers the questions for these records, and sees this message.
    void upload(const QStringList& recorded, const QString& message = messages::uploaded());
    /// The box when the line does not answer.
    void expectNoLink(BoxAnswer answer = BoxAnswer::abort);

    /// The record as it has to be, complete.
    static QStringList wholeRecord(const QString& asset);
    /// Expects each tool to have its one record, complete.
    void expectWhole(const QStringList& assets);

    simulators::Memory held() const;
    /// The names of what the calibrator holds.
    QStringList storedNames() const;
    /// Identifiers of the messages that the calibrator received since it was switched on.
    QStringList receivedMessages() const;

    static const demo::Tool& tool(const QString& asset);

  private:
    std::unique_ptr<simulators::Calibrator> device_;
};

} // namespace kelvane::testing
