#pragma once

#include "resources/strings.h"
#include "resources/text_id.h"
#include "testkit/lab.h"
#include "testkit/limit_ranges.h"

namespace kelvane::testing {

/// What a documenting calibrator, one of the lab's, answers about the instrument "A-1".
template <class Calibrator>
class AcceptanceOf : public Calibrator {
  protected:
    /// The answer for the instrument with these parameters.
    QString answer(const CalParamRecord& record) {
        this->addInstrument(QStringLiteral("A-1"), record);
        return this->acceptable(QStringLiteral("A-1"));
    }
    bool needsStandard(const CalParamRecord& record) {
        this->addInstrument(QStringLiteral("A-1"), record);
        return this->requiresStandard(QStringLiteral("A-1"));
    }

    /// The answer for an output of this range, the input being a pressure, which has no limits.
    QString measured(const QString& unit, float low, float high, const QString& sensor = {}) {
        auto record = this->instrument(QStringLiteral("psi"), 0, 100, unit, low, high);
        record.temp_sens_type_out = sensor;
        return answer(record);
    }
    /// The answer for an input of this range, the output being a voltage well within its limits.
    QString sourced(const QString& unit, float low, float high, const QString& sensor = {}) {
        auto record = this->instrument(unit, low, high, QStringLiteral("V"), 0, 10);
        record.temp_sens_type_in = sensor;
        return answer(record);
    }

    void expectMeasured(const QString& unit, const QList<LimitRange>& ranges) {
        for (const auto& range : ranges) {
            EXPECT_EQ(measured(unit, range.low, range.high), answerTo(range))
                << "output of " << range.low << " to " << range.high << " " << unit.toStdString();
        }
    }
    void expectSourced(const QString& unit, const QList<LimitRange>& ranges) {
        for (const auto& range : ranges) {
            EXPECT_EQ(sourced(unit, range.low, range.high), answerTo(range))
                << "input of " << range.low << " to " << range.high << " " << unit.toStdString();
        }
    }

    /// The same range of a temperature on both sides: the answer has to be the same.
    void expectTemperature(const QString& unit, const QString& sensor, const LimitRange& range) {
        EXPECT_EQ(measured(unit, range.low, range.high, sensor), answerTo(range))
            << "output of " << range.low << " to " << range.high << " " << unit.toStdString() << ", "
            << sensor.toStdString();
        EXPECT_EQ(sourced(unit, range.low, range.high, sensor), answerTo(range))
            << "input of " << range.low << " to " << range.high << " " << unit.toStdString() << ", "
            << sensor.toStdString();
    }
    void expectTemperatureLimits(const QString& unit, const QString& sensor, float low, float high) {
        for (const auto& range : temperatureRanges(low, high))
            expectTemperature(unit, sensor, range);
    }

    /// The boxes that a side gives which the calibrator can't read or source.
    void expectReadByHand(const QString& asset = QStringLiteral("A-1")) {
        expectNote(asset,
                   QStringLiteral(
                       "Output of device cannot be measured by the calibrator. The calibrator will prompt "
                       "you for a reading that may not be in the same units of measure as the device under "
                       "test. Please ignore the calibrator units of measure; the proper units and range "
                       "will be used during the upload process."));
    }
    void expectSourcedByHand(const QString& asset = QStringLiteral("A-1")) {
        expectNote(asset,
                   QStringLiteral(
                       "Input of device cannot be measured by the calibrator. The calibrator will prompt "
                       "you for a reading that may not be in the same units of measure as the device under "
                       "test. Please ignore the calibrator units of measure; the proper units and range "
                       "will be used during the upload process."));
    }

  private:
    void expectNote(const QString& asset, const QString& words) {
        this->ui.expectBox(asset + QStringLiteral(": ") + words,
                           QStringLiteral("Download Procedures To Calibrator"), box::information);
    }
    static QString answerTo(const LimitRange& range) {
        return range.message ? text(*range.message) : QString();
    }
};

} // namespace kelvane::testing
