#include "records/file_names.h"

namespace kelvane {

namespace {

bool isRefused(QChar character) {
    constexpr QStringView refused = u"/\\:*?\"<>|";
    const auto category = character.category();
    return refused.contains(character) || category == QChar::Other_Control ||
           category == QChar::Other_Format || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

} // namespace

QString replaceRefused(QString name, QChar substitute) {
    for (auto& character : name) {
        if (isRefused(character))
            character = substitute;
    }
    return name;
}

} // namespace kelvane
