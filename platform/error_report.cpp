#include "platform/error_report.h"

#include "platform/error.h"
#include "platform/numbers.h"
#include "resources/strings.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

const auto lineEnd = u"\r\n"_s;

void appendToLog(const QByteArray& lines) {
    QFile log(u"errors.log"_s);
    if (!log.open(QIODevice::Append) || log.write(lines) != lines.size() || !log.flush())
        throw makeError(ErrorNumber::pathFileAccess);
}

} // namespace

void ReportInternalError(const Workstation& workstation, double number, const QString& description,
                         const QString& routine, const QString& sql) {
    workstation.ui.setNormalPointer();

    const auto stamp = u'[' + formatMoment(workstation.clock.moment(), u"YYYY-MM-DD HH:NN:SS") + u"] "_s;
    const QString what = plainText(number) + u' ' + description;
    QString lines;
    for (const QString& line : {u" **** KELVANE ****"_s, what, routine, sql})
        lines += stamp + line + lineEnd;
    appendToLog(lines.toUtf8());

    workstation.ui.messageBox(text(117) + u' ' + what + lineEnd + lineEnd + text(118) + lineEnd + lineEnd +
                                  text(119) + routine + lineEnd + text(120) + sql,
                              text(101), box::stop);
}

QString GetRegSetting(const Workstation& workstation, const QString& section, const QString& key) {
    try {
        return workstation.settings.value(section, key);
    } catch (const Error& error) {
        ReportInternalError(workstation, error.number, error.description, u"ModuleGlobals,GetRegSetting"_s,
                            {});
        return {};
    }
}

void SaveRegSetting(const Workstation& workstation, const QString& section, const QString& key,
                    const QString& value) {
    try {
        workstation.settings.setValue(section, key, value);
    } catch (const Error& error) {
        ReportInternalError(workstation, error.number, error.description, u"ModuleGlobals,SaveRegSetting"_s,
                            {});
    }
}

} // namespace kelvane::ModuleGlobals
