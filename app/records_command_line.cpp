#include "app/records_command_line.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto certificateOption = u"certificate"_s;
const auto csvOption = u"csv"_s;
const auto dataSourceOption = u"data-source"_s;
const auto dueOption = u"due"_s;
const auto historyOption = u"history"_s;
const auto outOption = u"out"_s;
const auto overdueOption = u"overdue"_s;
const auto recordOption = u"record"_s;
const auto separatorOption = u"separator"_s;
const auto sinceOption = u"since"_s;
const auto usedOption = u"used"_s;
const auto userOption = u"user"_s;

constexpr int mostDays = 36500;

struct ListName {
    QString option;
    RecordsRequest::List list;
};

const QList<ListName>& listNames() {
    static const QList<ListName> names{{dueOption, RecordsRequest::List::due},
                                       {overdueOption, RecordsRequest::List::overdue},
                                       {usedOption, RecordsRequest::List::used},
                                       {historyOption, RecordsRequest::List::history},
                                       {certificateOption, RecordsRequest::List::certificate}};
    return names;
}

QList<ProgramOption> ownOptions() {
    return {
        {dueOption, u"DAYS"_s, u"lists the instruments that are due within so many days or overdue"_s},
        {overdueOption, {}, u"lists the instruments whose due date is behind today"_s},
        {usedOption, u"STANDARD"_s, u"lists the calibrations with a standard, by its asset number"_s},
        {sinceOption, u"YYYY-MM-DD"_s, u"the first day of the list of --used"_s},
        {historyOption, u"ASSET"_s, u"lists the calibration records of an instrument"_s},
        {certificateOption, u"ASSET"_s, u"writes the certificate of an instrument's newest calibration"_s},
        {recordOption, u"NUMBER"_s, u"the record of --certificate that is taken instead of the newest"_s},
        {csvOption, {}, u"writes the list as comma separated values"_s},
        {separatorOption, u"SIGN"_s,
         u"comma (with decimal points) or semicolon (with decimal commas); comma"_s, false, u"comma"_s},
        {outOption, u"FILE"_s, u"writes a file instead of the standard output, as a whole or not at all"_s},
        {userOption, u"NAME"_s, u"the login to the database"_s},
        {dataSourceOption, u"NAME"_s,
         u"the data source of the database; that of the workstation's settings, or \"Calibration Data\""_s},
    };
}

[[noreturn]] void refuse(const QString& fault) {
    throw usageAnswer(recordsCommandLine().name, fault);
}

const ListName& listOf(const GivenOptions& options) {
    const ListName* chosen = nullptr;
    for (const auto& name : listNames()) {
        if (!options.isSet(name.option))
            continue;
        if (chosen != nullptr)
            refuse(u"--%1 and --%2 are two lists"_s.arg(chosen->option, name.option));
        chosen = &name;
    }
    if (chosen == nullptr)
        refuse(
            u"it lists what is due (--due), what is overdue (--overdue), the calibrations with a standard "
            "(--used) and the records of an instrument (--history), or writes a certificate (--certificate); "
            "name one of them"_s);
    return *chosen;
}

/// The value of an option, which has to be there and not empty.
QString valueOf(const GivenOptions& options, const QString& name) {
    const auto value = options.value(name);
    if (value.isEmpty())
        refuse(u"--%1 %2"_s.arg(name, options.isSet(name) ? u"needs a value"_s : u"is missing"_s));
    return value;
}

int daysOf(const QString& value) {
    static const QRegularExpression digits(u"^[0-9]{1,5}$"_s);
    if (!digits.match(value).hasMatch() || value.toInt() > mostDays)
        refuse(u"--due needs a number of days from 0 to %1"_s.arg(mostDays));
    return value.toInt();
}

QDate dayOf(const QString& value) {
    const auto day = QDate::fromString(value, u"yyyy-MM-dd"_s);
    if (!day.isValid())
        refuse(u"no such day: "_s + value);
    return day;
}

CsvForm formOf(const QString& name) {
    if (name == u"comma")
        return {u',', u'.'};
    if (name == u"semicolon")
        return {u';', u','};
    refuse(u"--separator is comma or semicolon"_s);
}

/// The name goes into a connection string, where these signs would begin other settings, a password's too.
QString dataSourceOf(const GivenOptions& options) {
    const auto name = options.value(dataSourceOption);
    static const QRegularExpression others(u"[;{}=]"_s);
    if (name.contains(others) || (name.isEmpty() && options.isSet(dataSourceOption)))
        refuse(u"--data-source needs the name of a data source and nothing else"_s);
    return name;
}

void takeForm(const GivenOptions& options, RecordsRequest& request) {
    if (options.isSet(recordOption))
        refuse(u"--record is for --certificate"_s);
    if (!options.isSet(csvOption))
        refuse(u"--csv is missing: a list is written in no other form"_s);
    request.form = formOf(options.value(separatorOption));
}

void takeCertificate(const GivenOptions& options, RecordsRequest& request) {
    for (const auto& name : {csvOption, separatorOption}) {
        if (options.isSet(name))
            refuse(u"--%1 is for lists, a certificate is a PDF"_s.arg(name));
    }
    if (options.isSet(recordOption))
        request.record = valueOf(options, recordOption);
    valueOf(options, outOption);
}

} // namespace

const Program& recordsCommandLine() {
    static const Program program{
        .name = u"kelvane-records"_s,
        .usage = u"[LIST --csv | --certificate=ASSET --out=FILE] [--user=NAME [OPTION]...]"_s,
        .description = u"Shows what the calibration records say. It only reads the database.\n"
                       "Without options it opens a window, with LIST it writes a list, with --certificate a\n"
                       "certificate as PDF.\n"
                       "LIST is --due=DAYS, --overdue, --used=STANDARD --since=DAY or --history=ASSET.\n"
                       "The password is read from the terminal, or as a line of the standard input."_s,
        .options = ownOptions(),
    };
    return program;
}

RecordsRequest recordsRequest(const QStringList& words) {
    const auto options = readCommandLine(recordsCommandLine(), words);
    try {
        options.refuseRepeated();
    } catch (const CommandLineFault& fault) {
        refuse(fault.text);
    }
    const auto& list = listOf(options);
    RecordsRequest request;
    request.list = list.list;
    if (list.list == RecordsRequest::List::due)
        request.days = daysOf(valueOf(options, dueOption));
    else if (list.list != RecordsRequest::List::overdue)
        request.asset = valueOf(options, list.option);
    if (list.list == RecordsRequest::List::used)
        request.since = dayOf(valueOf(options, sinceOption));
    else if (options.isSet(sinceOption))
        refuse(u"--since is for --used"_s);
    if (list.list == RecordsRequest::List::certificate)
        takeCertificate(options, request);
    else
        takeForm(options, request);
    request.user = valueOf(options, userOption);
    request.dataSource = dataSourceOf(options);
    if (options.isSet(outOption))
        request.file = valueOf(options, outOption);
    return request;
}

} // namespace kelvane
