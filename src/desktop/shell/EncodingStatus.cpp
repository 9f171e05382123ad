#include "desktop/shell/EncodingStatus.h"

#include <QMenu>
#include <QStatusBar>
#include <QToolButton>
#include <utility>

#include "desktop/files/FileCommands.h"
#include "desktop/platform/CodePageTitles.h"
#include "desktop/platform/Texts.h"
#include "desktop/shell/EncodingMenu.h"

namespace quorvane::desktop {

EncodingStatus::EncodingStatus(QStatusBar& bar, FileCommands& files, const Texts& texts,
                               std::function<EncodingScope()> scope)
    : files_(files), texts_(texts), scope_(std::move(scope)), button_(new QToolButton), menu_(new QMenu(button_)) {
  button_->setObjectName(QStringLiteral("CodePage"));
  button_->setAutoRaise(true);
  button_->setFocusPolicy(Qt::NoFocus);
  QObject::connect(button_, &QToolButton::clicked, menu_, [this] {
    FillEncodingMenu(*menu_, scope_(), files_, texts_);
    menu_->popup(button_->mapToGlobal(QPoint(0, -menu_->sizeHint().height())));
  });
  bar.addPermanentWidget(button_);
}

void EncodingStatus::Update() {
  const EncodingScope scope = scope_();
  button_->setVisible(scope.component != nullptr);
  if (!scope.component) return;
  const QString page = files_.PageOf(scope);
  button_->setText(texts_(Text::StatusPage).arg(page));
  button_->setToolTip(CodePageTitle(page, texts_.Language));
}

}  // namespace quorvane::desktop
