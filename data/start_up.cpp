#include "data/start_up.h"

#include "data/routine.h"
#include "platform/file_error.h"
#include "platform/reason_log.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace kelvane::ModuleGlobals {

namespace {

/// A text file of the neighbouring program, read line by line. A line that is no UTF-8 is taken as
/// Windows-1252, which is what older installations write.
class TextFile {
  public:
    explicit TextFile(const QString& path) : file_(path) {
        if (!file_.open(QIODevice::ReadOnly))
            throw FileError(QFileInfo::exists(path) ? ErrorNumber::pathFileAccess : ErrorNumber::fileNotFound,
                            path, file_.errorString());
    }

    /// The next line without its line end; nothing behind the last one.
    std::optional<QString> nextLine() {
        auto bytes = file_.readLine();
        if (file_.error() != QFileDevice::NoError)
            throw FileError(ErrorNumber::pathFileAccess, file_.fileName(), file_.errorString());
        if (bytes.isEmpty())
            return {};
        if (bytes.endsWith('\n'))
            bytes.chop(1);
        if (bytes.endsWith('\r'))
            bytes.chop(1);
        QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        QString line = utf8(bytes);
        return utf8.hasError() ? fromCalibratorBytes(bytes) : line;
    }

  private:
    QFile file_;
};

/// What metcal.ini names as the result template; empty when it names none.
QString configuredTemplate(const QString& iniPath) {
    TextFile ini(iniPath);
    while (const auto line = ini.nextLine()) {
        if (!toLowerCase(*line).contains(u"rslt_template"))
            continue;
        const auto sign = line->indexOf(u'=');
        return sign < 0 ? QString() : trimBlanks(QStringView(*line).mid(sign + 1));
    }
    return {};
}

/// In the current directory.
const auto localTemplate = u"rslt_db.frm"_s;

QString metcalIni(const Session& session) {
    return session.WinDir + QDir::separator() + u"metcal.ini"_s;
}

QString templatePath(const Session& session) {
    if (QFileInfo(localTemplate).isFile())
        return localTemplate;
    return configuredTemplate(metcalIni(session));
}

/// Whether a line of the template is the one that results are laid out by: the first that is neither comment
/// nor directive nor next to nothing.
bool isBody(const QString& line) {
    const auto small = toLowerCase(line);
    for (const QStringView mark : {u"#", u"subst$", u"split$", u"rslt", u"rm$"}) {
        if (small.contains(mark))
            return false;
    }
    return trimBlanks(line).size() > 4;
}

/// The row of a line such as  subst$(FN," psi"," PSIG"). The places are fixed, whatever else the line holds.
SubstRow substRow(QStringView line) {
    const auto opening = line.indexOf(u'"', 7);
    const auto closing = opening < 0 ? -1 : line.indexOf(u'"', opening + 1);
    const auto third = closing + 3;
    const auto length = line.size() - 2 - third;
    if (closing < 0 || length < 0)
        throw makeError(ErrorNumber::invalidArgument);
    return {toUpperCase(line.mid(7, 2)), line.mid(opening + 1, closing - opening - 1).toString(),
            line.mid(third, length).toString()};
}

/// Reads substitution rows up to the body line, and that line.
void readTemplate(Session& session, const QString& path) {
    TextFile file(path);
    int row = 0;
    while (const auto line = file.nextLine()) {
        if (isBody(*line)) {
            session.ResultTemplateLine = toUpperCase(*line);
            return;
        }
        if (line->contains(u"subst$"))
            session.SubstTable[row++] = substRow(*line);
    }
}

/// False when there is no template. The report of a file that can't be read does not name it: the log does.
bool findAndReadTemplate(Session& session) {
    try {
        const auto path = templatePath(session);
        const bool found = !path.isEmpty() && QFileInfo(path).isFile();
        if (found)
            readTemplate(session, path);
        return found;
    } catch (const FileError& error) {
        logReason(session, error.reason);
        throw;
    }
}

void warnOfTemplate(Session& session) {
    session.ui.messageBox(text(TextId::resultTemplateMissing), text(TextId::applicationName), box::warning);
}

} // namespace

QString resultTemplatePath(const Session& session) {
    try {
        return templatePath(session);
    } catch (const Error&) {
        return {};
    }
}

bool readResultTemplate(Session& session) {
    Routine routine(session, u"Records,readResultTemplate"_s);
    return routine
        .resultOf([&] {
            session.SubstTable.erase();
            session.WinDir = qEnvironmentVariable("windir");
            const bool isNamed = QFileInfo(localTemplate).isFile() || QFileInfo(metcalIni(session)).isFile();
            return isNamed && findAndReadTemplate(session) && !session.ResultTemplateLine.isEmpty();
        })
        .value_or(false);
}

void StartupFunctions(Session& session, const QString& commandLine) {
    Routine routine(session, u"ModuleGlobals,StartupFunctions"_s);
    routine.run([&] {
        bool found = false;
        {
            const BusyPointer busy(session.ui);
            session.CommandLineFlag = toUpperCase(commandLine).contains(u"KFDJ");
            session.SubstTable.erase();
            session.WinDir = qEnvironmentVariable("windir");
            found = findAndReadTemplate(session);
        }
        // A missing file is reported here, and again as the missing body line.
        if (!found)
            warnOfTemplate(session);
        if (session.ResultTemplateLine.isEmpty())
            warnOfTemplate(session);
    });
}

} // namespace kelvane::ModuleGlobals
