#pragma once
// The common file dialog on Qt's own file dialog, the same on every system.

#include <QWidget>

#include "platform/common_dialog.h"

namespace tavlero {

class QtCommonDialog : public CommonDialog {
 public:
  void setParent(QWidget* parent) { parent_ = parent; }

  bool ShowOpen() override;
  bool ShowSave() override;

 private:
  bool show(bool save);
  QWidget* parent_ = nullptr;
};

}  // namespace tavlero
