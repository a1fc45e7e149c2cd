#include "platform/communication_log.h"

#include "platform/error.h"
#include "platform/reason_log.h"
#include "platform/state_folder.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// "Fluke 743/744" becomes "fluke-743-744.log".
QString fileNameOf(const QString& calibrator) {
    static const QRegularExpression others(u"[^a-z0-9]+"_s);
    return calibrator.toLower().replace(others, u"-"_s) + u".log"_s;
}

/// Makes a folder for its user alone; one that exists stays as it is.
void makeFolder(const QString& path) {
    const QFileInfo folder(path);
    if (folder.exists())
        return;
    QDir().mkpath(folder.path());
    QDir().mkdir(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

QString communicationLogFolder() {
#ifdef Q_OS_WIN
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
#else
    return stateFolder(u"kelvane"_s);
#endif
}

CommunicationLog::CommunicationLog(const Workstation& workstation, QString calibrator, const QString& folder,
                                   Rotation rotation)
    : workstation_(workstation),
      calibrator_(std::move(calibrator)),
      path_(QDir(folder).filePath(fileNameOf(calibrator_))),
      rotation_(rotation) {}

bool CommunicationLog::isSwitchedOn() const {
    try {
        return workstation_.settings.value(logSection, calibrator_) == u"1";
    } catch (const Error&) {
        return false;
    }
}

void CommunicationLog::write(const QString& words) {
    if (!on_)
        return;
    // The session's clock knows whole seconds only.
    const auto stamp = QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH:mm:ss.zzz"_s);
    auto line = stamp + u" ["_s + calibrator_ + u"] "_s + words;
    line.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
    append((line + u'\n').toUtf8());
    if (onChange)
        onChange();
}

void CommunicationLog::setOpening(const LineOpening& opening) {
    opening_ = opening;
    if (onChange)
        onChange();
}

/// The file is opened for each line: another program of this user may have renamed or removed it since.
void CommunicationLog::append(const QByteArray& line) {
    makeFolder(QFileInfo(path_).path());
    if (!makeRoom())
        return;
    QFile file(path_);
    if (!file.open(QIODevice::Append | QIODevice::Unbuffered, QFile::ReadOwner | QFile::WriteOwner)) {
        complain(file.errorString());
        return;
    }
    const auto size = file.size();
    if (file.write(line) != line.size()) {
        complain(file.errorString());
        // Half a line would spoil the next one.
        file.resize(size);
        return;
    }
    complained_ = false;
}

/// False when the file is full and can't be put aside.
bool CommunicationLog::makeRoom() {
    if (QFileInfo(path_).size() < rotation_.size)
        return true;
    const auto numbered = [this](int number) {
        return number == 0 ? path_ : path_ + u'.' + QString::number(number);
    };
    QFile::remove(numbered(rotation_.files - 1));
    for (int number = rotation_.files - 1; number > 0; --number) {
        QFile file(numbered(number - 1));
        if (file.exists() && !file.rename(numbered(number))) {
            complain(file.errorString());
            return false;
        }
    }
    return !QFileInfo::exists(path_);
}

void CommunicationLog::complain(const QString& reason) {
    if (!complained_)
        logReason(workstation_,
                  text(TextId::communicationLogNotWritten).arg(QDir::toNativeSeparators(path_), reason));
    complained_ = true;
}

} // namespace kelvane
