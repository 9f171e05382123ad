#include "desktop/dialogs/ProcessingView.h"

#include <QProgressBar>
#include <QVBoxLayout>

#include "addin/dialogs/frmProcessing.h"

namespace quorvane::desktop {

namespace {

constexpr int kBarWidth = 280;

}  // namespace

ProcessingView::ProcessingView(frmProcessing& form, QWidget* parent) : DialogView(form, parent) {
  const forms::ProgressBar& model = *form.pb检查更新;
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  auto* bar = Enter(form.pb检查更新, new QProgressBar(this));
  bar->setRange(model.Min(), model.Max());
  bar->setTextVisible(false);
  bar->setMinimumWidth(kBarWidth);
  layout->addWidget(bar);
  const auto follow = [bar, &model] { bar->setValue(model.Value()); };
  changed_ = form.pb检查更新->Changed.Subscribe(follow);
  follow();
}

}  // namespace quorvane::desktop
