#include "records/picture_file.h"

#include "plots/plot_files.h"
#include "resources/strings.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// Without what no file system takes.
QString fileName(QString name) {
    for (auto& character : name) {
        if (u"/\\:*?\"<>|"_s.contains(character) || character < u' ')
            character = u'-';
    }
    return name;
}

} // namespace

void savePicture(const Plot& plot, const QString& name, QWidget* parent, UserInterface& ui) {
    QFileDialog dialog(parent, text(TextId::plotSave).remove(u"..."_s).trimmed());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(plotFileFilters());
    const auto useSuffix = [&](const QString& filter) { dialog.setDefaultSuffix(plotFileSuffix(filter)); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, useSuffix);
    useSuffix(dialog.selectedNameFilter());
    dialog.setDirectory(QDir::homePath());
    dialog.selectFile(fileName(name) + u'.' + plotFileSuffix(dialog.selectedNameFilter()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const auto failure = savePlot(plot, dialog.selectedFiles().constFirst());
    if (!failure.isEmpty())
        ui.messageBox(failure, text(TextId::recordsTitle), box::warning);
}

} // namespace kelvane
