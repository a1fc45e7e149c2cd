#pragma once

#include "data/parameters/cal_params.h"

#include <array>

namespace kelvane::ModuleTSInterface {

/// The tolerance band of an instrument's highest test point; the calibrator gets no other tolerance.
struct TorqueLimits {
    double maximum = 0;
    double minimum = 0;
};

TorqueLimits torqueLimits(const CalParamRecord& instrument);

/// The fields of the message that adds a characteristic, joined as they stand. One set is used for a whole
/// download: a field that an instrument does not write keeps the value of the instrument before.
class CharacteristicFields {
  public:
    /// Fills the fields that are the same for all instruments.
    explicit CharacteristicFields(Session& session);

    /// Fills the fields of an instrument and of the transducer that it is measured with: empty, or the reason
    /// why the calibrator can't take it. Error 5 for a count that is no byte.
    QString fill(Session& session, const CalParamRecord& instrument, const CalParamRecord& transducer);

    QByteArray join() const;

  private:
    std::array<QByteArray, 25> fields_;
};

} // namespace kelvane::ModuleTSInterface
