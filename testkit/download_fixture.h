#pragma once

#include "testkit/lab.h"

#include <QRegularExpression>

namespace kelvane::testing {

/// Downloads to a documenting calibrator, one of the lab's, that the database knows. Instruments are "I-1",
/// "I-2" ..., with three points and no messages unless a test gives them some.
template <class Calibrator>
class DownloadOf : public Calibrator {
  protected:
    DownloadOf() { this->addCalibrator(); }

    QString download() { return Calibrator::download(QStringLiteral("TAG")); }
    /// Downloads instruments with these parameters, which has to succeed. From here on `link.calls` are those
    /// of this download.
    void load(const QList<CalParamRecord>& records) {
        this->addList(records);
        this->link.calls.clear();
        this->script.statements.clear();
        EXPECT_EQ(download(), QString());
        EXPECT_EQ(registeredInstruments().size(), records.size());
    }

    /// All calls, each message's key replaced by "KEY1", "KEY2" ... as they were defined.
    QStringList calls() const {
        static const QRegularExpression definition(QStringLiteral("^MEM3?promptDefn\\(\"([^\"]*)\""));
        auto list = this->link.calls;
        int number = 0;
        for (const auto& call : this->link.calls) {
            if (const auto found = definition.match(call); found.hasMatch())
                list.replaceInStrings(found.captured(1), QStringLiteral("KEY%1").arg(++number));
        }
        return list;
    }
    /// The arguments of an operation's calls, such as `"psi", 1`.
    QStringList argumentsOf(const QString& operation) const { return this->link.argumentsOf(operation); }
    /// The keys of the instruments that were registered with a calibrator.
    using Calibrator::registeredInstruments;
    QStringList registeredInstruments() const { return registeredInstruments(this->link.serial); }

    static Row message(const QString& name, const QString& text, const QString& type) {
        return {name, text, type};
    }
};

/// An operation and which of its calls.
struct CallAt {
    QString operation;
    int occasion = 1;
};

/// Those up to and with the n-th call of an operation.
inline QStringList upTo(const QStringList& operations, const CallAt& call) {
    int seen = 0;
    for (qsizetype i = 0; i < operations.size(); ++i) {
        if (operations[i] == call.operation && ++seen == call.occasion)
            return operations.first(i + 1);
    }
    ADD_FAILURE() << "no such call: " << call.operation.toStdString();
    return {};
}

} // namespace kelvane::testing
