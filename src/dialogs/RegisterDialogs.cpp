#include "dialogs/RegisterDialogs.h"

#include "dialogs/frmAbout.h"
#include "dialogs/frmCodePreview.h"
#include "dialogs/frmProcessing.h"
#include "dialogs/frmSearchDialog.h"
#include "platform/forms/Forms.h"
#include "services/frmOption.h"

namespace quorvane {

void RegisterDialogs() {
  TheForms().Register(u"frmSearchDialog", [] { return std::make_shared<frmSearchDialog>(); });
  TheForms().Register(u"frmCodePreview", [] { return std::make_shared<frmCodePreview>(); });
  TheForms().Register(u"frmAbout", [] { return std::make_shared<frmAbout>(); });
  TheForms().Register(u"frmProcessing", [] { return std::make_shared<frmProcessing>(); });
  TheForms().Register(u"frmOption", [] { return std::make_shared<frmOption>(); });
}

}  // namespace quorvane
