#include "qt/qt_forms.h"

#include "qt/method_form.h"

namespace tavlero {

QtFormFactory::~QtFormFactory() {
  delete programInfo_.data();
}

std::unique_ptr<MethodFormView> QtFormFactory::makeMethodForm() {
  return std::make_unique<QtMethodForm>(app_, parent_);
}

std::unique_ptr<MethodInfoView> QtFormFactory::makeMethodInfoForm() {
  return std::make_unique<QtMethodInfoForm>(app_, parent_);
}

std::unique_ptr<AboutView> QtFormFactory::makeAboutForm() {
  return std::make_unique<QtAboutForm>(app_, parent_);
}

ProgramInfoView& QtFormFactory::programInfoForm() {
  if (!programInfo_) programInfo_ = new QtProgramInfoForm(app_, parent_);
  return *programInfo_;
}

}  // namespace tavlero
