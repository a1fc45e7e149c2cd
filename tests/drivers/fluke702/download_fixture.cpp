#include "tests/drivers/fluke702/download_fixture.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

QStringList FlukeDownload::addList(const QList<CalParamRecord>& records) {
    QStringList assets;
    for (const auto& record : records) {
        assets << u"I-%1"_s.arg(assets.size() + 1);
        addInstrument(assets.last(), record);
        addPoints(assets.last(), {u"0"_s, u"50"_s, u"100"_s}, 1);
    }
    addPackage(u"TAG"_s, assets);
    return assets;
}

void FlukeDownload::load(const QList<CalParamRecord>& records) {
    addList(records);
    link.calls.clear();
    script.statements.clear();
    EXPECT_EQ(download(), QString());
    EXPECT_EQ(registeredInstruments().size(), records.size());
}

QStringList FlukeDownload::calls() const {
    auto list = link.calls;
    int number = 0;
    for (const auto& definition : argumentsOf(u"MEMpromptDefn"_s)) {
        const auto key = definition.section(u'"', 1, 1);
        list.replaceInStrings(key, u"KEY%1"_s.arg(++number));
    }
    return list;
}

QStringList FlukeDownload::argumentsOf(const QString& operation) const {
    QStringList list;
    for (const auto& call : link.callsOf(operation))
        list << call.sliced(operation.size() + 1).chopped(1);
    return list;
}

QStringList FlukeDownload::registeredInstruments(const QString& serial) const {
    const auto start =
        u"insert into mt.hvm_kv_task_inuse (serial_number,entered_date,mtag,tech) values ('%1',"_s.arg(
            serial);
    QStringList keys;
    for (const auto& statement : writes()) {
        if (statement.startsWith(start))
            keys << statement.sliced(start.size()).section(u'\'', 1, 1);
    }
    return keys;
}

} // namespace kelvane::testing
