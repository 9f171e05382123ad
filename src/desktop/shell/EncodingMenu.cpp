#include "desktop/shell/EncodingMenu.h"

#include <QMenu>

#include "desktop/files/FileCommands.h"
#include "desktop/platform/CodePageTitles.h"
#include "desktop/platform/Texts.h"

namespace quorvane::desktop {

void FillEncodingMenu(QMenu& menu, const EncodingScope& scope, FileCommands& files, const Texts& texts) {
  menu.clear();
  const QString now = files.PageOf(scope);
  for (const QString& name : CodePageNames()) {
    QAction* entry = menu.addAction(CodePageTitle(name, texts.Language), &menu,
                                    [&files, scope, name] { files.Reopen(scope, name); });
    entry->setCheckable(true);
    entry->setChecked(name == now);
  }
}

}  // namespace quorvane::desktop
