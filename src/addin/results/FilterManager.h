#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "addin/core/Counted.h"
#include "addin/results/MatchItem.h"
#include "base/Event.h"

namespace quorvane {

class GlobalSetting;
class IListPage;
class IPage;
class PositionInfo;
class ResultCollection;
class XmlDocument;

/// Owns the result document of one page: writes each match as a MatchItem element, passes it through the user's
/// stylesheet and hands the text that comes out to the page as one line.
class FilterManager : private Counted<FilterManager> {
 public:
  static constexpr std::string_view ClassName = "FilterManager";

  FilterManager();
  ~FilterManager();

  IPage* mobjParent = nullptr;  ///< from Setup to TearDown

  /// The present text of the stylesheet setting, parsed; empty when it is not well-formed.
  XmlDocument& StyleSheet();
  /// Writes the result document; a failing write raises.
  void Save(const std::u16string& filename) const;
  /// The element of the match `id`, 1-based; raises error 9 when there is none.
  MatchItem Item(std::int32_t id) const;
  /// Leaves an empty document.
  void Clear();
  void Setup(IPage& p);
  void TearDown();
  /// Rebuilds the page's list from the document; leaves it empty when the stylesheet is not well-formed. A stylesheet
  /// that cannot run raises; the list stays as far as it was filled.
  void Refresh(IListPage& p);

  Event<const std::u16string&, std::int32_t> OnAdd;  ///< line, id: one element has been added and transformed
  Event<> OnClear;
  Event<> OnRefresh;  ///< the stylesheet has changed

 private:
  void mcolResult_OnAdd(const PositionInfo& pi);
  void mcolResult_OnClear();
  void mobjSetting_PropertyChange(const std::u16string& propName);

  std::shared_ptr<ResultCollection> mcolResult;
  std::shared_ptr<GlobalSetting> mobjSetting;
  std::shared_ptr<XmlDocument> mobjXsl;
  std::unique_ptr<XmlTable> mobjDoc;
  Subscription onAdd_;
  Subscription onClear_;
  Subscription onPropertyChange_;
};

}  // namespace quorvane
