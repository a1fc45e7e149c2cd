#include "records/certificate_settings_dialog.h"

#include "reports/report.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"
#include "ui/text_box.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

constexpr int linesOfBox = 3;
/// A certificate is a page, not a book.
constexpr int longestEntry = 500;
constexpr int charactersInField = 40;

QLineEdit* field(const QString& name, TextId caption) {
    auto* made = nameControl(new QLineEdit, name, text(caption));
    made->setMaxLength(longestEntry);
    made->setMinimumWidth(charactersInField * made->fontMetrics().averageCharWidth());
    return made;
}

TextBox* textBox(const QString& name, TextId caption) {
    auto* made = nameControl(new TextBox, name, text(caption));
    made->setLines(linesOfBox);
    return made;
}

/// In the order of `DecisionRule`.
QStringList ruleNames() {
    return {text(TextId::notStated), text(TextId::certificateRuleSimple),
            text(TextId::certificateRuleGuardBand)};
}

QStringList papers() {
    return {u"A4"_s, u"Letter"_s};
}

QScrollArea* scrollArea(QWidget* content) {
    auto* made = nameControl(new QScrollArea, u"Fields"_s, text(TextId::certificateSettings));
    made->setWidget(content);
    made->setWidgetResizable(true);
    made->setFrameShape(QFrame::NoFrame);
    made->setFocusPolicy(Qt::NoFocus);
    made->setMinimumWidth(content->minimumSizeHint().width() + made->verticalScrollBar()->sizeHint().width());
    return made;
}

QString usualPaper() {
    return pageLayout({}).pageSize().id() == QPageSize::Letter ? u"Letter"_s : u"A4"_s;
}

} // namespace

CertificateSettingsDialog::CertificateSettingsDialog(const Workstation& workstation, QWidget* parent)
    : QDialog(parent),
      workstation_(workstation),
      TextLaboratory(field(u"TextLaboratory"_s, TextId::certificateSettingsLaboratory)),
      TextAddress(textBox(u"TextAddress"_s, TextId::certificateSettingsAddress)),
      TextAccreditation(field(u"TextAccreditation"_s, TextId::certificateSettingsAccreditation)),
      TextCustomer(textBox(u"TextCustomer"_s, TextId::certificateSettingsCustomer)),
      TextMethod(field(u"TextMethod"_s, TextId::certificateSettingsMethod)),
      TextTraceability(textBox(u"TextTraceability"_s, TextId::certificateSettingsTraceability)),
      TextUncertainty(textBox(u"TextUncertainty"_s, TextId::certificateSettingsUncertainty)),
      TextAuthorized(field(u"TextAuthorized"_s, TextId::certificateSettingsAuthorized)),
      ComboRule(dropDown(u"ComboRule"_s, text(TextId::certificateSettingsRule), {}, ruleNames())),
      SpinGuardBand(
          nameControl(new QDoubleSpinBox, u"SpinGuardBand"_s, text(TextId::certificateSettingsGuardBand))),
      ComboPaper(dropDown(u"ComboPaper"_s, text(TextId::certificateSettingsPaper), {}, papers())),
      TextFileName(field(u"TextFileName"_s, TextId::certificateSettingsFileName)),
      CommandOk(button(u"CommandOk"_s, TextId::ok, TextId::acceptEntryTip)),
      CommandCancel(button(u"CommandCancel"_s, TextId::cancel, TextId::cancelEntryTip)) {
    setObjectName(u"CertificateSettingsDialog"_s);
    setWindowTitle(text(TextId::certificateSettings));
    setAttribute(Qt::WA_DeleteOnClose);
    TextFileName->setToolTip(text(TextId::certificateSettingsFileNameTip));
    SpinGuardBand->setRange(0, 100);
    SpinGuardBand->setDecimals(1);
    CommandOk->setDefault(true);
    layOut();
    auto& ui = workstation.ui;
    connectGuarded(CommandOk, &QPushButton::clicked, this, ui, [this] { store(); });
    connectGuarded(CommandCancel, &QPushButton::clicked, this, ui, [this] { reject(); });
    QObject::connect(ComboRule, &QComboBox::currentIndexChanged, SpinGuardBand, [this](int rule) {
        SpinGuardBand->setEnabled(rule == static_cast<int>(DecisionRule::guardBand));
    });
    runGuarded(ui, [this] { show(certificateSettings(workstation_)); });
}

void CertificateSettingsDialog::layOut() {
    struct Row {
        QWidget* control;
        TextId caption;
    };
    const Row rows[] = {
        {TextLaboratory, TextId::certificateSettingsLaboratory},
        {TextAddress, TextId::certificateSettingsAddress},
        {TextAccreditation, TextId::certificateSettingsAccreditation},
        {TextCustomer, TextId::certificateSettingsCustomer},
        {TextMethod, TextId::certificateSettingsMethod},
        {TextTraceability, TextId::certificateSettingsTraceability},
        {TextUncertainty, TextId::certificateSettingsUncertainty},
        {TextAuthorized, TextId::certificateSettingsAuthorized},
        {ComboRule, TextId::certificateSettingsRule},
        {SpinGuardBand, TextId::certificateSettingsGuardBand},
        {ComboPaper, TextId::certificateSettingsPaper},
        {TextFileName, TextId::certificateSettingsFileName},
    };
    auto* fields = new QWidget;
    auto* grid = new QGridLayout(fields);
    grid->setContentsMargins(0, 0, 0, 0);
    int row = 0;
    for (const auto& entry : rows) {
        auto* caption = labelFor(entry.control, u"Label%1"_s.arg(row + 1), entry.caption);
        grid->addWidget(caption, row, 0, Qt::AlignLeft | Qt::AlignTop);
        grid->addWidget(entry.control, row++, 1);
    }
    grid->setColumnStretch(1, 1);
    auto* commands = new QHBoxLayout;
    commands->addStretch(1);
    commands->addWidget(CommandOk);
    commands->addWidget(CommandCancel);
    auto* scrolled = scrollArea(fields);
    auto* column = new QVBoxLayout(this);
    column->addWidget(scrolled, 1);
    column->addLayout(commands);
    // All of them where the screen has room for that.
    const QSize more(0, fields->sizeHint().height() - scrolled->sizeHint().height());
    resize((sizeHint() + more).boundedTo(screen()->availableSize() * 9 / 10));
    kelvane::setTabOrder({TextLaboratory, TextAddress, TextAccreditation, TextCustomer, TextMethod,
                          TextTraceability, TextUncertainty, TextAuthorized, ComboRule, SpinGuardBand,
                          ComboPaper, TextFileName, CommandOk, CommandCancel});
}

void CertificateSettingsDialog::show(const CertificateSettings& settings) {
    TextLaboratory->setText(settings.laboratory);
    TextAddress->setText(settings.address);
    TextAccreditation->setText(settings.accreditation);
    TextCustomer->setText(settings.customer);
    TextMethod->setText(settings.method);
    TextTraceability->setText(settings.traceability);
    TextUncertainty->setText(settings.uncertainty);
    TextAuthorized->setText(settings.authorizedBy);
    ComboRule->setCurrentIndex(static_cast<int>(settings.rule));
    SpinGuardBand->setValue(settings.guardBand);
    SpinGuardBand->setEnabled(settings.rule == DecisionRule::guardBand);
    ComboPaper->setCurrentText(settings.paper.isEmpty() ? usualPaper() : settings.paper);
    TextFileName->setText(settings.fileName);
}

CertificateSettings CertificateSettingsDialog::entered() const {
    return {.laboratory = TextLaboratory->text(),
            .address = TextAddress->text(),
            .accreditation = TextAccreditation->text(),
            .customer = TextCustomer->text(),
            .method = TextMethod->text(),
            .traceability = TextTraceability->text(),
            .uncertainty = TextUncertainty->text(),
            .authorizedBy = TextAuthorized->text(),
            .rule = static_cast<DecisionRule>(ComboRule->currentIndex()),
            .guardBand = SpinGuardBand->value(),
            .paper = ComboPaper->currentText(),
            .fileName = TextFileName->text()};
}

void CertificateSettingsDialog::store() {
    storeCertificateSettings(workstation_, entered());
    accept();
}

} // namespace kelvane
