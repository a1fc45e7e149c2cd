#include "drivers/link_library.h"

#include "platform/error.h"
#include "platform/values/texts.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QLibrary>

#include <utility>

namespace kelvane {

namespace {

/// Spare space behind a text for a library that ignores the length.
constexpr qsizetype slack = 256;

} // namespace

LinkLibrary::LinkLibrary(QString name, QString folder, QString simulators)
    : name_(std::move(name)), folder_(std::move(folder)), simulators_(std::move(simulators)) {}

qsizetype LinkLibrary::need(const char* operation) {
    operations_.append({operation});
    return operations_.size() - 1;
}

QString LinkLibrary::missing() {
    if (loaded_)
        return {};
    QLibrary library(QDir(folder_).filePath(name_));
    if (!library.load()) {
        const auto reason = library.errorString();
        const auto isLoadedFrom = [&](const QString& file) {
            library.setFileName(file);
            return library.load();
        };
        const bool isInstalled = !simulators_.isEmpty();
        if (!isLoadedFrom(name_) && !(isInstalled && isLoadedFrom(QDir(simulators_).filePath(name_))))
            return text(TextId::linkLibraryNotLoaded).arg(name_, QDir::toNativeSeparators(folder_), reason);
    }
    for (auto& operation : operations_) {
        operation.function = library.resolve(operation.name);
        if (!operation.function) {
            const auto file = QDir::toNativeSeparators(library.fileName());
            // Let go, so that a better one can take its place while the program runs.
            library.unload();
            return text(TextId::linkLibraryLacksOperation).arg(file, QString::fromLatin1(operation.name));
        }
    }
    loaded_ = true;
    return {};
}

QFunctionPointer LinkLibrary::operation(qsizetype number) const {
    if (!loaded_)
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
