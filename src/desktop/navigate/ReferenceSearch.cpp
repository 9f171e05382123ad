#include "desktop/navigate/ReferenceSearch.h"

#include <memory>

#include "addin/core/Globals.h"
#include "addin/dialogs/frmSearchDialog.h"
#include "addin/settings/ConditionValues.h"
#include "base/Skip.h"
#include "desktop/platform/QtText.h"
#include "platform/forms/Forms.h"

namespace quorvane::desktop {

void FillReferenceSearch(const QString& name) {
  if (!Globals::gobjSetting) return;
  SkipErrors([&] {
    const auto dialog = std::dynamic_pointer_cast<frmSearchDialog>(forms::TheForms().Instance(u"frmSearchDialog"));
    if (!dialog || !dialog->Visible()) return;
    dialog->optMode.SetValue(gsCommon, true);
    dialog->optArea.SetValue(gsAllProjects, true);
    dialog->chkWholeWord->SetValue(1);
    dialog->chkMatchCase->SetValue(0);
    dialog->cmbSearch->SetText(FromQString(name));
  });
}

}  // namespace quorvane::desktop
