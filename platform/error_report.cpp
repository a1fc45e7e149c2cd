#include "platform/error_report.h"

#include "platform/file_error.h"
#include "platform/reason_log.h"
#include "platform/values/numbers.h"
#include "resources/strings.h"
#include "resources/text_id.h"

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

const auto lineEnd = u"\r\n"_s;

/// Runs `body` on the settings store. What it throws is reported in the name of `routine`; the log also gets
/// the file and its fault, which the report does not name.
template <class Body>
void reportingErrors(const Workstation& workstation, const QString& routine, Body&& body) {
    try {
        body();
    } catch (const FileError& error) {
        logReason(workstation, error.reason);
        ReportInternalError(workstation, error.number, error.description, routine, {});
    } catch (const Error& error) {
        ReportInternalError(workstation, error.number, error.description, routine, {});
    }
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
    if (!appendToErrorLog(lines.toUtf8()))
        throw makeError(ErrorNumber::pathFileAccess);

    workstation.ui.messageBox(text(TextId::internalErrorOccurred) + u' ' + what + lineEnd + lineEnd +
                                  text(TextId::internalErrorAdvice) + lineEnd + lineEnd +
                                  text(TextId::errorReportRoutine) + routine + lineEnd +
                                  text(TextId::errorReportSql) + sql,
                              text(TextId::applicationName), box::stop);
}

QString GetRegSetting(const Workstation& workstation, const QString& section, const QString& key) {
    QString value;
    reportingErrors(workstation, u"ModuleGlobals,GetRegSetting"_s,
                    [&] { value = workstation.settings.value(section, key); });
    return value;
}

void SaveRegSetting(const Workstation& workstation, const QString& section, const QString& key,
                    const QString& value) {
    reportingErrors(workstation, u"ModuleGlobals,SaveRegSetting"_s,
                    [&] { workstation.settings.setValue(section, key, value); });
}

} // namespace kelvane::ModuleGlobals
