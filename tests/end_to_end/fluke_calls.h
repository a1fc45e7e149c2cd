#pragma once

#include "tests/end_to_end/fluke_end_to_end.h"

namespace kelvane::testing {

/// A call of a run that went well.
struct Call {
    QString operation;
    /// How many calls of the same operation came before it.
    int before = 0;

    /// The fault of this call alone.
    QString fault(int status) const;
};

QList<Call> numberCalls(const QStringList& operations);

/// Each call of a download and of an upload fails in turn.
class EachFlukeCall : public FlukeEndToEnd {
  protected:
    /// Makes the library forget what faults it has counted.
    void clearFault();
    void expectInformation(const QString& words) { ui.expectBox(words, downloadTitle(), box::information); }
    /// Takes the records of the working day away.
    void forgetRecords();

    /// Loads FT-501, and keeps calibrator and registry as they are then.
    void loadBefore();
    /// Brings them back.
    void restore();

    /// Loads the calibrator and gives the calls of it.
    QList<Call> callsOfADownload();
    /// Uploads the single run and gives the calls of it.
    QList<Call> callsOfAnUpload();

    const QStringList before{QStringLiteral("FT-501")};
    QByteArray memoryBefore;
};

} // namespace kelvane::testing
