#include "windows/results/ResultView.h"

#include <utility>

#include "addin/results/ResultDialog.h"
#include "platform/forms/Label.h"
#include "platform/forms/OwnerDrawList.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Tab.h"
#include "platform/forms/TabControl.h"
#include "windows/controls/Input.h"
#include "windows/forms/Handles.h"
#include "windows/forms/Metrics.h"
#include "windows/forms/ViewFactory.h"
#include "windows/results/ResultListView.h"
#include "windows/results/ResultStatusLine.h"
#include "windows/results/ResultTabBar.h"
#include "windows/results/ResultViewMemory.h"

namespace quorvane::windows {

namespace {

constexpr UINT_PTR kFitTimer = 1;
constexpr SIZE kUsualSize{480, 200};  // pixels at 96 an inch

RECT ClientOf(HWND window) {
  RECT client{};
  ::GetClientRect(window, &client);
  return client;
}

bool HasFocusInside(HWND window) {
  const HWND focus = ::GetFocus();
  return focus != nullptr && (focus == window || ::IsChild(window, focus));
}

void MoveTo(HWND window, const RECT& place) {
  RECT now{};
  ::GetWindowRect(window, &now);
  ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&now), 2);
  if (::EqualRect(&now, &place)) return;
  ::MoveWindow(window, place.left, place.top, Width(place), Height(place), TRUE);
}

}  // namespace

/// Holds the controls of one page.
class ResultView::Panel final : public Window {
 public:
  explicit Panel(HWND parent) {
    Making making;
    making.style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    making.extendedStyle = WS_EX_CONTROLPARENT;
    making.parent = parent;
    Create(making);
  }
};

ResultView::ResultView(ResultDialog& document, HWND parent, std::shared_ptr<ResultViewMemory> memory)
    : document_(document),
      memory_(std::move(memory)),
      resultMenu_(document.mnuResultOption, [this] { return Handle(); }),
      tabMenu_(document.mnuTabOption, [this] { return Handle(); }),
      fit_(kFitTimer, [this] { FitPanels(); }) {
  Making making;
  making.style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  making.extendedStyle = WS_EX_CONTROLPARENT;
  making.parent = parent;
  making.place = {0, 0, Scaled(kUsualSize.cx), Scaled(kUsualSize.cy)};
  Create(making);
  tips_ = std::make_unique<ToolTips>(Handle());
  bar_ = std::make_unique<ResultTabBar>(*document.vbalDTabControl1, Handle());
  subscriptions_.push_back(bar_->TabPressed.Subscribe([this] { MoveFocusOn(); }));
  subscriptions_.push_back(
      bar_->KeyPressed.Subscribe([this](std::int16_t key) { document_.KeyDown(key, HeldKeys()); }));
  document_.SetHwnd(HandleOf(Handle()));
  subscriptions_.push_back(document_.Controls().Added.Subscribe([this](forms::Control& control) { Add(control); }));
  subscriptions_.push_back(
      document_.Controls().Removed.Subscribe([this](forms::Control& control) { Remove(control); }));
  for (const auto& control : document_.Controls().All()) Add(*control);
  Layout();
}

ResultView::~ResultView() {
  OnGone();
  Destroy();
}

/// The window goes; another may show the document meanwhile.
void ResultView::OnGone() {
  subscriptions_.clear();
  fit_.Drop();
  for (const auto& [control, shown] : shown_) {
    shown->subscriptions.clear();
    if (const auto* list = dynamic_cast<const ResultListView*>(shown->window.get())) {
      memory_->Keep(std::static_pointer_cast<forms::OwnerDrawList>(shown->control), list->Place());
    }
  }
  if (Handle() != nullptr && document_.hwnd() == HandleOf(Handle())) document_.SetHwnd(0);
}

void ResultView::Register(ViewFactory& views) {
  views.RegisterDocument<ResultDialog>(
      [memory = std::make_shared<ResultViewMemory>()](ResultDialog& document, HWND parent) -> std::unique_ptr<View> {
        return std::make_unique<ResultView>(document, parent, memory);
      });
}

SIZE ResultView::WantedSize() const {
  return {Scaled(kUsualSize.cx), Scaled(kUsualSize.cy)};
}

// --- the document's controls ---

void ResultView::Add(const forms::Control& control) {
  auto& entry = shown_[&control];
  entry = std::make_unique<Shown>();
  entry->control = document_.Controls().Item(control.Name());
  Shown& shown = *entry;
  shown.subscriptions.push_back(shown.control->Changed.Subscribe([this, &shown] { Follow(shown); }));
  Follow(shown);
}

/// The control may go from inside an event of its own window.
void ResultView::Remove(const forms::Control& control) {
  const auto found = shown_.find(&control);
  if (found == shown_.end()) return;
  std::unique_ptr<Shown> shown = std::move(found->second);
  shown_.erase(found);
  shown->subscriptions.clear();
  const bool focus = shown->window && HasFocusInside(shown->window->Handle());
  Bury(std::move(shown->window));
  if (focus) TakeFocus();
}

const ResultView::Shown* ResultView::Find(const forms::Control* control) const {
  const auto found = shown_.find(control);
  return found != shown_.end() ? found->second.get() : nullptr;
}

/// A list is called by the caption of its tab.
std::u16string ResultView::NameOfList(const forms::Control& list) const {
  for (const auto& tab : document_.vbalDTabControl1->Tabs()) {
    if (tab->Panel() && tab->Panel() == list.Container()) return tab->Caption();
  }
  return {};
}

std::unique_ptr<Window> ResultView::MakeList(Shown& shown, HWND container) {
  const auto model = std::static_pointer_cast<forms::OwnerDrawList>(shown.control);
  auto list = std::make_unique<ResultListView>(model, container, memory_->PlaceOf(model));
  ::SetWindowPos(list->Handle(), HWND_TOP, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);  // over the status line
  list->Name = [this, model] { return NameOfList(*model); };
  shown.subscriptions.push_back(list->TabPressed.Subscribe([this] { MoveFocusOn(); }));
  return list;
}

std::unique_ptr<Window> ResultView::Make(Shown& shown) {
  if (dynamic_cast<forms::PictureBox*>(shown.control.get()) != nullptr) return std::make_unique<Panel>(Handle());
  const Shown* container = Find(shown.control->Container().get());
  if (container == nullptr || !container->window) return nullptr;
  const HWND parent = container->window->Handle();
  if (dynamic_cast<forms::OwnerDrawList*>(shown.control.get()) != nullptr) return MakeList(shown, parent);
  if (auto label = std::dynamic_pointer_cast<forms::Label>(shown.control)) {
    return std::make_unique<ResultStatusLine>(std::move(label), parent, *tips_);
  }
  return nullptr;
}

void ResultView::Follow(Shown& shown) {
  const bool isPanel = dynamic_cast<forms::PictureBox*>(shown.control.get()) != nullptr;
  if (!shown.window) {
    shown.window = Make(shown);
    if (!shown.window) return;
    if (isPanel) fit_.Ask(Handle());  // whoever places what lies in it may not listen yet
  }
  const forms::Control& control = *shown.control;
  const HWND window = shown.window->Handle();
  if (!isPanel) {
    MoveTo(window, {PixelsOfTwips(control.Left()), PixelsOfTwips(control.Top()),
                    PixelsOfTwips(control.Left() + control.Width()), PixelsOfTwips(control.Top() + control.Height())});
  }
  if ((::IsWindowEnabled(window) != FALSE) != control.Enabled()) ::EnableWindow(window, control.Enabled());
  const bool shows = (::GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
  if (shows == control.Visible()) return;
  ::ShowWindow(window, control.Visible() ? SW_SHOWNA : SW_HIDE);
  FollowFocus();
}

// --- layout ---

void ResultView::Layout() {
  const RECT inside = ClientOf(Handle());
  MoveTo(bar_->Handle(), {0, 0, inside.right, bar_->WantedHeight()});
  FitPanels();
}

void ResultView::FitPanels() {
  const RECT inside = ClientOf(Handle());
  const LONG top = bar_->WantedHeight();
  const RECT place{0, top, inside.right, inside.bottom > top ? inside.bottom : top};
  for (const auto& [control, shown] : shown_) {
    if (!shown->window || dynamic_cast<forms::PictureBox*>(shown->control.get()) == nullptr) continue;
    MoveTo(shown->window->Handle(), place);
    const std::shared_ptr<forms::Control> panel = shown->control;
    panel->Move(0, TwipsOfPixels(top), TwipsOfPixels(Width(place)), TwipsOfPixels(Height(place)));
  }
}

// --- focus and keys ---

ResultListView* ResultView::CurrentList() const {
  for (const auto& [control, shown] : shown_) {
    auto* list = dynamic_cast<ResultListView*>(shown->window.get());
    const auto container = list != nullptr ? shown->control->Container() : nullptr;
    if (container && container->Visible() && shown->control->Visible()) return list;
  }
  return nullptr;
}

void ResultView::TakeFocus() {
  barChosen_ = false;
  const ResultListView* list = CurrentList();
  ::SetFocus(list != nullptr ? list->Handle() : bar_->Handle());
}

/// There are two stops: the bar and the list.
void ResultView::MoveFocusOn() {
  if (::GetFocus() == bar_->Handle()) return TakeFocus();
  barChosen_ = true;
  ::SetFocus(bar_->Handle());
}

/// With another tab the focus comes to the list of that, but from a bar on which the user goes from tab to tab.
void ResultView::FollowFocus() {
  const ResultListView* list = CurrentList();
  if (list == nullptr || !HasFocusInside(Handle())) return;
  if (!barChosen_ || ::GetFocus() != bar_->Handle()) ::SetFocus(list->Handle());
}

/// The menu key; the mouse has its own way.
void ResultView::OnMenuKey() {
  if (::GetFocus() == bar_->Handle()) {
    const RECT tab = bar_->RectOf(document_.vbalDTabControl1->SelectedTab());
    POINT place{tab.left, tab.bottom};
    ::ClientToScreen(bar_->Handle(), &place);
    tabMenu_.PopUpAt(place);
  } else if (const ResultListView* list = CurrentList()) {
    const int row = list->Model().ListIndex();
    const RECT rect = list->RectOf(row);
    POINT place{0, 0};
    if (list->Shows(row)) place = {Height(rect), rect.bottom};
    ::ClientToScreen(list->Handle(), &place);
    resultMenu_.PopUpAt(place);
  }
}

LRESULT ResultView::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SHOWWINDOW:
      if (wParam != 0) document_.Show();
      break;
    case WM_SIZE:
      if (!bar_) break;
      document_.Resize(TwipsOfPixels(LOWORD(lParam)), TwipsOfPixels(HIWORD(lParam)));
      Layout();
      return 0;
    case WM_TIMER:
      if (fit_.Take(wParam)) return 0;
      break;
    case WM_SETFOCUS:
      TakeFocus();
      return 0;
    case WM_CONTEXTMENU:
      if (lParam == -1) OnMenuKey();
      return 0;
    case WM_MOUSEWHEEL:
      if (const ResultListView* list = CurrentList(); list != nullptr && ::GetFocus() == bar_->Handle()) {
        return ::SendMessageW(list->Handle(), message, wParam, lParam);
      }
      break;
    case WM_NCDESTROY:
      OnGone();
      break;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

}  // namespace quorvane::windows
