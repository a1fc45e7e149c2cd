#pragma once

#include "resources/strings.h"
#include "resources/text_id.h"
#include "tests/platform/database/small_database.h"

#include <functional>
#include <span>

namespace kelvane::testing {

/// A statement that an engine of ours refuses: the text of the refusal, and what it names.
struct Refusal {
    QString statement;
    TextId textId;
    QString name;
};

/// Each of them is refused in its own words, as a batch and as a query, and anywhere in a batch before
/// anything is carried out.
inline void expectRefusals(std::span<const Refusal> refusals,
                           const std::function<void(const QString&)>& batch,
                           const std::function<void(const QString&)>& query) {
    for (const auto& refusal : refusals) {
        SCOPED_TRACE(refusal.statement.toStdString());
        for (const auto& send : {batch, query}) {
            const auto error = errorOf([&] { send(refusal.statement); });
            ASSERT_TRUE(error);
            EXPECT_EQ(error->number, 5);
            EXPECT_EQ(error->description, text(refusal.textId).arg(refusal.name));
        }
        for (const auto* around :
             {"delete from mt.a;%1;commit", "%1;delete from mt.a", "delete from mt.a;%1;select 'x"})
            EXPECT_TRUE(errorOf([&] { batch(QString::fromLatin1(around).arg(refusal.statement)); }))
                << around;
        EXPECT_TRUE(errorOf([&] { query(QStringLiteral("select 1;") + refusal.statement); }));
    }
}

} // namespace kelvane::testing
