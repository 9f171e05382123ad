#include "windows/dialogs/AboutView.h"

#include "addin/dialogs/frmAbout.h"
#include "windows/controls/ButtonView.h"
#include "windows/controls/EditView.h"
#include "windows/controls/FrameView.h"
#include "windows/controls/LabelView.h"
#include "windows/controls/LinkView.h"
#include "windows/controls/PictureView.h"
#include "windows/controls/RuleView.h"

namespace quorvane::windows {

namespace {

constexpr int kGap = 4;
constexpr int kWideGap = 8;
constexpr int kTextColumns = 80;
constexpr int kReadMeLines = 12;
constexpr int kLicenceLines = 9;

}  // namespace

AboutView::AboutView(frmAbout& form, HWND parent) : DialogView(form, parent), form_(form) {
  auto all = MakeColumn(Units().Down(kGap));
  all->Add(MakeHead());
  all->Add(MakeText(form_.Frame说明, form_.txt说明, kReadMeLines));
  all->Add(MakeText(form_.Frame许可, form_.txt许可, kLicenceLines));
  all->Add(Enter<RuleView>(form_.Line1[0], Handle()));
  all->Add(MakeFoot());
  SetLayout(std::move(all), *form_.cmdOK);
}

std::unique_ptr<Placeable> AboutView::MakeHead() {
  auto head = MakeRow(Units().Across(kWideGap));
  head->Add(Enter<PictureView>(form_.picIcon, Handle()), {.StaysSmall = true});
  auto words = MakeColumn(Units().Down(2));
  words->AddStretch();
  words->Add(Enter<LabelView>(form_.lblTitle, Handle(), LabelView::Look::Title));
  words->Add(Enter<LabelView>(form_.lblVersion, Handle()));
  words->AddStretch();
  head->Add(std::move(words), {.Stretch = 1});
  return head;
}

std::unique_ptr<Placeable> AboutView::MakeText(const std::shared_ptr<forms::Frame>& frame,
                                               const std::shared_ptr<forms::TextBox>& text, int lines) {
  auto& box = Enter<FrameView>(frame, Handle());
  auto inside = MakeColumn(0);
  inside->Add(Enter<EditView>(text, Handle(), kTextColumns, lines), {.Stretch = 1});
  return box.Around(std::move(inside));
}

std::unique_ptr<Placeable> AboutView::MakeFoot() {
  auto links = std::make_unique<Grid>(Units().Across(kGap), Units().Down(2));
  const auto line = [&](const std::shared_ptr<forms::Label>& label, const std::shared_ptr<forms::Label>& link) {
    auto& words = Enter<LabelView>(label, Handle());
    auto& place = Enter<LinkView>(link, Handle());
    links->AddRow({&words, &place});
  };
  line(form_.lbl网址, form_.lblProjectUrl);
  line(form_.lbl邮箱, form_.lblEmail);
  auto foot = MakeRow(Units().Across(kGap));
  foot->Add(std::move(links));
  foot->AddStretch();
  foot->Add(Enter<ButtonView>(form_.cmdOK, Handle()), {.StaysSmall = true});
  return foot;
}

}  // namespace quorvane::windows
