#include "records/picture_file.h"

#include "plots/plot_files.h"
#include "records/file_names.h"
#include "resources/captions.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace kelvane {

void savePicture(const Plot& plot, const QString& name, QWidget* parent, UserInterface& ui) {
    QFileDialog dialog(parent, titleOf(TextId::plotSave));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(plotFileFilters());
    const auto useSuffix = [&](const QString& filter) { dialog.setDefaultSuffix(plotFileSuffix(filter)); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, useSuffix);
    useSuffix(dialog.selectedNameFilter());
    dialog.setDirectory(QDir::homePath());
    dialog.selectFile(replaceRefused(name, u'-') + u'.' + plotFileSuffix(dialog.selectedNameFilter()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const auto failure = savePlot(plot, dialog.selectedFiles().constFirst());
    if (!failure.isEmpty())
        ui.messageBox(failure, text(TextId::recordsTitle), box::warning);
}

} // namespace kelvane
