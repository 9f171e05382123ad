#include "windows/host32/MainFrame.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "windows/host32/Classes.h"
#include "workbench/model/CommandButton.h"
#include "workbench/model/HostCommandBars.h"
#include "workbench/model/HostWindow.h"

namespace quorvane::container {

namespace {

constexpr UINT kFirstEntry = 1000;
constexpr UINT kFirstChild = 50000;

std::u16string TitleOf(HWND window) {
  std::u16string title(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, u'\0');
  title.resize(
      static_cast<std::size_t>(GetWindowTextW(window, com::Wide(title.data()), static_cast<int>(title.size()))));
  return title;
}

}  // namespace

MainFrame::MainFrame(std::shared_ptr<workbench::Workbench> workbench, const std::shared_ptr<Exporter>& exporter)
    : workbench_(std::move(workbench)), exporter_(exporter) {
  for (const wchar_t* name : {L"wndclass_desked_gsk", L"VbaWindow", L"VbToolFrame"}) Register(name);
  const std::u16string title = workbench_->TheMainWindow()->Caption();
  CreateWindowExW(0, L"wndclass_desked_gsk", com::Wide(title), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 20, 20, 900, 640,
                  nullptr, nullptr, GetModuleHandleW(nullptr), static_cast<WindowObject*>(this));
  exporter_->MakeToolWindow = [this](const std::shared_ptr<vbide::AddIn>&, const std::u16string& progId,
                                     const std::u16string& caption, const std::u16string&,
                                     com::ComPtr<IUnknown>& document) {
    return MakeToolWindow(progId, caption, document);
  };
  followed_.push_back(workbench_->ActivePaneChanged.Subscribe([this] { FollowPanes(); }));
  for (const auto& bar : workbench_->TheCommandBars()->Bars()) {
    followed_.push_back(bar->Changed.Subscribe([this] { FollowMenu(); }));
  }
  FollowMenu();
  FollowPanes();
  ShowWindow(handle_, SW_SHOW);
}

MainFrame::~MainFrame() {
  exporter_->MakeToolWindow = nullptr;
  tools_.clear();
  codes_.clear();
  if (handle_ != nullptr) DestroyWindow(handle_);
}

void MainFrame::MakeClient() {
  const HMENU bar = CreateMenu();
  entries_ = CreatePopupMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(entries_), L"&Add-Ins");
  SetMenu(handle_, bar);
  CLIENTCREATESTRUCT create{nullptr, kFirstChild};
  client_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"MDICLIENT", nullptr,
                            WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, 0, 0, 0, handle_, nullptr,
                            GetModuleHandleW(nullptr), &create);
}

void MainFrame::FollowPanes() {
  const auto panes = workbench_->TheDesk()->Panes();
  std::erase_if(codes_, [&](const auto& code) { return std::ranges::find(panes, code->ThePane()) == panes.end(); });
  for (const auto& pane : panes) {
    const auto shows = [&](const auto& code) { return code->ThePane() == pane; };
    if (!pane->TheWindow()->Visible() || std::ranges::any_of(codes_, shows)) continue;
    codes_.push_back(std::make_unique<CodeWindow>(client_, pane, workbench_->ThePage()));
  }
}

void MainFrame::FollowMenu() {
  while (DeleteMenu(entries_, 0, MF_BYPOSITION)) {
  }
  followedEntries_.clear();
  UINT id = kFirstEntry;
  for (const auto& bar : workbench_->TheCommandBars()->Bars()) {
    for (const auto& button : bar->Buttons()) {
      followedEntries_.push_back(button->Changed.Subscribe([this] { FollowMenu(); }));
      const UINT flags = MF_STRING | (button->Enabled() ? MF_ENABLED : MF_GRAYED);
      if (button->Visible()) AppendMenuW(entries_, flags, id, com::Wide(button->Caption()));
      ++id;
    }
  }
  DrawMenuBar(handle_);
}

void MainFrame::EnableEntries(bool enabled) {
  for (const auto& bar : workbench_->TheCommandBars()->Bars()) {
    for (const auto& button : bar->Buttons()) button->SetEnabled(enabled);
  }
}

std::shared_ptr<vbide::Window> MainFrame::MakeToolWindow(const std::u16string& progId, const std::u16string& caption,
                                                         com::ComPtr<IUnknown>& document) {
  document = MakeByProgId(progId);
  auto model = std::make_shared<workbench::HostWindow>(workbench_->TheDesk()->NewHandle(), caption, false);
  tools_.push_back(std::make_unique<ToolFrame>(handle_, model, document));
  followed_.push_back(tools_.back()->LayoutChanged.Subscribe([this] { Layout(); }));
  return model;
}

void MainFrame::Layout() {
  RECT client{};
  GetClientRect(handle_, &client);
  for (const auto& tool : tools_) tool->TakeRoom(client);
  MoveWindow(client_, client.left, client.top, client.right - client.left, client.bottom - client.top, TRUE);
}

LRESULT MainFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      MakeClient();
      break;
    case WM_SIZE:
      Layout();
      return 0;  // the client area keeps the place that Layout gave it
    case WM_ENABLE:
      EnableEntries(wParam != 0);
      break;
    case WM_SETTEXT: {
      const LRESULT result = DefFrameProcW(handle_, client_, message, wParam, lParam);
      workbench_->TheMainWindow()->SetCaption(TitleOf(handle_));
      return result;
    }
    case WM_COMMAND: {
      UINT id = kFirstEntry;
      for (const auto& bar : workbench_->TheCommandBars()->Bars()) {
        for (const auto& button : std::vector(bar->Buttons())) {
          if (LOWORD(wParam) == id++) button->Click();
        }
      }
      break;
    }
    case WM_CLOSE:
      PostQuitMessage(0);
      return 0;
    default:
      break;
  }
  return DefFrameProcW(handle_, client_, message, wParam, lParam);
}

}  // namespace quorvane::container
