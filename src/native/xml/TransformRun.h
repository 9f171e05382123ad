#pragma once

#include <memory>
#include <string>

struct _xmlDoc;
struct _xmlNode;
struct _xsltTransformContext;

namespace quorvane::native {

class Stylesheet;
class XmlErrorCapture;

/// One stylesheet made ready to run over elements of one document, again and again as long as that shows nowhere.
class TransformRun {
 public:
  /// `document` must outlive the run.
  TransformRun(std::shared_ptr<const Stylesheet> stylesheet, _xmlDoc* document);
  ~TransformRun();
  TransformRun(const TransformRun&) = delete;
  TransformRun& operator=(const TransformRun&) = delete;

  /// The run in `last` when it serves for `stylesheet` again, else a new one put in its place. All runs in `last` are
  /// over elements of `document`.
  static TransformRun& Again(std::unique_ptr<TransformRun>& last, const std::shared_ptr<const Stylesheet>& stylesheet,
                             _xmlDoc* document);

  /// The output with `element` as the initial context node. Raises error 5 with the library's words when the
  /// stylesheet fails, and error 28 when it takes too much (TransformBudget), then and at each later call.
  std::u16string Transform(_xmlNode* element);

 private:
  /// True when this run can be used for `stylesheet`, with the same outcome as a new one.
  bool Serves(const Stylesheet& stylesheet) const { return mblnReusable && mobjStylesheet.get() == &stylesheet; }
  void NewOutput();
  void Evaluate(_xmlNode* element, const XmlErrorCapture& capture);
  void FinishOutput();
  bool IsPlainText() const;
  std::u16string PlainText() const;
  std::u16string Serialised();

  std::shared_ptr<const Stylesheet> mobjStylesheet;
  _xmlDoc* mobjDocument;
  _xsltTransformContext* mobjContext;
  _xmlDoc* mobjOutput = nullptr;
  bool mblnReusable;
};

}  // namespace quorvane::native
