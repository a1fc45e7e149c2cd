#include "tests/data/records/record_statements.h"

using namespace Qt::StringLiterals;

namespace kelvane::testing {

const QString daysOffQuery = u"select dayofweek from mt.nonworkdays"_s;
const QString holidaysQuery = u"select holiday from mt.holidays"_s;
const QString worksheetQuery = u"select fldnum from mt.hvm_kv_worksheetfields order by sequence asc"_s;

QString typeQuery(const QString& column) {
    return u"select domain_name from sys.sysdomain where domain_id = (select max(domain_id) from "
           "sys.syscolumn where column_name = '"_s +
           column + u"')"_s;
}

} // namespace kelvane::testing
