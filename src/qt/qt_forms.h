#pragma once
// Makes the Qt views of the dialogs, as children of main. programInfoForm lives as long
// as the factory; the others live as long as the logic holds them.

#include <QPointer>
#include <QWidget>

#include "core/app.h"
#include "platform/forms.h"
#include "qt/info_forms.h"

namespace tavlero {

class QtFormFactory : public FormFactory {
 public:
  explicit QtFormFactory(App& app) : app_(app) {}
  ~QtFormFactory() override;

  // main, the parent of every form made from now on.
  void setParent(QWidget* parent) { parent_ = parent; }

  std::unique_ptr<MethodFormView> makeMethodForm() override;
  std::unique_ptr<MethodInfoView> makeMethodInfoForm() override;
  std::unique_ptr<AboutView> makeAboutForm() override;
  ProgramInfoView& programInfoForm() override;

 private:
  App& app_;
  QWidget* parent_ = nullptr;
  // Also a child of main, which may delete it first.
  QPointer<QtProgramInfoForm> programInfo_;
};

}  // namespace tavlero
