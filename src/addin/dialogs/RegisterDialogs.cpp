#include "addin/dialogs/RegisterDialogs.h"

#include "addin/dialogs/frmAbout.h"
#include "addin/dialogs/frmCodePreview.h"
#include "addin/dialogs/frmOption.h"
#include "addin/dialogs/frmProcessing.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "platform/forms/Forms.h"

namespace quorvane {

void RegisterDialogs() {
  forms::TheForms().Register(u"frmSearchDialog", [] { return std::make_shared<frmSearchDialog>(); });
  forms::TheForms().Register(u"frmCodePreview", [] { return std::make_shared<frmCodePreview>(); });
  forms::TheForms().Register(u"frmAbout", [] { return std::make_shared<frmAbout>(); });
  forms::TheForms().Register(u"frmProcessing", [] { return std::make_shared<frmProcessing>(); });
  forms::TheForms().Register(u"frmOption", [] { return std::make_shared<frmOption>(); });
}

}  // namespace quorvane
