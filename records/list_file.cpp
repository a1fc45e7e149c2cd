#include "records/list_file.h"

#include "platform/error_report.h"
#include "records/file_names.h"
#include "resources/captions.h"
#include "resources/text_id.h"

#include <QDir>
#include <QFileDialog>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto settingsSection = u"Records"_s;
const auto csvSetting = u"CsvForm"_s;

struct CsvKind {
    TextId caption;
    QString name;
    CsvForm form;
};

const QList<CsvKind>& csvKinds() {
    static const QList<CsvKind> kinds{{TextId::recordsCsvPoints, u"Points"_s, {u',', u'.'}},
                                      {TextId::recordsCsvCommas, u"Commas"_s, {u';', u','}}};
    return kinds;
}

} // namespace

std::optional<ListFile> askListFile(const Workstation& workstation, QWidget* parent, const QString& name) {
    QStringList filters;
    for (const auto& kind : csvKinds())
        filters << text(kind.caption);
    const auto stored = ModuleGlobals::GetRegSetting(workstation, settingsSection, csvSetting);
    const auto usual = std::ranges::find(csvKinds(), stored, &CsvKind::name);
    QFileDialog dialog(parent, titleOf(TextId::recordsSave));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(usual == csvKinds().cend() ? filters.constFirst() : text(usual->caption));
    dialog.setDefaultSuffix(u"csv"_s);
    dialog.setDirectory(QDir::homePath());
    dialog.selectFile(safeFileName(name) + u".csv"_s);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const auto& kind = csvKinds().at(std::max(qsizetype(0), filters.indexOf(dialog.selectedNameFilter())));
    ModuleGlobals::SaveRegSetting(workstation, settingsSection, csvSetting, kind.name);
    return ListFile{dialog.selectedFiles().constFirst(), kind.form};
}

ListWriter::ListWriter(const QString& path) : file_(path), isGood_(file_.open()) {}

bool ListWriter::write(const QString& lines) {
    isGood_ = isGood_ && file_.write(lines.toUtf8());
    return isGood_;
}

QString ListWriter::finish() {
    const auto path = QDir::toNativeSeparators(file_.path());
    if (isGood_ && file_.commit())
        return text(TextId::communicationLogSaved).arg(path);
    return text(TextId::communicationLogNotSaved).arg(path, file_.fault());
}

} // namespace kelvane
