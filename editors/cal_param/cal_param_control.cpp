#include "editors/cal_param/cal_param_control.h"

#include "editors/cal_param/cal_param_field_table.h"
#include "editors/cal_param/entry_box.h"
#include "platform/values/numbers.h"
#include "platform/values/texts.h"
#include "ui/controls.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QRadioButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kelvane {

namespace {

/// The caption of a field with the subject that it belongs to.
QString accessibleText(std::optional<TextId> subject, TextId caption) {
    return subject ? text(*subject) + u' ' + text(caption) : text(caption);
}

class TextBox final : public CalParamControl {
  public:
    TextBox(const CalParamField& field, const CalParamTextBox& given)
        : box_(nameControl(new EntryBox, field.name.toString(), accessibleText(field.subject, field.caption),
                           field.toolTip)) {
        box_->setText(given.starts.toString());
    }
    void show(const QString& value) override { box_->setText(value); }
    QString entry() const override { return box_->text(); }
    QWidget* widget() const override { return box_; }

  private:
    EntryBox* box_;
};

class List final : public CalParamControl {
  public:
    List(const CalParamField& field, const CalParamList& given)
        : list_(dropDown(field.name.toString(), text(field.caption), field.toolTip)),
          ofNumbers_(std::holds_alternative<float CalParamRecord::*>(field.member)) {
        for (const auto row : given.rows)
            list_->addItem(row.toString());
        list_->setCurrentIndex(given.starts.isEmpty() ? -1 : list_->findText(given.starts.toString()));
    }
    void show(const QString& value) override {
        for (int row = 0; row < list_->count(); ++row) {
            if (isSame(list_->itemText(row), value)) {
                list_->setCurrentIndex(row);
                return;
            }
        }
    }
    QString entry() const override { return list_->currentText(); }
    QWidget* widget() const override { return list_; }

  private:
    /// A number is the same however it is written.
    bool isSame(const QString& row, const QString& value) const {
        return ofNumbers_ ? toReal(numericValue(row)) == toReal(numericValue(value)) : row == value;
    }

    QComboBox* list_;
    bool ofNumbers_;
};

class TickBox final : public CalParamControl {
  public:
    TickBox(const CalParamField& field, const CalParamCheckBox& /*given*/)
        : box_(nameControl(new QCheckBox, field.name.toString(), text(field.caption), field.toolTip)) {
        box_->setText(text(field.caption));
    }
    void show(const QString& value) override { box_->setChecked(value == u"Y"); }
    QString entry() const override { return box_->isChecked() ? u"Y"_s : u"N"_s; }
    QWidget* widget() const override { return box_; }
    void put(QGridLayout& grid, int row, int labelColumn) const override {
        grid.addWidget(box_, row, labelColumn, 1, 2);
    }

  private:
    QCheckBox* box_;
};

class OptionGroup final : public CalParamControl {
  public:
    OptionGroup(const CalParamField& field, const CalParamOptions& given)
        : given_(given), stacked_(field.label == CalParamLabel::no) {
        for (const auto& option : given.options) {
            auto* button = nameControl(new QRadioButton, field.name.toString().arg(option.name),
                                       accessibleText(field.caption, option.caption), option.toolTip);
            button->setText(text(option.caption));
            button->setChecked(option.stored == given.starts);
            buttons_ << button;
        }
    }
    void show(const QString& value) override {
        const auto stored = given_.anyCase ? toUpperCase(value) : value;
        for (qsizetype i = 0; i < buttons_.size(); ++i) {
            if (optionAt(i).stored == stored)
                buttons_[i]->setChecked(true);
        }
    }
    QString entry() const override { return optionAt(on()).stored.toString(); }
    QString sumText() const override { return optionAt(on()).summed.toString(); }
    QWidget* widget() const override { return buttons_[on()]; }
    void put(QGridLayout& grid, int row, int labelColumn) const override {
        if (stacked_) {
            for (auto* button : buttons_)
                grid.addWidget(button, row++, labelColumn, 1, 2);
            return;
        }
        auto* line = new QHBoxLayout;
        grid.addLayout(line, row, labelColumn + 1);
        for (auto* button : buttons_)
            line->addWidget(button);
        line->addStretch();
    }

  private:
    qsizetype on() const {
        const auto on = std::ranges::find_if(buttons_, &QRadioButton::isChecked);
        return on == buttons_.end() ? 0 : on - buttons_.begin();
    }
    const CalParamOption& optionAt(qsizetype button) const {
        return given_.options[static_cast<std::size_t>(button)];
    }

    const CalParamOptions& given_;
    QList<QRadioButton*> buttons_;
    bool stacked_;
};

std::unique_ptr<CalParamControl> make(const CalParamField& field, const CalParamTextBox& given) {
    return std::make_unique<TextBox>(field, given);
}
std::unique_ptr<CalParamControl> make(const CalParamField& field, const CalParamList& given) {
    return std::make_unique<List>(field, given);
}
std::unique_ptr<CalParamControl> make(const CalParamField& field, const CalParamCheckBox& given) {
    return std::make_unique<TickBox>(field, given);
}
std::unique_ptr<CalParamControl> make(const CalParamField& field, const CalParamOptions& given) {
    return std::make_unique<OptionGroup>(field, given);
}

} // namespace

void CalParamControl::put(QGridLayout& grid, int row, int labelColumn) const {
    grid.addWidget(widget(), row, labelColumn + 1);
}

std::unique_ptr<CalParamControl> makeCalParamControl(const CalParamField& field) {
    return std::visit([&](const auto& given) { return make(field, given); }, field.control);
}

} // namespace kelvane
