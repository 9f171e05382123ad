#include "desktop/files/ErrorBox.h"

#include <QMessageBox>

namespace quorvane::desktop {

QString BoxTitle() {
  return QStringLiteral("Quorvane");
}

void TellError(QWidget& parent, const QString& what, const QString& why) {
  QMessageBox box(QMessageBox::Critical, BoxTitle(), what, QMessageBox::Ok, &parent);
  box.setInformativeText(why);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace quorvane::desktop
