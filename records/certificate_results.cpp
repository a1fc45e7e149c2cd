#include "records/certificate_results.h"

#include "platform/values/numbers.h"
#include "records/certificate_conformity.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// A column of the results: its name in the layout.
struct ResultColumn {
    QLatin1StringView name;
    LineField field;
};

constexpr ResultColumn resultColumns[] = {
    {"point"_L1, LineField::number},      {"applied"_L1, LineField::applied},
    {"nominal"_L1, LineField::nominal},   {"reading"_L1, LineField::reading},
    {"error"_L1, LineField::deviation},   {"tolerance"_L1, LineField::tolerance},
    {"lowLimit"_L1, LineField::lowLimit}, {"highLimit"_L1, LineField::highLimit},
};

bool isPartOfNumber(QChar character) {
    return (character >= u'0' && character <= u'9') || character == u'.' || character == u'-';
}

/// Where the unit of an amount begins.
qsizetype unitPlace(const QString& amount) {
    qsizetype place = 0;
    while (place < amount.size() && isPartOfNumber(amount[place]))
        ++place;
    return place;
}

/// "4.000 mA" of "4.000mA".
QString spaced(const QString& amount) {
    const auto unit = unitPlace(amount);
    if (unit == 0 || unit == amount.size() || amount[unit] == u' ')
        return amount;
    return amount.left(unit) + u' ' + amount.mid(unit);
}

/// A limit has the unit of the nominal value, which stands there alone.
QString withUnit(const QString& limit, const QString& nominal) {
    const auto unit = nominal.mid(unitPlace(nominal)).trimmed();
    return limit.isEmpty() || unit.isEmpty() ? limit : limit + u' ' + unit;
}

QString verdictText(std::optional<bool> conforms) {
    if (!conforms)
        return {};
    return text(*conforms ? TextId::resultPassed : TextId::resultFailed);
}

QJsonObject resultRow(const StoredLine& line, const CertificateSettings& settings) {
    if (line.reading != StoredLine::Reading::readable)
        return {{"stored"_L1, line.text}};
    QJsonObject row;
    for (const auto& column : resultColumns) {
        const bool isLimit = column.field == LineField::lowLimit || column.field == LineField::highLimit;
        row[column.name] = isLimit ? withUnit(line.field(column.field), line.field(LineField::nominal))
                                   : spaced(line.field(column.field));
    }
    row["verdict"_L1] = verdictText(isConforming(line, settings));
    return row;
}

/// The lines of a record, but for blank ones.
QList<StoredLine> linesOf(Session& session, const CalibrationRecord& record) {
    QList<StoredLine> lines;
    for (const auto& line : record.lines) {
        auto stored = readStoredLine(session, line);
        if (stored.reading != StoredLine::Reading::blank)
            lines << std::move(stored);
    }
    return lines;
}

TextId titleOf(CalibrationRun run) {
    switch (run) {
    case CalibrationRun::asFound:
        return TextId::certificateResultsFound;
    case CalibrationRun::asLeft:
        return TextId::certificateResultsLeft;
    case CalibrationRun::foundLeft:
        return TextId::certificateResultsBoth;
    case CalibrationRun::other:
        break;
    }
    return TextId::listResultLines;
}

QString statementOf(std::optional<bool> conforms) {
    if (!conforms)
        return text(TextId::certificateNoVerdict);
    return text(*conforms ? TextId::certificateConforms : TextId::certificateFails);
}

QString ruleText(const CertificateSettings& settings) {
    switch (settings.rule) {
    case DecisionRule::none:
        break;
    case DecisionRule::simpleAcceptance:
        return text(TextId::certificateSimpleAcceptance);
    case DecisionRule::guardBand:
        return text(TextId::certificateGuardBand).arg(plainText(100 - settings.guardBand));
    }
    return text(TextId::certificateNoRule);
}

/// The results of one or two records, as they are gathered.
class Results {
  public:
    Results(Session& session, const CertificateSettings& settings, QJsonObject& values)
        : session_(session), settings_(settings), values_(values) {}

    void add(const CalibrationRecord& record, const QString& list) {
        const auto lines = linesOf(session_, record);
        QJsonArray rows;
        for (const auto& line : lines) {
            rows << resultRow(line, settings_);
            hasUnreadable_ = hasUnreadable_ || line.reading == StoredLine::Reading::unreadable;
            isWithoutTemplate_ = isWithoutTemplate_ || line.reading == StoredLine::Reading::withoutTemplate;
        }
        if (rows.isEmpty())
            rows << QJsonObject{{"note"_L1, text(TextId::historyNoLines)}};
        values_[list] = rows;
        values_[list + "Title"_L1] = text(titleOf(record.run));
        statements_.insert(record.ctag, statementOf(isConforming(record, lines, settings_)));
    }

    QStringList notes() const {
        if (isWithoutTemplate_)
            return {text(TextId::historyNoTemplate)};
        return hasUnreadable_ ? QStringList(text(TextId::certificateUnreadable)) : QStringList();
    }
    QString statement(const CalibrationRecord& record) const { return statements_.value(record.ctag); }

  private:
    Session& session_;
    const CertificateSettings& settings_;
    QJsonObject& values_;
    bool hasUnreadable_ = false;
    bool isWithoutTemplate_ = false;
    /// By the numbers of the records.
    QHash<QString, QString> statements_;
};

/// What a calibration lacks, or does not say.
QStringList notesOf(const CertifiedCalibration& calibration) {
    if (!calibration.asFound)
        return {text(TextId::historyNoAsFound)};
    if (calibration.asLeft) {
        const bool isOfOneDay = calibration.asFound->date.text == calibration.asLeft->date.text;
        return isOfOneDay ? QStringList() : QStringList(text(TextId::historyPairedByOrder));
    }
    if (calibration.asFound->run == CalibrationRun::asFound)
        return {text(TextId::historyNoAsLeft)};
    return calibration.asFound->run == CalibrationRun::other ? QStringList(text(TextId::historyAlone))
                                                             : QStringList();
}

} // namespace

QString addResults(Session& session, const CertifiedCalibration& calibration,
                   const CertificateSettings& settings, QJsonObject& values) {
    Results results(session, settings, values);
    if (calibration.asFound)
        results.add(*calibration.asFound, u"resultsFound"_s);
    if (calibration.asLeft)
        results.add(*calibration.asLeft, u"resultsLeft"_s);
    QJsonArray notes;
    for (const auto& note : results.notes() + notesOf(calibration))
        notes << QJsonObject{{"text"_L1, note}};
    values["notes"_L1] = notes;

    const auto statements = sentencesOfBoth(
        calibration, [&](const CalibrationRecord& record) { return results.statement(record); });
    return statements + u'\n' + ruleText(settings);
}

} // namespace kelvane
