#pragma once

#include "testkit/given_params.h"
#include "testkit/recording_connection.h"

namespace kelvane::testing {

/// The statement that reads the parameters of an asset.
inline QString calParamsStatement(const QString& owner, const QString& asset) {
    return QStringLiteral(u"select %1  from mt.hvm_kv_tag_config,mt.hvm_kv_proc_points,%2.inventory where "
                          "i4201='%3' and %2.inventory.mtag=mt.hvm_kv_tag_config.mtag")
        .arg(givenSelectList, owner, asset);
}

/// A row of parameters in the order of the select list.
inline Row calParamsRow() {
    Row row;
    for (const auto& param : givenParams)
        row << param.stored.toString();
    return row;
}

/// The record of the given values, those that are stored or those that the screen can show.
inline CalParamRecord givenRecord(QStringView GivenParam::*value) {
    const auto store = [](auto& field, QStringView text) {
        using Field = std::remove_reference_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, QString>)
            field = text.toString();
        else if constexpr (std::is_same_v<Field, bool>)
            field = text == u'Y';
        else
            field = static_cast<Field>(text.toDouble());
    };
    CalParamRecord record;
    for (const auto& param : givenParams)
        std::visit([&](auto member) { store(record.*member, param.*value); }, param.member);
    return record;
}

} // namespace kelvane::testing
