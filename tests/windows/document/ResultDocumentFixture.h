#pragma once

#include <functional>
#include <memory>
#include <string>

#include "InPlaceSite.h"
#include "results/ResultWindowFixture.h"
#include "windows/forms/ViewFactory.h"
#include "windows/platform/Win32Windows.h"
#include "windows/results/DocumentControl.h"
#include "windows/results/ResultListView.h"
#include "windows/results/ResultTabBar.h"
#include "windows/results/ResultView.h"

namespace quorvane::test {

/// The result document in a place of a host, over an add-in connected to the embedded host.
class ResultDocumentTest : public ::testing::Test {
 protected:
  ResultDocumentTest();
  ~ResultDocumentTest() override;

  /// Puts the document into the site's window; with `user` as what the user works in.
  void Activate(bool user = false);
  /// Handles messages until none has come for a while.
  static void Pump();
  /// Handles messages until `reached`, for some seconds at most.
  static bool PumpUntil(const std::function<bool()>& reached);

  /// A page with rows "row 0", "row 1" and on, which have no match behind them.
  void MakeRows(int count);
  HWND DocumentHandle();
  HWND ListHandle() { return reinterpret_cast<HWND>(static_cast<std::intptr_t>(world.Active().ListHWnd())); }
  windows::ResultListView& ListView();
  windows::ResultTabBar& Bar();
  LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return ::SendMessageW(ListHandle(), message, wParam, lParam);
  }
  int TopRow() { return static_cast<int>(Ask(LB_GETTOPINDEX)); }
  std::u16string TextOf(int row);
  RECT RectOf(int row);
  void Key(int key) { Ask(WM_KEYDOWN, static_cast<WPARAM>(key), 0); }
  void Press(HWND window, UINT message, POINT place);
  void PressTab(UINT message, const std::u16string& key, bool cross = false);

  ResultWorld world;
  com::ComPtr<InPlaceSite> site;
  com::ComPtr<windows::DocumentControl> control;
  com::ComPtr<IOleObject> object;
  com::ComPtr<IOleInPlaceObject> place;

 private:
  class MixedWindows;

  std::unique_ptr<MixedWindows> mixed_;
  windows::ViewFactory views_;
};

}  // namespace quorvane::test
