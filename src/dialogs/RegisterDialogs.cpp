#include "dialogs/RegisterDialogs.h"

#include "dialogs/frmSearchDialog.h"
#include "platform/forms/Forms.h"

namespace quorvane {

void RegisterDialogs() {
  TheForms().Register(u"frmSearchDialog", [] { return std::make_shared<frmSearchDialog>(); });
}

}  // namespace quorvane
