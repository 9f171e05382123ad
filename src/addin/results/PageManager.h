#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "addin/core/Counted.h"
#include "addin/core/ILib.h"
#include "addin/results/PageCollection.h"
#include "base/Event.h"

namespace quorvane::forms {
class Tab;
class TabControl;
}  // namespace quorvane::forms

namespace quorvane {

class IResultPage;

/// The one way to the result pages: keeps the tabs of the result tool window and the pages in step, makes and names new
/// pages, and tells when the current page may have changed.
class PageManager final : public ILib, private Counted<PageManager> {
 public:
  static constexpr std::string_view ClassName = "PageManager";
  using PageFactory = std::function<std::shared_ptr<IResultPage>()>;

  PageManager();
  ~PageManager() override;

  std::shared_ptr<forms::TabControl> mobjTabCtrl;  ///< from Setup to TearDown
  std::shared_ptr<PageCollection> mcolPages;

  bool BarEnabled() const;
  /// The tab after all page tabs cannot be closed, whatever the bar is.
  void SetBarEnabled(bool enabled);

  /// The page of the selected tab; null when there is no page. The tab after all page tabs is no resting place:
  /// with it selected, the last page becomes the selected one first.
  std::shared_ptr<IResultPage> ActivePage();
  /// A new page of that name at the end, selected.
  std::shared_ptr<IResultPage> Add(const std::u16string& name, bool CanClose);
  /// A new page with the next number in its name. Error 6 after number 32767, no page is made then.
  void AddNewPage();
  /// Selects the tab of the last page and raises TabChange; does nothing without pages.
  void SelectLastTab();

  void Setup() override;
  void TearDown() override;

  /// How pages are made. Without a factory Add raises error 429.
  static void SetPageFactory(PageFactory factory);

  Event<> TabChange;  ///< the current page may have changed; can come more than once for one change

 private:
  void Listen();

  void mobjTabCtrl_TabSelected();
  void mobjTabCtrl_TabMouseDown(const forms::Tab& tab, std::int16_t button);
  void mobjTabCtrl_TabDoubleClick(const forms::Tab& tab);
  void mobjTabCtrl_TabClose(const forms::Tab& tab);
  void mcolPages_ItemRemoved(const PageCollection::Index& key, bool bPassive);

  std::int16_t pagesMade_ = 0;       ///< only grows, so that keys stay unique
  std::vector<Subscription> onBar_;  ///< from Setup to TearDown
  Subscription onItemRemoved_;
};

}  // namespace quorvane
