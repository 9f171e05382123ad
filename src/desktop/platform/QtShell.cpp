#include "desktop/platform/QtShell.h"

#include <QDesktopServices>
#include <QUrl>

#include "base/Error.h"
#include "desktop/platform/QtText.h"

namespace quorvane::desktop {

void QtShell::OpenAddress(const std::u16string& address) {
  if (QDesktopServices::openUrl(QUrl(ToQString(address)))) return;
  RaiseError(ErrorNumber::InvalidProcedureCall, u"There is no program to open " + address);
}

}  // namespace quorvane::desktop
