#pragma once

#include "testkit/overheard_connection.h"
#include "testkit/upload_lab.h"
#include "workflow/unfinished_results.h"

namespace kelvane::testing {

/// Runs that an upload of a calibrator made no whole record of. The database serves what a record is made of
/// until a test spoils it.
template <class Upload>
class UnfinishedResultsOf : public Upload {
  protected:
    using End = MakeRecordOutcome::End;

    /// From now on statements that begin like this are refused; none for an empty text.
    void spoil(const QString& beginning) {
        if (!spoiler_) {
            spoiler_ = true;
            this->session.SharedConnection = std::make_unique<OverheardConnection>(
                std::move(this->session.SharedConnection), [this](const QString& statement) {
                    statements << statement;
                    if (!beginning_.isEmpty() && statement.startsWith(beginning_))
                        throw Error{1, QStringLiteral("refused")};
                });
        }
        beginning_ = beginning;
    }
    MakeRecordOutcome make(int row = 0) {
        const auto results = unfinishedResults(this->session);
        EXPECT_LT(row, results.size());
        const auto outcome = makeRecordOf(this->session, results.value(row).id);
        EXPECT_TRUE(this->ui.hasMetAll());
        EXPECT_FALSE(this->ui.busy);
        return outcome;
    }
    void expectMade(int row = 0, const QString& asset = QStringLiteral("PT-101")) {
        const auto outcome = make(row);
        EXPECT_EQ(outcome.end, End::made) << outcome.message.toStdString();
        EXPECT_EQ(outcome.message, QStringLiteral("The record of ") + asset +
                                       QStringLiteral(" has been made and is complete."));
    }
    void expectKept(const QString& message, int row = 0) {
        const auto before = unfinishedResults(this->session).size();
        const auto outcome = make(row);
        EXPECT_EQ(outcome.end, End::unfinished);
        EXPECT_EQ(outcome.message, message);
        EXPECT_EQ(unfinishedResults(this->session).size(), before);
    }

    /// What the records consist of is what an upload without the trouble makes. They are made anew.
    void expectSameAsUndisturbed() {
        const auto fields = allFields();
        const auto lines = this->lines();
        const auto standards = this->standards();
        deleteRecords();
        EXPECT_EQ(this->upload(), QString());
        EXPECT_EQ(allFields(), fields);
        EXPECT_EQ(this->lines(), lines);
        EXPECT_EQ(this->standards(), standards);
    }
    void deleteRecords() {
        for (const auto* table : {"calresults", "standards", "calibration"})
            this->execute(QStringLiteral("delete from mt.%1 where ctag >= %2")
                              .arg(QLatin1StringView(table))
                              .arg(this->firstRecord));
    }

    QStringList statements;

  private:
    QStringList allFields() {
        QStringList fields;
        for (const auto* column : {"mtag", "c2301", "c2303", "c2307", "c2308", "c2320", "c2323", "c2333",
                                   "c2350", "c2352", "cdsrc"})
            fields << this->records(QLatin1StringView(column));
        return fields;
    }

    bool spoiler_ = false;
    QString beginning_;
};

} // namespace kelvane::testing
