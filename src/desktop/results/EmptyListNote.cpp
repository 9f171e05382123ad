#include "desktop/results/EmptyListNote.h"

#include <memory>

#include "addin/core/Globals.h"
#include "addin/results/Page.h"
#include "addin/results/PageCollection.h"
#include "addin/results/PageManager.h"
#include "addin/search/ResultCollection.h"
#include "addin/search/TaskManager.h"
#include "desktop/platform/Texts.h"
#include "platform/forms/Label.h"
#include "platform/forms/OwnerDrawList.h"

namespace quorvane::desktop {

QString EmptyListNote(const forms::OwnerDrawList& list) {
  if (list.ListCount() > 0 || !Globals::gobjPageManager || !Globals::gobjPageManager->mcolPages) return {};
  for (const auto& shown : *Globals::gobjPageManager->mcolPages) {
    const auto page = std::dynamic_pointer_cast<Page>(shown);
    if (!page || page->mlstResultList.get() != &list) continue;
    if (!page->mobjLabel || !page->mobjTask || !page->mcolResult) return {};  // on its way in or out
    const bool searched = !page->mobjLabel->Caption().empty() && !page->mobjTask->Running();
    return searched && page->mcolResult->Count() == 0 ? Texts::OfAddIn()(Text::NothingFound) : QString();
  }
  return {};
}

}  // namespace quorvane::desktop
