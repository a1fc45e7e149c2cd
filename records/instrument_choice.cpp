#include "records/instrument_choice.h"

#include "platform/error_report.h"
#include "resources/text_id.h"
#include "ui/controls.h"
#include "ui/guarded.h"

#include <QHBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

const auto settingsSection = u"Records"_s;
const auto kindSetting = u"Show"_s;
const auto valueSetting = u"ShowValue"_s;

/// A row of the filters to choose from.
struct Choice {
    /// In the settings.
    QString name;
    TextId caption;
    int days = 0;
    bool isOverdue = false;
    std::optional<InstrumentOrder> values = {};
    QString InstrumentFilter::*value = nullptr;
};

const QList<Choice>& choices() {
    using Filter = InstrumentFilter;
    static const QList<Choice> rows{
        {u"All"_s, TextId::recordsAll},
        {u"Overdue"_s, TextId::recordsOverdue, 0, true},
        {u"Within30"_s, TextId::recordsDueWithin, 30},
        {u"Within60"_s, TextId::recordsDueWithin, 60},
        {u"Within90"_s, TextId::recordsDueWithin, 90},
        {u"Group"_s, TextId::recordsOfGroup, 0, false, InstrumentOrder::group, &Filter::group},
        {u"Model"_s, TextId::recordsOfModel, 0, false, InstrumentOrder::model, &Filter::model},
        {u"Description"_s, TextId::recordsOfDescription, 0, false, InstrumentOrder::description,
         &Filter::description},
    };
    return rows;
}

QStringList captions() {
    QStringList captions;
    for (const auto& choice : choices())
        captions << (choice.days > 0 ? text(choice.caption).arg(choice.days) : text(choice.caption));
    return captions;
}

} // namespace

InstrumentChoice::InstrumentChoice(Session& session, QWidget* parent)
    : QWidget(parent),
      session_(session),
      ComboShow(dropDown(u"ComboShow"_s, text(TextId::recordsSaved), TextId::recordsSavedTip, captions())),
      ComboValue(dropDown(u"ComboValue"_s, text(TextId::recordsValueTip), TextId::recordsValueTip)) {
    setObjectName(u"InstrumentChoice"_s);
    keepWidth(ComboValue);
    showValues(false);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(labelFor(ComboShow, u"Label2"_s, TextId::recordsSaved));
    row->addWidget(ComboShow);
    row->addWidget(ComboValue, 1);
    connectGuarded(ComboShow, &QComboBox::currentIndexChanged, this, session.ui, [this] { chooseKind(); });
    connectGuarded(ComboValue, &QComboBox::activated, this, session.ui, [this] {
        store();
        Q_EMIT chosen();
    });
}

bool InstrumentChoice::setIn(InstrumentFilter& filter) const {
    const auto& choice = choices().at(row_);
    filter.isOverdue = choice.isOverdue;
    if (choice.days > 0)
        filter.dueWithinDays = choice.days;
    if (choice.value == nullptr)
        return true;
    filter.*choice.value = ComboValue->currentText();
    // An empty one would be no filter.
    return !ComboValue->currentText().isEmpty();
}

void InstrumentChoice::chooseKind() {
    // Without a connection whoever shows the instruments says so.
    if (!showKind() && session_.SessionConnected)
        return;
    store();
    Q_EMIT chosen();
}

/// Shows the values of the chosen row; when they can't be read, the row before stays.
bool InstrumentChoice::showKind() {
    const auto& choice = choices().at(ComboShow->currentIndex());
    QStringList values;
    if (choice.values) {
        const auto read =
            session_.SessionConnected ? instrumentValues(session_, *choice.values) : std::nullopt;
        if (!read) {
            const QSignalBlocker quiet(ComboShow);
            ComboShow->setCurrentIndex(row_);
            return false;
        }
        values = *read;
        std::ranges::sort(values);
    }
    row_ = ComboShow->currentIndex();
    ComboValue->clear();
    ComboValue->addItems(values);
    showValues(choice.values.has_value());
    return true;
}

/// Only values take more room than they need.
void InstrumentChoice::showValues(bool isShown) {
    ComboValue->setVisible(isShown);
    setSizePolicy(isShown ? QSizePolicy::Expanding : QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void InstrumentChoice::store() {
    ModuleGlobals::SaveRegSetting(session_, settingsSection, kindSetting, choices().at(row_).name);
    ModuleGlobals::SaveRegSetting(session_, settingsSection, valueSetting, ComboValue->currentText());
}

void InstrumentChoice::restore() {
    const auto kind = ModuleGlobals::GetRegSetting(session_, settingsSection, kindSetting);
    const auto value = ModuleGlobals::GetRegSetting(session_, settingsSection, valueSetting);
    const auto found = std::ranges::find(choices(), kind, &Choice::name);
    if (found == choices().cend())
        return;
    const QSignalBlocker quiet(ComboShow);
    ComboShow->setCurrentIndex(static_cast<int>(found - choices().cbegin()));
    if (!showKind() || found->value == nullptr)
        return;
    const int row = ComboValue->findText(value, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row < 0)
        forget();
    else
        ComboValue->setCurrentIndex(row);
}

void InstrumentChoice::forget() {
    const QSignalBlocker quiet(ComboShow);
    ComboShow->setCurrentIndex(0);
    row_ = 0;
    ComboValue->clear();
    showValues(false);
}

} // namespace kelvane
