#pragma once

#include <QStringList>

#include <gtest/gtest.h>

#include "editors/cal_param/cal_param_fields.h"
#include "editors/cal_param/cal_param_pages.h"

#include "testkit/given_params.h"

#include <memory>

class QWidget;

namespace kelvane::testing {

/// What a control of the screen shows: the text of a text box or a list, "on" or "off" of an option or a
/// check box, the rows of a list of messages with a comma between them.
QString shownBy(const QWidget& screen, const QString& name);
/// All of them, as "name: value", in the order of the names.
QStringList allShown(const QWidget& screen);
/// Lets a control show a value, as above; a list has to have such a row.
void show(const QWidget& screen, const QString& name, const QString& value);
/// Brings up the pages on which a control stands.
void bringToFront(QWidget& control);

/// What a control shows of a value of its parameter.
QString shownFor(const GivenControl& control, QStringView value);

/// The names of all controls that hold a value.
QStringList valueControls(const QWidget& screen);

/// The pages of the parameter editor by themselves, as they stand before any record is shown.
class CalParamPages : public ::testing::Test {
  protected:
    CalParamFields fields;
    CalParamControls c;
    std::unique_ptr<QWidget> body{makeCalParamPages(c, fields)};
};

} // namespace kelvane::testing
