#include "drivers/link_library.h"

#include "platform/error.h"
#include "platform/system.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

#include <utility>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Spare space behind a text for a library that ignores the length.
constexpr qsizetype slack = 256;

/// What the system calls the file of a library.
QString fileNameOf(const QString& library) {
#ifdef Q_OS_WIN
    return library + u".dll"_s;
#else
    return u"lib"_s + library + u".so"_s;
#endif
}

/// Also true for a link whose target is missing.
bool isThere(const QString& path) {
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

} // namespace

LinkLibrary::LinkLibrary(QString name, QString folder, QString simulators)
    : name_(std::move(name)), folder_(std::move(folder)), simulators_(std::move(simulators)) {}

qsizetype LinkLibrary::need(const char* operation) {
    operations_.append({operation});
    return operations_.size() - 1;
}

QString LinkLibrary::missing() {
    if (!file_.isEmpty())
        return {};
    QLibrary library;
    if (!load(library))
        return text(TextId::linkLibraryNotLoaded)
            .arg(name_, QDir::toNativeSeparators(folder_), library.errorString());
    for (auto& operation : operations_) {
        operation.function = library.resolve(operation.name);
        if (!operation.function) {
            const auto file = QDir::toNativeSeparators(library.fileName());
            // Let go, so that a better one can take its place while the program runs.
            library.unload();
            return text(TextId::linkLibraryLacksOperation).arg(file, QString::fromLatin1(operation.name));
        }
    }
    file_ = QDir::toNativeSeparators(library.fileName());
    return {};
}

bool LinkLibrary::load(QLibrary& library) const {
    const auto file = fileNameOf(name_);
    const auto own = QDir(folder_).filePath(file);
    const bool isOwn = isThere(own);
    library.setFileName(isOwn ? own : file);
    if (library.load())
        return true;
    if (isOwn || simulators_.isEmpty() || isLibraryInstalled(file))
        return false;
    library.setFileName(QDir(simulators_).filePath(file));
    return library.load();
}

QFunctionPointer LinkLibrary::operation(qsizetype number) const {
    if (file_.isEmpty())
        throw makeError(ErrorNumber::fileNotFound);
    return operations_[number].function;
}

TextIn::TextIn(const QString& text) : bytes_(toCalibratorBytes(text)) {}

TextOut::TextOut(QString& text) : text_(text), bytes_(toCalibratorBytes(text)), length_(bytes_.size()) {
    bytes_.append(slack, '\0');
}

TextOut::~TextOut() {
    text_ = fromCalibratorBytes(QByteArrayView(bytes_).first(length_));
}

} // namespace kelvane
