#include "app/form_odbc.h"

#include "app/login.h"
#include "platform/error_report.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kelvane {

FormODBC::FormODBC(Session& session, const QStringList& dataSources)
    : ChildWindow(session, u"FormODBC"_s, {.width = 4800, .height = 1575}),
      ComboDatasource(dropDown(u"ComboDatasource"_s, text(TextId::odbcDataSource), TextId::odbcDataSourceTip,
                               dataSources)) {
    setWindowTitle(text(TextId::databaseConnection));
    auto* body = new QWidget;
    auto* column = new QVBoxLayout(body);
    column->setContentsMargins(12, 8, 12, 10);
    column->addWidget(labelFor(ComboDatasource, u"Label1"_s, TextId::odbcDataSource));
    column->addWidget(ComboDatasource);
    setBody(body);
    setFirstFocus(ComboDatasource);

    selectStored();
    connectGuarded(ComboDatasource, &QComboBox::activated, this, session_.ui, [this] { store(); });
}

void FormODBC::selectStored() {
    ComboDatasource->setCurrentIndex(-1);
    const auto stored = chosenDataSource(session_);
    for (int row = 0; row < ComboDatasource->count(); ++row) {
        if (ComboDatasource->itemText(row).compare(stored, Qt::CaseInsensitive) == 0) {
            ComboDatasource->setCurrentIndex(row);
            // The spelling becomes that of the driver manager.
            store();
            return;
        }
    }
}

void FormODBC::store() {
    ModuleGlobals::SaveRegSetting(session_, u"Workstation"_s, u"ODBC"_s, ComboDatasource->currentText());
}

} // namespace kelvane
