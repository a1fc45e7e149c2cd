#pragma once

#include "ui/child_window.h"

class QComboBox;

namespace kelvane {

/// The choice of the data source. What is chosen is stored at once and used by the next login.
class FormODBC final : public ChildWindow {
    Q_OBJECT
  public:
    /// `dataSources` are the names that the driver manager knows, in its order.
    FormODBC(Session& session, const QStringList& dataSources);

  private:
    void selectStored();
    void store();

    QComboBox* ComboDatasource;
};

} // namespace kelvane
